#include "action/keyrepeatfilter.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <algorithm>

namespace {

/// Maximum delay of a repeat, in milliseconds: more than the usual interval of repeats.
constexpr qint64 patience = 60;

} // namespace

KeyRepeatFilter::KeyRepeatFilter(QObject *parent)
    : QObject(parent)
{
    m_clock.start();
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(this);
}

// A key is first sent to the focused widget; if ignored, it becomes a shortcut event, which has no
// repeat flag.
bool KeyRepeatFilter::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride)
        look(static_cast<const QKeyEvent *>(event));
    else if (event->type() == QEvent::Shortcut && m_isLate)
        return true;
    return QObject::eventFilter(object, event);
}

// One key event passes here several times, for the window and for each widget.
void KeyRepeatFilter::look(const QKeyEvent *event)
{
    const qint64 offset = m_clock.elapsed() - static_cast<qint64>(event->timestamp());
    m_offset = event->isAutoRepeat() ? std::min(m_offset, offset) : offset;
    m_isLate = event->isAutoRepeat() && offset - m_offset > patience;
}
