#ifndef VXKEYARRAYS_H
#define VXKEYARRAYS_H

#include <vector>
#include <vxcore/vxkey.h>

/// Many keys, one array a column: the owning counterpart of VxKeyColumns, to which it converts.
template <class V> struct VxKeyArrays
{
    std::vector<VxTime> times; ///< ticks
    std::vector<V> values;     ///< a value a key
    std::vector<quint8> types; ///< a VxKeyInterp::Type a key; empty: the type new keys have
    std::vector<VxTcb> tcb;    ///< empty: all zero

    int count() const { return static_cast<int>(times.size()); }
    bool isEmpty() const { return times.empty(); }

    /// Borrowed: valid until the next change.
    VxKeyColumns<V> columns() const
    {
        return {times.data(), values.data(), types.empty() ? nullptr : types.data(),
                tcb.empty() ? nullptr : tcb.data(), count()};
    }
    operator VxKeyColumns<V>() const { return columns(); }

    /// Reserves capacity for `keyCount` keys with the columns of `like`.
    template <class U> void reserve(int keyCount, const VxKeyColumns<U> &like)
    {
        const auto size = static_cast<std::size_t>(keyCount);
        times.reserve(size);
        values.reserve(size);
        if (like.types)
            types.reserve(size);
        if (like.tcb)
            tcb.reserve(size);
    }
    /// Appends key `index` of `from` at another time and with another value. All sources must have
    /// the same columns.
    template <class U> void append(const VxKeyColumns<U> &from, int index, VxTime time, V value)
    {
        times.push_back(time);
        values.push_back(value);
        if (from.types)
            types.push_back(from.types[index]);
        if (from.tcb)
            tcb.push_back(from.tcb[index]);
    }
    template <class U> void append(const VxKeyColumns<U> &from, int index)
    {
        append(from, index, from.times[index], V(from.values[index]));
    }
};

#endif
