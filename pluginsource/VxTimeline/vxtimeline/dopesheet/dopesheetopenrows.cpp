#include "vxtimeline/dopesheet/dopesheetopenrows.h"

#include <QtWidgets/QTreeView>
#include <algorithm>
#include <functional>

#include "vxtimeline/dopesheet/vxdopesheetitem.h"

namespace {

VxDopeSheetItem *itemOf(const QModelIndex &index)
{
    return index.data(Qt::UserRole).value<VxDopeSheetItem *>();
}

// Visits each row that has others below it, these first.
template <typename Visit>
void visitParents(const QAbstractItemModel *model, const QModelIndex &parent, Visit &visit)
{
    const int rows = model->rowCount(parent);
    for (int row = 0; row < rows; ++row)
        visitParents(model, model->index(row, 0, parent), visit);
    if (rows > 0 && parent.isValid())
        visit(parent);
}

} // namespace

DopeSheetOpenRows::DopeSheetOpenRows(QTreeView *view)
    : m_view(view)
{
    const auto remember = [this](const QModelIndex &index) {
        if (m_view->isExpanded(index))
            m_open.append(itemOf(index));
    };
    if (view->model())
        visitParents(view->model(), QModelIndex(), remember);
    std::sort(m_open.begin(), m_open.end(), std::less<>());
}

void DopeSheetOpenRows::closeAll() const
{
    if (!m_open.isEmpty())
        m_view->collapseAll();
}

void DopeSheetOpenRows::openAgain() const
{
    const auto open = [this](const QModelIndex &index) {
        if (std::binary_search(m_open.cbegin(), m_open.cend(), itemOf(index), std::less<>()))
            m_view->expand(index);
    };
    if (!m_open.isEmpty())
        visitParents(m_view->model(), QModelIndex(), open);
}
