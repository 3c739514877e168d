#include "parameters/vxpropertylistmemory.h"

#include <QtWidgets/QScrollBar>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxpropertylistnode.h>
#include <vxcore/vxsidenavpropertylistview.h>

std::optional<VxPropertyListMemory::RowName>
VxPropertyListMemory::nameOf(const VxSideNavPropertyListView *view, int row)
{
    const VxPropertyListItemModel *model = view->getPropertyListModel();
    const QModelIndex index = model->index(row, 0);
    const VxPropertyListNode *listNode = model->getPropertyListNode(index);
    if (listNode->isHeading())
        return RowName(model->getGroupPath(index), QString());
    for (int i = 0; i < listNode->getNumProperties(); ++i) {
        if (const VxProperty *property = listNode->getProperty(i))
            return RowName(model->getGroupPath(index), property->getName());
    }
    return {};
}

void VxPropertyListMemory::save(const VxSideNavPropertyListView *view)
{
    const QItemSelectionModel *selection = view->selectionModel();
    // An empty list, such as between two nodes, is not saved.
    if (!selection || view->getPropertyListModel()->rowCount() == 0)
        return;
    m_selected.clear();
    // By ranges: selectedRows() walks through all of them for each row.
    for (const QItemSelectionRange &range : selection->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (const auto name = nameOf(view, row))
                m_selected.insert(*name);
        }
    }
    const QModelIndex current = selection->currentIndex();
    m_current = current.isValid() ? nameOf(view, current.row()) : std::nullopt;
    const int scroll = view->verticalScrollBar()->value();
    // A short list in between does not lose the position in a long one.
    if (scroll != m_shown)
        m_scroll = scroll;
}

void VxPropertyListMemory::restore(VxSideNavPropertyListView *view)
{
    const VxPropertyListItemModel *model = view->getPropertyListModel();
    QItemSelection selection;
    QModelIndex current;
    int first = -1; // of contiguous rows: isSelected() for each row walks through all ranges
    for (int row = 0; row <= model->rowCount(); ++row) {
        const auto name = row < model->rowCount() ? nameOf(view, row) : std::nullopt;
        const bool selected = name && m_selected.contains(*name);
        if (selected && first < 0)
            first = row;
        if (!selected && first >= 0) {
            selection.select(model->index(first, 0),
                             model->index(row - 1, model->columnCount() - 1));
            first = -1;
        }
        if (name && name == m_current)
            current = model->index(row, 0);
    }
    QItemSelectionModel *target = view->selectionModel();
    if (current.isValid())
        target->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (!selection.isEmpty())
        target->select(selection, QItemSelectionModel::Select);
    view->doItemsLayout();
    view->verticalScrollBar()->setValue(m_scroll);
    m_shown = view->verticalScrollBar()->value();
}
