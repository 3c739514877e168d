#include "keydrawing.h"
#include "testing/vxwarningguard.h"

#include <QtTest>

namespace {

using Indexes = QVector<int>;
using Times = QVector<VxTime>;

VxKeyShape tcbShape(float tension, float continuity = 0, float bias = 0)
{
    VxKeyShape shape;
    shape.type = VxKeyInterp::Tcb;
    shape.tcb = {tension, continuity, bias};
    return shape;
}

KeyTrack<float> evenTrack(int count, VxTime step = 200)
{
    std::vector<VxTime> times(count);
    std::vector<float> values(count);
    for (int i = 0; i < count; ++i) {
        times[i] = i * step;
        values[i] = float(i);
    }
    KeyTrack<float> track;
    track.insertMany({times.data(), values.data(), nullptr, nullptr, count});
    return track;
}

} // namespace

class tst_KeyTrack : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void find_data();
    void find();
    void findsTheExtremes();
    void set_data();
    void set();
    void insertMany_data();
    void insertMany();
    void insertManyRefusesDisorder();
    void insertManyOfOwnKeys();
    void removeRange_data();
    void removeRange();
    void removeIndexes_data();
    void removeIndexes();
    void removeIndexRangeIsClipped();
    void moveKeys_data();
    void moveKeys();
    void moveKeysRefusesBadIndexes();
    void shiftRange_data();
    void shiftRange();
    void shiftStopsAtTheEndOfTime();
    void setType();
    void setShapeKeepsOrDropsTheColumn();
    void changingTypeKeepsTheTcb();
    void uniformType();
    void spacing();
    void setValuesIsClipped();
    void swapRange_data();
    void swapRange();
    void swapRangeRefusesKeysOutside();
    void replaceRange();
    void integerKeysAreConstant();
    void unknownTypesBecomeLinear();
    void equalityIsByBits();
    void memory();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_KeyTrack::find_data()
{
    QTest::addColumn<QString>("drawing");
    QTest::addColumn<int>("time");
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("lower");
    QTest::addColumn<int>("upper");
    const QString keys = QStringLiteral(". a . b c . d .");
    QTest::newRow("long before the first") << keys << -100 << -1 << 0 << 0;
    QTest::newRow("before the first") << keys << 0 << -1 << 0 << 0;
    QTest::newRow("on the first") << keys << 1 << 0 << 0 << 1;
    QTest::newRow("just after the first") << keys << 2 << -1 << 1 << 1;
    QTest::newRow("on one of a close pair") << keys << 3 << 1 << 1 << 2;
    QTest::newRow("on the other of the pair") << keys << 4 << 2 << 2 << 3;
    QTest::newRow("between two") << keys << 5 << -1 << 3 << 3;
    QTest::newRow("on the last") << keys << 6 << 3 << 3 << 4;
    QTest::newRow("beyond the last") << keys << 7 << -1 << 4 << 4;
    QTest::newRow("no key") << QString() << 0 << -1 << 0 << 0;
    QTest::newRow("one key, before") << "a" << -1 << -1 << 0 << 0;
    QTest::newRow("one key, on it") << "a" << 0 << 0 << 0 << 1;
    QTest::newRow("one key, after") << "a" << 1 << -1 << 1 << 1;
}

void tst_KeyTrack::find()
{
    QFETCH(QString, drawing);
    QFETCH(int, time);
    for (const VxTime first : {0, -1000, VxTimeMin + 200, VxTimeMax - 200}) {
        const auto track = KeyDrawing::track<float>(drawing, first);
        QTEST(track.find(first + time), "found");
        QTEST(track.lowerBound(first + time), "lower");
        QTEST(track.upperBound(first + time), "upper");
    }
}

void tst_KeyTrack::findsTheExtremes()
{
    KeyTrack<float> track;
    track.set(VxTimeMax, 2, {});
    track.set(VxTimeMin, 1, {});
    track.set(0, 3, {});
    QCOMPARE(track.find(VxTimeMin), 0);
    QCOMPARE(track.find(0), 1);
    QCOMPARE(track.find(VxTimeMax), 2);
    QCOMPARE(track.find(VxTimeMax - 1), -1);
    QCOMPARE(track.indexRange(VxTimeRange::all()), std::make_pair(0, 3));
    QCOMPARE(track.indexRange({5, -5}), std::make_pair(2, 2));
    QCOMPARE(track.removeRange(VxTimeRange::all()), 3);
    QVERIFY(track.isEmpty());
}

void tst_KeyTrack::set_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("time");
    QTest::addColumn<QChar>("key");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("index");
    QTest::newRow("into nothing") << ". . ." << 1 << QChar('x') << ". x ." << 0;
    QTest::newRow("before the first") << ". a b" << 0 << QChar('x') << "x a b" << 0;
    QTest::newRow("between") << "a . b" << 1 << QChar('x') << "a x b" << 1;
    QTest::newRow("after the last") << "a b ." << 2 << QChar('x') << "a b x" << 2;
    QTest::newRow("in place of the first") << "a b c" << 0 << QChar('x') << "x b c" << 0;
    QTest::newRow("in place of the last") << "a b c" << 2 << QChar('x') << "a b x" << 2;
    QTest::newRow("smooth among straight") << "a . b" << 1 << QChar('X') << "a X b" << 1;
    QTest::newRow("straight over the only smooth") << "a B c" << 1 << QChar('x') << "a x c" << 1;
    QTest::newRow("straight among smooth") << "A . B" << 1 << QChar('x') << "A x B" << 1;
}

void tst_KeyTrack::set()
{
    QFETCH(QString, before);
    QFETCH(int, time);
    QFETCH(QChar, key);
    auto track = KeyDrawing::track(before);
    QTEST(track.set(time, float(key.unicode()), KeyDrawing::shape(key)), "index");
    QTEST(KeyDrawing::text(track, KeyDrawing::length(before)), "after");
}

void tst_KeyTrack::insertMany_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("after");
    QTest::newRow("nothing into nothing") << ". ."
                                          << ". ."
                                          << ". .";
    QTest::newRow("nothing into keys") << "a b"
                                       << ". ."
                                       << "a b";
    QTest::newRow("into nothing") << ". . ."
                                  << "x . y"
                                  << "x . y";
    QTest::newRow("all before") << ". . a b"
                                << "x y . ."
                                << "x y a b";
    QTest::newRow("all after") << "a b . ."
                               << ". . x y"
                               << "a b x y";
    QTest::newRow("into a gap") << "a . . b"
                                << ". x y ."
                                << "a x y b";
    QTest::newRow("alternating") << "a . b . c"
                                 << ". x . y ."
                                 << "a x b y c";
    QTest::newRow("replacing one") << "a . b . c"
                                   << ". x y . ."
                                   << "a x y . c";
    QTest::newRow("replacing all") << "a b c"
                                   << "x y z"
                                   << "x y z";
    QTest::newRow("around the others") << ". a b ."
                                       << "x . . y"
                                       << "x a b y";
    QTest::newRow("smooth into straight") << "a . b"
                                          << ". X ."
                                          << "a X b";
    QTest::newRow("straight into smooth") << "A . B"
                                          << ". x ."
                                          << "A x B";
    QTest::newRow("straight over the only smooth") << "a B c"
                                                   << ". x ."
                                                   << "a x c";
}

void tst_KeyTrack::insertMany()
{
    QFETCH(QString, before);
    QFETCH(QString, keys);
    QFETCH(QString, after);
    auto track = KeyDrawing::track(before);
    QVERIFY(track.insertMany(KeyDrawing::track(keys).columns()));
    QCOMPARE(KeyDrawing::text(track, KeyDrawing::length(before)), after);
    QVERIFY(track.isIdentical(KeyDrawing::track(after)));
}

void tst_KeyTrack::insertManyRefusesDisorder()
{
    const float values[] = {1, 2, 3};
    const VxTime backwards[] = {4, 6, 5};
    const VxTime twice[] = {4, 4, 5};
    auto track = KeyDrawing::track("a b");
    QVERIFY(!track.insertMany({backwards, values, nullptr, nullptr, 3}));
    QVERIFY(!track.insertMany({twice, values, nullptr, nullptr, 3}));
    QCOMPARE(KeyDrawing::text(track, 2), QStringLiteral("a b"));
    QVERIFY(track.insertMany({}));
    QCOMPARE(track.count(), 2);
}

void tst_KeyTrack::insertManyOfOwnKeys()
{
    auto track = KeyDrawing::track("a B c");
    QVERIFY(track.insertMany(track.columns()));
    QVERIFY(track.insertMany(track.columns(1, 3)));
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("a B c"));
}

void tst_KeyTrack::removeRange_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("removed");
    QTest::newRow("both ends are included") << "a b . c d" << 1 << 3 << "a . . . d" << 2;
    QTest::newRow("free ends") << "a . b . d" << 1 << 3 << "a . . . d" << 1;
    QTest::newRow("one tick") << "a b c" << 1 << 1 << "a . c" << 1;
    QTest::newRow("a free tick") << "a . c" << 1 << 1 << "a . c" << 0;
    QTest::newRow("everything") << "a b c" << -5 << 5 << ". . ." << 3;
    QTest::newRow("the first") << "a b c" << -5 << 0 << ". b c" << 1;
    QTest::newRow("the last") << "a b c" << 2 << 9 << "a b ." << 1;
    QTest::newRow("backwards") << "a b c" << 2 << 0 << "a b c" << 0;
    QTest::newRow("from nothing") << ". ." << 0 << 1 << ". ." << 0;
    QTest::newRow("the only smooth one") << "a B c" << 1 << 1 << "a . c" << 1;
}

void tst_KeyTrack::removeRange()
{
    QFETCH(QString, before);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QString, after);
    auto track = KeyDrawing::track(before);
    QTEST(track.removeRange({start, end}), "removed");
    QCOMPARE(KeyDrawing::text(track, KeyDrawing::length(before)), after);
    QVERIFY(track.isIdentical(KeyDrawing::track(after)));
}

void tst_KeyTrack::removeIndexes_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<Indexes>("indexes");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("removed");
    QTest::newRow("none") << "a b c" << Indexes{} << "a b c" << 0;
    QTest::newRow("every other") << "a b c d" << Indexes{0, 2} << ". b . d" << 2;
    QTest::newRow("the last") << "a b c" << Indexes{2} << "a b ." << 1;
    QTest::newRow("all") << "a b c" << Indexes{0, 1, 2} << ". . ." << 3;
    QTest::newRow("the smooth ones") << "a B c D" << Indexes{1, 3} << "a . c ." << 2;
    QTest::newRow("smooth ones stay") << "a B c D" << Indexes{0, 2} << ". B . D" << 2;
    QTest::newRow("twice the same") << "a b c" << Indexes{1, 1} << "a b c" << -1;
    QTest::newRow("backwards") << "a b c" << Indexes{2, 1} << "a b c" << -1;
    QTest::newRow("below the first") << "a b c" << Indexes{-1, 1} << "a b c" << -1;
    QTest::newRow("beyond the last") << "a b c" << Indexes{1, 3} << "a b c" << -1;
}

void tst_KeyTrack::removeIndexes()
{
    QFETCH(QString, before);
    QFETCH(Indexes, indexes);
    QFETCH(QString, after);
    auto track = KeyDrawing::track(before);
    QTEST(track.removeIndexes(indexes.constData(), indexes.size()), "removed");
    QCOMPARE(KeyDrawing::text(track, KeyDrawing::length(before)), after);
    QVERIFY(track.isIdentical(KeyDrawing::track(after)));
}

void tst_KeyTrack::removeIndexRangeIsClipped()
{
    auto track = KeyDrawing::track("a b c d");
    QCOMPARE(track.removeIndexRange(2, 1), 0);
    QCOMPARE(track.removeIndexRange(-4, 1), 1);
    QCOMPARE(track.removeIndexRange(2, 50), 1);
    QCOMPARE(KeyDrawing::text(track, 4), QStringLiteral(". b c ."));
}

void tst_KeyTrack::moveKeys_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<Indexes>("indexes");
    QTest::addColumn<Times>("times");
    QTest::addColumn<QString>("after");
    QTest::addColumn<Indexes>("landed");
    QTest::newRow("none") << "a b c" << Indexes{} << Times{} << "a b c" << Indexes{};
    QTest::newRow("into free ticks")
        << "a b . . c" << Indexes{0, 1} << Times{2, 3} << ". . a b c" << Indexes{0, 1};
    QTest::newRow("onto an unselected key")
        << "a b . c" << Indexes{0, 1} << Times{2, 3} << ". . a b" << Indexes{0, 1};
    QTest::newRow("onto another selected key")
        << "a b c ." << Indexes{0, 1, 2} << Times{1, 2, 3} << ". a b c" << Indexes{0, 1, 2};
    QTest::newRow("past an unselected key")
        << "a b . ." << Indexes{0} << Times{2} << ". b a ." << Indexes{1};
    QTest::newRow("earlier past several")
        << ". a b c D" << Indexes{3} << Times{0} << "D a b c ." << Indexes{0};
    QTest::newRow("interleaved") << "a b c d ." << Indexes{0, 2} << Times{2, 4} << ". b a d c"
                                 << Indexes{1, 3};
    QTest::newRow("order reversed")
        << "a b c" << Indexes{0, 2} << Times{2, 0} << "c b a" << Indexes{2, 0};
    QTest::newRow("two to one tick, the later stays")
        << "a b c ." << Indexes{0, 1} << Times{3, 3} << ". . c b" << Indexes{-1, 1};
    QTest::newRow("two to one tick, out of order")
        << "a b c ." << Indexes{0, 1, 2} << Times{3, 1, 3} << ". b . c" << Indexes{-1, 0, 1};
    QTest::newRow("where it stands") << "a b c" << Indexes{1} << Times{1} << "a b c" << Indexes{1};
    QTest::newRow("the only smooth key is replaced")
        << "a B c" << Indexes{0} << Times{1} << ". a c" << Indexes{0};
}

void tst_KeyTrack::moveKeys()
{
    QFETCH(QString, before);
    QFETCH(Indexes, indexes);
    QFETCH(Times, times);
    QFETCH(QString, after);
    auto track = KeyDrawing::track(before);
    std::vector<int> landed;
    QVERIFY(track.moveKeys(indexes.constData(), times.constData(), indexes.size(), &landed));
    QCOMPARE(KeyDrawing::text(track, KeyDrawing::length(before)), after);
    QVERIFY(track.isIdentical(KeyDrawing::track(after)));
    QTEST(Indexes(landed.begin(), landed.end()), "landed");
}

void tst_KeyTrack::moveKeysRefusesBadIndexes()
{
    auto track = KeyDrawing::track("a b c");
    const VxTime times[] = {7, 8};
    for (const Indexes &bad : {Indexes{1, 1}, Indexes{1, 0}, Indexes{-1, 1}, Indexes{0, 3}})
        QVERIFY(!track.moveKeys(bad.constData(), times, 2));
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("a b c"));
}

void tst_KeyTrack::shiftRange_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("after");
    QTest::newRow("later, free") << "a b . . c" << 0 << 2 << 2 << ". . a b c";
    QTest::newRow("earlier, free") << "a . . b c" << 1 << 3 << -2 << "a b c . .";
    QTest::newRow("onto a key") << "a b c ." << 0 << 2 << 1 << ". a b .";
    QTest::newRow("over a key") << "a b c . ." << 0 << 2 << 3 << ". . c a b";
    QTest::newRow("earlier over a key") << ". . a b c" << 1 << 3 << -3 << "b c a . .";
    QTest::newRow("all") << "a b c . ." << 0 << 3 << 2 << ". . a b c";
    QTest::newRow("range beyond the keys") << "a b ." << -3 << 9 << 1 << ". a b";
    QTest::newRow("empty range") << "a b ." << 1 << 1 << 1 << "a b .";
    QTest::newRow("by nothing") << "a b ." << 0 << 2 << 0 << "a b .";
}

void tst_KeyTrack::shiftRange()
{
    QFETCH(QString, before);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, offset);
    auto track = KeyDrawing::track(before);
    QCOMPARE(track.shiftRange(first, last, offset), qint64(first < last ? offset : 0));
    QTEST(KeyDrawing::text(track, KeyDrawing::length(before)), "after");
}

void tst_KeyTrack::shiftStopsAtTheEndOfTime()
{
    auto track = KeyDrawing::track("a . b");
    QCOMPARE(track.shiftAll(qint64(1) << 40), qint64(VxTimeMax) - 2);
    QCOMPARE(track.time(0), VxTimeMax - 2);
    QCOMPARE(track.time(1), VxTimeMax);
    QCOMPARE(track.shiftAll(-(qint64(1) << 40)), qint64(VxTimeMin) - VxTimeMax + 2);
    QCOMPARE(track.time(0), VxTimeMin);
    QCOMPARE(track.time(1), VxTimeMin + 2);
    QCOMPARE(KeyTrack<float>().shiftAll(5), qint64(0));
}

void tst_KeyTrack::setType()
{
    auto track = KeyDrawing::track("a b c d");
    QCOMPARE(track.setType(1, 3, VxKeyInterp::Constant), 2);
    QCOMPARE(track.setType(0, 4, VxKeyInterp::Constant), 2);
    QCOMPARE(track.setType(-5, 99, VxKeyInterp::Constant), 0);
    const int some[] = {0, 3};
    QCOMPARE(track.setType(some, 2, VxKeyInterp::Tcb), 2);
    QCOMPARE(track.setType(some, 2, VxKeyInterp::Tcb), 0);
    const quint8 expected[] = {2, 1, 1, 2};
    QVERIFY(std::equal(expected, expected + 4, track.columns().types));
    const int bad[] = {3, 0};
    QCOMPARE(track.setType(bad, 2, VxKeyInterp::Linear), -1);
    QCOMPARE(track.setShape(bad, 2, {}), -1);
    QVERIFY(std::equal(expected, expected + 4, track.columns().types));
}

void tst_KeyTrack::setShapeKeepsOrDropsTheColumn()
{
    auto track = KeyDrawing::track("a b c d");
    QVERIFY(!track.columns().tcb);
    QCOMPARE(track.setShape(0, 4, tcbShape(0)), 4);
    QVERIFY(!track.columns().tcb); // smooth without any shaping needs no room
    const int some[] = {1, 2};
    QCOMPARE(track.setShape(some, 2, tcbShape(0.25F, -1, 3)), 2);
    QVERIFY(track.columns().tcb);
    QCOMPARE(track.tcb(0), VxTcb());
    QCOMPARE(track.tcb(2), (VxTcb{0.25F, -1, 3}));
    QCOMPARE(track.setShape(2, 3, tcbShape(0)), 1);
    QVERIFY(track.columns().tcb);
    QCOMPARE(track.setShape(0, 4, tcbShape(0)), 1);
    QVERIFY(!track.columns().tcb);
}

void tst_KeyTrack::changingTypeKeepsTheTcb()
{
    auto track = KeyDrawing::track("a B c");
    QCOMPARE(track.setType(0, 3, VxKeyInterp::Linear), 1);
    QCOMPARE(track.tcb(1).tension, 0.5F);
    QCOMPARE(track.setType(1, 2, VxKeyInterp::Tcb), 1);
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("a B c"));
}

void tst_KeyTrack::uniformType()
{
    auto track = KeyDrawing::track("a b c");
    QCOMPARE(track.uniformType(), quint8(VxKeyInterp::Linear));
    track.setType(1, 3, VxKeyInterp::Constant);
    QCOMPARE(track.uniformType(), MixedKeyTypes);
    track.setType(0, 1, VxKeyInterp::Constant);
    QCOMPARE(track.uniformType(), quint8(VxKeyInterp::Constant));
    auto smooth = KeyDrawing::track(". X .");
    QVERIFY(track.swapRange({1, 1}, smooth));
    QCOMPARE(track.uniformType(), MixedKeyTypes);
    QCOMPARE(smooth.uniformType(), quint8(VxKeyInterp::Constant));
    QVERIFY(track.swapRange({1, 1}, smooth));
    QCOMPARE(track.uniformType(), quint8(VxKeyInterp::Constant));
    track.set(1, 'x', {VxKeyInterp::Linear, {}});
    QCOMPARE(track.uniformType(), MixedKeyTypes);
    track.clear();
    track.set(1, 'x', {VxKeyInterp::Tcb, {}});
    QCOMPARE(track.uniformType(), quint8(VxKeyInterp::Tcb));
}

void tst_KeyTrack::spacing()
{
    auto track = KeyDrawing::track(". a . b . c . d");
    KeyTrack<float> baked = track.copyRange({0, 9});
    QCOMPARE(baked.spacing(), 2);
    QCOMPARE(baked.spacedFrom(), 1);
    QCOMPARE(baked.shiftAll(-4), qint64(-4));
    QCOMPARE(baked.spacing(), 2);
    QCOMPARE(baked.spacedFrom(), -3);
    baked.shiftRange(3, 4, 1);
    QCOMPARE(baked.spacing(), 0);
    baked.removeIndexRange(3, 4);
    QCOMPARE(baked.spacing(), 2);
    baked.set(-2, 1.0f, {});
    QCOMPARE(baked.spacing(), 0);
    const int added[] = {1};
    baked.removeIndexes(added, 1);
    QCOMPARE(baked.spacing(), 2);
    baked.removeIndexRange(0, 2);
    QCOMPARE(baked.spacing(), 0);
    KeyTrack<float> wide;
    wide.set(VxTimeMin, 1.0f, {});
    wide.set(VxTimeMax, 2.0f, {});
    QCOMPARE(wide.copyRange(VxTimeRange::all()).spacing(), 0);
}

void tst_KeyTrack::setValuesIsClipped()
{
    const float values[] = {'w', 'x', 'y', 'z'};
    auto track = KeyDrawing::track("a b c");
    track.setValues(1, values, 2);
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("a w x"));
    track.setValues(-2, values, 4);
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("y z x"));
    track.setValues(2, values, 4);
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("y z w"));
    track.setValues(3, values, 4);
    track.setValues(VxTimeMax, values, 4);
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("y z w"));
}

void tst_KeyTrack::swapRange_data()
{
    QTest::addColumn<QString>("mine");
    QTest::addColumn<QString>("other");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("mineAfter");
    QTest::addColumn<QString>("otherAfter");
    QTest::newRow("as many") << "a b . c"
                             << ". . x ." << 1 << 2 << "a . x c"
                             << ". b . .";
    QTest::newRow("more") << "a b . c"
                          << ". x y ." << 1 << 2 << "a x y c"
                          << ". b . .";
    QTest::newRow("fewer") << "a b c d"
                           << ". . x ." << 1 << 2 << "a . x d"
                           << ". b c .";
    QTest::newRow("none for some") << "a b c d"
                                   << ". . . ." << 1 << 2 << "a . . d"
                                   << ". b c .";
    QTest::newRow("some for none") << "a . . d"
                                   << ". x y ." << 1 << 2 << "a x y d"
                                   << ". . . .";
    QTest::newRow("everything") << "a b c d"
                                << ". x . ." << -9 << 9 << ". x . ."
                                << "a b c d";
    QTest::newRow("smooth for straight") << "a b c d"
                                         << ". X y ." << 1 << 2 << "a X y d"
                                         << ". b c .";
    QTest::newRow("straight for all smooth") << "a B c d"
                                             << ". x . ." << 1 << 1 << "a x c d"
                                             << ". B . .";
    QTest::newRow("smooth stay") << "A b c"
                                 << ". x ." << 1 << 1 << "A x c"
                                 << ". b .";
    QTest::newRow("smooth against none") << "A b c"
                                         << ". . ." << 1 << 1 << "A . c"
                                         << ". b .";
}

void tst_KeyTrack::swapRange()
{
    QFETCH(QString, mine);
    QFETCH(QString, other);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QString, mineAfter);
    QFETCH(QString, otherAfter);
    auto track = KeyDrawing::track(mine);
    auto swapped = KeyDrawing::track(other);
    QVERIFY(track.swapRange({start, end}, swapped));
    QVERIFY(track.isIdentical(KeyDrawing::track(mineAfter)));
    QVERIFY(swapped.isIdentical(KeyDrawing::track(otherAfter)));
    QVERIFY(track.swapRange({start, end}, swapped));
    QVERIFY(track.isIdentical(KeyDrawing::track(mine)));
    QVERIFY(swapped.isIdentical(KeyDrawing::track(other)));
}

void tst_KeyTrack::swapRangeRefusesKeysOutside()
{
    auto track = KeyDrawing::track("a b c");
    auto other = KeyDrawing::track(". x y");
    QVERIFY(!track.swapRange({0, 1}, other));
    QVERIFY(!track.swapRange({2, 2}, other));
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("a b c"));
    QCOMPARE(KeyDrawing::text(other, 3), QStringLiteral(". x y"));
}

void tst_KeyTrack::replaceRange()
{
    auto track = KeyDrawing::track("a b . c");
    bool accepted = false;
    const auto taken =
        track.replaceRange({1, 2}, KeyDrawing::track(". x y .").columns(), &accepted);
    QVERIFY(accepted);
    QCOMPARE(KeyDrawing::text(track, 4), QStringLiteral("a x y c"));
    QCOMPARE(KeyDrawing::text(taken, 4), QStringLiteral(". b . ."));
    const auto none = track.replaceRange({1, 1}, KeyDrawing::track(". z z .").columns(), &accepted);
    QVERIFY(!accepted);
    QVERIFY(none.isEmpty());
    QCOMPARE(KeyDrawing::text(track, 4), QStringLiteral("a x y c"));
    QCOMPARE(KeyDrawing::text(track.copyRange({1, 2}), 4), QStringLiteral(". x y ."));
    QVERIFY(track.copyRange({2, 1}).isEmpty());
}

void tst_KeyTrack::integerKeysAreConstant()
{
    KeyTrack<qint32> track;
    track.set(0, 5, tcbShape(1));
    track.insertMany(KeyDrawing::track<qint32>(". A b").columns());
    track.setType(0, 3, VxKeyInterp::Linear);
    track.setShape(0, 3, tcbShape(1));
    const quint8 types[] = {VxKeyInterp::Tcb};
    const VxTcb tcb[] = {{1, 1, 1}};
    const VxTime time = 7;
    const qint32 value = 70;
    track.insertMany({&time, &value, types, tcb, 1});
    QCOMPARE(track.count(), 4);
    for (int i = 0; i < track.count(); ++i)
        QCOMPARE(track.type(i), quint8(VxKeyInterp::Constant));
    QVERIFY(!track.columns().tcb);
    QCOMPARE(track.setType(0, 4, VxKeyInterp::Linear), 0);
    QCOMPARE(track.setShape(0, 4, tcbShape(1)), 0);
}

void tst_KeyTrack::unknownTypesBecomeLinear()
{
    auto track = KeyDrawing::track("a b");
    track.setType(0, 2, VxKeyInterp::Constant);
    VxKeyShape unknown;
    unknown.type = 77;
    track.set(0, 'a', unknown);
    QCOMPARE(track.type(0), quint8(VxKeyInterp::Linear));
    QCOMPARE(track.setType(1, 2, 3), 1);
    QCOMPARE(track.type(1), quint8(VxKeyInterp::Linear));
    const quint8 types[] = {200, 2};
    const VxTime times[] = {4, 5};
    const float values[] = {1, 2};
    track.insertMany({times, values, types, nullptr, 2});
    QCOMPARE(track.type(2), quint8(VxKeyInterp::Linear));
    QCOMPARE(track.type(3), quint8(VxKeyInterp::Tcb));
}

void tst_KeyTrack::equalityIsByBits()
{
    KeyTrack<float> a;
    KeyTrack<float> b;
    a.set(0, std::numeric_limits<float>::quiet_NaN(), {});
    b.set(0, std::numeric_limits<float>::quiet_NaN(), {});
    QVERIFY(a.isIdentical(b));
    QVERIFY(a.isSameKey(0, b, 0));
    a.set(0, 0.0F, {});
    b.set(0, -0.0F, {});
    QVERIFY(!a.isIdentical(b));
    QVERIFY(!a.isSameKey(0, b, 0));
    b.set(0, 0.0F, tcbShape(-0.0F));
    a.set(0, 0.0F, tcbShape(0));
    QVERIFY(!a.isIdentical(b));
    a.set(0, 0.0F, tcbShape(-0.0F));
    QVERIFY(a.isIdentical(b));
}

void tst_KeyTrack::memory()
{
    const int count = 3000;
    auto track = evenTrack(count);
    QCOMPARE(track.memoryBytes(), size_t(9 * count));
    track.insertMany(evenTrack(count, 100).columns());
    QVERIFY(track.memoryBytes() <= size_t(16 * track.count()));

    KeyTrack<float> single;
    for (int i = 0; i < count; ++i) {
        single.set(i, 1, {});
        QVERIFY(i < 8 || single.memoryBytes() <= size_t(16 * single.count()));
    }
    while (single.count() > 8) {
        single.removeIndexRange(single.count() - 1, single.count());
        QVERIFY(single.memoryBytes() <= size_t(16 * single.count()));
    }
    track.removeRange({100, 200 * count});
    QVERIFY(track.memoryBytes() <= 64);

    auto shaped = evenTrack(count);
    shaped.setShape(0, count, tcbShape(1));
    QVERIFY(shaped.memoryBytes() > size_t(20 * count));
    shaped.setShape(0, count, {});
    QVERIFY(shaped.memoryBytes() <= size_t(16 * count));
}

QTEST_GUILESS_MAIN(tst_KeyTrack)
#include "tst_keytrack.moc"
