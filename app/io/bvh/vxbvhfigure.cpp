#include "io/bvh/vxbvhfigure.h"

#include "io/motion/vximportedmotion.h"
#include "io/motion/vxmotionnodes.h"

#include <algorithm>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxskeleton.h>

namespace {

VxFloatProperty *control(const VxNode &node, VxBvhChannel channel)
{
    return node.getTransformControl(static_cast<int>(channel));
}

/// Axes without a channel are last.
VxNode::RotationOrder rotationOrder(const std::vector<VxBvhChannel> &channels)
{
    std::array<int, 3> axes{{0, 1, 2}};
    auto next = axes.begin();
    for (const VxBvhChannel channel : channels) {
        if (!vxBvhIsRotation(channel))
            continue;
        const auto found = std::find(next, axes.end(), vxBvhAxis(channel));
        std::rotate(next++, found, found + 1);
    }
    return VxNode::RotationOrder(vxOrderOfAxes(axes));
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
    QVector3D origin = joint.offset;
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

} // namespace

std::unique_ptr<VxSkeleton> vxBvhBuildFigure(const VxBvhDocument &document,
                                             const VxBvhTiming &timing, const QString &name,
                                             const VxFileProgress &progress)
{
    auto skeleton = std::make_unique<VxSkeleton>(name);
    const SharedKeys keys(timing);
    VxChildMiddles middles(document.joints.size());
    for (const VxBvhJoint &joint : document.joints)
        middles.add(joint.parent, joint.offset);
    std::vector<VxBone *> bones;
    bones.reserve(document.joints.size());
    int channelIndex = 0;
    for (std::size_t i = 0; i < document.joints.size(); ++i) {
        const VxBvhJoint &joint = document.joints[i];
        if (progress && !progress(static_cast<int>(i * 100 / document.joints.size())))
            return nullptr;
        auto *bone = new VxBone(joint.name);
        if (joint.parent < 0)
            skeleton->addNodeChild(bone);
        else
            bones[static_cast<std::size_t>(joint.parent)]->addNodeChild(bone);
        bones.push_back(bone);
        placeBone(bone, joint);
        bone->setEndPoint(joint.endSites.empty() ? middles.of(i) : joint.endSites.front());
        for (const VxBvhChannel channel : joint.channels)
            keys.give(control(*bone, channel), document.channelValues(channelIndex++));
    }
    return skeleton;
}
