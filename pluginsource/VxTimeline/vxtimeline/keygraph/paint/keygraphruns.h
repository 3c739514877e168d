#ifndef KEYGRAPHRUNS_H
#define KEYGRAPHRUNS_H

#include "vxtimeline/keygraph/paint/keygraphkeys.h"

#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <vector>

/// Points of a curve between two indexes, both included.
struct KeyGraphRun
{
    int first = 0;
    int last = 0;

    friend bool operator==(const KeyGraphRun &a, const KeyGraphRun &b)
    {
        return a.first == b.first && a.last == b.last;
    }
};

/// The parts of a curve that its own marks hide, from left to right.
///
/// Keys on every frame of a long motion make a band of marks whose curve cannot be recognised.
/// There the curve is drawn once more over its marks. Separate marks, and a few that touch, stay as
/// they are.
///
/// marks, points: of one channel, by ascending x, in pixels.
std::vector<KeyGraphRun> keyGraphHiddenRuns(const std::vector<KeyGraphMark> &marks,
                                            const QVector<QPointF> &points);

#endif
