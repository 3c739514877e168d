#ifndef VXBVHSAMPLER_H
#define VXBVHSAMPLER_H

#include "io/bvh/vxbvhdocument.h"
#include "io/motion/vximportedmotion.h"
#include "io/vxfileprogress.h"

#include <QHash>
#include <QMatrix4x4>
#include <QVector>
#include <vector>
#include <vxcore/vxtime.h>

class VxBone;
class VxFloatProperty;
class VxSkeleton;

/// Samples the joints of a figure, and the values of their channels at given times, for a motion
/// file.
///
/// A motion file has neither scales nor nodes between its joints. A bone below another one, without
/// a scale above it, is therefore copied control by control, which is exact; for other bones the
/// transform relative to the parent joint is computed from the world, so that the figure in the
/// file looks like the figure in the scene.
class VxBvhSampler
{
public:
    /// The figure is borrowed. Times ascend.
    VxBvhSampler(const VxSkeleton *skeleton, const QVector<VxTime> &times);

    /// Joints without a parent get three positions and three rotations, others three rotations,
    /// and positions only where they move. A joint without joints below it gets an end site.
    std::vector<VxBvhJoint> joints() const;
    /// One value a channel and time, channel after channel. False when cancelled.
    bool sample(std::vector<float> *values, const VxFileProgress &progress) const;

    /// The number of bones that were computed instead of copied.
    int numWorkedOut() const;

private:
    struct Frame;
    struct Joint
    {
        const VxBone *bone = nullptr;
        int parent = -1;
        bool isDirect = false;   // copied control by control
        bool isUnscaled = false; // neither inherits nor passes on a scale
        bool moves = false;      // has position channels
        bool isLeaf = true;
    };

    bool isAlways(const VxFloatProperty *control, float value) const;
    bool areAlways(const VxNode *node, VxMotionTarget first, VxMotionTarget last,
                   float value) const;
    bool isUnscaled(const VxNode *node) const;
    bool isAtOrigin(const VxNode *node) const;
    int jointAbove(const VxNode *node) const;
    void addJoint(const VxBone *bone);
    std::vector<QMatrix4x4> worlds(VxTime time) const;
    QMatrix4x4 worldOf(const VxNode *node, VxTime time,
                       const std::vector<QMatrix4x4> &worlds) const;
    void setOffset(const Joint &joint, std::size_t index, const std::vector<QMatrix4x4> &first,
                   VxBvhJoint *out) const;
    Frame frameOf(int joint, const std::vector<QMatrix4x4> &worlds) const;
    void copy(const Joint &joint, float *values) const;
    bool workOut(std::vector<float> *values, const VxFileProgress &progress) const;
    /// Of each joint, and behind the last one.
    std::vector<std::size_t> firstChannels() const;

    const QVector<VxTime> m_times;
    const VxSkeleton *const m_skeleton;
    std::vector<Joint> m_joints;
    QHash<const VxNode *, int> m_indexes;
    bool m_isSkeletonStill = true;
    bool m_isSkeletonUnscaled = true;
};

#endif
