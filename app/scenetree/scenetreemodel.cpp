#include "scenetree/scenetreemodel.h"

#include <QGuiApplication>
#include <QHash>
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
    {
        for (VxNode *node : nodes)
            m_nodes.append(node);
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

struct Row
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

private:
    void renumber() const
    {
        for (int i = 0; i < children.size(); ++i)
            children.at(i)->lastIndex = i;
    }
};

} // namespace

class SceneTreeModel::Private
{
public:
    VxScene *scene;
    Row root;
    QHash<const VxNode *, Row *> rows;
    SceneEdits::Kept dropKeeps = SceneEdits::Kept::WorldPlace;

    Row *rowOf(const VxNode *node) { return node ? rows.value(node) : &root; }

    /// A node's index among the existing rows, of which it may be one.
    static int place(const VxNode *node, const Row *parent, bool isIn = false)
    {
        const int others = int(parent->children.size()) - (isIn ? 1 : 0);
        return qBound(0, node->getSiblingIndex(), others);
    }

    Row *insert(SceneTreeModel *q, VxNode *node, Row *parent, int at)
    {
        auto *row = new Row;
        row->node = node;
        row->parent = parent;
        row->icon = node->getIcon();
        row->lastIndex = at;
        parent->children.insert(at, row);
        rows.insert(node, row);
        QObject::connect(node, &VxElement::labelChanged, q, [q, node] { q->refresh(node); });
        return row;
    }

    /// Destroys detached rows with all below them.
    void destroy(SceneTreeModel *q, const QVector<Row *> &tops)
    {
        QVector<Row *> open = tops;
        while (!open.isEmpty()) {
            const Row *row = open.takeLast();
            open += row->children;
            QObject::disconnect(row->node, nullptr, q, nullptr);
            rows.remove(row->node);
            delete row;
        }
    }
};

SceneTreeModel::SceneTreeModel(VxScene *scene, QObject *parent)
    : QAbstractItemModel(parent)
    , d(new Private{scene, {}, {}, SceneEdits::Kept::WorldPlace})
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
    qDeleteAll(d->rows);
}

VxNode *SceneTreeModel::nodeAt(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != this)
        return nullptr;
    return static_cast<const Row *>(index.internalPointer())->node;
}

QModelIndex SceneTreeModel::indexOf(const VxNode *node) const
{
    Row *row = node ? d->rows.value(node) : nullptr;
    return row ? createIndex(row->parent->childIndex(row), 0, row) : QModelIndex();
}

QModelIndex SceneTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    const Row *above =
        parent.isValid() ? static_cast<const Row *>(parent.internalPointer()) : &d->root;
    if (parent.column() > 0 || column < 0 || column >= NumColumns || row < 0 ||
        row >= int(above->children.size()))
        return QModelIndex();
    return createIndex(row, column, above->children.at(row));
}

QModelIndex SceneTreeModel::parent(const QModelIndex &index) const
{
    if (!index.isValid())
        return QModelIndex();
    Row *above = static_cast<const Row *>(index.internalPointer())->parent;
    return above == &d->root ? QModelIndex()
                             : createIndex(above->parent->childIndex(above), 0, above);
}

int SceneTreeModel::rowCount(const QModelIndex &parent) const
{
    const Row *above =
        parent.isValid() ? static_cast<const Row *>(parent.internalPointer()) : &d->root;
    return parent.column() > 0 ? 0 : int(above->children.size());
}

int SceneTreeModel::columnCount(const QModelIndex &) const
{
    return NumColumns;
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
    const Row *row = static_cast<const Row *>(index.internalPointer());
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

Qt::DropActions SceneTreeModel::supportedDropActions() const
{
    return Qt::MoveAction;
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
           SceneEdits::canMove(dragged->nodes(d->scene), nodeAt(parent));
}

bool SceneTreeModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                  const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    const auto *dragged = qobject_cast<const DraggedNodes *>(data);
    QVector<VxNode *> left;
    const bool done = SceneEdits::move(d->scene, dragged->nodes(d->scene), nodeAt(parent), row,
                                       d->dropKeeps, &left);
    if (done && !left.isEmpty())
        Q_EMIT displaced(left);
    return done;
}

void SceneTreeModel::setDropKeeps(SceneEdits::Kept kept)
{
    d->dropKeeps = kept;
}

void SceneTreeModel::rebuild()
{
    beginResetModel();
    d->destroy(this, std::exchange(d->root.children, {}));
    // Parents precede their children, siblings are in their order.
    for (VxNode *node : d->scene->getNodes()) {
        Row *parent = d->rowOf(node->getNodeParent());
        d->insert(this, node, parent, int(parent->children.size()));
    }
    endResetModel();
}

void SceneTreeModel::dropAll()
{
    beginResetModel();
    d->destroy(this, std::exchange(d->root.children, {}));
    endResetModel();
}

void SceneTreeModel::addNode(VxNode *node)
{
    if (d->scene->isLoading())
        return;
    // Another receiver of the signal may have removed the node, or added nodes below it that were
    // reported before it.
    QVector<VxNode *> nodes{node};
    node->getNodeChildren(nodes, true);
    for (VxNode *added : qAsConst(nodes)) {
        Row *parent = d->rowOf(added->getNodeParent());
        if (added->getScene() != d->scene || !parent || d->rows.contains(added))
            continue;
        const int at = Private::place(added, parent);
        beginInsertRows(indexOf(parent->node), at, at);
        d->insert(this, added, parent, at);
        endInsertRows();
    }
}

void SceneTreeModel::removeNode(VxNode *node)
{
    Row *row = d->rows.value(node);
    if (!row)
        return;
    Row *parent = row->parent;
    const int at = parent->childIndex(row);
    beginRemoveRows(indexOf(parent->node), at, at);
    parent->children.remove(at);
    d->destroy(this, {row});
    endRemoveRows();
}

void SceneTreeModel::moveRow(VxNode *node, VxNode *newParent)
{
    Row *row = d->rows.value(node);
    Row *target = d->rowOf(newParent);
    if (!row || !target)
        return;
    Row *source = row->parent;
    const int from = source->childIndex(row);
    int to = Private::place(node, target, source == target);
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
