// How the model follows the scene for nodes that have rows already: their order, and properties
// that are added and removed.

#include "vxtimeline/keys/timelinepropertytypes.h"
#include "vxtimeline/rows/vxdopesheetmodel_p.h"

#include <QtCore/QHash>
#include <QtCore/QTimer>
#include <utility>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxscene.h>

namespace {

VxNode *siblingAt(const VxNode *node, int index)
{
    const VxNode *above = node->getNodeParent();
    return above ? above->getNodeChild(index) : node->getScene()->getRootNodes().value(index);
}

bool hasProperties(const VxObject *object)
{
    return object && !object->getPropertyGroups()->collectAllProperties().isEmpty();
}

// The identity of a row among its siblings.
using RowKey = QPair<const VxProperty *, QString>;

RowKey keyOf(const VxDopeSheetItem *item)
{
    const VxProperty *property = item->property();
    return {property, property ? QString() : item->label()};
}

QHash<RowKey, VxDopeSheetItem *> childrenByKey(const VxDopeSheetItem *item)
{
    QHash<RowKey, VxDopeSheetItem *> children;
    for (int i = 0; i < item->childCount(); ++i)
        children.insert(keyOf(item->child(i)), item->child(i));
    return children;
}

void collectStrayRows(VxDopeSheetItem *item, const VxNode *node, QVector<VxDopeSheetItem *> *stray)
{
    for (int i = 0; i < item->childCount(); ++i)
        collectStrayRows(item->child(i), node, stray);
    if (item->property() && VxPropertyHelper::getNode(item->property()) != node)
        stray->append(item);
}

} // namespace

VxDopeSheetItem *VxDopeSheetModel::propertiesRow(const VxDopeSheetItem *nodeRow)
{
    VxDopeSheetItem *first = nodeRow->child(0);
    return first && !first->node() ? first : nullptr;
}

bool VxDopeSheetModel::hasPropertyRowsToMake(const VxDopeSheetItem *nodeRow)
{
    if (nodeRow->hasRowsToMake())
        return true;
    const VxDopeSheetItem *properties = propertiesRow(nodeRow);
    return properties && properties->hasRowsToMake();
}

// Only the nearest sibling before it counts: the user may have reordered root rows, and some nodes
// have no row.
void VxDopeSheetModel::followOrder(VxNode *node)
{
    VxDopeSheetItem *item = findItem(node);
    if (!item || !node->getScene())
        return;
    VxDopeSheetItem *above = item->parentItem();
    int index = above->node() && propertiesRow(above) ? 1 : 0;
    for (int i = node->getSiblingIndex() - 1; i >= 0; --i) {
        const VxDopeSheetItem *before = findItem(siblingAt(node, i));
        if (before && before->parentItem() == above) {
            index = before->row() + 1;
            break;
        }
    }
    moveRow(item, index);
}

// destination: the index among the siblings before the move.
void VxDopeSheetModel::moveRow(VxDopeSheetItem *item, int destination)
{
    VxDopeSheetItem *above = item->parentItem();
    const int from = item->row();
    const bool isMove = destination < from || destination > from + 1;
    if (!isMove || (!d->isResetting &&
                    !beginMoveRows(indexOf(above), from, from, indexOf(above), destination)))
        return;
    above->moveChild(from, destination > from ? destination - 1 : destination);
    if (!d->isResetting)
        endMoveRows();
}

// The former object still exists during this call, but its properties are no longer the node's.
// Rows of an object's properties are listed only with the other properties.
void VxDopeSheetModel::objectChanged(VxNode *node, VxObject *oldObject, VxObject *newObject)
{
    VxDopeSheetItem *item = findItem(node);
    if (!item || hasPropertyRowsToMake(item) ||
        !(d->propertyTypes & TimelinePropertyTypes::Other) ||
        (!hasProperties(oldObject) && !hasProperties(newObject)))
        return;
    updatePropertyRows(node, item);
    keysChanged();
}

void VxDopeSheetModel::propertiesChanged(VxNode *node)
{
    VxDopeSheetItem *item = findItem(node);
    if (!item || hasPropertyRowsToMake(item))
        return;
    // No row may show a removed property: the history may keep it alive.
    QVector<VxDopeSheetItem *> stray;
    if (VxDopeSheetItem *properties = propertiesRow(item))
        collectStrayRows(properties, node, &stray);
    for (VxDopeSheetItem *row : qAsConst(stray))
        removeRow(row);
    updateRowsLater(node);
}

void VxDopeSheetModel::updateRowsLater(VxNode *node)
{
    if (d->nodesToUpdate.isEmpty())
        QTimer::singleShot(0, this, &VxDopeSheetModel::updatePendingRows);
    if (d->nodesToUpdate.isEmpty() || d->nodesToUpdate.last() != node)
        d->nodesToUpdate.append(node);
}

// Also removes the groups above that become empty.
void VxDopeSheetModel::removeRow(VxDopeSheetItem *item)
{
    VxDopeSheetItem *above = item->parentItem();
    while (above && !above->node() && above->parentItem() && above->childCount() == 1) {
        item = above;
        above = item->parentItem();
    }
    d->propertyRowsValid = false;
    destroyRow(item);
}

void VxDopeSheetModel::updatePendingRows()
{
    const QVector<QPointer<VxNode>> nodes = std::exchange(d->nodesToUpdate, {});
    for (VxNode *node : nodes) {
        if (VxDopeSheetItem *item = node ? findItem(node) : nullptr)
            updatePropertyRows(node, item);
    }
}

// The new rows are created in a separate tree and merged into the present one: existing rows stay,
// with their selection and their state in views.
void VxDopeSheetModel::updatePropertyRows(VxNode *node, VxDopeSheetItem *item)
{
    d->propertyRowsValid = false;
    VxDopeSheetItem rebuiltNodeRow;
    addPropertyRows(node, &rebuiltNodeRow);
    VxDopeSheetItem *rebuilt = rebuiltNodeRow.child(0);
    VxDopeSheetItem *present = propertiesRow(item);
    if (rebuilt && present)
        mergeRows(present, rebuilt);
    else if (rebuilt)
        insertRow(item, 0, rebuilt);
    else if (present)
        removeRow(present);
}

void VxDopeSheetModel::insertRow(VxDopeSheetItem *above, int row, VxDopeSheetItem *item)
{
    d->beginInsert(above, row);
    item->setParent(above);
    above->moveChild(item->row(), row);
    d->endInsert();
    handleNameChanged();
}

void VxDopeSheetModel::mergeRows(VxDopeSheetItem *present, VxDopeSheetItem *rebuilt)
{
    const auto rebuiltRows = childrenByKey(rebuilt);
    for (int i = present->childCount() - 1; i >= 0; --i) {
        if (!rebuiltRows.contains(keyOf(present->child(i))))
            destroyRow(present->child(i));
    }
    const auto presentRows = childrenByKey(present);
    QVector<VxDopeSheetItem *> order;
    for (int i = 0; i < rebuilt->childCount(); ++i)
        order.append(rebuilt->child(i));
    for (int i = 0; i < order.size(); ++i) {
        VxDopeSheetItem *known = presentRows.value(keyOf(order.at(i)), nullptr);
        if (!known) {
            insertRow(present, i, order.at(i));
            continue;
        }
        moveRow(known, i);
        mergeRows(known, order.at(i));
    }
}
