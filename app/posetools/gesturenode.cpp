#include "posetools/gesturenode.h"

#include "pose/channellimits.h"

#include <cmath>
#include <limits>
#include <vxcore/vxfloatproperty.h>

namespace {

VxFloatProperty *keyHolderOf(const VxFloatProperty *control)
{
    return static_cast<VxFloatProperty *>(control->getKeyHolder());
}

} // namespace

GestureNode::GestureNode(VxNode *node, VxTime time, bool makesKeys)
    : m_node(node)
    , m_time(time)
    , m_makesKeys(makesKeys)
    , m_channels(node)
    , m_order(orderOf(node))
    , m_start(m_channels.values(time))
{
}

bool GestureNode::isFree(int channel) const
{
    const VxFloatProperty *control = m_channels.at(channel);
    return !control || !ChannelLimits::isDriven(control);
}

GestureNode::Outcome GestureNode::set(int channel, double value)
{
    const bool stays = ChannelLimits::isSame(value, m_start[std::size_t(channel)]);
    if (stays && !m_touched.test(std::size_t(channel)))
        return Outcome::Done;
    if (!std::isfinite(value) || std::abs(value) > double(std::numeric_limits<float>::max()) ||
        !isFree(channel))
        return Outcome::Refused;
    if (!m_channels.at(channel)) {
        m_node->getTransformControl(channel);
        m_channels = NodeChannels(m_node);
    }
    VxFloatProperty *control = m_channels.at(channel);
    VxFloatProperty *holder = keyHolderOf(control);
    if (!m_touched.test(std::size_t(channel))) {
        int index = -1;
        StartState state;
        state.hasKey = holder->hasKey(m_time, &index);
        state.hasTransient = control->hasTransientValue();
        state.own = state.hasKey ? holder->getKeyValue(index) : holder->getStoredValue();
        if (state.hasTransient)
            state.transient =
                float(ChannelLimits::ownPart(control, m_time, double(control->getValue(m_time))));
        m_startStates[std::size_t(channel)] = state;
        m_touched.set(std::size_t(channel));
    }
    const auto own = float(ChannelLimits::ownPart(control, m_time, value));
    const bool isSet =
        m_makesKeys ? control->setValue(m_time, own) : control->setTransientValue(own);
    if (!isSet)
        return Outcome::Refused;
    return ChannelLimits::isOutside(control, m_time, value) ? Outcome::Limited : Outcome::Done;
}

void GestureNode::settle()
{
    for (int channel = 0; channel < PoseChannelCount; ++channel) {
        if (m_touched.test(std::size_t(channel)) &&
            ChannelLimits::isSame(double(m_channels.at(channel)->getValue(m_time)),
                                  m_start[std::size_t(channel)]))
            restore(channel);
    }
}

void GestureNode::revert()
{
    for (int channel = 0; channel < PoseChannelCount; ++channel) {
        if (m_touched.test(std::size_t(channel)))
            restore(channel);
    }
}

void GestureNode::restore(int channel)
{
    VxFloatProperty *holder = keyHolderOf(m_channels.at(channel));
    const StartState &state = m_startStates[std::size_t(channel)];
    int index = -1;
    if (holder->hasKey(m_time, &index) && !state.hasKey)
        holder->deleteKeys(VxTimeRange(m_time, m_time));
    else if (index >= 0)
        holder->setKeyValue(index, state.own);
    else if (holder->getNumKeys() == 0)
        holder->setStoredValue(state.own);
    if (state.hasTransient)
        holder->setTransientValue(state.transient);
    else
        holder->dropTransientValue();
}

void GestureNode::restoreTransientValues()
{
    for (int channel = 0; channel < PoseChannelCount; ++channel) {
        const StartState &state = m_startStates[std::size_t(channel)];
        if (m_touched.test(std::size_t(channel)) && state.hasTransient)
            keyHolderOf(m_channels.at(channel))->setTransientValue(state.transient);
    }
}

QMatrix4x4 GestureNode::localMatrix(const PoseValues &values) const
{
    const VxRotation rotation = vxRotation(anglesOf(values), m_order);
    QMatrix4x4 matrix;
    const QVector3D origin = m_node->getOrigin();
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            matrix(row, column) = float(rotation[std::size_t(row)][std::size_t(column)] *
                                        values[AllScale] * values[std::size_t(XStretch + column)]);
        matrix(row, 3) = float(double(origin[row]) + values[std::size_t(XPlace + row)]);
    }
    return matrix;
}

QMatrix4x4 GestureNode::parentMatrix() const
{
    const VxNode *parent = m_node->getNodeParent();
    return parent ? parent->getWorldTransform(m_time) : QMatrix4x4();
}
