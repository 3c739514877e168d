#include "io/vxbvhexport.h"

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

VxBvhExport::VxBvhExport(const VxSkeleton *skeleton, const VxTimeRange &range, VxTime step)
    : m_skeleton(skeleton)
    , m_range(range)
    , m_step(qMax(1, step))
{
}

bool VxBvhExport::checkSize(VxFileError *error) const
{
    const int bones = m_skeleton->getAllBones().size();
    if (bones == 0)
        return vxFail(error,
                      VxFileText::tr("\"%1\" has no bones to export.").arg(m_skeleton->getLabel()));
    // Six channels a bone at most.
    if (frames().count() * bones * 6 > MaxValues)
        return vxFail(
            error,
            VxFileText::tr(
                "The motion is too long: %1 frames of %2 bones. Shorten the animation range.")
                .arg(QString::number(frames().count()), QString::number(bones)));
    return true;
}

void VxBvhExport::summarise(const VxBvhDocument &document, int workedOut)
{
    m_summary = VxFileText::tr("The motion of \"%1\" has %2 frames at %3 frames per second.")
                    .arg(m_skeleton->getLabel(), QString::number(document.frameCount),
                         QString::number(VxTicksPerSecond / frames().ticksPerFrame(), 'g', 6));
    if (workedOut > 0)
        m_summary += QLatin1Char(' ') +
                     VxFileText::tr("Scales and other values that the format does not support were "
                                    "converted to positions and rotations for %n bones.",
                                    nullptr, workedOut);
}

bool VxBvhExport::sample(VxBvhDocument *document, VxFileError *error)
{
    if (!checkSize(error))
        return false;
    const VxFrameTimes all = frames();
    QVector<VxTime> times(int(all.count()));
    for (int frame = 0; frame < times.size(); ++frame)
        times[frame] = all.at(frame);
    const VxBvhSampler sampler(m_skeleton, times);
    VxBvhDocument sampled;
    sampled.joints = sampler.joints();
    sampled.frameCount = times.size();
    sampled.frameTime = all.ticksPerFrame() / VxTicksPerSecond;
    if (!sampler.sample(&sampled.values, partOfProgress(m_progress, 0, SamplePercent)))
        return vxCancel(error, VxFileText::tr("The export was cancelled."));
    summarise(sampled, sampler.numWorkedOut());
    *document = std::move(sampled);
    return true;
}

bool VxBvhExport::exportFile(const QString &fileName, VxFileError *error)
{
    VxBvhDocument document;
    if (sample(&document, error))
        return VxBvhWriter::writeFile(document, fileName, error,
                                      partOfProgress(m_progress, SamplePercent, 100));
    error->file = fileName;
    return false;
}
