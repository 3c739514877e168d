#ifndef SHORTCUTFIELD_H
#define SHORTCUTFIELD_H

#include <QKeySequence>
#include <QLineEdit>

/// A field that shows a shortcut and takes the next key pressed in it for a new one.
///
/// One key with its modifiers, nothing longer: commands that are used while animating need keys
/// that are hit at once. Tab, Enter and Escape keep their meaning in the dialog.
class ShortcutField : public QLineEdit
{
    Q_OBJECT
public:
    explicit ShortcutField(QWidget *parent = nullptr);

    void setShortcut(const QKeySequence &shortcut);
    /// The shortcut that a key press stands for; empty for one that cannot be any.
    static QKeySequence shortcutOf(const QKeyEvent &press);

Q_SIGNALS:
    void captured(const QKeySequence &shortcut);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};

#endif
