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
