#ifndef VXDOPESHEETMODEL_P_H
#define VXDOPESHEETMODEL_P_H

#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QPointer>
#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QVector>
#include <vxcore/vxnode.h>

/// The state of the model, for its sources.
class VxDopeSheetModel::Private final : public DopeSheetRowMaker
{
public:
    explicit Private(VxDopeSheetModel *model)
        : q(model)
    {
    }

    VxDopeSheetModel *q;
    VxDopeSheetItem root;
    /// By the node as a QObject: during its destruction it is no longer a VxNode.
    QMap<const QObject *, VxDopeSheetItem *> rows;
    /// The created property rows by property; rebuilt after rows were removed and after
    /// VxProperty::latestHolderRevision() changed.
    QHash<const VxProperty *, VxDopeSheetItem *> propertyRows;
    bool propertyRowsValid = false;
    quint64 holderRevision = 0;
    /// The same rows by the holders of their keys.
    QHash<const VxProperty *, QVector<VxDopeSheetItem *>> holderRows;
    bool holderRowsValid = false;
    int propertyTypes = 0;
    int keyCreationScope = 2;
    bool namesChangedPending = false;
    bool isResetting = false; // rows are added and moved without signals
    /// The number of rows added or removed in this event loop iteration, and the sum over them of
    /// the number of nodes that had rows.
    int changes = 0;
    qint64 changedAmong = 0;
    bool isChangingMany = false;
    QRegExp searchedPattern; // the last one
    bool isPropertiesMatch = false;
    bool isDefaultRowMatch = false; // of a row below "Properties"
    QPointer<const QSortFilterProxyModel> nameFilter;
    QVector<bool> openResets; // for each change that has begun, whether it is a reset
    /// Nodes whose property rows are updated in the next event loop iteration.
    QVector<QPointer<VxNode>> nodesToUpdate;

    /// Below a node's row, "Properties", and the others below that.
    void makeRows(VxDopeSheetItem *row) override;
    /// Without a property or an object of its own the node has the default controls alone, so that
    /// the names of its property rows are predictable.
    static bool isPlain(const VxNode *node);
    /// Whether the pattern matches the name of such a row.
    void searchDefaultRows(const QRegExp &pattern);
    /// Announce that one row is added below another, or removed, and that this is done.
    void beginInsert(const VxDopeSheetItem *above, int row);
    void endInsert();
    void beginRemove(const VxDopeSheetItem *item);
    void endRemove();
    /// Counts a change; true when it is one of many.
    bool isOneOfMany();
    void updatePropertyIndex();
    /// Removes the nodes of a row and of all below from the table and drops their connections.
    void disconnectRows(VxDopeSheetItem *item, const QObject *destroyedNode);

    /// Null for a node without a row at the top level.
    VxDopeSheetItem *topLevelItem(VxNode *node) const
    {
        VxDopeSheetItem *item = rows.value(node, nullptr);
        return item && item->parentItem() == &root ? item : nullptr;
    }
};

#endif
