#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/keygraph/keygraphcurve.h"
#include "vxtimeline/keygraph/paint/keygraphkeys.h"
#include "vxtimeline/keygraph/paint/keygraphscale.h"

#include <QtTest>
#include <algorithm>
#include <limits>
#include <random>

namespace {

// 10 ticks a pixel, half a unit a pixel, time 0 at x 100, value 0 at y 200.
KeyGraphScale plainScale()
{
    KeyGraphScale scale;
    scale.ticksPerPixel = 10.0;
    scale.valuePerPixel = -0.5;
    scale.offsetX = 100.0;
    scale.offsetY = 50.0;
    scale.originY = 150.0;
    return scale;
}

// Keys with their records, as plain arrays.
struct Curve
{
    std::vector<VxTime> times;
    std::vector<float> values;
    std::vector<quint8> types;
    std::vector<VxKeyGraphKey> records;

    void add(VxTime time, float value, quint8 type = 0, bool selected = false)
    {
        times.push_back(time);
        values.push_back(value);
        types.push_back(type);
        records.push_back({time, selected, false, time, double(value)});
    }
    KeyGraphKeys keys() const
    {
        return {times.data(), values.data(), types.data(), int(times.size()), 1.0};
    }
};

} // namespace

class TestKeyGraphScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void places_data();
    void places();
    void timesAreTruncated();
    void thereAndBack();
    void marksAreNinePixels_data();
    void marksAreNinePixels();

    void framing();
    void framingOfLowWidgets();
    void framingOfFlatKeys();
    void framingOfNearlyFlatKeys();
    void framingBelowZero();
    void zoomingStartsFromTheScaleAtThePress();
    void zoomingEndsSomewhere();
    void fittingTimes();
    void fittingAnEmptyRange();
    void zoomingTimesKeepsTheMouse();

    void samplesAtEverySecondColumn();
    void pointsAreAtTheirTimes();

    void hitsAreMarks_data();
    void hitsAreMarks();
    void firstOfTwoWins();
    void hitsAgreeWithAFullSearch();
    void marksOutsideAreLeftOut();
    void marksAtOnePlaceAreDrawnOnce();
    void marksKeepTheirOrder();
    void boxes();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestKeyGraphScale::places_data()
{
    QTest::addColumn<int>("time");
    QTest::addColumn<double>("value");
    QTest::addColumn<QPointF>("place");
    QTest::newRow("zero") << 0 << 0.0 << QPointF(100, 200);
    QTest::newRow("later and higher") << 1000 << 10.0 << QPointF(200, 180);
    QTest::newRow("earlier and lower") << -505 << -1.25 << QPointF(49.5, 202.5);
}

void TestKeyGraphScale::places()
{
    QFETCH(int, time);
    QFETCH(double, value);
    QFETCH(QPointF, place);
    const KeyGraphScale scale = plainScale();
    QCOMPARE(QPointF(scale.x(time), scale.y(value)), place);
    QCOMPARE(scale.ticks(place.x()), double(time));
    QCOMPARE(scale.value(place.y()), value);
}

void TestKeyGraphScale::timesAreTruncated()
{
    KeyGraphScale scale = plainScale();
    scale.ticksPerPixel = 0.3;
    QCOMPARE(scale.time(105), 1);
    QCOMPARE(scale.time(95), -1);
    QCOMPARE(scale.time(103), 0);
    scale.ticksPerPixel = 500000;
    QCOMPARE(scale.time(1e9), VxTimeMax);
    QCOMPARE(scale.time(-1e9), VxTimeMin);
}

void TestKeyGraphScale::thereAndBack()
{
    const KeyGraphScale scale = plainScale();
    for (int x = -500; x < 2000; ++x)
        QCOMPARE(scale.x(scale.time(x)), double(x));
}

void TestKeyGraphScale::marksAreNinePixels_data()
{
    QTest::addColumn<QPointF>("place");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("on a pixel") << QPointF(10, 10) << QPoint(6, 6);
    QTest::newRow("between pixels") << QPointF(10.5, 10.49) << QPoint(6, 6);
    QTest::newRow("left of the widget") << QPointF(-3, -3.6) << QPoint(-7, -8);
    QTest::newRow("far away") << QPointF(1e12, -1e12) << QPoint(1000000, -1000000);
    const double none = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("no number") << QPointF(0, none) << QPoint(-4, -1000000);
}

void TestKeyGraphScale::marksAreNinePixels()
{
    QFETCH(QPointF, place);
    QTEST(KeyGraphScale::markRect(place.x(), place.y()).topLeft(), "corner");
    QCOMPARE(KeyGraphScale::markRect(place.x(), place.y()).size(), QSize(9, 9));
}

void TestKeyGraphScale::framing()
{
    KeyGraphScale scale = plainScale();
    scale.frameValues(-10.0, 30.0, 240.0);
    QCOMPARE(scale.valuePerPixel, -0.2);
    scale.originY = 120.0;
    scale.frameValues(-10.0, 30.0, 240.0);
    QCOMPARE(scale.y(-10.0), 220.0);
    QCOMPARE(scale.y(30.0), 20.0);
    QCOMPARE(scale.offsetX, 100.0);
    QCOMPARE(scale.ticksPerPixel, 10.0);
}

void TestKeyGraphScale::framingOfLowWidgets()
{
    KeyGraphScale scale;
    scale.frameValues(0.0, 40.0, 80.0);
    QCOMPARE(scale.valuePerPixel, -1.0);
    scale.frameValues(0.0, 41.0, 81.0);
    QCOMPARE(scale.valuePerPixel, -1.0);
    scale.frameValues(0.0, 40.0, 80.5);
    QCOMPARE(scale.valuePerPixel, -1.0);
    scale.frameValues(0.0, 40.0, 10.0);
    QCOMPARE(scale.valuePerPixel, -1.0);
}

void TestKeyGraphScale::framingOfFlatKeys()
{
    KeyGraphScale scale;
    scale.originY = 70.0;
    scale.frameValues(5.0, 5.0, 140.0);
    QCOMPARE(scale.valuePerPixel, -0.02);
    QCOMPARE(scale.y(5.0), 70.0);
    QCOMPARE(scale.y(4.0), 120.0);
}

// From a thousandth on the values count as different.
void TestKeyGraphScale::framingOfNearlyFlatKeys()
{
    KeyGraphScale scale;
    scale.frameValues(0.0, 0.0009, 140.0);
    QCOMPARE(scale.valuePerPixel, -2.0009 / 100.0);
    scale.frameValues(0.0, 0.001, 140.0);
    QCOMPARE(scale.valuePerPixel, -0.001 / 100.0);
}

// Keys below zero are shown up to zero.
void TestKeyGraphScale::framingBelowZero()
{
    Curve curve;
    curve.add(0, -30.0f);
    curve.add(10, -10.0f);
    KeyGraphSpan span;
    QVERIFY(!span.found);
    span.add(curve.keys(), curve.records.data(), true);
    QVERIFY(!span.found);
    span.add(curve.keys(), curve.records.data(), false);
    QVERIFY(span.found);
    QCOMPARE(span.low, -30.0);
    QCOMPARE(span.high, std::numeric_limits<double>::min());
    curve.add(20, 7.0f, 0, true);
    span = KeyGraphSpan();
    span.add(curve.keys(), curve.records.data(), true);
    QCOMPARE(span.low, 7.0);
    QCOMPARE(span.high, 7.0);
}

void TestKeyGraphScale::zoomingStartsFromTheScaleAtThePress()
{
    const KeyGraphScale start = plainScale();
    KeyGraphScale scale = start;
    scale.zoomValues(start, 200.0);
    const double factor = std::exp2(-(200.0 + 0.5) / 200.0);
    QCOMPARE(scale.valuePerPixel, -0.5 * factor);
    QCOMPARE(scale.offsetY, 50.0 / factor);
    QCOMPARE(scale.offsetX, 100.0);
    QCOMPARE(scale.ticksPerPixel, 10.0);
    // Reckoned from the start, not from the last step, and to the start's place in time.
    scale.offsetX = 7.0;
    scale.zoomValues(start, -0.5);
    QCOMPARE(scale.offsetX, 100.0);
    QCOMPARE(scale.valuePerPixel, -0.5);
    QCOMPARE(scale.offsetY, 50.0);
}

void TestKeyGraphScale::zoomingEndsSomewhere()
{
    KeyGraphScale scale = plainScale();
    for (const double delta : {1e6, -1e6, -1e9, 1e9}) {
        scale.zoomValues(scale, delta);
        QVERIFY(scale.valuePerPixel < 0.0);
        QVERIFY(std::isfinite(scale.offsetY) && std::isfinite(1.0 / scale.valuePerPixel));
        scale.zoomTimes(delta, 50.0);
        QVERIFY(scale.ticksPerPixel > 0.0 && std::isfinite(scale.offsetX));
    }
}

void TestKeyGraphScale::fittingTimes()
{
    KeyGraphScale scale = plainScale();
    scale.fitTimes(VxTimeRange(1000, 9000), 50.0, 850.0);
    QCOMPARE(scale.x(1000), 50.0);
    QCOMPARE(scale.x(9000), 850.0);
    scale.centerTimes(2000.0, 900.0);
    QCOMPARE(scale.x(0), 350.0);
    QCOMPARE(scale.x(2000), 550.0);
}

void TestKeyGraphScale::fittingAnEmptyRange()
{
    KeyGraphScale scale;
    scale.fitTimes(VxTimeRange(480, 480), 8.0, 2.0);
    QVERIFY(scale.ticksPerPixel > 0.0);
    QCOMPARE(scale.x(480), 5.0);
    scale.fitTimes(VxTimeRange(VxTimeMin, VxTimeMax), 0.0, 1000.0);
    QVERIFY(std::isfinite(scale.offsetX));
}

void TestKeyGraphScale::zoomingTimesKeepsTheMouse()
{
    KeyGraphScale scale = plainScale();
    const double ticks = scale.ticks(300);
    scale.zoomTimes(200.0, 300);
    QCOMPARE(scale.ticksPerPixel, 5.0);
    QCOMPARE(scale.ticks(300), ticks);
    scale.zoomTimes(-400.0, 300);
    QCOMPARE(scale.ticksPerPixel, 20.0);
    QCOMPARE(scale.ticks(300), ticks);
    QCOMPARE(scale.valuePerPixel, -0.5);
}

void TestKeyGraphScale::samplesAtEverySecondColumn()
{
    const KeyGraphScale scale = plainScale();
    const std::vector<VxTime> times = keyGraphSampleTimes(scale, 7);
    QCOMPARE(times, (std::vector<VxTime>{-1000, -980, -960, -940}));
    QCOMPARE(keyGraphSampleTimes(scale, 8).size(), std::size_t(4));
    QCOMPARE(keyGraphSampleTimes(scale, 0).size(), std::size_t(0));
}

// Zoomed in beyond a tick a pixel, samples are at whole ticks, not at the columns.
void TestKeyGraphScale::pointsAreAtTheirTimes()
{
    KeyGraphScale scale = plainScale();
    scale.ticksPerPixel = 0.25;
    scale.offsetX = 0.0;
    const QVector<QPointF> points = keyGraphCurvePoints({0, 0, 1}, {0.0, 1.0, 1e300}, scale);
    QCOMPARE(points.at(0), QPointF(0, 200));
    QCOMPARE(points.at(1), QPointF(0, 198));
    QCOMPARE(points.at(2), QPointF(4, -1e6));
}

void TestKeyGraphScale::hitsAreMarks_data()
{
    QTest::addColumn<QPoint>("mouse");
    QTest::addColumn<int>("key");
    QTest::newRow("on the first") << QPoint(100, 200) << 0;
    QTest::newRow("its left upper corner") << QPoint(96, 196) << 0;
    QTest::newRow("its right lower corner") << QPoint(104, 204) << 0;
    QTest::newRow("left of it") << QPoint(95, 200) << -1;
    QTest::newRow("right of it") << QPoint(105, 200) << -1;
    QTest::newRow("above it") << QPoint(100, 195) << -1;
    QTest::newRow("on the second") << QPoint(150, 180) << 1;
    QTest::newRow("on the last") << QPoint(203, 223) << 2;
}

void TestKeyGraphScale::hitsAreMarks()
{
    Curve curve;
    curve.add(0, 0.0f);
    curve.add(500, 10.0f);
    curve.add(1000, -10.0f);
    QFETCH(QPoint, mouse);
    QTEST(keyGraphKeyAt(curve.keys(), plainScale(), mouse), "key");
}

void TestKeyGraphScale::firstOfTwoWins()
{
    Curve curve;
    curve.add(0, 0.0f);
    curve.add(20, 0.0f);
    QCOMPARE(keyGraphKeyAt(curve.keys(), plainScale(), QPoint(101, 200)), 0);
    QCOMPARE(keyGraphKeyAt(curve.keys(), plainScale(), QPoint(106, 200)), 1);
    QCOMPARE(keyGraphKeyAt(KeyGraphKeys(), plainScale(), QPoint(106, 200)), -1);
}

void TestKeyGraphScale::hitsAgreeWithAFullSearch()
{
    Curve curve;
    for (int i = 0; i < 300; ++i)
        curve.add(i * 7 - 500, float((i * 37) % 100));
    for (const double ticksPerPixel : {0.4, 3.0, 10.0, 77.0}) {
        KeyGraphScale scale = plainScale();
        scale.ticksPerPixel = ticksPerPixel;
        for (int x = 0; x < 400; x += 3) {
            for (int y = 0; y < 260; y += 5) {
                int first = -1;
                for (int i = 299; i >= 0; --i) {
                    const std::size_t at = std::size_t(i);
                    if (scale.markRectOf(curve.times[at], double(curve.values[at])).contains(x, y))
                        first = i;
                }
                QCOMPARE(keyGraphKeyAt(curve.keys(), scale, QPoint(x, y)), first);
            }
        }
    }
}

void TestKeyGraphScale::marksOutsideAreLeftOut()
{
    Curve curve;
    curve.add(-1050, 0.0f); // reaches to x -1
    curve.add(-1040, 0.0f); // to x 0
    curve.add(0, 0.0f);
    curve.add(10, 102.5f); // to y -1
    curve.add(20, 102.0f); // to y 0
    curve.add(30, -52.0f); // from y 300
    curve.add(3030, 0.0f); // from x 399
    curve.add(3040, 0.0f);
    KeyGraphMarks marks(QSize(400, 300));
    QVector<QPoint> corners;
    for (const KeyGraphMark &mark : marks.find(curve.keys(), curve.records.data(), plainScale()))
        corners += mark.corner;
    QCOMPARE(corners, QVector<QPoint>({{-8, 196}, {96, 196}, {98, -8}, {399, 196}}));
    QVERIFY(
        KeyGraphMarks(QSize(0, 0)).find(curve.keys(), curve.records.data(), plainScale()).empty());
}

void TestKeyGraphScale::marksAtOnePlaceAreDrawnOnce()
{
    Curve curve;
    for (int i = 0; i < 1000; ++i)
        curve.add(i, float(i % 2), i % 4 == 0 ? 1 : 0, i % 10 == 0);
    KeyGraphScale scale = plainScale();
    scale.ticksPerPixel = 1e4;
    KeyGraphMarks marks(QSize(400, 300));
    const std::vector<KeyGraphMark> found = marks.find(curve.keys(), curve.records.data(), scale);
    // The values differ by two pixels; even keys are of two types, selected or not, odd ones not.
    QCOMPARE(found.size(), std::size_t(5));
    for (std::size_t i = 0; i < found.size(); ++i) {
        for (std::size_t j = i + 1; j < found.size(); ++j)
            QVERIFY(!(found[i] == found[j]));
    }
    // A second curve at the same place has its own marks.
    QCOMPARE(marks.find(curve.keys(), curve.records.data(), scale).size(), std::size_t(5));
}

// On top is the last key's mark, as when every key were painted.
void TestKeyGraphScale::marksKeepTheirOrder()
{
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        Curve curve;
        for (int i = 0; i < 60; ++i)
            curve.add(i * 9, float(random() % 3), quint8(random() % 3), random() % 2);
        KeyGraphScale scale = plainScale();
        scale.ticksPerPixel = 50.0;
        std::vector<KeyGraphMark> expected;
        for (std::size_t i = curve.times.size(); i-- > 0;) {
            const KeyGraphMark mark{
                scale.markRectOf(curve.times[i], double(curve.values[i])).topLeft(), curve.types[i],
                curve.records[i].selected};
            if (std::find(expected.begin(), expected.end(), mark) == expected.end())
                expected.insert(expected.begin(), mark);
        }
        KeyGraphMarks marks(QSize(400, 300));
        QVERIFY(marks.find(curve.keys(), curve.records.data(), scale) == expected);
    }
}

void TestKeyGraphScale::boxes()
{
    const KeyGraphBox box = KeyGraphBox::between(plainScale(), QPoint(150, 180), QPoint(110, 220));
    QCOMPARE(box.startTime, 100);
    QCOMPARE(box.endTime, 500);
    QCOMPARE(box.lowValue, -10.0);
    QCOMPARE(box.highValue, 10.0);
    QVERIFY(box.contains(100, -10.0) && box.contains(500, 10.0));
    QVERIFY(!box.contains(99, 0.0) && !box.contains(501, 0.0));
    QVERIFY(!box.contains(100, -10.01) && !box.contains(100, 10.01));
}

VX_TEST_APPLESS_MAIN(TestKeyGraphScale)
#include "tst_keygraphscale.moc"
