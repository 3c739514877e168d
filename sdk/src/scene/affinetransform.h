#ifndef AFFINETRANSFORM_H
#define AFFINETRANSFORM_H

#include <QtGui/QMatrix4x4>
#include <optional>
#include <vxcore/vxeuler.h>

/// An affine transform in double precision: three columns for the axes, and a fourth for the
/// origin.
///
/// Chains of nodes are multiplied and inverted in it, so that a round trip is exact to the last bit
/// of single precision.
struct AffineTransform
{
    double column[4][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 0}};

    /// Multiplies by a rotation about one axis (0 X, 1 Y, 2 Z) from the right: only the two columns
    /// of the other axes mix.
    void rotate(int axis, double degrees);

    /// Transforms a point.
    void map(const double place[3], double mapped[3]) const;
    /// None for a singular transform, or one that is not finite.
    std::optional<AffineTransform> inverted() const;
    /// True when shapes are kept: a rotation, a translation and one factor above 0 for all axes.
    bool isConformal() const;

    /// The axes alone; a rotation if they are orthonormal.
    VxRotation axes() const;
    QMatrix4x4 toMatrix() const;
};

/// b first, then a.
AffineTransform operator*(const AffineTransform &a, const AffineTransform &b);

/// Splits the columns of the axes into a rotation and the rest: factors along the axes (the last
/// one below 0 for a mirror image), and a skew that is dropped. None for coplanar axes.
struct RotationScale
{
    AffineTransform rotation; ///< without translation
    double factors[3];
};
std::optional<RotationScale> splitRotation(const AffineTransform &transform);

#endif
