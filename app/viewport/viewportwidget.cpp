#include "viewport/viewportwidget.h"

#include "viewport/figurelines.h"
#include "viewport/figurepainter.h"
#include "viewport/groundgrid.h"
#include "viewport/pointbox.h"
#include "viewport/viewportkeys.h"

#include <QAction>
#include <QEvent>
#include <QPainter>
#include <cmath>
#include <utility>
#include <vxcore/vxaccessible.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

namespace {

constexpr int FramedPoses = 9;
constexpr double SmallestFigure = 40;        // pixels
constexpr int ViewNameMargin = 6;            // pixels
constexpr float FigureHeightPart = 2.0f / 3; // of the view's height, after a file was opened
// A single joint is framed with this part of the scene's size around it.
constexpr float LoneJointReach = 0.05f;

QColor groundColor(GroundLine::Role role, const QPalette &palette)
{
    switch (role) {
    case GroundLine::Minor:
        return viewportColor("Style_Graph_Grid", palette.color(QPalette::Mid));
    case GroundLine::Major:
        return viewportColor("Style_Graph_Grid_Major", palette.color(QPalette::Dark));
    case GroundLine::XAxis:
        return viewportColor("Style_X_Axis", Qt::red);
    case GroundLine::YAxis:
        return viewportColor("Style_Y_Axis", Qt::green);
    case GroundLine::ZAxis:
        return viewportColor("Style_Z_Axis", Qt::blue);
    }
    return QColor();
}

bool looksAlong(const VxCameraState &camera, float yaw, float pitch)
{
    return camera.pitch == pitch && std::fmod(camera.yaw - yaw, 360.0f) == 0;
}

QString viewName(const VxCameraState &camera)
{
    if (!camera.orthographic)
        return ViewportWidget::tr("Perspective");
    if (camera.pitch == 90)
        return ViewportWidget::tr("Top");
    if (camera.pitch == -90)
        return ViewportWidget::tr("Bottom");
    return looksAlong(camera, 0, 0)     ? ViewportWidget::tr("Front")
           : looksAlong(camera, 180, 0) ? ViewportWidget::tr("Back")
           : looksAlong(camera, 90, 0)  ? ViewportWidget::tr("Side (+X)")
           : looksAlong(camera, -90, 0) ? ViewportWidget::tr("Side (-X)")
                                        : ViewportWidget::tr("Orthographic");
}

/** The plane that is seen as a whole; the ground, unless that is seen as a line. */
GridPlane gridPlane(const ViewportCamera &camera)
{
    const VxCameraState &state = camera.state();
    if (!state.orthographic)
        return GridPlane::ZX;
    return looksAlong(state, 0, 0) || looksAlong(state, 180, 0)    ? GridPlane::XY
           : looksAlong(state, 90, 0) || looksAlong(state, -90, 0) ? GridPlane::YZ
                                                                   : GridPlane::ZX;
}

} // namespace

ViewportWidget::ViewportWidget(VxScene *scene, const VxViewportMgr *conventions, QWidget *parent)
    : QWidget(parent)
    , m_scene(scene)
    , m_conventions(conventions)
    , m_frameSelection(new QAction(tr("Frame &Selection"), this))
    , m_gesture(new VxGestureGuard(this))
{
    setObjectName(QStringLiteral("Viewport"));
    vxSetAccessibleRole(this, QAccessible::Canvas);
    setAccessibleName(tr("3D Viewport"));
    setMinimumSize(120, 80);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    m_frameSelection->setShortcut(Qt::Key_F);
    m_frameSelection->setShortcutContext(Qt::WidgetShortcut);
    addAction(m_frameSelection);
    connect(m_frameSelection, &QAction::triggered, this, &ViewportWidget::frameSelection);
    const auto repaint = [this] { update(); };
    connect(scene, &VxScene::viewChanged, this, repaint);
    connect(scene, &VxScene::nodeSelectionListChanged, this, repaint);
    connect(scene, &VxScene::sceneLoadStarting, this, &ViewportWidget::cancelTools);
    connect(scene, &VxScene::sceneClearStarting, this, &ViewportWidget::cancelTools);
    connect(m_gesture, &VxGestureGuard::cancelled, this, &ViewportWidget::cancelGesture);
    connect(scene, &VxScene::sceneLoaded, this, &ViewportWidget::showDocument);
    connect(scene, &VxScene::sceneLoadStarting, this, [this] { m_isNewDocument = false; });
    connect(scene, &VxScene::sceneCleared, this, [this] { m_isNewDocument = true; });
    new ViewportKeys(this);
}

ViewportWidget *ViewportWidget::current()
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    return window ? window->findChild<ViewportWidget *>() : nullptr;
}

void ViewportWidget::setCamera(const ViewportCamera &camera)
{
    showCamera(camera);
    VxSceneCamera::of(m_scene)->setState(camera.state());
}

void ViewportWidget::showCamera(const ViewportCamera &camera)
{
    if (camera == m_camera)
        return;
    m_camera = camera;
    m_ground = QPixmap();
    update();
    VxSceneCamera *stored = VxSceneCamera::of(m_scene);
    if (stored->state())
        stored->setState(camera.state());
    Q_EMIT cameraChanged();
}

/** A motion that was imported into the scene is shown as a new document is. */
void ViewportWidget::showDocument()
{
    const std::optional<VxCameraState> stored = VxSceneCamera::stateOf(m_scene);
    if (m_isNewDocument) {
        ViewportCamera camera = m_camera;
        camera.setState(stored.value_or(VxCameraState()));
        showCamera(camera);
    }
    if (!m_isNewDocument || !stored)
        frameFigure();
}

/** The current pose; including the path of a motion would make the figure tiny. */
void ViewportWidget::frameFigure()
{
    const QVector<QVector3D> points =
        FigureLines::collect(*m_scene, m_scene->getTime()).figurePoints();
    ViewportCamera camera = m_camera;
    if (points.isEmpty())
        camera.frame(scenePoints());
    else
        camera.frame(points, FigureHeightPart);
    showCamera(camera);
}

/** All positions within the play range; the world's origin in an empty scene. */
QVector<QVector3D> ViewportWidget::scenePoints() const
{
    QVector<QVector3D> points;
    const VxTimeRange range = m_scene->getPlayRange();
    for (int i = 0; i < FramedPoses; ++i) {
        const qint64 offset = qint64(range.getDuration()) * i / (FramedPoses - 1);
        points += FigureLines::collect(*m_scene, VxTime(range.getStart() + offset)).points();
    }
    return points.isEmpty() ? QVector<QVector3D>{QVector3D()} : points;
}

void ViewportWidget::frameAll()
{
    ViewportCamera camera = m_camera;
    camera.frame(scenePoints());
    setCamera(camera);
}

void ViewportWidget::frameSelection()
{
    const FigureLines lines = FigureLines::collect(*m_scene, m_scene->getTime());
    QVector<QVector3D> points = lines.selectedPoints();
    if (points.isEmpty()) {
        frameAll();
        return;
    }
    if (PointBox(points).size() == 0) {
        const float reach = PointBox(lines.points()).size() * LoneJointReach;
        const QVector3D corner(reach, reach, reach);
        points = {points.first() - corner, points.first() + corner};
    }
    ViewportCamera camera = m_camera;
    camera.frame(points);
    setCamera(camera);
}

/** In the view of an empty scene, figures of any size may be out of sight. */
void ViewportWidget::frameFirstFigure()
{
    const bool wasEmpty = std::exchange(m_isEmpty, m_scene->getNumNodes() == 0);
    if (!wasEmpty || m_isEmpty)
        return;
    QRectF seen;
    bool isInView = true;
    for (const QVector3D &point :
         FigureLines::collect(*m_scene, m_scene->getTime()).figurePoints()) {
        const auto at = m_camera.project(point);
        isInView = isInView && at && QRectF(rect()).contains(*at);
        seen |= QRectF(at.value_or(QPointF()), QSizeF(1, 1));
    }
    // Bones that were drawn in this view stay where they are.
    const bool isLarge = qMax(seen.width(), seen.height()) > SmallestFigure;
    if (!seen.isNull() && !(isInView && isLarge))
        frameFigure();
}

void ViewportWidget::paintEvent(QPaintEvent *)
{
    frameFirstFigure();
    if (m_ground.isNull() || !qFuzzyCompare(m_ground.devicePixelRatio(), devicePixelRatioF()))
        updateGround();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_ground);
    if (!m_isEmpty)
        FigurePainter(&painter, m_camera, palette())
            .paint(FigureLines::collect(*m_scene, m_scene->getTime()), m_hovered);
    const QVector<ViewportTool *> tools = toolsByPriority();
    for (auto tool = tools.rbegin(); tool != tools.rend(); ++tool) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        (*tool)->paint(&painter, m_camera, palette());
        painter.restore();
    }
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

void ViewportWidget::updateGround()
{
    m_ground = QPixmap(size() * devicePixelRatioF());
    m_ground.setDevicePixelRatio(devicePixelRatioF());
    m_ground.fill(viewportColor("Style_Graph_Background", palette().color(QPalette::Base)));
    QPainter painter(&m_ground);
    painter.setRenderHint(QPainter::Antialiasing);
    const float step = groundGridStep(m_camera.standardDistance());
    for (const GroundLine &line : groundGrid(m_camera.target(), step, gridPlane(m_camera))) {
        painter.setPen(QPen(groundColor(line.role, palette()), 1));
        if (const auto shown = m_camera.project(line.from, line.to))
            painter.drawLine(*shown);
    }
    paintViewName(&painter, step);
}

void ViewportWidget::paintViewName(QPainter *painter, float gridStep) const
{
    painter->setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    painter->drawText(rect().adjusted(ViewNameMargin, 0, 0, -ViewNameMargin),
                      Qt::AlignLeft | Qt::AlignBottom,
                      tr("%1   Grid: %2").arg(viewName(m_camera.state())).arg(double(gridStep)));
}
