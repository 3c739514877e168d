#ifndef VXIO_VXBVHIMPORT_H
#define VXIO_VXBVHIMPORT_H

#include "io/vxbvhdocument.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <memory>

class VxScene;
class VxSkeleton;

/// Brings BVH motion files into a scene, each as a figure of its own.
///
/// The figure is read and built completely before the scene hears of it; a broken file or a
/// cancelled import therefore leaves the scene as it was. What then changes in the scene is one
/// undo entry. A scene without nodes takes the motion's rate and length. One that has some keeps
/// its rate, and its ranges only grow: the keys lie at their true times. A motion of fewer than two
/// frames is a pose: it leaves step and ranges alone.
class VxBvhImport
{
public:
    /// The scene must outlive the importer.
    explicit VxBvhImport(VxScene *scene);
    ~VxBvhImport();
    VxBvhImport(const VxBvhImport &) = delete;
    VxBvhImport &operator=(const VxBvhImport &) = delete;

    /// Watches and cancels; 0 to 100 over reading and building.
    void setProgress(const VxFileProgress &progress);

    /// Whether the figure takes the place of everything in the scene, history included, as one
    /// load, instead of coming to what is there. False to begin with.
    void setReplacesScene(bool replaces);

    /// Reads the file and adds its figure, named after the file, with a number where a node of
    /// that name is there already. False with the reason in `error`, which must not be null.
    bool importFile(const QString &fileName, VxFileError *error);
    /// The same for a document that was read already; it must be valid. The name serves for the
    /// figure and for messages.
    bool importDocument(const VxBvhDocument &document, const QString &fileName, VxFileError *error);

    /// The figure of the last successful import; owned by the scene. Null before.
    VxSkeleton *getSkeleton() const;
    /// What the user should know of the last successful import: the motion's rate and the
    /// scene's.
    QString getSummary() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
