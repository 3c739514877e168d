#ifndef NODESAMPLES_H
#define NODESAMPLES_H

#include "scene/nodecontrols.h"

#include <vector>

/// The values of a node's controls at many times, a column a control, and their transforms.
///
/// A column is read in one pass over a control's keys.
class NodeSamples
{
public:
    /// times: strictly ascending.
    NodeSamples(const VxNode *node, const std::vector<VxTime> &times);

    NodeControlValues at(size_t index) const;
    AffineTransform transform(size_t index) const;

private:
    const VxNode *m_node;
    std::array<std::vector<float>, NodeControlCount> m_columns;
};

/// The times of all keys of the node's controls, ascending, each once.
std::vector<VxTime> controlKeyTimes(const NodeControls &controls);

/// The transforms at the times from the space of a node to that of an ancestor (null: the world).
/// The node itself is included, the ancestor is not.
std::vector<AffineTransform> transformsUpTo(const VxNode *node, const VxNode *above,
                                            const std::vector<VxTime> &times);

/// The lowest common ancestor, which can be either node; null when that is the world.
const VxNode *commonAncestor(const VxNode *a, const VxNode *b);

#endif
