#include "io/vxbvhformat.h"

#include "io/vxbvhimport.h"
#include "io/vxbvhreader.h"
#include "io/vxbvhtiming.h"

#include <QCoreApplication>
#include <vxcore/vxscene.h>

namespace {

/// Whatever could still refuse the document, so that the scene is not emptied for nothing.
bool check(const VxBvhDocument &document, const QString &fileName, VxFileError *error)
{
    QString message;
    VxBvhTiming timing;
    if (document.isValid(&message) && timing.set(document.frameTime, document.frameCount, &message))
        return true;
    *error = VxFileError();
    error->file = fileName;
    error->message = message;
    return false;
}

bool open(const QString &fileName, VxScene *scene, const VxFileProgress &progress, QString *summary,
          VxFileError *error)
{
    VxBvhReader reader(fileName);
    reader.setProgress(progress);
    VxBvhDocument document;
    if (!reader.readFile(&document, error) || !check(document, fileName, error))
        return false;

    scene->beginLoad();
    scene->clear();
    VxBvhImport import(scene);
    const bool ok = import.importDocument(document, fileName, error);
    scene->endLoad();
    *summary = import.getSummary();
    if (!reader.getNote().isEmpty())
        *summary += QLatin1Char(' ') + reader.getNote();
    return ok;
}

} // namespace

VxFileFormat vxBvhFormat()
{
    return {QCoreApplication::translate("VxFileFormats", "BVH motion"),
            {QStringLiteral("bvh")},
            open,
            {}};
}
