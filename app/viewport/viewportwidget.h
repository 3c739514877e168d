#ifndef VIEWPORTWIDGET_H
#define VIEWPORTWIDGET_H

#include "viewport/viewportcamera.h"
#include "viewport/viewporttool.h"

#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <vxcore/vxnode.h>

class VxGestureGuard;
class VxScene;
class VxViewportMgr;

/// The view of the scene at the current time: figures as lines and joints, other nodes as axes,
/// over a ground grid.
///
/// The mouse follows the viewport conventions. Without its own operation there the left button is
/// offered to the layers and the current tool; else it orbits when dragged and selects when
/// clicked. The wheel zooms about the point under the mouse. The grid depends on the camera only
/// and is cached as an image, so that playback paints the figures alone.
class ViewportWidget : public QWidget
{
    Q_OBJECT
public:
    /// Both are borrowed and must outlive the widget.
    ViewportWidget(VxScene *scene, const VxViewportMgr *conventions, QWidget *parent = nullptr);

    /// That of the program's window; null without one.
    static ViewportWidget *current();

    const ViewportCamera &camera() const { return m_camera; }
    /// Becomes the document's camera, too.
    void setCamera(const ViewportCamera &camera);

    /// The node that a click at a pixel would select; null for none.
    VxNode *nodeAt(const QPoint &pixel) const;
    /// The highlighted node under the mouse, or null.
    VxNode *hoveredNode() const { return m_hovered; }

    /// The tool of the left button; null, as initially, to select only. Borrowed; the former one's
    /// unfinished gesture is cancelled.
    void setTool(ViewportTool *tool);
    ViewportTool *tool() const { return m_tool; }
    /// Adds a layer above the figures, painted in this order and asked for presses in reverse,
    /// before the tool. Borrowed; a destroyed one is removed.
    void addLayer(ViewportTool *layer);
    /// The same, painted below the tool and asked after it.
    void addLowerLayer(ViewportTool *layer);

    /// For menus; F frames the selection while the view has the focus.
    QAction *frameSelectionAction() const { return m_frameSelection; }

    QSize sizeHint() const override { return {640, 400}; }

public Q_SLOTS:
    /// Shows the figures in their current pose at two thirds of the view's height; everything in a
    /// scene without bones. Done when a document without a camera was loaded, and when the first
    /// figure appears in an empty view.
    void frameFigure();
    /// Shows all positions within the play range; the world's origin in an empty scene.
    void frameAll();
    /// Shows the selected nodes and everything below them in the current pose; everything when
    /// nothing is selected. A single joint is shown with some of its surroundings.
    void frameSelection();

Q_SIGNALS:
    void toolChanged(ViewportTool *tool);
    /// A text of a tool for the status line.
    void message(const QString &text);
    void cameraChanged();
    /// A click with Alt: on a node, or null beside all of them.
    void isolationRequested(VxNode *node);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    int operationOf(const QMouseEvent *event) const;
    void connectTool(ViewportTool *tool);
    QVector<ViewportTool *> toolsByPriority() const;
    bool pressTool(const QMouseEvent *event);
    void hoverAt(const QMouseEvent *event);
    void clearToolHover();
    void cancelGesture();
    void cancelTools();
    ViewportTool *toolForKey(const QKeyEvent *event) const;
    void dragCamera(const QPoint &to);
    void selectAt(const QPoint &pixel, Qt::KeyboardModifiers modifiers);
    void setHovered(VxNode *node);
    void showCamera(const ViewportCamera &camera);
    void showDocument();
    QVector<QVector3D> scenePoints() const;
    void frameFirstFigure();
    void updateGround();
    void paintViewName(QPainter *painter, float gridStep) const;

    VxScene *const m_scene;
    const VxViewportMgr *const m_conventions;
    QAction *m_frameSelection;
    ViewportCamera m_camera;
    bool m_isNewDocument = false; // cleared since the load began
    bool m_isEmpty = false;       // no nodes when last painted
    QPixmap m_ground;             // null when it must be painted again
    QPointer<VxNode> m_hovered;
    QPointer<ViewportTool> m_tool;
    QVector<QPointer<ViewportTool>> m_layers;
    QVector<QPointer<ViewportTool>> m_lowerLayers;
    VxGestureGuard *const m_gesture;
    QPointer<ViewportTool> m_pressedTool; // from its press to its release
    ViewportCamera m_pressCamera;         // restored when a camera drag is cancelled
    Qt::MouseButton m_dragButton = Qt::NoButton;
    Qt::KeyboardModifiers m_pressModifiers;
    int m_dragOperation = 0;
    bool m_isClick = false; // pressed, and not yet dragged
    QPoint m_dragAt;
};

#endif
