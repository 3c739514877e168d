#include "posetools/nodeangles.h"

#include "pose/channellimits.h"

#include <algorithm>
#include <cmath>

namespace {

// Degrees; of two successive rotations at least one triple is nearer than any other.
constexpr double LargestStep = 60;
constexpr int MaxSteps = 720;
// Degrees of a rotation that shows which channels change.
constexpr double Probe = 10;
constexpr double Unchanged = 1e-4;
constexpr int Bisections = 24;

int stepsFor(double degrees)
{
    return int(std::clamp(std::ceil(std::abs(degrees) / LargestStep), 1.0, double(MaxSteps)));
}

/** The angles after a rotation that is at most a step from the previous ones. */
VxEuler stepTo(const GestureNode &node, const VxRotation &before, const VxVector &axis,
               double degrees, const VxEuler &previous)
{
    return vxEulerAngles(vxRotation(vxRotationAbout(axis, degrees)) * before, node.order(),
                         previous);
}

} // namespace

VxEuler NodeAngles::rotated(const GestureNode &node, const VxVector &axis, double degrees)
{
    VxEuler angles = anglesOf(node.start());
    const VxRotation before = vxRotation(angles, node.order());
    const int steps = stepsFor(degrees);
    for (int i = 1; i <= steps; ++i)
        angles = stepTo(node, before, axis, degrees * i / steps, angles);
    return angles;
}

VxEuler NodeAngles::rotatedWithinLimits(const GestureNode &node, const VxVector &axis,
                                        double degrees, double *allowed)
{
    const VxEuler start = anglesOf(node.start());
    const VxRotation before = vxRotation(start, node.order());
    const auto excess = [&](const VxEuler &angles) {
        return ChannelLimits::excess(node.channels(), node.time(), angles, start);
    };
    const double most = excess(start) + Unchanged;
    const int steps = stepsFor(degrees);
    VxEuler angles = start;
    double low = 0;
    for (int i = 1; i <= steps; ++i) {
        double high = degrees * i / steps;
        const VxEuler next = stepTo(node, before, axis, high, angles);
        if (excess(next) <= most) {
            angles = next;
            low = high;
            continue;
        }
        for (int bisection = 0; bisection < Bisections; ++bisection) {
            const double middle = (low + high) / 2;
            const VxEuler half = stepTo(node, before, axis, middle, angles);
            const bool isAllowed = excess(half) <= most;
            (isAllowed ? low : high) = middle;
            if (isAllowed)
                angles = half;
        }
        break;
    }
    *allowed = low;
    return angles;
}

VxVector NodeAngles::channelAxis(const GestureNode &node, int channel)
{
    // The rotations to the left of the channel's own one.
    VxEuler before{};
    for (const int axis : vxRotationAxes(node.order())) {
        if (XAngle + axis == channel)
            break;
        before[std::size_t(axis)] = node.start()[std::size_t(XAngle + axis)];
    }
    VxVector own{};
    own[std::size_t(channel - XAngle)] = 1;
    return vxRotation(before, node.order()) * own;
}

bool NodeAngles::isRotatable(const GestureNode &node, const VxVector &axis)
{
    const VxEuler start = anglesOf(node.start());
    for (const double probe : {Probe, -Probe}) {
        const VxEuler end = rotated(node, axis, probe);
        for (int i = 0; i < 3; ++i) {
            if (std::abs(end[std::size_t(i)] - start[std::size_t(i)]) > Unchanged &&
                !node.isFree(XAngle + i))
                return false;
        }
    }
    return true;
}

bool NodeAngles::hasLockedAngle(const GestureNode &node)
{
    return !node.isFree(XAngle) || !node.isFree(YAngle) || !node.isFree(ZAngle);
}
