#include "io/motion/vxmotionexport.h"

#include "io/csv/vxcsvexport.h"
#include "io/gltf/vxgltfexport.h"
#include "io/motion/vxkeptrate.h"
#include "io/vxbvhexport.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("VxMotionExport", text);
}

bool fail(VxFileError *error, const QString &fileName, const QString &message)
{
    *error = VxFileError();
    error->file = fileName;
    error->message = message;
    return false;
}

/** The root if it is a figure, or the only figure of the scene; null without one. */
const VxSkeleton *figureOf(const VxScene *scene, const VxNode *root)
{
    if (root)
        return qobject_cast<const VxSkeleton *>(root);
    const VxSkeleton *figure = nullptr;
    const QVector<VxNode *> nodes = scene->getNodes();
    for (const VxNode *node : nodes) {
        const auto *found = qobject_cast<const VxSkeleton *>(node);
        if (found && figure)
            return nullptr;
        if (found)
            figure = found;
    }
    return figure;
}

/// Runs any of the writers, which have the same functions.
template <class Export>
bool run(Export &out, const QString &fileName, const VxFileProgress &progress, QString *summary,
         VxFileError *error)
{
    out.setProgress(progress);
    const bool done = out.exportFile(fileName, error);
    *summary = out.getSummary();
    return done;
}

} // namespace

bool vxExportMotion(const VxScene *scene, const VxMotionExportOptions &options,
                    const QString &fileName, const VxFileProgress &progress, QString *summary,
                    VxFileError *error)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    const VxTimeRange range = options.playRangeOnly ? scene->getPlayRange() : scene->getAnimRange();
    if (suffix == QLatin1String("glb") || suffix == QLatin1String("gltf")) {
        VxGltfExport out(scene, range);
        out.setRoot(options.root);
        return run(out, fileName, progress, summary, error);
    }
    if (suffix == QLatin1String("csv")) {
        VxCsvExport out(scene, range);
        out.setRoot(options.root);
        out.setHasRowPerFrame(options.hasRowPerFrame);
        return run(out, fileName, progress, summary, error);
    }
    if (suffix != QLatin1String("bvh"))
        return fail(error, fileName,
                    tr("Cannot export this file type. Supported: *.%1")
                        .arg(vxExportSuffixes().join(QStringLiteral(", *."))));
    const VxSkeleton *figure = figureOf(scene, options.root);
    if (!figure)
        return fail(
            error, fileName,
            tr("A BVH file holds the motion of one figure with a skeleton. Choose a figure, "
               "or another file type."));
    VxBvhExport out(figure, range, scene->getTimeStep());
    out.setRate(vxKeptRate(figure, scene->getTimeStep()));
    return run(out, fileName, progress, summary, error);
}

QStringList vxExportSuffixes()
{
    return {QStringLiteral("bvh"), QStringLiteral("glb"), QStringLiteral("gltf"),
            QStringLiteral("csv")};
}
