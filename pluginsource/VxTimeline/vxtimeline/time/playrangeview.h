#ifndef PLAYRANGEVIEW_H
#define PLAYRANGEVIEW_H

#include <vxcore/vxtime.h>
#include <vxcore/vxtimerange.h>

// Looking around along the time axis: the play range is what is visible, so zooming and shifting
// the view are changes of the play range.
//
// The ends of the range are whole frames, at least one apart, while the gestures come in fractions
// of a frame. So the exact range is kept for as long as nothing else changes the play range:
// zooming in and out again by the same amount ends where it began.
class PlayRangeView
{
public:
    // The span that the range does not leave further than it does already, and ticks of a frame.
    struct Limits
    {
        VxTimeRange animRange;
        VxTime step = 1;
    };

    // The range that `range` becomes when it is zoomed about a time by a factor: below 1 it shows
    // less. The time keeps its place on the axis, as far as whole frames and limits allow.
    VxTimeRange zoomed(const VxTimeRange &range, double time, double factor, const Limits &limits);
    // The range shifted by ticks, with the same length; later for positive ticks.
    VxTimeRange shifted(const VxTimeRange &range, double ticks, const Limits &limits);

private:
    void begin(const VxTimeRange &range);
    VxTimeRange result(const Limits &limits);

    double m_start = 0.0; // ticks, exact
    double m_end = 0.0;
    VxTimeRange m_result{0, -1}; // what they were rounded to
};

#endif
