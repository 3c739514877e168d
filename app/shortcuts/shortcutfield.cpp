#include "shortcuts/shortcutfield.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

namespace {

bool isModifier(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt ||
           key == Qt::Key_Meta || key == Qt::Key_AltGr || key == Qt::Key_CapsLock ||
           key == Qt::Key_NumLock || key == Qt::Key_ScrollLock;
}

bool belongsToDialogs(int key)
{
    return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Return ||
           key == Qt::Key_Enter || key == Qt::Key_Escape;
}

/// Shift counts only where it does not select the character, as in "!".
bool shiftCounts(const QString &text)
{
    return text.isEmpty() || !text.at(0).isPrint() || text.at(0).isLetterOrNumber() ||
           text.at(0).isSpace();
}

} // namespace

ShortcutField::ShortcutField(QWidget *parent)
    : QLineEdit(parent)
{
    setObjectName(QStringLiteral("ShortcutField"));
    setAccessibleName(tr("Shortcut"));
    setPlaceholderText(tr("Press a key"));
    setReadOnly(true);
}

void ShortcutField::setShortcut(const QKeySequence &shortcut)
{
    setText(shortcut.toString(QKeySequence::NativeText));
}

QKeySequence ShortcutField::shortcutOf(const QKeyEvent &press)
{
    const int key = press.key();
    if (key == 0 || key == Qt::Key_unknown || isModifier(key))
        return {};
    Qt::KeyboardModifiers modifiers =
        press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (press.modifiers().testFlag(Qt::ShiftModifier) && shiftCounts(press.text()))
        modifiers |= Qt::ShiftModifier;
    return QKeySequence(key | int(modifiers));
}

/** Handles the key before any shortcut of the dialog. */
bool ShortcutField::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->setAccepted(!belongsToDialogs(static_cast<const QKeyEvent *>(event)->key()));
        return true;
    }
    return QLineEdit::event(event);
}

void ShortcutField::keyPressEvent(QKeyEvent *event)
{
    if (!isEnabled() || belongsToDialogs(event->key())) {
        event->ignore();
        return;
    }
    const QKeySequence shortcut = shortcutOf(*event);
    if (!shortcut.isEmpty())
        Q_EMIT captured(shortcut);
    event->accept();
}

/** The menu of a text field does not apply here. */
void ShortcutField::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
}
