#ifndef POSE_H
#define POSE_H

#include "pose/nodechannels.h"

#include <QPointer>
#include <QString>
#include <vector>
#include <vxcore/vxposetransfer.h>

class PoseWriter;
class VxPoseFigure;

/// The pose of one node, with the rest pose that it is relative to.
struct JointPose
{
    QString name;
    PoseValues values;
    VxJointRest rest;
};

/// The poses of several nodes of one figure at one time; plain data that outlives them.
struct Pose
{
    QPointer<VxNode> root; ///< of the figure; null once it is deleted
    VxRotation reflection; ///< see VxPoseFigure::reflection()
    std::vector<JointPose> joints;
};

/// Reads the pose of a node of the figure.
JointPose capturePose(const VxPoseFigure &figure, const VxNode *node, VxTime time);

/// Gives a node the pose of another, see VxPoseTransfer.
void applyPose(const JointPose &pose, const VxRotation &reflection, const VxPoseFigure &figure,
               const VxNode *node, PoseWriter *writer);

#endif
