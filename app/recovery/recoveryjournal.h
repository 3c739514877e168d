#ifndef RECOVERYJOURNAL_H
#define RECOVERYJOURNAL_H

#include "io/vxscenejournal.h"
#include "recovery/recoverystore.h"

#include <QObject>
#include <QTimer>
#include <optional>
#include <vector>

class DocumentController;
class VxUndoStack;

/// Keeps the journal of the document: every entry of the history, undo and redo is on the disk
/// within a second.
///
/// The first change after the document was saved makes a copy. Later changes are records that are
/// appended to its journal. A new copy is made instead where a record cannot hold the change: an
/// item that cannot be written, a change that no entry holds, a record larger than the document, a
/// step to entries from before the copy, a full queue, or a failure of the disk. When the journal
/// has grown, a new copy keeps the records of the last entries, so that they can be undone after a
/// recovery, too.
class RecoveryJournal : public QObject
{
    Q_OBJECT
public:
    static constexpr int DefaultKeptEntries = 50;
    static constexpr int LargestKeptEntries = 1000;

    /// All are borrowed and must outlive the object.
    RecoveryJournal(DocumentController *document, const VxScene *scene, VxUndoStack *history,
                    RecoveryStore *store, QObject *parent = nullptr);
    ~RecoveryJournal() override;

    /// Initially on. While off, nothing is written.
    void setOn(bool on);
    /// The entries that a new copy keeps, from 0 to LargestKeptEntries.
    int keptEntries() const { return m_keptEntries; }
    void setKeptEntries(int count) { m_keptEntries = qBound(0, count, LargestKeptEntries); }
    /// The size at which the journal is replaced by a new copy, in bytes; 0: by the size of the
    /// document.
    void setMaxBytes(qint64 bytes) { m_maxBytes = bytes; }
    /// Continues after a recovery: the history consists of these entries.
    void resume(const std::vector<QByteArray> &entries);
    /// Makes a copy that keeps the records of the last entries. False with the reason.
    bool compact(VxFileError *error);
    /// The number of changes so far: entries, steps and changes that no entry holds.
    quint64 position() const { return m_position; }

Q_SIGNALS:
    /// The changes up to this number are on the disk.
    void synchronized(quint64 position);
    /// A copy failed; it is tried again.
    void failed(const QString &reason);

private:
    void handleEntry(const QString &text);
    void handleStep(int from, int to);
    void handleUnrecorded();
    void handleCleanChanged(bool clean);
    void handleWritten();
    std::optional<VxJournalRecord> recordOf(const QString &text);
    std::optional<VxJournalRecord> recordOfStep(int from, int to);
    bool isTooLarge() const;
    bool isCurrent() const;
    bool hasGrown(const VxJournalRecord &record);
    std::vector<quint64> keptPositions() const;
    /// Ends the chain of records: a copy is needed, which keeps the given entry alone.
    void restart(const std::optional<VxJournalRecord> &entry);
    bool copy(const std::vector<quint64> &kept, const std::vector<VxJournalRecord> &further,
              VxFileError *error);
    void startAgainLater();
    void retry();
    bool isBusy() const;

    DocumentController *const m_document;
    const VxScene *const m_scene;
    VxUndoStack *const m_history;
    RecoveryStore *const m_store;
    VxSceneJournalWriter m_writer;
    QTimer m_retry;
    quint64 m_position = 0;
    bool m_isOn = true;
    bool m_isCurrent = false;       // the records hold all changes since the copy
    bool m_copies = false;          // a copy is being written
    int m_first = 0;                // index of the first entry in the journal
    std::vector<quint64> m_entries; // their positions, undone ones last
    quint64 m_copyPosition = 0;     // the copy has the changes up to this one
    bool m_stepsOverCopy = false;   // since the copy, over an entry that it has
    qint64 m_bytes = 0;             // of records since the copy
    qint64 m_maxBytes = 0;
    int m_failures = 0; // one after another
    int m_keptEntries = DefaultKeptEntries;
};

#endif
