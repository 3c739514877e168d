#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "viewport/figurelines.h"
#include "viewport/figurepick.h"
#include "viewport/viewportcamera.h"

#include <QtTest>
#include <vxcore/vxbone.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

/// The node at a pixel: a figure of hip (0,0,0) > knee (0,-2,0) ending at (0,-4,0), and a light
/// at (3,0,0).
class tst_FigurePick : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void distances_data();
    void distances();
    void jointsAndBones_data();
    void jointsAndBones();
    void jointsTakePrecedenceOverBones();
    void theNearerBoneIsPicked();
    void nodesThatCannotBeSelected();
    void hiddenNodes();
    void axesCount();

private:
    VxNode *pick(const QVector3D &at, const QPointF &offset = QPointF()) const;

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxScene> m_scene;
    ViewportCamera m_camera;
    VxNode *m_hip = nullptr;
    VxNode *m_knee = nullptr;
    VxNode *m_light = nullptr;
};

void tst_FigurePick::init()
{
    m_guard.reset(new VxWarningGuard);
    m_scene.reset(new VxScene);
    auto *figure = new VxSkeleton("figure");
    m_hip = new VxBone("hip");
    m_knee = new VxBone("knee");
    m_light = new VxNode("light");
    m_knee->setOrigin({0, -2, 0});
    m_knee->setEndPoint({0, -2, 0});
    m_light->setOrigin({3, 0, 0});
    m_hip->addNodeChild(m_knee);
    figure->addNodeChild(m_hip);
    m_scene->addNode(figure);
    m_scene->addNode(m_light);
    m_camera = ViewportCamera();
    m_camera.setViewSize({600, 600});
    m_camera.frame({{-4, -4, -4}, {4, 4, 4}});
}

void tst_FigurePick::cleanup()
{
    m_scene.reset();
    m_guard.reset();
}

VxNode *tst_FigurePick::pick(const QVector3D &at, const QPointF &offset) const
{
    return pickFigure(FigureLines::collect(*m_scene, 0), m_camera,
                      m_camera.project(at).value() + offset);
}

void tst_FigurePick::distances_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<double>("distance");
    QTest::newRow("beside the line") << QPointF(5, 3) << QPointF(10, 0) << 3.0;
    QTest::newRow("on the line") << QPointF(5, 0) << QPointF(10, 0) << 0.0;
    QTest::newRow("before its beginning") << QPointF(-3, 4) << QPointF(10, 0) << 5.0;
    QTest::newRow("behind its end") << QPointF(13, -4) << QPointF(10, 0) << 5.0;
    QTest::newRow("a line without length") << QPointF(3, 4) << QPointF(0, 0) << 5.0;
}

void tst_FigurePick::distances()
{
    QFETCH(QPointF, point);
    QFETCH(QPointF, to);
    const double distance = distanceToLine(point, QPointF(), to);
    QTEST(distance, "distance");
}

void tst_FigurePick::jointsAndBones_data()
{
    QTest::addColumn<QVector3D>("at");
    QTest::addColumn<QPointF>("offset");
    QTest::addColumn<QString>("name");
    QTest::newRow("on the hip") << QVector3D(0, 0, 0) << QPointF() << "hip";
    QTest::newRow("near the hip") << QVector3D(0, 0, 0) << QPointF(-6, 3) << "hip";
    QTest::newRow("on its bone") << QVector3D(0, -1, 0) << QPointF(3, 0) << "hip";
    QTest::newRow("on the knee") << QVector3D(0, -2, 0) << QPointF(0, -4) << "knee";
    QTest::newRow("on the knee's bone") << QVector3D(0, -3, 0) << QPointF(-4, 0) << "knee";
    QTest::newRow("beside the bone") << QVector3D(0, -3, 0) << QPointF(9, 0) << "";
    QTest::newRow("beyond its end") << QVector3D(0, -4, 0) << QPointF(0, 12) << "";
    QTest::newRow("on the light") << QVector3D(3, 0, 0) << QPointF(2, 2) << "light";
    QTest::newRow("nowhere") << QVector3D(-3, 3, 0) << QPointF() << "";
}

void tst_FigurePick::jointsAndBones()
{
    QFETCH(QVector3D, at);
    QFETCH(QPointF, offset);
    const VxNode *node = pick(at, offset);
    QTEST(node ? node->getName() : QString(), "name");
}

void tst_FigurePick::jointsTakePrecedenceOverBones()
{
    // Nearer to the hip's bone than to the knee, but within reach of the knee.
    QCOMPARE(pick({0, -2, 0}, {0, -6}), m_knee);
}

void tst_FigurePick::theNearerBoneIsPicked()
{
    auto *behind = new VxNode("behind");
    const QVector3D away = (m_camera.target() - m_camera.eye()).normalized();
    behind->setOrigin(away * 2);
    m_scene->addNode(behind);
    m_hip->setOrigin({0, 0, 0});
    // Both project to the same pixel; the nearer one is picked, whatever their order.
    m_camera.frame({{-4, -4, -4}, {4, 4, 4}});
    QCOMPARE(pick({0, 0, 0}), m_hip);
    behind->setOrigin(-away * 2);
    QCOMPARE(pick({0, 0, 0}), behind);
}

void tst_FigurePick::nodesThatCannotBeSelected()
{
    m_hip->setSelectable(false);
    QVERIFY(pick({0, 0, 0}) != m_hip);
    QVERIFY(!pick({0, -1, 0}));
}

void tst_FigurePick::hiddenNodes()
{
    m_light->setVisible(false);
    QVERIFY(!pick({3, 0, 0}));
}

void tst_FigurePick::axesCount()
{
    const QVector3D onAxis(3, m_camera.axisLength() * 0.8f, 0);
    QCOMPARE(pick(onAxis), m_light);
    const FigureLines lines = FigureLines::collect(*m_scene, 0);
    QCOMPARE(lines.axes.size(), 1);
    QCOMPARE(lines.axes.at(0).directions.at(1), QVector3D(0, 1, 0));
    m_hip->select();
    QCOMPARE(FigureLines::collect(*m_scene, 0).axes.size(), 2); // the primary one's, too
}

VX_TEST_MAIN(tst_FigurePick)
#include "tst_figurepick.moc"
