#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSpinBox>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

class TestTimePaneTime : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void fieldsShowTheScene();
    void fieldsFollowTheScene();
    void totalFrames();
    void playRangeStart();
    void playRangeEnd();
    void currentFrame();
    void framesPerSecond();
    void refusedNumbersBringTheFieldsBack();
    void refreshKeepsOtherFields();
    void emptyFieldsGiveNumbers();
    void undoRestoresTheFields();

    void typedTotal();
    void typedTotalOfNothing();
    void typedStartBeyondTheEnd();
    void typedEndBeforeTheStart();
    void typedCurrentFrameBeyondTheEnd();
    void typedRateAboveTheMaximum();
    void typedRateOfZero();
    void typedRateOfNothing();
    void lettersDoNotGetIn();

    void scaleFollowsRateAndRange();
    void scaleOfASceneThatWasThereFirst();
    void scaleFollowsTheNameColumn();
    void playheadFollowsTheRangeControl();
    void narrowColumnKeepsTheScale();
    void sliderSetsThePlayRange();
    void setTimeHelper();

private:
    QSpinBox *field(const char *name) const { return find<QSpinBox>(name); }
    // Writes into a field without anyone's notice.
    void scribble(const char *name, int number) const
    {
        const QSignalBlocker blocker(field(name));
        field(name)->setValue(number);
    }
    // Clicks into a field, selects what is there and types, ending with Enter.
    void type(const char *name, const QString &text, bool enter = true);
};

void TestTimePaneTime::type(const char *name, const QString &text, bool enter)
{
    if (!pane->isVisible())
        showPane();
    QSpinBox *target = field(name);
    target->setFocus();
    target->selectAll();
    if (text.isEmpty())
        QTest::keyClick(target, Qt::Key_Delete);
    QTest::keyClicks(target, text);
    if (enter)
        QTest::keyClick(target, Qt::Key_Return);
}

void TestTimePaneTime::fieldsShowTheScene()
{
    QCOMPARE(pane->getTotalFrames(), 31);
    QCOMPARE(pane->getPlayRangeStart(), 0);
    QCOMPARE(pane->getPlayRangeEnd(), 30);
    QCOMPARE(pane->getCurrentFrame(), 0);
    QCOMPARE(pane->getFramesPerSecond(), 30);
}

void TestTimePaneTime::fieldsFollowTheScene()
{
    vxScene->setAnimRange(VxTimeRange(0, 160 * 100));
    vxScene->setPlayRange(VxTimeRange(160 * 10, 160 * 50));
    vxScene->setTime(160 * 20 + 159);
    QCOMPARE(pane->getTotalFrames(), 101);
    QCOMPARE(pane->getPlayRangeStart(), 10);
    QCOMPARE(pane->getPlayRangeEnd(), 50);
    QCOMPARE(pane->getCurrentFrame(), 20);
    vxScene->setTimeStep(80);
    QCOMPARE(pane->getFramesPerSecond(), 60);
    QCOMPARE(pane->getTotalFrames(), 201);
    QCOMPARE(pane->getPlayRangeStart(), 20);
    QCOMPARE(pane->getPlayRangeEnd(), 100);
    QCOMPARE(pane->getCurrentFrame(), 41);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneTime::totalFrames()
{
    pane->setTotalFrames(100);
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 160 * 99));
    pane->setTotalFrames(1);
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 0));
    QCOMPARE(pane->getTotalFrames(), 1);
    pane->setTotalFrames(0);
    pane->setTotalFrames(-5);
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 0));
    QCOMPARE(undoTexts(), QStringList({"Set Total Frames", "Set Total Frames"}));
}

void TestTimePaneTime::playRangeStart()
{
    pane->setPlayRangeStart(10);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 4800));
    pane->setPlayRangeStart(99);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(4800, 4800));
    QCOMPARE(pane->getPlayRangeStart(), 30);
    pane->setPlayRangeStart(-1);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(4800, 4800));
    QCOMPARE(undoTexts(), QStringList({"Set Play Range Start", "Set Play Range Start"}));
}

void TestTimePaneTime::playRangeEnd()
{
    pane->setPlayRangeStart(10);
    pane->setPlayRangeEnd(20);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 3200));
    pane->setPlayRangeEnd(5);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 1600));
    pane->setPlayRangeEnd(-5);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 1600));
    QCOMPARE(pane->getPlayRangeEnd(), 10);
    QCOMPARE(undoTexts(),
             QStringList({"Set Play Range Start", "Set Play Range End", "Set Play Range End"}));
}

void TestTimePaneTime::currentFrame()
{
    vxScene->setPlayRange(VxTimeRange(1600, 4800));
    pane->setCurrentFrame(12);
    QCOMPARE(vxScene->getTime(), 12 * 160);
    pane->setCurrentFrame(31);
    QCOMPARE(vxScene->getTime(), 4800);
    QCOMPARE(pane->getCurrentFrame(), 30);
    pane->setCurrentFrame(9);
    QCOMPARE(vxScene->getTime(), 1600);
    QCOMPARE(pane->getCurrentFrame(), 10);
    pane->setCurrentFrame(-1);
    QCOMPARE(vxScene->getTime(), 1600);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneTime::framesPerSecond()
{
    pane->setFramesPerSecond(24);
    QCOMPARE(vxScene->getTimeStep(), 200);
    pane->setFramesPerSecond(7);
    QCOMPARE(vxScene->getTimeStep(), 685);
    QCOMPARE(pane->getFramesPerSecond(), 7);
    pane->setFramesPerSecond(5000);
    QCOMPARE(vxScene->getTimeStep(), 4);
    QCOMPARE(pane->getFramesPerSecond(), 1200);
    pane->setFramesPerSecond(0);
    QCOMPARE(vxScene->getTimeStep(), 4);
    QCOMPARE(undoTexts(), QStringList({"Set FPS", "Set FPS", "Set FPS"}));
}

void TestTimePaneTime::refusedNumbersBringTheFieldsBack()
{
    scribble("TimelineTotalFramesLEdit", 77);
    pane->setTotalFrames(0);
    QCOMPARE(field("TimelineTotalFramesLEdit")->value(), 31);

    // Where the scene has nothing to change it emits no signal, either.
    vxScene->setPlayRange(VxTimeRange(4800, 4800));
    scribble("TimelinePlayStartLEdit", 50);
    pane->setPlayRangeStart(50);
    QCOMPARE(field("TimelinePlayStartLEdit")->value(), 30);
    vxScene->setTime(4800);
    for (const int frame : {99, 2}) {
        scribble("TimelineCurrentFrameLEdit", frame);
        pane->setCurrentFrame(frame);
        QCOMPARE(field("TimelineCurrentFrameLEdit")->value(), 30);
    }
}

void TestTimePaneTime::refreshKeepsOtherFields()
{
    scribble("TimelinePlayStartLEdit", 7);
    scribble("TimelineTotalFramesLEdit", 8);
    vxScene->setTime(480);
    QCOMPARE(pane->getCurrentFrame(), 3);
    QCOMPARE(pane->getPlayRangeStart(), 7);
    vxScene->setPlayRange(VxTimeRange(160, 4800));
    QCOMPARE(pane->getPlayRangeStart(), 1);
    QCOMPARE(pane->getTotalFrames(), 8);
}

void TestTimePaneTime::emptyFieldsGiveNumbers()
{
    vxScene->setTime(480);
    vxScene->setPlayRange(VxTimeRange(160, 4800));
    for (const char *name :
         {"TimelineTotalFramesLEdit", "TimelinePlayStartLEdit", "TimelinePlayEndLEdit",
          "TimelineCurrentFrameLEdit", "TimelineFPSLEdit"}) {
        auto *line = field(name)->findChild<QLineEdit *>();
        const QSignalBlocker blocker(line);
        line->setText(QString());
    }
    QCOMPARE(pane->getTotalFrames(), 0);
    QCOMPARE(pane->getPlayRangeStart(), 0);
    QCOMPARE(pane->getPlayRangeEnd(), 0);
    QCOMPARE(pane->getCurrentFrame(), 0);
    QCOMPARE(pane->getFramesPerSecond(), 1);
}

void TestTimePaneTime::undoRestoresTheFields()
{
    pane->setTotalFrames(61);
    pane->setPlayRangeEnd(60);
    pane->setFramesPerSecond(60);
    QCOMPARE(pane->getTotalFrames(), 121);
    VxUndoStack *stack = vxApp->getUndoStack();
    stack->undo();
    QCOMPARE(pane->getFramesPerSecond(), 30);
    QCOMPARE(pane->getTotalFrames(), 61);
    stack->undo();
    QCOMPARE(pane->getPlayRangeEnd(), 30);
    stack->undo();
    QCOMPARE(pane->getTotalFrames(), 31);
    stack->redo();
    QCOMPARE(pane->getTotalFrames(), 61);
}

void TestTimePaneTime::typedTotal()
{
    type("TimelineTotalFramesLEdit", QStringLiteral("5"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 160 * 4));
    type("TimelineTotalFramesLEdit", QStringLiteral("1"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 0));
}

void TestTimePaneTime::typedTotalOfNothing()
{
    type("TimelineTotalFramesLEdit", QString());
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 4800));
    QCOMPARE(pane->getTotalFrames(), 31);
    type("TimelineTotalFramesLEdit", QStringLiteral("0"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 4800));
    QCOMPARE(pane->getTotalFrames(), 31);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneTime::typedStartBeyondTheEnd()
{
    type("TimelinePlayStartLEdit", QStringLiteral("40"));
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(4800, 4800));
    QCOMPARE(field("TimelinePlayStartLEdit")->text(), QStringLiteral("30"));
    QCOMPARE(vxApp->getUndoStack()->undoText(), QStringLiteral("Set Play Range Start"));
}

void TestTimePaneTime::typedEndBeforeTheStart()
{
    vxScene->setPlayRange(VxTimeRange(1600, 4800));
    type("TimelinePlayEndLEdit", QStringLiteral("3"));
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 1600));
    QCOMPARE(field("TimelinePlayEndLEdit")->text(), QStringLiteral("10"));
    type("TimelinePlayEndLEdit", QString());
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 1600));
}

void TestTimePaneTime::typedCurrentFrameBeyondTheEnd()
{
    type("TimelineCurrentFrameLEdit", QStringLiteral("99"));
    QCOMPARE(field("TimelineCurrentFrameLEdit")->text(), QStringLiteral("30"));
    QCOMPARE(vxScene->getTime(), 4800);
    type("TimelineCurrentFrameLEdit", QStringLiteral("12"));
    QCOMPARE(vxScene->getTime(), 12 * 160);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneTime::typedRateAboveTheMaximum()
{
    type("TimelineFPSLEdit", QStringLiteral("1201"));
    QCOMPARE(field("TimelineFPSLEdit")->text(), QStringLiteral("1200"));
    QCOMPARE(vxScene->getTimeStep(), 4);
    QCOMPARE(vxApp->getUndoStack()->undoText(), QStringLiteral("Set FPS"));
}

void TestTimePaneTime::typedRateOfZero()
{
    type("TimelineFPSLEdit", QStringLiteral("0"), false);
    QCOMPARE(field("TimelineFPSLEdit")->text(), QStringLiteral("1"));
    QCOMPARE(vxScene->getTimeStep(), 160);
    QCOMPARE(undoTexts(), QStringList());
    // What is typed next replaces the one.
    QTest::keyClicks(field("TimelineFPSLEdit"), QStringLiteral("6"));
    QCOMPARE(vxScene->getTimeStep(), 800);
}

void TestTimePaneTime::typedRateOfNothing()
{
    type("TimelineFPSLEdit", QString(), false);
    QCOMPARE(field("TimelineFPSLEdit")->text(), QStringLiteral("1"));
    QCOMPARE(vxScene->getTimeStep(), 160);
    QCOMPARE(undoTexts(), QStringList());
    // The next thing that is shown anew is the scene's own rate.
    vxScene->setTime(160);
    QCOMPARE(field("TimelineFPSLEdit")->text(), QStringLiteral("30"));
}

void TestTimePaneTime::lettersDoNotGetIn()
{
    type("TimelineCurrentFrameLEdit", QStringLiteral("x-"));
    QCOMPARE(vxScene->getTime(), 0);
    type("TimelineFPSLEdit", QStringLiteral("a"), false);
    QCOMPARE(vxScene->getTimeStep(), 160);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneTime::scaleFollowsRateAndRange()
{
    showPane();
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    const VxDopeSheetView *view = pane->getDopeSheetView();
    const auto widthOf = [&metrics](const VxTimeRange &range) {
        return metrics.timeToX(range.getEnd()) - metrics.timeToX(range.getStart());
    };
    const int room = view->columnWidth(1) - 30;
    QVERIFY(room > 100);
    QVERIFY(qAbs(widthOf(vxScene->getPlayRange()) - room) <= 1);
    vxScene->setPlayRange(VxTimeRange(0, 160 * 200));
    QVERIFY(qAbs(widthOf(vxScene->getPlayRange()) - room) <= 1);
    pane->setFramesPerSecond(60);
    QCOMPARE(metrics.fps, 60);
    QVERIFY(qAbs(widthOf(vxScene->getPlayRange()) - room) <= 1);
    pane->resize(1200, 500);
    QCoreApplication::processEvents();
    QVERIFY(qAbs(widthOf(vxScene->getPlayRange()) - (view->columnWidth(1) - 30)) <= 1);
    vxScene->setTime(0);
    const auto *playhead = find<VxPlayheadWgt>("TimelinePlayheadWgt");
    const int expected = metrics.keyLeft(view->columnWidth(0), 0, 0) - metrics.frameWidth / 2;
    QCOMPARE(playhead->x(), expected);
}

void TestTimePaneTime::scaleOfASceneThatWasThereFirst()
{
    pane.reset();
    vxScene->setTimeStep(200);
    pane = std::make_unique<VxTimePane>();
    showPane();
    QCOMPARE(TimelineMetrics::shared().fps, 24);
    QCOMPARE(pane->getFramesPerSecond(), 24);
}

void TestTimePaneTime::scaleFollowsTheNameColumn()
{
    showPane();
    const VxDopeSheetView *view = pane->getDopeSheetView();
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    const auto *playhead = find<VxPlayheadWgt>("TimelinePlayheadWgt");
    for (const int nameWidth : {400, 180}) {
        view->header()->resizeSection(0, nameWidth);
        QCOMPARE(view->columnWidth(0), nameWidth);
        const int end = metrics.timeToX(vxScene->getPlayRange().getEnd());
        QVERIFY(qAbs(end - (view->columnWidth(1) - 30)) <= 1);
        QCOMPARE(playhead->x(), metrics.keyLeft(nameWidth, 0, 0) - metrics.frameWidth / 2);
    }
}

void TestTimePaneTime::playheadFollowsTheRangeControl()
{
    showPane();
    auto *playhead = find<VxPlayheadWgt>("TimelinePlayheadWgt");
    QScrollBar *control = find<VxTimeRangeSlider>("TimelineTimeRangeSldr")->getScrollBar();
    const QPoint place = playhead->pos();
    playhead->move(0, 0);
    // The play range stays as it is; only the control emits a signal.
    control->setRange(0, 29);
    vxScene->setPlayRange(VxTimeRange(160, 30 * 160));
    playhead->move(0, 0);
    control->setValue(1);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(160, 30 * 160));
    QVERIFY(playhead->pos() != QPoint(0, 0));
    QCOMPARE(playhead->y(), place.y());
}

void TestTimePaneTime::narrowColumnKeepsTheScale()
{
    showPane();
    VxDopeSheetView *view = pane->getDopeSheetView();
    view->header()->setStretchLastSection(false);
    view->setColumnWidth(1, 300);
    const double before = TimelineMetrics::shared().zoom;
    view->setColumnWidth(1, 35);
    vxScene->setPlayRange(VxTimeRange(0, 160 * 200));
    QCOMPARE(TimelineMetrics::shared().zoom, before);
    view->setColumnWidth(1, 36);
    vxScene->setPlayRange(VxTimeRange(0, 160 * 100));
    QVERIFY(TimelineMetrics::shared().zoom != before);
}

void TestTimePaneTime::sliderSetsThePlayRange()
{
    QScrollBar *control = find<VxTimeRangeSlider>("TimelineTimeRangeSldr")->getScrollBar();
    control->setRange(0, 20);
    control->setValue(5);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(5 * 160, 25 * 160));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneTime::setTimeHelper()
{
    vxScene->setPlayRange(VxTimeRange(320, 3200));
    TimelinePlayback::setTime(400);
    QCOMPARE(vxScene->getTime(), 480);
    TimelinePlayback::setTime(399);
    QCOMPARE(vxScene->getTime(), 320);
    TimelinePlayback::setTime(-5000);
    QCOMPARE(vxScene->getTime(), 320);
    TimelinePlayback::setTime(VxTimeMax);
    QCOMPARE(vxScene->getTime(), 3200);
    // Below 0 what is left of a frame is dropped after half a frame was added.
    vxScene->setPlayRange(VxTimeRange(-3200, 3200));
    TimelinePlayback::setTime(-100);
    QCOMPARE(vxScene->getTime(), 0);
    TimelinePlayback::setTime(-250);
    QCOMPARE(vxScene->getTime(), -160);
    vxScene->setPlayRange(VxTimeRange(320, 3200));

    vxScene->loopPlayback(true);
    vxScene->play();
    int pauses = 0;
    connect(vxScene, &VxScene::playbackFinished, this, [&pauses] { ++pauses; });
    TimelinePlayback::setTime(640);
    QCOMPARE(pauses, 1);
    QVERIFY(vxScene->isPlaying());
    QCOMPARE(vxScene->getTime(), 640);
    vxScene->pause();
}

VX_TEST_MAIN(TestTimePaneTime)
#include "tst_vxtimepanetime.moc"
