#ifndef VXIO_VXMOTIONIMPORT_H
#define VXIO_VXMOTIONIMPORT_H

#include "io/motion/vximportchoices.h"
#include "io/motion/vximportreport.h"
#include "io/motion/vxmotionbuilder.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QStringList>
#include <QVector>

class VxBvhDocument;

/// Brings motion files of every format into a scene, in two steps: load() reads a file and builds
/// its nodes outside of the scene, enter() makes them part of it. Between the two, report and
/// numbers say what choices would do.
///
/// A file that cannot be read and an import that is cancelled leave the scene as it was. What
/// enter() changes is one undo entry, or, when it replaces the scene, one load.
class VxMotionImport
{
public:
    /// The scene must outlive the importer.
    explicit VxMotionImport(VxScene *scene);
    ~VxMotionImport();
    VxMotionImport(const VxMotionImport &) = delete;
    VxMotionImport &operator=(const VxMotionImport &) = delete;

    /// Watches and cancels load(); 0 to 100.
    void setProgress(const VxFileProgress &progress);
    /// Whether the motion takes the place of everything in the scene. False to begin with.
    void setReplacesScene(bool replaces);
    /// Which animation is read and where it begins. The name of a new figure is the file's unless
    /// the options give one.
    void setOptions(const VxMotionBuildOptions &options);

    /// False with the reason in `error`, which must not be null. May be called again, for instance
    /// with other options.
    bool load(const QString &fileName, VxFileError *error);
    /// The same for a BVH document that was read already, which must be valid. The name serves for
    /// the figure and for messages; note: for the report, may be empty.
    bool loadDocument(const VxBvhDocument &document, const QString &note, const QString &fileName,
                      VxFileError *error);

    /// Whether the scene gets the motion's rate whatever the choices are: there is nothing beside
    /// it.
    bool setsRate() const;

    /// What was found in the file loaded last.
    const VxImportReport &report() const;
    /// What choices would make of it.
    VxImportNumbers numbers(const VxImportChoices &choices) const;

    /// Takes what was loaded into the scene. False with the reason in `error` when nothing was
    /// loaded or the scene refuses it.
    bool enter(const VxImportChoices &choices, VxFileError *error);

    /// The top nodes that entered last; owned by the scene.
    QVector<VxNode *> getRoots() const;
    /// For the status line, after enter().
    QString getSummary() const;

    /// The suffixes of the files that can be imported, lower case, without a dot.
    static QStringList suffixes();

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
