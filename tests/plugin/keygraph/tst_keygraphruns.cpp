#include "keygraphtestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keygraph/keygraphchannelpainter.h"
#include "vxtimeline/keygraph/keygraphcurve.h"
#include "vxtimeline/keygraph/paint/keygraphpainter.h"
#include "vxtimeline/keygraph/paint/keygraphruns.h"
#include "vxtimeline/keygraph/vxfloatchannel.h"

#include <QtWidgets/QWidget>

namespace {

using Columns = QVector<int>;

std::vector<KeyGraphMark> marksAt(const Columns &columns)
{
    std::vector<KeyGraphMark> marks;
    for (const int x : columns)
        marks.push_back({QPoint(x, 50), 0, false});
    return marks;
}

// Every second column from 0 to 100.
QVector<QPointF> pointsOnEverySecondColumn()
{
    QVector<QPointF> points;
    for (int x = 0; x <= 100; x += 2)
        points.append(QPointF(x, 54));
    return points;
}

Columns columnsFrom(int first, int last, int step)
{
    Columns columns;
    for (int x = first; x <= last; x += step)
        columns.append(x);
    return columns;
}

} // namespace

Q_DECLARE_METATYPE(std::vector<KeyGraphRun>)

// Where the marks of a curve merge into a band, the curve is seen on top of them; everywhere else
// the marks are.
class TestKeyGraphRuns : public QObject, private KeyGraphTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup()
    {
        channel.reset();
        tearDown();
    }

    void runs_data();
    void runs();
    void runsOfAShortCurve();
    void aBandShowsItsCurve_data();
    void aBandShowsItsCurve();

private:
    QImage painted(int framesApart, bool dense, int curves);

    std::unique_ptr<VxFloatChannel> channel;
};

// A mark's key is four pixels to the right of its corner.
void TestKeyGraphRuns::runs_data()
{
    QTest::addColumn<Columns>("columns");
    QTest::addColumn<std::vector<KeyGraphRun>>("expected");
    const auto row = [](const char *name, const Columns &columns,
                        const std::vector<KeyGraphRun> &expected) {
        QTest::newRow(name) << columns << expected;
    };
    row("no marks", {}, {});
    row("one mark", {20}, {});
    row("on every column", columnsFrom(10, 50, 1), {{7, 27}});
    row("half over each other", columnsFrom(10, 50, 4), {{7, 27}});
    row("just touching", columnsFrom(10, 50, 8), {{7, 27}});
    row("a pixel more apart", columnsFrom(10, 55, 9), {});
    row("as wide as two marks", columnsFrom(10, 28, 3), {{7, 16}});
    row("a pixel less wide", columnsFrom(10, 27, 1), {});
    row("two runs", columnsFrom(0, 20, 2) + columnsFrom(40, 60, 2), {{2, 12}, {22, 32}});
    row("two runs, just apart", columnsFrom(0, 20, 2) + columnsFrom(29, 49, 2),
        {{2, 12}, {17, 26}});
    row("two runs that touch", columnsFrom(0, 20, 2) + columnsFrom(28, 48, 2), {{2, 26}});
    row("a few before a run", Columns{0, 2, 4} + columnsFrom(30, 50, 2), {{17, 27}});
    row("a few after a run", columnsFrom(30, 50, 2) + Columns{70, 71}, {{17, 27}});
    row("several on one column", Columns{10, 10, 10} + columnsFrom(10, 50, 4), {{7, 27}});
    row("from before the first point to behind the last one", columnsFrom(-12, 120, 3), {{0, 50}});
    row("beyond the last point", columnsFrom(200, 300, 2), {});
}

void TestKeyGraphRuns::runs()
{
    QFETCH(Columns, columns);
    QFETCH(std::vector<KeyGraphRun>, expected);
    const auto found = keyGraphHiddenRuns(marksAt(columns), pointsOnEverySecondColumn());
    QCOMPARE(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        QCOMPARE(found[i].first, expected[i].first);
        QCOMPARE(found[i].last, expected[i].last);
    }
}

// A line takes two points.
void TestKeyGraphRuns::runsOfAShortCurve()
{
    const auto marks = marksAt(columnsFrom(0, 40, 2));
    QVERIFY(keyGraphHiddenRuns(marks, {}).empty());
    QVERIFY(keyGraphHiddenRuns(marks, {QPointF(20, 0)}).empty());
    QCOMPARE(keyGraphHiddenRuns(marks, {QPointF(20, 0), QPointF(22, 0)}).size(), std::size_t(1));
    QVERIFY(keyGraphHiddenRuns(marks, {QPointF(2, 0), QPointF(20, 0), QPointF(60, 0)}).empty());
}

void TestKeyGraphRuns::aBandShowsItsCurve_data()
{
    QTest::addColumn<int>("framesApart");
    QTest::addColumn<bool>("dense");
    QTest::addColumn<int>("curves");
    QTest::addColumn<bool>("curveOnTop");
    QTest::newRow("a key on each frame, one by one") << 1 << false << 1 << true;
    QTest::newRow("a key on each frame, in a dense") << 1 << true << 1 << true;
    QTest::newRow("keys that touch") << 8 << false << 1 << true;
    QTest::newRow("keys apart, one by one") << 10 << false << 1 << false;
    QTest::newRow("keys apart, in a dense") << 10 << true << 1 << false;
    QTest::newRow("as many curves as distinct colours") << 1 << false << 24 << true;
    QTest::newRow("so many in a dense") << 1 << true << 24 << true;
    QTest::newRow("more curves") << 1 << false << 25 << false;
    QTest::newRow("more in a dense") << 1 << true << 25 << false;
}

// A pixel is a frame, and the curve is level through the middle; further ones are drawn over it.
QImage TestKeyGraphRuns::painted(int framesApart, bool dense, int curves)
{
    VxFloatProperty *property = addProperty(QStringLiteral("Curve"));
    property->setAxis(VxFloatProperty::XAxis);
    for (int frame = 0; frame <= 200; frame += framesApart)
        property->setKey(frame * 160, 0.0f, VxKeyInterp::Linear);
    channel = std::make_unique<VxFloatChannel>(property, nullptr);
    KeyGraphScale scale;
    scale.ticksPerPixel = 160.0;
    scale.originY = 50.0;
    QWidget widget;
    const KeyGraphLook look = KeyGraphLook::of(&widget);
    const KeyGraphStage stage{QSize(200, 100), 0, 0, VxTimeRange(), 160, QString()};
    QImage picture(stage.size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    KeyGraphCurves memory;
    KeyGraphChannelPainter painter(&picture, scale, look, stage, &widget);
    const QVector<VxKeyGraphChannel *> channels(curves, channel.get());
    if (dense)
        painter.paintDense(channels, memory);
    else
        painter.paintEach(channels, memory);
    return picture;
}

void TestKeyGraphRuns::aBandShowsItsCurve()
{
    QFETCH(int, framesApart);
    QFETCH(bool, dense);
    QFETCH(int, curves);
    QFETCH(bool, curveOnTop);
    const QImage picture = painted(framesApart, dense, curves);
    QWidget widget;
    const QRgb color =
        KeyGraphLook::of(&widget).channelColor(channel->getColor(), curves - 1).rgb();
    // Right on keys, where nothing of a curve under marks is seen.
    for (const int x : {40, 80, 160}) {
        QCOMPARE(picture.pixel(x, 50) == color, curveOnTop);
        QCOMPARE(qAlpha(picture.pixel(x, 50)), 255);
        QVERIFY(picture.pixel(x, 47) != color);
        QVERIFY(qAlpha(picture.pixel(x, 48)) >= 250); // the marks are still there
        if (curves == 1)                              // else labels are written there
            QCOMPARE(qAlpha(picture.pixel(x, 44)), 0);
    }
    if (framesApart > 9)
        QCOMPARE(picture.pixel(105, 50), color); // between two marks
}

VX_TEST_MAIN(TestKeyGraphRuns)
#include "tst_keygraphruns.moc"
