#ifndef TIMELINESNAP_H
#define TIMELINESNAP_H

#include <vxcore/vxtime.h>

/// Rounding of times, as plain functions. The time of frame f is f * timeStep.
namespace TimelineSnap {

/// A number truncated and saturated to 32 bits; 0 for NaN.
int saturatedInt(double value);
/// Ticks saturated to the range of times.
VxTime limited(qint64 ticks);
/// A pixel coordinate clamped to 2^29 either way, far outside of any view: adding a width to it
/// does not exceed 32 bits.
int clampedPixel(qint64 pixels);

/// The nearest whole frame; halves round away from zero:
///   step 160:  79 -> 0,  80 -> 160,  -79 -> 0,  -80 -> -160
/// A step below 1 leaves the time as it is.
VxTime toFrame(VxTime time, VxTime timeStep);
/// The nearest whole frame with halves rounding up, for times from 0 on: below zero the division's
/// truncation makes it the frame above.
VxTime toFrameUpwards(VxTime time, VxTime timeStep);

/// The number of the frame at a time, truncated towards zero. 0 for a step below 1.
int frameOf(VxTime time, VxTime timeStep);
/// The time of a frame, saturated to the range of times.
VxTime timeOf(qint64 frame, VxTime timeStep);

} // namespace TimelineSnap

#endif
