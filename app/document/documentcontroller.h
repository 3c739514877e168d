#ifndef DOCUMENTCONTROLLER_H
#define DOCUMENTCONTROLLER_H

#include "document/filestamp.h"
#include "io/formats/vxfileformats.h"
#include "io/formats/vxmotionexport.h"
#include "io/formats/vxmotionimport.h"

#include <QObject>
#include <QString>
#include <functional>

class UserMessages;
class VxScene;
class VxUndoStack;

/// The open document: the scene's file, opening and saving, and import and export of motion.
///
/// A file that cannot be read leaves scene, history and file name unchanged; the user gets one
/// message, with file and line. While one file is read or written, with events processed for the
/// progress, every other one is refused.
class DocumentController : public QObject
{
    Q_OBJECT
public:
    /// All are borrowed and must outlive the controller.
    DocumentController(VxScene *scene, VxUndoStack *undoStack, const UserMessages *messages,
                       QObject *parent = nullptr,
                       const VxFileFormats &formats = VxFileFormats::standard());

    /// The user's import choices, requested after a file was read and before its nodes are added.
    /// May load the file again with other options. False cancels the import.
    using ImportChooser =
        std::function<bool(VxMotionImport *import, const QString &fileName, VxImportChoices *)>;

    /// Replaces the scene by a file, without asking about unsaved changes; options, choices and
    /// chooser are for motion files. False when it could not be read or the user cancelled.
    bool open(const QString &fileName, const VxMotionBuildOptions &options = {},
              const VxImportChoices &choices = {}, const ImportChooser &chooser = {});
    /// Writes the scene to a file, which becomes the document's, and keeps its former versions as
    /// backups, unless they are the same; a backup that cannot be made is reported, and the
    /// document saved without it. When another program has changed, replaced or removed the
    /// document's file since it was opened or saved, the user is asked first; without a window that
    /// is a failure. False when nothing was written. During a gesture the document still counts as
    /// changed afterwards.
    bool save(const QString &fileName);
    /// Saves under a name that the user chooses; called when the user answers the question above
    /// so. Returns true when the document was saved.
    void setSaveAs(const std::function<bool()> &saveAs) { m_saveAs = saveAs; }
    /// The number of former versions of a file that saving keeps, 0 to VxBackups::MaxCount;
    /// initially VxBackups::DefaultCount. 0 makes no backups and leaves those that exist.
    int backups() const { return m_backups; }
    /// A number out of range becomes the nearest one.
    void setBackups(int count);
    /// Shows a notice, once a change, when another program has changed the document's file.
    void checkFile();
    /// Replaces the scene by the shipped sample, as a document without a file.
    bool openSample();
    /// An empty scene without a file.
    void clear();
    /// Opens a recovery copy as its document with unsaved changes. fileName: the document's former
    /// file; empty for none. False with the reason, which must not be null and is not shown.
    bool recover(const QString &copy, const QString &fileName, VxFileError *error);

    /// Adds the nodes of a motion file to the scene and selects the top ones: one undo entry.
    /// Without a chooser nothing is asked. False, with the scene unchanged, when it could not be
    /// read or the user cancelled.
    bool importMotion(const QString &fileName, const VxMotionBuildOptions &options = {},
                      const VxImportChoices &choices = {}, const ImportChooser &chooser = {});
    /// Writes motion in the format of the file's suffix. False when nothing was written.
    bool exportMotion(const VxMotionExportOptions &options, const QString &fileName);

    /// Absolute path; empty for a new scene.
    QString fileName() const { return m_fileName; }
    /// The file's name without its folder, or a word for a new scene.
    QString displayName() const;
    /// Of the motion file opened or imported last; its file name is empty before the first.
    const VxImportReport &importReport() const { return m_report; }
    /// The reader's summary of the file opened last; may be empty.
    QString summary() const { return m_summary; }

    /// The reason of the last operation that returned false, with file and line; empty when another
    /// one was still running.
    QString lastError() const { return m_lastError; }

    const VxFileFormats &formats() const { return m_formats; }
    VxScene *scene() const { return m_scene; }

    /// True when the document has a file that it can be saved to. A backup is none as long as its
    /// document exists: later saves of that would remove what was saved there.
    bool hasWritableFile() const;
    /// True while a file is read or written.
    bool isBusy() const { return m_isBusy; }

Q_SIGNALS:
    /// Another document is open, or the same one under another name.
    void documentChanged();
    void backupsChanged();

private:
    void setDocument(const QString &fileName, const QString &summary, const FileStamp &stamp = {});
    QString changeByOthers() const;
    bool write(const QString &fileName);
    void markSaved();
    bool enterMotion(VxMotionImport *import, const QString &fileName, const QString &title,
                     const VxImportChoices &choices, const ImportChooser &chooser,
                     VxFileError *error);
    bool readScene(const QString &fileName, QString *summary, VxFileError *error);
    bool writeScene(const QString &fileName, VxFileError *error);
    bool report(const VxFileError &error, const QString &cancelled);

    VxScene *const m_scene;
    VxUndoStack *const m_undoStack;
    const UserMessages *const m_messages;
    VxFileFormats m_formats;
    QString m_fileName;
    FileStamp m_stamp;   // of the document's file, as last read or written
    FileStamp m_noticed; // of the change by another program that was shown last
    QString m_noticedFile;
    std::function<bool()> m_saveAs;
    int m_backups;
    QString m_summary;
    VxImportReport m_report;
    QString m_lastError;
    bool m_isBusy = false;
};

#endif
