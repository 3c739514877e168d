#include "testing/vxtestmain.h"

#include <QtTest>
#include <cmath>
#include <random>
#include <vxcore/vxlimbsolver.h>

namespace {

double distanceOf(const VxVector &a, const VxVector &b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

VxVector sum(const VxVector &a, const VxVector &b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

VxVector offsetOf(const VxVector &a, const VxVector &b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

const VxLimb Leg = {{0, 10, 0}, {0, 5, 0.5}, {0, 1, 0}};
const VxVector AlongX = {1, 0, 0};

} // namespace

/// Two-bone limbs, whose segments keep their lengths and whose end is at the target.
class tst_VxLimbSolver : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void targetAtTheEndChangesNothing();
    void randomTargetsAreReached();
    void kneeStaysInItsPlane();
    void straightLimbBendsAboutTheAxis();
    void beyondReach_data();
    void beyondReach();
    void segmentsOfNoLength();
    void smallStepsOfTheTargetAreSmallRotations();
};

void tst_VxLimbSolver::targetAtTheEndChangesNothing()
{
    const VxLimbSolution solution = vxSolveLimb(Leg, Leg.end, AlongX);
    QVERIFY(solution.reached);
    QVERIFY(vxAngleBetween(solution.upper, {}) < 1e-6);
    QVERIFY(vxAngleBetween(solution.lower, {}) < 1e-6);
}

void tst_VxLimbSolver::randomTargetsAreReached()
{
    std::mt19937 random(21);
    std::uniform_real_distribution<double> unit(-1, 1);
    for (int i = 0; i < 2000; ++i) {
        VxLimb limb;
        for (VxVector *joint : {&limb.root, &limb.middle, &limb.end})
            *joint = {unit(random), unit(random), unit(random)};
        const double upper = distanceOf(limb.root, limb.middle);
        const double lower = distanceOf(limb.middle, limb.end);
        const double part = (unit(random) + 1) / 2;
        const double reach =
            std::abs(upper - lower) + part * (upper + lower - std::abs(upper - lower));
        VxVector way = {unit(random), unit(random), unit(random)};
        const double size = distanceOf(way, {});
        const VxVector target =
            sum(limb.root, {way[0] / size * reach, way[1] / size * reach, way[2] / size * reach});
        const VxLimbSolution solution = vxSolveLimb(limb, target, AlongX);
        QVERIFY(solution.reached);
        QVERIFY(distanceOf(solution.limb.end, target) < 1e-9);
        QVERIFY(std::abs(distanceOf(solution.limb.root, solution.limb.middle) - upper) < 1e-12);
        QVERIFY(std::abs(distanceOf(solution.limb.middle, solution.limb.end) - lower) < 1e-12);
        // The rotations are those of the result.
        const VxVector bent = sum(offsetOf(limb.middle, limb.root),
                                  vxRotated(solution.lower, offsetOf(limb.end, limb.middle)));
        QVERIFY(distanceOf(sum(limb.root, vxRotated(solution.upper, bent)), target) < 1e-9);
    }
}

/// A target in the plane of the leg leaves the knee in it, bent forwards as before.
void tst_VxLimbSolver::kneeStaysInItsPlane()
{
    for (const VxVector &target : {VxVector{0, 3, 0}, VxVector{0, 4, 3}, VxVector{0, 2, -3}}) {
        const VxLimbSolution solution = vxSolveLimb(Leg, target, {0, 0, 1});
        QVERIFY(solution.reached);
        QVERIFY(std::abs(solution.limb.middle[0]) < 1e-9);
        // In front of the line from hip to target.
        const VxVector line = offsetOf(target, Leg.root);
        const VxVector knee = offsetOf(solution.limb.middle, Leg.root);
        QVERIFY(line[1] * knee[2] - line[2] * knee[1] < 0);
    }
}

void tst_VxLimbSolver::straightLimbBendsAboutTheAxis()
{
    const VxLimb straight = {{0, 10, 0}, {0, 5, 0}, {0, 1, 0}};
    const VxLimbSolution solution = vxSolveLimb(straight, {0, 4, 0}, AlongX);
    QVERIFY(solution.reached);
    QVERIFY(std::abs(solution.limb.middle[0]) < 1e-9);
    QVERIFY(std::abs(solution.limb.middle[2]) > 0.5);
    // The other way about the opposite axis.
    const VxLimbSolution other = vxSolveLimb(straight, {0, 4, 0}, {-1, 0, 0});
    QVERIFY(std::abs(other.limb.middle[2] + solution.limb.middle[2]) < 1e-9);
    // An axis along the limb is of no use, but the target is reached.
    QVERIFY(vxSolveLimb(straight, {0, 4, 0}, {0, 1, 0}).reached);
    QVERIFY(vxSolveLimb(straight, {0, 4, 0}, {0, 0, 0}).reached);
}

void tst_VxLimbSolver::beyondReach_data()
{
    QTest::addColumn<double>("y"); // of the target
    QTest::addColumn<double>("z");
    QTest::addColumn<double>("reach"); // of the limb in the end
    const double upper = distanceOf(Leg.root, Leg.middle);
    const double lower = distanceOf(Leg.middle, Leg.end);
    QTest::newRow("too far") << -30.0 << 40.0 << upper + lower;
    QTest::newRow("too near") << 10.5 << 0.0 << upper - lower;
    QTest::newRow("at the root") << 10.0 << 0.0 << upper - lower;
}

void tst_VxLimbSolver::beyondReach()
{
    QFETCH(double, y);
    QFETCH(double, z);
    const VxVector target = {0, y, z};
    QFETCH(double, reach);
    const VxLimbSolution solution = vxSolveLimb(Leg, target, AlongX);
    QVERIFY(!solution.reached);
    QVERIFY(std::abs(distanceOf(solution.limb.root, solution.limb.end) - reach) < 1e-6);
    // On the line from root to target, where there is one.
    const double away = distanceOf(Leg.root, target);
    if (away > 0)
        QVERIFY(std::abs(distanceOf(solution.limb.end, target) - std::abs(away - reach)) < 1e-6);
}

void tst_VxLimbSolver::segmentsOfNoLength()
{
    const VxLimb point = {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}};
    QVERIFY(!vxSolveLimb(point, {2, 2, 2}, AlongX).reached);
    const VxLimb forearm = {{0, 0, 0}, {0, 0, 0}, {0, 2, 0}};
    const VxLimbSolution solution = vxSolveLimb(forearm, {2, 0, 0}, AlongX);
    QVERIFY(distanceOf(solution.limb.end, {2, 0, 0}) < 1e-9);
}

void tst_VxLimbSolver::smallStepsOfTheTargetAreSmallRotations()
{
    VxQuaternion last;
    for (int i = 0; i <= 1000; ++i) {
        const VxVector target = {0.002 * i, 1 + 0.003 * i, 0.001 * i};
        const VxLimbSolution solution = vxSolveLimb(Leg, target, AlongX);
        QVERIFY(solution.reached);
        if (i > 0)
            QVERIFY(vxAngleBetween(solution.upper, last) < 1);
        last = solution.upper;
    }
}

VX_TEST_GUILESS_MAIN(tst_VxLimbSolver)
#include "tst_vxlimbsolver.moc"
