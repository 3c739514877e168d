#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtWidgets/QHeaderView>
#include <cmath>
#include <testing/vxmousedriver.h>

namespace {

constexpr int FrameTicks = VxTicksPerSecond / 120;
constexpr VxTime TwoHours = 2 * 3600 * VxTicksPerSecond;

} // namespace

// A motion of two hours at 120 frames a second, with the mouse: times and pixels are those of exact
// numbers, far beyond what products of 32 bits hold.
class TestTimePaneHours : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void theRulerSetsTheTime_data();
    void theRulerSetsTheTime();
    void theSliderMovesTheRange();
};

void TestTimePaneHours::init()
{
    setUp();
    vxScene->setTimeStep(FrameTicks);
    vxScene->setAnimRange(VxTimeRange(0, TwoHours));
    vxScene->setPlayRange(VxTimeRange(0, TwoHours));
    showPane();
}

void TestTimePaneHours::theRulerSetsTheTime_data()
{
    QTest::addColumn<VxTime>("start");
    QTest::addColumn<VxTime>("end");
    QTest::newRow("all") << 0 << TwoHours;
    QTest::newRow("the second hour") << TwoHours / 2 << TwoHours;
    QTest::newRow("the last ten frames") << TwoHours - 10 * FrameTicks << TwoHours;
}

void TestTimePaneHours::theRulerSetsTheTime()
{
    QFETCH(VxTime, start);
    QFETCH(VxTime, end);
    vxScene->setPlayRange(VxTimeRange(start, end));
    QHeaderView *header = pane->getDopeSheetView()->header();
    const int left = header->sectionViewportPosition(VxDopeSheetView::KeysColumn);
    const double width = header->sectionSize(VxDopeSheetView::KeysColumn) - 30; // stays free
    const double ticksPerPixel = (double(end) - start) / width;
    VxMouseDriver mouse(header->viewport());
    for (const double share : {0.9, 0.1, 0.5, 0.75}) {
        const int x = int(std::lround(left + share * width));
        mouse.click(QPoint(x, 5));
        const VxTime time = vxScene->getTime();
        QCOMPARE(time % FrameTicks, 0);
        QVERIFY2(std::abs(time - (start + share * (double(end) - start))) <=
                     3 * ticksPerPixel + FrameTicks,
                 qPrintable(QStringLiteral("%1 at %2 of the range").arg(time).arg(share)));
        const TimelineMetrics &metrics = TimelineMetrics::shared();
        const double line = left + (metrics.keyMargin + metrics.frameWidth) * 0.5 +
                            (double(time) - start) / ticksPerPixel;
        QVERIFY(std::abs(metrics.keyMiddle(left, time, start) - line) <= 2.0);
    }
}

void TestTimePaneHours::theSliderMovesTheRange()
{
    vxScene->setPlayRange(VxTimeRange(TwoHours / 4, TwoHours / 2));
    auto *slider = pane->findChild<VxTimeRangeSlider *>();
    QVERIFY(slider);
    const double ticksPerPixel = double(TwoHours) / slider->width();
    const QPoint body(slider->width() * 3 / 8, slider->height() / 2);
    VxMouseDriver mouse(slider);
    mouse.drag(body, body + QPoint(200, 0));
    const VxTimeRange moved = vxScene->getPlayRange();
    QVERIFY(std::abs(moved.getStart() - (TwoHours / 4 + 200 * ticksPerPixel)) <=
            ticksPerPixel + FrameTicks);
    QCOMPARE(moved.getEnd() - moved.getStart(), TwoHours / 4);
    QCOMPARE(moved.getStart() % FrameTicks, 0);
    // The end's handle.
    const QPoint end(int(moved.getEnd() / ticksPerPixel) - 4, slider->height() / 2);
    mouse.drag(end, end + QPoint(100, 0));
    QCOMPARE(vxScene->getPlayRange().getStart(), moved.getStart());
    QVERIFY(std::abs(vxScene->getPlayRange().getEnd() - (moved.getEnd() + 100 * ticksPerPixel)) <=
            ticksPerPixel + FrameTicks);
}

VX_TEST_MAIN(TestTimePaneHours)
#include "tst_timepanehours.moc"
