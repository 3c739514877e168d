#ifndef KEYTRACKWRITER_H
#define KEYTRACKWRITER_H

#include "keys/keytrack.h"

#include <cmath>
#include <cstring>

inline bool isFiniteTcb(const VxTcb &tcb)
{
    return std::isfinite(tcb.tension) && std::isfinite(tcb.continuity) && std::isfinite(tcb.bias);
}

inline bool isShaped(const VxTcb &tcb)
{
    const VxTcb none;
    return std::memcmp(&tcb, &none, sizeof tcb) != 0;
}

/// The type that a key of this kind can have: unknown types become that of new keys.
template <class V> constexpr quint8 legalType(quint8 type)
{
    return KeyTraits<V>::Steps || type > VxKeyInterp::Tcb ? KeyTraits<V>::NewKeyType : type;
}

/// Fills a track from the front with keys of other tracks or columns, for passes that rebuild a
/// range of keys. The maximum size is given beforehand, so that arrays are allocated once.
template <class V> class KeyTrackWriter
{
public:
    using Columns = VxKeyColumns<V>;

    KeyTrackWriter(KeyTrack<V> &out, size_t most, bool withTcb)
        : m_out(out)
    {
        out.m_times.resize(most);
        out.m_values.resize(most);
        out.m_types.resize(most);
        out.m_tcb.resize(withTcb && !KeyTraits<V>::Steps ? most : 0);
    }
    int count() const { return m_count; }

    void add(const Columns &from, int i)
    {
        m_out.m_times[m_count] = from.times[i];
        m_out.m_values[m_count] = from.values[i];
        m_out.m_types[m_count] =
            from.types ? legalType<V>(from.types[i]) : KeyTraits<V>::NewKeyType;
        if (!m_out.m_tcb.empty() && from.tcb)
            m_out.m_tcb[m_count] = from.tcb[i];
        ++m_count;
    }
    /// Adds keys of a track by index, each with a new time.
    void addPicked(const Columns &from, const std::vector<int> &indexes,
                   const std::vector<VxTime> &times)
    {
        std::copy(times.begin(), times.end(), m_out.m_times.begin() + m_count);
        pick(from.values, indexes, m_out.m_values);
        pick(from.types, indexes, m_out.m_types);
        if (from.tcb)
            pick(from.tcb, indexes, m_out.m_tcb);
        m_count += int(indexes.size());
    }
    void addRun(const Columns &from, int first, int last)
    {
        if (first == last)
            return;
        std::copy(from.times + first, from.times + last, m_out.m_times.begin() + m_count);
        std::copy(from.values + first, from.values + last, m_out.m_values.begin() + m_count);
        const auto types = m_out.m_types.begin() + m_count;
        if (from.types)
            std::transform(from.types + first, from.types + last, types, legalType<V>);
        else
            std::fill_n(types, last - first, KeyTraits<V>::NewKeyType);
        if (!m_out.m_tcb.empty() && from.tcb)
            std::copy(from.tcb + first, from.tcb + last, m_out.m_tcb.begin() + m_count);
        m_count += last - first;
    }
    void finish()
    {
        m_out.m_times.resize(m_count);
        m_out.m_values.resize(m_count);
        m_out.m_types.resize(m_count);
        m_out.m_tcb.resize(m_out.m_tcb.empty() ? 0 : m_count);
        m_out.countShaped();
        m_out.noteTypes();
        m_out.noteSpacing();
        m_out.shrinkIfLoose();
    }

private:
    template <class T>
    void pick(const T *from, const std::vector<int> &indexes, std::vector<T> &to) const
    {
        std::transform(indexes.begin(), indexes.end(), to.begin() + m_count,
                       [from](int i) { return from[i]; });
    }

    KeyTrack<V> &m_out;
    int m_count = 0;
};

#endif
