#include "markers/vxmarkerspane.h"

#include "markers/markerstrip.h"

#include <QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

VxMarkersPane::VxMarkersPane()
    : VxPane(tr("Markers"))
{
    const VxMainWindow *window = vxApp->getInterface();
    auto *strip = new MarkerStrip(vxScene, window ? window->getPaneMgr() : nullptr, this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(strip);
    setFixedHeight(strip->sizeHint().height());
    setFocusProxy(strip);
}
