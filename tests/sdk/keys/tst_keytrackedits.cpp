// Keys that are moved, and change their shapes.

#include "keytracksamples.h"
#include "testing/vxtestmain.h"

class tst_KeyTrackEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }
    void moveKeys_data();
    void moveKeys();
    void moveKeysRefusesBadIndexes();
    void movesRanges_data();
    void movesRanges();
    void shiftStopsAtTheEndOfTime();
    void setType();
    void setShapeKeepsOrDropsTheColumn();
    void changingTypeKeepsTheTcb();
    void uniformType();
    void setValuesIsClipped();
    void integerKeysAreConstant();
    void unknownTypesBecomeLinear();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_KeyTrackEdits::moveKeys_data()
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
    QTest::newRow("at its own time") << "a b c" << Indexes{1} << Times{1} << "a b c" << Indexes{1};
    QTest::newRow("the only smooth key is replaced")
        << "a B c" << Indexes{0} << Times{1} << ". a c" << Indexes{0};
}

void tst_KeyTrackEdits::moveKeys()
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

void tst_KeyTrackEdits::moveKeysRefusesBadIndexes()
{
    auto track = KeyDrawing::track("a b c");
    const VxTime times[] = {7, 8};
    for (const Indexes &bad : {Indexes{1, 1}, Indexes{1, 0}, Indexes{-1, 1}, Indexes{0, 3}})
        QVERIFY(!track.moveKeys(bad.constData(), times, 2));
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("a b c"));
}

void tst_KeyTrackEdits::movesRanges_data()
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

void tst_KeyTrackEdits::movesRanges()
{
    QFETCH(QString, before);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, offset);
    auto track = KeyDrawing::track(before);
    KeyDrawing::shift(&track, first, last, offset);
    QTEST(KeyDrawing::text(track, KeyDrawing::length(before)), "after");
}

void tst_KeyTrackEdits::shiftStopsAtTheEndOfTime()
{
    auto track = KeyDrawing::track("a . b");
    KeyDrawing::shift(&track, 0, track.count(), qint64(1) << 40);
    QCOMPARE(track.time(0), VxTimeMax - 2);
    QCOMPARE(track.time(1), VxTimeMax);
    KeyDrawing::shift(&track, 0, track.count(), -(qint64(1) << 40));
    QCOMPARE(track.time(0), VxTimeMin);
    QCOMPARE(track.time(1), VxTimeMin + 2);
}

void tst_KeyTrackEdits::setType()
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

void tst_KeyTrackEdits::setShapeKeepsOrDropsTheColumn()
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

void tst_KeyTrackEdits::changingTypeKeepsTheTcb()
{
    auto track = KeyDrawing::track("a B c");
    QCOMPARE(track.setType(0, 3, VxKeyInterp::Linear), 1);
    QCOMPARE(track.tcb(1).tension, 0.5F);
    QCOMPARE(track.setType(1, 2, VxKeyInterp::Tcb), 1);
    QCOMPARE(KeyDrawing::text(track, 3), QStringLiteral("a B c"));
}

void tst_KeyTrackEdits::uniformType()
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

void tst_KeyTrackEdits::setValuesIsClipped()
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

void tst_KeyTrackEdits::integerKeysAreConstant()
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

void tst_KeyTrackEdits::unknownTypesBecomeLinear()
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

VX_TEST_GUILESS_MAIN(tst_KeyTrackEdits)
#include "tst_keytrackedits.moc"
