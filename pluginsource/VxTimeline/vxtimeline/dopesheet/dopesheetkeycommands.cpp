#include "vxtimeline/dopesheet/dopesheetkeycommands.h"

#include "vxtimeline/dopesheet/dopesheetkeyselection.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/time/timelinesnap.h"

#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>

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

} // namespace

DopeSheetKeyCommands::DopeSheetKeyCommands(VxDopeSheetView *view, DopeSheetKeySelection *selection)
    : m_view(view)
    , m_selection(selection)
{
}

// Row by row: a property and its alias are both copied, since only one of them may be listed when
// the keys are pasted.
void DopeSheetKeyCommands::copy()
{
    m_copied.clear();
    m_copiedCount = 0;
    for (const SelectedKeys &keys : m_selection->collect()) {
        for (const VxDopeSheetItem *item : keys.rows)
            m_copied.add(item->path(), item->property(), item->selectedKeyIndexes());
        m_copiedCount += keys.indexes.size();
    }
}

bool DopeSheetKeyCommands::paste()
{
    if (!hasCopiedKeys())
        return false;
    const VxTime now = vxScene->getTime();
    bool pasted = false;
    {
        VxChangeBlock block;
        m_selection->visitRows([this, now, &pasted](VxDopeSheetItem *item) {
            const CopiedKeys::Entry *entry =
                item->property() ? m_copied.find(item->path()) : nullptr;
            if (!entry)
                return;
            pasted = m_copied.paste(*entry, item->property(), now) || pasted;
            item->invalidateKeys();
        });
    }
    m_selection->invalidateCommonTcb();
    return pasted;
}

void DopeSheetKeyCommands::remove()
{
    {
        VxChangeBlock block;
        for (const SelectedKeys &keys : m_selection->collect())
            keys.property->deleteKeys(keys.indexes);
    }
    m_selection->invalidateCommonTcb();
}

void DopeSheetKeyCommands::setType(int type)
{
    {
        VxChangeBlock block;
        for (const SelectedKeys &keys : m_selection->collect()) {
            if (auto *property = qobject_cast<VxFloatProperty *>(keys.property))
                property->setKeyTypes(keys.indexes, type);
        }
    }
    m_selection->invalidateCommonTcb();
}

void DopeSheetKeyCommands::setTcb(float tension, float continuity, float bias)
{
    VxKeyShape shape;
    shape.type = VxKeyInterp::Tcb;
    shape.tcb = {tension, continuity, bias};
    {
        VxChangeBlock block;
        for (const SelectedKeys &keys : m_selection->collect()) {
            if (auto *property = qobject_cast<VxFloatProperty *>(keys.property))
                property->setKeyInterpolations(tcbKeys(property, keys.indexes), shape);
        }
    }
    m_selection->invalidateCommonTcb();
}

// A row shows the keys of all rows below it, so root rows have every key.
QVector<const VxDopeSheetItem *> DopeSheetKeyCommands::skipRows() const
{
    VxNode *primary = vxScene->getPrimarySelection();
    const QModelIndex row = primary ? m_view->findNodeIndex(primary) : QModelIndex();
    if (row.isValid())
        return {m_view->getItem(row)};
    QVector<const VxDopeSheetItem *> items;
    const QAbstractItemModel *model = m_view->model();
    for (int i = 0; model && i < model->rowCount(); ++i) {
        if (const VxDopeSheetItem *item = m_view->getItem(model->index(i, 0)))
            items.append(item);
    }
    return items;
}

VxTime DopeSheetKeyCommands::previousKey() const
{
    const VxTime now =
        TimelineSnap::limited(qint64(vxScene->getTime()) - vxScene->getTimeStep() / 2);
    VxTime time = -1;
    for (const VxDopeSheetItem *item : skipRows()) {
        const int index = item->firstKeyFrom(now) - 1;
        if (index >= 0)
            time = qMax(time, item->keyTime(index));
    }
    return time;
}

VxTime DopeSheetKeyCommands::nextKey() const
{
    const VxTime now =
        TimelineSnap::limited(qint64(vxScene->getTime()) + vxScene->getTimeStep() / 2 + 1);
    VxTime time = VxTimeMax;
    for (const VxDopeSheetItem *item : skipRows()) {
        const int index = item->firstKeyFrom(now);
        if (index < item->keyCount())
            time = qMin(time, item->keyTime(index));
    }
    return time;
}
