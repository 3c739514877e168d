#include "gizmo/gizmo.h"
#include "gizmo/gizmodrag.h"
#include "gizmo/movedrag.h"
#include "testing/vxtestmain.h"

#include <QtTest>

namespace {

GizmoFrame frameAt(const QVector3D &origin)
{
    return {origin, {QVector3D(1, 0, 0), QVector3D(0, 1, 0), QVector3D(0, 0, 1)}};
}

ViewportCamera cameraFrom(float yaw, float pitch, bool isOrthographic = false)
{
    ViewportCamera camera;
    camera.setViewSize({800, 600});
    camera.frame({{-100, -100, -100}, {100, 100, 100}});
    camera.setDirection(yaw, pitch);
    camera.setOrthographic(isOrthographic);
    return camera;
}

const GizmoShape *shapeOf(const QVector<GizmoShape> &shapes, GizmoPart part)
{
    for (const GizmoShape &shape : shapes) {
        if (shape.part == part)
            return &shape;
    }
    return nullptr;
}

// The extent over all pixels at which a part is hit, along a direction through a pixel.
double hitWidth(const QVector<GizmoShape> &shapes, const QPointF &at, const QPointF &direction)
{
    const GizmoPart part = hitGizmo(shapes, at);
    double width = 0;
    for (const double sign : {1.0, -1.0}) {
        for (double step = 0; step < 40; step += 0.25) {
            if (hitGizmo(shapes, at + direction * step * sign) != part)
                break;
            width += 0.25;
        }
    }
    return width;
}

} // namespace

Q_DECLARE_METATYPE(GizmoKind)

/// Gizmos as they are painted and hit, and what their drags mean in the world.
class tst_Gizmo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyPartIsHitWhereItIsPainted_data();
    void everyPartIsHitWhereItIsPainted();
    void linesAreWideEnough_data();
    void linesAreWideEnough();
    void theSizeIsConstant();
    void lockedPartsAreNotHit();
    void anArrowTowardTheEyeIsLeftOut();
    void theFarHalfOfARingIsNotHit();
    void nothingBehindTheEye();
    void offsetsOnAnAxis_data();
    void offsetsOnAnAxis();
    void pointsOnAPlane();
    void rotationsFollowTheMouse_data();
    void rotationsFollowTheMouse();
    void aRingFromItsEdge();
    void movesSnap();
};

void tst_Gizmo::everyPartIsHitWhereItIsPainted_data()
{
    QTest::addColumn<GizmoKind>("kind");
    QTest::addColumn<float>("yaw");
    QTest::addColumn<bool>("orthographic");
    int row = 0;
    for (const GizmoKind kind : {GizmoKind::Move, GizmoKind::Rotate, GizmoKind::Scale}) {
        for (const float yaw : {35.0f, 130.0f, -70.0f}) {
            for (const bool orthographic : {false, true})
                QTest::addRow("%d", row++) << kind << yaw << orthographic;
        }
    }
}

void tst_Gizmo::everyPartIsHitWhereItIsPainted()
{
    QFETCH(GizmoKind, kind);
    QFETCH(float, yaw);
    QFETCH(bool, orthographic);
    const auto shapes =
        gizmoShapes(kind, frameAt({30, 10, 5}), {}, cameraFrom(yaw, 25, orthographic));
    // A square seen nearly from its edge may be missing.
    QVERIFY(kind == GizmoKind::Move ? shapes.size() >= 6 : shapes.size() == 4);
    for (const GizmoShape &shape : shapes) {
        int hits = 0;
        QPolygonF points = shape.line;
        if (points.size() == 2)
            points = QPolygonF(QVector<QPointF>{QLineF(points[0], points[1]).pointAt(0.8)});
        if (!shape.area.isEmpty())
            points.append(shape.area.boundingRect().center());
        for (const QPointF &point : points)
            hits += hitGizmo(shapes, point) == shape.part ? 1 : 0;
        // Parts cross each other.
        QVERIFY(hits >= points.size() / 2 && hits > 0);
    }
    QVERIFY(hitGizmo(shapes, {2, 2}) == GizmoPart::None);
}

void tst_Gizmo::linesAreWideEnough_data()
{
    QTest::addColumn<GizmoKind>("kind");
    QTest::newRow("arrows") << GizmoKind::Move;
    QTest::newRow("rings") << GizmoKind::Rotate;
    QTest::newRow("handles") << GizmoKind::Scale;
}

void tst_Gizmo::linesAreWideEnough()
{
    QFETCH(GizmoKind, kind);
    const auto shapes = gizmoShapes(kind, frameAt({0, 0, 0}), {}, cameraFrom(35, 25));
    for (const GizmoPart part : {GizmoPart::X, GizmoPart::Y, GizmoPart::Z}) {
        const QPolygonF line = shapeOf(shapes, part)->line;
        const int middle = line.size() / 2;
        const QLineF segment(line[middle - 1], line[middle]);
        const QLineF normal = segment.normalVector().unitVector();
        QVERIFY(hitWidth(shapes, segment.pointAt(0.6), {normal.dx(), normal.dy()}) >= 8);
    }
}

void tst_Gizmo::theSizeIsConstant()
{
    for (const float depth : {-60.0f, 0.0f, 80.0f}) {
        const auto shapes =
            gizmoShapes(GizmoKind::Rotate, frameAt({0, 0, depth}), {}, cameraFrom(0, 0));
        const QRectF box = shapeOf(shapes, GizmoPart::View)->line.boundingRect();
        QVERIFY(std::abs(box.width() - 164) < 3 && std::abs(box.height() - 164) < 3);
    }
}

void tst_Gizmo::lockedPartsAreNotHit()
{
    GizmoLocks locks{};
    locks[size_t(GizmoPart::X)] = true;
    const ViewportCamera camera = cameraFrom(35, 25);
    const auto shapes = gizmoShapes(GizmoKind::Move, frameAt({0, 0, 0}), locks, camera);
    const GizmoShape *arrow = shapeOf(shapes, GizmoPart::X);
    QVERIFY(arrow->locked);
    QVERIFY(hitGizmo(shapes, arrow->area.boundingRect().center()) == GizmoPart::None);
}

void tst_Gizmo::anArrowTowardTheEyeIsLeftOut()
{
    const auto shapes =
        gizmoShapes(GizmoKind::Move, frameAt({0, 0, 0}), {}, cameraFrom(0, 0, true));
    QVERIFY(!shapeOf(shapes, GizmoPart::Z));
    QVERIFY(!shapeOf(shapes, GizmoPart::YZ));
    QVERIFY(shapeOf(shapes, GizmoPart::XY));
}

void tst_Gizmo::theFarHalfOfARingIsNotHit()
{
    const auto shapes = gizmoShapes(GizmoKind::Rotate, frameAt({0, 0, 0}), {}, cameraFrom(0, 40));
    const GizmoShape *ring = shapeOf(shapes, GizmoPart::Y);
    // Seen from above, the near half of a horizontal ring is the lower one.
    QVERIFY(ring->line.boundingRect().center().y() > ring->back.boundingRect().center().y());
    const QPointF far = ring->back.at(ring->back.size() / 2);
    QVERIFY(hitGizmo(shapes, far) != GizmoPart::Y);
}

void tst_Gizmo::nothingBehindTheEye()
{
    const ViewportCamera camera = cameraFrom(0, 0);
    QVERIFY(gizmoShapes(GizmoKind::Move, frameAt(camera.eye() + QVector3D(0, 0, 10)), {}, camera)
                .isEmpty());
}

void tst_Gizmo::offsetsOnAnAxis_data()
{
    QTest::addColumn<bool>("orthographic");
    QTest::newRow("perspective") << false;
    QTest::newRow("orthographic") << true;
}

void tst_Gizmo::offsetsOnAnAxis()
{
    QFETCH(bool, orthographic);
    const ViewportCamera camera = cameraFrom(35, 25, orthographic);
    const QVector3D origin(10, 20, -5);
    const QVector3D axis = QVector3D(1, 0.4f, -0.2f).normalized();
    for (const float offset : {-40.0f, 0.0f, 3.0f, 55.0f}) {
        const auto found =
            offsetOnAxis(camera, origin, axis, *camera.project(origin + axis * offset));
        QVERIFY(found && std::abs(*found - double(offset)) < 0.02);
    }
    QVERIFY(!offsetOnAxis(camera, origin, camera.directionAt(*camera.project(origin)),
                          *camera.project(origin)));
}

void tst_Gizmo::pointsOnAPlane()
{
    const ViewportCamera camera = cameraFrom(35, 25);
    const QVector3D point(12, 0, 30);
    const auto found = pointOnPlane(camera, {0, 0, 0}, {0, 1, 0}, *camera.project(point));
    QVERIFY(found && (*found - point).length() < 0.02f);
    // Above the horizon, the ground has no point.
    QVERIFY(!pointOnPlane(cameraFrom(0, 5), {0, 0, 0}, {0, 1, 0}, {400, 10}));
}

void tst_Gizmo::rotationsFollowTheMouse_data()
{
    QTest::addColumn<QVector3D>("axis");
    QTest::newRow("x") << QVector3D(1, 0, 0);
    QTest::newRow("y") << QVector3D(0, 1, 0);
    QTest::newRow("z") << QVector3D(0, 0, 1);
    QTest::newRow("away from the eye") << QVector3D(-1, -1, -1).normalized();
}

void tst_Gizmo::rotationsFollowTheMouse()
{
    QFETCH(QVector3D, axis);
    const ViewportCamera camera = cameraFrom(45, 35);
    const QVector3D origin(5, 5, 5);
    const QVector3D arm = QVector3D::crossProduct(axis, {0.3f, 0.5f, -0.9f}).normalized() * 30;
    RotationDrag drag(camera, origin, axis, *camera.project(origin + arm));
    for (int degrees = 10; degrees <= 800; degrees += 10) {
        const QVector3D turned =
            QQuaternion::fromAxisAndAngle(axis, float(degrees)).rotatedVector(arm);
        const double angle = drag.follow(*camera.project(origin + turned));
        QVERIFY2(std::abs(angle - degrees) < 0.2, qPrintable(QString::number(angle)));
    }
}

void tst_Gizmo::aRingFromItsEdge()
{
    const ViewportCamera camera = cameraFrom(0, 0);
    // About Y, seen horizontally: what is near moves to the right for a positive angle.
    RotationDrag drag(camera, {0, 0, 0}, {0, 1, 0}, {400, 300});
    QVERIFY(std::abs(drag.follow({466, 300}) - 57.3) < 1);
    QVERIFY(std::abs(drag.follow({334, 300}) + 57.3) < 1);
}

void tst_Gizmo::movesSnap()
{
    const ViewportCamera camera = cameraFrom(0, 0);
    const QVector3D origin(3.3f, 0, 0);
    MoveDrag drag(camera, frameAt(origin), GizmoPart::X, *camera.project(origin));
    drag.followGrid(*camera.project({48, 0, 0}), true);
    QVERIFY(std::abs(origin.x() + drag.offset().x() - 40) < 1e-3f); // steps of 20
    drag.followGrid(*camera.project({48, 0, 0}), false);
    QVERIFY(std::abs(drag.offset().x() - 40) < 1e-3f);
    drag.setAmount(2.5);
    QVERIFY(drag.offset() == QVector3D(2.5f, 0, 0));
    QCOMPARE(drag.text(), QString("X 2.50"));
}

VX_TEST_MAIN(tst_Gizmo)
#include "tst_gizmo.moc"
