#include "gesturesession.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

/// Random gestures with the viewport's tools; thousands of them run as soak_gestures.
class tst_GesturesRandom : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void historyHolds_data();
    void historyHolds();
};

void tst_GesturesRandom::historyHolds_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 4; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_GesturesRandom::historyHolds()
{
    QFETCH(uint, seed);
    VxWarningGuard guard;
    GestureSession session(seed);
    const QString fault = session.run(vxSessionLength(100));
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
    QVERIFY2(session.entries() > vxSessionLength(20),
             qPrintable(QString::number(session.entries())));
}

VX_TEST_MAIN(tst_GesturesRandom)
#include "tst_gesturesrandom.moc"
