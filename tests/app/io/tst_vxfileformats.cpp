#include "io/formats/vxfileformats.h"
#include "smallmotion.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

class tst_VxFileFormats : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void formatIsFoundBySuffix_data();
    void formatIsFoundBySuffix();
    void unsupportedTypesListTheSupportedOnes();
    void motionReplacesTheScene();
    void surplusFramesAreReported();
    void aPoseLeavesNothingOfTheSceneBefore();
    void brokenMotionKeepsTheScene();
    void cancelledMotionKeepsTheScene();
    void aSceneIsWrittenAndReadBack();
    void brokenSceneKeepsTheScene();
    void motionIsNotWritten();
    void filters();

private:
    QString write(const char *name, const QByteArray &bytes);

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<VxUndoStack> m_undo;
    QScopedPointer<VxScene> m_scene;
    const VxFileFormats m_formats = VxFileFormats::standard();
    QString m_summary;
    VxFileError m_error;
};

void tst_VxFileFormats::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    m_undo.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
    m_scene->addNode(new VxBone(QStringLiteral("before")));
    m_scene->setTimeStep(100);
    m_scene->setTime(700);
    m_summary.clear();
    m_error = VxFileError();
}

void tst_VxFileFormats::cleanup()
{
    m_scene.reset();
    m_undo.reset();
    m_dir.reset();
    m_guard.reset();
}

QString tst_VxFileFormats::write(const char *name, const QByteArray &bytes)
{
    QFile file(m_dir->filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

void tst_VxFileFormats::formatIsFoundBySuffix_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("suffix"); // of the format; empty for none
    QTest::newRow("motion") << "a/walk.bvh"
                            << "bvh";
    QTest::newRow("capitals") << "WALK.BVH"
                              << "bvh";
    QTest::newRow("scene") << "walk.bvh.vxscene"
                           << "vxscene";
    QTest::newRow("no suffix") << "bvh"
                               << "";
    QTest::newRow("another one") << "walk.txt"
                                 << "";
    QTest::newRow("nothing") << ""
                             << "";
}

void tst_VxFileFormats::formatIsFoundBySuffix()
{
    QFETCH(QString, fileName);
    QFETCH(QString, suffix);
    const VxFileFormat *format = m_formats.find(fileName);
    QCOMPARE(format ? format->suffixes.value(0) : QString(), suffix);
}

void tst_VxFileFormats::unsupportedTypesListTheSupportedOnes()
{
    QVERIFY(!m_formats.read(QStringLiteral("walk.txt"), m_scene.data(), {}, &m_summary, &m_error));
    QVERIFY(m_error.text().contains("walk.txt"));
    QVERIFY(m_error.text().contains("*.bvh") && m_error.text().contains("*.vxscene"));
}

void tst_VxFileFormats::motionReplacesTheScene()
{
    const QSignalSpy started(m_scene.data(), &VxScene::sceneLoadStarting);
    const QSignalSpy ended(m_scene.data(), &VxScene::sceneLoaded);
    const QString file = write("walk.bvh", smallMotion);
    QVERIFY(m_formats.read(file, m_scene.data(), {}, &m_summary, &m_error));
    QVERIFY(!m_scene->findNode(QStringLiteral("before")));
    const VxNode *hip = m_scene->findNode(QStringLiteral("hip"));
    QVERIFY(hip);
    QCOMPARE(hip->getXPosControl()->getNumKeys(), 3);
    QCOMPARE(m_scene->getTimeStep(), 120);
    QCOMPARE(m_scene->getTime(), 0);
    QCOMPARE(m_scene->getAnimRange(), VxTimeRange(0, 240));
    QVERIFY2(m_summary.contains("40"), qPrintable(m_summary)); // frames per second
    QCOMPARE(started.count(), 1);
    QCOMPARE(ended.count(), 1);
}

void tst_VxFileFormats::surplusFramesAreReported()
{
    const QString file = write("long.bvh", smallMotion + "4\n5\n");
    QVERIFY(m_formats.read(file, m_scene.data(), {}, &m_summary, &m_error));
    QVERIFY2(m_summary.contains(QLatin1String("2 more frames than the 3")), qPrintable(m_summary));
    QCOMPARE(m_scene->findNode(QStringLiteral("hip"))->getXPosControl()->getNumKeys(), 3);
}

void tst_VxFileFormats::aPoseLeavesNothingOfTheSceneBefore()
{
    QByteArray pose = smallMotion;
    pose.replace("Frames: 3", "Frames: 1").replace("1\n2\n3\n", "1\n");
    QVERIFY(m_formats.read(write("pose.bvh", pose), m_scene.data(), {}, &m_summary, &m_error));
    QCOMPARE(m_scene->getTimeStep(), 160);
    QCOMPARE(m_scene->getTime(), 0);
}

void tst_VxFileFormats::brokenMotionKeepsTheScene()
{
    QByteArray broken = smallMotion;
    broken.replace("2\n3\n", "2\nthree\n");
    QVERIFY(!m_formats.read(write("broken.bvh", broken), m_scene.data(), {}, &m_summary, &m_error));
    QVERIFY(m_error.file.endsWith("broken.bvh"));
    QCOMPARE(m_error.line, qint64(16));
    QVERIFY(m_scene->findNode(QStringLiteral("before")));
    QCOMPARE(m_scene->getTimeStep(), 100);
    QCOMPARE(m_scene->getTime(), 700);
    QVERIFY(!m_scene->isLoading());
}

void tst_VxFileFormats::cancelledMotionKeepsTheScene()
{
    const auto cancel = [](int) { return false; };
    QVERIFY(!m_formats.read(write("walk.bvh", smallMotion), m_scene.data(), cancel, &m_summary,
                            &m_error));
    QVERIFY(m_error.cancelled);
    QVERIFY(m_scene->findNode(QStringLiteral("before")));
}

void tst_VxFileFormats::aSceneIsWrittenAndReadBack()
{
    const QString file = m_dir->filePath(QStringLiteral("a.vxscene"));
    QVERIFY(m_formats.canWrite(file));
    QVERIFY2(m_formats.write(file, m_scene.data(), {}, &m_error), qPrintable(m_error.text()));
    m_scene->clear();
    QVERIFY2(m_formats.read(file, m_scene.data(), {}, &m_summary, &m_error),
             qPrintable(m_error.text()));
    QVERIFY(m_scene->findNode(QStringLiteral("before")));
    QCOMPARE(m_scene->getTimeStep(), 100);
    QCOMPARE(m_scene->getTime(), 700);
    QCOMPARE(m_summary, QString());
}

void tst_VxFileFormats::brokenSceneKeepsTheScene()
{
    QVERIFY(!m_formats.read(write("broken.vxscene", "not a scene"), m_scene.data(), {}, &m_summary,
                            &m_error));
    QVERIFY(m_error.text().contains("broken.vxscene"));
    QVERIFY(m_scene->findNode(QStringLiteral("before")));
}

void tst_VxFileFormats::motionIsNotWritten()
{
    const QString file = m_dir->filePath(QStringLiteral("a.bvh"));
    QVERIFY(!m_formats.canWrite(file));
    QVERIFY(!m_formats.write(file, m_scene.data(), {}, &m_error));
    QVERIFY(m_error.text().contains("*.vxscene"));
    QVERIFY(!QFile::exists(file));
}

void tst_VxFileFormats::filters()
{
    const QStringList read = m_formats.readFilters();
    QVERIFY(read.at(0).contains("*.vxscene *.bvh"));
    for (const char *suffix : {"*.bvh", "*.glb", "*.gltf", "*.fbx", "*.dae", "*.csv"}) {
        QVERIFY2(read.at(0).contains(suffix), suffix);
        QCOMPARE(read.mid(1).filter(suffix).size(), 1);
        QCOMPARE(m_formats.motionFilters().filter(suffix).size(), 2);
    }
    QCOMPARE(m_formats.writeFilters().size(), 1);
    QVERIFY(m_formats.writeFilters().at(0).contains("(*.vxscene)"));
}

VX_TEST_MAIN(tst_VxFileFormats)
#include "tst_vxfileformats.moc"
