#include "posetools/scaletool.h"

#include "gizmo/gizmodrag.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxscene.h>

namespace {

constexpr double SnapFactor = 0.1;
constexpr double PixelsPerUnit = 80; // of the factor, for the handle in the middle
// The mouse cannot make a scale singular; a typed number can.
constexpr double SmallestFactor = 0.01;

} // namespace

ScaleTool::ScaleTool(VxScene *scene, PoseToolSettings *settings, QObject *parent)
    : TransformTool(PoseTools::Scale, scene, settings, GizmoKind::Scale, parent)
{
    setObjectName(QStringLiteral("ScaleTool"));
}

GizmoTarget ScaleTool::targetOf(const QVector<VxNode *> &selected, VxNode *primary) const
{
    const QVector3D origin = primary->getWorldTransform(scene()->getTime()).column(3).toVector3D();
    GizmoTarget target{
        selected, primary, {origin, arrowAxes(primary, PoseToolSettings::Orientation::Local)}, {}};
    target.locks = commonLocks(selected, [](const GestureNode &node) {
        GizmoLocks locks{};
        for (int axis = 0; axis < 3; ++axis)
            locks[size_t(int(GizmoPart::X) + axis)] = !node.isFree(XStretch + axis);
        locks[size_t(GizmoPart::View)] = !node.isFree(AllScale);
        return locks;
    });
    return target;
}

int ScaleTool::channel() const
{
    return part() == GizmoPart::View ? int(AllScale) : XStretch + gizmoAxis(part());
}

void ScaleTool::beginDrag(const GizmoTarget &target, const QPointF &pixel)
{
    m_nodes.clear();
    for (VxNode *node : target.nodes)
        m_nodes.push_back(&gesture()->node(node));
    m_start = pixel;
    m_factor = 1;
    m_grabbed = 0;
    if (part() != GizmoPart::View)
        m_grabbed =
            offsetOnAxis(pressCamera(), target.frame.origin, target.frame.axisOf(part()), pixel)
                .value_or(0);
}

void ScaleTool::follow(const QPointF &pixel, bool snaps)
{
    double factor = m_factor;
    if (m_grabbed == 0) {
        const QPointF way = pixel - m_start;
        factor = 1 + (way.x() - way.y()) / PixelsPerUnit;
    } else if (const auto offset = offsetOnAxis(pressCamera(), pressFrame().origin,
                                                pressFrame().axisOf(part()), pixel)) {
        factor = *offset / m_grabbed;
    }
    if (snaps)
        factor = std::round(factor / SnapFactor) * SnapFactor;
    m_factor = std::max(SmallestFactor, factor);
}

void ScaleTool::write()
{
    for (GestureNode *node : m_nodes) {
        const double start = node->start()[std::size_t(channel())];
        gesture()->set(node, channel(), start == 0 ? m_factor - 1 : start * m_factor);
    }
}

QString ScaleTool::amountText() const
{
    return axisPrefix() + QChar(0xd7) + vxLocalNumber(QString::number(m_factor, 'f', 2));
}
