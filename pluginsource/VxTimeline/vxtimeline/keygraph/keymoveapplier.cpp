#include "vxtimeline/keygraph/keymoveapplier.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>
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

bool KeyMoveApplier::apply(QVector<KeyDragPlan::Move> moves, const QVector<VxKeyGraphKey> &records)
{
    toStoredValues(moves);
    if (moves.isEmpty() || m_property->isLocked() || !m_property->canBeKeyed())
        return false;
    const VxTime *times = m_property->getKeyTimes();
    KeyDragPlan::placeKeys(times, m_property->getNumKeys(), moves.data(), moves.size());
    if (moves.first().index > moves.last().index)
        std::reverse(moves.begin(), moves.end());
    const bool inPlace = std::all_of(moves.cbegin(), moves.cend(), [times](const auto &move) {
        return move.time == times[move.index];
    });
    if (inPlace)
        return setValues(moves, records);
    const auto byTime = [](const auto &a, const auto &b) { return a.time < b.time; };
    if (!std::is_sorted(moves.cbegin(), moves.cend(), byTime))
        std::sort(moves.begin(), moves.end(), byTime);
    return replaceSpan(moves, records);
}

// Values as the property will keep them, without the moves that it could not take.
void KeyMoveApplier::toStoredValues(Moves &moves) const
{
    const int count = m_property->getNumKeys();
    const bool clamped = m_property->isClamped();
    const double lowest = double(m_property->getMin());
    const double highest = double(m_property->getMax());
    auto kept = moves.begin();
    for (const KeyDragPlan::Move &move : qAsConst(moves)) {
        const float value = narrowed(move.value / m_displayScale);
        if (move.index < 0 || move.index >= count || !std::isfinite(value))
            continue;
        *kept = move;
        kept->value = clamped ? qBound(lowest, double(value), highest) : double(value);
        ++kept;
    }
    moves.erase(kept, moves.end());
}

bool KeyMoveApplier::setValues(const Moves &moves, const QVector<VxKeyGraphKey> &records)
{
    QVector<int> indexes(moves.size());
    QVector<float> values(moves.size());
    const float *former = m_property->getKeys().values;
    int changed = 0;
    for (const KeyDragPlan::Move &move : moves) {
        indexes[changed] = move.index;
        values[changed] = static_cast<float>(move.value);
        // Zeros of different sign are told apart by no one.
        if (former[move.index] != values.at(changed))
            ++changed;
    }
    indexes.resize(changed);
    values.resize(changed);
    m_records = records;
    return changed > 0 && m_property->setKeyValues(indexes, values);
}

bool KeyMoveApplier::replaceSpan(const Moves &placed, const QVector<VxKeyGraphKey> &records)
{
    const VxKeyColumns<float> keys = m_property->getKeys();
    std::vector<quint8> moved(static_cast<std::size_t>(keys.count), 0);
    int first = keys.count;
    int last = 0;
    for (const KeyDragPlan::Move &key : placed) {
        moved[static_cast<std::size_t>(key.index)] = 1;
        first = qMin(first, key.index);
        last = qMax(last, key.index);
    }
    const VxTimeRange span(qMin(keys.times[first], placed.first().time),
                           qMax(keys.times[last], placed.last().time));
    first = static_cast<int>(
        std::lower_bound(keys.times, keys.times + keys.count, span.getStart()) - keys.times);
    last = static_cast<int>(std::upper_bound(keys.times, keys.times + keys.count, span.getEnd()) -
                            keys.times);

    SpanColumns columns(keys, last - first);
    m_records = records;
    VxKeyGraphKey *record = m_records.data() + first;
    auto next = placed.cbegin();
    const auto addPlaced = [&] {
        columns.add(next->index, next->time, static_cast<float>(next->value));
        *record = records.at(next->index);
        (record++)->time = next->time;
        ++next;
    };
    for (int i = first; i < last; ++i) {
        if (moved[static_cast<std::size_t>(i)])
            continue;
        while (next != placed.cend() && next->time < keys.times[i])
            addPlaced();
        columns.add(i, keys.times[i], keys.values[i]);
        *record++ = records.at(i);
    }
    while (next != placed.cend())
        addPlaced();
    return m_property->replaceKeys(span, columns.columns());
}
