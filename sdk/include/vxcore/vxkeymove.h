#ifndef VXCORE_VXKEYMOVE_H
#define VXCORE_VXKEYMOVE_H

#include <vector>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtime.h>

/// What a moved key does when its new time is that of a key that is not moved.
enum class VxKeyMoveRule {
    WaitBeside, ///< takes the nearest free tick back towards where it came from
    Replace     ///< takes the time; the other key is replaced when the move is applied
};

/// One step of moving selected keys of a property by one offset, counted from where they stood when
/// the move began, so that a drag never adds up its own steps. Nothing here is owned.
struct VxKeyMove
{
    const VxTime *times = nullptr;   ///< all keys of the property as they are now, ascending
    int count = 0;                   ///< number of keys
    const int *selected = nullptr;   ///< indexes of the moved keys as they are now, ascending
    const VxTime *origins = nullptr; ///< the moved keys' times when the move began, ascending
    int selectedCount = 0;           ///< number of moved keys
    qint64 offset = 0; ///< ticks; cut short where a key would leave the range of times
    VxKeyMoveRule rule = VxKeyMoveRule::Replace;
};

/// The new time of each moved key, strictly ascending, for VxNumericProperty::moveKeys().
///     origins `a b . c`, {a, b} moved by 2, Replace:    `. . a b`
///     origins `a b . c`, {a, b} moved by 2, WaitBeside: `. a b c`   (b waits beside c, a beside b)
/// A waiting key goes no further back than its origin, unless a key was put there meanwhile.
/// Empty when a key would have to wait before the earliest or after the latest time there is: only
/// then is there no such place.
VXCORE_EXPORT std::vector<VxTime> vxPlanKeyMove(const VxKeyMove &move);

#endif
