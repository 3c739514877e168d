#ifndef KEYEVALUATOR_H
#define KEYEVALUATOR_H

#include "keys/keysegment.h"
#include "keys/keytrack.h"

/// The values of a track between its keys.
///
/// Playback and painting request times close together, so each call takes the last segment as
/// `cursor`: any int, initially for instance 0. It is only a hint: one that predates a change of
/// keys costs a search and is never wrong. The evaluator itself refers only to the track, which
/// must outlive it.
///
///     time     . | a . . b . . c | .
///     value    a | a..b..b..c..c | c      before the first and after the last key its value holds
///
/// Arithmetic is double, the result single precision; at a key it is the key's value.
template <class V> class KeyEvaluator
{
public:
    explicit KeyEvaluator(const KeyTrack<V> &track)
        : m_keys(track.columns())
        , m_spacing(track.spacing())
        , m_spacedFrom(track.spacedFrom())
        , m_uniformType(track.uniformType())
    {
    }

    /// The value at `time` in ticks; `noKeys` when the track has no key.
    V value(VxTime time, V noKeys, int &cursor) const
    {
        if (m_keys.count == 0)
            return noKeys;
        const int i = segment(time, cursor);
        if (holds(i, time))
            return m_keys.values[i < 0 ? 0 : i];
        return V(curve(i).at(time));
    }

    /// The values at many times, preferably ascending; `out` has room for `count`. The results
    /// equal those of single calls.
    void values(const VxTime *times, int count, V *out, V noKeys) const;

    /// Index of the key at or before `time`, -1 before the first key.
    int segment(VxTime time, int &cursor) const
    {
        // The remembered segment and the one after it, then a search.
        const int i = cursor;
        if (i >= 0 && i < m_keys.count && timeOf(i) <= time) {
            if (i + 1 == m_keys.count || time < timeOf(i + 1))
                return i;
            if (i + 2 == m_keys.count || time < timeOf(i + 2))
                return cursor = i + 1;
        }
        return cursor = m_spacing > 0 ? spacedSegment(time) : search(time);
    }

private:
    /// Computes the times of equally spaced keys: cache misses are most of the cost of a frame in a
    /// large scene.
    VxTime timeOf(int i) const
    {
        return m_spacing > 0 ? VxTime(m_spacedFrom + qint64(i) * m_spacing) : m_keys.times[i];
    }
    int spacedSegment(VxTime time) const
    {
        const qint64 distance = qint64(time) - m_spacedFrom;
        return distance < 0 ? -1 : int(std::min<qint64>(distance / m_spacing, m_keys.count - 1));
    }
    /// True when the value at `time` is exactly that of key i (of the first key for -1).
    bool holds(int i, VxTime time) const
    {
        return KeyTraits<V>::Steps || i < 0 || i + 1 == m_keys.count || timeOf(i) == time ||
               type(i) == VxKeyInterp::Constant;
    }
    /// A uniform type saves fetching the types, a third of the memory that a frame of playback
    /// reads.
    quint8 type(int i) const
    {
        return m_uniformType != MixedKeyTypes ? m_uniformType : m_keys.types[i];
    }
    CurveSegment curve(int i) const
    {
        if (type(i) == VxKeyInterp::Tcb)
            return m_spacing > 0 && !m_keys.tcb ? evenCurve(i) : smoothCurve(i);
        return linearSegment(plainKey(i), plainKey(i + 1));
    }
    /// Smooth keys at even spacing, as in baked motion: three divisions fewer, and no times
    /// fetched.
    CurveSegment evenCurve(int i) const
    {
        const V *values = m_keys.values + i;
        const auto rise = [values](int from) {
            return double(values[from + 1]) - double(values[from]);
        };
        const double chord = rise(0);
        return evenSegment(double(timeOf(i)), double(m_spacing), chord, double(values[0]),
                           i > 0 ? rise(-1) : chord, i + 2 < m_keys.count ? rise(1) : chord);
    }
    CurveKey plainKey(int i) const { return {double(timeOf(i)), double(m_keys.values[i])}; }

    int search(VxTime time) const;
    int searchOnward(VxTime time, int from) const;
    CurveSegment smoothCurve(int i) const;
    CurveKey shapedKey(int i) const;

    VxKeyColumns<V> m_keys;
    VxTime m_spacing;
    VxTime m_spacedFrom;
    quint8 m_uniformType;
};

extern template class KeyEvaluator<float>;
extern template class KeyEvaluator<qint32>;

#endif
