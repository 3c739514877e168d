#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/dopesheet/dopesheetgeometry.h"
#include "vxtimeline/time/timelinevisible.h"

#include <QtTest>
#include <memory>
#include <random>

using Rects = std::vector<QRect>;
using RowMarks = std::vector<DopeSheetMark>;

Q_DECLARE_METATYPE(QVector<int>)

// Positions of the parts of a row: against numbers calculated by hand and against naive loops.
// At the default scale a frame of 160 ticks is ten pixels wide: x = time / 16.
class TestDopeSheetGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void visibleKeysMatchALoop_data();
    void visibleKeysMatchALoop();
    void visibleTicksMatchALoop_data();
    void visibleTicksMatchALoop();
    void fewPositionsAreEvaluated();

    void markPlaces_data();
    void markPlaces();
    void marksAtTheCellsEdges();
    void marksNeedTheirHeight();
    void marksOfOnePlace();
    void marksMatchALoop();

    void baseline_data();
    void baseline();
    void secondTicks();
    void secondTicksEndWithTheLine();
    void frameTicks();
    void touchingTicksBecomeOne();
    void oneFrameHasNoTicks();
    void ticksNeedTheirHeight();
    void timeTick_data();
    void timeTick();

    void hit_data();
    void hit();
    void hitAmongKeysOfOnePlace();
    void hitPrefersNothing();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

namespace {

const QRect keysCell(100, 40, 600, 20);

// RowOfKeys of a property row whose arrays live here.
struct RowOfKeys
{
    QVector<VxTime> times;
    QVector<quint8> flags;
    QVector<quint8> types;

    explicit RowOfKeys(const QVector<VxTime> &keyTimes)
        : times(keyTimes)
        , flags(keyTimes.size(), 0)
        , types(keyTimes.size(), DopeSheetRowKeys::Linear)
    {
    }
    DopeSheetRowKeys view() const
    {
        DopeSheetRowKeys keys;
        keys.times = times.constData();
        keys.flags = flags.constData();
        keys.types = types.constData();
        keys.count = times.size();
        return keys;
    }
};

QVector<int> lefts(const RowMarks &marks)
{
    QVector<int> found;
    for (const DopeSheetMark &mark : marks)
        found.append(mark.left);
    return found;
}

QVector<int> columns(const Rects &rects)
{
    QVector<int> found;
    for (const QRect &rect : rects) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            found.append(x);
    }
    return found;
}

struct TimeScale
{
    const char *name;
    TimelineMetrics metrics;
    VxTime lastTime;
};

TimelineMetrics scaled(double zoom, int fps = 30, int frameWidth = 10)
{
    TimelineMetrics metrics;
    metrics.zoom = zoom;
    metrics.fps = fps;
    metrics.frameWidth = frameWidth;
    return metrics;
}

const std::vector<TimeScale> &scales()
{
    static const std::vector<TimeScale> all = {
        {"ten pixels a frame", scaled(1), 20000},
        {"three keys a pixel", scaled(0.03), 480000},
        {"wide frames", scaled(40), 20000},
        {"24 frames a second, odd mark", scaled(0.37, 24, 9), 100000},
        {"an hour", scaled(0.001), 20000000},
        {"the longest range", scaled(0.0004), VxTimeMax},
        {"no frames a second", scaled(1, 0), 20000},
        {"no zoom", scaled(0), 20000},
    };
    return all;
}

void addScales()
{
    QTest::addColumn<int>("scale");
    for (size_t i = 0; i < scales().size(); ++i)
        QTest::newRow(scales()[i].name) << int(i);
}

} // namespace

void TestDopeSheetGeometry::visibleKeysMatchALoop_data()
{
    addScales();
}

void TestDopeSheetGeometry::visibleKeysMatchALoop()
{
    QFETCH(int, scale);
    const TimeScale &row = scales()[size_t(scale)];
    std::mt19937 random(7);
    std::uniform_int_distribution<VxTime> anyTime(-row.lastTime, row.lastTime);
    QVector<VxTime> times;
    for (int i = 0; i < 3000; ++i)
        times.append(anyTime(random));
    std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());

    for (int from = -300; from < 700; from += 97) {
        QVector<int> expected;
        for (int i = 0; i < times.size(); ++i) {
            const int x = row.metrics.timeToX(times.at(i));
            if (x >= from && x <= from + 250)
                expected.append(i);
        }
        QVector<int> found;
        TimelineVisible::visitKeys(row.metrics, times.constData(), times.size(), from, from + 250,
                                   [&](qint64 first, qint64 end, int x) {
                                       for (qint64 i = first; i < end; ++i) {
                                           QCOMPARE(row.metrics.timeToX(times.at(int(i))), x);
                                           found.append(int(i));
                                       }
                                   });
        QCOMPARE(found, expected);
    }
}

void TestDopeSheetGeometry::visibleTicksMatchALoop_data()
{
    addScales();
}

void TestDopeSheetGeometry::visibleTicksMatchALoop()
{
    QFETCH(int, scale);
    const TimeScale &row = scales()[size_t(scale)];
    const VxTime step = row.lastTime / 5000 + 1;
    for (int from = -300; from < 700; from += 97) {
        QVector<int> expected;
        for (qint64 i = 1; i <= 5000; ++i) {
            const qint64 time = i * step;
            const int x =
                time > VxTimeMax ? int(qint64(from) + 251) : row.metrics.timeToX(VxTime(time));
            if (x >= from && x <= from + 250)
                expected.append(int(i));
        }
        QVector<int> found;
        TimelineVisible::visitTicks(row.metrics, 1, 5000, step, from, from + 250,
                                    [&](qint64 first, qint64 end, int) {
                                        for (qint64 i = first; i < end; ++i)
                                            found.append(int(i));
                                    });
        QCOMPARE(found, expected);
    }
}

// A hundred pixels of a million things, a thousand of them at each: a few dozen looks a pixel.
void TestDopeSheetGeometry::fewPositionsAreEvaluated()
{
    int asked = 0, visited = 0;
    TimelineVisible::visitAscending(
        0, 1000000, 200, 299,
        [&asked](qint64 i) {
            ++asked;
            return int(i / 1000);
        },
        [&visited](qint64 first, qint64 end, int x) {
            QCOMPARE(first, qint64(x) * 1000);
            QCOMPARE(end, first + 1000);
            ++visited;
        });
    QCOMPARE(visited, 100);
    QVERIFY2(asked < 3000, qPrintable(QString::number(asked)));
}

void TestDopeSheetGeometry::markPlaces_data()
{
    QTest::addColumn<VxTime>("playStart");
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<int>("left");

    // Half of the margin of 5 is 2.5, cut to 2.
    QTest::newRow("time 0") << 0 << 0 << 102;
    QTest::newRow("one frame") << 0 << 160 << 112;
    QTest::newRow("a part of a pixel is cut off") << 0 << 175 << 112;
    // x(480) = 30, and 2.5 - 30 = -27.5 is cut to -27: time 0 is at 73.
    QTest::newRow("the start of a later play range") << 480 << 480 << 103;
    QTest::newRow("a frame after that") << 480 << 640 << 113;
    // x(-480) = -30, and 32.5 is cut to 32: time 0 is at 132.
    QTest::newRow("the start of an earlier play range") << -480 << -480 << 102;
    QTest::newRow("a negative time within it") << -480 << -160 << 122;
    QTest::newRow("a part of a pixel below zero is cut off") << -480 << -175 << 122;
    QTest::newRow("time 0 in it") << -480 << 0 << 132;
    // x(7158560) = 447410, and 2.5 less that is cut to -447407; the products exceed 32 bits.
    QTest::newRow("a play range after 25 minutes") << 7158560 << 7158720 << 113;
    QTest::newRow("the last hour of a time's range") << 2130000000 << 2130000160 << 113;
}

void TestDopeSheetGeometry::markPlaces()
{
    QFETCH(VxTime, playStart);
    QFETCH(VxTime, time);
    const DopeSheetGeometry geometry(keysCell, TimelineMetrics(), playStart);
    const RowMarks marks = geometry.marks(RowOfKeys({time}).view());
    QCOMPARE(int(marks.size()), 1);
    QTEST(marks[0].left, "left");
    // Row middle 50, half a mark 5.
    QCOMPARE(geometry.markRect(marks[0].left), QRect(marks[0].left, 45, 10, 10));
}

void TestDopeSheetGeometry::marksAtTheCellsEdges()
{
    const TimelineMetrics metrics;
    const DopeSheetGeometry geometry(keysCell, metrics, 0);
    // Left edges at 99, 100, 690 and 691: only whole marks show, from 100 to 699.
    QCOMPARE(lefts(geometry.marks(RowOfKeys({-48, -32, 9408, 9424}).view())),
             (QVector<int>{100, 690}));
    QVERIFY(geometry.marks(RowOfKeys({}).view()).empty());
    const DopeSheetGeometry narrow(QRect(100, 40, 9, 20), metrics, 0);
    QVERIFY(narrow.marks(RowOfKeys({0}).view()).empty());
}

void TestDopeSheetGeometry::marksNeedTheirHeight()
{
    TimelineMetrics metrics;
    QCOMPARE(
        DopeSheetGeometry(QRect(0, 0, 100, 10), metrics, 0).marks(RowOfKeys({0}).view()).size(),
        size_t(1));
    QVERIFY(
        DopeSheetGeometry(QRect(0, 0, 100, 9), metrics, 0).marks(RowOfKeys({0}).view()).empty());
    // One that begins with the keysCell and ends a pixel below it.
    metrics.frameWidth = 11;
    QVERIFY(
        DopeSheetGeometry(QRect(0, 0, 100, 10), metrics, 0).marks(RowOfKeys({0}).view()).empty());
    QCOMPARE(
        DopeSheetGeometry(QRect(0, 0, 100, 11), metrics, 0).marks(RowOfKeys({0}).view()).size(),
        size_t(1));
}

// Of marks that look the same at one place one is enough; which one is painted last counts.
void TestDopeSheetGeometry::marksOfOnePlace()
{
    TimelineMetrics metrics;
    metrics.zoom = 0.01; // x(t) = t / 1600
    const DopeSheetGeometry geometry(keysCell, metrics, 0);
    RowOfKeys keys({0, 160, 320, 480, 640, 1600, 1760});
    keys.flags = {1, 0, 1, 0, 0, 0, 0};
    keys.types = {0, 2, 2, 0, 2, 1, 1};
    // At 102 linear selected, TCB selected, linear, TCB; at 103 constant.
    const RowMarks expected = {{102, 1}, {102, 5}, {102, 0}, {102, 4}, {103, 2}};
    QVERIFY(geometry.marks(keys.view()) == expected);
}

void TestDopeSheetGeometry::marksMatchALoop()
{
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        TimelineMetrics metrics;
        metrics.zoom = std::uniform_real_distribution<>(0.01, 2)(random);
        const VxTime playStart = std::uniform_int_distribution<>(-5000, 5000)(random);
        QVector<VxTime> times;
        for (VxTime time = -20000; time < 60000;
             time += std::uniform_int_distribution<>(1, 300)(random))
            times.append(time);
        RowOfKeys keys(times);
        for (int i = 0; i < times.size(); ++i) {
            keys.flags[i] = random() & 1;
            keys.types[i] = quint8(random() % 3);
        }
        // The last one of each kind at each place stays.
        RowMarks expected;
        for (int i = 0; i < times.size(); ++i) {
            const int left = metrics.keyLeft(keysCell.x(), times.at(i), playStart);
            const DopeSheetMark mark{left, keys.view().stateOf(i)};
            if (left < keysCell.left() || left + 9 > keysCell.right())
                continue;
            expected.erase(std::remove(expected.begin(), expected.end(), mark), expected.end());
            expected.push_back(mark);
        }
        QVERIFY(DopeSheetGeometry(keysCell, metrics, playStart).marks(keys.view()) == expected);
    }
}

void TestDopeSheetGeometry::baseline_data()
{
    QTest::addColumn<VxTime>("playStart");
    QTest::addColumn<VxTime>("end");
    QTest::addColumn<QRect>("rect");

    QTest::newRow("four seconds") << 0 << 4800 << QRect(107, 50, 300, 1);
    QTest::newRow("cut at the right") << 0 << 48000 << QRect(107, 50, 593, 1);
    QTest::newRow("cut at the left") << 480 << 4800 << QRect(100, 50, 278, 1);
    QTest::newRow("nothing") << 0 << 0 << QRect();
    QTest::newRow("less than a pixel") << 0 << 15 << QRect();
    QTest::newRow("all before the cell") << 48000 << 480 << QRect();
    QTest::newRow("negative") << 0 << -4800 << QRect();
}

void TestDopeSheetGeometry::baseline()
{
    QFETCH(VxTime, playStart);
    QFETCH(VxTime, end);
    QTEST(DopeSheetGeometry(keysCell, TimelineMetrics(), playStart).baseline(end), "rect");
}

void TestDopeSheetGeometry::secondTicks()
{
    // A second is 300 pixels. Within the keysCell's width of 600 less the origin of 2 there are
    // 598 / 300 = 1, and the one at 0.
    const DopeSheetGeometry geometry(keysCell, TimelineMetrics(), 0);
    QVERIFY(geometry.secondTicks(48000) == (Rects{QRect(107, 45, 1, 10), QRect(407, 45, 1, 10)}));
    // From second 1 on: the tick at 0 is left of the keysCell, second 2 at 100 + 2 - 300 + 605.
    const DopeSheetGeometry later(keysCell, TimelineMetrics(), 4800);
    QCOMPARE(columns(later.secondTicks(48000)), (QVector<int>{108, 408}));
}

void TestDopeSheetGeometry::secondTicksEndWithTheLine()
{
    const DopeSheetGeometry geometry(keysCell, TimelineMetrics(), 0);
    // 5 + 294 pixels hold no whole second, 5 + 295 hold one.
    QCOMPARE(columns(geometry.secondTicks(4719)), (QVector<int>{107}));
    QCOMPARE(columns(geometry.secondTicks(4720)), (QVector<int>{107, 407}));
}

void TestDopeSheetGeometry::frameTicks()
{
    const DopeSheetGeometry geometry(keysCell, TimelineMetrics(), 0);
    // Five frames: ticks 1 to 4.
    QVERIFY(geometry.frameTicks(800, 160) == (Rects{QRect(117, 47, 1, 6), QRect(127, 47, 1, 6),
                                                    QRect(137, 47, 1, 6), QRect(147, 47, 1, 6)}));
    // The last that fits is frame 59: 107 + 590 = 697.
    QCOMPARE(columns(geometry.frameTicks(480000, 160)).last(), 697);
    QCOMPARE(columns(geometry.frameTicks(480000, 160)).size(), 59);
}

void TestDopeSheetGeometry::touchingTicksBecomeOne()
{
    TimelineMetrics metrics;
    metrics.zoom = 0.1;
    // Frame n is at 107 + n, so the ticks of frames 1 to 592 fill the keysCell.
    const DopeSheetGeometry geometry(keysCell, metrics, 0);
    QVERIFY(geometry.frameTicks(480000, 160) == (Rects{QRect(108, 47, 592, 6)}));
}

void TestDopeSheetGeometry::oneFrameHasNoTicks()
{
    const DopeSheetGeometry geometry(keysCell, TimelineMetrics(), 0);
    QVERIFY(geometry.frameTicks(160, 160).empty());
    QVERIFY(geometry.frameTicks(319, 160).empty());
    QVERIFY(geometry.frameTicks(0, 160).empty());
    QVERIFY(geometry.frameTicks(-1600, 160).empty());
    QVERIFY(geometry.frameTicks(1600, 0).empty());
}

void TestDopeSheetGeometry::ticksNeedTheirHeight()
{
    // Rows of 9 pixels: middle 4, so second ticks would begin at -1.
    const DopeSheetGeometry geometry(QRect(0, 0, 600, 9), TimelineMetrics(), 0);
    QVERIFY(geometry.secondTicks(48000).empty());
    QCOMPARE(geometry.frameTicks(480, 160).front(), QRect(17, 1, 1, 6));
}

void TestDopeSheetGeometry::timeTick_data()
{
    QTest::addColumn<QRect>("row");
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<QRect>("rect");

    QTest::newRow("in the middle") << keysCell << 160 << QRect(117, 48, 1, 4);
    QTest::newRow("left of the cell") << keysCell << -128 << QRect();
    QTest::newRow("first column") << keysCell << -112 << QRect(100, 48, 1, 4);
    QTest::newRow("last column") << keysCell << 9472 << QRect(699, 48, 1, 4);
    QTest::newRow("right of the cell") << keysCell << 9488 << QRect();
    QTest::newRow("cut to a low row") << QRect(100, 40, 600, 3) << 0 << QRect(107, 40, 1, 3);
}

void TestDopeSheetGeometry::timeTick()
{
    QFETCH(QRect, row);
    QFETCH(VxTime, time);
    QTEST(DopeSheetGeometry(row, TimelineMetrics(), 0).timeTick(time), "rect");
}

void TestDopeSheetGeometry::hit_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("firstSelected");

    // RowOfKeys at 0 and 48 cover 102 .. 112 and 105 .. 115, the one at 1600 at 202 .. 212.
    QTest::newRow("left of all") << 101 << -1 << -1;
    QTest::newRow("left edge") << 102 << 0 << -1;
    QTest::newRow("two of which one is selected") << 105 << 0 << 1;
    QTest::newRow("right edge counts") << 112 << 0 << 1;
    QTest::newRow("the second alone") << 113 << 1 << 1;
    QTest::newRow("between") << 116 << -1 << -1;
    QTest::newRow("the last one's right edge") << 212 << 2 << -1;
    QTest::newRow("right of all") << 213 << -1 << -1;
}

void TestDopeSheetGeometry::hit()
{
    QFETCH(int, x);
    RowOfKeys keys({0, 48, 1600});
    keys.flags[1] = DopeSheetRowKeys::Selected;
    const DopeSheetHit found =
        DopeSheetGeometry(keysCell, TimelineMetrics(), 0).hit(keys.view(), x);
    QTEST(found.first, "first");
    QTEST(found.firstSelected, "firstSelected");
}

// Three ticks make no pixel: the keys overlap, and the selected one counts all the same.
void TestDopeSheetGeometry::hitAmongKeysOfOnePlace()
{
    RowOfKeys keys({1600, 1601, 1602});
    keys.flags[2] = DopeSheetRowKeys::Selected;
    const DopeSheetHit found =
        DopeSheetGeometry(keysCell, TimelineMetrics(), 0).hit(keys.view(), 205);
    QCOMPARE(found.first, 0);
    QCOMPARE(found.firstSelected, 2);
}

void TestDopeSheetGeometry::hitPrefersNothing()
{
    const DopeSheetHit found =
        DopeSheetGeometry(keysCell, TimelineMetrics(), 0).hit(RowOfKeys({}).view(), 9);
    QCOMPARE(found.first, -1);
    QCOMPARE(found.firstSelected, -1);
}

VX_TEST_APPLESS_MAIN(TestDopeSheetGeometry)
#include "tst_dopesheetgeometry.moc"
