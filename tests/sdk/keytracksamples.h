#ifndef KEYTRACKSAMPLES_H
#define KEYTRACKSAMPLES_H

#include "keydrawing.h"
#include "testing/vxwarningguard.h"

#include <QtTest>

/// Tracks and shapes that several tests use.
using Indexes = QVector<int>;
using Times = QVector<VxTime>;

inline VxKeyShape tcbShape(float tension, float continuity = 0, float bias = 0)
{
    VxKeyShape shape;
    shape.type = VxKeyInterp::Tcb;
    shape.tcb = {tension, continuity, bias};
    return shape;
}

inline KeyTrack<float> evenTrack(int count, VxTime step = 200)
{
    std::vector<VxTime> times(count);
    std::vector<float> values(count);
    for (int i = 0; i < count; ++i) {
        times[i] = i * step;
        values[i] = float(i);
    }
    KeyTrack<float> track;
    track.insertMany({times.data(), values.data(), nullptr, nullptr, count});
    return track;
}

#endif
