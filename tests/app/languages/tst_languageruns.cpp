#include "testing/vxtestmain.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// Runs the program in languages, from outside and without a display.
class tst_LanguageRuns : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_dir.reset(new QTemporaryDir); }
    void cleanup() { m_dir.reset(); }
    void helpIsInTheLanguage_data();
    void helpIsInTheLanguage();
    void pagesForDevelopersAreEnglish();

private:
    QString run(const QStringList &arguments, const QString &systemLanguage);
    QScopedPointer<QTemporaryDir> m_dir;
};

/** What the program wrote, to standard output and standard error. */
QString tst_LanguageRuns::run(const QStringList &arguments, const QString &systemLanguage)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), systemLanguage);
    environment.remove(QStringLiteral("LANGUAGE"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_dir->filePath("config"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_dir->path());
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(VX_BINARY_DIR "/bin/vxstudio"), arguments);
    if (!process.waitForFinished(60000))
        process.kill();
    return QString::fromUtf8(process.readAllStandardOutput());
}

void tst_LanguageRuns::helpIsInTheLanguage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("systemLanguage");
    QTest::addColumn<bool>("german");
    QTest::newRow("system without a language") << QStringList{"--help"} << "C.UTF-8" << false;
    QTest::newRow("German system") << QStringList{"--help"} << "de_DE.UTF-8" << true;
    QTest::newRow("Swiss system") << QStringList{"--help"} << "de_CH.UTF-8" << true;
    QTest::newRow("untranslated system") << QStringList{"--help"} << "fr_FR.UTF-8" << false;
    QTest::newRow("option over the system")
        << QStringList{"--help", "--language", "en"} << "de_DE.UTF-8" << false;
    QTest::newRow("option") << QStringList{"--help", "--language", "de"} << "C.UTF-8" << true;
}

void tst_LanguageRuns::helpIsInTheLanguage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, systemLanguage);
    QFETCH(bool, german);
    const QString help = run(arguments, systemLanguage);
    QVERIFY2(help.contains("--screenshot"), qPrintable(help));
    QVERIFY2(help.contains(german ? "Zeigt diese Hilfe." : "Show this help."), qPrintable(help));
    QVERIFY2(!help.contains(german ? "Show this help." : "Zeigt diese Hilfe."), qPrintable(help));
}

void tst_LanguageRuns::pagesForDevelopersAreEnglish()
{
    const QString page = run({"--list-actions"}, "C.UTF-8");
    QVERIFY2(page.contains("| Undo |") || page.contains("VxAddKeysAction"), qPrintable(page));
    QCOMPARE(run({"--list-actions"}, "de_DE.UTF-8"), page);
    QCOMPARE(run({"--list-actions", "--language", "de"}, "C.UTF-8"), page);
}

VX_TEST_MAIN(tst_LanguageRuns)
#include "tst_languageruns.moc"
