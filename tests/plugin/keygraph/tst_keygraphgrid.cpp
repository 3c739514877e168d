#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/keygraph/paint/keygraphgrid.h"

#include <QtTest>
#include <cmath>
#include <random>

using namespace KeyGraphGrid;

namespace {

// Labels of a font in which each character is 7 pixels wide.
int widthOf(const QString &text)
{
    return text.size() * 7;
}

QStringList labelsOf(const QVector<Line> &lines)
{
    QStringList labels;
    for (const Line &line : lines) {
        if (line.major)
            labels += line.label;
    }
    return labels;
}

} // namespace

class TestKeyGraphGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void steps_data();
    void steps();
    void labels_data();
    void labels();
    void valueLinesAreRoundAndFarEnough();
    void valueLinesWithMinorOnes();
    void threeLabelsAtAnyScale();
    void frameLinesAtFrames();
    void frameLabelsNeverOverlap();
    void frameLinesNeverBetweenFrames();
    void degenerateScales();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestKeyGraphGrid::steps_data()
{
    QTest::addColumn<double>("smallest");
    QTest::addColumn<double>("step");
    QTest::newRow("exactly one") << 1.0 << 1.0;
    QTest::newRow("a little more") << 1.01 << 2.0;
    QTest::newRow("between two and five") << 3.0 << 5.0;
    QTest::newRow("above five") << 5.5 << 10.0;
    QTest::newRow("small") << 0.0003 << 0.0005;
    QTest::newRow("a small power of ten") << 0.001 << 0.001;
    QTest::newRow("large") << 120000.0 << 200000.0;
    QTest::newRow("zero") << 0.0 << 1.0;
    QTest::newRow("no number") << qQNaN() << 1.0;
    QTest::newRow("endless") << qInf() << 1.0;
}

void TestKeyGraphGrid::steps()
{
    QFETCH(double, smallest);
    QTEST(roundStep(smallest), "step");
}

void TestKeyGraphGrid::labels_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("step");
    QTest::addColumn<QString>("label");
    QTest::newRow("whole") << 20.0 << 10.0 << "20";
    QTest::newRow("one decimal") << -1.5 << 0.5 << "-1.5";
    QTest::newRow("as many as the step has") << 2.0 << 0.05 << "2.00";
    QTest::newRow("zero has no minus") << -1e-17 << 0.1 << "0.0";
    QTest::newRow("step of a thousandth") << 0.003 << 0.001 << "0.003";
    QTest::newRow("tiny") << 2e-8 << 1e-8 << "2e-08";
    QTest::newRow("huge") << 3e9 << 1e9 << "3e+09";
}

void TestKeyGraphGrid::labels()
{
    QFETCH(double, value);
    QFETCH(double, step);
    QTEST(valueLabel(value, step), "label");
}

void TestKeyGraphGrid::valueLinesAreRoundAndFarEnough()
{
    KeyGraphScale scale;
    scale.originY = 150;
    for (const double perPixel : {1e-6, 0.0031, 0.02, 0.77, 13.0, 4e5}) {
        scale.valuePerPixel = -perPixel;
        const QVector<Line> lines = valueLines(scale, 300, 40.0, 15.0);
        double former = 1e9;
        for (const Line &line : lines) {
            QVERIFY(line.position >= 0.0 && line.position <= 300.0);
            QCOMPARE(line.label.isEmpty(), !line.major);
            if (!line.major)
                continue;
            QVERIFY2(former - line.position > 39.9, "major lines are far enough apart");
            QVERIFY(qAbs(scale.y(line.label.toDouble()) - line.position) < 0.1);
            former = line.position;
        }
        const QStringList shown = labelsOf(lines);
        QVERIFY(shown.size() >= 3);
        QCOMPARE(QSet<QString>(shown.begin(), shown.end()).size(), shown.size());
    }
}

void TestKeyGraphGrid::valueLinesWithMinorOnes()
{
    KeyGraphScale scale;
    scale.originY = 100;
    scale.valuePerPixel = -0.5;
    // Steps of 50, in five parts of 20 pixels.
    QVector<Line> lines = valueLines(scale, 200, 60.0, 0.0);
    QCOMPARE(labelsOf(lines), QStringList({"-50", "0", "50"}));
    QCOMPARE(lines.size(), 11);
    // Parts of 8 pixels would be a smear.
    lines = valueLines(scale, 200, 40.0, 0.0);
    QCOMPARE(lines.size(), labelsOf(lines).size());
}

// Labels are above their lines, between the top and the frame numbers: 15 pixels at either end.
void TestKeyGraphGrid::threeLabelsAtAnyScale()
{
    std::mt19937 random(11);
    std::uniform_real_distribution<> exponent(-8.0, 8.0);
    for (int round = 0; round < 3000; ++round) {
        const int height = std::uniform_int_distribution<>(150, 900)(random);
        KeyGraphScale scale;
        scale.originY = height / 2.0;
        scale.valuePerPixel = -std::pow(10.0, exponent(random));
        scale.offsetY = std::uniform_real_distribution<>(-2000.0, 2000.0)(random);
        double former = 1e9;
        int labels = 0;
        for (const Line &line : valueLines(scale, height, 44.0, 15.0)) {
            if (!line.major)
                continue;
            QVERIFY(former - line.position > 14.9);
            former = line.position;
            labels += line.position >= 15.0 && line.position <= height - 15.0 ? 1 : 0;
        }
        QVERIFY2(labels >= 3, qPrintable(QString::number(height)));
    }
}

void TestKeyGraphGrid::frameLinesAtFrames()
{
    KeyGraphScale scale;
    scale.ticksPerPixel = 10.0; // 16 pixels a frame
    scale.offsetX = 80.0;
    const QVector<Line> lines = frameLines(scale, 320, 160, 10.0, widthOf);
    QCOMPARE(labelsOf(lines), QStringList({"-4", "-2", "0", "2", "4", "6", "8", "10", "12", "14"}));
    QCOMPARE(lines.size(), 21);
    QCOMPARE(lines.first().position, 0.0);
    QCOMPARE(lines.at(1).position, 16.0);
}

void TestKeyGraphGrid::frameLabelsNeverOverlap()
{
    KeyGraphScale scale;
    for (const double ticksPerPixel : {0.01, 0.5, 3.0, 16.0, 99.0, 4000.0, 500000.0}) {
        scale.ticksPerPixel = ticksPerPixel;
        for (const double offset : {0.0, 333.0, -2e5, 7e4}) {
            scale.offsetX = offset;
            double end = -1e9;
            for (const Line &line : frameLines(scale, 1000, 160, 10.0, widthOf)) {
                QCOMPARE(line.label.isEmpty(), !line.major);
                if (!line.major)
                    continue;
                const double half = widthOf(line.label) / 2.0;
                QVERIFY(line.position - half >= end + 9.9);
                end = line.position + half;
                QVERIFY(qAbs(scale.x(line.label.toDouble() * 160) - line.position) < 0.01);
            }
        }
    }
}

void TestKeyGraphGrid::frameLinesNeverBetweenFrames()
{
    KeyGraphScale scale;
    for (double ticksPerPixel = 0.05; ticksPerPixel < 1e4; ticksPerPixel *= 1.37) {
        scale.ticksPerPixel = ticksPerPixel;
        for (const Line &line : frameLines(scale, 800, 160, 10.0, widthOf)) {
            const double frame = scale.ticks(line.position) / 160.0;
            QVERIFY(qAbs(frame - std::round(frame)) < 1e-6);
        }
    }
}

void TestKeyGraphGrid::degenerateScales()
{
    KeyGraphScale scale;
    QVERIFY(frameLines(scale, 800, 0, 10.0, widthOf).isEmpty());
    QVERIFY(frameLines(scale, 0, 160, 10.0, widthOf).size() <= 1);
    QVERIFY(valueLines(scale, 0, 40.0, 15.0).size() <= 1);
    scale.offsetY = 1e300;
    QVERIFY(valueLines(scale, 300, 40.0, 15.0).isEmpty());
    scale.offsetX = -1e300;
    QVERIFY(frameLines(scale, 300, 160, 40.0, widthOf).isEmpty());
    scale.offsetY = qQNaN();
    QVERIFY(valueLines(scale, 300, 40.0, 15.0).isEmpty());
}

VX_TEST_APPLESS_MAIN(TestKeyGraphGrid)
#include "tst_keygraphgrid.moc"
