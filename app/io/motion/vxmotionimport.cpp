#include "io/motion/vxmotionimport.h"

#include "io/motion/vxkeptrate.h"
#include "io/motion/vxmotionentry.h"
#include "io/vxbvhfigure.h"
#include "io/vxbvhreader.h"
#include "io/vxbvhtiming.h"
#include "io/vxfileerror.h"
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

class VxMotionImport::Private
{
public:
    explicit Private(VxScene *s)
        : scene(s)
    {
    }

    QString figureName(const QString &fileName) const;
    bool loadBvh(const QString &fileName, VxFileError *error);
    bool loadByWorker(const QString &fileName, VxFileError *error);
    bool build(const VxBvhDocument &document, const QString &readNote, const QString &fileName,
               const VxFileProgress &buildProgress, VxFileError *error);
    VxTime stepAfter(const VxImportChoices &choices) const;
    bool matchesRate(const VxImportChoices &choices) const
    {
        return choices.matchesRate && report.sourceRate > 0.0;
    }
    bool isBeside() const { return !replaces && scene->getNumNodes() > 0; }

    VxScene *const scene;
    VxFileProgress progress;
    VxMotionBuildOptions options;
    bool replaces = false;
    bool isBvh = false; // what was loaded last
    VxSceneContents contents;
    VxImportReport report;
    VxBvhTiming timing; // of a BVH file
    QString note;       // the same
    QVector<VxNode *> roots;
    QString summary;
};

QString VxMotionImport::Private::figureName(const QString &fileName) const
{
    QString name = options.figureName;
    if (name.isEmpty())
        name = QFileInfo(fileName).completeBaseName();
    if (name.isEmpty())
        name = VxFileText::tr("Motion");
    return isBeside() ? vxUnusedNodeName(*scene, name) : name;
}

/** In this process: the reader is the program's own and validates everything itself. */
bool VxMotionImport::Private::loadBvh(const QString &fileName, VxFileError *error)
{
    VxBvhReader reader(fileName);
    reader.setProgress(partOfProgress(progress, 0, ReadPercent));
    VxBvhDocument document;
    return reader.readFile(&document, error) &&
           build(document, reader.getNote(), fileName, partOfProgress(progress, ReadPercent, 100),
                 error);
}

bool VxMotionImport::Private::loadByWorker(const QString &fileName, VxFileError *error)
{
    VxMotionBuildOptions request = options;
    request.figureName = figureName(fileName);
    return VxImportWorker().run(fileName, request, progress, &contents, &report, error);
}

bool VxMotionImport::Private::build(const VxBvhDocument &document, const QString &readNote,
                                    const QString &fileName, const VxFileProgress &buildProgress,
                                    VxFileError *error)
{
    VxBvhTiming read;
    QString message;
    if (!document.isValid(&message) || !read.set(document.frameTime, document.frameCount, &message))
        return vxFail(error, message, fileName);
    std::unique_ptr<VxSkeleton> figure =
        vxBvhBuildFigure(document, read, figureName(fileName), buildProgress);
    if (!figure)
        return vxCancel(error, VxFileText::tr("The import was cancelled."), fileName);
    contents = VxSceneContents();
    contents.timeStep = read.step();
    contents.animRange = VxTimeRange(0, read.lastKeyTime());
    contents.playRange = contents.animRange;
    contents.rootNodes.push_back(std::move(figure));
    timing = read;
    note = readNote;
    report = reportOf(document, read);
    report.file = fileName;
    if (!note.isEmpty())
        report.notes.append(note);
    return true;
}

VxTime VxMotionImport::Private::stepAfter(const VxImportChoices &choices) const
{
    return isBeside() && !matchesRate(choices) ? scene->getTimeStep() : contents.timeStep;
}

VxMotionImport::VxMotionImport(VxScene *scene)
    : d(std::make_unique<Private>(scene))
{
}

VxMotionImport::~VxMotionImport() = default;

void VxMotionImport::setProgress(const VxFileProgress &progress)
{
    d->progress = progress;
}

void VxMotionImport::setReplacesScene(bool replaces)
{
    d->replaces = replaces;
}

void VxMotionImport::setOptions(const VxMotionBuildOptions &options)
{
    d->options = options;
}

bool VxMotionImport::load(const QString &fileName, VxFileError *error)
{
    d->isBvh = isBvhFile(fileName);
    const bool done = d->isBvh ? d->loadBvh(fileName, error) : d->loadByWorker(fileName, error);
    if (done)
        d->report = report({});
    qCInfo(vxFilesLog).noquote() << "read" << fileName << (done ? QString() : error->text());
    return done;
}

bool VxMotionImport::loadDocument(const VxBvhDocument &document, const QString &note,
                                  const QString &fileName, VxFileError *error)
{
    d->isBvh = true;
    const bool done = d->build(document, note, fileName, d->progress, error);
    if (done)
        d->report = report({});
    return done;
}

bool VxMotionImport::setsRate() const
{
    return !d->isBeside();
}

const VxImportReport &VxMotionImport::report() const
{
    return d->report;
}

VxImportReport VxMotionImport::report(const VxImportChoices &choices) const
{
    const VxImportNumbers counts = numbers(choices);
    VxImportReport report = d->report;
    report.sceneStep = d->stepAfter(choices);
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
    return vxCountKeys(d->contents, choices, d->stepAfter(choices));
}

bool VxMotionImport::enter(const VxImportChoices &choices, VxFileError *error)
{
    if (d->contents.rootNodes.empty())
        return vxFail(error, VxFileText::tr("There is nothing to import."), d->report.file);
    const bool isBeside = d->isBeside();
    d->report = report(choices);
    vxApplyChoices(choices, d->stepAfter(choices), &d->contents);
    for (const auto &root : d->contents.rootNodes) {
        if (d->report.isRateKept())
            vxKeepRate(root.get(), d->report.sourceRate);
    }
    VxMotionEntry entry;
    entry.replacesScene = d->replaces;
    entry.setsRate = d->matchesRate(choices);
    entry.hasMotion = d->isBvh ? d->timing.frameCount() > 1 : d->report.channels > 0;
    d->roots = vxEnterScene(std::move(d->contents), entry, d->scene);
    d->contents = VxSceneContents();
    if (d->roots.isEmpty())
        return vxFail(error, VxFileText::tr("The figure could not be added to the scene."),
                      d->report.file);
    d->summary = d->report.summary();
    if (d->isBvh) {
        d->summary = isBeside && !choices.matchesRate
                         ? d->timing.sentenceBeside(d->scene->getTimeStep())
                         : d->timing.sentence();
        if (!d->note.isEmpty())
            d->summary += QLatin1Char(' ') + d->note;
    }
    return true;
}

QVector<VxNode *> VxMotionImport::getRoots() const
{
    return d->roots;
}

QString VxMotionImport::getSummary() const
{
    return d->summary;
}
