#include "vxtimeline/pane/timepanenodeselection.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/timepaneevents.h"
#include "vxtimeline/pane/timepanerows.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QWidget>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>

TimePaneNodeSelection::TimePaneNodeSelection(QWidget *pane, VxDopeSheetView *sheet,
                                             const TimePaneRows &rows)
    : m_pane(pane)
    , m_sheet(sheet)
    , m_rows(rows)
{
}

// Not while the pane is hidden, refreshes are blocked or the application is closing.
bool TimePaneNodeSelection::canPostEvents() const
{
    return m_blockCount.loadRelaxed() < 1 && m_pane->isVisible() && vxApp && !vxApp->isClosing();
}

void TimePaneNodeSelection::update()
{
    m_rows.followKeySource();
    if (m_sheet->isChangingSelection())
        return;
    m_isPending = true;
    if (m_isPosted || !canPostEvents())
        return;
    m_isPosted = true;
    QCoreApplication::postEvent(m_pane, new VxTimelineScenePrimarySelectionChangeEvent);
}

void TimePaneNodeSelection::updateIfPending()
{
    if (m_isPending)
        update();
}

bool TimePaneNodeSelection::handle(const QEvent *event)
{
    if (event->type() == VxTimelineScenePrimarySelectionChangeEvent::eventType())
        synchronise();
    else if (event->type() == VxTimelineDopesheetEnsureItemVisibleEvent::eventType())
        ensureVisible();
    else
        return false;
    return true;
}

void TimePaneNodeSelection::synchronise()
{
    m_isPosted = false;
    m_isPending = false;
    m_sheet->showSceneSelection();
    m_sheet->doUpdate();
    if (m_ensureVisiblePosted || !canPostEvents())
        return;
    m_ensureVisiblePosted = true;
    QCoreApplication::postEvent(m_pane, new VxTimelineDopesheetEnsureItemVisibleEvent);
}

void TimePaneNodeSelection::ensureVisible()
{
    m_ensureVisiblePosted = false;
    if (!vxApp || vxApp->isClosing())
        return;
    if (VxNode *node = vxScene->getPrimarySelection())
        m_sheet->ensureNodeVisible(node);
}

void TimePaneNodeSelection::unblock()
{
    if (!m_blockCount.deref())
        updateIfPending();
}
