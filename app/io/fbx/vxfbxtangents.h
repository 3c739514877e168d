#ifndef VXFBXTANGENTS_H
#define VXFBXTANGENTS_H

#include <QtGlobal>
#include <array>

/// The flags of a key in an FBX file, as far as used.
namespace VxFbxKeyFlag {
constexpr quint32 Constant = 0x2;
constexpr quint32 Linear = 0x4;
constexpr quint32 Cubic = 0x8;
constexpr quint32 NextValue = 0x100; ///< with Constant: the next key's value
constexpr quint32 Auto = 0x100;      ///< with Cubic: slopes from the neighbours
constexpr quint32 Tcb = 0x200;       ///< slopes by tension, continuity and bias
constexpr quint32 Broken = 0x800;    ///< different slopes on both sides
constexpr quint32 Clamped = 0x1000;  ///< level where a neighbour has nearly the same value
constexpr quint32 TimeIndependent = 0x2000;
constexpr quint32 Progressive = 0x4000; ///< never beyond the neighbours' values
constexpr quint32 RightWeighted = 0x01000000;
constexpr quint32 NextLeftWeighted = 0x02000000;
} // namespace VxFbxKeyFlag

/// The inputs of a key's tangents. Times in seconds.
struct VxFbxTangentKey
{
    double time;
    double value;
    quint32 flags;
    /// Slope to the right, slope to the left of the next key, weights, velocities; or tension,
    /// continuity and bias; or the bias of an automatic tangent in percent.
    std::array<float, 4> data;

    bool isCubic() const;
    bool isTcb() const;
    bool isAuto() const;
    /// The weight of the handle to the right, and of that to the left of the next key; a third
    /// for an unweighted key, else from 0.0001 to 0.99.
    double rightWeight() const;
    double nextLeftWeight() const;
};

/// The slopes of the curve just before and just after a key, in the value's unit per second.
/// `before` and `after` are its neighbours, null where there is none. Always finite.
struct VxFbxSlopes
{
    double left;
    double right;
};
VxFbxSlopes vxFbxSlopes(const VxFbxTangentKey *before, const VxFbxTangentKey &key,
                        const VxFbxTangentKey *after);

#endif
