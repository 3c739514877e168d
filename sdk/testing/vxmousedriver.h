#ifndef VXMOUSEDRIVER_H
#define VXMOUSEDRIVER_H

#include <QPoint>
#include <QWidget>

/**
 * Moves the mouse over a shown widget as a user does: through the window system's interface, so
 * that hovering, the grab of the pressed widget, buttons and modifiers are those of real use.
 * Positions are in the widget's pixels and may be outside of it. The window must be exposed.
 */
class VxMouseDriver
{
public:
    explicit VxMouseDriver(QWidget *widget);

    void press(const QPoint &position, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void moveTo(const QPoint &position, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void release(const QPoint &position, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    void click(const QPoint &position, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void doubleClick(const QPoint &position, Qt::MouseButton button = Qt::LeftButton,
                     Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /** Presses, moves to the end in two steps and releases. Both positions are those of the widget
     *  before the press: the pointer does not follow a widget that moves under it. */
    void drag(const QPoint &from, const QPoint &to, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier);

private:
    void send(const QPoint &position, Qt::MouseButton button, int type,
              Qt::KeyboardModifiers modifiers, int pause);

    QWidget *m_widget;
    Qt::MouseButtons m_held;
};

#endif
