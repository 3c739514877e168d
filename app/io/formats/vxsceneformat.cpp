#include "io/formats/vxsceneformat.h"

#include "io/vxfiletext.h"
#include "io/vxscenereader.h"
#include "io/vxscenewriter.h"

#include <vxcore/vxnode.h>

namespace {

QString shownNames(const QStringList &names)
{
    constexpr int MaxShown = 10;
    QStringList shown;
    for (const QString &name : names.mid(0, MaxShown))
        shown.append(name.left(60));
    if (names.size() > MaxShown)
        shown.append(VxFileText::tr("%n more", nullptr, names.size() - MaxShown));
    return shown.join(QStringLiteral(", "));
}

/// What the file has from a later version of the program, and whether saving keeps it.
QString unknownText(const VxSceneContents &contents)
{
    if (contents.unknownMembers.isEmpty())
        return {};
    const QString names = shownNames(contents.unknownMembers);
    if (contents.droppedMembers.isEmpty())
        return VxFileText::tr("The file contains data that this version does not support: %1. "
                              "Saving keeps it.")
            .arg(names);
    return VxFileText::tr("The file contains data that this version does not support: %1. "
                          "Saving loses: %2.")
        .arg(names, shownNames(contents.droppedMembers));
}

bool readScene(const QString &fileName, VxScene *scene, const VxFileProgress &progress,
               QString *summary, VxFileError *error)
{
    VxSceneReader reader;
    reader.setProgress(progress);
    VxSceneContents contents;
    if (!reader.readFile(fileName, &contents, error))
        return false;
    const QString unknown = unknownText(contents);
    VxSceneReader::install(std::move(contents), scene);
    if (!unknown.isEmpty())
        *summary = unknown;
    return true;
}

bool writeScene(const QString &fileName, const VxScene *scene, const VxFileProgress &progress,
                VxFileError *error)
{
    VxSceneWriter writer(scene);
    writer.setProgress(progress);
    return writer.writeFile(fileName, error);
}

} // namespace

VxFileFormat vxSceneFormat()
{
    return {VxFileText::tr("Scene"), {QStringLiteral("vxscene")}, readScene, writeScene};
}
