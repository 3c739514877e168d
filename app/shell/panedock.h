#ifndef PANEDOCK_H
#define PANEDOCK_H

#include <QDockWidget>

class VxPane;

/// The frame of one pane in the main window: its title, the button of its options menu when it has
/// one, and buttons to float and to close it. It owns the pane, and goes when the pane goes.
class PaneDock : public QDockWidget
{
    Q_OBJECT
public:
    PaneDock(VxPane *pane, QWidget *parent);

    /// Null while the pane is being destroyed.
    VxPane *pane() const;
    /// The class name of the pane, which also names the dock: "Dock" and that name.
    QString paneClassName() const { return m_paneClassName; }

private:
    QWidget *makeTitleBar();
    void showOptionsMenu(const QWidget *button);

    QString m_paneClassName;
};

#endif
