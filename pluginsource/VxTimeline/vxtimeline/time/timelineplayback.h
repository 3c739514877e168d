#ifndef TIMELINEPLAYBACK_H
#define TIMELINEPLAYBACK_H

#include <vxcore/vxtime.h>

// The scene's time as the timeline's parts set it: all of them by the same rule.
namespace TimelinePlayback {

// Moves the current time to the nearest frame within the play range. Playback is paused meanwhile
// and goes on afterwards. Not recorded for undo unless the caller holds.
void setTime(VxTime time);

// Starts playback as the option "Play All Frames" says.
void play();
// Pauses or starts.
void toggle();

// The option, of this process: every frame is shown in playback, however long it takes. False to
// begin with.
bool playsAllFrames();
// True when it changed.
bool setPlaysAllFrames(bool onOff);

} // namespace TimelinePlayback

#endif
