#include "io/formats/vxmotionimport.h"

#include "io/bvh/vxbvhfigure.h"
#include "io/bvh/vxbvhreader.h"
#include "io/motion/vxkeptrate.h"
#include "io/motion/vxmotionentry.h"
#include "io/vxfiletext.h"
#include "io/worker/vximportworker.h"

#include <QFileInfo>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

// The share of reading a BVH file in the progress; the rest is for building.
constexpr int ReadPercent = 70;

bool isBvhFile(const QString &fileName)
{
    return fileName.endsWith(QLatin1String(".bvh"), Qt::CaseInsensitive);
}

VxImportReport reportOf(const VxBvhDocument &document, const VxBvhTiming &timing)
{
    VxImportReport report;
    report.format = VxFileText::tr("BVH");
    report.sourceRate = timing.sourceRate();
    report.step = timing.step();
    report.sceneStep = report.step;
    report.nodes = int(document.joints.size()) + 1;
    report.bones = int(document.joints.size());
    report.channels = document.frameCount > 0 ? document.channelCount() : 0;
    report.keysBefore = qint64(document.values.size());
    report.keysAfter = report.keysBefore;
    return report;
}

} // namespace

bool VxMotionImport::isBeside() const
{
    return !m_replaces && m_scene->getNumNodes() > 0;
}

QString VxMotionImport::figureName(const QString &fileName) const
{
    QString name = m_options.figureName;
    if (name.isEmpty())
        name = QFileInfo(fileName).completeBaseName();
    if (name.isEmpty())
        name = VxFileText::tr("Motion");
    return isBeside() ? vxUnusedNodeName(*m_scene, name) : name;
}

/** In this process: the reader is the program's own and validates everything itself. */
bool VxMotionImport::loadBvh(const QString &fileName, VxFileError *error)
{
    VxBvhDocument document;
    QString note;
    if (!vxReadBvhFile(fileName, &document, error, partOfProgress(m_progress, 0, ReadPercent),
                       &note) ||
        !build(document, fileName, error))
        return false;
    m_note = note;
    if (!m_note.isEmpty())
        m_report.notes.append(m_note);
    return true;
}

bool VxMotionImport::loadByWorker(const QString &fileName, VxFileError *error)
{
    VxMotionBuildOptions request = m_options;
    request.figureName = figureName(fileName);
    return VxImportWorker().run(fileName, request, m_progress, &m_contents, &m_report, error);
}

bool VxMotionImport::build(const VxBvhDocument &document, const QString &fileName,
                           VxFileError *error)
{
    VxBvhTiming timing;
    QString message;
    if (!document.isValid(&message) ||
        !timing.set(document.frameTime, document.frameCount, &message))
        return vxFail(error, message, fileName);
    std::unique_ptr<VxSkeleton> figure = vxBvhBuildFigure(
        document, timing, figureName(fileName), partOfProgress(m_progress, ReadPercent, 100));
    if (!figure)
        return vxCancel(error, VxFileText::tr("The import was cancelled."), fileName);
    m_contents = VxSceneContents();
    m_contents.timeStep = timing.step();
    m_contents.animRange = VxTimeRange(0, timing.lastKeyTime());
    m_contents.playRange = m_contents.animRange;
    m_contents.rootNodes.push_back(std::move(figure));
    m_timing = timing;
    m_report = reportOf(document, timing);
    m_report.file = fileName;
    return true;
}

VxTime VxMotionImport::stepAfter(const VxImportChoices &choices) const
{
    return isBeside() && !matchesRate(choices) ? m_scene->getTimeStep() : m_contents.timeStep;
}

bool VxMotionImport::load(const QString &fileName, VxFileError *error)
{
    m_isBvh = isBvhFile(fileName);
    const bool done = m_isBvh ? loadBvh(fileName, error) : loadByWorker(fileName, error);
    if (done)
        m_report = report({});
    qCInfo(vxFilesLog).noquote() << "read" << fileName << (done ? QString() : error->text());
    return done;
}

VxImportReport VxMotionImport::report(const VxImportChoices &choices) const
{
    const VxImportNumbers counts = numbers(choices);
    VxImportReport report = m_report;
    report.sceneStep = stepAfter(choices);
    report.keysAfter = counts.keys;
    report.offFrameKeys = counts.offFrame;
    if (choices.snapsToFrames)
        report.notes.append(
            VxFileText::tr("Keys were snapped to frames: moved by up to %1 ticks; %2 "
                           "were dropped because another key is on the same frame.")
                .arg(counts.largestMove)
                .arg(counts.merged));
    if (choices.rotationsOnly)
        report.notes.append(VxFileText::tr(
            "Rotations only: %n keys of other properties were left out.", nullptr, counts.leftOut));
    return report;
}

VxImportNumbers VxMotionImport::numbers(const VxImportChoices &choices) const
{
    return vxCountKeys(m_contents, choices, stepAfter(choices));
}

bool VxMotionImport::enter(const VxImportChoices &choices, VxFileError *error)
{
    if (m_contents.rootNodes.empty())
        return vxFail(error, VxFileText::tr("There is nothing to import."), m_report.file);
    const bool wasBeside = isBeside();
    m_report = report(choices);
    vxApplyChoices(choices, stepAfter(choices), &m_contents);
    for (const auto &root : m_contents.rootNodes) {
        if (m_report.isRateKept())
            vxKeepRate(root.get(), m_report.sourceRate);
    }
    VxMotionEntry entry;
    entry.replacesScene = m_replaces;
    entry.setsRate = matchesRate(choices);
    entry.hasMotion = m_isBvh ? m_timing.frameCount() > 1 : m_report.channels > 0;
    m_roots = vxEnterScene(std::move(m_contents), entry, m_scene);
    m_contents = VxSceneContents();
    if (m_roots.isEmpty())
        return vxFail(error, VxFileText::tr("The figure could not be added to the scene."),
                      m_report.file);
    m_summary = m_report.summary();
    if (m_isBvh) {
        m_summary = wasBeside && !choices.matchesRate
                        ? m_timing.sentenceBeside(m_scene->getTimeStep())
                        : m_timing.sentence();
        if (!m_note.isEmpty())
            m_summary += QLatin1Char(' ') + m_note;
    }
    return true;
}
