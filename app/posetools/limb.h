#ifndef LIMB_H
#define LIMB_H

#include "posetools/posegesture.h"
#include "posetools/spaces.h"

#include <array>

/// A limb of two bones in a gesture: a joint such as a hand or a foot, its parent and its
/// grandparent. It is solved with vxSolveLimb(), always from the angles at the start, and written
/// as ordinary rotations. The joint keeps the world rotation of the start.
class Limb
{
public:
    explicit Limb(VxNode *end);

    /// Grandparent, parent and joint; null ones for a node without two nodes above it.
    const std::array<VxNode *, 3> &nodes() const { return m_nodes; }
    /// Why the joint has no limb that can be solved, as a sentence; empty for one that has.
    QString obstacle(VxTime time) const;

    /// Registers the nodes with the gesture, which must outlive this object.
    void begin(PoseGesture *gesture);
    /// The position of the joint at the start, in the world.
    const VxVector &startPosition() const { return m_startPosition; }
    /// Rotates the limb so that the joint is at a position. False when it is out of reach, or when
    /// joint limits prevent it.
    bool solve(const VxVector &target);
    /// The distance from the last target, as a fraction of the limb's length.
    double error() const { return m_error; }

private:
    using Poses = std::array<PoseValues, 3>;
    using Matrices = std::array<QMatrix4x4, 3>;

    Matrices matrices(const QMatrix4x4 &parent, const Poses &poses) const;
    VxQuaternion rotation(std::size_t index, const QMatrix4x4 &parent,
                          const PoseValues &values) const;
    VxVector bendAxis(const Matrices &worlds) const;
    Poses rotated(const QMatrix4x4 &parent, const VxVector &target) const;
    void setAngles(std::size_t index, const QMatrix4x4 &parent, const VxQuaternion &world,
                   Poses *poses) const;

    std::array<VxNode *, 3> m_nodes = {};
    PoseGesture *m_gesture = nullptr;
    std::array<GestureNode *, 3> m_parts = {};
    VxVector m_startPosition = {};
    VxQuaternion m_endRotation;
    double m_length = 0;
    double m_error = 0;
};

#endif
