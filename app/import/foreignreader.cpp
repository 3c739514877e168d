#include "import/foreignreader.h"

#include "import/colladareader.h"
#include "io/csv/vxcsvreader.h"
#include "io/fbx/vxfbxreader.h"
#include "io/gltf/vxgltfreader.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"
#include "io/vxreadfile.h"

#include <QFileInfo>

bool readForeignMotion(const QString &fileName, const VxFileProgress &progress,
                       VxImportedMotion *motion, VxFileError *error)
{
    const QFileInfo info(fileName);
    const QString suffix = info.suffix().toLower();
    QByteArray bytes;
    constexpr qint64 MaxBytes = 1024 * 1024 * 1024; // larger ones exceed one array of bytes
    bool done = info.size() > MaxBytes
                    ? vxFail(error, VxFileText::tr("The file is larger than 1 GB."))
                    : vxReadFile(fileName, &bytes, error);
    if (done) {
        if (suffix == QLatin1String("glb") || suffix == QLatin1String("gltf"))
            done = vxReadGltf(bytes, info.absolutePath(), progress, motion, error);
        else if (suffix == QLatin1String("fbx"))
            done = vxReadFbx(bytes, progress, motion, error);
        else if (suffix == QLatin1String("csv"))
            done = vxReadCsv(bytes, progress, motion, error);
        else if (suffix == QLatin1String("dae"))
            done = readCollada(bytes, motion, error);
        else
            done = vxFail(error, VxFileText::tr("Unsupported file type."));
    }
    error->file = fileName;
    return done;
}
