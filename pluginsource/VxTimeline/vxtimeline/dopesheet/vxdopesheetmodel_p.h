#ifndef VXDOPESHEETMODEL_P_H
#define VXDOPESHEETMODEL_P_H

#include <QtCore/QMap>
#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <vxcore/vxnode.h>

#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetmodel.h"

// The state of the model, for its sources.
class VxDopeSheetModel::Private
{
public:
    VxDopeSheetItem root;
    // By the node as an object: one that is being destroyed is no node any more.
    QMap<const QObject *, VxDopeSheetItem *> rows;
    int propertyTypes = 0;
    int keyCreationScope = 2;
    bool willTellNames = false;
    // Nodes whose property rows are made up to date in the next turn of the event loop.
    QVector<QPointer<VxNode>> nodesToUpdate;

    // Takes the nodes of a row and of all below out of the table.
    void forgetRows(const VxDopeSheetItem *item)
    {
        if (item->node())
            rows.remove(item->node());
        for (int i = 0; i < item->childCount(); ++i)
            forgetRows(item->child(i));
    }

    int topLevelRow(VxNode *node) const
    {
        const VxDopeSheetItem *item = rows.value(node, nullptr);
        return item && item->parentItem() == &root ? item->row() : -1;
    }
};

#endif
