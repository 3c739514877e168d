#ifndef VXGLTFCURVES_H
#define VXGLTFCURVES_H

#include "io/motion/vxframetimes.h"

#include <array>
#include <vector>
#include <vxcore/vxeuler.h>
#include <vxcore/vxtimerange.h>

class VxFloatProperty;

/// The keys of one sampler of a glTF animation.
struct VxGltfKeys
{
    enum Kind { Step, Linear, Cubic };

    Kind kind = Linear;
    std::vector<VxTime> times;  ///< ticks, ascending
    std::vector<float> numbers; ///< for cubic ones: tangent in, value, tangent out of each key
    double error = 0.0;         ///< largest deviation between keys: degrees for rotations
};

/// One number of a sampler: a property's value times a constant factor, plus a constant.
struct VxGltfValue
{
    const VxFloatProperty *property = nullptr; ///< null: the constant alone
    double factor = 1.0;
    double constant = 0.0;
};

/// Combines several properties into the keys of one sampler over a range, ends included, exactly at
/// every tick: constant segments alone make a step sampler, linear ones a linear sampler,
/// everything else a cubic one. Where only some of the values jump, a key is added one tick before.
/// Linked properties are sampled once a frame. The frames are those of the range.
VxGltfKeys vxGltfKeysOf(const std::vector<VxGltfValue> &values, const VxTimeRange &range,
                        const VxFrameTimes &frames);

/// Three angles as quaternions. A linear segment stays one where the spherical interpolation is
/// the same rotation within 0.0005 degrees at every frame; else it is sampled once a frame, and
/// between frames while it deviates by more than 0.05 degrees.
VxGltfKeys vxGltfRotationKeys(const std::array<const VxFloatProperty *, 3> &angles,
                              VxRotationOrder order, const VxTimeRange &range,
                              const VxFrameTimes &frames);

/// The same for values that are products, such as uniform scale times that of each axis, sampled.
VxGltfKeys vxGltfSampledProducts(const VxFloatProperty *common,
                                 const std::vector<VxGltfValue> &values,
                                 const VxFrameTimes &frames);

/// Whether a property's value changes with time: it has keys, or depends on another property.
bool vxIsAnimated(const VxFloatProperty *property);

#endif
