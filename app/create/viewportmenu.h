#ifndef VIEWPORTMENU_H
#define VIEWPORTMENU_H

#include <QObject>
#include <QPoint>

class QMenu;
class ViewportWidget;
class VxScene;

/// The viewport's context menu: commands for the node at the mouse, which is selected, and the
/// Create commands.
class ViewportMenu : public QObject
{
    Q_OBJECT
public:
    /// The viewport owns the object. The scene is borrowed.
    ViewportMenu(VxScene *scene, ViewportWidget *viewport);

    /// A new menu for a pixel of the viewport; the caller's.
    QMenu *makeMenu(const QPoint &pixel);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void selectAt(const QPoint &pixel);
    void addBoneTo(const QPoint &pixel);

    VxScene *const m_scene;
    ViewportWidget *const m_viewport;
};

#endif
