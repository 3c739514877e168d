#include "testing/vxtestmain.h"

#include <QtTest>
#include <cmath>
#include <random>
#include <vxcore/vxcurvefit.h>
#include <vxcore/vxeuler.h>
#include <vxcore/vxfloatproperty.h>

Q_DECLARE_METATYPE(std::vector<VxCurvePoint>)

namespace {

VxCurvePoint point(VxTime time, double value, double in, double out, quint8 type = VxKeyInterp::Tcb)
{
    VxCurvePoint p;
    p.time = time;
    p.value = value;
    p.inSlope = in;
    p.outSlope = out;
    p.type = type;
    return p;
}

/// The curve of the points by the definition of a Bezier segment, found by bisection.
double bezierValue(const VxCurvePoint &a, const VxCurvePoint &b, VxTime time)
{
    const double span = b.time - a.time;
    const double x1 = a.outWeight;
    const double x2 = 1 - b.inWeight;
    const double y1 = a.value + a.outWeight * span / VxTicksPerSecond * a.outSlope;
    const double y2 = b.value - b.inWeight * span / VxTicksPerSecond * b.inSlope;
    const auto at = [](double p0, double p1, double p2, double p3, double u) {
        const double v = 1 - u;
        return v * v * v * p0 + 3 * u * v * v * p1 + 3 * u * u * v * p2 + u * u * u * p3;
    };
    double low = 0;
    double high = 1;
    for (int i = 0; i < 50; ++i) {
        const double u = (low + high) / 2;
        (at(0, x1, x2, 1, u) < (time - a.time) / span ? low : high) = u;
    }
    return at(a.value, y1, y2, b.value, low);
}

double curveValue(const std::vector<VxCurvePoint> &points, VxTime time)
{
    std::size_t i = 0;
    while (i + 2 < points.size() && points[i + 1].time <= time)
        ++i;
    const VxCurvePoint &a = points[i];
    const VxCurvePoint &b = points[i + 1];
    if (time == b.time)
        return b.value;
    if (a.type == VxKeyInterp::Constant)
        return a.value;
    if (a.type == VxKeyInterp::Linear)
        return a.value + (b.value - a.value) * (time - a.time) / (b.time - a.time);
    return bezierValue(a, b, time);
}

/// The largest distance of the property's curve from that of the points, at every tick.
double distance(const VxFloatProperty &property, const std::vector<VxCurvePoint> &points)
{
    double largest = 0;
    for (VxTime t = points.front().time; t <= points.back().time; ++t)
        largest = std::max(largest, std::abs(double(property.getValue(t)) - curveValue(points, t)));
    return largest;
}

/// Values of a function every `step` ticks.
struct Samples
{
    template <class Function> Samples(int count, VxTime step, const Function &function)
    {
        for (int i = 0; i < count; ++i) {
            times.push_back(i * step);
            values.push_back(float(function(i)));
        }
    }
    std::vector<VxTime> times;
    std::vector<float> values;
};

double distance(const VxFloatProperty &property, const Samples &samples)
{
    double largest = 0;
    for (std::size_t i = 0; i < samples.times.size(); ++i)
        largest = std::max(largest, std::abs(double(property.getValue(samples.times[i])) -
                                             double(samples.values[i])));
    return largest;
}

VxRotationSamples rotation(const std::vector<VxTime> &times,
                           const std::array<std::vector<float>, 3> &angles, VxRotationOrder order)
{
    return {times.data(),
            {angles[0].data(), angles[1].data(), angles[2].data()},
            int(times.size()),
            order};
}

/// What the keys of a reduced rotation give at the sampled times.
std::array<std::vector<float>, 3> resampled(const std::array<VxFittedKeys, 3> &keys,
                                            const std::vector<VxTime> &times)
{
    std::array<std::vector<float>, 3> values;
    for (std::size_t c = 0; c < 3; ++c) {
        VxFloatProperty property("p");
        property.setKeys(keys[c].columns());
        values[c].resize(times.size());
        property.getValues(times.data(), int(times.size()), values[c].data());
    }
    return values;
}

} // namespace

/// Cubic curves and dense samples as keys of the host's own kind.
class tst_VxCurveFit : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void tangentsBecomeTcb();
    void plainSmoothKeysStayPlain();
    void curvesAreKept_data();
    void curvesAreKept();
    void randomCurvesAreKept();
    void fewPoints();

    void linesKeepTheirEnds();
    void cornersAreKept();
    void linearReductionWithinError_data();
    void linearReductionWithinError();
    void smoothReductionWithinError_data();
    void smoothReductionWithinError();
    void bendsAreInvisible();
    void rotationsWithinAngle_data();
    void rotationsWithinAngle();
    void rotationErrorIsAnAngle();
    void extremeTimes();
};

/// A curve of TCB keys at unequal distances, given by its tangents, has as many keys again.
void tst_VxCurveFit::tangentsBecomeTcb()
{
    std::mt19937 random(3);
    std::uniform_real_distribution<float> shape(-0.7F, 0.7F);
    std::uniform_real_distribution<float> value(-50, 50);
    for (int round = 0; round < 50; ++round) {
        VxFloatProperty original("original");
        VxTime time = -500;
        for (int i = 0; i < 12; ++i, time += 60 + VxTime(random() % 400))
            original.setKey(time, value(random), VxKeyInterp::Tcb, shape(random), shape(random),
                            shape(random));
        // Slopes of the segments at their ends: of the cubic through four of its values.
        std::vector<VxCurvePoint> points;
        const auto slopeAt = [&original](VxTime at, VxTime other) {
            const double h = (other - at) / 3.0;
            const VxTime t1 = VxTime(at + h), t2 = VxTime(at + 2 * h);
            // Newton's divided differences, differentiated at the first place.
            const double x[] = {double(at), double(t1), double(t2), double(other)};
            double f[4];
            for (int i = 0; i < 4; ++i)
                f[i] = double(original.getValue(VxTime(x[i])));
            for (int level = 1; level < 4; ++level) {
                for (int i = 3; i >= level; --i)
                    f[i] = (f[i] - f[i - 1]) / (x[i] - x[i - level]);
            }
            return VxTicksPerSecond *
                   (f[1] + f[2] * (x[0] - x[1]) + f[3] * (x[0] - x[1]) * (x[0] - x[2]));
        };
        for (int i = 0; i < 12; ++i) {
            const VxTime t = original.getKeyTime(i);
            points.push_back(point(t, double(original.getKeyValue(i)),
                                   i > 0 ? slopeAt(t, original.getKeyTime(i - 1)) : 0,
                                   i < 11 ? slopeAt(t, original.getKeyTime(i + 1)) : 0));
        }
        const VxFittedKeys keys = vxFitCurve(points, 1e-3);
        QCOMPARE(int(keys.times.size()), 12);
        QVERIFY(keys.error <= 1e-3);
        VxFloatProperty found("found");
        found.setKeys(keys.columns());
        QVERIFY(distance(found, points) < 1.1e-3);
    }
}

void tst_VxCurveFit::plainSmoothKeysStayPlain()
{
    // Slopes of a parabola are those of plain smooth keys, except at the ends.
    std::vector<VxCurvePoint> points;
    for (int i = 0; i < 6; ++i)
        points.push_back(point(i * 480, i * i, 20.0 * i, 20.0 * i));
    const VxFittedKeys keys = vxFitCurve(points, 1e-4);
    QCOMPARE(int(keys.times.size()), 6);
    for (std::size_t i = 1; i < 5; ++i) {
        QVERIFY(std::abs(keys.tcb[i].tension) < 1e-6F);
        QCOMPARE(keys.tcb[i].continuity, 0.0F);
        QCOMPARE(keys.tcb[i].bias, 0.0F);
    }
}

void tst_VxCurveFit::curvesAreKept_data()
{
    QTest::addColumn<std::vector<VxCurvePoint>>("points");
    QTest::addColumn<int>("mostKeys");
    using Points = std::vector<VxCurvePoint>;
    constexpr quint8 L = VxKeyInterp::Linear, C = VxKeyInterp::Constant, S = VxKeyInterp::Tcb;
    QTest::newRow("ease in and out") << Points{point(0, 0, 0, 0), point(480, 10, 0, 0)} << 2;
    QTest::newRow("steep ends") << Points{point(0, 0, 0, 300), point(480, 10, 300, 0)} << 2;
    QTest::newRow("a broken tangent")
        << Points{point(0, 0, 0, 0), point(480, 10, 200, -50), point(700, 5, 0, 0)} << 3;
    QTest::newRow("a broken tangent on a straight line")
        << Points{point(0, 0, 0, 100), point(480, 10, 150, 30), point(960, 20, 10, 0)} << 3;
    QTest::newRow("a slope at the top between equal neighbours")
        << Points{point(0, 0, 0, 0), point(480, 10, 80, 80), point(960, 0, 0, 0)} << 3;
    QTest::newRow("a slope between keys of one value")
        << Points{point(0, 5, 0, 100), point(480, 5, 100, 100), point(960, 5, 100, 0)} << 30;
    QTest::newRow("linear and constant") << Points{point(0, 0, 0, 0, L), point(480, 10, 0, 0, C),
                                                   point(960, 3, 0, 0, L), point(1000, 4, 0, 0, L)}
                                         << 4;
    QTest::newRow("linear after smooth")
        << Points{point(0, 0, 0, 0, S), point(480, 10, 0, 0, L), point(960, 3, 0, 0, L),
                  point(1440, 5, 0, 100, S), point(1920, 0, 0, 0, S)}
        << 5;
    QTest::newRow("constant after smooth")
        << Points{point(0, 0, 0, 0, S), point(480, 10, -90, 0, C), point(960, 3, 0, 40, S),
                  point(1440, 5, 0, 0, S)}
        << 5;
    Points weighted{point(0, 0, 0, 0), point(480, 10, 0, 0), point(960, -4, 30, 30)};
    weighted[0].outWeight = 0.8;
    weighted[1].inWeight = 0.1;
    weighted[1].outWeight = 0.9;
    weighted[2].inWeight = 0.6;
    QTest::newRow("unequal weights") << weighted << 30;
    weighted[0].outWeight = weighted[1].inWeight = 1;
    QTest::newRow("the steepest weights") << weighted << 60;
    QTest::newRow("neighbouring ticks") << Points{point(7, 1, 0, 900), point(8, 2, 9, 0)} << 2;
}

void tst_VxCurveFit::curvesAreKept()
{
    QFETCH(std::vector<VxCurvePoint>, points);
    QFETCH(int, mostKeys);
    const VxFittedKeys keys = vxFitCurve(points, 0.01);
    VxFloatProperty property("p");
    QVERIFY(property.setKeys(keys.columns()));
    QVERIFY2(distance(property, points) < 0.0125,
             qPrintable(QString::number(distance(property, points))));
    QVERIFY(keys.error <= 0.01);
    QVERIFY2(property.getNumKeys() <= mostKeys, qPrintable(QString::number(property.getNumKeys())));
    for (const VxCurvePoint &p : points)
        QVERIFY(property.hasKey(p.time));
}

void tst_VxCurveFit::randomCurvesAreKept()
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> unit(0, 1);
    for (int round = 0; round < 100; ++round) {
        std::vector<VxCurvePoint> points;
        VxTime time = -1000;
        for (int i = 0; i < 8; ++i, time += 1 + VxTime(random() % 500)) {
            points.push_back(point(time, std::round(unit(random) * 4) * 5, unit(random) * 400 - 200,
                                   unit(random) * 400 - 200, quint8(random() % 3)));
            points.back().inWeight = unit(random);
            points.back().outWeight = unit(random);
        }
        const VxFittedKeys keys = vxFitCurve(points, 0.05);
        VxFloatProperty property("p");
        QVERIFY(property.setKeys(keys.columns()));
        // Between the ticks that the fit checks the distance is hardly larger.
        QVERIFY2(distance(property, points) < 0.08,
                 qPrintable(QString("%1: %2").arg(round).arg(distance(property, points))));
    }
}

void tst_VxCurveFit::fewPoints()
{
    QVERIFY(vxFitCurve({}, 1).times.empty());
    const VxFittedKeys one = vxFitCurve({point(5, 3, 1, 1)}, 1);
    QCOMPARE(int(one.times.size()), 1);
    QCOMPARE(one.values[0], 3.0F);
    QVERIFY(vxReduceKeys(nullptr, nullptr, 0, VxKeyInterp::Linear, 1).times.empty());
    QVERIFY(vxReduceKeys(nullptr, nullptr, 0, VxKeyInterp::Tcb, 1).times.empty());
    const VxTime time = 9;
    const float value = 4;
    for (const auto type : {VxKeyInterp::Linear, VxKeyInterp::Tcb})
        QCOMPARE(int(vxReduceKeys(&time, &value, 1, type, 1).times.size()), 1);
}

///     value   . . . / / /      3 keys of many, the middle one at the bend
void tst_VxCurveFit::linesKeepTheirEnds()
{
    const Samples line(1000, 160, [](int i) { return 0.1 * i - 7; });
    for (const auto type : {VxKeyInterp::Linear, VxKeyInterp::Tcb}) {
        for (const double error : {0.0, 1e-3, double(NAN), -1.0}) {
            const VxFittedKeys keys =
                vxReduceKeys(line.times.data(), line.values.data(), 1000, type, error);
            QCOMPARE(keys.times, (std::vector<VxTime>{0, 999 * 160}));
        }
    }
}

void tst_VxCurveFit::cornersAreKept()
{
    const Samples wave(101, 160, [](int i) { return std::abs((i + 10) % 20 - 10); });
    const VxFittedKeys keys =
        vxReduceKeys(wave.times.data(), wave.values.data(), 101, VxKeyInterp::Linear, 0.01);
    std::vector<VxTime> corners;
    for (int i = 0; i <= 100; i += 10)
        corners.push_back(i * 160);
    QCOMPARE(keys.times, corners);
    QVERIFY(keys.error < 1e-9);
}

void tst_VxCurveFit::linearReductionWithinError_data()
{
    QTest::addColumn<double>("error");
    QTest::newRow("coarse") << 5.0;
    QTest::newRow("usual") << 0.1;
    QTest::newRow("fine") << 1e-3;
    QTest::newRow("none") << 0.0;
}

void tst_VxCurveFit::linearReductionWithinError()
{
    QFETCH(double, error);
    std::mt19937 random(9);
    std::normal_distribution<double> noise(0, 0.05);
    const Samples samples(2000, 160, [&](int i) {
        return 30 * std::sin(i / 40.0) + (i % 500 == 250 ? 15 : 0) + noise(random);
    });
    const VxFittedKeys keys =
        vxReduceKeys(samples.times.data(), samples.values.data(), 2000, VxKeyInterp::Linear, error);
    VxFloatProperty property("p");
    QVERIFY(property.setKeys(keys.columns()));
    const double rounding = 1e-5;
    QVERIFY(distance(property, samples) <= error + rounding);
    QVERIFY(std::abs(keys.error - distance(property, samples)) < rounding);
    // No key can be left out without moving the next: the segment over it breaks the error.
    for (std::size_t k = 1; error > 0 && k + 1 < keys.times.size(); ++k) {
        VxFloatProperty shorter("p");
        shorter.setKeys(keys.columns());
        shorter.deleteKeys(int(k), int(k));
        QVERIFY(distance(shorter, samples) > error - rounding);
    }
    if (error == 0.1)
        QVERIFY2(keys.times.size() < 500, qPrintable(QString::number(keys.times.size())));
}

void tst_VxCurveFit::smoothReductionWithinError_data()
{
    QTest::addColumn<double>("error");
    QTest::addColumn<int>("mostKeys");
    // A sine of 7.96 periods: half a period is a cubic to about 0.5 % of its height of 30.
    QTest::newRow("coarse") << 1.0 << 18;
    QTest::newRow("usual") << 0.1 << 35;
    QTest::newRow("fine") << 1e-3 << 110;
}

void tst_VxCurveFit::smoothReductionWithinError()
{
    QFETCH(double, error);
    QFETCH(int, mostKeys);
    const Samples samples(2000, 160, [](int i) { return 30 * std::sin(i / 40.0); });
    const VxFittedKeys keys =
        vxReduceKeys(samples.times.data(), samples.values.data(), 2000, VxKeyInterp::Tcb, error);
    VxFloatProperty property("p");
    QVERIFY(property.setKeys(keys.columns()));
    QVERIFY(distance(property, samples) <= error + 1e-5);
    QVERIFY(std::abs(keys.error - distance(property, samples)) < 1e-5);
    QVERIFY2(int(keys.times.size()) <= mostKeys, qPrintable(QString::number(keys.times.size())));
}

/// On a smooth curve no bend at a key can be seen: it deflects no segment by much more than the
/// error. A corner stays one.
void tst_VxCurveFit::bendsAreInvisible()
{
    constexpr double Error = 0.05;
    constexpr VxTime Corner = 230 * 160;
    const Samples samples(400, 160, [](int i) {
        return 30 * std::sin(2 * M_PI * i / 100) + (i > 230 ? (i - 230) * 0.9 : 0);
    });
    const VxFittedKeys keys =
        vxReduceKeys(samples.times.data(), samples.values.data(), 400, VxKeyInterp::Tcb, Error);
    VxFloatProperty property("p");
    property.setKeys(keys.columns());
    bool hasCorner = false;
    for (int i = 1; i + 1 < property.getNumKeys(); ++i) {
        const VxTime t = property.getKeyTime(i);
        const double value = double(property.getValue(t));
        const double in = (value - double(property.getValue(t - 16))) / 16;
        const double out = (double(property.getValue(t + 16)) - value) / 16;
        const double span = property.getKeyTime(i + 1) - t;
        const bool isCorner = std::abs(t - Corner) <= 160;
        hasCorner = hasCorner || (isCorner && out - in > 0.5 * 0.9 / 160);
        if (!isCorner)
            QVERIFY(std::abs(out - in) * span * 4 / 27 < 8 * Error);
    }
    QVERIFY(hasCorner);
}

void tst_VxCurveFit::rotationsWithinAngle_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("type");
    for (int order = 0; order < 6; ++order) {
        QTest::addRow("order %d, linear", order) << order << int(VxKeyInterp::Linear);
        QTest::addRow("order %d, smooth", order) << order << int(VxKeyInterp::Tcb);
    }
}

void tst_VxCurveFit::rotationsWithinAngle()
{
    QFETCH(int, order);
    QFETCH(int, type);
    std::vector<VxTime> times;
    std::array<std::vector<float>, 3> angles;
    for (int i = 0; i < 600; ++i) {
        times.push_back(i * 160);
        angles[0].push_back(float(60 * std::sin(i / 30.0)));
        angles[1].push_back(float(85 * std::sin(i / 50.0)));
        angles[2].push_back(float(200 * std::sin(i / 90.0)));
    }
    const VxRotationSamples samples = rotation(times, angles, VxRotationOrder(order));
    const auto keys = vxReduceRotation(samples, VxKeyInterp::Type(type), 0.5);
    QCOMPARE(keys[0].times, keys[1].times);
    QCOMPARE(keys[0].times, keys[2].times);
    QVERIFY(keys[0].times.size() < 120);
    const auto found = resampled(keys, times);
    double largest = 0;
    for (std::size_t k = 0; k < times.size(); ++k) {
        const auto at = [&](const std::array<std::vector<float>, 3> &lists) {
            return vxQuaternion({lists[0][k], lists[1][k], lists[2][k]}, samples.order);
        };
        largest = std::max(largest, vxAngleBetween(at(found), at(angles)));
    }
    QVERIFY2(largest <= 0.5 + 1e-4, qPrintable(QString::number(largest)));
    QVERIFY(std::abs(largest - keys[1].error) < 1e-4);
}

/// With the middle axis at 90 degrees, first and last rotate about one line: what the one does the
/// other can undo, and the rotation rests while both curves are far from straight.
void tst_VxCurveFit::rotationErrorIsAnAngle()
{
    std::vector<VxTime> times;
    std::array<std::vector<float>, 3> angles;
    for (int i = 0; i < 300; ++i) {
        times.push_back(i * 160);
        angles[0].push_back(float(40 * std::sin(i / 10.0)));
        angles[1].push_back(90);
        angles[2].push_back(float(-40 * std::sin(i / 10.0)));
    }
    for (const auto type : {VxKeyInterp::Linear, VxKeyInterp::Tcb}) {
        const auto keys =
            vxReduceRotation(rotation(times, angles, VxRotationOrder::XYZ), type, 0.01);
        QCOMPARE(int(keys[0].times.size()), 2);
        QVERIFY(keys[0].error < 1e-3);
    }
}

void tst_VxCurveFit::extremeTimes()
{
    const std::vector<VxTime> times = {VxTimeMin, -5, 0, VxTimeMax};
    const std::vector<float> values = {0, 1, 1.5F, 2};
    for (const auto type : {VxKeyInterp::Linear, VxKeyInterp::Tcb}) {
        const VxFittedKeys keys = vxReduceKeys(times.data(), values.data(), 4, type, 10);
        QCOMPARE(keys.times, (std::vector<VxTime>{VxTimeMin, VxTimeMax}));
    }
    const VxFittedKeys keys =
        vxFitCurve({point(VxTimeMin, 0, 0, 1e-5), point(VxTimeMax, 1, 1e-5, 0)}, 0.01);
    QVERIFY(keys.error <= 0.01);
}

VX_TEST_GUILESS_MAIN(tst_VxCurveFit)
#include "tst_vxcurvefit.moc"
