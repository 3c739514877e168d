#include <vxcore/vxeuler.h>

#include <cmath>

namespace {

constexpr double DegreesPerRadian = 57.295779513082320877;
// Below this cosine of the middle angle the first and the last axis coincide. Matrices in single
// precision have some 1e-7 instead of zero.
constexpr double GimbalLock = 1e-6;

struct Axes
{
    std::size_t first, middle, last;
    double parity; ///< 1 where the axes follow each other in the order X, Y, Z, else -1
};

Axes axesOf(VxRotationOrder order)
{
    const std::array<int, 3> &axes = vxRotationAxes(order);
    return {std::size_t(axes[0]), std::size_t(axes[1]), std::size_t(axes[2]),
            (axes[0] + 1) % 3 == axes[1] ? 1.0 : -1.0};
}

double nearest(double angle, double previous)
{
    return angle + 360 * std::round((previous - angle) / 360);
}

VxEuler nearestTurns(const VxEuler &angles, const VxEuler &previous)
{
    return {nearest(angles[0], previous[0]), nearest(angles[1], previous[1]),
            nearest(angles[2], previous[2])};
}

double distance(const VxEuler &a, const VxEuler &b)
{
    return std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]);
}

VxEuler nearerTriple(const VxEuler &angles, const VxEuler &previous, const Axes &axes)
{
    VxEuler other;
    other[axes.first] = angles[axes.first] + 180;
    other[axes.middle] = 180 - angles[axes.middle];
    other[axes.last] = angles[axes.last] + 180;
    other = nearestTurns(other, previous);
    const VxEuler same = nearestTurns(angles, previous);
    return distance(other, previous) < distance(same, previous) ? other : same;
}

/// `together` is the sum of first and last angle where `sign` is 1, else last minus first.
VxEuler lockedAngles(double together, double sign, double middle, const VxEuler &previous,
                     const Axes &axes)
{
    VxEuler angles;
    angles[axes.first] = previous[axes.first];
    angles[axes.middle] = nearest(middle, previous[axes.middle]);
    angles[axes.last] = nearest(together - sign * previous[axes.first], previous[axes.last]);
    return angles;
}

double dot(const VxQuaternion &a, const VxQuaternion &b)
{
    return a.w * b.w + a.x * b.x + a.y * b.y + a.z * b.z;
}

VxQuaternion scaled(const VxQuaternion &q, double factor)
{
    return {q.w * factor, q.x * factor, q.y * factor, q.z * factor};
}

VxQuaternion sum(const VxQuaternion &a, const VxQuaternion &b)
{
    return {a.w + b.w, a.x + b.x, a.y + b.y, a.z + b.z};
}

} // namespace

const std::array<int, 3> &vxRotationAxes(VxRotationOrder order)
{
    static constexpr std::array<int, 3> Orders[] = {{{0, 1, 2}}, {{0, 2, 1}}, {{1, 0, 2}},
                                                    {{1, 2, 0}}, {{2, 0, 1}}, {{2, 1, 0}}};
    return Orders[int(order)];
}

VxRotation vxRotation(const VxEuler &angles, VxRotationOrder order)
{
    VxRotation rotation{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    for (const int axis : vxRotationAxes(order)) {
        const double angle = angles[std::size_t(axis)] / DegreesPerRadian;
        const double cosine = std::cos(angle);
        const double sine = std::sin(angle);
        const auto a = std::size_t(axis + 1) % 3;
        const auto b = std::size_t(axis + 2) % 3;
        for (auto &row : rotation) {
            const double old = row[a];
            row[a] = old * cosine + row[b] * sine;
            row[b] = row[b] * cosine - old * sine;
        }
    }
    return rotation;
}

VxRotation vxRotation(const VxQuaternion &q)
{
    return {{{1 - 2 * (q.y * q.y + q.z * q.z), 2 * (q.x * q.y - q.w * q.z),
              2 * (q.x * q.z + q.w * q.y)},
             {2 * (q.x * q.y + q.w * q.z), 1 - 2 * (q.x * q.x + q.z * q.z),
              2 * (q.y * q.z - q.w * q.x)},
             {2 * (q.x * q.z - q.w * q.y), 2 * (q.y * q.z + q.w * q.x),
              1 - 2 * (q.x * q.x + q.y * q.y)}}};
}

VxQuaternion vxQuaternion(const VxEuler &angles, VxRotationOrder order)
{
    VxQuaternion result;
    for (const int axis : vxRotationAxes(order)) {
        const double half = angles[std::size_t(axis)] / DegreesPerRadian / 2;
        const double sine = std::sin(half);
        result = result * VxQuaternion{std::cos(half), axis == 0 ? sine : 0, axis == 1 ? sine : 0,
                                       axis == 2 ? sine : 0};
    }
    return result;
}

/* The largest of the four parts is computed first and the others by division, which avoids
cancellation. */
VxQuaternion vxQuaternion(const VxRotation &m)
{
    const double trace = m[0][0] + m[1][1] + m[2][2];
    VxQuaternion q;
    if (trace >= m[0][0] && trace >= m[1][1] && trace >= m[2][2])
        q = {1 + trace, m[2][1] - m[1][2], m[0][2] - m[2][0], m[1][0] - m[0][1]};
    else if (m[0][0] >= m[1][1] && m[0][0] >= m[2][2])
        q = {m[2][1] - m[1][2], 1 + 2 * m[0][0] - trace, m[0][1] + m[1][0], m[0][2] + m[2][0]};
    else if (m[1][1] >= m[2][2])
        q = {m[0][2] - m[2][0], m[0][1] + m[1][0], 1 + 2 * m[1][1] - trace, m[1][2] + m[2][1]};
    else
        q = {m[1][0] - m[0][1], m[0][2] + m[2][0], m[1][2] + m[2][1], 1 + 2 * m[2][2] - trace};
    return scaled(q, 1 / std::sqrt(dot(q, q)));
}

VxEuler vxEulerAngles(const VxRotation &m, VxRotationOrder order, const VxEuler &previous)
{
    const Axes axes = axesOf(order);
    const std::size_t a = axes.first;
    const std::size_t b = axes.middle;
    const std::size_t c = axes.last;
    const double s = axes.parity;
    const double cosine = std::hypot(m[a][a], m[a][b]);
    const double middle = std::atan2(s * m[a][c], cosine) * DegreesPerRadian;
    if (cosine < GimbalLock) {
        const double together = std::atan2(s * m[b][a], m[b][b]) * DegreesPerRadian;
        return lockedAngles(together, m[a][c] > 0 ? 1 : -1, middle, previous, axes);
    }
    VxEuler angles;
    angles[a] = std::atan2(-s * m[b][c], m[c][c]) * DegreesPerRadian;
    angles[b] = middle;
    angles[c] = std::atan2(-s * m[a][b], m[a][a]) * DegreesPerRadian;
    return nearerTriple(angles, previous, axes);
}

VxEuler vxEulerAngles(const VxQuaternion &q, VxRotationOrder order, const VxEuler &previous)
{
    const double square = dot(q, q);
    if (!(square > 0))
        return {};
    return vxEulerAngles(vxRotation(scaled(q, 1 / std::sqrt(square))), order, previous);
}

VxEuler vxNearestEuler(const VxEuler &angles, const VxEuler &previous, VxRotationOrder order)
{
    const Axes axes = axesOf(order);
    const double middle = angles[axes.middle];
    const double toPole = std::abs(std::remainder(middle - 90, 180)) / DegreesPerRadian;
    if (toPole < GimbalLock) {
        const bool isUpper = std::abs(std::remainder(middle - 90, 360)) < 90;
        const double sign = isUpper == (axes.parity > 0) ? 1 : -1;
        return lockedAngles(angles[axes.last] + sign * angles[axes.first], sign, middle, previous,
                            axes);
    }
    return nearerTriple(angles, previous, axes);
}

VxRotation operator*(const VxRotation &a, const VxRotation &b)
{
    VxRotation product{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            for (std::size_t i = 0; i < 3; ++i)
                product[row][column] += a[row][i] * b[i][column];
        }
    }
    return product;
}

VxQuaternion operator*(const VxQuaternion &a, const VxQuaternion &b)
{
    return {a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z,
            a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
            a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w};
}

VxRotation vxTransposed(const VxRotation &m)
{
    return {
        {{m[0][0], m[1][0], m[2][0]}, {m[0][1], m[1][1], m[2][1]}, {m[0][2], m[1][2], m[2][2]}}};
}

double vxAngleBetween(const VxQuaternion &a, const VxQuaternion &b)
{
    // By the difference and the sum: an arc cosine is imprecise for small angles.
    const VxQuaternion other = dot(a, b) < 0 ? scaled(b, -1) : b;
    const VxQuaternion difference = sum(other, scaled(a, -1));
    const VxQuaternion both = sum(other, a);
    return 4 * DegreesPerRadian *
           std::atan2(std::sqrt(dot(difference, difference)), std::sqrt(dot(both, both)));
}

VxQuaternion vxSlerp(const VxQuaternion &a, const VxQuaternion &b, double part)
{
    const VxQuaternion other = dot(a, b) < 0 ? scaled(b, -1) : b;
    const double angle = vxAngleBetween(a, other) / 2 / DegreesPerRadian;
    const double sine = std::sin(angle);
    // Nearly equal rotations: linear interpolation.
    const double from = sine < 1e-9 ? 1 - part : std::sin((1 - part) * angle) / sine;
    const double to = sine < 1e-9 ? part : std::sin(part * angle) / sine;
    const VxQuaternion between = sum(scaled(a, from), scaled(other, to));
    return scaled(between, 1 / std::sqrt(dot(between, between)));
}
