#include "keygraphtestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keygraph/keygraphchannelpainter.h"
#include "vxtimeline/keygraph/keygraphcurve.h"
#include "vxtimeline/keygraph/paint/densekeypainter.h"
#include "vxtimeline/keygraph/paint/keygraphcanvas.h"
#include "vxtimeline/keygraph/paint/keygraphpainter.h"
#include "vxtimeline/keygraph/paint/keygraphpen.h"
#include "vxtimeline/keygraph/vxfloatchannel.h"

#include <QtGui/QPainter>
#include <QtWidgets/QProxyStyle>
#include <cmath>
#include <random>

namespace {

// Counts the key marks that a style is asked for.
class CountingStyle : public QProxyStyle
{
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        marks += element == static_cast<PrimitiveElement>(0x0F0000AD) ? 1 : 0;
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    mutable int marks = 0;
};

// A picture as characters: '#' is opaque, 'o' half transparent, '.' empty.
QImage drawn(const QStringList &rows)
{
    QImage image(rows.first().size(), rows.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (int y = 0; y < rows.size(); ++y) {
        for (int x = 0; x < rows.at(y).size(); ++x) {
            if (rows.at(y).at(x) != QLatin1Char('.'))
                image.setPixel(
                    x, y,
                    qPremultiply(
                        qRgba(200, 100, 10 * x, rows.at(y).at(x) == QLatin1Char('#') ? 255 : 128)));
        }
    }
    return image;
}

const QStringList diamond = {"..o..", ".o#o.", "o###o", ".o#o.", "..o.."};

int largestDifference(QRgb a, QRgb b)
{
    return qMax(qMax(qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b))),
                qMax(qAbs(qBlue(a) - qBlue(b)), qAbs(qAlpha(a) - qAlpha(b))));
}

} // namespace

// Pictures of more keys than can be seen: they must not differ from those that are painted mark by
// mark, however few marks are really painted.
class TestDenseKeyPainter : public QObject, private KeyGraphTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup()
    {
        channels.clear();
        tearDown();
    }

    void laterStampsAreDrawnUnderEarlierOnes_data();
    void laterStampsAreDrawnUnderEarlierOnes();
    void areas();

    void linesCoverTheirPixels_data();
    void linesCoverTheirPixels();
    void jointsAreSeamless();
    void longLinesStayWhole_data();
    void longLinesStayWhole();
    void linesStayWithinTheirArea();
    void linesFarOutside();
    void slightBowsStayWhereTheyAre();

    void picturesAgree_data();
    void picturesAgree();
    void fewKeysAreDrawnByTheStyle();
    void manyKeysShareAFewPictures();

private:
    static QImage lineThrough(const QVector<QPointF> &points, double width);
    void addChannels(int count, int keyCount, float noise);
    QVector<VxKeyGraphChannel *> list() const;
    KeyGraphScale scaleFor(VxTime duration) const;
    QImage empty(qreal ratio) const;

    const QSize shown{400, 200};
    std::vector<std::unique_ptr<VxFloatChannel>> channels;
};

void TestDenseKeyPainter::addChannels(int count, int keyCount, float noise)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> step(-noise, noise);
    for (int c = 0; c < count; ++c) {
        VxFloatProperty *property = addProperty(QStringLiteral("Curve %1").arg(c));
        property->setAxis(VxFloatProperty::Axis(c % 5));
        std::vector<VxTime> times;
        std::vector<float> values;
        std::vector<quint8> types;
        float value = float(c) - float(count) / 2;
        for (int i = 0; i < keyCount; ++i) {
            times.push_back(i * 160);
            values.push_back(value += step(random));
            types.push_back(quint8(random() % 3));
        }
        VxKeyColumns<float> keys;
        keys.times = times.data();
        keys.values = values.data();
        keys.types = types.data();
        keys.count = keyCount;
        property->setKeys(keys);
        channels.push_back(std::make_unique<VxFloatChannel>(property, nullptr));
        for (int i = 0; i < keyCount; ++i)
            channels.back()->selectKey(i, random() % 4 == 0);
    }
}

QVector<VxKeyGraphChannel *> TestDenseKeyPainter::list() const
{
    QVector<VxKeyGraphChannel *> result;
    for (const auto &channel : channels)
        result.append(channel.get());
    return result;
}

// Some keys are beyond every edge.
KeyGraphScale TestDenseKeyPainter::scaleFor(VxTime duration) const
{
    KeyGraphScale scale;
    scale.originY = shown.height() / 2.0;
    scale.fitTimes(VxTimeRange(0, duration), -10.0, shown.width() + 10.0);
    scale.valuePerPixel = -0.08;
    return scale;
}

QImage TestDenseKeyPainter::empty(qreal ratio) const
{
    QImage image((QSizeF(shown) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
}

void TestDenseKeyPainter::laterStampsAreDrawnUnderEarlierOnes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("narrower than a word") << QSize(20, 15);
    QTest::newRow("just a word") << QSize(64, 10);
    QTest::newRow("a pixel more") << QSize(65, 10);
    QTest::newRow("several words") << QSize(300, 40);
    QTest::newRow("smaller than a mark") << QSize(2, 1);
}

// As a painter puts pictures under each other, with places at and beyond all edges. What is
// called hidden is opaque, and the other way round.
void TestDenseKeyPainter::laterStampsAreDrawnUnderEarlierOnes()
{
    QFETCH(QSize, size);
    const QImage picture = drawn(diamond);
    const KeyGraphStamp stamp(picture);
    QImage painted(size, QImage::Format_ARGB32_Premultiplied);
    painted.fill(Qt::transparent);
    QImage stamped = painted;
    KeyGraphCanvas canvas(KeyGraphPixels::of(&stamped), size);
    std::mt19937 random(3);
    for (int i = 0; i < 300; ++i) {
        const QPoint corner(int(random() % unsigned(size.width() + 4)) - 4,
                            int(random() % unsigned(size.height() + 4)) - 4);
        canvas.put(stamp, corner);
        QPainter painter(&painted);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
        painter.drawImage(corner, picture);
        painter.end();
        const QRect area(int(random() % unsigned(size.width() + 5)) - 5,
                         int(random() % unsigned(size.height() + 5)) - 5, 1 + int(random() % 7),
                         1 + int(random() % 7));
        bool closed = true;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x)
                closed &= !stamped.rect().contains(x, y) || qAlpha(stamped.pixel(x, y)) >= 250;
        }
        QCOMPARE(canvas.hides(area.left(), area.top(), area.right(), area.bottom()), closed);
    }
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            QVERIFY(largestDifference(stamped.pixel(x, y), painted.pixel(x, y)) <= 5);
    }
    QVERIFY(qAlpha(stamped.pixel(size.width() / 2, 0)) > 0);
}

void TestDenseKeyPainter::areas()
{
    QImage picture(200, 20, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    KeyGraphCanvas canvas(KeyGraphPixels::of(&picture), picture.size());
    QVERIFY(canvas.hides(-10, 0, -1, 19));
    QVERIFY(canvas.hides(200, 0, 220, 19));
    QVERIFY(canvas.hides(0, -9, 50, -1));
    QVERIFY(canvas.hides(0, 20, 50, 90));
    QVERIFY(!canvas.hides(0, 0, 0, 0));
    QVERIFY(!canvas.hides(199, 19, 300, 90));
    QVERIFY(!canvas.hides(-2000000, -2000000, 2000000, 2000000));
    const KeyGraphStamp stamp(drawn({QString(32, '#')}));
    for (const int x : {0, 32, 64})
        canvas.put(stamp, QPoint(x, 5));
    for (int left = 0; left <= 64; ++left)
        QVERIFY(canvas.hides(left, 5, left + 31, 5));
    QVERIFY(!canvas.hides(65, 5, 96, 5));
    QVERIFY(canvas.hides(65, 5, 95, 5));
    QVERIFY2(!canvas.hides(0, 5, 32, 5), "wider than a stamp");
    QVERIFY(!canvas.hides(0, 5, 31, 6));
    QVERIFY(!canvas.hides(0, 4, 31, 5));
    // Closed by two stamps, each with a part of the area.
    canvas.put(stamp, QPoint(168, 8));
    canvas.put(stamp, QPoint(136, 8));
    QVERIFY(canvas.hides(140, 8, 171, 8));
    QVERIFY(!canvas.hides(135, 8, 166, 8));
    QVERIFY(canvas.hides(190, 8, 230, 8));
}

QImage TestDenseKeyPainter::lineThrough(const QVector<QPointF> &points, double width)
{
    QImage picture(40, 40, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    KeyGraphPen pen(KeyGraphPixels::of(&picture), picture.size(), width);
    pen.draw(points.constData(), points.size(), 1.0, Qt::white);
    return picture;
}

void TestDenseKeyPainter::linesCoverTheirPixels_data()
{
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<double>("width");
    const auto row = [](const char *name, const QPointF &from, const QPointF &to, double width) {
        QTest::newRow(name) << from << to << width;
    };
    row("level, along pixels", {5, 10}, {30, 10}, 1.0);
    row("level, between pixels", {5, 10.5}, {30, 10.5}, 1.0);
    row("upright", {10, 30}, {10, 5}, 1.0);
    row("flat", {2.3, 10.2}, {35.1, 17.9}, 1.0);
    row("steep", {10.7, 35.2}, {15.2, 3.3}, 1.0);
    row("of 45 degrees", {3, 3}, {33, 33}, 1.0);
    row("wide and flat", {2, 30}, {36, 18}, 2.5);
    row("wide and steep", {12, 4}, {24, 36}, 2.5);
    row("through the upper edge", {5, 12}, {15, -20}, 1.0);
}

// Across the line its pixels add up to its width, and are centred on it.
void TestDenseKeyPainter::linesCoverTheirPixels()
{
    QFETCH(QPointF, from);
    QFETCH(QPointF, to);
    QFETCH(double, width);
    const QImage picture = lineThrough({from, to}, width);
    const bool steep = qAbs(to.y() - from.y()) > to.x() - from.x();
    const double length = std::hypot(to.x() - from.x(), to.y() - from.y());
    const double along = steep ? qAbs(to.y() - from.y()) : to.x() - from.x();
    const double first = qMax(0.0, steep ? qMin(from.y(), to.y()) : from.x());
    const double last = steep ? qMax(from.y(), to.y()) : to.x();
    int checked = 0;
    for (int i = int(first) + 3; i < last - 2; ++i) {
        double sum = 0;
        double middle = 0;
        for (int k = 0; k < 40; ++k) {
            const double part = qAlpha(steep ? picture.pixel(k, i) : picture.pixel(i, k)) / 255.0;
            sum += part;
            middle += part * k;
        }
        QVERIFY2(qAbs(sum - width * length / along) < 0.03, qPrintable(QString::number(sum)));
        const double share =
            steep ? (i - from.y()) / (to.y() - from.y()) : (i - from.x()) / (to.x() - from.x());
        const double expected =
            steep ? from.x() + share * (to.x() - from.x()) : from.y() + share * (to.y() - from.y());
        QVERIFY2(qAbs(middle / sum - expected) < 0.05, qPrintable(QString::number(middle / sum)));
        ++checked;
    }
    QVERIFY(checked > 5);
}

// A line of many pieces has the same picture as the whole line.
void TestDenseKeyPainter::jointsAreSeamless()
{
    for (const double slope : {0.0, 0.37, -0.9, 1.7, -12.0}) {
        QVector<QPointF> points;
        for (double x = 3.1; x < 36.0; x += 1.93) {
            // Not collinear enough for one line, but too little to be visible.
            const double bend = points.size() % 2 ? 0.06 : 0.0;
            points += QPointF(x, 20.0 + slope * (x - 20.0) + bend);
        }
        const QImage whole = lineThrough({points.first(), points.last()}, 1.0);
        const QImage pieces = lineThrough(points, 1.0);
        int largest = 0;
        for (int y = 0; y < 40; ++y) {
            for (int x = 4; x < 35; ++x)
                largest =
                    qMax(largest, qAbs(qAlpha(whole.pixel(x, y)) - qAlpha(pieces.pixel(x, y))));
        }
        QVERIFY2(largest < 30, qPrintable(QStringLiteral("%1: %2").arg(slope).arg(largest)));
    }
}

void TestDenseKeyPainter::longLinesStayWhole_data()
{
    QTest::addColumn<QVector<QPointF>>("points");
    const auto row = [](const char *name, const QVector<QPointF> &points) {
        QTest::newRow(name) << points;
    };
    row("flat", {{-20, 30.3}, {420, 170.8}});
    row("falling at 45 degrees", {{10, 5}, {380, 375.1}});
    row("rising at 45 degrees", {{10, 375.1}, {380, 5}});
    row("steep, across many columns", {{50, 390}, {350, 10}});
    row("out of the picture and back", {{0, 100}, {40, -500}, {300, -500}, {390, 200}});
    row("there and back", {{0, 200}, {100, 390}, {101, 10}, {390, 200}});
}

// However many columns they cross: a whole line has the same picture as its short pieces.
void TestDenseKeyPainter::longLinesStayWhole()
{
    QFETCH(QVector<QPointF>, points);
    QImage whole(400, 400, QImage::Format_ARGB32_Premultiplied);
    whole.fill(Qt::transparent);
    QImage pieces = whole;
    KeyGraphPen(KeyGraphPixels::of(&whole), whole.size(), 1.0)
        .draw(points.constData(), points.size(), 1.0, Qt::white);
    // Each piece by a pen of its own, a little over its ends.
    int painted = 0;
    for (int i = 1; i < points.size(); ++i) {
        const QPointF way = points.at(i) - points.at(i - 1);
        const int count = qMax(1, int(way.x() / 7.0));
        for (int k = 0; k < count; ++k) {
            const QPointF ends[] = {points.at(i - 1) + way * k / count,
                                    points.at(i - 1) + way * (k + 1) / count};
            KeyGraphPen(KeyGraphPixels::of(&pieces), pieces.size(), 1.0)
                .draw(ends, 2, 1.0, Qt::white);
        }
    }
    for (int y = 0; y < 400; ++y) {
        for (int x = 0; x < 400; ++x) {
            const int alpha = qAlpha(whole.pixel(x, y));
            painted += alpha > 0 ? 1 : 0;
            // Where two pieces meet in a pixel, they are put over each other.
            QVERIFY2(qAbs(alpha - qAlpha(pieces.pixel(x, y))) < 80,
                     qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
        }
    }
    QVERIFY2(painted > 300, qPrintable(QString::number(painted)));
}

void TestDenseKeyPainter::linesStayWithinTheirArea()
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> place(-5.0, 45.0);
    for (int i = 0; i < 500; ++i) {
        QPointF from(place(random), place(random));
        QPointF to(place(random), place(random));
        if (to.x() < from.x())
            std::swap(from, to);
        QImage picture(40, 40, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        KeyGraphPen pen(KeyGraphPixels::of(&picture), picture.size(), 1.5);
        const QPointF points[] = {from, to};
        pen.draw(points, 2, 1.0, Qt::white);
        const QRectF area = pen.areaOf(from, to, 1.0);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x)
                QVERIFY(qAlpha(picture.pixel(x, y)) == 0 ||
                        area.intersects(QRectF(x, y, 1, 1).adjusted(-1e-6, -1e-6, 1e-6, 1e-6)));
        }
    }
}

void TestDenseKeyPainter::linesFarOutside()
{
    const QImage empty = lineThrough({}, 1.0);
    QCOMPARE(lineThrough({{5, 5}}, 1.0), empty);
    QCOMPARE(lineThrough({{5, -1e6}, {30, -1e6}}, 1.0), empty);
    QCOMPARE(lineThrough({{-50, 5}, {-10, 30}}, 1.0), empty);
    QCOMPARE(lineThrough({{50, 5}, {90, 30}}, 1.0), empty);
    const QImage through = lineThrough({{10, -1e6}, {20, 1e6}}, 1.0);
    QVERIFY(qAlpha(through.pixel(15, 5)) > 200);
    QVERIFY(qAlpha(through.pixel(15, 35)) > 200);
    const QImage along = lineThrough({{-1e5, 20}, {1e5, 20}}, 1.0);
    QCOMPARE(qAlpha(along.pixel(0, 20)), 255);
    QCOMPARE(qAlpha(along.pixel(39, 20)), 255);
}

// A bow must not become one line because its pieces are nearly collinear.
void TestDenseKeyPainter::slightBowsStayWhereTheyAre()
{
    QImage picture(2000, 60, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QVector<QPointF> points;
    const auto bow = [](double x) { return 5.0 + 1.2e-5 * x * x; };
    for (int x = 0; x < 2000; x += 2)
        points += QPointF(x, bow(x));
    KeyGraphPen pen(KeyGraphPixels::of(&picture), picture.size(), 1.0);
    pen.draw(points.constData(), points.size(), 1.0, Qt::white);
    for (int x = 2; x < 1995; ++x) {
        double sum = 0;
        double middle = 0;
        for (int y = 0; y < 60; ++y) {
            sum += qAlpha(picture.pixel(x, y));
            middle += qAlpha(picture.pixel(x, y)) * y;
        }
        QVERIFY(qAbs(middle / sum - bow(x)) < 0.04);
    }
}

void TestDenseKeyPainter::picturesAgree_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<int>("keyCount");
    QTest::addColumn<float>("noise");
    QTest::newRow("quiet curves") << 1.0 << 400 << 0.3f;
    QTest::newRow("noisy curves") << 1.0 << 400 << 6.0f;
    QTest::newRow("keys far apart") << 1.0 << 40 << 1.0f;
    QTest::newRow("many keys in a column") << 1.0 << 4000 << 0.3f;
    QTest::newRow("one and a quarter") << 1.25 << 400 << 0.3f;
    QTest::newRow("one and a half") << 1.5 << 400 << 0.3f;
    QTest::newRow("two") << 2.0 << 400 << 0.3f;
    QTest::newRow("three") << 3.0 << 200 << 0.3f;
}

// To the rounding of colours that are put together in another order.
void TestDenseKeyPainter::picturesAgree()
{
    QFETCH(qreal, ratio);
    QFETCH(int, keyCount);
    QFETCH(float, noise);
    addChannels(15, keyCount, noise);
    QWidget widget;
    const KeyGraphLook look = KeyGraphLook::of(&widget);
    const KeyGraphStage stage{shown, 80, 0, VxTimeRange(), 160, QString()};
    const KeyGraphScale scale = scaleFor(keyCount * 160);
    KeyGraphCurves curves;
    QImage each = empty(ratio);
    QImage dense = empty(ratio);
    QVERIFY(DenseKeyPainter::canShow(ratio));
    KeyGraphChannelPainter(&each, scale, look, stage, &widget).paintEach(list(), curves);
    KeyGraphChannelPainter(&dense, scale, look, stage, &widget).paintDense(list(), curves);
    int painted = 0;
    int largest = 0;
    for (int y = 0; y < each.height(); ++y) {
        for (int x = 0; x < each.width(); ++x) {
            painted += qAlpha(each.pixel(x, y)) > 0;
            largest = qMax(largest, largestDifference(each.pixel(x, y), dense.pixel(x, y)));
        }
    }
    const QString found =
        QStringLiteral("%1 pixels, different by up to %2").arg(painted).arg(largest);
    QVERIFY2(painted > each.width() * each.height() / 10, qPrintable(found));
    QVERIFY2(largest <= 20, qPrintable(found)); // of 255, where many half covered edges meet
}

void TestDenseKeyPainter::fewKeysAreDrawnByTheStyle()
{
    addChannels(3, 30, 0.3f);
    CountingStyle style;
    QWidget widget;
    widget.setStyle(&style);
    const KeyGraphLook look = KeyGraphLook::of(&widget);
    const KeyGraphStage stage{shown, 80, 0, VxTimeRange(), 160, QString()};
    KeyGraphScale scale = scaleFor(30 * 160);
    scale.ticksPerPixel = 15.0;
    scale.offsetX = 20.0;
    scale.valuePerPixel = -1.0;
    KeyGraphCurves curves;
    QImage picture = empty(1.0);
    KeyGraphChannelPainter(&picture, scale, look, stage, &widget).paint(list(), curves);
    QCOMPARE(style.marks, 90);
}

void TestDenseKeyPainter::manyKeysShareAFewPictures()
{
    addChannels(3, 2000, 0.3f);
    CountingStyle style;
    QWidget widget;
    widget.setStyle(&style);
    const KeyGraphLook look = KeyGraphLook::of(&widget);
    const KeyGraphStage stage{shown, 80, 0, VxTimeRange(), 160, QString()};
    KeyGraphCurves curves;
    QImage picture = empty(1.0);
    KeyGraphChannelPainter(&picture, scaleFor(2000 * 160), look, stage, &widget)
        .paint(list(), curves);
    QCOMPARE(style.marks, 6); // three types, selected or not
    // Marks that would not fit into a word are drawn one by one.
    style.marks = 0;
    QVERIFY(!DenseKeyPainter::canShow(4.0));
    picture = empty(4.0);
    KeyGraphChannelPainter(&picture, scaleFor(2000 * 160), look, stage, &widget)
        .paint(list(), curves);
    QVERIFY(style.marks > 100);
}

VX_TEST_MAIN(TestDenseKeyPainter)
#include "tst_densekeypainter.moc"
