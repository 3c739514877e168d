#include "vxtimeline/rows/vxdopesheetmodel_p.h"

#include "vxtimeline/keys/nodeproperties.h"
#include "vxtimeline/keys/timelinepropertytypes.h"
#include "vxtimeline/rows/dopesheetrowbuilder.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimer>
#include <QtGui/QIcon>
#include <utility>
#include <vxcore/vxapp.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

VxDopeSheetModel::VxDopeSheetModel(int propertyTypes, int keyCreationScope, QObject *parent)
    : QAbstractItemModel(parent)
    , d(std::make_unique<Private>(this))
{
    d->propertyTypes = propertyTypes & 0xff;
    d->keyCreationScope = keyCreationScope;
    if (vxScene)
        connect(vxScene, &VxScene::nodeValuesChanged, this,
                &VxDopeSheetModel::handleNodeValuesChanged);
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

void VxDopeSheetModel::moveRootRowToTop(VxNode *node)
{
    if (VxDopeSheetItem *item = d->topLevelItem(node))
        moveRow(item, 0);
}

void VxDopeSheetModel::moveRootRowUp(VxNode *node)
{
    VxDopeSheetItem *item = d->topLevelItem(node);
    if (item && item->row() > 0)
        moveRow(item, item->row() - 1);
}

// Moves the next row up rather than this one down: views keep the row at their top.
void VxDopeSheetModel::moveRootRowDown(VxNode *node)
{
    const VxDopeSheetItem *item = d->topLevelItem(node);
    VxDopeSheetItem *next = item ? d->root.child(item->row() + 1) : nullptr;
    if (next)
        moveRow(next, item->row());
}

void VxDopeSheetModel::moveRootRowToBottom(VxNode *node)
{
    if (VxDopeSheetItem *item = d->topLevelItem(node))
        moveRow(item, d->root.childCount());
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
    const VxDopeSheetItem *item = getItem(parent);
    return leavesOutRowsBelow(item) ? 0 : item->childCount();
}

int VxDopeSheetModel::columnCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return NumColumns;
}

bool VxDopeSheetModel::hasChildren(const QModelIndex &parent) const
{
    return parent.column() <= NameColumn && (canFetchMore(parent) || rowCount(parent) > 0);
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

void VxDopeSheetModel::addNode(VxNode *node, bool addChildren)
{
    if (!node || d->rows.contains(node))
        return;
    QVector<VxNode *> missing;
    for (VxNode *above = node; above && !d->rows.contains(above); above = above->getNodeParent())
        missing.append(above);
    while (!missing.isEmpty())
        addRow(missing.takeLast());
    if (!addChildren)
        return;
    QVector<VxNode *> open{node};
    while (!open.isEmpty()) {
        VxNode *above = open.takeLast();
        if (!d->rows.contains(above))
            addRow(above);
        else if (above != node)
            continue;
        for (int i = above->getNumNodeChildren() - 1; i >= 0; --i)
            open.append(above->getNodeChild(i));
    }
}

bool VxDopeSheetModel::Private::isPlain(const VxNode *node)
{
    return vxScene && node->getScene() == vxScene && !node->getObject() &&
           node->getMadeProperties().isEmpty();
}

// True when the node's property rows can be created later, because they are predictable: those of
// the listed transform controls, without a key and with their default traits.
bool VxDopeSheetModel::canMakeRowsLater(const VxNode *node) const
{
    constexpr int Transforms = TimelinePropertyTypes::Translation |
                               TimelinePropertyTypes::Rotation | TimelinePropertyTypes::Scale;
    return (d->propertyTypes & Transforms) && Private::isPlain(node);
}

void VxDopeSheetModel::Private::makeRows(VxDopeSheetItem *row)
{
    VxNode *node = row->ownerNode();
    propertyRowsValid = false;
    if (!row->node()) {
        q->followRows(DopeSheetRowBuilder(node, nullptr, propertyTypes).buildBelow(row));
        if (row->childCount() == 0)
            q->updateRowsLater(node); // all are hidden or excluded: removes the row
        return;
    }
    if (!q->canMakeRowsLater(node)) {
        q->addPropertyRows(node, row);
        return;
    }
    VxDopeSheetItem *properties = DopeSheetRowBuilder::newPropertiesRow();
    properties->setRowMaker(this);
    properties->setParent(row);
}

// The rows of a node outside of any scene have the names.
void VxDopeSheetModel::Private::searchDefaultRows(const QRegExp &pattern)
{
    if (pattern == searchedPattern)
        return;
    searchedPattern = pattern;
    VxNode node{QString()};
    VxDopeSheetItem top;
    DopeSheetRowBuilder(&node, nullptr, propertyTypes).buildBelow(&top);
    isPropertiesMatch = tr("Properties").contains(pattern);
    isDefaultRowMatch = false;
    QVector<const VxDopeSheetItem *> open{&top};
    while (!open.isEmpty() && !isDefaultRowMatch) {
        const VxDopeSheetItem *item = open.takeLast();
        for (int i = 0; i < item->childCount(); ++i) {
            open.append(item->child(i));
            isDefaultRowMatch = isDefaultRowMatch || item->child(i)->label().contains(pattern);
        }
    }
}

void VxDopeSheetModel::setNameFilter(const QSortFilterProxyModel *filter)
{
    d->nameFilter = filter;
}

bool VxDopeSheetModel::leavesOutRowsBelow(const VxDopeSheetItem *item) const
{
    return d->nameFilter && item->hasRowsToMake() &&
           matchRowsToMake(item, d->nameFilter->filterRegExp()) == NoneMatches;
}

VxDopeSheetModel::RowsToMake VxDopeSheetModel::matchRowsToMake(const VxDopeSheetItem *item,
                                                               const QRegExp &pattern) const
{
    if (!item->hasRowsToMake() || pattern.isEmpty() || !Private::isPlain(item->ownerNode()))
        return NoRowsToMake;
    d->searchDefaultRows(pattern);
    const bool isMatch = d->isDefaultRowMatch || (item->node() && d->isPropertiesMatch);
    return isMatch ? SomeMatch : NoneMatches;
}

void VxDopeSheetModel::addRow(VxNode *node)
{
    VxNode *above = node->getNodeParent();
    VxDopeSheetItem *parentItem = above ? d->rows.value(above, nullptr) : &d->root;
    if (!parentItem)
        return;
    d->beginInsert(parentItem, parentItem->childCount());
    auto *item = new VxDopeSheetItem;
    item->setNode(node);
    item->setParent(parentItem);
    if (canMakeRowsLater(node))
        item->setRowMaker(d.get());
    else
        addPropertyRows(node, item);
    connect(node, &VxElement::labelChanged, this, &VxDopeSheetModel::handleLabelChanged,
            Qt::UniqueConnection);
    connect(node, &QObject::destroyed, this, &VxDopeSheetModel::removeDestroyedNode,
            Qt::UniqueConnection);
    connect(node, &VxNode::parentChanged, this, &VxDopeSheetModel::parentChanged);
    connect(node, &VxNode::objectChanged, this, &VxDopeSheetModel::objectChanged);
    d->rows.insert(node, item);
    d->propertyRowsValid = false;
    d->endInsert();
    handleNameChanged();
}

void VxDopeSheetModel::resetDuring(const std::function<void()> &change)
{
    beginResetModel();
    {
        const QScopedValueRollback<bool> resetting(d->isResetting, true);
        change();
    }
    endResetModel();
}

void VxDopeSheetModel::handleLabelChanged()
{
    keysChanged();
    handleNameChanged();
}

// Rows not yet created have no connection of their own.
void VxDopeSheetModel::handleNodeValuesChanged(VxNode *node)
{
    VxDopeSheetItem *item = findItem(node);
    if (item && !item->hasRowsToMake())
        item = propertiesRow(item);
    if (!item || !item->hasRowsToMake())
        return;
    item->invalidateKeys();
    keysChanged();
}

VxDopeSheetItem *VxDopeSheetModel::findPropertyItem(const VxProperty *property) const
{
    d->updatePropertyIndex();
    VxDopeSheetItem *item = d->propertyRows.value(property, nullptr);
    return item && item->property() == property ? item : nullptr;
}

QVector<VxDopeSheetItem *> VxDopeSheetModel::findHolderItems(const VxProperty *holder) const
{
    d->updatePropertyIndex();
    if (!d->holderRowsValid) {
        d->holderRowsValid = true;
        d->holderRows.clear();
        for (VxDopeSheetItem *item : qAsConst(d->propertyRows)) {
            if (const VxProperty *property = item->property())
                d->holderRows[property->getKeyHolder()].append(item);
        }
    }
    return d->holderRows.value(holder);
}

// Rows not yet created are left out while their nodes have nothing but default controls.
void VxDopeSheetModel::Private::updatePropertyIndex()
{
    if (propertyRowsValid && holderRevision == VxProperty::latestHolderRevision())
        return;
    holderRevision = VxProperty::latestHolderRevision();
    holderRowsValid = false;
    propertyRows.clear();
    QVector<VxDopeSheetItem *> open{&root};
    while (!open.isEmpty()) {
        VxDopeSheetItem *item = open.takeLast();
        if (item->property())
            propertyRows.insert(item->property(), item);
        const bool hasNone = item->hasRowsToMake() && !NodeProperties::hasMade(item->ownerNode());
        for (int i = 0; !hasNone && i < item->childCount(); ++i)
            open.append(item->child(i));
    }
    propertyRowsValid = true;
}

bool VxDopeSheetModel::canFetchMore(const QModelIndex &parent) const
{
    const VxDopeSheetItem *item = getItem(parent);
    return parent.column() <= NameColumn && item->hasRowsToMake() && !leavesOutRowsBelow(item);
}

void VxDopeSheetModel::fetchMore(const QModelIndex &parent)
{
    rowCount(parent);
}

void VxDopeSheetModel::addPropertyRows(VxNode *node, VxDopeSheetItem *item)
{
    followRows(DopeSheetRowBuilder(node, item, d->propertyTypes).build());
}

void VxDopeSheetModel::followRows(const QVector<VxDopeSheetItem *> &propertyRows)
{
    for (const VxDopeSheetItem *row : propertyRows) {
        connect(row, &VxDopeSheetItem::keysChanged, this, &VxDopeSheetModel::keysChanged);
        const VxProperty *property = row->property();
        connect(property, &VxProperty::traitsChanged, this, &VxDopeSheetModel::keysChanged,
                Qt::UniqueConnection);
        connect(property, &VxProperty::traitsChanged, this, &VxDopeSheetModel::handleNameChanged,
                Qt::UniqueConnection);
    }
}

// Removes all rows below at once, because each removal costs views and filters time. Also finds a
// row that is not at its node's place, because the node is just changing its parent.
void VxDopeSheetModel::removeNode(VxNode *node)
{
    if (!node || d->rows.isEmpty())
        return;
    QVector<VxNode *> nodes{node};
    node->getNodeChildren(nodes, true);
    for (VxNode *leaving : qAsConst(nodes)) {
        if (VxDopeSheetItem *item = findItem(leaving))
            removeNodeRow(item, nullptr);
    }
}

void VxDopeSheetModel::removeDestroyedNode(QObject *node)
{
    if (VxDopeSheetItem *item = d->rows.value(node, nullptr))
        removeNodeRow(item, node);
}

void VxDopeSheetModel::removeNodeRow(VxDopeSheetItem *item, const QObject *destroyedNode)
{
    // Receivers of the signals may still read the row's name.
    d->disconnectRows(item, destroyedNode);
    if (destroyedNode)
        item->setNode(nullptr);
    destroyRow(item);
}

void VxDopeSheetModel::destroyRow(VxDopeSheetItem *item)
{
    d->beginRemove(item);
    delete item;
    d->endRemove();
    handleNameChanged();
}

// The label's connection stays: a node without a row may still be part of what a view shows.
void VxDopeSheetModel::Private::disconnectRows(VxDopeSheetItem *item, const QObject *destroyedNode)
{
    propertyRowsValid = false;
    QVector<VxDopeSheetItem *> open{item};
    while (!open.isEmpty()) {
        const VxDopeSheetItem *row = open.takeLast();
        if (VxNode *node = row->node()) {
            rows.remove(node);
            if (node != destroyedNode) {
                disconnect(node, &VxNode::parentChanged, q, &VxDopeSheetModel::parentChanged);
                disconnect(node, &VxNode::objectChanged, q, &VxDopeSheetModel::objectChanged);
            }
        }
        for (int i = 0; !row->hasRowsToMake() && i < row->childCount(); ++i) {
            if (row->child(i)->node())
                open.append(row->child(i));
        }
    }
}

void VxDopeSheetModel::handleNameChanged()
{
    if (std::exchange(d->namesChangedPending, true))
        return;
    QTimer::singleShot(0, this, [this] {
        d->namesChangedPending = false;
        Q_EMIT namesChanged();
    });
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

void VxDopeSheetModel::keysChanged()
{
    const int rows = d->root.childCount();
    if (rows > 0)
        Q_EMIT dataChanged(index(0, NameColumn), index(rows - 1, KeysColumn));
}
