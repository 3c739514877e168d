#ifndef VXMOTIONIMPORT_H
#define VXMOTIONIMPORT_H

#include "io/bvh/vxbvhtiming.h"
#include "io/motion/vximportchoices.h"
#include "io/motion/vximportreport.h"
#include "io/motion/vxmotionbuilder.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QStringList>
#include <QVector>

class VxBvhDocument;

/// Imports motion files of every format into a scene, in two steps: load() reads a file and builds
/// its nodes outside of the scene, enter() adds them to it. In between, report and numbers show the
/// effect of choices.
///
/// A file that cannot be read and a cancelled import leave the scene unchanged. The changes of
/// enter() are one undo entry, or, when it replaces the scene, one load.
class VxMotionImport
{
public:
    /// The scene must outlive the importer.
    explicit VxMotionImport(VxScene *scene)
        : m_scene(scene)
    {
    }

    /// Reports the progress of load() from 0 to 100 and can cancel it.
    void setProgress(const VxFileProgress &progress) { m_progress = progress; }
    /// Whether the motion replaces everything in the scene. Initially false.
    void setReplacesScene(bool replaces) { m_replaces = replaces; }
    /// The animation to read and its start. A new figure is named after the file unless the options
    /// have a name.
    void setOptions(const VxMotionBuildOptions &options) { m_options = options; }

    /// False with the reason in `error`, which must not be null. May be called again, for instance
    /// with other options.
    bool load(const QString &fileName, VxFileError *error);

    /// Whether the scene gets the motion's rate whatever the choices are, because it has no other
    /// content.
    bool setsRate() const { return !isBeside(); }

    /// The report of the file loaded last, with the choices that it entered the scene with.
    const VxImportReport &report() const { return m_report; }
    /// The same with other choices.
    VxImportReport report(const VxImportChoices &choices) const;
    /// The result of choices in numbers.
    VxImportNumbers numbers(const VxImportChoices &choices) const;

    /// Adds the loaded nodes to the scene. False with the reason in `error` when nothing was loaded
    /// or the scene refuses it.
    bool enter(const VxImportChoices &choices, VxFileError *error);

    /// The top nodes added last; owned by the scene.
    QVector<VxNode *> getRoots() const { return m_roots; }
    /// For the status line, after enter().
    QString getSummary() const { return m_summary; }

private:
    QString figureName(const QString &fileName) const;
    bool loadBvh(const QString &fileName, VxFileError *error);
    bool loadByWorker(const QString &fileName, VxFileError *error);
    bool build(const VxBvhDocument &document, const QString &fileName, VxFileError *error);
    VxTime stepAfter(const VxImportChoices &choices) const;
    bool matchesRate(const VxImportChoices &choices) const
    {
        return choices.matchesRate && m_report.sourceRate > 0.0;
    }
    bool isBeside() const;

    VxScene *const m_scene;
    VxFileProgress m_progress;
    VxMotionBuildOptions m_options;
    bool m_replaces = false;
    bool m_isBvh = false; // what was loaded last
    VxSceneContents m_contents;
    VxImportReport m_report;
    VxBvhTiming m_timing; // of a BVH file
    QString m_note;       // the same
    QVector<VxNode *> m_roots;
    QString m_summary;
};

#endif
