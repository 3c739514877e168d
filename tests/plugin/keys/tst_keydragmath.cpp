#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/dopesheet/keydragmath.h"

#include <QtTest>
#include <random>

using namespace KeyDragMath;

Q_DECLARE_METATYPE(Qt::KeyboardModifiers)
Q_DECLARE_METATYPE(KeyDragMath::Hit)
Q_DECLARE_METATYPE(KeyDragMath::Change)
Q_DECLARE_METATYPE(KeyDragMath::Release)

// What the mouse does in the keys column, without any window: a pixel is 16 ticks, a frame of 160
// ticks ten pixels, and time 0 is at x 202.
class TestKeyDragMath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void times_data();
    void times();
    void offsets_data();
    void offsets();
    void snappedKeysLandOnFrames();
    void limits_data();
    void limits();
    void clickOrDrag_data();
    void clickOrDrag();
    void presses_data();
    void presses();
    void releases_data();
    void releases();
    void bands();
    void previewsAreThrottled();

private:
    static Scale scale()
    {
        Scale result;
        result.keysLeft = 200;
        result.step = 160;
        return result;
    }

    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestKeyDragMath::times_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<VxTime>("frame");

    QTest::newRow("time 0") << 202 << 0 << 0;
    QTest::newRow("one frame on") << 212 << 160 << 160;
    QTest::newRow("half a frame is rounded up") << 207 << 80 << 160;
    QTest::newRow("just below half") << 206 << 64 << 0;
    QTest::newRow("left of time 0") << 192 << -160 << -160;
    QTest::newRow("in the names") << 2 << -3200 << -3200;
}

void TestKeyDragMath::times()
{
    QFETCH(int, x);
    QTEST(scale().timeAt(x), "time");
    QTEST(scale().frameTimeAt(x), "frame");
    Scale later = scale();
    later.playStart = 1600; // 100 pixels; half the margin is lost to truncation
    QCOMPARE(later.timeAt(x),
             scale().timeAt(x) + 1600 - (later.metrics.keysOrigin(1600) + 98) * 16);
}

void TestKeyDragMath::offsets_data()
{
    QTest::addColumn<int>("pressX");
    QTest::addColumn<int>("x");
    QTest::addColumn<VxTime>("hitTime");
    QTest::addColumn<bool>("snaps");
    QTest::addColumn<int>("offset");

    QTest::newRow("nowhere") << 262 << 262 << 960 << true << 0;
    QTest::newRow("less than half a frame") << 262 << 266 << 960 << true << 0;
    QTest::newRow("half a frame") << 262 << 267 << 960 << true << 160;
    QTest::newRow("ten frames") << 264 << 364 << 960 << true << 1600;
    QTest::newRow("back") << 264 << 214 << 960 << true << -800;
    QTest::newRow("a key between frames snaps to one") << 266 << 300 << 1000 << true << 600;
    QTest::newRow("even when the mouse rests") << 266 << 266 << 1000 << true << -40;
    QTest::newRow("Ctrl: to the tick") << 266 << 300 << 1000 << false << 544;
    QTest::newRow("Ctrl: back") << 266 << 265 << 1000 << false << -16;
    QTest::newRow("Ctrl: nowhere") << 266 << 266 << 1000 << false << 0;
}

void TestKeyDragMath::offsets()
{
    QFETCH(int, pressX);
    QFETCH(int, x);
    QFETCH(VxTime, hitTime);
    QFETCH(bool, snaps);
    QFETCH(int, offset);
    QCOMPARE(rawOffset(scale(), pressX, x, hitTime, snaps), qint64(offset));
}

void TestKeyDragMath::snappedKeysLandOnFrames()
{
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        Scale some = scale();
        some.metrics.zoom = 0.05 + (random() % 400) / 100.0;
        some.playStart = VxTime(random() % 5000);
        some.step = QVector<VxTime>({160, 200, 192, 80, 4800})[int(random() % 5)];
        const auto hitTime = VxTime(random() % 20000);
        const int pressX =
            some.metrics.keyLeft(some.keysLeft, hitTime, some.playStart) + int(random() % 11);
        const int x = int(random() % 1500);
        const qint64 landed = hitTime + rawOffset(some, pressX, x, hitTime, true);
        QVERIFY2(landed % some.step == 0, qPrintable(QString::number(landed)));
    }
}

void TestKeyDragMath::limits_data()
{
    QTest::addColumn<qint64>("offset");
    QTest::addColumn<VxTime>("earliest");
    QTest::addColumn<VxTime>("latest");
    QTest::addColumn<VxTime>("limited");

    QTest::newRow("free") << qint64(100) << 0 << 500 << 100;
    QTest::newRow("free, back") << qint64(-100) << 400 << 500 << -100;
    QTest::newRow("the first key is at 0") << qint64(-100) << 0 << 500 << 0;
    QTest::newRow("the first key reaches 0") << qint64(-500) << 400 << 500 << -400;
    QTest::newRow("exactly to 0") << qint64(-400) << 400 << 500 << -400;
    QTest::newRow("the last key is at the end") << qint64(100) << 0 << 9600 << 0;
    QTest::newRow("the last key reaches the end") << qint64(9600) << 0 << 500 << 9100;
    QTest::newRow("exactly to the end") << qint64(9100) << 0 << 500 << 9100;
    QTest::newRow("nothing asked") << qint64(0) << 0 << 500 << 0;
    QTest::newRow("nothing asked, before 0") << qint64(0) << -400 << 500 << 400;
    QTest::newRow("beyond the end, further on") << qint64(160) << 0 << 10000 << -400;
    QTest::newRow("beyond the end, back") << qint64(-160) << 200 << 10000 << -160;
    QTest::newRow("before 0, further back") << qint64(-160) << -400 << 500 << 400;
    QTest::newRow("a key at the end of time") << qint64(1) << 0 << VxTimeMax << -2147474047;
    QTest::newRow("an offset beyond all times") << qint64(1) * 5000000000 << 0 << 500 << 9100;
}

void TestKeyDragMath::limits()
{
    QFETCH(qint64, offset);
    QFETCH(VxTime, earliest);
    QFETCH(VxTime, latest);
    QTEST(limitedOffset(offset, {earliest, latest, 9600}), "limited");
}

void TestKeyDragMath::clickOrDrag_data()
{
    QTest::addColumn<QPoint>("moved");
    QTest::addColumn<bool>("drag");

    QTest::newRow("not at all") << QPoint(0, 0) << false;
    QTest::newRow("two pixels") << QPoint(-2, 0) << false;
    QTest::newRow("one pixel each way") << QPoint(1, -1) << false;
    QTest::newRow("three pixels") << QPoint(0, 3) << true;
    QTest::newRow("two and one") << QPoint(-2, 1) << true;
}

void TestKeyDragMath::clickOrDrag()
{
    QFETCH(QPoint, moved);
    QTEST(isDrag(QPoint(50, 60), QPoint(50, 60) + moved), "drag");
}

void TestKeyDragMath::presses_data()
{
    QTest::addColumn<Hit>("hit");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("clearsAll");
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("canDrag");

    const Qt::KeyboardModifiers none = Qt::NoModifier;
    const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
    const Qt::KeyboardModifiers alt = Qt::AltModifier;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    QTest::newRow("beside the keys") << Hit::Nothing << none << false << Change::None << false;
    QTest::newRow("Alt beside the keys") << Hit::Nothing << alt << false << Change::None << false;
    QTest::newRow("a key") << Hit::Key << none << true << Change::Select << true;
    QTest::newRow("a selected key") << Hit::SelectedKey << none << false << Change::Select << true;
    QTest::newRow("Shift changes nothing") << Hit::Key << shift << true << Change::Select << true;
    QTest::newRow("Ctrl, a key") << Hit::Key << ctrl << false << Change::Select << true;
    QTest::newRow("Ctrl, selected") << Hit::SelectedKey << ctrl << false << Change::Select << true;
    QTest::newRow("Alt, a key") << Hit::Key << alt << false << Change::Deselect << false;
    QTest::newRow("Alt, selected") << Hit::SelectedKey << alt << false << Change::Deselect << false;
    QTest::newRow("both") << Hit::SelectedKey << (ctrl | alt) << false << Change::Deselect << false;
}

void TestKeyDragMath::presses()
{
    QFETCH(Hit, hit);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    const PressEffect effect = pressEffect(hit, modifiers);
    QTEST(effect.clearsAll, "clearsAll");
    QTEST(effect.change, "change");
    QTEST(effect.canDrag, "canDrag");
}

void TestKeyDragMath::releases_data()
{
    QTest::addColumn<bool>("canDrag");
    QTest::addColumn<bool>("moved");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<Release>("kind");
    QTest::addColumn<bool>("clearsAll");
    QTest::addColumn<bool>("selects");
    QTest::addColumn<bool>("addsNode");

    const Qt::KeyboardModifiers none = Qt::NoModifier;
    const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
    const Qt::KeyboardModifiers alt = Qt::AltModifier;
    QTest::newRow("drop") << true << true << none << Release::Drop << false << true << false;
    QTest::newRow("drop, Ctrl") << true << true << ctrl << Release::Drop << false << true << true;
    QTest::newRow("click on a key")
        << true << false << none << Release::Click << true << true << false;
    QTest::newRow("click elsewhere")
        << false << false << none << Release::Click << true << true << false;
    QTest::newRow("Ctrl click") << true << false << ctrl << Release::Click << false << true << true;
    QTest::newRow("Alt click") << false << false << alt << Release::Click << false << false
                               << false;
    QTest::newRow("band") << false << true << none << Release::Band << true << true << false;
    QTest::newRow("Ctrl band") << false << true << ctrl << Release::Band << false << true << true;
    QTest::newRow("Alt band") << false << true << alt << Release::Band << false << false << false;
    QTest::newRow("Alt never drops")
        << true << true << alt << Release::Band << false << false << false;
}

void TestKeyDragMath::releases()
{
    QFETCH(bool, canDrag);
    QFETCH(bool, moved);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    const ReleaseEffect effect = releaseEffect(canDrag, moved, modifiers);
    QTEST(effect.kind, "kind");
    QTEST(effect.clearsAll, "clearsAll");
    QTEST(effect.selects, "selects");
    QTEST(effect.addsNode, "addsNode");
}

void TestKeyDragMath::bands()
{
    const QPoint press(302, 80);
    const QPoint release(222, 20);
    QCOMPARE(bandRect(press, release), QRect(QPoint(221, 19), QPoint(303, 81)));
    QCOMPARE(bandRect(release, press), bandRect(press, release));

    const BandSpan span = bandSpan(scale(), press, release, 400);
    QCOMPARE(span.start, 320);
    QCOMPARE(span.end, 1600);
    QCOMPARE(span.top, 20);
    QCOMPARE(span.bottom, 80);
    const BandSpan outside = bandSpan(scale(), QPoint(302, -50), QPoint(302, 900), 400);
    QCOMPARE(outside.top, 0);
    QCOMPARE(outside.bottom, 399);
    QCOMPARE(outside.start, outside.end);
    QCOMPARE(bandSpan(scale(), press, release, 0).top, 0);
}

void TestKeyDragMath::previewsAreThrottled()
{
    DragThrottle throttle;
    throttle.begin(1000);
    QVERIFY(!throttle.isDue(1300)); // no tick yet
    throttle.tick(1290);
    QVERIFY(throttle.isDue(1300));
    QVERIFY(!throttle.isDue(1301)); // just done
    throttle.tick(1490);
    QVERIFY(!throttle.isDue(1500)); // 200 ms are not more than 200 ms
    QVERIFY(throttle.isDue(1501));
    throttle.tick(1700);
    QVERIFY(!throttle.isDue(1800)); // the tick is too old
    throttle.tick(1801);
    QVERIFY(throttle.isDue(1801));
}

VX_TEST_APPLESS_MAIN(TestKeyDragMath)
#include "tst_keydragmath.moc"
