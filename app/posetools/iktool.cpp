#include "posetools/iktool.h"

#include "posetools/spaces.h"
#include "scenetree/sceneedits.h"
#include "viewport/figurelines.h"
#include "viewport/figurepick.h"
#include "widgets/studiotext.h"

#include <vxcore/vxscene.h>

IkTool::IkTool(VxScene *scene, PoseToolSettings *settings, QObject *parent)
    : OffsetTool(PoseTools::Ik, scene, settings, GizmoKind::Move, parent)
{
    setObjectName(QStringLiteral("IkTool"));
}

GizmoTarget IkTool::targetFor(VxNode *joint) const
{
    const QVector3D at = joint->getWorldTransform(scene()->getTime()).column(3).toVector3D();
    return {{joint}, joint, {at, arrowAxes(joint, settings()->orientation())}, {}};
}

GizmoTarget IkTool::targetOf(const QVector<VxNode *> &, VxNode *primary) const
{
    if (!Limb(primary).obstacle(scene()->getTime()).isEmpty())
        return {{}, primary, {}, {}};
    return targetFor(primary);
}

/** A joint that is not selected yet is grabbed and selected at once. */
bool IkTool::press(const ViewportPointer &at)
{
    if (TransformTool::press(at))
        return true;
    VxNode *joint =
        pickFigure(FigureLines::collect(*scene(), scene()->getTime()), at.camera, at.pixel);
    const bool adds = at.modifiers & (Qt::ControlModifier | Qt::ShiftModifier);
    if (!joint || adds)
        return false;
    const QString obstacle = Limb(joint).obstacle(scene()->getTime());
    if (!obstacle.isEmpty()) {
        Q_EMIT message(obstacle);
        return false;
    }
    SceneEdits::selectOnly(scene(), {joint});
    begin(targetFor(joint), GizmoPart::View, at);
    return true;
}

void IkTool::beginDrag(const GizmoTarget &target, const QPointF &pixel)
{
    m_limb.emplace(target.primary);
    m_limb->begin(gesture());
    OffsetTool::beginDrag(target, pixel);
    m_reached = true;
}

void IkTool::write()
{
    const VxVector start = m_limb->startPosition();
    const VxVector moved = Spaces::toVector(offset());
    m_reached = m_limb->solve({start[0] + moved[0], start[1] + moved[1], start[2] + moved[2]});
}

QString IkTool::remark() const
{
    return TransformTool::remark() + (m_reached ? QString() : StudioText::tr(" Out of reach."));
}
