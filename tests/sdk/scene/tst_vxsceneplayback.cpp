#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

/// What was shown and when, in nanoseconds since the start of playback.
struct Shown
{
    VxTime time;
    qint64 at;
};

} // namespace

/// Playback on the real clock. What may be late is bounded loosely, since the machine may be busy;
/// what must not be early, or wrong, is checked exactly. The exact timing has tests of its own, on
/// the playback clock.
class TestScenePlayback : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void startAndEndAreReportedOnce();
    void startsWhereThereIsSomethingToPlay_data();
    void startsWhereThereIsSomethingToPlay();
    void droppingFollowsTheClock();
    void droppingCatchesUpWithASlowView();
    void everyFrameIsShown();
    void everyFrameIsShownToASlowView();
    void noFrameIsEarly_data();
    void noFrameIsEarly();
    void pausedPlaybackKeepsItsTime();
    void loopsUntilPaused();
    void loopSwitchedOffEnds();
    void playbackContinuesFromATimeSetElsewhere();
    void receiverOfAFrameMaySetTheTime();
    void receiverOfAFrameMayPause();
    void receiverOfTheStartMayPause();
    void rangeAndStepChangeDuringPlayback();
    void playbackIsNotRecorded();
    void sceneDestroyedDuringPlayback();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxScene> m_scene;
    QElapsedTimer m_clock;
    QVector<Shown> m_shown;
};

void TestScenePlayback::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_scene = std::make_unique<VxScene>();
    m_shown.clear();
    connect(m_scene.get(), &VxScene::playbackStarted, this, [this] { m_clock.start(); });
    connect(m_scene.get(), &VxScene::timeChanged, this, [this](VxTime time) {
        if (m_scene->isPlaying())
            m_shown.append({time, m_clock.isValid() ? m_clock.nsecsElapsed() : 0});
    });
}

void TestScenePlayback::cleanup()
{
    m_scene.reset();
    m_clock.invalidate();
    m_guard.reset();
}

void TestScenePlayback::startAndEndAreReportedOnce()
{
    QSignalSpy started(m_scene.get(), &VxScene::playbackStarted);
    QSignalSpy finished(m_scene.get(), &VxScene::playbackFinished);
    m_scene->setPlayRange({0, 800});
    m_scene->pause();
    QCOMPARE(finished.count(), 0);
    m_scene->play();
    QVERIFY(m_scene->isPlaying());
    m_scene->play(false);
    QTRY_VERIFY(!m_scene->isPlaying());
    m_scene->pause();
    QCOMPARE(started.count(), 1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(m_scene->getTime(), 800);
}

void TestScenePlayback::startsWhereThereIsSomethingToPlay_data()
{
    QTest::addColumn<int>("time");
    QTest::addColumn<int>("first");
    QTest::newRow("before the range") << -160 << 320;
    QTest::newRow("at the start") << 320 << 320;
    QTest::newRow("within") << 480 << 480;
    QTest::newRow("at the end") << 640 << 320;
    QTest::newRow("after the range") << 9600 << 320;
}

void TestScenePlayback::startsWhereThereIsSomethingToPlay()
{
    QFETCH(int, time);
    QFETCH(int, first);
    m_scene->setPlayRange({320, 640});
    m_scene->setTime(time);
    m_scene->play();
    QCOMPARE(m_scene->getTime(), first);
    QTRY_VERIFY(!m_scene->isPlaying());
    QCOMPARE(m_scene->getTime(), 640);
}

void TestScenePlayback::droppingFollowsTheClock()
{
    m_scene->loopPlayback(true);
    m_scene->setPlayRange({0, 1600});
    m_scene->play(true);
    // A loop of 11 frames takes a little more than a third of a second.
    QTRY_VERIFY(m_clock.nsecsElapsed() > 500000000);
    m_scene->pause();
    QVERIFY(m_shown.size() > 10);
    int late = 0;
    for (const Shown &shown : qAsConst(m_shown)) {
        const qint64 position = shown.at * 4800 / 1000000000 % (1600 + 160);
        const qint64 lag = (position - shown.time + 1760) % 1760;
        QCOMPARE(shown.time % 160, 0);
        late += lag >= 240;
    }
    // The handler reads its clock a little after the playback read its own, and a busy machine may
    // stop us in between, now and then; a drift or a lag would show in each frame.
    QVERIFY2(late * 10 < m_shown.size(), qPrintable(QString::number(late)));
}

void TestScenePlayback::droppingCatchesUpWithASlowView()
{
    connect(m_scene.get(), &VxScene::timeChanged, this, [] { QThread::msleep(110); });
    m_scene->setPlayRange({0, 2400});
    m_scene->play(true);
    QTRY_VERIFY(!m_scene->isPlaying());
    const qint64 used = m_clock.elapsed();
    QVERIFY2(used >= 500, qPrintable(QString::number(used)));
    QVERIFY(m_shown.size() <= 6);
    QCOMPARE(m_scene->getTime(), 2400);
    // Half a second, a slow view of the last frame, and what a busy machine takes; every frame
    // would take 1.6 seconds.
    QVERIFY2(used < 1600, qPrintable(QString::number(used)));
}

void TestScenePlayback::everyFrameIsShown()
{
    m_scene->setPlayRange({0, 1600});
    m_scene->play(false);
    QTRY_VERIFY(!m_scene->isPlaying());
    QCOMPARE(m_shown.size(), 10);
    for (int i = 0; i < m_shown.size(); ++i)
        QCOMPARE(m_shown.at(i).time, (i + 1) * 160);
    QVERIFY(m_clock.elapsed() < 4000);
}

void TestScenePlayback::everyFrameIsShownToASlowView()
{
    connect(m_scene.get(), &VxScene::timeChanged, this, [] { QThread::msleep(50); });
    m_scene->setPlayRange({0, 1600});
    m_scene->play(false);
    QTRY_VERIFY(!m_scene->isPlaying());
    QCOMPARE(m_shown.size(), 10);
    QVERIFY(m_clock.elapsed() >= 500);
}

void TestScenePlayback::noFrameIsEarly_data()
{
    QTest::addColumn<bool>("dropFrames");
    QTest::addColumn<int>("fps");
    for (const int fps : {7, 30, 60, 480}) {
        QTest::addRow("dropping, %d frames a second", fps) << true << fps;
        QTest::addRow("every frame, %d frames a second", fps) << false << fps;
    }
}

void TestScenePlayback::noFrameIsEarly()
{
    QFETCH(bool, dropFrames);
    QFETCH(int, fps);
    m_scene->setTimeStep(4800 / fps);
    m_scene->setPlayRange({0, 2 * (4800 / fps) + 480});
    m_scene->play(dropFrames);
    QTRY_VERIFY(!m_scene->isPlaying());
    QVERIFY(!m_shown.isEmpty());
    for (const Shown &shown : qAsConst(m_shown)) {
        // The playback's clock starts just after the announcement, which ours counts from.
        QVERIFY(shown.at * 4800 >= qint64(shown.time) * 1000000000);
    }
}

void TestScenePlayback::pausedPlaybackKeepsItsTime()
{
    m_scene->play();
    QTRY_VERIFY(m_shown.size() >= 3);
    m_scene->pause();
    QVERIFY(!m_scene->isPlaying());
    const VxTime time = m_scene->getTime();
    QTest::qWait(100);
    QCOMPARE(m_scene->getTime(), time);
    m_scene->play();
    QCOMPARE(m_scene->getTime(), time);
    QTRY_VERIFY(m_scene->getTime() > time);
}

void TestScenePlayback::loopsUntilPaused()
{
    QSignalSpy finished(m_scene.get(), &VxScene::playbackFinished);
    m_scene->setPlayRange({0, 320});
    m_scene->loopPlayback(true);
    m_scene->play(false);
    QTRY_VERIFY(m_shown.size() >= 9);
    QVERIFY(m_scene->isPlaying());
    QCOMPARE(finished.count(), 0);
    for (int i = 0; i < m_shown.size(); ++i)
        QCOMPARE(m_shown.at(i).time, (i + 1) % 3 * 160);
    m_scene->pause();
    QCOMPARE(finished.count(), 1);
}

void TestScenePlayback::loopSwitchedOffEnds()
{
    m_scene->setPlayRange({0, 640});
    m_scene->loopPlayback(true);
    m_scene->play();
    QTRY_VERIFY(m_shown.size() >= 6);
    m_scene->loopPlayback(false);
    QTRY_VERIFY(!m_scene->isPlaying());
    QCOMPARE(m_scene->getTime(), 640);
}

void TestScenePlayback::playbackContinuesFromATimeSetElsewhere()
{
    m_scene->setPlayRange({0, 48000});
    m_scene->play(false);
    QTRY_VERIFY(m_shown.size() >= 3);
    m_scene->setTime(32000);
    const qint64 since = m_clock.nsecsElapsed();
    QVERIFY(m_scene->isPlaying());
    m_shown.clear();
    QTRY_VERIFY(m_shown.size() >= 3);
    for (int i = 0; i < m_shown.size(); ++i)
        QCOMPARE(m_shown.at(i).time, 32000 + (i + 1) * 160);
    // The time that was set has its whole frame.
    QVERIFY(m_shown.first().at - since > 33000000);
}

void TestScenePlayback::receiverOfAFrameMaySetTheTime()
{
    // At the end, back once: playback continues although the frame was the last.
    bool back = false;
    connect(m_scene.get(), &VxScene::timeChanged, this, [&](VxTime time) {
        if (time == 480 && !back) {
            back = true;
            m_scene->setTime(0);
        }
    });
    m_scene->setPlayRange({0, 480});
    m_scene->play(false);
    QTRY_VERIFY(!m_scene->isPlaying());
    QVector<VxTime> times;
    for (const Shown &shown : qAsConst(m_shown))
        times << shown.time;
    QCOMPARE(times, (QVector<VxTime>{160, 320, 480, 0, 160, 320, 480}));
}

void TestScenePlayback::receiverOfAFrameMayPause()
{
    QSignalSpy finished(m_scene.get(), &VxScene::playbackFinished);
    connect(m_scene.get(), &VxScene::timeChanged, this, [&](VxTime time) {
        if (time >= 320)
            m_scene->pause();
    });
    m_scene->play(false);
    QTRY_VERIFY(!m_scene->isPlaying());
    QTest::qWait(80);
    QCOMPARE(m_scene->getTime(), 320);
    QCOMPARE(finished.count(), 1);
}

void TestScenePlayback::receiverOfTheStartMayPause()
{
    QSignalSpy finished(m_scene.get(), &VxScene::playbackFinished);
    connect(m_scene.get(), &VxScene::playbackStarted, m_scene.get(), &VxScene::pause);
    m_scene->play();
    QVERIFY(!m_scene->isPlaying());
    QTest::qWait(80);
    QCOMPARE(m_scene->getTime(), 0);
    QCOMPARE(finished.count(), 1);
}

void TestScenePlayback::rangeAndStepChangeDuringPlayback()
{
    m_scene->loopPlayback(true);
    m_scene->play();
    QTRY_VERIFY(m_shown.size() >= 3);
    m_scene->setPlayRange({9600, 9920});
    QTRY_VERIFY(m_scene->getTime() >= 9600);
    m_shown.clear();
    m_scene->setTimeStep(80);
    QTRY_VERIFY(m_shown.size() >= 8);
    bool halfFrames = false;
    for (const Shown &shown : qAsConst(m_shown)) {
        QVERIFY(m_scene->getPlayRange().contains(shown.time));
        QCOMPARE(shown.time % 80, 0);
        halfFrames = halfFrames || shown.time % 160 != 0;
    }
    QVERIFY(halfFrames);
}

void TestScenePlayback::playbackIsNotRecorded()
{
    VxUndoStack stack;
    VxUndoStackHold hold;
    m_scene->setPlayRange(m_scene->getPlayRange());
    m_scene->play();
    QTRY_VERIFY(m_shown.size() >= 2);
    m_scene->pause();
    hold.accept(QStringLiteral("Nothing"));
    QCOMPARE(stack.count(), 0);
}

void TestScenePlayback::sceneDestroyedDuringPlayback()
{
    QSignalSpy finished(m_scene.get(), &VxScene::playbackFinished);
    m_scene->play();
    QTRY_VERIFY(m_shown.size() >= 2);
    m_scene.reset();
    QCoreApplication::processEvents();
    QCOMPARE(finished.count(), 0);
}

VX_TEST_MAIN(TestScenePlayback)
#include "tst_vxsceneplayback.moc"
