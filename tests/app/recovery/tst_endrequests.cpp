// A program that is asked to end by the system.

#include "recoverytestbase.h"
#include "shell/endsignals.h"
#include "testing/vxtestmain.h"

#include <QProcess>
#include <QSignalSpy>
#include <csignal>
#include <cstdio>

namespace {

/// The program as main() runs it, with copies so seldom that none is made before it ends.
int workUntilEnded(const QString &settings, const QString &file, float value)
{
    const CommandLine line = CommandLine::parse(
        {"vxstudio", "--settings", settings, "--plugin-path", QStringLiteral(VX_PLUGIN_DIR)});
    Studio studio(line);
    QTimer::singleShot(0, studio.window(), [&] {
        if (!studio.window()->document()->open(file))
            QApplication::exit(1);
        if (value > 0.0f)
            RecoveryTest::changeValue(value);
        std::puts("changed");
        std::fflush(stdout);
    });
    return studio.run();
}

} // namespace

class tst_EndRequests : public QObject, public RecoveryTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { leave(); }

    void requestsToEndLeaveACopy_data();
    void requestsToEndLeaveACopy();
    void requestsToEndStopAScript();
    void aScriptThatFillsTheMemoryIsStopped();
    void ignoredRequestsStayIgnored();
};

void tst_EndRequests::requestsToEndLeaveACopy_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("changed");
    QTest::newRow("shut down") << SIGTERM << true;
    QTest::newRow("shut down, nothing changed") << SIGTERM << false;
    QTest::newRow("terminal closed") << SIGHUP << true;
    QTest::newRow("interrupted") << SIGINT << true;
}

void tst_EndRequests::requestsToEndLeaveACopy()
{
    QFETCH(int, number);
    QFETCH(bool, changed);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  {"--work-until-ended", settings(), copySample(), changed ? "44.5" : "0"});
    QByteArray said;
    while (!said.contains("changed")) {
        QVERIFY(process.waitForReadyRead(30000));
        said += process.readAllStandardOutput();
    }
    QVERIFY(::kill(pid_t(process.processId()), number) == 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 128 + number);
    QVERIFY(QFile::exists(settings())); // it ended in order
    start();
    QCOMPARE(recovery()->offer(), changed);
    if (!changed)
        return;
    press("RecoverButton");
    QCOMPARE(changedValue(), 44.5f);
}

/// What a script has done in a window is work like any other.
void tst_EndRequests::requestsToEndStopAScript()
{
    for (const char *edit : {"Scene.addNode('work');",
                             "Undo.beginHold(); Scene.addNode('work'); Undo.acceptHold('Add');"}) {
        QFile script(folder->filePath("endless.js"));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write(edit + QByteArray("print('begun'); for (;;) {}"));
        script.close();
        QProcess process;
        process.start(QStringLiteral(VX_BINARY_DIR "/bin/vxstudio"),
                      {"--settings", settings(), "--script", script.fileName()});
        QByteArray said;
        while (!said.contains("begun")) {
            QVERIFY2(process.waitForReadyRead(30000), process.readAllStandardError().constData());
            said += process.readAllStandardOutput();
        }
        QCOMPARE(::kill(pid_t(process.processId()), SIGTERM), 0);
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 128 + SIGTERM);
        start();
        QVERIFY(recovery()->offer());
        press("RecoverButton");
        QVERIFY(vxScene->findNode("work"));
        vxApp->getUndoStack()->setClean();
        tearDown();
        setUp();
    }
}

void tst_EndRequests::aScriptThatFillsTheMemoryIsStopped()
{
    QFile script(folder->filePath("large.js"));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("var list = []; for (var i = 0;; ++i) list.push({ a: i });");
    script.close();
    QProcess process;
    process.start(
        QStringLiteral(VX_BINARY_DIR "/bin/vxstudio"),
        {"--settings", settings(), "--script", script.fileName(), "--memory-limit", "150"});
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 1);
    const QByteArray errors = process.readAllStandardError();
    QVERIFY2(errors.contains("memory limit of 150 MB"), errors.constData());
}

void tst_EndRequests::ignoredRequestsStayIgnored()
{
    const auto former = std::signal(SIGHUP, SIG_IGN);
    {
        const EndSignals requests;
        QSignalSpy received(&requests, &EndSignals::received);
        std::raise(SIGHUP);
        QVERIFY(!received.wait(100));
        std::raise(SIGTERM);
        QVERIFY(received.wait());
        QCOMPARE(received.constFirst().constFirst().toInt(), SIGTERM);
    }
    QVERIFY(std::signal(SIGHUP, former) == SIG_IGN);
}

static int runEndRequests(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--work-until-ended"))
        return workUntilEnded(arguments.value(2), arguments.value(3), arguments.value(4).toFloat());
    tst_EndRequests test;
    return QTest::qExec(&test, argc, argv);
}

VX_TEST_UNIT(&runEndRequests)

#include "tst_endrequests.moc"
