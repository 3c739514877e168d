#include "viewportwidget.h"

#include "figurelines.h"
#include "groundgrid.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxviewportmgr.h>

namespace {

constexpr int FramedPoses = 9;
constexpr double WheelFactor = 1.15; // per notch
constexpr double DragZoomPerPixel = 1.01;
constexpr double JointSide = 4.5;
constexpr double BoneWidth = 2;
constexpr double OutlineWidth = 2; // of selected bones, at both sides together

QColor color(const char *name, const QColor &fallback)
{
    const VxStyle *style = vxApp ? vxApp->getStyle() : nullptr;
    const QColor found = style ? style->getInterfaceColor(QLatin1String(name)) : QColor();
    return found.isValid() ? found : fallback;
}

QColor groundColor(GroundLine::Role role, const QPalette &palette)
{
    switch (role) {
    case GroundLine::Minor:
        return color("Style_Graph_Grid", palette.color(QPalette::Mid));
    case GroundLine::Major:
        return color("Style_Graph_Grid_Major", palette.color(QPalette::Dark));
    case GroundLine::XAxis:
        return color("Style_X_Axis", Qt::red);
    case GroundLine::ZAxis:
        return color("Style_Z_Axis", Qt::blue);
    }
    return QColor();
}

} // namespace

ViewportWidget::ViewportWidget(VxScene *scene, const VxViewportMgr *conventions, QWidget *parent)
    : QWidget(parent)
    , m_scene(scene)
    , m_conventions(conventions)
{
    setObjectName(QStringLiteral("Viewport"));
    setMinimumSize(120, 80);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    const auto repaint = [this] { update(); };
    connect(scene, &VxScene::viewChanged, this, repaint);
    connect(scene, &VxScene::nodeSelectionListChanged, this, repaint);
    connect(scene, &VxScene::sceneLoaded, this, &ViewportWidget::frameAll);
}

void ViewportWidget::setCamera(const ViewportCamera &camera)
{
    if (camera == m_camera)
        return;
    m_camera = camera;
    m_ground = QPixmap();
    update();
}

QSize ViewportWidget::sizeHint() const
{
    return {640, 400};
}

void ViewportWidget::frameAll()
{
    QVector<QVector3D> points;
    const VxTimeRange range = m_scene->getPlayRange();
    for (int i = 0; i < FramedPoses; ++i) {
        const qint64 offset = qint64(range.getDuration()) * i / (FramedPoses - 1);
        points += FigureLines::collect(*m_scene, VxTime(range.getStart() + offset)).points();
    }
    ViewportCamera camera = m_camera;
    camera.frame(points.isEmpty() ? QVector<QVector3D>{QVector3D()} : points);
    setCamera(camera);
}

void ViewportWidget::paintEvent(QPaintEvent *)
{
    if (m_ground.isNull() || !qFuzzyCompare(m_ground.devicePixelRatio(), devicePixelRatioF()))
        updateGround();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_ground);
    if (m_scene->getNumNodes() == 0)
        paintHint(&painter);
    else
        paintFigures(&painter, FigureLines::collect(*m_scene, m_scene->getTime()));
}

void ViewportWidget::resizeEvent(QResizeEvent *)
{
    m_camera.setViewSize(size());
    m_ground = QPixmap();
}

void ViewportWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        m_ground = QPixmap();
        update();
    }
    QWidget::changeEvent(event);
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
    if (operation == VxViewportMgr::NoOperation)
        return;
    m_dragButton = event->button();
    m_dragOperation = operation;
    m_dragAt = event->pos();
}

void ViewportWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragButton == Qt::NoButton)
        return;
    const QPoint moved = event->pos() - m_dragAt;
    m_dragAt = event->pos();
    ViewportCamera camera = m_camera;
    if (m_dragOperation == VxViewportMgr::Pan)
        camera.pan(moved);
    else if (m_dragOperation == VxViewportMgr::Zoom)
        camera.zoom(std::pow(DragZoomPerPixel, -moved.y()));
    else
        camera.orbit(moved);
    setCamera(camera);
}

void ViewportWidget::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == m_dragButton)
        m_dragButton = Qt::NoButton;
}

void ViewportWidget::wheelEvent(QWheelEvent *event)
{
    ViewportCamera camera = m_camera;
    camera.zoom(std::pow(WheelFactor, event->angleDelta().y() / 120.0));
    setCamera(camera);
    event->accept();
}

int ViewportWidget::operationOf(const QMouseEvent *event) const
{
    const int operation = m_conventions->getOperation(
        m_conventions->getMouseBtnAccelerator(event->button(), event->modifiers()));
    if (operation == VxViewportMgr::NoOperation && event->button() == Qt::LeftButton)
        return VxViewportMgr::Orbit;
    return operation;
}

void ViewportWidget::updateGround()
{
    m_ground = QPixmap(size() * devicePixelRatioF());
    m_ground.setDevicePixelRatio(devicePixelRatioF());
    m_ground.fill(color("Style_Graph_Background", palette().color(QPalette::Base)));
    QPainter painter(&m_ground);
    painter.setRenderHint(QPainter::Antialiasing);
    const float step = groundGridStep(m_camera.distance());
    for (const GroundLine &line : groundGrid(m_camera.target(), step)) {
        painter.setPen(QPen(groundColor(line.role, palette()), 1));
        if (const auto shown = m_camera.project(line.from, line.to))
            painter.drawLine(*shown);
    }
}

void ViewportWidget::paintFigures(QPainter *painter, const FigureLines &figure) const
{
    painter->setRenderHint(QPainter::Antialiasing);
    // Selected ones last, on top of the others, with an outline that shows on any ground.
    paintPass(painter, figure, false, palette().color(QPalette::Text), 0);
    paintPass(painter, figure, true,
              color("Style_Key_Selected_Outline", palette().color(QPalette::HighlightedText)),
              OutlineWidth);
    paintPass(painter, figure, true,
              color("Style_Key_Selected", palette().color(QPalette::Highlight)), 0);
}

void ViewportWidget::paintPass(QPainter *painter, const FigureLines &figure, bool selected,
                               const QColor &ink, double extraWidth) const
{
    painter->setPen(QPen(ink, BoneWidth + extraWidth, Qt::SolidLine, Qt::RoundCap));
    for (const FigureLines::Bone &bone : figure.bones) {
        if (bone.selected != selected)
            continue;
        if (const auto line = m_camera.project(bone.from, bone.to))
            painter->drawLine(*line);
    }
    painter->setPen(QPen(ink, JointSide + extraWidth, Qt::SolidLine, Qt::RoundCap));
    for (const FigureLines::Joint &joint : figure.joints) {
        if (joint.selected != selected)
            continue;
        if (const auto point = m_camera.project(joint.at))
            painter->drawPoint(*point);
    }
}

void ViewportWidget::paintHint(QPainter *painter) const
{
    painter->setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    painter->drawText(rect(), Qt::AlignCenter,
                      tr("The scene is empty.\nOpen a file with File > Open."));
}
