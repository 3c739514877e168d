#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "time/playbackclock.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

constexpr qint64 Second = 1000000000;
constexpr qint64 Minute = 60 * Second;
constexpr qint64 Hour = 60 * Minute;

/// Where playback is after that many nanoseconds, counted with long doubles and no frames: the
/// independent answer. Valid when the end of the range is on a frame.
long double expectedPosition(VxTime from, const PlaybackSettings &settings, qint64 elapsed)
{
    const long double lap = settings.range.getDuration() + settings.step;
    const long double run =
        from - settings.range.getStart() + static_cast<long double>(elapsed) * 4800 / Second;
    return settings.looping ? std::fmod(run, lap) + settings.range.getStart()
                            : run + settings.range.getStart();
}

/// The first nanosecond at which that many ticks are over.
qint64 dueAfter(qint64 ticks)
{
    return ticks / 4800 * Second + (ticks % 4800 * Second + 4799) / 4800;
}

/// Plays by waiting exactly as long as the clock requests.
QVector<VxTime> playByDueTimes(PlaybackClock &clock, int frames)
{
    QVector<VxTime> times;
    for (int i = 0; i < frames; ++i)
        times << clock.advance(clock.nextDue()).time;
    return times;
}

} // namespace

class TestPlaybackClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void framesAreInOrder_data();
    void framesAreInOrder();
    void nothingIsShownBeforeItsTime_data() { rates(); }
    void nothingIsShownBeforeItsTime();
    void hoursOfDroppingPlaybackDoNotDrift_data() { rates(); }
    void hoursOfDroppingPlaybackDoNotDrift();
    void hoursOfEveryFrameDoNotDrift_data() { rates(); }
    void hoursOfEveryFrameDoNotDrift();
    void lateTicksDropFrames();
    void longStallsDoNotRushEveryFrame();
    void delaysOfEveryFrameAreMadeUp_data() { rates(); }
    void delaysOfEveryFrameAreMadeUp();
    void everyFrameKeepsUpThroughRandomDelays_data() { rates(); }
    void everyFrameKeepsUpThroughRandomDelays();
    void halfASecondIsMadeUpAndNoMore();
    void delaysAreMadeUpAcrossAChangeOfTheRange();
    void slightDelaysDoNotSlowEveryFrameDown();
    void oneFrameRange();
    void endsOnceTheEndIsShown();
    void endOffTheFramesIsShown();
    void startOutsideOfTheRange_data();
    void startOutsideOfTheRange();
    void rangeChangesDuringPlayback();
    void stepChangesDuringPlayback();
    void loopingChangesDuringPlayback();
    void timeSetDuringPlayback();
    void rangeOfAllTimes();

private:
    static void rates();
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestPlaybackClock::rates()
{
    QTest::addColumn<int>("fps");
    for (const int fps : {1, 7, 24, 29, 30, 48, 1200, 4800})
        QTest::addRow("%d frames a second", fps) << fps;
}

void TestPlaybackClock::framesAreInOrder_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<VxTimeRange>("range");
    QTest::addColumn<bool>("looping");
    QTest::addColumn<QVector<VxTime>>("times");

    using Times = QVector<VxTime>;
    QTest::newRow("from the start") << 0 << VxTimeRange(0, 300) << false << Times{100, 200, 300};
    QTest::newRow("loops to the start")
        << 100 << VxTimeRange(0, 300) << true << Times{200, 300, 0, 100, 200, 300, 0};
    QTest::newRow("range not at 0")
        << 500 << VxTimeRange(500, 700) << true << Times{600, 700, 500, 600};
    QTest::newRow("negative range")
        << -200 << VxTimeRange(-200, 100) << true << Times{-100, 0, 100, -200, -100};
    QTest::newRow("from between two frames, on to the next frame")
        << 30 << VxTimeRange(0, 300) << true << Times{100, 200, 300, 0, 100};
    QTest::newRow("ends of the range between frames")
        << 150 << VxTimeRange(150, 350) << true << Times{200, 300, 350, 150, 200};
    QTest::newRow("one frame") << 100 << VxTimeRange(100, 100) << true << Times{100, 100};
    QTest::newRow("shorter than a frame")
        << 110 << VxTimeRange(110, 120) << true << Times{120, 110, 120};
}

void TestPlaybackClock::framesAreInOrder()
{
    QFETCH(int, from);
    QFETCH(VxTimeRange, range);
    QFETCH(bool, looping);
    QFETCH(QVector<VxTime>, times);

    for (const bool dropFrames : {true, false}) {
        PlaybackClock clock;
        clock.start(from, {100, range, looping, dropFrames}, 5 * Second);
        QCOMPARE(playByDueTimes(clock, times.size()), times);
    }
}

void TestPlaybackClock::nothingIsShownBeforeItsTime()
{
    QFETCH(int, fps);
    const VxTime step = VxTicksPerSecond / fps;
    for (const bool dropFrames : {true, false}) {
        PlaybackClock clock;
        clock.start(0, {step, {0, 9 * step}, true, dropFrames}, 0);
        for (qint64 frame = 1; frame <= 100; ++frame) {
            const qint64 due = clock.nextDue();
            // A tick is not a whole number of nanoseconds; the due time is the first one after.
            QCOMPARE(due, dueAfter(frame * step));
            QCOMPARE(clock.advance(due - 1).time, VxTime((frame - 1) % 10) * step);
            QCOMPARE(clock.advance(due).time, VxTime(frame % 10) * step);
        }
    }
}

void TestPlaybackClock::hoursOfDroppingPlaybackDoNotDrift()
{
    QFETCH(int, fps);
    const VxTime step = VxTicksPerSecond / fps;
    const PlaybackSettings settings = {step, {40 * step, 90 * step}, true, true};
    const VxTime from = 50 * step;
    PlaybackClock clock;
    clock.start(from, settings, 0);
    // An odd interval, so that all positions within a frame occur.
    for (qint64 now = 0; now < 10 * Hour; now += 7 * Second + 123456789) {
        const VxTime shown = clock.advance(now).time;
        const long double position = expectedPosition(from, settings, now);
        const long double lag = position - shown;
        QVERIFY2(lag > -0.001L && lag < step + 0.001L, qPrintable(QString::number(double(lag))));
    }
}

void TestPlaybackClock::hoursOfEveryFrameDoNotDrift()
{
    QFETCH(int, fps);
    const VxTime step = VxTicksPerSecond / fps;
    PlaybackClock clock;
    clock.start(0, {step, {0, 30 * step}, true, false}, 0);
    // Always a little late, as timers are, but never by a frame.
    const qint64 lateness = step * (Second / 4800) / 3;
    const qint64 hours = fps > 1000 ? Hour / 2 : 3 * Hour;
    qint64 frames = 0;
    qint64 due = clock.nextDue();
    for (; due < hours; due = clock.nextDue()) {
        const VxTime shown = clock.advance(due + lateness).time;
        ++frames;
        if (shown != VxTime(frames % 31) * step)
            QCOMPARE(shown, VxTime(frames % 31) * step);
    }
    // The next frame is due where an uninterrupted count has it.
    QCOMPARE(due, dueAfter((frames + 1) * step));
}

void TestPlaybackClock::lateTicksDropFrames()
{
    PlaybackClock clock;
    clock.start(0, {100, {0, 4800}, true, true}, 0);
    QCOMPARE(clock.advance(Second / 2).time, 2400);
    // 4900 ticks make a lap: a second and a half later, 7200 ticks from the start.
    QCOMPARE(clock.advance(Second + Second / 2).time, 7200 - 4900);
}

void TestPlaybackClock::longStallsDoNotRushEveryFrame()
{
    PlaybackClock clock;
    clock.start(0, {100, {0, 4800}, true, false}, 0);
    const qint64 frame = 100 * Second / 4800;
    qint64 now = 0;
    // A second for each: one frame a tick, and each has its full time afterwards.
    for (VxTime shown = 100; shown <= 1000; shown += 100) {
        now += Second;
        QCOMPARE(clock.advance(now).time, shown);
        QCOMPARE(clock.advance(now + frame / 2).time, shown);
        QVERIFY(clock.nextDue() - now >= frame);
    }
    // On time again: no faster than the rate, however late.
    const qint64 since = now;
    for (VxTime shown = 1100; shown <= 2000; shown += 100)
        QCOMPARE(clock.advance(clock.nextDue()).time, shown);
    QVERIFY(clock.nextDue() - since >= 10 * frame);
}

void TestPlaybackClock::delaysOfEveryFrameAreMadeUp()
{
    QFETCH(int, fps);
    const VxTime step = VxTicksPerSecond / fps;
    const qint64 delay = std::min<qint64>(5 * dueAfter(step), Second / 2 - 1000);
    PlaybackClock clock;
    clock.start(0, {step, {0, 99 * step}, true, false}, 0);
    qint64 now = clock.nextDue() + delay;
    QCOMPARE(clock.advance(now).time, step);
    qint64 frame = 1;
    // Each frame is shown, none for less than a quarter of its time, and twice as many as were
    // missed are enough.
    while (clock.nextDue() > dueAfter((frame + 1) * step)) {
        const qint64 due = clock.nextDue();
        QVERIFY2(due - now >= dueAfter(step) / 4, qPrintable(QString::number(due - now)));
        QCOMPARE(clock.advance(due - 1).time, VxTime(frame % 100) * step);
        QCOMPARE(clock.advance(due).time, VxTime(++frame % 100) * step);
        now = due;
        QVERIFY(frame <= 12);
    }
    QVERIFY(frame > 1 || delay <= dueAfter(step) / 4 * 3);
    // From then on each has its whole time again.
    QCOMPARE(clock.nextDue(), dueAfter((frame + 1) * step));
    clock.advance(clock.nextDue());
    QCOMPARE(clock.nextDue(), dueAfter((frame + 2) * step));
}

void TestPlaybackClock::everyFrameKeepsUpThroughRandomDelays()
{
    QFETCH(int, fps);
    const VxTime step = VxTicksPerSecond / fps;
    PlaybackClock clock;
    clock.start(0, {step, {0, 99 * step}, true, false}, 0);
    // A busy machine: most frames are a little late, one of fifty by up to a tenth of a second;
    // then a quiet one.
    QRandomGenerator random(quint32(fps) + 17);
    qint64 now = 0;
    for (qint64 frame = 1; frame <= 50000; ++frame) {
        const bool stall = frame < 49000 && random.bounded(50) == 0;
        now = std::max(now, clock.nextDue()) + random.bounded(stall ? int(Second / 10) : 1000);
        const VxTime shown = clock.advance(now).time;
        if (shown != VxTime(frame % 100) * step)
            QCOMPARE(shown, VxTime(frame % 100) * step);
        if (now < dueAfter(frame * step))
            QFAIL("shown before its time");
    }
    // Slow rates lose nothing; faster than the machine, lag of half a second or more is dropped.
    if (fps <= 48)
        QCOMPARE(clock.nextDue(), dueAfter(50001 * step));
    else
        QVERIFY(clock.nextDue() > dueAfter(50001 * step));
}

void TestPlaybackClock::halfASecondIsMadeUpAndNoMore()
{
    const qint64 due = dueAfter(160);
    PlaybackClock within;
    within.start(0, {160, {0, 48000}, true, false}, 0);
    QCOMPARE(within.advance(due + Second / 2).time, 160);
    QCOMPARE(within.nextDue(), due + Second / 2 + due / 2);
    PlaybackClock beyond;
    beyond.start(0, {160, {0, 48000}, true, false}, 0);
    QCOMPARE(beyond.advance(due + Second / 2 + 1).time, 160);
    QCOMPARE(beyond.nextDue(), due + Second / 2 + 1 + due);
    PlaybackClock atTheEnd;
    atTheEnd.start(0, {160, {0, 160}, false, false}, 0);
    const PlaybackFrame last = atTheEnd.advance(Hour);
    QCOMPARE(last.time, 160);
    QVERIFY(last.ended);
}

void TestPlaybackClock::delaysAreMadeUpAcrossAChangeOfTheRange()
{
    PlaybackClock clock;
    clock.start(0, {160, {0, 48000}, true, false}, 0);
    const qint64 frame = dueAfter(160);
    const qint64 now = frame + 3 * frame;
    QCOMPARE(clock.advance(now).time, 160);
    // Half a frame is left to it, whoever changes the range meanwhile.
    clock.configure({160, {0, 4800}, true, false});
    QCOMPARE(clock.nextDue(), now + frame / 2);
    QCOMPARE(clock.advance(clock.nextDue()).time, 320);
    QCOMPARE(clock.nextDue(), now + frame / 2 + frame / 2);
    for (int i = 0; i < 8; ++i)
        clock.advance(clock.nextDue());
    // In time again, but for the nanoseconds that round the first frame's time up.
    QVERIFY(qAbs(clock.nextDue() - dueAfter(11 * 160)) <= 1);
}

void TestPlaybackClock::slightDelaysDoNotSlowEveryFrameDown()
{
    PlaybackClock clock;
    clock.start(0, {160, {0, 4800}, true, false}, 0);
    const qint64 delay = 20000000;
    for (int i = 0; i < 30; ++i)
        clock.advance(clock.nextDue() + delay);
    QCOMPARE(clock.advance(Second + delay).time, 4800);
    QCOMPARE(clock.nextDue(), Second + (160 * Second + 4799) / 4800);
}

void TestPlaybackClock::oneFrameRange()
{
    for (const bool dropFrames : {true, false}) {
        PlaybackClock clock;
        clock.start(320, {160, {320, 320}, false, dropFrames}, 7);
        QCOMPARE(clock.nextDue(), 7);
        const PlaybackFrame frame = clock.advance(7);
        QCOMPARE(frame.time, 320);
        QVERIFY(frame.ended);
    }
}

void TestPlaybackClock::endsOnceTheEndIsShown()
{
    for (const bool dropFrames : {true, false}) {
        PlaybackClock clock;
        clock.start(100, {100, {0, 300}, false, dropFrames}, 0);
        QVERIFY(!clock.advance(clock.nextDue()).ended);
        const PlaybackFrame last = clock.advance(clock.nextDue());
        QCOMPARE(last.time, 300);
        QVERIFY(last.ended);
    }
    PlaybackClock late;
    late.start(0, {100, {0, 300}, false, true}, 0);
    const PlaybackFrame last = late.advance(Hour);
    QCOMPARE(last.time, 300);
    QVERIFY(last.ended);
}

void TestPlaybackClock::endOffTheFramesIsShown()
{
    PlaybackClock clock;
    clock.start(0, {100, {0, 250}, false, true}, 0);
    QCOMPARE(playByDueTimes(clock, 2), (QVector<VxTime>{100, 200}));
    QCOMPARE(clock.nextDue(), (250 * Second + 4799) / 4800);
    const PlaybackFrame last = clock.advance(clock.nextDue());
    QCOMPARE(last.time, 250);
    QVERIFY(last.ended);
}

void TestPlaybackClock::startOutsideOfTheRange_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<bool>("looping");
    QTest::addColumn<int>("shown");
    QTest::addColumn<bool>("ended");

    QTest::newRow("before, once") << 0 << false << 100 << false;
    QTest::newRow("before, looping") << 0 << true << 100 << false;
    QTest::newRow("after, once") << 900 << false << 500 << true;
    QTest::newRow("after, looping") << 900 << true << 100 << false;
}

void TestPlaybackClock::startOutsideOfTheRange()
{
    QFETCH(int, from);
    QFETCH(bool, looping);
    QFETCH(int, shown);
    QFETCH(bool, ended);

    PlaybackClock clock;
    clock.start(from, {100, {100, 500}, looping, true}, 42);
    QCOMPARE(clock.nextDue(), 42);
    const PlaybackFrame frame = clock.advance(42);
    QCOMPARE(frame.time, shown);
    QCOMPARE(frame.ended, ended);
    if (!ended)
        QCOMPARE(clock.advance(clock.nextDue()).time, shown + 100);
}

void TestPlaybackClock::rangeChangesDuringPlayback()
{
    for (const bool dropFrames : {true, false}) {
        PlaybackClock clock;
        clock.start(0, {100, {0, 1000}, true, dropFrames}, 0);
        QCOMPARE(playByDueTimes(clock, 3).last(), 300);
        const qint64 due = clock.nextDue();
        clock.configure({100, {200, 400}, true, dropFrames});
        // The frame on show keeps what is left of its time.
        QVERIFY(qAbs(clock.nextDue() - due) <= 1);
        QCOMPARE(playByDueTimes(clock, 4), (QVector<VxTime>{400, 200, 300, 400}));

        clock.configure({100, {800, 900}, true, dropFrames});
        QCOMPARE(clock.advance(clock.nextDue()).time, 800);
        clock.configure({100, {0, 300}, false, dropFrames});
        const PlaybackFrame frame = clock.advance(clock.nextDue());
        QCOMPARE(frame.time, 300);
        QVERIFY(frame.ended);
    }
}

void TestPlaybackClock::stepChangesDuringPlayback()
{
    PlaybackClock clock;
    clock.start(0, {160, {0, 4800}, true, true}, 0);
    QCOMPARE(playByDueTimes(clock, 3).last(), 480);
    clock.configure({200, {0, 4800}, true, true});
    QCOMPARE(playByDueTimes(clock, 2), (QVector<VxTime>{600, 800}));
    // No time was lost on the way: 800 ticks are a sixth of a second.
    QVERIFY(qAbs(clock.nextDue() - 1000 * Second / 4800) <= 2);
}

void TestPlaybackClock::loopingChangesDuringPlayback()
{
    PlaybackClock clock;
    clock.start(200, {100, {0, 300}, true, true}, 0);
    QCOMPARE(clock.advance(clock.nextDue()).time, 300);
    clock.configure({100, {0, 300}, false, true});
    QVERIFY(clock.advance(clock.nextDue()).ended);
}

void TestPlaybackClock::timeSetDuringPlayback()
{
    for (const bool dropFrames : {true, false}) {
        PlaybackClock clock;
        clock.start(0, {100, {0, 1000}, true, dropFrames}, 0);
        QCOMPARE(playByDueTimes(clock, 2).last(), 200);
        clock.setTime(700, Second);
        QCOMPARE(clock.nextDue(), Second + (100 * Second + 4799) / 4800);
        QCOMPARE(playByDueTimes(clock, 3), (QVector<VxTime>{800, 900, 1000}));
    }
}

void TestPlaybackClock::rangeOfAllTimes()
{
    PlaybackClock clock;
    clock.start(VxTimeMax - 50, {100, VxTimeRange::all(), true, true}, 0);
    QCOMPARE(playByDueTimes(clock, 2), (QVector<VxTime>{VxTimeMax - VxTimeMax % 100, VxTimeMax}));
    QCOMPARE(clock.advance(clock.nextDue()).time, VxTimeMin);
}

VX_TEST_APPLESS_MAIN(TestPlaybackClock)
#include "tst_playbackclock.moc"
