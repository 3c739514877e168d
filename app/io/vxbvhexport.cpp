#include "io/vxbvhexport.h"

#include "io/motion/vxframetimes.h"
#include "io/vxbvhsampler.h"
#include "io/vxbvhwriter.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <cmath>
#include <vxcore/vxbone.h>
#include <vxcore/vxskeleton.h>

namespace {

// Larger motions would exhaust the memory: 400 MB.
constexpr qint64 MaxValues = 100 * 1000 * 1000;
// The share of sampling in the progress; the rest is for writing.
constexpr int SamplePercent = 40;

} // namespace

class VxBvhExport::Private
{
public:
    VxFrameTimes frames() const { return {range, step, rate}; }
    bool checkSize(VxFileError *error) const;
    QVector<VxTime> times() const;
    void summarise(const VxBvhDocument &document, int workedOut);

    const VxSkeleton *skeleton = nullptr;
    VxTimeRange range;
    VxTime step = 1;
    double rate = 0.0; // 0: that of the step
    VxFileProgress progress;
    QString summary;
};

bool VxBvhExport::Private::checkSize(VxFileError *error) const
{
    const int bones = skeleton->getAllBones().size();
    if (bones == 0)
        return vxFail(error,
                      VxFileText::tr("\"%1\" has no bones to export.").arg(skeleton->getLabel()));
    // Six channels a bone at most.
    if (frames().count() * bones * 6 > MaxValues)
        return vxFail(
            error,
            VxFileText::tr(
                "The motion is too long: %1 frames of %2 bones. Shorten the animation range.")
                .arg(QString::number(frames().count()), QString::number(bones)));
    return true;
}

QVector<VxTime> VxBvhExport::Private::times() const
{
    const VxFrameTimes all = frames();
    QVector<VxTime> list(int(all.count()));
    for (int frame = 0; frame < list.size(); ++frame)
        list[frame] = all.at(frame);
    return list;
}

void VxBvhExport::Private::summarise(const VxBvhDocument &document, int workedOut)
{
    summary = VxFileText::tr("The motion of \"%1\" has %2 frames at %3 frames per second.")
                  .arg(skeleton->getLabel(), QString::number(document.frameCount),
                       QString::number(VxTicksPerSecond / frames().ticksPerFrame(), 'g', 6));
    if (workedOut > 0)
        summary += QLatin1Char(' ') +
                   VxFileText::tr("Scales and other values that the format does not support were "
                                  "converted to positions and rotations for %n bones.",
                                  nullptr, workedOut);
}

VxBvhExport::VxBvhExport(const VxSkeleton *skeleton, const VxTimeRange &range, VxTime step)
    : d(std::make_unique<Private>())
{
    d->skeleton = skeleton;
    d->range = range;
    d->step = qMax(1, step);
}

VxBvhExport::~VxBvhExport() = default;

void VxBvhExport::setRate(double rate)
{
    d->rate = rate;
}

void VxBvhExport::setProgress(const VxFileProgress &progress)
{
    d->progress = progress;
}

bool VxBvhExport::sample(VxBvhDocument *document, VxFileError *error)
{
    if (!d->checkSize(error))
        return false;
    const VxBvhSampler sampler(d->skeleton, d->times());
    VxBvhDocument sampled;
    sampled.joints = sampler.joints();
    sampled.frameCount = int(d->frames().count());
    sampled.frameTime = d->frames().ticksPerFrame() / VxTicksPerSecond;
    if (!sampler.sample(&sampled.values, partOfProgress(d->progress, 0, SamplePercent)))
        return vxCancel(error, VxFileText::tr("The export was cancelled."));
    d->summarise(sampled, sampler.numWorkedOut());
    *document = std::move(sampled);
    return true;
}

bool VxBvhExport::exportFile(const QString &fileName, VxFileError *error)
{
    VxBvhDocument document;
    if (sample(&document, error))
        return VxBvhWriter::writeFile(document, fileName, error,
                                      partOfProgress(d->progress, SamplePercent, 100));
    error->file = fileName;
    return false;
}

QString VxBvhExport::getSummary() const
{
    return d->summary;
}
