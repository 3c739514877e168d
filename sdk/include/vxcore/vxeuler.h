#ifndef VXEULER_H
#define VXEULER_H

#include <QtCore/QtGlobal>
#include <array>
#include <vxcore/vxcoreglobal.h>

/// The order in which the rotations about the axes are multiplied, from left to right: ZYX is
/// Rz * Ry * Rx. The numbers are those of VxNode::RotationOrder.
enum class VxRotationOrder : quint8 { XYZ, XZY, YXZ, YZX, ZXY, ZYX };

/// Angles in degrees about X, Y and Z, in this sequence whatever the rotation order.
using VxEuler = std::array<double, 3>;

/// A rotation as a matrix: rotation[row][column], orthonormal, determinant 1.
using VxRotation = std::array<std::array<double, 3>, 3>;

inline constexpr VxRotation VxIdentityRotation = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

/// A rotation as a quaternion of length 1; q and -q are the same rotation.
struct VxQuaternion
{
    double w = 1;
    double x = 0;
    double y = 0;
    double z = 0;
};

/// The axes of a rotation order, 0 for X to 2 for Z, from left to right: first, middle, last.
VXCORE_EXPORT const std::array<int, 3> &vxRotationAxes(VxRotationOrder order);

VXCORE_EXPORT VxRotation vxRotation(const VxEuler &angles, VxRotationOrder order);
VXCORE_EXPORT VxRotation vxRotation(const VxQuaternion &quaternion);
VXCORE_EXPORT VxQuaternion vxQuaternion(const VxEuler &angles, VxRotationOrder order);
VXCORE_EXPORT VxQuaternion vxQuaternion(const VxRotation &rotation);

/// The angles of a rotation. Of all equivalents the one nearest to `previous` (see
/// vxNearestEuler()), so that a rotation beyond 180 degrees continues instead of jumping.
VXCORE_EXPORT VxEuler vxEulerAngles(const VxRotation &rotation, VxRotationOrder order,
                                    const VxEuler &previous = {});
/// The same for a quaternion, which need not have length 1; {} for one of length 0.
VXCORE_EXPORT VxEuler vxEulerAngles(const VxQuaternion &quaternion, VxRotationOrder order,
                                    const VxEuler &previous = {});

/// The angles of the same rotation that are nearest to `previous` by the sum of the distances.
///
/// A rotation has two triples of angles, except for full revolutions: (first, middle, last) and
/// (first + 180, 180 - middle, last + 180). With the middle angle at +-90 degrees (its cosine below
/// 1e-6, gimbal lock) first and last rotate about one axis; then the first angle is that of
/// `previous`, and the last one takes up the difference.
///     previous (170, 0, 0), angles (-175, 0, 0): (185, 0, 0)
VXCORE_EXPORT VxEuler vxNearestEuler(const VxEuler &angles, const VxEuler &previous,
                                     VxRotationOrder order);

/// a * b: b first, then a.
VXCORE_EXPORT VxRotation operator*(const VxRotation &a, const VxRotation &b);
VXCORE_EXPORT VxQuaternion operator*(const VxQuaternion &a, const VxQuaternion &b);
/// The inverse of a rotation.
inline VxQuaternion vxInverse(const VxQuaternion &q)
{
    return {q.w, -q.x, -q.y, -q.z};
}
VXCORE_EXPORT VxRotation vxTransposed(const VxRotation &rotation);

/// The angle of the rotation from a to b, 0 to 180 degrees.
VXCORE_EXPORT double vxAngleBetween(const VxQuaternion &a, const VxQuaternion &b);
/// The rotation at `part` (0 to 1) of the shorter arc from a to b, at constant speed.
VXCORE_EXPORT VxQuaternion vxSlerp(const VxQuaternion &a, const VxQuaternion &b, double part);

#endif
