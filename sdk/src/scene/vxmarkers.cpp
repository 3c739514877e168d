#include <vxcore/vxmarkers.h>

#include "keys/vxchangeblock_p.h"
#include "scene/journalitems.h"
#include "scene/vxelement_p.h"
#include "undo/vxundovalueitem.h"

#include <QtCore/QPair>
#include <QtCore/QSet>
#include <algorithm>
#include <functional>
#include <iterator>
#include <tuple>
#include <utility>
#include <vector>
#include <vxcore/vxjournalwriter.h>
#include <vxcore/vxscene.h>

namespace {

bool startsBefore(const VxMarker &a, const VxMarker &b)
{
    const auto place = [](const VxMarker &marker) {
        return std::make_tuple(marker.span.getStart(), marker.span.getEnd(), marker.id);
    };
    return place(a) < place(b);
}

VxMarker corrected(const VxMarker &marker, int id)
{
    VxMarker result = marker;
    result.id = id;
    result.span.setEnd(qMax(marker.span.getStart(), marker.span.getEnd()));
    result.color |= 0xff000000;
    return result;
}

/** The markers ordered by id. */
std::vector<const VxMarker *> byId(const VxMarkerList &list)
{
    std::vector<const VxMarker *> result;
    result.reserve(std::size_t(list.size()));
    for (const VxMarker &marker : list)
        result.push_back(&marker);
    std::sort(result.begin(), result.end(),
              [](const VxMarker *a, const VxMarker *b) { return a->id < b->id; });
    return result;
}

/** The start or end of a marker next to a time; precedes(time, each) for those on the right side.
 */
template <class Precedes>
std::optional<VxTime> nearestTime(const VxMarkerList &list, VxTime time, const Precedes &precedes)
{
    std::optional<VxTime> nearest;
    for (const VxMarker &marker : list) {
        for (const VxTime each : {marker.span.getStart(), marker.span.getEnd()}) {
            if (precedes(time, each) && (!nearest || precedes(each, *nearest)))
                nearest = each;
        }
    }
    return nearest;
}

} // namespace

class VxMarkers::Private
{
public:
    explicit Private(VxMarkers *markers)
        : q(markers)
    {
    }

    void record();
    /// Sorts the changed list and reports the change.
    void finishChange();
    void removeIds(const QSet<int> &ids);

    VxMarkers *const q;
    VxMarkerList list;
    int lastId = 0;
    bool sendsAtBlockEnd = false;
};

/// Keeps the whole former list, which is shared, until the hold ends, and from then on the former
/// states of the changed markers alone. Undo and redo find them by id and keep unrecorded changes
/// of other markers.
class VxMarkers::UndoItem : public VxUndoItem
{
public:
    explicit UndoItem(VxMarkers *markers)
        : VxUndoItem(markers, VxUndoSceneMarkers)
        , m_markers(markers)
        , m_former(markers->list())
    {
    }

    bool isAlive() const { return m_markers; }

    void swap() override
    {
        if (!m_markers)
            return;
        reduce();
        Private *d = m_markers->d.get();
        const VxMarkerList changed = present();
        d->removeIds(QSet<int>(m_changed.cbegin(), m_changed.cend()));
        d->list += std::exchange(m_former, changed);
        d->finishChange();
    }

    bool finish() override
    {
        if (m_markers)
            reduce();
        return m_markers && !m_changed.isEmpty();
    }

    bool write(VxJournalWriter &writer) const override
    {
        if (!m_markers || !m_isReduced)
            return false;
        const VxMarkerList &after = m_markers->list();
        VxMarkerList before = m_former;
        const QSet<int> ids(m_changed.cbegin(), m_changed.cend());
        std::copy_if(after.cbegin(), after.cend(), std::back_inserter(before),
                     [&ids](const VxMarker &marker) { return !ids.contains(marker.id); });
        std::sort(before.begin(), before.end(), startsBefore);
        // Unchanged markers with the span of a changed one are part of the order among them.
        QSet<Span> spans;
        for (const VxMarker &marker : m_former + present())
            spans.insert(spanOf(marker));
        writer.number(JournalItem::Markers);
        put(writer, before, spans);
        put(writer, after, spans);
        return true;
    }

    qint64 memoryUsed() const override
    {
        qint64 bytes = qint64(sizeof(*this)) + m_changed.size() * qint64(sizeof(int));
        for (const VxMarker &marker : m_former)
            bytes += qint64(sizeof(VxMarker)) + marker.name.size() * qint64(sizeof(QChar));
        return bytes;
    }

private:
    using Span = QPair<VxTime, VxTime>;
    static Span spanOf(const VxMarker &marker)
    {
        return {marker.span.getStart(), marker.span.getEnd()};
    }

    /// Writes the markers that have one of the spans.
    static void put(VxJournalWriter &writer, const VxMarkerList &all, const QSet<Span> &spans)
    {
        VxMarkerList markers;
        std::copy_if(all.cbegin(), all.cend(), std::back_inserter(markers),
                     [&spans](const VxMarker &marker) { return spans.contains(spanOf(marker)); });
        writer.number(qint32(markers.size()));
        for (const VxMarker &marker : qAsConst(markers)) {
            writer.number(qint32(marker.id));
            writer.text(marker.name);
            journalPut(writer, marker.span);
            writer.number(quint32(marker.color));
        }
    }

    /// The present states of the changed markers.
    VxMarkerList present() const
    {
        const QSet<int> ids(m_changed.cbegin(), m_changed.cend());
        VxMarkerList markers;
        for (const VxMarker &marker : m_markers->list()) {
            if (ids.contains(marker.id))
                markers.append(marker);
        }
        return markers;
    }

    /// Drops unchanged markers.
    void reduce()
    {
        if (std::exchange(m_isReduced, true))
            return;
        const VxMarkerList all = std::exchange(m_former, {});
        const auto former = byId(all);
        const auto present = byId(m_markers->list());
        auto f = former.begin();
        auto p = present.begin();
        while (f != former.end() || p != present.end()) {
            const bool wasAdded = f == former.end() || (p != present.end() && (*p)->id < (*f)->id);
            const bool wasRemoved = !wasAdded && (p == present.end() || (*f)->id < (*p)->id);
            if (wasAdded || wasRemoved || **f != **p)
                m_changed.append(wasAdded ? (*p)->id : (*f)->id);
            if (!wasAdded && (wasRemoved || **f != **p))
                m_former.append(**f);
            f += wasAdded ? 0 : 1;
            p += wasRemoved ? 0 : 1;
        }
        m_former.squeeze();
        m_changed.squeeze();
    }

    QPointer<VxMarkers> m_markers;
    VxMarkerList m_former;
    QVector<int> m_changed; // ids of added, removed and changed markers
    bool m_isReduced = false;
};

void VxMarkers::Private::record()
{
    VxUndoStack *stack = VxUndoStack::current();
    if (vxMustRecord(stack, static_cast<const QObject *>(q), VxUndoSceneMarkers) &&
        !vxFindLivingItem<UndoItem>(stack, q, VxUndoSceneMarkers))
        stack->record(new UndoItem(q));
}

void VxMarkers::Private::finishChange()
{
    // Mostly a single marker is out of order.
    if (!std::is_sorted(list.cbegin(), list.cend(), startsBefore))
        std::sort(list.begin(), list.end(), startsBefore);
    if (!VxChangeBlock::isActive()) {
        Q_EMIT q->changed();
        return;
    }
    if (std::exchange(sendsAtBlockEnd, true))
        return;
    VxPendingChanges::runAfterReports([self = QPointer<VxMarkers>(q)] {
        if (!self)
            return;
        self->d->sendsAtBlockEnd = false;
        Q_EMIT self->changed();
    });
}

void VxMarkers::Private::removeIds(const QSet<int> &ids)
{
    list.erase(std::remove_if(list.begin(), list.end(),
                              [&ids](const VxMarker &marker) { return ids.contains(marker.id); }),
               list.end());
}

VxMarkers::VxMarkers(VxScene *scene)
    : QObject(scene)
    , d(std::make_unique<Private>(this))
{
    connect(scene, &VxScene::sceneCleared, this, [this] { replaceAll({}); });
}

VxMarkers::~VxMarkers() = default;

VxMarkers *VxMarkers::of(VxScene *scene)
{
    auto *found = scene->findChild<VxMarkers *>(QString(), Qt::FindDirectChildrenOnly);
    return found ? found : new VxMarkers(scene);
}

VxMarkerList VxMarkers::listOf(const VxScene *scene)
{
    const auto *found = scene->findChild<VxMarkers *>(QString(), Qt::FindDirectChildrenOnly);
    return found ? found->list() : VxMarkerList();
}

int VxMarkers::count() const
{
    return d->list.size();
}

const VxMarkerList &VxMarkers::list() const
{
    return d->list;
}

int VxMarkers::indexOf(int id) const
{
    const auto found = std::find_if(d->list.cbegin(), d->list.cend(),
                                    [id](const VxMarker &marker) { return marker.id == id; });
    return found == d->list.cend() ? -1 : int(found - d->list.cbegin());
}

std::optional<VxMarker> VxMarkers::find(int id) const
{
    const int index = indexOf(id);
    return index < 0 ? std::nullopt : std::optional<VxMarker>(d->list.at(index));
}

QVector<int> VxMarkers::add(const VxMarkerList &markers)
{
    if (markers.isEmpty())
        return {};
    d->record();
    QVector<int> ids;
    ids.reserve(markers.size());
    for (const VxMarker &marker : markers) {
        ids.append(++d->lastId);
        d->list.append(corrected(marker, d->lastId));
    }
    d->finishChange();
    return ids;
}

int VxMarkers::add(const VxMarker &marker)
{
    return add(VxMarkerList{marker}).first();
}

void VxMarkers::set(const VxMarkerList &markers)
{
    const auto given = byId(markers);
    VxMarkerList changed = d->list;
    for (VxMarker &marker : changed) {
        const auto found =
            std::lower_bound(given.begin(), given.end(), marker.id,
                             [](const VxMarker *each, int id) { return each->id < id; });
        if (found != given.end() && (*found)->id == marker.id)
            marker = corrected(**found, marker.id);
    }
    if (changed == d->list)
        return;
    d->record();
    d->list = changed;
    d->finishChange();
}

void VxMarkers::set(const VxMarker &marker)
{
    set(VxMarkerList{marker});
}

void VxMarkers::remove(const QVector<int> &ids)
{
    const QSet<int> removed(ids.cbegin(), ids.cend());
    const auto isRemoved = [&removed](const VxMarker &marker) {
        return removed.contains(marker.id);
    };
    if (std::none_of(d->list.cbegin(), d->list.cend(), isRemoved))
        return;
    d->record();
    d->removeIds(removed);
    d->finishChange();
}

void VxMarkers::replaceAll(const VxMarkerList &markers)
{
    if (markers.isEmpty() && d->list.isEmpty())
        return;
    d->record();
    d->list.clear();
    for (const VxMarker &marker : markers)
        d->list.append(corrected(marker, ++d->lastId));
    d->finishChange();
}

std::optional<VxTime> VxMarkers::timeAfter(VxTime time) const
{
    return nearestTime(d->list, time, std::less<>());
}

std::optional<VxTime> VxMarkers::timeBefore(VxTime time) const
{
    return nearestTime(d->list, time, std::greater<>());
}
