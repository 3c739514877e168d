#include "io/vxfileformats.h"

#include "io/motion/vxmotionformats.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"
#include "io/vxsceneformat.h"

#include <QFileInfo>
#include <algorithm>

Q_LOGGING_CATEGORY(vxFilesLog, "vx.files", QtWarningMsg)

namespace {

QStringList patternsOf(const VxFileFormat &format)
{
    QStringList list;
    for (const QString &suffix : format.suffixes)
        list.append(QStringLiteral("*.") + suffix);
    return list;
}

QString filter(const QString &name, const QStringList &list)
{
    return QStringLiteral("%1 (%2)").arg(name, list.join(QLatin1Char(' ')));
}

/// "*.xyz" for "walk.xyz"; the whole name of a file without a suffix.
QString typeOf(const QFileInfo &file)
{
    return file.suffix().isEmpty() ? file.fileName() : QStringLiteral("*.") + file.suffix();
}

} // namespace

VxFileFormats VxFileFormats::standard()
{
    VxFileFormats formats;
    formats.add(vxSceneFormat());
    for (const VxFileFormat &format : vxMotionFormats())
        formats.add(format);
    return formats;
}

const VxFileFormat *VxFileFormats::find(const QString &fileName) const
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    const auto found =
        std::find_if(m_formats.begin(), m_formats.end(),
                     [&](const VxFileFormat &format) { return format.suffixes.contains(suffix); });
    return found != m_formats.end() ? &*found : nullptr;
}

bool VxFileFormats::read(const QString &fileName, VxScene *scene, const VxFileProgress &progress,
                         QString *summary, VxFileError *error) const
{
    const QFileInfo file(fileName);
    // A pipe would block the program forever.
    if (file.exists() && !file.isFile())
        return vxFail(error, VxFileText::tr("Not a regular file."), fileName);
    if (const VxFileFormat *format = find(fileName)) {
        const bool done = format->read(fileName, scene, progress, summary, error);
        qCInfo(vxFilesLog).noquote() << "read" << fileName << (done ? *summary : error->text());
        return done;
    }
    return vxFail(error,
                  VxFileText::tr("Unsupported file type: %1. Supported: %2")
                      .arg(typeOf(file), patterns(false).join(QStringLiteral(", "))),
                  fileName);
}

bool VxFileFormats::write(const QString &fileName, const VxScene *scene,
                          const VxFileProgress &progress, VxFileError *error) const
{
    if (canWrite(fileName)) {
        const bool done = find(fileName)->write(fileName, scene, progress, error);
        qCInfo(vxFilesLog).noquote() << "wrote" << fileName << (done ? QString() : error->text());
        return done;
    }
    return vxFail(error,
                  VxFileText::tr("Cannot save this file type: %1. Supported: %2")
                      .arg(typeOf(QFileInfo(fileName)), patterns(true).join(QStringLiteral(", "))),
                  fileName);
}

bool VxFileFormats::canWrite(const QString &fileName) const
{
    const VxFileFormat *format = find(fileName);
    return format && format->write;
}

bool VxFileFormats::isMotion(const QString &fileName) const
{
    const VxFileFormat *format = find(fileName);
    return format && format->isMotion;
}

QStringList VxFileFormats::motionFilters() const
{
    QStringList filters;
    QStringList all;
    for (const VxFileFormat &format : m_formats) {
        if (format.isMotion)
            all += patternsOf(format);
    }
    filters.append(filter(VxFileText::tr("All motion files"), all));
    for (const VxFileFormat &format : m_formats) {
        if (format.isMotion)
            filters.append(filter(format.name, patternsOf(format)));
    }
    return filters;
}

QStringList VxFileFormats::readFilters() const
{
    QStringList filters = {filter(VxFileText::tr("All scene files"), patterns(false))};
    for (const VxFileFormat &format : m_formats)
        filters.append(filter(format.name, patternsOf(format)));
    return filters;
}

QStringList VxFileFormats::writeFilters() const
{
    QStringList filters;
    for (const VxFileFormat &format : m_formats) {
        if (format.write)
            filters.append(filter(format.name, patternsOf(format)));
    }
    return filters;
}

QStringList VxFileFormats::patterns(bool writableOnly) const
{
    QStringList all;
    for (const VxFileFormat &format : m_formats) {
        if (format.write || !writableOnly)
            all += patternsOf(format);
    }
    return all;
}
