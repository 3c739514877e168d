#include "io/gltf/vxgltfbuffers.h"

#include "io/gltf/vxgltfdocument.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace {

/// Larger files are not motion, and would exhaust the memory.
constexpr qint64 MaxBufferBytes = 512 * 1024 * 1024;

/// The bytes of a "data:...;base64,..." URI; null for one of another form.
QByteArray dataOf(const QString &uri)
{
    const int comma = uri.indexOf(QLatin1Char(','));
    if (comma < 0 || !uri.leftRef(comma).endsWith(QLatin1String(";base64")))
        return {};
    const auto decoded = QByteArray::fromBase64Encoding(
        uri.midRef(comma + 1).toLatin1(),
        QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return {};
    return decoded.decoded.isNull() ? QByteArray("") : decoded.decoded;
}

} // namespace

VxGltfBuffers::VxGltfBuffers(const QString &folder)
    : m_folder(folder)
{
}

void VxGltfBuffers::setBinaryChunk(const QByteArray &bytes)
{
    m_chunk = bytes.isNull() ? QByteArray("") : bytes;
}

void VxGltfBuffers::setDescriptions(const QJsonArray &buffers, const QJsonArray &views)
{
    m_buffers = buffers;
    m_views = views;
    m_loaded.assign(std::size_t(buffers.size()), QByteArray());
}

bool VxGltfBuffers::view(qint64 index, VxGltfView *view, QString *message)
{
    if (index < 0 || index >= m_views.size())
        return vxFail(message, VxFileText::tr("Buffer view %1 does not exist.").arg(index));
    const QJsonObject object = m_views.at(int(index)).toObject();
    if (object.value(QLatin1String("extensions"))
            .toObject()
            .contains(QLatin1String("EXT_meshopt_compression")))
        return vxFail(
            message, VxFileText::tr("Buffer view %1 is compressed (EXT_meshopt_compression), which "
                                    "cannot be read. Export the file without compression.")
                         .arg(index));
    const qint64 buffer = vxGltfIndex(object, "buffer");
    const qint64 offset = vxGltfIndex(object, "byteOffset", 0);
    const qint64 length = vxGltfIndex(object, "byteLength");
    const qint64 stride = vxGltfIndex(object, "byteStride", 0);
    if (buffer < 0 || buffer >= m_buffers.size() || offset < 0 || length < 0 || stride < 0)
        return vxFail(message, VxFileText::tr("Invalid description of buffer view %1.").arg(index));
    if (!load(buffer, message))
        return false;
    const QByteArray &bytes = m_loaded[std::size_t(buffer)];
    if (offset > bytes.size() || length > bytes.size() - offset || stride > MaxBufferBytes)
        return vxFail(
            message,
            VxFileText::tr("Buffer view %1 extends beyond the end of buffer %2, which has %3 "
                           "bytes.")
                .arg(index)
                .arg(buffer)
                .arg(bytes.size()));
    *view = {bytes.constData() + offset, length, stride};
    return true;
}

bool VxGltfBuffers::load(qint64 buffer, QString *message)
{
    QByteArray &bytes = m_loaded[std::size_t(buffer)];
    if (!bytes.isNull())
        return true;
    const QJsonObject object = m_buffers.at(int(buffer)).toObject();
    const qint64 length = vxGltfIndex(object, "byteLength");
    const QJsonValue uri = object.value(QLatin1String("uri"));
    if (length < 0)
        return vxFail(message, VxFileText::tr("Invalid description of buffer %1.").arg(buffer));
    if (uri.isUndefined()) {
        if (buffer != 0 || m_chunk.isNull())
            return vxFail(message, VxFileText::tr("Buffer %1 has no data.").arg(buffer));
        bytes = m_chunk;
    } else if (uri.toString().startsWith(QLatin1String("data:"), Qt::CaseInsensitive)) {
        bytes = dataOf(uri.toString());
        if (bytes.isNull())
            return vxFail(message, VxFileText::tr("The data of buffer %1 is damaged.").arg(buffer));
    } else if (!loadFile(uri.toString(), length, &bytes, message)) {
        return false;
    }
    m_loadedBytes += bytes.size();
    if (m_loadedBytes > MaxBufferBytes)
        return vxFail(message, VxFileText::tr("The file has more data than can be read."));
    return true;
}

bool VxGltfBuffers::loadFile(const QString &uri, qint64 length, QByteArray *bytes,
                             QString *message) const
{
    const QString path = QUrl::fromPercentEncoding(uri.toUtf8());
    const QString clean = QDir::cleanPath(path);
    const bool isBelow = QDir::isRelativePath(clean) && !clean.startsWith(QLatin1String("..")) &&
                         !path.contains(QLatin1String("://"));
    if (m_folder.isEmpty() || path.isEmpty() || !isBelow)
        return vxFail(
            message,
            VxFileText::tr("The data file is outside the folder of the glTF file: %1").arg(uri));
    const QString name = QDir(m_folder).filePath(clean);
    const QFileInfo info(name);
    if (!info.isFile())
        return vxFail(message, VxFileText::tr("The data file \"%1\" does not exist.").arg(path));
    QFile file(name);
    if (info.size() > MaxBufferBytes || !file.open(QIODevice::ReadOnly))
        return vxFail(message, VxFileText::tr("The data file \"%1\" cannot be read.").arg(path));
    *bytes = file.read(qMin(length, info.size()));
    if (bytes->isNull())
        *bytes = QByteArray("");
    return true;
}
