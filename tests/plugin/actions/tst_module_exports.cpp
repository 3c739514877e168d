#include "testing/vxtestmain.h"

#include <QProcess>
#include <QtTest>

namespace {

// The symbols that a library defines for others, each with its kind; sorted.
QStringList exportedSymbols(const QString &file, QString *error)
{
    QProcess nm;
    nm.start("nm", {"-D", "--defined-only", "--format=posix", file});
    if (!nm.waitForFinished() || nm.exitCode() != 0)
        *error = file + ": " + nm.errorString() + nm.readAllStandardError();
    QStringList symbols;
    const QStringList lines =
        QString::fromLatin1(nm.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    for (const QString &line : lines)
        symbols << line.section(' ', 0, 1);
    symbols.sort();
    return symbols;
}

} // namespace

class TestModuleExports : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void exactlyTheTwoEntryPoints();
    void libraryKeepsWhatModulesCall();
};

// The module exports two functions and nothing else, so that no symbol of it can replace one of the
// same name in the host or in another plug-in.
void TestModuleExports::exactlyTheTwoEntryPoints()
{
    QString error;
    const QStringList symbols = exportedSymbols(VX_PLUGIN_DIR "/VxTimeline.so", &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(symbols, QStringList({"getPluginDefinition T", "getSDKVersion T"}));
}

// A function that moves into a public header is no longer in the library: modules that were built
// for the same version of the SDK would load and end the program when they call it.
void TestModuleExports::libraryKeepsWhatModulesCall()
{
    QString error;
    const QStringList symbols = exportedSymbols(VX_PLUGIN_DIR "/../../libvxcore.so", &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    for (const QByteArray control :
         {"XPos", "YPos", "ZPos", "XRot", "YRot", "ZRot", "Scale", "XScale", "YScale", "ZScale"}) {
        const QByteArray name = "get" + control + "Control";
        const QByteArray symbol = "_ZNK6VxNode" + QByteArray::number(name.size()) + name + "Ev T";
        QVERIFY2(symbols.contains(symbol), symbol.constData());
    }
}

VX_TEST_GUILESS_MAIN(TestModuleExports)
#include "tst_module_exports.moc"
