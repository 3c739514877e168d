#include "scene/affinetransform.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <cmath>
#include <limits>

namespace {

/// Moves, turns about X, Y and Z in turn, and stretches, in this order from the left.
AffineTransform made(const double place[3], const double angles[3], const double scales[3])
{
    AffineTransform transform;
    for (int axis = 0; axis < 3; ++axis)
        transform.rotate(axis, angles[axis]);
    for (int axis = 0; axis < 3; ++axis) {
        for (double &element : transform.column[axis])
            element *= scales[axis];
        transform.column[3][axis] = place[axis];
    }
    return transform;
}

AffineTransform scaled(double x, double y, double z)
{
    const double place[] = {5, -6, 7};
    const double angles[] = {30, 110, -75};
    const double scales[] = {x, y, z};
    return made(place, angles, scales);
}

double difference(const AffineTransform &a, const AffineTransform &b)
{
    double most = 0;
    for (int i = 0; i < 4; ++i) {
        for (int row = 0; row < 3; ++row)
            most = std::max(most, std::abs(a.column[i][row] - b.column[i][row]));
    }
    return most;
}

} // namespace

/// The arithmetic of transforms, on one that moves, turns and stretches.
class tst_AffineTransform : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }

    void placesAreMappedAsByAMatrix();
    void inverses_data();
    void inverses();
    void shapesThatAreKept_data();
    void shapesThatAreKept();
    void rotationsAndFactors_data();
    void rotationsAndFactors();
    void flatTransformsHaveNoRotation();

private:
    QScopedPointer<VxWarningGuard> m_guard;
};

void tst_AffineTransform::placesAreMappedAsByAMatrix()
{
    const AffineTransform transform = scaled(1, 2, 3);
    const double place[] = {1, -2, 4};
    double mapped[3];
    transform.map(place, mapped);
    const QVector3D expected = transform.toMatrix().map(QVector3D(1, -2, 4));
    for (int row = 0; row < 3; ++row)
        QVERIFY(std::abs(mapped[row] - double(expected[row])) < 1e-5);
    QVERIFY(difference(transform * AffineTransform(), transform) < 1e-15);
    QVERIFY(AffineTransform().toMatrix().isIdentity());
}

void tst_AffineTransform::inverses_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("z");
    QTest::addColumn<bool>("exists");
    QTest::newRow("no stretch") << 1. << 1. << 1. << true;
    QTest::newRow("three factors") << 2. << 0.5 << 3. << true;
    QTest::newRow("mirror image") << -1. << 1. << 2. << true;
    QTest::newRow("tiny") << 1e-6 << 1e-6 << 1e-6 << true;
    QTest::newRow("huge beside tiny") << 1e4 << 1e-4 << 1. << true;
    QTest::newRow("flat") << 1. << 0. << 1. << false;
    QTest::newRow("a point") << 0. << 0. << 0. << false;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 1. << 1. << false;
    QTest::newRow("endless") << std::numeric_limits<double>::infinity() << 1. << 1. << false;
    QTest::newRow("beyond all numbers") << 1e300 << 1e300 << 1e300 << false;
}

void tst_AffineTransform::inverses()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, z);
    const AffineTransform transform = scaled(x, y, z);
    const std::optional<AffineTransform> inverse = transform.inverted();
    QTEST(inverse.has_value(), "exists");
    if (inverse)
        QVERIFY(difference(*inverse * transform, AffineTransform()) < 1e-7);
}

void tst_AffineTransform::shapesThatAreKept_data()
{
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("z");
    QTest::addColumn<bool>("kept");
    QTest::newRow("the same for all axes") << 2. << 2. << true;
    QTest::newRow("one axis longer") << 2. << 2.1 << false;
    QTest::newRow("mirror image") << 2. << -2. << false;
    QTest::newRow("turned round by two mirrors") << -2. << -2. << true;
}

void tst_AffineTransform::shapesThatAreKept()
{
    QFETCH(double, y);
    QFETCH(double, z);
    QTEST(scaled(2, y, z).isConformal(), "kept");
    QVERIFY(!scaled(0, 0, 0).isConformal());
}

void tst_AffineTransform::rotationsAndFactors_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("z");
    QTest::newRow("no stretch") << 1. << 1. << 1.;
    QTest::newRow("three factors") << 2. << 0.5 << 3.;
    QTest::newRow("mirrored along the last axis") << 2. << 0.5 << -3.;
    QTest::newRow("tiny") << 1e-6 << 2e-6 << 3e-6;
}

void tst_AffineTransform::rotationsAndFactors()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, z);
    const AffineTransform transform = scaled(x, y, z);
    const std::optional<RotationScale> split = splitRotation(transform);
    QVERIFY(split);
    AffineTransform turn = scaled(1, 1, 1);
    for (double &element : turn.column[3])
        element = 0;
    QVERIFY(difference(split->rotation, turn) < 1e-12);
    const double expected[] = {x, y, z};
    for (int axis = 0; axis < 3; ++axis)
        QVERIFY(std::abs(split->factors[axis] / expected[axis] - 1) < 1e-12);
}

void tst_AffineTransform::flatTransformsHaveNoRotation()
{
    QVERIFY(!splitRotation(scaled(1, 0, 1)));
    QVERIFY(!splitRotation(scaled(0, 1, 1)));
    QVERIFY(!splitRotation(scaled(std::numeric_limits<double>::quiet_NaN(), 1, 1)));
    // A skew is dropped: what is left is a turn.
    AffineTransform skewed = scaled(1, 1, 1);
    for (int row = 0; row < 3; ++row)
        skewed.column[1][row] += skewed.column[0][row];
    const std::optional<RotationScale> split = splitRotation(skewed);
    QVERIFY(split && split->rotation.isConformal());
}

VX_TEST_MAIN(tst_AffineTransform)
#include "tst_affinetransform.moc"
