#ifndef PLAYRANGEVIEW_H
#define PLAYRANGEVIEW_H

#include <vxcore/vxtime.h>
#include <vxcore/vxtimerange.h>

/// Navigation along the time axis: the play range is the visible range, so zooming and shifting the
/// view change the play range.
///
/// The ends of the range are whole frames, at least one apart, while the gestures have fractions of
/// a frame. So the exact range is kept as long as nothing else changes the play range: zooming in
/// and out again by the same amount restores it.
class PlayRangeView
{
public:
    /// The range that the result must not exceed further than at present, and ticks of a frame.
    struct Limits
    {
        VxTimeRange animRange;
        VxTime step = 1;
    };

    /// The result of zooming `range` about a time by a factor: below 1 zooms in. The time keeps its
    /// position on the axis, as far as whole frames and limits allow.
    VxTimeRange zoomed(const VxTimeRange &range, double time, double factor, const Limits &limits);
    /// The range shifted by ticks, with the same length; later for positive ticks.
    VxTimeRange shifted(const VxTimeRange &range, double ticks, const Limits &limits);

private:
    void begin(const VxTimeRange &range);
    VxTimeRange result(const Limits &limits);

    double m_start = 0.0; // ticks, exact
    double m_end = 0.0;
    VxTimeRange m_result{0, -1}; // the rounded range
};

#endif
