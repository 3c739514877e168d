#ifndef VXCORE_VXKEYEDIT_H
#define VXCORE_VXKEYEDIT_H

#include <vector>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxkeyarrays.h>
#include <vxcore/vxkeyspan.h>
#include <vxcore/vxtimerange.h>

/// The edit engine: plans where edited keys of one property come to lie, and what becomes of the
/// keys there. Pure functions on arrays; whoever applies a plan calls
/// VxFloatProperty::replaceKeys() (or moveKeys() where only times change) within a VxUndoStackHold.
///
/// Drawings show keys over time: letters are keys, dots are free ticks.

/// What an edited key does when its target time is taken.
enum class VxCollision {
    /// It takes the time, and the other key is gone: the rule of the dope sheet's drop, of paste
    /// and of scripts. Of several edited keys with one target the one listed last is kept.
    ///     `a b . c`, {a, b} by 2: `. . a b`
    Replace,
    /// The rule of the dope sheet's preview: keys that are not edited stay, whatever comes. The
    /// edited keys are lifted out first; each takes the nearest free tick from its target back
    /// towards its origin, and goes beyond that only where a key was put there meanwhile.
    ///     `a b . c`, {a, b} by 2: `. a b c`   (b waits beside c, a beside b)
    WaitBeside,
    /// The rule of the key graph: keys move one after the other in the order in which they are
    /// listed; each takes the nearest free tick from its target back to where it is now, which
    /// counts as free. Keys that have not moved yet are in the way of the others.
    ///     `a . b c`, {a} to where c is: `. . b c` with a one tick before b
    Nudge
};

/// Keys of a property and the times they are to get. Nothing is owned.
struct VxKeyMoves
{
    const int *source = nullptr;     ///< indexes of the edited keys, without doubles
    const VxTime *targets = nullptr; ///< wanted times in ticks, in any order
    int count = 0;                   ///< number of edited keys
    /// WaitBeside: their times when the gesture began, towards which they wait. Null: where they
    /// are now.
    const VxTime *origins = nullptr;
};

/// The time that each edited key gets, in the order of the list; `times` are all keys of the
/// property, ascending. Replace and WaitBeside take indexes in ascending order, Nudge also in
/// descending order. With Replace the result is the targets.
/// Empty when a key would have to wait before the earliest or after the latest time there is.
VXCORE_EXPORT std::vector<VxTime> vxPlanKeyTimes(const VxTime *times, int count,
                                                 const VxKeyMoves &moves, VxCollision rule);

/// The targets of keys that all move by `offset` ticks (cut short where a key would leave the range
/// of times) from `origins`, ascending.
VXCORE_EXPORT std::vector<VxTime> vxShiftedKeyTimes(const VxTime *origins, int count,
                                                    qint64 offset);

/// Edited keys of a property: indexes (ascending; Nudge: also descending), and for each the time
/// and the value it is to get. Null times or values: they stay.
template <class V> struct VxKeyEdit
{
    const int *source = nullptr;
    const VxTime *times = nullptr;
    const V *values = nullptr;
    int count = 0;
    const VxTime *origins = nullptr; ///< see VxKeyMoves
};

/// What to write, and what is selected then.
template <class V> struct VxKeyResult
{
    VxTimeRange span;        ///< from the first to the last key that leaves, arrives or changes
    VxKeyArrays<V> keys;     ///< for replaceKeys(span, keys); empty when nothing is to be done
    std::vector<int> source; ///< the index that each of these keys had before
    std::vector<VxKeySpan> selected; ///< indexes of the edited keys after the edit
    int merged = 0;                  ///< keys that are gone because another took their time
    bool isEmpty() const { return keys.isEmpty(); }
};

/// Plans an edit of a property's keys. The result is empty without edited keys, and where the rule
/// finds no place for one.
template <class V>
VxKeyResult<V> vxPlanKeyEdit(const VxKeyColumns<V> &keys, const VxKeyEdit<V> &edit,
                             VxCollision rule);

extern template VXCORE_EXPORT VxKeyResult<float>
vxPlanKeyEdit<float>(const VxKeyColumns<float> &, const VxKeyEdit<float> &, VxCollision);
extern template VXCORE_EXPORT VxKeyResult<qint32>
vxPlanKeyEdit<qint32>(const VxKeyColumns<qint32> &, const VxKeyEdit<qint32> &, VxCollision);

#endif
