// COLLADA documents, through the importer process.

#include "io/worker/vximportworker.h"
#include "soundscene.h"
#include "testing/vxfilemutations.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

/// A sampler of one number for a target.
QByteArray animation(const char *id, const char *target, const QByteArray &times,
                     const QByteArray &values, const QByteArray &interpolations)
{
    const QByteArray name(id);
    const auto source = [&](const char *part, const char *array, const char *type,
                            const QByteArray &numbers) {
        const QByteArray count = QByteArray::number(numbers.simplified().count(' ') + 1);
        const QByteArray own = name + '-' + part;
        return "<source id='" + own + "'><" + array + " id='" + own + "-array' count='" + count +
               "'>\n " + numbers + " </" + array + "><technique_common><accessor source='#" + own +
               "-array' count='" + count + "' stride='1'><param name='X' type='" + type +
               "'/></accessor></technique_common></source>";
    };
    return "<animation id='" + name + "'>" + source("in", "float_array", "float", times) +
           source("out", "float_array", "float", values) +
           source("kind", "Name_array", "name", interpolations) + "<sampler id='" + name +
           "-s'><input semantic='INPUT' source='#" + name +
           "-in'/><input semantic='OUTPUT' source='#" + name +
           "-out'/><input semantic='INTERPOLATION' source='#" + name +
           "-kind'/></sampler><channel source='#" + name + "-s' target='" + target +
           "'/></animation>";
}

/// A hip that moves along Y and a knee, turned by 10 degrees about Z, that turns about X.
QByteArray colladaDocument(const QByteArray &kind = "LINEAR")
{
    return "<?xml version='1.0'?>\n<COLLADA "
           "xmlns='http://www.collada.org/2005/11/COLLADASchema' version='1.4.1'>\n"
           "<asset><contributor><authoring_tool>A &amp; B</authoring_tool></contributor>"
           "<unit meter='0.01'/><up_axis>Z_UP</up_axis></asset>\n<library_animations>" +
           animation("move", "hip/place.Y", "0 0.5 1", "1 2 4", kind + ' ' + kind + ' ' + kind) +
           animation("turn", "knee/rx.ANGLE", "0.25 1", "0 90", kind + ' ' + kind) +
           "</library_animations>\n<library_visual_scenes><visual_scene id='scene'>"
           "<node id='hip' name='Hip' type='JOINT'><translate sid='place'>3 1 0</translate>"
           "<node id='knee' name='Knee' type='JOINT'><translate>0 0 -40</translate>"
           "<rotate sid='rz'>0 0 1 10</rotate><rotate sid='rx'>1 0 0 0</rotate></node></node>"
           "<node id='flat'><rotate>0 0 1 30</rotate><scale>1 2 5</scale></node>"
           "<node id='lamp'><instance_light url='#l'/></node>"
           "</visual_scene></library_visual_scenes>\n"
           "<scene><instance_visual_scene url='#scene'/></scene></COLLADA>\n";
}

} // namespace

class tst_Collada : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void jointsAndKeys();
    void smoothSegmentsAreNamed();
    void otherEncodings();
    void brokenDocuments_data();
    void brokenDocuments();
    void damagedFilesGiveKeysOrAMessage();

private:
    bool read(const QByteArray &bytes);

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    VxSceneContents m_contents;
    VxImportReport m_report;
    VxFileError m_error;
};

void tst_Collada::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    m_error = VxFileError();
}

void tst_Collada::cleanup()
{
    m_contents = VxSceneContents();
    m_dir.reset();
    m_guard.reset();
}

bool tst_Collada::read(const QByteArray &bytes)
{
    QFile file(m_dir->filePath("walk.dae"));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write");
    file.close();
    return VxImportWorker().run(file.fileName(), {}, {}, &m_contents, &m_report, &m_error);
}

void tst_Collada::jointsAndKeys()
{
    QVERIFY2(read(colladaDocument()), qPrintable(m_error.text()));
    QCOMPARE(m_report.format, QString("COLLADA 1.4.1"));
    QCOMPARE(m_report.writer, QString("A & B"));
    QCOMPARE(m_report.upAxis, 'Z');
    QVERIFY(m_report.isRotated);
    QCOMPARE(m_report.metresPerUnit, 0.01);
    QCOMPARE(m_report.bones, 2);
    QCOMPARE(int(m_report.omissions.size()), 1);
    QVERIFY(m_report.notes.isEmpty());
    VxScene scene;
    VxSceneReader::install(std::move(m_contents), &scene);
    QCOMPARE(scene.findNode("flat")->getZScaleControl()->getValue(0), 5.0f);
    m_contents = VxSceneContents();
    const VxNode *hip = scene.findNode("Hip");
    const VxNode *knee = scene.findNode("Knee");
    QVERIFY(qobject_cast<const VxBone *>(hip) && knee->getNodeParent() == hip);
    QVERIFY(qobject_cast<const VxSkeleton *>(hip->getNodeParent()));
    QCOMPARE(hip->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(hip->getYPosControl()->getNumKeys(), 3);
    QCOMPARE(hip->getYPosControl()->getValue(3600), 3.0f);
    // 40 below the hip at (3, 4, 0), Z turned up to Y.
    const QVector3D at = knee->getWorldTransform(4800).map(QVector3D());
    QVERIFY((at - QVector3D(3, -40, -4)).length() < 1e-4f);
    // Half of the turn: a point along Y, turned by 45 degrees about X, then by 10 about Z.
    const float turn = 0.70710678f;
    const float ten = 10.0f * 3.14159265f / 180.0f;
    const QVector3D point = knee->getWorldTransform(3000).map(QVector3D(0, 1, 0));
    const QVector3D expected(3 - turn * std::sin(ten), turn - 40, -(2.5f + turn * std::cos(ten)));
    QVERIFY2((point - expected).length() < 2e-3f,
             qPrintable(QString("%1 %2 %3").arg(point.x()).arg(point.y()).arg(point.z())));
}

void tst_Collada::smoothSegmentsAreNamed()
{
    QVERIFY2(read(colladaDocument()), qPrintable(m_error.text()));
    QVERIFY(m_report.notes.isEmpty());
    QVERIFY2(read(colladaDocument("BEZIER")), qPrintable(m_error.text()));
    QCOMPARE(m_report.notes.size(), 1);
    QVERIFY(m_report.notes.first().contains("smooth"));
}

void tst_Collada::otherEncodings()
{
    const QString text = QString::fromUtf8(colladaDocument());
    const QByteArray wide =
        QByteArray("\xFF\xFE", 2) +
        QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    QVERIFY2(read(wide), qPrintable(m_error.text()));
    QCOMPARE(m_report.bones, 2);
}

void tst_Collada::brokenDocuments_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing") << QByteArray() << 1 << "Invalid XML: ";
    QTest::newRow("another format")
        << QByteArray("<html>\n</html>") << 2 << "Not a COLLADA document";
    QTest::newRow("cut off") << colladaDocument().left(700) << 6 << "Invalid XML: ";
    QTest::newRow("an element that is not closed")
        << colladaDocument().replace("</node></node>", "</node>") << 11 << "Invalid XML: ";
    QTest::newRow("elements too deep")
        << "<COLLADA>\n" + QByteArray("<node>").repeated(2000) << 2 << "nested more than";
    QTest::newRow("no scene") << QByteArray("<COLLADA version='1.4.1'>\n</COLLADA>") << -1
                              << "cannot be read";
    QTest::newRow("times that are no numbers")
        << colladaDocument().replace("0 0.5 1", "0 ab 1") << -1 << "";
}

void tst_Collada::brokenDocuments()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, line);
    QFETCH(QString, reason);
    QVERIFY(!read(bytes));
    QVERIFY2(!m_error.message.isEmpty() && m_error.message.contains(reason),
             qPrintable(m_error.text()));
    QCOMPARE(int(m_error.line), line);
    QVERIFY(m_contents.rootNodes.empty());
}

// The library that reads the documents crashes on some of them.
void tst_Collada::damagedFilesGiveKeysOrAMessage()
{
    const QByteArray whole = colladaDocument();
    int accepted = 0;
    int crashed = 0;
    const int files = vxSessionLength(300);
    for (int seed = 0; seed < files; ++seed) {
        const QByteArray name = "seed " + QByteArray::number(seed);
        m_contents = VxSceneContents();
        QElapsedTimer timer;
        timer.start();
        m_error = VxFileError();
        const bool done = read(VxFileMutations::mutant(whole, unsigned(seed)));
        QVERIFY2(timer.elapsed() < 20000, name.constData());
        QVERIFY2(done ? isSound(m_contents) && !m_contents.rootNodes.empty()
                      : !m_error.message.isEmpty() && m_contents.rootNodes.empty(),
                 name.constData());
        accepted += done;
        crashed += m_error.message.contains("crashed");
    }
    QVERIFY2(accepted > files / 30 && accepted < files - files / 30,
             QByteArray::number(accepted).constData());
    QVERIFY2(crashed < files / 5, QByteArray::number(crashed).constData());
}

VX_TEST_GUILESS_MAIN(tst_Collada)
#include "tst_collada.moc"
