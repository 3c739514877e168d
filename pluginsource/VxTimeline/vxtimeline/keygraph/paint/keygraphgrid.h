#ifndef KEYGRAPHGRID_H
#define KEYGRAPHGRID_H

#include "vxtimeline/keygraph/paint/keygraphscale.h"

#include <QtCore/QString>
#include <QtCore/QVector>
#include <functional>
#include <vxcore/vxtime.h>

/// The grid behind the curves: lines at round values and round frames, as lists to be painted.
namespace KeyGraphGrid {

/// A line across the graph.
struct Line
{
    double position = 0.0; // pixels: y of a value line, x of a frame line
    bool major = false;
    QString label; // of major lines; empty for others
};

/// The smallest of 1, 2 and 5 times a power of ten that is at least smallest. 1 for arguments up to
/// 0 and NaN.
double roundStep(double smallest);
/// The number of parts into which minor lines divide such a step: 5, or 4 when it begins with a 2.
int partsOf(double step);

/// The label of a value line: as many decimals as the step has, no negative zero.
QString valueLabel(double value, double step);

/// The lines of the values visible in a height. Major ones are at least spacing pixels apart; where
/// fewer than three of them would have space for a label above (labelHeight pixels, above the first
/// and below the last, too), closer, down to labelHeight.
QVector<Line> valueLines(const KeyGraphScale &scale, int height, double spacing,
                         double labelHeight);

/// The lines of the frames visible in a width. Major ones are so far apart that labels centred on
/// them have gaps of at least gap pixels; labelWidth measures a label in pixels. No lines for a
/// timeStep below 1.
QVector<Line> frameLines(const KeyGraphScale &scale, int width, VxTime timeStep, double gap,
                         const std::function<int(const QString &)> &labelWidth);

} // namespace KeyGraphGrid

#endif
