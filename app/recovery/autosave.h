#ifndef AUTOSAVE_H
#define AUTOSAVE_H

#include <QObject>
#include <QTimer>

class DocumentController;
class RecoveryStore;
class UserMessages;
class VxScene;
class VxUndoStack;

/// Sees to it that of a document with unsaved changes there is a copy that is not older than some
/// minutes.
///
/// The time runs from the first change that the copy does not have, so an idle program writes
/// nothing. What must not be disturbed is waited for: a gesture and a file that is read or written
/// for as long as they last; playback, which may be looped for hours, for the same time again at
/// most. When the document is as it is in its file the copy goes.
class AutoSave : public QObject
{
    Q_OBJECT
public:
    static constexpr int DefaultMinutes = 3;

    /// All are borrowed and must outlive the object.
    AutoSave(DocumentController *document, VxScene *scene, VxUndoStack *history,
             RecoveryStore *store, const UserMessages *messages, QObject *parent = nullptr);

    /// 0: no copies are made. Values below count as 0.
    int minutes() const { return m_minutes; }
    /// Turning it off removes the copy that there may be.
    void setMinutes(int minutes);
    /// The same time in finer steps, for tests.
    void setInterval(int milliseconds);

    /// Forgets the changes up to now and removes the copy: the user has given them up.
    void dropCopy();
    /// Makes a copy of what there is, at once and whatever is under way: the program must end.
    void writeNow();
    /// The copy that the document was made from is its copy now.
    void takeCopy();

Q_SIGNALS:
    void minutesChanged(int minutes);
    /// A copy was written, at the end of a wait.
    void written();

private:
    void handleHistoryMoved();
    void handleCleanChanged(bool clean);
    void handleTimeout();
    bool mustWait();
    void begin();
    void handleProgress();
    void fail(const QString &reason);

    DocumentController *const m_document;
    VxScene *const m_scene;
    VxUndoStack *const m_history;
    RecoveryStore *const m_store;
    const UserMessages *const m_messages;
    QTimer m_timer;
    QTimer m_progress; // asks whether the disk has taken the copy
    int m_minutes = DefaultMinutes;
    int m_interval;        // milliseconds
    int m_playingWait = 0; // milliseconds for which playback has been waited for
    bool m_hasFailed = false;
};

#endif
