#ifndef MONKEYMOUSE_H
#define MONKEYMOUSE_H

#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <QWindow>

/// The mouse as the window system reports it: a press, moves and a release are sent to the window
/// that was pressed, wherever the mouse is. Positions are global, in pixels.
class MonkeyMouse
{
public:
    bool isPressed() const { return m_buttons != Qt::NoButton; }
    QPoint position() const { return m_position; }

    void moveTo(QWidget *top, const QPoint &global, Qt::KeyboardModifiers modifiers);
    void press(QWidget *top, const QPoint &global, Qt::MouseButton button,
               Qt::KeyboardModifiers modifiers);
    /// A second press shortly after a click at the same place.
    void pressAgain(QWidget *top, Qt::KeyboardModifiers modifiers);
    void release(QWidget *fallback, Qt::KeyboardModifiers modifiers);
    void wheel(QWidget *top, const QPoint &global, int eighths, bool isHorizontal,
               Qt::KeyboardModifiers modifiers);

private:
    QWindow *enter(QWidget *top);
    void send(QWindow *window, Qt::MouseButton button, int type, Qt::KeyboardModifiers modifiers,
              int pause);

    QPointer<QWindow> m_window; // that is pressed, or that the mouse was over last
    Qt::MouseButtons m_buttons;
    Qt::MouseButton m_last = Qt::LeftButton;
    QPoint m_position;
    int m_now = 0; // milliseconds
};

#endif
