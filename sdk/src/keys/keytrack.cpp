#include "keys/keytrack.h"

#include "keys/keymovemerge.h"
#include "keys/keypasses.h"
#include "keys/keytrackwriter.h"

namespace {

// Exchanges part of a column with a whole other one; the surplus of the longer one moves over.
template <class T>
void exchangeSpan(std::vector<T> &mine, size_t first, size_t last, std::vector<T> &other)
{
    const size_t taken = last - first;
    const size_t common = std::min(taken, other.size());
    const auto start = mine.begin() + first;
    std::swap_ranges(start, start + common, other.begin());
    if (taken > common) {
        other.insert(other.end(), start + common, start + taken);
        mine.erase(start + common, start + taken);
    } else {
        mine.insert(start + common, other.begin() + common, other.end());
        other.resize(common);
    }
}

template <class T> void eraseSpan(std::vector<T> &column, int first, int last)
{
    column.erase(column.begin() + first, column.begin() + last);
}

template <class T> bool sameBytes(const std::vector<T> &a, const std::vector<T> &b)
{
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

bool isSelection(const int *indexes, int indexCount, int keyCount)
{
    return isStrictlyAscending(indexes, indexCount) &&
           (indexCount <= 0 || (indexes[0] >= 0 && indexes[indexCount - 1] < keyCount));
}

// Merges keys first to last (excluded) of one track with incoming keys, which replace those at
// equal times.
template <class V>
void mergeStretch(const VxKeyColumns<V> &staying, int first, int last,
                  const VxKeyColumns<V> &incoming, KeyTrackWriter<V> &writer)
{
    int b = 0;
    for (int a = first; a < last; ++a) {
        const VxTime time = staying.times[a];
        for (; b < incoming.count && incoming.times[b] < time; ++b)
            writer.add(incoming, b);
        if (b == incoming.count || incoming.times[b] != time)
            writer.add(staying, a);
    }
    writer.addRun(incoming, b, incoming.count);
}

} // namespace

qint64 limitedOffset(VxTime first, VxTime last, qint64 offset)
{
    return std::clamp(offset, qint64(VxTimeMin) - first, qint64(VxTimeMax) - last);
}

template <class V> VxKeyColumns<V> KeyTrack<V>::columns(int first, int last) const
{
    Columns result;
    if (first >= last)
        return result;
    result.times = m_times.data() + first;
    result.values = m_values.data() + first;
    result.types = m_types.data() + first;
    result.tcb = m_tcb.empty() ? nullptr : m_tcb.data() + first;
    result.count = last - first;
    return result;
}

template <class V> std::pair<int, int> KeyTrack<V>::indexRange(const VxTimeRange &range) const
{
    const int first = lowerBound(range.getStart());
    return {first, std::max(first, upperBound(range.getEnd()))};
}

template <class V> int KeyTrack<V>::set(VxTime time, V value, const VxKeyShape &shape)
{
    const int i = lowerBound(time);
    if (i == count() || m_times[i] != time)
        openSlot(i, time);
    m_values[i] = value;
    m_types[i] = legalType<V>(shape.type);
    noteType(m_types[i]);
    writeTcb(i, shape.tcb);
    return i;
}

template <class V> bool KeyTrack<V>::insertMany(const Columns &keys)
{
    if (!isStrictlyAscending(keys.times, keys.count))
        return false;
    if (keys.count <= 0)
        return true;
    const int first = lowerBound(keys.times[0]);
    const int last = upperBound(keys.times[keys.count - 1]);
    KeyTrack stretch;
    KeyTrackWriter<V> writer(stretch, size_t(last - first) + keys.count,
                             keys.tcb || !m_tcb.empty());
    mergeStretch(columns(), first, last, keys, writer);
    writer.finish();
    exchange(first, last, stretch);
    return true;
}

template <class V> int KeyTrack<V>::removeRange(const VxTimeRange &range)
{
    const auto [first, last] = indexRange(range);
    return removeIndexRange(first, last);
}

template <class V> int KeyTrack<V>::removeIndexRange(int first, int last)
{
    first = std::max(first, 0);
    last = std::min(last, count());
    if (first >= last)
        return 0;
    if (!m_tcb.empty()) {
        m_shaped -= int(std::count_if(m_tcb.begin() + first, m_tcb.begin() + last, isShaped));
        eraseSpan(m_tcb, first, last);
    }
    eraseSpan(m_times, first, last);
    eraseSpan(m_values, first, last);
    eraseSpan(m_types, first, last);
    noteSpacing();
    shrinkIfLoose();
    return last - first;
}

template <class V> int KeyTrack<V>::removeIndexes(const int *indexes, int indexCount)
{
    if (!isSelection(indexes, indexCount, count()))
        return -1;
    if (indexCount <= 0)
        return 0;
    if (areContiguous(indexes, indexCount))
        return removeIndexRange(indexes[0], indexes[indexCount - 1] + 1);
    int to = indexes[0];
    for (int k = 0; k < indexCount; ++k) {
        const int next = k + 1 < indexCount ? indexes[k + 1] : count();
        for (int from = indexes[k] + 1; from < next; ++from, ++to) {
            m_times[to] = m_times[from];
            m_values[to] = m_values[from];
            m_types[to] = m_types[from];
            if (!m_tcb.empty())
                m_tcb[to] = m_tcb[from];
        }
    }
    m_times.resize(to);
    m_values.resize(to);
    m_types.resize(to);
    m_tcb.resize(m_tcb.empty() ? 0 : to);
    countShaped();
    noteSpacing();
    shrinkIfLoose();
    return indexCount;
}

template <class V>
bool KeyTrack<V>::moveKeys(const int *indexes, const VxTime *newTimes, int indexCount,
                           std::vector<int> *landed)
{
    if (!isSelection(indexes, indexCount, count()))
        return false;
    if (landed)
        landed->assign(std::max(indexCount, 0), -1);
    if (indexCount <= 0)
        return true;
    if (keepsOrder(m_times.data(), count(), indexes, newTimes, indexCount)) {
        setTimes(indexes, newTimes, indexCount);
        if (landed)
            landed->assign(indexes, indexes + indexCount);
        return true;
    }

    MovedKeys moved;
    moved.setKeys(indexes, newTimes, indexCount);
    const int first = std::min(indexes[0], lowerBound(moved.times[0]));
    const int last =
        std::max(indexes[indexCount - 1] + 1, upperBound(moved.times[moved.count - 1]));
    const StayingKeys staying(m_times.data(), first, last, indexes, indexCount);
    const MoveMerge merged(staying, moved);
    KeyTrack stretch;
    KeyTrackWriter<V> writer(stretch, merged.times.size(), !m_tcb.empty());
    writer.addPicked(columns(), merged.source, merged.times);
    writer.finish();
    exchange(first, last, stretch);
    for (int b = 0; landed && b < moved.count; ++b)
        (*landed)[moved.listedAt(b)] = first + merged.landed[b];
    return true;
}

// Requires that the keys keep their order.
template <class V>
void KeyTrack<V>::setTimes(const int *indexes, const VxTime *newTimes, int indexCount)
{
    if (areContiguous(indexes, indexCount)) {
        std::copy_n(newTimes, indexCount, m_times.begin() + indexes[0]);
    } else {
        for (int k = 0; k < indexCount; ++k)
            m_times[indexes[k]] = newTimes[k];
    }
    noteSpacing();
}

template <class V> void KeyTrack<V>::setValues(int first, const V *values, int valueCount)
{
    const int from = std::max(first, 0);
    const int last = int(std::min<qint64>(qint64(first) + valueCount, count()));
    if (from < last)
        std::copy(values + (from - first), values + (last - first), m_values.begin() + from);
}

template <class V> int KeyTrack<V>::setType(int first, int last, quint8 type)
{
    first = std::max(first, 0);
    last = std::min(last, count());
    if (first >= last)
        return 0;
    const quint8 legal = legalType<V>(type);
    const auto begin = m_types.begin() + first;
    const auto end = m_types.begin() + last;
    auto same = m_uniformType == legal ? end - begin : 0;
    if (m_uniformType == MixedKeyTypes)
        same = std::count(begin, end, legal);
    std::fill(begin, end, legal);
    if (last - first == count())
        m_uniformType = legal;
    else
        noteTypes();
    return last - first - int(same);
}

template <class V> int KeyTrack<V>::setType(const int *indexes, int indexCount, quint8 type)
{
    if (!isSelection(indexes, indexCount, count()))
        return -1;
    if (indexCount > 0 && areContiguous(indexes, indexCount))
        return setType(indexes[0], indexes[indexCount - 1] + 1, type);
    const quint8 legal = legalType<V>(type);
    int changed = 0;
    for (int k = 0; k < indexCount; ++k) {
        changed += m_types[indexes[k]] != legal;
        m_types[indexes[k]] = legal;
    }
    noteTypes();
    return changed;
}

template <class V> int KeyTrack<V>::setShape(int first, int last, const VxKeyShape &shape)
{
    const quint8 legal = legalType<V>(shape.type);
    int changed = 0;
    for (int i = std::max(first, 0); i < std::min(last, count()); ++i) {
        const bool retyped = m_types[i] != legal;
        m_types[i] = legal;
        noteType(legal);
        changed += writeTcb(i, shape.tcb) || retyped;
    }
    return changed;
}

template <class V>
int KeyTrack<V>::setShape(const int *indexes, int indexCount, const VxKeyShape &shape)
{
    if (!isSelection(indexes, indexCount, count()))
        return -1;
    int changed = 0;
    for (int k = 0; k < indexCount; ++k)
        changed += setShape(indexes[k], indexes[k] + 1, shape);
    noteTypes();
    return changed;
}

template <class V> KeyTrack<V> KeyTrack<V>::copyRange(const VxTimeRange &range) const
{
    const auto [first, last] = indexRange(range);
    KeyTrack copy;
    KeyTrackWriter<V> writer(copy, last - first, !m_tcb.empty());
    writer.addRun(columns(), first, last);
    writer.finish();
    return copy;
}

template <class V> bool KeyTrack<V>::swapRange(const VxTimeRange &range, KeyTrack &other)
{
    if (!other.isEmpty() &&
        !(range.contains(other.m_times.front()) && range.contains(other.m_times.back())))
        return false;
    const auto [first, last] = indexRange(range);
    exchange(first, last, other);
    return true;
}

template <class V> bool KeyTrack<V>::isSameKey(int i, const KeyTrack &other, int j) const
{
    const VxTcb mine = tcb(i);
    const VxTcb others = other.tcb(j);
    return m_times[i] == other.m_times[j] && m_types[i] == other.m_types[j] &&
           std::memcmp(&m_values[i], &other.m_values[j], sizeof(V)) == 0 &&
           std::memcmp(&mine, &others, sizeof mine) == 0;
}

template <class V> bool KeyTrack<V>::isIdentical(const KeyTrack &other) const
{
    return sameBytes(m_times, other.m_times) && sameBytes(m_values, other.m_values) &&
           sameBytes(m_types, other.m_types) && sameBytes(m_tcb, other.m_tcb);
}

template <class V> void KeyTrack<V>::shrink()
{
    m_times.shrink_to_fit();
    m_values.shrink_to_fit();
    m_types.shrink_to_fit();
    m_tcb.shrink_to_fit();
}

template <class V> size_t KeyTrack<V>::memoryBytes() const
{
    return m_times.capacity() * sizeof(VxTime) + m_values.capacity() * sizeof(V) +
           m_types.capacity() * sizeof(quint8) + m_tcb.capacity() * sizeof(VxTcb);
}

// Grows by half where single keys are added, and just enough where many are added to few.
template <class V> void KeyTrack<V>::growFor(size_t keyCount)
{
    if (keyCount <= m_times.capacity() && (m_tcb.empty() || keyCount <= m_tcb.capacity()))
        return;
    const size_t room = std::max(keyCount, m_times.size() + m_times.size() / 2);
    m_times.reserve(room);
    m_values.reserve(room);
    m_types.reserve(room);
    if (!m_tcb.empty())
        m_tcb.reserve(room);
}

// Also frees the tension, continuity and bias column when no key needs it any more.
template <class V> void KeyTrack<V>::shrinkIfLoose()
{
    if (m_shaped == 0)
        std::vector<VxTcb>().swap(m_tcb);
    const size_t used = m_times.size();
    const size_t room =
        std::max({m_times.capacity(), m_values.capacity(), m_types.capacity(), m_tcb.capacity()});
    if (room > used + used / 4 * 3)
        shrink();
}

template <class V> void KeyTrack<V>::openSlot(int i, VxTime time)
{
    growFor(m_times.size() + 1);
    m_spacing = m_spacedFrom = 0;
    m_times.insert(m_times.begin() + i, time);
    m_values.insert(m_values.begin() + i, V());
    m_types.insert(m_types.begin() + i, KeyTraits<V>::NewKeyType);
    if (!m_tcb.empty())
        m_tcb.insert(m_tcb.begin() + i, VxTcb());
}

// Returns whether the key changed.
template <class V> bool KeyTrack<V>::writeTcb(int i, const VxTcb &tcb)
{
    const bool needed = isShaped(tcb) && !KeyTraits<V>::Steps;
    if (m_tcb.empty() && !needed)
        return false;
    if (m_tcb.empty())
        m_tcb.resize(m_times.size());
    const bool changes = std::memcmp(&m_tcb[i], &tcb, sizeof tcb) != 0;
    m_shaped += int(needed) - int(isShaped(m_tcb[i]));
    m_tcb[i] = tcb;
    if (m_shaped == 0)
        std::vector<VxTcb>().swap(m_tcb);
    return changes;
}

template <class V> void KeyTrack<V>::countShaped()
{
    m_shaped = int(std::count_if(m_tcb.begin(), m_tcb.end(), isShaped));
    if (m_shaped == 0)
        m_tcb.clear();
}

// Call after one key was given a type.
template <class V> void KeyTrack<V>::noteType(quint8 type)
{
    if (m_types.size() == 1)
        m_uniformType = type;
    else if (type != m_uniformType)
        m_uniformType = MixedKeyTypes;
}

// Call after many were. All types are equal when each equals the previous one.
template <class V> void KeyTrack<V>::noteTypes()
{
    const quint8 *types = m_types.data();
    if (m_types.empty())
        m_uniformType = KeyTraits<V>::NewKeyType;
    else if (std::memcmp(types, types + 1, m_types.size() - 1) == 0)
        m_uniformType = types[0];
    else
        m_uniformType = MixedKeyTypes;
}

// Call after many keys were added, removed or moved; a single new key resets the spacing to 0.
template <class V> void KeyTrack<V>::noteSpacing()
{
    m_spacing = evenSpacing(m_times.data(), count());
    m_spacedFrom = m_spacing == 0 ? 0 : m_times[0];
}

// True when all keys of both have one known type, which an exchange of keys preserves.
template <class V> bool KeyTrack<V>::isOfOneTypeWith(const KeyTrack &other) const
{
    return m_uniformType != MixedKeyTypes && m_uniformType == other.m_uniformType;
}

// All replacements of a key range pass through here.
template <class V> void KeyTrack<V>::exchange(int first, int last, KeyTrack &other)
{
    if (first == 0 && last == count()) {
        std::swap(*this, other);
        return;
    }
    const bool sameTypes = isOfOneTypeWith(other);
    const bool withTcb = !m_tcb.empty() || !other.m_tcb.empty();
    if (withTcb) {
        m_tcb.resize(m_times.size());
        other.m_tcb.resize(other.m_times.size());
    }
    growFor(m_times.size() - size_t(last - first) + other.m_times.size());
    exchangeSpan(m_times, first, last, other.m_times);
    exchangeSpan(m_values, first, last, other.m_values);
    exchangeSpan(m_types, first, last, other.m_types);
    if (withTcb)
        exchangeSpan(m_tcb, first, last, other.m_tcb);
    countShaped();
    other.countShaped();
    if (!sameTypes) {
        noteTypes();
        other.noteTypes();
    }
    noteSpacing();
    other.noteSpacing();
    shrinkIfLoose();
    other.shrinkIfLoose();
}

template class KeyTrack<float>;
template class KeyTrack<qint32>;
