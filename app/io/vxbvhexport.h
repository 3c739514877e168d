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
/// included: such a file has no other keys than its frames. Its first frame is the range's start,
/// since it does not tell a time. What the file's format does not know (scales, what moves the
/// figure from above, nodes between bones) is worked into the positions and rotations.
class VxBvhExport
{
public:
    /// The figure is borrowed and stays as it is. step: ticks per frame, at least 1.
    VxBvhExport(const VxSkeleton *skeleton, const VxTimeRange &range, VxTime step);
    ~VxBvhExport();
    VxBvhExport(const VxBvhExport &) = delete;
    VxBvhExport &operator=(const VxBvhExport &) = delete;

    /// Samples at a rate (frames per second, up to 4800) that is no whole number of ticks a frame
    /// instead: each frame at the nearest tick of its true time.
    void setRate(double rate);
    /// Watches and cancels; 0 to 100 over sampling and writing.
    void setProgress(const VxFileProgress &progress);

    /// Samples and writes; the file is replaced whole or not at all. False with the reason in
    /// `error`, which must not be null.
    bool exportFile(const QString &fileName, VxFileError *error);
    /// Samples only.
    bool sample(VxBvhDocument *document, VxFileError *error);

    /// What the user should know of the last success: figure, frames, rate, and what was worked
    /// in.
    QString getSummary() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
