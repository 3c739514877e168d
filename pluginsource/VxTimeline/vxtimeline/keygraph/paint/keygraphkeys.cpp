#include "vxtimeline/keygraph/paint/keygraphkeys.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int LookCount = 8; // a type of two bits, selected or not

} // namespace

int KeyGraphKeys::firstFrom(VxTime time) const
{
    return static_cast<int>(std::lower_bound(times, times + count, time) - times);
}

int KeyGraphKeys::endAt(VxTime time) const
{
    return static_cast<int>(std::upper_bound(times, times + count, time) - times);
}

KeyGraphBox KeyGraphBox::between(const KeyGraphScale &scale, const QPoint &a, const QPoint &b)
{
    const auto times = std::minmax({scale.time(a.x()), scale.time(b.x())});
    const auto values = std::minmax({scale.value(a.y()), scale.value(b.y())});
    return {times.first, times.second, values.first, values.second};
}

KeyGraphMarks::KeyGraphMarks(const QSize &size)
    : m_size(size)
    , m_seen(static_cast<std::size_t>(qMax(0, size.height()) + int(KeyGraphScale::MarkSide)) *
             LookCount)
{
}

// From the last key to the first: of marks with the same look and position the last one is kept, so
// that it still covers other marks painted before it. Keys are sorted by column, so it is enough to
// store for each row the last painted column. Branchless: each key writes its mark to the next
// slot, which then advances or not.
const std::vector<KeyGraphMark> &KeyGraphMarks::find(const KeyGraphKeys &keys,
                                                     const VxKeyGraphKey *records,
                                                     const KeyGraphScale &scale)
{
    constexpr int side = int(KeyGraphScale::MarkSide);
    const VxTimeRange times = scale.timesBetween(0, m_size.width());
    const int first = keys.firstFrom(times.getStart());
    const int end = keys.endAt(times.getEnd());
    m_marks.resize(static_cast<std::size_t>(qMax(0, end - first)));
    const QSize size = m_size;
    quint32 column = m_column + 1;
    int left = std::numeric_limits<int>::min();
    KeyGraphMark *next = m_marks.data();
    for (int i = end - 1; i >= first; --i) {
        const QPoint corner = scale.markRectOf(keys.times[i], keys.value(i)).topLeft();
        if (corner.x() <= -side || corner.x() >= size.width() || corner.y() <= -side ||
            corner.y() >= size.height())
            continue;
        column += corner.x() == left ? 0 : 1;
        left = corner.x();
        const bool selected = records[i].selected;
        const int row = corner.y() + side - 1;
        const int look = (keys.types[i] & 3) * 2 + (selected ? 1 : 0);
        quint32 &seen = m_seen[static_cast<std::size_t>(row * LookCount + look)];
        next->corner = corner;
        next->type = keys.types[i];
        next->selected = selected;
        next += seen == column ? 0 : 1;
        seen = column;
    }
    m_column = column;
    m_marks.resize(static_cast<std::size_t>(next - m_marks.data()));
    std::reverse(m_marks.begin(), m_marks.end());
    return m_marks;
}

int keyGraphKeyAt(const KeyGraphKeys &keys, const KeyGraphScale &scale, const QPoint &position)
{
    const VxTimeRange times = scale.timesBetween(position.x(), position.x());
    for (int i = keys.firstFrom(times.getStart());
         i < keys.count && keys.times[i] <= times.getEnd(); ++i) {
        if (scale.markRectOf(keys.times[i], keys.value(i)).contains(position))
            return i;
    }
    return -1;
}

KeyGraphSpan::KeyGraphSpan()
    : low(std::numeric_limits<double>::max())
    , high(std::numeric_limits<double>::min())
{
}

void KeyGraphSpan::add(const KeyGraphKeys &keys, const VxKeyGraphKey *records, bool onlySelected)
{
    for (int i = 0; i < keys.count; ++i) {
        if (onlySelected && !records[i].selected)
            continue;
        const double value = keys.value(i);
        low = qMin(low, value);
        high = qMax(high, value);
        found = true;
    }
}
