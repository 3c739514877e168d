#include "scene/affinetransform.h"

#include <QtCore/QtMath>
#include <algorithm>

namespace {

// A volume below this fraction of the product of the axis lengths counts as zero.
constexpr double SmallestVolume = 1e-10;
constexpr double ConformalTolerance = 1e-9;

double dot(const double a[3], const double b[3])
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double length(const double a[3])
{
    return std::sqrt(dot(a, a));
}

void cross(const double a[3], const double b[3], double product[3])
{
    for (int i = 0; i < 3; ++i)
        product[i] = a[(i + 1) % 3] * b[(i + 2) % 3] - a[(i + 2) % 3] * b[(i + 1) % 3];
}

double determinant(const AffineTransform &transform)
{
    double third[3];
    cross(transform.column[0], transform.column[1], third);
    return dot(third, transform.column[2]);
}

/// False for coplanar axes, and for anything that is not finite.
bool hasVolume(const AffineTransform &transform)
{
    const double lengths =
        length(transform.column[0]) * length(transform.column[1]) * length(transform.column[2]);
    const double volume = std::abs(determinant(transform));
    return std::isfinite(lengths) && lengths > 0 && volume > SmallestVolume * lengths;
}

} // namespace

void AffineTransform::rotate(int axis, double degrees)
{
    if (degrees == 0)
        return;
    const double angle = qDegreesToRadians(degrees);
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    double *first = column[(axis + 1) % 3];
    double *second = column[(axis + 2) % 3];
    for (int row = 0; row < 3; ++row) {
        const double a = first[row];
        const double b = second[row];
        first[row] = a * cosine + b * sine;
        second[row] = b * cosine - a * sine;
    }
}

void AffineTransform::map(const double place[3], double mapped[3]) const
{
    for (int row = 0; row < 3; ++row)
        mapped[row] = column[0][row] * place[0] + column[1][row] * place[1] +
                      column[2][row] * place[2] + column[3][row];
}

std::optional<AffineTransform> AffineTransform::inverted() const
{
    if (!hasVolume(*this))
        return std::nullopt;
    AffineTransform inverse;
    const double factor = 1 / determinant(*this);
    for (int row = 0; row < 3; ++row) {
        double products[3];
        cross(column[(row + 1) % 3], column[(row + 2) % 3], products);
        for (int i = 0; i < 3; ++i)
            inverse.column[i][row] = products[i] * factor;
    }
    double place[3];
    inverse.map(column[3], place);
    for (int row = 0; row < 3; ++row)
        inverse.column[3][row] = -place[row];
    const double *first = inverse.column[0];
    if (!std::all_of(first, first + 12, [](double value) { return std::isfinite(value); }))
        return std::nullopt;
    return inverse;
}

bool AffineTransform::isConformal() const
{
    const double square = dot(column[0], column[0]);
    const double most = square * ConformalTolerance;
    for (int i = 0; i < 3; ++i) {
        if (!(std::abs(dot(column[i], column[i]) - square) <= most) ||
            !(std::abs(dot(column[i], column[(i + 1) % 3])) <= most))
            return false;
    }
    return determinant(*this) > 0;
}

VxRotation AffineTransform::axes() const
{
    VxRotation axes{};
    for (std::size_t row = 0; row < 3; ++row)
        axes[row] = {column[0][row], column[1][row], column[2][row]};
    return axes;
}

QMatrix4x4 AffineTransform::toMatrix() const
{
    QMatrix4x4 matrix;
    for (int i = 0; i < 4; ++i) {
        for (int row = 0; row < 3; ++row)
            matrix(row, i) = float(column[i][row]);
    }
    // Writing elements flags the matrix as general; this detects the cheaper kinds.
    matrix.optimize();
    return matrix;
}

AffineTransform operator*(const AffineTransform &a, const AffineTransform &b)
{
    AffineTransform product;
    for (int i = 0; i < 4; ++i) {
        for (int row = 0; row < 3; ++row)
            product.column[i][row] = a.column[0][row] * b.column[i][0] +
                                     a.column[1][row] * b.column[i][1] +
                                     a.column[2][row] * b.column[i][2];
    }
    for (int row = 0; row < 3; ++row)
        product.column[3][row] += a.column[3][row];
    return product;
}

std::optional<RotationScale> splitRotation(const AffineTransform &transform)
{
    if (!hasVolume(transform))
        return std::nullopt;
    RotationScale split{};
    double(*axes)[3] = split.rotation.column;
    // The first axis keeps its direction, the second its plane with the first.
    split.factors[0] = length(transform.column[0]);
    const double along = dot(transform.column[0], transform.column[1]) / split.factors[0];
    for (int row = 0; row < 3; ++row) {
        axes[0][row] = transform.column[0][row] / split.factors[0];
        axes[1][row] = transform.column[1][row] - axes[0][row] * along;
    }
    split.factors[1] = length(axes[1]);
    for (int row = 0; row < 3; ++row)
        axes[1][row] /= split.factors[1];
    cross(axes[0], axes[1], axes[2]);
    split.factors[2] = dot(axes[2], transform.column[2]);
    return split;
}
