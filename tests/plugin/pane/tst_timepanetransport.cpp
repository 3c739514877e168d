#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"

#include <QtWidgets/QToolButton>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

// The pane's playback buttons and the slots behind them.
class TestTimePaneTransport : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void transportButtons();
    void playButtonShowsItsNextAction();
    void loopButtonShowsTheState();
    void playAllFrames();
    void skipsToTheRangesEnds();
    void frameStepsStayInTheRange();
    void previousKey_data();
    void previousKey();
    void nextKey_data();
    void nextKey();
    void filteredSkipWithoutKeys();

private:
    void click(const char *button);
    VxNode *addSelectedNode(const char *name, const QVector<VxTime> &keys);
};

void TestTimePaneTransport::click(const char *button)
{
    if (!pane->isVisible())
        showPane();
    auto *target = find<QWidget>(button);
    VxMouseDriver(target).click(target->rect().center());
}

VxNode *TestTimePaneTransport::addSelectedNode(const char *name, const QVector<VxTime> &keys)
{
    auto *node = new VxNode(QString::fromLatin1(name));
    vxScene->addNode(node);
    for (const VxTime time : keys)
        node->getXPosControl()->setKey(time, 1.0f, 0);
    node->select(true);
    return node;
}

void TestTimePaneTransport::transportButtons()
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

void TestTimePaneTransport::playButtonShowsItsNextAction()
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

void TestTimePaneTransport::loopButtonShowsTheState()
{
    const auto *button = find<QAbstractButton>("TimelineLoopBtn");
    const qint64 off = button->icon().cacheKey();
    vxScene->loopPlayback(true);
    const qint64 on = button->icon().cacheKey();
    QVERIFY(on != off);
    pane->toggleLoop();
    QCOMPARE(button->icon().cacheKey(), off);
}

void TestTimePaneTransport::playAllFrames()
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

void TestTimePaneTransport::skipsToTheRangesEnds()
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

void TestTimePaneTransport::frameStepsStayInTheRange()
{
    pane->skipToPreviousFrame();
    QCOMPARE(vxScene->getTime(), 0);
    pane->skipToNextFrame();
    pane->skipToNextFrame();
    QCOMPARE(vxScene->getTime(), 320);
}

// Keys at 800, 1600 and 3200; the play range is 0 to 4800 unless said otherwise.
void TestTimePaneTransport::previousKey_data()
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

void TestTimePaneTransport::previousKey()
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

void TestTimePaneTransport::nextKey_data()
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

void TestTimePaneTransport::nextKey()
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

void TestTimePaneTransport::filteredSkipWithoutKeys()
{
    click("TimelineNextKeyBtn");
    click("TimelinePrevKeyBtn");
    QCOMPARE(vxScene->getTime(), 0);
    QCOMPARE(undoTexts(), QStringList());
}

VX_TEST_MAIN(TestTimePaneTransport)
#include "tst_timepanetransport.moc"
