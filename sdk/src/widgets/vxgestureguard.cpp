#include <vxcore/vxgestureguard.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QWidget>

VxGestureGuard::VxGestureGuard(QWidget *widget)
    : QObject(widget)
    , m_widget(widget)
{
}

VxGestureGuard::~VxGestureGuard() = default;

void VxGestureGuard::begin()
{
    if (!m_active)
        QCoreApplication::instance()->installEventFilter(this);
    m_active = true;
    m_class = m_widget->metaObject();
}

void VxGestureGuard::end()
{
    if (m_active)
        QCoreApplication::instance()->removeEventFilter(this);
    m_active = false;
}

void VxGestureGuard::cancel()
{
    end();
    // A widget that is being destroyed loses the focus when it is no more than a QWidget.
    if (m_widget->metaObject() == m_class)
        Q_EMIT cancelled();
}

bool VxGestureGuard::isLostBy(const QObject *watched, const QEvent *event) const
{
    const auto *widget = qobject_cast<const QWidget *>(watched);
    if (!widget)
        return false;
    const bool isAbove = widget == m_widget || widget->isAncestorOf(m_widget);
    switch (event->type()) {
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
    case QEvent::EnabledChange:
        return widget == m_widget &&
               (event->type() != QEvent::EnabledChange || !widget->isEnabled());
    case QEvent::WindowBlocked:
    case QEvent::FocusOut:
        return isAbove;
    case QEvent::Show:
        return widget->windowType() == Qt::Popup;
    case QEvent::MouseButtonRelease:
        return !isAbove;
    default:
        return false;
    }
}

bool VxGestureGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress) {
        if (static_cast<const QKeyEvent *>(event)->key() != Qt::Key_Escape)
            return false;
        // An accepted override is sent again as a key press, bypassing the shortcuts.
        event->accept();
        if (event->type() == QEvent::KeyPress)
            cancel();
        return true;
    }
    if (isLostBy(watched, event))
        cancel();
    return false;
}
