#ifndef RECOVERYCONTROLLER_H
#define RECOVERYCONTROLLER_H

#include "recovery/autosave.h"
#include "recovery/recoverystore.h"

#include <QObject>
#include <QPointer>
#include <functional>

class RecoveryDialog;

/// Keeps copies of the document while somebody works on it, and brings back those that a run which
/// did not end well has left.
class RecoveryController : public QObject
{
    Q_OBJECT
public:
    /// What is asked before the scene is replaced; true when it may be.
    using MayReplace = std::function<bool()>;

    /// folder: where copies are kept; empty for none at all. The others are borrowed and must
    /// outlive the controller.
    RecoveryController(const QString &folder, DocumentController *document, VxScene *scene,
                       VxUndoStack *history, const UserMessages *messages, QObject *parent);
    ~RecoveryController() override;

    AutoSave *autoSave() { return &m_autoSave; }
    void setMayReplace(const MayReplace &mayReplace);

    /// Asks what becomes of copies that were left behind; returns at once, with the question
    /// open, or not when there are none. False in the latter case.
    bool offer();
    /// The same on demand: tells when there are none.
    void offerOnDemand();
    /// The question while it is open, else null.
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
