#ifndef TIMELINEPLAYBACK_H
#define TIMELINEPLAYBACK_H

#include <vxcore/vxtime.h>

/// Setting the scene's time and playing it, by the same rules in all parts of the timeline.
namespace TimelinePlayback {

/// Moves the current time to the nearest frame within the play range. Playback is paused meanwhile
/// and resumed afterwards. Not recorded for undo unless the caller holds.
void setTime(VxTime time);

/// Starts playback by the option "Play All Frames".
void play();
/// Pauses or starts.
void toggle();

/// The process-wide option: playback shows every frame, however long it takes. Initially false.
bool playsAllFrames();
/// True when it changed.
bool setPlaysAllFrames(bool onOff);

} // namespace TimelinePlayback

#endif
