#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/widgets/timerangemath.h"

#include <QtTest>
#include <memory>

using TimeRangeMath::Part;

// The time range slider's arithmetic, by numbers worked out by hand.
class TestTimeRangeMath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void rangeRect_data();
    void rangeRect();
    void noDurationNoStretch();
    void partAt_data();
    void partAt();
    void overlappingHandles();
    void dragDistance_data();
    void dragDistance();
    void dragged_data();
    void dragged();
    void lengthNeverChangesInABodyDrag();
    void nearestFrame_data();
    void nearestFrame();
    void picture();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

Q_DECLARE_METATYPE(TimeRangeMath::Part)

void TestTimeRangeMath::rangeRect_data()
{
    QTest::addColumn<QSize>("bar");
    QTest::addColumn<VxTimeRange>("play");
    QTest::addColumn<VxTime>("duration");
    QTest::addColumn<int>("x1");
    QTest::addColumn<int>("x2");

    const QSize bar(620, 20);
    QTest::newRow("all of it") << bar << VxTimeRange(0, 4800) << 4800 << 0 << 619;
    // 1600 * 620 / 4800 = 206.67, twice.
    QTest::newRow("the middle third") << bar << VxTimeRange(1600, 3200) << 4800 << 206 << 411;
    // Frames 1 to 6 of 14 at 7 a second, 685 ticks each: 35.71 and 178.57.
    QTest::newRow("7 frames a second")
        << QSize(500, 20) << VxTimeRange(685, 4110) << 9590 << 35 << 212;
    // Frames 3 to 20 of 29 at 29 a second, 165 ticks each: 103.45 and 586.21.
    QTest::newRow("29 frames a second")
        << QSize(1000, 20) << VxTimeRange(495, 3300) << 4785 << 103 << 688;
    // Frames 100 to 700 of 1200 at 1200 a second, 4 ticks each: 64.17 and 385.
    QTest::newRow("1200 frames a second")
        << QSize(770, 20) << VxTimeRange(400, 2800) << 4800 << 64 << 448;
    // The start is not measured from the animation's, so the stretch leaves the bar.
    QTest::newRow("an animation that begins late")
        << QSize(320, 20) << VxTimeRange(1600, 4800) << 3200 << 160 << 479;
    // -15.5 becomes -15, 95.5 becomes 95.
    QTest::newRow("a start before 0")
        << QSize(480, 20) << VxTimeRange(-155, 800) << 4800 << -15 << 79;
    QTest::newRow("one point in time") << bar << VxTimeRange(1600, 1600) << 4800 << 206 << 205;
    QTest::newRow("beyond the resolution of pixels")
        << bar << VxTimeRange(VxTimeMax - 1, VxTimeMax) << 1 << (1 << 29) << (1 << 29);
}

void TestTimeRangeMath::rangeRect()
{
    QFETCH(QSize, bar);
    QFETCH(VxTimeRange, play);
    QFETCH(VxTime, duration);
    QFETCH(int, x1);
    QFETCH(int, x2);
    const QRect rect = TimeRangeMath::rangeRect(bar, play, duration);
    QCOMPARE(rect.left(), x1);
    QCOMPARE(rect.right(), x2);
    QCOMPARE(rect.top(), 0);
    QCOMPARE(rect.bottom(), bar.height() - 1);
}

void TestTimeRangeMath::noDurationNoStretch()
{
    QVERIFY(TimeRangeMath::rangeRect(QSize(620, 20), VxTimeRange(0, 4800), 0).isNull());
    QVERIFY(TimeRangeMath::rangeRect(QSize(620, 20), VxTimeRange(0, 0), 0).isNull());
    QVERIFY(TimeRangeMath::rangeRect(QSize(0, 20), VxTimeRange(0, 4800), 4800).isEmpty());
}

void TestTimeRangeMath::partAt_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<Part>("part");

    QTest::newRow("left of it") << QPoint(205, 5) << Part::None;
    QTest::newRow("the first pixel") << QPoint(206, 0) << Part::StartHandle;
    QTest::newRow("the start handle's last") << QPoint(225, 19) << Part::StartHandle;
    QTest::newRow("just right of the start handle") << QPoint(226, 5) << Part::Body;
    QTest::newRow("just left of the end handle") << QPoint(391, 5) << Part::Body;
    QTest::newRow("the end handle's first") << QPoint(392, 5) << Part::EndHandle;
    QTest::newRow("the last pixel") << QPoint(411, 19) << Part::EndHandle;
    QTest::newRow("right of it") << QPoint(412, 5) << Part::None;
    QTest::newRow("below") << QPoint(300, 20) << Part::None;
    QTest::newRow("above") << QPoint(300, -1) << Part::None;
}

void TestTimeRangeMath::partAt()
{
    QFETCH(QPoint, point);
    QFETCH(Part, part);
    QCOMPARE(TimeRangeMath::partAt(QRect(206, 0, 206, 20), point), part);
}

void TestTimeRangeMath::overlappingHandles()
{
    const QRect narrow(100, 0, 30, 20);
    QCOMPARE(TimeRangeMath::partAt(narrow, QPoint(119, 3)), Part::StartHandle);
    QCOMPARE(TimeRangeMath::partAt(narrow, QPoint(120, 3)), Part::EndHandle);
    QCOMPARE(TimeRangeMath::partAt(narrow, QPoint(129, 3)), Part::EndHandle);
    const QRect narrower(100, 0, 12, 20);
    QCOMPARE(TimeRangeMath::partAt(narrower, QPoint(111, 3)), Part::StartHandle);
    QCOMPARE(TimeRangeMath::partAt(narrower, QPoint(112, 3)), Part::None);
}

void TestTimeRangeMath::dragDistance_data()
{
    QTest::addColumn<VxTime>("duration");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("pixels");
    QTest::addColumn<VxTime>("ticks");

    QTest::newRow("none") << 4800 << 600 << 0 << 0;
    QTest::newRow("whole ticks") << 4800 << 600 << 7 << 56;
    // 7.742 ticks a pixel.
    QTest::newRow("cut") << 4800 << 620 << 10 << 77;
    QTest::newRow("cut towards zero") << 4800 << 620 << -10 << -77;
    QTest::newRow("7 frames a second") << 9590 << 500 << 3 << 57;
    // In double precision this would be 3999.
    QTest::newRow("in single precision") << 16000 << 620 << 155 << 4000;
    QTest::newRow("in single precision, back") << 16000 << 620 << -155 << -4000;
    QTest::newRow("no width, no way") << 4800 << 0 << 0 << 0;
    QTest::newRow("no width") << 4800 << 0 << 1 << VxTimeMax;
    QTest::newRow("no duration") << 0 << 620 << 100 << 0;
}

void TestTimeRangeMath::dragDistance()
{
    QFETCH(VxTime, duration);
    QFETCH(int, width);
    QFETCH(int, pixels);
    QFETCH(VxTime, ticks);
    QCOMPARE(TimeRangeMath::dragDistance(duration, width, pixels), ticks);
}

void TestTimeRangeMath::dragged_data()
{
    QTest::addColumn<Part>("part");
    QTest::addColumn<VxTimeRange>("press");
    QTest::addColumn<VxTime>("distance");
    QTest::addColumn<VxTimeRange>("range");

    const VxTimeRange middle(1600, 3200);
    const VxTimeRange beyond(0, 6000);
    const auto row = [](const char *name, Part part, const VxTimeRange &press, VxTime distance,
                        const VxTimeRange &range) {
        QTest::newRow(name) << part << press << distance << range;
    };
    row("nothing caught", Part::None, middle, 500, middle);

    row("body right", Part::Body, middle, 500, {2100, 3700});
    row("body to the end", Part::Body, middle, 1600, {3200, 4800});
    row("body beyond the end", Part::Body, middle, 1601, {3200, 4800});
    row("body far beyond the end", Part::Body, middle, VxTimeMax, {3200, 4800});
    row("body left", Part::Body, middle, -1599, {1, 1601});
    row("body to the start", Part::Body, middle, -1600, {0, 1600});
    row("body beyond the start", Part::Body, middle, -1601, {0, 1600});
    row("body far beyond the start", Part::Body, middle, VxTimeMin, {0, 1600});
    row("body, longer than the animation", Part::Body, beyond, 10, beyond);
    row("body, partly beyond the animation", Part::Body, {2000, 6000}, 10, {800, 4800});
    row("body, partly beyond, at rest", Part::Body, {2000, 6000}, 0, {2000, 6000});
    row("body, partly before 0, at rest", Part::Body, {-320, 800}, 0, {0, 1120});
    row("body of all times", Part::Body, {0, VxTimeMax}, VxTimeMax, {0, VxTimeMax});

    row("start left", Part::StartHandle, middle, -1000, {600, 3200});
    row("start beyond 0", Part::StartHandle, middle, -1601, {0, 3200});
    row("start to a step before the end", Part::StartHandle, middle, 1440, {3040, 3200});
    row("start past the end", Part::StartHandle, middle, 1441, {3040, 3200});
    row("start far past the end", Part::StartHandle, middle, VxTimeMax, {3040, 3200});
    row("start of a range shorter than a step", Part::StartHandle, {400, 500}, 0, {340, 500});
    row("start of it, drawn away", Part::StartHandle, {400, 500}, -1, {399, 500});

    row("end right", Part::EndHandle, middle, 1000, {1600, 4200});
    row("end beyond the duration", Part::EndHandle, middle, 1601, {1600, 4800});
    row("end to a step after the start", Part::EndHandle, middle, -1440, {1600, 1760});
    row("end before the start", Part::EndHandle, middle, -1441, {1600, 1760});
    row("end far before the start", Part::EndHandle, middle, VxTimeMin, {1600, 1760});
    row("end of a range shorter than a step", Part::EndHandle, {400, 500}, 0, {400, 560});
    row("end of it, drawn away", Part::EndHandle, {400, 500}, 1, {400, 501});
    row("end beyond the range, right", Part::EndHandle, beyond, 1, {0, 4800});
    row("end beyond the range, at rest", Part::EndHandle, beyond, 0, beyond);
}

void TestTimeRangeMath::dragged()
{
    QFETCH(Part, part);
    QFETCH(VxTimeRange, press);
    QFETCH(VxTime, distance);
    QFETCH(VxTimeRange, range);
    const VxTimeRange result = TimeRangeMath::dragged(part, press, distance, 4800, 160);
    QCOMPARE(result.getStart(), range.getStart());
    QCOMPARE(result.getEnd(), range.getEnd());
}

void TestTimeRangeMath::lengthNeverChangesInABodyDrag()
{
    const VxTimeRange press(685, 4110);
    for (VxTime distance = -12000; distance <= 12000; distance += 7) {
        const VxTimeRange range = TimeRangeMath::dragged(Part::Body, press, distance, 9590, 685);
        QCOMPARE(range.getDuration(), press.getDuration());
        QVERIFY(range.getStart() >= 0 && range.getEnd() <= 9590);
    }
}

void TestTimeRangeMath::nearestFrame_data()
{
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<VxTime>("step");
    QTest::addColumn<int>("frame");

    QTest::newRow("30 a second") << 1600 << 160 << 10;
    QTest::newRow("below the half") << 1679 << 160 << 10;
    QTest::newRow("the half") << 1680 << 160 << 11;
    QTest::newRow("24 a second") << 1299 << 200 << 6;
    QTest::newRow("48 a second") << 350 << 100 << 4;
    QTest::newRow("7 a second, below the half") << 342 << 685 << 0;
    QTest::newRow("7 a second, above the half") << 343 << 685 << 1;
    QTest::newRow("29 a second") << 165 * 28 + 82 << 165 << 28;
    QTest::newRow("29 a second, above the half") << 165 * 28 + 83 << 165 << 29;
    QTest::newRow("1200 a second") << 4 * 1199 + 2 << 4 << 1200;
    QTest::newRow("a tick a frame") << 77 << 1 << 77;
    QTest::newRow("below 0, cut towards zero") << -1026 << 685 << 0;
    QTest::newRow("below 0") << -1027 << 685 << -1;
    QTest::newRow("the last there is") << VxTimeMax << 160 << 13421773;
    QTest::newRow("no step") << 1600 << 0 << 0;
}

void TestTimeRangeMath::nearestFrame()
{
    QFETCH(VxTime, time);
    QFETCH(VxTime, step);
    QFETCH(int, frame);
    QCOMPARE(TimeRangeMath::nearestFrame(time, step), frame);
}

// A stretch from x 206 to 411, 20 high: the outline ends a pixel earlier, handles are 18 wide.
void TestTimeRangeMath::picture()
{
    const TimeRangeMath::Picture picture =
        TimeRangeMath::picture(QRect(206, 0, 206, 20), 14, 21, 15);
    QCOMPARE(picture.outline, QRect(QPoint(206, 0), QPoint(410, 18)));
    QCOMPARE(picture.startHandle, QRect(QPoint(207, 1), QPoint(224, 18)));
    QCOMPARE(picture.endHandle, QRect(QPoint(392, 1), QPoint(409, 18)));
    QCOMPARE(picture.startLabel, QRect(QPoint(226, 2), QPoint(257, 18)));
    QCOMPARE(picture.endLabel, QRect(QPoint(370, 2), QPoint(390, 18)));
    // Smaller letters are in the middle, larger ones as far above as below.
    for (const auto &[height, top] : {std::pair(8, 6), std::pair(24, -2)}) {
        const auto other = TimeRangeMath::picture(QRect(206, 0, 206, 20), 14, 21, height);
        QCOMPARE(other.startLabel.top(), top);
        QCOMPARE(other.endLabel.top(), top);
    }
}

VX_TEST_GUILESS_MAIN(TestTimeRangeMath)
#include "tst_timerangemath.moc"
