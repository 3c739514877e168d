#include "recovery/recoveryjournal.h"

#include "document/documentcontroller.h"

#include <algorithm>
#include <utility>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

namespace {

constexpr int BusyMilliseconds = 50;
/// Before the first attempt after a failure; each further one waits twice as long, up to a limit.
constexpr int FailureMilliseconds = 200;
constexpr int MaxDoublings = 5;
/// Below this size a record may exceed the document, which is small then, and the journal may grow.
constexpr qint64 SmallBytes = 64 * 1024;
constexpr qint64 LargeBytes = 16 * 1024 * 1024;

} // namespace

RecoveryJournal::RecoveryJournal(DocumentController *document, const VxScene *scene,
                                 VxUndoStack *history, RecoveryStore *store, QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_scene(scene)
    , m_history(history)
    , m_store(store)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &RecoveryJournal::retry);
    connect(history, &VxUndoStack::entryAdded, this, &RecoveryJournal::handleEntry);
    connect(history, &VxUndoStack::stepped, this, &RecoveryJournal::handleStep);
    connect(history, &VxUndoStack::unrecordedChange, this, &RecoveryJournal::handleUnrecorded);
    connect(history, &VxUndoStack::cleanChanged, this, &RecoveryJournal::handleCleanChanged);
    m_store->writer().setChanged([this] {
        QMetaObject::invokeMethod(this, &RecoveryJournal::handleWritten, Qt::QueuedConnection);
    });
}

RecoveryJournal::~RecoveryJournal()
{
    m_store->writer().setChanged({});
}

void RecoveryJournal::setOn(bool on)
{
    m_isOn = on;
    m_isCurrent = false;
    m_retry.stop();
}

bool RecoveryJournal::isCurrent() const
{
    return m_isCurrent && m_store->writer().failure().isEmpty();
}

bool RecoveryJournal::isBusy() const
{
    return m_store->isWriting() || m_history->isRecording() || m_history->isApplying() ||
           m_scene->isLoading() || m_document->isBusy();
}

/** Null when an item cannot be written, or the record would be larger than the document. */
std::optional<VxJournalRecord> RecoveryJournal::recordOf(const QString &text)
{
    m_writer.exchange({});
    m_writer.text(text);
    if (!m_history->writeEntry(m_history->index() - 1, m_writer) || isTooLarge())
        return std::nullopt;
    return VxJournalRecord{VxJournalRecord::Entry, m_writer.exchange({})};
}

bool RecoveryJournal::hasGrown(const VxJournalRecord &record)
{
    m_bytes += record.bytes.size();
    const qint64 limit =
        m_maxBytes > 0 ? m_maxBytes : std::max<qint64>(LargeBytes, m_store->size());
    return m_bytes > limit;
}

/** Positions of the last entries before the present index of the history. */
std::vector<quint64> RecoveryJournal::keptPositions() const
{
    const int done = std::clamp(m_history->index() - m_first, 0, int(m_entries.size()));
    const int first = std::max(0, done - m_keptEntries);
    return {m_entries.begin() + first, m_entries.begin() + done};
}

void RecoveryJournal::handleEntry(const QString &text)
{
    if (!m_isOn || !m_store->isEnabled())
        return;
    ++m_position;
    const bool isUnrecorded = m_history->takeUnrecordedChange();
    const int index = m_history->index() - 1 - m_first;
    const std::optional<VxJournalRecord> record = recordOf(text);
    const bool continues = isCurrent() && !isUnrecorded && record && index >= 0 &&
                           index <= int(m_entries.size()) &&
                           m_store->writer().append(m_position, *record);
    if (!continues) {
        // Reverting the entry and applying it again leads back to the copy, whatever else changed.
        restart(record);
        return;
    }
    m_entries.resize(size_t(index));
    m_entries.push_back(m_position);
    VxFileError error;
    if (hasGrown(*record) && !isBusy() && !compact(&error))
        Q_EMIT failed(error.text());
}

void RecoveryJournal::handleStep(int from, int to)
{
    if (!m_isOn || !m_store->isEnabled())
        return;
    ++m_position;
    if (m_history->isClean())
        return; // the copy was removed
    const bool isUnrecorded = m_history->takeUnrecordedChange();
    const auto [lowest, highest] = std::minmax(from, to);
    const bool isKnown =
        isCurrent() && lowest >= m_first && highest <= m_first + int(m_entries.size());
    const std::optional<VxJournalRecord> record =
        isKnown && !isUnrecorded ? recordOfStep(from, to) : std::nullopt;
    if (!record || !m_store->writer().append(m_position, *record))
        restart(std::nullopt);
}

/** Entries that the copy has may prove impossible to revert in a recovery: a step over one of them
 *  is written with what it changed, and so is every later step. Null when that cannot be written.
 */
std::optional<VxJournalRecord> RecoveryJournal::recordOfStep(int from, int to)
{
    const auto [lowest, highest] = std::minmax(from, to);
    m_writer.exchange({});
    m_writer.number(qint32(to - from));
    m_stepsOverCopy |= m_entries.at(size_t(lowest - m_first)) <= m_copyPosition;
    if (m_stepsOverCopy &&
        (highest - lowest != 1 || !m_history->writeEntry(lowest, m_writer) || isTooLarge()))
        return std::nullopt;
    return VxJournalRecord{VxJournalRecord::Step, m_writer.exchange({})};
}

bool RecoveryJournal::isTooLarge() const
{
    return m_writer.bytes().size() > std::max<qint64>(m_store->size(), SmallBytes);
}

/** A clean document equals its file, whatever a script changed without an entry. */
void RecoveryJournal::handleUnrecorded()
{
    const bool isChanged = m_history->takeUnrecordedChange();
    if (!isChanged || !m_isOn || !m_store->isEnabled() || m_history->isClean())
        return;
    ++m_position;
    restart(std::nullopt);
}

void RecoveryJournal::handleCleanChanged(bool clean)
{
    if (!clean)
        return;
    m_isCurrent = false;
    m_retry.stop();
}

void RecoveryJournal::restart(const std::optional<VxJournalRecord> &entry)
{
    m_isCurrent = false;
    if (isBusy()) {
        m_retry.start(BusyMilliseconds);
        return;
    }
    VxFileError error;
    std::vector<VxJournalRecord> further;
    if (entry)
        further.push_back(*entry);
    if (copy({}, further, &error))
        return;
    startAgainLater();
    Q_EMIT failed(error.text());
}

void RecoveryJournal::startAgainLater()
{
    m_retry.start(FailureMilliseconds << std::min(m_failures++, MaxDoublings));
}

void RecoveryJournal::retry()
{
    if (m_isOn && !m_isCurrent && !m_history->isClean())
        restart(std::nullopt);
}

bool RecoveryJournal::compact(VxFileError *error)
{
    if (m_history->takeUnrecordedChange())
        m_isCurrent = false;
    return copy(isCurrent() ? keptPositions() : std::vector<quint64>(), {}, error);
}

bool RecoveryJournal::copy(const std::vector<quint64> &kept,
                           const std::vector<VxJournalRecord> &further, VxFileError *error)
{
    if (m_history->takeUnrecordedChange())
        m_isCurrent = false;
    RecoveryHistory history;
    history.continues = isCurrent();
    history.kept = kept;
    // Entries that are new to the journal have the last positions.
    quint64 position = m_position - std::min<quint64>(m_position, further.size());
    for (const VxJournalRecord &record : further)
        history.further.push_back({++position, record});
    history.position = m_position;
    m_isCurrent = m_store->beginWrite(*m_scene, m_document->fileName(), m_document->displayName(),
                                      error, &history);
    m_copies = m_isCurrent;
    m_bytes = 0;
    m_copyPosition = m_position;
    m_stepsOverCopy &= history.continues; // the copy may fail
    m_entries = kept;
    for (const auto &change : history.further)
        m_entries.push_back(change.position);
    m_first = m_history->index() - int(m_entries.size());
    return m_isCurrent;
}

void RecoveryJournal::resume(const std::vector<QByteArray> &entries)
{
    m_position += entries.size() + 1;
    std::vector<VxJournalRecord> further;
    const auto first =
        entries.end() - std::min<std::ptrdiff_t>(m_keptEntries, std::ptrdiff_t(entries.size()));
    for (auto entry = first; entry != entries.end(); ++entry)
        further.push_back({VxJournalRecord::Entry, *entry});
    VxFileError error;
    if (m_isOn && !copy({}, further, &error))
        Q_EMIT failed(error.text());
}

void RecoveryJournal::handleWritten()
{
    if (!m_isOn || m_store->isWriting() || m_history->isClean())
        return;
    VxFileError error;
    if (std::exchange(m_copies, false) && !m_store->endWrite(&error))
        Q_EMIT failed(error.text());
    const QString failure = m_store->writer().failure();
    if (m_isCurrent && failure.isEmpty()) {
        m_failures = 0;
        Q_EMIT synchronized(m_store->writer().synchronized());
    } else if (m_isCurrent) {
        // Changes that could not be written are in a copy alone.
        m_isCurrent = false;
        startAgainLater();
        if (error.message.isEmpty())
            Q_EMIT failed(failure);
    }
}
