#include "shell/panedocks.h"

#include "shell/dockgestures.h"
#include "shell/panedock.h"

#include <QApplication>
#include <QChildEvent>
#include <QMainWindow>
#include <QTabBar>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>

namespace {

/// A pane's initial area, its width (at a side) or height (at the bottom) in pixels, and the pane
/// whose tab precedes it. A large window gives it a share of its own size instead.
struct Place
{
    const char *paneClass;
    Qt::DockWidgetArea area;
    int extent;
    const char *behind; // null for a separate area
};

// Enough for ten rows of the dope sheet above the curves of the key graph.
constexpr int BottomExtent = 454;
// The bottom's share of a window's height: limits it in large windows and extends it in small ones.
constexpr double LeastBottomShare = 0.45;
constexpr double LargestBottomShare = 0.57;

// A side's width grows with the text beyond this height, in pixels, up to a share of the window.
constexpr int CommonTextHeight = 19;
constexpr double LargestSideShare = 0.25;

constexpr Place Places[] = {
    {"VxScenePane", Qt::LeftDockWidgetArea, 220, nullptr},
    {"VxParametersPane", Qt::RightDockWidgetArea, 260, nullptr},
    {"VxHistoryPane", Qt::LeftDockWidgetArea, 220, "VxScenePane"},
    {"VxKeyToolsPane", Qt::RightDockWidgetArea, 260, "VxParametersPane"},
    {"VxKeyTablePane", Qt::BottomDockWidgetArea, BottomExtent, "VxTimePane"},
    {"VxMarkersPane", Qt::BottomDockWidgetArea, 0, nullptr},
    {"VxMarkerListPane", Qt::BottomDockWidgetArea, BottomExtent, "VxTimePane"},
    {"VxTimePane", Qt::BottomDockWidgetArea, BottomExtent, nullptr},
    {"VxConsolePane", Qt::BottomDockWidgetArea, BottomExtent, "VxTimePane"},
};
constexpr Place OtherPlace = {"", Qt::RightDockWidgetArea, 260, nullptr};

const Place &placeOf(const PaneDock *dock)
{
    for (const Place &place : Places) {
        if (dock->paneClassName() == QLatin1String(place.paneClass))
            return place;
    }
    return OtherPlace;
}

bool isAcross(Qt::DockWidgetArea area)
{
    return area == Qt::BottomDockWidgetArea || area == Qt::TopDockWidgetArea;
}

/** The initial width or height of the dock in an area, which need not be its own. */
int firstExtent(const Place &place, Qt::DockWidgetArea area, const QSize &window)
{
    const bool isMoved = isAcross(area) != isAcross(place.area);
    if (!isAcross(area)) {
        const int extent = isMoved ? OtherPlace.extent : place.extent;
        const int forText = extent * QFontMetrics(QApplication::font()).height() / CommonTextHeight;
        return qMax(qMax(extent, window.width() / 8),
                    qMin(forText, int(window.width() * LargestSideShare)));
    }
    return qBound(int(window.height() * LeastBottomShare), isMoved ? BottomExtent : place.extent,
                  int(window.height() * LargestBottomShare));
}

} // namespace

PaneDocks::PaneDocks(QMainWindow *window, VxPaneMgr *panes)
    : QObject(window)
    , m_window(window)
{
    new DockGestures(window);
    window->installEventFilter(this);
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
    // All are removed first: panes of one area must never be side by side, even temporarily,
    // because that would widen the window permanently. Strips are above the others of their area.
    for (PaneDock *dock : docks())
        m_window->removeDockWidget(dock);
    for (const bool strips : {true, false}) {
        for (PaneDock *dock : docks()) {
            if (!frontOf(dock) && dock->isStrip() == strips)
                m_window->addDockWidget(placeOf(dock).area, dock, Qt::Vertical);
        }
    }
    tabifyDocks();
    for (PaneDock *dock : docks()) {
        dock->setFloating(false);
        dock->show();
    }
    raiseFronts();
    applyDefaultSizes();
}

void PaneDocks::applyDefaultSizes()
{
    for (PaneDock *dock : docks()) {
        const Qt::DockWidgetArea area = m_window->dockWidgetArea(dock);
        if (dock->isFloating() || dock->isHidden() || dock->isStrip() ||
            area == Qt::NoDockWidgetArea)
            continue;
        m_window->resizeDocks({dock}, {firstExtent(placeOf(dock), area, m_window->size())},
                              isAcross(area) ? Qt::Vertical : Qt::Horizontal);
    }
}

/** The dock whose tab precedes another one's initially; null for a separate area. */
PaneDock *PaneDocks::frontOf(const PaneDock *dock) const
{
    const char *behind = placeOf(dock).behind;
    return behind ? find(QLatin1String(behind)) : nullptr;
}

/** Puts docks behind their fronts: all, or a new one and those that were there before it. */
void PaneDocks::tabifyDocks(const PaneDock *added)
{
    for (PaneDock *dock : docks()) {
        PaneDock *front = frontOf(dock);
        if (front && (!added || dock == added || front == added))
            m_window->tabifyDockWidget(front, dock);
    }
}

void PaneDocks::raiseFronts()
{
    for (PaneDock *dock : docks()) {
        if (PaneDock *front = frontOf(dock))
            front->raise();
    }
}

void PaneDocks::addPane(VxPane *pane)
{
    auto *dock = new PaneDock(pane, m_window);
    // A pane added later returns to its former position, if the window has saved it.
    if (!m_window->restoreDockWidget(dock))
        m_window->addDockWidget(placeOf(dock).area, dock, Qt::Vertical);
    // Before the window is shown there is no user's arrangement.
    if (!m_window->isVisible())
        tabifyDocks(dock);
    connect(dock, &PaneDock::heightLimitLifted, this,
            [this, dock](int height) { restoreHeight(dock, height); });
    Q_EMIT dockAdded(dock);
}

void PaneDocks::restoreHeight(PaneDock *dock, int height)
{
    const Qt::DockWidgetArea area = m_window->dockWidgetArea(dock);
    if (height <= 0)
        height = firstExtent(placeOf(dock), area, m_window->size()) - tabHeight(dock);
    if (dock->isFloating())
        dock->resize(dock->width(), height);
    else
        m_window->resizeDocks({dock}, {height + tabHeight(dock)}, Qt::Vertical);
}

/** The height of the tab bar that the dock shares with others, pixels. */
int PaneDocks::tabHeight(PaneDock *dock) const
{
    if (m_window->tabifiedDockWidgets(dock).isEmpty())
        return 0;
    for (const QTabBar *tabs :
         m_window->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly)) {
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->tabData(i).toULongLong() == quintptr(dock))
                return tabs->height();
        }
    }
    return 0;
}

/** The window makes the tab bars, whenever docks are put on top of each other. */
bool PaneDocks::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::ChildPolished) {
        if (auto *tabs = qobject_cast<QTabBar *>(static_cast<QChildEvent *>(event)->child()))
            tabs->setAccessibleName(tr("Panes"));
    }
    return QObject::eventFilter(watched, event);
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
