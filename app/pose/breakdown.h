#ifndef BREAKDOWN_H
#define BREAKDOWN_H

#include "pose/nodechannels.h"

#include <QPointer>
#include <QVector>
#include <vector>

class PoseWriter;

/// Poses between two poses of nodes at one time, to be applied at any part of the way.
///
/// Rotations follow the shortest arc at constant speed (spherical linear interpolation: Shoemake,
/// Animating rotation with quaternion curves, 1985), extended beyond its ends, unless an angle
/// changes by more than half a turn: then the angles are interpolated, as the keys do.
class Breakdown
{
public:
    /// Neighbours: from the keys before to the keys after the time. Rest: from the present pose to
    /// the rest pose. Average: from the present pose to the middle of the neighbours.
    enum class Toward { Neighbours, Rest, Average };

    /// The keys of the three channels of a translation, rotation or scale count together; one at
    /// the time itself is no neighbour. With keys on one side only they are both neighbours.
    /// Nodes that are removed later are skipped.
    Breakdown(const QVector<VxNode *> &nodes, VxTime time, Toward toward);

    /// True when there is nothing to interpolate.
    bool isEmpty() const { return m_items.empty(); }
    int numNodes() const { return int(m_items.size()); }

    /// part: 0 is the first pose, 1 the second one; finite, any range.
    void apply(double part, PoseWriter *writer) const;

private:
    struct Item
    {
        QPointer<VxNode> node;
        PoseValues from;
        PoseValues to;
        std::array<bool, 4> groups; ///< translation, rotation, scale of all axes, of each axis
    };
    static void addNeighbours(const VxNode *node, VxTime time, Item *item);

    std::vector<Item> m_items;
};

#endif
