#include "panedocks.h"

#include "panedock.h"

#include <QMainWindow>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>

namespace {

/// Where a pane stands at first and how wide (at a side) or high (at the bottom), in pixels.
struct Place
{
    const char *paneClass;
    Qt::DockWidgetArea area;
    int extent;
};

constexpr Place Places[] = {
    {"VxScenePane", Qt::LeftDockWidgetArea, 220},
    {"VxParametersPane", Qt::RightDockWidgetArea, 260},
    {"VxTimePane", Qt::BottomDockWidgetArea, 330},
};
constexpr Place OtherPlace = {"", Qt::RightDockWidgetArea, 260};

const Place &placeOf(const PaneDock *dock)
{
    for (const Place &place : Places) {
        if (dock->paneClassName() == QLatin1String(place.paneClass))
            return place;
    }
    return OtherPlace;
}

} // namespace

PaneDocks::PaneDocks(QMainWindow *window, VxPaneMgr *panes)
    : QObject(window)
    , m_window(window)
{
    connect(panes, &VxPaneMgr::paneAdded, this, &PaneDocks::addPane);
    connect(panes, &VxPaneMgr::showRequested, this, &PaneDocks::showPane);
}

QVector<PaneDock *> PaneDocks::docks() const
{
    QVector<PaneDock *> list;
    for (PaneDock *dock :
         m_window->findChildren<PaneDock *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (dock->pane())
            list.append(dock);
    }
    return list;
}

PaneDock *PaneDocks::find(const QString &paneClassName) const
{
    for (PaneDock *dock : docks()) {
        if (dock->paneClassName() == paneClassName)
            return dock;
    }
    return nullptr;
}

void PaneDocks::applyDefaultLayout()
{
    for (PaneDock *dock : docks()) {
        const Place &place = placeOf(dock);
        m_window->addDockWidget(place.area, dock);
        dock->setFloating(false);
        dock->show();
        m_window->resizeDocks({dock}, {place.extent},
                              place.area == Qt::BottomDockWidgetArea ? Qt::Vertical
                                                                     : Qt::Horizontal);
    }
}

void PaneDocks::addPane(VxPane *pane)
{
    auto *dock = new PaneDock(pane, m_window);
    // A pane that comes late goes where it stood before, when the window remembers it.
    if (!m_window->restoreDockWidget(dock))
        m_window->addDockWidget(placeOf(dock).area, dock);
    Q_EMIT dockAdded(dock);
}

void PaneDocks::showPane(VxPane *pane)
{
    for (PaneDock *dock : docks()) {
        if (dock->pane() != pane)
            continue;
        dock->show();
        dock->raise();
        pane->setFocus(Qt::OtherFocusReason);
    }
}
