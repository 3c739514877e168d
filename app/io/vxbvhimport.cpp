#include "io/vxbvhimport.h"

#include "io/vxbvhfigure.h"
#include "io/vxbvhreader.h"
#include "io/vxbvhtiming.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSet>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostackhold.h>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("VxBvhImport", text);
}

bool fail(VxFileError *error, const QString &file, const QString &message, bool cancelled = false)
{
    *error = VxFileError();
    error->file = file;
    error->message = message;
    error->cancelled = cancelled;
    return false;
}

/// The name, or the first of "name 2", "name 3" ... that no node has for its name or label.
QString unusedName(const VxScene &scene, const QString &name)
{
    QSet<QString> used;
    VxNodeListIterator nodes = scene.nodeListIterator();
    while (nodes.hasNext()) {
        const VxNode *node = nodes.next();
        used.insert(node->getName());
        used.insert(node->getLabel());
    }
    QString unused = name;
    for (int number = 2; used.contains(unused); ++number)
        unused = tr("%1 %2").arg(name, QString::number(number));
    return unused;
}

// Where reading ends and building begins, by the time that they take.
constexpr int ReadPercent = 70;

} // namespace

class VxBvhImport::Private
{
public:
    explicit Private(VxScene *s)
        : scene(s)
    {
    }

    bool build(const VxBvhDocument &document, const QString &fileName,
               const VxFileProgress &buildProgress, VxFileError *error);
    bool replaceScene(std::unique_ptr<VxSkeleton> figure, const VxBvhTiming &timing);
    bool enterScene(std::unique_ptr<VxSkeleton> figure, const VxBvhTiming &timing);
    void takeTime(const VxBvhTiming &timing);
    void makeRoom(const VxBvhTiming &timing);

    VxScene *const scene;
    bool replaces = false;
    VxFileProgress progress;
    VxSkeleton *skeleton = nullptr;
    QString summary;
};

bool VxBvhImport::Private::build(const VxBvhDocument &document, const QString &fileName,
                                 const VxFileProgress &buildProgress, VxFileError *error)
{
    VxBvhTiming timing;
    QString message;
    if (!document.isValid(&message) ||
        !timing.set(document.frameTime, document.frameCount, &message))
        return fail(error, fileName, message);
    QString name = QFileInfo(fileName).completeBaseName();
    if (name.isEmpty())
        name = tr("Motion");
    if (!replaces)
        name = unusedName(*scene, name);
    const bool isBeside = !replaces && scene->getNumNodes() > 0;
    std::unique_ptr<VxSkeleton> figure = vxBvhBuildFigure(document, timing, name, buildProgress);
    if (!figure)
        return fail(error, fileName, tr("The import was cancelled."), true);
    const bool entered =
        replaces ? replaceScene(std::move(figure), timing) : enterScene(std::move(figure), timing);
    if (!entered)
        return fail(error, fileName, tr("The figure could not be added to the scene."));
    summary = isBeside ? timing.sentenceBeside(scene->getTimeStep()) : timing.sentence();
    return true;
}

/** Only now, when nothing can go wrong or be cancelled any more, is the scene cleared. */
bool VxBvhImport::Private::replaceScene(std::unique_ptr<VxSkeleton> figure,
                                        const VxBvhTiming &timing)
{
    scene->beginLoad();
    scene->clear();
    const bool entered = enterScene(std::move(figure), timing);
    scene->endLoad();
    return entered;
}

bool VxBvhImport::Private::enterScene(std::unique_ptr<VxSkeleton> figure, const VxBvhTiming &timing)
{
    VxUndoStackHold hold;
    const VxChangeBlock block;
    const bool isFirst = scene->getNumNodes() == 0;
    if (!scene->addNode(figure.get()))
        return false;
    skeleton = figure.release();
    if (timing.frameCount() > 1) {
        if (isFirst)
            takeTime(timing);
        else
            makeRoom(timing);
    }
    hold.accept(tr("Import %1").arg(skeleton->getLabel()));
    return true;
}

void VxBvhImport::Private::takeTime(const VxBvhTiming &timing)
{
    const VxTimeRange range(0, timing.lastKeyTime());
    scene->setTimeStep(timing.step());
    scene->setAnimRange(range);
    scene->setPlayRange(range);
}

/** What is there keeps its rate. A play range that somebody has narrowed is left alone. */
void VxBvhImport::Private::makeRoom(const VxBvhTiming &timing)
{
    const VxTimeRange former = scene->getAnimRange();
    const VxTimeRange range = former.united({0, timing.lastKeyTime()});
    const bool playsAll = scene->getPlayRange() == former;
    scene->setAnimRange(range);
    if (playsAll)
        scene->setPlayRange(range);
}

VxBvhImport::VxBvhImport(VxScene *scene)
    : d(std::make_unique<Private>(scene))
{
}

VxBvhImport::~VxBvhImport() = default;

void VxBvhImport::setProgress(const VxFileProgress &progress)
{
    d->progress = progress;
}

void VxBvhImport::setReplacesScene(bool replaces)
{
    d->replaces = replaces;
}

bool VxBvhImport::importFile(const QString &fileName, VxFileError *error)
{
    VxBvhReader reader(fileName);
    reader.setProgress(partOfProgress(d->progress, 0, ReadPercent));
    VxBvhDocument document;
    if (!reader.readFile(&document, error) ||
        !d->build(document, fileName, partOfProgress(d->progress, ReadPercent, 100), error))
        return false;
    if (!reader.getNote().isEmpty())
        d->summary += QLatin1Char(' ') + reader.getNote();
    return true;
}

bool VxBvhImport::importDocument(const VxBvhDocument &document, const QString &fileName,
                                 VxFileError *error)
{
    return d->build(document, fileName, d->progress, error);
}

VxSkeleton *VxBvhImport::getSkeleton() const
{
    return d->skeleton;
}

QString VxBvhImport::getSummary() const
{
    return d->summary;
}
