#include "vxtimeline/dopesheet/dopesheetrowranges.h"

#include <algorithm>

namespace {

// A row as its parent's child, ordered so that contiguous rows are adjacent.
struct ChildRow
{
    QModelIndex parent;
    QModelIndex index;

    bool follows(const ChildRow &other) const
    {
        return parent == other.parent && index.row() == other.index.row() + 1;
    }
    friend bool operator<(const ChildRow &a, const ChildRow &b)
    {
        return a.parent == b.parent ? a.index.row() < b.index.row() : a.parent < b.parent;
    }
};

} // namespace

// Few ranges keep painting fast: it checks several times for every row whether it is selected, and
// each check walks through all ranges.
QItemSelection DopeSheetRowRanges::selectionOf(const std::vector<QModelIndex> &rows)
{
    std::vector<ChildRow> sorted;
    sorted.reserve(rows.size());
    for (const QModelIndex &row : rows)
        sorted.push_back({row.parent(), row});
    std::sort(sorted.begin(), sorted.end());
    QItemSelection selection;
    for (std::size_t i = 0; i < sorted.size();) {
        const std::size_t first = i++;
        while (i < sorted.size() && sorted[i].follows(sorted[i - 1]))
            ++i;
        selection.append(QItemSelectionRange(sorted[first].index, sorted[i - 1].index));
    }
    return selection;
}
