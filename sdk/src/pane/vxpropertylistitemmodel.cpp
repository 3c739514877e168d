#include <vxcore/vxpropertylistitemmodel.h>

#include "pane/vxpropertyhints.h"
#include "pane/vxpropertykeys.h"
#include "pane/vxpropertylistrows.h"
#include "pane/vxpropertyvalue.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <vector>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
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

    void update();
    void rebuild();
    void watch();
    void watchNode(VxNode *node);
    void watchElement(VxElement *element);
    void watchProperty(VxProperty *property);
    void disconnectAll();
    void refresh(int first, int last, int firstColumn);
    void refreshProperty(const VxProperty *property);
    /// The properties of a row that is no heading; the first decides what is shown.
    QVector<VxProperty *> propertiesAt(const QModelIndex &index) const;
    QVariant headingData(int row, int role) const;

    VxPropertyListItemModel *q;
    QVector<QPointer<VxNode>> nodes;
    QVector<VxPropertyListRow> rows;
    std::vector<ListNode> listNodes; // one a row
    QHash<const VxProperty *, int> rowOf;
    QVector<QMetaObject::Connection> connections;
    QTimer updateTimer; // several properties may come, go or change in one turn of the event loop
};

/// Makes the rows anew when there are others now; else only shows the present ones again, so that
/// a lock or a label costs nobody the selection or an open editor.
void VxPropertyListItemModel::Private::update()
{
    updateTimer.stop();
    if (vxPropertyListRows(q->getNodes()) != rows) {
        rebuild();
        return;
    }
    disconnectAll();
    watch();
    refresh(0, rows.size() - 1, LabelColumn);
}

void VxPropertyListItemModel::Private::rebuild()
{
    updateTimer.stop();
    q->beginResetModel();
    disconnectAll();
    listNodes.clear();
    rowOf.clear();
    rows = vxPropertyListRows(q->getNodes());
    for (int row = 0; row < rows.size(); ++row) {
        const VxPropertyListRow &each = rows.at(row);
        listNodes.emplace_back(new VxPropertyListNode(each.properties, each.heading));
        for (const VxProperty *property : each.properties) {
            if (each.heading.isEmpty())
                rowOf.insert(property, row);
        }
    }
    watch();
    q->endResetModel();
}

void VxPropertyListItemModel::Private::watch()
{
    const QVector<VxNode *> living = q->getNodes();
    for (VxNode *node : living)
        watchNode(node);
}

void VxPropertyListItemModel::Private::watchNode(VxNode *node)
{
    watchElement(node);
    connections << connect(node, &VxNode::objectChanged, q, [this] { updateTimer.start(); });
    if (VxObject *object = node->getObject()) {
        watchElement(object);
        for (int i = 0; i < object->getNumSubElements(); ++i)
            watchElement(object->getSubElement(i));
    }
}

void VxPropertyListItemModel::Private::watchElement(VxElement *element)
{
    connections << connect(element, &VxElement::propertyAdded, q, [this] { updateTimer.start(); });
    // The property goes at once: a row must not outlive it.
    connections << connect(element, &VxElement::propertyRemoved, q, [this] { rebuild(); });
    for (int i = 0; i < element->getNumProperties(); ++i)
        watchProperty(element->getProperty(i));
}

void VxPropertyListItemModel::Private::watchProperty(VxProperty *property)
{
    connections << connect(property, &VxProperty::traitsChanged, q,
                           [this] { updateTimer.start(); });
    if (rowOf.contains(property))
        connections << connect(property, &VxProperty::valueChanged, q,
                               [this, property] { refreshProperty(property); });
}

void VxPropertyListItemModel::Private::disconnectAll()
{
    for (const QMetaObject::Connection &connection : qAsConst(connections))
        QObject::disconnect(connection);
    connections.clear();
}

void VxPropertyListItemModel::Private::refresh(int first, int last, int firstColumn)
{
    if (first >= 0 && first <= last)
        Q_EMIT q->dataChanged(q->index(first, firstColumn), q->index(last, KeyColumn));
}

void VxPropertyListItemModel::Private::refreshProperty(const VxProperty *property)
{
    const int row = rowOf.value(property, -1);
    refresh(row, row, LabelColumn);
}

QVector<VxProperty *> VxPropertyListItemModel::Private::propertiesAt(const QModelIndex &index) const
{
    const VxPropertyListNode *listNode = q->getPropertyListNode(index);
    return listNode && !listNode->isHeading() ? listNode->getProperties() : QVector<VxProperty *>();
}

QVariant VxPropertyListItemModel::Private::headingData(int row, int role) const
{
    if (role == Qt::DisplayRole)
        return rows.at(row).heading;
    if (role == Qt::ToolTipRole)
        return rows.at(row).path;
    return role == KeyStateRole ? QVariant(NotKeyable) : QVariant();
}

VxPropertyListItemModel::VxPropertyListItemModel(QObject *parent)
    : QAbstractTableModel(parent)
    , d(std::make_unique<Private>(this))
{
    d->updateTimer.setSingleShot(true);
    d->updateTimer.setInterval(0);
    connect(&d->updateTimer, &QTimer::timeout, this, [this] { d->update(); });
    if (vxScene)
        connect(vxScene, &VxScene::timeChanged, this,
                [this] { d->refresh(0, rowCount() - 1, ValueColumn); });
}

VxPropertyListItemModel::~VxPropertyListItemModel() = default;

VxNode *VxPropertyListItemModel::getNode() const
{
    return getNodes().value(0);
}

void VxPropertyListItemModel::setNode(VxNode *node)
{
    setNodes(node ? QVector<VxNode *>{node} : QVector<VxNode *>());
}

QVector<VxNode *> VxPropertyListItemModel::getNodes() const
{
    QVector<VxNode *> living;
    for (const QPointer<VxNode> &node : qAsConst(d->nodes)) {
        if (node)
            living.append(node);
    }
    return living;
}

void VxPropertyListItemModel::setNodes(const QVector<VxNode *> &nodes)
{
    const QVector<VxNode *> former = getNodes();
    if (former == nodes)
        return;
    for (VxNode *node : former)
        node->disconnect(this);
    d->nodes.clear();
    for (VxNode *node : nodes) {
        d->nodes.append(node);
        connect(node, &VxElement::aboutToBeRemoved, this, [this, node] {
            QVector<VxNode *> rest = getNodes();
            rest.removeOne(node);
            setNodes(rest);
        });
    }
    d->rebuild();
}

VxPropertyListNode *VxPropertyListItemModel::getPropertyListNode(const QModelIndex &index) const
{
    const bool known = index.isValid() && index.model() == this && index.row() < rowCount();
    return known ? d->listNodes[size_t(index.row())].get() : nullptr;
}

QModelIndex VxPropertyListItemModel::findProperty(const VxProperty *property) const
{
    const auto found = d->rowOf.constFind(property);
    return found != d->rowOf.constEnd() ? index(*found, LabelColumn) : QModelIndex();
}

bool VxPropertyListItemModel::isHeading(const QModelIndex &index) const
{
    const VxPropertyListNode *listNode = getPropertyListNode(index);
    return listNode && listNode->isHeading();
}

QString VxPropertyListItemModel::getGroupPath(const QModelIndex &index) const
{
    return getPropertyListNode(index) ? d->rows.at(index.row()).path : QString();
}

int VxPropertyListItemModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : d->rows.size();
}

int VxPropertyListItemModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : NumColumns;
}

QVariant VxPropertyListItemModel::data(const QModelIndex &index, int role) const
{
    if (isHeading(index))
        return d->headingData(index.row(), role);
    const QVector<VxProperty *> properties = d->propertiesAt(index);
    if (properties.isEmpty())
        return {};
    const VxProperty *property = properties.first();
    const bool isKey = index.column() == KeyColumn;
    if (role == KeyStateRole)
        return VxPropertyKeys::state(properties, now());
    if (role == Qt::ToolTipRole)
        return isKey ? VxPropertyHints::keyHint(VxPropertyKeys::state(properties, now()),
                                                VxPropertyValue::isEditable(property))
                     : VxPropertyHints::propertyHint(properties);
    if (role == Qt::TextAlignmentRole && index.column() == ValueColumn)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (isKey || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    return index.column() == LabelColumn ? property->getLabel()
                                         : VxPropertyValue::text(property, now());
}

bool VxPropertyListItemModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const QVector<VxProperty *> properties = d->propertiesAt(index);
    if (properties.isEmpty() || role != Qt::EditRole || index.column() != ValueColumn)
        return false;
    VxUndoStackHold hold;
    bool accepted = true;
    for (VxProperty *property : properties)
        accepted &= VxPropertyValue::setText(property, now(), value.toString());
    hold.accept(tr("Set %1").arg(properties.first()->getLabel()));
    return accepted;
}

QVariant VxPropertyListItemModel::headerData(int section, Qt::Orientation orientation,
                                             int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section == KeyColumn)
        return {};
    return section == LabelColumn ? tr("Property") : tr("Value");
}

Qt::ItemFlags VxPropertyListItemModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (isHeading(index))
        return flags;
    const QVector<VxProperty *> properties = d->propertiesAt(index);
    if (properties.isEmpty())
        return Qt::NoItemFlags;
    const bool editable =
        index.column() == ValueColumn && VxPropertyValue::isEditable(properties.first());
    return editable ? flags | Qt::ItemIsEditable : flags;
}
