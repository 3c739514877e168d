#ifndef VXIO_VXGLTFDOCUMENT_H
#define VXIO_VXGLTFDOCUMENT_H

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <memory>
#include <vector>

/// How the numbers of an accessor are arranged.
struct VxGltfAccessorInfo
{
    int components = 0; ///< numbers an element, 1 to 16; 0: no such accessor
    qint64 count = 0;   ///< elements
    bool isFloat = false;
};

/// The JSON and the binary data of a glTF 2.0 file, as .gltf text or .glb.
///
/// Nothing in the file is trusted: indexes, counts, offsets and strides are checked against what
/// is there before anything is read or memory is taken. Buffers are loaded when an accessor needs
/// them, so that a missing file for a mesh does no harm.
///
/// All functions that can fail return false with one sentence in `message`, which must not be null.
class VxGltfDocument
{
public:
    /// folder: where files named in the document are looked for; empty refuses them. They must lie
    /// in it or below it.
    explicit VxGltfDocument(const QString &folder);
    ~VxGltfDocument();
    VxGltfDocument(const VxGltfDocument &) = delete;
    VxGltfDocument &operator=(const VxGltfDocument &) = delete;

    /// Takes text or binary form apart. offset: where reading stopped, -1 where no offset applies;
    /// must not be null.
    bool parse(const QByteArray &bytes, QString *message, qint64 *offset);

    bool isBinary() const;
    const QJsonObject &root() const;
    /// A top-level array; empty where there is none.
    QJsonArray array(const char *name) const;

    /// Kind and size of an accessor. False for an index that does not exist or members that
    /// contradict each other.
    bool describe(int accessor, VxGltfAccessorInfo *info, QString *message) const;
    /// Decodes an accessor to count * components numbers: integers normalised where it says so,
    /// sparse values put in. A document gives out a limited amount of numbers in all.
    bool read(int accessor, std::vector<double> *numbers, QString *message);

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// A member that is an index or a count: the whole number from 0 to 2^53 - 1, `missing` where the
/// member does not exist, -1 for anything else.
qint64 vxGltfIndex(const QJsonObject &object, const char *name, qint64 missing = -1);

#endif
