#include "pane/vxpropertylistmemory.h"

#include <QtWidgets/QScrollBar>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxpropertylistnode.h>
#include <vxcore/vxsidenavpropertylistview.h>

VxPropertyListMemory::RowName VxPropertyListMemory::nameOf(const VxSideNavPropertyListView *view,
                                                           int row)
{
    const VxPropertyListItemModel *model = view->getPropertyListModel();
    const QModelIndex index = model->index(row, 0);
    const VxPropertyListNode *listNode = model->getPropertyListNode(index);
    const VxProperty *property = listNode->isHeading() ? nullptr : listNode->getProperty(0);
    return {model->getGroupPath(index), property ? property->getName() : QString()};
}

void VxPropertyListMemory::remember(const VxSideNavPropertyListView *view)
{
    const QItemSelectionModel *selection = view->selectionModel();
    // An empty list, such as between two nodes, has nothing to tell.
    if (!selection || view->getPropertyListModel()->rowCount() == 0)
        return;
    m_selected.clear();
    for (const QModelIndex &index : selection->selectedRows())
        m_selected.insert(nameOf(view, index.row()));
    m_hasCurrent = selection->currentIndex().isValid();
    if (m_hasCurrent)
        m_current = nameOf(view, selection->currentIndex().row());
    m_scroll = view->verticalScrollBar()->value();
}

void VxPropertyListMemory::restore(VxSideNavPropertyListView *view) const
{
    const VxPropertyListItemModel *model = view->getPropertyListModel();
    QItemSelection selection;
    QModelIndex current;
    for (int row = 0; row < model->rowCount(); ++row) {
        const RowName name = nameOf(view, row);
        const QModelIndex index = model->index(row, 0);
        if (m_selected.contains(name))
            selection.select(index, index.sibling(row, model->columnCount() - 1));
        if (m_hasCurrent && name == m_current)
            current = index;
    }
    QItemSelectionModel *target = view->selectionModel();
    if (current.isValid())
        target->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (!selection.isEmpty())
        target->select(selection, QItemSelectionModel::Select);
    view->doItemsLayout();
    view->verticalScrollBar()->setValue(m_scroll);
}
