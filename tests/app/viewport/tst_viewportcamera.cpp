#include "testing/vxtestmain.h"
#include "viewport/viewportcamera.h"

#include <QtTest>
#include <cmath>

namespace {

constexpr double Near = 0.01; // pixels

QVector3D backOf(const ViewportCamera &camera)
{
    return (camera.eye() - camera.target()).normalized();
}

QVector3D rightOf(const ViewportCamera &camera)
{
    return QVector3D::crossProduct(QVector3D(0, 1, 0), backOf(camera)).normalized();
}

QVector3D upOf(const ViewportCamera &camera)
{
    return QVector3D::crossProduct(backOf(camera), rightOf(camera));
}

bool isAt(const std::optional<QPointF> &point, const QPointF &expected, double tolerance = Near)
{
    if (!point)
        return false;
    const QPointF off = *point - expected;
    return std::hypot(off.x(), off.y()) <= tolerance;
}

ViewportCamera cameraOf(const QSizeF &size)
{
    ViewportCamera camera;
    camera.setViewSize(size);
    return camera;
}

} // namespace

class tst_ViewportCamera : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theTargetIsInTheMiddle();
    void rightIsRightAndUpIsUp();
    void onePixelAtTheTargetsDepth();
    void fartherPointsAreSmaller();
    void pointsBehindTheEyeAreNotShown();
    void aLineIsCutWhereItPassesTheEye();
    void orbitKeepsTargetAndDistance();
    void orbitStopsAtTheTop();
    void dragToTheRightOrbitsToTheRight();
    void panKeepsThePointUnderTheMouse();
    void zoom();
    void zoomKeepsThePointUnderTheMouse();
    void linesAreCutNearTheView();
    void zoomIgnoresInvalidFactors_data();
    void zoomIgnoresInvalidFactors();
    void framedPointsFillTheView_data();
    void framedPointsFillTheView();
    void framingFewPoints();
    void aViewWithoutSize();
    void orthographicKeepsSizesAtEveryDepth();
    void orthographicShowsPointsBehindTheEye();
    void directionsAlongAxes_data();
    void directionsAlongAxes();
    void fieldOfViewKeepsTheTargetsSize_data();
    void fieldOfViewKeepsTheTargetsSize();
    void framingWithAnyProjection_data();
    void framingWithAnyProjection();
    void pointsAtPixels_data();
    void pointsAtPixels();
    void invalidStatesAreCorrected();
};

void tst_ViewportCamera::theTargetIsInTheMiddle()
{
    const ViewportCamera camera = cameraOf({640, 400});
    QVERIFY(isAt(camera.project(camera.target()), {320, 200}));
}

void tst_ViewportCamera::rightIsRightAndUpIsUp()
{
    const ViewportCamera camera = cameraOf({640, 400});
    const QPointF right = *camera.project(camera.target() + rightOf(camera));
    QVERIFY(right.x() > 321);
    QVERIFY(std::abs(right.y() - 200) < Near);
    const QPointF up = *camera.project(camera.target() + QVector3D(0, 1, 0));
    QVERIFY(up.y() < 199);
    QVERIFY(std::abs(up.x() - 320) < Near);
}

void tst_ViewportCamera::onePixelAtTheTargetsDepth()
{
    const ViewportCamera camera = cameraOf({640, 400});
    const QVector3D point = camera.target() + rightOf(camera) * (100 * camera.unitsPerPixel()) -
                            upOf(camera) * (50 * camera.unitsPerPixel());
    QVERIFY(isAt(camera.project(point), {420, 250}));
}

void tst_ViewportCamera::fartherPointsAreSmaller()
{
    const ViewportCamera camera = cameraOf({640, 400});
    const QVector3D away = backOf(camera) * -camera.distance();
    const QVector3D side = rightOf(camera);
    const double here = camera.project(camera.target() + side)->x() - 320;
    const double there = camera.project(camera.target() + away + side)->x() - 320;
    QVERIFY(std::abs(there - here / 2) < Near); // at twice the depth
}

void tst_ViewportCamera::pointsBehindTheEyeAreNotShown()
{
    const ViewportCamera camera = cameraOf({640, 400});
    const QVector3D behind = camera.eye() + backOf(camera);
    QVERIFY(!camera.project(behind));
    QVERIFY(!camera.project(camera.eye()));
    QVERIFY(!camera.project(behind, behind + rightOf(camera)));
}

void tst_ViewportCamera::aLineIsCutWhereItPassesTheEye()
{
    const ViewportCamera camera = cameraOf({640, 400});
    // From the target past the eye, a little to its right.
    const QVector3D behind = camera.eye() + backOf(camera) * 2 + rightOf(camera) * 0.1f;
    const auto there = camera.project(camera.target(), behind);
    const auto back = camera.project(behind, camera.target());
    QVERIFY(there && back);
    QVERIFY(isAt(there->p1(), {320, 200}));
    QVERIFY(there->p2().x() > 320);
    QVERIFY(std::isfinite(there->p2().x()));
    QVERIFY(isAt(back->p2(), there->p1()));
    QVERIFY(isAt(back->p1(), there->p2(), 1));
}

void tst_ViewportCamera::orbitKeepsTargetAndDistance()
{
    ViewportCamera camera = cameraOf({640, 400});
    const ViewportCamera before = camera;
    camera.orbit({37, -12});
    QVERIFY(camera != before);
    QCOMPARE(camera.target(), before.target());
    QVERIFY(std::abs((camera.eye() - camera.target()).length() - before.distance()) < 1e-4f);
    camera.orbit({-37, 12});
    QVERIFY((camera.eye() - before.eye()).length() < 1e-4f);
}

void tst_ViewportCamera::orbitStopsAtTheTop()
{
    ViewportCamera camera = cameraOf({640, 400});
    camera.orbit({0, 10000});
    QVERIFY(backOf(camera).y() > 0.99f);
    QVERIFY(upOf(camera).y() > 0); // still upright
    camera.orbit({0, -20000});
    QVERIFY(backOf(camera).y() < -0.99f);
    QVERIFY(upOf(camera).y() > 0);
}

void tst_ViewportCamera::dragToTheRightOrbitsToTheRight()
{
    ViewportCamera camera = cameraOf({640, 400});
    const QVector3D front = camera.target() + backOf(camera); // between target and eye
    camera.orbit({50, 0});
    QVERIFY(camera.project(front)->x() > 321);
}

void tst_ViewportCamera::panKeepsThePointUnderTheMouse()
{
    ViewportCamera camera = cameraOf({640, 400});
    const QVector3D held = camera.target() + upOf(camera) * 0.3f;
    const QPointF before = *camera.project(held);
    camera.pan({40, -25});
    QVERIFY(isAt(camera.project(held), before + QPointF(40, -25)));
}

void tst_ViewportCamera::zoom()
{
    ViewportCamera camera = cameraOf({640, 400});
    const float before = camera.distance();
    camera.zoom(2);
    QCOMPARE(camera.distance(), before / 2);
    camera.zoom(1e30);
    QVERIFY(camera.distance() > 0);
    camera.zoom(1e-30);
    QVERIFY(std::isfinite(camera.distance()));
    QVERIFY(isAt(camera.project(camera.target()), {320, 200}));
}

void tst_ViewportCamera::zoomKeepsThePointUnderTheMouse()
{
    ViewportCamera camera = cameraOf({640, 400});
    const QPointF pixel(500, 90);
    const QPointF offset = pixel - QPointF(320, 200);
    const QVector3D under = camera.target() +
                            rightOf(camera) * (float(offset.x()) * camera.unitsPerPixel()) -
                            upOf(camera) * (float(offset.y()) * camera.unitsPerPixel());
    const ViewportCamera before = camera;
    QVERIFY(isAt(camera.project(under), pixel));
    for (const double factor : {1.15, 3.0, 0.2}) {
        camera.zoom(factor, pixel);
        QVERIFY(isAt(camera.project(under), pixel, 0.05));
    }
    camera.zoom(1 / (1.15 * 3.0 * 0.2), pixel);
    QVERIFY((camera.target() - before.target()).length() < 1e-4f); // there and back
    camera = before;
    camera.zoom(2, {320, 200});
    QCOMPARE(camera.target(), before.target());
}

void tst_ViewportCamera::linesAreCutNearTheView()
{
    const ViewportCamera camera = cameraOf({640, 400});
    const QVector3D right = rightOf(camera);
    const QRectF around(-70, -70, 780, 540);
    // From the middle very far to the right: on the same line, but no farther than needed.
    const auto line = camera.project(camera.target(), camera.target() + right * 1e9f);
    QVERIFY(line);
    QVERIFY(isAt(line->p1(), {320, 200}));
    QVERIFY(around.contains(line->p2()) && line->p2().x() > 640);
    QVERIFY(std::abs(line->p2().y() - 200) < Near);
    // From one side to the other, and past the view.
    const auto across =
        camera.project(camera.target() - right * 1e9f, camera.target() + right * 1e9f);
    QVERIFY(across && across->p1().x() < 0 && across->p2().x() > 640);
    const QVector3D above = upOf(camera) * 1e3f;
    QVERIFY(!camera.project(camera.target() - right + above, camera.target() + right + above));
    const QVector3D beside = right * 1e3f;
    QVERIFY(!camera.project(camera.target() + beside, camera.target() + beside * 2));
    // What lies within is left alone.
    const auto whole = camera.project(camera.target(), camera.target() + right * 0.1f);
    QVERIFY(whole && isAt(camera.project(camera.target() + right * 0.1f), whole->p2()));
}

void tst_ViewportCamera::zoomIgnoresInvalidFactors_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("negative") << -2.0;
    QTest::newRow("infinite") << double(INFINITY);
    QTest::newRow("no number") << double(NAN);
}

void tst_ViewportCamera::zoomIgnoresInvalidFactors()
{
    QFETCH(double, factor);
    ViewportCamera camera;
    const ViewportCamera before = camera;
    camera.zoom(factor);
    QVERIFY(camera == before);
}

void tst_ViewportCamera::framedPointsFillTheView_data()
{
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<QVector3D>("extent"); // of a box
    QTest::newRow("wide view of a flat box") << QSizeF(900, 300) << QVector3D(5, 0.5f, 5);
    QTest::newRow("high view of a flat box") << QSizeF(300, 900) << QVector3D(5, 0.5f, 5);
    QTest::newRow("a tower") << QSizeF(900, 300) << QVector3D(1, 50, 1);
    QTest::newRow("tiny") << QSizeF(400, 400) << QVector3D(0.01f, 0.01f, 0.02f);
    QTest::newRow("huge") << QSizeF(400, 400) << QVector3D(90000, 1, 80000);
    QTest::newRow("a line to the eye") << QSizeF(400, 400) << QVector3D(0, 0, 7);
}

void tst_ViewportCamera::framedPointsFillTheView()
{
    QFETCH(QSizeF, size);
    QFETCH(QVector3D, extent);
    ViewportCamera camera = cameraOf(size);
    const QVector3D center(10, -3, 7);
    QVector<QVector3D> corners;
    for (int i = 0; i < 8; ++i)
        corners.append(center + extent * QVector3D(i & 1 ? 0.5f : -0.5f, i & 2 ? 0.5f : -0.5f,
                                                   i & 4 ? 0.5f : -0.5f));
    camera.frame(corners);
    QCOMPARE(camera.target(), center);
    double reach = 0; // 1 at the edge of the view
    for (const QVector3D &corner : qAsConst(corners)) {
        const auto point = camera.project(corner);
        QVERIFY(point);
        reach = std::max({reach, std::abs(point->x() / size.width() * 2 - 1),
                          std::abs(point->y() / size.height() * 2 - 1)});
    }
    QVERIFY2(reach > 0.84 && reach < 0.86, qPrintable(QString::number(reach)));
}

void tst_ViewportCamera::framingFewPoints()
{
    ViewportCamera camera = cameraOf({400, 300});
    const ViewportCamera before = camera;
    camera.frame({});
    QVERIFY(camera == before);
    camera.zoom(3);
    camera.frame({{5, 5, 5}, {5, 5, 5}});
    QCOMPARE(camera.target(), QVector3D(5, 5, 5));
    QCOMPARE(camera.distance(), before.distance());
}

void tst_ViewportCamera::aViewWithoutSize()
{
    const ViewportCamera camera = cameraOf({0, 0});
    const auto point = camera.project(camera.target() + QVector3D(1, 1, 1));
    QVERIFY(point);
    QVERIFY(std::isfinite(point->x()) && std::isfinite(point->y()));
}

void tst_ViewportCamera::orthographicKeepsSizesAtEveryDepth()
{
    ViewportCamera camera = cameraOf({640, 400});
    const QVector3D side = rightOf(camera);
    const QPointF before = *camera.project(camera.target() + side);
    camera.setOrthographic(true);
    for (const float depth : {0.0f, -5.0f, 3.0f, 100.0f}) {
        const QVector3D point = camera.target() + side + backOf(camera) * depth;
        QVERIFY(isAt(camera.project(point), before));
        QCOMPARE(camera.unitsPerPixel(point), camera.unitsPerPixel());
    }
}

void tst_ViewportCamera::orthographicShowsPointsBehindTheEye()
{
    ViewportCamera camera = cameraOf({640, 400});
    camera.setOrthographic(true);
    const QVector3D behind = camera.eye() + backOf(camera) * 1000;
    QVERIFY(isAt(camera.project(behind), {320, 200}, 0.1));
    const auto line = camera.project(camera.target(), behind + rightOf(camera));
    QVERIFY(line && isAt(line->p1(), {320, 200}) && line->p2().x() > 321);
}

void tst_ViewportCamera::directionsAlongAxes_data()
{
    QTest::addColumn<float>("yaw");
    QTest::addColumn<float>("pitch");
    QTest::addColumn<QVector3D>("right");
    QTest::addColumn<QVector3D>("up");
    QTest::newRow("front") << 0.0f << 0.0f << QVector3D(1, 0, 0) << QVector3D(0, 1, 0);
    QTest::newRow("back") << 180.0f << 0.0f << QVector3D(-1, 0, 0) << QVector3D(0, 1, 0);
    QTest::newRow("from +X") << 90.0f << 0.0f << QVector3D(0, 0, -1) << QVector3D(0, 1, 0);
    QTest::newRow("from -X") << -90.0f << 0.0f << QVector3D(0, 0, 1) << QVector3D(0, 1, 0);
    QTest::newRow("top") << 0.0f << 90.0f << QVector3D(1, 0, 0) << QVector3D(0, 0, -1);
    QTest::newRow("bottom") << 0.0f << -90.0f << QVector3D(1, 0, 0) << QVector3D(0, 0, 1);
}

void tst_ViewportCamera::directionsAlongAxes()
{
    QFETCH(float, yaw);
    QFETCH(float, pitch);
    QFETCH(QVector3D, right);
    QFETCH(QVector3D, up);
    ViewportCamera camera = cameraOf({640, 400});
    camera.setDirection(yaw, pitch);
    camera.setOrthographic(true);
    const double pixels = 1 / double(camera.unitsPerPixel());
    QVERIFY(isAt(camera.project(camera.target() + right), {320 + pixels, 200}));
    QVERIFY(isAt(camera.project(camera.target() + up), {320, 200 - pixels}));
}

void tst_ViewportCamera::fieldOfViewKeepsTheTargetsSize_data()
{
    QTest::addColumn<float>("degrees");
    QTest::addColumn<float>("result");
    QTest::newRow("narrow") << 10.0f << 10.0f;
    QTest::newRow("wide") << 90.0f << 90.0f;
    QTest::newRow("none") << 0.0f << VxCameraState::MinFieldOfView;
    QTest::newRow("negative") << -30.0f << VxCameraState::MinFieldOfView;
    QTest::newRow("all around") << 360.0f << VxCameraState::MaxFieldOfView;
    QTest::newRow("no number") << float(NAN) << VxCameraState().fieldOfView;
}

void tst_ViewportCamera::fieldOfViewKeepsTheTargetsSize()
{
    QFETCH(float, degrees);
    ViewportCamera camera = cameraOf({640, 400});
    const QVector3D side = camera.target() + rightOf(camera);
    const QPointF before = *camera.project(side);
    const float standard = camera.standardDistance();
    QCOMPARE(standard, camera.distance());
    camera.setFieldOfView(degrees);
    QTEST(camera.fieldOfView(), "result");
    QVERIFY(isAt(camera.project(side), before));
    QVERIFY(std::abs(camera.standardDistance() / standard - 1) < 1e-4f);
    const float half = 200 * camera.unitsPerPixel(); // of the shorter side
    const float angle = 2 * std::atan(half / camera.distance()) * 180 / float(M_PI);
    QVERIFY(std::abs(angle - camera.fieldOfView()) < 1e-3f);
}

void tst_ViewportCamera::framingWithAnyProjection_data()
{
    QTest::addColumn<bool>("orthographic");
    QTest::addColumn<float>("degrees");
    QTest::newRow("orthographic") << true << 40.0f;
    QTest::newRow("wide") << false << 110.0f;
    QTest::newRow("narrow") << false << 5.0f;
}

void tst_ViewportCamera::framingWithAnyProjection()
{
    QFETCH(bool, orthographic);
    QFETCH(float, degrees);
    ViewportCamera camera = cameraOf({900, 300});
    camera.setFieldOfView(degrees);
    camera.setOrthographic(orthographic);
    QVector<QVector3D> corners;
    for (int i = 0; i < 8; ++i)
        corners << QVector3D(i & 1 ? 5 : -5, i & 2 ? 50 : 0, i & 4 ? 9 : -9);
    camera.frame(corners);
    double filled = 0;
    for (const QVector3D &corner : corners) {
        const auto at = camera.project(corner);
        QVERIFY(at && QRectF(0, 0, 900, 300).contains(*at));
        filled = std::max({filled, std::abs(at->x() - 450) / 450, std::abs(at->y() - 150) / 150});
    }
    QVERIFY(filled > 0.7);
}

void tst_ViewportCamera::pointsAtPixels_data()
{
    QTest::addColumn<bool>("orthographic");
    QTest::newRow("perspective") << false;
    QTest::newRow("orthographic") << true;
}

void tst_ViewportCamera::pointsAtPixels()
{
    QFETCH(bool, orthographic);
    ViewportCamera camera = cameraOf({640, 400});
    camera.setOrthographic(orthographic);
    const QPointF pixel(87, 311);
    for (const float depth : {0.5f, 6.0f, 70.0f}) {
        const QVector3D point = camera.pointAt(pixel, depth);
        QVERIFY(isAt(camera.project(point), pixel, 0.02));
        QVERIFY(std::abs(camera.depth(point) - depth) < 1e-3f);
        const QVector3D farther = point + camera.directionAt(pixel) * 3;
        QVERIFY(isAt(camera.project(farther), pixel, 0.02));
        QVERIFY(camera.depth(farther) > depth);
        const QVector3D beside = point + camera.right() * (10 * camera.unitsPerPixel(point));
        QVERIFY(isAt(camera.project(beside), pixel + QPointF(10, 0), 0.02));
    }
}

void tst_ViewportCamera::invalidStatesAreCorrected()
{
    VxCameraState state;
    state.target = {float(NAN), 2, 1e30f};
    state.distance = -4;
    state.yaw = 725;
    state.pitch = 100;
    state.fieldOfView = float(NAN);
    ViewportCamera camera = cameraOf({640, 400});
    camera.setState(state);
    VxCameraState corrected;
    corrected.target = {0, 2, VxCameraState::MaxDistance};
    corrected.distance = VxCameraState::MinDistance;
    corrected.yaw = 5;
    corrected.pitch = 90;
    QVERIFY(camera.state() == corrected);
}

VX_TEST_APPLESS_MAIN(tst_ViewportCamera)
#include "tst_viewportcamera.moc"
