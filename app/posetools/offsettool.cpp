#include "posetools/offsettool.h"

void OffsetTool::beginDrag(const GizmoTarget &target, const QPointF &pixel)
{
    m_drag.emplace(pressCamera(), target.frame, part(), pixel);
}

void OffsetTool::follow(const QPointF &pixel, bool snaps)
{
    if (snaps)
        m_drag->followGrid(pixel,
                           settings()->orientation() == PoseToolSettings::Orientation::World);
    else
        m_drag->follow(pixel);
}
