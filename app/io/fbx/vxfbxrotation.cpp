#include "io/fbx/vxfbxrotation.h"

#include "io/motion/vximportedmotion.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double degrees = 180.0 / 3.14159265358979323846;
constexpr double tolerance = 2e-7; // of a matrix element: about 1e-5 degrees

// All rotations that permute axes: the element [row][column] is the sign with which axis
// `column` becomes axis `row`.
std::array<VxRotation, 24> axisRotations()
{
    std::array<VxRotation, 24> rotations{};
    std::size_t count = 0;
    std::array<std::size_t, 3> axes{{0, 1, 2}};
    do {
        const bool isEven = (axes[1] + 3 - axes[0]) % 3 == 1;
        for (int signs = 0; signs < 8; ++signs) {
            const int minuses = (signs & 1) + (signs >> 1 & 1) + (signs >> 2 & 1);
            if ((minuses % 2 == 0) != isEven)
                continue;
            VxRotation &rotation = rotations[count++];
            for (std::size_t i = 0; i < 3; ++i)
                rotation[axes[i]][i] = signs >> i & 1 ? -1.0 : 1.0;
        }
    } while (std::next_permutation(axes.begin(), axes.end()));
    return rotations;
}

// The angle of a rotation about one axis; false when it is about another one.
bool angleAbout(const VxRotation &rotation, std::size_t axis, double *angle)
{
    const std::size_t b = (axis + 1) % 3;
    const std::size_t c = (axis + 2) % 3;
    for (const std::size_t other : {b, c}) {
        if (std::abs(rotation[axis][other]) > tolerance ||
            std::abs(rotation[other][axis]) > tolerance)
            return false;
    }
    if (rotation[axis][axis] < 0.0)
        return false;
    *angle = std::atan2(rotation[c][b], rotation[b][b]) * degrees;
    return true;
}

// The image of an axis under a rotation that permutes axes, and its sign.
std::size_t imageOf(const VxRotation &rotation, std::size_t axis, double *sign)
{
    std::size_t image = 0;
    while (rotation[image][axis] == 0.0)
        ++image;
    *sign = rotation[image][axis];
    return image;
}

} // namespace

// before * A * B * C * after, where before = A'(u) * P and P maps axes onto axes, is
// A'(u + a) * B'(b) * C'(c) * P * after; the rest P * after must be a rotation about C'.
bool vxFbxFindForm(const VxRotation &before, VxRotationOrder order, const VxRotation &after,
                   VxFbxRotationForm *form)
{
    static const std::array<VxRotation, 24> candidates = axisRotations();
    const std::array<int, 3> &axes = vxRotationAxes(order);
    for (const VxRotation &candidate : candidates) {
        std::array<std::size_t, 3> images{};
        std::array<double, 3> signs{};
        for (std::size_t i = 0; i < 3; ++i)
            images[i] = imageOf(candidate, static_cast<std::size_t>(axes[i]), &signs[i]);
        double first = 0.0;
        double last = 0.0;
        if (!angleAbout(before * vxTransposed(candidate), images[0], &first) ||
            !angleAbout(candidate * after, images[2], &last))
            continue;
        form->order = vxOrderOfAxes({int(images[0]), int(images[1]), int(images[2])});
        const std::array<double, 3> offsets{{first, 0.0, last}};
        for (std::size_t i = 0; i < 3; ++i)
            form->angles[images[i]] = {static_cast<std::size_t>(axes[i]), signs[i], offsets[i]};
        return true;
    }
    return false;
}
