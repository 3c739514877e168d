#ifndef VXIO_VXEULERANGLES_H
#define VXIO_VXEULERANGLES_H

#include <array>
#include <vxcore/vxnode.h>

/// A rotation as a matrix: rotation[row][column], orthonormal.
using VxRotation = std::array<std::array<double, 3>, 3>;

/// The axes of a rotation order, 0 X to 2 Z, in the order in which the rotations are multiplied.
std::array<int, 3> vxRotationAxes(VxNode::RotationOrder order);

/// The angles about X, Y and Z (degrees, in this order whatever the rotation order is) whose
/// product in the given order is the rotation. Of all there are, those nearest to \a before are
/// taken, so that a turn that goes on does not jump from 180 to -180. Where two axes coincide the
/// last one of the order keeps the angle it had before.
std::array<double, 3> vxEulerAngles(const VxRotation &rotation, VxNode::RotationOrder order,
                                    const std::array<double, 3> &before = {0.0, 0.0, 0.0});

/// The product of the rotations about the axes; the reverse of the above.
VxRotation vxRotationOf(const std::array<double, 3> &degrees, VxNode::RotationOrder order);

#endif
