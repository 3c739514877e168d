#include "io/gltf/vxgltfreader.h"

#include "io/gltf/vxgltfanimations.h"
#include "io/gltf/vxgltfdocument.h"
#include "io/gltf/vxgltfnodes.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

namespace {

void omitAll(const VxGltfDocument &document, const char *array, const QString &what,
             VxMotionFacts *facts)
{
    const QJsonArray objects = document.array(array);
    for (const QJsonValue &object : objects)
        facts->addOmission(what, VxFileText::tr("Only nodes and their motion are imported."),
                           object.toObject().value(QLatin1String("name")).toString());
}

VxMotionFacts factsOf(const VxGltfDocument &document)
{
    VxMotionFacts facts;
    const QJsonObject asset = document.root().value(QLatin1String("asset")).toObject();
    facts.format = document.isBinary() ? VxFileText::tr("glTF 2.0 (binary)")
                                       : VxFileText::tr("glTF 2.0 (text)");
    facts.writer = asset.value(QLatin1String("generator")).toString();
    // As this program writes it.
    const double rate = asset.value(QLatin1String("extras"))
                            .toObject()
                            .value(QLatin1String("frameRate"))
                            .toDouble();
    facts.rate = rate >= 1.0 && rate <= VxTicksPerSecond ? rate : 0.0;
    facts.metresPerUnit = 1.0;
    omitAll(document, "meshes", VxFileText::tr("mesh"), &facts);
    omitAll(document, "materials", VxFileText::tr("material"), &facts);
    omitAll(document, "cameras", VxFileText::tr("camera"), &facts);
    const QJsonArray required = document.array("extensionsRequired");
    for (const QJsonValue &extension : required)
        facts.addOmission(VxFileText::tr("extension"),
                          VxFileText::tr("Required by the file, but not supported."),
                          extension.toString());
    return facts;
}

} // namespace

bool vxReadGltf(const QByteArray &bytes, const QString &folder, const VxFileProgress &progress,
                VxImportedMotion *motion, VxFileError *error)
{
    VxGltfDocument document(folder);
    VxImportedMotion read;
    QString message;
    qint64 offset = -1;
    if (!document.parse(bytes, &message, &offset)) {
        vxFail(error, message);
        error->offset = offset;
        return false;
    }
    read.facts = factsOf(document);
    std::vector<int> places;
    if (!vxReadGltfNodes(&document, &read, &places, &message) ||
        !vxReadGltfAnimations(&document, places, progress, &read, &message))
        return vxFail(error, message);
    *motion = std::move(read);
    return true;
}
