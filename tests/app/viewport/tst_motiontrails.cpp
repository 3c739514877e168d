#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "viewport/motiontrails.h"

#include <QPainter>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>

/// Motion trails of a joint that moves along X from 0 to 10 within ten frames, with a key in the
/// middle.
class tst_MotionTrails : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        setUp();
        start();
    }
    void cleanupTestCase()
    {
        vxApp->getUndoStack()->setClean();
        tearDown();
    }
    void init();

    void dotsAreAtFramesAndKeys();
    void dotsFollowTheParents();
    void longRangesAreThinnedOut();
    void positionsThatAreNotFiniteAreLeftOut();
    void theActionShowsTheTrailsOfTheSelection();
    void coloursChangeAtThePlayhead();
    void aClickOnADotSetsTheTime_data();
    void aClickOnADotSetsTheTime();
    void playbackKeepsTheTrails();
    void changesAreShown_data();
    void changesAreShown();
    void removedNodesHaveNoTrail();

private:
    ViewportWidget *view() const { return window()->viewport(); }
    MotionTrails *layer() const { return view()->findChild<MotionTrails *>(); }
    QPoint pixel(const QVector3D &at) const
    {
        return view()->camera().project(at).value_or(QPointF()).toPoint();
    }
    QImage picture() const { return view()->grab().toImage(); }

    VxNode *m_parent = nullptr;
    VxNode *m_joint = nullptr;
};

void tst_MotionTrails::init()
{
    action("VxMotionTrailsAction")->setChecked(false);
    layer()->setEnabled(false);
    window()->document()->clear();
    m_parent = new VxNode("parent");
    m_joint = new VxNode("joint");
    m_parent->addNodeChild(m_joint);
    vxScene->addNode(m_parent);
    vxScene->setPlayRange({0, 1600});
    m_joint->getXPosControl()->setKey(0, 0, 0);
    m_joint->getXPosControl()->setKey(880, 5.5f, 0); // between frames 5 and 6
    m_joint->getXPosControl()->setKey(1600, 10, 0);
    action("VxFrontViewAction")->trigger();
    ViewportCamera camera = view()->camera();
    camera.frame({{-3, -3, 0}, {13, 3, 0}});
    view()->setCamera(camera);
    m_joint->select();
    vxScene->setTime(320);
}

void tst_MotionTrails::dotsAreAtFramesAndKeys()
{
    const MotionTrail trail = MotionTrail::of(m_joint, {0, 1600}, 160);
    QCOMPARE(trail.dots.size(), 12);
    QStringList keys;
    for (const MotionTrail::Dot &dot : trail.dots) {
        QVERIFY((dot.at - QVector3D(float(dot.time) / 160, 0, 0)).length() < 1e-4f);
        if (dot.isKey)
            keys << QString::number(dot.time);
    }
    QCOMPARE(keys.join(' '), QString("0 880 1600"));
    QCOMPARE(MotionTrail::of(m_joint, {160, 320}, 160).dots.size(), 2); // ends included
    QCOMPARE(MotionTrail::of(m_joint, {160, 160}, 160).dots.size(), 1);
}

void tst_MotionTrails::dotsFollowTheParents()
{
    m_parent->getYPosControl()->setKey(0, 0, 0);
    m_parent->getYPosControl()->setKey(1600, 20, 0);
    const MotionTrail trail = MotionTrail::of(m_joint, {0, 1600}, 160);
    QCOMPARE(trail.dots.size(), 12); // the parent's keys are none of the joint's
    QVERIFY((trail.dots.last().at - QVector3D(10, 20, 0)).length() < 1e-4f);
}

void tst_MotionTrails::longRangesAreThinnedOut()
{
    const MotionTrail trail = MotionTrail::of(m_joint, {0, 160 * 1000000}, 160);
    QVERIFY(trail.dots.size() <= MotionTrail::MaxFrames + 10);
    QVERIFY(trail.dots.size() > MotionTrail::MaxFrames / 2);
    const auto isKey = [](const MotionTrail::Dot &dot) { return dot.isKey; };
    QCOMPARE(std::count_if(trail.dots.begin(), trail.dots.end(), isKey), 3);
}

void tst_MotionTrails::positionsThatAreNotFiniteAreLeftOut()
{
    m_parent->getScaleControl()->setKey(0, 1, 1);
    m_parent->getScaleControl()->setKey(800, 3e38f, 1);
    const MotionTrail trail = MotionTrail::of(m_joint, {0, 1600}, 160);
    QCOMPARE(trail.dots.size(), 5);
    layer()->setEnabled(true);
    picture();
}

void tst_MotionTrails::theActionShowsTheTrailsOfTheSelection()
{
    const QImage without = picture();
    view()->setFocus();
    QTRY_VERIFY(view()->hasFocus());
    type(Qt::Key_T);
    QVERIFY(action("VxMotionTrailsAction")->isChecked() && layer()->isEnabled());
    const QRect around(pixel({7, 0, 0}) - QPoint(2, 2), QSize(4, 4));
    QVERIFY(picture().copy(around) != without.copy(around));
    vxScene->selectAllNodes(false);
    QVERIFY(picture().copy(around) == without.copy(around));
    m_joint->select();
    action("VxMotionTrailsAction")->trigger();
    QVERIFY(!layer()->isEnabled());
    QVERIFY(picture().copy(around) == without.copy(around));
}

void tst_MotionTrails::coloursChangeAtThePlayhead()
{
    layer()->setEnabled(true);
    vxScene->setTime(960);
    const QImage image = picture();
    const QColor before = image.pixelColor(pixel({5, 0, 0}));
    const QColor after = image.pixelColor(pixel({8, 0, 0}));
    QVERIFY(before.red() > before.blue() + 50);
    QVERIFY(after.blue() > after.red() + 50);
    // A key is larger than a frame: its square covers what is three pixels above the line.
    vxScene->setTime(0);
    const QImage other = picture();
    const QPoint above(0, -2);
    QVERIFY(other.pixelColor(pixel({5.5f, 0, 0}) + above).blue() > 150);
    QVERIFY(other.pixelColor(pixel({8, 0, 0}) + above).blue() < 150);
    // Of keys on neighbouring frames only the ends are.
    for (int frame = 0; frame <= 8; ++frame)
        m_joint->getXPosControl()->setKey(frame * 160, float(frame), 0);
    const QImage dense = picture();
    QVERIFY(dense.pixelColor(pixel({8, 0, 0}) + above).blue() > 150);
    QVERIFY(dense.pixelColor(pixel({3, 0, 0}) + above).blue() < 150);
}

void tst_MotionTrails::aClickOnADotSetsTheTime_data()
{
    QTest::addColumn<QPoint>("offset");
    QTest::addColumn<QPoint>("released");
    QTest::addColumn<int>("time");
    QTest::newRow("on the dot") << QPoint() << QPoint() << 1280;
    QTest::newRow("beside the dot") << QPoint(0, 5) << QPoint() << 1280;
    QTest::newRow("too far") << QPoint(0, 12) << QPoint() << 320;
    QTest::newRow("released elsewhere") << QPoint() << QPoint(0, 60) << 320;
}

void tst_MotionTrails::aClickOnADotSetsTheTime()
{
    QFETCH(QPoint, offset);
    QFETCH(QPoint, released);
    layer()->setEnabled(true);
    const ViewportCamera camera = view()->camera();
    VxMouseDriver mouse(view());
    const QPoint at = pixel({8, 0, 0}) + offset;
    mouse.press(at);
    if (!released.isNull())
        mouse.moveTo(at + released);
    mouse.release(at + released);
    QTEST(vxScene->getTime(), "time");
    if (offset.y() < 10) {
        QVERIFY(view()->camera() == camera);
        QVERIFY(m_joint->isSelected());
    }
}

void tst_MotionTrails::playbackKeepsTheTrails()
{
    layer()->setEnabled(true);
    picture();
    const int computed = layer()->numComputed();
    for (int frame = 0; frame <= 10; ++frame) {
        vxScene->setTime(frame * 160);
        picture();
    }
    ViewportCamera camera = view()->camera();
    camera.orbit({30, 10});
    view()->setCamera(camera);
    picture();
    QCOMPARE(layer()->numComputed(), computed);
}

void tst_MotionTrails::changesAreShown_data()
{
    QTest::addColumn<int>("change");
    QTest::newRow("a key of the joint") << 0;
    QTest::newRow("a key of its parent") << 1;
    QTest::newRow("the origin of its parent") << 2;
    QTest::newRow("the rotation order of its parent") << 3;
    QTest::newRow("another parent") << 4;
    QTest::newRow("the play range") << 5;
    QTest::newRow("keys in a change block") << 6;
}

void tst_MotionTrails::changesAreShown()
{
    QFETCH(int, change);
    layer()->setEnabled(true);
    picture();
    const int computed = layer()->numComputed();
    switch (change) {
    case 0:
        m_joint->getYPosControl()->setKey(800, 3, 0);
        break;
    case 1:
        m_parent->getYPosControl()->setKey(800, 3, 0);
        break;
    case 2:
        m_parent->setOrigin({0, 3, 0});
        break;
    case 3:
        m_parent->setRotationOrder(VxNode::ZYX);
        break;
    case 4:
        m_joint->setNodeParent(nullptr);
        break;
    case 5:
        vxScene->setPlayRange({0, 800});
        break;
    default: {
        const VxChangeBlock block;
        m_joint->getYPosControl()->setKey(800, 3, 0);
        m_joint->getZPosControl()->setKey(800, 3, 0);
    }
    }
    picture();
    QCOMPARE(layer()->numComputed(), computed + 1);
    picture();
    QCOMPARE(layer()->numComputed(), computed + 1);
}

void tst_MotionTrails::removedNodesHaveNoTrail()
{
    layer()->setEnabled(true);
    picture();
    vxScene->removeNode(m_parent);
    picture();
    VxMouseDriver(view()).click(pixel({8, 0, 0}));
    QCOMPARE(vxScene->getTime(), 320);
}

VX_TEST_MAIN(tst_MotionTrails)
#include "tst_motiontrails.moc"
