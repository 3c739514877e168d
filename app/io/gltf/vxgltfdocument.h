#ifndef VXGLTFDOCUMENT_H
#define VXGLTFDOCUMENT_H

#include "io/gltf/vxgltfbuffers.h"
#include "io/motion/vximportedmotion.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <vector>

/// The JSON and the binary data of a glTF 2.0 file, as .gltf text or .glb.
///
/// Input is untrusted: indexes, counts, offsets and strides are checked against the available data
/// before anything is read or allocated. Buffers are loaded on demand, so that a missing file for a
/// mesh does not matter.
///
/// All functions that can fail return false with one sentence in `message`, which must not be null.
class VxGltfDocument
{
public:
    /// folder: of the files named in the document, which must be in it or below it; empty refuses
    /// them.
    explicit VxGltfDocument(const QString &folder);

    /// Parses the text or binary form. offset: where reading stopped, -1 where no offset applies;
    /// must not be null.
    bool parse(const QByteArray &bytes, QString *message, qint64 *offset);

    bool isBinary() const { return m_isBinary; }
    const QJsonObject &root() const { return m_root; }
    /// A top-level array; empty if missing.
    QJsonArray array(const char *name) const { return m_root.value(QLatin1String(name)).toArray(); }

    /// Decodes the elements of an accessor: integers normalised if marked so, sparse values
    /// inserted. components: of an element, 1 to 16. False for an index that does not exist or
    /// inconsistent members. The total of numbers per document is limited.
    bool read(int accessor, std::vector<double> *numbers, int *components, QString *message);

private:
    struct Block;

    bool parseBinary(const QByteArray &bytes, QString *message, qint64 *offset);
    bool parseJson(const QByteArray &text, qint64 at, QString *message, qint64 *offset);
    bool checkVersion(QString *message) const;
    bool describe(int accessor, Block *block, QString *message) const;
    bool readBlock(const Block &block, std::vector<double> *numbers, QString *message);
    bool putSparse(const QJsonObject &sparse, const Block &block, std::vector<double> *numbers,
                   QString *message);

    VxGltfBuffers m_buffers;
    QJsonObject m_root;
    QJsonArray m_accessors;
    bool m_isBinary = false;
    qint64 m_numbersLeft = VxMotionLimits::MaxKeys * 4; // a key has up to 12 of them
};

/// A member that is an index or a count: the whole number from 0 to 2^53 - 1, `missing` without the
/// member, -1 for anything else.
qint64 vxGltfIndex(const QJsonObject &object, const char *name, qint64 missing = -1);

#endif
