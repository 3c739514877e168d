#ifndef VXTIME_H
#define VXTIME_H

#include <QtCore/QMetaType>

/// A point in time, or a span of it, in ticks; signed, 32 bits. 4800 ticks make a second, so every
/// usual frame rate has a whole number of ticks per frame.
using VxTime = qint32;

/// Ticks per second.
constexpr VxTime VxTicksPerSecond = 4800;

/// The latest and the earliest time: bounds for open-ended ranges.
constexpr VxTime VxTimeMax = 2147483647;
constexpr VxTime VxTimeMin = -VxTimeMax - 1;

#endif
