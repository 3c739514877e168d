#include "scenetree/sceneedits.h"
#include "testing/vxlostrelease.h"
#include "testing/vxtestmain.h"
#include "toolstestbase.h"

#include <QScriptEngine>
#include <ctime>

/// Drags of gizmos that something else interrupts: lost releases, removals, undo, other times and
/// scenes.
class tst_InterruptedGestures : public QObject, PoseToolTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }
    void init() { newFigure(); }

    void aLostReleaseRestores_data();
    void aLostReleaseRestores();
    void aDeletedNodeRestoresTheOthers();
    void anotherTimeEndsTheDrag();
    void aKeyBelowATransientValueIsKept();
    void undoDuringADrag();
    void listenersMayChangeAnything_data();
    void listenersMayChangeAnything();
    void anotherSceneEndsTheDrag();
    void thousandsOfPinnedLimbs();
};

void tst_InterruptedGestures::aLostReleaseRestores_data()
{
    QTest::addColumn<int>("way");
    for (int way = 0; way < VxLostReleaseWays; ++way)
        QTest::addRow("way %d", way) << way;
}

void tst_InterruptedGestures::aLostReleaseRestores()
{
    QFETCH(int, way);
    angle("LeftUpperArm", 2)->setKey(0, 20, 0);
    const QByteArray before = sceneBytes();
    use(PoseTools::Rotate, {"LeftUpperArm", "Hips"});
    const QPoint at = pixelOf(GizmoPart::Z);
    VxMouseDriver mouse(view());
    mouse.press(at);
    mouse.moveTo(at + QPoint(20, 20));
    QVERIFY(sceneBytes() != before);
    vxLoseRelease(view(), way);
    QVERIFY(sceneBytes() == before);
    mouse.moveTo(at + QPoint(40, 40));
    mouse.release(at);
    QVERIFY(sceneBytes() == before);
    QCOMPARE(history()->count(), 0);
}

void tst_InterruptedGestures::aDeletedNodeRestoresTheOthers()
{
    use(PoseTools::Rotate, {"LeftUpperArm", "RightUpperArm"});
    const QPoint at = pixelOf(GizmoPart::Y);
    VxMouseDriver mouse(view());
    mouse.press(at);
    mouse.moveTo(at + QPoint(20, 20));
    {
        VxUndoStackHold hold;
        vxScene->removeNode(node("LeftShoulder"));
        hold.accept("Delete");
    }
    QVERIFY(!tool()->readout().size());
    mouse.moveTo(at + QPoint(40, 40));
    mouse.release(at);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(angle("RightUpperArm", i)->getNumKeys(), 0);
    QCOMPARE(history()->count(), 1);
    history()->undo();
    for (int i = 0; i < 3; ++i)
        QCOMPARE(angle("LeftUpperArm", i)->getNumKeys(), 0);
}

void tst_InterruptedGestures::anotherTimeEndsTheDrag()
{
    use(PoseTools::Rotate, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::Y);
    VxMouseDriver mouse(view());
    mouse.press(at);
    mouse.moveTo(at + QPoint(20, 20));
    const float reached = angle("Hips", 1)->getValue();
    vxScene->setTime(800);
    mouse.moveTo(at + QPoint(40, 40));
    mouse.release(at);
    QCOMPARE(angle("Hips", 1)->getNumKeys(), 1);
    QCOMPARE(angle("Hips", 1)->getValue(0), reached);
    QCOMPARE(history()->count(), 1);
}

void tst_InterruptedGestures::aKeyBelowATransientValueIsKept()
{
    angle("Hips", 1)->setKey(0, 10, 0);
    use(PoseTools::Rotate, {"Hips"});
    for (const bool isCancelled : {false, true}) {
        vxScene->setAnimating(false);
        angle("Hips", 1)->setTransientValue(30);
        vxScene->setAnimating(true);
        history()->clear();
        const QPoint at = pixelOf(GizmoPart::Y);
        VxMouseDriver mouse(view());
        mouse.press(at);
        mouse.moveTo(at + QPoint(20, 20));
        QVERIFY(std::abs(angle("Hips", 1)->getValue() - 30) > 1);
        if (isCancelled)
            type(Qt::Key_Escape);
        else
            mouse.moveTo(at);
        mouse.release(at);
        QCOMPARE(keysOf(angle("Hips", 1)), QString("0=10"));
        QCOMPARE(angle("Hips", 1)->getValue(), 30.0f);
        if (isCancelled)
            QCOMPARE(history()->count(), 0);
        history()->undo(); // at most the transient value
        QCOMPARE(keysOf(angle("Hips", 1)), QString("0=10"));
    }
}

void tst_InterruptedGestures::undoDuringADrag()
{
    use(PoseTools::Rotate, {"Hips"});
    const QByteArray start = sceneBytes();
    typeAmount(GizmoPart::Y, "20");
    const QByteArray before = sceneBytes();
    const QPoint at = pixelOf(GizmoPart::Y);
    VxMouseDriver mouse(view());
    mouse.press(at);
    mouse.moveTo(at + QPoint(20, 20));
    history()->undo();
    mouse.moveTo(at + QPoint(40, 20));
    mouse.release(at + QPoint(40, 20));
    QCOMPARE(keyFault(), QString());
    const QByteArray after = sceneBytes();
    while (history()->canUndo())
        history()->undo();
    QVERIFY(sceneBytes() == start);
    while (history()->canRedo())
        history()->redo();
    QVERIFY(sceneBytes() == after || sceneBytes() == before);
}

void tst_InterruptedGestures::listenersMayChangeAnything_data()
{
    QTest::addColumn<QString>("change");
    for (const char *change : {"time", "remove", "parent", "clear", "tool", "undo", "lock"})
        QTest::newRow(change) << change;
}

// In the first notification of a change, on a node with a pinned foot below it.
void tst_InterruptedGestures::listenersMayChangeAnything()
{
    QFETCH(QString, change);
    node("LeftFoot")->setPinned(true);
    use(PoseTools::Rotate, {"Hips", "Spine"});
    const QPoint at = pixelOf(GizmoPart::Y);
    bool isDone = false;
    const auto disturb = [&] {
        if (isDone)
            return;
        isDone = true;
        if (change == "time")
            vxScene->setTime(320);
        else if (change == "remove")
            vxScene->removeNode(node("Spine"));
        else if (change == "parent")
            SceneEdits::move(vxScene, {node("LeftThigh")}, nullptr, -1,
                             SceneEdits::Kept::WorldPlace);
        else if (change == "clear")
            vxScene->clear();
        else if (change == "tool")
            tools()->activate(PoseTools::Move);
        else if (change == "undo")
            history()->undo();
        else
            angle("Hips", 1)->setLocked(true);
    };
    for (const char *release : {"move", "release"}) {
        QObject listener;
        isDone = false;
        VxMouseDriver mouse(view());
        mouse.press(at);
        if (release == QLatin1String("release"))
            mouse.moveTo(at + QPoint(20, 20));
        QObject::connect(vxScene, &VxScene::nodeValuesChanged, &listener, disturb);
        mouse.moveTo(at + QPoint(30, 20));
        mouse.moveTo(at + QPoint(35, 20));
        mouse.release(at + QPoint(35, 20));
        QCOMPARE(keyFault(), QString());
        QVERIFY(!tool() || !tool()->isBusy());
        if (change != "time" && change != "tool")
            break;
        tools()->activate(PoseTools::Rotate);
    }
    vxScene->clear();
}

void tst_InterruptedGestures::anotherSceneEndsTheDrag()
{
    use(PoseTools::Rotate, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::Y);
    VxMouseDriver mouse(view());
    mouse.press(at);
    mouse.moveTo(at + QPoint(20, 20));
    vxScene->clear();
    CreateEdits::addFigure(vxScene);
    makeAllControls();
    history()->clear();
    const QByteArray before = sceneBytes();
    mouse.moveTo(at + QPoint(40, 40));
    mouse.release(at + QPoint(40, 40));
    QVERIFY(sceneBytes() == before);
    QCOMPARE(history()->count(), 0);
}

// A press that compares every pinned limb with every selected node takes more than 5 seconds.
void tst_InterruptedGestures::thousandsOfPinnedLimbs()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("Most of the time is the sanitizer's.");
#endif
    constexpr int Limbs = 20000;
    vxScene->clear();
    for (int i = 0; i < Limbs; ++i) {
        auto *root = new VxNode(QStringLiteral("Root%1").arg(i));
        VxNode *above = root;
        for (const char *name : {"Thigh", "Shin", "Foot"}) {
            auto *bone = new VxBone(QStringLiteral("%1%2").arg(name).arg(i));
            bone->setOrigin({0, 10, 0});
            above->addNodeChild(bone);
            above = bone;
        }
        above->setPinned(true);
        vxScene->addNode(root);
    }
    QVector<VxNode *> roots;
    for (VxNode *each : vxScene->getNodes()) {
        if (!each->getNodeParent())
            roots.append(each);
    }
    SceneEdits::selectOnly(vxScene, roots);
    tools()->activate(PoseTools::Move);
    const QPoint at = pixelOf(GizmoPart::Y);
    QVERIFY(at.x() >= 0);
    window()->setUpdatesEnabled(false);
    VxMouseDriver mouse(view());
    const std::clock_t start = std::clock();
    mouse.press(at);
    const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
    type(Qt::Key_Escape);
    mouse.release(at);
    window()->setUpdatesEnabled(true);
    QVERIFY2(seconds < 3, qPrintable(QString::number(seconds)));
    vxScene->clear();
}

VX_TEST_MAIN(tst_InterruptedGestures)
#include "tst_interruptedgestures.moc"
