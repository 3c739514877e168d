// The monkey: it finds a planted re-entrancy crash and reports where, and a short run with a fixed
// seed finds nothing else.

#include "testing/vxtestmain.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class tst_Monkey : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void findsAPlantedCrash();
    void shortRun();

private:
    void run(const QStringList &arguments);

    QProcess m_process;
    QString m_output;
    QString m_log;
    QTemporaryDir m_folder;
};

void tst_Monkey::run(const QStringList &arguments)
{
    const QString program = QStringLiteral(VX_BINARY_DIR "/bin/vxmonkey");
    m_log = m_folder.filePath(QStringLiteral("log"));
    // A program that crashes leaves its temporary folder behind.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), m_folder.path());
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(program, QStringList{"--log", m_log} + arguments);
    QVERIFY2(m_process.waitForFinished(200000), qPrintable(m_process.errorString()));
    m_output = QString::fromLocal8Bit(m_process.readAll());
    QProcess show;
    show.start(program, {"--show-log", m_log});
    QVERIFY(show.waitForFinished());
    m_log = QString::fromLocal8Bit(show.readAllStandardOutput());
}

void tst_Monkey::findsAPlantedCrash()
{
    // On a loaded machine the events of a seed meet other states of the window.
    int seed = 0;
    bool hasCrashed = false;
    while (!hasCrashed && ++seed <= 6) {
        run({"--seed", QString::number(seed), "--events", "5000", "--plant"});
        hasCrashed = m_process.exitStatus() == QProcess::CrashExit || m_process.exitCode() != 0;
    }
    QVERIFY2(hasCrashed, qPrintable(m_output));
    QVERIFY2(m_output.contains(QStringLiteral("seed %1").arg(seed)), qPrintable(m_output));
    QVERIFY2(!m_output.contains("5000 events in"), qPrintable(m_output));
    // The last events lead to the widget with the mistake.
    const QString last = m_log.section('\n', -40);
    QVERIFY2(last.contains("PlantedPane"), qPrintable(last));
}

void tst_Monkey::shortRun()
{
    run({"--seed", "3", "--events", "2500"});
    QVERIFY2(m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0,
             qPrintable(m_output + m_log.section('\n', -40)));
    for (const char *kind :
         {"mouse drag", "key", "wheel", "menu", "script", "re-dock in mid-press"})
        QVERIFY2(m_output.contains(QLatin1String(kind)), kind);
    QVERIFY(m_output.contains("2500 events in"));
}

VX_TEST_MAIN(tst_Monkey)
#include "tst_monkey.moc"
