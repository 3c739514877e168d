#include "vxtimeline/time/timelineplayback.h"

#include "vxtimeline/time/timelinesnap.h"

#include <utility>
#include <vxcore/vxscene.h>

namespace TimelinePlayback {

namespace {

bool allFrames = false;

} // namespace

void setTime(VxTime time)
{
    const bool wasPlaying = vxScene->isPlaying();
    if (wasPlaying)
        vxScene->pause();
    const VxTime frame = TimelineSnap::toFrameUpwards(time, vxScene->getTimeStep());
    vxScene->setTime(vxScene->getPlayRange().clamp(frame));
    if (wasPlaying)
        play();
}

void play()
{
    vxScene->play(!playsAllFrames());
}

void toggle()
{
    if (vxScene->isPlaying())
        vxScene->pause();
    else
        play();
}

bool playsAllFrames()
{
    return allFrames;
}

bool setPlaysAllFrames(bool onOff)
{
    return std::exchange(allFrames, onOff) != onOff;
}

} // namespace TimelinePlayback
