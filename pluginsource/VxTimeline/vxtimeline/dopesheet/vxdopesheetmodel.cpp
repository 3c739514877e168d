#include "vxtimeline/dopesheet/vxdopesheetmodel_p.h"

#include <QtCore/QTimer>
#include <QtGui/QIcon>
#include <utility>
#include <vxcore/vxapp.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxstyle.h>

#include "vxtimeline/dopesheet/dopesheetrowbuilder.h"

VxDopeSheetModel::VxDopeSheetModel(int propertyTypes, int keyCreationScope, QObject *parent)
    : QAbstractItemModel(parent)
    , d(std::make_unique<Private>())
{
    d->propertyTypes = propertyTypes & 0xff;
    d->keyCreationScope = keyCreationScope;
}

VxDopeSheetModel::~VxDopeSheetModel() = default;

int VxDopeSheetModel::getPropertyTypes() const
{
    return d->propertyTypes;
}

int VxDopeSheetModel::getKeyCreationScope() const
{
    return d->keyCreationScope;
}

bool VxDopeSheetModel::hasSelectedKeys() const
{
    return d->root.hasSelectedKeys();
}

VxDopeSheetItem *VxDopeSheetModel::getRootItem() const
{
    return &d->root;
}

VxDopeSheetItem *VxDopeSheetModel::getItem(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<VxDopeSheetItem *>(index.internalPointer()) : &d->root;
}

VxDopeSheetItem *VxDopeSheetModel::findItem(VxNode *node) const
{
    return d->rows.value(node, nullptr);
}

QModelIndex VxDopeSheetModel::indexOf(const VxDopeSheetItem *item, int column) const
{
    if (!item || !item->parentItem())
        return QModelIndex();
    return createIndex(item->row(), column, const_cast<VxDopeSheetItem *>(item));
}

QVector<VxNode *> VxDopeSheetModel::getTopLevelNodes() const
{
    QVector<VxNode *> nodes;
    for (int i = 0; i < d->root.childCount(); ++i)
        nodes.append(d->root.child(i)->node());
    return nodes;
}

void VxDopeSheetModel::moveRootRow(int from, int to)
{
    const int destination = to > from ? to + 1 : to;
    if (!beginMoveRows(QModelIndex(), from, from, QModelIndex(), destination))
        return;
    d->root.moveChild(from, to);
    endMoveRows();
}

void VxDopeSheetModel::moveRootRowToTop(VxNode *node)
{
    const int row = d->topLevelRow(node);
    if (row > 0)
        moveRootRow(row, 0);
}

void VxDopeSheetModel::moveRootRowUp(VxNode *node)
{
    const int row = d->topLevelRow(node);
    if (row > 0)
        moveRootRow(row, row - 1);
}

// The row below comes above, rather than this one going down: views keep what they show at the top.
void VxDopeSheetModel::moveRootRowDown(VxNode *node)
{
    const int row = d->topLevelRow(node);
    if (row >= 0 && row < d->root.childCount() - 1)
        moveRootRow(row + 1, row);
}

void VxDopeSheetModel::moveRootRowToBottom(VxNode *node)
{
    const int row = d->topLevelRow(node);
    if (row >= 0 && row < d->root.childCount() - 1)
        moveRootRow(row, d->root.childCount() - 1);
}

QModelIndex VxDopeSheetModel::index(int row, int column, const QModelIndex &parent) const
{
    VxDopeSheetItem *item = getItem(parent)->child(row);
    return item ? createIndex(row, column, item) : QModelIndex();
}

QModelIndex VxDopeSheetModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(getItem(index)->parentItem()) : QModelIndex();
}

int VxDopeSheetModel::rowCount(const QModelIndex &parent) const
{
    return getItem(parent)->childCount();
}

int VxDopeSheetModel::columnCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return NumColumns;
}

bool VxDopeSheetModel::hasChildren(const QModelIndex &parent) const
{
    return parent.column() <= NameColumn && rowCount(parent) > 0;
}

QVariant VxDopeSheetModel::decoration(const VxDopeSheetItem *item) const
{
    const VxStyle *style = vxApp->getStyle();
    if (item->node())
        return item->node()->getIcon();
    if (const VxProperty *property = item->property()) {
        if (VxPropertyHelper::isMorphProperty(property))
            return style->icon(VxStyle::SP_VxMorphProperty);
        return style->icon(property->isAlias() ? VxStyle::SP_VxAliasProperty
                                               : VxStyle::SP_VxProperty);
    }
    const VxDopeSheetItem *above = item->parentItem();
    if (!above || above->node())
        return QVariant();
    return style->icon(VxStyle::SP_VxPropertyGroup);
}

QVariant VxDopeSheetModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    VxDopeSheetItem *item = getItem(index);
    if (role == Qt::UserRole && index.column() < NumColumns)
        return QVariant::fromValue(item);
    if (index.column() != NameColumn)
        return QVariant();
    if (role == Qt::DisplayRole)
        return item->label();
    return role == Qt::DecorationRole ? decoration(item) : QVariant();
}

QVariant VxDopeSheetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    if (section == NameColumn)
        return tr("Name");
    return section == KeysColumn ? tr("Keys") : QVariant();
}

Qt::ItemFlags VxDopeSheetModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
}

void VxDopeSheetModel::addNode(VxNode *node)
{
    addNode(node, false);
}

void VxDopeSheetModel::addNode(VxNode *node, bool addChildren)
{
    if (!node || d->rows.contains(node))
        return;
    VxNode *above = node->getNodeParent();
    if (above && !d->rows.contains(above))
        addNode(above, false);
    VxDopeSheetItem *parentItem = above ? d->rows.value(above, nullptr) : &d->root;
    if (!parentItem)
        return;

    const int row = parentItem->childCount();
    beginInsertRows(indexOf(parentItem), row, row);
    auto *item = new VxDopeSheetItem;
    item->setNode(node);
    item->setParent(parentItem);
    addPropertyRows(node, item);
    connect(node, &VxElement::labelChanged, this, &VxDopeSheetModel::keysChanged,
            Qt::UniqueConnection);
    connect(node, &VxElement::labelChanged, this, &VxDopeSheetModel::handleNameChanged,
            Qt::UniqueConnection);
    connect(node, &QObject::destroyed, this, &VxDopeSheetModel::forgetNode, Qt::UniqueConnection);
    connect(node, &VxNode::parentChanged, this, &VxDopeSheetModel::parentChanged);
    connect(node, &VxNode::objectChanged, this, &VxDopeSheetModel::objectChanged);
    connect(node, &VxNode::objectChanged, this, &VxDopeSheetModel::renewPropertyRows);
    d->rows.insert(node, item);
    endInsertRows();
    handleNameChanged();

    for (int i = 0; addChildren && i < node->getNumNodeChildren(); ++i)
        addNode(node->getNodeChild(i), true);
}

void VxDopeSheetModel::addPropertyRows(VxNode *node, VxDopeSheetItem *item)
{
    const auto rows = DopeSheetRowBuilder(node, item, d->propertyTypes).build();
    for (const VxDopeSheetItem *row : rows) {
        connect(row, &VxDopeSheetItem::keysChanged, this, &VxDopeSheetModel::keysChanged);
        const VxProperty *property = row->property();
        connect(property, &VxProperty::traitsChanged, this, &VxDopeSheetModel::keysChanged,
                Qt::UniqueConnection);
        connect(property, &VxProperty::traitsChanged, this, &VxDopeSheetModel::handleNameChanged,
                Qt::UniqueConnection);
    }
}

// The label's connection stays: a node that has no row any more may still be the subject of what a
// view shows.
// Children go first, so that no row ever stands for a node whose parent has none.
void VxDopeSheetModel::removeNode(VxNode *node)
{
    if (!node || d->rows.isEmpty())
        return;
    for (int i = 0; i < node->getNumNodeChildren(); ++i)
        removeNode(node->getNodeChild(i));
    VxDopeSheetItem *item = d->rows.take(node);
    if (!item)
        return;
    beginRemoveRows(indexOf(item->parentItem()), item->row(), item->row());
    disconnect(node, &VxNode::parentChanged, this, &VxDopeSheetModel::parentChanged);
    disconnect(node, &VxNode::objectChanged, this, &VxDopeSheetModel::objectChanged);
    disconnect(node, &VxNode::objectChanged, this, &VxDopeSheetModel::renewPropertyRows);
    delete item;
    endRemoveRows();
    handleNameChanged();
}

void VxDopeSheetModel::forgetNode(QObject *node)
{
    VxDopeSheetItem *item = d->rows.value(node, nullptr);
    if (!item)
        return;
    // Whoever is told that the row goes may still ask for its name.
    d->forgetRows(item);
    item->setNode(nullptr);
    beginRemoveRows(indexOf(item->parentItem()), item->row(), item->row());
    delete item;
    endRemoveRows();
    handleNameChanged();
}

void VxDopeSheetModel::handleNameChanged()
{
    if (std::exchange(d->willTellNames, true))
        return;
    QTimer::singleShot(0, this, &VxDopeSheetModel::tellNamesChanged);
}

void VxDopeSheetModel::tellNamesChanged()
{
    d->willTellNames = false;
    Q_EMIT namesChanged();
}

void VxDopeSheetModel::parentChanged(VxNode *node, VxNode *oldParent, VxNode *newParent)
{
    Q_UNUSED(oldParent)
    VxDopeSheetItem *item = findItem(node);
    if (!item)
        return;
    if (newParent && !findItem(newParent))
        addNode(newParent, false);
    VxDopeSheetItem *destination = newParent ? findItem(newParent) : &d->root;
    if (!destination || !beginMoveRows(indexOf(item->parentItem()), item->row(), item->row(),
                                       indexOf(destination), destination->childCount()))
        return;
    item->setParent(destination);
    endMoveRows();
    handleNameChanged();
}

// What the rows show of a node's object is followed by renewPropertyRows().
void VxDopeSheetModel::objectChanged(VxNode *node, VxObject *oldObject, VxObject *newObject)
{
    Q_UNUSED(node)
    Q_UNUSED(oldObject)
    Q_UNUSED(newObject)
}

void VxDopeSheetModel::keysChanged()
{
    const int rows = d->root.childCount();
    if (rows > 0)
        Q_EMIT dataChanged(index(0, NameColumn), index(rows - 1, KeysColumn));
}
