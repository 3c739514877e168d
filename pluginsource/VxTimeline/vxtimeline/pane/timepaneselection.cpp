// Synchronises the dope sheet's rows with the scene's selection: once per event loop iteration.

#include <QtCore/QCoreApplication>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/timepaneevents.h"
#include "vxtimeline/pane/vxtimepane_p.h"

bool VxTimePane::Private::canPostEvents(const VxTimePane *pane) const
{
    return refreshBlockCount.loadRelaxed() < 1 && pane->isVisible() && vxApp && !vxApp->isClosing();
}

// The ruler marks the keys of the primary selection, or all keys without one.
void VxTimePane::Private::followKeySource() const
{
    VxDopeSheetItem *source = nullptr;
    if (dopeSheetModel) {
        source = dopeSheetModel->findItem(vxScene->getPrimarySelection());
        if (!source)
            source = dopeSheetModel->getRootItem();
    }
    header->setKeySource(source);
}

void VxTimePane::handlePrimarySelectionChanged()
{
    d->followKeySource();
    if (d->dopeSheetView && d->dopeSheetView->isChangingSelection())
        return;
    d->selectionRefreshPending = true;
    if (d->selectionEventPosted || !d->canPostEvents(this))
        return;
    d->selectionEventPosted = true;
    QCoreApplication::postEvent(this, new VxTimelineScenePrimarySelectionChangeEvent);
}

void VxTimePane::syncDopesheetSelection()
{
    d->selectionEventPosted = false;
    d->selectionRefreshPending = false;
    d->dopeSheetView->showSceneSelection();
    d->dopeSheetView->doUpdate();
    requestEnsureVisible();
}

void VxTimePane::requestEnsureVisible()
{
    d->ensureVisiblePending = true;
    if (d->ensureVisiblePosted || !d->canPostEvents(this))
        return;
    d->ensureVisiblePosted = true;
    QCoreApplication::postEvent(this, new VxTimelineDopesheetEnsureItemVisibleEvent);
}

void VxTimePane::ensurePrimarySceneNodeVisible()
{
    d->ensureVisiblePosted = false;
    if (!vxApp || vxApp->isClosing())
        return;
    VxNode *node = vxScene->getPrimarySelection();
    if (!node)
        return;
    d->ensureVisiblePending = false;
    d->dopeSheetView->ensureNodeVisible(node);
}

void VxTimePane::blockRefresh()
{
    d->refreshBlockCount.ref();
}

void VxTimePane::unblockRefresh()
{
    if (!d->refreshBlockCount.deref() && d->selectionRefreshPending)
        handlePrimarySelectionChanged();
}
