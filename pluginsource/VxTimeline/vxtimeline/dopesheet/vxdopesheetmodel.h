#ifndef VXDOPESHEETMODEL_H
#define VXDOPESHEETMODEL_H

#include <QtCore/QAbstractItemModel>
#include <QtCore/QVector>
#include <memory>

class VxDopeSheetItem;
class VxNode;
class VxObject;

// The tree of rows behind the dope sheet as an item model of two columns, name and keys.
//
// The model follows the scene for the nodes it has been given: it makes a node's rows, moves them
// when the node gets another parent, and takes them away. Which nodes those are is the pane's
// decision. What property types are listed is settled when rows are made: another choice needs
// another model.
//
// Rows report changes of keys in the thousands, so every report is told in one way that costs no
// more than the rows at the top level: views show all that is below anew.
class VxDopeSheetModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Column { NameColumn = 0, KeysColumn = 1, NumColumns = 2 };

    // propertyTypes: bits of DopeSheetPropertyTypes. keyCreationScope: a number of
    // VxTimePane::KeyScope.
    VxDopeSheetModel(int propertyTypes, int keyCreationScope, QObject *parent);
    ~VxDopeSheetModel() override;

    int getPropertyTypes() const;
    int getKeyCreationScope() const;
    bool hasSelectedKeys() const;

    // Above all rows; owned by the model.
    VxDopeSheetItem *getRootItem() const;
    // The item of an index, the root item for an invalid one.
    VxDopeSheetItem *getItem(const QModelIndex &index) const;
    // The row of a node; null when it has none.
    VxDopeSheetItem *findItem(VxNode *node) const;
    // Invalid for null and for the root item.
    QModelIndex indexOf(const VxDopeSheetItem *item, int column = NameColumn) const;
    // The nodes of the rows at the top level, in their order.
    QVector<VxNode *> getTopLevelNodes() const;

    // Change the place of a row at the top level; a node that has none there is ignored.
    void moveRootRowToTop(VxNode *node);
    void moveRootRowUp(VxNode *node);
    void moveRootRowDown(VxNode *node);
    void moveRootRowToBottom(VxNode *node);

    using QObject::parent;
    QModelIndex index(int row, int column,
                      const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    // The same for all columns of a row.
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    // What is below a row is found from its first column: a view that followed the other column,
    // too, would meet the same rows twice.
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    // Display and decoration for column 0; the VxDopeSheetItem * under Qt::UserRole for both.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    // Rows came, went or moved, or have other names: what searches names should do so again. Sent
    // once for all that happens in one turn of the event loop.
    void namesChanged();

public Q_SLOTS:
    // Adds the rows of a node, after those of its ancestors that are missing, as the last ones of
    // its parent; with addChildren those of the nodes below it too. Null and a node that has a
    // row are ignored.
    void addNode(VxNode *node, bool addChildren);
    void addNode(VxNode *node);
    void removeNode(VxNode *node);
    void parentChanged(VxNode *node, VxNode *oldParent, VxNode *newParent);
    void objectChanged(VxNode *node, VxObject *oldObject, VxObject *newObject);
    // Puts a node's row behind that of the nearest sibling before it in the scene that has one.
    void followOrder(VxNode *node);
    // Properties of a node came or went. Rows of those that went are gone at once; what came gets
    // its rows in the next turn of the event loop. Rows of all others stay.
    void propertiesChanged(VxNode *node);
    // Tells the views that anything may have changed.
    void keysChanged();

private:
    void handleNameChanged();
    void tellNamesChanged();
    // For a node that is gone without having been removed: only its address is used.
    void forgetNode(QObject *node);
    void addPropertyRows(VxNode *node, VxDopeSheetItem *item);
    void renewPropertyRows(VxNode *node, VxObject *oldObject, VxObject *newObject);
    QVariant decoration(const VxDopeSheetItem *item) const;
    void moveRootRow(int from, int to);
    void moveRow(VxDopeSheetItem *item, int destination);
    void removeRow(VxDopeSheetItem *item);
    void insertRow(VxDopeSheetItem *above, int row, VxDopeSheetItem *item);
    void updateWaitingRows();
    void updatePropertyRows(VxNode *node, VxDopeSheetItem *item);
    void mergeRows(VxDopeSheetItem *present, VxDopeSheetItem *wanted);
    class Private;
    std::unique_ptr<Private> d;
};

#endif
