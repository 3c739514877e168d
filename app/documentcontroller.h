#ifndef DOCUMENTCONTROLLER_H
#define DOCUMENTCONTROLLER_H

#include "io/vxfileformats.h"

#include <QObject>
#include <QString>

class UserMessages;
class VxScene;
class VxUndoStack;

/// The open document: which file the scene came from, and how it is replaced by another
/// and written back.
///
/// A file that cannot be read leaves scene, history and file name as they were; the user is told
/// once, with file and line.
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
    /// Writes the scene into a file, which becomes the document's. False when that failed.
    bool save(const QString &fileName);
    /// An empty scene without a file.
    void clear();

    /// Absolute path; empty for a new scene.
    QString fileName() const { return m_fileName; }
    /// The file's name without its folder, or a word for a new scene.
    QString displayName() const;
    /// What the reader had to tell of the file opened last; may be empty.
    QString summary() const { return m_summary; }

    const VxFileFormats &formats() const { return m_formats; }

    /// True when the document has a file that it can be written back into.
    bool hasWritableFile() const;

Q_SIGNALS:
    /// Another document is open now, or the same one under another name.
    void documentChanged();

private:
    void setDocument(const QString &fileName, const QString &summary);

    VxScene *const m_scene;
    VxUndoStack *const m_undoStack;
    const UserMessages *const m_messages;
    VxFileFormats m_formats;
    QString m_fileName;
    QString m_summary;
    bool m_isLoading = false; // or saving
};

#endif
