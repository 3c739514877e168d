#ifndef RECOVERYCONTROLLER_H
#define RECOVERYCONTROLLER_H

#include "recovery/autosave.h"
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
    void setMayReplace(const MayReplace &mayReplace);

    /// Asks about leftover copies; returns at once, with the dialog open. False, without a dialog,
    /// when there are none.
    bool offer();
    /// The same on demand: shows a message when there are none.
    void offerOnDemand();
    /// The open dialog, else null.
    RecoveryDialog *dialog() const;

private:
    void recover(const RecoveryCopy &copy);
    void discard(const RecoveryCopy &copy);
    void handleBroken(const RecoveryCopy &copy, const VxFileError &error);

    DocumentController *const m_document;
    const UserMessages *const m_messages;
    RecoveryStore m_store;
    AutoSave m_autoSave;
    MayReplace m_mayReplace;
    QPointer<RecoveryDialog> m_dialog;
};

#endif
