#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/time/timelinesnap.h"

#include <QtTest>
#include <memory>

// The mapping between time and pixels, by numbers worked out by hand.
class TestTimelineMetrics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void defaults();
    void timeToX_data();
    void timeToX();
    void farTimesKeepTheScale();
    void twoHours();
    void keysOrigin_data();
    void keysOrigin();
    void keysOriginFarAway();
    void markAndMiddle();
    void xToTime_data();
    void xToTime();
    void xToTimeOfUnevenFrames();
    void xToTimeWithoutScale();
    void xToFrameTime_data();
    void xToFrameTime();
    void roundTrip();
    void secondsCount_data();
    void secondsCount();
    void fit_data();
    void fit();
    void scales_data();
    void scales();
    void playRangeFillsTheFit();
    void snapping_data();
    void snapping();
    void framesOfTimes_data();
    void framesOfTimes();
    void limits();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestTimelineMetrics::defaults()
{
    const TimelineMetrics metrics;
    QCOMPARE(metrics.fps, 30);
    QCOMPARE(metrics.divisor, 1);
    QCOMPARE(metrics.zoom, 1.0);
    QCOMPARE(metrics.frameWidth, 10);
    QCOMPARE(metrics.keyMargin, 5);
    QCOMPARE(&TimelineMetrics::shared(), &TimelineMetrics::shared());
}

void TestTimelineMetrics::timeToX_data()
{
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("x");

    QTest::newRow("zero") << 0 << 1.0 << 0;
    QTest::newRow("one frame") << 160 << 1.0 << 10;
    QTest::newRow("one second") << 4800 << 1.0 << 300;
    QTest::newRow("part of a pixel is cut off") << 31 << 1.0 << 1;
    QTest::newRow("before zero") << -160 << 1.0 << -10;
    QTest::newRow("before zero, towards zero") << -31 << 1.0 << -1;
    QTest::newRow("half the scale") << 4800 << 0.5 << 150;
    QTest::newRow("no scale") << 4800 << 0.0 << 0;
}

void TestTimelineMetrics::timeToX()
{
    QFETCH(VxTime, time);
    QFETCH(double, zoom);
    TimelineMetrics metrics;
    metrics.zoom = zoom;
    QTEST(metrics.timeToX(time), "x");
}

// 8,000,000 * 30 * 10 is more than 32 bits hold; so is the product of the largest time.
void TestTimelineMetrics::farTimesKeepTheScale()
{
    TimelineMetrics metrics;
    QCOMPARE(metrics.timeToX(8000000), 500000);
    QCOMPARE(metrics.timeToX(-8000000), -500000);
    QCOMPARE(metrics.xToTime(500000), 8000000);
    QCOMPARE(metrics.xToTime(100000000), 1600000000);
    QCOMPARE(metrics.timeToX(VxTimeMax), 134217727);
    metrics.fps = 4800;
    QCOMPARE(metrics.timeToX(VxTimeMax), VxTimeMax);
    QCOMPARE(metrics.timeToX(VxTimeMin), VxTimeMin);
}

// 120 frames a second for two hours over 1,000 pixels, and its last ten frames over as many.
void TestTimelineMetrics::twoHours()
{
    const VxTime end = 2 * 3600 * VxTicksPerSecond;
    TimelineMetrics metrics;
    metrics.fps = 120;
    QVERIFY(metrics.fit(1030, end));
    int former = -1;
    for (int minute = 0; minute <= 120; ++minute) {
        const VxTime time = minute * 60 * VxTicksPerSecond;
        const int x = metrics.timeToX(time);
        QVERIFY2(qAbs(x - minute * 1000 / 120) <= 1, qPrintable(QString::number(minute)));
        QVERIFY(x > former);
        QVERIFY(qAbs(metrics.xToTime(x) - time) <= end / 1000);
        former = x;
    }

    const VxTime start = end - 10 * 40;
    QVERIFY(metrics.fit(1030, end - start));
    for (int frame = 0; frame <= 10; ++frame) {
        const int x = metrics.keyLeft(0, start + frame * 40, start);
        QVERIFY2(qAbs(x - (2 + frame * 100)) <= 1, qPrintable(QString::number(x)));
    }
}

void TestTimelineMetrics::keysOrigin_data()
{
    QTest::addColumn<int>("margin");
    QTest::addColumn<VxTime>("start");
    QTest::addColumn<int>("origin");

    QTest::newRow("even margin") << 10 << 0 << 5;
    QTest::newRow("odd margin, cut off") << 5 << 0 << 2;
    QTest::newRow("range starts at frame 10") << 10 << 1600 << -95;
    QTest::newRow("odd margin left of zero, towards zero") << 5 << 1600 << -97;
    QTest::newRow("range starts before zero") << 10 << -1600 << 105;
}

void TestTimelineMetrics::keysOrigin()
{
    QFETCH(int, margin);
    QFETCH(VxTime, start);
    TimelineMetrics metrics;
    metrics.keyMargin = margin;
    QTEST(metrics.keysOrigin(start), "origin");
}

// Single precision would be off by two pixels here.
void TestTimelineMetrics::keysOriginFarAway()
{
    TimelineMetrics metrics;
    metrics.zoom = 48.0;
    metrics.keyMargin = 6;
    QCOMPARE(metrics.timeToX(5592407), 16777221);
    QCOMPARE(metrics.keysOrigin(5592407), -16777218);
}

void TestTimelineMetrics::markAndMiddle()
{
    TimelineMetrics metrics;
    metrics.frameWidth = 9;
    QCOMPARE(metrics.halfFrame(), 4);
    metrics.frameWidth = 10;
    QCOMPARE(metrics.halfFrame(), 5);
    // Cell at 250, half margin 2, frame 5 of a range from frame 2.
    QCOMPARE(metrics.keyLeft(250, 800, 320), 250 + metrics.keysOrigin(320) + 50);
    QCOMPARE(metrics.keyLeft(250, 800, 320), 283);
    QCOMPARE(metrics.keyMiddle(250, 800, 320), 288);

    // However far away: widths can be added to it.
    metrics.zoom = 1e9;
    const int far = 1 << 29;
    for (const int cellX : {-1000, 0, 1000}) {
        QCOMPARE(metrics.keyLeft(cellX, 47999, 0), far);
        QCOMPARE(metrics.keyMiddle(cellX, 47999, 0), far);
        QCOMPARE(metrics.keyLeft(cellX, -47999, 0), -far);
        QVERIFY(metrics.keyMiddle(cellX, -47999, 0) < -far + 10);
    }
}

void TestTimelineMetrics::xToTime_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<double>("zoom");
    QTest::addColumn<VxTime>("time");

    QTest::newRow("zero") << 0 << 1.0 << 0;
    QTest::newRow("one frame") << 10 << 1.0 << 160;
    QTest::newRow("one pixel") << 1 << 1.0 << 16;
    QTest::newRow("before zero") << -10 << 1.0 << -160;
    QTest::newRow("twice the scale") << 10 << 2.0 << 80;
    QTest::newRow("cut off towards zero") << 1 << 3.0 << 5;
    QTest::newRow("before zero, cut off towards zero") << -1 << 3.0 << -5;
}

void TestTimelineMetrics::xToTime()
{
    QFETCH(int, x);
    QFETCH(double, zoom);
    TimelineMetrics metrics;
    metrics.zoom = zoom;
    QTEST(metrics.xToTime(x), "time");
}

// Pixels are multiplied before they are divided; the fraction of a frame's ticks is cut off once.
void TestTimelineMetrics::xToTimeOfUnevenFrames()
{
    TimelineMetrics metrics;
    metrics.fps = 7;
    QCOMPARE(metrics.xToTime(100), 6857);
    QCOMPARE(metrics.xToTime(-100), -6857);
}

void TestTimelineMetrics::xToTimeWithoutScale()
{
    TimelineMetrics metrics;
    metrics.zoom = 0.0;
    QCOMPARE(metrics.xToTime(100), 0);
    metrics.zoom = 1.0;
    metrics.fps = 0; // a frame longer than a second
    QCOMPARE(metrics.xToTime(100), 0);
    QCOMPARE(metrics.timeToX(4800), 0);
    metrics.fps = 30;
    metrics.zoom = 1e-12;
    QCOMPARE(metrics.xToTime(100), VxTimeMax);
}

void TestTimelineMetrics::xToFrameTime_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<VxTime>("time");

    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("less than half a frame") << 4 << 0;
    QTest::newRow("half a frame is rounded up") << 5 << 160;
    QTest::newRow("half a frame before zero is rounded down") << -5 << -160;
    QTest::newRow("one and a half frames") << 15 << 320;
}

void TestTimelineMetrics::xToFrameTime()
{
    QFETCH(int, x);
    const TimelineMetrics metrics;
    QTEST(metrics.xToFrameTime(x, 160), "time");
}

void TestTimelineMetrics::roundTrip()
{
    for (const int frameWidth : {4, 9, 10, 12}) {
        TimelineMetrics metrics;
        metrics.frameWidth = frameWidth;
        for (int frame = -50; frame <= 500; ++frame) {
            const VxTime time = frame * 160;
            QCOMPARE(metrics.xToFrameTime(metrics.timeToX(time), 160), time);
        }
    }
}

void TestTimelineMetrics::secondsCount_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("count");

    QTest::newRow("nothing but the first") << 299 << 1.0 << 1;
    QTest::newRow("exactly one second") << 300 << 1.0 << 2;
    QTest::newRow("several") << 1000 << 1.0 << 4;
    QTest::newRow("seconds without width") << 1000 << 0.0 << 1000;
    QTest::newRow("no width") << 0 << 1.0 << 1;
}

void TestTimelineMetrics::secondsCount()
{
    QFETCH(int, width);
    QFETCH(double, zoom);
    TimelineMetrics metrics;
    metrics.zoom = zoom;
    QTEST(metrics.secondsCount(width), "count");
}

void TestTimelineMetrics::fit_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<VxTime>("duration");
    QTest::addColumn<bool>("fits");
    QTest::addColumn<double>("zoom");

    QTest::newRow("a second in 330 pixels") << 330 << 4800 << true << 1.0;
    QTest::newRow("two seconds") << 330 << 9600 << true << 0.5;
    QTest::newRow("35 pixels are too few") << 35 << 4800 << false << 7.0;
    QTest::newRow("36 pixels are enough") << 36 << 4800 << true << 0.02;
    QTest::newRow("no duration") << 330 << 0 << true << 4800.0;
    QTest::newRow("duration backwards") << 330 << -1 << true << 4800.0;
}

void TestTimelineMetrics::fit()
{
    QFETCH(int, width);
    QFETCH(VxTime, duration);
    QFETCH(bool, fits);
    TimelineMetrics metrics;
    metrics.zoom = 7.0;
    QCOMPARE(metrics.fit(width, duration), fits);
    QTEST(metrics.zoom, "zoom");

    metrics.zoom = 7.0;
    metrics.fps = 0;
    QVERIFY(!metrics.fit(width, duration));
    QCOMPARE(metrics.zoom, 7.0);
}

// zoom = room * 4800 / length / 10 / fps, where the room is the width less 30.
void TestTimelineMetrics::scales_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("fps");
    QTest::addColumn<VxTime>("length");
    QTest::addColumn<double>("zoom");

    const struct
    {
        int fps;
        VxTime length;
        double zoomOf300, zoomOf600, zoomOf1350;
    } rows[] = {
        {24, 4800, 1.25, 2.5, 5.625},     // a second
        {24, 48000, 0.125, 0.25, 0.5625}, // ten
        {24, 200, 30.0, 60.0, 135.0},     // a frame
        {7, 4800, 4.285714285714286, 8.571428571428571, 19.285714285714285},
        {7, 48000, 0.4285714285714286, 0.8571428571428571, 1.9285714285714286},
        {7, 685, 30.031282586027114, 60.06256517205423, 135.14077163712200},
        {1200, 4800, 0.025, 0.05, 0.1125},
        {1200, 48000, 0.0025, 0.005, 0.01125},
        {1200, 4, 30.0, 60.0, 135.0},
    };
    for (const auto &row : rows) {
        const QByteArray name =
            QByteArray::number(row.fps) + " a second, " + QByteArray::number(row.length) + " ticks";
        QTest::newRow((name + ", 330 wide").constData())
            << 330 << row.fps << row.length << row.zoomOf300;
        QTest::newRow((name + ", 630 wide").constData())
            << 630 << row.fps << row.length << row.zoomOf600;
        QTest::newRow((name + ", 1380 wide").constData())
            << 1380 << row.fps << row.length << row.zoomOf1350;
    }
}

void TestTimelineMetrics::scales()
{
    QFETCH(int, width);
    QFETCH(int, fps);
    QFETCH(VxTime, length);
    TimelineMetrics metrics;
    metrics.fps = fps;
    QVERIFY(metrics.fit(width, length));
    QTEST(metrics.zoom, "zoom");
}

void TestTimelineMetrics::playRangeFillsTheFit()
{
    TimelineMetrics metrics;
    QVERIFY(metrics.fit(700, 4800 * 3));
    QVERIFY(qAbs(metrics.timeToX(4800 * 3) - 670) <= 1);
}

void TestTimelineMetrics::snapping_data()
{
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<VxTime>("step");
    QTest::addColumn<VxTime>("nearest");
    QTest::addColumn<VxTime>("upwards");

    QTest::newRow("zero") << 0 << 160 << 0 << 0;
    QTest::newRow("just below half") << 79 << 160 << 0 << 0;
    QTest::newRow("half") << 80 << 160 << 160 << 160;
    QTest::newRow("half before zero") << -80 << 160 << -160 << 0;
    QTest::newRow("just above half before zero") << -79 << 160 << 0 << 0;
    QTest::newRow("far before zero") << -1000 << 160 << -960 << -800;
    QTest::newRow("odd step, below half") << 342 << 685 << 0 << 0;
    QTest::newRow("odd step, above half") << 343 << 685 << 685 << 685;
    QTest::newRow("no step") << 123 << 0 << 123 << 123;
    QTest::newRow("the latest time") << VxTimeMax << 160 << VxTimeMax << VxTimeMax;
}

void TestTimelineMetrics::snapping()
{
    QFETCH(VxTime, time);
    QFETCH(VxTime, step);
    QTEST(TimelineSnap::toFrame(time, step), "nearest");
    QTEST(TimelineSnap::toFrameUpwards(time, step), "upwards");
}

void TestTimelineMetrics::framesOfTimes_data()
{
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<VxTime>("step");
    QTest::addColumn<int>("frame");

    QTest::newRow("zero") << 0 << 160 << 0;
    QTest::newRow("within a frame") << 319 << 160 << 1;
    QTest::newRow("on a frame") << 320 << 160 << 2;
    QTest::newRow("before zero, towards zero") << -159 << 160 << 0;
    QTest::newRow("no step") << 320 << 0 << 0;
}

void TestTimelineMetrics::framesOfTimes()
{
    QFETCH(VxTime, time);
    QFETCH(VxTime, step);
    QTEST(TimelineSnap::frameOf(time, step), "frame");
}

void TestTimelineMetrics::limits()
{
    QCOMPARE(TimelineSnap::timeOf(1000000, 4800), VxTimeMax);
    QCOMPARE(TimelineSnap::timeOf(-1000000, 4800), VxTimeMin);
    QCOMPARE(TimelineSnap::timeOf(10, 160), 1600);
    QCOMPARE(TimelineSnap::saturatedInt(1e300), VxTimeMax);
    QCOMPARE(TimelineSnap::saturatedInt(-1e300), VxTimeMin);
    QCOMPARE(TimelineSnap::saturatedInt(qQNaN()), 0);
    QCOMPARE(TimelineSnap::saturatedInt(-1.9), -1);
}

VX_TEST_APPLESS_MAIN(TestTimelineMetrics)
#include "tst_timelinemetrics.moc"
