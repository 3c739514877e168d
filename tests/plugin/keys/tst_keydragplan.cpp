#include "keygraphtestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keygraph/keygraphdrag.h"
#include "vxtimeline/keygraph/vxfloatchannel.h"

#include <QtCore/QRandomGenerator>
#include <algorithm>

using namespace KeyGraphDrag;

class TestKeyDragPlan : public QObject, private KeyGraphTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void oneAxisKeepsTheLonger();
    void times_data();
    void times();
    void manyMovesAreOneByOne();
};

void TestKeyDragPlan::oneAxisKeepsTheLonger()
{
    QCOMPARE(oneAxis({5, -4}), QPointF(5, 0));
    QCOMPARE(oneAxis({5, -6}), QPointF(0, -6));
    QCOMPARE(oneAxis({-5, 5}), QPointF(-5, 0));
    QCOMPARE(oneAxis({0, 0}), QPointF(0, 0));
}

void TestKeyDragPlan::times_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("ticks");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("time");
    QTest::newRow("without snapping") << 100 << 17 << 0 << 117;
    QTest::newRow("backwards") << 100 << -17 << 0 << 83;
    QTest::newRow("below half a frame") << 0 << 79 << 160 << 0;
    QTest::newRow("half a frame") << 0 << 80 << 160 << 160;
    QTest::newRow("half a frame before zero") << 0 << -80 << 160 << -160;
    QTest::newRow("less before zero") << 0 << -79 << 160 << 0;
    QTest::newRow("off the frames snaps to one") << 70 << 20 << 160 << 160;
    QTest::newRow("beyond all times") << 100 << int(VxTimeMax) << 0 << int(VxTimeMax);
}

void TestKeyDragPlan::times()
{
    QFETCH(int, start);
    QFETCH(int, ticks);
    QFETCH(int, step);
    QTEST(draggedTime(start, ticks, step), "time");
}

// Moving many keys at once leaves the keys, their shapes, the selection and the starts of the drag
// as moving them one by one does.
void TestKeyDragPlan::manyMovesAreOneByOne()
{
    QRandomGenerator random(11);
    for (int round = 0; round < 400; ++round) {
        VxFloatProperty one(QStringLiteral("One"));
        VxFloatProperty many(QStringLiteral("Many"));
        VxFloatChannel oneChannel(&one, nullptr);
        VxFloatChannel manyChannel(&many, nullptr);
        VxTime time = 0;
        for (int i = random.bounded(2, 12); i > 0; --i) {
            time += random.bounded(1, 5);
            const float value = float(random.bounded(100));
            const int type = random.bounded(3);
            one.setKey(time, value, type, value / 100, 0.5f);
            many.setKey(time, value, type, value / 100, 0.5f);
        }
        for (int i = 0; i < one.getNumKeys(); ++i) {
            const bool selected = random.bounded(2);
            oneChannel.selectKey(i, selected);
            manyChannel.selectKey(i, selected);
        }
        const int offset = random.bounded(-12, 12);
        const QVector<VxKeyGraphKey> before = oneChannel.getKeyCache();
        for (int n = 0; n < before.size(); ++n) {
            const int i = offset >= 0 ? before.size() - 1 - n : n;
            if (before.at(i).selected)
                oneChannel.setKey(i, before.at(i).dragStartTime + offset,
                                  before.at(i).dragStartValue + 1.0);
        }
        KeyGraphDrag::moveSelected({&manyChannel}, {offset, 1.0, 0, offset >= 0});

        QCOMPARE(KeyDrawing::timesOf(&many), KeyDrawing::timesOf(&one));
        QCOMPARE(KeyDrawing::selectedOf(manyChannel), KeyDrawing::selectedOf(oneChannel));
        for (int i = 0; i < one.getNumKeys(); ++i) {
            float a[3], b[3];
            QCOMPARE(many.getKeyValue(i), one.getKeyValue(i));
            QCOMPARE(many.getKeyInterpolationType(i, a, a + 1, a + 2),
                     one.getKeyInterpolationType(i, b, b + 1, b + 2));
            QVERIFY(std::equal(a, a + 3, b));
            if (!oneChannel.isKeySelected(i))
                continue;
            QCOMPARE(manyChannel.getKeyCache().at(i).dragStartTime,
                     oneChannel.getKeyCache().at(i).dragStartTime);
        }
    }
}

VX_TEST_MAIN(TestKeyDragPlan)
#include "tst_keydragplan.moc"
