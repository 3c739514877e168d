#ifndef VXDOPESHEETMODEL_H
#define VXDOPESHEETMODEL_H

#include <QtCore/QAbstractItemModel>
#include <QtCore/QVector>
#include <functional>
#include <memory>

class VxDopeSheetItem;
class QSortFilterProxyModel;
class VxNode;
class VxObject;
class VxProperty;

/// The tree of rows behind the dope sheet as an item model of two columns, name and keys.
///
/// The model follows the scene for the nodes that the pane adds: it creates a node's rows, moves
/// them when the node gets another parent, and removes them. The property rows of a node that has
/// nothing but its default controls are created on demand; a text filter matches their names
/// without creating them. The listed property types are fixed at construction: other types need
/// another model.
///
/// Thousands of rows may report changes of keys, so every report becomes the same dataChanged()
/// over the root rows, and views repaint everything.
class VxDopeSheetModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Column { NameColumn = 0, KeysColumn = 1, NumColumns = 2 };

    /// propertyTypes: bits of TimelinePropertyTypes. keyCreationScope: a number of
    /// VxTimePane::KeyScope.
    VxDopeSheetModel(int propertyTypes, int keyCreationScope, QObject *parent);
    ~VxDopeSheetModel() override;

    int getPropertyTypes() const;
    int getKeyCreationScope() const;
    bool hasSelectedKeys() const;

    /// The invisible root; owned by the model.
    VxDopeSheetItem *getRootItem() const;
    /// The item of an index, the root item for an invalid one.
    VxDopeSheetItem *getItem(const QModelIndex &index) const;
    /// The row of a node; null when it has none.
    VxDopeSheetItem *findItem(VxNode *node) const;
    /// The row of a property, whether the filter shows it or not; null when it has none. The
    /// property may be deleted already.
    VxDopeSheetItem *findPropertyItem(const VxProperty *property) const;
    /// The rows that show the keys of a holder: its own, and those of its aliases.
    QVector<VxDopeSheetItem *> findHolderItems(const VxProperty *holder) const;
    /// Invalid for null and for the root item.
    QModelIndex indexOf(const VxDopeSheetItem *item, int column = NameColumn) const;
    /// The nodes of the rows at the top level, in their order.
    QVector<VxNode *> getTopLevelNodes() const;

    /// While this filter has a pattern, rows not yet created are left out if it matches none of
    /// their names. Not owned; null for no filter.
    void setNameFilter(const QSortFilterProxyModel *filter);
    /// What a pattern matches among the names of the rows below a row that are not yet created.
    enum RowsToMake {
        NoRowsToMake, // all rows are created, or their names are not predictable
        SomeMatch,
        NoneMatches
    };
    RowsToMake matchRowsToMake(const VxDopeSheetItem *item, const QRegExp &pattern) const;

    /// Calls change(), which may add and move rows but remove none, as one reset of the model: a
    /// filter model takes time for each added row in proportion to its existing rows.
    void resetDuring(const std::function<void()> &change);

    /// Ends a series of many changes now rather than at the end of this event loop iteration.
    void endManyChanges() const;

    /// Move a root row; a node without one is ignored.
    void moveRootRowToTop(VxNode *node);
    void moveRootRowUp(VxNode *node);
    void moveRootRowDown(VxNode *node);
    void moveRootRowToBottom(VxNode *node);

    using QObject::parent;
    QModelIndex index(int row, int column,
                      const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    /// The same for all columns of a row. Creates the rows below that are not yet created, unless
    /// the name filter leaves them out.
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    /// Only in the first column: a view that followed the other column as well would list rows
    /// twice.
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    /// True for a row below which the rows are not yet created, unless the name filter leaves them
    /// out; rowCount() creates them, too.
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;
    /// Display and decoration for column 0; the VxDopeSheetItem * under Qt::UserRole for both.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /// Rows were added, removed, moved or renamed: a search in names should be repeated. Sent once
    /// for all changes of one event loop iteration.
    void namesChanged();
    /// Many rows are added or removed one by one in one iteration of the event loop. Between the
    /// two signals each change is a reset of the model: a filter model takes time for a single row
    /// in proportion to all rows, and every model does for all rows that views have open or
    /// selected. Views are to close and deselect all rows, and to open and select them again
    /// afterwards.
    void manyChangesStarting();
    void manyChangesFinished();

public Q_SLOTS:
    /// Adds the rows of a node, after those of its ancestors that are missing, as the last ones of
    /// its parent; with addChildren those of the nodes below it too. Null and a node that has a
    /// row are ignored.
    void addNode(VxNode *node, bool addChildren);
    void addNode(VxNode *node) { addNode(node, false); }
    void removeNode(VxNode *node);
    void parentChanged(VxNode *node, VxNode *oldParent, VxNode *newParent);
    void objectChanged(VxNode *node, VxObject *oldObject, VxObject *newObject);
    /// Moves a node's row behind that of the nearest sibling before it in the scene that has one.
    void followOrder(VxNode *node);
    /// Properties of a node were added or removed. Rows of removed ones are removed at once; new
    /// ones get their rows in the next event loop iteration. All other rows stay.
    void propertiesChanged(VxNode *node);
    /// Lets views repaint everything.
    void keysChanged();

private:
    void handleNameChanged();
    void handleLabelChanged();
    void handleNodeValuesChanged(VxNode *node);
    /// For a node that is destroyed without having been removed: only its address is used.
    void removeDestroyedNode(QObject *node);
    bool canMakeRowsLater(const VxNode *node) const;
    bool leavesOutRowsBelow(const VxDopeSheetItem *item) const;
    void followRows(const QVector<VxDopeSheetItem *> &propertyRows);
    void addRow(VxNode *node);
    /// With all below it; destroyedNode: the row's node when it is being destroyed, else null.
    void removeNodeRow(VxDopeSheetItem *item, const QObject *destroyedNode);
    void addPropertyRows(VxNode *node, VxDopeSheetItem *item);
    QVariant decoration(const VxDopeSheetItem *item) const;
    void moveRow(VxDopeSheetItem *item, int destination);
    void removeRow(VxDopeSheetItem *item);
    void destroyRow(VxDopeSheetItem *item);
    void insertRow(VxDopeSheetItem *above, int row, VxDopeSheetItem *item);
    void updateRowsLater(VxNode *node);
    void updatePendingRows();
    void updatePropertyRows(VxNode *node, VxDopeSheetItem *item);
    /// The parent of a node's property rows; null for a node without any.
    static VxDopeSheetItem *propertiesRow(const VxDopeSheetItem *nodeRow);
    static bool hasPropertyRowsToMake(const VxDopeSheetItem *nodeRow);
    void mergeRows(VxDopeSheetItem *present, VxDopeSheetItem *wanted);
    class Private;
    std::unique_ptr<Private> d;
};

#endif
