#ifndef KEYMARKERSNAP_H
#define KEYMARKERSNAP_H

#include <optional>
#include <vector>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxtimerange.h>

/// The times of markers to which gestures on keys snap. Times are ticks.
class KeyMarkerSnap
{
public:
    /// The starts and ends of the markers. Keys within `range` are edited.
    KeyMarkerSnap(const VxMarkerList &markers, const VxTimeRange &range);

    /// The offset nearest to `offset` by which the first or the last key moves to a marker, at most
    /// `reach` beside it; null for none.
    std::optional<double> offset(double offset, double reach) const;
    /// The factor, for distances from `pivot`, by which the first or the last key moves to a
    /// marker that is at most `reach` from its time by `factor`; the nearer of both. Null for none.
    std::optional<double> factor(double factor, double pivot, double reach) const;

private:
    std::optional<VxTime> nearest(double time, double reach) const;

    std::vector<VxTime> m_times; ///< ascending
    VxTimeRange m_range;
};

#endif
