// Which keys are selected: set here, told to the key graph, and heard from it.

#include <QtCore/QScopedValueRollback>
#include <algorithm>
#include <cstring>
#include <numeric>
#include <vxcore/vxfloatproperty.h>

#include "vxtimeline/dopesheet/dopesheetrowkeys.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview_p.h"
#include "vxtimeline/keys/vxkeycommunication.h"

namespace {

bool isSelected(quint8 flags)
{
    return flags & DopeSheetRowKeys::Selected;
}

bool getCommon(bool seen, bool equal, float common, float *value)
{
    if (seen && equal && value)
        *value = common;
    return seen && equal;
}

// The indexes of the keys that are selected, or of those that are not.
QVector<qint32> indexesOf(const DopeSheetRowKeys &keys, bool selected)
{
    const auto isWanted = [selected](quint8 flags) { return isSelected(flags) == selected; };
    QVector<qint32> indexes;
    const auto wanted = std::count_if(keys.flags, keys.flags + keys.count, isWanted);
    if (wanted == keys.count) {
        indexes.resize(keys.count);
        std::iota(indexes.begin(), indexes.end(), 0);
        return indexes;
    }
    indexes.reserve(int(wanted));
    for (int i = 0; i < keys.count; ++i) {
        if (isWanted(keys.flags[i]))
            indexes.append(i);
    }
    return indexes;
}

// A row that has no selected key below it is not looked into.
template <typename Visit> void visitSelectedBelow(const VxDopeSheetItem *item, const Visit &visit)
{
    for (int i = 0; i < item->childCount(); ++i) {
        VxDopeSheetItem *child = item->child(i);
        if (!child->hasSelectedKeys())
            continue;
        if (child->property())
            visit(child);
        else
            visitSelectedBelow(child, visit);
    }
}

// Calls visit(item) for the items of all properties' rows.
template <typename Visit> void visitProperties(VxDopeSheetItem *item, const Visit &visit)
{
    if (item->property())
        visit(item);
    for (int i = 0; i < item->childCount(); ++i)
        visitProperties(item->child(i), visit);
}

} // namespace

void VxDopeSheetView::Private::CommonTcb::add(const VxTcb &tcb)
{
    if (!seen) {
        *this = {true, tcb, true, true, true};
        return;
    }
    tensionEqual = tensionEqual && tcb.tension == common.tension;
    continuityEqual = continuityEqual && tcb.continuity == common.continuity;
    biasEqual = biasEqual && tcb.bias == common.bias;
}

void VxDopeSheetView::Private::walk(const QModelIndex &start, const QModelIndex &end,
                                    const RowOperation &operation)
{
    const QScopedValueRollback<RowOperation> running(rowOperation, operation);
    const auto isOpen = [this](const QModelIndex &row) { return view->isExpanded(row); };
    DopeSheetWalk::between(start, end, isOpen, [this, &operation](const QModelIndex &row) {
        if (VxDopeSheetItem *item = view->getItem(row))
            operation(item);
    });
}

void VxDopeSheetView::Private::walkAll(const RowOperation &operation)
{
    const QScopedValueRollback<RowOperation> running(rowOperation, operation);
    DopeSheetWalk::all(view->model(), [this, &operation](const QModelIndex &row) {
        if (VxDopeSheetItem *item = view->getItem(row))
            operation(item);
    });
}

void VxDopeSheetView::Private::visitSelectedItems(const RowOperation &visit) const
{
    if (const VxDopeSheetModel *rows = sourceModel())
        visitSelectedBelow(rows->getRootItem(), visit);
}

void VxDopeSheetView::Private::deselectItems() const
{
    visitSelectedItems(
        [](VxDopeSheetItem *item) { item->setKeysSelected(false, VxTimeMin, VxTimeMax); });
}

// What the selected keys of a row add to what TCB keys have in common.
void VxDopeSheetView::Private::noteSelectedKeys(const VxDopeSheetItem *item)
{
    const auto *property = qobject_cast<const VxFloatProperty *>(item->property());
    const DopeSheetRowKeys keys = DopeSheetRowKeys::of(item);
    if (!property || !keys.types)
        return;
    const quint8 *end = keys.flags + keys.count;
    const auto first = int(std::find_if(keys.flags, end, isSelected) - keys.flags);
    if (first == keys.count)
        return;
    int last = keys.count - 1;
    while (!isSelected(keys.flags[last]))
        --last;
    noteTcb(keys, property->getKeys().tcb, first, last);
}

// Without an array all keys have the same.
void VxDopeSheetView::Private::noteTcb(const DopeSheetRowKeys &keys, const VxTcb *tcb, int first,
                                       int last)
{
    for (int i = first; i <= last && !commonTcb.isSettled(); ++i) {
        const void *found =
            std::memchr(keys.types + i, DopeSheetRowKeys::Tcb, size_t(last - i + 1));
        if (!found)
            return;
        i = int(static_cast<const quint8 *>(found) - keys.types);
        if (!isSelected(keys.flags[i]))
            continue;
        commonTcb.add(tcb ? tcb[i] : VxTcb());
        if (!tcb)
            return;
    }
}

void VxDopeSheetView::Private::sendSelection(const VxDopeSheetItem *item) const
{
    if (!bus || !bus->isHeard())
        return;
    const DopeSheetRowKeys keys = DopeSheetRowKeys::of(item);
    VxKeyMessage told;
    const QVector<qint32> selected = indexesOf(keys, true);
    const QVector<qint32> others = indexesOf(keys, false);
    if (!selected.isEmpty())
        told.selectedKeys.insert(item->property(), selected);
    if (!others.isEmpty())
        told.deselectedKeys.insert(item->property(), others);
    bus->send(told);
}

void VxDopeSheetView::Private::sendSelectionOf(const QSet<VxProperty *> &properties)
{
    if (!bus || !bus->isHeard())
        return;
    VxKeyMessage told;
    for (VxProperty *property : properties) {
        for (const VxDopeSheetItem *item : itemsOf(property)) {
            if (item->hasSelectedKeys())
                told.selectedKeys[property] += item->selectedKeyIndexes();
        }
    }
    if (!told.selectedKeys.isEmpty())
        bus->send(told);
}

void VxDopeSheetView::Private::selectKeys(VxDopeSheetItem *item, bool select)
{
    item->setKeysSelected(select, spanStart, spanEnd);
    if (!item->property())
        return;
    if (select)
        noteSelectedKeys(item);
    sendSelection(item);
}

bool VxDopeSheetView::hasSelectedKeys() const
{
    const VxDopeSheetModel *rows = d->sourceModel();
    return rows && rows->hasSelectedKeys();
}

bool VxDopeSheetView::getCommonTension(float *tension) const
{
    const Private::CommonTcb &found = d->currentCommonTcb();
    return getCommon(found.seen, found.tensionEqual, found.common.tension, tension);
}

bool VxDopeSheetView::getCommonContinuity(float *continuity) const
{
    const Private::CommonTcb &found = d->currentCommonTcb();
    return getCommon(found.seen, found.continuityEqual, found.common.continuity, continuity);
}

bool VxDopeSheetView::getCommonBias(float *bias) const
{
    const Private::CommonTcb &found = d->currentCommonTcb();
    return getCommon(found.seen, found.biasEqual, found.common.bias, bias);
}

// While nothing is selected there is nothing to have anything in common with.
void VxDopeSheetView::setKeySelection(bool yesNo, QModelIndex startIndex, QModelIndex endIndex,
                                      VxTime startTime, VxTime endTime)
{
    if (!startIndex.isValid()) {
        startIndex = d->contextIndex;
        d->contextIndex = QPersistentModelIndex();
    }
    if (!endIndex.isValid())
        endIndex = startIndex;
    d->spanStart = startTime;
    d->spanEnd = endTime;
    if (yesNo && !hasSelectedKeys())
        d->commonTcb = Private::CommonTcb();
    d->walk(startIndex, endIndex,
            [this, yesNo](VxDopeSheetItem *item) { d->selectKeys(item, yesNo); });
    Q_EMIT keySelectionChanged();
    viewport()->update();
}

// A closed row clears everything below it at once. The rows below still report, one by one, but
// are not walked again: each of them would take its own hidden rows along, and so the work would
// grow with the depth of the tree.
void VxDopeSheetView::Private::clearSelectedKeysFrom(const QModelIndex &index, bool isCleared)
{
    if (isCleared)
        Q_EMIT view->keySelectionChanged();
    else
        view->setKeySelection(false, index, index, -1, VxTimeMax);
    const QAbstractItemModel *model = index.model();
    const bool isClearedBelow = isCleared || !view->isExpanded(index);
    const int rows = model->rowCount(index);
    for (int row = 0; row < rows; ++row)
        clearSelectedKeysFrom(model->index(row, NameColumn, index), isClearedBelow);
}

// The rows that the filter leaves out come last, without a report of their own.
void VxDopeSheetView::clearSelectedKeys()
{
    const int rows = model() ? model()->rowCount() : 0;
    for (int row = 0; row < rows; ++row)
        d->clearSelectedKeysFrom(model()->index(row, NameColumn), false);
    d->spanStart = -1;
    d->spanEnd = VxTimeMax;
    d->visitSelectedItems([this](VxDopeSheetItem *item) { d->selectKeys(item, false); });
    viewport()->update();
}

void VxDopeSheetView::setKeyCommunication(VxKeyCommunication *bus)
{
    if (d->bus)
        disconnect(d->bus, &VxKeyCommunication::received, this, &VxDopeSheetView::handleKeyMessage);
    d->bus = bus;
    if (d->bus)
        connect(d->bus, &VxKeyCommunication::received, this, &VxDopeSheetView::handleKeyMessage);
}

VxKeyCommunication *VxDopeSheetView::getKeyCommunication() const
{
    return d->bus;
}

void VxDopeSheetView::Private::forgetItems()
{
    m_items.clear();
    m_itemsByHolder.clear();
    m_indexedHolders = 0;
    m_indexedModel = nullptr;
}

void VxDopeSheetView::Private::indexItems()
{
    m_items.clear();
    m_indexedModel = sourceModel();
    if (!m_indexedModel)
        return;
    visitProperties(m_indexedModel->getRootItem(),
                    [this](VxDopeSheetItem *item) { m_items[item->property()].append(item); });
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved,
                              &QAbstractItemModel::rowsAboutToBeRemoved})
        connect(m_indexedModel.data(), signal, view, &VxDopeSheetView::forgetItems,
                Qt::UniqueConnection);
}

const QVector<VxDopeSheetItem *> &VxDopeSheetView::Private::itemsOf(VxProperty *property)
{
    static const QVector<VxDopeSheetItem *> none;
    if (!m_indexedModel || m_indexedModel != sourceModel())
        indexItems();
    const auto found = m_items.constFind(property);
    return found == m_items.cend() ? none : found.value();
}

void VxDopeSheetView::Private::applyMessage(VxDopeSheetItem *item) const
{
    VxProperty *property = item->property();
    if (!property)
        return;
    const auto selected = message.selectedKeys.constFind(property);
    if (selected != message.selectedKeys.cend())
        item->setKeySelectedAt(selected.value(), true);
    const auto deselected = message.deselectedKeys.constFind(property);
    if (deselected != message.deselectedKeys.cend())
        item->setKeySelectedAt(deselected.value(), false);
}

// The rows that a message names. A row may be named to select some keys and deselect others.
void VxDopeSheetView::Private::applyToNamed()
{
    for (auto named = message.selectedKeys.cbegin(); named != message.selectedKeys.cend();
         ++named) {
        for (VxDopeSheetItem *item : itemsOf(named.key()))
            applyMessage(item);
    }
    for (auto named = message.deselectedKeys.cbegin(); named != message.deselectedKeys.cend();
         ++named) {
        if (message.selectedKeys.contains(named.key()))
            continue;
        for (VxDopeSheetItem *item : itemsOf(named.key()))
            applyMessage(item);
    }
}

// The key graph tells of every key it changes, so a message goes to the rows of its own properties
// only, after those that it clears. What the keys have in common is left for when it is asked for:
// a drag in the graph tells of all of its keys at every move of the mouse.
void VxDopeSheetView::handleKeyMessage(const VxKeyMessage &message)
{
    if (d->rowOperation)
        return;
    d->message = message;
    {
        const QScopedValueRollback<Private::RowOperation> running(
            d->rowOperation, [this](VxDopeSheetItem *item) { d->applyMessage(item); });
        if (message.clearSelection)
            d->deselectItems();
        d->applyToNamed();
    }
    d->message = VxKeyMessage();
    d->commonTcbStale = true;
    viewport()->update();
}
