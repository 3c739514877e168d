#ifndef SPACES_H
#define SPACES_H

#include <QMatrix4x4>
#include <QVector3D>
#include <array>
#include <optional>
#include <vxcore/vxlimbsolver.h>

/// Conversions between the spaces of nodes.
namespace Spaces {

/// True for a transform that mirrors: it inverts handedness. False when it cannot be inverted.
bool isMirrored(const QMatrix4x4 &transform);
/// The rotation of a transform, as vxRotationOf() gives it.
///
/// All axes of a mirrored transform are inverted: a point reflection commutes with every rotation,
/// so that a rotation about an axis of the result is a rotation by the same angle about that axis
/// in the transform's own space. Directions to move in are the opposite ones.
VxRotation rotationOf(const QMatrix4x4 &transform);
/// The columns of a rotation.
std::array<QVector3D, 3> axesOf(const VxRotation &rotation);

VxVector originOf(const QMatrix4x4 &transform);
VxVector toVector(const QVector3D &vector);
QVector3D toVector3D(const VxVector &vector);
double distance(const VxVector &a, const VxVector &b);

/// The direction in a transform's own space that it maps to a direction of the world. None for a
/// transform that cannot be inverted.
std::optional<VxVector> unmapped(const QMatrix4x4 &transform, const VxVector &direction);

} // namespace Spaces

#endif
