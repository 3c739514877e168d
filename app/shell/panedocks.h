#ifndef PANEDOCKS_H
#define PANEDOCKS_H

#include <QObject>
#include <QVector>

class PaneDock;
class QMainWindow;
class VxPane;
class VxPaneMgr;

/// Gives each pane of the pane manager a dock in the main window, at a position by its class, and
/// shows panes on request.
class PaneDocks : public QObject
{
    Q_OBJECT
public:
    PaneDocks(QMainWindow *window, VxPaneMgr *panes);

    /// The docks in order of creation.
    QVector<PaneDock *> docks() const;
    /// Null when no pane of that class is docked.
    PaneDock *find(const QString &paneClassName) const;

    /// Sets every dock's initial position and size. The window must have its size by then.
    void applyDefaultLayout();
    /// Keeps every dock's position, and sets the size of those that are not floating to the initial
    /// size of that position.
    void applyDefaultSizes();

Q_SIGNALS:
    void dockAdded(PaneDock *dock);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addPane(VxPane *pane);
    void showPane(VxPane *pane);
    void restoreHeight(PaneDock *dock, int height);
    int tabHeight(PaneDock *dock) const;
    PaneDock *frontOf(const PaneDock *dock) const;
    void tabifyDocks(const PaneDock *added = nullptr);
    void raiseFronts();

    QMainWindow *const m_window;
};

#endif
