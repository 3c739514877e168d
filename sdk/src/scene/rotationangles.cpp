#include "scene/rotationangles.h"

#include <QtCore/QtMath>

namespace {

// Nearer to the poles than this cosine, the first and the last axis turn about the same line.
constexpr double Pole = 1e-7;

double degrees(double sine, double cosine)
{
    return qRadiansToDegrees(std::atan2(sine, cosine));
}

double nearest(double angle, double to)
{
    return angle + 360 * std::round((to - angle) / 360);
}

double distance(const RotationAngles &a, const RotationAngles &b)
{
    return std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]);
}

} // namespace

const std::array<int, 3> &rotationAxes(VxNode::RotationOrder order)
{
    static constexpr std::array<int, 3> Orders[] = {{{0, 1, 2}}, {{0, 2, 1}}, {{1, 0, 2}},
                                                    {{1, 2, 0}}, {{2, 0, 1}}, {{2, 1, 0}}};
    return Orders[order];
}

RotationAngles rotationAngles(const AffineTransform &turn, VxNode::RotationOrder order,
                              const RotationAngles &near)
{
    const std::array<int, 3> &axes = rotationAxes(order);
    const auto first = size_t(axes[0]);
    const auto middle = size_t(axes[1]);
    const auto last = size_t(axes[2]);
    const double parity = (axes[0] + 1) % 3 == axes[1] ? 1 : -1;
    const auto &m = turn.column; // column, row
    const double sine = parity * m[last][first];
    const double cosine = std::hypot(m[first][first], m[middle][first]);

    RotationAngles angles;
    angles[middle] = nearest(degrees(sine, cosine), near[middle]);
    if (cosine < Pole) {
        // Only the sum, or the difference, of the other two counts: the first one stays.
        const double both = degrees(parity * m[first][middle], m[middle][middle]);
        angles[first] = near[first];
        angles[last] =
            nearest(m[last][first] > 0 ? both - near[first] : both + near[first], near[last]);
        return angles;
    }
    angles[first] = nearest(degrees(-parity * m[last][middle], m[last][last]), near[first]);
    angles[last] = nearest(degrees(-parity * m[middle][first], m[first][first]), near[last]);
    // The other way to the same turn: over the pole and back.
    RotationAngles other;
    other[first] = nearest(angles[first] + 180, near[first]);
    other[middle] = nearest(180 - angles[middle], near[middle]);
    other[last] = nearest(angles[last] + 180, near[last]);
    return distance(other, near) < distance(angles, near) ? other : angles;
}
