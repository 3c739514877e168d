#include "keytracksamples.h"
#include "testing/vxtestmain.h"

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
    void spacing();
    void swapRange_data();
    void swapRange();
    void swapRangeRefusesKeysOutside();
    void copyRange();
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

void tst_KeyTrack::spacing()
{
    auto track = KeyDrawing::track(". a . b . c . d");
    KeyTrack<float> baked = track.copyRange({0, 9});
    QCOMPARE(baked.spacing(), 2);
    QCOMPARE(baked.spacedFrom(), 1);
    KeyDrawing::shift(&baked, 0, baked.count(), -4);
    QCOMPARE(baked.spacing(), 2);
    QCOMPARE(baked.spacedFrom(), -3);
    KeyDrawing::shift(&baked, 3, 4, 1);
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

void tst_KeyTrack::copyRange()
{
    const auto track = KeyDrawing::track("a x y c");
    QCOMPARE(KeyDrawing::text(track.copyRange({1, 2}), 4), QStringLiteral(". x y ."));
    QVERIFY(track.copyRange({2, 1}).isEmpty());
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

VX_TEST_GUILESS_MAIN(tst_KeyTrack)
#include "tst_keytrack.moc"
