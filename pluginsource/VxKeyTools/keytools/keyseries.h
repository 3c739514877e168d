#ifndef KEYSERIES_H
#define KEYSERIES_H

#include <vector>
#include <vxcore/vxkeyarrays.h>

/// The edited keys of one property as arrays: times in ticks, ascending before the edit, and
/// values. An edit may change both freely; the edit engine then sorts the keys, and a key that
/// lands on another one replaces it. Types and shapes are not filled in.
using KeySeries = VxKeyArrays<double>;

/// The whole tick nearest to a time, within the range of times.
VxTime wholeTick(double time);

/// Edits of times, in ticks. Drawings show keys over frames before and after.

/// Moves each key by `offset` ticks: `a b . .` by 2: `. . a b`.
void moveTimes(std::vector<VxTime> *times, double offset);
/// Multiplies distances from `pivot` by `factor`: `a b c . .` by 2 about a: `a . b . c`. A factor
/// of 0 moves all keys to the pivot, where one remains; below 0 their order is reversed.
void scaleTimes(std::vector<VxTime> *times, double factor, double pivot);
/// Moves each key to the nearest multiple of `step` ticks: `a .b . c` becomes `a b . c`.
void snapTimes(std::vector<VxTime> *times, VxTime step);
/// Equal distances between the first and the last key: `a b . . c` becomes `a . b . c`.
void spaceTimes(std::vector<VxTime> *times);
/// Inserts `count` ticks at `time`: keys at or after it move later. `a b c` with 1 at b: `a . b c`.
void insertTime(std::vector<VxTime> *times, VxTime time, VxTime count);
/// Removes the ticks from `time` to before `time + count`, which must have no keys: later keys
/// move earlier. `a . . d` without the two ticks after a: `a d`.
void removeTime(std::vector<VxTime> *times, VxTime time, VxTime count);

/// Edits of values.

/// Multiplies distances from `pivot` by `factor`; -1 mirrors the values about the pivot.
void scaleValues(KeySeries *keys, double factor, double pivot);
/// Adds `amount` times a weight that is 1 from `start` to `end` and falls to 0 within `falloff`
/// ticks before and after, as half a cosine wave.
void offsetValues(KeySeries *keys, double amount, VxTime start, VxTime end, VxTime falloff);
/// The weight of offsetValues(), 0 to 1.
double falloffWeight(double time, double start, double end, double falloff);
double meanValue(const KeySeries &keys);

#endif
