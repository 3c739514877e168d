#include "pose/channellimits.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxfloatproperty.h>

namespace {

// What single precision leaves of a value that was computed from it.
constexpr double Noise = 1e-5;

const VxFloatProperty *holderOf(const VxFloatProperty *property)
{
    return static_cast<const VxFloatProperty *>(property->getKeyHolder());
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

bool ChannelLimits::isSame(double a, double b)
{
    return std::abs(a - b) <= Noise * (1 + std::max(std::abs(a), std::abs(b)) / 100);
}

bool ChannelLimits::isDriven(const VxFloatProperty *property)
{
    const VxFloatProperty *holder = holderOf(property);
    return property->isLocked() || holder->isLocked() ||
           (holder->isLinked() && !holder->isLinkTerminal());
}

double ChannelLimits::ownPart(const VxFloatProperty *property, VxTime time, double value)
{
    const VxFloatProperty *holder = holderOf(property);
    if (!holder->isLinked() || !holder->isLinkTerminal())
        return value;
    return value - holder->getLinkedProperty()->getDoubleValue(time) * holder->getLinkFactor() -
           holder->getLinkOffset();
}

bool ChannelLimits::isOutside(const VxFloatProperty *property, VxTime time, double value)
{
    const VxFloatProperty *holder = holderOf(property);
    const double own = ownPart(property, time, value);
    return holder->isClamped() &&
           (own < double(holder->getMin()) - Noise || own > double(holder->getMax()) + Noise);
}

double ChannelLimits::limited(const VxFloatProperty *property, VxTime time, double value)
{
    const VxFloatProperty *holder = holderOf(property);
    if (!holder->isClamped())
        return value;
    const double own = ownPart(property, time, value);
    return value - own + std::clamp(own, double(holder->getMin()), double(holder->getMax()));
}

double ChannelLimits::excess(const NodeChannels &channels, VxTime time, const VxEuler &angles,
                             const VxEuler &present)
{
    double sum = 0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const VxFloatProperty *control = channels.at(XAngle + int(axis));
        if (!control)
            continue;
        const VxFloatProperty *holder = holderOf(control);
        if (isDriven(control)) {
            sum += std::abs(angles[axis] - present[axis]);
        } else if (holder->isClamped()) {
            const double own = ownPart(control, time, angles[axis]);
            sum += std::max({0.0, double(holder->getMin()) - own, own - double(holder->getMax())});
        }
    }
    return sum;
}

VxEuler ChannelLimits::angles(const NodeChannels &channels, VxTime time, const VxRotation &rotation,
                              VxRotationOrder order, const VxEuler &present)
{
    VxEuler angles = vxEulerAngles(rotation, order, present);
    double nearest = excess(channels, time, angles, present);
    if (nearest <= Noise)
        return angles;
    // Present angles beyond the limits lead away from the triples within them.
    const VxEuler fromZero = vxEulerAngles(rotation, order);
    for (const VxEuler &each :
         {otherAngles(angles, present, order), fromZero, otherAngles(fromZero, {}, order)}) {
        const double missed = excess(channels, time, each, present);
        if (missed < nearest - Noise) {
            angles = each;
            nearest = missed;
        }
    }
    return angles;
}
