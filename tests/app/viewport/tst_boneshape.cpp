#include "testing/vxtestmain.h"
#include "viewport/boneshape.h"
#include "viewport/viewportcamera.h"

#include <QtTest>

/// The octahedra of bones, in pixels.
class tst_BoneShape : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void onlyRidgesBeforeTheBodyAreVisible();
    void theOutlineIsConvex();
    void shortBonesAreLines();
    void bonesWithoutLengthHaveNoShape();

private:
    static ViewportCamera front();
    static FigureLines::Bone bone(const QVector3D &to);
};

// One world unit is 100 pixels, the origin is the middle of the view.
ViewportCamera tst_BoneShape::front()
{
    ViewportCamera camera;
    camera.setViewSize({400, 400});
    VxCameraState state = camera.state();
    state.target = {0, 0, 0};
    state.yaw = 0;
    state.pitch = 0;
    state.orthographic = true;
    camera.setState(state);
    camera.zoom(double(camera.unitsPerPixel()) * 100);
    return camera;
}

FigureLines::Bone tst_BoneShape::bone(const QVector3D &to)
{
    FigureLines::Bone bone{};
    bone.from = {0, 0, 0};
    bone.to = to;
    bone.side = {1, 0, 0};
    return bone;
}

// Seen straight, all visible edges within the outline begin at the waist's corner before the body.
void tst_BoneShape::onlyRidgesBeforeTheBodyAreVisible()
{
    const auto shape = boneShape(bone({0, 1, 0}), front());
    QVERIFY(shape.has_value());
    QCOMPARE(shape->ridges.size(), 4);
    const QPointF nearest(200, 200 - 100 * double(BoneShape::WaistAt));
    for (const QLineF &ridge : shape->ridges) {
        const double distance =
            qMin(QLineF(ridge.p1(), nearest).length(), QLineF(ridge.p2(), nearest).length());
        QVERIFY2(distance < 0.01, qPrintable(QString::number(distance)));
    }
}

void tst_BoneShape::theOutlineIsConvex()
{
    ViewportCamera camera = front();
    camera.orbit({130, 70});
    const auto shape = boneShape(bone({0.4f, 1, 0.2f}), camera);
    QVERIFY(shape.has_value());
    const QPolygonF &outline = shape->outline;
    QVERIFY(outline.size() >= 4);
    for (int i = 0; i < outline.size(); ++i) {
        const QLineF here(outline.at(i), outline.at((i + 1) % outline.size()));
        const QLineF next(here.p2(), outline.at((i + 2) % outline.size()));
        QVERIFY(here.dx() * next.dy() - here.dy() * next.dx() > 0);
    }
    QVERIFY(outline.contains(*camera.project({0, 0, 0})));
    QVERIFY(outline.contains(*camera.project({0.4f, 1, 0.2f})));
}

void tst_BoneShape::shortBonesAreLines()
{
    const auto shape = boneShape(bone({0, 0.03f, 0}), front());
    QVERIFY(shape.has_value());
    QVERIFY(shape->outline.isEmpty());
    QCOMPARE(shape->ridges.size(), 1);
    QVERIFY(qAbs(shape->ridges.first().length() - 3) < 0.01);
}

void tst_BoneShape::bonesWithoutLengthHaveNoShape()
{
    QVERIFY(!boneShape(bone({0, 0, 0}), front()));
    QVERIFY(!boneShape(bone({0, float(qQNaN()), 0}), front()));
}

VX_TEST_MAIN(tst_BoneShape)
#include "tst_boneshape.moc"
