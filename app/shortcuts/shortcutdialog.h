#ifndef SHORTCUTDIALOG_H
#define SHORTCUTDIALOG_H

#include "shortcuts/shortcutlist.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;
class ShortcutField;
class ShortcutModel;
class ShortcutSearch;

/// Lets the user find a command and give it another shortcut.
///
/// All changes are made to the list in the dialog; who opened it takes them from list() when it was
/// accepted. A key that another command has is not taken silently: the dialog says whose it is, and
/// offers to take it over.
class ShortcutDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ShortcutDialog(const ShortcutList &list, QWidget *parent = nullptr);
    ~ShortcutDialog() override;

    const ShortcutList &list() const;
    /// Makes a command the current one, as if it had been clicked.
    void selectCommand(int command);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildSearch();
    QWidget *buildTree();
    QWidget *buildDetails();
    QLayout *buildShortcutLine();
    QLayout *buildConflictLine();
    QWidget *buildButtons();

    int current() const;
    void showCurrent();
    /// What the user wants for the current command: done at once, or explained.
    void propose(const QKeySequence &shortcut);
    void explainConflict(const QKeySequence &shortcut);
    void clearConflict();
    void takeOver();
    void search(const QString &text);
    void beginCapture();

    ShortcutModel *m_model;
    ShortcutSearch *m_search;
    QTreeView *m_tree = nullptr;
    QLabel *m_nothingFound = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_description = nullptr;
    ShortcutField *m_field = nullptr;
    QPushButton *m_clear = nullptr;
    QPushButton *m_reset = nullptr;
    QLabel *m_warning = nullptr; // the sign before the conflict's words
    QLabel *m_conflict = nullptr;
    QPushButton *m_takeOver = nullptr;
    QPushButton *m_resetAll = nullptr;
    QKeySequence m_wanted; // what waits for the user's word; empty for nothing
};

#endif
