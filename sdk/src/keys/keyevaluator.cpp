#include "keys/keyevaluator.h"

template <class V>
void KeyEvaluator<V>::values(const VxTime *times, int count, V *out, V noKeys) const
{
    if (m_keys.count == 0) {
        std::fill_n(out, count, noKeys);
        return;
    }
    int i = -1;
    int known = -1; // the segment whose curve is cached
    CurveSegment shape;
    for (int k = 0; k < count; ++k) {
        i = searchOnward(times[k], i);
        if (holds(i, times[k])) {
            out[k] = m_keys.values[i < 0 ? 0 : i];
            continue;
        }
        if (i != known) {
            shape = curve(i);
            known = i;
        }
        out[k] = V(shape.at(times[k]));
    }
}

template <class V> int KeyEvaluator<V>::search(VxTime time) const
{
    const VxTime *end = m_keys.times + m_keys.count;
    return int(std::upper_bound(m_keys.times, end, time) - m_keys.times) - 1;
}

// Painted times are a few keys apart: gallops onward from the last segment.
template <class V> int KeyEvaluator<V>::searchOnward(VxTime time, int from) const
{
    if (from >= 0 && m_keys.times[from] > time)
        return search(time);
    int step = 1;
    while (m_keys.count - from > step && m_keys.times[from + step] <= time) {
        from += step;
        step *= 2;
    }
    const VxTime *begin = m_keys.times + from + 1;
    const VxTime *end = m_keys.times + std::min(from + step, m_keys.count);
    return int(std::upper_bound(begin, std::max(begin, end), time) - m_keys.times) - 1;
}

template <class V> CurveSegment KeyEvaluator<V>::smoothCurve(int i) const
{
    const bool first = i == 0;
    const bool last = i + 2 == m_keys.count;
    const CurveKey before = first ? CurveKey() : plainKey(i - 1);
    const CurveKey after = last ? CurveKey() : plainKey(i + 2);
    return tcbSegment(first ? nullptr : &before, shapedKey(i), shapedKey(i + 1),
                      last ? nullptr : &after);
}

// A neighbour of another type shapes a smooth segment with its time and value only.
template <class V> CurveKey KeyEvaluator<V>::shapedKey(int i) const
{
    CurveKey key = plainKey(i);
    if (m_keys.tcb && type(i) == VxKeyInterp::Tcb) {
        key.tension = double(m_keys.tcb[i].tension);
        key.continuity = double(m_keys.tcb[i].continuity);
        key.bias = double(m_keys.tcb[i].bias);
    }
    return key;
}

template class KeyEvaluator<float>;
template class KeyEvaluator<qint32>;
