#include "io/vxeulerangles.h"
#include "testing/vxtestmain.h"

#include <QMatrix4x4>
#include <QtTest>
#include <cmath>
#include <random>
#include <vxcore/vxfloatproperty.h>

class tst_VxEulerAngles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void agreesWithTheNodes_data();
    void agreesWithTheNodes();
    void anglesComeBack_data() { orders(); }
    void anglesComeBack();
    void lockedAxesKeepTheLastAngle_data() { orders(); }
    void lockedAxesKeepTheLastAngle();
    void turnsGoOn_data() { orders(); }
    void turnsGoOn();

private:
    static void orders();
    static double difference(const VxRotation &a, const VxRotation &b);
};

void tst_VxEulerAngles::orders()
{
    QTest::addColumn<int>("order");
    const char *const names[] = {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"};
    for (int order = 0; order < 6; ++order)
        QTest::newRow(names[order]) << order;
}

double tst_VxEulerAngles::difference(const VxRotation &a, const VxRotation &b)
{
    double largest = 0.0;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            largest = std::max(largest, std::abs(a[row][column] - b[row][column]));
    }
    return largest;
}

void tst_VxEulerAngles::agreesWithTheNodes_data()
{
    orders();
}

/// The matrices are those that nodes make of their controls.
void tst_VxEulerAngles::agreesWithTheNodes()
{
    QFETCH(int, order);
    VxNode node("node");
    node.setRotationOrder(VxNode::RotationOrder(order));
    node.getXRotControl()->setStoredValue(20.0f);
    node.getYRotControl()->setStoredValue(-35.0f);
    node.getZRotControl()->setStoredValue(110.0f);
    const QMatrix4x4 expected = node.getLocalTransform(0);
    const VxRotation actual = vxRotationOf({20.0, -35.0, 110.0}, node.getRotationOrder());
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            QVERIFY(std::abs(actual[std::size_t(row)][std::size_t(column)] -
                             double(expected(row, column))) < 1e-6);
    }
}

void tst_VxEulerAngles::anglesComeBack()
{
    QFETCH(int, order);
    const auto rotationOrder = VxNode::RotationOrder(order);
    std::mt19937 random(7);
    std::uniform_real_distribution<double> angle(-400.0, 400.0);
    for (int i = 0; i < 2000; ++i) {
        const std::array<double, 3> degrees = {angle(random), angle(random), angle(random)};
        const VxRotation rotation = vxRotationOf(degrees, rotationOrder);
        const auto found = vxEulerAngles(rotation, rotationOrder, degrees);
        QVERIFY(difference(vxRotationOf(found, rotationOrder), rotation) < 1e-9);
        // With the angles for a hint the very same ones are found, whatever turn they are in.
        for (std::size_t axis = 0; axis < 3; ++axis)
            QVERIFY2(std::abs(found[axis] - degrees[axis]) < 1e-4,
                     qPrintable(QString::number(found[axis] - degrees[axis])));
    }
}

void tst_VxEulerAngles::lockedAxesKeepTheLastAngle()
{
    QFETCH(int, order);
    const auto rotationOrder = VxNode::RotationOrder(order);
    const std::array<int, 3> axes = vxRotationAxes(rotationOrder);
    for (const double middle : {90.0, -90.0}) {
        std::array<double, 3> degrees{};
        degrees[std::size_t(axes[0])] = 25.0;
        degrees[std::size_t(axes[1])] = middle;
        degrees[std::size_t(axes[2])] = 40.0;
        const VxRotation rotation = vxRotationOf(degrees, rotationOrder);
        const auto found = vxEulerAngles(rotation, rotationOrder, degrees);
        QVERIFY(difference(vxRotationOf(found, rotationOrder), rotation) < 1e-6);
        QVERIFY(std::abs(found[std::size_t(axes[2])] - 40.0) < 1e-9);
        QVERIFY(std::abs(found[std::size_t(axes[0])] - 25.0) < 1e-4);
    }
}

/// Two full turns about each axis alone, in steps: no step is larger than it was.
void tst_VxEulerAngles::turnsGoOn()
{
    QFETCH(int, order);
    const auto rotationOrder = VxNode::RotationOrder(order);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::array<double, 3> before{};
        for (int i = 0; i <= 144; ++i) {
            std::array<double, 3> degrees{};
            degrees[axis] = i * 5.0;
            before = vxEulerAngles(vxRotationOf(degrees, rotationOrder), rotationOrder, before);
            QVERIFY2(std::abs(before[axis] - degrees[axis]) < 1e-4,
                     qPrintable(QString("%1: %2").arg(degrees[axis]).arg(before[axis])));
        }
    }
}

VX_TEST_GUILESS_MAIN(tst_VxEulerAngles)
#include "tst_vxeulerangles.moc"
