#ifndef MOTIONTRAIL_H
#define MOTIONTRAIL_H

#include <QVector3D>
#include <QVector>
#include <vxcore/vxnode.h>
#include <vxcore/vxtimerange.h>

/// The path of a node's position in the world: a dot for each frame and for each of its keys.
struct MotionTrail
{
    struct Dot
    {
        VxTime time;
        QVector3D at;
        bool isKey; ///< one of the node's transform controls has a key at that time
    };

    /// In the order of their times. Positions that are not finite, or too large for single
    /// precision, are left out.
    QVector<Dot> dots;

    /// More frames than this are thinned out evenly; all keys up to that number stay.
    static constexpr int MaxFrames = 3000;

    /// The dots within a range, ends included. step: ticks a frame, at least 1. The cost is linear
    /// in frames and keys times the number of nodes above.
    static MotionTrail of(const VxNode *node, const VxTimeRange &range, VxTime step);
};

/// What a trail depends on that sends no report when it changes: compared before a trail is reused.
struct TrailLink
{
    const VxNode *node;
    QVector3D origin;
    VxNode::RotationOrder order;

    friend bool operator==(const TrailLink &a, const TrailLink &b)
    {
        return a.node == b.node && a.origin == b.origin && a.order == b.order;
    }
};

/// Of a node and those above it.
QVector<TrailLink> trailLinks(const VxNode *node);

#endif
