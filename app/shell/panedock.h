#ifndef PANEDOCK_H
#define PANEDOCK_H

#include <QDockWidget>

class VxPane;

/// The frame of one pane in the main window: its title, a search field and the button of its
/// options menu if it has them, and buttons to float and to close it. It owns the pane, and is
/// deleted when the pane is deleted.
///
/// A pane may limit its height temporarily (a view with controls only). The dock shrinks to the
/// limit automatically; when the limit is lifted it requests its former height.
class PaneDock : public QDockWidget
{
    Q_OBJECT
public:
    PaneDock(VxPane *pane, QWidget *parent);

    /// Null while the pane is being destroyed.
    VxPane *pane() const;
    /// The class name of the pane, which also names the dock: "Dock" and that name.
    QString paneClassName() const { return m_paneClassName; }
    /// True for a pane of a fixed height.
    bool isStrip() const;

Q_SIGNALS:
    /// The pane no longer limits its height. height: that of the dock before the limit, in pixels;
    /// 0 when unknown.
    void heightLimitLifted(int height);

protected:
    bool event(QEvent *event) override;

private:
    QWidget *makeTitleBar(VxPane *pane);
    void showOptionsMenu(const QWidget *button);
    bool isHeightLimited() const;

    QString m_paneClassName;
    int m_freeHeight = 0; // while the height was not limited; 0 before the dock was shown
    bool m_wasHeightLimited = false;
};

#endif
