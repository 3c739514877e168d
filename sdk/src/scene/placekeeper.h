#ifndef SCENE_PLACEKEEPER_H
#define SCENE_PLACEKEEPER_H

#include "scene/nodeplacement.h"
#include "scene/nodesamples.h"
#include <optional>
#include <vector>

/// Gives a node that goes from one parent to another the values with which it stays where it is in
/// the world: at one time, and at the time of each of its keys.
///
/// Everything is sampled first and written afterwards. A control whose values need not change is
/// not touched, one that needs the same difference everywhere keeps its keys and their shapes, and
/// only what has to move in another way than before gets keys at all the times.
class PlaceKeeper
{
public:
    /// Either parent may be null for the top level. It makes no difference whether the node hangs
    /// at the old or at the new one by now.
    PlaceKeeper(VxNode *node, const VxNode *oldParent, const VxNode *newParent, VxTime now);

    /// False when the node is not where it was at the time: the new parent has no size, controls
    /// that are locked or driven by others had to change, or the skew of a turn within unequal
    /// scales is lost. Without a solution nothing is changed.
    bool keep();

private:
    /// What a control has to do: nothing, take another value, or give its keys the same difference,
    /// or all the times keys with values of their own.
    enum class Change { None, StoredValue, Shift, Keys };

    bool sampleRelations(const VxNode *oldParent, const VxNode *newParent);
    bool solve();
    bool isAvailable(NodeControl control) const;
    Change changeOf(NodeControl control) const;
    void write(NodeControl control);
    void shiftKeys(NodeControl control);
    void writeKeys(NodeControl control);
    /// Makes a key at the time where the curve between two keys does not lead past the right value.
    void pinNow(NodeControl control);
    double tolerance(NodeControl control) const;
    bool isInPlace() const;

    VxNode *const m_node;
    const NodeControls m_controls;
    std::vector<VxTime> m_times;
    size_t m_now = 0;                         ///< the index of the time asked for
    bool m_nowIsKey = true;                   ///< a key lies there
    std::vector<AffineTransform> m_relations; ///< from the old to the new parent's space
    std::vector<NodeControlValues> m_old;
    std::vector<NodeControlValues> m_new;
    double m_reach = 0; ///< the largest number that places are computed from
};

#endif
