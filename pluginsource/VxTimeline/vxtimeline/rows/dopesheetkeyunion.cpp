// The union of several rows' keys.
//
// Channels of one motion mostly have the same key times, so those are checked first: rows that
// share their times only need their flags joined. Many rows with different times are marked in a
// bitmap if their times are dense; else adjacent rows are merged pairwise.

#include "vxtimeline/rows/dopesheetkeys.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace {

// Fewer rows are merged faster than marked.
constexpr size_t LeastBitmapRows = 3;
// The whole bitmap is scanned; up to so many ticks a key cost less than the marking itself.
constexpr qint64 MaxTicksPerKey = 32;
constexpr int WordBits = 64;
// Entries compared per block, and those merged before equal runs are searched again.
constexpr int UnionBlock = 64;
constexpr int StrideSize = 16;

using Keys = std::vector<DopeSheetKeys>;

// True when both have the same times; the second one then shares the first one's array.
bool shareTimes(const DopeSheetKeys &a, DopeSheetKeys *b)
{
    if (a.times.constData() == b->times.constData())
        return true;
    if (a.count() != b->count() || std::memcmp(a.times.constData(), b->times.constData(),
                                               size_t(a.count()) * sizeof(VxTime)) != 0)
        return false;
    b->times = a.times;
    return true;
}

// Adds the selection of a row with the same times.
void joinFlags(DopeSheetKeys *into, const DopeSheetKeys &from)
{
    if (from.selectedCount == 0 || into->selectedCount == into->count())
        return;
    if (into->selectedCount == 0 || from.selectedCount == from.count()) {
        into->flags = from.flags;
        into->selectedCount = from.selectedCount;
        return;
    }
    quint8 *to = into->flags.data();
    const quint8 *other = from.flags.constData();
    const int count = into->count();
    for (int i = 0; i < count; ++i)
        to[i] = quint8(to[i] | other[i]);
    into->selectedCount = DopeSheetKeys::countSelected(to, count);
}

Keys equalNeighboursJoined(DopeSheetKeys *const *rows, int rowCount)
{
    Keys joined;
    for (int i = 0; i < rowCount; ++i) {
        if (rows[i]->count() == 0)
            continue;
        if (!joined.empty() && shareTimes(joined.back(), rows[i]))
            joinFlags(&joined.back(), *rows[i]);
        else
            joined.push_back(*rows[i]);
    }
    return joined;
}

// The merge of two rows, with buffers for the keys of both.
class Merge
{
public:
    Merge(const DopeSheetKeys &a, const DopeSheetKeys &b)
        : m_a(a)
        , m_b(b)
        , m_flagsOfA(a.allFlags())
        , m_flagsOfB(b.allFlags())
        , m_times(new VxTime[size_t(a.count()) + size_t(b.count())])
        , m_flags(new quint8[size_t(a.count()) + size_t(b.count())])
    {
    }

    DopeSheetKeys result()
    {
        while (m_i < m_a.count() && m_j < m_b.count()) {
            copyEqual();
            mergeStride();
        }
        copyRest(m_a, m_i);
        copyRest(m_b, m_j);
        return packed();
    }

private:
    // Copies a run of equal entries as a block.
    void copyEqual()
    {
        const VxTime *a = m_a.times.constData() + m_i;
        const VxTime *b = m_b.times.constData() + m_j;
        const int most = std::min(m_a.count() - m_i, m_b.count() - m_j);
        int run = 0;
        while (run + UnionBlock <= most &&
               std::memcmp(a + run, b + run, UnionBlock * sizeof(VxTime)) == 0)
            run += UnionBlock;
        std::copy_n(a, run, m_times.get() + m_count);
        const quint8 *ofA = m_flagsOfA + m_i;
        const quint8 *ofB = m_flagsOfB + m_j;
        quint8 *to = m_flags.get() + m_count;
        for (int k = 0; k < run; ++k)
            to[k] = quint8(ofA[k] | ofB[k]);
        m_i += run;
        m_j += run;
        m_count += run;
    }

    // Merges some keys one by one, without branches: the order of the rows is unpredictable.
    void mergeStride()
    {
        const VxTime *a = m_a.times.constData();
        const VxTime *b = m_b.times.constData();
        const quint8 *ofA = m_flagsOfA;
        const quint8 *ofB = m_flagsOfB;
        for (int n = 0; n < StrideSize && m_i < m_a.count() && m_j < m_b.count(); ++n) {
            const VxTime ta = a[m_i];
            const VxTime tb = b[m_j];
            const int usesA = int(ta <= tb);
            const int usesB = int(tb <= ta);
            m_times[size_t(m_count)] = usesA ? ta : tb;
            m_flags[size_t(m_count)] = quint8((ofA[m_i] & -usesA) | (ofB[m_j] & -usesB));
            m_i += usesA;
            m_j += usesB;
            ++m_count;
        }
    }

    void copyRest(const DopeSheetKeys &keys, int from)
    {
        const int rest = keys.count() - from;
        std::copy_n(keys.times.constData() + from, rest, m_times.get() + m_count);
        std::copy_n(keys.allFlags() + from, rest, m_flags.get() + m_count);
        m_count += rest;
    }

    DopeSheetKeys packed() const
    {
        DopeSheetKeys keys;
        keys.times = packedTimes();
        keys.selectedCount = DopeSheetKeys::countSelected(m_flags.get(), m_count);
        if (keys.selectedCount == 0)
            return keys;
        keys.flags = QVector<quint8>(m_count);
        std::copy_n(m_flags.get(), m_count, keys.flags.data());
        return keys;
    }

    // As many keys as one row has: that row has them all, so its array is shared.
    QVector<VxTime> packedTimes() const
    {
        if (m_count == m_a.count())
            return m_a.times;
        if (m_count == m_b.count())
            return m_b.times;
        QVector<VxTime> times(m_count);
        std::copy_n(m_times.get(), m_count, times.data());
        return times;
    }

    const DopeSheetKeys &m_a;
    const DopeSheetKeys &m_b;
    const quint8 *m_flagsOfA;
    const quint8 *m_flagsOfB;
    std::unique_ptr<VxTime[]> m_times;
    std::unique_ptr<quint8[]> m_flags;
    int m_i = 0;
    int m_j = 0;
    int m_count = 0;
};

Keys mergedByPairs(const Keys &rows)
{
    Keys merged;
    for (size_t i = 0; i + 1 < rows.size(); i += 2)
        merged.push_back(Merge(rows[i], rows[i + 1]).result());
    if (rows.size() % 2 == 1)
        merged.push_back(rows.back());
    return merged;
}

// The times of several rows as bits over their range of ticks.
class Bitmap
{
public:
    explicit Bitmap(const Keys &rows)
        : m_first(rows.front().times.first())
        , m_last(rows.front().times.last())
    {
        for (const DopeSheetKeys &keys : rows) {
            m_first = std::min(m_first, keys.times.first());
            m_last = std::max(m_last, keys.times.last());
            m_keyCount += keys.count();
        }
    }

    bool pays() const { return ticks() <= m_keyCount * MaxTicksPerKey; }

    DopeSheetKeys united(const Keys &rows)
    {
        m_present.assign(size_t(ticks() / WordBits + 1), 0);
        m_selected.assign(m_present.size(), 0);
        for (const DopeSheetKeys &keys : rows) {
            mark(keys);
            m_anySelected = m_anySelected || keys.selectedCount > 0;
        }
        DopeSheetKeys keys = gathered();
        if (m_anySelected)
            gatherFlags(&keys);
        return keys;
    }

private:
    qint64 ticks() const { return qint64(m_last) - m_first + 1; }

    void mark(const DopeSheetKeys &keys)
    {
        for (const VxTime time : keys.times) {
            const quint32 tick = quint32(time) - quint32(m_first);
            m_present[tick / WordBits] |= quint64(1) << (tick % WordBits);
        }
        if (keys.selectedCount == 0)
            return;
        for (int i = 0; i < keys.count(); ++i) {
            const quint32 tick = quint32(keys.times.at(i)) - quint32(m_first);
            m_selected[tick / WordBits] |= quint64(keys.flags.at(i)) << (tick % WordBits);
        }
    }

    DopeSheetKeys gathered() const
    {
        int count = 0;
        for (const quint64 word : m_present)
            count += __builtin_popcountll(word);
        DopeSheetKeys keys;
        keys.times = QVector<VxTime>(count);
        VxTime *times = keys.times.data();
        for (size_t w = 0; w < m_present.size(); ++w) {
            for (quint64 word = m_present[w]; word; word &= word - 1) {
                const auto bit = quint32(__builtin_ctzll(word));
                *times++ = VxTime(quint32(m_first) + quint32(w) * WordBits + bit);
            }
        }
        return keys;
    }

    void gatherFlags(DopeSheetKeys *keys) const
    {
        keys->flags = QVector<quint8>(keys->count());
        quint8 *flags = keys->flags.data();
        for (size_t w = 0; w < m_present.size(); ++w) {
            for (quint64 word = m_present[w]; word; word &= word - 1)
                *flags++ = quint8(m_selected[w] >> quint32(__builtin_ctzll(word)) & 1);
        }
        keys->selectedCount = DopeSheetKeys::countSelected(keys->flags.constData(), keys->count());
    }

    VxTime m_first;
    VxTime m_last;
    qint64 m_keyCount = 0;
    bool m_anySelected = false;
    std::vector<quint64> m_present;
    std::vector<quint64> m_selected;
};

} // namespace

DopeSheetKeys uniteKeys(DopeSheetKeys *const *rows, int rowCount)
{
    Keys joined = equalNeighboursJoined(rows, rowCount);
    if (joined.empty())
        return {};
    if (joined.size() >= LeastBitmapRows) {
        Bitmap bitmap(joined);
        if (bitmap.pays())
            return bitmap.united(joined);
    }
    while (joined.size() > 1)
        joined = mergedByPairs(joined);
    return joined.front();
}
