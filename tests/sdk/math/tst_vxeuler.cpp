#include "testing/vxtestmain.h"

#include <QMatrix4x4>
#include <QtTest>
#include <cmath>
#include <random>
#include <vxcore/vxeuler.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

Q_DECLARE_METATYPE(VxEuler)

namespace {

constexpr const char *OrderNames[] = {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"};

double difference(const VxRotation &a, const VxRotation &b)
{
    double largest = 0;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            largest = std::max(largest, std::abs(a[row][column] - b[row][column]));
    }
    return largest;
}

double difference(const VxEuler &a, const VxEuler &b)
{
    return std::max({std::abs(a[0] - b[0]), std::abs(a[1] - b[1]), std::abs(a[2] - b[2])});
}

double distance(const VxEuler &a, const VxEuler &b)
{
    return std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]);
}

VxEuler inOrder(VxRotationOrder order, double first, double middle, double last)
{
    VxEuler angles;
    const std::array<int, 3> &axes = vxRotationAxes(order);
    angles[std::size_t(axes[0])] = first;
    angles[std::size_t(axes[1])] = middle;
    angles[std::size_t(axes[2])] = last;
    return angles;
}

} // namespace

/// Angles, matrices and quaternions of rotations, in every rotation order.
class tst_VxEuler : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void matricesAreThoseOfNodes_data() { orders(); }
    void matricesAreThoseOfNodes();
    void anglesRoundTrip_data();
    void anglesRoundTrip();
    void randomAnglesRoundTrip_data() { orders(); }
    void randomAnglesRoundTrip();
    void quaternionsRoundTrip_data() { orders(); }
    void quaternionsRoundTrip();
    void nearestEquivalent_data();
    void nearestEquivalent();
    void nearestIsNoFartherThanAnyEquivalent_data() { orders(); }
    void nearestIsNoFartherThanAnyEquivalent();
    void gimbalLockKeepsTheFirstAngle_data() { orders(); }
    void gimbalLockKeepsTheFirstAngle();
    void continuousRotationsDoNotJump_data() { orders(); }
    void continuousRotationsDoNotJump();
    void angleBetween_data();
    void angleBetween();
    void slerpHasConstantSpeed();
    void quaternionOfNoLength();

private:
    static void orders();
};

void tst_VxEuler::orders()
{
    QTest::addColumn<int>("number");
    for (int i = 0; i < 6; ++i)
        QTest::newRow(OrderNames[i]) << i;
}

void tst_VxEuler::matricesAreThoseOfNodes()
{
    QFETCH(int, number);
    VxNode node("node");
    node.setRotationOrder(VxNode::RotationOrder(number));
    node.getXRotControl()->setStoredValue(20.0f);
    node.getYRotControl()->setStoredValue(-35.0f);
    node.getZRotControl()->setStoredValue(110.0f);
    const QMatrix4x4 expected = node.getLocalTransform(0);
    const VxRotation actual =
        vxRotation(VxEuler{20, -35, 110}, vxRotationOrder(node.getRotationOrder()));
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            QVERIFY(std::abs(actual[std::size_t(row)][std::size_t(column)] -
                             double(expected(row, column))) < 1e-6);
    }
}

void tst_VxEuler::anglesRoundTrip_data()
{
    QTest::addColumn<VxEuler>("angles");
    QTest::newRow("none") << VxEuler{0, 0, 0};
    QTest::newRow("small") << VxEuler{1, -2, 3};
    QTest::newRow("large") << VxEuler{100, 75, -160};
    QTest::newRow("quarter turns") << VxEuler{90, 0, -90};
    QTest::newRow("more than a turn") << VxEuler{400, 30, -800};
    QTest::newRow("beyond a pole") << VxEuler{10, 100, 20};
    QTest::newRow("all beyond a pole") << VxEuler{170, 130, 95};
    QTest::newRow("at the pole of X") << VxEuler{90, 20, 30};
    QTest::newRow("at the pole of Y") << VxEuler{20, 90, 30};
    QTest::newRow("at the other pole of Y") << VxEuler{20, -90, 30};
    QTest::newRow("at the pole of Z") << VxEuler{20, 30, -90};
    QTest::newRow("close to a pole") << VxEuler{20, 89.999, 30};
}

void tst_VxEuler::anglesRoundTrip()
{
    QFETCH(VxEuler, angles);
    for (int i = 0; i < 6; ++i) {
        const auto order = VxRotationOrder(i);
        const VxRotation rotation = vxRotation(angles, order);
        QVERIFY2(difference(vxEulerAngles(rotation, order, angles), angles) < 1e-5, OrderNames[i]);
        // Whatever the previous angles, the rotation is the same.
        const VxEuler any = vxEulerAngles(rotation, order, {-70, 300, 45});
        QVERIFY2(difference(vxRotation(any, order), rotation) < 1e-7, OrderNames[i]);
    }
}

void tst_VxEuler::randomAnglesRoundTrip()
{
    QFETCH(int, number);
    const auto order = VxRotationOrder(number);
    std::mt19937 random(7);
    std::uniform_real_distribution<double> angle(-400, 400);
    for (int i = 0; i < 2000; ++i) {
        const VxEuler angles{angle(random), angle(random), angle(random)};
        const VxRotation rotation = vxRotation(angles, order);
        const VxEuler found = vxEulerAngles(rotation, order, angles);
        QVERIFY(difference(vxRotation(found, order), rotation) < 1e-9);
        QVERIFY(difference(found, angles) < 1e-4);
    }
}

void tst_VxEuler::quaternionsRoundTrip()
{
    QFETCH(int, number);
    const auto order = VxRotationOrder(number);
    std::mt19937 random(11);
    std::uniform_real_distribution<double> angle(-400, 400);
    for (int i = 0; i < 2000; ++i) {
        const VxEuler angles{angle(random), angle(random), angle(random)};
        const VxQuaternion q = vxQuaternion(angles, order);
        const VxRotation rotation = vxRotation(angles, order);
        QVERIFY(difference(vxRotation(q), rotation) < 1e-12);
        QVERIFY(vxAngleBetween(vxQuaternion(rotation), q) < 1e-9);
        QVERIFY(difference(vxEulerAngles(q, order, angles), angles) < 1e-4);
        const VxQuaternion twice{2 * q.w, 2 * q.x, 2 * q.y, 2 * q.z};
        QVERIFY(difference(vxEulerAngles(twice, order, angles), angles) < 1e-4);
    }
    // Half turns, where three of the four parts are zero.
    for (const VxEuler &half : {VxEuler{180, 0, 0}, VxEuler{0, 180, 0}, VxEuler{0, 0, 180}}) {
        const VxRotation rotation = vxRotation(half, order);
        QVERIFY(difference(vxRotation(vxQuaternion(rotation)), rotation) < 1e-12);
    }
}

void tst_VxEuler::nearestEquivalent_data()
{
    QTest::addColumn<VxEuler>("previous");
    QTest::addColumn<VxEuler>("expected"); // of 10, 20, 30 degrees in the order XYZ
    QTest::newRow("zero") << VxEuler{0, 0, 0} << VxEuler{10, 20, 30};
    QTest::newRow("a turn further") << VxEuler{365, 0, 0} << VxEuler{370, 20, 30};
    QTest::newRow("a turn back") << VxEuler{0, 0, -300} << VxEuler{10, 20, -330};
    QTest::newRow("beyond the pole") << VxEuler{180, 170, 200} << VxEuler{190, 160, 210};
    QTest::newRow("beyond the pole, backwards")
        << VxEuler{-180, 170, -140} << VxEuler{-170, 160, -150};
}

void tst_VxEuler::nearestEquivalent()
{
    QFETCH(VxEuler, previous);
    QFETCH(VxEuler, expected);
    const VxEuler angles{10, 20, 30};
    const auto order = VxRotationOrder::XYZ;
    QVERIFY(difference(vxNearestEuler(angles, previous, order), expected) < 1e-9);
    QVERIFY(difference(vxEulerAngles(vxRotation(angles, order), order, previous), expected) < 1e-9);
}

void tst_VxEuler::nearestIsNoFartherThanAnyEquivalent()
{
    QFETCH(int, number);
    const auto order = VxRotationOrder(number);
    std::mt19937 random(13);
    std::uniform_real_distribution<double> angle(-500, 500);
    const std::array<int, 3> &axes = vxRotationAxes(order);
    for (int i = 0; i < 200; ++i) {
        const VxEuler angles{angle(random), angle(random), angle(random)};
        const VxEuler previous{angle(random), angle(random), angle(random)};
        const VxEuler found = vxNearestEuler(angles, previous, order);
        QVERIFY(difference(vxRotation(found, order), vxRotation(angles, order)) < 1e-9);
        VxEuler other = angles;
        other[std::size_t(axes[0])] += 180;
        other[std::size_t(axes[1])] = 180 - other[std::size_t(axes[1])];
        other[std::size_t(axes[2])] += 180;
        double least = 1e9;
        for (const VxEuler &triple : {angles, other}) {
            for (int turns = 0; turns < 343; ++turns) {
                const VxEuler candidate{triple[0] + 360 * (turns % 7 - 3),
                                        triple[1] + 360 * (turns / 7 % 7 - 3),
                                        triple[2] + 360 * (turns / 49 - 3)};
                least = std::min(least, distance(candidate, previous));
            }
        }
        QVERIFY(distance(found, previous) < least + 1e-9);
    }
}

void tst_VxEuler::gimbalLockKeepsTheFirstAngle()
{
    QFETCH(int, number);
    const auto order = VxRotationOrder(number);
    for (const double middle : {90.0, -90.0, 270.0, 450.0}) {
        const VxEuler angles = inOrder(order, 25, middle, 40);
        const VxRotation rotation = vxRotation(angles, order);
        const VxEuler previous = inOrder(order, 33, middle + 3, 20);
        for (const VxEuler &found :
             {vxEulerAngles(rotation, order, previous), vxNearestEuler(angles, previous, order),
              vxEulerAngles(vxQuaternion(angles, order), order, previous)}) {
            QVERIFY(difference(vxRotation(found, order), rotation) < 1e-6);
            QCOMPARE(found[std::size_t(vxRotationAxes(order)[0])], 33.0);
            const double last = found[std::size_t(vxRotationAxes(order)[2])];
            QVERIFY(std::abs(last - 20) < 60);
            QVERIFY(std::abs(found[std::size_t(vxRotationAxes(order)[1])] - middle) < 1e-4);
        }
    }
}

/// Two full turns about each axis alone, in steps of 5 degrees, through gimbal lock for one of
/// them.
void tst_VxEuler::continuousRotationsDoNotJump()
{
    QFETCH(int, number);
    const auto order = VxRotationOrder(number);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        VxEuler from{};
        VxEuler filtered{};
        for (int i = 0; i <= 144; ++i) {
            VxEuler angles{};
            angles[axis] = i * 5.0;
            const VxRotation rotation = vxRotation(angles, order);
            from = vxEulerAngles(rotation, order, from);
            QVERIFY(difference(from, angles) < 1e-4);
            // The same from angles that jump: each limited to its own turn.
            filtered = vxNearestEuler(vxEulerAngles(rotation, order), filtered, order);
            QVERIFY(difference(filtered, angles) < 1e-4);
        }
    }
}

void tst_VxEuler::angleBetween_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<double>("expected");
    QTest::newRow("none") << 0.0 << 0.0;
    QTest::newRow("tiny") << 1e-7 << 1e-7;
    QTest::newRow("a quarter turn") << 90.0 << 90.0;
    QTest::newRow("a half turn") << 180.0 << 180.0;
    QTest::newRow("the shorter way") << 200.0 << 160.0;
    QTest::newRow("a full turn") << 360.0 << 0.0;
}

void tst_VxEuler::angleBetween()
{
    QFETCH(double, angle);
    QFETCH(double, expected);
    const auto order = VxRotationOrder::ZXY;
    const VxQuaternion from = vxQuaternion(VxEuler{30, 40, 50}, order);
    const VxQuaternion to = from * vxQuaternion(VxEuler{0, angle, 0}, order);
    QVERIFY(std::abs(vxAngleBetween(from, to) - expected) < 1e-9 + expected * 1e-7);
}

void tst_VxEuler::slerpHasConstantSpeed()
{
    const auto order = VxRotationOrder::XYZ;
    const VxQuaternion from = vxQuaternion(VxEuler{0, 10, 20}, order);
    const VxQuaternion to = vxQuaternion(VxEuler{0, 10, 140}, order);
    for (int i = 0; i <= 8; ++i) {
        const VxQuaternion q = vxSlerp(from, to, i / 8.0);
        QVERIFY(std::abs(vxAngleBetween(from, q) - 15.0 * i) < 1e-9);
        QVERIFY(std::abs(vxAngleBetween(q, to) - 15.0 * (8 - i)) < 1e-9);
    }
    QVERIFY(vxAngleBetween(vxSlerp(from, from, 0.5), from) < 1e-9);
}

void tst_VxEuler::quaternionOfNoLength()
{
    const VxEuler none{0, 0, 0};
    QCOMPARE(vxEulerAngles(VxQuaternion{0, 0, 0, 0}, VxRotationOrder::XYZ, {1, 2, 3}), none);
}

VX_TEST_GUILESS_MAIN(tst_VxEuler)
#include "tst_vxeuler.moc"
