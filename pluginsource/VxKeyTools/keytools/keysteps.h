#ifndef KEYSTEPS_H
#define KEYSTEPS_H

#include <algorithm>
#include <vxcore/vxtime.h>

/// The step between samples from one time to another, in ticks, at least one. More than 100,000
/// samples indicate a mistyped time: steps get longer.
inline qint64 boundedStep(qint64 step, VxTime first, VxTime last)
{
    constexpr qint64 MaxSamples = 100000;
    return std::max({step, qint64(1), (qint64(last) - first) / MaxSamples});
}

#endif
