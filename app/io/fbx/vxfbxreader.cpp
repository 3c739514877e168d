#include "io/fbx/vxfbxreader.h"

#include "io/fbx/vxfbxaxes.h"
#include "io/fbx/vxfbxparsers.h"
#include "io/fbx/vxfbxscene.h"
#include "io/vxfiletext.h"

#include <algorithm>

namespace {

constexpr qint64 firstVersion = 7000;
constexpr qint64 lastVersion = 7999;

QString versionText(qint64 version)
{
    return QStringLiteral("%1.%2").arg(version / 1000).arg(version % 1000 / 100);
}

bool checkVersion(const VxFbxRecords &records, qint64 version, qint32 offset, VxFileError *error)
{
    if (version >= firstVersion && version <= lastVersion)
        return true;
    return records.fail(error, offset,
                        VxFileText::tr("FBX version %1 is not supported. Supported: 7.0 to 7.9.")
                            .arg(versionText(version)));
}

bool parseBinary(const QByteArray &bytes, const VxFileProgress &progress, VxFbxRecords *records,
                 qint64 *version, VxFileError *error)
{
    constexpr qint32 versionOffset = 23;
    const bool isParsed = vxParseFbxBinary(bytes, progress, records, version, error);
    return (*version == 0 || checkVersion(*records, *version, versionOffset, error)) && isParsed;
}

bool parseText(const QByteArray &bytes, const VxFileProgress &progress, VxFbxRecords *records,
               qint64 *version, VxFileError *error)
{
    const bool isParsed = vxParseFbxText(bytes, progress, records, error);
    const auto record = records->find({"FBXHeaderExtension", "FBXVersion"});
    // The version is in the first record; a missing one may be in a damaged part.
    if (records->integer(records->value(record, 0), version))
        return checkVersion(*records, *version, records->offset(record), error) && isParsed;
    return isParsed &&
           records->fail(error, 0, VxFileText::tr("Not an FBX file: the version is missing."));
}

} // namespace

bool vxReadFbx(const QByteArray &bytes, const VxFileProgress &progress, VxImportedMotion *motion,
               VxFileError *error)
{
    const bool isBinary = vxIsFbxBinary(bytes);
    const auto parse = isBinary ? parseBinary : parseText;
    VxFbxRecords records;
    qint64 version = 0;
    if (!parse(bytes, partOfProgress(progress, 0, 50), &records, &version, error))
        return false;
    VxImportedMotion result;
    result.facts.format = isBinary ? VxFileText::tr("FBX %1 (binary)").arg(versionText(version))
                                   : VxFileText::tr("FBX %1 (text)").arg(versionText(version));
    VxFbxScene scene(records, version);
    if (!scene.read(partOfProgress(progress, 50, 95), &result, error))
        return false;
    if (vxFbxConvertAxes(scene.settings().axes, &result))
        result.facts.notes.append(VxFileText::tr("The file's axes were converted to Y up."));
    QString message;
    if (!result.isValid(&message))
        return records.fail(error, 0, message);
    *motion = std::move(result);
    return !progress || progress(100) || (error->cancelled = true, false);
}
