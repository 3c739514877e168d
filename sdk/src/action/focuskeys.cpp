#include "action/focuskeys.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAbstractSlider>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTextEdit>

namespace {

bool movesAlong(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Home || key == Qt::Key_End;
}

bool movesAcross(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

bool moves(int key)
{
    return movesAlong(key) || movesAcross(key);
}

bool writes(int key)
{
    return key < Qt::Key_Escape || key == Qt::Key_Delete || key == Qt::Key_Backspace;
}

bool isText(const QWidget *widget)
{
    const auto *box = qobject_cast<const QComboBox *>(widget);
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QTextEdit *>(widget) ||
           qobject_cast<const QPlainTextEdit *>(widget) ||
           qobject_cast<const QAbstractSpinBox *>(widget) || (box && box->isEditable());
}

bool isReadOnly(const QWidget *widget)
{
    return widget->property("readOnly").toBool();
}

bool inItemView(const QWidget *view, int key)
{
    return movesAcross(key) ||
           (movesAlong(key) && !view->property(FocusKeys::timeAxisProperty).toBool());
}

bool isReasonOfTheKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

/** The focus returns from a menu or another window: it was there before. */
bool isReturn(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
}

bool isLocal(const QAction *action, bool atFocus)
{
    return action->shortcutContext() == Qt::WidgetWithChildrenShortcut ||
           (atFocus && action->shortcutContext() == Qt::WidgetShortcut);
}

} // namespace

bool FocusKeys::areKept(const QWidget *widget, int key, Qt::KeyboardModifiers modifiers,
                        bool tabbedTo)
{
    if (!widget || (modifiers & ~(Qt::ShiftModifier | Qt::KeypadModifier)))
        return false;
    if (isText(widget))
        return moves(key) || (writes(key) && !isReadOnly(widget));
    if (qobject_cast<const QAbstractItemView *>(widget))
        return inItemView(widget, key);
    if (qobject_cast<const QAbstractSlider *>(widget) || qobject_cast<const QMenuBar *>(widget))
        return moves(key);
    if (qobject_cast<const QComboBox *>(widget))
        return moves(key) || (tabbedTo && key == Qt::Key_Space);
    if (qobject_cast<const QTabBar *>(widget))
        return movesAlong(key);
    return tabbedTo && key == Qt::Key_Space && qobject_cast<const QAbstractButton *>(widget);
}

FocusKeyFilter::FocusKeyFilter(QObject *parent)
    : QObject(parent)
{
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(this);
}

bool FocusKeyFilter::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::FocusIn && object->isWidgetType()) {
        const Qt::FocusReason reason = static_cast<const QFocusEvent *>(event)->reason();
        if (!isReturn(reason))
            m_tabbedTo = isReasonOfTheKeyboard(reason);
    } else if (event->type() == QEvent::ShortcutOverride && object == QApplication::focusWidget()) {
        const auto *press = static_cast<const QKeyEvent *>(event);
        if (FocusKeys::areKept(QApplication::focusWidget(), press->key(), press->modifiers(),
                               m_tabbedTo)) {
            event->accept();
            return true;
        }
    } else if (event->type() == QEvent::Shortcut) {
        const auto *shortcut = static_cast<const QShortcutEvent *>(event);
        if (shortcut->isAmbiguous() && runNearest(shortcut->key()))
            return true;
    }
    return QObject::eventFilter(object, event);
}

bool FocusKeyFilter::runNearest(const QKeySequence &shortcut)
{
    QWidget *const focus = QApplication::focusWidget();
    for (const QWidget *widget = focus; widget; widget = widget->parentWidget()) {
        for (QAction *action : widget->actions()) {
            if (action->isEnabled() && isLocal(action, widget == focus) &&
                action->shortcuts().contains(shortcut)) {
                action->trigger();
                return true;
            }
        }
        if (widget->isWindow())
            break;
    }
    return false;
}
