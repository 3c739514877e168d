#ifndef DOPESHEETROWRANGES_H
#define DOPESHEETROWRANGES_H

#include <QtCore/QItemSelection>
#include <vector>

// Selections as lists of rows.
namespace DopeSheetRowRanges {

// Calls visit(index) for each row of a selection, column 0. The selection model's own lists of rows
// check for every row whether it is selected, which walks through all ranges each time.
template <typename Visit> void visitRows(const QItemSelection &selection, const Visit &visit)
{
    for (const QItemSelectionRange &range : selection) {
        if (!range.isValid() || range.left() > 0)
            continue;
        for (int row = range.top(); row <= range.bottom(); ++row)
            visit(range.model()->index(row, 0, range.parent()));
    }
}

// Rows (of column 0) as a selection of as few ranges as possible.
QItemSelection selectionOf(const std::vector<QModelIndex> &rows);

} // namespace DopeSheetRowRanges

#endif
