#ifndef KEYGRAPHCURVE_H
#define KEYGRAPHCURVE_H

#include "vxtimeline/keygraph/paint/keygraphscale.h"

#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <vector>
#include <vxcore/vxtime.h>

class VxKeyGraphChannel;

// A curve as the key graph paints it: a polyline through its values at every second pixel column.
// The property evaluates the values between keys.

/// The times of the columns 0, 2, 4 ... below width, ascending.
std::vector<VxTime> keyGraphSampleTimes(const KeyGraphScale &scale, int width);

/// The points of values at times.
QVector<QPointF> keyGraphCurvePoints(const std::vector<VxTime> &times,
                                     const std::vector<double> &values, const KeyGraphScale &scale);

/// Caches the values of some curves at the sample times while neither keys nor the time axis nor
/// the width change: panning and zooming the value axis evaluates no property.
class KeyGraphCurves
{
public:
    /// Drops all values.
    void invalidate();
    /// The points of a channel's curve. index: of the channel in its list.
    QVector<QPointF> points(const VxKeyGraphChannel &channel, int index, const KeyGraphScale &scale,
                            int width);

private:
    void prepare(const KeyGraphScale &scale, int width);

    KeyGraphScale m_scale;
    int m_width = -1;
    std::vector<VxTime> m_times;
    std::vector<std::vector<double>> m_values; // empty for a curve not yet evaluated
};

#endif
