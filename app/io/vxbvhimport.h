#ifndef VXIO_VXBVHIMPORT_H
#define VXIO_VXBVHIMPORT_H

#include "io/vxbvhdocument.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <memory>

class VxScene;
class VxSkeleton;

/// Imports BVH motion files into a scene, each as a separate figure.
///
/// The figure is read and built completely before the scene changes; a damaged file or a cancelled
/// import therefore leaves the scene unchanged. The changes of the scene are one undo entry. A
/// scene without nodes gets the motion's rate and length. One with nodes keeps its rate, and its
/// ranges only grow: the keys keep their true times. A motion of fewer than two frames is a pose:
/// it leaves step and ranges unchanged.
class VxBvhImport
{
public:
    /// The scene must outlive the importer.
    explicit VxBvhImport(VxScene *scene);
    ~VxBvhImport();
    VxBvhImport(const VxBvhImport &) = delete;
    VxBvhImport &operator=(const VxBvhImport &) = delete;

    /// Reports progress of reading and building from 0 to 100 and can cancel.
    void setProgress(const VxFileProgress &progress);

    /// Whether the figure replaces everything in the scene, history included, as one load, instead
    /// of being added. Initially false.
    void setReplacesScene(bool replaces);

    /// Reads the file and adds its figure, named after the file, with a number if a node has that
    /// name already. False with the reason in `error`, which must not be null.
    bool importFile(const QString &fileName, VxFileError *error);
    /// The same for a document in memory, which must be valid. The name is used for the figure and
    /// for messages.
    bool importDocument(const VxBvhDocument &document, const QString &fileName, VxFileError *error);

    /// The figure of the last successful import; owned by the scene. Null before the first.
    VxSkeleton *getSkeleton() const;
    /// A summary of the last successful import for the user: the motion's rate and the scene's.
    QString getSummary() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
