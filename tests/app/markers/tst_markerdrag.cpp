// Drags of markers and the geometry of their strip, without widgets.

#include "markers/markerlayout.h"
#include "testing/vxtestmain.h"

#include <QtTest>

namespace {

VxMarker made(int id, VxTime start, VxTime end)
{
    VxMarker marker;
    marker.id = id;
    marker.name = QStringLiteral("marker %1").arg(id);
    marker.span = VxTimeRange(start, end);
    return marker;
}

} // namespace

class tst_MarkerDrag : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void drags_data();
    void drags();
    void targetsAreTheOthersAndTheTime();
    void shapesOfVisibleMarkers();
    void labelsEndBeforeTheNextMarker();
    void hits_data();
    void hits();
};

void tst_MarkerDrag::drags_data()
{
    QTest::addColumn<VxTimeRange>("span");
    QTest::addColumn<int>("part");
    QTest::addColumn<qint64>("offset");
    QTest::addColumn<QVector<VxTime>>("targets");
    QTest::addColumn<VxTimeRange>("result");
    const auto row = [](const char *name, VxTimeRange span, MarkerPart part, qint64 offset,
                        const QVector<VxTime> &targets, VxTimeRange result) {
        QTest::newRow(name) << span << int(part) << offset << targets << result;
    };
    const VxTimeRange point(160, 160);
    const VxTimeRange span(160, 490); // 160 ticks a frame, targets within 50 ticks
    const MarkerPart whole = MarkerPart::Whole;
    row("not moved, between frames", {3, 3}, whole, 0, {}, {3, 3});
    row("to the nearest frame", point, whole, 200, {}, {320, 320});
    row("back before zero", point, whole, -400, {}, {-320, -320});
    row("to a target between frames", point, whole, 200, {390}, {390, 390});
    row("to the nearer of two targets", point, whole, 200, {320, 370}, {370, 370});
    row("beside a target out of reach", point, whole, 200, {420}, {320, 320});
    row("a span keeps its length", span, whole, 170, {}, {320, 650});
    row("a span's end at a target", span, whole, 170, {700}, {370, 700});
    row("a span's start is nearer", span, whole, 170, {700, 340}, {340, 670});
    row("a start", span, MarkerPart::Start, -150, {}, {0, 490});
    row("a start stops at the end", span, MarkerPart::Start, 5000, {}, {490, 490});
    row("an end", span, MarkerPart::End, 160, {}, {160, 640});
    row("an end stops at the start", span, MarkerPart::End, -5000, {}, {160, 160});
    row("an end at a target", span, MarkerPart::End, 160, {601}, {160, 601});
    row("beyond all times", span, whole, qint64(1) << 40, {}, {VxTimeMax - 330, VxTimeMax});
    row("before all times", span, whole, -(qint64(1) << 40), {}, {VxTimeMin, VxTimeMin + 330});
    row("an end beyond all times", span, MarkerPart::End, qint64(1) << 40, {}, {160, VxTimeMax});
    row("all times", {VxTimeMin, VxTimeMax}, whole, 500, {}, {VxTimeMin, VxTimeMax});
}

void tst_MarkerDrag::drags()
{
    QFETCH(VxTimeRange, span);
    QFETCH(int, part);
    QFETCH(qint64, offset);
    QFETCH(QVector<VxTime>, targets);
    QFETCH(VxTimeRange, result);
    const VxTimeRange dragged = vxDraggedSpan(span, MarkerPart(part), offset, {160, targets, 50});
    QCOMPARE(dragged.getStart(), result.getStart());
    QCOMPARE(dragged.getEnd(), result.getEnd());
    if (qAbs(offset) < 1000 && MarkerPart(part) == MarkerPart::Whole) {
        const VxTimeRange free = vxDraggedSpan(span, MarkerPart(part), offset, {});
        QCOMPARE(free.getStart(),
                 qMax<qint64>(VxTimeMin,
                              qMin<qint64>(span.getStart() + offset,
                                           VxTimeMax - (qint64(span.getEnd()) - span.getStart()))));
    }
}

void tst_MarkerDrag::targetsAreTheOthersAndTheTime()
{
    QVector<VxTime> targets =
        MarkerSnap::targetsOf({made(1, 5, 5), made(2, 10, 20), made(3, 30, 40)}, 2, 77);
    std::sort(targets.begin(), targets.end());
    QCOMPARE(targets, (QVector<VxTime>{5, 30, 40, 77}));
}

void tst_MarkerDrag::shapesOfVisibleMarkers()
{
    const VxMarkerList markers{made(1, -50, -20), made(2, -50, 30), made(3, 10, 10),
                               made(4, 90, 300), made(5, 101, 101)};
    const QFontMetrics metrics{QFont()};
    const auto shapes = MarkerLayout::shapes(
        markers, [](VxTime time) { return int(time); }, QRect(0, 0, 101, 22), metrics);
    QVector<int> ids;
    for (const MarkerShape &shape : shapes)
        ids.append(shape.id);
    QCOMPARE(ids, (QVector<int>{2, 4, 3})); // points on top
    QCOMPARE(shapes.at(1).endX, 300);
    QVERIFY(shapes.at(2).isPoint);
}

void tst_MarkerDrag::labelsEndBeforeTheNextMarker()
{
    const QFontMetrics metrics{QFont()};
    const auto shapes = MarkerLayout::shapes(
        {made(1, 0, 0), made(2, 100, 100), made(3, 110, 110)},
        [](VxTime time) { return int(time); }, QRect(0, 0, 1000, 22), metrics);
    QCOMPARE(shapes.size(), 3);
    QVERIFY(shapes.at(0).label.right() < 100);
    QVERIFY(metrics.horizontalAdvance(shapes.at(0).text) <= shapes.at(0).label.width());
    QVERIFY(shapes.at(1).label.isEmpty());
    QCOMPARE(shapes.at(2).text, QStringLiteral("marker 3"));
}

void tst_MarkerDrag::hits_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("id"); // 0: none
    QTest::addColumn<int>("part");
    const auto row = [](const char *name, int x, int id, MarkerPart part = MarkerPart::Whole) {
        QTest::newRow(name) << x << id << int(part);
    };
    row("before everything", 45, 0);
    row("beside the span's start", 47, 1, MarkerPart::Start);
    row("on the span's start", 50, 1, MarkerPart::Start);
    row("in the span", 80, 1);
    row("on a point within the span", 101, 2);
    row("on the point's flag", 107, 2);
    row("behind the point", 110, 1);
    row("on the span's end", 149, 1, MarkerPart::End);
    row("beside the span's end", 154, 1, MarkerPart::End);
    row("behind the span", 155, 0);
    row("a narrow span", 202, 3);
}

void tst_MarkerDrag::hits()
{
    QFETCH(int, x);
    const QFontMetrics metrics{QFont()};
    const auto shapes = MarkerLayout::shapes(
        {made(1, 50, 150), made(2, 100, 100), made(3, 200, 208)},
        [](VxTime time) { return int(time); }, QRect(0, 0, 1000, 22), metrics);
    const std::optional<MarkerHit> hit = MarkerLayout::hit(shapes, x);
    QTEST(hit ? hit->id : 0, "id");
    if (hit)
        QTEST(int(hit->part), "part");
}

VX_TEST_MAIN(tst_MarkerDrag)
#include "tst_markerdrag.moc"
