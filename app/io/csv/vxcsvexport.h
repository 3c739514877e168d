#ifndef VXIO_VXCSVEXPORT_H
#define VXIO_VXCSVEXPORT_H

#include "io/motion/vxmotionwriter.h"

#include <vxcore/vxtimerange.h>

class VxSafeFile;

/// Writes nodes and their motion to a CSV file; see VxCsvNames for its contents.
///
/// One row a key: the keys within a range, and up to two more on either side of it, so that the
/// curves within the range are the same at every tick. One row a frame: the values at every frame
/// from the range's start to its end. Dependent values are sampled at frames.
class VxCsvExport : public VxMotionWriter
{
public:
    /// The range's ends are included.
    VxCsvExport(const VxScene *scene, const VxTimeRange &range)
        : m_scene(scene)
        , m_range(range)
    {
    }

    /// One node with everything below it instead of the whole scene.
    void setRoot(const VxNode *root) { m_root = root; }
    /// One row a frame instead of one a key. Initially false.
    void setHasRowPerFrame(bool rowPerFrame) { m_hasRowPerFrame = rowPerFrame; }

    bool exportFile(const QString &fileName, VxFileError *error) override;

private:
    bool write(VxSafeFile *file, VxFileError *error);

    const VxScene *const m_scene;
    const VxTimeRange m_range;
    const VxNode *m_root = nullptr;
    bool m_hasRowPerFrame = false;
};

#endif
