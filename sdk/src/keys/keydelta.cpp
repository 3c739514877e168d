#include "keys/keydelta.h"

template <class V> void KeyDelta<V>::touch(const KeyTrack<V> &track, const VxTimeRange &times)
{
    if (times.getStart() > times.getEnd())
        return;
    if (!m_touched) {
        m_touched = true;
        m_range = times;
        m_keys = track.copyRange(times);
        return;
    }
    if (times.getStart() < m_range.getStart())
        extendBack(track, times.getStart());
    if (times.getEnd() > m_range.getEnd())
        extendOn(track, times.getEnd());
}

// Adds at least half as many keys as the span already holds, so that the span grows in few large
// steps.
template <class V> void KeyDelta<V>::extendBack(const KeyTrack<V> &track, VxTime start)
{
    const int last = track.lowerBound(m_range.getStart());
    const int desired = std::max(0, last - m_keys.count() / 2);
    const int first = std::min(track.lowerBound(start), desired);
    m_keys.insertMany(track.columns(first, last));
    m_range.setStart(first < last ? std::min(start, track.time(first)) : start);
}

template <class V> void KeyDelta<V>::extendOn(const KeyTrack<V> &track, VxTime end)
{
    const int first = track.upperBound(m_range.getEnd());
    const int desired = int(std::min<qint64>(qint64(first) + m_keys.count() / 2, track.count()));
    const int last = std::max(track.upperBound(end), desired);
    m_keys.insertMany(track.columns(first, last));
    m_range.setEnd(first < last ? std::max(end, track.time(last - 1)) : end);
}

template <class V> void KeyDelta<V>::trim(const KeyTrack<V> &track)
{
    if (!m_touched)
        return;
    auto [nowFirst, nowLast] = track.indexRange(m_range);
    int first = 0;
    int last = m_keys.count();
    while (first < last && nowFirst < nowLast && m_keys.isSameKey(first, track, nowFirst)) {
        ++first;
        ++nowFirst;
    }
    while (first < last && nowFirst < nowLast && m_keys.isSameKey(last - 1, track, nowLast - 1)) {
        --last;
        --nowLast;
    }
    if (first == last && nowFirst == nowLast) {
        *this = KeyDelta();
        return;
    }
    VxTimeRange differing(VxTimeMax, VxTimeMin);
    if (first < last)
        differing = {m_keys.time(first), m_keys.time(last - 1)};
    if (nowFirst < nowLast)
        differing = differing.united({track.time(nowFirst), track.time(nowLast - 1)});
    m_keys.removeIndexRange(last, m_keys.count());
    m_keys.removeIndexRange(0, first);
    m_keys.shrink();
    m_range = differing;
}

template <class V> void KeyDelta<V>::swap(KeyTrack<V> &track)
{
    if (m_touched)
        track.swapRange(m_range, m_keys);
}

template class KeyDelta<float>;
template class KeyDelta<qint32>;
