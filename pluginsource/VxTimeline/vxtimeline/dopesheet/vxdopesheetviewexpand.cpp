// Opening and closing the rows below the context item or the current row.

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/dopesheetwalk.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

namespace {

// Opens or closes a row and the rows below it that isIncluded(item) accepts. Until the next layout,
// each is only a set insertion or removal.
template <typename IsIncluded>
void setOpenBelow(VxDopeSheetView *view, const QModelIndex &top, bool open,
                  const IsIncluded &isIncluded)
{
    if (!top.isValid())
        return;
    view->scheduleDelayedItemsLayout();
    const auto apply = [&](const QModelIndex &row) {
        const VxDopeSheetItem *item = view->getItem(row);
        if (item && row.model()->hasChildren(row) && isIncluded(item))
            view->setExpanded(row, open);
        // Rows not yet created are closed.
        return item && (open || !item->hasRowsToMake());
    };
    if (apply(top))
        DopeSheetWalk::visitBelow(top.model(), top, apply);
}

bool isAny(const VxDopeSheetItem *)
{
    return true;
}

} // namespace

// The second call includes everything below.
void VxDopeSheetView::setOpen(const QModelIndex &index, bool open)
{
    if (!index.isValid() || !model()->hasChildren(index))
        return;
    const QModelIndex row = index.sibling(index.row(), NameColumn);
    if (isExpanded(row) == open)
        setOpenBelow(this, row, open, isAny);
    else
        setExpanded(row, open);
}

void VxDopeSheetView::expandContextItem()
{
    if (hasContextItem())
        expand(getContextIndex());
}

void VxDopeSheetView::expandFromContextItem()
{
    setOpenBelow(this, getContextIndex(), true, isAny);
}

void VxDopeSheetView::expandKeyedFromContextItem()
{
    setOpenBelow(this, getContextIndex(), true,
                 [](const VxDopeSheetItem *item) { return item->hasKeys(); });
}

QItemSelection VxDopeSheetView::openKeyedProperties(VxNode *node)
{
    QItemSelection rows;
    const QModelIndex top = findNodeIndex(node);
    if (!top.isValid())
        return rows;
    const auto isKeyed = [node](const VxDopeSheetItem *item) {
        return item->ownerNode() == node && item->hasKeys();
    };
    setOpenBelow(this, top, true, isKeyed);
    DopeSheetWalk::visitBelow(model(), top, [&](const QModelIndex &row) {
        const VxDopeSheetItem *item = getItem(row);
        if (item && item->property() && isKeyed(item))
            rows.select(row, row);
        return item && item->ownerNode() == node;
    });
    return rows;
}

void VxDopeSheetView::collapseContextItem()
{
    if (hasContextItem())
        collapse(getContextIndex());
}

void VxDopeSheetView::collapseFromContextItem()
{
    setOpenBelow(this, getContextIndex(), false, isAny);
}

void VxDopeSheetView::collapseNonKeyedFromContextItem()
{
    setOpenBelow(this, getContextIndex(), false,
                 [](const VxDopeSheetItem *item) { return !item->hasKeys(); });
}
