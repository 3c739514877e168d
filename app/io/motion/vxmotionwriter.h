#ifndef VXIO_VXMOTIONWRITER_H
#define VXIO_VXMOTIONWRITER_H

#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QVector>

class VxMorph;
class VxNode;
class VxScene;

/// Base of the writers of motion files. The scene is borrowed and not changed.
class VxMotionWriter
{
public:
    virtual ~VxMotionWriter() = default;
    VxMotionWriter(const VxMotionWriter &) = delete;
    VxMotionWriter &operator=(const VxMotionWriter &) = delete;

    /// Reports progress from 0 to 100 and can cancel.
    void setProgress(const VxFileProgress &progress) { m_progress = progress; }

    /// Writes the file atomically. False with the reason in `error`, which must not be null.
    virtual bool exportFile(const QString &fileName, VxFileError *error) = 0;

    /// A summary of the last success for the user.
    QString getSummary() const { return m_summary; }

protected:
    VxMotionWriter() = default;

    VxFileProgress m_progress;
    QString m_summary;
};

/// A node with everything below it, or without one all nodes of the scene; parents first.
QVector<const VxNode *> vxNodesToExport(const VxScene *scene, const VxNode *root);

/// The morphs of a node's object, in their order.
QVector<const VxMorph *> vxMorphsOf(const VxNode *node);

#endif
