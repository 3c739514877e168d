#include <vxcore/vxpropertylistitemmodel.h>

#include "parameters/vxpropertyhints.h"
#include "parameters/vxpropertykeys.h"
#include "parameters/vxpropertylistrows.h"
#include "parameters/vxpropertyrow.h"
#include "parameters/vxpropertyvalue.h"
#include "scene/vxcurrenttime.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <vector>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxpropertylistnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxtextstyle.h>
#include <vxcore/vxundostackhold.h>

namespace {

/// Releases the model's reference; others may still hold theirs.
struct Unref
{
    void operator()(VxPropertyListNode *node) const { node->unref(); }
};
using ListNode = std::unique_ptr<VxPropertyListNode, Unref>;

/// The location of a property: its row and its index in it, and the same for the group's heading,
/// if any.
struct Place
{
    int row = -1;
    int index = 0;
    int heading = -1;
    int headingIndex = 0;
};

/// The elements whose properties are listed: the node, its object and the object's elements.
QVector<VxElement *> elementsOf(VxNode *node)
{
    QVector<VxElement *> elements{node};
    if (VxObject *object = node->getObject()) {
        elements.append(object);
        for (int i = 0; i < object->getNumSubElements(); ++i)
            elements.append(object->getSubElement(i));
    }
    return elements;
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
    void loseProperty(const VxProperty *property);
    void loseNode(VxNode *node);
    void findPlaces();
    /// The properties of a row that is no heading; the first is shown.
    QVector<VxProperty *> propertiesAt(const QModelIndex &index) const;
    QVariant headingData(int row, int role) const;
    QVariant labelData(const VxPropertyListNode *row, int role) const;
    QVariant valueData(const VxPropertyListNode *row, int role) const;
    QVariant keyData(const VxPropertyListNode *row, int role) const;

    VxPropertyListItemModel *q;
    QVector<QPointer<VxNode>> nodes;
    QVector<VxPropertyListRow> rows;
    std::vector<ListNode> listNodes; // one a row
    QHash<const VxProperty *, Place> places;
    QVector<QMetaObject::Connection> connections;
    bool lost = false;  // whether a listed property was removed since the rows were built
    QTimer updateTimer; // compresses all changes of one event loop iteration
};

/// Rebuilds the rows when they differ; else only refreshes the present ones, so that a lock or a
/// label keeps the selection and an open editor.
void VxPropertyListItemModel::Private::update()
{
    updateTimer.stop();
    // Addresses of destroyed properties do not identify: the next property may have the same.
    if (lost || vxPropertyListRows(q->getNodes()) != rows) {
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
    lost = false;
    rows = vxPropertyListRows(q->getNodes());
    for (const VxPropertyListRow &row : qAsConst(rows))
        listNodes.emplace_back(new VxPropertyListNode(row.properties, row.heading));
    findPlaces();
    watch();
    q->endResetModel();
}

void VxPropertyListItemModel::Private::findPlaces()
{
    places.clear();
    int heading = -1, headingIndex = 0;
    for (int row = 0; row < rows.size(); ++row) {
        const VxPropertyListRow &each = rows.at(row);
        if (!each.heading.isEmpty()) {
            heading = row;
            headingIndex = 0;
            continue;
        }
        const bool headed = heading >= 0 && rows.at(heading).path == each.path;
        for (int i = 0; i < each.properties.size(); ++i)
            places.insert(each.properties.at(i),
                          {row, i, headed ? heading : -1, headed ? headingIndex++ : 0});
    }
}

void VxPropertyListItemModel::Private::watch()
{
    const QVector<VxNode *> living = q->getNodes();
    for (VxNode *node : living)
        watchNode(node);
}

void VxPropertyListItemModel::Private::watchNode(VxNode *node)
{
    connections << connect(node, &VxNode::objectChanged, q, [this] { updateTimer.start(); });
    for (VxElement *element : elementsOf(node))
        watchElement(element);
}

void VxPropertyListItemModel::Private::watchElement(VxElement *element)
{
    connections << connect(element, &VxElement::propertyAdded, q, [this] { updateTimer.start(); });
    connections << connect(element, &VxElement::propertyRemoved, q,
                           [this](const VxProperty *property) { loseProperty(property); });
    for (int i = 0; i < element->getNumProperties(); ++i)
        watchProperty(element->getProperty(i));
}

void VxPropertyListItemModel::Private::watchProperty(VxProperty *property)
{
    connections << connect(property, &VxProperty::traitsChanged, q,
                           [this] { updateTimer.start(); });
    if (places.contains(property))
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
    const int row = places.value(property).row;
    refresh(row, row, LabelColumn);
}

/** Its row lacks it until the rows are rebuilt: thousands may be removed one by one. */
void VxPropertyListItemModel::Private::loseProperty(const VxProperty *property)
{
    updateTimer.start();
    const auto found = places.constFind(property);
    if (found == places.constEnd())
        return;
    const Place place = *found;
    places.erase(found);
    lost = true;
    listNodes[size_t(place.row)]->clearProperty(place.index);
    if (place.heading >= 0)
        listNodes[size_t(place.heading)]->clearProperty(place.headingIndex);
    refresh(place.row, place.row, LabelColumn);
}

void VxPropertyListItemModel::Private::loseNode(VxNode *node)
{
    node->disconnect(q);
    nodes.removeAll(node);
    for (const VxElement *element : elementsOf(node)) {
        for (int i = 0; i < element->getNumProperties(); ++i)
            loseProperty(element->getProperty(i));
    }
    if (nodes.isEmpty())
        rebuild();
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
        return vxToolTipText(rows.at(row).path);
    return role == KeyStateRole ? QVariant(NotKeyable) : QVariant();
}

QVariant VxPropertyListItemModel::Private::labelData(const VxPropertyListNode *row, int role) const
{
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return row->getLabel();
    return role == Qt::ToolTipRole
               ? vxToolTipText(VxPropertyHints::propertyHint(row->getProperties()))
               : QVariant();
}

QVariant VxPropertyListItemModel::Private::valueData(const VxPropertyListNode *row, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        if (VxPropertyRow::isMixed(row, vxCurrentTime()))
            return role == Qt::DisplayRole ? tr("Mixed") : QString();
        return VxPropertyValue::text(VxPropertyRow::leading(row), vxCurrentTime());
    case Qt::ToolTipRole: {
        const QVector<VxProperty *> properties = row->getProperties();
        const QString value = VxPropertyHints::valueHint(properties, vxCurrentTime());
        const QString hint = VxPropertyHints::propertyHint(properties);
        return vxToolTipText(value.isEmpty() ? hint : hint + QLatin1Char('\n') + value);
    }
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::AccessibleTextRole:
        return VxPropertyRow::spokenValue(row, vxCurrentTime());
    default:
        return {};
    }
}

QVariant VxPropertyListItemModel::Private::keyData(const VxPropertyListNode *row, int role) const
{
    if (role != Qt::ToolTipRole && role != Qt::AccessibleTextRole)
        return {};
    const KeyState state = VxPropertyRow::keyState(row, vxCurrentTime());
    if (role == Qt::AccessibleTextRole)
        return VxPropertyRow::spokenKeyState(state);
    return VxPropertyHints::keyHint(state,
                                    VxPropertyValue::isEditable(VxPropertyRow::leading(row)));
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
        connect(node, &VxElement::aboutToBeRemoved, this, [this, node] { d->loseNode(node); });
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
    const auto found = d->places.constFind(property);
    return found != d->places.constEnd() ? index(found->row, LabelColumn) : QModelIndex();
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
    const VxPropertyListNode *row = getPropertyListNode(index);
    if (!VxPropertyRow::leading(row))
        return {};
    if (role == KeyStateRole)
        return VxPropertyRow::keyState(row, vxCurrentTime());
    if (role == MixedRole)
        return VxPropertyRow::isMixed(row, vxCurrentTime());
    switch (index.column()) {
    case LabelColumn:
        return d->labelData(row, role);
    case ValueColumn:
        return d->valueData(row, role);
    default:
        return d->keyData(row, role);
    }
}

bool VxPropertyListItemModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const QVector<VxProperty *> properties = d->propertiesAt(index);
    if (properties.isEmpty() || role != Qt::EditRole || index.column() != ValueColumn)
        return false;
    VxUndoStackHold hold;
    bool accepted = true;
    {
        const VxChangeBlock block;
        for (VxProperty *property : properties)
            accepted &= VxPropertyValue::setText(property, vxCurrentTime(), value.toString()) <=
                        VxPropertyValue::Limited;
    }
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
    const VxProperty *property = VxPropertyRow::leading(getPropertyListNode(index));
    if (!property)
        return Qt::NoItemFlags;
    const bool editable = index.column() == ValueColumn && VxPropertyValue::isEditable(property);
    return editable ? flags | Qt::ItemIsEditable : flags;
}
