#include "vxtimeline/keygraph/keymoveapplier.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vxcore/vxfloatproperty.h>

namespace {

// The keys of a span as they are to be, column by column.
class SpanColumns
{
public:
    SpanColumns(const VxKeyColumns<float> &source, int capacity)
        : m_source(source)
    {
        const auto size = static_cast<std::size_t>(capacity);
        m_times.reserve(size);
        m_values.reserve(size);
        m_types.reserve(size);
        if (source.tcb)
            m_tcb.reserve(size);
    }

    // A key of the source, at a time and with a value.
    void add(int index, VxTime time, float value)
    {
        m_times.push_back(time);
        m_values.push_back(value);
        m_types.push_back(m_source.types[index]);
        if (m_source.tcb)
            m_tcb.push_back(m_source.tcb[index]);
    }

    VxKeyColumns<float> columns() const
    {
        return {m_times.data(), m_values.data(), m_types.data(),
                m_tcb.empty() ? nullptr : m_tcb.data(), static_cast<int>(m_times.size())};
    }

private:
    const VxKeyColumns<float> &m_source;
    std::vector<VxTime> m_times;
    std::vector<float> m_values;
    std::vector<quint8> m_types;
    std::vector<VxTcb> m_tcb;
};

} // namespace

KeyMoveApplier::KeyMoveApplier(VxFloatProperty *property, double displayScale)
    : m_property(property)
    , m_displayScale(displayScale)
{
}

float KeyMoveApplier::narrowed(double value)
{
    if (!(std::abs(value) <= double(std::numeric_limits<float>::max())))
        return std::numeric_limits<float>::quiet_NaN();
    return static_cast<float>(value);
}

bool KeyMoveApplier::apply(const QVector<KeyDragPlan::Move> &moves,
                           const QVector<VxKeyGraphKey> &records)
{
    std::vector<Placed> placed = place(moves);
    if (placed.empty() || m_property->isLocked() || !m_property->canBeKeyed())
        return false;
    const auto byTime = [](const Placed &a, const Placed &b) { return a.time < b.time; };
    if (placed.front().index > placed.back().index)
        std::reverse(placed.begin(), placed.end());
    const VxTime *times = m_property->getKeyTimes();
    const bool inPlace = std::all_of(placed.begin(), placed.end(), [times](const Placed &key) {
        return key.time == times[key.index];
    });
    if (inPlace)
        return setValues(placed, records);
    if (!std::is_sorted(placed.begin(), placed.end(), byTime))
        std::sort(placed.begin(), placed.end(), byTime);
    return replaceSpan(placed, records);
}

std::vector<KeyMoveApplier::Placed>
KeyMoveApplier::place(const QVector<KeyDragPlan::Move> &moves) const
{
    const int count = m_property->getNumKeys();
    std::vector<KeyDragPlan::Move> possible;
    possible.reserve(static_cast<std::size_t>(moves.size()));
    for (const KeyDragPlan::Move &move : moves) {
        if (move.index >= 0 && move.index < count &&
            std::isfinite(narrowed(move.value / m_displayScale)))
            possible.push_back(move);
    }
    const std::vector<VxTime> times = KeyDragPlan::placeKeys(
        m_property->getKeyTimes(), count, possible.data(), static_cast<int>(possible.size()));
    const bool clamped = m_property->isClamped();
    std::vector<Placed> placed;
    placed.reserve(times.size());
    for (std::size_t i = 0; i < times.size(); ++i) {
        float value = narrowed(possible[i].value / m_displayScale);
        if (clamped)
            value = qBound(m_property->getMin(), value, m_property->getMax());
        placed.push_back({times[i], possible[i].index, value});
    }
    return placed;
}

bool KeyMoveApplier::setValues(const std::vector<Placed> &placed,
                               const QVector<VxKeyGraphKey> &records)
{
    QVector<int> indexes;
    QVector<float> values;
    indexes.reserve(static_cast<int>(placed.size()));
    values.reserve(static_cast<int>(placed.size()));
    const float *former = m_property->getKeys().values;
    for (const Placed &key : placed) {
        // Equal numbers of different sign are told apart by no one.
        if (former[key.index] == key.value)
            continue;
        indexes.append(key.index);
        values.append(key.value);
    }
    m_records = records;
    return !indexes.isEmpty() && m_property->setKeyValues(indexes, values);
}

bool KeyMoveApplier::replaceSpan(const std::vector<Placed> &placed,
                                 const QVector<VxKeyGraphKey> &records)
{
    const VxKeyColumns<float> keys = m_property->getKeys();
    std::vector<quint8> moves(static_cast<std::size_t>(keys.count), 0);
    int first = keys.count;
    int last = 0;
    for (const Placed &key : placed) {
        moves[static_cast<std::size_t>(key.index)] = 1;
        first = qMin(first, key.index);
        last = qMax(last, key.index);
    }
    const VxTimeRange span(qMin(keys.times[first], placed.front().time),
                           qMax(keys.times[last], placed.back().time));
    first = static_cast<int>(
        std::lower_bound(keys.times, keys.times + keys.count, span.getStart()) - keys.times);
    last = static_cast<int>(std::upper_bound(keys.times, keys.times + keys.count, span.getEnd()) -
                            keys.times);

    SpanColumns columns(keys, last - first);
    m_records = records;
    VxKeyGraphKey *record = m_records.data() + first;
    auto next = placed.begin();
    const auto addPlaced = [&] {
        columns.add(next->index, next->time, next->value);
        *record = records.at(next->index);
        (record++)->time = next->time;
        ++next;
    };
    for (int i = first; i < last; ++i) {
        if (moves[static_cast<std::size_t>(i)])
            continue;
        while (next != placed.end() && next->time < keys.times[i])
            addPlaced();
        columns.add(i, keys.times[i], keys.values[i]);
        *record++ = records.at(i);
    }
    while (next != placed.end())
        addPlaced();
    return m_property->replaceKeys(span, columns.columns());
}
