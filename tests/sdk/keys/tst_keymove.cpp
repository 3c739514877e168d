#include "keydrawing.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <random>
#include <set>
#include <vxcore/vxkeymove.h>

namespace {

using Indexes = QVector<int>;

std::vector<VxTime> plan(const KeyTrack<float> &track, const std::vector<int> &selected,
                         const std::vector<VxTime> &origins, qint64 offset, VxKeyMoveRule rule)
{
    VxKeyMove move;
    const auto keys = track.columns();
    move.times = keys.times;
    move.count = keys.count;
    move.selected = selected.data();
    move.origins = origins.data();
    move.selectedCount = int(selected.size());
    move.offset = offset;
    move.rule = rule;
    return vxPlanKeyMove(move);
}

std::vector<VxTime> timesOf(const KeyTrack<float> &track, const std::vector<int> &selected)
{
    std::vector<VxTime> times;
    for (int i : selected)
        times.push_back(track.time(i));
    return times;
}

// The rule taken word by word: the key furthest in the direction of the move first, each one tick
// back at a time until its place is free.
std::vector<VxTime> naiveWaiting(const KeyTrack<float> &track, const std::vector<int> &selected,
                                 const std::vector<VxTime> &origins, int offset)
{
    std::set<VxTime> taken;
    for (int i = 0; i < track.count(); ++i) {
        if (std::find(selected.begin(), selected.end(), i) == selected.end())
            taken.insert(track.time(i));
    }
    std::vector<VxTime> result(selected.size());
    for (size_t step = 0; step < selected.size(); ++step) {
        const size_t k = offset >= 0 ? selected.size() - 1 - step : step;
        VxTime time = origins[k] + offset;
        while (taken.count(time))
            time += offset >= 0 ? -1 : 1;
        taken.insert(time);
        result[k] = time;
    }
    return result;
}

} // namespace

class tst_KeyMove : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void rules_data();
    void rules();
    void aDragNeverAddsUp();
    void nothingSelected();
    void stopsAtTheEndOfTime();
    void noPlaceToWait();
    void againstTheWordedRule();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_KeyMove::rules_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<Indexes>("selected");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("waiting");
    QTest::addColumn<QString>("replacing");
    QTest::newRow("no offset") << "a b c" << Indexes{1} << 0 << "a b c"
                               << "a b c";
    QTest::newRow("free tick") << "a . b" << Indexes{0} << 1 << ". a b"
                               << ". a b";
    QTest::newRow("onto a key") << "a . b" << Indexes{0} << 2 << ". a b"
                                << ". . a";
    QTest::newRow("past a key") << "a . b ." << Indexes{0} << 3 << ". . b a"
                                << ". . b a";
    QTest::newRow("earlier onto a key") << "a . b" << Indexes{1} << -2 << "a b ."
                                        << "b . .";
    QTest::newRow("earlier past a key") << ". a . b" << Indexes{1} << -3 << "b a . ."
                                        << "b a . .";
    QTest::newRow("two, the leading one waits") << "a b . c" << Indexes{0, 1} << 2 << ". a b c"
                                                << ". . a b";
    QTest::newRow("two, the following one waits") << "a b c ." << Indexes{0, 1} << 2 << ". a c b"
                                                  << ". . a b";
    QTest::newRow("a wall of keys") << "a . c d e" << Indexes{0} << 4 << ". a c d e"
                                    << ". . c d a";
    QTest::newRow("a wall right beside") << "a b c d" << Indexes{0} << 3 << "a b c d"
                                         << ". b c a";
    QTest::newRow("two before a wall") << "a b c d ." << Indexes{0, 1} << 2 << "a b c d ."
                                       << ". . a b .";
    QTest::newRow("into each other's places") << "a b c ." << Indexes{0, 1, 2} << 1 << ". a b c"
                                              << ". a b c";
    QTest::newRow("selected on both sides of a key")
        << "a b c . ." << Indexes{0, 2} << 1 << "a b . c ."
        << ". a . c .";
    QTest::newRow("earlier, a wall") << "a b c . d" << Indexes{3} << -4 << "a b c d ."
                                     << "d b c . .";
}

void tst_KeyMove::rules()
{
    QFETCH(QString, before);
    QFETCH(Indexes, selected);
    QFETCH(int, offset);
    const std::vector<int> indexes(selected.begin(), selected.end());
    const auto start = KeyDrawing::track(before);
    const auto origins = timesOf(start, indexes);

    auto preview = start;
    auto times = plan(start, indexes, origins, offset, VxKeyMoveRule::WaitBeside);
    QVERIFY(preview.moveKeys(indexes.data(), times.data(), int(indexes.size())));
    QCOMPARE(preview.count(), start.count());
    QTEST(KeyDrawing::text(preview, KeyDrawing::length(before)), "waiting");

    auto dropped = start;
    times = plan(start, indexes, origins, offset, VxKeyMoveRule::Replace);
    QVERIFY(dropped.moveKeys(indexes.data(), times.data(), int(indexes.size())));
    QTEST(KeyDrawing::text(dropped, KeyDrawing::length(before)), "replacing");
}

void tst_KeyMove::aDragNeverAddsUp()
{
    // Dragged over everything and back, previewing each step on the result of the one before.
    const QString before = QStringLiteral("a b . c d . e . .");
    auto track = KeyDrawing::track(before);
    const auto start = track;
    std::vector<int> selected = {0, 2};
    const auto origins = timesOf(track, selected);
    for (const int offset : {1, 2, 3, 4, 5, 7, 3, -6, -1, 2, 0}) {
        const auto times = plan(track, selected, origins, offset, VxKeyMoveRule::WaitBeside);
        const auto direct = plan(start, {0, 2}, origins, offset, VxKeyMoveRule::WaitBeside);
        QCOMPARE(times, direct);
        std::vector<int> landed;
        QVERIFY(track.moveKeys(selected.data(), times.data(), 2, &landed));
        selected = landed;
        QCOMPARE(track.count(), start.count());
    }
    QVERIFY(track.isIdentical(start));
}

void tst_KeyMove::nothingSelected()
{
    const auto track = KeyDrawing::track("a b");
    QVERIFY(plan(track, {}, {}, 5, VxKeyMoveRule::WaitBeside).empty());
    QVERIFY(plan(KeyTrack<float>(), {}, {}, 5, VxKeyMoveRule::Replace).empty());
}

void tst_KeyMove::stopsAtTheEndOfTime()
{
    const auto track = KeyDrawing::track("a . b . c");
    const std::vector<int> selected = {0, 1};
    const auto origins = timesOf(track, selected);
    for (const auto rule : {VxKeyMoveRule::WaitBeside, VxKeyMoveRule::Replace}) {
        const std::vector<VxTime> latest = {VxTimeMax - 2, VxTimeMax};
        QCOMPARE(plan(track, selected, origins, qint64(1) << 50, rule), latest);
        const std::vector<VxTime> earliest = {VxTimeMin, VxTimeMin + 2};
        QCOMPARE(plan(track, selected, origins, -(qint64(1) << 50), rule), earliest);
    }
}

void tst_KeyMove::noPlaceToWait()
{
    // A key was put where the dragged one came from, at the very beginning of time.
    const auto track = KeyDrawing::track<float>(QStringLiteral("x y . a"), VxTimeMin);
    const std::vector<VxTime> origin = {VxTimeMin};
    QVERIFY(plan(track, {2}, origin, 1, VxKeyMoveRule::WaitBeside).empty());
    QCOMPARE(plan(track, {2}, origin, 2, VxKeyMoveRule::WaitBeside).front(), VxTimeMin + 2);
}

void tst_KeyMove::againstTheWordedRule()
{
    std::mt19937 random(77);
    const auto number = [&random](int from, int to) {
        return std::uniform_int_distribution<>(from, to)(random);
    };
    for (int round = 0; round < 20000; ++round) {
        KeyTrack<float> track;
        for (int i = number(1, 24); i > 0; --i)
            track.set(number(-15, 15), float(i), {});
        std::vector<int> selected;
        for (int i = 0; i < track.count(); ++i) {
            if (number(0, 2) == 0)
                selected.push_back(i);
        }
        const auto origins = timesOf(track, selected);
        const int offset = number(-20, 20);
        const auto planned = plan(track, selected, origins, offset, VxKeyMoveRule::WaitBeside);
        QCOMPARE(planned, naiveWaiting(track, selected, origins, offset));
        auto moved = track;
        QVERIFY(moved.moveKeys(selected.data(), planned.data(), int(planned.size())));
        QCOMPARE(moved.count(), track.count());
    }
}

VX_TEST_GUILESS_MAIN(tst_KeyMove)
#include "tst_keymove.moc"
