// Mouse and key events in the viewport, and their tools.

#include "viewport/figurelines.h"
#include "viewport/figurepick.h"
#include "viewport/viewportwidget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <cmath>
#include <utility>
#include <vxcore/vxgestureguard.h>
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

void ViewportWidget::setTool(ViewportTool *tool)
{
    if (tool == m_tool)
        return;
    cancelTools();
    clearToolHover();
    if (m_tool && !m_layers.contains(m_tool))
        m_tool->disconnect(this);
    m_tool = tool;
    connectTool(tool);
    update();
    Q_EMIT toolChanged(tool);
}

void ViewportWidget::addLayer(ViewportTool *layer)
{
    m_layers.append(layer);
    connectTool(layer);
    update();
}

void ViewportWidget::addLowerLayer(ViewportTool *layer)
{
    m_lowerLayers.append(layer);
    connectTool(layer);
    update();
}

void ViewportWidget::connectTool(ViewportTool *tool)
{
    if (!tool)
        return;
    connect(tool, &ViewportTool::changed, this, QOverload<>::of(&QWidget::update),
            Qt::UniqueConnection);
    connect(tool, &ViewportTool::message, this, &ViewportWidget::message, Qt::UniqueConnection);
}

/** Layers from the topmost down, the current tool, layers below it; painted in reverse. */
QVector<ViewportTool *> ViewportWidget::toolsByPriority() const
{
    QVector<ViewportTool *> tools;
    for (auto layer = m_layers.rbegin(); layer != m_layers.rend(); ++layer) {
        if (*layer)
            tools.append(*layer);
    }
    if (m_tool)
        tools.append(m_tool);
    for (auto layer = m_lowerLayers.rbegin(); layer != m_lowerLayers.rend(); ++layer) {
        if (*layer)
            tools.append(*layer);
    }
    return tools;
}

bool ViewportWidget::pressTool(const QMouseEvent *event)
{
    const ViewportPointer pointer{event->localPos(), event->modifiers(), m_camera};
    for (ViewportTool *tool : toolsByPriority()) {
        if (!tool->press(pointer))
            continue;
        m_pressedTool = tool;
        setHovered(nullptr);
        return true;
    }
    return false;
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
    const bool isFree =
        operation == VxViewportMgr::NoOperation && event->button() == Qt::LeftButton;
    if (operation == VxViewportMgr::NoOperation && !isFree)
        return;
    m_pressCamera = m_camera;
    const bool isolates = isFree && (event->modifiers() & Qt::AltModifier);
    m_isClick = isolates || (isFree && !pressTool(event));
    m_dragButton = event->button();
    m_dragOperation = m_isClick ? VxViewportMgr::Orbit : operation;
    m_pressModifiers = event->modifiers();
    m_dragAt = event->pos();
    m_gesture->begin();
}

void ViewportWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragButton == Qt::NoButton) {
        hoverAt(event);
        return;
    }
    if (m_pressedTool) {
        m_pressedTool->drag({event->localPos(), event->modifiers(), m_camera});
        return;
    }
    if (m_dragOperation == VxViewportMgr::NoOperation)
        return; // of a tool that was destroyed
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
    m_gesture->end();
    m_dragButton = Qt::NoButton;
    if (ViewportTool *tool = std::exchange(m_pressedTool, nullptr))
        tool->release({event->localPos(), event->modifiers(), m_camera});
    else if (m_isClick)
        selectAt(m_dragAt, m_pressModifiers);
    m_isClick = false;
}

/** A press whose release is lost leaves tool and camera as they were before it. */
void ViewportWidget::cancelGesture()
{
    m_dragButton = Qt::NoButton;
    m_isClick = false;
    if (ViewportTool *tool = std::exchange(m_pressedTool, nullptr))
        tool->cancel();
    else
        setCamera(m_pressCamera);
}

void ViewportWidget::cancelTools()
{
    if (m_pressedTool) {
        m_gesture->end();
        cancelGesture();
    }
    for (ViewportTool *tool : toolsByPriority())
        tool->cancel();
}

void ViewportWidget::hoverAt(const QMouseEvent *event)
{
    const ViewportPointer pointer{event->localPos(), event->modifiers(), m_camera};
    bool isFound = event->buttons() != Qt::NoButton;
    for (ViewportTool *tool : toolsByPriority()) {
        if (isFound)
            tool->leave();
        else
            isFound = tool->hover(pointer);
    }
    setHovered(isFound ? nullptr : nodeAt(event->pos()));
}

void ViewportWidget::clearToolHover()
{
    for (ViewportTool *tool : toolsByPriority())
        tool->leave();
}

void ViewportWidget::leaveEvent(QEvent *event)
{
    setHovered(nullptr);
    clearToolHover();
    QWidget::leaveEvent(event);
}

/** Not during a tool's gesture, whose pixels would change their meaning. */
void ViewportWidget::wheelEvent(QWheelEvent *event)
{
    event->accept();
    if (m_pressedTool)
        return;
    ViewportCamera camera = m_camera;
    camera.zoom(std::pow(WheelFactor, event->angleDelta().y() / 120.0), event->position());
    setCamera(camera);
}

/** The pressed tool alone gets keys during its gesture. */
ViewportTool *ViewportWidget::toolForKey(const QKeyEvent *event) const
{
    if (m_pressedTool)
        return m_pressedTool->usesKey(*event) ? m_pressedTool.data() : nullptr;
    for (ViewportTool *tool : toolsByPriority()) {
        if (tool->usesKey(*event))
            return tool;
    }
    return nullptr;
}

bool ViewportWidget::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && toolForKey(static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void ViewportWidget::keyPressEvent(QKeyEvent *event)
{
    if (ViewportTool *tool = toolForKey(event)) {
        tool->key(*event);
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        for (ViewportTool *tool : toolsByPriority()) {
            if (tool->isBusy()) {
                tool->cancel();
                return;
            }
        }
    }
    QWidget::keyPressEvent(event);
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
    if (modifiers & Qt::AltModifier)
        Q_EMIT isolationRequested(node);
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
