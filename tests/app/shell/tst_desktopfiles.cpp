#include "shell/commandline.h"
#include "testing/vxtestmain.h"

#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

QString readText(const QString &name)
{
    QFile file(QStringLiteral(VX_SOURCE_DIR "/app/desktop/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The long options that the program's help lists, without "--".
QStringList helpOptions()
{
    QStringList options;
    static const QRegularExpression form(QStringLiteral("--([a-z][a-z-]+)"));
    for (const QString &line : CommandLine::helpText().split('\n')) {
        const QRegularExpressionMatch match = form.match(line);
        if (line.startsWith(QLatin1String("  -")) && match.hasMatch())
            options.append(match.captured(1));
    }
    return options;
}

} // namespace

/// The files that make the program a part of the desktop agree with the program.
class TestDesktopFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manualPageNamesEveryOption();
    void completionOffersEveryOptionOfTheHelp();
    void everyLineOfTheMenuEntryIsValid();
    void scenesAreRecognisedByTheirFirstBytes();
};

void TestDesktopFiles::manualPageNamesEveryOption()
{
    QString page = readText("vxstudio.1.in");
    page.replace(QLatin1String("\\-"), QLatin1String("-"));
    const QStringList options = helpOptions();
    QVERIFY(options.contains("headless") && options.contains("plugin-path"));
    for (const QString &option : options)
        QVERIFY2(page.contains(QLatin1String("--") + option), qPrintable(option));
    static const QRegularExpression named(QStringLiteral("^\\.B[IR]? .*--([a-z-]+)"),
                                          QRegularExpression::MultilineOption);
    auto matches = named.globalMatch(page);
    while (matches.hasNext()) {
        const QString option = matches.next().captured(1);
        QVERIFY2(options.contains(option), qPrintable(option + " is no longer an option"));
    }
}

void TestDesktopFiles::completionOffersEveryOptionOfTheHelp()
{
    QTemporaryDir folder;
    QFile program(folder.filePath("vxstudio"));
    QVERIFY(program.open(QIODevice::WriteOnly));
    program.write("#!/bin/sh\ncat <<'END'\n" + CommandLine::helpText().toUtf8() + "\nEND\n");
    program.close();
    QVERIFY(program.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    // The shell's helper functions are reduced to what the completion script uses of them.
    const QString script = QString("PATH=%1:$PATH\n"
                                   "_init_completion() { cur=--; prev=vxstudio; }\n"
                                   "_filedir() { :; }\n"
                                   "source %2/app/desktop/vxstudio.bash\n"
                                   "_vxstudio; printf '%s\\n' \"${COMPREPLY[@]}\"\n")
                               .arg(folder.path(), VX_SOURCE_DIR);
    QProcess shell;
    shell.start("bash", {"-c", script});
    QVERIFY(shell.waitForFinished());
    QStringList offered =
        QString::fromLocal8Bit(shell.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    QStringList expected;
    for (const QString &option : helpOptions())
        expected.append("--" + option);
    offered.sort();
    expected.sort();
    QCOMPARE(offered, expected);
}

void TestDesktopFiles::everyLineOfTheMenuEntryIsValid()
{
    if (QStandardPaths::findExecutable("desktop-file-validate").isEmpty())
        QSKIP("desktop-file-validate is not installed");
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start("desktop-file-validate", {VX_SOURCE_DIR "/app/desktop/vxstudio.desktop"});
    QVERIFY(validator.waitForFinished());
    QCOMPARE(QString::fromLocal8Bit(validator.readAll()), QString());
    QCOMPARE(validator.exitCode(), 0);
}

void TestDesktopFiles::scenesAreRecognisedByTheirFirstBytes()
{
    QTemporaryDir data;
    QVERIFY(QDir(data.path()).mkpath("mime/packages"));
    QVERIFY(QFile::copy(VX_SOURCE_DIR "/app/desktop/vxstudio-mime.xml",
                        data.filePath("mime/packages/vxstudio.xml")));
    if (QStandardPaths::findExecutable("update-mime-database").isEmpty())
        QSKIP("update-mime-database is not installed");
    QCOMPARE(QProcess::execute("update-mime-database", {"-V", data.filePath("mime")}), 0);
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());

    const QMimeDatabase types;
    QFile sample(VX_SOURCE_DIR "/samples/walk.vxscene");
    QVERIFY(sample.open(QIODevice::ReadOnly));
    QCOMPARE(types.mimeTypeForData(sample.readAll()).name(), QString("application/x-vxscene"));
    QCOMPARE(types.mimeTypeForFile("a.bvh", QMimeDatabase::MatchExtension).name(),
             QString("application/x-biovision-hierarchy"));
    QVERIFY(types.mimeTypeForData("nothing of the kind").name() != "application/x-vxscene");
}

VX_TEST_MAIN(TestDesktopFiles)
#include "tst_desktopfiles.moc"
