#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/time/vxwarning.h"

#include <QtTest>

class TestVxWarning : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sourcePath_data();
    void sourcePath();
    void format();
    void positionOfThisFile();
    void percentSignsArePrinted();
};

void TestVxWarning::sourcePath_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("path");
    QTest::newRow("root of the build") << "/src/a/b.cpp"
                                       << "\\src\\a\\b.cpp";
    QTest::newRow("folders before the root") << "/home/me/src/a.cpp"
                                             << "\\src\\a.cpp";
    QTest::newRow("backslashes") << "c:\\work\\src\\a.cpp"
                                 << "\\src\\a.cpp";
    QTest::newRow("both separators") << "c:\\work/src\\a/b.cpp"
                                     << "\\src\\a\\b.cpp";
    QTest::newRow("the last of two roots") << "/src/lib/src/a.cpp"
                                           << "\\src\\a.cpp";
    QTest::newRow("no root") << "lib/a.cpp"
                             << "lib\\a.cpp";
    QTest::newRow("only a part of a name") << "/mysrc/srcs/a.cpp"
                                           << "\\mysrc\\srcs\\a.cpp";
    QTest::newRow("empty") << ""
                           << "";
}

void TestVxWarning::sourcePath()
{
    QFETCH(QString, file);
    QFETCH(QString, path);
    QCOMPARE(vxSourcePath(file), path);
}

void TestVxWarning::format()
{
    const VxSourcePosition position{"/src/room/file.cpp", 42};
    QCOMPARE(vxFormatWarning(position, "something is amiss"),
             QString("\\src\\room\\file.cpp(42): something is amiss"));
    QCOMPARE(vxFormatWarning(position, "%1 of %2"), QString("\\src\\room\\file.cpp(42): %1 of %2"));
}

void TestVxWarning::positionOfThisFile()
{
    const VxSourcePosition position = VX_HERE;
    const int line = __LINE__ - 1;
    VxWarningGuard guard;
    guard.expect(QRegularExpression(
        QStringLiteral(
            "^\\\\src\\\\tests\\\\plugin\\\\actions\\\\tst_vxwarning\\.cpp\\(%1\\): hello$")
            .arg(line)));
    vxWarning(position, QStringLiteral("hello"));
}

void TestVxWarning::percentSignsArePrinted()
{
    VxWarningGuard guard;
    guard.expect("\\src\\a.cpp(1): 100 %s, %n \xc3\xa4");
    vxWarning({"/src/a.cpp", 1}, QString::fromUtf8("100 %s, %n \xc3\xa4"));
}

VX_TEST_GUILESS_MAIN(TestVxWarning)
#include "tst_vxwarning.moc"
