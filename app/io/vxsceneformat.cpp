#include "io/vxsceneformat.h"

#include "io/vxscenereader.h"
#include "io/vxscenewriter.h"

#include <QCoreApplication>
#include <vxcore/vxnode.h>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("VxFileFormats", text);
}

bool read(const QString &fileName, VxScene *scene, const VxFileProgress &progress, QString *summary,
          VxFileError *error)
{
    VxSceneReader reader;
    reader.setProgress(progress);
    VxSceneContents contents;
    if (!reader.readFile(fileName, &contents, error))
        return false;
    const QStringList unknown = contents.unknownMembers;
    VxSceneReader::install(std::move(contents), scene);
    if (!unknown.isEmpty())
        *summary =
            tr("The file contains data that this version does not support; it was ignored: %1.")
                .arg(unknown.join(QStringLiteral(", ")));
    return true;
}

bool write(const QString &fileName, const VxScene *scene, const VxFileProgress &progress,
           VxFileError *error)
{
    VxSceneWriter writer(scene);
    writer.setProgress(progress);
    return writer.writeFile(fileName, error);
}

} // namespace

VxFileFormat vxSceneFormat()
{
    return {tr("Scene"), {QStringLiteral("vxscene")}, read, write};
}
