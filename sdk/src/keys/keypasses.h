#ifndef KEYS_KEYPASSES_H
#define KEYS_KEYPASSES_H

#include <vxcore/vxtime.h>

/// Questions about whole arrays of times and indexes of keys. They are asked block by block, and
/// within a block nothing depends on an answer, so that they run at the speed of memory.
/// See also isStrictlyAscending() in keytrack.h.

/// True when ascending indexes (at least one) have no gap.
inline bool areContiguous(const int *indexes, int indexCount)
{
    return indexes[indexCount - 1] - indexes[0] == indexCount - 1;
}

/// The ticks between any two neighbouring times (strictly ascending) when that is the same
/// throughout; else, and for fewer than two, 0.
VxTime evenSpacing(const VxTime *times, int count);

/// True when each of the keys at the given indexes (ascending, at least one) can take its new time
/// without meeting or passing another key, moved or not.
bool keepsOrder(const VxTime *times, int count, const int *indexes, const VxTime *newTimes,
                int indexCount);

#endif
