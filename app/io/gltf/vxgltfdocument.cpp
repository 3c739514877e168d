#include "io/gltf/vxgltfdocument.h"

#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <QJsonDocument>
#include <QtEndian>
#include <cmath>
#include <cstring>

namespace {

constexpr quint32 GlbMagic = 0x46546c67; // "glTF"
constexpr quint32 JsonChunk = 0x4e4f534a;
constexpr quint32 BinaryChunk = 0x004e4942;
constexpr int GlbHeader = 12;
constexpr int ChunkHeader = 8;

quint32 word(const QByteArray &bytes, qint64 offset)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

/// Bytes of a component; 0 for an unknown type.
int componentSize(qint64 type)
{
    switch (type) {
    case 5120: // signed and unsigned byte
    case 5121:
        return 1;
    case 5122: // signed and unsigned short
    case 5123:
        return 2;
    case 5125: // unsigned int, float
    case 5126:
        return 4;
    default:
        return 0;
    }
}

int componentsOf(const QString &type)
{
    static const struct
    {
        const char *name;
        int components;
    } types[] = {{"SCALAR", 1}, {"VEC2", 2}, {"VEC3", 3}, {"VEC4", 4},
                 {"MAT2", 4},   {"MAT3", 9}, {"MAT4", 16}};
    for (const auto &known : types) {
        if (type == QLatin1String(known.name))
            return known.components;
    }
    return 0;
}

/// One component; integers as their normalised value if requested.
double decode(const char *bytes, qint64 type, bool normalized)
{
    switch (type) {
    case 5120: {
        const double value = qint8(*bytes);
        return normalized ? std::fmax(value / 127.0, -1.0) : value;
    }
    case 5121:
        return normalized ? quint8(*bytes) / 255.0 : quint8(*bytes);
    case 5122: {
        const double value = qFromLittleEndian<qint16>(bytes);
        return normalized ? std::fmax(value / 32767.0, -1.0) : value;
    }
    case 5123: {
        const double value = qFromLittleEndian<quint16>(bytes);
        return normalized ? value / 65535.0 : value;
    }
    case 5125:
        return qFromLittleEndian<quint32>(bytes);
    default: {
        const quint32 bits = qFromLittleEndian<quint32>(bytes);
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return double(value);
    }
    }
}

} // namespace

/// Elements in a buffer view.
struct VxGltfDocument::Block
{
    qint64 view = 0;
    qint64 offset = 0; ///< in the view
    qint64 count = 0;
    qint64 type = 0;
    int components = 1;
    bool normalized = false;
};

/** A header, then chunks: text first, binary data second; further ones are skipped. */
bool VxGltfDocument::parseBinary(const QByteArray &bytes, QString *message, qint64 *offset)
{
    *offset = 4;
    if (bytes.size() < GlbHeader + ChunkHeader)
        return vxFail(message, VxFileText::tr("The file ends within its header."));
    if (word(bytes, 4) != 2)
        return vxFail(message, VxFileText::tr("glTF version %1 is not supported. Supported: 2.0.")
                                   .arg(word(bytes, 4)));
    const qint64 announced = word(bytes, 8);
    *offset = 8;
    if (announced > bytes.size())
        return vxFail(message, VxFileText::tr("The header declares %1 bytes, but the file has %2.")
                                   .arg(announced)
                                   .arg(bytes.size()));
    qint64 at = GlbHeader;
    for (int chunk = 0; at + ChunkHeader <= announced; ++chunk) {
        const qint64 length = word(bytes, at);
        const quint32 type = word(bytes, at + 4);
        *offset = at;
        at += ChunkHeader;
        if (length > announced - at)
            return vxFail(message,
                          VxFileText::tr("A chunk of %n bytes extends beyond the end of the file.",
                                         nullptr, int(length)));
        if (chunk == 0 && type != JsonChunk)
            return vxFail(message, VxFileText::tr("The first chunk is not JSON."));
        if (chunk == 0 && !parseJson(bytes.mid(int(at), int(length)), at, message, offset))
            return false;
        if (chunk == 1 && type == BinaryChunk)
            m_buffers.setBinaryChunk(bytes.mid(int(at), int(length)));
        at += (length + 3) / 4 * 4;
    }
    return true;
}

bool VxGltfDocument::parseJson(const QByteArray &text, qint64 at, QString *message, qint64 *offset)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        *offset = at + error.offset;
        return vxFail(message, VxFileText::tr("Invalid JSON: %1.").arg(error.errorString()));
    }
    *offset = -1;
    if (!document.isObject())
        return vxFail(message, VxFileText::tr("Not a glTF file."));
    m_root = document.object();
    return checkVersion(message);
}

bool VxGltfDocument::checkVersion(QString *message) const
{
    const QJsonObject asset = m_root.value(QLatin1String("asset")).toObject();
    const QString version = asset.value(QLatin1String("version")).toString();
    const QString needed = asset.value(QLatin1String("minVersion")).toString();
    if (version.isEmpty())
        return vxFail(message, VxFileText::tr("Not a glTF file: the version is missing."));
    if (!version.startsWith(QLatin1String("2.")) ||
        (!needed.isEmpty() && needed != QLatin1String("2.0")))
        return vxFail(message, VxFileText::tr("glTF version %1 is not supported. Supported: 2.0.")
                                   .arg(needed.isEmpty() ? version : needed));
    return true;
}

bool VxGltfDocument::readBlock(const Block &block, std::vector<double> *numbers, QString *message)
{
    const qint64 size = componentSize(block.type);
    const qint64 element = size * block.components;
    VxGltfView view;
    if (!m_buffers.view(block.view, &view, message))
        return false;
    const qint64 stride = view.stride > 0 ? view.stride : element;
    if (stride < element)
        return vxFail(message,
                      VxFileText::tr("Buffer view %1 has a stride of %2 bytes for elements of %3.")
                          .arg(block.view)
                          .arg(stride)
                          .arg(element));
    // Count and stride are below 2^31 here, so that the product fits.
    if (block.offset > view.size || block.count > view.size ||
        (block.count > 0 && (block.count - 1) * stride + element > view.size - block.offset))
        return vxFail(message,
                      VxFileText::tr("Buffer view %1 has %2 bytes, too few for %3 elements.")
                          .arg(block.view)
                          .arg(view.size)
                          .arg(block.count));
    numbers->resize(std::size_t(block.count * block.components));
    double *out = numbers->data();
    for (qint64 i = 0; i < block.count; ++i) {
        const char *in = view.bytes + block.offset + i * stride;
        for (int c = 0; c < block.components; ++c, in += size)
            *out++ = decode(in, block.type, block.normalized);
    }
    return true;
}

bool VxGltfDocument::putSparse(const QJsonObject &sparse, const Block &block,
                               std::vector<double> *numbers, QString *message)
{
    const QJsonObject indices = sparse.value(QLatin1String("indices")).toObject();
    const QJsonObject values = sparse.value(QLatin1String("values")).toObject();
    Block at;
    at.count = vxGltfIndex(sparse, "count");
    at.view = vxGltfIndex(indices, "bufferView");
    at.offset = vxGltfIndex(indices, "byteOffset", 0);
    at.type = vxGltfIndex(indices, "componentType");
    Block by = block;
    by.count = at.count;
    by.view = vxGltfIndex(values, "bufferView");
    by.offset = vxGltfIndex(values, "byteOffset", 0);
    if (at.count < 0 || at.count > block.count || at.offset < 0 || by.offset < 0 ||
        (at.type != 5121 && at.type != 5123 && at.type != 5125))
        return vxFail(message, VxFileText::tr("Invalid description of sparse values."));
    std::vector<double> places;
    std::vector<double> replaced;
    if (!readBlock(at, &places, message) || !readBlock(by, &replaced, message))
        return false;
    const auto components = std::size_t(block.components);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] >= double(block.count))
            return vxFail(message, VxFileText::tr("The index of a sparse value is out of range."));
        std::copy_n(replaced.begin() + std::ptrdiff_t(i * components), components,
                    numbers->begin() + std::ptrdiff_t(std::size_t(places[i]) * components));
    }
    return true;
}

VxGltfDocument::VxGltfDocument(const QString &folder)
    : m_buffers(folder)
{
}

bool VxGltfDocument::parse(const QByteArray &bytes, QString *message, qint64 *offset)
{
    *offset = -1;
    m_isBinary = bytes.size() >= 4 && word(bytes, 0) == GlbMagic;
    const bool parsed =
        m_isBinary ? parseBinary(bytes, message, offset) : parseJson(bytes, 0, message, offset);
    if (!parsed)
        return false;
    m_accessors = array("accessors");
    m_buffers.setDescriptions(array("buffers"), array("bufferViews"));
    *offset = -1;
    return true;
}

bool VxGltfDocument::describe(int accessor, Block *block, QString *message) const
{
    if (accessor < 0 || accessor >= m_accessors.size())
        return vxFail(message, VxFileText::tr("Accessor %1 does not exist.").arg(accessor));
    const QJsonObject object = m_accessors.at(accessor).toObject();
    block->view = vxGltfIndex(object, "bufferView");
    block->offset = vxGltfIndex(object, "byteOffset", 0);
    block->count = vxGltfIndex(object, "count");
    block->type = vxGltfIndex(object, "componentType");
    block->components = componentsOf(object.value(QLatin1String("type")).toString());
    block->normalized = object.value(QLatin1String("normalized")).toBool();
    if (componentSize(block->type) == 0 || block->components == 0 || block->count < 0 ||
        block->offset < 0)
        return vxFail(message, VxFileText::tr("Invalid description of accessor %1.").arg(accessor));
    if (block->count > m_numbersLeft / block->components)
        return vxFail(
            message, VxFileText::tr("Accessor %1 declares %2 values; the file has more than can be "
                                    "read.")
                         .arg(accessor)
                         .arg(block->count));
    return true;
}

bool VxGltfDocument::read(int accessor, std::vector<double> *numbers, int *components,
                          QString *message)
{
    Block block;
    if (!describe(accessor, &block, message))
        return false;
    *components = block.components;
    m_numbersLeft -= block.count * block.components;
    const QJsonObject object = m_accessors.at(accessor).toObject();
    const bool hasView = object.contains(QLatin1String("bufferView"));
    const bool isSparse = object.contains(QLatin1String("sparse"));
    bool done = true;
    if (hasView)
        done = readBlock(block, numbers, message);
    else
        numbers->assign(std::size_t(block.count * block.components), 0.0);
    if (done && isSparse)
        done = putSparse(object.value(QLatin1String("sparse")).toObject(), block, numbers, message);
    if (!done)
        *message = VxFileText::tr("Accessor %1: %2").arg(QString::number(accessor), *message);
    return done;
}

qint64 vxGltfIndex(const QJsonObject &object, const char *name, qint64 missing)
{
    const QJsonValue value = object.value(QLatin1String(name));
    if (value.isUndefined())
        return missing;
    const double number = value.toDouble(-1.0);
    return number >= 0.0 && number < 9007199254740992.0 && number == std::floor(number)
               ? qint64(number)
               : -1;
}
