#include "scene/rotationangles.h"
#include "testing/vxtestmain.h"

#include "testing/vxwarningguard.h"

#include <QtTest>
#include <cmath>

Q_DECLARE_METATYPE(RotationAngles)

namespace {

AffineTransform turned(const RotationAngles &angles, VxNode::RotationOrder order)
{
    AffineTransform transform;
    for (const int axis : rotationAxes(order))
        transform.turn(axis, angles[size_t(axis)]);
    return transform;
}

double difference(const AffineTransform &a, const AffineTransform &b)
{
    double most = 0;
    for (int i = 0; i < 3; ++i) {
        for (int row = 0; row < 3; ++row)
            most = std::max(most, std::abs(a.column[i][row] - b.column[i][row]));
    }
    return most;
}

} // namespace

/// Angles that are turned into a matrix and found again, in every order of rotation.
class tst_RotationAngles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }

    void anglesAreFoundAgain_data();
    void anglesAreFoundAgain();
    void theNearestAreFound_data();
    void theNearestAreFound();
    void spinsGoOn();

private:
    QScopedPointer<VxWarningGuard> m_guard;
};

void tst_RotationAngles::anglesAreFoundAgain_data()
{
    QTest::addColumn<RotationAngles>("angles");
    QTest::newRow("none") << RotationAngles{0, 0, 0};
    QTest::newRow("small") << RotationAngles{1, -2, 3};
    QTest::newRow("large") << RotationAngles{100, 75, -160};
    QTest::newRow("quarters") << RotationAngles{90, 0, -90};
    QTest::newRow("more than a turn") << RotationAngles{400, 30, -800};
    QTest::newRow("over a pole") << RotationAngles{10, 100, 20};
    QTest::newRow("all over a pole") << RotationAngles{170, 130, 95};
    QTest::newRow("at the pole of X") << RotationAngles{90, 20, 30};
    QTest::newRow("at the pole of Y") << RotationAngles{20, 90, 30};
    QTest::newRow("at the other pole of Y") << RotationAngles{20, -90, 30};
    QTest::newRow("at the pole of Z") << RotationAngles{20, 30, -90};
    QTest::newRow("close to a pole") << RotationAngles{20, 89.999, 30};
}

void tst_RotationAngles::anglesAreFoundAgain()
{
    QFETCH(RotationAngles, angles);
    for (int i = VxNode::XYZ; i <= VxNode::ZYX; ++i) {
        const auto order = static_cast<VxNode::RotationOrder>(i);
        const AffineTransform turn = turned(angles, order);
        const RotationAngles same = rotationAngles(turn, order, angles);
        for (size_t axis = 0; axis < 3; ++axis)
            QVERIFY2(std::abs(same[axis] - angles[axis]) < 1e-5, qPrintable(QString::number(i)));
        // Whatever is near, the turn is the same.
        const RotationAngles any = rotationAngles(turn, order, {-70, 300, 45});
        QVERIFY2(difference(turned(any, order), turn) < 1e-7, qPrintable(QString::number(i)));
    }
}

void tst_RotationAngles::theNearestAreFound_data()
{
    QTest::addColumn<RotationAngles>("near");
    QTest::addColumn<RotationAngles>("found"); // of the turn by 10, 20, 30 degrees
    QTest::newRow("nothing") << RotationAngles{0, 0, 0} << RotationAngles{10, 20, 30};
    QTest::newRow("a turn further") << RotationAngles{365, 0, 0} << RotationAngles{370, 20, 30};
    QTest::newRow("a turn back") << RotationAngles{0, 0, -300} << RotationAngles{10, 20, -330};
    QTest::newRow("over the pole")
        << RotationAngles{180, 170, 200} << RotationAngles{190, 160, 210};
    QTest::newRow("over the pole, backwards")
        << RotationAngles{-180, 170, -140} << RotationAngles{-170, 160, -150};
}

void tst_RotationAngles::theNearestAreFound()
{
    QFETCH(RotationAngles, near);
    QFETCH(RotationAngles, found);
    const AffineTransform turn = turned({10, 20, 30}, VxNode::XYZ);
    const RotationAngles angles = rotationAngles(turn, VxNode::XYZ, near);
    for (size_t axis = 0; axis < 3; ++axis)
        QVERIFY2(std::abs(angles[axis] - found[axis]) < 1e-9,
                 qPrintable(QString::number(angles[axis])));
}

void tst_RotationAngles::spinsGoOn()
{
    // Three turns about Y in steps of five degrees, over the poles of an order with Y in the
    // middle.
    RotationAngles angles{5, 0, -5};
    for (int degree = 0; degree <= 1080; degree += 5) {
        const AffineTransform turn = turned({5, double(degree), -5}, VxNode::XYZ);
        angles = rotationAngles(turn, VxNode::XYZ, angles);
        QVERIFY2(std::abs(angles[1] - degree) < 1e-5, qPrintable(QString::number(degree)));
    }
}

VX_TEST_MAIN(tst_RotationAngles)
#include "tst_rotationangles.moc"
