#include <vxcore/vxposetransfer.h>

#include "scene/nodecontrols.h"

#include <cmath>

namespace {

// Of the cosine between two axes; what computing them from angles in single precision leaves.
constexpr double SameAxis = 1e-6;

/// The only element of a row that is not zero; the others then are 1 or -1 and zero.
std::optional<VxChannelSource> onlyElement(const std::array<double, 3> &row)
{
    std::optional<VxChannelSource> found;
    for (int axis = 0; axis < 3; ++axis) {
        const double element = row[size_t(axis)];
        if (std::abs(element) <= SameAxis)
            continue;
        if (found || std::abs(std::abs(element) - 1) > SameAxis)
            return std::nullopt;
        found = VxChannelSource{axis, element < 0 ? -1.0 : 1.0, 0};
    }
    return found;
}

bool areInverse(const VxRotation &a, const VxRotation &b)
{
    const VxRotation product = a * b;
    for (size_t row = 0; row < 3; ++row) {
        for (size_t column = 0; column < 3; ++column) {
            if (std::abs(product[row][column] - VxIdentityRotation[row][column]) > SameAxis)
                return false;
        }
    }
    return true;
}

} // namespace

VxPoseTransfer::VxPoseTransfer(const VxJointRest &from, const VxJointRest &to,
                               const VxRotation &reflection)
    : m_from(from)
    , m_to(to)
    , m_before(vxTransposed(to.parentAxes) * reflection * from.parentAxes)
    , m_after(vxTransposed(from.axes) * reflection * to.axes)
{
}

VxVector VxPoseTransfer::translation(const VxVector &source) const
{
    VxVector result = m_before * VxVector{source[0] - double(m_from.values[XPosition]),
                                          source[1] - double(m_from.values[YPosition]),
                                          source[2] - double(m_from.values[ZPosition])};
    for (size_t axis = 0; axis < 3; ++axis)
        result[axis] += double(m_to.values[XPosition + axis]);
    return result;
}

VxRotation VxPoseTransfer::rotation(const VxRotation &source) const
{
    return m_before * source * m_after;
}

VxVector VxPoseTransfer::stretch(const VxVector &source) const
{
    VxVector result{};
    for (size_t axis = 0; axis < 3; ++axis) {
        for (size_t other = 0; other < 3; ++other)
            result[axis] += m_after[other][axis] * m_after[other][axis] * source[other];
    }
    return result;
}

std::optional<VxChannelSource> VxPoseTransfer::translationSource(int axis) const
{
    std::optional<VxChannelSource> source = onlyElement(m_before[size_t(axis)]);
    if (source)
        source->offset = double(m_to.values[size_t(XPosition + axis)]) -
                         source->factor * double(m_from.values[size_t(XPosition + source->axis)]);
    return source;
}

std::optional<VxChannelSource> VxPoseTransfer::stretchSource(int axis) const
{
    std::optional<VxChannelSource> source = onlyElement(vxTransposed(m_after)[size_t(axis)]);
    if (source)
        source->factor = 1;
    return source;
}

/** A conjugated rotation about an axis is one about the axis's image, reversed by a reflection. */
std::optional<std::array<VxChannelSource, 3>> VxPoseTransfer::rotationSources() const
{
    if (!areInverse(m_before, m_after))
        return std::nullopt;
    const double sense = vxDot(m_before[0], vxCross(m_before[1], m_before[2])) < 0 ? -1 : 1;
    std::array<VxChannelSource, 3> sources;
    for (size_t axis = 0; axis < 3; ++axis) {
        const std::optional<VxChannelSource> source = onlyElement(m_before[axis]);
        if (!source)
            return std::nullopt;
        sources[axis] = {source->axis, source->factor * sense, 0};
    }
    // The order of multiplication remains.
    for (size_t i = 0; i < 3; ++i) {
        const int image = vxRotationAxes(m_to.order)[i];
        if (sources[size_t(image)].axis != vxRotationAxes(m_from.order)[i])
            return std::nullopt;
    }
    return sources;
}
