#include "vxtimeline/dopesheet/dopesheetrowselection.h"

#include "vxtimeline/dopesheet/dopesheetselectionmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/dopesheetwalk.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QSet>
#include <algorithm>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

constexpr int SmallRemoval = 32; // rows

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

} // namespace

DopeSheetRowSelection::DopeSheetRowSelection(VxDopeSheetView *view)
    : m_view(view)
{
}

DopeSheetSelectionModel *DopeSheetRowSelection::model() const
{
    return qobject_cast<DopeSheetSelectionModel *>(m_view->selectionModel());
}

std::vector<QModelIndex> DopeSheetRowSelection::rows() const
{
    std::vector<QModelIndex> rows;
    model()->visitRows([&rows](const QModelIndex &row) { rows.push_back(row); });
    return rows;
}

VxNode *DopeSheetRowSelection::nodeOf(const QModelIndex &row) const
{
    const VxDopeSheetItem *item = m_view->getItem(row);
    return item ? item->ownerNode() : nullptr;
}

void DopeSheetRowSelection::handleChange(const QItemSelection &selected,
                                         const QItemSelection &deselected,
                                         Qt::KeyboardModifiers modifiers)
{
    if (m_holdDepth > 0 || !model())
        return;
    if (!m_isRemoving) {
        const Hold hold(this);
        const bool adds = modifiers.testFlag(Qt::ControlModifier);
        if (adds && selected.isEmpty())
            deselectRowsOf(deselected);
        setSceneSelection(adds);
    }
    report();
}

void DopeSheetRowSelection::selectNodes(Qt::KeyboardModifiers modifiers)
{
    if (m_holdDepth > 0 || !model())
        return;
    const QVector<VxNode *> before = vxScene->getSelectedNodes();
    {
        const Hold hold(this);
        setSceneSelection(modifiers.testFlag(Qt::ControlModifier));
    }
    if (vxScene->getSelectedNodes() != before)
        report();
}

void DopeSheetRowSelection::report() const
{
    Q_EMIT m_view->itemSelectionChanged();
    Q_EMIT m_view->propertyHitListChanged(properties(), false);
}

void DopeSheetRowSelection::reportChangeSince(const QVector<VxProperty *> &before) const
{
    const QVector<VxProperty *> after = properties();
    if (after != before)
        Q_EMIT m_view->propertyHitListChanged(after, false);
}

// Deselecting only a node's row deselects the rows of its properties too: they would select the
// node, and so its row, again.
void DopeSheetRowSelection::deselectRowsOf(const QItemSelection &deselected) const
{
    QSet<const VxNode *> nodes;
    visitRows(deselected, [this, &nodes](const QModelIndex &row) {
        const VxDopeSheetItem *item = m_view->getItem(row);
        if (item && item->node())
            nodes.insert(item->node());
    });
    if (nodes.isEmpty())
        return;
    std::vector<QModelIndex> kept = rows();
    kept.erase(std::remove_if(kept.begin(), kept.end(),
                              [&](const QModelIndex &row) { return nodes.contains(nodeOf(row)); }),
               kept.end());
    model()->selectOnly(kept);
    m_view->viewport()->update();
}

// The node of the current row is last and so becomes the primary selection.
void DopeSheetRowSelection::setSceneSelection(bool adds)
{
    QVector<VxNode *> wanted;
    QSet<VxNode *> known;
    for (const QModelIndex &row : rows()) {
        VxNode *node = nodeOf(row);
        if (node && !known.contains(node)) {
            known.insert(node);
            wanted.append(node);
        }
    }
    VxNode *current =
        m_view->isRowSelected(m_view->currentIndex()) ? nodeOf(m_view->currentIndex()) : nullptr;
    if (wanted.removeOne(current))
        wanted.append(current);
    QVector<VxNode *> leaving;
    for (VxNode *node : vxScene->getSelectedNodes()) {
        if (!known.contains(node))
            leaving.append(node);
    }
    QVector<VxNode *> missing;
    std::copy_if(wanted.cbegin(), wanted.cend(), std::back_inserter(missing),
                 [](const VxNode *node) { return !node->isSelected() && node->isSelectable(); });
    {
        const QScopedValueRollback<bool> changing(m_isChangingNodes, true);
        if (adds) {
            vxScene->selectNodes(leaving, false);
            vxScene->selectNodes(missing, true);
        } else if (!leaving.isEmpty() || !missing.isEmpty()) {
            vxScene->selectAllNodes(false);
            vxScene->selectNodes(wanted, true);
        }
        if (current && current->isSelected())
            vxScene->setPrimarySelection(current);
    }
    addSceneSelection();
    deselectUnselectable();
}

template <typename Leaves> bool DopeSheetRowSelection::deselect(const Leaves &leaves) const
{
    std::vector<QModelIndex> kept = rows();
    const auto left = std::remove_if(kept.begin(), kept.end(), leaves);
    if (left == kept.end())
        return false;
    kept.erase(left, kept.end());
    model()->selectOnly(kept);
    m_view->viewport()->update();
    return true;
}

// Rows of properties stay selected, for the key graph.
void DopeSheetRowSelection::deselectUnselectable() const
{
    deselect([this](const QModelIndex &row) {
        const VxDopeSheetItem *item = m_view->getItem(row);
        return item && item->node() && !item->node()->isSelected();
    });
}

void DopeSheetRowSelection::selectNodeOf(const QModelIndex &row, bool adds) const
{
    VxNode *node = nodeOf(row);
    if (!node)
        return;
    const bool isOnly = vxScene->getSelectedNodes() == QVector<VxNode *>{node};
    if (!adds && !isOnly)
        vxScene->selectAllNodes(false);
    node->select(true);
}

// Rows already selected are left out: a selection compares a new range with each of its own.
void DopeSheetRowSelection::addSceneSelection() const
{
    if (!model())
        return;
    std::vector<QModelIndex> missing;
    for (VxNode *node : vxScene->getSelectedNodes()) {
        const QModelIndex index = m_view->findNodeIndex(node);
        if (index.isValid() && !m_view->isRowSelected(index))
            missing.push_back(index);
    }
    if (missing.empty())
        return;
    std::vector<QModelIndex> all = rows();
    all.insert(all.end(), missing.begin(), missing.end());
    model()->selectOnly(all);
    m_view->viewport()->update();
}

void DopeSheetRowSelection::showSceneSelection()
{
    if (!model())
        return;
    {
        const Hold hold(this);
        model()->clearCurrentIndex();
        model()->selectOnly({});
        addSceneSelection();
    }
    m_view->viewport()->update();
    report();
}

QVector<VxProperty *> DopeSheetRowSelection::properties() const
{
    QVector<VxProperty *> properties;
    if (!model())
        return properties;
    QSet<VxProperty *> known;
    model()->visitRows([&](const QModelIndex &row) {
        const VxDopeSheetItem *item = m_view->getItem(row);
        VxProperty *property = item ? item->property() : nullptr;
        if (property && !known.contains(property)) {
            known.insert(property);
            properties.append(property);
        }
    });
    return properties;
}

void DopeSheetRowSelection::prepareRemoval(const QModelIndex &parent, int first, int last)
{
    m_isRemoving = true;
    // Until the next layout, closing a row is only a set insertion.
    m_view->scheduleDelayedItemsLayout();
    QSet<const VxDopeSheetItem *> leaving;
    const auto leave = [this, &leaving](const QModelIndex &row) {
        const VxDopeSheetItem *item = m_view->getItem(row);
        leaving.insert(item);
        if (m_view->isExpanded(row))
            m_view->collapse(row);
        return !item->hasRowsToMake();
    };
    const QAbstractItemModel *rowsOf = m_view->model();
    for (int i = first; i <= last; ++i) {
        const QModelIndex row = rowsOf->index(i, 0, parent);
        if (leave(row))
            DopeSheetWalk::visitBelow(rowsOf, row, leave);
    }
    // The selection model handles a few rows well enough.
    if (!model() || leaving.size() < SmallRemoval || !model()->hasSelection())
        return;
    const bool changed =
        deselect([&](const QModelIndex &row) { return leaving.contains(m_view->getItem(row)); });
    if (changed && m_holdDepth == 0)
        report();
}

void DopeSheetRowSelection::finishRemoval()
{
    m_isRemoving = false;
}
