#ifndef GESTURENODE_H
#define GESTURENODE_H

#include "pose/nodechannels.h"

#include <QMatrix4x4>
#include <bitset>

/// A node in a gesture: its channels at the start, and the values that the gesture gives them.
///
/// While the scene animates a value becomes a key at the gesture's time, on the channels that
/// change and no others. Otherwise it is set without a key, see VxFloatProperty::setTransientValue.
class GestureNode
{
public:
    enum class Outcome {
        Done,
        Limited, ///< the channel got its nearest limit
        Refused  ///< locked, driven by a link, or not a number
    };

    GestureNode(VxNode *node, VxTime time, bool makesKeys);

    VxNode *node() const { return m_node; }
    VxTime time() const { return m_time; }
    const NodeChannels &channels() const { return m_channels; }
    VxRotationOrder order() const { return m_order; }
    const PoseValues &start() const { return m_start; }
    /// True for a channel that can be set. One that was not made yet is free.
    bool isFree(int channel) const;

    Outcome set(int channel, double value);
    /// Returns every channel whose value is that of the start to its state at the start, so that a
    /// gesture that ends where it began leaves no key.
    void settle();
    /// Returns every channel to its state at the start.
    void revert();

    /// Sets the transient values of the start again, which a key at their time has dropped; for
    /// everything else already in the state of the start.
    void restoreTransientValues();

    /// translate(origin + position) * rotation * scale with some values.
    QMatrix4x4 localMatrix(const PoseValues &values) const;
    /// From the parent's space to the world, in the scene's present state.
    QMatrix4x4 parentMatrix() const;

private:
    struct StartState
    {
        bool hasKey = false;
        bool hasTransient = false;
        float own = 0;       // of the key, else the stored value
        float transient = 0; // own part
    };
    void restore(int channel);

    VxNode *m_node;
    VxTime m_time;
    bool m_makesKeys;
    NodeChannels m_channels;
    VxRotationOrder m_order;
    PoseValues m_start;
    std::bitset<PoseChannelCount> m_touched;
    std::array<StartState, PoseChannelCount> m_startStates;
};

#endif
