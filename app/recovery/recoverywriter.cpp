#include "recovery/recoverywriter.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vxcore/vxsafefile.h>

namespace {

using Change = JournalFileWriter::Change;

/// How long changes are gathered before they are written at once.
constexpr std::chrono::milliseconds BatchTime(100);

} // namespace

/// A copy that is being written.
struct RecoveryWriter::Copy
{
    QString journalFile;
    RecoveryHistory history;
    QByteArray digest;
    std::unique_ptr<VxSafeFile> file; // complete, but not committed
    std::vector<Change> later;        // changes since the copy was made
};

std::vector<Change> RecoveryWriter::takeQueue()
{
    m_queuedBytes = 0;
    return std::exchange(m_queue, {});
}

/** Under the lock, so that setChanged() returns when no call is under way. */
void RecoveryWriter::report() const
{
    if (m_changed)
        m_changed();
}

/** In a thread of its own: changes are written to the former journal meanwhile. */
void RecoveryWriter::writeScene(const QByteArray &bytes)
{
    VxSafeFile *file = m_copy->file.get();
    const QByteArray digest = VxJournalFile::digestOf(bytes);
    if (file->startPrivate() && file->write(bytes) == bytes.size())
        file->flush();
    const Lock lock(m_mutex);
    m_copy->digest = digest;
    m_sceneIsWritten = true;
    m_wake.notify_one();
}

void RecoveryWriter::finishCopy(Lock &lock)
{
    m_sceneIsWritten = false;
    // Changes before the copy, some of which it may keep, and those since then.
    const std::vector<Change> queued = takeQueue();
    const auto since = std::find_if(queued.begin(), queued.end(), [this](const Change &change) {
        return change.position > m_copy->history.position;
    });
    const std::vector<Change> later = m_copy->later;
    lock.unlock();
    const QString reason = replaceFiles({queued.begin(), since}, later);
    lock.lock();
    const auto added = m_copy->later.begin() + std::ptrdiff_t(later.size());
    if (reason.isEmpty()) {
        m_failure.clear();
        m_synchronized = later.empty() ? m_copy->history.position : later.back().position;
        m_queue.assign(added, m_copy->later.end());
    } else if (m_journal.isOpen() && m_copy->history.continues) {
        m_queue.assign(since, queued.end());
        m_queue.insert(m_queue.end(), added, m_copy->later.end());
    } else {
        m_journal.close();
        m_failure = reason;
        takeQueue();
    }
    m_hasJournal = m_journal.isOpen();
    m_copyFailure = reason;
    m_copy.reset();
    m_finished.notify_all();
    report();
}

QString RecoveryWriter::replaceFiles(const std::vector<Change> &before,
                                     const std::vector<Change> &later)
{
    // Also when the copy has failed: the former journal is continued then.
    if (m_journal.isOpen() && !m_journal.append(before))
        m_journal.close();
    VxSafeFile *file = m_copy->file.get();
    if (!file->failure().isEmpty())
        return file->failure();
    if (m_copy->journalFile.isEmpty()) {
        m_journal.close();
        return file->commit() ? QString() : file->failure();
    }
    const bool done = m_journal.replace(file, m_copy->digest, m_copy->journalFile,
                                        m_copy->history.kept, m_copy->history.further, later);
    return done ? QString() : m_journal.failure();
}

void RecoveryWriter::writeBatch(Lock &lock)
{
    m_wake.wait_for(lock, BatchTime, [this] { return m_ends || m_closes || m_sceneIsWritten; });
    if (m_closes || m_sceneIsWritten)
        return;
    const std::vector<Change> batch = takeQueue();
    lock.unlock();
    const bool done = m_journal.append(batch) && m_journal.synchronize();
    lock.lock();
    if (done) {
        m_synchronized = batch.back().position;
    } else {
        m_failure = m_journal.failure();
        m_hasJournal = false;
        takeQueue();
    }
    report();
}

void RecoveryWriter::run()
{
    Lock lock(m_mutex);
    while (true) {
        m_wake.wait(lock, [this] {
            return (m_ends && !m_copy) || (m_closes && !m_copy) || m_sceneIsWritten ||
                   (m_hasJournal && !m_queue.empty());
        });
        if (m_sceneIsWritten) {
            finishCopy(lock);
        } else if (m_closes && !m_copy) {
            takeQueue();
            m_journal.close();
            m_hasJournal = m_closes = false;
            m_failure.clear();
            m_finished.notify_all();
        } else if (m_hasJournal && !m_queue.empty()) {
            writeBatch(lock);
        } else if (m_ends) {
            return;
        }
    }
}

RecoveryWriter::RecoveryWriter(const std::function<void()> &changed)
    : m_changed(changed)
{
}

RecoveryWriter::~RecoveryWriter()
{
    if (!m_thread.joinable())
        return;
    {
        const Lock lock(m_mutex);
        m_ends = true;
        m_changed = {};
    }
    m_wake.notify_one();
    m_thread.join();
}

void RecoveryWriter::setChanged(const std::function<void()> &changed)
{
    const Lock lock(m_mutex);
    m_changed = changed;
}

void RecoveryWriter::start(const QString &sceneFile, const QByteArray &scene,
                           const QString &journalFile, const RecoveryHistory &history)
{
    finish();
    if (m_scene.valid())
        m_scene.get();
    {
        const Lock lock(m_mutex);
        m_copy = std::make_unique<Copy>();
        m_copy->journalFile = journalFile;
        m_copy->history = history;
        m_copy->file = std::make_unique<VxSafeFile>(sceneFile);
        m_copyFailure.clear();
    }
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
    m_scene = std::async(std::launch::async, [this, scene] { writeScene(scene); });
}

bool RecoveryWriter::isWriting() const
{
    const Lock lock(m_mutex);
    return m_copy != nullptr;
}

QString RecoveryWriter::finish()
{
    Lock lock(m_mutex);
    m_finished.wait(lock, [this] { return !m_copy; });
    return m_copyFailure;
}

bool RecoveryWriter::append(quint64 position, const VxJournalRecord &record)
{
    const Lock lock(m_mutex);
    const bool startsAnew = m_copy && !m_copy->journalFile.isEmpty();
    const bool continues =
        m_hasJournal && m_failure.isEmpty() && (!m_copy || m_copy->history.continues);
    if ((!startsAnew && !continues) || m_queuedBytes + record.bytes.size() > MaxQueuedBytes)
        return false;
    m_queuedBytes += record.bytes.size();
    if (startsAnew)
        m_copy->later.push_back({position, record});
    if (continues) {
        m_queue.push_back({position, record});
        m_wake.notify_one();
    }
    return true;
}

quint64 RecoveryWriter::synchronized() const
{
    const Lock lock(m_mutex);
    return m_synchronized;
}

QString RecoveryWriter::failure() const
{
    const Lock lock(m_mutex);
    return m_failure;
}

void RecoveryWriter::close()
{
    Lock lock(m_mutex);
    if (!m_thread.joinable())
        return;
    m_closes = true;
    m_wake.notify_one();
    m_finished.wait(lock, [this] { return !m_closes; });
}
