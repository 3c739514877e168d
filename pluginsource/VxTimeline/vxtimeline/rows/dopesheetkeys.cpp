#include "vxtimeline/rows/dopesheetkeys.h"

#include "vxtimeline/keys/keyspans.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <numeric>
#include <vector>

namespace {

// Entries compared per block.
constexpr int BlockSize = 64;
// Initial number of flags; enough for most rows.
constexpr int LeastRoom = 4096;

bool areEqual(const VxTime *a, const VxTime *b, int count)
{
    return count == 0 || std::memcmp(a, b, size_t(count) * sizeof(VxTime)) == 0;
}

// The number of equal leading entries, up to most.
int equalRun(const VxTime *a, const VxTime *b, int most)
{
    if (most == 0 || *a != *b)
        return 0;
    int run = 0;
    while (run + BlockSize <= most && areEqual(a + run, b + run, BlockSize))
        run += BlockSize;
    while (run < most && a[run] == b[run])
        ++run;
    return run;
}

// Copies flags to the keys at equal times. Few times differ as a rule, so equal runs are copied as
// blocks.
void carryFlags(const DopeSheetKeys &from, const VxTime *fresh, int freshCount, quint8 *flags)
{
    const VxTime *old = from.times.constData();
    const quint8 *oldFlags = from.flags.constData();
    int i = 0;
    int j = 0;
    while (i < from.count() && j < freshCount) {
        const int run = equalRun(old + i, fresh + j, std::min(from.count() - i, freshCount - j));
        std::copy_n(oldFlags + i, run, flags + j);
        i += run;
        j += run;
        if (i == from.count() || j == freshCount)
            break;
        const bool oldIsEarlier = old[i] < fresh[j];
        i += int(oldIsEarlier);
        j += int(!oldIsEarlier);
    }
}

} // namespace

int DopeSheetKeys::firstFrom(VxTime time) const
{
    return int(std::lower_bound(times.cbegin(), times.cend(), time) - times.cbegin());
}

void DopeSheetKeys::takeTimes(const VxTime *fresh, int freshCount)
{
    if (freshCount == count() && areEqual(times.constData(), fresh, freshCount))
        return;
    if (selectedCount > 0) {
        QVector<quint8> carried(freshCount);
        carryFlags(*this, fresh, freshCount, carried.data());
        flags = carried;
        selectedCount = countSelected(flags.constData(), freshCount);
        clearUnusedFlags();
    }
    replaceTimes(fresh, freshCount);
}

// Outgrown buffers are kept: rows may still read them.
const quint8 *DopeSheetKeys::noFlags(int flagCount)
{
    static std::vector<std::unique_ptr<quint8[]>> rooms;
    static int size = 0;
    if (flagCount > size || rooms.empty()) {
        size = std::max(flagCount, std::max(2 * size, LeastRoom));
        rooms.push_back(std::make_unique<quint8[]>(size_t(size)));
    }
    return rooms.back().get();
}

quint8 *DopeSheetKeys::flagsToWrite()
{
    if (flags.isEmpty())
        flags = QVector<quint8>(count());
    return flags.data();
}

void DopeSheetKeys::clearUnusedFlags()
{
    if (selectedCount == 0)
        flags.clear();
}

int DopeSheetKeys::countSelected(const quint8 *flags, int flagCount)
{
    int selected = 0;
    for (int i = 0; i < flagCount; ++i)
        selected += flags[i] & Selected;
    return selected;
}

void DopeSheetKeys::setSelected(bool select, VxTime start, VxTime end)
{
    const int first = firstFrom(start);
    int last = first; // one beyond
    if (start == end)
        last += int(first < count() && times.at(first) == start);
    else if (start < end)
        last = firstFrom(end);
    if (first == last || selectedCount == (select ? count() : 0))
        return;
    quint8 *begin = flagsToWrite() + first;
    quint8 *beyond = begin + (last - first);
    selectedCount -= countSelected(begin, last - first);
    std::fill(begin, beyond, select ? quint8(Selected) : quint8(0));
    selectedCount += select ? last - first : 0;
    clearUnusedFlags();
}

void DopeSheetKeys::setSelectedAt(const QVector<int> &indexes, bool select)
{
    quint8 *all = flagsToWrite();
    for (const int index : indexes) {
        if (index < 0 || index >= count())
            continue;
        selectedCount += int(select) - int(all[index]);
        all[index] = quint8(select);
    }
    clearUnusedFlags();
}

void DopeSheetKeys::replaceTimes(const VxTime *fresh, int freshCount)
{
    if (freshCount == count() && areEqual(times.constData(), fresh, freshCount))
        return;
    if (freshCount != count() || !times.isDetached())
        times = QVector<VxTime>(freshCount);
    std::copy_n(fresh, freshCount, times.data());
}

void DopeSheetKeys::setTimesAndSelection(const VxTime *fresh, int freshCount,
                                         const VxTime *selectedTimes, int selectedTimeCount)
{
    replaceTimes(fresh, freshCount);
    selectOnly(selectedTimes, selectedTimeCount);
}

void DopeSheetKeys::setTimesAndSelection(const VxTime *fresh, int freshCount,
                                         const std::vector<VxKeySpan> &spans)
{
    replaceTimes(fresh, freshCount);
    selectedCount = 0;
    flags.clear();
    if (spans.empty())
        return;
    quint8 *all = flagsToWrite();
    for (const VxKeySpan &span : spans) {
        const int first = std::clamp(span.first, 0, count());
        const int last = std::clamp(span.last, first, count());
        std::fill(all + first, all + last, quint8(Selected));
        selectedCount += last - first;
    }
    clearUnusedFlags();
}

// Selected times are mostly contiguous keys, and all of them exist.
void DopeSheetKeys::selectOnly(const VxTime *selectedTimes, int selectedTimeCount)
{
    selectedCount = 0;
    if (selectedTimeCount == 0) {
        flags.clear();
        return;
    }
    flags.fill(0, count());
    quint8 *all = flags.data();
    const VxTime *own = times.constData();
    int i = firstFrom(*selectedTimes);
    if (selectedTimeCount <= count() - i && areEqual(own + i, selectedTimes, selectedTimeCount)) {
        std::fill_n(all + i, selectedTimeCount, quint8(Selected));
        selectedCount = selectedTimeCount;
        return;
    }
    for (int k = 0; k < selectedTimeCount && i < count(); ++k) {
        while (i < count() && own[i] < selectedTimes[k])
            ++i;
        const bool isThere = i < count() && own[i] == selectedTimes[k];
        if (!isThere || all[i])
            continue;
        all[i] = Selected;
        ++selectedCount;
    }
    clearUnusedFlags();
}

std::vector<VxKeySpan> DopeSheetKeys::selectedSpans() const
{
    if (selectedCount == 0)
        return {};
    if (selectedCount == count())
        return {{0, count()}};
    const quint8 *all = flags.constData();
    return KeySpans::ofFlags(count(), [all](int i) { return all[i] & Selected; });
}

QVector<int> DopeSheetKeys::selectedIndexes() const
{
    QVector<int> indexes(selectedCount);
    int *to = indexes.data();
    if (selectedCount == count()) {
        std::iota(indexes.begin(), indexes.end(), 0);
        return indexes;
    }
    const quint8 *all = flags.constData();
    for (int i = 0, found = 0; found < selectedCount; ++i) {
        to[found] = i;
        found += all[i] & Selected;
    }
    return indexes;
}

QVector<VxTime> DopeSheetKeys::selectedTimes() const
{
    if (selectedCount == count())
        return times;
    QVector<VxTime> selected(selectedCount);
    VxTime *to = selected.data();
    const VxTime *own = times.constData();
    const quint8 *all = flags.constData();
    for (int i = 0, found = 0; found < selectedCount; ++i) {
        to[found] = own[i];
        found += all[i] & Selected;
    }
    return selected;
}
