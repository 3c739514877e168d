#include "shell/commandline.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>

namespace {

CommandLine parse(const QStringList &arguments)
{
    return CommandLine::parse(QStringList{QStringLiteral("vxstudio")} + arguments);
}

} // namespace

class tst_CommandLine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }

    void nothing();
    void everyOption();
    void wrong_data();
    void wrong();
    void helpAndVersionTakePrecedence_data();
    void helpAndVersionTakePrecedence();
    void argumentsAfterTheDashes();
    void aBatchIsNotInteractive();
    void helpNamesOptionsAndExitCodes();

private:
    QScopedPointer<VxWarningGuard> m_guard;
};

void tst_CommandLine::nothing()
{
    const CommandLine line = parse({});
    QVERIFY(line.action == CommandLine::Action::Run);
    QVERIFY(line.file.isEmpty());
    QVERIFY(line.size.isEmpty());
    QVERIFY(!line.frame);
    QVERIFY(!line.isBatch());
}

void tst_CommandLine::everyOption()
{
    const CommandLine line =
        parse({"--headless",    "--script", "a.js",          "--screenshot=b.png",
               "--size",        "1600x900", "--frame",       "-3",
               "--language",    "de",       "--palette",     "contrast",
               "--settings",    "c.json",   "--text-size",   "18",
               "--plugin-path", "d",        "--plugin-path", "e",
               "walk.bvh",      "--",       "one",           "--two"});
    QVERIFY2(line.action == CommandLine::Action::Run, qPrintable(line.errorText));
    QVERIFY(line.headless);
    QCOMPARE(line.scriptFile, QString("a.js"));
    QCOMPARE(line.screenshotFile, QString("b.png"));
    QCOMPARE(line.size, QSize(1600, 900));
    QCOMPARE(line.frame.value_or(0), -3);
    QCOMPARE(line.language, QString("de"));
    QCOMPARE(line.palette, QString("contrast"));
    QCOMPARE(line.textSize.value_or(0), 18);
    QCOMPARE(line.settingsFile, QString("c.json"));
    QCOMPARE(line.pluginPaths, QStringList({"d", "e"}));
    QCOMPARE(line.file, QString("walk.bvh"));
    QCOMPARE(line.scriptArguments, QStringList({"one", "--two"}));
}

void tst_CommandLine::wrong_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named"); // what the message has to name
    QTest::newRow("unknown option") << QStringList{"--sideways"} << "sideways";
    QTest::newRow("option without its value") << QStringList{"--script"} << "script";
    QTest::newRow("empty value") << QStringList{"--screenshot="} << "screenshot";
    QTest::newRow("value for a switch") << QStringList{"--headless=yes"} << "headless";
    QTest::newRow("size without a cross") << QStringList{"--size", "1280"} << "1280";
    QTest::newRow("size with a word") << QStringList{"--size", "widexhigh"} << "widexhigh";
    QTest::newRow("size with a sign") << QStringList{"--size", "-800x600"} << "-800x600";
    QTest::newRow("size with a tail") << QStringList{"--size", "800x600x"} << "800x600x";
    QTest::newRow("size of nothing") << QStringList{"--size", "0x600"} << "0x600";
    QTest::newRow("size too small") << QStringList{"--size", "63x600"} << "63x600";
    QTest::newRow("size too large") << QStringList{"--size", "800x16385"} << "800x16385";
    QTest::newRow("size beyond numbers")
        << QStringList{"--size", "99999999999x600"} << "99999999999x600";
    QTest::newRow("frame with a point") << QStringList{"--frame", "1.5"} << "1.5";
    QTest::newRow("frame beyond numbers") << QStringList{"--frame", "9999999999"} << "9999999999";
    QTest::newRow("unknown palette") << QStringList{"--palette", "pink"} << "pink";
    QTest::newRow("unknown language") << QStringList{"--language", "xx"} << "xx";
    QTest::newRow("languages to choose from") << QStringList{"--language", "xx"} << "de, en";
    QTest::newRow("text too small") << QStringList{"--text-size", "7"} << "7";
    QTest::newRow("text too large") << QStringList{"--text-size", "25"} << "25";
    QTest::newRow("text size with a unit") << QStringList{"--text-size", "12pt"} << "12pt";
    QTest::newRow("two files") << QStringList{"a.bvh", "b.bvh"} << "b.bvh";
    QTest::newRow("second file behind dashes") << QStringList{"a.bvh", "--", "c.bvh"} << "c.bvh";
}

void tst_CommandLine::wrong()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const CommandLine line = parse(arguments);
    QVERIFY(line.action == CommandLine::Action::Fail);
    QVERIFY2(line.errorText.contains(named), qPrintable(line.errorText));
}

void tst_CommandLine::helpAndVersionTakePrecedence_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("help");
    QTest::newRow("help") << QStringList{"--help"} << true;
    QTest::newRow("short help") << QStringList{"-h"} << true;
    QTest::newRow("help and a bad size") << QStringList{"--size", "x", "--help"} << true;
    QTest::newRow("help and an unknown option") << QStringList{"--sideways", "--help"} << true;
    QTest::newRow("version") << QStringList{"--version"} << false;
    QTest::newRow("short version") << QStringList{"-v", "a.bvh"} << false;
}

void tst_CommandLine::helpAndVersionTakePrecedence()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, help);
    QVERIFY(parse(arguments).action ==
            (help ? CommandLine::Action::ShowHelp : CommandLine::Action::ShowVersion));
}

void tst_CommandLine::argumentsAfterTheDashes()
{
    QCOMPARE(parse({"--", "-odd.bvh"}).file, QString("-odd.bvh"));
    const CommandLine script = parse({"--script", "a.js", "--", "x", "--", "y"});
    QCOMPARE(script.file, QString());
    QCOMPARE(script.scriptArguments, QStringList({"x", "--", "y"}));
}

void tst_CommandLine::aBatchIsNotInteractive()
{
    QVERIFY(parse({"--headless"}).isBatch());
    QVERIFY(parse({"--list-actions"}).isBatch());
    QVERIFY(parse({"--list-actions"}).headless && parse({"--list-actions"}).listActions);
    QVERIFY(!parse({"--headless"}).listActions);
    QVERIFY(parse({"--screenshot", "a.png"}).isBatch());
    QVERIFY(!parse({"--script", "a.js"}).isBatch());
}

void tst_CommandLine::helpNamesOptionsAndExitCodes()
{
    const QString help = CommandLine::helpText();
    for (const char *part : {"--headless", "--script", "--screenshot", "--size", "--frame",
                             "--palette", "--text-size", "--settings", "--plugin-path", "--version",
                             "--help", "FILE", "Exit codes", "  0  ", "  1  ", "  2  "})
        QVERIFY2(help.contains(QLatin1String(part)), part);
    QVERIFY(CommandLine::versionText().contains("4.22.0.7"));
}

VX_TEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_commandline.moc"
