#ifndef LIMBPIN_H
#define LIMBPIN_H

#include <QtCore/QString>
#include <array>
#include <vector>
#include <vxcore/vxlimbsolver.h>
#include <vxcore/vxtimerange.h>

class VxNode;

/// Pins a joint to a world position over a time span by rotating its two-bone limb: the joint's
/// parent and grandparent, such as knee and hip of a foot. The joint itself keeps its world
/// rotation.
///
///     weight   0 . /1 1 1 1\ . 0      falls to 0 within the falloff before and after the span
///
/// Linear keys replace the limb's other keys on every frame of span and falloff. At both ends the
/// limb is unchanged; the smooth segments beside them have new neighbours and change a little.
class LimbPin
{
public:
    explicit LimbPin(VxNode *joint);

    /// Why the joint cannot be pinned: empty for a joint with a limb whose nine angles can be
    /// keyed.
    QString obstacle() const;

    /// Solves every frame of the span and its falloff, `step` ticks apart, for the joint's position
    /// at `time`. Changes nothing.
    void solve(const VxTimeRange &span, VxTime falloff, VxTime step, VxTime time);
    void write();

    /// The largest distance from the position over the span, measured on frames and halfway between
    /// them, as a fraction of the limb's length. Of the scene in its present state.
    double largestError() const;
    int framesOutOfReach() const { return m_outOfReach; }

private:
    void solveFrame(std::size_t frame, double weight, std::array<VxEuler, 3> *previous);
    VxTimeRange range() const { return {m_times.front(), m_times.back()}; }

    std::array<VxNode *, 3> m_nodes = {}; ///< root, middle, end
    VxTimeRange m_span;
    VxTime m_step = 1;
    VxVector m_place = {};
    double m_length = 0;
    int m_outOfReach = 0;
    std::vector<VxTime> m_times;
    /// By joint and axis, a value a time.
    std::array<std::array<std::vector<float>, 3>, 3> m_angles;
};

#endif
