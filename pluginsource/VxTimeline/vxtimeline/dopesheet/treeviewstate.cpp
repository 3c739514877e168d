#include "vxtimeline/dopesheet/treeviewstate.h"

#include "vxtimeline/dopesheet/dopesheetselectionmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/dopesheetwalk.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtCore/QScopedValueRollback>
#include <algorithm>

namespace {

// So many rows at most get the rows below them created in order to open the ancestors of matches;
// others with matches are shown closed.
constexpr int MaxRowsToFill = 1000;

} // namespace

TreeViewState::TreeViewState(VxDopeSheetView *view)
    : m_view(view)
{
}

bool TreeViewState::isFiltered() const
{
    const VxDopeSheetFilterModel *filter = m_view->getFilterModel();
    return filter && !filter->filterRegExp().isEmpty();
}

QModelIndex TreeViewState::find(const DopeSheetRowName &name) const
{
    const VxDopeSheetModel *model = m_view->getSourceModel();
    return model ? m_view->findIndex(name.find(model)) : QModelIndex();
}

void TreeViewState::save()
{
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    m_wasFiltered = isFiltered();
    m_top = DopeSheetRowName::of(m_view->getItem(m_view->indexAt(QPoint(0, 0))));
    if (!m_wasFiltered)
        m_unfilteredTop = m_top;
    saveSelectedRows();
    if (m_selectionIsNew || !m_current.object)
        m_current = DopeSheetRowName::of(m_view->getItem(m_view->currentIndex()));
    saveOpenRows();
    m_view->collapseAll();
    if (auto *selection = qobject_cast<DopeSheetSelectionModel *>(m_view->selectionModel()))
        selection->selectOnly({});
}

// A listed row that is closed but was open before was closed by the user.
void TreeViewState::saveOpenRows()
{
    Names open;
    DopeSheetWalk::visitBelow(m_view->model(), QModelIndex(), [&](const QModelIndex &row) {
        if (m_view->isExpanded(row))
            open.push_back(DopeSheetRowName::of(m_view->getItem(row)));
        // Opening a row creates its child rows: without any, it was never open.
        return !m_view->getItem(row)->hasRowsToMake();
    });
    QSet<QPair<const QObject *, QString>> byFilter;
    for (const DopeSheetRowName &name : m_openedToMatches)
        byFilter.insert({name.object, name.group});
    const auto isByFilter = [&byFilter](const DopeSheetRowName &name) {
        return byFilter.contains({name.object, name.group});
    };
    open.erase(std::remove_if(open.begin(), open.end(), isByFilter), open.end());
    for (DopeSheetRowName &name : m_open) {
        if (name.object && !find(name).isValid())
            open.push_back(std::move(name));
    }
    m_open = std::move(open);
    m_openedToMatches.clear();
}

void TreeViewState::handleCollapsed(const QModelIndex &index)
{
    if (m_isBusy || m_openedToMatches.empty())
        return;
    const DopeSheetRowName name = DopeSheetRowName::of(m_view->getItem(index));
    m_openedToMatches.erase(std::remove(m_openedToMatches.begin(), m_openedToMatches.end(), name),
                            m_openedToMatches.end());
}

TreeViewState::Names TreeViewState::selectedRows() const
{
    Names rows;
    if (auto *selection = qobject_cast<DopeSheetSelectionModel *>(m_view->selectionModel())) {
        selection->visitRows([&](const QModelIndex &row) {
            rows.push_back(DopeSheetRowName::of(m_view->getItem(row)));
        });
    }
    std::sort(rows.begin(), rows.end(), [](const DopeSheetRowName &a, const DopeSheetRowName &b) {
        return a.object != b.object ? std::less<>()(a.object.data(), b.object.data())
                                    : a.group < b.group;
    });
    return rows;
}

// Filtered out rows stay selected until something else is selected.
void TreeViewState::saveSelectedRows()
{
    Names selected = selectedRows();
    m_selectionIsNew = selected != m_shownSelected;
    if (m_selectionIsNew)
        m_selected = std::move(selected);
}

void TreeViewState::restore()
{
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    // Until the next layout, opening a row is only a set insertion.
    m_view->scheduleDelayedItemsLayout();
    openRows();
    if (isFiltered())
        openRowsToMatches();
    selectRows();
    scroll();
}

// A group that is nested deeper than before would be hidden in closed groups.
void TreeViewState::openRows()
{
    for (const DopeSheetRowName &name : m_open) {
        QModelIndex row = find(name);
        if (!row.isValid())
            continue;
        m_view->expand(row);
        const auto isInnerGroup = [this](const QModelIndex &above) {
            const VxDopeSheetItem *item = m_view->getItem(above);
            return item && !item->node() && item->parentItem() && !item->parentItem()->node();
        };
        for (row = row.parent(); !name.group.isEmpty() && isInnerGroup(row); row = row.parent())
            m_view->expand(row);
    }
}

void TreeViewState::openRowsToMatches()
{
    const VxDopeSheetFilterModel *filter = m_view->getFilterModel();
    if (!filter)
        return;
    int filled = 0;
    DopeSheetWalk::visitBelow(filter, QModelIndex(), [&](const QModelIndex &row) {
        if (!filter->hasMatchBelow(row))
            return false;
        if (m_view->getItem(row)->hasRowsToMake() && ++filled > MaxRowsToFill)
            return false;
        if (!m_view->isExpanded(row)) {
            m_openedToMatches.push_back(DopeSheetRowName::of(m_view->getItem(row)));
            m_view->expand(row);
        }
        return true;
    });
}

void TreeViewState::selectRows()
{
    auto *selection = qobject_cast<DopeSheetSelectionModel *>(m_view->selectionModel());
    if (!selection)
        return;
    std::vector<QModelIndex> rows;
    for (const DopeSheetRowName &name : m_selected) {
        const QModelIndex row = find(name);
        if (row.isValid())
            rows.push_back(row);
    }
    // A view that loses its current row selects another one, which is undone here.
    const QModelIndex current = find(m_current);
    if (current.isValid())
        selection->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selection->selectOnly(rows);
    m_shownSelected = selectedRows();
}

// With all rows shown again the view scrolls back; but a row found and selected meanwhile is
// scrolled to instead.
void TreeViewState::scroll() const
{
    const bool isBack = !isFiltered();
    const QModelIndex top = find(isBack ? m_unfilteredTop : m_top);
    if (top.isValid())
        m_view->scrollTo(top, QAbstractItemView::PositionAtTop);
    if (isBack && m_wasFiltered && m_selectionIsNew && m_view->currentIndex().isValid())
        m_view->scrollTo(m_view->currentIndex());
}
