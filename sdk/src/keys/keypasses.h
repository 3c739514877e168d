#ifndef KEYPASSES_H
#define KEYPASSES_H

#include <vxcore/vxtime.h>

/// Predicates over whole arrays of key times and indexes. They work block by block, without
/// branches inside a block, so that they run at memory speed.
/// See also isStrictlyAscending() in keytrack.h.

/// True when ascending indexes (at least one) have no gap.
inline bool areContiguous(const int *indexes, int indexCount)
{
    return indexes[indexCount - 1] - indexes[0] == indexCount - 1;
}

/// The ticks between successive times (strictly ascending) if equal throughout; else, and for
/// fewer than two, 0.
VxTime evenSpacing(const VxTime *times, int count);

/// True when each of the keys at the given indexes (ascending, at least one) can take its new time
/// without meeting or passing another key, moved or not.
bool keepsOrder(const VxTime *times, int count, const int *indexes, const VxTime *newTimes,
                int indexCount);

#endif
