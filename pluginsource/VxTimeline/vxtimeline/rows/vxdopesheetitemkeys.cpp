// The keys of a row: gathered, selected, deleted.

#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetitem_p.h"

#include <algorithm>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxproperty.h>

void VxDopeSheetItem::Private::renumber(int from)
{
    for (int i = from; i < children.size(); ++i)
        children.at(i)->d->row = i;
}

int VxDopeSheetItem::Private::rowOf(Private *child)
{
    if (child->row < numbered)
        return child->row;
    if (children.at(numbered)->d.get() == child)
        child->row = numbered++;
    else
        child->row = children.lastIndexOf(child->q, std::min(child->row, children.size() - 1));
    return child->row;
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

// Rows with changed keys invalidate the rows above.
void VxDopeSheetItem::Private::updateChangedRows()
{
    const quint64 latest = VxProperty::latestKeyRevision();
    if (!VxChangeBlock::hasUnsentReports() || checkedRevision == latest)
        return;
    for (const VxDopeSheetItem *item : allRows()) {
        Private *below = item->d.get();
        below->checkedRevision = latest;
        if (below->property && below->isValid && !below->showsPresentKeys())
            below->updateFromProperty();
    }
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

template <class Change> void VxDopeSheetItem::Private::editSelection(const Change &change)
{
    const int before = keys.selectedCount;
    change();
    addSelected(keys.selectedCount - before);
    if (parent)
        parent->invalidateKeys();
}

template <class Change> void VxDopeSheetItem::Private::editPresent(const Change &change)
{
    if (!isValid || revision != property->keyRevision())
        updateFromProperty();
    editSelection(change);
}

template <class... Selected>
void VxDopeSheetItem::Private::setTimesAndSelection(const Selected &...selected)
{
    editSelection([&] {
        keys.setTimesAndSelection(property->getKeyTimes(), property->getNumKeys(), selected...);
    });
    isValid = isKept = true;
    revision = property->keyRevision();
}

const DopeSheetKeys &VxDopeSheetItem::Private::presentKeys()
{
    update();
    return keys;
}

// Collects first, because a row's keys need those of all rows below it, and a hierarchy can be a
// chain of thousands of nodes.
void VxDopeSheetItem::Private::update()
{
    if (property) {
        if (!isValid || !isKept || !showsPresentKeys())
            updateFromProperty();
        return;
    }
    updateChangedRows();
    if (isValid && isKept)
        return;
    QVector<Private *> stale{this};
    for (int i = 0; i < stale.size(); ++i) {
        Rows sources;
        Rows groups;
        stale.at(i)->findSources(&sources, &groups);
        for (Private *source : sources) {
            if (!source->property && (!source->isValid || !source->isKept))
                stale.append(source);
        }
    }
    for (int i = stale.size() - 1; i >= 0; --i)
        stale.at(i)->unite();
}

// Groups are skipped: storing the same keys at each level of a node's groups would take more memory
// than the keys themselves.
void VxDopeSheetItem::Private::findSources(Rows *sources, Rows *groups)
{
    groups->append(this);
    for (int i = 0; i < groups->size(); ++i) {
        groups->at(i)->makeRowsWithKeys();
        for (VxDopeSheetItem *item : qAsConst(groups->at(i)->children)) {
            Private *child = item->d.get();
            const bool isSkipped = child->isGroup() && !(child->isValid && child->isKept);
            (isSkipped ? groups : sources)->append(child);
        }
    }
}

// Selected keys of a row without property are not counted: the rows below have counted them.
void VxDopeSheetItem::Private::unite()
{
    Rows sources;
    Rows groups;
    findSources(&sources, &groups);
    QVarLengthArray<DopeSheetKeys *, 32> below;
    for (Private *source : sources) {
        // Just before they are read, while they are in the processor's cache.
        if (source->property)
            source->update();
        below.append(&source->keys);
    }
    keys = uniteKeys(below.constData(), below.size());
    isKept = true;
    for (Private *group : groups)
        group->isValid = true;
}

// Rows with changed properties may have lost their selected keys: such rows are updated one by one
// until an unchanged one is found.
bool VxDopeSheetItem::Private::hasSelected()
{
    while (selectedBelow != 0) {
        Private *found = this;
        while (Private *below = found->selectedChild())
            found = below;
        if (found->property)
            found->update();
        else
            found->addSelected(-found->selectedBelow); // its property was destroyed
        if (found->selectedBelow != 0)
            return true;
    }
    return false;
}

VxDopeSheetItem::Private *VxDopeSheetItem::Private::selectedChild()
{
    for (int i = 0; i < children.size(); ++i, ++selectedHint) {
        if (selectedHint >= children.size())
            selectedHint = 0;
        Private *child = children.at(selectedHint)->d.get();
        if (child->selectedBelow != 0)
            return child;
    }
    return nullptr;
}

QString VxDopeSheetItem::Private::pathOfNode()
{
    QVector<Private *> unknown;
    Private *above = this;
    for (; above && above->nodePath.isEmpty();
         above = above->parent ? above->parent->d.get() : nullptr) {
        if (above->node)
            unknown.append(above);
    }
    QString path = above ? above->nodePath : QString();
    for (int i = unknown.size() - 1; i >= 0; --i) {
        path += QLatin1Char('/') + unknown.at(i)->node->getName();
        unknown.at(i)->nodePath = path;
    }
    return nodePath;
}

void VxDopeSheetItem::Private::invalidateNodePaths()
{
    if (!node)
        return; // no node is below a property or a group
    for (const VxDopeSheetItem *item : allRows())
        item->d->nodePath.clear();
}

bool VxDopeSheetItem::hasKeys() const
{
    return d->property ? d->property->getNumKeys() > 0 : keyCount() > 0;
}

int VxDopeSheetItem::keyCount() const
{
    return d->presentKeys().count();
}

VxTime VxDopeSheetItem::keyTime(int index) const
{
    return d->presentKeys().times.value(index, 0);
}

bool VxDopeSheetItem::isKeySelected(int index) const
{
    return d->presentKeys().isSelected(index);
}

const VxTime *VxDopeSheetItem::keyTimes() const
{
    return d->presentKeys().times.constData();
}

const quint8 *VxDopeSheetItem::keyFlags() const
{
    return d->presentKeys().allFlags();
}

int VxDopeSheetItem::firstKeyFrom(VxTime time) const
{
    return d->presentKeys().firstFrom(time);
}

int VxDopeSheetItem::selectedKeyCount() const
{
    return d->presentKeys().selectedCount;
}

bool VxDopeSheetItem::hasSelectedKeys() const
{
    return d->hasSelected();
}

bool VxDopeSheetItem::mayHaveSelectedKeys() const
{
    return d->selectedBelow != 0;
}

// A row without property shows the selection of those below it, which stays: nothing is stored.
void VxDopeSheetItem::setKeysSelected(bool select, VxTime start, VxTime end)
{
    if (d->property)
        d->editPresent([&] { d->keys.setSelected(select, start, end); });
    Q_EMIT keysChanged();
}

void VxDopeSheetItem::setKeySelectedAt(const QVector<int> &indexes, bool select)
{
    if (!d->property)
        return;
    d->editPresent([&] { d->keys.setSelectedAt(indexes, select); });
    Q_EMIT keysChanged();
}

void VxDopeSheetItem::selectOnlyKeysAt(const VxTime *times, int count)
{
    if (!d->property)
        return;
    d->setTimesAndSelection(times, count);
    Q_EMIT keysChanged();
}

void VxDopeSheetItem::selectOnlySpans(const std::vector<VxKeySpan> &spans)
{
    if (!d->property)
        return;
    d->setTimesAndSelection(spans);
    Q_EMIT keysChanged();
}

std::vector<VxKeySpan> VxDopeSheetItem::selectedKeySpans() const
{
    return d->presentKeys().selectedSpans();
}

QVector<int> VxDopeSheetItem::selectedKeyIndexes() const
{
    return d->presentKeys().selectedIndexes();
}

void VxDopeSheetItem::saveSelectedKeyTimes()
{
    d->savedTimes = d->presentKeys().selectedTimes();
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
