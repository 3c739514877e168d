#include "vxtimeline/dopesheet/dopesheetclock.h"

#include <vxcore/vxscene.h>

DopeSheetClock DopeSheetClock::ofScene()
{
    DopeSheetClock clock;
    if (!vxScene)
        return clock;
    clock.current = vxScene->getTime();
    clock.step = vxScene->getTimeStep();
    clock.playRange = vxScene->getPlayRange();
    clock.duration = vxScene->getAnimRange().getDuration();
    return clock;
}
