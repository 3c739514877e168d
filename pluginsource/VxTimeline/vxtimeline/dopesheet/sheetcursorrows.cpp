#include "vxtimeline/dopesheet/sheetcursorrows.h"

#include "vxtimeline/dopesheet/accessiblesheet.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

SheetCursorRows::SheetCursorRows(VxDopeSheetView *sheet)
    : m_sheet(sheet)
{
}

QWidget *SheetCursorRows::area() const
{
    return m_sheet->viewport();
}

bool SheetCursorRows::isEmpty() const
{
    return !m_sheet->model() || m_sheet->model()->rowCount() == 0;
}

// A row that was removed, filtered out or closed away is replaced by the current one, by that of
// the primary selection, or by the first.
QModelIndex SheetCursorRows::index()
{
    QModelIndex found = m_item ? m_sheet->findIndex(m_item) : QModelIndex();
    for (QModelIndex above = found.parent(); above.isValid(); above = above.parent()) {
        if (!m_sheet->isExpanded(above))
            found = above;
    }
    if (!found.isValid() && !isEmpty()) {
        found = m_sheet->currentIndex();
        if (!found.isValid())
            found = m_sheet->findNodeIndex(vxScene->getPrimarySelection());
        if (!found.isValid())
            found = m_sheet->model()->index(0, 0);
    }
    m_item = m_sheet->getItem(found);
    return found.sibling(found.row(), VxDopeSheetView::NameColumn);
}

AccessibleKeys::Source SheetCursorRows::row()
{
    return index().isValid() && m_item ? AccessibleSheet::keysOf(m_sheet, m_item) : nullptr;
}

bool SheetCursorRows::showsKeysAt(const QModelIndex &row) const
{
    return !m_sheet->isExpanded(row) || !m_sheet->model()->hasChildren(row);
}

bool SheetCursorRows::showsKeys()
{
    const QModelIndex row = index();
    return row.isValid() && showsKeysAt(row);
}

bool SheetCursorRows::move(int rows)
{
    const QModelIndex from = index();
    QModelIndex to = from;
    for (int i = 0; i < qAbs(rows); ++i) {
        const QModelIndex next = rows > 0 ? m_sheet->indexBelow(to) : m_sheet->indexAbove(to);
        if (!next.isValid())
            break;
        to = next;
    }
    m_item = m_sheet->getItem(to);
    return to != from;
}

QRect SheetCursorRows::rect()
{
    const QModelIndex row = index();
    if (!row.isValid())
        return QRect();
    QRect cells = m_sheet->visualRect(row);
    cells |= m_sheet->visualRect(row.sibling(row.row(), VxDopeSheetView::KeysColumn));
    return cells.intersected(area()->rect()).translated(area()->mapToGlobal(QPoint()));
}

void SheetCursorRows::reveal(int key)
{
    Q_UNUSED(key)
    m_sheet->scrollTo(index());
}

void SheetCursorRows::setOpen(bool open)
{
    const QModelIndex row = index();
    if (row.isValid() && m_sheet->model()->hasChildren(row))
        m_sheet->setExpanded(row, open);
}

void SheetCursorRows::setAnchor()
{
    index();
    m_anchor = m_item;
}

std::vector<AccessibleKeys::Source> SheetCursorRows::fromAnchor()
{
    QModelIndex row = index();
    QModelIndex last = m_anchor ? m_sheet->findIndex(m_anchor) : QModelIndex();
    if (!last.isValid())
        last = row;
    if (m_sheet->visualRect(row).top() > m_sheet->visualRect(last).top())
        std::swap(row, last);
    std::vector<AccessibleKeys::Source> found;
    for (; row.isValid(); row = m_sheet->indexBelow(row)) {
        if (showsKeysAt(row))
            found.push_back(AccessibleSheet::keysOf(m_sheet, m_sheet->getItem(row)));
        if (row == last)
            break;
    }
    return found;
}
