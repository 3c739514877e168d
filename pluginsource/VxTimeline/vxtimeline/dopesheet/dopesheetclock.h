#ifndef DOPESHEETCLOCK_H
#define DOPESHEETCLOCK_H

#include <vxcore/vxtimerange.h>

// The scene's times that the dope sheet's picture depends on, taken together once for a painting.
// A plain value; all in ticks.
struct DopeSheetClock
{
    VxTime current = 0;
    VxTime step = 160; // of a frame, at least 1
    VxTimeRange playRange;
    VxTime duration = 0; // of the animation range

    // Those of the application's scene; the values above while there is none.
    static DopeSheetClock ofScene();
};

#endif
