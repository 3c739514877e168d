#ifndef SCENETREEMODEL_H
#define SCENETREEMODEL_H

#include "scenetree/sceneedits.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QVector>
#include <memory>

class QIcon;
class VxNode;
class VxScene;

/// The scene's nodes as a tree: names with icons, and for each an eye for the node's visibility.
///
/// Names can be edited, eyes checked, and rows dragged; each edit changes the scene with one undo
/// entry, and the model updates from the scene's signals.
///
/// The model keeps a small tree beside the scene's: a row can then be removed while the scene is
/// already rearranging its nodes, and a node's row is found without a walk. While a scene is being
/// loaded it is not updated, and is rebuilt at the end.
class SceneTreeModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Column { NameColumn, EyeColumn, NumColumns };
    /// Of an eye: whether views show the node, because all its ancestors are visible, too.
    enum Role { ShownRole = Qt::UserRole };

    /// The scene must outlive the model.
    explicit SceneTreeModel(VxScene *scene, QObject *parent = nullptr);
    ~SceneTreeModel() override;

    /// Null for an index that is not of this model.
    VxNode *nodeAt(const QModelIndex &index) const;
    /// Invalid for a node without a row.
    QModelIndex indexOf(const VxNode *node) const;
    /// The nodes of the rows of a list, each once, in the list's order.
    QVector<VxNode *> nodesAt(const QModelIndexList &indexes) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex & = {}) const override { return NumColumns; }
    /// Names: display, edit, decoration, tool tip; dimmed for nodes that are hidden or have a
    /// hidden ancestor. Eyes: check state for the node alone, ShownRole and tool tip.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    /// The invariant of drops from now on; initially the world transform.
    void setDropKeeps(SceneEdits::Kept kept) { m_dropKeeps = kept; }
    /// row -1: behind the last row below the parent.
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

Q_SIGNALS:
    /// The nodes were dropped, but their world transform changed.
    void displaced(const QVector<VxNode *> &nodes);

private:
    static QVariant nameData(const VxNode *node, const QIcon &icon, int role);
    static QString eyeTip(const VxNode *node);
    static QVariant eyeData(const VxNode *node, int role);
    void rebuild();
    void dropAll();
    void addNode(VxNode *node);
    void removeNode(VxNode *node);
    void refresh(const VxNode *node);
    void refreshVisibility(const VxNode *node);
    void moveRow(VxNode *node, VxNode *newParent);

    struct Row;

    Row *rowOf(const VxNode *node) const;
    /// The invisible root for an invalid index.
    const Row *rowAt(const QModelIndex &index) const;
    void insert(VxNode *node, Row *parent, int at);
    /// Destroys detached rows with all below them.
    void destroy(const QVector<Row *> &tops);

    VxScene *const m_scene;
    std::unique_ptr<Row> m_root;
    QHash<const VxNode *, Row *> m_rows;
    SceneEdits::Kept m_dropKeeps = SceneEdits::Kept::WorldPlace;
};

#endif
