#ifndef RECOVERYCONTROLLER_H
#define RECOVERYCONTROLLER_H

#include "recovery/autosave.h"
#include "recovery/recoveryjournal.h"
#include "recovery/recoverystore.h"

#include <QObject>
#include <QPointer>
#include <functional>

class RecoveryDialog;

/// Keeps copies of the document during a session, and recovers those left by a session that ended
/// abnormally.
class RecoveryController : public QObject
{
    Q_OBJECT
public:
    /// Asks before the scene is replaced; true to proceed.
    using MayReplace = std::function<bool()>;

    /// folder: for the copies; empty for none at all. The others are borrowed and must outlive the
    /// controller.
    RecoveryController(const QString &folder, DocumentController *document, VxScene *scene,
                       VxUndoStack *history, const UserMessages *messages, QObject *parent);
    ~RecoveryController() override;

    AutoSave *autoSave() { return &m_autoSave; }
    RecoveryJournal *journal() { return &m_journal; }
    void setMayReplace(const MayReplace &mayReplace) { m_mayReplace = mayReplace; }

    /// Asks about leftover copies; returns at once, with the dialog open. False, without a dialog,
    /// when there are none.
    bool offer();
    /// The same on demand: shows a message when there are none.
    void offerOnDemand();

private:
    void recover(const RecoveryCopy &copy);
    void discard(const RecoveryCopy &copy);
    /// Opens the copy and applies its journal, if any, to it.
    bool open(const RecoveryCopy &copy, std::vector<QByteArray> *entries, VxFileError *error);
    void handleBroken(const RecoveryCopy &copy, const VxFileError &error);

    DocumentController *const m_document;
    VxScene *const m_scene;
    VxUndoStack *const m_history;
    const UserMessages *const m_messages;
    RecoveryStore m_store;
    AutoSave m_autoSave;
    RecoveryJournal m_journal;
    MayReplace m_mayReplace;
    QPointer<RecoveryDialog> m_dialog;
};

#endif
