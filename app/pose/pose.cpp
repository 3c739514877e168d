#include "pose/pose.h"

#include "pose/posewriter.h"

#include <vxcore/vxposefigure.h>

JointPose capturePose(const VxPoseFigure &figure, const VxNode *node, VxTime time)
{
    return {node->getName(), NodeChannels(node).values(time), figure.rest(node)};
}

void applyPose(const JointPose &pose, const VxRotation &reflection, const VxPoseFigure &figure,
               const VxNode *node, PoseWriter *writer)
{
    const PoseValues &values = pose.values;
    const VxPoseTransfer transfer(pose.rest, figure.rest(node), reflection);
    const VxVector translation =
        transfer.translation({values[XPlace], values[YPlace], values[ZPlace]});
    for (int i = 0; i < 3; ++i)
        writer->set(node, XPlace + i, translation[std::size_t(i)]);
    writer->setRotation(node, transfer.rotation(vxRotation(anglesOf(values), pose.rest.order)));
    writer->set(node, AllScale, values[AllScale]);
    const VxVector stretch =
        transfer.stretch({values[XStretch], values[YStretch], values[ZStretch]});
    for (int i = 0; i < 3; ++i)
        writer->set(node, XStretch + i, stretch[std::size_t(i)]);
}
