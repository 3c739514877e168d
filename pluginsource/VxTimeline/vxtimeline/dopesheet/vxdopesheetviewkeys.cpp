// The key commands of the dope sheet view. While keys are being dragged they wait for the drop:
// the keys' places are not final until then.

#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>

#include "vxtimeline/dopesheet/vxdopesheetview_p.h"
#include "vxtimeline/time/timelineplayback.h"
#include "vxtimeline/time/timelinesnap.h"
#include "vxtimeline/time/vxwarning.h"

namespace {

// Those of the given keys that are TCB keys.
QVector<int> tcbKeys(const VxFloatProperty *property, const QVector<int> &indexes)
{
    const VxKeyColumns<float> keys = property->getKeys();
    QVector<int> found;
    for (const int index : indexes) {
        if (keys.types[index] == VxKeyInterp::Tcb)
            found.append(index);
    }
    return found;
}

} // namespace

std::vector<SelectedKeys> VxDopeSheetView::Private::collectSelected() const
{
    SelectedKeysCollector collector;
    visitSelected([&collector](VxDopeSheetItem *item) { collector.add(item); });
    return collector.keys();
}

void VxDopeSheetView::Private::updateCommonTcb()
{
    commonTcb = CommonTcb();
    commonTcbStale = false;
    visitSelected([this](const VxDopeSheetItem *item) { noteSelectedKeys(item); });
}

const VxDopeSheetView::Private::CommonTcb &VxDopeSheetView::Private::currentCommonTcb()
{
    if (commonTcbStale)
        updateCommonTcb();
    return commonTcb;
}

bool VxDopeSheetView::hasCopiedKeys() const
{
    return !d->copied.isEmpty();
}

int VxDopeSheetView::numCopiedKeys() const
{
    return d->copiedCount;
}

// Row by row: a property and its alias are copied both, since only one of them may be listed when
// the keys are pasted.
void VxDopeSheetView::copyKeys()
{
    d->copied.clear();
    d->copiedCount = 0;
    for (const SelectedKeys &keys : d->collectSelected()) {
        for (const VxDopeSheetItem *item : keys.rows)
            d->copied.add(item->path(), item->property(), item->selectedKeyIndexes());
        d->copiedCount += keys.indexes.size();
    }
    Q_EMIT copyContextChanged(hasCopiedKeys());
}

void VxDopeSheetView::pasteKeys()
{
    pasteCopiedKeys();
}

bool VxDopeSheetView::pasteCopiedKeys()
{
    if (d->dragHold || !hasCopiedKeys())
        return false;
    const VxTime now = vxScene->getTime();
    bool pasted = false;
    {
        VxChangeBlock block;
        d->walkAll([this, now, &pasted](VxDopeSheetItem *item) {
            const CopiedKeys::Entry *entry =
                item->property() ? d->copied.find(item->path()) : nullptr;
            if (!entry)
                return;
            pasted = d->copied.paste(*entry, item->property(), now) || pasted;
            item->invalidateKeys();
        });
    }
    d->updateCommonTcb();
    return pasted;
}

void VxDopeSheetView::deleteKeys()
{
    if (d->dragHold)
        return;
    {
        VxChangeBlock block;
        for (const SelectedKeys &keys : d->collectSelected())
            keys.property->deleteKeys(keys.indexes);
    }
    d->updateCommonTcb();
}

void VxDopeSheetView::setInterpType(int type)
{
    if (type < VxKeyInterp::Linear || type > VxKeyInterp::Tcb) {
        vxWarning(VX_HERE,
                  QStringLiteral("Invalid value passed to VxDopeSheetView::setInterpType()"));
        return;
    }
    if (d->dragHold)
        return;
    {
        VxChangeBlock block;
        for (const SelectedKeys &keys : d->collectSelected()) {
            if (auto *property = qobject_cast<VxFloatProperty *>(keys.property))
                property->setKeyTypes(keys.indexes, type);
        }
    }
    d->updateCommonTcb();
}

void VxDopeSheetView::setTCB(float t, float c, float b)
{
    if (d->dragHold)
        return;
    VxKeyShape shape;
    shape.type = VxKeyInterp::Tcb;
    shape.tcb = {t, c, b};
    {
        VxChangeBlock block;
        for (const SelectedKeys &keys : d->collectSelected()) {
            if (auto *property = qobject_cast<VxFloatProperty *>(keys.property))
                property->setKeyInterpolations(tcbKeys(property, keys.indexes), shape);
        }
    }
    d->updateCommonTcb();
}

// A row shows the keys of all below it, so those at the top know of every key.
QVector<const VxDopeSheetItem *> VxDopeSheetView::Private::skipRows() const
{
    VxNode *primary = vxScene->getPrimarySelection();
    const QModelIndex row = primary ? view->findNodeIndex(primary) : QModelIndex();
    if (row.isValid())
        return {view->getItem(row)};
    QVector<const VxDopeSheetItem *> items;
    const int rows = view->model() ? view->model()->rowCount() : 0;
    for (int i = 0; i < rows; ++i) {
        if (const VxDopeSheetItem *item = view->getItem(view->model()->index(i, NameColumn)))
            items.append(item);
    }
    return items;
}

VxTime VxDopeSheetView::Private::keyBefore(VxTime limit) const
{
    const VxTime now =
        TimelineSnap::limited(qint64(vxScene->getTime()) - vxScene->getTimeStep() / 2);
    for (const VxDopeSheetItem *item : skipRows()) {
        const int index = item->firstKeyFrom(now) - 1;
        if (index >= 0)
            limit = qMax(limit, item->keyTime(index));
    }
    return limit;
}

VxTime VxDopeSheetView::Private::keyAfter(VxTime limit) const
{
    const VxTime now =
        TimelineSnap::limited(qint64(vxScene->getTime()) + vxScene->getTimeStep() / 2 + 1);
    for (const VxDopeSheetItem *item : skipRows()) {
        const int index = item->firstKeyFrom(now);
        if (index < item->keyCount())
            limit = qMin(limit, item->keyTime(index));
    }
    return limit;
}

void VxDopeSheetView::skipToPreviousKey()
{
    const VxTime time = d->keyBefore(-1);
    if (time != -1)
        TimelinePlayback::setTime(time);
}

void VxDopeSheetView::skipToNextKey()
{
    const VxTime time = d->keyAfter(VxTimeMax);
    if (time != VxTimeMax)
        TimelinePlayback::setTime(time);
}
