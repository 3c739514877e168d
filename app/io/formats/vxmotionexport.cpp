#include "io/formats/vxmotionexport.h"

#include "io/bvh/vxbvhexport.h"
#include "io/csv/vxcsvexport.h"
#include "io/gltf/vxgltfexport.h"
#include "io/motion/vxkeptrate.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <QFileInfo>
#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

struct Format
{
    const char *suffix;
    bool (*write)(const VxMotionSource &source, const QString &fileName, QString *summary,
                  VxFileError *error);
};
constexpr Format formats[] = {
    {"bvh", vxWriteBvh}, {"glb", vxWriteGltf}, {"gltf", vxWriteGltf}, {"csv", vxWriteCsv}};

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

/** Other properties than those of the transform: CSV files have those that are plain numbers. */
int numFurther(const VxNode *node, bool isCsv)
{
    int count = 0;
    const QVector<VxProperty *> properties = node->getMadeProperties();
    for (const VxProperty *property : properties) {
        const auto *number = qobject_cast<const VxFloatProperty *>(property);
        const bool isControl = number && number->getAxis() != VxFloatProperty::NoAxis;
        if (!isControl && !(isCsv && number) && property->getName() != vxKeptRateName())
            ++count;
    }
    return count;
}

/** A sentence, after a blank, about what the format lacks; empty if nothing was left out. */
QString leftOut(const VxScene *scene, const VxNode *root, const QString &suffix)
{
    const bool isBvh = suffix == QLatin1String("bvh");
    int properties = 0;
    int morphs = 0;
    for (const VxNode *node : vxNodesToExport(scene, root)) {
        properties += numFurther(node, suffix == QLatin1String("csv"));
        morphs += isBvh ? vxMorphsOf(node).size() : 0;
    }
    QStringList parts;
    if (properties > 0)
        parts.append(VxFileText::tr("%n other properties", nullptr, properties));
    if (morphs > 0)
        parts.append(VxFileText::tr("%n morphs", nullptr, morphs));
    if (parts.isEmpty())
        return {};
    return QLatin1Char(' ') +
           VxFileText::tr("Left out, because the format does not support them: %1.")
               .arg(parts.join(", "));
}

bool exportMotion(const QString &fileName, VxMotionSource source, QString *summary,
                  VxFileError *error)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    const auto format = std::find_if(std::begin(formats), std::end(formats), [&](const Format &f) {
        return suffix == QLatin1String(f.suffix);
    });
    if (format == std::end(formats))
        return vxFail(error, VxFileText::tr("Cannot export this file type. Supported: *.%1")
                                 .arg(vxExportSuffixes().join(QStringLiteral(", *."))));
    if (format->write == vxWriteBvh) {
        source.root = figureOf(source.scene, source.root);
        if (!source.root)
            return vxFail(
                error,
                VxFileText::tr(
                    "A BVH file holds the motion of one figure with a skeleton. Choose a figure, "
                    "or another file type."));
    }
    if (!format->write(source, fileName, summary, error))
        return false;
    *summary += leftOut(source.scene, source.root, suffix);
    return true;
}

} // namespace

bool vxExportMotion(const VxScene *scene, const VxMotionExportOptions &options,
                    const QString &fileName, const VxFileProgress &progress, QString *summary,
                    VxFileError *error)
{
    const VxTimeRange range = options.playRangeOnly ? scene->getPlayRange() : scene->getAnimRange();
    const bool done = exportMotion(
        fileName, {scene, range, options.root, options.hasRowPerFrame, progress}, summary, error);
    if (!done)
        error->file = fileName;
    qCInfo(vxFilesLog).noquote() << "wrote" << fileName << (done ? *summary : error->text());
    return done;
}

QStringList vxExportSuffixes()
{
    QStringList suffixes;
    for (const Format &format : formats)
        suffixes.append(QLatin1String(format.suffix));
    return suffixes;
}
