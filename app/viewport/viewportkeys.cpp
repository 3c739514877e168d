#include "viewport/viewportkeys.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTextEdit>
#include <vxcore/vxpane.h>

namespace {

bool acceptsText(const QWidget *widget)
{
    const auto *box = qobject_cast<const QComboBox *>(widget);
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QTextEdit *>(widget) ||
           qobject_cast<const QPlainTextEdit *>(widget) ||
           qobject_cast<const QAbstractSpinBox *>(widget) || (box && box->isEditable());
}

bool isAlongTime(const QWidget *widget)
{
    return widget->property("vxTimeAxis").toBool();
}

/** Whether the pane around a widget shows a time axis. */
bool isInTimePane(const QWidget *widget)
{
    while (widget && !qobject_cast<const VxPane *>(widget))
        widget = widget->parentWidget();
    if (!widget)
        return false;
    const QList<QWidget *> below = widget->findChildren<QWidget *>();
    return std::any_of(below.cbegin(), below.cend(), isAlongTime);
}

} // namespace

ViewportKeys::ViewportKeys(QWidget *viewport)
    : QObject(viewport)
    , m_viewport(viewport)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool ViewportKeys::isActive(const QWidget *focus) const
{
    return focus && focus != m_viewport && m_viewport->underMouse() &&
           focus->window() == m_viewport->window() && !QApplication::activePopupWidget() &&
           !QApplication::activeModalWidget() && !acceptsText(focus) && !isInTimePane(focus);
}

QAction *ViewportKeys::actionOf(const QKeyEvent &press) const
{
    const int pressed = press.key() | int(press.modifiers());
    const QKeySequence sequences[] = {QKeySequence(pressed),
                                      QKeySequence(pressed & ~int(Qt::KeypadModifier))};
    for (const QKeySequence &sequence : sequences) {
        for (QAction *action : m_viewport->actions()) {
            if (action->isEnabled() && action->shortcuts().contains(sequence))
                return action;
        }
    }
    return nullptr;
}

bool ViewportKeys::eventFilter(QObject *watched, QEvent *event)
{
    if ((event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) ||
        watched != QApplication::focusWidget())
        return QObject::eventFilter(watched, event);
    QAction *action = isActive(QApplication::focusWidget())
                          ? actionOf(*static_cast<QKeyEvent *>(event))
                          : nullptr;
    if (!action)
        return QObject::eventFilter(watched, event);
    // Accepted, the override makes no shortcut of the window of the key.
    event->accept();
    if (event->type() == QEvent::KeyPress)
        action->trigger();
    return true;
}
