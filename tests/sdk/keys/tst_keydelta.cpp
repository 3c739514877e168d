#include "keydrawing.h"
#include "keys/keydelta.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <random>
#include <set>

namespace {

KeyTrack<float> manyKeys(int count)
{
    KeyTrack<float> track;
    for (int i = 0; i < count; ++i)
        track.set(i * 10, float(i), {});
    return track;
}

} // namespace

class tst_KeyDelta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void untouchedIsEmpty();
    void editsAsDrawn_data();
    void editsAsDrawn();
    void trimRemovesUnchangedKeys();
    void trimNarrowsToTheDifference();
    void keysOutsideMayChange();
    void wholeRangeOfTime();
    void memoryFollowsTheChange();
    void manySmallStepsStayCheap();
    void randomEditsFloat();
    void randomEditsInt();

private:
    template <class V> void randomEdits(unsigned seed);

    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_KeyDelta::untouchedIsEmpty()
{
    KeyDelta<float> delta;
    auto track = KeyDrawing::track("a b");
    QVERIFY(delta.isEmpty());
    delta.trim(track);
    delta.swap(track);
    delta.touch(track, {1, 0}); // backwards: no time at all
    QVERIFY(delta.isEmpty());
    QCOMPARE(KeyDrawing::text(track, 2), QStringLiteral("a b"));
}

void tst_KeyDelta::editsAsDrawn_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("after"); // equal to before outside of start..end
    QTest::addColumn<int>("trimmedStart");
    QTest::addColumn<int>("trimmedEnd");
    QTest::newRow("a key set") << "a . c" << 1 << 1 << "a x c" << 1 << 1;
    QTest::newRow("a key replaced") << "a b c" << 1 << 1 << "a x c" << 1 << 1;
    QTest::newRow("a key reshaped") << "x B c" << 1 << 1 << "x b c" << 1 << 1;
    QTest::newRow("a key removed") << "a b c" << 0 << 2 << "a . c" << 1 << 1;
    QTest::newRow("a key moved") << "a b . . c" << 1 << 3 << "a . . b c" << 1 << 3;
    QTest::newRow("keys into nothing") << ". . ." << 0 << 2 << "x . y" << 0 << 2;
    QTest::newRow("all keys removed") << "a b c" << -9 << 9 << ". . ." << 0 << 2;
    QTest::newRow("two at the ends") << "a b c d" << 0 << 3 << "x b c y" << 0 << 3;
    QTest::newRow("touched wide, changed narrow") << "a b c d" << -9 << 9 << "a b x d" << 2 << 2;
    QTest::newRow("replaced earlier and later") << "a b c d" << 0 << 3 << "x . c d" << 0 << 1;
    QTest::newRow("equal keys in front") << "a . a a" << 0 << 3 << "a a . a" << 1 << 2;
}

void tst_KeyDelta::editsAsDrawn()
{
    QFETCH(QString, before);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QString, after);
    const auto state0 = KeyDrawing::track(before);
    const auto state1 = KeyDrawing::track(after);
    auto track = state0;
    KeyDelta<float> delta;
    delta.touch(track, {start, end});
    auto part = state1.copyRange({start, end});
    QVERIFY(track.swapRange({start, end}, part));
    QVERIFY(track.isIdentical(state1));
    delta.trim(track);
    QVERIFY(!delta.isEmpty());
    QTEST(delta.range().getStart(), "trimmedStart");
    QTEST(delta.range().getEnd(), "trimmedEnd");
    for (int round = 0; round < 2; ++round) {
        delta.swap(track);
        QVERIFY(track.isIdentical(state0));
        delta.swap(track);
        QVERIFY(track.isIdentical(state1));
    }
}

void tst_KeyDelta::trimRemovesUnchangedKeys()
{
    auto track = KeyDrawing::track("a B c");
    KeyDelta<float> delta;
    delta.touch(track, {0, 2});
    track.setShape(0, 3, {});
    track.removeRange({0, 1});
    track.insertMany(KeyDrawing::track("a B c").columns());
    delta.trim(track);
    QVERIFY(delta.isEmpty());
    QCOMPARE(delta.keys().count(), 0);
    // A span without any key, before and after.
    delta.touch(track, {50, 60});
    QVERIFY(!delta.isEmpty());
    delta.trim(track);
    QVERIFY(delta.isEmpty());
}

void tst_KeyDelta::trimNarrowsToTheDifference()
{
    auto track = manyKeys(1000);
    KeyDelta<float> delta;
    delta.touch(track, {0, 9990});
    track.set(5000, -1, {});
    track.set(5005, -2, {});
    delta.trim(track);
    QCOMPARE(delta.range(), VxTimeRange(5000, 5005));
    QCOMPARE(delta.keys().count(), 1);
    QVERIFY(delta.memoryBytes() < 500);
}

void tst_KeyDelta::keysOutsideMayChange()
{
    auto track = KeyDrawing::track("a b c d e");
    KeyDelta<float> delta;
    delta.touch(track, {2, 2});
    track.removeRange({2, 2});
    delta.trim(track);
    track.removeRange({0, 1}); // not recorded
    track.set(4, 'x', {});
    track.set(9, 'y', {});
    delta.swap(track);
    QCOMPARE(KeyDrawing::text(track, 10), QStringLiteral(". . c d x . . . . y"));
    track.set(3, 'z', {});
    delta.swap(track);
    QCOMPARE(KeyDrawing::text(track, 10), QStringLiteral(". . . z x . . . . y"));
}

void tst_KeyDelta::wholeRangeOfTime()
{
    KeyTrack<float> track;
    track.set(VxTimeMin, 1, {});
    track.set(0, 2, {});
    track.set(VxTimeMax, 3, {});
    const auto start = track;
    KeyDelta<float> delta;
    for (const VxTime time : {0, VxTimeMax, VxTimeMin}) {
        delta.touch(track, {time, time});
        track.set(time, 9, {});
    }
    delta.trim(track);
    QCOMPARE(delta.range(), VxTimeRange::all());
    delta.swap(track);
    QVERIFY(track.isIdentical(start));
}

void tst_KeyDelta::memoryFollowsTheChange()
{
    auto track = manyKeys(10000);
    KeyDelta<float> delta;
    delta.touch(track, {1000, 1990});
    track.removeRange({1000, 1990});
    delta.trim(track);
    QCOMPARE(delta.keys().count(), 100);
    QVERIFY(delta.memoryBytes() <= sizeof(delta) + 16 * 100);
}

void tst_KeyDelta::manySmallStepsStayCheap()
{
    // From the last key to the first and back, one key a step. The span grows in few large steps,
    // for each of them copies what it holds.
    const int count = 10000;
    auto track = manyKeys(count);
    const auto start = track;
    std::set<int> sizes;
    KeyDelta<float> back;
    for (int i = count - 1; i >= 0; --i) {
        back.touch(track, {track.time(i), track.time(i)});
        track.removeIndexRange(i, i + 1);
        sizes.insert(back.keys().count());
    }
    QVERIFY(sizes.size() < 40);
    back.trim(track);
    QCOMPARE(back.keys().count(), count);
    back.swap(track);
    QVERIFY(track.isIdentical(start));

    sizes.clear();
    KeyDelta<float> onward;
    for (int i = 0; i < count; ++i) {
        onward.touch(track, {track.time(i), track.time(i)});
        track.setType(i, i + 1, VxKeyInterp::Constant);
        sizes.insert(onward.keys().count());
    }
    QVERIFY(sizes.size() < 40);
    onward.trim(track);
    QCOMPARE(onward.keys().count(), count);
    onward.swap(track);
    QVERIFY(track.isIdentical(start));
}

template <class V> void tst_KeyDelta::randomEdits(unsigned seed)
{
    std::mt19937 random(seed);
    const auto number = [&random](int from, int to) {
        return std::uniform_int_distribution<>(from, to)(random);
    };
    const auto shape = [&number] {
        const float tension = number(0, 2) == 0 ? float(number(-1, 1)) : 0;
        return VxKeyShape{quint8(number(0, 2)), {tension, 0, 0}};
    };
    KeyTrack<V> track;
    for (int round = 0; round < 4000; ++round) {
        const auto before = track;
        KeyDelta<V> delta;
        for (int edit = number(1, 5); edit > 0; --edit) {
            const VxTime a = number(-40, 40);
            const VxTime b = a + number(0, 12);
            const auto [first, last] = track.indexRange({a, b});
            switch (number(0, 5)) {
            case 0:
                delta.touch(track, {a, a});
                track.set(a, V(number(0, 9)), shape());
                break;
            case 1:
                delta.touch(track, {a, b});
                track.removeRange({a, b});
                break;
            case 2: {
                KeyTrack<V> keys;
                for (VxTime time = a; time <= b; time += number(1, 4))
                    keys.set(time, V(number(0, 9)), shape());
                delta.touch(track, {a, b});
                track.insertMany(keys.columns());
                break;
            }
            case 3: {
                const VxTime offset = number(-10, 10);
                delta.touch(track, {std::min(a, a + offset), std::max(b, b + offset)});
                KeyDrawing::shift(&track, first, last, offset);
                break;
            }
            case 4:
                delta.touch(track, {a, b});
                track.setShape(first, last, shape());
                break;
            default: // a step of its own for each key, from the last to the first
                for (int i = last - 1; i >= first; --i) {
                    delta.touch(track, {track.time(i), track.time(i)});
                    track.removeIndexRange(i, i + 1);
                }
            }
        }
        const auto after = track;
        if (round % 2 == 0)
            delta.trim(track);
        const QByteArray where = "round " + QByteArray::number(round);
        if (round % 2 == 0)
            QVERIFY2(delta.isEmpty() == before.isIdentical(after), where.constData());
        delta.swap(track);
        QVERIFY2(track.isIdentical(before), where.constData());
        delta.swap(track);
        QVERIFY2(track.isIdentical(after), where.constData());
    }
}

void tst_KeyDelta::randomEditsFloat()
{
    randomEdits<float>(11);
}
void tst_KeyDelta::randomEditsInt()
{
    randomEdits<qint32>(12);
}

VX_TEST_GUILESS_MAIN(tst_KeyDelta)
#include "tst_keydelta.moc"
