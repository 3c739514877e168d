#ifndef VXGLTFBUFFERS_H
#define VXGLTFBUFFERS_H

#include <QByteArray>
#include <QJsonArray>
#include <QString>
#include <vector>

/// A part of a buffer. The bytes belong to the VxGltfBuffers and live as long as it does.
struct VxGltfView
{
    const char *bytes = nullptr;
    qint64 size = 0;
    qint64 stride = 0; ///< bytes from one element to the next; 0: without gaps
};

/// The binary data of a glTF file: the chunk of a .glb, `data:` URIs and files beside it, each
/// loaded on demand.
class VxGltfBuffers
{
public:
    /// folder: see VxGltfDocument.
    explicit VxGltfBuffers(const QString &folder);

    void setBinaryChunk(const QByteArray &bytes);
    /// The arrays of the file's description.
    void setDescriptions(const QJsonArray &buffers, const QJsonArray &views);

    /// False with one sentence in `message` when the view does not exist, or its data is missing
    /// or compressed.
    bool view(qint64 index, VxGltfView *view, QString *message);

private:
    bool load(qint64 buffer, QString *message);
    bool loadFile(const QString &uri, qint64 length, QByteArray *bytes, QString *message) const;

    QString m_folder;
    QByteArray m_chunk;
    QJsonArray m_buffers;
    QJsonArray m_views;
    std::vector<QByteArray> m_loaded; // null where not loaded yet
    qint64 m_loadedBytes = 0;
};

#endif
