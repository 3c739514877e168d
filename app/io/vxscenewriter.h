#ifndef VXSCENEWRITER_H
#define VXSCENEWRITER_H

#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>
#include <QVector>

class QIODevice;
class VxNode;
class VxScene;

/// Writes a scene file. The same scene gives the same bytes each time.
class VxSceneWriter
{
public:
    explicit VxSceneWriter(const VxScene *scene)
        : m_scene(scene)
    {
    }

    /// Reports progress from 0 to 100 and can cancel.
    void setProgress(const VxFileProgress &progress) { m_progress = progress; }

    /// Writes the file atomically: until everything is written the former file stays unchanged.
    /// False with the reason in `error`, which must not be null.
    bool writeFile(const QString &fileName, VxFileError *error) const;
    /// Writes to an open device. False when cancelled or when the device refused bytes.
    bool write(QIODevice *device, VxFileError *error) const;
    /// Writes nodes, parents first, as a scene file of their own. A node whose parent is not among
    /// them is a root node there. False when one of their properties refers to one outside of them.
    static bool writeNodes(const QVector<VxNode *> &nodes, QIODevice *device, VxFileError *error);

private:
    const VxScene *m_scene;
    VxFileProgress m_progress;
};

#endif
