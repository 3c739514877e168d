#include "posetools/posetoolsettings.h"

void PoseToolSettings::setOrientation(Orientation orientation)
{
    if (orientation == m_orientation)
        return;
    m_orientation = orientation;
    Q_EMIT changed();
}

void PoseToolSettings::setPivot(Pivot pivot)
{
    if (pivot == m_pivot)
        return;
    m_pivot = pivot;
    Q_EMIT changed();
}

bool PoseToolSettings::isPinned(const VxNode *node) const
{
    return m_pinned.contains(const_cast<VxNode *>(node));
}

void PoseToolSettings::setPinned(VxNode *node, bool pinned)
{
    if (!node || pinned == isPinned(node))
        return;
    m_pinned.removeAll(QPointer<VxNode>()); // destroyed ones
    if (pinned)
        m_pinned.append(node);
    else
        m_pinned.removeAll(node);
    Q_EMIT changed();
}

QVector<VxNode *> PoseToolSettings::pinnedNodes(const VxScene *scene) const
{
    QVector<VxNode *> nodes;
    for (const QPointer<VxNode> &node : m_pinned) {
        if (node && node->getScene() == scene)
            nodes.append(node);
    }
    return nodes;
}
