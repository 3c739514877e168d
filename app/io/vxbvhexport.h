#ifndef VXIO_VXBVHEXPORT_H
#define VXIO_VXBVHEXPORT_H

#include "io/motion/vxframetimes.h"
#include "io/motion/vxmotionwriter.h"
#include "io/vxbvhdocument.h"

class VxSkeleton;

/// Writes the motion of a figure to a BVH file.
///
/// The motion is sampled once a frame of the scene, from the start of a range to its end, both
/// included: such a file has only keys on frames. Its first frame is the range's start, since the
/// file has no start time. Features that the format lacks (scales, motion of the figure's
/// ancestors, nodes between bones) are baked into the positions and rotations.
class VxBvhExport : public VxMotionWriter
{
public:
    /// The figure is borrowed and not changed. step: ticks per frame, at least 1.
    VxBvhExport(const VxSkeleton *skeleton, const VxTimeRange &range, VxTime step);

    /// Samples at a rate (frames per second, up to 4800) without a whole number of ticks a frame
    /// instead: each frame at the nearest tick of its true time.
    void setRate(double rate) { m_rate = rate; }

    bool exportFile(const QString &fileName, VxFileError *error) override;

private:
    VxFrameTimes frames() const { return {m_range, m_step, m_rate}; }
    bool checkSize(VxFileError *error) const;
    bool sample(VxBvhDocument *document, VxFileError *error);
    void summarise(const VxBvhDocument &document, int workedOut);

    const VxSkeleton *const m_skeleton;
    const VxTimeRange m_range;
    const VxTime m_step;
    double m_rate = 0.0; // 0: that of the step
};

#endif
