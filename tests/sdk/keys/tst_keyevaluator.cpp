#include "keydrawing.h"
#include "keys/keyevaluator.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <cmath>
#include <random>

namespace {

float valueAt(const KeyTrack<float> &track, VxTime time, float noKeys = 0)
{
    int cursor = 0;
    return KeyEvaluator<float>(track).value(time, noKeys, cursor);
}

KeyTrack<float> threeKeys(quint8 type)
{
    KeyTrack<float> track;
    track.set(-4800, 10, {type, {}});
    track.set(0, 30, {type, {}});
    track.set(9600, -10, {type, {}});
    return track;
}

// The same curve by another road: slopes per tick at the keys, Bezier control points a third of the
// span away from them, and de Casteljau's construction, all in the widest arithmetic there is.
class SlowCurve
{
public:
    explicit SlowCurve(const KeyTrack<float> &track)
        : m_track(track)
    {
    }

    long double at(VxTime time) const
    {
        const int last = m_track.count() - 1;
        int i = 0;
        while (i <= last && m_track.time(i) <= time)
            ++i;
        --i; // the key at or before
        if (i < 0)
            return value(0);
        if (i == last || m_track.type(i) == VxKeyInterp::Constant)
            return value(i);
        const long double span = tick(i + 1) - tick(i);
        const long double s = (static_cast<long double>(time) - tick(i)) / span;
        if (m_track.type(i) == VxKeyInterp::Linear)
            return mix(value(i), value(i + 1), s);
        return casteljau(value(i), value(i) + slope(i, true) * span / 3,
                         value(i + 1) - slope(i + 1, false) * span / 3, value(i + 1), s);
    }

private:
    static long double mix(long double a, long double b, long double s)
    {
        return (1 - s) * a + s * b;
    }
    static long double casteljau(long double a, long double b, long double c, long double d,
                                 long double s)
    {
        const long double ab = mix(a, b, s);
        const long double bc = mix(b, c, s);
        const long double cd = mix(c, d, s);
        return mix(mix(ab, bc, s), mix(bc, cd, s), s);
    }
    long double tick(int i) const { return m_track.time(i); }
    long double value(int i) const { return static_cast<long double>(m_track.value(i)); }

    // Rise per tick. Both tangents of a key are twice the same kind of mean of the chords beside
    // it, spread over both spans together.
    long double slope(int i, bool outgoing) const
    {
        const bool smooth = m_track.type(i) == VxKeyInterp::Tcb;
        const VxTcb own = smooth ? m_track.tcb(i) : VxTcb();
        const long double t = static_cast<long double>(own.tension);
        const long double c = static_cast<long double>(outgoing ? own.continuity : -own.continuity);
        const long double b = static_cast<long double>(own.bias);
        const int before = i > 0 ? i - 1 : i;
        const int after = i + 1 < m_track.count() ? i + 1 : i;
        long double left = value(i) - value(before);
        long double right = value(after) - value(i);
        long double spans = tick(after) - tick(before);
        if (before == i || after == i) { // at an end the one chord counts for both
            left = right = left + right;
            spans *= 2;
        }
        return ((1 - t) * (1 + c) * (1 + b) * left + (1 - t) * (1 - c) * (1 - b) * right) / spans;
    }

    const KeyTrack<float> &m_track;
};

float magnitude(const KeyTrack<float> &track)
{
    float most = 1;
    for (int i = 0; i < track.count(); ++i)
        most = std::max(most, std::abs(track.value(i)));
    return most;
}

struct ReferenceValue
{
    double time;
    double value;
};

struct ReferenceCurve
{
    const char *name;
    std::vector<CurveKey> keys;
    std::vector<ReferenceValue> values;
};

const std::vector<ReferenceCurve> &referenceCurves()
{
    // clang-format off
    static const std::vector<ReferenceCurve> curves = {
    {"even keys, loose",
     {{0, 0, -1, 0, 0}, {1600, 10, -1, 0, 0}, {3200, -4, -1, 0, 0}, {4800, 7, -1, 0, 0}},
     {{1800, 9.056640625}, {2400, 2.875}}},
    {"even keys, tense",
     {{0, 0, 0.5, 0, 0}, {1600, 10, 0.5, 0, 0}, {3200, -4, 0.5, 0, 0}, {4800, 7, 0.5, 0, 0}},
     {{1800, 9.31298828125}, {2400, 2.96875}}},
    {"even keys, corners",
     {{0, 0, 0, -1, 0}, {1600, 10, 0, -1, 0}, {3200, -4, 0, -1, 0}, {4800, 7, 0, -1, 0}},
     {{1800, 8.25}, {2400, 3}}},
    {"even keys, inverted corners",
     {{0, 0, 0, 1, 0}, {1600, 10, 0, 1, 0}, {3200, -4, 0, 1, 0}, {4800, 7, 0, 1, 0}},
     {{1800, 10.205078125}, {2400, 2.875}}},
    {"even keys, bias before",
     {{0, 0, 0, 0, -1}, {1600, 10, 0, 0, -1}, {3200, -4, 0, 0, -1}, {4800, 7, 0, 0, -1}},
     {{1800, 7.908203125}, {2400, -0.125}}},
    {"even keys, bias after",
     {{0, 0, 0, 0, 1}, {1600, 10, 0, 0, 1}, {3200, -4, 0, 0, 1}, {4800, 7, 0, 0, 1}},
     {{1800, 10.546875}, {2400, 6}}},
    {"even keys, plain",
     {{0, 0, 0, 0, 0}, {1600, 10, 0, 0, 0}, {3200, -4, 0, 0, 0}, {4800, 7, 0, 0, 0}},
     {{1800, 9.2275390625}, {2400, 2.9375}}},
    {"even keys, all parameters high",
     {{0, 0, 1, 1, 1}, {1600, 10, 1, 1, 1}, {3200, -4, 1, 1, 1}, {4800, 7, 1, 1, 1}},
     {{1800, 9.3984375}, {2400, 3}}},
    {"even keys, mixed parameters",
     {{0, 0, -0.7, 0.4, -0.9}, {1600, 10, -0.7, 0.4, -0.9}, {3200, -4, -0.7, 0.4, -0.9}, {4800, 7, -0.7, 0.4, -0.9}},
     {{1800, 7.88374414062}, {2400, -1.566625}}},
    {"short, long, short span",
     {{0, 0, -0.4, -0.6, 0.8}, {800, 10, -0.4, -0.6, 0.8}, {4000, -4, -0.4, -0.6, 0.8}, {4800, 7, -0.4, -0.6, 0.8}},
     {{1200, 10.2939125}, {2400, 8.9024}}},
    {"long, short, long span",
     {{0, 0, -0.4, -0.6, 0.8}, {4000, 10, -0.4, -0.6, 0.8}, {4800, -4, -0.4, -0.6, 0.8}, {12000, 7, -0.4, -0.6, 0.8}},
     {{4100, 9.53466770833}, {4400, 3.76953333333}}},
    {"negative times",
     {{-4800, 0, -0.4, -0.6, 0.8}, {-4640, 10, -0.4, -0.6, 0.8}, {4800, -4, -0.4, -0.6, 0.8}, {4960, 7, -0.4, -0.6, 0.8}},
     {{-3460, 10.4991255208}, {80, 10.2550333333}}},
    {"own parameters on each key",
     {{0, 0, 0, 0, 0}, {800, 10, 0.25, -0.5, 0.5}, {4000, -4, -0.75, 0.3, -0.25}, {4800, 7, 0, 0, 0}},
     {{1200, 9.02471679687}, {2400, 0.933125}}},
    {"tense beside loose",
     {{0, 5, 0, 0, 0}, {160, 5, 1, 0, 0}, {320, -5, -1, 0, 0}, {4800, 0, 0, 0, 0}},
     {{180, 4.57502693966}, {240, 0.0431034482759}}},
    {"random spans and parameters",
     {{0, -49.13, -0.01, -0.32, -0.57}, {3176, -154.54, 0.42, -0.45, -0.65}, {4088, 9.43, 0.29, -0.36, -0.61}, {5632, -40.78, 0.5, -0.71, 0.25}, {8696, 3.14, 0.66, 0.71, 0.26}, {10768, -88.56, -0.08, -0.19, -0.28}},
     {{3290, -143.014725294}, {4860, -17.4779937426}, {8313, 3.36708868647}}},
    {"close keys and a far one",
     {{0, -12.93, 0.74, 0.47, 0.06}, {1712, 143.76, 0.26, -0.57, -0.79}, {4544, -127.23, 0.02, -0.85, -0.36}, {5344, -142.88, -0.33, -0.53, 0.81}, {5376, -108.48, -0.89, 0.5, -0.79}, {5624, 65.79, -0.13, 0.83, -0.04}},
     {{2066, 102.511899933}, {4944, -130.382377456}}},
    {"random spans, negative times",
     {{-12928, -176.82, 0.91, 0.09, -0.03}, {-12376, 115.18, 0.91, 0.09, -0.03}, {-8280, 88.52, 0.91, 0.09, -0.03}, {-7544, -67.42, 0.91, 0.09, -0.03}, {-4312, -143.23, 0.91, 0.09, -0.03}, {-3704, 14.47, 0.91, 0.09, -0.03}},
     {{-11864, 116.395322346}, {-7912, 10.7160698039}}},
    {"flat",
     {{0, 3, -0.5, 0.5, 0.5}, {1600, 3, -0.5, 0.5, 0.5}, {3200, 3, -0.5, 0.5, 0.5}, {4800, 3, -0.5, 0.5, 0.5}},
     {{1800, 3}, {2400, 3}}},
    {"flat between slopes",
     {{0, 0, 0, 0, 0}, {1600, 1, 0, 0, 0}, {3200, 1, 0, 0, 0}, {4800, 0, 0, 0, 0}},
     {{1800, 1.0546875}, {2400, 1.125}}},
    {"two keys, plain",
     {{0, 0, 0, 0, 0}, {4800, 10, 0, 0, 0}},
     {{600, 1.25}, {2400, 5}}},
    {"two keys, shaped",
     {{0, 0, -0.3, 0.6, -0.4}, {4800, 10, -0.3, 0.6, -0.4}},
     {{600, 1.15484375}, {2400, 4.22}}},
    {"first and last segment",
     {{0, 0, 0.5, 0.25, -0.5}, {800, 10, 0.5, 0.25, -0.5}, {4000, -4, 0.5, 0.25, -0.5}},
     {{100, 0.879150390625}, {1200, 9.14243164063}, {3600, -2.69672851562}}},
    {"hours between keys",
     {{0, 0, 0, 0, 0}, {17280000, 360, 0, 0, 0}, {34560000, -360, 0, 0, 0}, {51840000, 0, 0, 0, 0}},
     {{19440000, 314.296875}, {25920000, 0}}},
    {"keys a few ticks apart",
     {{0, 0, 0, 0, 0}, {8, 1, 0, 0, 0}, {16, 2, 0, 0, 0}, {24, 4, 0, 0, 0}},
     {{9, 1.1181640625}, {12, 1.4375}}},
    {"many kinds of corners",
     {{0, 0, -0.5, 0.5, 0.75}, {1200, -2, -1, 1, -1}, {2400, 5, -1, 0, 1}, {4800, 0, 0, -1, -1}, {6000, 10, 0, -4, 0}, {8400, 6, -0.8, -0.2, 0.6}, {9600, -2, 0.8, 0.2, -0.4}, {10200, 4, 0.5, 1.5, -0.5}, {11400, -1, 0.5, 1.5, -0.5}, {12000, 4, 0.5, -0.5, -0.6}},
     {{800, -5.93518518519}, {2600, 6.2087191358}, {4000, 2.67901234568}, {5600, 5.33333333333}, {7200, 5.36933333333}, {8800, 3.06785185185}, {10600, 2.76543209877}}},
    };
    // clang-format on
    return curves;
}

} // namespace

class tst_KeyEvaluator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void drawn_data();
    void drawn();
    void emptyAndSingle();
    void segmentHasTheTypeOfItsLeftKey();
    void otherNeighboursCountWithTheirValueOnly();
    void integersHold();
    void wholeRangeOfTime();
    void keyTimesAreExact();
    void anyCursorGivesTheSameValue();
    void manyAsOneByOne();
    void referenceInDouble();
    void referenceInSingle();
    void randomAgainstSlowCurve();
    void evenKeysToTheLastBit();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_KeyEvaluator::drawn_data()
{
    // keys: 10 at -4800, 30 at 0, -10 at 9600
    QTest::addColumn<int>("time");
    QTest::addColumn<float>("linear");
    QTest::addColumn<float>("constant");
    QTest::addColumn<float>("smooth");
    QTest::newRow("beginning of time") << int(VxTimeMin) << 10.F << 10.F << 10.F;
    QTest::newRow("just before the first") << -4801 << 10.F << 10.F << 10.F;
    QTest::newRow("on the first") << -4800 << 10.F << 10.F << 10.F;
    QTest::newRow("just after the first") << -4799 << 10.004167F << 10.F << 10.004169F;
    QTest::newRow("within") << -2400 << 20.F << 10.F << 23.333334F;
    QTest::newRow("just before the middle key") << -1 << 29.995832F << 10.F << 30.001387F;
    QTest::newRow("on the middle key") << 0 << 30.F << 30.F << 30.F;
    QTest::newRow("just after the middle key") << 1 << 29.995832F << 30.F << 29.998610F;
    QTest::newRow("within the second") << 4800 << 10.F << 30.F << 13.333333F;
    QTest::newRow("just before the last") << 9599 << -9.995833F << 30.F << -9.995834F;
    QTest::newRow("on the last") << 9600 << -10.F << -10.F << -10.F;
    QTest::newRow("just after the last") << 9601 << -10.F << -10.F << -10.F;
    QTest::newRow("end of time") << int(VxTimeMax) << -10.F << -10.F << -10.F;
}

void tst_KeyEvaluator::drawn()
{
    QFETCH(int, time);
    QTEST(valueAt(threeKeys(VxKeyInterp::Linear), time), "linear");
    QTEST(valueAt(threeKeys(VxKeyInterp::Constant), time), "constant");
    QTEST(valueAt(threeKeys(VxKeyInterp::Tcb), time), "smooth");
}

void tst_KeyEvaluator::emptyAndSingle()
{
    KeyTrack<float> track;
    QCOMPARE(valueAt(track, 100, 42), 42.F);
    float out[2] = {0, 0};
    const VxTime times[] = {-7, 7};
    KeyEvaluator<float>(track).values(times, 2, out, 42);
    QCOMPARE(out[1], 42.F);
    track.set(5, 3, {VxKeyInterp::Tcb, {1, 1, 1}});
    for (const VxTime time : {VxTimeMin, 4, 5, 6, VxTimeMax})
        QCOMPARE(valueAt(track, time, 42), 3.F);
}

void tst_KeyEvaluator::segmentHasTheTypeOfItsLeftKey()
{
    auto track = threeKeys(VxKeyInterp::Constant);
    track.setType(0, 1, VxKeyInterp::Linear);
    QCOMPARE(valueAt(track, -2400), 20.F);
    QCOMPARE(valueAt(track, 4800), 30.F);
    track.setType(1, 2, VxKeyInterp::Linear);
    QCOMPARE(valueAt(track, 4800), 10.F);
    track.setType(2, 3, VxKeyInterp::Tcb); // the last key has no segment
    QCOMPARE(valueAt(track, 4800), 10.F);
}

void tst_KeyEvaluator::otherNeighboursCountWithTheirValueOnly()
{
    auto track = threeKeys(VxKeyInterp::Linear);
    track.setShape(0, 1, {VxKeyInterp::Tcb, {}});
    const float plain = valueAt(track, -2400);
    track.setShape(1, 2, {VxKeyInterp::Linear, {1, 0.5F, 0.25F}});
    QCOMPARE(valueAt(track, -2400), plain);
    track.setType(1, 2, VxKeyInterp::Tcb);
    QVERIFY(valueAt(track, -2400) != plain);
}

void tst_KeyEvaluator::integersHold()
{
    KeyTrack<qint32> track;
    track.set(0, 16777217, {}); // not a single precision number
    track.set(10, 2147483647, {});
    track.set(20, -2147483647 - 1, {});
    const KeyEvaluator<qint32> evaluator(track);
    int cursor = 0;
    QCOMPARE(evaluator.value(-1, 7, cursor), 16777217);
    QCOMPARE(evaluator.value(9, 7, cursor), 16777217);
    QCOMPARE(evaluator.value(10, 7, cursor), 2147483647);
    QCOMPARE(evaluator.value(19, 7, cursor), 2147483647);
    QCOMPARE(evaluator.value(21, 7, cursor), -2147483647 - 1);
    QCOMPARE(KeyEvaluator<qint32>(KeyTrack<qint32>()).value(0, 7, cursor), 7);
}

void tst_KeyEvaluator::wholeRangeOfTime()
{
    KeyTrack<float> track;
    track.set(VxTimeMin, -1, {});
    track.set(VxTimeMax, 1, {});
    QVERIFY(std::abs(valueAt(track, 0)) < 1e-9F);
    QCOMPARE(valueAt(track, VxTimeMin / 2), -0.5F);
    QCOMPARE(valueAt(track, VxTimeMax), 1.F);
    track.setShape(0, 2, {VxKeyInterp::Tcb, {}});
    QVERIFY(std::abs(valueAt(track, 0)) < 1e-9F);
    QCOMPARE(valueAt(track, VxTimeMin / 2), -0.5F);
}

void tst_KeyEvaluator::keyTimesAreExact()
{
    KeyTrack<float> track;
    std::mt19937 random(5);
    for (int i = 0; i < 200; ++i)
        track.set(VxTime(random() % 100000), float(random() % 1000) / 7, {quint8(i % 3), {}});
    track.set(777, std::numeric_limits<float>::infinity(), {});
    for (int i = 0; i < track.count(); ++i)
        QVERIFY(valueAt(track, track.time(i)) == track.value(i));
}

void tst_KeyEvaluator::anyCursorGivesTheSameValue()
{
    const auto track = KeyDrawing::track(". a . B . . c D E f . g .");
    const KeyEvaluator<float> evaluator(track);
    for (VxTime time = -2; time < 15; ++time) {
        int cold = 0;
        const float value = evaluator.value(time, 0, cold);
        for (const int start : {VxTimeMin, -1, 0, 1, 3, 5, 6, 7, 100, VxTimeMax}) {
            int cursor = start;
            QVERIFY(evaluator.value(time, 0, cursor) == value);
            QCOMPARE(cursor, track.upperBound(time) - 1);
        }
    }
}

// Keys at equal distances without shapes of their own take a shorter way to the same curve.
void tst_KeyEvaluator::evenKeysToTheLastBit()
{
    std::mt19937 random(11);
    for (const int count : {2, 3, 50}) {
        std::vector<VxTime> times;
        std::vector<float> values;
        const std::vector<quint8> types(size_t(count), VxKeyInterp::Tcb);
        for (int i = 0; i < count; ++i) {
            times.push_back(-1000 + 160 * i);
            values.push_back(float(int(random() % 20000) - 10000) / 7);
        }
        KeyTrack<float> track;
        QVERIFY(track.insertMany({times.data(), values.data(), types.data(), nullptr, count}));
        QCOMPARE(track.spacing(), 160);
        const auto key = [&track](int i) {
            return CurveKey{double(track.time(i)), double(track.value(i)), 0, 0, 0};
        };
        for (int i = 0; i + 1 < count; ++i) {
            const CurveKey before = i > 0 ? key(i - 1) : CurveKey();
            const CurveKey after = i + 2 < count ? key(i + 2) : CurveKey();
            const CurveSegment curve = tcbSegment(i > 0 ? &before : nullptr, key(i), key(i + 1),
                                                  i + 2 < count ? &after : nullptr);
            for (int tick = 1; tick < 160; tick += 3) {
                const VxTime time = track.time(i) + tick;
                QVERIFY(valueAt(track, time) == float(curve.at(time)));
            }
        }
    }
}

void tst_KeyEvaluator::manyAsOneByOne()
{
    auto track = KeyDrawing::track(". a . B . . c D E f . g .");
    KeyDrawing::shift(&track, 3, 7, 1000);
    std::vector<VxTime> times;
    for (VxTime time = -20; time < 1100; time += 3)
        times.push_back(time);
    times.insert(times.end(), {5, 900, VxTimeMin, VxTimeMax, 5}); // not only forwards
    std::vector<float> values(times.size());
    KeyEvaluator<float>(track).values(times.data(), int(times.size()), values.data(), 0);
    for (size_t i = 0; i < times.size(); ++i)
        QVERIFY(values[i] == valueAt(track, times[i]));
}

void tst_KeyEvaluator::referenceInDouble()
{
    for (const ReferenceCurve &curve : referenceCurves()) {
        for (const ReferenceValue &expected : curve.values) {
            size_t i = 0;
            while (curve.keys[i + 1].time <= expected.time)
                ++i;
            const auto segment =
                tcbSegment(i > 0 ? &curve.keys[i - 1] : nullptr, curve.keys[i], curve.keys[i + 1],
                           i + 2 < curve.keys.size() ? &curve.keys[i + 2] : nullptr);
            const double error = std::abs(segment.at(expected.time) - expected.value);
            QVERIFY2(error <= 1e-9 * std::max(1.0, std::abs(expected.value)), curve.name);
        }
    }
}

void tst_KeyEvaluator::referenceInSingle()
{
    int checked = 0;
    for (const ReferenceCurve &curve : referenceCurves()) {
        KeyTrack<float> track;
        for (const CurveKey &key : curve.keys)
            track.set(
                VxTime(key.time), float(key.value),
                {VxKeyInterp::Tcb, {float(key.tension), float(key.continuity), float(key.bias)}});
        for (const ReferenceValue &expected : curve.values) {
            const double value = double(valueAt(track, VxTime(expected.time)));
            const double error = std::abs(value - expected.value);
            QVERIFY2(error <= 1e-5 * std::max(1.0, std::abs(expected.value)), curve.name);
            ++checked;
        }
    }
    QVERIFY(checked >= 50);
}

void tst_KeyEvaluator::randomAgainstSlowCurve()
{
    std::mt19937 random(1984);
    const auto number = [&random](int from, int to) {
        return std::uniform_int_distribution<>(from, to)(random);
    };
    for (int round = 0; round < 2000; ++round) {
        KeyTrack<float> track;
        const int reach = round % 10 == 0 ? VxTimeMax : 20000;
        for (int i = number(1, 8); i > 0; --i) {
            const auto parameter = [&number] { return float(number(-150, 150)) / 100; };
            const VxTime time = number(-reach, reach);
            track.set(time, float(number(-1000, 1000)) / 8,
                      {quint8(number(0, 5) < 4 ? 2 : number(0, 1)),
                       {parameter(), parameter(), parameter()}});
        }
        const SlowCurve slow(track);
        const KeyEvaluator<float> evaluator(track);
        int cursor = 0;
        for (int k = 0; k < 20; ++k) {
            const VxTime time = number(-reach, reach);
            const auto expected = double(slow.at(time));
            const double value = double(evaluator.value(time, 0, cursor));
            const double allowed = 1e-7 * std::max(double(magnitude(track)), std::abs(expected));
            if (std::abs(value - expected) > allowed)
                QFAIL(qPrintable(QStringLiteral("round %1, time %2: %3 instead of %4")
                                     .arg(round)
                                     .arg(time)
                                     .arg(value, 0, 'g', 12)
                                     .arg(expected, 0, 'g', 12)));
        }
    }
}

VX_TEST_GUILESS_MAIN(tst_KeyEvaluator)
#include "tst_keyevaluator.moc"
