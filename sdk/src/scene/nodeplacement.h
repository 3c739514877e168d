#ifndef NODEPLACEMENT_H
#define NODEPLACEMENT_H

#include "scene/nodecontrols.h"

/// The controls that a change of scale is written to: that of all axes, or those of each.
enum class StretchTarget { Uniform, Axes };

/// The values that keep a node's transform in another space.
struct PlacedValues
{
    NodeControlValues values;
    /// False when only the position could be kept: rotation and scale are then the old ones.
    bool keepsRotation = true;
};

/// Converts a node's values to another parent. relation maps the old parent's space to the new
/// one's. The angles are those nearest to `near`; a skew that rotation and scale cannot express is
/// lost. A node of zero scale keeps it.
PlacedValues placeValues(const NodeControlValues &values, VxNode::RotationOrder order,
                         const QVector3D &origin, const AffineTransform &relation,
                         const VxEuler &near, StretchTarget target);

VxEuler anglesOf(const NodeControlValues &values);

#endif
