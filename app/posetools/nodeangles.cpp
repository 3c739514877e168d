#include "posetools/nodeangles.h"

#include "pose/channellimits.h"
#include "pose/posefigure.h"

#include <algorithm>
#include <cmath>

namespace {

// Degrees; of two successive rotations at least one triple is nearer than any other.
constexpr double LargestStep = 60;
constexpr int MostSteps = 720;
// Degrees of a rotation that shows which channels change.
constexpr double Probe = 10;
constexpr double Unchanged = 1e-4;
constexpr int Bisections = 24;

} // namespace

VxEuler NodeAngles::rotated(const GestureNode &node, const VxVector &axis, double degrees)
{
    const VxEuler start = anglesOf(node.start());
    const VxRotation before = vxRotation(start, node.order());
    const int steps =
        int(std::clamp(std::ceil(std::abs(degrees) / LargestStep), 1.0, double(MostSteps)));
    VxEuler angles = start;
    for (int i = 1; i <= steps; ++i)
        angles = vxEulerAngles(vxRotation(vxRotationAbout(axis, degrees * i / steps)) * before,
                               node.order(), angles);
    return angles;
}

double NodeAngles::allowedPart(const GestureNode &node, const VxVector &axis, double degrees)
{
    const VxEuler start = anglesOf(node.start());
    const auto excessAt = [&](double part) {
        return ChannelLimits::excess(node.channels(), node.time(),
                                     rotated(node, axis, degrees * part), start);
    };
    const double allowed = excessAt(0) + Unchanged;
    // Whole stretches first: a rotation beyond a limit may return into it.
    const int stretches =
        int(std::clamp(std::ceil(std::abs(degrees) / LargestStep), 1.0, double(MostSteps)));
    double low = 0;
    double high = 0;
    for (int i = 1; i <= stretches && high <= low; ++i) {
        const double end = double(i) / stretches;
        if (excessAt(end) > allowed)
            high = end;
        else
            low = end;
    }
    if (high <= low)
        return 1;
    for (int i = 0; i < Bisections; ++i) {
        const double middle = (low + high) / 2;
        (excessAt(middle) > allowed ? high : low) = middle;
    }
    return low;
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
