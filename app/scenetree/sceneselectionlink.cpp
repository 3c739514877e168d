#include "scenetree/sceneselectionlink.h"

#include "scenetree/scenetreemodel.h"

#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QTreeView>
#include <vxcore/vxapp.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

SceneSelectionLink::SceneSelectionLink(QTreeView *view, SceneTreeModel *model, VxScene *scene,
                                       QObject *parent)
    : SceneTreeCompanion(view, model, scene, parent)
{
    const auto later = [this] {
        if (!m_isSending)
            catchUpLater();
    };
    connect(scene, &VxScene::nodeSelectionListChanged, this, later);
    connect(model, &QAbstractItemModel::modelReset, this, later);
    connect(scene, &VxScene::primarySelectionChanged, this, [this, later] {
        m_primaryMoved = true;
        later();
    });
    const QItemSelectionModel *rows = view->selectionModel();
    connect(rows, &QItemSelectionModel::selectionChanged, this,
            &SceneSelectionLink::handleViewSelection);
    connect(rows, &QItemSelectionModel::currentChanged, this,
            &SceneSelectionLink::handleViewCurrent);
    later();
}

void SceneSelectionLink::handleViewSelection(const QItemSelection &selected,
                                             const QItemSelection &deselected)
{
    // Rows removed from the model are deselected too; the scene deselects their nodes itself.
    if (m_isShowing || (vxApp && vxApp->isClosing()))
        return;
    const QScopedValueRollback<bool> sending(m_isSending, true);
    m_scene->selectNodes(m_model->nodesAt(deselected.indexes()), false);
    m_scene->selectNodes(m_model->nodesAt(selected.indexes()), true);
    handleViewCurrent(m_view->currentIndex());
    // A node that is not selectable must not look selected.
    m_primaryMoved = false;
    catchUpLater();
}

void SceneSelectionLink::handleViewCurrent(const QModelIndex &current)
{
    VxNode *node = m_model->nodeAt(current);
    if (m_isShowing || !node || !m_view->selectionModel()->isSelected(current))
        return;
    const QScopedValueRollback<bool> sending(m_isSending, true);
    if (m_scene->getPrimarySelection() != node)
        m_scene->setPrimarySelection(node);
}

void SceneSelectionLink::catchUp()
{
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    QItemSelectionModel *rows = m_view->selectionModel();
    rows->select(sceneSelection(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (!m_primaryMoved)
        return;
    m_primaryMoved = false;
    const QModelIndex primary = m_model->indexOf(m_scene->getPrimarySelection());
    if (!primary.isValid() || primary == m_view->currentIndex())
        return;
    rows->setCurrentIndex(primary, QItemSelectionModel::NoUpdate);
    m_view->scrollTo(primary);
}

/** Contiguous rows become one range: the views' cost grows with the number of ranges. */
QItemSelection SceneSelectionLink::sceneSelection() const
{
    QModelIndexList indexes;
    for (const VxNode *node : m_scene->getSelectedNodes()) {
        const QModelIndex index = m_model->indexOf(node);
        if (index.isValid())
            indexes.append(index);
    }
    std::sort(indexes.begin(), indexes.end(), [](const QModelIndex &a, const QModelIndex &b) {
        const quintptr above = a.parent().internalId();
        const quintptr other = b.parent().internalId();
        return above != other ? above < other : a.row() < b.row();
    });
    QItemSelection selection;
    for (int first = 0; first < indexes.size();) {
        int last = first;
        while (last + 1 < indexes.size() &&
               indexes.at(last + 1) == indexes.at(last).siblingAtRow(indexes.at(last).row() + 1))
            ++last;
        selection.append(QItemSelectionRange(indexes.at(first), indexes.at(last)));
        first = last + 1;
    }
    return selection;
}
