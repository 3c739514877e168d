#ifndef VXFRAMETIMES_H
#define VXFRAMETIMES_H

#include <vector>
#include <vxcore/vxtimerange.h>

/// The frames of a range for motion files, and the seconds of keys.
///
/// At a rate that is no whole number of ticks a frame, such as 29.97 frames per second, each frame
/// is at the nearest tick of its true time. Frames are then counted from time 0 if the range starts
/// on such a frame, else from the range's start.
class VxFrameTimes
{
public:
    /// step: ticks per frame, at least 1. rate: frames per second, up to 4800; 0: that of the step.
    VxFrameTimes(const VxTimeRange &range, VxTime step, double rate);

    double ticksPerFrame() const { return m_ticks; }
    /// The number of frames from the range's start to its end, both included; at least 1.
    qint64 count() const { return m_count; }
    /// The tick of a frame; 0 is the range's start.
    VxTime at(qint64 frame) const;
    /// All frames, and the range's end even if it is not on a frame.
    std::vector<VxTime> all() const;
    /// A frame between two times within the range, about in the middle; `from` when there is none.
    VxTime middle(VxTime from, VxTime to) const;
    /// A time in seconds: the true time of the frame whose nearest tick it is, if there is one.
    double seconds(VxTime time) const;

private:
    VxTime m_start;
    VxTime m_end;
    double m_rate; ///< 0: that of the step
    double m_ticks;
    qint64 m_first = 0; ///< number of the first frame, counted from time 0
    bool m_isOnFrame = false;
    qint64 m_count = 1;
};

#endif
