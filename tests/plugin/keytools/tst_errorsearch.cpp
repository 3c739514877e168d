#include "keytools/errorsearch.h"
#include "testing/vxtestmain.h"

#include <QtTest>
#include <cmath>

/// The search for the error of a reduction by known numbers of keys.
class tst_ErrorSearch : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void finds_data();
    void finds();
    void beginsAtAnEstimate();
};

namespace {

/// Keys by the error: a power of it, steps, or a jump at an error of 2.
int keysAt(const QString &curve, double error)
{
    if (curve == "power")
        return int(std::min(1e6, 1e5 * std::pow(error, -0.6)));
    if (curve == "steps")
        return 10 * int(std::min(1000.0, 50 / error)) + 2;
    if (curve == "jump")
        return error < 2 ? 1000 : 10;
    return 500;
}

/// The number of tries, 100 at most.
int run(ErrorSearch *search, const QString &curve)
{
    int tries = 0;
    for (; !search->isDone() && tries < 100; ++tries)
        search->add(keysAt(curve, search->next()));
    return tries;
}

} // namespace

void tst_ErrorSearch::finds_data()
{
    QTest::addColumn<QString>("curve");
    QTest::addColumn<double>("keys");
    QTest::addColumn<double>("error");
    QTest::addColumn<int>("mostTries");
    QTest::newRow("power") << "power" << 20000.0 << std::pow(0.2, -1 / 0.6) << 8;
    QTest::newRow("power, small error") << "power" << 990000.0 << std::pow(9.9, -1 / 0.6) << 12;
    QTest::newRow("steps") << "steps" << 100.0 << 50.0 / 10 << 24;
    QTest::newRow("jump") << "jump" << 300.0 << 2.0 << 26;
    QTest::newRow("never few enough") << "constant" << 499.0 << 1e5 << 26;
    QTest::newRow("always few enough") << "constant" << 500.0 << 1e-5 << 26;
    QTest::newRow("none") << "power" << 0.0 << 1e5 << 26;
}

void tst_ErrorSearch::finds()
{
    QFETCH(QString, curve);
    QFETCH(double, keys);
    QFETCH(double, error);
    QFETCH(int, mostTries);
    ErrorSearch search(keys);
    const int tries = run(&search, curve);
    QVERIFY2(tries <= mostTries, qPrintable(QString::number(tries)));
    QVERIFY2(std::abs(std::log(search.error() / error)) < 0.0025,
             qPrintable(QString::number(search.error())));
    if (error < 1e5)
        QVERIFY(keysAt(curve, search.error()) <= keys);
}

void tst_ErrorSearch::beginsAtAnEstimate()
{
    ErrorSearch search(20000);
    search.setFirst(13);
    QCOMPARE(search.next(), 13.0);
    QVERIFY(run(&search, "power") <= 5);
    QVERIFY(std::abs(std::log(search.error() / std::pow(0.2, -1 / 0.6))) < 0.0025);
}

VX_TEST_MAIN(tst_ErrorSearch)
#include "tst_errorsearch.moc"
