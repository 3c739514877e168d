#include "keys/keycollision.h"
#include "keys/keymovemerge.h"
#include "keys/keytrack.h"

#include <algorithm>
#include <vxcore/vxkeyedit.h>

namespace {

template <class T> std::vector<T> picked(const T *from, const std::vector<int> &indexes)
{
    std::vector<T> values(indexes.size());
    std::transform(indexes.begin(), indexes.end(), values.begin(),
                   [from](int i) { return from[i]; });
    return values;
}

// Ascending indexes as spans, `offset` added to each.
std::vector<VxKeySpan> spansOf(const std::vector<int> &indexes, int offset)
{
    std::vector<VxKeySpan> spans;
    for (const int index : indexes) {
        if (spans.empty() || spans.back().last != index + offset)
            spans.push_back({index + offset, index + offset});
        ++spans.back().last;
    }
    return spans;
}

std::vector<VxTime> presentTimes(const VxTime *times, const int *source, int count)
{
    std::vector<VxTime> present(static_cast<std::size_t>(count));
    std::transform(source, source + count, present.begin(), [times](int i) { return times[i]; });
    return present;
}

// True for neighbouring keys that keep their order and pass no other key: edits of whole tracks.
template <class V>
bool isBlock(const VxKeyColumns<V> &keys, const VxKeyEdit<V> &edit,
             const std::vector<VxTime> &times)
{
    const int first = edit.source[0];
    const int end = first + edit.count;
    return edit.source[edit.count - 1] == end - 1 &&
           (first == 0 || keys.times[first - 1] < times.front()) &&
           (end == keys.count || keys.times[end] > times.back()) &&
           isStrictlyAscending(times.data(), edit.count);
}

template <class V>
VxKeyResult<V> moveBlock(const VxKeyColumns<V> &keys, const VxKeyEdit<V> &edit,
                         std::vector<VxTime> &&times)
{
    const int first = edit.source[0];
    const int end = first + edit.count;
    VxKeyResult<V> result;
    result.span = VxTimeRange(std::min(keys.times[first], times.front()),
                              std::max(keys.times[end - 1], times.back()));
    result.keys.times = std::move(times);
    if (edit.values)
        result.keys.values.assign(edit.values, edit.values + edit.count);
    else
        result.keys.values.assign(keys.values + first, keys.values + end);
    if (keys.types)
        result.keys.types.assign(keys.types + first, keys.types + end);
    if (keys.tcb)
        result.keys.tcb.assign(keys.tcb + first, keys.tcb + end);
    result.source.assign(edit.source, edit.source + edit.count);
    result.selected = {{first, end}};
    return result;
}

} // namespace

// Unsigned, because the offset may be wider than a time; the sums are within range.
std::vector<VxTime> vxShiftedKeyTimes(const VxTime *origins, int count, qint64 offset)
{
    if (count <= 0)
        return {};
    const auto limited = quint32(limitedOffset(origins[0], origins[count - 1], offset));
    std::vector<VxTime> times(origins, origins + count);
    for (VxTime &time : times)
        time = VxTime(quint32(time) + limited);
    return times;
}

std::vector<VxTime> vxPlanKeyTimes(const VxTime *times, int count, const VxKeyMoves &moves,
                                   VxCollision rule)
{
    if (moves.count <= 0)
        return {};
    switch (rule) {
    case VxCollision::WaitBeside:
        return planWaitingTimes(times, count, moves);
    case VxCollision::Nudge:
        return planNudgedTimes(times, count, moves);
    case VxCollision::Replace:
        break;
    }
    return std::vector<VxTime>(moves.targets, moves.targets + moves.count);
}

template <class V>
VxKeyResult<V> vxPlanKeyEdit(const VxKeyColumns<V> &keys, const VxKeyEdit<V> &edit,
                             VxCollision rule)
{
    VxKeyResult<V> result;
    if (edit.count <= 0)
        return result;
    std::vector<VxTime> times;
    if (edit.times)
        times = vxPlanKeyTimes(keys.times, keys.count,
                               {edit.source, edit.times, edit.count, edit.origins}, rule);
    else
        times = presentTimes(keys.times, edit.source, edit.count);
    if (times.empty())
        return result;

    if (isBlock(keys, edit, times))
        return moveBlock(keys, edit, std::move(times));
    // A descending list is reversed, which saves sorting it.
    const bool descends = edit.source[0] > edit.source[edit.count - 1];
    std::vector<int> source(edit.source, edit.source + edit.count);
    if (descends) {
        std::reverse(source.begin(), source.end());
        std::reverse(times.begin(), times.end());
    }
    MovedKeys moved;
    moved.setKeys(source.data(), times.data(), edit.count);
    const VxTime start = moved.times[0];
    const VxTime end = moved.times[moved.count - 1];
    result.span = VxTimeRange(std::min(keys.times[source.front()], start),
                              std::max(keys.times[source.back()], end));
    const VxTime *const timesEnd = keys.times + keys.count;
    const auto first =
        int(std::lower_bound(keys.times, timesEnd, result.span.getStart()) - keys.times);
    const auto last =
        int(std::upper_bound(keys.times, timesEnd, result.span.getEnd()) - keys.times);
    const StayingKeys staying(keys.times, first, last, source.data(), edit.count);
    MoveMerge merge(staying, moved);

    result.keys.values = picked(keys.values, merge.source);
    for (int k = 0; edit.values && k < moved.count; ++k) {
        const int listed = descends ? edit.count - 1 - moved.listedAt(k) : moved.listedAt(k);
        result.keys.values[std::size_t(merge.landed[std::size_t(k)])] = edit.values[listed];
    }
    if (keys.types)
        result.keys.types = picked(keys.types, merge.source);
    if (keys.tcb)
        result.keys.tcb = picked(keys.tcb, merge.source);
    result.selected = spansOf(merge.landed, first);
    result.merged = last - first - int(merge.times.size());
    result.keys.times = std::move(merge.times);
    result.source = std::move(merge.source);
    return result;
}

template VxKeyResult<float> vxPlanKeyEdit<float>(const VxKeyColumns<float> &,
                                                 const VxKeyEdit<float> &, VxCollision);
template VxKeyResult<qint32> vxPlanKeyEdit<qint32>(const VxKeyColumns<qint32> &,
                                                   const VxKeyEdit<qint32> &, VxCollision);
