#include "vxtimeline/rows/dopesheetrowname.h"

#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <vxcore/vxnode.h>
#include <vxcore/vxproperty.h>

namespace {

// The group below a row whose label begins the path, which it is removed from; null when there is
// none. A label can have several parts: the groups of transform controls are one row each.
VxDopeSheetItem *nextGroup(const VxDopeSheetItem *above, QString *path)
{
    for (int i = 0; i < above->childCount(); ++i) {
        VxDopeSheetItem *item = above->child(i);
        if (item->node() || item->property() || !path->startsWith(item->label()))
            continue;
        const int length = item->label().size();
        if (length < path->size() && path->at(length) != QLatin1Char('/'))
            continue;
        path->remove(0, length + 1);
        return item;
    }
    return nullptr;
}

} // namespace

DopeSheetRowName DopeSheetRowName::of(const VxDopeSheetItem *item)
{
    if (!item)
        return {};
    if (item->property())
        return {item->property(), QString()};
    QString group;
    while (item && !item->node()) {
        group.prepend(group.isEmpty() ? item->label() : item->label() + QLatin1Char('/'));
        item = item->parentItem();
    }
    return item ? DopeSheetRowName{item->node(), group} : DopeSheetRowName();
}

VxDopeSheetItem *DopeSheetRowName::find(const VxDopeSheetModel *model) const
{
    if (const auto *property = qobject_cast<VxProperty *>(object))
        return model->findPropertyItem(property);
    auto *node = qobject_cast<VxNode *>(object);
    VxDopeSheetItem *row = node ? model->findItem(node) : nullptr;
    QString path = group;
    while (row && !path.isEmpty())
        row = nextGroup(row, &path);
    return row;
}
