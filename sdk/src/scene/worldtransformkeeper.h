#ifndef WORLDTRANSFORMKEEPER_H
#define WORLDTRANSFORMKEEPER_H

#include "scene/nodeplacement.h"
#include "scene/nodesamples.h"

#include <vector>

/// Preserves the world transform of a node that moves from one parent to another: at one time, and
/// at the time of each of its keys.
///
/// Everything is sampled first and written afterwards. A control whose values need not change is
/// not touched, one that needs the same offset everywhere keeps its keys and their shapes, and only
/// controls that must move differently than before get keys at all the times.
class WorldTransformKeeper
{
public:
    /// Either parent may be null for the top level. The node may have the old or the new parent at
    /// present.
    WorldTransformKeeper(VxNode *node, const VxNode *oldParent, const VxNode *newParent,
                         VxTime now);

    /// False when the world transform at the time changed: the new parent has zero scale, controls
    /// that are locked or driven by others would have to change, or the skew of a rotation within
    /// unequal scales is lost. Without a solution nothing is changed.
    bool keep();

private:
    /// The change of a control: none, another stored value, the same offset for all keys, or keys
    /// with new values at all the times.
    enum class Change { None, StoredValue, Shift, Keys };

    bool sampleRelations(const VxNode *oldParent, const VxNode *newParent);
    bool solve();
    bool isAvailable(NodeControl control) const;
    Change changeOf(NodeControl control) const;
    void write(NodeControl control);
    void shiftKeys(NodeControl control);
    void writeKeys(NodeControl control);
    /// Sets a key at the time if the curve between two keys misses the right value.
    void pinNow(NodeControl control);
    double tolerance(NodeControl control) const;
    bool isInPlace() const;

    VxNode *const m_node;
    const NodeControls m_controls;
    std::vector<VxTime> m_times;
    size_t m_now = 0;                         ///< the index of the requested time
    bool m_nowIsKey = true;                   ///< there is a key at that time
    std::vector<AffineTransform> m_relations; ///< from the old to the new parent's space
    std::vector<NodeControlValues> m_old;
    std::vector<NodeControlValues> m_new;
    double m_reach = 0; ///< the largest magnitude in the position arithmetic
};

#endif
