#include "keygraphtestbase.h"
#include "testing/vxtestmain.h"

#include <QtCore/QRandomGenerator>

#include "vxtimeline/keygraph/keydragplan.h"
#include "vxtimeline/keygraph/vxfloatchannel.h"

#include <algorithm>

using namespace KeyDragPlan;

namespace {

std::vector<VxTime> placed(const std::vector<VxTime> &keys, std::vector<Move> moves)
{
    placeKeys(keys.data(), int(keys.size()), moves.data(), int(moves.size()));
    std::vector<VxTime> times;
    for (const Move &move : moves)
        times.push_back(move.time);
    return times;
}

// Moves one key after the other, searching all keys each time: what placeKeys() must agree with.
std::vector<VxTime> placeOneByOne(std::vector<VxTime> times, const std::vector<Move> &moves)
{
    std::vector<VxTime> result;
    for (const Move &move : moves) {
        VxTime &own = times[std::size_t(move.index)];
        VxTime target = move.time;
        const auto taken = [&](VxTime time) {
            return time != own && std::count(times.begin(), times.end(), time) > 0;
        };
        while (taken(target))
            target += target > own ? -1 : 1;
        own = target;
        result.push_back(target);
    }
    return result;
}

} // namespace

class TestKeyDragPlan : public QObject, private KeyGraphTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void oneAxisKeepsTheLonger();
    void times_data();
    void times();
    void places_data();
    void places();
    void agreesWithOneByOne();
    void manyMovesAreOneByOne();
    void farEndsDoNotOverflow();
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
    QTest::newRow("off the frames comes onto one") << 70 << 20 << 160 << 160;
    QTest::newRow("beyond all times") << 100 << int(VxTimeMax) << 0 << int(VxTimeMax);
}

void TestKeyDragPlan::times()
{
    QFETCH(int, start);
    QFETCH(int, ticks);
    QFETCH(int, step);
    QTEST(draggedTime(start, ticks, step), "time");
}

void TestKeyDragPlan::places_data()
{
    QTest::addColumn<std::vector<VxTime>>("keys");
    QTest::addColumn<std::vector<VxTime>>("targets"); // from the last key to the first
    QTest::addColumn<std::vector<VxTime>>("places");
    using Times = std::vector<VxTime>;
    QTest::newRow("nothing moves") << Times{0, 5} << Times{5, 0} << Times{5, 0};
    QTest::newRow("all by one") << Times{0, 1, 2} << Times{3, 2, 1} << Times{3, 2, 1};
    QTest::newRow("all onto one") << Times{0, 1, 2} << Times{9, 9, 9} << Times{9, 8, 7};
    QTest::newRow("crowded from both sides") << Times{0, 20} << Times{10, 10} << Times{10, 9};
}

void TestKeyDragPlan::places()
{
    QFETCH(std::vector<VxTime>, keys);
    QFETCH(std::vector<VxTime>, targets);
    QFETCH(std::vector<VxTime>, places);
    std::vector<Move> moves;
    for (int i = int(keys.size()) - 1; i >= 0; --i)
        moves.push_back({i, targets[keys.size() - 1 - std::size_t(i)], 0.0});
    QCOMPARE(placed(keys, moves), places);
}

void TestKeyDragPlan::agreesWithOneByOne()
{
    QRandomGenerator random(7);
    for (int round = 0; round < 3000; ++round) {
        std::vector<VxTime> keys;
        VxTime time = random.bounded(-40, 0);
        for (int i = random.bounded(1, 14); i > 0; --i)
            keys.push_back(time += random.bounded(1, 6));
        const VxTime offset = random.bounded(-25, 25);
        const int step = random.bounded(1, 8);
        std::vector<Move> moves;
        for (int i = 0; i < int(keys.size()); ++i) {
            if (random.bounded(3) > 0)
                moves.push_back({i, draggedTime(keys[std::size_t(i)], offset, step), 0.0});
        }
        if (random.bounded(2))
            std::reverse(moves.begin(), moves.end());
        QCOMPARE(placed(keys, moves), placeOneByOne(keys, moves));
    }
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
        QVector<Move> moves;
        for (int i = 0; i < one.getNumKeys(); ++i) {
            const VxKeyGraphKey &key = oneChannel.getKeyCache().at(i);
            if (key.selected)
                moves.append({i, key.dragStartTime + offset, key.dragStartValue + 1.0});
        }
        if (offset >= 0)
            std::reverse(moves.begin(), moves.end());
        for (const Move &move : qAsConst(moves))
            oneChannel.setKey(move.index, move.time, move.value);
        manyChannel.moveKeys(moves);

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

void TestKeyDragPlan::farEndsDoNotOverflow()
{
    const std::vector<VxTime> keys = {VxTimeMin, 0, VxTimeMax};
    const std::vector<Move> later = {{1, VxTimeMax, 0.0}, {0, VxTimeMax, 0.0}};
    QCOMPARE(placed(keys, later), (std::vector<VxTime>{VxTimeMax - 1, VxTimeMax - 2}));
    const std::vector<Move> earlier = {{1, VxTimeMin, 0.0}, {2, VxTimeMin, 0.0}};
    QCOMPARE(placed(keys, earlier), (std::vector<VxTime>{VxTimeMin + 1, VxTimeMin + 2}));
}

VX_TEST_MAIN(TestKeyDragPlan)
#include "tst_keydragplan.moc"
