#include "vxtimeline/rows/vxdopesheetitem.h"

#include "vxtimeline/rows/dopesheetvaluesource.h"
#include "vxtimeline/rows/vxdopesheetitem_p.h"

#include <QtCore/QStringList>
#include <algorithm>
#include <utility>
#include <vxcore/vxelement.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxproperty.h>

VxDopeSheetItem::VxDopeSheetItem()
    : d(std::make_unique<Private>(this))
{
}

VxDopeSheetItem::~VxDopeSheetItem()
{
    setParent(nullptr);
    // From the last row up, so that no destructor recurses, however deep the tree is.
    const QVector<VxDopeSheetItem *> rows = d->allRows();
    for (int i = rows.size() - 1; i > 0; --i) {
        Private *below = rows.at(i)->d.get();
        below->parent = nullptr;
        below->children.clear();
        delete rows.at(i);
    }
    d->children.clear();
}

QVector<VxDopeSheetItem *> VxDopeSheetItem::Private::allRows() const
{
    QVector<VxDopeSheetItem *> rows;
    QVector<VxDopeSheetItem *> open{q};
    while (!open.isEmpty()) {
        rows.append(open.takeLast());
        const QVector<VxDopeSheetItem *> &below = rows.last()->d->children;
        for (int i = below.size() - 1; i >= 0; --i)
            open.append(below.at(i));
    }
    return rows;
}

void VxDopeSheetItem::setRowMaker(DopeSheetRowMaker *maker)
{
    d->rowMaker = maker;
}

bool VxDopeSheetItem::hasRowsToMake() const
{
    return d->rowMaker != nullptr;
}

void VxDopeSheetItem::Private::makeRows()
{
    if (DopeSheetRowMaker *maker = std::exchange(rowMaker, nullptr))
        maker->makeRows(q);
}

void VxDopeSheetItem::Private::makeRowsWithKeys()
{
    const VxNode *owner = rowMaker ? q->ownerNode() : nullptr;
    if (!owner)
        return;
    const QVector<VxProperty *> properties = owner->getMadeProperties();
    if (owner->getObject() ||
        std::any_of(properties.cbegin(), properties.cend(),
                    [](const VxProperty *made) { return made->getNumKeys() > 0; }))
        makeRows();
}

QString VxDopeSheetItem::label() const
{
    if (!d->label.isEmpty())
        return d->label;
    if (d->property)
        return d->property->getLabel();
    return d->node ? d->node->getLabel() : QString();
}

void VxDopeSheetItem::setLabel(const QString &label)
{
    d->label = label;
}

// The path is the property's, not that of the rows above: those depend on the listed types.
QString VxDopeSheetItem::path() const
{
    const VxDopeSheetItem *nodeRow = this;
    while (nodeRow && !nodeRow->d->node)
        nodeRow = nodeRow->d->parent;
    QString path = nodeRow ? nodeRow->d->pathOfNode() : QString();
    if (nodeRow == this)
        return path;
    if (!d->property) {
        QString groups;
        for (const VxDopeSheetItem *row = this; row != nodeRow; row = row->d->parent) {
            if (!row->d->label.isEmpty())
                groups.prepend(QLatin1Char('/') + row->d->label);
        }
        return path + groups;
    }
    const VxElement *owner = d->property->getOwner();
    if (owner && (!nodeRow || owner != nodeRow->d->node))
        path += QLatin1Char('/') + owner->getName();
    return path + d->property->getPath() + QLatin1Char('/') + d->property->getName();
}

VxNode *VxDopeSheetItem::node() const
{
    return d->node;
}

VxNode *VxDopeSheetItem::ownerNode() const
{
    const VxDopeSheetItem *row = this;
    while (row && !row->d->node)
        row = row->d->parent;
    return row ? row->d->node : nullptr;
}

void VxDopeSheetItem::setNode(VxNode *node)
{
    d->invalidateNodePaths();
    d->node = node;
    d->invalidateNodePaths();
}

VxProperty *VxDopeSheetItem::property() const
{
    return d->property;
}

// A property that is its own source is connected twice, like one with another source.
void VxDopeSheetItem::setProperty(VxProperty *property)
{
    for (const QMetaObject::Connection &connection : std::exchange(d->connections, {}))
        disconnect(connection);
    d->property = property;
    invalidateKeys();
    if (!property) {
        d->addSelected(-d->selectedBelow);
        return;
    }
    d->connections = {
        connect(property, &VxProperty::valueChanged, this, &VxDopeSheetItem::handleValueChanged),
        connect(dopeSheetValueSource(property), &VxProperty::valueChanged, this,
                &VxDopeSheetItem::handleValueChanged),
        connect(property, &VxProperty::propertyDeleted, this, &VxDopeSheetItem::loseProperty)};
}

// The guarded pointer is cleared by the last of the property's destructors; the remaining base
// object has no keys.
void VxDopeSheetItem::loseProperty()
{
    setProperty(nullptr);
    d->update();
    Q_EMIT keysChanged();
}

VxDopeSheetItem *VxDopeSheetItem::parentItem() const
{
    return d->parent;
}

void VxDopeSheetItem::setParent(VxDopeSheetItem *newParent)
{
    if (VxDopeSheetItem *old = d->parent) {
        const int place = row();
        old->d->children.removeAt(place);
        old->d->numbered = std::min(old->d->numbered, place);
        old->d->addSelected(-d->selectedBelow);
        old->invalidateKeys();
    }
    if (newParent)
        newParent->d->makeRows();
    d->parent = newParent;
    d->row = newParent ? newParent->d->children.size() : -1;
    if (!newParent)
        return;
    d->invalidateNodePaths();
    newParent->d->children.append(this);
    newParent->d->addSelected(d->selectedBelow);
    newParent->invalidateKeys();
}

int VxDopeSheetItem::row() const
{
    return d->parent ? d->parent->d->rowOf(d.get()) : -1;
}

int VxDopeSheetItem::childCount() const
{
    d->makeRows();
    return d->children.size();
}

VxDopeSheetItem *VxDopeSheetItem::child(int index) const
{
    d->makeRows();
    return d->children.value(index, nullptr);
}

void VxDopeSheetItem::moveChild(int from, int to)
{
    if (!child(from) || !child(to))
        return;
    d->children.move(from, to);
    d->renumber(std::min(from, to));
}

void VxDopeSheetItem::swapChildren(int a, int b)
{
    if (!child(a) || !child(b))
        return;
    std::swap(d->children[a], d->children[b]);
    d->children.at(a)->d->row = a;
    d->children.at(b)->d->row = b;
}

void VxDopeSheetItem::pruneEmpty()
{
    for (int i = d->children.size() - 1; i >= 0; --i) {
        VxDopeSheetItem *item = d->children.at(i);
        item->pruneEmpty();
        if (item->childCount() == 0 && !item->property())
            delete item;
    }
}

void VxDopeSheetItem::setSuppressKeyChanges(bool suppress)
{
    if (d->suppressesKeyChanges == suppress)
        return;
    d->suppressesKeyChanges = suppress;
    if (!d->property)
        return;
    // Changes made meanwhile do not invalidate the keys later, either.
    if (suppress)
        d->revisionWhenSuppressed = d->property->keyRevision();
    else if (d->revision == d->revisionWhenSuppressed)
        d->revision = d->property->keyRevision();
}

void VxDopeSheetItem::handleValueChanged(VxTimeRange range)
{
    Q_UNUSED(range)
    if (d->suppressesKeyChanges)
        return;
    // Keys read before this report are current, but those of the rows above are then invalid.
    if (!d->isValid || !d->property || d->revision != d->property->keyRevision())
        invalidateKeys();
    // Selected keys are identified by their times: one that leaves its time and returns later is
    // deselected, whether or not the row is painted in between.
    if (d->property && d->keys.selectedCount > 0)
        d->update();
    Q_EMIT keysChanged();
}
