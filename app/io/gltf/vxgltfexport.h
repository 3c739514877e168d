#ifndef VXIO_VXGLTFEXPORT_H
#define VXIO_VXGLTFEXPORT_H

#include "io/motion/vxmotionwriter.h"

#include <QByteArray>
#include <vxcore/vxtimerange.h>

/// Writes nodes and their motion to a glTF 2.0 file: .glb in binary form, .gltf as one text.
///
/// Bones become the joints of a skin for each figure, morphs the targets of a small placeholder
/// mesh. Positions, scales and weights are the same at every tick (linear, smooth and constant
/// segments); rotations are the same within 0.0005 degrees at every frame and within getError()
/// between them. A file has no times before 0: a range that starts earlier is shifted to 0. Times
/// are single precision, about a tick after half an hour.
class VxGltfExport : public VxMotionWriter
{
public:
    /// The range's ends are included.
    VxGltfExport(const VxScene *scene, const VxTimeRange &range)
        : m_scene(scene)
        , m_range(range)
    {
    }

    /// One node with everything below it instead of the whole scene.
    void setRoot(const VxNode *root) { m_root = root; }

    /// The file's suffix decides the form.
    bool exportFile(const QString &fileName, VxFileError *error) override;
    /// The bytes alone.
    bool write(bool binary, QByteArray *bytes, VxFileError *error);

    /// The largest deviation of a rotation between its keys, in degrees, after a success.
    double getError() const { return m_error; }

private:
    const VxScene *const m_scene;
    const VxTimeRange m_range;
    const VxNode *m_root = nullptr;
    double m_error = 0.0;
};

#endif
