#include "io/vxbvhformat.h"

#include "io/vxbvhimport.h"

#include <QCoreApplication>

namespace {

bool open(const QString &fileName, VxScene *scene, const VxFileProgress &progress, QString *summary,
          VxFileError *error)
{
    VxBvhImport import(scene);
    import.setProgress(progress);
    import.setReplacesScene(true);
    if (!import.importFile(fileName, error))
        return false;
    *summary = import.getSummary();
    return true;
}

} // namespace

VxFileFormat vxBvhFormat()
{
    return {QCoreApplication::translate("VxFileFormats", "BVH motion"),
            {QStringLiteral("bvh")},
            open,
            {},
            true};
}
