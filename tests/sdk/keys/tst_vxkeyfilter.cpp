#include "testing/vxtestmain.h"

#include <QtTest>
#include <cmath>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyfilter.h>

namespace {

constexpr VxTime Frame = 160; // 30 a second

struct Curve
{
    std::vector<VxTime> times;
    std::vector<float> values;

    int count() const { return int(times.size()); }
    double seconds(int i) const { return double(times[std::size_t(i)]) / VxTicksPerSecond; }
};

template <class Function> Curve sampled(const std::vector<VxTime> &times, const Function &function)
{
    Curve curve;
    curve.times = times;
    for (int i = 0; i < curve.count(); ++i)
        curve.values.push_back(float(function(curve.seconds(i))));
    return curve;
}

std::vector<VxTime> evenTimes(int count, VxTime step = Frame)
{
    std::vector<VxTime> times;
    for (int i = 0; i < count; ++i)
        times.push_back(i * step);
    return times;
}

/// Key distances of a third of a frame to two frames.
std::vector<VxTime> unevenTimes(int count)
{
    std::mt19937 random(17);
    std::vector<VxTime> times = {0};
    while (int(times.size()) < count)
        times.push_back(times.back() + 55 + VxTime(random() % 265));
    return times;
}

double sine(double seconds, double hertz)
{
    return 10 * std::sin(2 * M_PI * hertz * seconds);
}

/// The amplitude, of 10, that is left of a sine, by projection on it far from both ends.
double amplitude(const Curve &curve, const std::vector<float> &values, double hertz)
{
    double projected = 0;
    double norm = 0;
    for (int i = curve.count() / 4; i < curve.count() * 3 / 4; ++i) {
        const double s = std::sin(2 * M_PI * hertz * curve.seconds(i));
        projected += s * double(values[std::size_t(i)]);
        norm += s * s;
    }
    return projected / norm;
}

double deviation(const std::vector<float> &a, const std::vector<float> &b)
{
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += std::pow(double(a[i]) - double(b[i]), 2);
    return std::sqrt(sum / double(a.size()));
}

double largestDifference(const std::vector<float> &a, const std::vector<float> &b)
{
    double largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        largest = std::max(largest, std::abs(double(a[i]) - double(b[i])));
    return largest;
}

double butterworthGain(double hertz, double cutoff, double rate)
{
    const double part = std::tan(M_PI * hertz / rate) / std::tan(M_PI * cutoff / rate);
    return 1 / (1 + (std::sqrt(2.0) - 1) * std::pow(part, 4));
}

/// Keys one tick each: letters are values, capitals smooth keys, others linear.
VxFittedKeys drawn(const QString &drawing)
{
    VxFittedKeys keys;
    const QStringList ticks = drawing.split(' ');
    for (int i = 0; i < ticks.size(); ++i) {
        if (ticks[i] == ".")
            continue;
        keys.times.push_back(i);
        keys.values.push_back(float(ticks[i][0].toLower().unicode()));
        keys.types.push_back(ticks[i][0].isUpper() ? VxKeyInterp::Tcb : VxKeyInterp::Linear);
    }
    return keys;
}

} // namespace

/// Filters against their theory: lines, sines and noise of fixed amplitude.
class tst_VxKeyFilter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void gaussianResponse_data() { responses(); }
    void gaussianResponse();
    void butterworthResponse_data() { responses(); }
    void butterworthResponse();
    void butterworthOnUnevenTimes();
    void linesStay_data();
    void linesStay();
    void noiseIsReduced();
    void filtersThatDoNothing();
    void closeKeysCountNoMore();

    void spikesAreRemoved();
    void spikesAtTheEnds();
    void stepsAreNoSpikes();

    void eulerFilter_data();
    void eulerFilter();
    void eulerFilterKeepsCleanAngles();

    void flatKeys_data();
    void flatKeys();
    void flatKeysChangeNoCurve();

    void conversions_data();
    void conversions();

private:
    static void responses();
};

void tst_VxKeyFilter::responses()
{
    QTest::addColumn<double>("hertz");
    for (const double hertz : {0.1, 0.5, 1.0, 2.0, 3.0, 4.0, 6.0, 10.0})
        QTest::addRow("%.1f Hz", hertz) << hertz;
}

void tst_VxKeyFilter::gaussianResponse()
{
    QFETCH(double, hertz);
    constexpr double Sigma = 0.08;
    for (const std::vector<VxTime> &times : {evenTimes(1200), evenTimes(4800, 40)}) {
        const Curve curve = sampled(times, [hertz](double s) { return sine(s, hertz); });
        const auto smooth =
            vxSmoothGaussian(curve.times.data(), curve.values.data(), curve.count(), Sigma);
        const double expected = 10 * std::exp(-std::pow(2 * M_PI * hertz * Sigma, 2) / 2);
        QVERIFY2(std::abs(amplitude(curve, smooth, hertz) - expected) < 0.02,
                 qPrintable(QString::number(amplitude(curve, smooth, hertz))));
    }
}

void tst_VxKeyFilter::butterworthResponse()
{
    QFETCH(double, hertz);
    constexpr double Cutoff = 3;
    const Curve curve = sampled(evenTimes(2400), [hertz](double s) { return sine(s, hertz); });
    const auto smooth =
        vxSmoothButterworth(curve.times.data(), curve.values.data(), curve.count(), Cutoff);
    const double expected = 10 * butterworthGain(hertz, Cutoff, 30);
    QVERIFY2(std::abs(amplitude(curve, smooth, hertz) - expected) < 0.01,
             qPrintable(QString::number(amplitude(curve, smooth, hertz))));
    // Nothing is delayed: what is left is the sine itself, made smaller.
    for (int i = curve.count() / 4; i < curve.count() * 3 / 4; ++i)
        QVERIFY(std::abs(double(smooth[std::size_t(i)]) -
                         expected * std::sin(2 * M_PI * hertz * curve.seconds(i))) < 0.02);
}

/// The same gains on keys at uneven distances: a filter by key indexes is far from them.
void tst_VxKeyFilter::butterworthOnUnevenTimes()
{
    const std::vector<VxTime> times = unevenTimes(3000);
    for (const double hertz : {0.5, 1.0, 2.0}) {
        const Curve curve = sampled(times, [hertz](double s) { return sine(s, hertz); });
        const auto smooth =
            vxSmoothButterworth(curve.times.data(), curve.values.data(), curve.count(), 2);
        // Of a fine grid the tangents are as good as their arguments.
        const double expected = 10 / (1 + (std::sqrt(2.0) - 1) * std::pow(hertz / 2, 4));
        QVERIFY2(std::abs(amplitude(curve, smooth, hertz) - expected) < 0.1,
                 qPrintable(QString::number(amplitude(curve, smooth, hertz))));
    }
}

void tst_VxKeyFilter::linesStay_data()
{
    QTest::addColumn<bool>("even");
    QTest::newRow("keys on frames") << true;
    QTest::newRow("keys at uneven distances") << false;
}

void tst_VxKeyFilter::linesStay()
{
    QFETCH(bool, even);
    const Curve curve =
        sampled(even ? evenTimes(300) : unevenTimes(300), [](double s) { return 5 - 12 * s; });
    const auto gaussian =
        vxSmoothGaussian(curve.times.data(), curve.values.data(), curve.count(), 0.2);
    QVERIFY(largestDifference(gaussian, curve.values) < 1e-4);
    const auto butterworth =
        vxSmoothButterworth(curve.times.data(), curve.values.data(), curve.count(), 2);
    QVERIFY(largestDifference(butterworth, curve.values) < 1e-3);
    int removed = -1;
    const auto median =
        vxRemoveSpikes(curve.times.data(), curve.values.data(), curve.count(), 0.3, 3, &removed);
    QVERIFY(median == curve.values);
    QCOMPARE(removed, 0);
}

/// Of white noise on n keys a second, a low pass leaves the part of its band: for a Gaussian the
/// variance times 1 / (2 sqrt(pi) sigma n).
void tst_VxKeyFilter::noiseIsReduced()
{
    std::mt19937 random(23);
    std::normal_distribution<double> noise(0, 1);
    const Curve clean = sampled(evenTimes(6000), [](double s) { return sine(s, 0.2); });
    Curve noisy = clean;
    for (float &value : noisy.values)
        value += float(noise(random));
    const auto gaussian =
        vxSmoothGaussian(noisy.times.data(), noisy.values.data(), noisy.count(), 0.1);
    const double expected = std::sqrt(1 / (2 * std::sqrt(M_PI) * 0.1 * 30));
    QVERIFY(std::abs(deviation(gaussian, clean.values) / expected - 1) < 0.1);
    // The square of the gain, summed over all frequencies.
    double band = 0;
    for (int i = 0; i < 1000; ++i)
        band += std::pow(butterworthGain((i + 0.5) * 15 / 1000, 2, 30), 2) / 1000;
    const auto butterworth =
        vxSmoothButterworth(noisy.times.data(), noisy.values.data(), noisy.count(), 2);
    QVERIFY(std::abs(deviation(butterworth, clean.values) / std::sqrt(band) - 1) < 0.1);
}

void tst_VxKeyFilter::filtersThatDoNothing()
{
    const Curve curve = sampled(evenTimes(40), [](double s) { return sine(s, 3); });
    for (const double parameter : {0.0, -1.0, double(NAN)}) {
        QVERIFY(vxSmoothGaussian(curve.times.data(), curve.values.data(), 40, parameter) ==
                curve.values);
        QVERIFY(vxSmoothButterworth(curve.times.data(), curve.values.data(), 40, parameter) ==
                curve.values);
    }
    QVERIFY(vxSmoothButterworth(curve.times.data(), curve.values.data(), 40, 15) == curve.values);
    for (int count = 0; count < 3; ++count) {
        QCOMPARE(int(vxSmoothGaussian(curve.times.data(), curve.values.data(), count, 1).size()),
                 count);
        QCOMPARE(int(vxSmoothButterworth(curve.times.data(), curve.values.data(), count, 1).size()),
                 count);
        QCOMPARE(int(vxRemoveSpikes(curve.times.data(), curve.values.data(), count, 1, 1).size()),
                 count);
    }
    // Times at both ends of all there is.
    const std::vector<VxTime> far = {VxTimeMin, 0, VxTimeMax};
    const std::vector<float> values = {1, 2, 3};
    for (const double parameter : {1e-9, 1.0, 1e9}) {
        for (const float value : vxSmoothGaussian(far.data(), values.data(), 3, parameter))
            QVERIFY(std::isfinite(value));
        for (const float value : vxSmoothButterworth(far.data(), values.data(), 3, parameter))
            QVERIFY(std::isfinite(value));
    }
}

/// Ten keys within a frame weigh as much as one alone in its frame.
void tst_VxKeyFilter::closeKeysCountNoMore()
{
    std::vector<VxTime> times = evenTimes(200);
    const auto clean = [](double s) { return sine(s, 0.5); };
    const Curve even = sampled(times, clean);
    for (VxTime t = 100 * Frame + 16; t < 101 * Frame; t += 16)
        times.push_back(t);
    std::sort(times.begin(), times.end());
    const Curve crowded = sampled(times, clean);
    const auto a = vxSmoothGaussian(even.times.data(), even.values.data(), even.count(), 0.15);
    const auto b =
        vxSmoothGaussian(crowded.times.data(), crowded.values.data(), crowded.count(), 0.15);
    QVERIFY(std::abs(double(a[97]) - double(b[97])) < 0.01);
    QVERIFY(std::abs(double(a[104]) - double(b[113])) < 0.01);
}

void tst_VxKeyFilter::spikesAreRemoved()
{
    Curve curve = sampled(evenTimes(200), [](double s) { return sine(s, 0.5); });
    const std::vector<float> clean = curve.values;
    for (const std::size_t i : {20u, 70u, 71u, 150u})
        curve.values[i] += i % 20 ? 8 : -8;
    int removed = 0;
    const auto result =
        vxRemoveSpikes(curve.times.data(), curve.values.data(), 200, 0.3, 4, &removed);
    QCOMPARE(removed, 4);
    QVERIFY(largestDifference(result, clean) < 0.2);
    for (std::size_t i = 0; i < 200; ++i)
        QVERIFY(i == 20 || i == 70 || i == 71 || i == 150 || result[i] == clean[i]);
}

void tst_VxKeyFilter::spikesAtTheEnds()
{
    const std::vector<VxTime> times = evenTimes(6);
    const std::vector<float> values = {90, 1, 2, 2, 1, -90};
    int removed = 0;
    const auto result = vxRemoveSpikes(times.data(), values.data(), 6, 0.2, 5, &removed);
    QCOMPARE(removed, 2);
    QVERIFY(result == (std::vector<float>{1, 1, 2, 2, 1, 1}));
}

void tst_VxKeyFilter::stepsAreNoSpikes()
{
    std::vector<float> values(40, 0);
    std::fill(values.begin() + 20, values.end(), 50.0F);
    QVERIFY(vxRemoveSpikes(evenTimes(40).data(), values.data(), 40, 0.3, 5) == values);
}

void tst_VxKeyFilter::eulerFilter_data()
{
    QTest::addColumn<int>("order");
    for (int order = 0; order < 6; ++order)
        QTest::addRow("order %d", order) << order;
}

/// Smooth rotations whose angles jump get smooth angles again, and stay the same rotations.
void tst_VxKeyFilter::eulerFilter()
{
    QFETCH(int, order);
    const auto rotationOrder = VxRotationOrder(order);
    std::array<std::vector<float>, 3> angles;
    std::vector<VxQuaternion> rotations;
    for (int i = 0; i < 400; ++i) {
        const VxEuler smooth = {i * 2.0, 60 * std::sin(i / 20.0), 150 + 100 * std::sin(i / 35.0)};
        // Without the previous angles: each within -180 to 180.
        const VxEuler own = vxEulerAngles(vxRotation(smooth, rotationOrder), rotationOrder);
        for (std::size_t axis = 0; axis < 3; ++axis)
            angles[axis].push_back(float(own[axis]));
        rotations.push_back(vxQuaternion(smooth, rotationOrder));
    }
    QVERIFY(vxFilterEuler({angles[0].data(), angles[1].data(), angles[2].data()}, 400,
                          rotationOrder) > 0);
    for (std::size_t i = 0; i < 400; ++i) {
        VxEuler own;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            own[axis] = double(angles[axis][i]);
            QVERIFY(i == 0 || std::abs(own[axis] - double(angles[axis][i - 1])) < 60);
        }
        QVERIFY(vxAngleBetween(vxQuaternion(own, rotationOrder), rotations[i]) < 1e-4);
    }
    // A filtered curve is left alone.
    QCOMPARE(
        vxFilterEuler({angles[0].data(), angles[1].data(), angles[2].data()}, 400, rotationOrder),
        0);
}

void tst_VxKeyFilter::eulerFilterKeepsCleanAngles()
{
    std::vector<float> x = {0, 170, 340, 510};
    std::vector<float> y = {90, 90, 90, 90};
    std::vector<float> z = {0, 10, -10, 0};
    const std::vector<float> oldX = x;
    vxFilterEuler({x.data(), y.data(), z.data()}, 1, VxRotationOrder::XYZ);
    QVERIFY(x == oldX);
    // Steps of 20 degrees at the pole of the middle axis.
    std::vector<float> a = {0, 20, 40, 60};
    std::vector<float> b = {90, 90, 90, 90};
    std::vector<float> c = {5, 5, 5, 5};
    QCOMPARE(vxFilterEuler({a.data(), b.data(), c.data()}, 4, VxRotationOrder::XYZ), 0);
}

void tst_VxKeyFilter::flatKeys_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("left");
    QTest::newRow("a level stretch") << "a a a a b"
                                     << "a . . a b";
    QTest::newRow("two levels") << "a a a b b b"
                                << "a . a b . b";
    QTest::newRow("nothing level") << "a b a b"
                                   << "a b a b";
    QTest::newRow("all level") << "a . a . a a"
                               << "a . . . . a";
    QTest::newRow("smooth keys that shape the ends") << "B A A A A A B"
                                                     << "B A A . A A B";
    QTest::newRow("too few smooth keys") << "B A A A A B"
                                         << "B A A A A B";
    QTest::newRow("one smooth key before") << "B a a a a a b"
                                           << "B a a . a a b";
    QTest::newRow("one key") << "a"
                             << "a";
}

void tst_VxKeyFilter::flatKeys()
{
    QFETCH(QString, keys);
    const VxFittedKeys all = drawn(keys);
    QStringList ticks = keys.split(' ');
    for (const int i : vxFlatKeys(all.columns()))
        ticks[int(all.times[std::size_t(i)])] = ".";
    QTEST(ticks.join(' '), "left");
}

void tst_VxKeyFilter::flatKeysChangeNoCurve()
{
    std::mt19937 random(29);
    for (int round = 0; round < 100; ++round) {
        VxFloatProperty property("p");
        for (int i = 0; i < 60; ++i) {
            const bool smooth = random() % 3 == 0;
            property.setKey(VxTime(i * 7 + int(random() % 7)), float(random() % 4 / 3 * 10),
                            smooth ? VxKeyInterp::Tcb : int(random() % 2), 0.3F, -0.5F, 0.2F);
        }
        std::vector<float> before;
        for (VxTime t = 0; t < 430; ++t)
            before.push_back(property.getValue(t));
        const std::vector<int> flat = vxFlatKeys(property.getKeys());
        QVERIFY(!flat.empty());
        property.deleteKeys(QVector<int>(flat.begin(), flat.end()));
        for (VxTime t = 0; t < 430; ++t)
            QVERIFY(std::abs(property.getValue(t) - before[std::size_t(t)]) < 1e-4F);
    }
}

void tst_VxKeyFilter::conversions_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    const char *const names[] = {"linear", "constant", "smooth", "mixed"};
    for (int from = 0; from < 4; ++from) {
        for (int to = 0; to < 3; ++to)
            QTest::addRow("%s to %s", names[from], names[to]) << from << to;
    }
}

void tst_VxKeyFilter::conversions()
{
    QFETCH(int, from);
    QFETCH(int, to);
    std::mt19937 random(31);
    constexpr double Error = 0.5;
    for (int round = 0; round < 20; ++round) {
        VxFloatProperty property("p");
        for (int i = 0; i < 12; ++i)
            property.setKey(VxTime(i * 800 + int(random() % 700)), float(random() % 40),
                            from == 3 ? int(random() % 3) : from, 0.2F, 0.1F, -0.3F);
        const VxFittedKeys keys =
            vxConvertKeys(property.getKeys(), VxKeyInterp::Type(to), 20, Error);
        VxFloatProperty result("r");
        QVERIFY(result.setKeys(keys.columns()));
        for (int i = 0; i < result.getNumKeys(); ++i)
            QVERIFY(result.getKeyInterpolationType(i) == to || i + 1 == result.getNumKeys());
        for (int i = 0; i < property.getNumKeys(); ++i) {
            QVERIFY(result.hasKey(property.getKeyTime(i)));
            const VxTime end = i + 1 < property.getNumKeys() ? property.getKeyTime(i + 1)
                                                             : property.getKeyTime(i) + 1;
            for (VxTime t = property.getKeyTime(i); t < end; t += 20)
                QVERIFY2(std::abs(double(property.getValue(t)) - double(result.getValue(t))) <
                             Error + 0.1,
                         qPrintable(QString("%1: %2 instead of %3")
                                        .arg(t)
                                        .arg(double(result.getValue(t)))
                                        .arg(double(property.getValue(t)))));
        }
        if (from == to)
            QCOMPARE(result.getNumKeys(), property.getNumKeys());
    }
    QVERIFY(vxConvertKeys({}, VxKeyInterp::Type(to), 20, Error).times.empty());
}

VX_TEST_GUILESS_MAIN(tst_VxKeyFilter)
#include "tst_vxkeyfilter.moc"
