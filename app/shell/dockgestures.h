#ifndef DOCKGESTURES_H
#define DOCKGESTURES_H

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSet>
#include <QTimer>

class QDockWidget;
class QMainWindow;
class QMouseEvent;
class QRubberBand;
class QTabBar;

/// Drags docks by their titles, and ends a gesture when the program moves, hides or removes docks
/// during it.
///
/// The toolkit's own drags hold layout items and whole layouts from the press to the release. They
/// crash, leak or lose docks when the layout changes in between. So a dragged dock floats and
/// follows the mouse by this class, and the toolkit performs the drag from press to release at
/// once when the dock is dropped, and to show the drop position. Drags of tabs and separators are
/// the toolkit's; they end with the first change. The toolkit also keeps which separator the mouse
/// hovers over, and crashes once that is deleted; so it never sees a hover, and the cursor over a
/// separator is set here.
class DockGestures : public QObject
{
    Q_OBJECT
public:
    /// Watches the window's docks and tab bars, those made later included. The window owns this.
    explicit DockGestures(QMainWindow *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watch(QObject *child);
    bool filterWindow(QEvent *event);
    void showSeparatorCursor(const QPoint &pos);
    bool filterDock(QDockWidget *dock, QEvent *event);
    bool filterTabs(QTabBar *tabs, const QEvent *event);

    bool pressDock(QDockWidget *dock, const QMouseEvent *event);
    void dragDock(const QMouseEvent *event);
    void beginDrag();
    void showPlace();
    void playDrag(QDockWidget *dock, bool drops);
    QPoint gripOf(const QDockWidget *dock) const;
    void dropDock();
    void endDrag();
    void noteChange(const QDockWidget *dock);
    void endToolkitGestures();
    bool isInUse(const QTabBar &tabs) const;

    QMainWindow *const m_window;
    QRubberBand *const m_place; // the drop position of the dock; hidden when it would float
    QTimer m_placeTimer;
    QPointer<QDockWidget> m_dock; // the pressed or dragged one
    QPoint m_press;               // within the dock
    QPoint m_mouse;               // global
    bool m_isDragging = false;
    bool m_mayDock = true;          // not while Ctrl is held
    bool m_isPlaying = false;       // for the toolkit
    bool m_isWindowPressed = false; // on a separator
    QPointer<QTabBar> m_tabs;       // the pressed ones
    QSet<quint64> m_tabIds;         // at the press
};

#endif
