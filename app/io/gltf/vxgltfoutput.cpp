#include "io/gltf/vxgltfoutput.h"

#include <QJsonDocument>
#include <QtEndian>
#include <algorithm>
#include <cstring>

namespace {

constexpr int Float = 5126;

int writtenComponents(const QString &type)
{
    if (type == QLatin1String("SCALAR"))
        return 1;
    if (type == QLatin1String("VEC3"))
        return 3;
    return type == QLatin1String("VEC4") ? 4 : 16;
}

void appendWord(QByteArray *bytes, quint32 word)
{
    char data[4];
    qToLittleEndian(word, data);
    bytes->append(data, 4);
}

void appendChunk(QByteArray *bytes, quint32 type, QByteArray chunk, char padding)
{
    while (chunk.size() % 4 != 0)
        chunk.append(padding);
    appendWord(bytes, quint32(chunk.size()));
    appendWord(bytes, type);
    bytes->append(chunk);
}

/// The minimum or the maximum of each component.
template <class Choose>
QJsonArray bound(const std::vector<float> &numbers, int components, Choose choose)
{
    QJsonArray bound;
    for (int c = 0; c < components; ++c) {
        float best = numbers[std::size_t(c)];
        for (auto i = std::size_t(c); i < numbers.size(); i += std::size_t(components))
            best = choose(best, numbers[i]);
        bound.append(double(best));
    }
    return bound;
}

} // namespace

int VxGltfOutput::addFloats(const std::vector<float> &numbers, const char *type, bool hasBounds)
{
    const int components = writtenComponents(QLatin1String(type));
    m_views.append(QJsonObject{{QStringLiteral("buffer"), 0},
                               {QStringLiteral("byteOffset"), m_bytes.size()},
                               {QStringLiteral("byteLength"), int(numbers.size()) * 4}});
    QJsonObject accessor{{QStringLiteral("bufferView"), m_views.size() - 1},
                         {QStringLiteral("componentType"), Float},
                         {QStringLiteral("count"), int(numbers.size()) / components},
                         {QStringLiteral("type"), QLatin1String(type)}};
    if (hasBounds && !numbers.empty()) {
        accessor.insert(QStringLiteral("min"), bound(numbers, components, [](float a, float b) {
                            return std::min(a, b);
                        }));
        accessor.insert(QStringLiteral("max"), bound(numbers, components, [](float a, float b) {
                            return std::max(a, b);
                        }));
    }
    m_bytes.reserve(m_bytes.size() + int(numbers.size()) * 4);
    for (const float number : numbers) {
        quint32 bits;
        std::memcpy(&bits, &number, sizeof bits);
        appendWord(&m_bytes, bits);
    }
    m_accessors.append(accessor);
    return m_accessors.size() - 1;
}

int VxGltfOutput::addZeros(int count, const char *type)
{
    QJsonArray zeros;
    for (int i = 0; i < writtenComponents(QLatin1String(type)); ++i)
        zeros.append(0);
    m_accessors.append(QJsonObject{{QStringLiteral("componentType"), Float},
                                   {QStringLiteral("count"), count},
                                   {QStringLiteral("type"), QLatin1String(type)},
                                   {QStringLiteral("min"), zeros},
                                   {QStringLiteral("max"), zeros}});
    return m_accessors.size() - 1;
}

void VxGltfOutput::describe(QJsonObject *root) const
{
    if (!m_views.isEmpty())
        root->insert(QStringLiteral("bufferViews"), m_views);
    if (!m_accessors.isEmpty())
        root->insert(QStringLiteral("accessors"), m_accessors);
}

QByteArray VxGltfOutput::text(QJsonObject root) const
{
    describe(&root);
    if (!m_bytes.isEmpty()) {
        const QString uri = QLatin1String("data:application/octet-stream;base64,") +
                            QLatin1String(m_bytes.toBase64());
        root.insert(QStringLiteral("buffers"),
                    QJsonArray{QJsonObject{{QStringLiteral("byteLength"), m_bytes.size()},
                                           {QStringLiteral("uri"), uri}}});
    }
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

QByteArray VxGltfOutput::binary(QJsonObject root) const
{
    describe(&root);
    if (!m_bytes.isEmpty())
        root.insert(QStringLiteral("buffers"),
                    QJsonArray{QJsonObject{{QStringLiteral("byteLength"), m_bytes.size()}}});
    QByteArray chunks;
    appendChunk(&chunks, 0x4e4f534a, QJsonDocument(root).toJson(QJsonDocument::Compact), ' ');
    if (!m_bytes.isEmpty())
        appendChunk(&chunks, 0x004e4942, m_bytes, '\0');
    QByteArray file("glTF");
    appendWord(&file, 2);
    appendWord(&file, quint32(chunks.size() + 12));
    return file + chunks;
}
