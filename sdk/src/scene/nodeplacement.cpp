#include "scene/nodeplacement.h"

namespace {

/// The node's transform without its own scale, so that a flat node still has axes.
AffineTransform unscaled(NodeControlValues values, VxNode::RotationOrder order,
                         const QVector3D &origin)
{
    for (const NodeControl scale : {UniformScale, XScale, YScale, ZScale})
        values[scale] = 1;
    return nodeTransform(values, order, origin);
}

} // namespace

VxEuler anglesOf(const NodeControlValues &values)
{
    return {values[XRotation], values[YRotation], values[ZRotation]};
}

PlacedValues placeValues(const NodeControlValues &values, VxNode::RotationOrder order,
                         const QVector3D &origin, const AffineTransform &relation,
                         const VxEuler &near, StretchTarget target)
{
    PlacedValues placed{values, true};
    const AffineTransform moved = relation * unscaled(values, order, origin);
    for (int axis = 0; axis < 3; ++axis)
        placed.values[size_t(XPosition + axis)] = moved.column[3][axis] - double(origin[axis]);
    const std::optional<RotationScale> split = splitRotation(moved);
    if (!split) {
        placed.keepsRotation = false;
        return placed;
    }
    const VxEuler angles = vxEulerAngles(split->rotation.axes(), vxRotationOrder(order), near);
    for (size_t axis = 0; axis < 3; ++axis) {
        placed.values[XRotation + axis] = angles[axis];
        if (target == StretchTarget::Axes)
            placed.values[XScale + axis] *= split->factors[axis];
    }
    if (target == StretchTarget::Uniform)
        placed.values[UniformScale] *= split->factors[0];
    return placed;
}
