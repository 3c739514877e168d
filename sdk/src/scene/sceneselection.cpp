#include "scene/sceneselection.h"

#include "scene/deferreddeletion.h"
#include "scene/vxnode_p.h"
#include "scene/vxscene_p.h"

QVector<VxNode *> SceneSelection::nodes() const
{
    if (!m_gaps)
        return m_list;
    QVector<VxNode *> list;
    list.reserve(count());
    for (VxNode *node : m_list) {
        if (node)
            list.append(node);
    }
    return list;
}

void SceneSelection::select(const QVector<VxNode *> &nodes)
{
    QVector<VxNode *> changed;
    for (VxNode *node : nodes) {
        if (node->getScene() != m_scene || !node->isSelectable())
            continue;
        if (enter(node))
            changed.append(node);
        m_primary = node;
    }
    report(changed);
}

void SceneSelection::deselect(const QVector<VxNode *> &nodes)
{
    QVector<VxNode *> changed;
    bool primaryLeft = false;
    for (VxNode *node : nodes) {
        if (!leave(node))
            continue;
        changed.append(node);
        primaryLeft = primaryLeft || node == m_primary;
    }
    if (primaryLeft)
        m_primary = last();
    if (m_gaps > m_list.size() / 2)
        dropGaps();
    report(changed);
}

void SceneSelection::selectAll()
{
    QVector<VxNode *> changed;
    for (VxNode *node : VxScene::Private::of(m_scene)->nodes.all()) {
        if (node->isSelectable() && enter(node))
            changed.append(node);
    }
    if (!m_primary)
        m_primary = last();
    report(changed);
}

void SceneSelection::deselectAll()
{
    deselect(nodes());
}

void SceneSelection::reset()
{
    m_list.clear();
    m_gaps = 0;
    m_primary = nullptr;
}

void SceneSelection::setPrimary(VxNode *node)
{
    if (node) {
        select({node});
        return;
    }
    m_primary = nullptr;
    report({});
}

bool SceneSelection::enter(VxNode *node)
{
    VxNode::Private *record = VxNode::Private::of(node);
    if (record->selectionIndex >= 0)
        return false;
    record->selectionIndex = m_list.size();
    m_list.append(node);
    return true;
}

bool SceneSelection::leave(VxNode *node)
{
    VxNode::Private *record = VxNode::Private::of(node);
    if (record->selectionIndex < 0)
        return false;
    m_list[record->selectionIndex] = nullptr;
    record->selectionIndex = -1;
    ++m_gaps;
    return true;
}

void SceneSelection::dropGaps()
{
    m_list = nodes();
    m_gaps = 0;
    for (int i = 0; i < m_list.size(); ++i)
        VxNode::Private::of(m_list.at(i))->selectionIndex = i;
}

VxNode *SceneSelection::last()
{
    while (!m_list.isEmpty() && !m_list.last()) {
        m_list.removeLast();
        --m_gaps;
    }
    return m_list.isEmpty() ? nullptr : m_list.last();
}

void SceneSelection::report(const QVector<VxNode *> &changed)
{
    if (changed.isEmpty() && m_primary == m_reportedPrimary)
        return;
    const DeferredDeletion hold;
    const QVector<QPointer<VxNode>> guarded(changed.begin(), changed.end());
    for (VxNode *node : guarded) {
        if (node)
            Q_EMIT node->selectedChanged(node->isSelected());
    }
    if (!changed.isEmpty())
        Q_EMIT m_scene->nodeSelectionListChanged();
    if (m_primary != m_reportedPrimary) {
        m_reportedPrimary = m_primary;
        Q_EMIT m_scene->primarySelectionChanged(m_primary);
    }
    VxScene::Private::of(m_scene)->touchView();
}
