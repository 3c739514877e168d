#include "io/bvh/vxbvhreader.h"
#include "io/bvh/vxbvhwriter.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QTemporaryDir>
#include <QtTest>
#include <limits>
#include <memory>

namespace {

VxBvhDocument read(const QByteArray &bytes)
{
    VxBvhDocument document;
    VxFileError error;
    if (!vxReadBvh(bytes, &document, &error))
        QTest::qFail(qPrintable(error.text()), __FILE__, __LINE__);
    return document;
}

/// One joint with three channels and two frames.
VxBvhDocument smallDocument()
{
    return read("HIERARCHY\nROOT hip\n{\nOFFSET 1 2 3\nCHANNELS 3 Zrotation Xrotation Yrotation\n"
                "End Site { OFFSET 0 1 0 }\n}\n"
                "MOTION\nFrames: 2\nFrame Time: .0083333\n1 2 3\n4 5 6\n");
}

} // namespace

class TestVxBvhWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void roundTripsExtremes();
    void refuses_data();
    void refuses();
    void writesAFile();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestVxBvhWriter::roundTripsExtremes()
{
    VxBvhDocument document = smallDocument();
    document.frameTime = 1.0 / 29.97;
    document.values = {0.1f,
                       -0.0f,
                       std::numeric_limits<float>::denorm_min(),
                       std::numeric_limits<float>::max(),
                       1.0f / 3.0f,
                       -179.99998f};
    document.joints.front().offset = {1e-30f, 1e30f, 0.3f};
    QByteArray bytes;
    VxFileError error;
    QVERIFY(VxBvhWriter::write(document, &bytes, &error));
    const VxBvhDocument again = read(bytes);
    QVERIFY(again == document);
    QVERIFY(std::signbit(again.values[1]));
}

void TestVxBvhWriter::refuses_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what :
         {"no joint", "name with a line end", "name that ends with a brace",
          "name with a blank at its end", "empty name", "parent behind the joint",
          "a duplicate channel", "a value not finite", "an offset not finite", "a value missing",
          "frame time zero", "frames without channels"})
        QTest::newRow(what) << QString::fromUtf8(what);
}

void TestVxBvhWriter::refuses()
{
    QFETCH(QString, what);
    VxBvhDocument document = smallDocument();
    const float infinite = std::numeric_limits<float>::infinity();
    const std::map<QString, std::function<void(VxBvhDocument &)>> damage = {
        {"no joint", [](VxBvhDocument &d) { d.joints.clear(); }},
        {"name with a line end", [](VxBvhDocument &d) { d.joints[0].name = "a\nb"; }},
        {"name that ends with a brace", [](VxBvhDocument &d) { d.joints[0].name = "a{"; }},
        {"name with a blank at its end", [](VxBvhDocument &d) { d.joints[0].name = "a "; }},
        {"empty name", [](VxBvhDocument &d) { d.joints[0].name.clear(); }},
        {"parent behind the joint", [](VxBvhDocument &d) { d.joints[0].parent = 1; }},
        {"a duplicate channel",
         [](VxBvhDocument &d) { d.joints[0].channels[0] = d.joints[0].channels[1]; }},
        {"a value not finite", [=](VxBvhDocument &d) { d.values[3] = infinite; }},
        {"an offset not finite", [=](VxBvhDocument &d) { d.joints[0].endSites[0].setX(infinite); }},
        {"a value missing", [](VxBvhDocument &d) { d.values.pop_back(); }},
        {"frame time zero", [](VxBvhDocument &d) { d.frameTime = 0.0; }},
        {"frames without channels",
         [](VxBvhDocument &d) {
             d.joints[0].channels.clear();
             d.values.clear();
         }},
    };
    damage.at(what)(document);
    QByteArray bytes = "untouched";
    VxFileError error;
    QVERIFY(!VxBvhWriter::write(document, &bytes, &error));
    QVERIFY(!error.message.isEmpty());
    QCOMPARE(bytes, QByteArray("untouched"));
}

void TestVxBvhWriter::writesAFile()
{
    QTemporaryDir folder;
    const VxBvhDocument document = smallDocument();
    const QString name = folder.filePath(QStringLiteral("out.bvh"));
    VxFileError error;
    QVERIFY(VxBvhWriter::writeFile(document, name, &error));
    VxBvhDocument again;
    QVERIFY(vxReadBvhFile(name, &again, &error));
    QVERIFY(again == document);
    QVERIFY(
        !VxBvhWriter::writeFile(document, folder.filePath(QStringLiteral("no/out.bvh")), &error));
    QVERIFY(error.text().contains(QLatin1String("The file cannot be written: ")));
    QVERIFY(error.file.endsWith(QLatin1String("no/out.bvh")));
}

VX_TEST_GUILESS_MAIN(TestVxBvhWriter)
#include "tst_vxbvhwriter.moc"
