#ifndef NODECHANNELS_H
#define NODECHANNELS_H

#include <array>
#include <vxcore/vxeuler.h>
#include <vxcore/vxnode.h>

class VxFloatProperty;

/// The transform controls of a node in the order in which poses list them.
enum PoseChannel {
    XPlace,
    YPlace,
    ZPlace,
    XAngle,
    YAngle,
    ZAngle,
    AllScale,
    XStretch,
    YStretch,
    ZStretch,
    PoseChannelCount
};

using PoseValues = std::array<double, PoseChannelCount>;
static_assert(std::tuple_size<VxRestPose>::value == PoseChannelCount, "in the same order");

/// Reads the transform controls of a node. A control that was never asked for is not made by it: it
/// counts as its default value.
class NodeChannels
{
public:
    /// Borrowed while the object is used.
    explicit NodeChannels(const VxNode *node);

    /// Null for a control that was not made yet. Not owned.
    VxFloatProperty *at(int channel) const { return m_controls[std::size_t(channel)]; }
    PoseValues values(VxTime time) const;
    /// The rest pose of the node; where none was set, what each control holds without its keys.
    /// Motion files leave the pose of their skeleton there.
    PoseValues rest() const;

    static double defaultValue(int channel) { return channel < AllScale ? 0.0 : 1.0; }

private:
    const VxNode *m_node;
    std::array<VxFloatProperty *, PoseChannelCount> m_controls{};
};

/// The three angles of a pose, in degrees.
inline VxEuler anglesOf(const PoseValues &values)
{
    return {values[XAngle], values[YAngle], values[ZAngle]};
}

inline VxRotationOrder orderOf(const VxNode *node)
{
    return vxRotationOrder(node->getRotationOrder());
}

#endif
