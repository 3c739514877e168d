#include "markers/vxmarkerspane.h"

#include "markers/markerstrip.h"

#include <QVBoxLayout>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

VxMarkersPane::VxMarkersPane()
    : VxPane(tr("Markers"))
    , m_strip(new MarkerStrip(
          vxScene, vxApp->getInterface() ? vxApp->getInterface()->getPaneMgr() : nullptr, this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_strip);
    setFixedHeight(m_strip->sizeHint().height());
    setFocusProxy(m_strip);
}
