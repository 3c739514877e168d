#ifndef VXIO_VXGLTFDOCUMENT_H
#define VXIO_VXGLTFDOCUMENT_H

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <memory>
#include <vector>

/// The layout of an accessor's numbers.
struct VxGltfAccessorInfo
{
    int components = 0; ///< numbers an element, 1 to 16; 0: no such accessor
    qint64 count = 0;   ///< elements
    bool isFloat = false;
};

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
    ~VxGltfDocument();
    VxGltfDocument(const VxGltfDocument &) = delete;
    VxGltfDocument &operator=(const VxGltfDocument &) = delete;

    /// Parses the text or binary form. offset: where reading stopped, -1 where no offset applies;
    /// must not be null.
    bool parse(const QByteArray &bytes, QString *message, qint64 *offset);

    bool isBinary() const;
    const QJsonObject &root() const;
    /// A top-level array; empty if missing.
    QJsonArray array(const char *name) const;

    /// Kind and size of an accessor. False for an index that does not exist or inconsistent
    /// members.
    bool describe(int accessor, VxGltfAccessorInfo *info, QString *message) const;
    /// Decodes an accessor to count * components numbers: integers normalised if marked so, sparse
    /// values inserted. The total of numbers per document is limited.
    bool read(int accessor, std::vector<double> *numbers, QString *message);

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// A member that is an index or a count: the whole number from 0 to 2^53 - 1, `missing` without the
/// member, -1 for anything else.
qint64 vxGltfIndex(const QJsonObject &object, const char *name, qint64 missing = -1);

#endif
