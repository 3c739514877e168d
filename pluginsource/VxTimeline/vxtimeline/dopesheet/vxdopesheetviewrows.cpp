// The rows that are selected, and the nodes of the scene that are.

#include <QtCore/QScopedValueRollback>
#include <algorithm>
#include <utility>
#include <vector>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

#include "vxtimeline/dopesheet/dopesheetrowranges.h"
#include "vxtimeline/dopesheet/dopesheetselectionmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetview_p.h"

namespace {

using DopeSheetRowRanges::visitRows;

// The nodes of a selection's rows, in their order.
QVector<VxNode *> nodesOf(const VxDopeSheetView *view, const QItemSelection &selection)
{
    QVector<VxNode *> nodes;
    visitRows(selection, [view, &nodes](const QModelIndex &index) {
        const VxDopeSheetItem *item = view->getItem(index);
        if (item && item->node())
            nodes.append(item->node());
    });
    return nodes;
}

bool areAllSelected(const QVector<VxNode *> &nodes)
{
    return std::all_of(nodes.cbegin(), nodes.cend(),
                       [](const VxNode *node) { return node->isSelected(); });
}

void selectMissing(const QVector<VxNode *> &nodes)
{
    for (VxNode *node : nodes) {
        if (!node->isSelected())
            node->select(true);
    }
}

} // namespace

bool VxDopeSheetView::isRowSelected(const QModelIndex &index) const
{
    const auto *rows = qobject_cast<const DopeSheetSelectionModel *>(selectionModel());
    return rows && rows->isRowSelected(index);
}

bool VxDopeSheetView::isChangingSelection() const
{
    return d->changingSelection;
}

// Rows that are selected already are left out: adding a range to a selection is compared with each
// of those in it.
void VxDopeSheetView::selectSceneSelection()
{
    if (!selectionModel())
        return;
    std::vector<QModelIndex> rows;
    for (VxNode *node : vxScene->getSelectedNodes()) {
        const QModelIndex index = findNodeIndex(node);
        if (index.isValid() && !isRowSelected(index))
            rows.push_back(index);
    }
    if (rows.empty())
        return;
    selectionModel()->select(DopeSheetRowRanges::selectionOf(rows),
                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

bool VxDopeSheetView::hasItemSelection() const
{
    return selectionModel() && selectionModel()->hasSelection();
}

QVector<VxProperty *> VxDopeSheetView::getSelectedProperties() const
{
    QVector<VxProperty *> properties;
    if (!selectionModel())
        return properties;
    QSet<VxProperty *> seen;
    visitRows(selectionModel()->selection(), [this, &properties, &seen](const QModelIndex &index) {
        const VxDopeSheetItem *item = getItem(index);
        VxProperty *property = item ? item->property() : nullptr;
        if (property && !seen.contains(property)) {
            seen.insert(property);
            properties.append(property);
        }
    });
    return properties;
}

// Without Ctrl each node that is not selected yet takes the place of what was selected before it,
// so that of several the last one stays. A range of rows taken with Shift is meant as a whole: the
// scene then selects what the rows say.
void VxDopeSheetView::Private::selectNodes(const QItemSelection &selected) const
{
    const QVector<VxNode *> nodes = nodesOf(view, selected);
    if (areAllSelected(nodes))
        return;
    if (pressModifiers.testFlag(Qt::ControlModifier)) {
        selectMissing(nodes);
        return;
    }
    vxScene->selectAllNodes(false);
    if (pressModifiers.testFlag(Qt::ShiftModifier))
        selectMissing(nodesOf(view, view->selectionModel()->selection()));
    else
        nodes.last()->select(true);
}

void VxDopeSheetView::handleSelectionChanged(const QItemSelection &selected,
                                             const QItemSelection &deselected)
{
    Q_UNUSED(deselected)
    if (d->inSelectionChanged)
        return;
    {
        const QScopedValueRollback<bool> entered(d->inSelectionChanged, true);
        {
            const QScopedValueRollback<bool> changing(d->changingSelection, true);
            d->selectNodes(selected);
        }
        selectSceneSelection();
    }
    Q_EMIT itemSelectionChanged();
    Q_EMIT propertyHitListChanged(getSelectedProperties(), false);
}
