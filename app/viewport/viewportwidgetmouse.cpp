// Mouse gestures in the viewport.

#include "viewport/viewportwidget.h"

#include "viewport/figurelines.h"
#include "viewport/figurepick.h"

#include <QMouseEvent>
#include <cmath>
#include <vxcore/vxscene.h>
#include <vxcore/vxviewportmgr.h>

namespace {

constexpr double WheelFactor = 1.15; // per notch
constexpr double DragZoomPerPixel = 1.01;
constexpr int DragDistance = 4; // tolerance for the jitter of a click

} // namespace

VxNode *ViewportWidget::nodeAt(const QPoint &pixel) const
{
    return pickFigure(FigureLines::collect(*m_scene, m_scene->getTime()), m_camera, pixel);
}

void ViewportWidget::mousePressEvent(QMouseEvent *event)
{
    if (m_dragButton != Qt::NoButton)
        return;
    const int operation = operationOf(event);
    if (operation == VxViewportMgr::Frame) {
        frameAll();
        return;
    }
    m_isClick = operation == VxViewportMgr::NoOperation && event->button() == Qt::LeftButton;
    if (operation == VxViewportMgr::NoOperation && !m_isClick)
        return;
    m_dragButton = event->button();
    m_dragOperation = m_isClick ? VxViewportMgr::Orbit : operation;
    m_pressModifiers = event->modifiers();
    m_dragAt = event->pos();
}

void ViewportWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragButton == Qt::NoButton) {
        setHovered(event->buttons() == Qt::NoButton ? nodeAt(event->pos()) : nullptr);
        return;
    }
    if (m_isClick && (event->pos() - m_dragAt).manhattanLength() < DragDistance)
        return;
    m_isClick = false;
    setHovered(nullptr);
    dragCamera(event->pos());
}

void ViewportWidget::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != m_dragButton)
        return;
    m_dragButton = Qt::NoButton;
    if (m_isClick)
        selectAt(m_dragAt, m_pressModifiers);
    m_isClick = false;
}

void ViewportWidget::leaveEvent(QEvent *event)
{
    setHovered(nullptr);
    QWidget::leaveEvent(event);
}

void ViewportWidget::wheelEvent(QWheelEvent *event)
{
    ViewportCamera camera = m_camera;
    camera.zoom(std::pow(WheelFactor, event->angleDelta().y() / 120.0), event->position());
    setCamera(camera);
    event->accept();
}

int ViewportWidget::operationOf(const QMouseEvent *event) const
{
    return m_conventions->getOperation(
        m_conventions->getMouseBtnAccelerator(event->button(), event->modifiers()));
}

void ViewportWidget::dragCamera(const QPoint &to)
{
    const QPoint moved = to - m_dragAt;
    m_dragAt = to;
    ViewportCamera camera = m_camera;
    if (m_dragOperation == VxViewportMgr::Pan)
        camera.pan(moved);
    else if (m_dragOperation == VxViewportMgr::Zoom)
        camera.zoom(std::pow(DragZoomPerPixel, -moved.y()));
    else
        camera.orbit(moved);
    setCamera(camera);
}

/** Ctrl toggles a node, Shift adds it, without either it becomes the only selected one. */
void ViewportWidget::selectAt(const QPoint &pixel, Qt::KeyboardModifiers modifiers)
{
    VxNode *node = nodeAt(pixel);
    const bool adds = modifiers & (Qt::ControlModifier | Qt::ShiftModifier);
    if (!adds && !(node && node->isSelected() && m_scene->getNumSelectedNodes() == 1))
        m_scene->selectAllNodes(false);
    if (node)
        node->select(!(modifiers & Qt::ControlModifier) || !node->isSelected());
    // Shows the effect of the click unobscured; the next move highlights again.
    setHovered(nullptr);
}

void ViewportWidget::setHovered(VxNode *node)
{
    if (node == m_hovered)
        return;
    m_hovered = node;
    update();
}
