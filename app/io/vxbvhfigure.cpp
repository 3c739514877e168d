#include "io/vxbvhfigure.h"

#include <array>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxskeleton.h>

namespace {

QVector3D vector(const VxBvhOffset &offset)
{
    return {offset.x, offset.y, offset.z};
}

VxFloatProperty *control(const VxNode &node, VxBvhChannel channel)
{
    return node.getTransformControl(static_cast<int>(channel));
}

VxNode::RotationOrder rotationOrder(const std::vector<VxBvhChannel> &channels)
{
    std::vector<int> axes;
    for (const VxBvhChannel channel : channels) {
        if (vxBvhIsRotation(channel))
            axes.push_back(vxBvhAxis(channel));
    }
    for (int axis = 0; axis < 3; ++axis) {
        if (std::find(axes.begin(), axes.end(), axis) == axes.end())
            axes.push_back(axis);
    }
    // By the first axis, then whether the second is the smaller one of the remaining two.
    static constexpr VxNode::RotationOrder orders[3][2] = {
        {VxNode::XYZ, VxNode::XZY}, {VxNode::YXZ, VxNode::YZX}, {VxNode::ZXY, VxNode::ZYX}};
    return orders[axes[0]][axes[1] < axes[2] ? 0 : 1];
}

// The keys' times and types are the same for every channel of a motion.
struct SharedKeys
{
    QVector<VxTime> times;
    QVector<quint8> types;

    explicit SharedKeys(const VxBvhTiming &timing)
        : times(timing.keyTimes())
        , types(times.size(), VxKeyInterp::Linear)
    {
    }

    void give(VxFloatProperty *property, const float *values) const
    {
        if (times.isEmpty())
            return;
        VxKeyColumns<float> keys;
        keys.times = times.constData();
        keys.values = values;
        keys.types = types.constData();
        keys.count = times.size();
        property->setKeys(keys);
    }
};

void placeBone(VxBone *bone, const VxBvhJoint &joint)
{
    QVector3D origin = vector(joint.offset);
    for (const VxBvhChannel channel : joint.channels) {
        if (vxBvhIsRotation(channel))
            continue;
        float &part = origin[vxBvhAxis(channel)];
        control(*bone, channel)->setStoredValue(part);
        part = 0.0f;
    }
    bone->setOrigin(origin);
    bone->setRotationOrder(rotationOrder(joint.channels));
}

// The middle of the children's positions is computed after all of them are placed.
class BoneEnds
{
public:
    explicit BoneEnds(const std::vector<VxBvhJoint> &joints)
        : m_sums(joints.size())
        , m_counts(joints.size(), 0)
    {
        for (const VxBvhJoint &joint : joints) {
            if (joint.parent < 0)
                continue;
            const auto parent = static_cast<std::size_t>(joint.parent);
            m_sums[parent] += vector(joint.offset);
            ++m_counts[parent];
        }
    }

    QVector3D endOf(const VxBvhJoint &joint, std::size_t index) const
    {
        if (!joint.endSites.empty())
            return vector(joint.endSites.front());
        return m_counts[index] > 0 ? m_sums[index] / float(m_counts[index]) : QVector3D();
    }

private:
    std::vector<QVector3D> m_sums;
    std::vector<int> m_counts;
};

} // namespace

std::unique_ptr<VxSkeleton> vxBvhBuildFigure(const VxBvhDocument &document,
                                             const VxBvhTiming &timing, const QString &name,
                                             const VxFileProgress &progress)
{
    auto skeleton = std::make_unique<VxSkeleton>(name);
    const SharedKeys keys(timing);
    const BoneEnds ends(document.joints);
    std::vector<VxNode *> bones;
    bones.reserve(document.joints.size());
    int channelIndex = 0;
    for (std::size_t i = 0; i < document.joints.size(); ++i) {
        const VxBvhJoint &joint = document.joints[i];
        if (progress && !progress(static_cast<int>(i * 100 / document.joints.size())))
            return nullptr;
        auto *bone = new VxBone(joint.name);
        VxNode *parent =
            joint.parent < 0 ? skeleton.get() : bones[static_cast<std::size_t>(joint.parent)];
        parent->addNodeChild(bone);
        bones.push_back(bone);
        placeBone(bone, joint);
        bone->setEndPoint(ends.endOf(joint, i));
        for (const VxBvhChannel channel : joint.channels)
            keys.give(control(*bone, channel), document.channelValues(channelIndex++));
    }
    return skeleton;
}
