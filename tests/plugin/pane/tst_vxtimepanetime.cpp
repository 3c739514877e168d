#include "testing/vxtestmain.h"
#include "timepanetestbase.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QToolButton>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>

#include "testing/vxmousedriver.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtWidgets/QScrollBar>

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
    void refreshLeavesOtherFieldsAlone();
    void emptyFieldsGiveNumbers();
    void undoBringsTheFieldsBack();

    void typedTotal();
    void typedTotalOfNothing();
    void typedStartBeyondTheEnd();
    void typedEndBeforeTheStart();
    void typedCurrentFrameBeyondTheEnd();
    void typedRateAboveTheMost();
    void typedRateOfZero();
    void typedRateOfNothing();
    void lettersDoNotGetIn();

    void transportButtons();
    void playButtonShowsWhatItWillDo();
    void loopButtonShowsTheState();
    void playAllFrames();
    void skipsToTheRangesEnds();
    void frameStepsStayInTheRange();
    void previousKey_data();
    void previousKey();
    void nextKey_data();
    void nextKey();
    void keysOfObjectAndMorphsCount();
    void skipWithoutSelection();
    void filteredSkipWithoutKeys();

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
    void click(const char *button);
    VxNode *addSelectedNode(const char *name, const QVector<VxTime> &keys);
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

void TestTimePaneTime::click(const char *button)
{
    if (!pane->isVisible())
        showPane();
    auto *target = find<QWidget>(button);
    VxMouseDriver(target).click(target->rect().center());
}

VxNode *TestTimePaneTime::addSelectedNode(const char *name, const QVector<VxTime> &keys)
{
    auto *node = new VxNode(QString::fromLatin1(name));
    vxScene->addNode(node);
    for (const VxTime time : keys)
        node->getXPosControl()->setKey(time, 1.0f, 0);
    node->select(true);
    return node;
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

    // Where the scene has nothing to change it does not tell, either.
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

void TestTimePaneTime::refreshLeavesOtherFieldsAlone()
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

void TestTimePaneTime::undoBringsTheFieldsBack()
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

void TestTimePaneTime::typedRateAboveTheMost()
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

void TestTimePaneTime::transportButtons()
{
    click("TimelineLoopBtn");
    QVERIFY(vxScene->isLoopingEnabled());
    click("TimelineLoopBtn");
    QVERIFY(!vxScene->isLoopingEnabled());
    click("TimelineNextFrameBtn");
    QCOMPARE(vxScene->getTime(), 160);
    click("TimelinePrevFrameBtn");
    QCOMPARE(vxScene->getTime(), 0);
    QCOMPARE(undoTexts(), QStringList());
    click("TimelineSkipToEndBtn");
    QCOMPARE(vxScene->getTime(), 4800);
    click("TimelineSkipToStartBtn");
    QCOMPARE(vxScene->getTime(), 0);
    QCOMPARE(undoTexts(), QStringList({"Skip to Play Range End", "Skip to Play Range Start"}));
    click("TimelinePlayPauseBtn");
    QVERIFY(vxScene->isPlaying());
    click("TimelinePlayPauseBtn");
    QVERIFY(!vxScene->isPlaying());
}

void TestTimePaneTime::playButtonShowsWhatItWillDo()
{
    const auto *button = find<QAbstractButton>("TimelinePlayPauseBtn");
    const qint64 play = button->icon().cacheKey();
    vxScene->loopPlayback(true);
    vxScene->play();
    const qint64 pause = button->icon().cacheKey();
    QVERIFY(play != pause);
    vxScene->pause();
    QCOMPARE(button->icon().cacheKey(), play);
}

void TestTimePaneTime::loopButtonShowsTheState()
{
    const auto *button = find<QAbstractButton>("TimelineLoopBtn");
    const qint64 off = button->icon().cacheKey();
    vxScene->loopPlayback(true);
    const qint64 on = button->icon().cacheKey();
    QVERIFY(on != off);
    pane->toggleLoop();
    QCOMPARE(button->icon().cacheKey(), off);
}

void TestTimePaneTime::playAllFrames()
{
    const QSignalSpy changes(pane.get(), &VxTimePane::playAllFramesChanged);
    pane->setPlayAllFrames(false);
    QCOMPARE(changes.count(), 0);
    pane->setPlayAllFrames(true);
    pane->setPlayAllFrames(true);
    QCOMPARE(changes.count(), 1);
    QVERIFY(pane->getPlayAllFrames());
    // The flag is the process's.
    QVERIFY(VxTimePane().getPlayAllFrames());
}

void TestTimePaneTime::skipsToTheRangesEnds()
{
    vxScene->setPlayRange(VxTimeRange(320, 3200));
    pane->skipToPlayRangeEnd();
    QCOMPARE(vxScene->getTime(), 3200);
    pane->skipToPlayRangeStart();
    QCOMPARE(vxScene->getTime(), 320);
    vxApp->getUndoStack()->undo();
    QCOMPARE(vxScene->getTime(), 3200);
    QCOMPARE(pane->getCurrentFrame(), 20);
}

void TestTimePaneTime::frameStepsStayInTheRange()
{
    pane->skipToPreviousFrame();
    QCOMPARE(vxScene->getTime(), 0);
    pane->skipToNextFrame();
    pane->skipToNextFrame();
    QCOMPARE(vxScene->getTime(), 320);
}

// Keys at 800, 1600 and 3200; the play range is 0 to 4800 unless said otherwise.
void TestTimePaneTime::previousKey_data()
{
    QTest::addColumn<VxTime>("now");
    QTest::addColumn<VxTime>("rangeStart");
    QTest::addColumn<VxTime>("then");

    QTest::newRow("after the last key") << 4000 << 0 << 3200;
    QTest::newRow("on a key") << 1600 << 0 << 800;
    QTest::newRow("between keys") << 1601 << 0 << 1600;
    QTest::newRow("no key before: to the start") << 500 << 0 << 0;
    QTest::newRow("at the start") << 0 << 0 << 0;
    QTest::newRow("keys before the start do not count") << 2500 << 2000 << 2000;
    QTest::newRow("before the start: forward to it") << 500 << 2000 << 2000;
}

void TestTimePaneTime::previousKey()
{
    QFETCH(VxTime, now);
    QFETCH(VxTime, rangeStart);
    QFETCH(VxTime, then);
    addSelectedNode("a", {800, 1600, 3200});
    vxScene->setPlayRange(VxTimeRange(rangeStart, 4800));
    vxScene->setTime(now);
    pane->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), then);
    QCOMPARE(undoTexts(),
             now == then ? QStringList() : QStringList(QStringLiteral("Skip to Previous Key")));
}

void TestTimePaneTime::nextKey_data()
{
    QTest::addColumn<VxTime>("now");
    QTest::addColumn<VxTime>("rangeEnd");
    QTest::addColumn<VxTime>("then");

    QTest::newRow("before the first key") << 0 << 4800 << 800;
    QTest::newRow("on a key") << 800 << 4800 << 1600;
    QTest::newRow("between keys") << 799 << 4800 << 800;
    QTest::newRow("no key after: to the end") << 3200 << 4800 << 4800;
    QTest::newRow("at the end") << 4800 << 4800 << 4800;
    QTest::newRow("keys after the end do not count") << 1700 << 2000 << 2000;
    QTest::newRow("after the end: back to it") << 4000 << 2000 << 2000;
}

void TestTimePaneTime::nextKey()
{
    QFETCH(VxTime, now);
    QFETCH(VxTime, rangeEnd);
    QFETCH(VxTime, then);
    addSelectedNode("a", {800, 1600, 3200});
    vxScene->setPlayRange(VxTimeRange(0, rangeEnd));
    vxScene->setTime(now);
    pane->skipToNextKey();
    QCOMPARE(vxScene->getTime(), then);
    QCOMPARE(undoTexts(),
             now == then ? QStringList() : QStringList(QStringLiteral("Skip to Next Key")));
}

void TestTimePaneTime::keysOfObjectAndMorphsCount()
{
    VxNode *node = addSelectedNode("a", {});
    auto *object = new VxObject(QStringLiteral("shape"));
    auto *own = new VxFloatProperty(QStringLiteral("size"));
    object->addProperty(own, QStringLiteral("/General"));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    object->addSubElement(morph);
    node->setObject(object);
    own->setKey(320, 1.0f, 0);
    morph->getValueControl()->setKey(640, 1.0f, 0);
    pane->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 320);
    pane->skipToNextKey();
    QCOMPARE(vxScene->getTime(), 640);
    pane->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 320);
}

void TestTimePaneTime::skipWithoutSelection()
{
    addSelectedNode("a", {800});
    vxScene->selectAllNodes(false);
    pane->skipToNextKey();
    pane->skipToPreviousKey();
    QCOMPARE(vxScene->getTime(), 0);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneTime::filteredSkipWithoutKeys()
{
    click("TimelineNextKeyBtn");
    click("TimelinePrevKeyBtn");
    QCOMPARE(vxScene->getTime(), 0);
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
    // The play range stays as it is; only the control tells.
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
