#ifndef PANEDOCKS_H
#define PANEDOCKS_H

#include <QObject>
#include <QVector>

class PaneDock;
class QMainWindow;
class VxPane;
class VxPaneMgr;

/// Gives each pane of the pane manager a dock in the main window, at a place by its class, and
/// shows the pane that somebody asks for.
class PaneDocks : public QObject
{
    Q_OBJECT
public:
    PaneDocks(QMainWindow *window, VxPaneMgr *panes);

    /// The docks that there are, in the order of their making.
    QVector<PaneDock *> docks() const;
    /// Null when no pane of that class is docked.
    PaneDock *find(const QString &paneClassName) const;

    /// Gives every dock its place and size. The window must have its size by then.
    void applyDefaultLayout();
    /// Leaves every dock where it is, and gives those that are not floating the size that a dock
    /// has there at first.
    void applyDefaultSizes();

Q_SIGNALS:
    void dockAdded(PaneDock *dock);

private:
    void addPane(VxPane *pane);
    void showPane(VxPane *pane);
    void restoreHeight(PaneDock *dock, int height);
    int tabHeight(PaneDock *dock) const;
    PaneDock *frontOf(const PaneDock *dock) const;
    void tabifyDocks();
    void raiseFronts();

    QMainWindow *const m_window;
};

#endif
