#include "keydrawing.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <map>
#include <numeric>
#include <random>
#include <set>
#include <vxcore/vxkeyedit.h>

namespace {

using Indexes = QVector<int>;

std::vector<VxTime> plan(const KeyTrack<float> &track, const std::vector<int> &selected,
                         const std::vector<VxTime> &origins, qint64 offset, VxCollision rule)
{
    const auto targets = vxShiftedKeyTimes(origins.data(), int(origins.size()), offset);
    return vxPlanKeyTimes(track.columns().times, track.count(),
                          {selected.data(), targets.data(), int(selected.size()), origins.data()},
                          rule);
}

std::vector<VxTime> timesOf(const KeyTrack<float> &track, const std::vector<int> &selected)
{
    std::vector<VxTime> times;
    for (int i : selected)
        times.push_back(track.time(i));
    return times;
}

// The rule as it is worded: the key furthest in the direction of the move first, each one tick
// back at a time until its place is free.
std::vector<VxTime> naiveWaitTimes(const KeyTrack<float> &track, const std::vector<int> &selected,
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

// Waiting keys with targets of their own: those that move to later times, the latest target first,
// then the others, the earliest first; with one target the key that is foremost.
std::vector<VxTime> naiveWaitTimesAnywhere(const std::vector<VxTime> &times,
                                           const std::vector<int> &selected,
                                           const std::vector<VxTime> &targets)
{
    std::set<VxTime> taken(times.begin(), times.end());
    for (const int i : selected)
        taken.erase(times[size_t(i)]);
    std::vector<size_t> order(selected.size());
    std::iota(order.begin(), order.end(), size_t(0));
    const auto isBackward = [&](size_t k) { return targets[k] < times[size_t(selected[k])]; };
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) {
        if (isBackward(a) != isBackward(b))
            return isBackward(b);
        if (targets[a] == targets[b])
            return !isBackward(a) && a > b;
        return (targets[a] < targets[b]) == isBackward(a);
    });
    std::vector<VxTime> result(selected.size());
    for (const size_t k : order) {
        VxTime time = targets[k];
        while (taken.count(time))
            time += isBackward(k) ? 1 : -1;
        taken.insert(time);
        result[k] = time;
    }
    return result;
}

// Moves one key after the other, searching all keys each time.
std::vector<VxTime> naiveNudging(std::vector<VxTime> times, const std::vector<int> &source,
                                 const std::vector<VxTime> &targets)
{
    std::vector<VxTime> result;
    for (size_t k = 0; k < source.size(); ++k) {
        VxTime &own = times[size_t(source[k])];
        VxTime target = targets[k];
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

std::vector<VxTime> nudged(const std::vector<VxTime> &times, const std::vector<int> &source,
                           const std::vector<VxTime> &targets)
{
    return vxPlanKeyTimes(times.data(), int(times.size()),
                          {source.data(), targets.data(), int(source.size()), nullptr},
                          VxCollision::Nudge);
}

using Random = std::mt19937;

int number(Random &random, int from, int to)
{
    return std::uniform_int_distribution<>(from, to)(random);
}

std::vector<VxTime> randomTimes(Random &random)
{
    std::vector<VxTime> times;
    VxTime time = number(random, -40, 0);
    for (int i = number(random, 1, 14); i > 0; --i)
        times.push_back(time += number(random, 1, 6));
    return times;
}

std::vector<int> someOf(Random &random, size_t count)
{
    std::vector<int> indexes;
    for (size_t i = 0; i < count; ++i) {
        if (number(random, 0, 2) > 0)
            indexes.push_back(int(i));
    }
    return indexes;
}

} // namespace

Q_DECLARE_METATYPE(std::vector<VxTime>)

class tst_VxKeyEdit : public QObject
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
    void noFreeTickForABlockedKey();
    void blockedKeysMatchTheNaiveRule();
    void blockedKeysInBothDirections();
    void nudges_data();
    void nudges();
    void nudgingAgainstTheWordedRule();
    void nudgingAtTheEndsOfTime();
    void manyKeysWithOneTarget();
    void editsAgainstMaps();
    void emptyEdits();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_VxKeyEdit::rules_data()
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

void tst_VxKeyEdit::rules()
{
    QFETCH(QString, before);
    QFETCH(Indexes, selected);
    QFETCH(int, offset);
    const std::vector<int> indexes(selected.begin(), selected.end());
    const auto start = KeyDrawing::track(before);
    const auto origins = timesOf(start, indexes);

    auto preview = start;
    auto times = plan(start, indexes, origins, offset, VxCollision::WaitBeside);
    QVERIFY(preview.moveKeys(indexes.data(), times.data(), int(indexes.size())));
    QCOMPARE(preview.count(), start.count());
    QTEST(KeyDrawing::text(preview, KeyDrawing::length(before)), "waiting");

    auto dropped = start;
    times = plan(start, indexes, origins, offset, VxCollision::Replace);
    QVERIFY(dropped.moveKeys(indexes.data(), times.data(), int(indexes.size())));
    QTEST(KeyDrawing::text(dropped, KeyDrawing::length(before)), "replacing");
}

void tst_VxKeyEdit::aDragNeverAddsUp()
{
    // Dragged over everything and back, previewing each step on the result of the one before.
    const QString before = QStringLiteral("a b . c d . e . .");
    auto track = KeyDrawing::track(before);
    const auto start = track;
    std::vector<int> selected = {0, 2};
    const auto origins = timesOf(track, selected);
    for (const int offset : {1, 2, 3, 4, 5, 7, 3, -6, -1, 2, 0}) {
        const auto times = plan(track, selected, origins, offset, VxCollision::WaitBeside);
        const auto direct = plan(start, {0, 2}, origins, offset, VxCollision::WaitBeside);
        QCOMPARE(times, direct);
        std::vector<int> landed;
        QVERIFY(track.moveKeys(selected.data(), times.data(), 2, &landed));
        selected = landed;
        QCOMPARE(track.count(), start.count());
    }
    QVERIFY(track.isIdentical(start));
}

void tst_VxKeyEdit::nothingSelected()
{
    const auto track = KeyDrawing::track("a b");
    QVERIFY(plan(track, {}, {}, 5, VxCollision::WaitBeside).empty());
    QVERIFY(plan(KeyTrack<float>(), {}, {}, 5, VxCollision::Replace).empty());
}

void tst_VxKeyEdit::stopsAtTheEndOfTime()
{
    const auto track = KeyDrawing::track("a . b . c");
    const std::vector<int> selected = {0, 1};
    const auto origins = timesOf(track, selected);
    for (const auto rule : {VxCollision::WaitBeside, VxCollision::Replace}) {
        const std::vector<VxTime> latest = {VxTimeMax - 2, VxTimeMax};
        QCOMPARE(plan(track, selected, origins, qint64(1) << 50, rule), latest);
        const std::vector<VxTime> earliest = {VxTimeMin, VxTimeMin + 2};
        QCOMPARE(plan(track, selected, origins, -(qint64(1) << 50), rule), earliest);
    }
}

void tst_VxKeyEdit::noFreeTickForABlockedKey()
{
    // A key was put at the dragged one's start, at the very beginning of time.
    const auto track = KeyDrawing::track<float>(QStringLiteral("x y . a"), VxTimeMin);
    const std::vector<VxTime> origin = {VxTimeMin};
    QVERIFY(plan(track, {2}, origin, 1, VxCollision::WaitBeside).empty());
    QCOMPARE(plan(track, {2}, origin, 2, VxCollision::WaitBeside).front(), VxTimeMin + 2);
}

void tst_VxKeyEdit::blockedKeysMatchTheNaiveRule()
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
        const auto planned = plan(track, selected, origins, offset, VxCollision::WaitBeside);
        QCOMPARE(planned, naiveWaitTimes(track, selected, origins, offset));
        auto moved = track;
        QVERIFY(moved.moveKeys(selected.data(), planned.data(), int(planned.size())));
        QCOMPARE(moved.count(), track.count());
    }
}

void tst_VxKeyEdit::blockedKeysInBothDirections()
{
    Random random(5);
    for (int round = 0; round < 20000; ++round) {
        const auto times = randomTimes(random);
        const auto selected = someOf(random, times.size());
        std::vector<VxTime> targets;
        for (size_t k = 0; k < selected.size(); ++k)
            targets.push_back(number(random, -40, 40));
        const auto planned =
            vxPlanKeyTimes(times.data(), int(times.size()),
                           {selected.data(), targets.data(), int(selected.size()), nullptr},
                           VxCollision::WaitBeside);
        QCOMPARE(planned, naiveWaitTimesAnywhere(times, selected, targets));
    }
}

void tst_VxKeyEdit::nudges_data()
{
    QTest::addColumn<std::vector<VxTime>>("keys");
    QTest::addColumn<std::vector<VxTime>>("targets"); // from the last key to the first
    QTest::addColumn<std::vector<VxTime>>("places");
    using KeyTimes = std::vector<VxTime>;
    QTest::newRow("nothing moves") << KeyTimes{0, 5} << KeyTimes{5, 0} << KeyTimes{5, 0};
    QTest::newRow("all by one") << KeyTimes{0, 1, 2} << KeyTimes{3, 2, 1} << KeyTimes{3, 2, 1};
    QTest::newRow("all onto one") << KeyTimes{0, 1, 2} << KeyTimes{9, 9, 9} << KeyTimes{9, 8, 7};
    QTest::newRow("crowded from both sides")
        << KeyTimes{0, 20} << KeyTimes{10, 10} << KeyTimes{10, 9};
}

void tst_VxKeyEdit::nudges()
{
    QFETCH(std::vector<VxTime>, keys);
    QFETCH(std::vector<VxTime>, targets);
    std::vector<int> source(keys.size());
    std::iota(source.rbegin(), source.rend(), 0);
    QTEST(nudged(keys, source, targets), "places");
}

void tst_VxKeyEdit::nudgingAgainstTheWordedRule()
{
    Random random(7);
    for (int round = 0; round < 30000; ++round) {
        const auto times = randomTimes(random);
        auto source = someOf(random, times.size());
        if (number(random, 0, 1))
            std::reverse(source.begin(), source.end());
        const int offset = number(random, -25, 24);
        const int step = number(random, 1, 7);
        const bool free = number(random, 0, 3) == 0;
        std::vector<VxTime> targets;
        for (const int i : source)
            targets.push_back(free ? number(random, -30, 30)
                                   : (times[size_t(i)] + offset) / step * step);
        QCOMPARE(nudged(times, source, targets), naiveNudging(times, source, targets));
    }
}

void tst_VxKeyEdit::nudgingAtTheEndsOfTime()
{
    const std::vector<VxTime> keys = {VxTimeMin, 0, VxTimeMax};
    QCOMPARE(nudged(keys, {1, 0}, {VxTimeMax, VxTimeMax}),
             (std::vector<VxTime>{VxTimeMax - 1, VxTimeMax - 2}));
    QCOMPARE(nudged(keys, {1, 2}, {VxTimeMin, VxTimeMin}),
             (std::vector<VxTime>{VxTimeMin + 1, VxTimeMin + 2}));
}

// Keys that wait beside a run of keys must not each search the whole run.
void tst_VxKeyEdit::manyKeysWithOneTarget()
{
    constexpr int count = 60000;
    std::vector<VxTime> times(2 * count);
    for (int i = 0; i < count; ++i) {
        times[size_t(i)] = i * 10;
        times[size_t(count + i)] = count * 10 + i;
    }
    std::vector<int> source(count);
    std::iota(source.rbegin(), source.rend(), 0);
    const std::vector<VxTime> targets(count, times.back());
    QElapsedTimer timer;
    timer.start();
    const auto places = nudged(times, source, targets);
    QCOMPARE(places.front(), count * 10 - 1);
    QCOMPARE(places[1], count * 10 - 2);
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
}

// The result against a map from times to keys in which each edited key is put by itself.
void tst_VxKeyEdit::editsAgainstMaps()
{
    Random random(31);
    for (int round = 0; round < 20000; ++round) {
        const auto times = randomTimes(random);
        KeyTrack<float> track;
        for (const VxTime time : times)
            track.set(time, float(number(random, 0, 99)),
                      {quint8(number(random, 0, 2)), {0.1f * float(number(random, 0, 2)), 0, 0}});
        auto source = someOf(random, times.size());
        if (source.empty())
            continue;
        std::vector<VxTime> targets;
        std::vector<float> values;
        for (size_t k = 0; k < source.size(); ++k) {
            targets.push_back(number(random, -40, 40));
            values.push_back(float(number(random, 100, 199)));
        }
        const bool keepsTimes = number(random, 0, 4) == 0;
        const bool keepsValues = number(random, 0, 4) == 0;
        const auto rule = VxCollision(number(random, 0, 2));
        if (rule == VxCollision::Nudge && number(random, 0, 1))
            std::reverse(source.begin(), source.end());
        VxKeyEdit<float> edit;
        edit.source = source.data();
        edit.times = keepsTimes ? nullptr : targets.data();
        edit.values = keepsValues ? nullptr : values.data();
        edit.count = int(source.size());
        const auto result = vxPlanKeyEdit(track.columns(), edit, rule);

        std::vector<VxTime> planned = targets;
        for (size_t k = 0; keepsTimes && k < source.size(); ++k)
            planned[k] = times[size_t(source[k])];
        if (!keepsTimes)
            planned =
                vxPlanKeyTimes(times.data(), int(times.size()),
                               {source.data(), targets.data(), int(source.size()), nullptr}, rule);
        std::map<VxTime, int> expected; // to the index in source, or -1 - index of a key that stays
        for (int i = 0; i < track.count(); ++i)
            expected[times[size_t(i)]] = -1 - i;
        for (const int i : source)
            expected.erase(times[size_t(i)]);
        for (size_t k = 0; k < source.size(); ++k)
            expected[planned[k]] = int(k);

        auto applied = track;
        applied.removeRange(result.span);
        QVERIFY(applied.insertMany(result.keys));
        QCOMPARE(applied.count(), int(expected.size()));
        QCOMPARE(result.merged, track.count() - applied.count());
        std::vector<bool> selected(size_t(applied.count()), false);
        for (const VxKeySpan &span : result.selected) {
            QVERIFY(span.first < span.last);
            std::fill(selected.begin() + span.first, selected.begin() + span.last, true);
        }
        int index = 0;
        for (const auto &[time, origin] : expected) {
            const int from = origin < 0 ? -1 - origin : source[size_t(origin)];
            QCOMPARE(applied.time(index), time);
            QCOMPARE(applied.shape(index), track.shape(from));
            QCOMPARE(applied.value(index),
                     origin < 0 || keepsValues ? track.value(from) : values[size_t(origin)]);
            QCOMPARE(bool(selected[size_t(index)]), origin >= 0);
            ++index;
        }
        QCOMPARE(result.source.size(), result.keys.times.size());
        for (size_t i = 0; i < result.source.size(); ++i) {
            const int origin = expected.at(result.keys.times[i]);
            QCOMPARE(result.source[i], origin < 0 ? -1 - origin : source[size_t(origin)]);
        }
    }
}

void tst_VxKeyEdit::emptyEdits()
{
    const auto track = KeyDrawing::track("a b");
    for (const auto rule : {VxCollision::Replace, VxCollision::WaitBeside, VxCollision::Nudge}) {
        QVERIFY(vxPlanKeyEdit(track.columns(), VxKeyEdit<float>(), rule).isEmpty());
        QVERIFY(vxPlanKeyTimes(nullptr, 0, {}, rule).empty());
    }
    // A key without a free tick beside it leaves everything as it is.
    const auto crowded = KeyDrawing::track<float>(QStringLiteral("x y . a"), VxTimeMin);
    const int source = 2;
    const VxTime target = VxTimeMin + 1;
    const VxTime origin = VxTimeMin;
    const VxKeyEdit<float> edit{&source, &target, nullptr, 1, &origin};
    QVERIFY(vxPlanKeyEdit(crowded.columns(), edit, VxCollision::WaitBeside).isEmpty());
}

VX_TEST_GUILESS_MAIN(tst_VxKeyEdit)
#include "tst_vxkeyedit.moc"
