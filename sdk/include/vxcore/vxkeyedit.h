#ifndef VXKEYEDIT_H
#define VXKEYEDIT_H

#include <vector>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxkeyarrays.h>
#include <vxcore/vxkeyspan.h>
#include <vxcore/vxtimerange.h>

/// The edit engine: plans the new times of edited keys of one property, and the outcome of
/// collisions. Pure functions on arrays; the caller applies a plan with
/// VxFloatProperty::replaceKeys() (or moveKeys() where only times change) within a VxUndoStackHold.
///
/// Drawings show keys over time: letters are keys, dots are free ticks.

/// The effect of a collision: the target time of an edited key is occupied.
enum class VxCollision {
    /// The edited key replaces the other one: the rule of the dope sheet's drop, of paste and of
    /// scripts. Of several edited keys with one target the one listed last is kept.
    ///     `a b . c`, {a, b} by 2: `. . a b`
    Replace,
    /// The rule of the dope sheet's preview: keys that are not edited always stay. The edited keys
    /// are lifted out first; each takes the nearest free tick from its target back towards its
    /// origin, and passes that only where a key was set there meanwhile.
    ///     `a b . c`, {a, b} by 2: `. a b c`   (b waits beside c, a beside b)
    WaitBeside,
    /// The rule of the key graph: keys move one after the other in the order in which they are
    /// listed; each takes the nearest free tick from its target back to its present time, which
    /// counts as free. Keys that have not moved yet obstruct the others.
    ///     `a . b c`, {a} to where c is: `. . b c` with a one tick before b
    Nudge
};

/// Keys of a property and their target times. Nothing is owned.
struct VxKeyMoves
{
    const int *source = nullptr;     ///< indexes of the edited keys, no duplicates
    const VxTime *targets = nullptr; ///< target times in ticks, in any order
    int count = 0;                   ///< number of edited keys
    /// WaitBeside: their times at the start of the gesture, the direction in which they wait. Null:
    /// their present times.
    const VxTime *origins = nullptr;
};

/// The new time of each edited key, in the order of the list; `times` are all keys of the
/// property, ascending. Replace and WaitBeside take indexes in ascending order, Nudge also in
/// descending order. With Replace the result is the targets.
/// Empty when a key would have to wait outside the range of times.
VXCORE_EXPORT std::vector<VxTime> vxPlanKeyTimes(const VxTime *times, int count,
                                                 const VxKeyMoves &moves, VxCollision rule);

/// The targets of keys that all move by `offset` ticks from `origins`, ascending. The offset is
/// limited so that no key leaves the range of times.
VXCORE_EXPORT std::vector<VxTime> vxShiftedKeyTimes(const VxTime *origins, int count,
                                                    qint64 offset);

/// Edited keys of a property: indexes (ascending; Nudge: also descending), and the new time and
/// value of each. Null times or values: unchanged.
template <class V> struct VxKeyEdit
{
    const int *source = nullptr;
    const VxTime *times = nullptr;
    const V *values = nullptr;
    int count = 0;
    const VxTime *origins = nullptr; ///< see VxKeyMoves
};

/// The keys to write, and the selection afterwards.
template <class V> struct VxKeyResult
{
    VxTimeRange span;                ///< from the first to the last key removed, added or changed
    VxKeyArrays<V> keys;             ///< for replaceKeys(span, keys); empty when nothing changes
    std::vector<int> source;         ///< the former index of each of these keys
    std::vector<VxKeySpan> selected; ///< indexes of the edited keys after the edit
    int merged = 0;                  ///< keys replaced because another took their time
    bool isEmpty() const { return keys.isEmpty(); }
};

/// Plans an edit of a property's keys. The result is empty without edited keys, and where the rule
/// finds no free tick for one.
template <class V>
VxKeyResult<V> vxPlanKeyEdit(const VxKeyColumns<V> &keys, const VxKeyEdit<V> &edit,
                             VxCollision rule);

extern template VXCORE_EXPORT VxKeyResult<float>
vxPlanKeyEdit<float>(const VxKeyColumns<float> &, const VxKeyEdit<float> &, VxCollision);
extern template VXCORE_EXPORT VxKeyResult<qint32>
vxPlanKeyEdit<qint32>(const VxKeyColumns<qint32> &, const VxKeyEdit<qint32> &, VxCollision);

#endif
