#include "vxtimeline/dopesheet/dopesheetkeyselection.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/rows/dopesheetrowkeys.h"
#include "vxtimeline/rows/dopesheetwalk.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtCore/QScopedValueRollback>
#include <algorithm>
#include <numeric>
#include <utility>
#include <vxcore/vxproperty.h>

namespace {

// The indexes of the keys that are selected, or of those that are not.
QVector<qint32> indexesOf(const DopeSheetRowKeys &keys, bool selected)
{
    const auto isCounted = [selected](quint8 flags) {
        return bool(flags & DopeSheetRowKeys::Selected) == selected;
    };
    QVector<qint32> indexes;
    const auto counted = std::count_if(keys.flags, keys.flags + keys.count, isCounted);
    if (counted == keys.count) {
        indexes.resize(keys.count);
        std::iota(indexes.begin(), indexes.end(), 0);
        return indexes;
    }
    indexes.reserve(int(counted));
    for (int i = 0; i < keys.count; ++i) {
        if (isCounted(keys.flags[i]))
            indexes.append(i);
    }
    return indexes;
}

} // namespace

DopeSheetKeySelection::DopeSheetKeySelection(VxDopeSheetView *view)
    : m_view(view)
{
}

void DopeSheetKeySelection::visitShown(const Operation &visit) const
{
    DopeSheetWalk::visitBelow(m_view->model(), QModelIndex(), [&](const QModelIndex &row) {
        VxDopeSheetItem *item = m_view->getItem(row);
        if (!item || !item->mayHaveSelectedKeys())
            return false;
        if (item->property() && item->hasSelectedKeys())
            visit(item);
        return !item->property();
    });
}

// Skips subtrees without selected keys.
void DopeSheetKeySelection::visitAll(const Operation &visit) const
{
    const VxDopeSheetModel *model = m_view->getSourceModel();
    QVector<VxDopeSheetItem *> open;
    if (model)
        open.append(model->getRootItem());
    while (!open.isEmpty()) {
        VxDopeSheetItem *item = open.takeLast();
        if (!item->mayHaveSelectedKeys())
            continue;
        if (item->property() && item->hasSelectedKeys())
            visit(item);
        for (int i = item->childCount() - 1; i >= 0; --i)
            open.append(item->child(i));
    }
}

void DopeSheetKeySelection::selectKeys(VxDopeSheetItem *item, bool select, VxTime start, VxTime end)
{
    item->setKeysSelected(select, start, end);
    if (!item->property())
        return;
    if (select)
        m_commonTcb.add(item);
    sendSelection(item);
}

void DopeSheetKeySelection::select(const QModelIndex &first, const QModelIndex &last, bool select,
                                   VxTime start, VxTime end)
{
    if (select && !m_view->hasSelectedKeys())
        m_commonTcb.clear();
    const QScopedValueRollback<bool> walking(m_isWalking, true);
    DopeSheetWalk::between(
        first, last, [this](const QModelIndex &row) { return m_view->isExpanded(row); },
        [&](const QModelIndex &row) {
            if (VxDopeSheetItem *item = m_view->getItem(row))
                selectKeys(item, select, start, end);
        });
}

void DopeSheetKeySelection::visitRows(const Operation &operation)
{
    const QScopedValueRollback<bool> walking(m_isWalking, true);
    DopeSheetWalk::all(m_view->model(), [&](const QModelIndex &row) {
        if (VxDopeSheetItem *item = m_view->getItem(row))
            operation(item);
    });
}

void DopeSheetKeySelection::deselectAll() const
{
    visitAll([](VxDopeSheetItem *item) { item->setKeysSelected(false, VxTimeMin, VxTimeMax); });
}

// The first row, closed, clears everything below it at once; the rows below it only emit. Rows
// that are filtered out follow last.
void DopeSheetKeySelection::clearRows()
{
    QVector<QModelIndex> cleared; // the closed rows above the present one
    DopeSheetWalk::all(m_view->model(), [&](const QModelIndex &row) {
        while (!cleared.isEmpty() && row.parent() != cleared.last())
            cleared.removeLast();
        if (cleared.isEmpty())
            m_view->setKeySelection(false, row, row, -1, VxTimeMax);
        else
            Q_EMIT m_view->keySelectionChanged();
        if (!cleared.isEmpty() || !m_view->isExpanded(row))
            cleared.append(row);
    });
    visitAll([this](VxDopeSheetItem *item) { selectKeys(item, false, -1, VxTimeMax); });
}

std::vector<SelectedKeys> DopeSheetKeySelection::collect() const
{
    SelectedKeysCollector collector;
    visitShown([&collector](VxDopeSheetItem *item) { collector.add(item); });
    return collector.keys();
}

const CommonTcb &DopeSheetKeySelection::commonTcb()
{
    if (std::exchange(m_commonTcbStale, false)) {
        m_commonTcb.clear();
        visitShown([this](const VxDopeSheetItem *item) { m_commonTcb.add(item); });
    }
    return m_commonTcb;
}

void DopeSheetKeySelection::sendClear() const
{
    if (!m_bus || !m_bus->isConnected())
        return;
    VxKeyMessage clear;
    clear.clearSelection = true;
    m_bus->send(clear);
}

void DopeSheetKeySelection::sendSelection(const VxDopeSheetItem *item) const
{
    if (!m_bus || !m_bus->isConnected())
        return;
    const DopeSheetRowKeys keys = DopeSheetRowKeys::of(item);
    VxKeyMessage message;
    const QVector<qint32> selected = indexesOf(keys, true);
    const QVector<qint32> others = indexesOf(keys, false);
    if (!selected.isEmpty())
        message.selectedKeys.insert(item->property(), selected);
    if (!others.isEmpty())
        message.deselectedKeys.insert(item->property(), others);
    m_bus->send(message);
}

void DopeSheetKeySelection::sendSelected() const
{
    if (m_bus && m_bus->isConnected())
        visitShown([this](const VxDopeSheetItem *item) { sendSelection(item); });
}

void DopeSheetKeySelection::setGraphProperties(const QSet<VxProperty *> &properties)
{
    const QSet<VxProperty *> added = properties - m_graphProperties;
    m_graphProperties = properties;
    const VxDopeSheetModel *model = m_view->getSourceModel();
    if (!m_bus || !m_bus->isConnected() || !model)
        return;
    VxKeyMessage message;
    for (VxProperty *property : added) {
        const VxDopeSheetItem *item = model->findPropertyItem(property);
        if (item && item->hasSelectedKeys())
            message.selectedKeys.insert(property, item->selectedKeyIndexes());
    }
    if (!message.selectedKeys.isEmpty())
        m_bus->send(message);
}

// The key graph sends a message for every move of a drag, so the common values are computed on
// demand.
void DopeSheetKeySelection::handleMessage(const VxKeyMessage &message)
{
    if (m_isWalking)
        return;
    const QScopedValueRollback<bool> walking(m_isWalking, true);
    if (message.clearSelection)
        deselectAll();
    applyMessage(message);
    m_commonTcbStale = true;
}

// A property may have both keys to select and keys to deselect.
void DopeSheetKeySelection::applyMessage(const VxKeyMessage &message) const
{
    const VxDopeSheetModel *model = m_view->getSourceModel();
    const auto apply = [model](const QMap<VxProperty *, QVector<qint32>> &keys, bool select) {
        for (auto named = keys.cbegin(); named != keys.cend(); ++named) {
            if (VxDopeSheetItem *item = model->findPropertyItem(named.key()))
                item->setKeySelectedAt(named.value(), select);
        }
    };
    if (!model)
        return;
    apply(message.selectedKeys, true);
    apply(message.deselectedKeys, false);
}

std::vector<DopeSheetKeySelection::Saved> DopeSheetKeySelection::save() const
{
    std::vector<Saved> saved;
    visitAll([&saved](const VxDopeSheetItem *item) {
        saved.push_back({item->property(), item->selectedKeyIndexes()});
    });
    return saved;
}

void DopeSheetKeySelection::restore(const std::vector<Saved> &saved)
{
    const VxDopeSheetModel *model = m_view->getSourceModel();
    for (const Saved &keys : saved) {
        VxDopeSheetItem *item =
            model && keys.property ? model->findPropertyItem(keys.property) : nullptr;
        if (!item)
            continue;
        item->setKeySelectedAt(keys.indexes, true);
        sendSelection(item);
    }
    m_commonTcbStale = true;
    if (!saved.empty())
        Q_EMIT m_view->keySelectionChanged();
}
