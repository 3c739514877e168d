#ifndef VXIO_VXBVHEXPORT_H
#define VXIO_VXBVHEXPORT_H

#include "io/vxbvhdocument.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <memory>
#include <vxcore/vxtimerange.h>

class VxSkeleton;

/// Writes the motion of a figure to a BVH file.
///
/// The motion is sampled once a frame of the scene, from the start of a range to its end, both
/// included: such a file has only keys on frames. Its first frame is the range's start, since the
/// file has no start time. Features that the format lacks (scales, motion of the figure's
/// ancestors, nodes between bones) are baked into the positions and rotations.
class VxBvhExport
{
public:
    /// The figure is borrowed and not changed. step: ticks per frame, at least 1.
    VxBvhExport(const VxSkeleton *skeleton, const VxTimeRange &range, VxTime step);
    ~VxBvhExport();
    VxBvhExport(const VxBvhExport &) = delete;
    VxBvhExport &operator=(const VxBvhExport &) = delete;

    /// Samples at a rate (frames per second, up to 4800) without a whole number of ticks a frame
    /// instead: each frame at the nearest tick of its true time.
    void setRate(double rate);
    /// Reports progress of sampling and writing from 0 to 100 and can cancel.
    void setProgress(const VxFileProgress &progress);

    /// Samples, and writes the file atomically. False with the reason in `error`, which must not be
    /// null.
    bool exportFile(const QString &fileName, VxFileError *error);
    /// Samples only.
    bool sample(VxBvhDocument *document, VxFileError *error);

    /// A summary of the last success for the user: figure, frames, rate, and baked features.
    QString getSummary() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
