#include "scenetree/scenetreefilter.h"

#include "scenetree/scenetreemodel.h"

#include <QSet>
#include <QTreeView>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

SceneTreeFilter::SceneTreeFilter(QTreeView *view, SceneTreeModel *model, VxScene *scene,
                                 QObject *parent)
    : SceneTreeCompanion(view, model, scene, parent)
{
    const auto later = [this] {
        if (!m_text.isEmpty())
            catchUpLater();
    };
    connect(model, &QAbstractItemModel::dataChanged, this, later);
    connect(model, &QAbstractItemModel::rowsInserted, this, later);
    connect(model, &QAbstractItemModel::rowsMoved, this, later);
    connect(model, &QAbstractItemModel::modelReset, this, later);
    // Removed nodes must not be listed as matches.
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this, later] {
        m_matches.clear();
        later();
    });
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { m_matches.clear(); });
}

void SceneTreeFilter::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    catchUp();
}

void SceneTreeFilter::catchUp()
{
    cancelCatchUp();
    m_matches.clear();
    QSet<const VxNode *> shown;
    const QVector<VxNode *> nodes = m_scene->getNodes();
    for (VxNode *node : nodes) {
        if (m_text.isEmpty() || !node->getLabel().contains(m_text, Qt::CaseInsensitive))
            continue;
        m_matches.append(node);
        for (const VxNode *above = node; above && !shown.contains(above);
             above = above->getNodeParent())
            shown.insert(above);
    }
    const bool hides = !m_text.isEmpty();
    if (hides || m_hasHidden) {
        m_view->setUpdatesEnabled(false);
        for (const VxNode *node : nodes) {
            const QModelIndex index = m_model->indexOf(node);
            const bool hidden = hides && !shown.contains(node);
            if (index.isValid() && m_view->isRowHidden(index.row(), index.parent()) != hidden)
                m_view->setRowHidden(index.row(), index.parent(), hidden);
        }
        for (const VxNode *node : qAsConst(m_matches)) {
            for (const VxNode *above = node->getNodeParent();
                 above && !m_view->isExpanded(m_model->indexOf(above));
                 above = above->getNodeParent())
                m_view->expand(m_model->indexOf(above));
        }
        m_view->setUpdatesEnabled(true);
    }
    m_hasHidden = hides;
    Q_EMIT matchesChanged();
}
