// Opening and closing the rows below the context item.

#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

namespace {

// Visits a row and everything below it, parents first.
template <typename Visit> void visitRows(const QModelIndex &index, Visit visit)
{
    visit(index);
    const QAbstractItemModel *model = index.model();
    for (int row = 0; row < model->rowCount(index); ++row)
        visitRows(model->index(row, VxDopeSheetView::NameColumn, index), visit);
}

} // namespace

void VxDopeSheetView::expandContextItem()
{
    if (hasContextItem())
        expand(getContextIndex());
}

void VxDopeSheetView::expandFromContextItem()
{
    if (hasContextItem())
        expandRecursively(getContextIndex());
}

void VxDopeSheetView::expandKeyedFromContextItem()
{
    if (!hasContextItem())
        return;
    visitRows(getContextIndex(), [this](const QModelIndex &index) {
        const VxDopeSheetItem *item = getItem(index);
        if (item && item->hasKeys())
            expand(index);
    });
}

void VxDopeSheetView::collapseContextItem()
{
    if (hasContextItem())
        collapse(getContextIndex());
}

void VxDopeSheetView::collapseFromContextItem()
{
    if (hasContextItem())
        visitRows(getContextIndex(), [this](const QModelIndex &index) { collapse(index); });
}

void VxDopeSheetView::collapseNonKeyedFromContextItem()
{
    if (!hasContextItem())
        return;
    visitRows(getContextIndex(), [this](const QModelIndex &index) {
        const VxDopeSheetItem *item = getItem(index);
        if (item && !item->hasKeys())
            collapse(index);
    });
}
