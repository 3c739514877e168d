#ifndef BVHIMPORT_H
#define BVHIMPORT_H

#include "io/bvh/vxbvhwriter.h"
#include "io/formats/vxmotionimport.h"

#include <QDir>
#include <QTemporaryDir>
#include <vxcore/vxskeleton.h>

/// Adds the figures of BVH files to a scene, each in one step.
class BvhImport
{
public:
    explicit BvhImport(VxScene *scene)
        : m_import(scene)
    {
    }

    void setProgress(const VxFileProgress &progress) { m_import.setProgress(progress); }

    bool importFile(const QString &fileName, VxFileError *error)
    {
        if (!m_import.load(fileName, error) || !m_import.enter({}, error))
            return false;
        m_skeleton = static_cast<VxSkeleton *>(m_import.getRoots().constFirst());
        return true;
    }

    /// The same for a valid document, written to a file of that name.
    bool importDocument(const VxBvhDocument &document, const QString &name, VxFileError *error)
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        return VxBvhWriter::writeFile(document, path, error) && importFile(path, error);
    }

    /// The figure of the last success; null before the first.
    VxSkeleton *getSkeleton() const { return m_skeleton; }
    QString getSummary() const { return m_import.getSummary(); }

private:
    VxMotionImport m_import;
    VxSkeleton *m_skeleton = nullptr;
};

#endif
