#include "posetools/movetool.h"

#include "scenetree/sceneedits.h"
#include "widgets/studiotext.h"

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
    : TransformTool(scene, settings, GizmoKind::Move, parent)
{
    setObjectName(QStringLiteral("MoveTool"));
}

QString MoveTool::title() const
{
    return StudioText::tr("Move");
}

GizmoTarget MoveTool::targetOf(const QVector<VxNode *> &selected, VxNode *primary) const
{
    GizmoTarget target{SceneEdits::topmost(scene(), selected), primary, {}, {}};
    const VxTime time = scene()->getTime();
    QVector3D origin = primary->getWorldTransform(time).column(3).toVector3D();
    if (settings()->pivot() == PoseToolSettings::Pivot::Common) {
        origin = QVector3D();
        for (const VxNode *node : qAsConst(target.nodes))
            origin += node->getWorldTransform(time).column(3).toVector3D();
        origin /= float(target.nodes.size());
    }
    target.frame = {origin, arrowAxes(primary, settings()->orientation())};
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
    m_drag.emplace(pressCamera(), target.frame, part(), pixel);
}

void MoveTool::follow(const QPointF &pixel, bool snaps)
{
    if (snaps)
        m_drag->followGrid(pixel,
                           settings()->orientation() == PoseToolSettings::Orientation::World);
    else
        m_drag->follow(pixel);
}

bool MoveTool::hasAmount() const
{
    return m_drag->hasAmount();
}

void MoveTool::setAmount(double amount)
{
    m_drag->setAmount(amount);
}

void MoveTool::write()
{
    for (const Part &each : m_parts) {
        const auto local = Spaces::unmapped(each.parent, Spaces::toVector(m_drag->offset()));
        if (!local) {
            gesture()->countRefused();
            continue;
        }
        for (int axis = 0; axis < 3; ++axis)
            gesture()->set(each.node, XPlace + axis,
                           each.node->start()[std::size_t(XPlace + axis)] +
                               (*local)[std::size_t(axis)]);
    }
}

QString MoveTool::amountText() const
{
    return m_drag->text();
}
