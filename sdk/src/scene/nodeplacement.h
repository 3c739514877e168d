#ifndef SCENE_NODEPLACEMENT_H
#define SCENE_NODEPLACEMENT_H

#include "scene/nodecontrols.h"

/// Where a change of the scale goes: to the control of all axes, or to those of each.
enum class StretchTarget { Uniform, Axes };

/// The values that a node needs in another space to be where it is.
struct PlacedValues
{
    NodeControlValues values;
    /// False when only the place could be kept: rotation and scale are then the old ones.
    bool turned = true;
};

/// Carries a node's values to another parent. relation leads from the old parent's space to the
/// new one's. The angles are those nearest to `near`; a skew that rotation and scale cannot
/// express is lost. A node of no size keeps it.
PlacedValues placeValues(const NodeControlValues &values, VxNode::RotationOrder order,
                         const QVector3D &origin, const AffineTransform &relation,
                         const VxEuler &near, StretchTarget target);

VxEuler anglesOf(const NodeControlValues &values);

#endif
