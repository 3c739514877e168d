#include "scenetree/scenetreemodel.h"

#include <QGuiApplication>
#include <QIcon>
#include <QMimeData>
#include <QPalette>
#include <QPointer>
#include <utility>
#include <vxcore/vxnode.h>
#include <vxcore/vxnodehelper.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxtextstyle.h>

namespace {

/// Nodes being dragged. The drag is internal to this process, so it carries them by reference.
class DraggedNodes : public QMimeData
{
    Q_OBJECT
public:
    explicit DraggedNodes(const QVector<VxNode *> &nodes)
        : m_nodes(nodes.begin(), nodes.end())
    {
        setData(mimeType(), QByteArray());
    }

    static QString mimeType() { return QStringLiteral("application/x-vxscene-nodes"); }

    /// The nodes that are still in the scene.
    QVector<VxNode *> nodes(const VxScene *scene) const
    {
        QVector<VxNode *> list;
        for (VxNode *node : m_nodes) {
            if (node && node->getScene() == scene)
                list.append(node);
        }
        return list;
    }

private:
    QVector<QPointer<VxNode>> m_nodes;
};

} // namespace

struct SceneTreeModel::Row
{
    VxNode *node = nullptr; // null for the invisible root
    Row *parent = nullptr;
    QIcon icon;
    QVector<Row *> children; // owned by the model's table of rows
    int lastIndex = 0;       // last known index among the parent's children

    int childIndex(Row *child) const
    {
        if (children.value(child->lastIndex) != child)
            renumber();
        return child->lastIndex;
    }

    /// A node's index among the existing children, of which it may be one.
    int insertionIndex(const VxNode *child, bool isIn = false) const
    {
        return qBound(0, child->getSiblingIndex(), int(children.size()) - (isIn ? 1 : 0));
    }

private:
    void renumber() const
    {
        for (int i = 0; i < children.size(); ++i)
            children.at(i)->lastIndex = i;
    }
};

SceneTreeModel::SceneTreeModel(VxScene *scene, QObject *parent)
    : QAbstractItemModel(parent)
    , m_scene(scene)
    , m_root(std::make_unique<Row>())
{
    connect(scene, &VxScene::nodeAdded, this, &SceneTreeModel::addNode);
    connect(scene, &VxScene::aboutToRemoveNode, this, &SceneTreeModel::removeNode);
    connect(scene, &VxScene::nodeParentChanged, this,
            [this](VxNode *node, VxNode *, VxNode *newParent) { moveRow(node, newParent); });
    connect(scene, &VxScene::nodeOrderChanged, this,
            [this](VxNode *node) { moveRow(node, node->getNodeParent()); });
    connect(scene, &VxScene::nodeVisibleChanged, this,
            [this](const VxNode *node) { refreshVisibility(node); });
    connect(scene, &VxScene::sceneLoaded, this, &SceneTreeModel::rebuild);
    connect(scene, &VxScene::sceneClearStarting, this, &SceneTreeModel::dropAll);
    rebuild();
}

SceneTreeModel::~SceneTreeModel()
{
    qDeleteAll(m_rows);
}

SceneTreeModel::Row *SceneTreeModel::rowOf(const VxNode *node) const
{
    return node ? m_rows.value(node) : m_root.get();
}

void SceneTreeModel::insert(VxNode *node, Row *parent, int at)
{
    auto *row = new Row;
    row->node = node;
    row->parent = parent;
    row->icon = node->getIcon();
    row->lastIndex = at;
    parent->children.insert(at, row);
    m_rows.insert(node, row);
    connect(node, &VxElement::labelChanged, this, [this, node] { refresh(node); });
}

void SceneTreeModel::destroy(const QVector<Row *> &tops)
{
    QVector<Row *> open = tops;
    while (!open.isEmpty()) {
        const Row *row = open.takeLast();
        open += row->children;
        disconnect(row->node, nullptr, this, nullptr);
        m_rows.remove(row->node);
        delete row;
    }
}

const SceneTreeModel::Row *SceneTreeModel::rowAt(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<const Row *>(index.internalPointer()) : m_root.get();
}

VxNode *SceneTreeModel::nodeAt(const QModelIndex &index) const
{
    return index.model() == this ? rowAt(index)->node : nullptr;
}

QModelIndex SceneTreeModel::indexOf(const VxNode *node) const
{
    Row *row = node ? m_rows.value(node) : nullptr;
    return row ? createIndex(row->parent->childIndex(row), 0, row) : QModelIndex();
}

QModelIndex SceneTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    const Row *above = rowAt(parent);
    if (parent.column() > 0 || column < 0 || column >= NumColumns || row < 0 ||
        row >= int(above->children.size()))
        return QModelIndex();
    return createIndex(row, column, above->children.at(row));
}

QModelIndex SceneTreeModel::parent(const QModelIndex &index) const
{
    Row *above = rowAt(index)->parent;
    return above && above->parent ? createIndex(above->parent->childIndex(above), 0, above)
                                  : QModelIndex();
}

int SceneTreeModel::rowCount(const QModelIndex &parent) const
{
    const Row *above = rowAt(parent);
    return parent.column() > 0 ? 0 : int(above->children.size());
}

QVector<VxNode *> SceneTreeModel::nodesAt(const QModelIndexList &indexes) const
{
    QVector<VxNode *> nodes;
    for (const QModelIndex &index : indexes) {
        VxNode *node = index.column() == NameColumn ? nodeAt(index) : nullptr;
        if (node)
            nodes.append(node);
    }
    return nodes;
}

QVariant SceneTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const Row *row = rowAt(index);
    return index.column() == EyeColumn ? eyeData(row->node, role)
                                       : nameData(row->node, row->icon, role);
}

QVariant SceneTreeModel::nameData(const VxNode *node, const QIcon &icon, int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return node->getLabel();
    case Qt::ToolTipRole:
        return vxToolTipText(node->getLabel());
    case Qt::DecorationRole:
        return icon;
    case Qt::ForegroundRole:
        return VxNodeHelper::isShown(node)
                   ? QVariant()
                   : QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    default:
        return QVariant();
    }
}

QString SceneTreeModel::eyeTip(const VxNode *node)
{
    const VxNode *above = VxNodeHelper::getHiddenAncestor(node);
    const QString tip =
        node->isVisible() ? tr("Visible: click to hide") : tr("Hidden: click to show");
    return above ? tip + QLatin1Char('\n') +
                       tr("Not visible because \"%1\" is hidden").arg(above->getLabel())
                 : tip;
}

QVariant SceneTreeModel::eyeData(const VxNode *node, int role)
{
    switch (role) {
    case Qt::CheckStateRole:
        return node->isVisible() ? Qt::Checked : Qt::Unchecked;
    case ShownRole:
        return VxNodeHelper::isShown(node);
    case Qt::ToolTipRole:
        return vxToolTipText(eyeTip(node));
    case Qt::AccessibleTextRole:
        return !node->isVisible()            ? tr("hidden")
               : VxNodeHelper::isShown(node) ? tr("visible")
                                             : tr("visible, but inside a hidden node");
    default:
        return QVariant();
    }
}

bool SceneTreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    VxNode *node = nodeAt(index);
    if (!node)
        return false;
    if (index.column() == NameColumn && role == Qt::EditRole)
        return SceneEdits::rename(node, value.toString());
    if (index.column() == EyeColumn && role == Qt::CheckStateRole)
        return SceneEdits::setVisible({node}, value.toInt() == Qt::Checked);
    return false;
}

Qt::ItemFlags SceneTreeModel::flags(const QModelIndex &index) const
{
    // A drop beside all rows is on the top level.
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    const Qt::ItemFlags all =
        Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    return all | (index.column() == EyeColumn ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

QStringList SceneTreeModel::mimeTypes() const
{
    return {DraggedNodes::mimeType()};
}

QMimeData *SceneTreeModel::mimeData(const QModelIndexList &indexes) const
{
    return new DraggedNodes(nodesAt(indexes));
}

bool SceneTreeModel::canDropMimeData(const QMimeData *data, Qt::DropAction action, int, int,
                                     const QModelIndex &parent) const
{
    const auto *dragged = qobject_cast<const DraggedNodes *>(data);
    return dragged && action == Qt::MoveAction &&
           SceneEdits::canMove(dragged->nodes(m_scene), nodeAt(parent));
}

bool SceneTreeModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                  const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    const auto *dragged = qobject_cast<const DraggedNodes *>(data);
    QVector<VxNode *> left;
    const bool done =
        SceneEdits::move(m_scene, dragged->nodes(m_scene), nodeAt(parent), row, m_dropKeeps, &left);
    if (done && !left.isEmpty())
        Q_EMIT displaced(left);
    return done;
}

void SceneTreeModel::rebuild()
{
    beginResetModel();
    destroy(std::exchange(m_root->children, {}));
    // Parents precede their children, siblings are in their order.
    for (VxNode *node : m_scene->getNodes()) {
        Row *parent = rowOf(node->getNodeParent());
        insert(node, parent, int(parent->children.size()));
    }
    endResetModel();
}

void SceneTreeModel::dropAll()
{
    beginResetModel();
    destroy(std::exchange(m_root->children, {}));
    endResetModel();
}

void SceneTreeModel::addNode(VxNode *node)
{
    if (m_scene->isLoading())
        return;
    // Another receiver of the signal may have removed the node, or added nodes below it that were
    // reported before it.
    QVector<VxNode *> nodes{node};
    node->getNodeChildren(nodes, true);
    for (VxNode *added : qAsConst(nodes)) {
        Row *parent = rowOf(added->getNodeParent());
        if (added->getScene() != m_scene || !parent || m_rows.contains(added))
            continue;
        const int at = parent->insertionIndex(added);
        beginInsertRows(indexOf(parent->node), at, at);
        insert(added, parent, at);
        endInsertRows();
    }
}

void SceneTreeModel::removeNode(VxNode *node)
{
    Row *row = m_rows.value(node);
    if (!row)
        return;
    Row *parent = row->parent;
    const int at = parent->childIndex(row);
    beginRemoveRows(indexOf(parent->node), at, at);
    parent->children.remove(at);
    destroy({row});
    endRemoveRows();
}

void SceneTreeModel::moveRow(VxNode *node, VxNode *newParent)
{
    Row *row = m_rows.value(node);
    Row *target = rowOf(newParent);
    if (!row || !target)
        return;
    Row *source = row->parent;
    const int from = source->childIndex(row);
    int to = target->insertionIndex(node, source == target);
    // Views require the target index before the row is taken out.
    if (source == target && to > from)
        ++to;
    if (!beginMoveRows(indexOf(source->node), from, from, indexOf(target->node), to))
        return;
    source->children.remove(from);
    row->parent = target;
    if (source == target && to > from)
        --to;
    target->children.insert(to, row);
    endMoveRows();
}

void SceneTreeModel::refresh(const VxNode *node)
{
    const QModelIndex index = indexOf(node);
    if (index.isValid())
        Q_EMIT dataChanged(index, index.siblingAtColumn(EyeColumn));
}

/** The shown state changes for descendants, down to those that are hidden themselves.
 */
void SceneTreeModel::refreshVisibility(const VxNode *node)
{
    refresh(node);
    const VxNode *above = node->getNodeParent();
    if (above && !VxNodeHelper::isShown(above))
        return;
    QModelIndexList open{indexOf(node)};
    while (!open.isEmpty()) {
        const QModelIndex parent = open.takeLast();
        const int count = parent.isValid() ? rowCount(parent) : 0;
        if (count > 0)
            Q_EMIT dataChanged(index(0, NameColumn, parent), index(count - 1, EyeColumn, parent));
        for (int i = 0; i < count; ++i) {
            const QModelIndex child = index(i, NameColumn, parent);
            if (nodeAt(child)->isVisible())
                open.append(child);
        }
    }
}

#include "scenetreemodel.moc"
