#ifndef SCENE_AFFINETRANSFORM_H
#define SCENE_AFFINETRANSFORM_H

#include <QtGui/QMatrix4x4>
#include <optional>
#include <vxcore/vxeuler.h>

/// A transform of space in double precision: three columns that tell where the axes go, and a
/// fourth for the place of the origin.
///
/// Chains of nodes are multiplied and inverted in it, so that values that should come out as they
/// went in do so to the last bit of single precision.
struct AffineTransform
{
    double column[4][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 0}};

    /// Multiplies by a rotation about one axis (0 X, 1 Y, 2 Z) from the right: only the two columns
    /// of the other axes mix.
    void turn(int axis, double degrees);

    /// Where a place goes.
    void map(const double place[3], double mapped[3]) const;
    /// None for a transform that flattens space, or is not finite.
    std::optional<AffineTransform> inverted() const;
    /// True when shapes are kept: a turn, a move and one factor above 0 for all axes.
    bool isConformal() const;

    /// The axes alone; a rotation where they are at right angles and of length 1.
    VxRotation axes() const;
    QMatrix4x4 toMatrix() const;
};

/// b first, then a.
AffineTransform operator*(const AffineTransform &a, const AffineTransform &b);

/// Splits the columns of the axes into a turn and what is left: factors along the axes (the last
/// one below 0 for a mirror image), and a skew that is dropped. None when the axes lie in a plane.
struct TurnAndStretch
{
    AffineTransform turn; ///< without a place
    double factors[3];
};
std::optional<TurnAndStretch> splitTurn(const AffineTransform &transform);

#endif
