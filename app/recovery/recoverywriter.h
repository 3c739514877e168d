#ifndef RECOVERYWRITER_H
#define RECOVERYWRITER_H

#include "recovery/journalfilewriter.h"

#include <condition_variable>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>

/// What a new copy takes over from the history.
struct RecoveryHistory
{
    quint64 position = 0;      ///< the number of changes that the copy has
    bool continues = false;    ///< the present journal has them all: it is used until the end
    std::vector<quint64> kept; ///< entries of the present journal that can be undone, oldest first
    std::vector<JournalFileWriter::Change> further; ///< entries after those, not in the journal yet
};

/// Writes a copy of the document and its journal in a thread of its own.
///
/// A copy is the scene; the journal has the changes since then. While a copy is written, which may
/// take seconds, changes are still written to the former journal, and to the new one when the copy
/// is complete. Changes are on the disk at most about a tenth of a second after append(), unless
/// the disk is slower. The queue is bounded: append() refuses what does not fit, and never waits.
class RecoveryWriter
{
public:
    static constexpr qint64 MaxQueuedBytes = 64 * 1024 * 1024;

    /// changed is called in the thread when a copy was finished, changes were written, or failed.
    /// It must not call the writer.
    explicit RecoveryWriter(const std::function<void()> &changed = {});
    /// Writes what is queued.
    ~RecoveryWriter();
    RecoveryWriter(const RecoveryWriter &) = delete;
    RecoveryWriter &operator=(const RecoveryWriter &) = delete;

    void setChanged(const std::function<void()> &changed);
    /// Starts a copy. journalFile: empty for none. Waits for a former one.
    void start(const QString &sceneFile, const QByteArray &scene, const QString &journalFile,
               const RecoveryHistory &history);
    /// True from start() until the copy is on the disk or has failed.
    bool isWriting() const;
    /// Waits for the end of a copy. Returns the reason why it failed, else an empty text.
    QString finish();
    /// Queues a change. False, and nothing is queued, when no journal is open and none is being
    /// started, when writing failed, or when the queue is full.
    bool append(quint64 position, const VxJournalRecord &record);
    /// The number of changes on the disk, whether as records or in the copy.
    quint64 synchronized() const;
    /// The reason why changes could not be written, until the next copy is complete.
    QString failure() const;
    /// Waits for a copy, discards queued changes and closes the journal.
    void close();

private:
    struct Copy;
    using Change = JournalFileWriter::Change;
    using Lock = std::unique_lock<std::mutex>;

    void run();
    void writeScene(const QByteArray &scene);
    void finishCopy(Lock &lock);
    /// Returns the reason of a failure, else an empty text.
    QString replaceFiles(const std::vector<Change> &before, const std::vector<Change> &later);
    void writeBatch(Lock &lock);
    std::vector<Change> takeQueue();
    void report() const;

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::condition_variable m_finished;
    std::function<void()> m_changed;
    std::thread m_thread;
    std::future<void> m_scene;
    std::unique_ptr<Copy> m_copy;
    bool m_sceneIsWritten = false;
    bool m_ends = false;
    bool m_closes = false;
    bool m_hasJournal = false;
    std::vector<Change> m_queue;
    qint64 m_queuedBytes = 0;
    quint64 m_synchronized = 0;
    QString m_copyFailure;
    QString m_failure;
    JournalFileWriter m_journal; // the thread's own
};

#endif
