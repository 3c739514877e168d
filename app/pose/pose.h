#ifndef POSE_H
#define POSE_H

#include "pose/nodechannels.h"

#include <QPointer>
#include <QString>
#include <vector>
#include <vxcore/vxlimbsolver.h>

class PoseFigure;
class PoseWriter;

/// The pose of one node, relative to its figure's rest pose.
struct JointPose
{
    QString name;
    /// The rotation away from rest, about axes of the rest pose in the figure's space:
    /// Rp * L * inverse(R), with the local rotation L and the rest axes R of the node and Rp of its
    /// parent. The identity at rest.
    VxRotation rotation;
    /// The translation away from rest, in the same axes.
    VxVector shift;
    double scale;
    VxVector stretch; ///< of the node's own axes
    VxRotation restAxes;
};

/// The poses of several nodes of one figure at one time; plain data that outlives them.
struct Pose
{
    QPointer<VxNode> root; ///< of the figure; null once it is gone
    VxRotation reflection; ///< see PoseFigure::reflection()
    std::vector<JointPose> joints;
};

/// Reads the pose of a node of the figure.
JointPose capturePose(const PoseFigure &figure, const VxNode *node, VxTime time);

/// Gives a node the pose of another. At rest both have the pose of their own figures, so that axes
/// may differ. reflection: the identity, or that of a mirror image; then the world transform
/// relative to the figure is the mirror image of the other's whenever this holds for the parents.
void applyPose(const JointPose &pose, const VxRotation &reflection, const PoseFigure &figure,
               const VxNode *node, PoseWriter *writer);

#endif
