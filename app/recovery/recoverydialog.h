#ifndef RECOVERYDIALOG_H
#define RECOVERYDIALOG_H

#include "recovery/recoverystore.h"

#include <QDialog>

class QPushButton;
class QTreeWidget;

/// Shows the copies of an earlier session and asks what to do with them. It only emits requests;
/// postponing changes nothing.
class RecoveryDialog : public QDialog
{
    Q_OBJECT
public:
    RecoveryDialog(const QVector<RecoveryCopy> &copies, QWidget *parent);

    /// Removes a copy from the list; the last one closes the dialog.
    void removeCopy(const QString &id);

Q_SIGNALS:
    /// The dialog has closed.
    void recoverRequested(const RecoveryCopy &copy);
    /// The dialog stays.
    void discardRequested(const RecoveryCopy &copy);

private:
    void buildList();
    void buildButtons();
    void addRow(const RecoveryCopy &copy);
    int currentIndex() const;
    void recoverCurrent();
    void discardCurrent();

    QVector<RecoveryCopy> m_copies;
    QTreeWidget *m_list = nullptr;
    QPushButton *m_recover = nullptr;
    QPushButton *m_discard = nullptr;
};

#endif
