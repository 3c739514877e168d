#ifndef VXFBXSTACKS_H
#define VXFBXSTACKS_H

#include "io/fbx/vxfbxmodels.h"

#include <map>

/// The target of a curve node of an FBX file.
struct VxFbxTarget
{
    enum Property : quint8 { Translation, Rotation, Scale, Morph, Other };

    int object = 0; ///< of a node or, for Morph, of a blend shape channel
    Property property = Other;
    std::string_view name; ///< of another property, as in the file

    bool operator<(const VxFbxTarget &o) const
    {
        return std::tie(object, property, name) < std::tie(o.object, o.property, o.name);
    }
};

/// A curve node: up to three components, each with a curve or a value.
struct VxFbxCurveNode
{
    std::array<int, 3> curves{{0, 0, 0}}; ///< objects; 0 for a constant
    std::array<double, 3> values{};
};

/// One layer of an animation.
struct VxFbxLayer
{
    enum Blend : quint8 { Additive, Override, Passthrough };

    Blend blend = Additive;
    double weight = 1.0;       ///< 0 to 1
    int weightCurve = 0;       ///< object of a curve in percent; 0: constant weight
    bool isPerChannel = false; ///< angles are blended one by one, not as a rotation
    bool addsScale = false;    ///< scales are added, not multiplied
    std::map<VxFbxTarget, VxFbxCurveNode> targets;
};

/// One animation of the file.
struct VxFbxStack
{
    QString name;
    qint64 start = 0; ///< ticks of the file; equal to the end when missing
    qint64 end = 0;
    std::vector<VxFbxLayer> layers; ///< the lowest first, without muted ones
};

/// Reads all animations, the active one first. Layers that are muted are left out with a note.
std::vector<VxFbxStack> vxFbxReadStacks(const VxFbxRecords &records, const VxFbxObjects &objects,
                                        VxMotionFacts *facts);

#endif
