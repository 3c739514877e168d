#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/time/playrangeview.h"

#include <QtTest>
#include <random>

// Zooming and shifting the play range: frames of 160 ticks, an animation of 100 frames.
class TestPlayRangeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void zoom_data();
    void zoom();
    void shift_data();
    void shift();
    void inAndOutAgain();
    void smallStepsAddUp();
    void anotherRangeBeginsAnew();
    void randomSteps();

private:
    static VxTimeRange frames(int start, int end) { return VxTimeRange(start * 160, end * 160); }
    const PlayRangeView::Limits m_limits{frames(0, 100), 160};
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestPlayRangeView::zoom_data()
{
    QTest::addColumn<VxTimeRange>("range");
    QTest::addColumn<double>("time");
    QTest::addColumn<double>("factor");
    QTest::addColumn<VxTimeRange>("result");
    const double frame = 160.0;
    QTest::newRow("in about the middle") << frames(20, 60) << 40 * frame << 0.5 << frames(30, 50);
    QTest::newRow("in about the start") << frames(20, 60) << 20 * frame << 0.5 << frames(20, 40);
    QTest::newRow("in about the end") << frames(20, 60) << 60 * frame << 0.5 << frames(40, 60);
    QTest::newRow("the mouse beside the range")
        << frames(20, 60) << 90 * frame << 0.5 << frames(40, 60);
    QTest::newRow("out") << frames(40, 60) << 45 * frame << 2.0 << frames(35, 75);
    QTest::newRow("out to the animation's start")
        << frames(5, 45) << 25 * frame << 2.0 << frames(0, 80);
    QTest::newRow("out to all") << frames(10, 90) << 50 * frame << 4.0 << frames(0, 100);
    QTest::newRow("in to a frame") << frames(10, 12) << 11 * frame << 0.001 << frames(11, 12);
    QTest::newRow("a range beyond the animation stays there")
        << frames(-20, 130) << 50 * frame << 3.0 << frames(-20, 130);
    QTest::newRow("a range of no length") << frames(50, 50) << 50 * frame << 0.5 << frames(50, 51);
}

void TestPlayRangeView::zoom()
{
    QFETCH(VxTimeRange, range);
    QFETCH(double, time);
    QFETCH(double, factor);
    QFETCH(VxTimeRange, result);
    const VxTimeRange found = PlayRangeView().zoomed(range, time, factor, m_limits);
    QCOMPARE(found.getStart(), result.getStart());
    QCOMPARE(found.getEnd(), result.getEnd());
}

void TestPlayRangeView::shift_data()
{
    QTest::addColumn<VxTimeRange>("range");
    QTest::addColumn<double>("ticks");
    QTest::addColumn<VxTimeRange>("result");
    QTest::newRow("later") << frames(20, 60) << 1600.0 << frames(30, 70);
    QTest::newRow("earlier") << frames(20, 60) << -1600.0 << frames(10, 50);
    QTest::newRow("up to the start") << frames(20, 60) << -16000.0 << frames(0, 40);
    QTest::newRow("up to the end") << frames(20, 60) << 16000.0 << frames(60, 100);
    QTest::newRow("to the nearest frame") << frames(20, 60) << 81.0 << frames(21, 61);
    QTest::newRow("less than half a frame") << frames(20, 60) << 79.0 << frames(20, 60);
    QTest::newRow("a range beyond the animation can only shift back")
        << frames(50, 130) << 1600.0 << frames(50, 130);
}

void TestPlayRangeView::shift()
{
    QFETCH(VxTimeRange, range);
    QFETCH(double, ticks);
    QFETCH(VxTimeRange, result);
    const VxTimeRange found = PlayRangeView().shifted(range, ticks, m_limits);
    QCOMPARE(found.getStart(), result.getStart());
    QCOMPARE(found.getEnd(), result.getEnd());
}

void TestPlayRangeView::inAndOutAgain()
{
    PlayRangeView view;
    VxTimeRange range = frames(21, 64);
    for (int i = 0; i < 5; ++i)
        range = view.zoomed(range, range.getStart() + 0.37 * range.getDuration(), 0.66, m_limits);
    QVERIFY(range.getDuration() < 10 * 160);
    for (int i = 0; i < 5; ++i)
        range =
            view.zoomed(range, range.getStart() + 0.37 * range.getDuration(), 1 / 0.66, m_limits);
    QCOMPARE(range, frames(21, 64));
}

// Each is less than half a frame.
void TestPlayRangeView::smallStepsAddUp()
{
    PlayRangeView view;
    VxTimeRange range = frames(20, 60);
    for (int i = 0; i < 20; ++i)
        range = view.shifted(range, 40.0, m_limits);
    QCOMPARE(range, frames(25, 65));
    range = frames(10, 11);
    for (int i = 0; i < 30; ++i)
        range = view.zoomed(range, 10.5 * 160, 1.05, m_limits);
    QVERIFY(range.getDuration() > 3 * 160);
}

void TestPlayRangeView::anotherRangeBeginsAnew()
{
    PlayRangeView view;
    view.shifted(frames(20, 60), 70.0, m_limits);
    QCOMPARE(view.shifted(frames(30, 50), 70.0, m_limits), frames(30, 50));
}

void TestPlayRangeView::randomSteps()
{
    std::mt19937 random(5);
    const auto real = [&random](double low, double high) {
        return std::uniform_real_distribution<>(low, high)(random);
    };
    PlayRangeView view;
    VxTimeRange range = frames(20, 60);
    for (int i = 0; i < 5000; ++i) {
        const PlayRangeView::Limits limits{frames(0, 100), i % 3 == 0 ? 200 : 160};
        range = i % 2 == 0 ? view.zoomed(range, real(-3000, 20000), real(0.2, 5.0), limits)
                           : view.shifted(range, real(-9000, 9000), limits);
        QVERIFY(range.getStart() >= 0 && range.getEnd() <= 100 * 160);
        QVERIFY(range.getDuration() >= limits.step);
        QCOMPARE(range.getStart() % limits.step, 0);
        QCOMPARE(range.getEnd() % limits.step, 0);
    }
}

VX_TEST_APPLESS_MAIN(TestPlayRangeView)
#include "tst_playrangeview.moc"
