// The commands on the selected keys, and the clipboard of keys. They open no undo hold: the caller
// does. Those that edit keys are refused while keys are dragged: the keys' times are not final
// until the drop.

#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>

#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetview_p.h"
#include "vxtimeline/time/timelineplayback.h"
#include "vxtimeline/time/timelinesnap.h"
#include "vxtimeline/time/vxwarning.h"

namespace {

// The TCB keys among the given ones.
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

// The row of the primary node, or all root rows without such a row: a row shows the keys of all
// rows below it, so these have every key.
QVector<const VxDopeSheetItem *> skipRows(const VxDopeSheetView *view)
{
    VxNode *primary = vxScene->getPrimarySelection();
    const QModelIndex row = primary ? view->findNodeIndex(primary) : QModelIndex();
    if (row.isValid())
        return {view->getItem(row)};
    QVector<const VxDopeSheetItem *> items;
    const QAbstractItemModel *model = view->model();
    for (int i = 0; model && i < model->rowCount(); ++i) {
        if (const VxDopeSheetItem *item = view->getItem(model->index(i, 0)))
            items.append(item);
    }
    return items;
}

} // namespace

// Row by row: a property and its alias are both copied, since only one of them may be listed when
// the keys are pasted.
void VxDopeSheetView::copyKeys()
{
    d->copied.clear();
    d->copiedCount = 0;
    for (const SelectedKeys &keys : d->keys.collect()) {
        for (const VxDopeSheetItem *item : keys.rows)
            d->copied.add(item->path(), item->property(), item->selectedKeyIndexes());
        d->copiedCount += keys.indexes.size();
    }
    Q_EMIT copyContextChanged(hasCopiedKeys());
}

bool VxDopeSheetView::hasCopiedKeys() const
{
    return !d->copied.isEmpty();
}

int VxDopeSheetView::numCopiedKeys() const
{
    return d->copiedCount;
}

const std::vector<VxCopiedKeys> &VxDopeSheetView::copiedKeys() const
{
    return d->copied.entries();
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
        d->keys.visitRows([this, now, &pasted](VxDopeSheetItem *item) {
            const CopiedKeys::Entry *entry =
                item->property() ? d->copied.find(item->path()) : nullptr;
            if (!entry)
                return;
            pasted = d->copied.paste(*entry, item->property(), now) || pasted;
            item->invalidateKeys();
        });
    }
    d->keys.invalidateCommonTcb();
    return pasted;
}

void VxDopeSheetView::deleteKeys()
{
    if (d->dragHold)
        return;
    {
        VxChangeBlock block;
        for (const SelectedKeys &keys : d->keys.collect())
            keys.property->deleteKeys(keys.indexes);
    }
    d->keys.invalidateCommonTcb();
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
        for (const SelectedKeys &keys : d->keys.collect()) {
            if (auto *property = qobject_cast<VxFloatProperty *>(keys.property))
                property->setKeyTypes(keys.indexes, type);
        }
    }
    d->keys.invalidateCommonTcb();
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
        for (const SelectedKeys &keys : d->keys.collect()) {
            if (auto *property = qobject_cast<VxFloatProperty *>(keys.property))
                property->setKeyInterpolations(tcbKeys(property, keys.indexes), shape);
        }
    }
    d->keys.invalidateCommonTcb();
}

void VxDopeSheetView::skipToPreviousKey()
{
    const VxTime now =
        TimelineSnap::limited(qint64(vxScene->getTime()) - vxScene->getTimeStep() / 2);
    VxTime time = -1;
    for (const VxDopeSheetItem *item : skipRows(this)) {
        const int index = item->firstKeyFrom(now) - 1;
        if (index >= 0)
            time = qMax(time, item->keyTime(index));
    }
    if (time != -1)
        TimelinePlayback::setTime(time);
}

void VxDopeSheetView::skipToNextKey()
{
    const VxTime now =
        TimelineSnap::limited(qint64(vxScene->getTime()) + vxScene->getTimeStep() / 2 + 1);
    VxTime time = VxTimeMax;
    for (const VxDopeSheetItem *item : skipRows(this)) {
        const int index = item->firstKeyFrom(now);
        if (index < item->keyCount())
            time = qMin(time, item->keyTime(index));
    }
    if (time != VxTimeMax)
        TimelinePlayback::setTime(time);
}
