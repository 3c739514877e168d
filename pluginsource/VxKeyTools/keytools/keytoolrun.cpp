#include "keytools/keytoolrun.h"

#include "keytools/keytooltext.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxkeyedit.h>
#include <vxcore/vxmainwindow.h>

namespace {

float propertyValue(const VxFloatProperty &property, double value)
{
    constexpr double Largest = std::numeric_limits<float>::max();
    const auto single = float(std::clamp(std::isfinite(value) ? value : 0, -Largest, Largest));
    return property.isClamped() ? std::clamp(single, property.getMin(), property.getMax()) : single;
}

qint32 propertyValue(const VxIntProperty &property, double value)
{
    constexpr double Largest = std::numeric_limits<qint32>::max();
    const auto whole =
        qint32(std::round(std::clamp(std::isfinite(value) ? value : 0, -Largest, Largest)));
    return property.isClamped() ? std::clamp(whole, property.getMin(), property.getMax()) : whole;
}

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
    std::vector<std::size_t> order(keys->times.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [keys](std::size_t a, std::size_t b) {
        return keys->times[a] < keys->times[b];
    });
    VxFittedKeys sorted;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i + 1 < order.size() && keys->times[order[i]] == keys->times[order[i + 1]])
            continue;
        sorted.times.push_back(keys->times[order[i]]);
        sorted.values.push_back(keys->values[order[i]]);
        sorted.types.push_back(keys->types[order[i]]);
        sorted.tcb.push_back(keys->tcb[order[i]]);
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

/// Plans and writes an edit; the spans of the edited keys afterwards.
template <class V, class Property>
std::vector<VxKeySpan> writeEdit(Property *property, const std::vector<int> &source,
                                 const KeySeries &former, const KeySeries &series, int *merged)
{
    std::vector<V> values(series.values.size());
    const VxKeyColumns<V> keys = property->getKeys();
    for (std::size_t i = 0; i < values.size(); ++i) {
        // An unedited value stays to the last bit, even beyond its limits.
        values[i] = series.values[i] == former.values[i]
                        ? keys.values[source[i]]
                        : propertyValue(*property, series.values[i]);
    }
    const VxKeyEdit<V> edit = {source.data(), series.times.data(), values.data(),
                               int(source.size()), nullptr};
    const VxKeyResult<V> result = vxPlanKeyEdit(keys, edit, VxCollision::Replace);
    if (result.isEmpty())
        return {};
    *merged += result.merged;
    property->replaceKeys(result.span, result.keys);
    return result.selected;
}

} // namespace

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

void KeyToolRun::edit(const std::function<void(KeySeries *)> &edit)
{
    for (std::size_t track = 0; track < m_targets.tracks.size(); ++track)
        this->edit(track, edit);
}

void KeyToolRun::edit(std::size_t track, const std::function<void(KeySeries *)> &edit)
{
    const KeyTarget &target = m_targets.tracks[track];
    const std::vector<int> source = target.indexes();
    KeySeries former;
    const VxTime *times = target.property->getKeyTimes();
    for (const int i : source) {
        former.times.push_back(times[i]);
        former.values.push_back(target.property->getKeyDoubleValue(i));
    }
    KeySeries series = former;
    edit(&series);
    if (series.times == former.times && series.values == former.values)
        return;
    if (auto *number = qobject_cast<VxFloatProperty *>(target.property))
        select(track, shortened(writeEdit<float>(number, source, former, series, &m_result.merged),
                                target.numLaterKeys()));
    else if (auto *whole = qobject_cast<VxIntProperty *>(target.property))
        select(track, shortened(writeEdit<qint32>(whole, source, former, series, &m_result.merged),
                                target.numLaterKeys()));
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
    const std::vector<int> source = m_targets.tracks[track].indexes();
    const VxKeyColumns<float> all = property->getKeys();
    VxFittedKeys keys;
    for (const int i : source) {
        keys.times.push_back(all.times[i]);
        keys.values.push_back(all.values[i]);
        keys.types.push_back(all.types ? all.types[i] : quint8(VxKeyInterp::Linear));
        keys.tcb.push_back(all.tcb ? all.tcb[i] : VxTcb());
    }
    rewrite(&keys);
    sortByTime(&keys);
    if (std::all_of(keys.tcb.begin(), keys.tcb.end(),
                    [](const VxTcb &tcb) { return tcb == VxTcb(); }))
        keys.tcb.clear();
    const int before = property->getNumKeys();
    if (!keepsFormer)
        property->deleteKeys(QVector<int>(source.begin(), source.end()));
    property->setKeys(keys.columns());
    const int added = keepsFormer ? int(source.size()) : 0;
    m_result.merged += before + added - property->getNumKeys();
    std::vector<VxKeySpan> selected;
    for (const VxTime time : keys.times) {
        const int index = property->findKey(time);
        selected.push_back({index, index + 1});
    }
    select(track, joined(selected));
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
    // Views must receive the report of the new keys before selecting them.
    m_block.reset();
    VxKeySelection *selection = VxKeySelection::current();
    if (selection && m_targets.isSelection) {
        VxKeySelectionEntries entries;
        for (std::size_t i = 0; i < m_selected.size(); ++i)
            entries.push_back({m_targets.tracks[i].property, joined(m_selected[i]), 0});
        selection->setForHolders(entries);
    }
    m_hold->accept(action);
    m_result.done = !m_targets.isEmpty();
    if (m_targets.isEmpty()) {
        m_result.message =
            KeyToolText::tr("%1: select keys, or nodes with keys in the play range").arg(action);
    } else {
        m_result.message = action + QStringLiteral(": ") + m_targets.description() + m_note;
    }
    if (showsCounts && !m_targets.isEmpty())
        m_result.message += KeyToolText::tr("; now %1, largest error %2")
                                .arg(m_result.after)
                                .arg(m_result.error, 0, 'g', 3);
    if (m_result.merged > 0)
        m_result.message += KeyToolText::tr("; %1 overwritten").arg(m_result.merged);
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    if (window)
        const_cast<VxMainWindow *>(window)->showStatusMessage(m_result.message);
    return m_result;
}
