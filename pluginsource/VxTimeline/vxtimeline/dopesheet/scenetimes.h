#ifndef SCENETIMES_H
#define SCENETIMES_H

#include <vxcore/vxtimerange.h>

// The scene's times that the dope sheet is painted from, read once for each painting; all in ticks.
struct SceneTimes
{
    VxTime time = 0;   // the current one
    VxTime step = 160; // of a frame, at least 1
    VxTimeRange playRange;
    VxTime duration = 0; // of the animation range

    // Those of the application's scene; the values above while there is none.
    static SceneTimes current();
};

#endif
