#ifndef TIMELINESNAP_H
#define TIMELINESNAP_H

#include <vxcore/vxtime.h>

// Rounding of times, as plain functions. Frame f lies at time f * timeStep.
namespace TimelineSnap {

// A number without its fraction, limited to 32 bits; 0 for what is no number.
int truncated(double value);
// A wide count of ticks limited to what a time can hold.
VxTime limited(qint64 ticks);
// A place in pixels limited to 2^29 either way, where nothing is seen any more: whoever adds a
// width to it does not leave 32 bits.
int place(qint64 pixels);

// The nearest whole frame; halves go away from zero:
//   step 160:  79 -> 0,  80 -> 160,  -79 -> 0,  -80 -> -160
// A step below 1 leaves the time as it is.
VxTime toFrame(VxTime time, VxTime timeStep);
// The nearest whole frame with halves going up, which is meant for times from 0 on: below zero the
// division's truncation makes it the frame above.
VxTime toFrameUpwards(VxTime time, VxTime timeStep);

// The number of the frame that a time lies in, truncated towards zero. 0 for a step below 1.
int frameOf(VxTime time, VxTime timeStep);
// The time of a frame, limited to what a time can hold.
VxTime timeOf(qint64 frame, VxTime timeStep);

} // namespace TimelineSnap

#endif
