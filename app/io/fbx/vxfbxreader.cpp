#include "io/fbx/vxfbxreader.h"

#include "io/fbx/vxfbxaxes.h"
#include "io/fbx/vxfbxbinaryparser.h"
#include "io/fbx/vxfbxscene.h"
#include "io/fbx/vxfbxtextparser.h"
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
    VxFbxBinaryParser parser(bytes, progress);
    const bool isParsed = parser.parse();
    *version = parser.version();
    if (*version != 0 && !checkVersion(parser.records(), *version, versionOffset, error))
        return false;
    *error = parser.error();
    *records = parser.records();
    return isParsed;
}

bool parseText(const QByteArray &bytes, const VxFileProgress &progress, VxFbxRecords *records,
               qint64 *version, VxFileError *error)
{
    VxFbxTextParser parser(bytes, progress);
    const bool isParsed = parser.parse();
    const VxFbxRecords &parsed = parser.records();
    const auto record = parsed.find({"FBXHeaderExtension", "FBXVersion"});
    // The version is in the first record; a missing one may be in a damaged part.
    if (parsed.integer(parsed.value(record, 0), version)) {
        if (!checkVersion(parsed, *version, parsed.offset(record), error))
            return false;
    } else if (isParsed) {
        return parsed.fail(error, 0, VxFileText::tr("Not an FBX file: the version is missing."));
    }
    *error = parser.error();
    *records = parsed;
    return isParsed;
}

} // namespace

bool vxReadFbx(const QByteArray &bytes, const VxFileProgress &progress, VxImportedMotion *motion,
               VxFileError *error)
{
    const bool isBinary = VxFbxBinaryParser::accepts(bytes);
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
