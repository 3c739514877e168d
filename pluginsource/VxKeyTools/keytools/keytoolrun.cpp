#include "keytools/keytoolrun.h"

#include "keytools/keytool.h"
#include "keytools/keytooltext.h"
#include "keytools/valuelimiter.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxkeyedit.h>

namespace {

using EditedSpans = std::optional<std::vector<VxKeySpan>>;

/// The same keys by spans with gaps between them.
std::vector<VxKeySpan> joined(const std::vector<VxKeySpan> &spans)
{
    std::vector<VxKeySpan> result;
    for (const VxKeySpan &span : spans) {
        if (!result.empty() && result.back().last >= span.first)
            result.back().last = span.last;
        else if (span.first < span.last)
            result.push_back(span);
    }
    return result;
}

/// Ascending times; of keys at one time the last one is kept.
void sortByTime(VxFittedKeys *keys)
{
    const auto findFirst = [keys](auto isWrong) {
        return std::adjacent_find(keys->times.begin(), keys->times.end(), isWrong);
    };
    if (findFirst(std::less_equal<>()) == keys->times.end()) { // descending
        std::reverse(keys->times.begin(), keys->times.end());
        std::reverse(keys->values.begin(), keys->values.end());
        std::reverse(keys->types.begin(), keys->types.end());
        std::reverse(keys->tcb.begin(), keys->tcb.end());
        return;
    }
    if (findFirst(std::greater_equal<>()) == keys->times.end())
        return;
    std::vector<std::size_t> order(keys->times.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [keys](std::size_t a, std::size_t b) {
        return keys->times[a] < keys->times[b];
    });
    VxFittedKeys sorted;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i + 1 < order.size() && keys->times[order[i]] == keys->times[order[i + 1]])
            continue;
        sorted.append(keys->columns(), int(order[i]));
    }
    *keys = std::move(sorted);
}

/// Spans without the last `count` keys.
std::vector<VxKeySpan> shortened(std::vector<VxKeySpan> spans, int count)
{
    while (count > 0 && !spans.empty()) {
        const int cut = std::min(count, spans.back().last - spans.back().first);
        spans.back().last -= cut;
        count -= cut;
        if (spans.back().first == spans.back().last)
            spans.pop_back();
    }
    return spans;
}

/// The elements of spans of an array, one after the other.
template <class To, class From>
std::vector<To> picked(const From *from, const std::vector<VxKeySpan> &spans, int count)
{
    std::vector<To> result;
    result.reserve(std::size_t(count));
    for (const VxKeySpan &span : spans)
        result.insert(result.end(), from + span.first, from + span.last);
    return result;
}

QVector<int> indexesOf(const std::vector<VxKeySpan> &spans, int count)
{
    QVector<int> indexes(count);
    int *next = indexes.data();
    for (const VxKeySpan &span : spans) {
        std::iota(next, next + (span.last - span.first), span.first);
        next += span.last - span.first;
    }
    return indexes;
}

bool areAt(const std::vector<VxTime> &times, const VxTime *former,
           const std::vector<VxKeySpan> &spans)
{
    const VxTime *next = times.data();
    for (const VxKeySpan &span : spans) {
        if (!std::equal(former + span.first, former + span.last, next))
            return false;
        next += span.last - span.first;
    }
    return true;
}

/// The edited values of keys, and the number of those that differ from the former ones. An unedited
/// value stays to the last bit, even beyond its limits.
template <class V>
QVector<V> limitedValues(const std::vector<double> &edited, const V *former,
                         const std::vector<VxKeySpan> &spans, const ValueLimiter<V> &limiter,
                         int *changed)
{
    QVector<V> values(int(edited.size()));
    V *next = values.data();
    const double *number = edited.data();
    for (const VxKeySpan &span : spans) {
        for (int i = span.first; i < span.last; ++i, ++next, ++number) {
            *next = *number == double(former[i]) ? former[i] : limiter(*number);
            *changed += *next != former[i] ? 1 : 0;
        }
    }
    return values;
}

/// Writes values of keys that keep their times, `changed` of which differ from the former ones.
void writeValues(VxFloatProperty *property, QVector<int> indexes, QVector<float> values,
                 int changed)
{
    if (changed < indexes.size()) {
        const float *former = property->getKeys().values;
        int kept = 0;
        for (int i = 0; i < indexes.size(); ++i) {
            if (values.at(i) == former[indexes.at(i)])
                continue;
            indexes[kept] = indexes.at(i);
            values[kept++] = values.at(i);
        }
        indexes.resize(kept);
        values.resize(kept);
    }
    property->setKeyValues(indexes, values);
}

template <class V, class Property>
EditedSpans planAndReplace(Property *property, const QVector<int> &indexes,
                           const std::vector<VxTime> &times, const V *values, int *merged)
{
    const VxKeyResult<V> result = vxPlanKeyEdit<V>(
        property->getKeys(), {indexes.constData(), times.data(), values, indexes.size(), nullptr},
        VxCollision::Replace);
    if (result.isEmpty())
        return std::nullopt;
    *merged += result.merged;
    property->replaceKeys(result.span, result.keys);
    return result.selected;
}

template <class V, class Property>
EditedSpans editKeys(Property *property, const VxKeyColumns<V> &keys, const KeyTarget &target,
                     const KeyToolRun::Edit &edit, int *merged)
{
    const std::vector<VxKeySpan> spans = target.editedSpans();
    const int count = target.numKeys() + target.numLaterKeys();
    KeySeries series;
    series.times = picked<VxTime>(keys.times, spans, count);
    series.values = picked<double>(keys.values, spans, count);
    edit(&series);
    int changed = 0;
    const QVector<V> values =
        limitedValues<V>(series.values, keys.values, spans, ValueLimiter<V>(*property), &changed);
    if (areAt(series.times, keys.times, spans)) {
        if (changed == 0)
            return std::nullopt;
        if constexpr (std::is_same_v<V, float>) {
            writeValues(property, indexesOf(spans, count), values, changed);
            return spans;
        }
    }
    return planAndReplace<V>(property, indexesOf(spans, count), series.times, values.constData(),
                             merged);
}

template <class V, class Property>
EditedSpans editTimesOf(Property *property, const VxKeyColumns<V> &keys, const KeyTarget &target,
                        const KeyToolRun::TimeEdit &edit, int *merged)
{
    const std::vector<VxKeySpan> spans = target.editedSpans();
    const int count = target.numKeys() + target.numLaterKeys();
    std::vector<VxTime> times = picked<VxTime>(keys.times, spans, count);
    edit(&times);
    if (areAt(times, keys.times, spans))
        return std::nullopt;
    return planAndReplace<V>(property, indexesOf(spans, count), times, nullptr, merged);
}

} // namespace

std::vector<VxKeySpan> keySpansAt(const std::vector<VxTime> &times, const VxProperty &property)
{
    std::vector<VxKeySpan> spans;
    const VxTime *keyTimes = property.getKeyTimes();
    int index = times.empty() ? 0 : property.getFirstKeyFrom(times.front());
    for (const VxTime time : times) {
        while (keyTimes[index] != time)
            ++index;
        if (spans.empty() || spans.back().last != index)
            spans.push_back({index, index});
        spans.back().last = ++index;
    }
    return spans;
}

VxKeyColumns<float> columnsOf(const VxFloatProperty &property, const VxKeySpan &span)
{
    const VxKeyColumns<float> all = property.getKeys();
    return {all.times + span.first, all.values + span.first,
            all.types ? all.types + span.first : nullptr, all.tcb ? all.tcb + span.first : nullptr,
            span.last - span.first};
}

KeyToolRun::KeyToolRun()
    : KeyToolRun(KeyTargets::current())
{
}

KeyToolRun::KeyToolRun(KeyTargets targets)
    : m_targets(std::move(targets))
    , m_hold(std::make_unique<VxUndoStackHold>())
    , m_block(std::make_unique<VxChangeBlock>())
{
    for (const KeyTarget &track : m_targets.tracks)
        m_selected.push_back(track.spans);
    m_result.keys = m_targets.numKeys();
    m_result.channels = int(m_targets.tracks.size());
}

KeyToolRun::~KeyToolRun() = default;

// Later keys are edited too, but not selected. Their number is that before the edit, which may have
// replaced keys.
template <class TrackEdit> void KeyToolRun::editTrack(std::size_t track, const TrackEdit &edit)
{
    const KeyTarget &target = m_targets.tracks[track];
    const int later = target.numLaterKeys();
    EditedSpans edited;
    if (auto *number = qobject_cast<VxFloatProperty *>(target.property))
        edited = edit(number, target);
    else if (auto *whole = qobject_cast<VxIntProperty *>(target.property))
        edited = edit(whole, target);
    if (edited)
        select(track, shortened(std::move(*edited), later));
}

void KeyToolRun::edit(const Edit &edit)
{
    for (std::size_t track = 0; track < m_targets.tracks.size(); ++track)
        this->edit(track, edit);
}

void KeyToolRun::edit(std::size_t track, const Edit &edit)
{
    editTrack(track, [&](auto *property, const KeyTarget &target) {
        return editKeys(property, property->getKeys(), target, edit, &m_result.merged);
    });
}

void KeyToolRun::editTimes(const TimeEdit &edit)
{
    for (std::size_t track = 0; track < m_targets.tracks.size(); ++track)
        editTimes(track, edit);
}

void KeyToolRun::editTimes(std::size_t track, const TimeEdit &edit)
{
    editTrack(track, [&](auto *property, const KeyTarget &target) {
        return editTimesOf(property, property->getKeys(), target, edit, &m_result.merged);
    });
}

void KeyToolRun::retarget(std::size_t track)
{
    KeyTarget &target = m_targets.tracks[track];
    target.spans = {{0, target.property->getNumKeys()}};
    m_selected[track] = joined(target.spans);
}

void KeyToolRun::select(std::size_t track, std::vector<VxKeySpan> spans)
{
    m_selected[track] = std::move(spans);
}

void KeyToolRun::replace(const Replacement &replacement)
{
    for (std::size_t track = 0; track < m_targets.tracks.size(); ++track)
        replace(track, replacement);
}

void KeyToolRun::replace(std::size_t track, const Replacement &replacement)
{
    auto *property = qobject_cast<VxFloatProperty *>(m_targets.tracks[track].property);
    if (!property)
        return;
    const std::vector<VxKeySpan> &spans = m_targets.tracks[track].spans;
    std::vector<std::optional<VxFittedKeys>> results;
    results.reserve(spans.size());
    for (const VxKeySpan &span : spans)
        results.push_back(replacement(*property, span));
    // From the last one on, so that the indexes of earlier ones stay.
    for (std::size_t i = spans.size(); i-- > 0;) {
        if (!results[i])
            continue;
        const VxTimeRange range(property->getKeyTime(spans[i].first),
                                property->getKeyTime(spans[i].last - 1));
        property->replaceKeys(range, results[i]->columns());
        measure(results[i]->error);
    }
    std::vector<VxKeySpan> selected;
    int grown = 0;
    for (std::size_t i = 0; i < spans.size(); ++i) {
        const int before = spans[i].last - spans[i].first;
        const int after = results[i] ? int(results[i]->times.size()) : before;
        selected.push_back({spans[i].first + grown, spans[i].first + grown + after});
        grown += after - before;
    }
    select(track, std::move(selected));
}

void KeyToolRun::rewrite(std::size_t track, const Rewrite &rewrite, bool keepsFormer)
{
    auto *property = qobject_cast<VxFloatProperty *>(m_targets.tracks[track].property);
    if (!property)
        return;
    const KeyTarget &target = m_targets.tracks[track];
    VxFittedKeys keys;
    for (const VxKeySpan &span : target.editedSpans()) {
        const VxKeyColumns<float> part = columnsOf(*property, span);
        keys.times.insert(keys.times.end(), part.times, part.times + part.count);
        keys.values.insert(keys.values.end(), part.values, part.values + part.count);
        if (part.types)
            keys.types.insert(keys.types.end(), part.types, part.types + part.count);
        if (part.tcb)
            keys.tcb.insert(keys.tcb.end(), part.tcb, part.tcb + part.count);
    }
    keys.types.resize(keys.times.size(), VxKeyInterp::Linear);
    rewrite(&keys);
    sortByTime(&keys);
    const int before = property->getNumKeys();
    const std::vector<VxKeySpan> &spans = target.spans;
    const bool isOneSpan = spans.size() == 1 && !target.withLaterKeys;
    if (!keepsFormer && isOneSpan) {
        property->replaceKeys(VxTimeRange(property->getKeyTime(spans.front().first),
                                          property->getKeyTime(spans.front().last - 1)),
                              keys.columns());
    } else {
        if (!keepsFormer) {
            const std::vector<int> source = target.indexes();
            property->deleteKeys(QVector<int>(source.begin(), source.end()));
        }
        property->setKeys(keys.columns());
    }
    const int added = keepsFormer ? target.numKeys() + target.numLaterKeys() : 0;
    m_result.merged += before + added - property->getNumKeys();
    select(track, keySpansAt(keys.times, *property));
}

void KeyToolRun::remove(std::size_t track, const std::vector<int> &indexes)
{
    m_targets.tracks[track].property->deleteKeys(QVector<int>(indexes.begin(), indexes.end()));
    std::vector<VxKeySpan> selected;
    std::size_t next = 0;
    for (const VxKeySpan &span : m_targets.tracks[track].spans) {
        const auto before = int(next);
        while (next < indexes.size() && indexes[next] < span.last)
            ++next;
        if (span.last - int(next) > span.first - before)
            selected.push_back({span.first - before, span.last - int(next)});
    }
    select(track, std::move(selected));
}

void KeyToolRun::measure(double error)
{
    m_result.error = std::max(m_result.error, error);
}

KeyToolResult KeyToolRun::finish(const QString &action, bool showsCounts)
{
    for (const std::vector<VxKeySpan> &spans : m_selected) {
        for (const VxKeySpan &span : spans)
            m_result.after += span.last - span.first;
    }
    VxKeySelection *selection = VxKeySelection::current();
    if (selection && m_targets.isSelection) {
        VxKeySelectionEntries entries;
        for (std::size_t i = 0; i < m_selected.size(); ++i)
            entries.push_back({m_targets.tracks[i].property, joined(m_selected[i]), 0});
        selection->setForHolders(entries);
    }
    // Views find the selection by the present keys. Reported first, they would look for the former
    // times of the selected keys.
    m_block.reset();
    m_hold->accept(action);
    m_result.done = !m_targets.isEmpty();
    if (m_targets.isEmpty()) {
        m_result.message =
            KeyToolText::tr("%1: select keys, or nodes with keys in the play range").arg(action);
    } else {
        m_result.message = action + QStringLiteral(": ") + m_targets.description() + m_note;
    }
    if (showsCounts && !m_targets.isEmpty())
        m_result.message += KeyToolText::tr("; now %L1, largest error %L2")
                                .arg(m_result.after)
                                .arg(m_result.error, 0, 'g', 3);
    if (m_result.merged > 0)
        m_result.message += KeyToolText::tr("; %n overwritten", nullptr, m_result.merged);
    return shownResult(m_result);
}
