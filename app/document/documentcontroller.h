#ifndef DOCUMENTCONTROLLER_H
#define DOCUMENTCONTROLLER_H

#include "document/filestamp.h"
#include "io/motion/vxmotionexport.h"
#include "io/motion/vxmotionimport.h"
#include "io/vxfileformats.h"

#include <QObject>
#include <QString>
#include <functional>

class UserMessages;
class VxScene;
class VxUndoStack;

/// The open document: which file the scene came from, how it is replaced by another and written
/// back, and how motion comes to it and leaves it.
///
/// A file that cannot be read leaves scene, history and file name as they were; the user is told
/// once, with file and line. While one file is read or written, with events processed for the
/// progress, every other one is refused.
class DocumentController : public QObject
{
    Q_OBJECT
public:
    /// All are borrowed and must outlive the controller.
    DocumentController(VxScene *scene, VxUndoStack *undoStack, const UserMessages *messages,
                       QObject *parent = nullptr,
                       const VxFileFormats &formats = VxFileFormats::standard());

    /// How motion is imported; asked after a file was read and before it enters the scene. It may
    /// load the file again with other options. False cancels the import.
    using ImportChooser =
        std::function<bool(VxMotionImport *import, const QString &fileName, VxImportChoices *)>;

    /// Opens a file in place of the scene, without asking for changes that are not saved; options,
    /// choices and chooser are for motion files. False when it could not be read or the user
    /// cancelled.
    bool open(const QString &fileName, const VxMotionBuildOptions &options = {},
              const VxImportChoices &choices = {}, const ImportChooser &chooser = {});
    /// Writes the scene into a file, which becomes the document's. Asks before it replaces what
    /// somebody else has written since the document was opened or saved. False when nothing was
    /// written. In the middle of a gesture the document counts as changed afterwards, too.
    bool save(const QString &fileName);
    /// An empty scene without a file.
    void clear();
    /// Opens a copy that was kept of a document, as that document with changes that are not saved.
    /// fileName: where it was kept before; empty for none. False with the reason, which must not
    /// be null and is not shown.
    bool recover(const QString &copy, const QString &fileName, VxFileError *error);

    /// Adds the nodes of a motion file to the scene and selects the top ones: one entry of the
    /// history. Without a chooser nothing is asked. False when it could not be read or the user
    /// cancelled; the scene is as it was then.
    bool importMotion(const QString &fileName, const VxMotionBuildOptions &options = {},
                      const VxImportChoices &choices = {}, const ImportChooser &chooser = {});
    /// Writes motion in the format of the file's suffix. False when nothing was written.
    bool exportMotion(const VxMotionExportOptions &options, const QString &fileName);

    /// Absolute path; empty for a new scene.
    QString fileName() const { return m_fileName; }
    /// The file's name without its folder, or a word for a new scene.
    QString displayName() const;
    /// Of the motion file that was opened or imported last; its file name is empty before.
    const VxImportReport &importReport() const { return m_report; }
    /// What the reader had to tell of the file opened last; may be empty.
    QString summary() const { return m_summary; }

    /// Why the last operation that returned false did so, with file and line; empty when another
    /// one was still running.
    QString lastError() const { return m_lastError; }

    const VxFileFormats &formats() const { return m_formats; }
    VxScene *scene() const { return m_scene; }

    /// True when the document has a file that it can be written back into.
    bool hasWritableFile() const;
    /// True while a file is read or written.
    bool isBusy() const { return m_isBusy; }

Q_SIGNALS:
    /// Another document is open now, or the same one under another name.
    void documentChanged();

private:
    void setDocument(const QString &fileName, const QString &summary);
    bool mayOverwrite(const QString &fileName) const;
    void markSaved();
    bool enterMotion(VxMotionImport *import, const QString &fileName, const QString &title,
                     const VxImportChoices &choices, const ImportChooser &chooser,
                     VxFileError *error);
    bool readScene(const QString &fileName, QString *summary, VxFileError *error);
    bool report(const VxFileError &error, const QString &cancelled);

    VxScene *const m_scene;
    VxUndoStack *const m_undoStack;
    const UserMessages *const m_messages;
    VxFileFormats m_formats;
    QString m_fileName;
    FileStamp m_stamp; // of the document's file, as this program knows it
    QString m_summary;
    VxImportReport m_report;
    QString m_lastError;
    bool m_isBusy = false;
};

#endif
