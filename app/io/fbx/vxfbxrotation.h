#ifndef VXFBXROTATION_H
#define VXFBXROTATION_H

#include <vxcore/vxeuler.h>

/// A rotation before * R(angles) * after, whose angles change, as R'(angles') alone: each of the
/// new angles is one of the old ones, with a sign and an offset.
///
/// Such a form exists where the constant rotations only permute axes (by multiples of 90 degrees)
/// or continue the outermost ones, which is their usual purpose in files: another up axis, or bones
/// along another axis.
struct VxFbxRotationForm
{
    struct Angle
    {
        std::size_t source = 0; ///< axis of the old angle
        double sign = 1.0;
        double offset = 0.0; ///< degrees, added after the sign
    };

    VxRotationOrder order = VxRotationOrder::XYZ;
    std::array<Angle, 3> angles; ///< about X, Y, Z
};

/// Finds the form; false where there is none.
bool vxFbxFindForm(const VxRotation &before, VxRotationOrder order, const VxRotation &after,
                   VxFbxRotationForm *form);

#endif
