#include "testing/vxtestmain.h"

#include <QProcess>
#include <QtTest>

// The module hands out two functions and nothing else, so that no symbol of it can meet one of the
// same name in the host or in another plug-in.
class TestModuleExports : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void exactlyTheTwoEntryPoints();
};

void TestModuleExports::exactlyTheTwoEntryPoints()
{
    const QString module = QStringLiteral(VX_PLUGIN_DIR "/VxTimeline.so");
    QVERIFY2(QFile::exists(module), qPrintable(module));
    QProcess nm;
    nm.start("nm", {"-D", "--defined-only", "--format=posix", module});
    QVERIFY2(nm.waitForFinished(), qPrintable(nm.errorString()));
    QVERIFY2(nm.exitCode() == 0, nm.readAllStandardError().constData());

    QStringList symbols;
    const QStringList lines =
        QString::fromLatin1(nm.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    for (const QString &line : lines)
        symbols << line.section(' ', 0, 1);
    symbols.sort();
    QCOMPARE(symbols, QStringList({"getPluginDefinition T", "getSDKVersion T"}));
}

VX_TEST_GUILESS_MAIN(TestModuleExports)
#include "tst_module_exports.moc"
