#ifndef DOCKGESTUREGUARD_H
#define DOCKGESTUREGUARD_H

#include <QObject>
#include <QPointer>
#include <QSet>

class QDockWidget;
class QMainWindow;
class QTabBar;

/// Ends a drag of a dock, or of a tab of docks, when the program moves, hides or removes a dock
/// during it. The toolkit keeps using the layout item or the tab that it found at the press, and
/// crashes when that is gone. A dragged dock stays where the program has put it.
class DockGestureGuard : public QObject
{
    Q_OBJECT
public:
    /// Watches the window's tab bars as well, those made later included.
    explicit DockGestureGuard(QMainWindow *window);

    void watch(QDockWidget *dock);

    /// Ends the drag in progress; nothing when there is none. To be called before docks are moved:
    /// afterwards the toolkit may forget where they have gone.
    void endGesture();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool filterDock(QDockWidget *dock, const QEvent *event);
    bool filterTabs(QTabBar *tabs, QEvent *event);
    void noteChange(QDockWidget *dock);
    void endDockDrag(QDockWidget *dock);

    QMainWindow *const m_window;
    QPointer<QDockWidget> m_dock; // that is pressed
    QPointer<QTabBar> m_tabs;     // that are pressed
    QSet<quint64> m_tabIds;       // at the press
    QSet<QDockWidget *> m_moved;  // by the program since the press; compared only
    bool m_isChanged = false;     // since the press
};

#endif
