#include "io/formats/vxfileformats.h"

#include "io/formats/vxmotionformats.h"
#include "io/formats/vxsceneformat.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <QFileInfo>
#include <algorithm>

Q_LOGGING_CATEGORY(vxFilesLog, "vx.files", QtWarningMsg)

namespace {

template <class Predicate>
QVector<VxFileFormat> those(QVector<VxFileFormat> formats, const Predicate &match)
{
    const auto others = std::stable_partition(formats.begin(), formats.end(), match);
    formats.erase(others, formats.end());
    return formats;
}

QVector<VxFileFormat> writable(const QVector<VxFileFormat> &formats)
{
    return those(formats, [](const VxFileFormat &format) { return bool(format.write); });
}

QStringList patternsOf(const QVector<VxFileFormat> &formats)
{
    QStringList list;
    for (const VxFileFormat &format : formats) {
        for (const QString &suffix : format.suffixes)
            list.append(QStringLiteral("*.") + suffix);
    }
    return list;
}

QString filter(const QString &name, const QVector<VxFileFormat> &formats)
{
    return QStringLiteral("%1 (%2)").arg(name, patternsOf(formats).join(QLatin1Char(' ')));
}

/// Each format alone.
QStringList filtersOf(const QVector<VxFileFormat> &formats)
{
    QStringList filters;
    for (const VxFileFormat &format : formats)
        filters.append(filter(format.name, {format}));
    return filters;
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
                      .arg(typeOf(file), patternsOf(m_formats).join(QStringLiteral(", "))),
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
                      .arg(typeOf(QFileInfo(fileName)),
                           patternsOf(writable(m_formats)).join(QStringLiteral(", "))),
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
    const QVector<VxFileFormat> formats =
        those(m_formats, [](const VxFileFormat &format) { return format.isMotion; });
    return QStringList(filter(VxFileText::tr("All motion files"), formats)) + filtersOf(formats);
}

QStringList VxFileFormats::readFilters() const
{
    return QStringList(filter(VxFileText::tr("All scene files"), m_formats)) + filtersOf(m_formats);
}

QStringList VxFileFormats::writeFilters() const
{
    return filtersOf(writable(m_formats));
}
