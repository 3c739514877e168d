#ifndef SCENE_ROTATIONANGLES_H
#define SCENE_ROTATIONANGLES_H

#include "scene/affinetransform.h"
#include <array>
#include <vxcore/vxnode.h>

/// The axes of a rotation order, 0 for X to 2 for Z, as they are multiplied from left to right.
VXCORE_EXPORT const std::array<int, 3> &rotationAxes(VxNode::RotationOrder order);

/// Angles in degrees about X, Y and Z, whatever the order.
using RotationAngles = std::array<double, 3>;

/// The angles that make a turn (three axes at right angles, of length 1). Of all that do, whole
/// turns included, those nearest to the ones given: so curves made of many answers do not jump.
VXCORE_EXPORT RotationAngles rotationAngles(const AffineTransform &turn,
                                            VxNode::RotationOrder order,
                                            const RotationAngles &near);

#endif
