#include "keys/keypasses.h"
#include "keys/keytrack.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <algorithm>
#include <random>
#include <vector>

namespace {

// Around the ends of the blocks that are looked at together.
const std::vector<int> lengths = {0, 1, 2, 3, 255, 256, 257, 258, 511, 512, 513, 514, 700};

std::vector<VxTime> even(int count, VxTime first, VxTime distance)
{
    std::vector<VxTime> times;
    for (int i = 0; i < count; ++i)
        times.push_back(first + i * distance);
    return times;
}

int countOf(const std::vector<VxTime> &times)
{
    return int(times.size());
}

} // namespace

class tst_KeyPasses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ascending();
    void ascendingFindsEachDisorder();
    void spacing();
    void spacingFindsEachDifference();
    void spacingOfWideGaps();
    void keepsOrder_data();
    void keepsOrder();
    void keepsOrderAgainstSorting();

private:
    VxWarningGuard m_guard;
};

void tst_KeyPasses::ascending()
{
    for (const int length : lengths) {
        const std::vector<VxTime> times = even(length, -100, 3);
        QVERIFY2(isStrictlyAscending(times.data(), length), qPrintable(QString::number(length)));
    }
    QVERIFY(isStrictlyAscending(nullptr, 0));
    const std::vector<VxTime> wide = {VxTimeMin, VxTimeMax};
    QVERIFY(isStrictlyAscending(wide.data(), 2));
}

void tst_KeyPasses::ascendingFindsEachDisorder()
{
    for (const int length : lengths) {
        for (int i = 1; i < length; ++i) {
            std::vector<VxTime> times = even(length, 0, 2);
            times[i] = times[i - 1];
            QVERIFY2(!isStrictlyAscending(times.data(), length),
                     qPrintable(QStringLiteral("%1 of %2").arg(i).arg(length)));
        }
    }
}

void tst_KeyPasses::spacing()
{
    for (const int length : lengths) {
        const std::vector<VxTime> times = even(length, -7, 160);
        QCOMPARE(evenSpacing(times.data(), length), length < 2 ? 0 : 160);
    }
}

void tst_KeyPasses::spacingFindsEachDifference()
{
    for (const int length : lengths) {
        for (int i = 0; length > 2 && i < length; ++i) {
            std::vector<VxTime> times = even(length, 0, 160);
            ++times[i];
            QVERIFY2(evenSpacing(times.data(), length) == 0,
                     qPrintable(QStringLiteral("%1 of %2").arg(i).arg(length)));
        }
    }
}

void tst_KeyPasses::spacingOfWideGaps()
{
    const std::vector<VxTime> widest = {0, VxTimeMax};
    QCOMPARE(evenSpacing(widest.data(), 2), VxTimeMax);
    const std::vector<VxTime> wider = {-1, VxTimeMax};
    QCOMPARE(evenSpacing(wider.data(), 2), 0);
    const std::vector<VxTime> all = {VxTimeMin, VxTimeMax};
    QCOMPARE(evenSpacing(all.data(), 2), 0);
}

void tst_KeyPasses::keepsOrder_data()
{
    QTest::addColumn<QVector<int>>("indexes");
    QTest::addColumn<QVector<VxTime>>("newTimes");
    QTest::addColumn<bool>("keeps");
    // The keys are at 0, 10, 20, 30, 40.
    using I = QVector<int>;
    using T = QVector<VxTime>;
    QTest::newRow("all, far away") << I{0, 1, 2, 3, 4} << T{500, 510, 520, 530, 540} << true;
    QTest::newRow("all, two at one time") << I{0, 1, 2, 3, 4} << T{5, 15, 15, 35, 45} << false;
    QTest::newRow("all, backwards") << I{0, 1, 2, 3, 4} << T{5, 4, 3, 2, 1} << false;
    QTest::newRow("one stays between") << I{2} << T{11} << true;
    QTest::newRow("one meets the one before") << I{2} << T{10} << false;
    QTest::newRow("one meets the next") << I{2} << T{30} << false;
    QTest::newRow("one passes the next") << I{2} << T{31} << false;
    QTest::newRow("the first, earlier") << I{0} << T{-500} << true;
    QTest::newRow("the last, later") << I{4} << T{500} << true;
    QTest::newRow("two neighbours up to the next") << I{1, 2} << T{19, 29} << true;
    QTest::newRow("two neighbours onto the next") << I{1, 2} << T{20, 30} << false;
    QTest::newRow("two apart, within") << I{1, 3} << T{19, 39} << true;
    QTest::newRow("two apart, the first onto a key") << I{1, 3} << T{20, 39} << false;
    QTest::newRow("two apart, the second onto a key") << I{1, 3} << T{19, 40} << false;
    QTest::newRow("two apart, the second back onto a key") << I{1, 3} << T{9, 20} << false;
    QTest::newRow("two and one, within") << I{0, 1, 3} << T{7, 17, 37} << true;
    QTest::newRow("two and one, the pair onto a key") << I{0, 1, 3} << T{10, 20, 35} << false;
}

void tst_KeyPasses::keepsOrder()
{
    QFETCH(QVector<int>, indexes);
    QFETCH(QVector<VxTime>, newTimes);
    const std::vector<VxTime> times = even(5, 0, 10);
    const bool keeps = ::keepsOrder(times.data(), countOf(times), indexes.constData(),
                                    newTimes.constData(), indexes.size());
    QTEST(keeps, "keeps");
}

void tst_KeyPasses::keepsOrderAgainstSorting()
{
    std::mt19937 random(5);
    const auto number = [&random](int from, int to) {
        return std::uniform_int_distribution<>(from, to)(random);
    };
    int kept = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::vector<VxTime> times = even(number(1, 9), 0, 4);
        std::vector<int> indexes;
        std::vector<VxTime> newTimes;
        std::vector<VxTime> after = times;
        const int offset = number(-4, 4);
        for (int i = 0; i < countOf(times); ++i) {
            if (number(0, 1) == 0 && (!indexes.empty() || i + 1 < countOf(times)))
                continue;
            indexes.push_back(i);
            newTimes.push_back(times[i] + offset + (number(0, 3) == 0 ? 1 : 0));
            after[i] = newTimes.back();
        }
        const bool expected =
            std::adjacent_find(after.begin(), after.end(), std::greater_equal<>()) == after.end();
        kept += int(expected);
        QCOMPARE(::keepsOrder(times.data(), countOf(times), indexes.data(), newTimes.data(),
                              int(indexes.size())),
                 expected);
    }
    QVERIFY(kept > 2000 && kept < 18000);
}

VX_TEST_GUILESS_MAIN(tst_KeyPasses)
#include "tst_keypasses.moc"
