#ifndef RECOVERYMENU_H
#define RECOVERYMENU_H

#include <QMenu>

class AutoSave;
class QActionGroup;

/// The sub-menu for recovery copies: their interval, and the command to recover leftover ones.
class RecoveryMenu : public QMenu
{
    Q_OBJECT
public:
    /// The interval is shown and changed in autoSave; recover is the last entry. Both are borrowed
    /// and must outlive the menu.
    RecoveryMenu(const QString &title, AutoSave *autoSave, QAction *recover, QWidget *parent);

private:
    void fill();
    void addChoice(int minutes);

    AutoSave *const m_autoSave;
    QAction *const m_recover;
    QActionGroup *m_group = nullptr;
};

#endif
