#include "pose/posewriter.h"

#include "widgets/studiotext.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vxcore/vxfloatproperty.h>

namespace {

// What single precision leaves of a value that was computed from it.
constexpr double Noise = 1e-5;

bool isSame(double a, double b)
{
    return std::abs(a - b) <= Noise * (1 + std::max(std::abs(a), std::abs(b)) / 100);
}

VxFloatProperty *holderOf(const VxFloatProperty *property)
{
    return static_cast<VxFloatProperty *>(property->getKeyHolder());
}

/** What a terminal link adds to the property's own value; 0 for others. */
double linkedPart(const VxFloatProperty *holder, VxTime time)
{
    if (!holder->isLinked() || !holder->isLinkTerminal())
        return 0;
    return holder->getLinkedProperty()->getDoubleValue(time) * holder->getLinkFactor() +
           holder->getLinkOffset();
}

bool isDriven(const VxFloatProperty *property)
{
    const VxFloatProperty *holder = holderOf(property);
    return property->isLocked() || holder->isLocked() ||
           (holder->isLinked() && !holder->isLinkTerminal());
}

/** The other triple of the same rotation, each angle within half a turn of a present one. */
VxEuler otherAngles(const VxEuler &angles, const VxEuler &present, VxRotationOrder order)
{
    const std::array<int, 3> &axes = vxRotationAxes(order);
    VxEuler other = angles;
    other[std::size_t(axes[0])] += 180;
    other[std::size_t(axes[1])] = 180 - other[std::size_t(axes[1])];
    other[std::size_t(axes[2])] += 180;
    for (std::size_t i = 0; i < 3; ++i)
        other[i] += 360 * std::round((present[i] - other[i]) / 360);
    return other;
}

} // namespace

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
    const bool stays = isSame(value, present);
    if (!std::isfinite(value) || std::abs(value) > double(std::numeric_limits<float>::max())) {
        ++m_refused;
        return;
    }
    if (stays &&
        (!control || !m_isAnimating || control->getNumKeys() == 0 || control->hasKey(m_time)))
        return;
    if (!control)
        control = NodeChannels::make(node, channel);
    const VxFloatProperty *holder = holderOf(control);
    const double own = (stays ? present : value) - linkedPart(holder, m_time);
    if (isDriven(control) || !control->setValue(m_time, float(own))) {
        m_refused += stays ? 0 : 1;
        return;
    }
    const bool isOutside = holder->isClamped() && (own < double(holder->getMin()) - Noise ||
                                                   own > double(holder->getMax()) + Noise);
    m_limited += isOutside ? 1 : 0;
}

/** By how many degrees the channels would miss the angles. */
double PoseWriter::excess(const VxNode *node, const VxEuler &angles, const VxEuler &present) const
{
    const NodeChannels channels(node);
    double sum = 0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const VxFloatProperty *control = channels.at(XAngle + int(axis));
        if (!control)
            continue;
        const VxFloatProperty *holder = holderOf(control);
        if (isDriven(control)) {
            sum += std::abs(angles[axis] - present[axis]);
        } else if (holder->isClamped()) {
            const double own = angles[axis] - linkedPart(holder, m_time);
            sum += std::max({0.0, double(holder->getMin()) - own, own - double(holder->getMax())});
        }
    }
    return sum;
}

void PoseWriter::setRotation(const VxNode *node, const VxRotation &rotation)
{
    const VxRotationOrder order = orderOf(node);
    const VxEuler present = anglesOf(NodeChannels(node).values(m_time));
    VxEuler angles = vxEulerAngles(rotation, order, present);
    const double nearest = excess(node, angles, present);
    if (nearest > Noise) {
        // Present angles beyond the limits lead away from the triples within them.
        const VxEuler fromZero = vxEulerAngles(rotation, order);
        for (const VxEuler &each :
             {otherAngles(angles, present, order), fromZero, otherAngles(fromZero, {}, order)}) {
            if (excess(node, each, present) < excess(node, angles, present) - Noise)
                angles = each;
        }
    }
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
