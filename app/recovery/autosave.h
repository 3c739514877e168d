#ifndef AUTOSAVE_H
#define AUTOSAVE_H

#include <QObject>
#include <QTimer>

class DocumentController;
class RecoveryJournal;
class RecoveryStore;
class UserMessages;
class VxScene;
class VxUndoStack;

/// Keeps a recovery copy of a document with unsaved changes, at most some minutes old. The journal
/// has the changes since then.
///
/// The interval starts at the first change that the copy lacks, so an idle program writes nothing.
/// Writing is deferred while a gesture or the reading or writing of a file lasts, and during
/// playback, which may loop for hours, by one more interval at most. When the document equals its
/// file the copy is removed.
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
    /// Turning it off removes an existing copy.
    void setMinutes(int minutes);
    /// The same time in finer steps, for tests.
    void setInterval(int milliseconds);

    /// From now on copies are made by the journal of the same store, which is borrowed.
    void setJournal(RecoveryJournal *journal);
    /// Shows a notice, the first time, and tries again after the interval.
    void fail(const QString &reason);
    /// Discards the changes up to now and removes the copy: the user has given them up.
    void dropCopy();
    /// Writes a copy at once, even during a gesture or playback: the program must end.
    void writeNow();
    /// Marks the copy that the document was recovered from as current.
    void markCopyCurrent() { m_timer.stop(); }

Q_SIGNALS:
    void minutesChanged(int minutes);
    /// A copy was written, at the end of an interval.
    void written();

private:
    void handleHistoryMoved();
    void handleCleanChanged(bool clean);
    void handleTimeout();
    bool mustDefer();
    void begin();
    void handleProgress();

    DocumentController *const m_document;
    VxScene *const m_scene;
    VxUndoStack *const m_history;
    RecoveryStore *const m_store;
    const UserMessages *const m_messages;
    RecoveryJournal *m_journal = nullptr;
    QTimer m_timer;
    QTimer m_progress; // polls for the end of writing
    int m_minutes = DefaultMinutes;
    int m_interval;          // milliseconds
    int m_playbackDelay = 0; // milliseconds waited for playback
    bool m_hasFailed = false;
};

#endif
