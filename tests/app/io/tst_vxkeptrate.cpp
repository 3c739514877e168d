// Frame rates that are no whole number of ticks a frame stay with the motion.

#include "io/motion/vxkeptrate.h"

#include "gltfsample.h"
#include "io/motion/vxmotionexport.h"
#include "io/motion/vxmotionimport.h"
#include "io/vxbvhreader.h"
#include "io/vxfileformats.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

class tst_VxKeptRate : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void bvhGoesOutAsItCame_data();
    void bvhGoesOutAsItCame();
    void wholeRatesAreNotKept();
    void anotherStepGivesItUp();
    void reportNamesIt();

private:
    QString write(const char *name, const QByteArray &bytes) const;
    void import(const QString &file, bool replaces);

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<VxUndoStack> m_undo;
    QScopedPointer<VxScene> m_scene;
    VxImportReport m_report;
    VxFileError m_error;
};

namespace {

/// 500 frames whose values bend at every frame.
QByteArray bvhOf(const QByteArray &frameTime)
{
    QByteArray text = "HIERARCHY\nROOT hip\n{\nOFFSET 0 1 0\nCHANNELS 6 Xposition Yposition "
                      "Zposition Zrotation Xrotation Yrotation\nEnd Site\n{\nOFFSET 0 1 0\n}\n}\n"
                      "MOTION\nFrames: 500\nFrame Time: " +
                      frameTime + "\n";
    for (int frame = 0; frame < 500; ++frame) {
        for (int channel = 0; channel < 6; ++channel)
            text += QByteArray::number((frame * 7 + channel * 3) % 50) + ' ';
        text += '\n';
    }
    return text;
}

} // namespace

void tst_VxKeptRate::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    m_undo.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
}

void tst_VxKeptRate::cleanup()
{
    m_scene.reset();
    m_undo.reset();
    m_dir.reset();
    m_guard.reset();
}

QString tst_VxKeptRate::write(const char *name, const QByteArray &bytes) const
{
    QFile file(m_dir->filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

void tst_VxKeptRate::import(const QString &file, bool replaces)
{
    VxMotionImport import(m_scene.data());
    import.setReplacesScene(replaces);
    QVERIFY2(import.load(file, &m_error) && import.enter({}, &m_error), qPrintable(m_error.text()));
    m_report = import.report();
}

void tst_VxKeptRate::bvhGoesOutAsItCame_data()
{
    QTest::addColumn<QByteArray>("frameTime");
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("step");
    QTest::newRow("29.97") << QByteArray("0.0333667") << 1 / 0.0333667 << 160;
    QTest::newRow("29.97 exactly") << QByteArray("0.03336666666666667") << 30000 / 1001.0 << 160;
    QTest::newRow("23.976") << QByteArray("0.04170833333333333") << 24000 / 1001.0 << 200;
    QTest::newRow("59.94") << QByteArray("0.016683333333333335") << 60000 / 1001.0 << 80;
}

// Through a saved document, too.
void tst_VxKeptRate::bvhGoesOutAsItCame()
{
    QFETCH(QByteArray, frameTime);
    QFETCH(double, rate);
    QFETCH(int, step);
    const QString in = write("in.bvh", bvhOf(frameTime));
    import(in, true);
    QCOMPARE(m_scene->getTimeStep(), step);
    const QString saved = m_dir->filePath("saved.vxscene");
    QString summary;
    const VxFileFormats formats = VxFileFormats::standard();
    QVERIFY(formats.write(saved, m_scene.data(), {}, &m_error));
    QVERIFY(formats.read(saved, m_scene.data(), {}, &summary, &m_error));
    const VxNode *hip = m_scene->findNode("hip");
    QVERIFY(std::abs(vxKeptRate(hip, step) - rate) < 1e-6 * rate);
    const QString out = m_dir->filePath("out.bvh");
    QVERIFY(vxExportMotion(m_scene.data(), {}, out, {}, &summary, &m_error));
    VxBvhDocument before;
    VxBvhDocument after;
    QVERIFY(VxBvhReader(in).readFile(&before, &m_error));
    QVERIFY(VxBvhReader(out).readFile(&after, &m_error));
    QCOMPARE(after.frameCount, before.frameCount);
    QVERIFY(std::abs(after.frameTime - before.frameTime) < 1e-8);
    QVERIFY(after.values == before.values);
}

void tst_VxKeptRate::wholeRatesAreNotKept()
{
    for (const char *frameTime : {"0.0333333", "0.025", "0.0083333"}) {
        import(write("in.bvh", bvhOf(frameTime)), true);
        QVERIFY(!m_report.isRateKept());
        const VxNode *figure = m_scene->getRootNodes().constFirst();
        QVERIFY(!figure->findProperty("SourceFrameRate"));
        QCOMPARE(vxKeptRate(figure, m_scene->getTimeStep()), 0.0);
    }
}

// A scene of 25 frames a second has other frames than the file.
void tst_VxKeptRate::anotherStepGivesItUp()
{
    m_scene->addNode(new VxNode(QStringLiteral("before")));
    m_scene->setTimeStep(192);
    import(write("in.bvh", bvhOf("0.0333667")), false);
    QCOMPARE(vxKeptRate(m_scene->findNode("hip"), 192), 0.0);
    const QString out = m_dir->filePath("out.bvh");
    QString summary;
    QVERIFY(vxExportMotion(m_scene.data(), {}, out, {}, &summary, &m_error));
    VxBvhDocument document;
    QVERIFY(VxBvhReader(out).readFile(&document, &m_error));
    QCOMPARE(document.frameTime, 0.04);
    m_undo->undo();
    QCOMPARE(m_scene->getNumNodes(), 1);
}

void tst_VxKeptRate::reportNamesIt()
{
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    std::vector<float> times;
    for (int i = 0; i < 40; ++i)
        times.push_back(float(i * 1001 / 30000.0));
    sample.animate(0, 0, "translation", "LINEAR", sample.floats(times, "SCALAR", 1),
                   sample.floats(std::vector<float>(120, 1), "VEC3", 3));
    import(write("ball.gltf", sample.text()), false);
    QVERIFY(m_report.isRateKept());
    QVERIFY2(
        m_report.lines().join('\n').contains("29.97 (by its keys)\nFrame rate of the scene: 30 "
                                             "(160 ticks per frame); the file's rate is kept"),
        qPrintable(m_report.lines().join('\n')));
    QVERIFY(m_report.toJson().value("rateKept").toBool());
    const VxProperty *kept = m_scene->findNode("ball")->findProperty("SourceFrameRate");
    QVERIFY(kept && kept->isLocked() && kept->isExcluded() && !kept->canBeKeyed());
}

VX_TEST_GUILESS_MAIN(tst_VxKeptRate)
#include "tst_vxkeptrate.moc"
