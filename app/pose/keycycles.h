#ifndef KEYCYCLES_H
#define KEYCYCLES_H

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <vxcore/vxkeyarrays.h>
#include <vxcore/vxtimerange.h>

/// The keys of a property after a cycle has been repeated, from the cycle's end on.
///
/// `cycle` spans a cycle, both ends included; `count` is the number of cycles afterwards, the
/// present one included. Each repetition adds `offset` to the values. Where cycles meet, the key at
/// the end counts, with the shape of the key at the start, which begins the next cycle; without a
/// key at the end it is the key at the start. The caller ensures that the times of
/// the repetitions are in the range of VxTime.
///     `a . b` twice: `a . b . b`      `a . b .` (ending on the dot) twice: `a . b a . b`
template <class V>
VxKeyArrays<V> repeatedKeys(const VxKeyColumns<V> &keys, const VxTimeRange &cycle, int count,
                            double offset)
{
    const VxTime *const end = keys.times + keys.count;
    const int first = int(std::lower_bound(keys.times, end, cycle.getStart()) - keys.times);
    const int last = int(std::upper_bound(keys.times, end, cycle.getEnd()) - keys.times);
    VxKeyArrays<V> result;
    if (first == last || count < 2)
        return result;
    const bool hasStart = keys.times[first] == cycle.getStart();
    const bool hasEnd = keys.times[last - 1] == cycle.getEnd();
    const VxTime period = cycle.getEnd() - cycle.getStart();
    const auto append = [&](int index, int shapeOf, int round) {
        const double value = double(keys.values[index]) + offset * round;
        result.append(keys, shapeOf, keys.times[index] + round * period,
                      std::is_integral<V>::value ? V(std::lround(value)) : V(value));
    };
    if (hasEnd)
        append(last - 1, hasStart ? first : last - 1, 0);
    for (int round = 1; round < count; ++round) {
        for (int i = hasStart && hasEnd ? first + 1 : first; i < last; ++i) {
            const bool meets = hasStart && hasEnd && i == last - 1 && round < count - 1;
            append(i, meets ? first : i, round);
        }
    }
    return result;
}

#endif
