#include "io/vxeulerangles.h"

#include <cmath>

namespace {

constexpr double Degrees = 57.295779513082320877;
// Below this cosine of the middle angle the outer two turn about the same axis.
constexpr double Locked = 1e-6;

/// +1 where the axes follow each other as X, Y, Z do, else -1.
double parity(const std::array<int, 3> &axes)
{
    return (axes[1] - axes[0] + 3) % 3 == 1 ? 1.0 : -1.0;
}

double nearest(double angle, double before)
{
    return angle + 360.0 * std::round((before - angle) / 360.0);
}

/// By place in the order: first, middle, last.
using Turns = std::array<double, 3>;

Turns nearest(const Turns &turns, const Turns &before)
{
    return {nearest(turns[0], before[0]), nearest(turns[1], before[1]),
            nearest(turns[2], before[2])};
}

double distance(const Turns &a, const Turns &b)
{
    return std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]);
}

VxRotation product(const VxRotation &a, const VxRotation &b)
{
    VxRotation result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            for (std::size_t i = 0; i < 3; ++i)
                result[row][column] += a[row][i] * b[i][column];
        }
    }
    return result;
}

VxRotation rotationAbout(int axis, double degrees)
{
    const auto i = std::size_t(axis);
    const std::size_t j = (i + 1) % 3;
    const std::size_t k = (i + 2) % 3;
    VxRotation result{};
    result[i][i] = 1.0;
    result[j][j] = result[k][k] = std::cos(degrees / Degrees);
    result[k][j] = std::sin(degrees / Degrees);
    result[j][k] = -result[k][j];
    return result;
}

/// Where first and last axis coincide: the last keeps its angle, the first takes the rest.
Turns lockedTurns(const VxRotation &r, const std::array<int, 3> &axes, double middle, double last)
{
    const auto b = std::size_t(axes[1]);
    const auto c = std::size_t(axes[2]);
    const VxRotation rest = product(r, rotationAbout(axes[2], -last));
    const double first = std::atan2(parity(axes) * rest[c][b], rest[b][b]) * Degrees;
    return {first, middle, last};
}

} // namespace

std::array<int, 3> vxRotationAxes(VxNode::RotationOrder order)
{
    switch (order) {
    case VxNode::XYZ:
        return {0, 1, 2};
    case VxNode::XZY:
        return {0, 2, 1};
    case VxNode::YXZ:
        return {1, 0, 2};
    case VxNode::YZX:
        return {1, 2, 0};
    case VxNode::ZXY:
        return {2, 0, 1};
    default:
        return {2, 1, 0};
    }
}

std::array<double, 3> vxEulerAngles(const VxRotation &rotation, VxNode::RotationOrder order,
                                    const std::array<double, 3> &before)
{
    const std::array<int, 3> axes = vxRotationAxes(order);
    const auto a = std::size_t(axes[0]);
    const auto b = std::size_t(axes[1]);
    const auto c = std::size_t(axes[2]);
    const double s = parity(axes);
    const Turns former = {before[a], before[b], before[c]};
    const double cosine = std::hypot(rotation[a][a], rotation[a][b]);
    const double middle = std::atan2(s * rotation[a][c], cosine) * Degrees;
    Turns turns;
    if (cosine < Locked) {
        turns = nearest(lockedTurns(rotation, axes, middle, former[2]), former);
    } else {
        const double first = std::atan2(-s * rotation[b][c], rotation[c][c]) * Degrees;
        const double last = std::atan2(-s * rotation[a][b], rotation[a][a]) * Degrees;
        const Turns one = nearest({first, middle, last}, former);
        const Turns other = nearest({first + 180.0, 180.0 - middle, last + 180.0}, former);
        turns = distance(other, former) < distance(one, former) ? other : one;
    }
    std::array<double, 3> degrees{};
    degrees[a] = turns[0];
    degrees[b] = turns[1];
    degrees[c] = turns[2];
    return degrees;
}

VxRotation vxRotationOf(const std::array<double, 3> &degrees, VxNode::RotationOrder order)
{
    const std::array<int, 3> axes = vxRotationAxes(order);
    const auto about = [&degrees](int axis) {
        return rotationAbout(axis, degrees[std::size_t(axis)]);
    };
    return product(product(about(axes[0]), about(axes[1])), about(axes[2]));
}
