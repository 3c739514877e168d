#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/dopesheet/dopesheetruler.h"
#include "vxtimeline/time/timelineruler.h"

#include <QtTest>
#include <limits>
#include <memory>
#include <vxcore/vxstyle.h>

Q_DECLARE_METATYPE(std::vector<int>)

// Which frames the time ruler marks and names, and where.
class TestRulerSteps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void steps_data();
    void steps();
    void noWidthEnds();
    void multiples_data();
    void multiples();

    void labels();
    void rangeLabelsAlone();
    void marks();
    void rangeShorterThanAStep();
    void keyMarks();
    void marker();
    void timeAt_data();
    void timeAt();
    void grip_data();
    void grip();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestRulerSteps::steps_data()
{
    QTest::addColumn<float>("frameWidth");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<int>("tick");
    QTest::addColumn<int>("label");

    QTest::newRow("12 pixels") << 12.0f << 10 << 1 << 5;
    QTest::newRow("just enough") << 10.0f << 10 << 1 << 5;
    QTest::newRow("a part of a pixel does not count") << 9.99f << 10 << 5 << 10;
    QTest::newRow("3 pixels") << 3.0f << 10 << 5 << 10;
    QTest::newRow("2 pixels, five frames just enough") << 2.0f << 10 << 5 << 10;
    QTest::newRow("1.4 pixels, five frames just enough") << 1.4f << 7 << 5 << 10;
    QTest::newRow("1.9 pixels") << 1.9f << 10 << 10 << 50;
    QTest::newRow("1 pixel") << 1.0f << 10 << 10 << 50;
    QTest::newRow("0.5 pixels") << 0.5f << 10 << 50 << 100;
    QTest::newRow("0.1 pixels") << 0.1f << 10 << 100 << 500;
    QTest::newRow("0.015 pixels") << 0.015f << 10 << 1000 << 5000;
    QTest::newRow("wider spacing") << 12.0f << 40 << 5 << 10;
    QTest::newRow("no spacing required") << 0.5f << 0 << 1 << 5;
}

void TestRulerSteps::steps()
{
    QFETCH(float, frameWidth);
    QFETCH(int, spacing);
    const TimelineRuler::Steps found = TimelineRuler::steps(frameWidth, spacing);
    QTEST(found.tick, "tick");
    QTEST(found.label, "label");
}

void TestRulerSteps::noWidthEnds()
{
    for (const float width : {0.0f, -3.0f, 1e-20f, std::numeric_limits<float>::quiet_NaN()}) {
        const TimelineRuler::Steps found = TimelineRuler::steps(width, 10);
        QVERIFY(found.tick >= 100000000);
        QVERIFY(found.label > found.tick);
    }
}

void TestRulerSteps::multiples_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("step");
    QTest::addColumn<std::vector<int>>("frames");

    QTest::newRow("the first frame is left out") << 10 << 20 << 5 << std::vector<int>{15, 20, 25};
    QTest::newRow("first frame between") << 12 << 10 << 5 << std::vector<int>{15, 20};
    QTest::newRow("from zero") << 0 << 3 << 1 << std::vector<int>{1, 2};
    QTest::newRow("negative first frame") << -7 << 13 << 5 << std::vector<int>{-5, 0, 5};
    QTest::newRow("a negative multiple") << -10 << 10 << 5 << std::vector<int>{-5};
    QTest::newRow("no frames") << 10 << 0 << 5 << std::vector<int>{};
    QTest::newRow("up to the last number there is")
        << 2147483640 << 7 << 5 << std::vector<int>{2147483645};
}

void TestRulerSteps::multiples()
{
    QFETCH(int, first);
    QFETCH(int, count);
    QFETCH(int, step);
    QTEST(TimelineRuler::multiplesAfter(first, count, step), "frames");
}

namespace {

// Sixty frames of ten pixels, from frame 10 on, over a section at 250. Time 0 is 100 pixels left
// of the range's start; 2.5 - 100 is cut to -97, so frame f has its middle at
// 250 - 97 + 10 f + 5.
DopeSheetRuler someRuler(const TimelineMetrics &metrics)
{
    return DopeSheetRuler(250, 630, metrics, VxTimeRange(1600, 11200), 160);
}

} // namespace

// (630 - 5) / 60 = 10.4 pixels a frame are too few for 12, so ticks are 5 apart and labels 10.
void TestRulerSteps::labels()
{
    const TimelineMetrics metrics;
    QStringList texts;
    QVector<int> middles;
    for (const DopeSheetRulerLabel &label : someRuler(metrics).labels(VxStyle::RulerAll, 12)) {
        texts += label.text;
        middles += label.middle;
    }
    QCOMPARE(texts, (QStringList{"10", "70", "20", "30", "40", "50", "60"}));
    QCOMPARE(middles, (QVector<int>{258, 858, 358, 458, 558, 658, 758}));
}

void TestRulerSteps::rangeLabelsAlone()
{
    const TimelineMetrics metrics;
    const DopeSheetRuler ruler = someRuler(metrics);
    QCOMPARE(ruler.labels(VxStyle::RulerRangeLabels, 12).size(), size_t(2));
    QCOMPARE(ruler.labels(VxStyle::RulerStepLabels, 12).size(), size_t(5));
    QVERIFY(ruler.labels(VxStyle::RulerTicks, 12).empty());
    QVERIFY(ruler.marks(VxStyle::RulerRangeLabels | VxStyle::RulerStepLabels, 12).empty());
}

void TestRulerSteps::marks()
{
    const TimelineMetrics metrics;
    QVector<int> places, values;
    for (const DopeSheetRulerMark &mark : someRuler(metrics).marks(VxStyle::RulerTicks, 12)) {
        places += mark.x;
        values += mark.value;
    }
    QCOMPARE(places,
             (QVector<int>{258, 858, 308, 358, 408, 458, 508, 558, 608, 658, 708, 758, 808}));
    QCOMPARE(values, (QVector<int>{1, 2, 4, 8, 4, 8, 4, 8, 4, 8, 4, 8, 4}));
}

void TestRulerSteps::rangeShorterThanAStep()
{
    const TimelineMetrics metrics;
    const DopeSheetRuler point(0, 630, metrics, VxTimeRange(1600, 1600), 160);
    QVERIFY(!point.hasMarker());
    QCOMPARE(point.marks(VxStyle::RulerAll, 12).size(), size_t(2));
    QCOMPARE(point.labels(VxStyle::RulerAll, 12).size(), size_t(2));
    QVERIFY(DopeSheetRuler(0, 630, metrics, VxTimeRange(0, 1), 160).hasMarker());
}

void TestRulerSteps::keyMarks()
{
    const TimelineMetrics metrics;
    const VxTime times[] = {-99999, 0, 1600, 1601, 3200, 99999};
    // Two keys share a pixel; those far outside are not listed.
    QCOMPARE(someRuler(metrics).keyMarks(times, 6), (std::vector<int>{253, 353}));
}

void TestRulerSteps::marker()
{
    const TimelineMetrics metrics;
    const DopeSheetRuler ruler = someRuler(metrics);
    QCOMPARE(ruler.markerLeft(3200, 11), 353);
    QVERIFY(!ruler.isOnMarker(352, 3200, 11));
    QVERIFY(ruler.isOnMarker(353, 3200, 11));
    QVERIFY(ruler.isOnMarker(363, 3200, 11));
    QVERIFY(!ruler.isOnMarker(364, 3200, 11));
    const DopeSheetRuler point(250, 630, metrics, VxTimeRange(0, 0), 160);
    QVERIFY(!point.isOnMarker(point.markerLeft(0, 11), 0, 11));
}

void TestRulerSteps::timeAt_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<VxTime>("time");

    QTest::newRow("the section's edge is the range's start") << 250 << 1600;
    QTest::newRow("ten pixels, one frame") << 260 << 1760;
    QTest::newRow("four pixels round down") << 254 << 1600;
    QTest::newRow("five pixels round up") << 255 << 1760;
    QTest::newRow("five pixels to the left round away") << 245 << 1440;
    QTest::newRow("four pixels to the left") << 246 << 1600;
}

void TestRulerSteps::timeAt()
{
    QFETCH(int, x);
    const TimelineMetrics metrics;
    QTEST(someRuler(metrics).timeAt(x), "time");
}

void TestRulerSteps::grip_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("isOn");

    // Sections 0 .. 250 and 250 .. 900 of a header 900 long, with grips of 4.
    QTest::newRow("the header's left edge") << 0 << 0 << 250 << false;
    QTest::newRow("left of the names' right grip") << 245 << 0 << 250 << false;
    QTest::newRow("the names' right grip") << 246 << 0 << 250 << true;
    QTest::newRow("the names' edge") << 250 << 0 << 250 << true;
    QTest::newRow("the keys' left edge") << 250 << 250 << 650 << true;
    QTest::newRow("the keys' left grip") << 254 << 250 << 650 << true;
    QTest::newRow("right of it") << 255 << 250 << 650 << false;
    QTest::newRow("the header's right edge") << 899 << 250 << 650 << false;
    QTest::newRow("an inner right edge") << 797 << 250 << 550 << true;
}

void TestRulerSteps::grip()
{
    QFETCH(int, x);
    QFETCH(int, left);
    QFETCH(int, size);
    QTEST(isOnSectionGrip(x, left, size, 4, 0, 900), "isOn");
}

VX_TEST_APPLESS_MAIN(TestRulerSteps)
#include "tst_rulersteps.moc"
