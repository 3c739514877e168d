#include "recovery/recoverycontroller.h"

#include "document/documentcontroller.h"
#include "recovery/journalreplay.h"
#include "recovery/recoverydialog.h"
#include "widgets/usermessages.h"

#include <QDir>
#include <QUndoStack>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxundostack.h>

RecoveryController::RecoveryController(const QString &folder, DocumentController *document,
                                       VxScene *scene, VxUndoStack *history,
                                       const UserMessages *messages, QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_scene(scene)
    , m_history(history)
    , m_messages(messages)
    , m_store(folder)
    , m_autoSave(document, scene, history, &m_store, messages)
    , m_journal(document, scene, history, &m_store)
    , m_mayReplace([] { return true; })
{
    m_autoSave.setJournal(&m_journal);
    connect(&m_autoSave, &AutoSave::minutesChanged, &m_journal,
            [this](int minutes) { m_journal.setOn(minutes > 0); });
}

RecoveryController::~RecoveryController()
{
    delete m_dialog;
}

bool RecoveryController::offer()
{
    if (m_dialog)
        return true;
    const QVector<RecoveryCopy> copies = m_store.claim();
    if (copies.isEmpty())
        return false;
    qCInfo(recoveryLog) << "copies found:" << copies.size();
    m_dialog = new RecoveryDialog(copies, m_messages->window());
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_dialog, &RecoveryDialog::recoverRequested, this, &RecoveryController::recover);
    connect(m_dialog, &RecoveryDialog::discardRequested, this, &RecoveryController::discard);
    connect(m_dialog, &QDialog::finished, this, [this] { m_store.release(); });
    // Not exec(): the start continues without an answer.
    m_dialog->open();
    return true;
}

void RecoveryController::offerOnDemand()
{
    if (!offer())
        m_messages->showStatus(tr("There are no documents to recover."));
}

bool RecoveryController::open(const RecoveryCopy &copy, std::vector<QByteArray> *entries,
                              VxFileError *error)
{
    VxJournalContents journal;
    const bool hasJournal = m_store.readJournal(copy.id, &journal);
    m_journal.setOn(false);
    bool isOpen = m_document->recover(copy.sceneFile, copy.documentFile, error);
    if (isOpen && hasJournal) {
        JournalReplay replay(m_scene, m_history);
        if (!replay.run(journal)) {
            // Without the entries that the copy has: they cannot be undone then.
            journal.records.remove(0, journal.kept);
            journal.kept = 0;
            isOpen = m_document->recover(copy.sceneFile, copy.documentFile, error) &&
                     replay.run(journal);
        }
        *entries = replay.entries();
        m_history->qtStack()->resetClean();
    }
    m_journal.setOn(m_autoSave.minutes() > 0);
    qCInfo(recoveryLog).noquote() << "recovered" << copy.title << "with" << entries->size()
                                  << "entries" << (isOpen ? QString() : error->text());
    return isOpen;
}

void RecoveryController::recover(const RecoveryCopy &copy)
{
    if (!m_mayReplace())
        return;
    VxFileError error;
    std::vector<QByteArray> entries;
    if (open(copy, &entries, &error)) {
        m_store.adopt(copy.id);
        m_autoSave.markCopyCurrent();
        m_journal.resume(entries);
    } else if (!error.cancelled) {
        handleBroken(copy, error);
    }
}

void RecoveryController::discard(const RecoveryCopy &copy)
{
    if (!m_messages->askToDeleteCopy(copy.title))
        return;
    m_store.discard(copy.id);
    if (m_dialog)
        m_dialog->removeCopy(copy.id);
}

void RecoveryController::handleBroken(const RecoveryCopy &copy, const VxFileError &error)
{
    const QString kept = QDir::toNativeSeparators(m_store.setAside(copy.id));
    m_messages->showError(tr("The copy of \"%1\" cannot be read: %2\n\nThe copy is kept as %3.")
                              .arg(copy.title, error.text(), kept));
}
