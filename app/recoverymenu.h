#ifndef RECOVERYMENU_H
#define RECOVERYMENU_H

#include <QMenu>

class AutoSave;
class QActionGroup;

/// The sub-menu about recovery copies: how often they are made, and the way to those that were
/// left behind.
class RecoveryMenu : public QMenu
{
    Q_OBJECT
public:
    /// The choice is shown and changed in autoSave, which is borrowed and must outlive the menu.
    RecoveryMenu(const QString &title, AutoSave *autoSave, QWidget *parent);

Q_SIGNALS:
    void recoverRequested();

private:
    void fill();
    void addChoice(int minutes);

    AutoSave *const m_autoSave;
    QActionGroup *m_group = nullptr;
};

#endif
