#include "viewport/vxcameraactions.h"

#include "viewport/motiontrails.h"
#include "viewport/viewportwidget.h"
#include "widgets/dialogcorner.h"

#include <QInputDialog>

namespace {

/** Shown while it is typed; cancelling restores the camera. */
void askForFieldOfView(ViewportWidget *view)
{
    const ViewportCamera before = view->camera();
    QInputDialog dialog(view->window());
    dialog.setObjectName(QStringLiteral("FieldOfViewDialog"));
    dialog.setWindowTitle(VxFieldOfViewAction::tr("Field of View"));
    dialog.setLabelText(VxFieldOfViewAction::tr("Degrees over the shorter side of the viewport:"));
    dialog.setInputMode(QInputDialog::DoubleInput);
    dialog.setDoubleDecimals(1);
    dialog.setDoubleRange(double(VxCameraState::MinFieldOfView),
                          double(VxCameraState::MaxFieldOfView));
    dialog.setDoubleValue(double(before.fieldOfView()));
    QObject::connect(&dialog, &QInputDialog::doubleValueChanged, view, [view](double degrees) {
        ViewportCamera camera = view->camera();
        camera.setFieldOfView(float(degrees));
        camera.setOrthographic(false);
        view->setCamera(camera);
    });
    placeInCorner(&dialog, view);
    if (dialog.exec() != QDialog::Accepted)
        view->setCamera(before);
}

} // namespace

VxFrameAllAction::VxFrameAllAction()
    : VxViewportAction("View", tr("Frame All"), tr("Frames the whole scene in the viewport."), "A",
                       "", "Camera", &ViewportWidget::frameAll)
{
}

VxAxisViewAction::VxAxisViewAction(const QString &text, const QString &description,
                                   const char *accel, float yaw, float pitch)
    : VxViewportAction("View", text, description, accel, "", "Camera",
                       [yaw, pitch](ViewportWidget *view) {
                           ViewportCamera camera = view->camera();
                           camera.setDirection(yaw, pitch);
                           camera.setOrthographic(true);
                           view->setCamera(camera);
                       })
{
}

VxFrontViewAction::VxFrontViewAction()
    : VxAxisViewAction(tr("Front View"), tr("Shows the scene from +Z, without perspective."),
                       "Num+1", 0, 0)
{
}

VxBackViewAction::VxBackViewAction()
    : VxAxisViewAction(tr("Back View"), tr("Shows the scene from -Z, without perspective."),
                       "Ctrl+Num+1", 180, 0)
{
}

VxSideViewAction::VxSideViewAction()
    : VxAxisViewAction(tr("Side View"), tr("Shows the scene from +X, without perspective."),
                       "Num+3", 90, 0)
{
}

VxOppositeSideViewAction::VxOppositeSideViewAction()
    : VxAxisViewAction(tr("Opposite Side View"),
                       tr("Shows the scene from -X, without perspective."), "Ctrl+Num+3", -90, 0)
{
}

VxTopViewAction::VxTopViewAction()
    : VxAxisViewAction(tr("Top View"), tr("Shows the scene from above, without perspective."),
                       "Num+7", 0, 90)
{
}

VxBottomViewAction::VxBottomViewAction()
    : VxAxisViewAction(tr("Bottom View"), tr("Shows the scene from below, without perspective."),
                       "Ctrl+Num+7", 0, -90)
{
}

VxPerspectiveAction::VxPerspectiveAction()
    : VxViewportAction("View", tr("Perspective"),
                       tr("Toggles between a view with perspective and one in which parallel lines "
                          "are parallel."),
                       "Num+5", "", "Camera")
{
}

void VxPerspectiveAction::init()
{
    VxViewportAction::init();
    ViewportWidget *view = ViewportWidget::current();
    if (!view)
        return;
    const auto show = [this, view] { setChecked(!view->camera().isOrthographic()); };
    disconnect(view, &ViewportWidget::cameraChanged, this, nullptr);
    connect(view, &ViewportWidget::cameraChanged, this, show);
    show();
}

void VxPerspectiveAction::toggleAction(bool onOff)
{
    ViewportWidget *view = ViewportWidget::current();
    if (!view)
        return;
    ViewportCamera camera = view->camera();
    camera.setOrthographic(!onOff);
    view->setCamera(camera);
}

VxMotionTrailsAction::VxMotionTrailsAction()
    : VxViewportAction("View", tr("Motion Trails"),
                       tr("Shows the paths of the selected nodes over the play range; a click on a "
                          "dot sets the current time."),
                       "T", "Trails")
{
}

void VxMotionTrailsAction::init()
{
    VxViewportAction::init();
    const ViewportWidget *view = ViewportWidget::current();
    const auto *trails = view ? view->findChild<MotionTrails *>() : nullptr;
    if (!trails)
        return;
    disconnect(trails, nullptr, this, nullptr);
    connect(trails, &MotionTrails::enabledChanged, this, &QAction::setChecked);
    setChecked(trails->isEnabled());
}

void VxMotionTrailsAction::toggleAction(bool onOff)
{
    const ViewportWidget *view = ViewportWidget::current();
    if (auto *trails = view ? view->findChild<MotionTrails *>() : nullptr)
        trails->setEnabled(onOff);
}

VxFieldOfViewAction::VxFieldOfViewAction()
    : VxViewportAction("View", tr("Field of View..."),
                       tr("Sets the angle that the shorter side of the viewport shows."), "", "",
                       "Camera", &askForFieldOfView)
{
}
