#include "vxtimeline/keygraph/keygraphdrag.h"

#include "vxtimeline/keygraph/vxfloatchannel.h"
#include "vxtimeline/time/timelinesnap.h"

#include <QtCore/QHash>
#include <algorithm>
#include <cmath>
#include <vector>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyedit.h>

namespace {

using Records = QVector<VxKeyGraphKey>;

VxFloatProperty *writable(const VxKeyGraphChannel *channel)
{
    auto *property = qobject_cast<VxFloatProperty *>(channel->getProperty());
    return property && !property->isLocked() && property->canBeKeyed() ? property : nullptr;
}

bool hasSelected(const Records &records)
{
    return std::any_of(records.cbegin(), records.cend(),
                       [](const VxKeyGraphKey &key) { return key.selected; });
}

// Edited keys as columns, with values in the units of the key holder.
class Edit
{
public:
    Edit(const VxFloatProperty *property, int capacity)
        : m_holder(static_cast<const VxFloatProperty *>(property->getKeyHolder()))
    {
        source.reserve(std::size_t(capacity));
        times.reserve(std::size_t(capacity));
        values.reserve(std::size_t(capacity));
    }

    // Skips a key whose value does not fit.
    void add(int index, VxTime time, double exactValue)
    {
        const float value = VxFloatChannel::narrowed(exactValue);
        if (!std::isfinite(value))
            return;
        source.push_back(index);
        times.push_back(time);
        values.push_back(
            m_holder->isClamped() ? qBound(m_holder->getMin(), value, m_holder->getMax()) : value);
    }
    bool leavesTimes(const VxTime *present) const
    {
        return std::equal(source.cbegin(), source.cend(), times.cbegin(),
                          [present](int index, VxTime time) { return present[index] == time; });
    }

    std::vector<int> source;
    std::vector<VxTime> times;
    std::vector<float> values;

private:
    const VxFloatProperty *m_holder;
};

// Changed values only; ±0 compare equal.
bool setValues(VxFloatProperty *property, const Edit &edit)
{
    QVector<int> indexes;
    QVector<float> values;
    const auto count = int(edit.source.size());
    indexes.reserve(count);
    values.reserve(count);
    const float *former = property->getKeys().values;
    const bool descends = edit.source.front() > edit.source.back();
    for (int i = 0; i < count; ++i) {
        const auto k = std::size_t(descends ? count - 1 - i : i);
        if (former[edit.source[k]] == edit.values[k])
            continue;
        indexes.append(edit.source[k]);
        values.append(edit.values[k]);
    }
    return !indexes.isEmpty() && property->setKeyValues(indexes, values);
}

// The records of a channel in the new order of the keys.
Records moved(const Records &former, const VxKeyResult<float> &result, int first)
{
    Records records = former;
    VxKeyGraphKey *record = records.data() + first;
    for (std::size_t i = 0; i < result.source.size(); ++i, ++record) {
        *record = former.at(result.source[i]);
        record->time = result.keys.times[i];
    }
    return records;
}

// All records are read before the keys change.
bool apply(const QVector<VxKeyGraphChannel *> &channels, VxFloatProperty *property,
           const Edit &edit)
{
    const VxKeyColumns<float> keys = property->getKeys();
    if (edit.source.empty())
        return false;
    if (edit.leavesTimes(keys.times))
        return setValues(property, edit);
    const auto result = vxPlanKeyEdit<float>(keys,
                                             {edit.source.data(), edit.times.data(),
                                              edit.values.data(), int(edit.source.size()), nullptr},
                                             VxCollision::Nudge);
    const int first = property->getFirstKeyFrom(result.span.getStart());
    std::vector<Records> records;
    for (const VxKeyGraphChannel *each : channels)
        records.push_back(moved(each->getKeyCache(), result, first));
    if (!property->replaceKeys(result.span, result.keys))
        return false;
    for (int i = 0; i < channels.size(); ++i)
        channels.at(i)->setKeyCache(std::move(records[std::size_t(i)]));
    return true;
}

// Moves the selected keys of all channels of a holder: each key once, from its drag start.
bool moveHolder(const QVector<VxKeyGraphChannel *> &channels, const KeyGraphDrag::Step &step)
{
    struct Source
    {
        VxFloatProperty *property;
        const VxKeyGraphKey *records;
        double displayScale;
    };
    std::vector<Source> sources;
    int count = 0;
    for (const VxKeyGraphChannel *channel : channels) {
        const Records &records = channel->getKeyCache();
        VxFloatProperty *property = writable(channel);
        if (!property || !hasSelected(records))
            continue;
        sources.push_back({property, records.constData(), channel->getKeys().displayScale});
        count = records.size();
    }
    if (sources.empty())
        return false;
    Edit edit(sources.front().property, count);
    for (int i = 0; i < count; ++i) {
        const int index = step.fromLast ? count - 1 - i : i;
        const auto source =
            std::find_if(sources.cbegin(), sources.cend(),
                         [index](const Source &each) { return each.records[index].selected; });
        if (source == sources.cend())
            continue;
        const VxKeyGraphKey &key = source->records[index];
        edit.add(index, KeyGraphDrag::draggedTime(key.dragStartTime, step.time, step.timeStep),
                 (key.dragStartValue + step.value) / source->displayScale);
    }
    return apply(channels, sources.front().property, edit);
}

} // namespace

QVector<VxKeyGraphChannel *>
KeyGraphDrag::moveSelected(const QVector<VxKeyGraphChannel *> &channels, const Step &step)
{
    std::vector<QVector<VxKeyGraphChannel *>> holders;
    QHash<const VxProperty *, std::size_t> places;
    for (VxKeyGraphChannel *channel : channels) {
        const VxProperty *holder = channel->getProperty()->getKeyHolder();
        if (!places.contains(holder)) {
            places.insert(holder, holders.size());
            holders.emplace_back();
        }
        holders[places.value(holder)].append(channel);
    }
    QVector<VxKeyGraphChannel *> changed;
    for (const QVector<VxKeyGraphChannel *> &holder : holders) {
        if (moveHolder(holder, step))
            changed += holder;
    }
    return changed;
}

QPointF KeyGraphDrag::oneAxis(const QPointF &delta)
{
    if (std::abs(delta.y()) > std::abs(delta.x()))
        return QPointF(0.0, delta.y());
    return QPointF(delta.x(), 0.0);
}

VxTime KeyGraphDrag::draggedTime(VxTime start, VxTime delta, VxTime timeStep)
{
    const VxTime time = TimelineSnap::limited(qint64(start) + delta);
    return timeStep > 0 ? TimelineSnap::toFrame(time, timeStep) : time;
}
