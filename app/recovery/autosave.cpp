#include "recovery/autosave.h"

#include "document/documentcontroller.h"
#include "recovery/recoveryjournal.h"
#include "recovery/recoverystore.h"
#include "widgets/usermessages.h"

#include <QGuiApplication>
#include <QUndoStack>
#include <algorithm>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

namespace {

constexpr int MillisecondsPerMinute = 60 * 1000;
constexpr int RetryMilliseconds = 500;
constexpr int ProgressMilliseconds = 15;

} // namespace

AutoSave::AutoSave(DocumentController *document, VxScene *scene, VxUndoStack *history,
                   RecoveryStore *store, const UserMessages *messages, QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_scene(scene)
    , m_history(history)
    , m_store(store)
    , m_messages(messages)
    , m_interval(DefaultMinutes * MillisecondsPerMinute)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &AutoSave::handleTimeout);
    connect(&m_progress, &QTimer::timeout, this, &AutoSave::handleProgress);
    connect(history, &VxUndoStack::indexChanged, this, &AutoSave::handleHistoryMoved);
    connect(history, &VxUndoStack::cleanChanged, this, &AutoSave::handleCleanChanged);
}

void AutoSave::setMinutes(int minutes)
{
    const int valid = std::clamp(minutes, 0, 24 * 60);
    if (valid == m_minutes)
        return;
    m_minutes = valid;
    setInterval(valid * MillisecondsPerMinute);
    Q_EMIT minutesChanged(valid);
}

void AutoSave::setInterval(int milliseconds)
{
    m_interval = milliseconds;
    if (m_interval == 0)
        dropCopy();
    else if (m_timer.isActive())
        m_timer.start(m_interval);
    else if (!m_store->hasOwn())
        handleHistoryMoved(); // there may be changes from while it was off
}

void AutoSave::dropCopy()
{
    m_timer.stop();
    m_progress.stop();
    m_store->removeOwn();
}

void AutoSave::writeNow()
{
    if (m_interval == 0 || !m_store->isEnabled() || m_scene->isLoading())
        return;
    // The history does not include the changes of an open hold.
    if (m_history->isClean() && !m_history->isRecording())
        return;
    VxFileError error;
    // The history does not fit a scene in mid-gesture.
    const bool hasHistory = m_journal && !m_history->isRecording();
    const bool isWritten = hasHistory ? m_journal->compact(&error) && m_store->endWrite(&error)
                                      : m_store->write(*m_scene, m_document->fileName(),
                                                       m_document->displayName(), &error);
    if (!isWritten)
        fail(error.text());
}

void AutoSave::handleHistoryMoved()
{
    if (m_interval > 0 && m_store->isEnabled() && !m_history->isClean() && !m_timer.isActive()) {
        m_playbackDelay = 0;
        m_timer.start(m_interval);
    }
}

void AutoSave::handleCleanChanged(bool clean)
{
    if (clean)
        dropCopy();
    else
        handleHistoryMoved();
}

void AutoSave::handleTimeout()
{
    if (mustDefer())
        m_timer.start(std::min(RetryMilliseconds, m_interval));
    else
        begin();
}

bool AutoSave::mustDefer()
{
    if (m_store->isWriting() || m_history->isRecording() || m_history->isApplying() ||
        m_document->isBusy() || m_scene->isLoading() ||
        QGuiApplication::mouseButtons() != Qt::NoButton)
        return true;
    if (!m_scene->isPlaying() || m_playbackDelay >= m_interval)
        return false;
    m_playbackDelay += std::min(RetryMilliseconds, m_interval);
    return true;
}

void AutoSave::setJournal(RecoveryJournal *journal)
{
    m_journal = journal;
    connect(journal, &RecoveryJournal::failed, this, &AutoSave::fail);
}

void AutoSave::begin()
{
    VxFileError error;
    const bool begun = m_journal ? m_journal->compact(&error)
                                 : m_store->beginWrite(*m_scene, m_document->fileName(),
                                                       m_document->displayName(), &error);
    if (begun)
        m_progress.start(ProgressMilliseconds);
    else
        fail(error.text());
}

void AutoSave::handleProgress()
{
    if (m_store->isWriting())
        return;
    m_progress.stop();
    VxFileError error;
    if (m_store->endWrite(&error)) {
        qCInfo(recoveryLog) << "copy written";
        m_hasFailed = false;
        Q_EMIT written();
    } else {
        fail(error.text());
    }
}

void AutoSave::fail(const QString &reason)
{
    qCInfo(recoveryLog).noquote() << "copy failed:" << reason;
    // Only one notice: a retry in some minutes will probably fail, too.
    if (!m_hasFailed)
        m_messages->showNotice(tr("Cannot make a recovery copy: %1").arg(reason));
    m_hasFailed = true;
    m_timer.start(m_interval);
}
