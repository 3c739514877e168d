#ifndef VXIO_VXBVHSAMPLER_H
#define VXIO_VXBVHSAMPLER_H

#include "io/vxbvhdocument.h"
#include "io/vxfileprogress.h"

#include <QVector>
#include <memory>
#include <vxcore/vxtime.h>

class VxSkeleton;

/// Takes the joints of a motion file, and the values of their channels at given times, from a
/// figure.
///
/// A motion file knows neither scales nor anything between its joints. A bone below another one,
/// with nothing scaled above it, is therefore copied control by control, which gives the very same
/// numbers back; for any other one the place and turn relative to its parent joint are worked out
/// from the world, so that the figure stands in the file as it stands in the scene.
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

    /// How many bones were not copied control by control.
    int numWorkedOut() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
