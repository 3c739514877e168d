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
/// Bones become the joints of a skin for each figure, morphs the targets of a small mesh that holds
/// their place. Positions, scales and weights are the same at every tick (straight and smooth
/// segments, steps); rotations are the same within 0.0005 degrees at every frame and within
/// getError() between them. A file has no times before 0: a range that starts earlier is moved
/// there. Times are single precision, about a tick after half an hour.
class VxGltfExport
{
public:
    /// The scene is borrowed and stays as it is. The range's ends are included.
    VxGltfExport(const VxScene *scene, const VxTimeRange &range);
    ~VxGltfExport();
    VxGltfExport(const VxGltfExport &) = delete;
    VxGltfExport &operator=(const VxGltfExport &) = delete;

    /// One node with everything below it instead of the whole scene.
    void setRoot(const VxNode *root);
    /// Watches and cancels; 0 to 100.
    void setProgress(const VxFileProgress &progress);

    /// Writes the file, replaced whole or not at all; its suffix decides the form. False with the
    /// reason in `error`, which must not be null.
    bool exportFile(const QString &fileName, VxFileError *error);
    /// The bytes alone.
    bool write(bool binary, QByteArray *bytes, VxFileError *error);

    /// The largest deviation of a rotation between its keys, in degrees, after a success.
    double getError() const;
    /// What the user should know of the last success.
    QString getSummary() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
