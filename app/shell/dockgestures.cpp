#include "shell/dockgestures.h"

#include <QApplication>
#include <QChildEvent>
#include <QCloseEvent>
#include <QDockWidget>
#include <QLayout>
#include <QMainWindow>
#include <QMouseEvent>
#include <QRubberBand>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTabBar>

namespace {

constexpr int PlaceInterval = 50; // milliseconds between updates of the drop position
constexpr int ResizeMargin = 4;   // pixels at the edges of a floating dock

/// The identities of the docks' tabs, independent of their order.
QSet<quint64> idsOf(const QTabBar &tabs)
{
    QSet<quint64> ids;
    for (int i = 0; i < tabs.count(); ++i)
        ids.insert(tabs.tabData(i).toULongLong());
    return ids;
}

void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &local, const QPoint &global)
{
    const Qt::MouseButtons held =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(Qt::LeftButton);
    QMouseEvent event(type, local, global,
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

/** The area that drags a dock; the edges resize it when it floats. */
QRect titleRect(const QDockWidget *dock)
{
    const QWidget *content = dock->widget();
    QRect title = content ? QRect(0, 0, dock->width(), content->y()) : dock->rect();
    if (dock->titleBarWidget())
        title = dock->titleBarWidget()->geometry();
    const int margin = dock->isFloating() ? ResizeMargin : 0;
    return title.intersected(dock->rect().adjusted(margin, margin, -margin, -margin));
}

} // namespace

DockGestures::DockGestures(QMainWindow *window)
    : QObject(window)
    , m_window(window)
    , m_place(new QRubberBand(QRubberBand::Rectangle, window))
{
    m_place->setObjectName(QStringLiteral("DockPlace"));
    m_placeTimer.setSingleShot(true);
    m_placeTimer.setInterval(PlaceInterval);
    connect(&m_placeTimer, &QTimer::timeout, this, &DockGestures::showPlace);
    window->installEventFilter(this);
    for (QObject *child : window->children())
        watch(child);
}

void DockGestures::watch(QObject *child)
{
    auto *dock = qobject_cast<QDockWidget *>(child);
    if (!dock && !qobject_cast<QTabBar *>(child))
        return;
    child->removeEventFilter(this); // a child that was away for a while
    child->installEventFilter(this);
    if (!dock)
        return;
    dock->disconnect(this);
    connect(dock, &QDockWidget::dockLocationChanged, this, [this, dock] { noteChange(dock); });
    connect(dock, &QDockWidget::topLevelChanged, this, [this, dock] { noteChange(dock); });
}

bool DockGestures::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window)
        return filterWindow(event);
    if (m_isPlaying)
        return false;
    if (auto *dock = qobject_cast<QDockWidget *>(watched))
        return filterDock(dock, event);
    auto *tabs = qobject_cast<QTabBar *>(watched);
    return tabs && filterTabs(tabs, event);
}

bool DockGestures::filterWindow(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ChildPolished:
        watch(static_cast<QChildEvent *>(event)->child());
        break;
    case QEvent::ChildRemoved:
        endToolkitGestures();
        break;
    case QEvent::HoverMove:
        showSeparatorCursor(static_cast<QHoverEvent *>(event)->pos());
        return true;
    case QEvent::HoverLeave:
        m_window->unsetCursor();
        return true;
    case QEvent::MouseButtonPress:
        m_isWindowPressed = m_window->isSeparator(static_cast<QMouseEvent *>(event)->pos());
        break;
    case QEvent::MouseMove:
        return !m_isWindowPressed;
    case QEvent::MouseButtonRelease:
        m_isWindowPressed = false;
        break;
    default:
        break;
    }
    return false;
}

void DockGestures::showSeparatorCursor(const QPoint &pos)
{
    if (m_isWindowPressed)
        return;
    if (!m_window->isSeparator(pos)) {
        m_window->unsetCursor();
        return;
    }
    // A separator is wider than high when it is between docks above and below it.
    const int thickness =
        m_window->style()->pixelMetric(QStyle::PM_DockWidgetSeparatorExtent, nullptr, m_window);
    const QPoint beside(thickness, 0);
    const bool isWide = m_window->isSeparator(pos - beside) || m_window->isSeparator(pos + beside);
    m_window->setCursor(isWide ? Qt::SplitVCursor : Qt::SplitHCursor);
}

bool DockGestures::filterDock(QDockWidget *dock, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return pressDock(dock, static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        if (dock != m_dock)
            return false;
        dragDock(static_cast<QMouseEvent *>(event));
        return true;
    case QEvent::MouseButtonRelease:
        if (dock != m_dock || static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton)
            return false;
        m_mouse = static_cast<QMouseEvent *>(event)->globalPos();
        dropDock();
        return true;
    case QEvent::Hide:
    case QEvent::Close:
        if (dock == m_dock)
            endDrag();
        if (event->type() == QEvent::Hide)
            endToolkitGestures();
        return false;
    default:
        return false;
    }
}

/** True when the press is on the title of a dock that may be dragged. */
bool DockGestures::pressDock(QDockWidget *dock, const QMouseEvent *event)
{
    const auto needed = QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable;
    if (event->button() != Qt::LeftButton || dock->parent() != m_window ||
        !titleRect(dock).contains(event->pos()) || (dock->features() & needed) != needed)
        return false;
    endDrag();
    m_dock = dock;
    m_press = event->pos();
    return true;
}

void DockGestures::dragDock(const QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton)) { // the release was lost
        endDrag();
        return;
    }
    m_mouse = event->globalPos();
    m_mayDock = !(event->modifiers() & Qt::ControlModifier);
    if (!m_isDragging) {
        if ((event->pos() - m_press).manhattanLength() <= QApplication::startDragDistance())
            return;
        beginDrag();
    }
    if (!m_dock)
        return;
    m_dock->move(m_mouse - m_press);
    if (!m_placeTimer.isActive())
        m_placeTimer.start();
}

void DockGestures::beginDrag()
{
    const QPointer<QDockWidget> dock = m_dock;
    const QSize size = dock->size();
    if (!dock->isFloating()) {
        m_dock.clear(); // floating it reports changes, which must not end this drag
        dock->setFloating(true);
        if (!dock || dock->isHidden())
            return;
        dock->resize(size);
        dock->installEventFilter(this); // takes priority over the filter that resizes at the edges
        m_dock = dock;
    }
    m_isDragging = true;
    m_press = gripOf(dock);
    dock->grabMouse();
}

/** The dragged point of the dock: in the title and nearest to the press. */
QPoint DockGestures::gripOf(const QDockWidget *dock) const
{
    const QRect title = titleRect(dock);
    return {qBound(title.left(), m_press.x(), qMax(title.left(), title.right())),
            title.center().y()};
}

/** Shows the drop position of the dock. */
void DockGestures::showPlace()
{
    const QPointer<QDockWidget> dock = m_dock;
    m_place->hide();
    if (!dock || !m_isDragging || !m_mayDock)
        return;
    playDrag(dock, false);
    if (dock && dock == m_dock && m_isDragging)
        dock->grabMouse(); // the toolkit has released it
}

/** Makes the toolkit drag the floating dock to the mouse, and drop it there or cancel. */
void DockGestures::playDrag(QDockWidget *dock, bool drops)
{
    const QScopedValueRollback<bool> playing(m_isPlaying, true);
    const QPointer<QDockWidget> guard = dock;
    const QPoint grip = gripOf(dock);
    const QPoint away(QApplication::startDragDistance() + 1, 0);
    sendMouse(dock, QEvent::MouseButtonPress, grip, m_mouse);
    if (guard)
        sendMouse(dock, QEvent::MouseMove, grip + away, m_mouse);
    const auto *gap = m_window->findChild<QRubberBand *>(QStringLiteral("qt_rubberband"),
                                                         Qt::FindDirectChildrenOnly);
    m_place->setVisible(!drops && gap && !gap->isHidden());
    if (!m_place->isHidden()) {
        m_place->setGeometry(gap->geometry());
        m_place->raise();
    }
    if (!guard)
        return;
    if (drops) {
        sendMouse(dock, QEvent::MouseButtonRelease, grip + away, m_mouse);
    } else {
        QCloseEvent cancel; // closes nothing: it makes a dock drop its drag
        QCoreApplication::sendEvent(dock, &cancel);
    }
}

void DockGestures::dropDock()
{
    QDockWidget *dock = m_dock;
    const bool isDropped = m_isDragging && m_mayDock;
    endDrag();
    if (isDropped)
        playDrag(dock, true);
}

void DockGestures::endDrag()
{
    const QPointer<QDockWidget> dock = m_dock;
    const bool wasDragging = m_isDragging;
    m_dock.clear();
    m_isDragging = false;
    m_placeTimer.stop();
    m_place->hide();
    if (dock && wasDragging)
        dock->releaseMouse();
}

void DockGestures::noteChange(const QDockWidget *dock)
{
    if (m_isPlaying)
        return;
    if (dock == m_dock)
        endDrag();
    endToolkitGestures();
}

/** Ends the drags of tabs and separators. */
void DockGestures::endToolkitGestures()
{
    const QPoint nowhere(-1, -1);
    if (const QPointer<QTabBar> tabs = m_tabs) {
        m_tabs.clear();
        sendMouse(tabs, QEvent::MouseButtonRelease, nowhere, tabs->mapToGlobal(nowhere));
    }
    if (m_isWindowPressed) {
        m_isWindowPressed = false;
        sendMouse(m_window, QEvent::MouseButtonRelease, nowhere, m_window->mapToGlobal(nowhere));
    }
}

/** Whether the layout has a place whose docks these tabs are. */
bool DockGestures::isInUse(const QTabBar &tabs) const
{
    const QSet<quint64> ids = idsOf(tabs);
    int found = 0;
    for (const QDockWidget *dock :
         m_window->findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!ids.contains(quintptr(dock)))
            continue;
        if (dock->isFloating() || dock->isHidden())
            return false;
        for (const QDockWidget *other :
             m_window->tabifiedDockWidgets(const_cast<QDockWidget *>(dock)))
            found += ids.contains(quintptr(other));
    }
    return !ids.isEmpty() && found == ids.size() * (ids.size() - 1);
}

bool DockGestures::filterTabs(QTabBar *tabs, const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        endToolkitGestures(); // a release may have been lost
        m_window->layout()->invalidate();
        m_window->layout()->activate(); // empties tab bars that are out of use
        if (!isInUse(*tabs))
            return true;
        m_tabs = tabs;
        m_tabIds = idsOf(*tabs);
        return false;
    case QEvent::MouseMove:
        if (tabs != m_tabs)
            return false;
        m_window->layout()->activate();
        if (idsOf(*tabs) == m_tabIds && isInUse(*tabs))
            return false;
        endToolkitGestures();
        return true;
    case QEvent::MouseButtonRelease:
        m_tabs.clear();
        return false;
    default:
        return false;
    }
}
