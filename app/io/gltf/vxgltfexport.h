#ifndef VXIO_VXGLTFEXPORT_H
#define VXIO_VXGLTFEXPORT_H

#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>
#include <memory>
#include <vxcore/vxtimerange.h>

class VxNode;
class VxScene;

/// Writes nodes and their motion to a glTF 2.0 file: .glb in binary form, .gltf as one text.
///
/// Bones become the joints of a skin for each figure, morphs the targets of a small placeholder
/// mesh. Positions, scales and weights are the same at every tick (linear, smooth and constant
/// segments); rotations are the same within 0.0005 degrees at every frame and within getError()
/// between them. A file has no times before 0: a range that starts earlier is shifted to 0. Times
/// are single precision, about a tick after half an hour.
class VxGltfExport
{
public:
    /// The scene is borrowed and not changed. The range's ends are included.
    VxGltfExport(const VxScene *scene, const VxTimeRange &range);
    ~VxGltfExport();
    VxGltfExport(const VxGltfExport &) = delete;
    VxGltfExport &operator=(const VxGltfExport &) = delete;

    /// One node with everything below it instead of the whole scene.
    void setRoot(const VxNode *root);
    /// Reports progress from 0 to 100 and can cancel.
    void setProgress(const VxFileProgress &progress);

    /// Writes the file atomically; its suffix decides the form. False with the reason in `error`,
    /// which must not be null.
    bool exportFile(const QString &fileName, VxFileError *error);
    /// The bytes alone.
    bool write(bool binary, QByteArray *bytes, VxFileError *error);

    /// The largest deviation of a rotation between its keys, in degrees, after a success.
    double getError() const;
    /// A summary of the last success for the user.
    QString getSummary() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
