#include "parameters/vxpropertydrag.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace {

QRect screenAround(const QPoint &position)
{
    const QScreen *screen = QGuiApplication::screenAt(position);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect();
}

} // namespace

VxPropertyDrag::VxPropertyDrag(const QVector<VxProperty *> &properties, VxTime time,
                               const QPoint &position)
    : m_pointer(screenAround(position).left(), screenAround(position).right())
    , m_scrub(m_pointer.follow(position.x()))
    , m_edit(properties, time)
{
}

void VxPropertyDrag::moveTo(const QPoint &position, Qt::KeyboardModifiers modifiers)
{
    m_steps = m_scrub.moveTo(m_pointer.follow(position.x()), modifiers);
    m_edit.offsetBy(m_steps);
    int target = 0;
    if (m_pointer.needsJump(&target))
        QCursor::setPos(target, position.y());
}
