#include "testing/vxmousedriver.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>
#include <QtTest>

// Exported by QtGui for its test library: the only entrance that carries modifiers and buttons
// on moves as well.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow *window, const QPointF &local, const QPointF &global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers modifiers,
                                      int timestamp);

namespace {

// Shared by all drivers, because the time between presses makes double clicks.
int now = 0;
constexpr int withinDoubleClick = 10;
constexpr int beyondDoubleClick = 2000;

// The window the mouse was moved over last. A window receives the mouse's entry only from the
// platform, and hovering works only in a window that was entered.
QPointer<QWindow> &windowUnderMouse()
{
    static QPointer<QWindow> window;
    return window;
}

} // namespace

VxMouseDriver::VxMouseDriver(QWidget *widget)
    : m_widget(widget)
{
}

void VxMouseDriver::send(const QPoint &position, Qt::MouseButton button, int type,
                         Qt::KeyboardModifiers modifiers, int pause)
{
    QWidget *top = m_widget->window();
    QVERIFY2(top->windowHandle() && top->windowHandle()->isExposed(),
             "the widget's window is not exposed");
    now += pause;
    qt_handleMouseEvent(top->windowHandle(), m_widget->mapTo(top, position),
                        m_widget->mapToGlobal(position), m_held, button, QEvent::Type(type),
                        modifiers, now);
    QCoreApplication::processEvents();
}

void VxMouseDriver::press(const QPoint &position, Qt::MouseButton button,
                          Qt::KeyboardModifiers modifiers)
{
    moveTo(position, modifiers);
    m_held |= button;
    send(position, button, QEvent::MouseButtonPress, modifiers, beyondDoubleClick);
}

void VxMouseDriver::moveTo(const QPoint &position, Qt::KeyboardModifiers modifiers)
{
    QWindow *window = m_widget->window()->windowHandle();
    if (m_held == Qt::NoButton && windowUnderMouse() != window) {
        windowUnderMouse() = window;
        const QPoint local = m_widget->mapTo(m_widget->window(), position);
        QEnterEvent enter(local, local, m_widget->mapToGlobal(position));
        QCoreApplication::sendEvent(window, &enter);
    }
    send(position, Qt::NoButton, QEvent::MouseMove, modifiers, withinDoubleClick);
}

void VxMouseDriver::release(const QPoint &position, Qt::MouseButton button,
                            Qt::KeyboardModifiers modifiers)
{
    m_held &= ~Qt::MouseButtons(button);
    send(position, button, QEvent::MouseButtonRelease, modifiers, withinDoubleClick);
}

void VxMouseDriver::click(const QPoint &position, Qt::MouseButton button,
                          Qt::KeyboardModifiers modifiers)
{
    press(position, button, modifiers);
    release(position, button, modifiers);
}

void VxMouseDriver::doubleClick(const QPoint &position, Qt::MouseButton button,
                                Qt::KeyboardModifiers modifiers)
{
    click(position, button, modifiers);
    m_held |= button;
    send(position, button, QEvent::MouseButtonPress, modifiers, withinDoubleClick);
    release(position, button, modifiers);
}

void VxMouseDriver::drag(const QPoint &from, const QPoint &to, Qt::MouseButton button,
                         Qt::KeyboardModifiers modifiers)
{
    QWidget *top = m_widget->window();
    const QPoint start = m_widget->mapTo(top, from);
    const QPoint end = m_widget->mapTo(top, to);
    VxMouseDriver mouse(top);
    mouse.press(start, button, modifiers);
    mouse.moveTo((start + end) / 2, modifiers);
    mouse.moveTo(end, modifiers);
    mouse.release(end, button, modifiers);
}
