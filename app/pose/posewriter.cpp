#include "pose/posewriter.h"

#include "pose/channellimits.h"
#include "widgets/studiotext.h"

#include <cmath>
#include <limits>
#include <vxcore/vxfloatproperty.h>

PoseWriter::PoseWriter(VxTime time, bool isAnimating)
    : m_time(time)
    , m_isAnimating(isAnimating)
{
}

void PoseWriter::set(const VxNode *node, int channel, double value)
{
    VxFloatProperty *control = NodeChannels(node).at(channel);
    const double present =
        control ? double(control->getValue(m_time)) : NodeChannels::defaultValue(channel);
    const bool stays = ChannelLimits::isSame(value, present);
    if (!std::isfinite(value) || std::abs(value) > double(std::numeric_limits<float>::max())) {
        ++m_refused;
        return;
    }
    if (stays &&
        (!control || !m_isAnimating || control->getNumKeys() == 0 || control->hasKey(m_time)))
        return;
    if (!control)
        control = node->getTransformControl(channel);
    const double target = stays ? present : value;
    const double own = ChannelLimits::ownPart(control, m_time, target);
    if (ChannelLimits::isDriven(control) || !control->setValue(m_time, float(own))) {
        m_refused += stays ? 0 : 1;
        return;
    }
    m_limited += ChannelLimits::isOutside(control, m_time, target) ? 1 : 0;
}

void PoseWriter::setRotation(const VxNode *node, const VxRotation &rotation)
{
    const NodeChannels channels(node);
    const VxEuler present = anglesOf(channels.values(m_time));
    const VxEuler angles =
        ChannelLimits::angles(channels, m_time, rotation, orderOf(node), present);
    for (int axis = 0; axis < 3; ++axis)
        set(node, XAngle + axis, angles[std::size_t(axis)]);
}

QString PoseWriter::report() const
{
    QString text;
    if (m_limited > 0)
        text += StudioText::tr(" Channels at their limits: %1.").arg(m_limited);
    if (m_refused > 0)
        text += StudioText::tr(" Channels not changed (locked, linked, or no key there while Auto "
                               "Key is off): %1.")
                    .arg(m_refused);
    return text;
}
