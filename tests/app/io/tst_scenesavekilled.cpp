// A program killed while it saves destroys no file: afterwards there is the former
// file or the new one, whole.

#include "io/vxscenereader.h"
#include "io/vxscenewriter.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "walksample.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>
#include <cstdio>
#include <random>
#include <vxcore/vxscene.h>

namespace {

constexpr VxTime TimeA = 160;
constexpr VxTime TimeB = 320;
constexpr char Saving = 's';
constexpr char Saved = '.';

QByteArray bytesAt(VxScene *scene, VxTime time)
{
    scene->setTime(time);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    VxFileError error;
    VxSceneWriter(scene).write(&buffer, &error);
    return bytes;
}

/// Saves the two scenes by turns until it is killed, slowly enough to be caught in the middle.
int saveForever(const QString &fileName)
{
    VxScene scene;
    WalkSample::build(&scene);
    VxSceneWriter writer(&scene);
    writer.setProgress([](int) {
        QThread::usleep(300);
        return true;
    });
    // Each mark is flushed before the next step: the last one shows where the program was killed.
    const auto mark = [](char letter) {
        std::fputc(letter, stdout);
        std::fflush(stdout);
    };
    for (int i = 0;; ++i) {
        scene.setTime(i % 2 ? TimeB : TimeA);
        VxFileError error;
        mark(Saving);
        if (!writer.writeFile(fileName, &error))
            return 1;
        mark(Saved);
    }
}

} // namespace

class TestSceneSaveKilled : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theFileIsAlwaysWhole();
};

void TestSceneSaveKilled::theFileIsAlwaysWhole()
{
    const VxWarningGuard guard;
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("walk.vxscene"));
    VxScene scene;
    WalkSample::build(&scene);
    const QByteArray a = bytesAt(&scene, TimeA);
    const QByteArray b = bytesAt(&scene, TimeB);
    QVERIFY(a != b);
    QFile first(name);
    QVERIFY(first.open(QIODevice::WriteOnly) && first.write(b) == b.size());
    first.close();

    std::mt19937 random(1);
    int caught = 0;
    for (int round = 0; round < 25; ++round) {
        QProcess saver;
        saver.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--save"), name});
        QVERIFY(saver.waitForReadyRead(20000));
        QThread::msleep(random() % 40);
        saver.kill();
        QVERIFY(saver.waitForFinished());
        QCOMPARE(saver.exitStatus(), QProcess::CrashExit);

        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray found = file.readAll();
        QVERIFY2(found == a || found == b, qPrintable(QString::number(found.size())));
        VxSceneContents contents;
        VxFileError error;
        QVERIFY2(VxSceneReader().read(found, &contents, &error), qPrintable(error.text()));
        caught += saver.readAllStandardOutput().endsWith(Saving);
    }
    QVERIFY2(caught > 5, qPrintable(QString::number(caught)));
}

static int runTests(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--save"))
        return saveForever(arguments.value(2));
    TestSceneSaveKilled test;
    return QTest::qExec(&test, argc, argv);
}

VX_TEST_UNIT(&runTests)

#include "tst_scenesavekilled.moc"
