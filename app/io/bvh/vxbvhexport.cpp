#include "io/bvh/vxbvhexport.h"

#include "io/bvh/vxbvhsampler.h"
#include "io/bvh/vxbvhwriter.h"
#include "io/motion/vxframetimes.h"
#include "io/motion/vxkeptrate.h"
#include "io/vxfiletext.h"

#include <vxcore/vxbone.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

// Larger motions would exhaust the memory: 400 MB.
constexpr qint64 MaxValues = 100 * 1000 * 1000;
// The share of sampling in the progress; the rest is for writing.
constexpr int SamplePercent = 40;

bool checkSize(const VxSkeleton *figure, qint64 frames, VxFileError *error)
{
    const int bones = figure->getAllBones().size();
    if (bones == 0)
        return vxFail(error,
                      VxFileText::tr("\"%1\" has no bones to export.").arg(figure->getLabel()));
    // Six channels a bone at most.
    if (frames * bones * 6 > MaxValues)
        return vxFail(
            error,
            VxFileText::tr(
                "The motion is too long: %1 frames of %2 bones. Shorten the animation range.")
                .arg(QString::number(frames), QString::number(bones)));
    return true;
}

QString summaryOf(const VxSkeleton *figure, const VxFrameTimes &frames, int workedOut)
{
    QString summary = VxFileText::tr("The motion of \"%1\" has %2 frames at %3 frames per second.")
                          .arg(figure->getLabel(), QString::number(frames.count()),
                               QString::number(VxTicksPerSecond / frames.ticksPerFrame(), 'g', 6));
    if (workedOut > 0)
        summary += QLatin1Char(' ') +
                   VxFileText::tr("Scales and other values that the format does not support were "
                                  "converted to positions and rotations for %n bones.",
                                  nullptr, workedOut);
    return summary;
}

} // namespace

bool vxWriteBvh(const VxMotionSource &source, const QString &fileName, QString *summary,
                VxFileError *error)
{
    const auto *figure = qobject_cast<const VxSkeleton *>(source.root);
    const VxTime step = source.scene->getTimeStep();
    const VxFrameTimes frames(source.range, step, vxKeptRate(figure, step));
    if (!checkSize(figure, frames.count(), error))
        return false;
    QVector<VxTime> times(int(frames.count()));
    for (int frame = 0; frame < times.size(); ++frame)
        times[frame] = frames.at(frame);
    const VxBvhSampler sampler(figure, times);
    VxBvhDocument document;
    document.joints = sampler.joints();
    document.frameCount = times.size();
    document.frameTime = frames.ticksPerFrame() / VxTicksPerSecond;
    if (!sampler.sample(&document.values, partOfProgress(source.progress, 0, SamplePercent)))
        return vxCancel(error, VxFileText::tr("The export was cancelled."));
    *summary = summaryOf(figure, frames, sampler.numWorkedOut());
    return VxBvhWriter::writeFile(document, fileName, error,
                                  partOfProgress(source.progress, SamplePercent, 100));
}
