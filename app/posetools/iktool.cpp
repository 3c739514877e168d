#include "posetools/iktool.h"

#include "posetools/movetool.h"
#include "scenetree/sceneedits.h"
#include "viewport/figurelines.h"
#include "viewport/figurepick.h"
#include "widgets/studiotext.h"

#include <algorithm>
#include <vxcore/vxscene.h>

IkTool::IkTool(VxScene *scene, PoseToolSettings *settings, QObject *parent)
    : TransformTool(scene, settings, GizmoKind::Move, parent)
{
    setObjectName(QStringLiteral("IkTool"));
}

QString IkTool::title() const
{
    return StudioText::tr("IK");
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
    m_drag.emplace(pressCamera(), target.frame, part(), pixel);
    m_reached = true;
}

void IkTool::follow(const QPointF &pixel, bool snaps)
{
    if (snaps)
        m_drag->followGrid(pixel,
                           settings()->orientation() == PoseToolSettings::Orientation::World);
    else
        m_drag->follow(pixel);
}

bool IkTool::hasAmount() const
{
    return m_drag->hasAmount();
}

void IkTool::setAmount(double amount)
{
    m_drag->setAmount(amount);
}

void IkTool::write()
{
    const VxVector start = m_limb->startPosition();
    const QVector3D offset = m_drag->offset();
    m_reached = m_limb->solve({start[0] + double(offset.x()), start[1] + double(offset.y()),
                               start[2] + double(offset.z())});
}

QString IkTool::amountText() const
{
    return m_drag->text();
}

QString IkTool::remark() const
{
    return TransformTool::remark() + (m_reached ? QString() : StudioText::tr(" Out of reach."));
}
