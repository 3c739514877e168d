#ifndef DOPESHEETWALK_H
#define DOPESHEETWALK_H

#include <QtCore/QAbstractItemModel>
#include <vector>

/// Iterates over the rows of the dope sheet in the order of a fully open tree. Hierarchies can be
/// chains of thousands of rows, so nothing here recurses. Rows are indexes of column 0.
namespace DopeSheetWalk {

/// Calls visit(row) for the rows below a parent (all rows for an invalid one); the rows below a row
/// follow when visit returned true for it. Leaf rows are not queried for children: filter models
/// store a mapping for each queried parent.
template <typename Visit>
void visitBelow(const QAbstractItemModel *model, const QModelIndex &parent, const Visit &visit)
{
    struct Level
    {
        QModelIndex parent;
        int next;
        int count;
    };
    const auto levelOf = [model](const QModelIndex &row) {
        return Level{row, 0, model->hasChildren(row) ? model->rowCount(row) : 0};
    };
    std::vector<Level> levels;
    if (model)
        levels.push_back(levelOf(parent));
    while (!levels.empty()) {
        Level &level = levels.back();
        if (level.next == level.count) {
            levels.pop_back();
            continue;
        }
        const QModelIndex row = model->index(level.next++, 0, level.parent);
        if (visit(row))
            levels.push_back(levelOf(row));
    }
}

/// Visits all rows below a parent, or every row.
template <typename Visit>
void all(const QAbstractItemModel *model, const Visit &visit, const QModelIndex &parent = {})
{
    visitBelow(model, parent, [&visit](const QModelIndex &row) {
        visit(row);
        return true;
    });
}

/// The row after a row, its first child if it has one; invalid after the last.
inline QModelIndex next(const QModelIndex &index)
{
    const QAbstractItemModel *model = index.model();
    const QModelIndex child = model->hasChildren(index) ? model->index(0, 0, index) : QModelIndex();
    if (child.isValid())
        return child;
    for (QModelIndex row = index; row.isValid(); row = row.parent()) {
        const QModelIndex sibling = row.sibling(row.row() + 1, 0);
        if (sibling.isValid())
            return sibling;
    }
    return QModelIndex();
}

/// Visits the rows from start to end, both included. A closed end row includes all rows below it,
/// an open one does not. Visits nothing for an invalid start, and all rows from start on for an end
/// that is invalid or before start.
template <typename IsOpen, typename Visit>
void between(const QModelIndex &start, const QModelIndex &end, const IsOpen &isOpen,
             const Visit &visit)
{
    const QModelIndex last = end.isValid() ? end.sibling(end.row(), 0) : end;
    QModelIndex row = start.isValid() ? start.sibling(start.row(), 0) : start;
    for (; row.isValid() && row != last; row = next(row))
        visit(row);
    if (!row.isValid())
        return;
    visit(row);
    if (!isOpen(row))
        all(row.model(), visit, row);
}

} // namespace DopeSheetWalk

#endif
