#include <QtTest>

#include <QtWidgets/QPushButton>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

#include "testing/vxmousedriver.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/time/timelinemetrics.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"

#include <memory>

class TestPlayhead : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void sideIsTwiceTheMargin();
    void slotsInOrder();
    void followsTheTime();
    void followsThePlayRangesStart();
    void offsetsMoveItAtOnce();
    void sliderMovesItToo();
    void isNotKeptInside();
    void wrapsAsTheScaleDoes();
    void clicksGoThrough();
    void paintsThroughTheStyle();

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

// Margin 5 gives 2.5 pixels, cut to 2; half a frame is 5 pixels: frame f stands at 10 f - 3.
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

void TestPlayhead::wrapsAsTheScaleDoes()
{
    const VxPlayheadWgt playhead;
    vxScene->setTime(8000000);
    QCOMPARE(playhead.x(), -394784 + 2 - 5);
}

void TestPlayhead::clicksGoThrough()
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

QTEST_MAIN(TestPlayhead)
#include "tst_vxplayheadwgt.moc"
