#ifndef SHORTCUTEDITOR_H
#define SHORTCUTEDITOR_H

#include "shortcuts/shortcutlist.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTreeView;
class ShortcutField;
class ShortcutModel;
class ShortcutSearch;

/// Finds a command and changes its shortcut.
///
/// All changes are made to the editor's list, which the caller applies. A key in use by another
/// command is not reassigned silently: the editor names that command, and offers the reassignment.
class ShortcutEditor : public QWidget
{
    Q_OBJECT
public:
    explicit ShortcutEditor(const ShortcutList &list, QWidget *parent = nullptr);

    const ShortcutList &list() const;
    /// The present shortcuts were applied: changes count from here.
    void markApplied();
    /// Makes a command the current one, as if clicked.
    void selectCommand(int command);

Q_SIGNALS:
    /// A shortcut was changed in the list.
    void edited();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildSearch();
    QWidget *buildTree();
    QWidget *buildDetails();
    QLayout *buildShortcutLine();
    QLayout *buildConflictLine();

    int current() const;
    void showCurrent();
    /// The user's shortcut for the current command: assigned at once, or explained.
    void propose(const QKeySequence &shortcut);
    void explainConflict(const QKeySequence &shortcut);
    void clearConflict();
    void reassign();
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
    QLabel *m_warning = nullptr; // the icon before the conflict's text
    QLabel *m_conflict = nullptr;
    QPushButton *m_reassign = nullptr;
    QPushButton *m_resetAll = nullptr;
    QKeySequence m_pending; // awaits the user's confirmation; empty for none
};

#endif
