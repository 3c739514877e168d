#include "testing/vxtestmain.h"
#include "viewport/groundgrid.h"

#include <QtTest>
#include <cmath>

class tst_GroundGrid : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void step_data();
    void step();
    void linesAreAtMultiplesOfTheStep();
    void everyFifthIsMajorAndTheAxesAreLast();
    void theAxesLeaveTheViewWithTheCenter();
    void farCentersHaveNoAxes();
    void planesThroughTheOrigin_data();
    void planesThroughTheOrigin();
};

void tst_GroundGrid::step_data()
{
    QTest::addColumn<float>("distance");
    QTest::addColumn<float>("expected");
    QTest::newRow("a room") << 12.0f << 1.0f;
    QTest::newRow("a little farther") << 20.0f << 2.0f;
    QTest::newRow("farther still") << 60.0f << 5.0f;
    QTest::newRow("just below ten") << 108.0f << 10.0f;
    QTest::newRow("a hand") << 0.12f << 0.01f;
    QTest::newRow("no distance") << 0.0f << 1.0f;
    QTest::newRow("negative") << -5.0f << 1.0f;
    QTest::newRow("no number") << float(NAN) << 1.0f;
}

void tst_GroundGrid::step()
{
    QFETCH(float, distance);
    QFETCH(float, expected);
    QVERIFY(std::abs(groundGridStep(distance) - expected) < expected * 1e-5f);
}

void tst_GroundGrid::linesAreAtMultiplesOfTheStep()
{
    const QVector<GroundLine> lines = groundGrid({13.7f, 5, -8.2f}, 0.5f);
    QCOMPARE(lines.size(), 82);
    for (const GroundLine &line : lines) {
        QCOMPARE(line.from.y(), 0.0f);
        QCOMPARE(line.to.y(), 0.0f);
        const bool alongX = line.from.z() == line.to.z();
        QVERIFY(alongX || line.from.x() == line.to.x());
        const float number = (alongX ? line.from.z() : line.from.x()) / 0.5f;
        QCOMPARE(number, std::round(number));
        QCOMPARE((line.to - line.from).length(), 20.0f);
    }
}

void tst_GroundGrid::everyFifthIsMajorAndTheAxesAreLast()
{
    const QVector<GroundLine> lines = groundGrid({0.4f, 0, 0.1f}, 1);
    int counts[5] = {};
    for (int i = 0; i < lines.size(); ++i) {
        ++counts[lines.at(i).role];
        QVERIFY(i == 0 || lines.at(i - 1).role <= lines.at(i).role);
    }
    QCOMPARE(counts[GroundLine::Major], 2 * 8);
    QCOMPARE(counts[GroundLine::XAxis], 1);
    QCOMPARE(counts[GroundLine::ZAxis], 1);
    QCOMPARE(lines.at(lines.size() - 2).from.z(), 0.0f); // the X axis runs along x at z = 0
    QCOMPARE(lines.constLast().from.x(), 0.0f);
}

void tst_GroundGrid::theAxesLeaveTheViewWithTheCenter()
{
    for (const GroundLine &line : groundGrid({1000, 0, -1000}, 1))
        QVERIFY(line.role == GroundLine::Minor || line.role == GroundLine::Major);
}

// The multiples of the step there are more than a whole number can hold.
void tst_GroundGrid::farCentersHaveNoAxes()
{
    for (const float far : {1e30f, -1e30f}) {
        for (const GroundLine &line : groundGrid({far, 0, far}, 1)) {
            QVERIFY(line.role == GroundLine::Minor || line.role == GroundLine::Major);
            QCOMPARE(line.from.x() > 0, far > 0);
            QCOMPARE(line.to.z() > 0, far > 0);
        }
    }
}

void tst_GroundGrid::planesThroughTheOrigin_data()
{
    QTest::addColumn<int>("plane");
    QTest::addColumn<int>("normal"); // the coordinate that is 0
    QTest::newRow("ground") << int(GridPlane::ZX) << 1;
    QTest::newRow("seen from the front") << int(GridPlane::XY) << 2;
    QTest::newRow("seen from the side") << int(GridPlane::YZ) << 0;
}

void tst_GroundGrid::planesThroughTheOrigin()
{
    QFETCH(int, plane);
    QFETCH(int, normal);
    static const GroundLine::Role axes[] = {GroundLine::XAxis, GroundLine::YAxis,
                                            GroundLine::ZAxis};
    int axesFound = 0;
    for (const GroundLine &line : groundGrid({1, 2, 3}, 1, GridPlane(plane))) {
        QCOMPARE(line.from[normal], 0.0f);
        QCOMPARE(line.to[normal], 0.0f);
        const QVector3D along = (line.to - line.from).normalized();
        for (int axis = 0; axis < 3; ++axis) {
            // An axis of the world runs through the origin.
            const bool isAxis =
                along[axis] == 1.0f && QVector3D::crossProduct(line.from, along).length() == 0.0f;
            QCOMPARE(line.role == axes[axis], isAxis);
            axesFound += isAxis ? 1 : 0;
        }
    }
    QCOMPARE(axesFound, 2);
}

VX_TEST_APPLESS_MAIN(tst_GroundGrid)
#include "tst_groundgrid.moc"
