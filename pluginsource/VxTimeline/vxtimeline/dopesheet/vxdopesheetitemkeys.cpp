// The keys of a row: gathered, selected, deleted.

#include <algorithm>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxproperty.h>

#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetitem_p.h"

void VxDopeSheetItem::Private::renumber(int from)
{
    for (int i = from; i < children.size(); ++i)
        children.at(i)->d->row = i;
}

void VxDopeSheetItem::Private::addSelected(qint64 difference)
{
    if (difference == 0)
        return;
    selectedBelow += difference;
    for (VxDopeSheetItem *item = parent; item; item = item->d->parent)
        item->d->selectedBelow += difference;
}

bool VxDopeSheetItem::Private::showsPresentKeys() const
{
    return suppressesKeyChanges || revision == property->keyRevision();
}

bool VxDopeSheetItem::Private::showsPresentKeysBelow()
{
    if (property)
        return showsPresentKeys();
    if (checkedRevision == VxProperty::latestKeyRevision())
        return true;
    for (const VxDopeSheetItem *item : qAsConst(children)) {
        if (!item->d->showsPresentKeysBelow())
            return false;
    }
    checkedRevision = VxProperty::latestKeyRevision();
    return true;
}

// The rows above are still valid when the property has not reported its change yet.
void VxDopeSheetItem::Private::updateFromProperty()
{
    if (isValid && parent && revision != property->keyRevision())
        parent->invalidateKeys();
    revision = property->keyRevision();
    const int before = keys.selectedCount;
    keys.takeTimes(property->getKeyTimes(), property->getNumKeys());
    isValid = isKept = true;
    addSelected(keys.selectedCount - before);
}

void VxDopeSheetItem::Private::updateForEdit()
{
    if (!isValid || revision != property->keyRevision())
        updateFromProperty();
}

void VxDopeSheetItem::Private::selectionEdited(int selectedBefore)
{
    addSelected(keys.selectedCount - selectedBefore);
    if (parent)
        parent->invalidateKeys();
}

// What a row without property shows does not count as selected: the rows below have counted it.
void VxDopeSheetItem::Private::update()
{
    if (property) {
        if (!isValid || !isKept || !showsPresentKeys())
            updateFromProperty();
        return;
    }
    if (isValid && isKept && (!VxChangeBlock::hasUnsentReports() || showsPresentKeysBelow()))
        return;
    KeysOfRows rows;
    gather(&rows);
    keys = uniteKeys(rows.constData(), rows.size());
    isKept = true;
}

// Groups pass on what lies below them: keeping the same keys at each level of a node's groups would
// take more room than the keys themselves.
void VxDopeSheetItem::Private::gather(KeysOfRows *rows)
{
    qint64 below = 0;
    for (VxDopeSheetItem *item : qAsConst(children)) {
        Private *child = item->d.get();
        if (child->isGroup() && !(child->isValid && child->isKept)) {
            child->gather(rows);
        } else {
            child->update();
            rows->append(&child->keys);
        }
        below += child->selectedBelow;
    }
    isValid = true;
    addSelected(below - selectedBelow);
}

// Rows whose properties have changed may have lost their selected keys: they are asked until one is
// found that has not, and remembered.
bool VxDopeSheetItem::Private::findSelected()
{
    if (selectedBelow == 0)
        return false;
    if (property || children.isEmpty()) {
        update();
        return selectedBelow != 0;
    }
    selectedHint = std::min(selectedHint, children.size() - 1);
    if (children.at(selectedHint)->d->findSelected())
        return true;
    for (int i = 0; i < children.size() && selectedBelow != 0; ++i) {
        if (!children.at(i)->d->findSelected())
            continue;
        selectedHint = i;
        return true;
    }
    return false;
}

QString VxDopeSheetItem::Private::pathOfNode()
{
    if (!nodePath.isEmpty())
        return nodePath;
    VxDopeSheetItem *above = parent;
    while (above && !above->d->node)
        above = above->d->parent;
    nodePath = (above ? above->d->pathOfNode() : QString()) + QLatin1Char('/') + node->getName();
    return nodePath;
}

void VxDopeSheetItem::Private::forgetNodePaths()
{
    nodePath.clear();
    for (VxDopeSheetItem *item : qAsConst(children))
        item->d->forgetNodePaths();
}

bool VxDopeSheetItem::hasKeys() const
{
    if (d->property)
        return d->property->getNumKeys() > 0;
    return std::any_of(d->children.cbegin(), d->children.cend(),
                       [](const VxDopeSheetItem *item) { return item->hasKeys(); });
}

int VxDopeSheetItem::keyCount() const
{
    d->update();
    return d->keys.count();
}

VxTime VxDopeSheetItem::keyTime(int index) const
{
    d->update();
    return d->keys.times.value(index, 0);
}

bool VxDopeSheetItem::isKeySelected(int index) const
{
    d->update();
    return d->keys.isSelected(index);
}

const VxTime *VxDopeSheetItem::keyTimes() const
{
    d->update();
    return d->keys.times.constData();
}

const quint8 *VxDopeSheetItem::keyFlags() const
{
    d->update();
    return d->keys.allFlags();
}

int VxDopeSheetItem::firstKeyFrom(VxTime time) const
{
    d->update();
    return d->keys.firstFrom(time);
}

int VxDopeSheetItem::selectedKeyCount() const
{
    d->update();
    return d->keys.selectedCount;
}

bool VxDopeSheetItem::hasSelectedKeys() const
{
    return d->findSelected();
}

// A row without property shows the selection of those below it, which stays: there is nothing to
// keep.
void VxDopeSheetItem::setKeysSelected(bool select, VxTime start, VxTime end)
{
    if (d->property) {
        d->updateForEdit();
        const int before = d->keys.selectedCount;
        d->keys.setSelected(select, start, end);
        d->selectionEdited(before);
    }
    Q_EMIT keysChanged();
}

void VxDopeSheetItem::setKeySelectedAt(const QVector<int> &indexes, bool select)
{
    if (!d->property)
        return;
    d->updateForEdit();
    const int before = d->keys.selectedCount;
    d->keys.setSelectedAt(indexes, select);
    d->selectionEdited(before);
    Q_EMIT keysChanged();
}

void VxDopeSheetItem::selectOnlyKeysAt(const VxTime *times, int count)
{
    if (!d->property)
        return;
    const int before = d->keys.selectedCount;
    d->keys.takeTimesSelecting(d->property->getKeyTimes(), d->property->getNumKeys(), times, count);
    d->isValid = d->isKept = true;
    d->revision = d->property->keyRevision();
    d->selectionEdited(before);
    Q_EMIT keysChanged();
}

void VxDopeSheetItem::selectOnlySpans(const std::vector<VxKeySpan> &spans)
{
    if (!d->property)
        return;
    d->updateForEdit();
    const int before = d->keys.selectedCount;
    d->keys.selectOnlySpans(spans);
    d->selectionEdited(before);
    Q_EMIT keysChanged();
}

std::vector<VxKeySpan> VxDopeSheetItem::selectedKeySpans() const
{
    d->update();
    return d->keys.selectedSpans();
}

QVector<int> VxDopeSheetItem::selectedKeyIndexes() const
{
    d->update();
    return d->keys.selectedIndexes();
}

void VxDopeSheetItem::saveSelectedKeyTimes()
{
    d->update();
    d->savedTimes = d->keys.selectedTimes();
}

const VxTime *VxDopeSheetItem::savedTimes() const
{
    return d->savedTimes.constData();
}

int VxDopeSheetItem::savedTimeCount() const
{
    return d->savedTimes.size();
}

void VxDopeSheetItem::deleteSelectedKeys()
{
    if (!d->property)
        return;
    d->updateFromProperty();
    if (d->keys.selectedCount > 0)
        d->property->deleteKeys(d->keys.selectedIndexes());
}

void VxDopeSheetItem::invalidateKeys()
{
    for (VxDopeSheetItem *item = this; item && item->d->isValid; item = item->d->parent) {
        item->d->isValid = false;
        if (item->d->isGroup())
            item->d->dropKeys();
    }
}
