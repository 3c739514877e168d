#ifndef DOPESHEETWALK_H
#define DOPESHEETWALK_H

#include <QtCore/QAbstractItemModel>

// The one way through the rows of the dope sheet: from a row to another in the order in which they
// would be shown if all were open. Everything done to rows of keys goes this way.
namespace DopeSheetWalk {

// The row after a row, its children being the next ones; invalid after the last. Column 0.
inline QModelIndex next(const QModelIndex &index)
{
    const QAbstractItemModel *model = index.model();
    if (model->hasChildren(index)) {
        const QModelIndex child = model->index(0, 0, index);
        if (child.isValid())
            return child;
    }
    for (QModelIndex row = index; row.isValid(); row = row.parent()) {
        const QModelIndex sibling = row.sibling(row.row() + 1, 0);
        if (sibling.isValid())
            return sibling;
    }
    return QModelIndex();
}

// Visits everything below a row, not the row itself.
template <typename Visit> void below(const QModelIndex &index, const Visit &visit)
{
    const QAbstractItemModel *model = index.model();
    const int rows = model->rowCount(index);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex child = model->index(row, 0, index);
        visit(child);
        below(child, visit);
    }
}

// Visits the rows from start to end, both included. A closed end row stands for all that is below
// it, which is visited too; of an open one the children are not. An invalid start: nothing is
// visited. An end that is invalid or comes before start: all rows from start on are.
template <typename IsOpen, typename Visit>
void between(const QModelIndex &start, const QModelIndex &end, const IsOpen &isOpen,
             const Visit &visit)
{
    const QModelIndex last = end.isValid() ? end.sibling(end.row(), 0) : end;
    for (QModelIndex row = start.isValid() ? start.sibling(start.row(), 0) : start; row.isValid();
         row = next(row)) {
        visit(row);
        if (row == last) {
            if (!isOpen(row))
                below(row, visit);
            return;
        }
    }
}

// Visits every row.
template <typename Visit> void all(const QAbstractItemModel *model, const Visit &visit)
{
    const int rows = model ? model->rowCount() : 0;
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model->index(row, 0);
        visit(index);
        below(index, visit);
    }
}

} // namespace DopeSheetWalk

#endif
