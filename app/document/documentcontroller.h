#ifndef DOCUMENTCONTROLLER_H
#define DOCUMENTCONTROLLER_H

#include "document/filestamp.h"
#include "io/vxfileformats.h"

#include <QObject>
#include <QString>

class UserMessages;
class VxScene;
class VxSkeleton;
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

    /// Opens a file in place of the scene, without asking for changes that are not saved. False
    /// when it could not be read or the user cancelled.
    bool open(const QString &fileName);
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

    /// Adds the figure of a motion file to the scene and selects it: one entry of the history.
    /// False when it could not be read or the user cancelled; the scene is as it was then.
    bool importMotion(const QString &fileName);
    /// Writes the motion of a figure, over the animation range. False when nothing was written.
    bool exportMotion(const VxSkeleton *figure, const QString &fileName);

    /// Absolute path; empty for a new scene.
    QString fileName() const { return m_fileName; }
    /// The file's name without its folder, or a word for a new scene.
    QString displayName() const;
    /// What the reader had to tell of the file opened last; may be empty.
    QString summary() const { return m_summary; }

    const VxFileFormats &formats() const { return m_formats; }

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
    bool report(const VxFileError &error, const QString &cancelled) const;

    VxScene *const m_scene;
    VxUndoStack *const m_undoStack;
    const UserMessages *const m_messages;
    VxFileFormats m_formats;
    QString m_fileName;
    FileStamp m_stamp; // of the document's file, as this program knows it
    QString m_summary;
    bool m_isBusy = false;
};

#endif
