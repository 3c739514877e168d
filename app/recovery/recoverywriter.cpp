#include "recovery/recoverywriter.h"

#include "io/vxsafefile.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <future>
#include <mutex>
#include <thread>
#include <utility>

namespace {

using Change = JournalFileWriter::Change;

/// How long changes are gathered before they are written at once.
constexpr std::chrono::milliseconds BatchTime(100);

/// A copy that is being written.
struct Copy
{
    QString journalFile;
    RecoveryHistory history;
    QByteArray digest;
    std::unique_ptr<VxSafeFile> file; // complete, but not committed
    std::vector<Change> later;        // changes since the copy was made
};

} // namespace

class RecoveryWriter::Private
{
public:
    using Lock = std::unique_lock<std::mutex>;

    void run();
    void writeScene(const QByteArray &scene);
    void finishCopy(Lock &lock);
    /// Returns the reason of a failure, else an empty text.
    QString replaceFiles(const std::vector<Change> &before, const std::vector<Change> &later);
    void writeBatch(Lock &lock);
    std::vector<Change> takeQueue();
    void report() const;

    mutable std::mutex mutex;
    std::condition_variable wake;
    std::condition_variable finished;
    std::function<void()> changed;
    std::thread thread;
    std::future<void> scene;
    std::unique_ptr<Copy> copy;
    bool sceneIsWritten = false;
    bool ends = false;
    bool closes = false;
    bool hasJournal = false;
    std::vector<Change> queue;
    qint64 queuedBytes = 0;
    quint64 synchronized = 0;
    QString copyFailure;
    QString failure;
    JournalFileWriter journal; // the thread's own
};

std::vector<Change> RecoveryWriter::Private::takeQueue()
{
    queuedBytes = 0;
    return std::exchange(queue, {});
}

/** Under the lock, so that setChanged() returns when no call is under way. */
void RecoveryWriter::Private::report() const
{
    if (changed)
        changed();
}

/** In a thread of its own: changes are written to the former journal meanwhile. */
void RecoveryWriter::Private::writeScene(const QByteArray &bytes)
{
    VxSafeFile *file = copy->file.get();
    const QByteArray digest = VxJournalFile::digestOf(bytes);
    if (file->startPrivate() && file->write(bytes) == bytes.size())
        file->flush();
    const Lock lock(mutex);
    copy->digest = digest;
    sceneIsWritten = true;
    wake.notify_one();
}

void RecoveryWriter::Private::finishCopy(Lock &lock)
{
    sceneIsWritten = false;
    // Changes before the copy, some of which it may keep, and those since then.
    const std::vector<Change> queued = takeQueue();
    const auto since = std::find_if(queued.begin(), queued.end(), [this](const Change &change) {
        return change.position > copy->history.position;
    });
    const std::vector<Change> later = copy->later;
    lock.unlock();
    const QString reason = replaceFiles({queued.begin(), since}, later);
    lock.lock();
    const auto added = copy->later.begin() + std::ptrdiff_t(later.size());
    if (reason.isEmpty()) {
        failure.clear();
        synchronized = later.empty() ? copy->history.position : later.back().position;
        queue.assign(added, copy->later.end());
    } else if (journal.isOpen() && copy->history.continues) {
        queue.assign(since, queued.end());
        queue.insert(queue.end(), added, copy->later.end());
    } else {
        journal.close();
        failure = reason;
        takeQueue();
    }
    hasJournal = journal.isOpen();
    copyFailure = reason;
    copy.reset();
    finished.notify_all();
    report();
}

QString RecoveryWriter::Private::replaceFiles(const std::vector<Change> &before,
                                              const std::vector<Change> &later)
{
    // Also when the copy has failed: the former journal is continued then.
    if (journal.isOpen() && !journal.append(before))
        journal.close();
    VxSafeFile *file = copy->file.get();
    if (!file->failure().isEmpty())
        return file->failure();
    if (copy->journalFile.isEmpty()) {
        journal.close();
        return file->commit() ? QString() : file->failure();
    }
    const bool done = journal.replace(file, copy->digest, copy->journalFile, copy->history.kept,
                                      copy->history.further, later);
    return done ? QString() : journal.failure();
}

void RecoveryWriter::Private::writeBatch(Lock &lock)
{
    wake.wait_for(lock, BatchTime, [this] { return ends || closes || sceneIsWritten; });
    if (closes || sceneIsWritten)
        return;
    const std::vector<Change> batch = takeQueue();
    lock.unlock();
    const bool done = journal.append(batch) && journal.synchronize();
    lock.lock();
    if (done) {
        synchronized = batch.back().position;
    } else {
        failure = journal.failure();
        hasJournal = false;
        takeQueue();
    }
    report();
}

void RecoveryWriter::Private::run()
{
    Lock lock(mutex);
    while (true) {
        wake.wait(lock, [this] {
            return (ends && !copy) || (closes && !copy) || sceneIsWritten ||
                   (hasJournal && !queue.empty());
        });
        if (sceneIsWritten) {
            finishCopy(lock);
        } else if (closes && !copy) {
            takeQueue();
            journal.close();
            hasJournal = closes = false;
            failure.clear();
            finished.notify_all();
        } else if (hasJournal && !queue.empty()) {
            writeBatch(lock);
        } else if (ends) {
            return;
        }
    }
}

RecoveryWriter::RecoveryWriter(const std::function<void()> &changed)
    : d(std::make_unique<Private>())
{
    d->changed = changed;
}

RecoveryWriter::~RecoveryWriter()
{
    if (!d->thread.joinable())
        return;
    {
        const Private::Lock lock(d->mutex);
        d->ends = true;
        d->changed = {};
    }
    d->wake.notify_one();
    d->thread.join();
}

void RecoveryWriter::setChanged(const std::function<void()> &changed)
{
    const Private::Lock lock(d->mutex);
    d->changed = changed;
}

void RecoveryWriter::start(const QString &sceneFile, const QByteArray &scene,
                           const QString &journalFile, const RecoveryHistory &history)
{
    finish();
    if (d->scene.valid())
        d->scene.get();
    {
        const Private::Lock lock(d->mutex);
        d->copy = std::make_unique<Copy>();
        d->copy->journalFile = journalFile;
        d->copy->history = history;
        d->copy->file = std::make_unique<VxSafeFile>(sceneFile);
        d->copyFailure.clear();
    }
    if (!d->thread.joinable())
        d->thread = std::thread([this] { d->run(); });
    d->scene = std::async(std::launch::async, [this, scene] { d->writeScene(scene); });
}

bool RecoveryWriter::isWriting() const
{
    const Private::Lock lock(d->mutex);
    return d->copy != nullptr;
}

QString RecoveryWriter::finish()
{
    Private::Lock lock(d->mutex);
    d->finished.wait(lock, [this] { return !d->copy; });
    return d->copyFailure;
}

bool RecoveryWriter::append(quint64 position, const VxJournalRecord &record)
{
    const Private::Lock lock(d->mutex);
    const bool startsAnew = d->copy && !d->copy->journalFile.isEmpty();
    const bool continues =
        d->hasJournal && d->failure.isEmpty() && (!d->copy || d->copy->history.continues);
    if ((!startsAnew && !continues) || d->queuedBytes + record.bytes.size() > MaxQueuedBytes)
        return false;
    d->queuedBytes += record.bytes.size();
    if (startsAnew)
        d->copy->later.push_back({position, record});
    if (continues) {
        d->queue.push_back({position, record});
        d->wake.notify_one();
    }
    return true;
}

quint64 RecoveryWriter::synchronized() const
{
    const Private::Lock lock(d->mutex);
    return d->synchronized;
}

QString RecoveryWriter::failure() const
{
    const Private::Lock lock(d->mutex);
    return d->failure;
}

void RecoveryWriter::close()
{
    Private::Lock lock(d->mutex);
    if (!d->thread.joinable())
        return;
    d->closes = true;
    d->wake.notify_one();
    d->finished.wait(lock, [this] { return !d->closes; });
}
