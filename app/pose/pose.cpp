#include "pose/pose.h"

#include "pose/posefigure.h"
#include "pose/posewriter.h"

JointPose capturePose(const PoseFigure &figure, const VxNode *node, VxTime time)
{
    const NodeChannels channels(node);
    const PoseValues values = channels.values(time);
    const PoseValues rest = channels.rest();
    const VxRotation axes = figure.restAxes(node);
    const VxRotation above = figure.parentRestAxes(node);
    JointPose pose;
    pose.name = node->getName();
    pose.rotation = above * vxRotation(anglesOf(values), orderOf(node)) * vxTransposed(axes);
    pose.shift = above * VxVector{values[XPlace] - rest[XPlace], values[YPlace] - rest[YPlace],
                                  values[ZPlace] - rest[ZPlace]};
    pose.scale = values[AllScale];
    pose.stretch = {values[XStretch], values[YStretch], values[ZStretch]};
    pose.restAxes = axes;
    return pose;
}

void applyPose(const JointPose &pose, const VxRotation &reflection, const PoseFigure &figure,
               const VxNode *node, PoseWriter *writer)
{
    const VxRotation axes = figure.restAxes(node);
    const VxRotation above = vxTransposed(figure.parentRestAxes(node));
    const PoseValues rest = NodeChannels(node).rest();
    const VxVector shift = above * (reflection * pose.shift);
    for (int i = 0; i < 3; ++i)
        writer->set(node, XPlace + i, rest[std::size_t(i)] + shift[std::size_t(i)]);
    writer->setRotation(node, above * (reflection * pose.rotation * reflection) * axes);
    writer->set(node, AllScale, pose.scale);
    // The node's own axes as seen from those of the other node; they are equal or opposite ones
    // unless the rest poses differ by other angles.
    const VxRotation turn = vxTransposed(axes) * reflection * pose.restAxes;
    for (std::size_t i = 0; i < 3; ++i) {
        double stretch = 0;
        for (std::size_t k = 0; k < 3; ++k)
            stretch += turn[i][k] * turn[i][k] * pose.stretch[k];
        writer->set(node, XStretch + int(i), stretch);
    }
}
