#include "io/bvh/vxbvhtiming.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <memory>

class TestVxBvhTiming : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void findsRateAndStep_data();
    void findsRateAndStep();
    void keysOfExactRates();
    void keysOfOtherRatesDoNotDrift_data();
    void keysOfOtherRatesDoNotDrift();
    void keysAscend_data();
    void keysAscend();
    void refuses_data();
    void refuses();
    void longestMotion();
    void noFrames();
    void sentences_data();
    void sentences();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestVxBvhTiming::findsRateAndStep_data()
{
    QTest::addColumn<double>("frameTime");
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("exact");
    const auto row = [](const char *name, double time, double rate, int step, bool exact) {
        QTest::newRow(name) << time << rate << step << exact;
    };
    row("120, rounded to seven places", .0083333, 120, 40, true);
    row("120, rounded to six places", .008333, 120, 40, true);
    row("120, as a fraction", 1.0 / 120, 120, 40, true);
    row("120, of four places", .0083, 120, 40, true);
    row("30, rounded to seven places", .0333333, 30, 160, true);
    row("30, rounded to six places", .033333, 30, 160, true);
    row("30, of four places", .0333, 30, 160, true);
    row("30, of three places", .033, 30, 160, true);
    row("30, the last place cut up", .0333334, 1 / .0333334, 160, false);
    row("60, rounded up", .0166667, 60, 80, true);
    row("60, cut", .0166666, 60, 80, true);
    row("60, of three places", .017, 60, 80, true);
    row("24, rounded", .0416667, 24, 200, true);
    row("25", .04, 25, 192, true);
    row("50", .02, 50, 96, true);
    row("100", .01, 100, 48, true);
    row("200", .005, 200, 24, true);
    row("one", 1.0, 1, 4800, true);
    row("4800, the most", 1.0 / 4800, 4800, 1, true);
    row("4800, rounded", .000208333, 4800, 1, true);
    row("29.97", .0333667, 1 / .0333667, 160, false);
    row("29.97, as a fraction", 1001.0 / 30000, 30000.0 / 1001, 160, false);
    row("29.97, of four places", .0334, 1 / .0334, 160, false);
    row("23.976", .0417083, 1 / .0417083, 200, false);
    row("59.94", .0166833, 1 / .0166833, 80, false);
    row("7, which the scene cuts", .142857, 7, 685, false);
    row("500, which the scene cuts", .002, 500, 9, false);
    row("a third of a hundred", .03, 1 / .03, 144, true);
    row("slower than one a second", 2.5, .4, 4800, true);
    row("slower and between ticks", 1.23456, 1 / 1.23456, 4800, false);
}

void TestVxBvhTiming::findsRateAndStep()
{
    QFETCH(double, frameTime);
    QFETCH(double, rate);
    QFETCH(int, step);
    QFETCH(bool, exact);
    VxBvhTiming timing;
    QString message;
    QVERIFY2(timing.set(frameTime, 100, &message), qPrintable(message));
    QCOMPARE(timing.sourceRate(), rate);
    QCOMPARE(timing.step(), step);
    QCOMPARE(timing.isExact(), exact);
    QCOMPARE(timing.sceneRate(), 4800.0 / step);
}

void TestVxBvhTiming::keysOfExactRates()
{
    VxBvhTiming timing;
    QString message;
    QVERIFY(timing.set(.0083333, 7262, &message));
    const QVector<VxTime> times = timing.keyTimes();
    QCOMPARE(times.size(), 7262);
    for (int i = 0; i < times.size(); ++i)
        QCOMPARE(times[i], i * 40);
    QCOMPARE(timing.lastKeyTime(), 7261 * 40);
    QVERIFY(timing.set(2.5, 3, &message));
    QCOMPARE(timing.keyTimes(), (QVector<VxTime>{0, 12000, 24000}));
}

void TestVxBvhTiming::keysOfOtherRatesDoNotDrift_data()
{
    QTest::addColumn<double>("frameTime");
    QTest::addColumn<double>("exactFrameTime");
    QTest::newRow("29.97") << .0333667 << .0333667;
    QTest::newRow("23.976") << .0417083 << .0417083;
    QTest::newRow("7") << .142857 << 1.0 / 7;
    QTest::newRow("500") << .002 << .002;
    QTest::newRow("just below 4800") << .00020901 << .00020901;
}

void TestVxBvhTiming::keysOfOtherRatesDoNotDrift()
{
    QFETCH(double, frameTime);
    QFETCH(double, exactFrameTime);
    VxBvhTiming timing;
    QString message;
    QVERIFY(timing.set(frameTime, 20000, &message));
    for (int i = 0; i < 20000; ++i)
        QVERIFY(std::abs(timing.keyTime(i) - i * exactFrameTime * 4800) <= 0.5 + 1e-6);
}

void TestVxBvhTiming::keysAscend_data()
{
    QTest::addColumn<double>("frameTime");
    for (const double time :
         {1.0 / 4800, 1.0 / 4799.3, 1.0 / 4000, .00030001, .0333667, 1.0 / 3, 7.7})
        QTest::addRow("frames of %g seconds", time) << time;
}

void TestVxBvhTiming::keysAscend()
{
    QFETCH(double, frameTime);
    VxBvhTiming timing;
    QString message;
    QVERIFY2(timing.set(frameTime, 50000, &message), qPrintable(message));
    const QVector<VxTime> times = timing.keyTimes();
    QCOMPARE(times.first(), 0);
    QCOMPARE(times.last(), timing.lastKeyTime());
    for (int i = 1; i < times.size(); ++i)
        QVERIFY(times[i] > times[i - 1]);
}

void TestVxBvhTiming::refuses_data()
{
    QTest::addColumn<double>("frameTime");
    QTest::addColumn<int>("frames");
    QTest::addColumn<QString>("part");
    const QString fast = QStringLiteral("at most 4800");
    const QString late = QStringLiteral("too long");
    QTest::newRow("5000 frames a second") << .0002 << 10 << fast;
    QTest::newRow("4801 frames a second") << 1.0 / 4801 << 10 << fast;
    QTest::newRow("a million frames a second") << 1e-6 << 10 << fast;
    QTest::newRow("the smallest frame time") << 5e-324 << 10 << fast;
    QTest::newRow("one frame beyond the latest time") << .0333333 << 13421774 << late;
    QTest::newRow("two thousand million frames") << 1.0 << 2000000000 << late;
    QTest::newRow("frames of a million seconds") << 1e6 << 2 << late;
    QTest::newRow("the largest frame time") << 1.7e308 << 2 << late;
}

void TestVxBvhTiming::refuses()
{
    QFETCH(double, frameTime);
    QFETCH(int, frames);
    QFETCH(QString, part);
    VxBvhTiming timing;
    QString message;
    QVERIFY(!timing.set(frameTime, frames, &message));
    QVERIFY2(message.contains(part), qPrintable(message));
    QCOMPARE(timing.frameCount(), 0);
}

void TestVxBvhTiming::longestMotion()
{
    VxBvhTiming timing;
    QString message;
    QVERIFY(timing.set(.0333333, 13421773, &message));
    QCOMPARE(timing.lastKeyTime(), 13421772 * 160);
}

void TestVxBvhTiming::noFrames()
{
    VxBvhTiming timing;
    QString message;
    QVERIFY(timing.set(.04, 0, &message));
    QVERIFY(timing.keyTimes().isEmpty());
    QCOMPARE(timing.lastKeyTime(), 0);
    QCOMPARE(timing.step(), 192);
}

void TestVxBvhTiming::sentences_data()
{
    QTest::addColumn<double>("frameTime");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("same rate")
        << .0083333
        << "The motion has 100 frames at 120 frames per second. The scene has the same frame rate.";
    QTest::newRow("nearest rate") << .0333667
                                  << "The motion has 100 frames at 29.97 frames per second. The "
                                     "scene has 30 frames per second (160 ticks per frame); keys "
                                     "are placed at the nearest tick, so some are between frames.";
    QTest::newRow("slow")
        << 2.0
        << "The motion has 100 frames at 0.5 frames per second. The scene has 1 frames per second "
           "(4800 ticks per frame); each frame of the motion is 9600 ticks long.";
}

void TestVxBvhTiming::sentences()
{
    QFETCH(double, frameTime);
    QFETCH(QString, sentence);
    VxBvhTiming timing;
    QString message;
    QVERIFY(timing.set(frameTime, 100, &message));
    QCOMPARE(timing.sentence(), sentence);
}

VX_TEST_GUILESS_MAIN(TestVxBvhTiming)
#include "tst_vxbvhtiming.moc"
