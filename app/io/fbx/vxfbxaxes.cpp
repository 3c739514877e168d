#include "io/fbx/vxfbxaxes.h"

#include "io/fbx/vxfbxcurvemath.h"

#include <vxcore/vxeuler.h>

namespace {

using Axes = std::array<VxFbxSettings::Axis, 3>;

int determinant(const Axes &axes)
{
    const bool isEven = (axes[0].axis + 1) % 3 == axes[1].axis;
    return (isEven ? 1 : -1) * axes[0].sign * axes[1].sign * axes[2].sign;
}

// The axis of our system that is parallel to an axis of the file, and its sign.
VxFbxSettings::Axis imageOf(const Axes &axes, int fileAxis)
{
    int ours = 0;
    while (axes[std::size_t(ours)].axis != fileAxis)
        ++ours;
    return {ours, axes[std::size_t(ours)].sign};
}

std::array<double, 3> converted(const Axes &axes, const std::array<double, 3> &v, bool hasSigns,
                                int factor = 1)
{
    std::array<double, 3> result{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double sign = hasSigns ? factor * axes[i].sign : 1;
        result[i] = sign * v[std::size_t(axes[i].axis)];
    }
    return result;
}

VxNode::RotationOrder converted(const Axes &axes, VxNode::RotationOrder order)
{
    std::array<int, 3> images{};
    for (std::size_t i = 0; i < 3; ++i)
        images[i] = imageOf(axes, vxRotationAxes(static_cast<VxRotationOrder>(order))[i]).axis;
    return VxNode::RotationOrder(vxOrderOfAxes(images));
}

void convertChannel(const Axes &axes, VxMotionChannel *channel)
{
    const auto convert = [&](VxMotionTarget first, int factor) {
        const int axis = static_cast<int>(channel->target) - static_cast<int>(first);
        const VxFbxSettings::Axis image = imageOf(axes, axis);
        channel->target = static_cast<VxMotionTarget>(static_cast<int>(first) + image.axis);
        if (factor * image.sign < 0)
            vxScaleCurve(&channel->curve, -1.0);
    };
    if (channel->target <= VxMotionTarget::ZTranslate)
        convert(VxMotionTarget::XTranslate, 1);
    else if (channel->target <= VxMotionTarget::ZRotate)
        convert(VxMotionTarget::XRotate, determinant(axes));
    else if (channel->target >= VxMotionTarget::XScale && channel->target <= VxMotionTarget::ZScale)
        convert(VxMotionTarget::XScale, 0);
}

void convertNode(const Axes &axes, VxMotionNode *node)
{
    // An axis of rotation is mirrored with the scene, which reverses it once more.
    const int handed = determinant(axes);
    const VxMotionQuaternion q = node->orientation;
    const std::array<double, 3> vector = converted(axes, {{q[0], q[1], q[2]}}, true, handed);
    node->translation = converted(axes, node->translation, true);
    node->rotation = converted(axes, node->rotation, true, handed);
    node->scale = converted(axes, node->scale, false);
    node->order = converted(axes, node->order);
    node->orientation = {{vector[0], vector[1], vector[2], q[3]}};
    node->endPoint = converted(axes, node->endPoint, true);
}

} // namespace

bool vxFbxConvertAxes(const Axes &axes, VxImportedMotion *motion)
{
    constexpr Axes yUp{{{0, 1}, {1, 1}, {2, 1}}};
    constexpr Axes zUp{{{0, 1}, {2, 1}, {1, -1}}};
    motion->facts.upAxis = axes == zUp ? 'Z' : 'Y';
    if (axes == yUp || axes == zUp)
        return false;
    for (VxMotionNode &node : motion->nodes)
        convertNode(axes, &node);
    for (VxMotionClip &clip : motion->clips) {
        for (VxMotionChannel &channel : clip.channels)
            convertChannel(axes, &channel);
    }
    return true;
}
