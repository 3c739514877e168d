#include "posetools/spaces.h"

#include <cmath>

namespace {

// Of an axis relative to the length of 1; of a determinant relative to the axes.
constexpr double NoExtent = 1e-9;

/** A vector of length 1; none for one without a direction. */
std::optional<VxVector> direction(const VxVector &a)
{
    const double length = std::sqrt(vxDot(a, a));
    if (!(length > 0) || !std::isfinite(length))
        return std::nullopt;
    return VxVector{a[0] / length, a[1] / length, a[2] / length};
}

VxVector columnOf(const QMatrix4x4 &transform, int column)
{
    return {double(transform(0, column)), double(transform(1, column)),
            double(transform(2, column))};
}

double determinantOf(const QMatrix4x4 &transform)
{
    return vxDot(columnOf(transform, 0), vxCross(columnOf(transform, 1), columnOf(transform, 2)));
}

/** The determinant of perpendicular axes of the same lengths. */
double largestDeterminant(const QMatrix4x4 &transform)
{
    double product = 1;
    for (int column = 0; column < 3; ++column) {
        const VxVector axis = columnOf(transform, column);
        product *= std::sqrt(vxDot(axis, axis));
    }
    return product;
}

/** Y without its part along X; any perpendicular axis where nothing remains. */
VxVector secondAxis(const VxVector &x, const std::optional<VxVector> &y)
{
    for (const VxVector &each : {y.value_or(VxVector{}), VxVector{0, 1, 0}, VxVector{0, 0, 1}}) {
        const double along = vxDot(each, x);
        const VxVector across{each[0] - x[0] * along, each[1] - x[1] * along,
                              each[2] - x[2] * along};
        if (vxDot(across, across) > NoExtent)
            return *direction(across);
    }
    return {0, 1, 0};
}

} // namespace

bool Spaces::isMirrored(const QMatrix4x4 &transform)
{
    return determinantOf(transform) < -NoExtent * largestDeterminant(transform);
}

VxRotation Spaces::rotationOf(const QMatrix4x4 &transform)
{
    const QMatrix4x4 upright = isMirrored(transform) ? transform * -1 : transform;
    const VxVector x = direction(columnOf(upright, 0)).value_or(VxVector{1, 0, 0});
    const VxVector y = secondAxis(x, direction(columnOf(upright, 1)));
    const VxVector z = vxCross(x, y);
    VxRotation rotation{};
    for (std::size_t row = 0; row < 3; ++row)
        rotation[row] = {x[row], y[row], z[row]};
    return rotation;
}

std::array<QVector3D, 3> Spaces::axesOf(const VxRotation &rotation)
{
    std::array<QVector3D, 3> axes;
    for (std::size_t column = 0; column < 3; ++column)
        axes[column] = QVector3D(float(rotation[0][column]), float(rotation[1][column]),
                                 float(rotation[2][column]));
    return axes;
}

VxVector Spaces::originOf(const QMatrix4x4 &transform)
{
    return columnOf(transform, 3);
}

VxVector Spaces::toVector(const QVector3D &vector)
{
    return {double(vector.x()), double(vector.y()), double(vector.z())};
}

QVector3D Spaces::toVector3D(const VxVector &vector)
{
    return QVector3D(float(vector[0]), float(vector[1]), float(vector[2]));
}

double Spaces::distance(const VxVector &a, const VxVector &b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

std::optional<VxVector> Spaces::unmapped(const QMatrix4x4 &transform, const VxVector &given)
{
    const VxVector x = columnOf(transform, 0);
    const VxVector y = columnOf(transform, 1);
    const VxVector z = columnOf(transform, 2);
    const double determinant = determinantOf(transform);
    if (!(std::abs(determinant) > NoExtent * largestDeterminant(transform)) ||
        !std::isfinite(determinant))
        return std::nullopt;
    return VxVector{vxDot(given, vxCross(y, z)) / determinant,
                    vxDot(given, vxCross(z, x)) / determinant,
                    vxDot(given, vxCross(x, y)) / determinant};
}
