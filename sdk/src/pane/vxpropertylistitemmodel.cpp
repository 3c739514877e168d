#include <vxcore/vxpropertylistitemmodel.h>

#include "pane/vxpropertyvalue.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <vector>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxpropertylistnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

namespace {

/// Gives up the model's reference; others may still hold theirs.
struct Unref
{
    void operator()(VxPropertyListNode *node) const { node->unref(); }
};
using ListNode = std::unique_ptr<VxPropertyListNode, Unref>;

VxTime now()
{
    return vxScene ? vxScene->getTime() : 0;
}

} // namespace

class VxPropertyListItemModel::Private
{
public:
    explicit Private(VxPropertyListItemModel *model)
        : q(model)
    {
    }

    void rebuild();
    void connectElement(VxElement *element);
    void disconnectAll();
    void refreshValue(const VxProperty *property);
    VxProperty *propertyAt(const QModelIndex &index) const;

    VxPropertyListItemModel *q;
    QPointer<VxNode> node;
    std::vector<ListNode> rows;
    QHash<const VxProperty *, int> rowOf;
    QVector<QMetaObject::Connection> connections;
    QTimer rebuildTimer; // several properties may come or go in one turn of the event loop
};

void VxPropertyListItemModel::Private::rebuild()
{
    rebuildTimer.stop();
    q->beginResetModel();
    disconnectAll();
    rows.clear();
    rowOf.clear();
    if (node) {
        connectElement(node);
        if (VxObject *object = node->getObject()) {
            connectElement(object);
            for (int i = 0; i < object->getNumSubElements(); ++i)
                connectElement(object->getSubElement(i));
        }
        connections << connect(node, &VxNode::objectChanged, q, [this] { rebuildTimer.start(); });
        for (VxProperty *property : node->getPropertyGroups()->collectAllProperties()) {
            connections << connect(property, &VxProperty::traitsChanged, q,
                                   [this] { rebuildTimer.start(); });
            if (property->isHidden() || property->isDynamicallyHidden())
                continue;
            rowOf.insert(property, int(rows.size()));
            rows.emplace_back(new VxPropertyListNode({property}));
            connections << connect(property, &VxProperty::valueChanged, q,
                                   [this, property] { refreshValue(property); });
        }
    }
    q->endResetModel();
}

void VxPropertyListItemModel::Private::connectElement(VxElement *element)
{
    connections << connect(element, &VxElement::propertyAdded, q, [this] { rebuildTimer.start(); });
    // The property goes at once: a row must not outlive it.
    connections << connect(element, &VxElement::propertyRemoved, q, [this] { rebuild(); });
}

void VxPropertyListItemModel::Private::disconnectAll()
{
    for (const QMetaObject::Connection &connection : qAsConst(connections))
        QObject::disconnect(connection);
    connections.clear();
}

void VxPropertyListItemModel::Private::refreshValue(const VxProperty *property)
{
    const QModelIndex label = q->findProperty(property);
    if (label.isValid())
        Q_EMIT q->dataChanged(label, label.sibling(label.row(), ValueColumn));
}

VxProperty *VxPropertyListItemModel::Private::propertyAt(const QModelIndex &index) const
{
    const VxPropertyListNode *listNode = q->getPropertyListNode(index);
    return listNode ? listNode->getProperty(0) : nullptr;
}

VxPropertyListItemModel::VxPropertyListItemModel(QObject *parent)
    : QAbstractTableModel(parent)
    , d(std::make_unique<Private>(this))
{
    d->rebuildTimer.setSingleShot(true);
    d->rebuildTimer.setInterval(0);
    connect(&d->rebuildTimer, &QTimer::timeout, this, [this] { d->rebuild(); });
    if (vxScene) {
        connect(vxScene, &VxScene::timeChanged, this, [this] {
            if (rowCount() > 0)
                Q_EMIT dataChanged(index(0, ValueColumn), index(rowCount() - 1, ValueColumn));
        });
    }
}

VxPropertyListItemModel::~VxPropertyListItemModel() = default;

VxNode *VxPropertyListItemModel::getNode() const
{
    return d->node;
}

void VxPropertyListItemModel::setNode(VxNode *node)
{
    if (d->node == node)
        return;
    if (d->node)
        d->node->disconnect(this);
    d->node = node;
    if (node)
        connect(node, &VxElement::aboutToBeRemoved, this, [this] { setNode(nullptr); });
    d->rebuild();
}

VxPropertyListNode *VxPropertyListItemModel::getPropertyListNode(const QModelIndex &index) const
{
    const bool known = index.isValid() && index.model() == this && index.row() < rowCount();
    return known ? d->rows[size_t(index.row())].get() : nullptr;
}

QModelIndex VxPropertyListItemModel::findProperty(const VxProperty *property) const
{
    const auto found = d->rowOf.constFind(property);
    return found != d->rowOf.constEnd() ? index(*found, LabelColumn) : QModelIndex();
}

int VxPropertyListItemModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(d->rows.size());
}

int VxPropertyListItemModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : NumColumns;
}

QVariant VxPropertyListItemModel::data(const QModelIndex &index, int role) const
{
    const VxProperty *property = d->propertyAt(index);
    if (!property)
        return {};
    if (role == Qt::ToolTipRole)
        return property->getPath().isEmpty()
                   ? property->getLabel()
                   : property->getPath() + QLatin1Char('/') + property->getLabel();
    if (role == Qt::TextAlignmentRole && index.column() == ValueColumn)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    return index.column() == LabelColumn ? property->getLabel()
                                         : VxPropertyValue::text(property, now());
}

bool VxPropertyListItemModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    VxProperty *property = d->propertyAt(index);
    if (!property || role != Qt::EditRole || index.column() != ValueColumn)
        return false;
    VxUndoStackHold hold;
    if (!VxPropertyValue::setText(property, now(), value.toString()))
        return false;
    hold.accept(tr("Set %1").arg(property->getLabel()));
    return true;
}

QVariant VxPropertyListItemModel::headerData(int section, Qt::Orientation orientation,
                                             int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == LabelColumn ? tr("Property") : tr("Value");
}

Qt::ItemFlags VxPropertyListItemModel::flags(const QModelIndex &index) const
{
    const VxProperty *property = d->propertyAt(index);
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (property && index.column() == ValueColumn && !property->isLocked())
        flags |= Qt::ItemIsEditable;
    return property ? flags : Qt::NoItemFlags;
}
