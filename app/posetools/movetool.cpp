#include "posetools/movetool.h"

#include "scenetree/sceneedits.h"

#include <cmath>
#include <vxcore/vxscene.h>

namespace {

// Part of a direction below which a channel does not change.
constexpr double NoPart = 1e-5;

/** Whether a direction of the world can be moved along: every channel that changes is free. */
bool isMovable(const GestureNode &node, const QMatrix4x4 &parent, const QVector3D &direction)
{
    const auto local = Spaces::unmapped(parent, Spaces::toVector(direction));
    if (!local)
        return false;
    const double length = Spaces::distance(*local, {});
    for (int axis = 0; axis < 3; ++axis) {
        if (std::abs((*local)[std::size_t(axis)]) > NoPart * length && !node.isFree(XPlace + axis))
            return false;
    }
    return true;
}

/** Which of a gizmo's parts a node's translation channels do not allow. */
GizmoLocks moveLocks(const GestureNode &node, const GizmoFrame &frame)
{
    const QMatrix4x4 parent = node.parentMatrix();
    std::array<bool, 3> locked{};
    for (std::size_t axis = 0; axis < 3; ++axis)
        locked[axis] = !isMovable(node, parent, frame.axes[axis]);
    GizmoLocks locks{};
    locks[size_t(GizmoPart::X)] = locked[0];
    locks[size_t(GizmoPart::Y)] = locked[1];
    locks[size_t(GizmoPart::Z)] = locked[2];
    locks[size_t(GizmoPart::YZ)] = locked[1] || locked[2];
    locks[size_t(GizmoPart::ZX)] = locked[2] || locked[0];
    locks[size_t(GizmoPart::XY)] = locked[0] || locked[1];
    locks[size_t(GizmoPart::View)] = locked[0] || locked[1] || locked[2];
    return locks;
}

} // namespace

MoveTool::MoveTool(VxScene *scene, PoseToolSettings *settings, QObject *parent)
    : OffsetTool(PoseTools::Move, scene, settings, GizmoKind::Move, parent)
{
    setObjectName(QStringLiteral("MoveTool"));
}

GizmoTarget MoveTool::targetOf(const QVector<VxNode *> &selected, VxNode *primary) const
{
    GizmoTarget target{SceneEdits::topmost(scene(), selected), primary, {}, {}};
    target.frame = {pivotOf(target.nodes, primary), arrowAxes(primary, settings()->orientation())};
    target.locks = commonLocks(
        target.nodes, [&target](const GestureNode &node) { return moveLocks(node, target.frame); });
    return target;
}

void MoveTool::beginDrag(const GizmoTarget &target, const QPointF &pixel)
{
    m_parts.clear();
    for (VxNode *node : target.nodes) {
        GestureNode &part = gesture()->node(node);
        m_parts.push_back({&part, part.parentMatrix()});
    }
    OffsetTool::beginDrag(target, pixel);
}

void MoveTool::write()
{
    for (const Part &each : m_parts)
        gesture()->move(each.node, each.parent, Spaces::toVector(offset()));
}
