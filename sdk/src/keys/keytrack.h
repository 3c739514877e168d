#ifndef KEYTRACK_H
#define KEYTRACK_H

#include <algorithm>
#include <utility>
#include <vector>
#include <vxcore/vxkey.h>
#include <vxcore/vxtimerange.h>

/// Differences between the kinds of tracks: integer keys step, so all of them are Constant.
template <class V> struct KeyTraits
{
    static constexpr quint8 NewKeyType = VxKeyInterp::Linear;
    static constexpr bool Steps = false;
};
template <> struct KeyTraits<qint32>
{
    static constexpr quint8 NewKeyType = VxKeyInterp::Constant;
    static constexpr bool Steps = true;
};

/// KeyTrack::uniformType() of a track whose keys differ in type.
constexpr quint8 MixedKeyTypes = 255;

/// The keys of one animated value, in time order, one array a column.
///
/// Separate columns keep a key at nine bytes and let each operation be one pass over just the data
/// it needs: a search reads times, a change of type writes types. Tension, continuity and bias are
/// stored only while a key has a non-zero one. Spare capacity stays below 7/9 of the used size,
/// so that a track of more than a few keys never needs more than 16 bytes a key.
///
/// Times are strictly ascending, always. Indexes count from 0; index ranges are [first, last),
/// the end excluded; time ranges include both ends, and one that runs backwards holds no key.
/// Drawings show keys over time before and after: letters are keys, dots are free ticks.
template <class V> class KeyTrack
{
public:
    using Columns = VxKeyColumns<V>;

    int count() const { return int(m_times.size()); }
    bool isEmpty() const { return m_times.empty(); }
    VxTime time(int i) const { return m_times[i]; }
    V value(int i) const { return m_values[i]; }
    quint8 type(int i) const { return m_types[i]; }
    VxTcb tcb(int i) const { return m_tcb.empty() ? VxTcb() : m_tcb[i]; }
    VxKeyShape shape(int i) const { return {m_types[i], tcb(i)}; }
    /// The type of all keys, or MixedKeyTypes when they differ or may differ.
    quint8 uniformType() const { return m_uniformType; }
    /// The ticks between successive keys where known to be the same throughout, as in baked
    /// motion; else 0. Finding a time is then arithmetic, without reading memory.
    VxTime spacing() const { return m_spacing; }
    /// The first key's time where the spacing is known; else 0.
    VxTime spacedFrom() const { return m_spacedFrom; }
    /// The arrays themselves, valid until the next change; `tcb` is null while all are zero, all
    /// are null without keys.
    Columns columns() const
    {
        if (isEmpty())
            return {};
        return {m_times.data(), m_values.data(), m_types.data(),
                m_tcb.empty() ? nullptr : m_tcb.data(), count()};
    }
    /// Those of the keys [first, last); all null for none.
    Columns columns(int first, int last) const;

    /// Index of the key at `time`, or -1.
    int find(VxTime time) const
    {
        const int i = lowerBound(time);
        return i < count() && m_times[i] == time ? i : -1;
    }
    /// Index of the first key at or after `time`; count() when there is none.
    int lowerBound(VxTime time) const
    {
        return int(std::lower_bound(m_times.begin(), m_times.end(), time) - m_times.begin());
    }
    /// Index of the first key after `time`; count() when there is none.
    int upperBound(VxTime time) const
    {
        return int(std::upper_bound(m_times.begin(), m_times.end(), time) - m_times.begin());
    }
    /// The index range of the keys within the time range; empty as (i, i).
    std::pair<int, int> indexRange(const VxTimeRange &range) const;

    /// Sets one key, replacing the one at its time if any. Returns its index.
    ///     `a . b` set x at 1: `a x b`, set x at 2: `a . x`
    int set(VxTime time, V value, const VxKeyShape &shape);
    /// Sets many keys in one merge; keys at the same times are replaced. False, and nothing
    /// changed, when the times are not strictly ascending.
    ///     `a . b . c` insert `. x y . .`: `a x y . c`
    bool insertMany(const Columns &keys);

    /// Each returns the number of keys removed.
    ///     `a b . c d` remove 1..3: `a . . . d`
    int removeRange(const VxTimeRange &range);
    int removeIndexRange(int first, int last);
    ///     `a b c d` remove {0, 2}: `. b . d`
    /// `indexes` strictly ascending; otherwise nothing is removed and the result is -1.
    int removeIndexes(const int *indexes, int indexCount);
    void clear() { *this = KeyTrack(); }

    /// Moves keys to new times, `newTimes[k]` for the key at `indexes[k]`, all at once. Replaces
    /// unmoved keys at those times.
    ///     `a b . c` move {a, b} by 2: `. . a b`
    /// `indexes` strictly ascending, new times in any order; when two moved keys meet, the one
    /// listed later stays. `landed`, if given, receives the new index of each listed key, -1 for
    /// a replaced one. False, and nothing changed, for bad indexes.
    bool moveKeys(const int *indexes, const VxTime *newTimes, int indexCount,
                  std::vector<int> *landed = nullptr);

    /// Changing keys in place; times stay. Each but setValues returns the number of changed keys,
    /// -1 for bad indexes. Integer keys keep their shape.
    void setValues(int first, const V *values, int valueCount);
    int setType(int first, int last, quint8 type);
    int setType(const int *indexes, int indexCount, quint8 type);
    int setShape(int first, int last, const VxKeyShape &shape);
    int setShape(const int *indexes, int indexCount, const VxKeyShape &shape);

    /// The keys within the range as a new track.
    KeyTrack copyRange(const VxTimeRange &range) const;
    /// Exchanges the keys within the range with those of `other`, which must all be within it.
    ///     `a b . c` swap 1..2 with `. . x .`: `a . x c`, other: `. b . .`
    /// False, and nothing changed, when a key of `other` is outside the range.
    bool swapRange(const VxTimeRange &range, KeyTrack &other);

    /// Bitwise equality of keys: NaN equals itself and 0 differs from -0. For comparing a restored
    /// track.
    bool isSameKey(int i, const KeyTrack &other, int j) const;
    bool isIdentical(const KeyTrack &other) const;

    /// Frees spare capacity.
    void shrink();
    /// Bytes of the arrays, spare capacity included.
    size_t memoryBytes() const;

private:
    template <class U> friend class KeyTrackWriter;

    void growFor(size_t keyCount);
    void shrinkIfLoose();
    void openSlot(int i, VxTime time);
    void setTimes(const int *indexes, const VxTime *newTimes, int indexCount);
    bool writeTcb(int i, const VxTcb &tcb);
    void countShaped();
    void noteType(quint8 type);
    void noteTypes();
    void noteSpacing();
    bool isOfOneTypeWith(const KeyTrack &other) const;
    void exchange(int first, int last, KeyTrack &other);

    std::vector<VxTime> m_times;
    std::vector<V> m_values;
    std::vector<quint8> m_types;
    std::vector<VxTcb> m_tcb; // empty while m_shaped is 0
    int m_shaped = 0;         // keys with a non-zero bit in tension, continuity or bias
    quint8 m_uniformType = KeyTraits<V>::NewKeyType;
    VxTime m_spacing = 0;
    VxTime m_spacedFrom = 0;
};

/// True when each time is greater than the previous one.
bool isStrictlyAscending(const VxTime *times, int count);
/// The offset, limited so that times from `first` to `last` stay within the range of times.
qint64 limitedOffset(VxTime first, VxTime last, qint64 offset);

extern template class KeyTrack<float>;
extern template class KeyTrack<qint32>;

#endif
