// A program that is killed loses at most a second of work, whatever it was doing, also when the
// machine loses its power.

#include "journalkills.h"
#include "testing/vxtestmain.h"

#include <QtTest>

class TestJournalKilled : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void atMostASecondIsLost_data();
    void atMostASecondIsLost();
};

void TestJournalKilled::atMostASecondIsLost_data()
{
    QTest::addColumn<bool>("losesPower");
    QTest::addColumn<bool>("fails");
    QTest::newRow("the program is killed") << false << false;
    QTest::newRow("the machine loses its power") << true << false;
    QTest::newRow("the disk is full or fails for moments") << true << true;
}

void TestJournalKilled::atMostASecondIsLost()
{
    QFETCH(bool, losesPower);
    QFETCH(bool, fails);
#ifdef __SANITIZE_ADDRESS__
    if (losesPower)
        QSKIP("the sanitizer must be the first library that is loaded");
#endif
    const QString shim =
        losesPower ? QStringLiteral(VX_BINARY_DIR "/tests/syncedonly.so") : QString();
    int changes = 0;
    for (unsigned seed = 1; seed <= 4; ++seed) {
        const JournalKills::Outcome outcome =
            JournalKills::run(QCoreApplication::applicationFilePath(), {QStringLiteral("--edit")},
                              seed, 900, shim, fails);
        QVERIFY2(outcome.fault.isEmpty(), qPrintable(outcome.fault));
        QVERIFY2(outcome.lost < 1000, qPrintable(QString::number(outcome.lost)));
        changes += outcome.changes;
    }
    QVERIFY2(changes > 20, qPrintable(QString::number(changes)));
}

static int runTests(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--edit"))
        return JournalKills::edit(arguments.value(2), arguments.value(3).toUInt());
    TestJournalKilled test;
    return QTest::qExec(&test, argc, argv);
}

VX_TEST_UNIT(&runTests)

#include "tst_journalkilled.moc"
