#include "vxtimeline/keygraph/keygraphdrag.h"

#include <QtCore/QHash>
#include <algorithm>
#include <cmath>
#include <vector>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyedit.h>

#include "vxtimeline/keygraph/keydragplan.h"
#include "vxtimeline/keygraph/vxfloatchannel.h"

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

// Moves as columns, with the values that the property keeps.
struct Edit
{
    std::vector<int> source;
    std::vector<VxTime> times;
    std::vector<float> values;

    Edit(const QVector<KeyGraphDrag::Move> &moves, const VxFloatProperty *property);
    bool leavesTimes(const VxTime *present) const
    {
        return std::equal(source.cbegin(), source.cend(), times.cbegin(),
                          [present](int index, VxTime time) { return present[index] == time; });
    }
};

Edit::Edit(const QVector<KeyGraphDrag::Move> &moves, const VxFloatProperty *property)
{
    const auto *holder = static_cast<const VxFloatProperty *>(property->getKeyHolder());
    const auto count = std::size_t(moves.size());
    source.reserve(count);
    times.reserve(count);
    values.reserve(count);
    for (const KeyGraphDrag::Move &move : moves) {
        const float value = VxFloatChannel::narrowed(move.value / move.displayScale);
        if (move.index < 0 || move.index >= holder->getNumKeys() || !std::isfinite(value))
            continue;
        source.push_back(move.index);
        times.push_back(move.time);
        values.push_back(holder->isClamped() ? qBound(holder->getMin(), value, holder->getMax())
                                             : value);
    }
}

// Zeros of different sign compare equal.
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

// The selected keys of all channels of a holder; each once, with the start of its drag.
QVector<KeyGraphDrag::Move> movesOf(const QVector<VxKeyGraphChannel *> &channels,
                                    const KeyGraphDrag::Step &step)
{
    struct Source
    {
        const VxKeyGraphKey *records;
        double displayScale;
    };
    std::vector<Source> sources;
    int count = 0;
    for (const VxKeyGraphChannel *channel : channels) {
        const Records &records = channel->getKeyCache();
        if (!writable(channel) || !hasSelected(records))
            continue;
        sources.push_back({records.constData(), channel->getKeys().displayScale});
        count = records.size();
    }
    QVector<KeyGraphDrag::Move> moves;
    moves.reserve(count);
    for (int i = 0; i < count; ++i) {
        const int index = step.fromLast ? count - 1 - i : i;
        const auto source =
            std::find_if(sources.cbegin(), sources.cend(),
                         [index](const Source &each) { return each.records[index].selected; });
        if (source == sources.cend())
            continue;
        const VxKeyGraphKey &key = source->records[index];
        moves.append({index, KeyDragPlan::draggedTime(key.dragStartTime, step.time, step.timeStep),
                      key.dragStartValue + step.value, source->displayScale});
    }
    return moves;
}

} // namespace

// All records are read before the keys change.
bool KeyGraphDrag::moveKeys(const QVector<VxKeyGraphChannel *> &channels,
                            const QVector<Move> &moves)
{
    const auto channel = std::find_if(channels.cbegin(), channels.cend(), writable);
    if (channel == channels.cend())
        return false;
    VxFloatProperty *property = writable(*channel);
    const VxKeyColumns<float> keys = property->getKeys();
    const Edit edit(moves, property);
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
        if (moveKeys(holder, movesOf(holder, step)))
            changed += holder;
    }
    return changed;
}
