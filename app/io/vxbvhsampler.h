#ifndef VXIO_VXBVHSAMPLER_H
#define VXIO_VXBVHSAMPLER_H

#include "io/vxbvhdocument.h"
#include "io/vxfileprogress.h"

#include <QVector>
#include <memory>
#include <vxcore/vxtime.h>

class VxSkeleton;

/// Samples the joints of a figure, and the values of their channels at given times, for a motion
/// file.
///
/// A motion file has neither scales nor nodes between its joints. A bone below another one, without
/// a scale above it, is therefore copied control by control, which is exact; for other bones the
/// transform relative to the parent joint is computed from the world, so that the figure in the
/// file looks like the figure in the scene.
class VxBvhSampler
{
public:
    /// The figure is borrowed. Times ascend.
    VxBvhSampler(const VxSkeleton *skeleton, const QVector<VxTime> &times);
    ~VxBvhSampler();
    VxBvhSampler(const VxBvhSampler &) = delete;
    VxBvhSampler &operator=(const VxBvhSampler &) = delete;

    /// Joints without a parent get three positions and three rotations, others three rotations,
    /// and positions only where they move. A joint without joints below it gets an end site.
    std::vector<VxBvhJoint> joints() const;
    /// One value a channel and time, channel after channel. False when cancelled.
    bool sample(std::vector<float> *values, const VxFileProgress &progress) const;

    /// The number of bones that were computed instead of copied.
    int numWorkedOut() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
