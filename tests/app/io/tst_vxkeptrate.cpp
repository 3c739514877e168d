// Frame rates that are no whole number of ticks a frame stay with the motion.

#include "gltfsample.h"
#include "io/bvh/vxbvhreader.h"
#include "io/csv/vxcsvreader.h"
#include "io/formats/vxfileformats.h"
#include "io/formats/vxmotionexport.h"
#include "io/formats/vxmotionimport.h"
#include "io/gltf/vxgltfreader.h"
#include "io/motion/vxkeptrate.h"
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

    void bvhKeepsItsRate_data();
    void bvhKeepsItsRate();
    void bvhOfAPartHasItsFrames();
    void timesInFilesAreTrue_data();
    void timesInFilesAreTrue();
    void sparseKeysOverHours();
    void severalRoots();
    void wholeRatesAreNotKept();
    void anotherTimeStepRemovesTheRate();
    void reportNamesTheRate();

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

void tst_VxKeptRate::bvhKeepsItsRate_data()
{
    QTest::addColumn<QByteArray>("frameTime");
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("step");
    QTest::newRow("29.97") << QByteArray("0.0333667") << 1 / 0.0333667 << 160;
    QTest::newRow("29.97 with eight places") << QByteArray("0.03336667") << 1 / 0.03336667 << 160;
    QTest::newRow("29.97 exactly") << QByteArray("0.03336666666666667") << 30000 / 1001.0 << 160;
    QTest::newRow("23.976") << QByteArray("0.04170833333333333") << 24000 / 1001.0 << 200;
    QTest::newRow("59.94") << QByteArray("0.016683333333333335") << 60000 / 1001.0 << 80;
}

// Through a saved document, too.
void tst_VxKeptRate::bvhKeepsItsRate()
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
    QVERIFY(vxReadBvhFile(in, &before, &m_error));
    QVERIFY(vxReadBvhFile(out, &after, &m_error));
    QCOMPARE(after.frameCount, before.frameCount);
    QVERIFY(std::abs(after.frameTime - before.frameTime) < 1e-15);
    QVERIFY(after.values == before.values);
}

// Frames 1 to 498, which start at tick 160 of 160.16.
void tst_VxKeptRate::bvhOfAPartHasItsFrames()
{
    const QString in = write("in.bvh", bvhOf("0.03336666666666667"));
    import(in, true);
    m_scene->setPlayRange({160, 79760});
    VxMotionExportOptions options;
    options.playRangeOnly = true;
    const QString out = m_dir->filePath("out.bvh");
    QString summary;
    QVERIFY(vxExportMotion(m_scene.data(), options, out, {}, &summary, &m_error));
    VxBvhDocument before;
    VxBvhDocument after;
    QVERIFY(vxReadBvhFile(in, &before, &m_error));
    QVERIFY(vxReadBvhFile(out, &after, &m_error));
    QCOMPARE(after.frameCount, 498);
    for (int channel = 0; channel < 6; ++channel) {
        for (int frame = 0; frame < 498; ++frame)
            QCOMPARE(after.channelValues(channel)[frame], before.channelValues(channel)[frame + 1]);
    }
}

void tst_VxKeptRate::timesInFilesAreTrue_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<QString>("out");
    QTest::addColumn<bool>("hasRowPerFrame");
    for (const double rate : {30000 / 1001.0, 24000 / 1001.0}) {
        const QByteArray name = QByteArray::number(rate, 'g', 5);
        QTest::newRow(name + " glTF") << rate << "out.glb" << false;
        QTest::newRow(name + " CSV, one row a key") << rate << "out.csv" << false;
        QTest::newRow(name + " CSV, one row a frame") << rate << "out.csv" << true;
    }
}

// 500 frames: the times of the nearest ticks would differ by up to a 9600th of a second.
void tst_VxKeptRate::timesInFilesAreTrue()
{
    QFETCH(double, rate);
    QFETCH(QString, out);
    QFETCH(bool, hasRowPerFrame);
    const bool isGltf = out.endsWith(QLatin1String("glb"));
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    std::vector<float> times;
    std::vector<float> places;
    for (int i = 0; i < 500; ++i) {
        times.push_back(float(i / rate));
        for (int axis = 0; axis < 3; ++axis)
            places.push_back(float((i * 7 + axis * 3) % 50));
    }
    sample.animate(0, 0, "translation", "LINEAR", sample.floats(times, "SCALAR", 1),
                   sample.floats(places, "VEC3", 3));
    import(write("ball.gltf", sample.text()), true);
    QVERIFY(m_report.isRateKept());
    const VxKeyColumns<float> keys = m_scene->findNode("ball")->getXPosControl()->getKeys();
    const std::vector<VxTime> keyTimes(keys.times, keys.times + keys.count);
    const std::vector<float> keyValues(keys.values, keys.values + keys.count);
    VxMotionExportOptions options;
    options.hasRowPerFrame = hasRowPerFrame;
    QString summary;
    const QString file = m_dir->filePath(out);
    QVERIFY(vxExportMotion(m_scene.data(), options, file, {}, &summary, &m_error));

    QFile written(file);
    QVERIFY(written.open(QIODevice::ReadOnly));
    VxImportedMotion motion;
    QVERIFY(isGltf ? vxReadGltf(written.readAll(), {}, {}, &motion, &m_error)
                   : vxReadCsv(written.readAll(), {}, &motion, &m_error));
    const VxMotionCurve &curve = motion.clips.at(0).channels.at(0).curve;
    QCOMPARE(int(curve.times.size()), 500);
    for (std::size_t i = 0; i < 500; ++i) {
        const double exact = double(i) / rate;
        QVERIFY2(isGltf ? float(curve.times[i]) == times[i]
                        : std::abs(curve.times[i] - exact) < 1e-12,
                 qPrintable(QString("%1: %2").arg(i).arg(curve.times[i], 0, 'g', 17)));
    }

    import(file, true);
    QVERIFY(m_report.isRateKept() && std::abs(m_report.sourceRate - rate) < 1e-9);
    const VxKeyColumns<float> again = m_scene->findNode("ball")->getXPosControl()->getKeys();
    QCOMPARE(std::vector<VxTime>(again.times, again.times + again.count), keyTimes);
    QCOMPARE(std::vector<float>(again.values, again.values + again.count), keyValues);
}

// Too few keys for the rate to be seen in them. Times of glTF files are single precision: within
// some ticks after hours.
void tst_VxKeptRate::sparseKeysOverHours()
{
    const double rate = 30000 / 1001.0;
    QByteArray text = "node,property,time,value\n"
                      "ball,property:/General/Import/SourceFrameRate,,29.97003\n";
    const QVector<int> frames{0, 10, 107892, 323676}; // up to 3 hours
    for (const int frame : frames)
        text += "ball,x position," + QByteArray::number(frame / rate, 'g', 17) + ",1\n";
    import(write("in.csv", text), true);
    QCOMPARE(m_scene->getTimeStep(), 160);
    const VxNode *ball = m_scene->findNode("ball");
    const int numProperties = ball->getNumProperties();
    QCOMPARE(ball->getXPosControl()->getKeyTime(3), VxTime(std::llround(323676 / rate * 4800)));
    for (const char *name : {"out.csv", "again.csv", "out.glb"}) {
        const QString out = m_dir->filePath(QLatin1String(name));
        QString summary;
        QVERIFY(vxExportMotion(m_scene.data(), {}, out, {}, &summary, &m_error));
        if (QByteArray(name).endsWith("csv")) {
            QFile file(out);
            VxImportedMotion motion;
            QVERIFY(file.open(QIODevice::ReadOnly) &&
                    vxReadCsv(file.readAll(), {}, &motion, &m_error));
            const std::vector<double> &times = motion.clips.at(0).channels.at(0).curve.times;
            for (int i = 0; i < frames.size(); ++i)
                QCOMPARE(times.at(std::size_t(i)), frames[i] / rate);
        }
        import(out, true);
        QVERIFY(std::abs(m_report.sourceRate - rate) < 1e-9);
        QCOMPARE(m_scene->findNode("ball")->getNumProperties(), numProperties);
    }
}

void tst_VxKeptRate::severalRoots()
{
    QByteArray text = "node,property,time,value\n";
    for (int i = 0; i < 40; ++i)
        text += "a,x position," + QByteArray::number(i * 1.001 / 30, 'g', 17) + ",1\n";
    for (int i = 0; i < 40; ++i)
        text += "b,x position," + QByteArray::number(i * 1.001 / 30, 'g', 17) + ",1\n";
    import(write("in.csv", text), true);
    QVERIFY(vxKeptRate(m_scene->findNode("a"), 160) > 29);
    QCOMPARE(vxKeptRate(m_scene->findNode("b"), 160), vxKeptRate(m_scene->findNode("a"), 160));
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
void tst_VxKeptRate::anotherTimeStepRemovesTheRate()
{
    m_scene->addNode(new VxNode(QStringLiteral("before")));
    m_scene->setTimeStep(192);
    import(write("in.bvh", bvhOf("0.0333667")), false);
    QCOMPARE(vxKeptRate(m_scene->findNode("hip"), 192), 0.0);
    const QString out = m_dir->filePath("out.bvh");
    QString summary;
    QVERIFY(vxExportMotion(m_scene.data(), {}, out, {}, &summary, &m_error));
    VxBvhDocument document;
    QVERIFY(vxReadBvhFile(out, &document, &m_error));
    QCOMPARE(document.frameTime, 0.04);
    m_undo->undo();
    QCOMPARE(m_scene->getNumNodes(), 1);
}

void tst_VxKeptRate::reportNamesTheRate()
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
