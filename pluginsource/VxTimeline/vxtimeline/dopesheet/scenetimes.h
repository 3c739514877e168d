#ifndef SCENETIMES_H
#define SCENETIMES_H

#include <vxcore/vxtimerange.h>

/// The scene's times for painting the dope sheet, read once for each paint event; all in ticks.
struct SceneTimes
{
    VxTime time = 0;   // the current one
    VxTime step = 160; // of a frame, at least 1
    VxTimeRange playRange;
    VxTime duration = 0; // of the animation range

    /// Those of the application's scene; the initial values without a scene.
    static SceneTimes current();
};

#endif
