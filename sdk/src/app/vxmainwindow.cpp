#include <vxcore/vxmainwindow.h>

#include "app/timelinepalette.h"

#include <QtWidgets/QStatusBar>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxviewportmgr.h>

class VxMainWindow::Private
{
public:
    VxActionMgr *actionMgr;
    VxViewportMgr *viewportMgr;
    VxPaneMgr *paneMgr;
};

VxMainWindow::VxMainWindow(QWidget *parent)
    : QMainWindow(parent)
    , d(new Private{new VxActionMgr(this), new VxViewportMgr(this), new VxPaneMgr(this)})
{
    new TimelinePalette(this);
    connect(d->paneMgr, &VxPaneMgr::panesAdded, d->actionMgr, &VxActionMgr::initActions);
    if (!vxApp)
        return;
    d->paneMgr->setSettings(vxApp->getSettings()->getSettings(QStringLiteral("Panes")));
    vxApp->setInterface(this);
}

VxMainWindow::~VxMainWindow()
{
    // Panes first, while everything they may access still exists.
    d->paneMgr->destroyPanes();
    if (vxApp && vxApp->getInterface() == this)
        vxApp->setInterface(nullptr);
}

VxPaneMgr *VxMainWindow::getPaneMgr() const
{
    return d->paneMgr;
}

VxViewportMgr *VxMainWindow::getViewportMgr() const
{
    return d->viewportMgr;
}

VxActionMgr *VxMainWindow::getActionMgr() const
{
    return d->actionMgr;
}

void VxMainWindow::showStatusMessage(const QString &text, int milliseconds)
{
    statusBar()->showMessage(text, milliseconds);
}

void vxShowStatusMessage(const QString &text)
{
    if (VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr)
        window->showStatusMessage(text);
}

VxPane *vxFindPane(const QString &className)
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    return window ? window->getPaneMgr()->findPane(className) : nullptr;
}
