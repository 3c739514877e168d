#ifndef VXLIMBSOLVER_H
#define VXLIMBSOLVER_H

#include <array>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxeuler.h>

class QMatrix4x4;

using VxVector = std::array<double, 3>;

inline double vxDot(const VxVector &a, const VxVector &b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline VxVector vxCross(const VxVector &a, const VxVector &b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// A limb of two segments in one space, such as hip, knee and ankle.
struct VxLimb
{
    VxVector root;
    VxVector middle;
    VxVector end;
};

/// The rotations, in the space of the limb, that bring its end to a target.
struct VxLimbSolution
{
    VxQuaternion upper; ///< of both segments about the root
    VxQuaternion lower; ///< of the lower segment about the middle joint, applied before `upper`
    /// The limb with both applied; its end is the target, or the nearest point within reach.
    VxLimb limb;
    bool reached = true;
};

/// Solves a two-bone limb for the position of its end: the bend of the middle joint follows from
/// the law of cosines, then the shortest rotation about the root aims the end at the target (the
/// analytic solution of Tolani, Goswami and Badler, Real-time inverse kinematics techniques for
/// anthropomorphic limbs, 2000, with the swivel angle unchanged). So the plane of the bend changes
/// as little as possible, and a target at the end leaves the limb unchanged.
///
/// `bendAxis` is the axis about which a straight limb bends, in the same space; it need not be
/// perpendicular to the limb, and is not used while the limb is bent. A target that is too far
/// straightens the limb, one that is too near folds it; `reached` is then false. A segment of zero
/// length is not rotated.
VXCORE_EXPORT VxLimbSolution vxSolveLimb(const VxLimb &limb, const VxVector &target,
                                         const VxVector &bendAxis);

VXCORE_EXPORT VxVector operator*(const VxRotation &matrix, const VxVector &vector);
/// The rotation of a transform: its axes made perpendicular, X first. Axes of zero length or along
/// another one are replaced, so that the result is always a rotation.
VXCORE_EXPORT VxRotation vxRotationOf(const QMatrix4x4 &transform);
/// A vector rotated by a quaternion of length 1.
VXCORE_EXPORT VxVector vxRotated(const VxQuaternion &rotation, const VxVector &vector);
/// The rotation by an angle in degrees about an axis; identity for an axis of zero length.
VXCORE_EXPORT VxQuaternion vxRotationAbout(const VxVector &axis, double degrees);
/// The shortest rotation from the direction of `from` to that of `to`; about any perpendicular axis
/// for opposite ones, identity where either has zero length.
VXCORE_EXPORT VxQuaternion vxRotationBetween(const VxVector &from, const VxVector &to);

#endif
