#include "pose/breakdowndialog.h"
#include "pose/cycledialog.h"
#include "pose/inbetween.h"
#include "posetestbase.h"
#include "scenetree/sceneedits.h"
#include "testing/vxtestmain.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTimer>
#include <functional>
#include <limits>
#include <vxcore/vxintproperty.h>

/// Breakdowns, holds and cycles in the whole program. Keys are drawn as "frame=value".
class tst_InBetween : public QObject, private PoseTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }
    void init() { newScene(); }

    void breaksDown_data();
    void breaksDown();
    void rotationsFollowTheArc();
    void breakdownOfFewKeys();
    void sliderShowsThePose();
    void escapeRestores();
    void theSliderLeavesTheFigureVisible();
    void theSliderStopsPlayback();
    void aNodeIsRemovedUnderTheSlider();
    void breakdownInTwoGestures();
    void holds_data();
    void holds();
    void cycles_data();
    void cycles();
    void cycleContinuesTheRootsMotion();
    void cycleExtendsTheRanges();
    void cycleReportsEndsThatDiffer();
    void cycleOfWholeNumbersAndLocks();
    void refusedCycles();
    void fourCyclesInTwoGestures();
    void endsAgree();

private:
    // What happens while a dialog of a class is open; it must be closed by it.
    template <class Dialog> static void inDialog(const std::function<void(Dialog *)> &act)
    {
        auto *timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, timer, [act, timer] {
            auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            timer->stop();
            timer->deleteLater();
            act(dialog);
        });
        timer->start(1);
    }
};

void tst_InBetween::breaksDown_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("toward");
    QTest::addColumn<double>("part");
    QTest::addColumn<QString>("result"); // at frame 5
    const int neighbours = int(Breakdown::Toward::Neighbours);
    const int rest = int(Breakdown::Toward::Rest);
    const int average = int(Breakdown::Toward::Average);
    QTest::newRow("half way") << "0=10 8=30" << neighbours << 0.5 << "0=10 5=20 8=30";
    QTest::newRow("at the first pose") << "0=10 8=30" << neighbours << 0.0 << "0=10 5=10 8=30";
    QTest::newRow("beyond it") << "0=10 8=30" << neighbours << -0.5 << "0=10 5=0 8=30";
    QTest::newRow("beyond the second") << "0=10 8=30" << neighbours << 1.5 << "0=10 5=40 8=30";
    QTest::newRow("a key there is no neighbour")
        << "0=10 5=99 8=30" << neighbours << 0.5 << "0=10 5=20 8=30";
    QTest::newRow("toward rest") << "0=16 10=16" << rest << 0.25 << "0=16 5=12 10=16";
    QTest::newRow("beyond rest") << "0=16 10=16" << rest << 1.5 << "0=16 5=-8 10=16";
    QTest::newRow("toward the average") << "0=10 5=50 8=30" << average << 0.5 << "0=10 5=35 8=30";
    QTest::newRow("the average") << "0=10 5=50 8=30" << average << 1.0 << "0=10 5=20 8=30";
    QTest::newRow("keys before only") << "0=10 2=30" << neighbours << 0.5 << "0=10 2=30 5=30";
    QTest::newRow("more than half a turn") << "0=0 8=700" << neighbours << 0.5 << "0=0 5=350 8=700";
}

void tst_InBetween::breaksDown()
{
    QFETCH(QString, keys);
    QFETCH(int, toward);
    QFETCH(double, part);
    // On a rotation and on a translation.
    for (const bool isAngle : {true, false}) {
        newScene();
        VxFloatProperty *property = isAngle ? angle("Hips", 1) : node("Hips")->getZPosControl();
        setKeys(property, keys);
        vxScene->setTime(5 * 160);
        select({"Hips"});
        const QByteArray before = sceneBytes();
        const PoseResult result = InBetween::breakdown(vxScene, part, Breakdown::Toward(toward));
        QVERIFY2(result.done, qPrintable(result.message));
        QTEST(keysOf(property), "result");
        checkOneEntry(before, "Breakdown");
    }
}

// Interpolated angles would give another rotation half way between two about different axes.
void tst_InBetween::rotationsFollowTheArc()
{
    setKeys(angle("Hips", 0), "0=90 8=0");
    setKeys(angle("Hips", 1), "0=0 8=0");
    setKeys(angle("Hips", 2), "0=0 8=90");
    vxScene->setTime(4 * 160);
    select({"Hips"});
    InBetween::breakdown(vxScene, 0.5, Breakdown::Toward::Neighbours);
    const auto rotation = [this](VxTime time) {
        return vxQuaternion(VxEuler{double(angle("Hips", 0)->getValue(time)),
                                    double(angle("Hips", 1)->getValue(time)),
                                    double(angle("Hips", 2)->getValue(time))},
                            VxRotationOrder::YXZ);
    };
    const VxQuaternion middle = rotation(4 * 160);
    QVERIFY(qAbs(vxAngleBetween(middle, vxSlerp(rotation(0), rotation(8 * 160), 0.5))) < 1e-3);
    // Half as far beyond the end as from end to end.
    InBetween::breakdown(vxScene, 1.5, Breakdown::Toward::Neighbours);
    const double whole = vxAngleBetween(rotation(0), rotation(8 * 160));
    QVERIFY(qAbs(vxAngleBetween(rotation(8 * 160), rotation(4 * 160)) - whole / 2) < 1e-3);
    const double turned = 360 - vxAngleBetween(rotation(0), rotation(4 * 160));
    QVERIFY(qAbs(qMin(turned, 360 - turned) - qMin(whole * 1.5, 360 - whole * 1.5)) < 1e-3);
}

void tst_InBetween::breakdownOfFewKeys()
{
    select({"Figure"});
    const QByteArray before = sceneBytes();
    const PoseResult result = InBetween::breakdown(vxScene, 0.5, Breakdown::Toward::Neighbours);
    QVERIFY(!result.done);
    QCOMPARE(result.message,
             QString("The selected nodes have no keys before or after this frame."));
    QVERIFY(sceneBytes() == before);
    QCOMPARE(history()->count(), 0);
    // Other channels of the figure get no keys.
    setKeys(angle("Hips", 1), "0=10 8=30");
    setKeys(angle("LeftThigh", 0), "0=10");
    vxScene->setTime(160);
    QVERIFY(InBetween::breakdown(vxScene, 0.5, Breakdown::Toward::Neighbours).done);
    int keyed = 0;
    for (const VxNode *each : vxScene->getNodes()) {
        for (const VxProperty *property : each->getMadeProperties())
            keyed += property->getNumKeys() > 0 ? 1 : 0;
    }
    QCOMPARE(keyed, 2);
}

void tst_InBetween::sliderShowsThePose()
{
    setKeys(angle("Hips", 1), "0=10 8=30");
    vxScene->setTime(4 * 160);
    select({"Hips"});
    const QByteArray before = sceneBytes();
    inDialog<BreakdownDialog>([this](BreakdownDialog *dialog) {
        QCOMPARE(angle("Hips", 1)->getValue(), 20.0f);
        auto *slider = dialog->findChild<QSlider *>();
        slider->setFocus();
        QTest::keyClick(slider, Qt::Key_Home);
        QCOMPARE(angle("Hips", 1)->getValue(), 0.0f);
        QTest::keyClick(slider, Qt::Key_End);
        QCOMPARE(angle("Hips", 1)->getValue(), 40.0f);
        auto *percent = dialog->findChild<QSpinBox *>();
        percent->selectAll();
        QTest::keyClicks(percent, "25");
        QCOMPARE(angle("Hips", 1)->getValue(), 15.0f);
        QCOMPARE(slider->value(), 25);
        QCOMPARE(history()->count(), 0);
        dialog->accept();
    });
    action("VxBreakdownAction")->trigger();
    checkOneEntry(before, "Breakdown");
    QCOMPARE(keysOf(angle("Hips", 1)), QString("0=10 4=15 8=30"));
}

void tst_InBetween::escapeRestores()
{
    setKeys(angle("Hips", 1), "0=10 4=77t 8=30");
    node("Hips")->getXPosControl()->setValue(0, 3);
    history()->clear();
    vxScene->setTime(4 * 160);
    select({"Figure"});
    const QByteArray before = sceneBytes();
    inDialog<BreakdownDialog>([this](BreakdownDialog *dialog) {
        QCOMPARE(angle("Hips", 1)->getValue(), 20.0f);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    action("VxBreakdownAction")->trigger();
    QVERIFY(sceneBytes() == before);
    QCOMPARE(history()->count(), 0);
}

// It shows its poses in the viewport.
void tst_InBetween::theSliderLeavesTheFigureVisible()
{
    setKeys(angle("Hips", 1), "0=10 8=30");
    select({"Hips"});
    const QSize size = window()->size();
    window()->resize(1600, 1200);
    const QWidget *view = window()->viewport();
    QTRY_VERIFY(view->height() > 400);
    QRect box;
    inDialog<BreakdownDialog>([&box](BreakdownDialog *dialog) {
        box = dialog->frameGeometry();
        dialog->reject();
    });
    action("VxBreakdownAction")->trigger();
    const QRect picture(view->mapToGlobal(QPoint()), view->size());
    QVERIFY(picture.contains(box));
    QVERIFY(!box.contains(picture.center()));
    window()->resize(size);
}

// The dialog's time would no longer be the scene's, and the entry would contain times.
void tst_InBetween::theSliderStopsPlayback()
{
    setKeys(angle("Hips", 1), "0=10 8=30");
    select({"Hips"});
    vxScene->play();
    QVERIFY(vxScene->isPlaying());
    bool isPlaying = true;
    inDialog<BreakdownDialog>([&isPlaying](BreakdownDialog *dialog) {
        isPlaying = vxScene->isPlaying();
        dialog->reject();
    });
    action("VxBreakdownAction")->trigger();
    vxScene->pause();
    QVERIFY(!isPlaying);
}

void tst_InBetween::aNodeIsRemovedUnderTheSlider()
{
    setKeys(angle("Hips", 1), "0=10 8=30");
    setKeys(angle("Head", 1), "0=10 8=30");
    history()->clear();
    vxScene->setTime(4 * 160);
    select({"Hips", "Head"});
    const QByteArray before = sceneBytes();
    const VxFloatProperty *removed = angle("Head", 1);
    inDialog<BreakdownDialog>([removed](BreakdownDialog *dialog) {
        QCOMPARE(removed->getValue(4 * 160), 20.0f);
        SceneEdits::remove(vxScene, {node("Head")});
        dialog->findChild<QSpinBox *>()->setValue(100);
        QCOMPARE(angle("Hips", 1)->getValue(4 * 160), 30.0f);
        QCOMPARE(removed->getValue(4 * 160), 20.0f);
        dialog->reject();
    });
    action("VxBreakdownAction")->trigger();
    QCOMPARE(sceneBytes(), before);
    QCOMPARE(history()->count(), 0);
}

// The command and Return.
void tst_InBetween::breakdownInTwoGestures()
{
    setKeys(angle("Hips", 1), "0=10 8=30");
    vxScene->setTime(4 * 160);
    select({"Hips"});
    bool isOpen = false;
    inDialog<BreakdownDialog>([&isOpen](BreakdownDialog *dialog) {
        isOpen = true;
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        QVERIFY(!dialog->isVisible());
    });
    QCOMPARE(action("VxBreakdownAction")->shortcut(), QKeySequence("Ctrl+B"));
    action("VxBreakdownAction")->trigger();
    QVERIFY(isOpen);
    QCOMPARE(keysOf(angle("Hips", 1)), QString("0=10 4=20 8=30"));
    QCOMPARE(history()->count(), 1);
}

void tst_InBetween::holds_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("result"); // held until frame 5
    QTest::newRow("until the playhead") << "0=10 8=30"
                                        << "0=10 5=10 8=30";
    QTest::newRow("a key there") << "0=10 5=20c 8=30"
                                 << "0=10 5=10c 8=30";
    QTest::newRow("smooth keys") << "0=10t 3=20t 8=30"
                                 << "0=10t 3=20 5=20t 8=30";
    QTest::newRow("constant keys") << "0=10c 8=30"
                                   << "0=10c 5=10c 8=30";
    QTest::newRow("the last key") << "0=10 3=20"
                                  << "0=10 3=20 5=20";
}

void tst_InBetween::holds()
{
    QFETCH(QString, keys);
    setKeys(angle("LeftThigh", 0), keys);
    setKeys(angle("RightThigh", 0), "8=30");
    vxScene->setTime(5 * 160);
    select({"Hips"});
    const QByteArray before = sceneBytes();
    action("VxHoldPoseAction")->trigger();
    QCOMPARE(status(), QString("Held the pose on 1 channel."));
    QTEST(keysOf(angle("LeftThigh", 0)), "result");
    QCOMPARE(keysOf(angle("RightThigh", 0)), QString("8=30"));
    checkOneEntry(before, "Hold");
}

void tst_InBetween::cycles_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("result"); // of the frames 10 to 20
    QTest::newRow("a key at either end") << "10=1 14=5 20=1" << 2 << "10=1 14=5 20=1 24=5 30=1";
    QTest::newRow("three cycles") << "10=1 14=5 20=1" << 3 << "10=1 14=5 20=1 24=5 30=1 34=5 40=1";
    QTest::newRow("none at the end") << "10=1 14=5" << 2 << "10=1 14=5 20=1 24=5";
    QTest::newRow("none at the start") << "14=5 20=1" << 2 << "14=5 20=1 24=5 30=1";
    QTest::newRow("in between only") << "14=5 16=6" << 2 << "14=5 16=6 24=5 26=6";
    QTest::newRow("shape of the start where cycles meet")
        << "10=1t 14=5c 20=1c" << 3 << "10=1t 14=5c 20=1t 24=5c 30=1t 34=5c 40=1c";
    QTest::newRow("keys beyond are replaced")
        << "0=9 10=1 20=1 23=7 30=8 31=9" << 2 << "0=9 10=1 20=1 30=1 31=9";
    QTest::newRow("ends that differ") << "10=1 20=2" << 2 << "10=1 20=2 30=2";
    QTest::newRow("no key within") << "0=9 25=3" << 2 << "0=9 25=3";
}

void tst_InBetween::cycles()
{
    QFETCH(QString, keys);
    QFETCH(int, count);
    setKeys(angle("LeftThigh", 0), keys);
    setKeys(angle("RightThigh", 0), "15=0");
    vxScene->setPlayRange({10 * 160, 20 * 160});
    history()->clear();
    select({"Figure"});
    const QByteArray before = sceneBytes();
    const PoseResult result = InBetween::cycle(vxScene, count, true);
    QVERIFY2(result.done, qPrintable(result.message));
    QTEST(keysOf(angle("LeftThigh", 0)), "result");
    checkOneEntry(before, "Cycle");
}

void tst_InBetween::cycleContinuesTheRootsMotion()
{
    setKeys(node("Hips")->getZPosControl(), "0=0 5=30 10=60");
    setKeys(node("Hips")->getYPosControl(), "0=0 5=4 10=0");
    setKeys(node("LeftThigh")->getZPosControl(), "0=0 10=1");
    vxScene->setPlayRange({0, 1600});
    history()->clear();
    select({"Hips"});
    QVERIFY(InBetween::cycle(vxScene, 3, true).done);
    QCOMPARE(keysOf(node("Hips")->getZPosControl()),
             QString("0=0 5=30 10=60 15=90 20=120 25=150 30=180"));
    QCOMPARE(keysOf(node("Hips")->getYPosControl()), QString("0=0 5=4 10=0 15=4 20=0 25=4 30=0"));
    QCOMPARE(keysOf(node("LeftThigh")->getZPosControl()), QString("0=0 10=1 20=1 30=1"));
    history()->undo();
    QVERIFY(InBetween::cycle(vxScene, 2, false).done);
    QCOMPARE(keysOf(node("Hips")->getZPosControl()), QString("0=0 5=30 10=60 15=30 20=60"));
}

void tst_InBetween::cycleExtendsTheRanges()
{
    setKeys(angle("Hips", 1), "0=0 10=0");
    vxScene->setAnimRange({0, 3200});
    vxScene->setPlayRange({0, 1600});
    history()->clear();
    select({"Hips"});
    InBetween::cycle(vxScene, 2, true);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 3200));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 3200));
    InBetween::cycle(vxScene, 2, true);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 6400));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 6400));
    history()->undo();
    history()->undo();
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 1600));
}

void tst_InBetween::cycleReportsEndsThatDiffer()
{
    setKeys(angle("Hips", 1), "0=3 10=3");
    vxScene->setPlayRange({0, 1600});
    select({"Hips"});
    QCOMPARE(InBetween::cycle(vxScene, 2, true).message,
             QString("Repeated the play range: 2 cycles."));
    vxScene->setPlayRange({0, 1600});
    setKeys(angle("Hips", 1), "0=3 10=4");
    QCOMPARE(
        InBetween::cycle(vxScene, 2, true).message,
        QString("Repeated the play range: 2 cycles. First and last pose differ in 1 channel."));
}

void tst_InBetween::cycleOfWholeNumbersAndLocks()
{
    auto *step = new VxIntProperty("Step");
    node("Head")->addProperty(step, "/Pose");
    step->setKey(0, 3);
    step->setKey(800, 5);
    setKeys(angle("Head", 0), "0=0 10=0");
    angle("Head", 0)->setLocked(true);
    // An alias and its property are one channel.
    setKeys(angle("Neck", 0), "0=7 5=8");
    auto *alias = new VxFloatProperty("Nod");
    node("Head")->addProperty(alias, "/Pose");
    alias->setAliasedProperty(angle("Neck", 0));
    vxScene->setPlayRange({0, 1600});
    select({"Head", "Neck"});
    const PoseResult result = InBetween::cycle(vxScene, 2, true);
    QVERIFY(result.message.contains("Locked channels: 1."));
    QCOMPARE(step->getNumKeys(), 4);
    QCOMPARE(step->getKeyValue(3), 5);
    QCOMPARE(step->getKeyTime(3), 2400);
    QCOMPARE(keysOf(angle("Head", 0)), QString("0=0 10=0"));
    QCOMPARE(keysOf(angle("Neck", 0)), QString("0=7 5=8 10=7 15=8"));
}

void tst_InBetween::refusedCycles()
{
    setKeys(angle("Hips", 1), "0=0 10=0");
    history()->clear();
    select({"Hips"});
    const QByteArray before = sceneBytes();
    for (const int count : {-1, 0, 1, 1001, std::numeric_limits<int>::max()})
        QVERIFY(!InBetween::cycle(vxScene, count, true).done);
    QVERIFY(sceneBytes() == before);
    const VxTime latest = std::numeric_limits<VxTime>::max();
    for (const VxTimeRange &range :
         {VxTimeRange(100, 100), VxTimeRange(0, latest),
          VxTimeRange(std::numeric_limits<VxTime>::min(), latest), VxTimeRange(5000, 6000)}) {
        vxScene->setPlayRange(range);
        history()->clear();
        const PoseResult result = InBetween::cycle(vxScene, 2, true);
        QVERIFY(!result.done && !result.message.isEmpty());
        QCOMPARE(history()->count(), 0);
        QCOMPARE(keysOf(angle("Hips", 1)), QString("0=0 10=0"));
    }
}

// The command and Return.
void tst_InBetween::fourCyclesInTwoGestures()
{
    setKeys(angle("Hips", 1), "0=0 10=0");
    vxScene->setPlayRange({0, 1600});
    history()->clear();
    select({"Hips"});
    inDialog<CycleDialog>(
        [](CycleDialog *dialog) { QTest::keyClick(dialog->focusWidget(), Qt::Key_Return); });
    QCOMPARE(action("VxCyclePosesAction")->shortcut(), QKeySequence("Ctrl+L"));
    action("VxCyclePosesAction")->trigger();
    QCOMPARE(keysOf(angle("Hips", 1)), QString("0=0 10=0 20=0 30=0 40=0"));
    QCOMPARE(history()->count(), 1);
    // Escape changes nothing.
    inDialog<CycleDialog>([](CycleDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    action("VxCyclePosesAction")->trigger();
    QCOMPARE(history()->count(), 1);
}

void tst_InBetween::endsAgree()
{
    setKeys(angle("Hips", 1), "0=10 10=375");
    setKeys(angle("LeftThigh", 0), "0=-20 6=5");
    setKeys(node("Hips")->getZPosControl(), "0=0 10=60");
    setKeys(node("Hips")->getYPosControl(), "0=1 10=2");
    vxScene->setPlayRange({0, 1600});
    history()->clear();
    select({"Figure"});
    QCOMPARE(InBetween::differingEnds(vxScene), 3);
    const QByteArray before = sceneBytes();
    action("VxMatchEndsAction")->trigger();
    QCOMPARE(status(), QString("First and last pose agree now: 3 channels changed."));
    QCOMPARE(keysOf(angle("Hips", 1)), QString("0=10 10=370"));
    QCOMPARE(keysOf(angle("LeftThigh", 0)), QString("0=-20 6=5 10=-20"));
    QCOMPARE(keysOf(node("Hips")->getZPosControl()), QString("0=0 10=60"));
    QCOMPARE(keysOf(node("Hips")->getYPosControl()), QString("0=1 10=1"));
    checkOneEntry(before, "Match First and Last Pose");
    QCOMPARE(InBetween::differingEnds(vxScene), 0);
    action("VxMatchEndsAction")->trigger();
    QCOMPARE(status(), QString("First and last pose agree already."));
    QCOMPARE(history()->count(), 1);
}

VX_TEST_MAIN(tst_InBetween)
#include "tst_inbetween.moc"
