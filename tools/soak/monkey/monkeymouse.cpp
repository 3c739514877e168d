#include "monkeymouse.h"

#include <QCoreApplication>
#include <QWheelEvent>

// Exported by QtGui for its test library: the only entrance that carries modifiers and buttons on
// moves as well.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow *window, const QPointF &local, const QPointF &global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers modifiers,
                                      int timestamp);

namespace {

constexpr int WithinDoubleClick = 10;   // milliseconds
constexpr int BeyondDoubleClick = 2000; // milliseconds

} // namespace

/** A window notices hovering only after the platform has reported that the mouse entered it. */
QWindow *MonkeyMouse::enter(QWidget *top)
{
    QWindow *window = top->windowHandle();
    if (!window || m_window == window)
        return window;
    m_window = window;
    const QPoint local = top->mapFromGlobal(m_position);
    QEnterEvent event(local, local, m_position);
    QCoreApplication::sendEvent(window, &event);
    return m_window;
}

void MonkeyMouse::send(QWindow *window, Qt::MouseButton button, int type,
                       Qt::KeyboardModifiers modifiers, int pause)
{
    m_now += pause;
    if (window && window->isExposed())
        qt_handleMouseEvent(window, window->mapFromGlobal(m_position), m_position, m_buttons,
                            button, QEvent::Type(type), modifiers, m_now);
}

void MonkeyMouse::moveTo(QWidget *top, const QPoint &global, Qt::KeyboardModifiers modifiers)
{
    m_position = global;
    QWindow *window = isPressed() && m_window ? m_window.data() : enter(top);
    send(window, Qt::NoButton, QEvent::MouseMove, modifiers, WithinDoubleClick);
}

void MonkeyMouse::press(QWidget *top, const QPoint &global, Qt::MouseButton button,
                        Qt::KeyboardModifiers modifiers)
{
    moveTo(top, global, modifiers);
    m_buttons |= button;
    m_last = button;
    send(m_window, button, QEvent::MouseButtonPress, modifiers, BeyondDoubleClick);
}

void MonkeyMouse::pressAgain(QWidget *top, Qt::KeyboardModifiers modifiers)
{
    QWindow *window = enter(top);
    m_buttons |= m_last;
    send(window, m_last, QEvent::MouseButtonPress, modifiers, WithinDoubleClick);
}

void MonkeyMouse::release(QWidget *fallback, Qt::KeyboardModifiers modifiers)
{
    const Qt::MouseButtons held = m_buttons;
    m_buttons = Qt::NoButton;
    QWindow *window = m_window ? m_window.data() : fallback->windowHandle();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        if (held & button)
            send(window, button, QEvent::MouseButtonRelease, modifiers, WithinDoubleClick);
    }
}

void MonkeyMouse::wheel(QWidget *top, const QPoint &global, int eighths, bool isHorizontal,
                        Qt::KeyboardModifiers modifiers)
{
    m_position = global;
    QWindow *window = enter(top);
    if (!window)
        return;
    const QPoint angle = isHorizontal ? QPoint(eighths, 0) : QPoint(0, eighths);
    QWheelEvent event(window->mapFromGlobal(global), global, QPoint(), angle, m_buttons, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window, &event);
}
