#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "viewport/boneshape.h"
#include "viewport/figurelines.h"
#include "viewport/viewportcamera.h"

#include <QtTest>
#include <limits>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

/// figure > hip (0,10,0) > { knee (-1,-4,0) ending at (0,-5,0), spine (0,3,0) without an end }
struct Figure
{
    Figure()
    {
        hip->setOrigin({0, 10, 0});
        knee->setOrigin({-1, -4, 0});
        knee->setEndPoint({0, -5, 0});
        spine->setOrigin({0, 3, 0});
        root->addNodeChild(hip);
        hip->addNodeChild(knee);
        hip->addNodeChild(spine);
        scene.addNode(root);
    }

    VxScene scene;
    VxSkeleton *root = new VxSkeleton(QStringLiteral("figure"));
    VxBone *hip = new VxBone(QStringLiteral("hip"));
    VxBone *knee = new VxBone(QStringLiteral("knee"));
    VxBone *spine = new VxBone(QStringLiteral("spine"));
};

} // namespace

class tst_FigureLines : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }

    void bonesEndAtBonesOrAtTheirEndPoints();
    void linksConnectChildrenAwayFromTheEnd();
    void bonesWithoutALength();
    void loneBonesHaveALength();
    void theFigureFollowsTheTime();
    void selectionIsMarked();
    void hiddenNodesAreLeftOut();
    void hidingHidesDescendants();
    void plainNodesAreJoints();
    void positionsThatAreNotFiniteAreSkipped();
    void points();

private:
    QScopedPointer<VxWarningGuard> m_guard;
};

void tst_FigureLines::bonesEndAtBonesOrAtTheirEndPoints()
{
    const Figure figure;
    const FigureLines lines = FigureLines::collect(figure.scene, 0);
    QCOMPARE(lines.joints.size(), 3); // without the figure's own place
    QCOMPARE(lines.joints.at(0).node, figure.hip);
    QCOMPARE(lines.joints.at(0).at, QVector3D(0, 10, 0));
    QCOMPARE(lines.bones.size(), 3);
    QCOMPARE(lines.bones.at(0).node, figure.hip); // to the knee
    QCOMPARE(lines.bones.at(0).from, QVector3D(0, 10, 0));
    QCOMPARE(lines.bones.at(0).to, QVector3D(-1, 6, 0));
    QCOMPARE(lines.bones.at(1).node, figure.knee); // to its end
    QCOMPARE(lines.bones.at(1).to, QVector3D(-1, 1, 0));
    QCOMPARE(lines.bones.at(2).node, figure.hip); // to the spine, which ends nowhere
    QCOMPARE(lines.bones.at(2).to, QVector3D(0, 13, 0));
}

void tst_FigureLines::linksConnectChildrenAwayFromTheEnd()
{
    Figure figure;
    figure.hip->setEndPoint({0, 3, 0});
    const FigureLines lines = FigureLines::collect(figure.scene, 0);
    QCOMPARE(lines.bones.size(), 2);
    QCOMPARE(lines.bones.at(0).node, figure.hip); // to its end, where the spine is
    QCOMPARE(lines.bones.at(0).to, QVector3D(0, 13, 0));
    QCOMPARE(lines.bones.at(1).node, figure.knee);
    QCOMPARE(lines.links.size(), 1); // to the knee, which is nearer to the hip's joint
    QCOMPARE(lines.links.at(0).node, figure.hip);
    QCOMPARE(lines.links.at(0).from, QVector3D(0, 10, 0));
    QCOMPARE(lines.links.at(0).to, QVector3D(-1, 6, 0));
    figure.spine->setOrigin({2, 4, 0});
    const FigureLines moved = FigureLines::collect(figure.scene, 0);
    QCOMPARE(moved.links.size(), 2);
    QCOMPARE(moved.links.at(1).from, QVector3D(0, 13, 0)); // from the end, which is nearer
}

void tst_FigureLines::bonesWithoutALength()
{
    Figure figure;
    figure.hip->getScaleControl()->setStoredValue(0); // all of it in one place
    ViewportCamera camera;
    camera.setViewSize({400, 300});
    const FigureLines lines = FigureLines::collect(figure.scene, 0);
    QCOMPARE(lines.joints.size(), 3);
    for (const FigureLines::Bone &bone : lines.bones)
        QVERIFY(!boneShape(bone, camera));
    // Seen from its end, a bone is a line of no length and no body.
    camera.setDirection(0, 90);
    camera.setOrthographic(true);
    const auto shape = boneShape({{0, 0, 0}, {0, 5, 0}, figure.hip, false}, camera);
    QVERIFY(shape && shape->outline.isEmpty() && !shape->contains({200, 150}));
}

void tst_FigureLines::loneBonesHaveALength()
{
    VxScene scene;
    auto *root = new VxSkeleton(QStringLiteral("figure"));
    auto *bone = new VxBone(QStringLiteral("joint"));
    bone->setOrigin({1, 0, 0});
    root->addNodeChild(bone);
    scene.addNode(root);
    const auto end = [&scene] {
        const FigureLines lines = FigureLines::collect(scene, 0);
        return lines.bones.size() == 1 ? lines.bones.first().to : QVector3D();
    };
    QCOMPARE(end(), QVector3D(1, 10, 0));
    bone->getZRotControl()->setStoredValue(90);
    QVERIFY((end() - QVector3D(-9, 0, 0)).length() < 1e-4f);
    bone->getScaleControl()->setStoredValue(3); // the length is that of the view
    QVERIFY((end() - QVector3D(-9, 0, 0)).length() < 1e-4f);
    bone->getScaleControl()->setStoredValue(0); // no direction
    QVERIFY(FigureLines::collect(scene, 0).bones.isEmpty());
    bone->getScaleControl()->setStoredValue(1);
    auto *light = new VxNode(QStringLiteral("light"));
    light->setOrigin({1, 0, -40});
    scene.addNode(light);
    QVERIFY((end() - QVector3D(-3, 0, 0)).length() < 1e-4f);
    bone->setVisible(false);
    QVERIFY(FigureLines::collect(scene, 0).bones.isEmpty());
    bone->setVisible(true);
    bone->setEndPoint({0, 1, 0});
    QVERIFY((end() - QVector3D(0, 0, 0)).length() < 1e-4f);
}

void tst_FigureLines::theFigureFollowsTheTime()
{
    Figure figure;
    figure.hip->getXPosControl()->setKey(0, 0, 0);
    figure.hip->getXPosControl()->setKey(100, 50, 0);
    figure.scene.setTime(0); // the time asked for counts, not the scene's
    const FigureLines lines = FigureLines::collect(figure.scene, 50);
    QCOMPARE(lines.joints.at(0).at, QVector3D(25, 10, 0));
    QCOMPARE(lines.bones.at(1).to, QVector3D(24, 1, 0));
}

void tst_FigureLines::selectionIsMarked()
{
    Figure figure;
    figure.knee->select();
    const FigureLines lines = FigureLines::collect(figure.scene, 0);
    QVERIFY(!lines.bones.at(0).selected);
    QVERIFY(lines.bones.at(1).selected);
    QVERIFY(!lines.joints.at(0).selected);
    QVERIFY(lines.joints.at(1).selected);
}

void tst_FigureLines::hiddenNodesAreLeftOut()
{
    Figure figure;
    figure.knee->setVisible(false);
    const FigureLines lines = FigureLines::collect(figure.scene, 0);
    QCOMPARE(lines.joints.size(), 2);
    QCOMPARE(lines.bones.size(), 2); // the hip's to both, without the knee's own
    QCOMPARE(lines.bones.at(0).node, figure.hip);
    QCOMPARE(lines.bones.at(0).to, QVector3D(-1, 6, 0));
    QCOMPARE(lines.bones.at(1).node, figure.hip);
}

void tst_FigureLines::hidingHidesDescendants()
{
    Figure figure;
    figure.knee->select(); // the primary selection has axes, where it is shown
    auto *grip = new VxNode(QStringLiteral("grip"));
    figure.scene.addNode(grip, figure.knee);
    const FigureLines before = FigureLines::collect(figure.scene, 0);
    QCOMPARE(before.axes.size(), 2);
    figure.hip->setVisible(false);
    const FigureLines lines = FigureLines::collect(figure.scene, 0);
    QVERIFY(lines.joints.isEmpty() && lines.bones.isEmpty() && lines.axes.isEmpty());
    QVERIFY(figure.knee->isVisible());
    figure.hip->setVisible(true);
    QCOMPARE(FigureLines::collect(figure.scene, 0).points(), before.points());
}

void tst_FigureLines::plainNodesAreJoints()
{
    VxScene scene;
    auto *node = new VxNode(QStringLiteral("light"));
    node->setOrigin({1, 2, 3});
    scene.addNode(node);
    scene.addNode(new VxSkeleton(QStringLiteral("empty figure")));
    const FigureLines lines = FigureLines::collect(scene, 0);
    QVERIFY(lines.bones.isEmpty());
    QCOMPARE(lines.joints.size(), 2);
    QCOMPARE(lines.joints.at(0).at, QVector3D(1, 2, 3));
}

void tst_FigureLines::positionsThatAreNotFiniteAreSkipped()
{
    Figure figure;
    // Its place is a number still; that of its end is none.
    figure.knee->getScaleControl()->setStoredValue(std::numeric_limits<float>::max());
    QCOMPARE(FigureLines::collect(figure.scene, 0).bones.size(), 2);
    figure.hip->setOrigin({0, 1e30f, 0});
    QVERIFY(FigureLines::collect(figure.scene, 0).points().isEmpty());
    figure.hip->setOrigin({0, 1e10f, 0});
    QCOMPARE(FigureLines::collect(figure.scene, 0).joints.size(), 3);
    auto *node = new VxNode(QStringLiteral("endless"));
    node->getScaleControl()->setStoredValue(std::numeric_limits<float>::max());
    figure.scene.addNode(node);
    const FigureLines lines = FigureLines::collect(figure.scene, 0);
    QCOMPARE(lines.axes.size(), 1);
    QCOMPARE(lines.axes.first().directions[0], QVector3D());
}

void tst_FigureLines::points()
{
    const Figure figure;
    const QVector<QVector3D> points = FigureLines::collect(figure.scene, 0).points();
    QCOMPARE(points.size(), 6);           // three joints, three ends
    QVERIFY(points.contains({0, 10, 0})); // where the hip is
    QVERIFY(points.contains({-1, 1, 0})); // where the knee ends
    QVERIFY(FigureLines().points().isEmpty());
}

VX_TEST_MAIN(tst_FigureLines)
#include "tst_figurelines.moc"
