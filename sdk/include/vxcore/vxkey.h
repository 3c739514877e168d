#ifndef VXKEY_H
#define VXKEY_H

#include <vxcore/vxtime.h>

/// Interpolation between a key and the next one. The numbers are those in files, scripts and key
/// operations; a segment has the type of its left key.
namespace VxKeyInterp {
enum Type : quint8 {
    Linear = 0,   ///< a straight line
    Constant = 1, ///< holds the left key's value
    Tcb = 2       ///< a smooth curve shaped by tension, continuity and bias
};
}

/// Tension, continuity and bias of a key, without unit. The usual range is -1 to 1, values outside
/// are legal. All zero is the plain smooth curve.
struct VxTcb
{
    float tension = 0;
    float continuity = 0;
    float bias = 0;

    friend constexpr bool operator==(const VxTcb &a, const VxTcb &b)
    {
        return a.tension == b.tension && a.continuity == b.continuity && a.bias == b.bias;
    }
    friend constexpr bool operator!=(const VxTcb &a, const VxTcb &b) { return !(a == b); }
};

/// A key's interpolation. Keys of the other types keep their tension, continuity and bias
/// without using them, so that changing the type back and forth loses nothing.
struct VxKeyShape
{
    quint8 type = VxKeyInterp::Linear; ///< a VxKeyInterp::Type
    VxTcb tcb;

    friend constexpr bool operator==(const VxKeyShape &a, const VxKeyShape &b)
    {
        return a.type == b.type && a.tcb == b.tcb;
    }
    friend constexpr bool operator!=(const VxKeyShape &a, const VxKeyShape &b) { return !(a == b); }
};

/// Many keys as plain arrays of `count` elements each, for bulk operations. The arrays are
/// borrowed: as an argument they must outlive the call, as a result they are valid until the keys
/// change.
template <class V> struct VxKeyColumns
{
    const VxTime *times = nullptr; ///< ticks, strictly ascending
    const V *values = nullptr;     ///< a value a key
    const quint8 *types = nullptr; ///< a VxKeyInterp::Type a key; null: the type new keys have
    const VxTcb *tcb = nullptr;    ///< null: all zero
    int count = 0;                 ///< number of keys; 0 allows null arrays
};

#endif
