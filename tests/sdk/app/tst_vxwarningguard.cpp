#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QProcess>
#include <QThread>
#include <QtTest>
#include <functional>

namespace {

void warnOnAnotherThread(const char *text)
{
    QThread *thread = QThread::create([text] { qWarning("%s", text); });
    thread->start();
    thread->wait();
    delete thread;
}

int countedMessages = 0;
void countMessage(QtMsgType, const QMessageLogContext &, const QString &)
{
    ++countedMessages;
}

} // namespace

/** The tests that must fail or pass: run in a process of their own, watched by the test below. */
class GuardProbe : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void unannouncedWarning()
    {
        VxWarningGuard guard;
        qWarning("the roof leaks");
    }
    void unannouncedCritical()
    {
        VxWarningGuard guard;
        qCritical("the roof is gone");
    }
    void debugAndInfoPass()
    {
        VxWarningGuard guard;
        qDebug("only talking");
        qInfo("for information");
    }
    void platformNoticesPass()
    {
        VxWarningGuard guard;
        qWarning("This plugin does not support raise()");
        QVERIFY(guard.messages().isEmpty());
    }
    void platformNoticesPassOnlyInFull()
    {
        VxWarningGuard guard;
        qWarning("Error: This plugin does not support raise()");
    }
    void announcedWarning()
    {
        VxWarningGuard guard;
        guard.expect(QRegularExpression("roof.*[0-9]+ places"));
        qWarning("the roof leaks in 3 places");
    }
    void announcedOnceButEmittedTwice()
    {
        VxWarningGuard guard;
        guard.expect("drip");
        qWarning("drip");
        qWarning("drip");
    }
    void exactTextIsNoPattern()
    {
        VxWarningGuard guard;
        guard.expect("a.c");
        guard.expect("abc");
        qWarning("abc");
        qWarning("a.c");
    }
    void exactTextIsNoPart()
    {
        VxWarningGuard guard;
        guard.expect("abc");
        qWarning("abcd");
    }
    void unmetExpectation()
    {
        VxWarningGuard guard;
        guard.expect("never said");
    }
    void invalidPattern()
    {
        VxWarningGuard guard;
        guard.expect(QRegularExpression("(open"));
    }
    void warningOnAnotherThread()
    {
        VxWarningGuard guard;
        warnOnAnotherThread("far away");
    }
    void announcedOnAnotherThread()
    {
        VxWarningGuard guard;
        guard.expect("far away");
        warnOnAnotherThread("far away");
    }
    void onlyTheInnerGuardReceives()
    {
        VxWarningGuard outer;
        outer.expect("outside");
        {
            VxWarningGuard inner;
            inner.expect("inside");
            qWarning("inside");
        }
        qWarning("outside");
        QCOMPARE(outer.messages(), QStringList("outside"));
    }
    void innerGuardDoesNotUseOuterExpectation()
    {
        VxWarningGuard outer;
        outer.expect("outside");
        VxWarningGuard inner;
        qWarning("outside");
    }
    void replacedGuardStillReports()
    {
        auto guard = std::make_unique<VxWarningGuard>();
        guard = std::make_unique<VxWarningGuard>();
        qWarning("after the change");
    }
};

class TestVxWarningGuard : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void outcome_data();
    void outcome();
    void messagesHoldWhatWasReceived();
    void formerHandlerReceivesMessagesAndIsRestored();
};

void TestVxWarningGuard::outcome_data()
{
    QTest::addColumn<bool>("passes");
    QTest::addColumn<QString>("says");
    QTest::newRow("unannouncedWarning") << false << "Unexpected warning: the roof leaks";
    QTest::newRow("unannouncedCritical") << false << "Unexpected warning: the roof is gone";
    QTest::newRow("debugAndInfoPass") << true << "for information";
    QTest::newRow("platformNoticesPass") << true << "This plugin does not support raise()";
    QTest::newRow("platformNoticesPassOnlyInFull") << false << "Unexpected warning: Error: This";
    QTest::newRow("announcedWarning") << true << "";
    QTest::newRow("announcedOnceButEmittedTwice") << false << "Unexpected warning: drip";
    QTest::newRow("exactTextIsNoPattern") << true << "";
    QTest::newRow("exactTextIsNoPart") << false << "Announced warning was not emitted: abc";
    QTest::newRow("unmetExpectation") << false << "Announced warning was not emitted: never said";
    QTest::newRow("invalidPattern") << false << "invalid pattern (open";
    QTest::newRow("warningOnAnotherThread") << false << "Unexpected warning: far away";
    QTest::newRow("announcedOnAnotherThread") << true << "";
    QTest::newRow("onlyTheInnerGuardReceives") << true << "";
    QTest::newRow("innerGuardDoesNotUseOuterExpectation")
        << false << "Announced warning was not emitted: outside";
    QTest::newRow("replacedGuardStillReports") << false << "Unexpected warning: after the change";
}

void TestVxWarningGuard::outcome()
{
    QFETCH(bool, passes);
    QFETCH(QString, says);
    QProcess probe;
    probe.setProcessChannelMode(QProcess::MergedChannels);
    probe.start(QCoreApplication::applicationFilePath(),
                {"--probe", QString::fromLatin1(QTest::currentDataTag())});
    QVERIFY(probe.waitForFinished());
    const QString output = QString::fromUtf8(probe.readAll());
    QCOMPARE(probe.exitStatus(), QProcess::NormalExit);
    QVERIFY2((probe.exitCode() == 0) == passes, qPrintable(output));
    QVERIFY2(output.contains(says), qPrintable(output));
    // A probe that ran no test at all would pass for the wrong reason.
    QVERIFY2(output.contains(QStringLiteral("GuardProbe::%1()").arg(QTest::currentDataTag())),
             qPrintable(output));
}

void TestVxWarningGuard::messagesHoldWhatWasReceived()
{
    VxWarningGuard guard;
    QVERIFY(guard.messages().isEmpty());
    guard.expect("one");
    guard.expect("two");
    qCritical("two");
    qWarning("one");
    QCOMPARE(guard.messages(), QStringList({"two", "one"}));
}

void TestVxWarningGuard::formerHandlerReceivesMessagesAndIsRestored()
{
    const QtMessageHandler before = qInstallMessageHandler(&countMessage);
    countedMessages = 0;
    {
        VxWarningGuard guard;
        guard.expect("announced");
        qWarning("announced");
        qDebug("passed on");
    }
    const int receivedThrough = countedMessages;
    qWarning("direct again");
    const int receivedDirectly = countedMessages;
    const QtMessageHandler restored = qInstallMessageHandler(before);
    QCOMPARE(receivedThrough, 1);
    QCOMPARE(receivedDirectly, 2);
    QVERIFY(restored == &countMessage);
}

static int runTests(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QStringList arguments = application.arguments();
    if (arguments.removeAll(QStringLiteral("--probe")) > 0) {
        GuardProbe probe;
        return QTest::qExec(&probe, arguments);
    }
    TestVxWarningGuard test;
    return QTest::qExec(&test, argc, argv);
}

VX_TEST_UNIT(&runTests)

#include "tst_vxwarningguard.moc"
