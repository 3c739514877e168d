#include "scenetreemodel.h"

#include <QHash>
#include <QIcon>
#include <vector>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

struct Row
{
    VxNode *node = nullptr; // null for the invisible root
    Row *parent = nullptr;
    QIcon icon;
    std::vector<std::unique_ptr<Row>> children;

    int childIndex(const Row *child) const
    {
        for (size_t i = 0; i < children.size(); ++i) {
            if (children[i].get() == child)
                return int(i);
        }
        return -1;
    }
};

} // namespace

class SceneTreeModel::Private
{
public:
    VxScene *scene;
    Row root;
    QHash<const VxNode *, Row *> rows;

    Row *rowOf(const VxNode *node) { return node ? rows.value(node) : &root; }

    /// Where a node belongs among the rows that are there already.
    static int place(const VxNode *node, const Row *parent)
    {
        return qBound(0, node->getSiblingIndex(), int(parent->children.size()));
    }

    Row *insert(SceneTreeModel *q, VxNode *node, Row *parent, int at)
    {
        auto owned = std::make_unique<Row>();
        Row *row = owned.get();
        row->node = node;
        row->parent = parent;
        row->icon = node->getIcon();
        parent->children.insert(parent->children.begin() + at, std::move(owned));
        rows.insert(node, row);
        QObject::connect(node, &VxElement::labelChanged, q, [q, node] { q->refreshLabel(node); });
        return row;
    }

    void forget(SceneTreeModel *q, const Row *row)
    {
        for (const auto &child : row->children)
            forget(q, child.get());
        QObject::disconnect(row->node, nullptr, q, nullptr);
        rows.remove(row->node);
    }
};

SceneTreeModel::SceneTreeModel(VxScene *scene, QObject *parent)
    : QAbstractItemModel(parent)
    , d(new Private{scene, {}, {}})
{
    connect(scene, &VxScene::nodeAdded, this, &SceneTreeModel::addNode);
    connect(scene, &VxScene::aboutToRemoveNode, this, &SceneTreeModel::removeNode);
    connect(scene, &VxScene::nodeParentChanged, this,
            [this](VxNode *node, VxNode *, VxNode *newParent) { moveNode(node, newParent); });
    connect(scene, &VxScene::sceneLoaded, this, &SceneTreeModel::rebuild);
    connect(scene, &VxScene::sceneClearStarting, this, &SceneTreeModel::dropAll);
    rebuild();
}

SceneTreeModel::~SceneTreeModel() = default;

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
    if (column != 0 || row < 0 || row >= int(above->children.size()))
        return QModelIndex();
    return createIndex(row, column, above->children[size_t(row)].get());
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
    return int(above->children.size());
}

int SceneTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant SceneTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const Row *row = static_cast<const Row *>(index.internalPointer());
    switch (role) {
    case Qt::DisplayRole:
        return row->node->getLabel();
    case Qt::DecorationRole:
        return row->icon;
    case Qt::ToolTipRole:
        return row->node->getLabel();
    default:
        return QVariant();
    }
}

void SceneTreeModel::rebuild()
{
    beginResetModel();
    for (const auto &child : d->root.children)
        d->forget(this, child.get());
    d->root.children.clear();
    // Parents come before their children, siblings in their order.
    for (VxNode *node : d->scene->getNodes()) {
        Row *parent = d->rowOf(node->getNodeParent());
        d->insert(this, node, parent, int(parent->children.size()));
    }
    endResetModel();
}

void SceneTreeModel::dropAll()
{
    beginResetModel();
    for (const auto &child : d->root.children)
        d->forget(this, child.get());
    d->root.children.clear();
    endResetModel();
}

void SceneTreeModel::addNode(VxNode *node)
{
    Row *parent = d->rowOf(node->getNodeParent());
    if (d->scene->isLoading() || !parent || d->rows.contains(node))
        return;
    const int at = Private::place(node, parent);
    beginInsertRows(indexOf(parent->node), at, at);
    d->insert(this, node, parent, at);
    endInsertRows();
}

void SceneTreeModel::removeNode(VxNode *node)
{
    Row *row = d->rows.value(node);
    if (!row)
        return;
    Row *parent = row->parent;
    const int at = parent->childIndex(row);
    beginRemoveRows(indexOf(parent->node), at, at);
    d->forget(this, row);
    parent->children.erase(parent->children.begin() + at);
    endRemoveRows();
}

void SceneTreeModel::moveNode(VxNode *node, VxNode *newParent)
{
    Row *row = d->rows.value(node);
    Row *target = d->rowOf(newParent);
    if (!row || !target || row->parent == target)
        return;
    Row *source = row->parent;
    const int from = source->childIndex(row);
    const int to = Private::place(node, target);
    if (!beginMoveRows(indexOf(source->node), from, from, indexOf(target->node), to))
        return;
    std::unique_ptr<Row> owned = std::move(source->children[size_t(from)]);
    source->children.erase(source->children.begin() + from);
    row->parent = target;
    target->children.insert(target->children.begin() + to, std::move(owned));
    endMoveRows();
}

void SceneTreeModel::refreshLabel(const VxNode *node)
{
    const QModelIndex index = indexOf(node);
    Q_EMIT dataChanged(index, index, {Qt::DisplayRole});
}
