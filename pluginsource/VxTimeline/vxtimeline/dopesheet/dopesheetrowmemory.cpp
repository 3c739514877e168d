#include "vxtimeline/dopesheet/dopesheetrowmemory.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "vxtimeline/dopesheet/dopesheetrowranges.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

namespace {

// Visits each row that has others below it, these first.
template <typename Visit>
void visitParents(const QAbstractItemModel *model, const QModelIndex &parent, const Visit &visit)
{
    const int rows = model ? model->rowCount(parent) : 0;
    for (int row = 0; row < rows; ++row)
        visitParents(model, model->index(row, 0, parent), visit);
    if (rows > 0 && parent.isValid())
        visit(parent);
}

template <typename Items> void sortByAddress(Items &items)
{
    std::sort(items.begin(), items.end(), std::less<>());
}

template <typename Items> bool contains(const Items &items, const VxDopeSheetItem *item)
{
    return std::binary_search(items.cbegin(), items.cend(), item, std::less<>());
}

} // namespace

DopeSheetRowMemory::DopeSheetRowMemory(VxDopeSheetView *view)
    : m_view(view)
{
}

void DopeSheetRowMemory::note(bool isFiltered)
{
    m_top = m_view->getItem(m_view->indexAt(QPoint(0, 0)));
    if (!isFiltered)
        m_unfilteredTop = m_top;
    noteSelectedRows();
    if (m_selectionIsNew || !m_current)
        m_current = m_view->getItem(m_view->currentIndex());
    noteOpenRows();
    m_view->collapseAll();
}

// A row that is there and closed has been closed by hand, if it was open once.
void DopeSheetRowMemory::noteOpenRows()
{
    Items present;
    KeptItems open;
    visitParents(m_view->model(), QModelIndex(), [&](const QModelIndex &row) {
        VxDopeSheetItem *item = m_view->getItem(row);
        present.append(item);
        if (m_view->isExpanded(row))
            open.append(item);
    });
    sortByAddress(present);
    for (const QPointer<VxDopeSheetItem> &item : qAsConst(m_open)) {
        if (item && !contains(present, item))
            open.append(item);
    }
    m_open = open;
}

DopeSheetRowMemory::Items DopeSheetRowMemory::selectedItems() const
{
    Items items;
    if (const QItemSelectionModel *selection = m_view->selectionModel()) {
        DopeSheetRowRanges::visitRows(selection->selection(), [&](const QModelIndex &row) {
            items.append(m_view->getItem(row));
        });
    }
    sortByAddress(items);
    return items;
}

// Rows that are left out stay selected until something else is selected.
void DopeSheetRowMemory::noteSelectedRows()
{
    const Items selected = selectedItems();
    m_selectionIsNew = selected != m_shownSelected;
    if (!m_selectionIsNew)
        return;
    m_selected.clear();
    for (VxDopeSheetItem *item : selected)
        m_selected.append(item);
}

void DopeSheetRowMemory::restore(bool isFiltered)
{
    openRows();
    selectRows();
    scroll(isFiltered);
}

void DopeSheetRowMemory::openRows() const
{
    Items open;
    for (const QPointer<VxDopeSheetItem> &item : m_open) {
        if (item)
            open.append(item);
    }
    sortByAddress(open);
    if (open.isEmpty())
        return;
    visitParents(m_view->model(), QModelIndex(), [&](const QModelIndex &row) {
        if (contains(open, m_view->getItem(row)))
            m_view->expand(row);
    });
}

void DopeSheetRowMemory::selectRows()
{
    QItemSelectionModel *selection = m_view->selectionModel();
    if (!selection)
        return;
    std::vector<QModelIndex> rows;
    Items wanted;
    for (const QPointer<VxDopeSheetItem> &item : qAsConst(m_selected)) {
        const QModelIndex row = m_view->findIndex(item);
        if (!row.isValid())
            continue;
        rows.push_back(row);
        wanted.append(item);
    }
    const QModelIndex current = m_view->findIndex(m_current);
    if (current.isValid())
        selection->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    sortByAddress(wanted);
    if (wanted != selectedItems())
        selection->select(DopeSheetRowRanges::selectionOf(rows),
                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_shownSelected = wanted;
}

// Back to all rows means back to where one was; but what has been found and selected meanwhile is
// to be seen.
void DopeSheetRowMemory::scroll(bool isFiltered) const
{
    const QModelIndex top = m_view->findIndex(isFiltered ? m_top : m_unfilteredTop);
    if (top.isValid())
        m_view->scrollTo(top, QAbstractItemView::PositionAtTop);
    if (!isFiltered && m_selectionIsNew && m_view->currentIndex().isValid())
        m_view->scrollTo(m_view->currentIndex());
}
