#include "io/formats/vxmotionformats.h"

#include "io/formats/vxmotionimport.h"
#include "io/vxfiletext.h"

namespace {

/** For reading without questions. Documents are opened by DocumentController::enterMotion(). */
bool open(const QString &fileName, VxScene *scene, const VxFileProgress &progress, QString *summary,
          VxFileError *error)
{
    VxMotionImport import(scene);
    import.setProgress(progress);
    import.setReplacesScene(true);
    if (!import.load(fileName, error) || !import.enter({}, error))
        return false;
    *summary = import.getSummary();
    return true;
}

VxFileFormat format(const char *name, const QStringList &suffixes)
{
    return {VxFileText::tr(name), suffixes, open, {}, true};
}

} // namespace

QVector<VxFileFormat> vxMotionFormats()
{
    return {
        format(QT_TRANSLATE_NOOP("VxFileText", "BVH motion"), {QStringLiteral("bvh")}),
        format(QT_TRANSLATE_NOOP("VxFileText", "glTF"),
               {QStringLiteral("glb"), QStringLiteral("gltf")}),
        format(QT_TRANSLATE_NOOP("VxFileText", "FBX"), {QStringLiteral("fbx")}),
        format(QT_TRANSLATE_NOOP("VxFileText", "COLLADA"), {QStringLiteral("dae")}),
        format(QT_TRANSLATE_NOOP("VxFileText", "CSV table of motion"), {QStringLiteral("csv")})};
}
