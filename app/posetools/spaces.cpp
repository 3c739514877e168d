#include "posetools/spaces.h"

#include <cmath>

namespace {

// Of a determinant relative to the axes.
constexpr double NoExtent = 1e-9;

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

} // namespace

bool Spaces::isMirrored(const QMatrix4x4 &transform)
{
    return determinantOf(transform) < -NoExtent * largestDeterminant(transform);
}

VxRotation Spaces::rotationOf(const QMatrix4x4 &transform)
{
    return vxRotationOf(isMirrored(transform) ? transform * -1 : transform);
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
