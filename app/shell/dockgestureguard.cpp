#include "shell/dockgestureguard.h"

#include <QChildEvent>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDockWidget>
#include <QLayout>
#include <QMainWindow>
#include <QMouseEvent>
#include <QTabBar>
#include <QTimer>

namespace {

/// What tells the tabs of docks apart, in whatever order they are.
QSet<quint64> idsOf(const QTabBar &tabs)
{
    QSet<quint64> ids;
    for (int i = 0; i < tabs.count(); ++i)
        ids.insert(tabs.tabData(i).toULongLong());
    return ids;
}

} // namespace

DockGestureGuard::DockGestureGuard(QMainWindow *window)
    : QObject(window)
    , m_window(window)
{
    window->installEventFilter(this);
}

void DockGestureGuard::watch(QDockWidget *dock)
{
    dock->installEventFilter(this);
    connect(dock, &QDockWidget::dockLocationChanged, this, [this, dock](Qt::DockWidgetArea area) {
        if (area != Qt::NoDockWidgetArea) // which a drag itself reports when it begins
            noteChange(dock);
    });
}

bool DockGestureGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window) {
        if (event->type() == QEvent::ChildPolished) {
            if (auto *tabs = qobject_cast<QTabBar *>(static_cast<QChildEvent *>(event)->child()))
                tabs->installEventFilter(this);
        }
        return false;
    }
    if (auto *dock = qobject_cast<QDockWidget *>(watched))
        return filterDock(dock, event);
    auto *tabs = qobject_cast<QTabBar *>(watched);
    return tabs && filterTabs(tabs, event);
}

bool DockGestureGuard::filterDock(QDockWidget *dock, const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_dock = dock;
        m_isChanged = false;
        m_moved.clear();
        return false;
    case QEvent::MouseMove:
        if (dock != m_dock || (!m_isChanged && !dock->isHidden()))
            return false;
        endGesture();
        return true;
    case QEvent::MouseButtonRelease:
        if (dock == m_dock && (m_isChanged || dock->isHidden()))
            endGesture();
        m_dock.clear(); // the drop that follows moves the dock by the user's will
        return false;
    case QEvent::Hide:
        // A drag that begins hides the dock for a moment, too.
        if (dock == m_dock)
            QTimer::singleShot(0, this, [this, dock] {
                if (dock == m_dock && dock->isHidden())
                    endGesture();
            });
        return false;
    default:
        return false;
    }
}

bool DockGestureGuard::filterTabs(QTabBar *tabs, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_tabs = tabs;
        m_tabIds = idsOf(*tabs);
        m_isChanged = false;
        return false;
    case QEvent::MouseMove:
        if (tabs != m_tabs || (!m_isChanged && idsOf(*tabs) == m_tabIds))
            return false;
        endGesture();
        return true;
    case QEvent::MouseButtonRelease:
        m_tabs.clear();
        return false;
    default:
        return false;
    }
}

/** The layout is in the middle of the change: the gesture ends with the next event. */
void DockGestureGuard::noteChange(QDockWidget *dock)
{
    if (!m_dock && !m_tabs)
        return;
    m_moved.insert(dock);
    if (m_isChanged)
        return;
    m_isChanged = true;
    QTimer::singleShot(0, this, [this] {
        if (m_isChanged)
            endGesture();
    });
}

void DockGestureGuard::endGesture()
{
    m_isChanged = false;
    const QPointer<QDockWidget> dock = m_dock;
    const QPointer<QTabBar> tabs = m_tabs;
    m_dock.clear();
    m_tabs.clear();
    if (dock)
        endDockDrag(dock);
    if (tabs) {
        const QPoint at(-1, -1); // on no tab
        QMouseEvent release(QEvent::MouseButtonRelease, at, tabs->mapToGlobal(at), Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tabs, &release);
    }
}

/** The toolkit goes back to the layout of the press, from which docks moved since are missing: it
 * would lose and leak their layout items. They are taken out before and added again. */
void DockGestureGuard::endDockDrag(QDockWidget *dock)
{
    struct Placement
    {
        QPointer<QDockWidget> dock;
        Qt::DockWidgetArea area;
        bool isFloating;
        bool isHidden;
    };
    QVector<Placement> placements;
    for (QDockWidget *each :
         m_window->findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly))
        placements.append(
            {each, m_window->dockWidgetArea(each), each->isFloating(), each->isHidden()});
    for (const Placement &placement : qAsConst(placements)) {
        if (m_moved.contains(placement.dock))
            m_window->layout()->removeWidget(placement.dock);
    }
    QCloseEvent cancel; // closes nothing: it is how a dock is told to drop its drag
    QCoreApplication::sendEvent(dock, &cancel);
    for (const Placement &placement : qAsConst(placements)) {
        const bool isRemoved =
            placement.area == Qt::NoDockWidgetArea && (placement.isHidden || placement.isFloating);
        if (!placement.dock || isRemoved ||
            m_window->dockWidgetArea(placement.dock) != Qt::NoDockWidgetArea)
            continue;
        const bool isKnown = placement.area != Qt::NoDockWidgetArea;
        m_window->addDockWidget(isKnown ? placement.area : Qt::BottomDockWidgetArea,
                                placement.dock);
        placement.dock->setFloating(placement.isFloating);
        placement.dock->setHidden(placement.isHidden);
    }
}
