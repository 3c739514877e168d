#include "posetools/rotatetool.h"

#include "posetools/nodeangles.h"
#include "scenetree/sceneedits.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxscene.h>

namespace {

constexpr double SnapAngle = 15;
constexpr double LargestAngle = 36000; // typed, degrees

VxVector unitAxis(int axis)
{
    VxVector result{};
    result[std::size_t(axis)] = 1;
    return result;
}

} // namespace

RotateTool::RotateTool(VxScene *scene, PoseToolSettings *settings, QObject *parent)
    : TransformTool(PoseTools::Rotate, scene, settings, GizmoKind::Rotate, parent)
{
    setObjectName(QStringLiteral("RotateTool"));
}

/** In the space of the node's parent, of length 1. */
VxVector RotateTool::axisFor(const GestureNode &node, GizmoPart part,
                             const QVector3D &worldAxis) const
{
    using Orientation = PoseToolSettings::Orientation;
    const bool isCommon = settings()->pivot() == PoseToolSettings::Pivot::Common;
    const int axis = gizmoAxis(part);
    const auto orientation = settings()->orientation();
    if (axis >= 0 && !isCommon && orientation == Orientation::Local)
        return vxRotation(anglesOf(node.start()), node.order()) * unitAxis(axis);
    if (axis >= 0 && !isCommon && orientation == Orientation::Parent)
        return unitAxis(axis);
    return vxTransposed(Spaces::rotationOf(node.parentMatrix())) * Spaces::toVector(worldAxis);
}

GizmoTarget RotateTool::targetOf(const QVector<VxNode *> &selected, VxNode *primary) const
{
    const bool isCommon = settings()->pivot() == PoseToolSettings::Pivot::Common;
    GizmoTarget target{
        isCommon ? SceneEdits::topmost(scene(), selected) : selected, primary, {}, {}};
    target.frame = {pivotOf(target.nodes, primary), ringAxes(primary, settings()->orientation())};
    const GestureNode node(primary, scene()->getTime(), false);
    if (isByChannel(node)) {
        const VxRotation parent = Spaces::rotationOf(node.parentMatrix());
        for (int axis = 0; axis < 3; ++axis)
            target.frame.axes[size_t(axis)] =
                Spaces::toVector3D(parent * NodeAngles::channelAxis(node, XAngle + axis));
    }
    target.locks = commonLocks(target.nodes, [this, &target](const GestureNode &each) {
        return locksOf(each, target.frame);
    });
    return target;
}

/** Whether each ring changes one channel only. */
bool RotateTool::isByChannel(const GestureNode &node) const
{
    return NodeAngles::hasLockedAngle(node) &&
           settings()->pivot() == PoseToolSettings::Pivot::Own &&
           settings()->orientation() == PoseToolSettings::Orientation::Local;
}

GizmoLocks RotateTool::locksOf(const GestureNode &node, const GizmoFrame &frame) const
{
    GizmoLocks locks{};
    if (!NodeAngles::hasLockedAngle(node))
        return locks;
    for (int axis = 0; axis < 3; ++axis) {
        const auto part = GizmoPart(int(GizmoPart::X) + axis);
        locks[size_t(part)] =
            isByChannel(node)
                ? !node.isFree(XAngle + axis)
                : !NodeAngles::isRotatable(node, axisFor(node, part, frame.axes[size_t(axis)]));
    }
    locks[size_t(GizmoPart::View)] = true;
    return locks;
}

QVector3D RotateTool::worldAxis() const
{
    if (part() != GizmoPart::View)
        return pressFrame().axisOf(part());
    const auto middle = pressCamera().project(pressFrame().origin);
    return -pressCamera().directionAt(middle.value_or(QPointF()));
}

void RotateTool::beginDrag(const GizmoTarget &target, const QPointF &pixel)
{
    m_axis = worldAxis();
    m_angle = 0;
    m_drag.emplace(pressCamera(), target.frame.origin, m_axis, pixel);
    m_parts.clear();
    const bool isCommon = settings()->pivot() == PoseToolSettings::Pivot::Common;
    for (VxNode *node : target.nodes) {
        GestureNode &each = gesture()->node(node);
        const QMatrix4x4 world = node->getWorldTransform(each.time());
        const QVector3D arm =
            isCommon ? world.column(3).toVector3D() - target.frame.origin : QVector3D();
        Part made{&each, axisFor(each, part(), m_axis), -1, Spaces::toVector(arm),
                  each.parentMatrix()};
        if (isByChannel(each) && part() != GizmoPart::View)
            made.channel = XAngle + gizmoAxis(part());
        m_parts.push_back(made);
    }
}

void RotateTool::follow(const QPointF &pixel, bool snaps)
{
    const double angle = m_drag->follow(pixel);
    m_angle = snaps ? std::round(angle / SnapAngle) * SnapAngle : angle;
}

void RotateTool::setAmount(double amount)
{
    m_angle = std::clamp(amount, -LargestAngle, LargestAngle);
}

void RotateTool::write()
{
    for (const Part &each : m_parts) {
        if (each.channel >= 0) {
            gesture()->set(each.node, each.channel,
                           each.node->start()[std::size_t(each.channel)] + m_angle);
        } else if (NodeAngles::hasLockedAngle(*each.node) &&
                   !NodeAngles::isRotatable(*each.node, each.axis)) {
            gesture()->countRefused();
        } else {
            writePosition(each, writeAngles(each));
        }
    }
}

/** Returns the angle that limits allow. */
double RotateTool::writeAngles(const Part &part)
{
    double allowed = 0;
    const VxEuler angles =
        NodeAngles::rotatedWithinLimits(*part.node, part.axis, m_angle, &allowed);
    if (allowed != m_angle)
        gesture()->countLimited();
    for (int axis = 0; axis < 3; ++axis)
        gesture()->set(part.node, XAngle + axis, angles[std::size_t(axis)]);
    return allowed;
}

/** The node's origin, about the common pivot. */
void RotateTool::writePosition(const Part &part, double angle)
{
    if (part.arm == VxVector{})
        return;
    const VxVector end = vxRotated(vxRotationAbout(Spaces::toVector(m_axis), angle), part.arm);
    gesture()->move(part.node, part.parent,
                    {end[0] - part.arm[0], end[1] - part.arm[1], end[2] - part.arm[2]});
}

QString RotateTool::amountText() const
{
    return axisPrefix() + vxLocalNumber(QString::number(m_angle, 'f', 1)) + QChar(0xb0);
}
