#include "testing/vxtestmain.h"
#include "widgets/vxdividersplit.h"

#include <QtTest>

namespace {
constexpr int unlimited = 16777215;
}

class TestVxDividerSplit : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void split_data();
    void split();
    void ratioRestoresTheLength();
    void ratioAtTheEnds();
};

void TestVxDividerSplit::split_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<int>("min1");
    QTest::addColumn<int>("max1");
    QTest::addColumn<int>("min2");
    QTest::addColumn<int>("max2");
    QTest::addColumn<int>("first");
    QTest::newRow("half") << 100 << 0.5 << 0 << unlimited << 0 << unlimited << 50;
    QTest::newRow("half of odd") << 101 << 0.5 << 0 << unlimited << 0 << unlimited << 51;
    QTest::newRow("all to the first") << 100 << 1.0 << 0 << unlimited << 0 << unlimited << 100;
    QTest::newRow("all to the second") << 100 << 0.0 << 0 << unlimited << 0 << unlimited << 0;
    QTest::newRow("ratio beyond one") << 100 << 7.0 << 0 << unlimited << 0 << unlimited << 100;
    QTest::newRow("first at its minimum") << 100 << 0.0 << 30 << unlimited << 0 << unlimited << 30;
    QTest::newRow("second at its minimum") << 100 << 1.0 << 0 << unlimited << 20 << unlimited << 80;
    QTest::newRow("first at its maximum") << 100 << 0.9 << 0 << 40 << 0 << unlimited << 40;
    QTest::newRow("second at its maximum") << 100 << 0.1 << 0 << unlimited << 0 << 25 << 75;
    QTest::newRow("just both minima") << 50 << 0.9 << 30 << unlimited << 20 << unlimited << 30;
    QTest::newRow("too short for both minima")
        << 25 << 0.9 << 30 << unlimited << 20 << unlimited << 15;
    QTest::newRow("too long for both maxima") << 100 << 0.9 << 0 << 40 << 0 << 30 << 40;
    QTest::newRow("no room") << 0 << 0.5 << 30 << unlimited << 20 << unlimited << 0;
    QTest::newRow("less than no room") << -5 << 0.5 << 30 << unlimited << 20 << unlimited << 0;
    QTest::newRow("no room, no minima") << 0 << 0.5 << 0 << unlimited << 0 << unlimited << 0;
    QTest::newRow("maximum below the other's minimum needs")
        << 100 << 0.5 << 30 << 40 << 80 << unlimited << 27;
}

void TestVxDividerSplit::split()
{
    QFETCH(int, length);
    QFETCH(double, ratio);
    QFETCH(int, min1);
    QFETCH(int, max1);
    QFETCH(int, min2);
    QFETCH(int, max2);
    const VxDividerSplit parts = vxSplitLength(length, ratio, {min1, max1}, {min2, max2});
    QTEST(parts.first, "first");
    QCOMPARE(parts.first + parts.second, std::max(0, length));
}

void TestVxDividerSplit::ratioRestoresTheLength()
{
    for (int length : {1, 2, 3, 7, 100, 999, 2160, 7681}) {
        for (int first = 0; first <= length; ++first) {
            const double ratio = vxSplitRatio(first, length);
            QCOMPARE(vxSplitLength(length, ratio, {0, unlimited}, {0, unlimited}).first, first);
        }
    }
}

void TestVxDividerSplit::ratioAtTheEnds()
{
    QCOMPARE(vxSplitRatio(-5, 100), 0.0);
    QCOMPARE(vxSplitRatio(105, 100), 1.0);
    QCOMPARE(vxSplitRatio(0, 0), 0.5);
    QCOMPARE(vxSplitRatio(3, -1), 0.5);
}

VX_TEST_APPLESS_MAIN(TestVxDividerSplit)
#include "tst_vxdividersplit.moc"
