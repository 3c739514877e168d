#ifndef SCENETREEMODEL_H
#define SCENETREEMODEL_H

#include <QAbstractItemModel>
#include <memory>

class VxNode;
class VxScene;

/// The scene's nodes as a tree of one column, with their icons.
///
/// The model keeps a small tree of its own beside the scene's: a row can then be taken away while
/// the scene is already rearranging its nodes, and a node's row is found without a walk. While a
/// scene is being loaded it holds still and is made anew at the end.
class SceneTreeModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    /// The scene must outlive the model.
    explicit SceneTreeModel(VxScene *scene, QObject *parent = nullptr);
    ~SceneTreeModel() override;

    /// Null for an index that is none of this model.
    VxNode *nodeAt(const QModelIndex &index) const;
    /// Invalid for a node that the model does not show.
    QModelIndex indexOf(const VxNode *node) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    void rebuild();
    void dropAll();
    void addNode(VxNode *node);
    void removeNode(VxNode *node);
    void moveNode(VxNode *node, VxNode *newParent);
    void refreshLabel(const VxNode *node);

    class Private;
    std::unique_ptr<Private> d;
};

#endif
