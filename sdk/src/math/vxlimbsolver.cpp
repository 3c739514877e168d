#include <vxcore/vxlimbsolver.h>

#include <QtGui/QMatrix4x4>
#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr double ToDegrees = 57.295779513082320877;
// Sine of the bend below which the limb's plane is undefined.
constexpr double Straight = 1e-6;
// Fraction of the limb's length within which a target counts as reached.
constexpr double Reached = 1e-9;
// Of an axis relative to the length of 1.
constexpr double NoExtent = 1e-9;

VxVector difference(const VxVector &a, const VxVector &b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

VxVector sum(const VxVector &a, const VxVector &b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

double length(const VxVector &a)
{
    return std::sqrt(vxDot(a, a));
}

/// Any perpendicular vector.
VxVector perpendicular(const VxVector &a)
{
    const bool isAlongX = std::abs(a[0]) > 0.9 * length(a);
    return vxCross(a, isAlongX ? VxVector{0, 1, 0} : VxVector{1, 0, 0});
}

/// The axis of a positive bend from the upper to the lower segment.
VxVector axisOfBend(const VxVector &upper, const VxVector &lower, const VxVector &bendAxis)
{
    const VxVector axis = vxCross(upper, lower);
    if (length(axis) > Straight * length(upper) * length(lower))
        return axis;
    // The given axis without its component along the limb.
    const double along = vxDot(bendAxis, upper) / vxDot(upper, upper);
    const VxVector given =
        difference(bendAxis, {upper[0] * along, upper[1] * along, upper[2] * along});
    return length(given) > Straight * length(bendAxis) ? given : perpendicular(upper);
}

/// The angle between the segments, 0 for a straight limb, for which the limb has a length.
double bendForReach(double upper, double lower, double reach)
{
    const double cosine = (reach * reach - upper * upper - lower * lower) / (2 * upper * lower);
    return std::acos(std::clamp(cosine, -1.0, 1.0)) * ToDegrees;
}

double angleBetween(const VxVector &a, const VxVector &b)
{
    return std::atan2(length(vxCross(a, b)), vxDot(a, b)) * ToDegrees;
}

/// A vector of length 1; none for one without a direction.
std::optional<VxVector> direction(const VxVector &a)
{
    const double size = length(a);
    if (!(size > 0) || !std::isfinite(size))
        return std::nullopt;
    return VxVector{a[0] / size, a[1] / size, a[2] / size};
}

std::optional<VxVector> axisOf(const QMatrix4x4 &transform, int column)
{
    return direction(
        {double(transform(0, column)), double(transform(1, column)), double(transform(2, column))});
}

/// Y without its part along X; any perpendicular axis where nothing remains.
VxVector secondAxis(const VxVector &x, const std::optional<VxVector> &y)
{
    for (const VxVector &each : {y.value_or(VxVector{}), VxVector{0, 1, 0}, VxVector{0, 0, 1}}) {
        const double along = vxDot(each, x);
        const VxVector across = difference(each, {x[0] * along, x[1] * along, x[2] * along});
        if (vxDot(across, across) > NoExtent)
            return *direction(across);
    }
    return {0, 1, 0};
}

} // namespace

VxVector operator*(const VxRotation &matrix, const VxVector &vector)
{
    return {matrix[0][0] * vector[0] + matrix[0][1] * vector[1] + matrix[0][2] * vector[2],
            matrix[1][0] * vector[0] + matrix[1][1] * vector[1] + matrix[1][2] * vector[2],
            matrix[2][0] * vector[0] + matrix[2][1] * vector[1] + matrix[2][2] * vector[2]};
}

VxRotation vxRotationOf(const QMatrix4x4 &transform)
{
    const VxVector x = axisOf(transform, 0).value_or(VxVector{1, 0, 0});
    const VxVector y = secondAxis(x, axisOf(transform, 1));
    return vxTransposed({x, y, vxCross(x, y)});
}

VxVector vxRotated(const VxQuaternion &q, const VxVector &v)
{
    const VxVector axis = {q.x, q.y, q.z};
    const VxVector t = vxCross(axis, v);
    const VxVector u = vxCross(axis, t);
    return {v[0] + 2 * (q.w * t[0] + u[0]), v[1] + 2 * (q.w * t[1] + u[1]),
            v[2] + 2 * (q.w * t[2] + u[2])};
}

VxQuaternion vxRotationAbout(const VxVector &axis, double degrees)
{
    const double size = length(axis);
    if (!(size > 0))
        return {};
    const double half = degrees / ToDegrees / 2;
    const double part = std::sin(half) / size;
    return {std::cos(half), axis[0] * part, axis[1] * part, axis[2] * part};
}

VxQuaternion vxRotationBetween(const VxVector &from, const VxVector &to)
{
    if (!(length(from) > 0) || !(length(to) > 0))
        return {};
    const VxVector axis = vxCross(from, to);
    const bool isOpposite = length(axis) < 1e-12 * length(from) * length(to) && vxDot(from, to) < 0;
    return vxRotationAbout(isOpposite ? perpendicular(from) : axis, angleBetween(from, to));
}

VxLimbSolution vxSolveLimb(const VxLimb &limb, const VxVector &target, const VxVector &bendAxis)
{
    VxLimbSolution solution;
    solution.limb = limb;
    const VxVector upper = difference(limb.middle, limb.root);
    const VxVector lower = difference(limb.end, limb.middle);
    const VxVector aim = difference(target, limb.root);
    const double upperLength = length(upper);
    const double lowerLength = length(lower);
    if (upperLength > 0 && lowerLength > 0) {
        const double bend = bendForReach(upperLength, lowerLength, length(aim));
        solution.lower =
            vxRotationAbout(axisOfBend(upper, lower, bendAxis), bend - angleBetween(upper, lower));
    }
    const VxVector bent = sum(upper, vxRotated(solution.lower, lower));
    solution.upper = vxRotationBetween(bent, aim);
    solution.limb.middle = sum(limb.root, vxRotated(solution.upper, upper));
    solution.limb.end = sum(limb.root, vxRotated(solution.upper, bent));
    solution.reached =
        length(difference(solution.limb.end, target)) <= Reached * (upperLength + lowerLength);
    return solution;
}
