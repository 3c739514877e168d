#ifndef VIEWPORTWIDGET_H
#define VIEWPORTWIDGET_H

#include "viewportcamera.h"

#include <QPixmap>
#include <QPoint>
#include <QWidget>

class VxScene;
class VxViewportMgr;
struct FigureLines;

/// The view of the scene at the current time: figures as lines and joints over a ground grid.
///
/// The mouse does what the viewport conventions say; without an operation of its own the left
/// button orbits, and the wheel zooms. The grid depends on the camera only and is kept as a
/// picture, so that playback paints the figures alone.
class ViewportWidget : public QWidget
{
    Q_OBJECT
public:
    /// Both are borrowed and must outlive the widget.
    ViewportWidget(VxScene *scene, const VxViewportMgr *conventions, QWidget *parent = nullptr);

    const ViewportCamera &camera() const { return m_camera; }
    void setCamera(const ViewportCamera &camera);

    QSize sizeHint() const override;

public Q_SLOTS:
    /// Shows everything that moves within the play range; the world's origin in an empty scene.
    void frameAll();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    int operationOf(const QMouseEvent *event) const;
    void updateGround();
    void paintFigures(QPainter *painter, const FigureLines &figure) const;
    void paintPass(QPainter *painter, const FigureLines &figure, bool selected, const QColor &ink,
                   double extraWidth) const;
    void paintHint(QPainter *painter) const;

    VxScene *const m_scene;
    const VxViewportMgr *const m_conventions;
    ViewportCamera m_camera;
    QPixmap m_ground; // null when it has to be painted anew
    Qt::MouseButton m_dragButton = Qt::NoButton;
    int m_dragOperation = 0;
    QPoint m_dragAt;
};

#endif
