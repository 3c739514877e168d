#ifndef RECOVERYDIALOG_H
#define RECOVERYDIALOG_H

#include "recovery/recoverystore.h"

#include <QDialog>

class QPushButton;
class QTreeWidget;

/// Shows the copies that a run has left behind and asks what becomes of them. It decides nothing
/// itself; later is as good as not asked.
class RecoveryDialog : public QDialog
{
    Q_OBJECT
public:
    RecoveryDialog(const QVector<RecoveryCopy> &copies, QWidget *parent);

    /// Takes a copy off the list; the dialog goes with the last one.
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
