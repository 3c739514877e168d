#include "vxtimeline/widgets/vxfiltermenu.h"

#include <QtGui/QMouseEvent>

VxFilterMenu::VxFilterMenu(QWidget *parent)
    : QMenu(parent)
{
}

void VxFilterMenu::notifyFilterChanged()
{
    if (!m_ticking)
        Q_EMIT filterChanged();
}

void VxFilterMenu::mouseReleaseEvent(QMouseEvent *event)
{
    QAction *action = actionAt(event->pos());
    if (action && action->isEnabled())
        tick(action, event);
    else
        QMenu::mouseReleaseEvent(event);
}

// A menu neither triggers nor closes for a release over a disabled entry, so the entry is disabled
// while the menu handles the event.
void VxFilterMenu::tick(QAction *action, QMouseEvent *event)
{
    const bool wasBlocked = action->blockSignals(true);
    action->setEnabled(false);
    QMenu::mouseReleaseEvent(event);
    action->setEnabled(true);
    action->blockSignals(wasBlocked);

    m_ticking = true;
    action->trigger();
    m_ticking = false;
    Q_EMIT filterChanged();
}
