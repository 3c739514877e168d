#ifndef SHORTCUTFIELD_H
#define SHORTCUTFIELD_H

#include <QKeySequence>
#include <QLineEdit>

/// A field that shows a shortcut and captures the next key press as a new one.
///
/// One key with its modifiers, no sequences: commands used while animating need keys that act at
/// once. Tab, Enter and Escape keep their functions in the dialog.
class ShortcutField : public QLineEdit
{
    Q_OBJECT
public:
    explicit ShortcutField(QWidget *parent = nullptr);

    void setShortcut(const QKeySequence &shortcut);
    /// The shortcut of a key press; empty if it cannot be one.
    static QKeySequence shortcutOf(const QKeyEvent &press);

Q_SIGNALS:
    void captured(const QKeySequence &shortcut);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};

#endif
