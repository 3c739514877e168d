#include "vxtimeline/dopesheet/scenetimes.h"

#include <vxcore/vxscene.h>

SceneTimes SceneTimes::current()
{
    SceneTimes times;
    if (!vxScene)
        return times;
    times.time = vxScene->getTime();
    times.step = vxScene->getTimeStep();
    times.playRange = vxScene->getPlayRange();
    times.duration = vxScene->getAnimRange().getDuration();
    return times;
}
