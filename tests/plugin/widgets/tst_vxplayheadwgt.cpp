#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"

#include <QtTest>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleOption>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

// Notes what is drawn, and draws nothing.
class DrawnPrimitives : public QProxyStyle
{
public:
    struct Primitive
    {
        quint32 element;
        int type;
        QRect rect;
        QColor ground; // of the option's palette
    };

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *,
                       const QWidget *) const override
    {
        drawn.append({quint32(element), option->type, option->rect,
                      option->palette.color(QPalette::Window)});
    }

    mutable QVector<Primitive> drawn;
};

} // namespace

class TestPlayhead : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void sideIsTwiceTheMargin();
    void slotsInOrder();
    void positions_data();
    void positions();
    void followsTheTime();
    void followsThePlayRangesStart();
    void offsetsMoveItAtOnce();
    void sliderMovesItToo();
    void isNotKeptInside();
    void keepsItsPlaceAfterHours();
    void clicksPassThrough();
    void clicksReachTheWidgetBeneath();
    void paintsThroughTheStyle();
    void drawsOneMark();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    TimelineMetrics m_saved;
};

void TestPlayhead::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
    m_saved = TimelineMetrics::shared();
    TimelineMetrics::shared() = TimelineMetrics();
}

void TestPlayhead::cleanup()
{
    TimelineMetrics::shared() = m_saved;
    m_app.reset();
    m_guard.reset();
}

void TestPlayhead::sideIsTwiceTheMargin()
{
    const VxPlayheadWgt playhead;
    const int side = 2 * vxApp->getStyle()->metric(VxStyle::PM_VxTimelineKeyMargin);
    QCOMPARE(playhead.minimumSize(), QSize(side, side));
    QCOMPARE(playhead.maximumSize(), QSize(side, side));
}

void TestPlayhead::slotsInOrder()
{
    const QMetaObject &meta = VxPlayheadWgt::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods += QString::fromLatin1(meta.method(i).methodSignature() + ' ' +
                                       meta.method(i).parameterNames().value(0));
    QCOMPARE(methods, QStringList({QStringLiteral("slider(int) value"),
                                   QStringLiteral("setHorizontalOffset(int) offset"),
                                   QStringLiteral("setVerticalOffset(int) offset"),
                                   QStringLiteral("updatePosition() "),
                                   QStringLiteral("handleTimeChanged(VxTime) time")}));
}

// With a = cut(margin / 2 - px(start)), the marker is at cut(a + offset + px(time) - width /
// 2).
void TestPlayhead::positions_data()
{
    QTest::addColumn<int>("fps");
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("frameWidth");
    QTest::addColumn<int>("keyMargin");
    QTest::addColumn<int>("offset");
    QTest::addColumn<VxTime>("start");
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<int>("x");

    const auto row = [](const char *name, int fps, double zoom, int frameWidth, int keyMargin,
                        int offset, VxTime start, VxTime time, int x) {
        QTest::newRow(name) << fps << zoom << frameWidth << keyMargin << offset << start << time
                            << x;
    };
    // px(0) = 0; cut(2.5) = 2; 2 + 250 - 5.
    row("time 0", 30, 1.0, 10, 5, 250, 0, 0, 247);
    // px(1600) = 1600 * 300 / 4800 = 100.
    row("frame 10", 30, 1.0, 10, 5, 250, 0, 1600, 347);
    // px(1600) = 50 at both; cut(2.5 - 50) = -47.
    row("on the start of a range not at 0", 30, 0.5, 10, 5, 250, 1600, 1600, 248);
    row("after the start of a range not at 0", 30, 0.5, 10, 5, 250, 1600, 3200, 298);
    // -47 + 250 + px(800) = 25, - 5.
    row("before the start", 30, 0.5, 10, 5, 250, 1600, 800, 223);
    // px(3200) = 200, cut(2.5 - 200) = -197: left of the column, and of the parent.
    row("far before the start", 30, 1.0, 10, 5, 100, 3200, 0, -102);
    // px(-1000) = cut(-62.5) = -62.
    row("before 0", 30, 1.0, 10, 5, 250, 0, -1000, 185);
    // Range start -1000: cut(2.5 + 62) = 64.
    row("a range that begins before 0", 30, 1.0, 10, 5, 250, -1000, 0, 309);
    // Width 9: px(1600) = 90, half of it 4.5: cut(3 + 200 + 90 - 4.5).
    row("an odd width", 30, 1.0, 9, 6, 200, 0, 1600, 288);
    // The same left of 0: cut(3 + 0 - 90 - 4.5) = -91.
    row("an odd width, cut towards 0", 30, 1.0, 9, 6, 0, 0, -1600, -91);
    // 24 a second: px(2000) = 2000 * 240 * 1.7 / 4800 = 170; px(500) = 42.5, cut(4 - 42) = -38.
    row("24 a second", 24, 1.7, 10, 8, 120, 500, 2000, 247);
    // 1200 a second: px(6) = 6 * 1200 * 12 * 0.01 / 4800 = 0.18 and px(4000) = 120.
    row("1200 a second", 1200, 0.01, 12, 7, 80, 6, 4000, 197);
}

void TestPlayhead::positions()
{
    QFETCH(int, fps);
    QFETCH(double, zoom);
    QFETCH(int, frameWidth);
    QFETCH(int, keyMargin);
    QFETCH(int, offset);
    QFETCH(VxTime, start);
    QFETCH(VxTime, time);
    TimelineMetrics &metrics = TimelineMetrics::shared();
    metrics.fps = fps;
    metrics.zoom = zoom;
    metrics.frameWidth = frameWidth;
    metrics.keyMargin = keyMargin;
    VxPlayheadWgt playhead;
    vxScene->setPlayRange(VxTimeRange(start, 48000));
    vxScene->setTime(time);
    playhead.setHorizontalOffset(offset);
    QTEST(playhead.x(), "x");
    // From elsewhere, by the time alone.
    vxScene->setTime(time + 160);
    vxScene->setTime(time);
    QTEST(playhead.x(), "x");
}

// Margin 5 gives 2.5 pixels, cut to 2; half a frame is 5 pixels: frame f is at 10 f - 3.
void TestPlayhead::followsTheTime()
{
    const VxPlayheadWgt playhead;
    vxScene->setTime(160 * 7);
    QCOMPARE(playhead.pos(), QPoint(67, 0));
    vxScene->setTime(160);
    QCOMPARE(playhead.pos(), QPoint(7, 0));
}

void TestPlayhead::followsThePlayRangesStart()
{
    TimelineMetrics::shared().keyMargin = 10;
    VxPlayheadWgt playhead;
    playhead.setHorizontalOffset(250);
    playhead.updatePosition();
    const int atZero = playhead.x();
    QCOMPARE(atZero, 250);
    vxScene->setPlayRange(VxTimeRange(1600, 4800));
    vxScene->setTime(1600);
    QCOMPARE(playhead.x(), atZero);
}

void TestPlayhead::offsetsMoveItAtOnce()
{
    VxPlayheadWgt playhead;
    playhead.setHorizontalOffset(100);
    QCOMPARE(playhead.pos(), QPoint(97, 0));
    playhead.setVerticalOffset(-4);
    QCOMPARE(playhead.pos(), QPoint(97, -4));
}

void TestPlayhead::sliderMovesItToo()
{
    VxPlayheadWgt playhead;
    vxScene->setTime(1600);
    TimelineMetrics::shared().zoom = 2.0;
    QCOMPARE(playhead.x(), 97);
    playhead.slider(99);
    QCOMPARE(playhead.x(), 197);
}

void TestPlayhead::isNotKeptInside()
{
    VxPlayheadWgt playhead;
    vxScene->setPlayRange(VxTimeRange(3200, 4800));
    playhead.updatePosition();
    // Margin and range's start: 2.5 - 200 is cut to -197, less half a frame.
    QCOMPARE(playhead.x(), -202);
}

void TestPlayhead::keepsItsPlaceAfterHours()
{
    const VxPlayheadWgt playhead;
    vxScene->setTime(8000000);
    QCOMPARE(playhead.x(), 500000 + 2 - 5);
}

void TestPlayhead::clicksPassThrough()
{
    QPushButton button;
    button.resize(200, 60);
    VxPlayheadWgt playhead(&button);
    playhead.setHorizontalOffset(50);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QVERIFY(playhead.isVisible());
    const QPoint middle = playhead.geometry().center();
    int clicks = 0;
    connect(&button, &QPushButton::clicked, this, [&clicks] { ++clicks; });
    VxMouseDriver(&button).click(middle);
    QCOMPARE(clicks, 1);
    QCOMPARE(vxScene->getTime(), 0);
    // Not through the marker: hovering and cursors are those of the widget beneath, too.
    QVERIFY(!button.childAt(middle));
}

// A widget that leaves its mouse events alone only hands them up to its parent.
void TestPlayhead::clicksReachTheWidgetBeneath()
{
    QWidget sheet;
    sheet.resize(200, 60);
    QPushButton ruler(&sheet);
    ruler.resize(sheet.size());
    VxPlayheadWgt playhead(&sheet);
    playhead.setHorizontalOffset(50);
    sheet.show();
    QVERIFY(QTest::qWaitForWindowExposed(&sheet));
    int clicks = 0;
    connect(&ruler, &QPushButton::clicked, this, [&clicks] { ++clicks; });
    VxMouseDriver(&sheet).click(playhead.geometry().center());
    QCOMPARE(clicks, 1);
}

void TestPlayhead::paintsThroughTheStyle()
{
    VxPlayheadWgt playhead;
    QImage image(playhead.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    playhead.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    QImage empty(image.size(), image.format());
    empty.fill(Qt::transparent);
    QVERIFY(image != empty);
}

void TestPlayhead::drawsOneMark()
{
    DrawnPrimitives style;
    VxPlayheadWgt playhead;
    playhead.setStyle(&style);
    QPalette palette = playhead.palette();
    palette.setColor(QPalette::Window, Qt::magenta);
    playhead.setPalette(palette);
    QImage image(playhead.size(), QImage::Format_ARGB32_Premultiplied);
    playhead.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    QCOMPARE(style.drawn.size(), 1);
    const DrawnPrimitives::Primitive &mark = style.drawn.first();
    QCOMPARE(mark.element, quint32(0x0F0000AB));
    QCOMPARE(mark.type, int(QStyleOption::SO_Default));
    QCOMPARE(mark.rect, QRect(QPoint(), playhead.size()));
    QCOMPARE(mark.ground, QColor(Qt::magenta));
}

VX_TEST_MAIN(TestPlayhead)
#include "tst_vxplayheadwgt.moc"
