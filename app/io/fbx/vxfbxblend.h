#ifndef VXFBXBLEND_H
#define VXFBXBLEND_H

#include "io/fbx/vxfbxcurvemath.h"
#include "io/fbx/vxfbxcurves.h"
#include "io/fbx/vxfbxstacks.h"

/// A number, keyed or constant.
struct VxFbxChannel
{
    double value = 0.0; ///< without keys
    VxMotionCurve curve;

    bool hasKeys() const { return !curve.isEmpty(); }
    /// Whether it has this value at all times, up to rounding to single precision.
    bool isAlways(double constant) const;
};
using VxFbxTrack = std::array<VxFbxChannel, 3>;

/// The product; exact keys where one factor is a constant, else sampled.
VxFbxChannel vxFbxProduct(const VxFbxChannel &a, const VxFbxChannel &b);

/// What differs from the file, in all animations.
struct VxFbxBlendCounts
{
    int sampled = 0;      ///< targets that had to be sampled
    int coarse = 0;       ///< of these, those that may exceed the tolerance
    int extrapolated = 0; ///< curves whose extrapolation is not constant
};

/// Evaluates one animation of a target, its layers combined.
///
/// The lowest layer is used unchanged; each one above is added, or replaces, or is mixed in, with
/// its weight. Where that is a sum of curves, or one curve replaces another, the keys are exact:
/// those of the one curve, or of all together. Rotations combined as rotations, multiplied scales,
/// animated weights and sums of curves with weighted handles are sampled into cubic segments,
/// within 1/100 degree, and 1/10,000 of other values' range.
class VxFbxBlend
{
public:
    /// Everything is borrowed; the counts are increased.
    VxFbxBlend(const VxFbxStack &stack, const VxFbxObjects &objects, VxFbxCurves &curves,
               VxFbxBlendCounts *counts);

    /// Reads the curves of the layers' weights. False with error() set for a damaged curve.
    bool readWeights();
    /// The track of a target, `rest` without any layer. Order: of a rotation.
    /// False with error() set for a damaged curve.
    bool read(const VxFbxTarget &target, const std::array<double, 3> &rest,
              VxNode::RotationOrder order, VxFbxTrack *track);

    const VxFileError &error() const { return m_curves.error(); }

private:
    /// The contribution of one layer to the target.
    struct Part
    {
        const VxFbxLayer *layer;
        const VxMotionCurve *weight; // percent; null: the layer's constant
        bool isLowest;
        VxFbxTrack track;
    };
    using Vector = std::array<double, 3>;

    bool readCurve(int object, VxMotionCurve *curve);
    bool readParts(const VxFbxTarget &target);
    bool combine(const VxFbxTarget &target, std::array<VxCurveSum, 3> *sums) const;
    bool combinePart(const VxFbxTarget &target, const Part &part,
                     std::array<VxCurveSum, 3> *sums) const;
    Vector sample(const VxFbxTarget &target, const Vector &rest, VxNode::RotationOrder order,
                  double time, VxCurveSide side) const;
    void sampleInto(const VxFbxTarget &target, const Vector &rest, VxNode::RotationOrder order,
                    VxFbxTrack *track);

    const VxFbxStack &m_stack;
    const VxFbxObjects &m_objects;
    VxFbxCurves &m_curves;
    VxFbxBlendCounts *const m_counts;
    std::vector<VxMotionCurve> m_weights; // one a layer
    std::vector<Part> m_parts;            // of the target being read
};

#endif
