// The importer process: what it reads, and how its crashes, hangs and limits end.

#include "gltfsample.h"
#include "io/formats/vxmotionimport.h"
#include "io/gltf/vxgltfreader.h"
#include "io/worker/vximportlimits.h"
#include "io/worker/vximportprotocol.h"
#include "io/worker/vximportworker.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

namespace {

GltfSample walkingNodes(int nodes, int keys)
{
    GltfSample sample;
    QJsonArray list;
    for (int i = 0; i < nodes; ++i)
        list.append(QJsonObject{{"name", QString("node %1").arg(i)}});
    sample.root.insert("nodes", list);
    std::vector<float> times;
    for (int i = 0; i < keys; ++i)
        times.push_back(float(i / 30.0));
    const int input = sample.floats(times, "SCALAR", 1);
    for (int i = 0; i < nodes; ++i) {
        std::vector<float> values;
        for (int k = 0; k < keys * 3; ++k)
            values.push_back(float(std::sin(k * 0.1 + i)));
        sample.animate(0, i, "translation", "LINEAR", input, sample.floats(values, "VEC3", 3));
    }
    return sample;
}

/// Milliseconds that something takes.
struct Cost
{
    double elapsed = 1e9;
    double processor = 1e9; ///< of this process and those that it has started and that have ended
};

double processorMilliseconds()
{
    double sum = 0;
    for (const auto who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        getrusage(who, &usage);
        for (const timeval &time : {usage.ru_utime, usage.ru_stime})
            sum += double(time.tv_sec) * 1e3 + double(time.tv_usec) * 1e-3;
    }
    return sum;
}

template <class Function> Cost bestOf(const Function &run)
{
    Cost best;
    for (int i = 0; i < 7; ++i) {
        QElapsedTimer timer;
        timer.start();
        const double before = processorMilliseconds();
        if (!run())
            return best;
        best.processor = std::min(best.processor, processorMilliseconds() - before);
        best.elapsed = std::min(best.elapsed, double(timer.nsecsElapsed()) * 1e-6);
    }
    return best;
}

int openForWriting(const char *path)
{
    return ::open(path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
}

} // namespace

class tst_VxImportWorker : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void readsAFile();
    void messagesAreForwarded();
    void badEndsGiveOneMessage_data();
    void badEndsGiveOneMessage();
    void tooMuchMemoryGivesOneMessage();
    void cancelEndsTheProcess();
    void theProcessCannotWrite();
    void aFailedImportKeepsTheScene();
    void anImportIsOneEntry();
    void choicesReportTheirNumbers();
    void reportSurvivesJson();
    void costOfTheProcess();

private:
    QString write(const char *name, const QByteArray &bytes);
    QString script(const QByteArray &commands);

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    VxSceneContents m_contents;
    VxImportReport m_report;
    VxFileError m_error;
};

void tst_VxImportWorker::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    m_error = VxFileError();
    m_report = VxImportReport();
}

void tst_VxImportWorker::cleanup()
{
    m_contents = VxSceneContents();
    m_dir.reset();
    m_guard.reset();
}

QString tst_VxImportWorker::write(const char *name, const QByteArray &bytes)
{
    QFile file(m_dir->filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

QString tst_VxImportWorker::script(const QByteArray &commands)
{
    const QString name = write("importer", "#!/bin/sh\n" + commands + "\n");
    QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return name;
}

void tst_VxImportWorker::readsAFile()
{
    const QString file = write("walk.gltf", walkingNodes(3, 40).text());
    QVector<int> percents;
    const VxFileProgress progress = [&percents](int percent) {
        percents.append(percent);
        return true;
    };
    QVERIFY2(VxImportWorker().run(file, {}, progress, &m_contents, &m_report, &m_error),
             qPrintable(m_error.text()));
    QCOMPARE(int(m_contents.rootNodes.size()), 3);
    QCOMPARE(m_contents.rootNodes[1]->getXPosControl()->getNumKeys(), 40);
    QCOMPARE(m_contents.animRange, VxTimeRange(0, 39 * 160));
    QCOMPARE(m_report.channels, 9);
    QCOMPARE(m_report.file, file);
    QVERIFY(std::is_sorted(percents.begin(), percents.end()));
}

void tst_VxImportWorker::messagesAreForwarded()
{
    const QString file = write("broken.gltf", "{ \"asset\": ");
    QVERIFY(!VxImportWorker().run(file, {}, {}, &m_contents, &m_report, &m_error));
    QCOMPARE(m_error.file, file);
    QVERIFY2(m_error.message.contains("Invalid JSON: "), qPrintable(m_error.message));
    QVERIFY(m_error.offset >= 0);
    QVERIFY(!VxImportWorker().run(m_dir->filePath("none.glb"), {}, {}, &m_contents, &m_report,
                                  &m_error));
    QVERIFY2(m_error.message.contains("cannot be read"), qPrintable(m_error.message));
    QVERIFY(!VxImportWorker().run(m_dir->path(), {}, {}, &m_contents, &m_report, &m_error));
    QVERIFY2(m_error.message.contains("regular file"), qPrintable(m_error.message));
}

void tst_VxImportWorker::badEndsGiveOneMessage_data()
{
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<QString>("message");
    QTest::newRow("a crash") << QByteArray("kill -SEGV $$") << "crashed";
    QTest::newRow("an abort") << QByteArray("kill -ABRT $$") << "crashed";
    QTest::newRow("no more processor time") << QByteArray("kill -XCPU $$") << "processor time";
    QTest::newRow("a hang") << QByteArray("exec sleep 60") << "has not responded";
    QTest::newRow("an exit without a word") << QByteArray("exit 0") << "without a result";
    QTest::newRow("an exit with a code") << QByteArray("exit 3") << "code 3";
    QTest::newRow("noise") << QByteArray("echo this is no answer; exec sleep 60") << "is invalid";
    QTest::newRow("a scene that is none")
        << QByteArray("printf 'R\\002\\000\\000\\000{}S\\003\\000\\000\\000abc'")
        << "answer of the importer is invalid";
    QTest::newRow("a message cut off")
        << QByteArray("printf 'R\\002\\000\\000\\000{}S\\377\\000\\000\\000abc'")
        << "without a result";
    QTest::newRow("a message of 4 GB")
        << QByteArray("printf 'S\\377\\377\\377\\377abc'") << "is invalid";
}

void tst_VxImportWorker::badEndsGiveOneMessage()
{
    QFETCH(QByteArray, commands);
    QFETCH(QString, message);
    VxImportWorker worker;
    worker.setProgram(script(commands));
    VxImportWorker::Limits limits;
    limits.silence = 300;
    worker.setLimits(limits);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!worker.run(write("walk.gltf", "{}"), {}, {}, &m_contents, &m_report, &m_error));
    QVERIFY2(m_error.message.contains(message), qPrintable(m_error.message));
    QVERIFY(!m_error.cancelled);
    QVERIFY(m_contents.rootNodes.empty());
    QVERIFY(timer.elapsed() < 20000);
}

void tst_VxImportWorker::tooMuchMemoryGivesOneMessage()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer reserves more addresses than any limit would leave.");
#endif
    VxImportWorker worker;
    VxImportWorker::Limits limits;
    limits.memory = 8 * 1024 * 1024;
    worker.setLimits(limits);
    // Many channels over one small block of data: far more values than bytes.
    GltfSample sample = walkingNodes(1, 3000);
    QJsonArray nodes;
    for (int i = 0; i < 500; ++i) {
        nodes.append(QJsonObject{{"name", "node"}});
        if (i > 0)
            sample.animate(0, i, "translation", "LINEAR", 0, 1);
    }
    sample.root.insert("nodes", nodes);
    const QString file = write("large.gltf", sample.text());
    QVERIFY(!worker.run(file, {}, {}, &m_contents, &m_report, &m_error));
    QVERIFY2(m_error.message.contains("memory") || m_error.message.contains("crashed"),
             qPrintable(m_error.message));
    QVERIFY2(VxImportWorker().run(file, {}, {}, &m_contents, &m_report, &m_error),
             qPrintable(m_error.text()));
}

void tst_VxImportWorker::cancelEndsTheProcess()
{
    VxImportWorker worker;
    worker.setProgram(
        script("echo $$ > " + m_dir->filePath("pid").toLocal8Bit() + "; exec sleep 60"));
    const QString pidFile = m_dir->filePath("pid");
    const VxFileProgress progress = [&pidFile](int) { return QFileInfo(pidFile).size() == 0; };
    QVERIFY(!worker.run(write("walk.gltf", "{}"), {}, progress, &m_contents, &m_report, &m_error));
    QVERIFY(m_error.cancelled);
    QFile file(pidFile);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const int pid = file.readAll().trimmed().toInt();
    QVERIFY(pid > 0);
    QCOMPARE(::kill(pid, 0), -1);
}

void tst_VxImportWorker::theProcessCannotWrite()
{
    const QByteArray present = write("present", "content").toLocal8Bit();
    const QByteArray fresh = m_dir->filePath("fresh").toLocal8Bit();
    const pid_t child = ::fork();
    if (child == 0) {
        vxLimitProcess(64 * 1024 * 1024, 5);
        const int made = openForWriting(fresh.constData());
        const int kept = openForWriting(present.constData());
        const int read = ::open(present.constData(), O_RDONLY);
        ::_exit((made >= 0 ? 1 : 0) + (kept >= 0 ? 2 : 0) + (read < 0 ? 4 : 0));
    }
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    if (WEXITSTATUS(status) == 3)
        QSKIP("This kernel has no means to forbid files; their size is limited to 0.");
    QCOMPARE(WEXITSTATUS(status), 0);
    QCOMPARE(QFileInfo(QString::fromLocal8Bit(present)).size(), qint64(7));
}

void tst_VxImportWorker::aFailedImportKeepsTheScene()
{
    VxUndoStack undo;
    VxScene scene;
    scene.addNode(new VxBone(QStringLiteral("before")));
    VxMotionImport import(&scene);
    import.setReplacesScene(true);
    QVERIFY(!import.load(write("broken.glb", "glTF"), &m_error));
    QVERIFY(!import.enter({}, &m_error));
    QCOMPARE(scene.getNumNodes(), 1);
    QVERIFY(scene.findNode(QStringLiteral("before")));
    QVERIFY(!undo.canUndo());
}

void tst_VxImportWorker::anImportIsOneEntry()
{
    VxUndoStack undo;
    VxScene scene;
    scene.addNode(new VxBone(QStringLiteral("node 0")));
    scene.setTimeStep(200);
    const VxTimeRange former = scene.getAnimRange();
    VxMotionImport import(&scene);
    QVERIFY2(import.load(write("walk.gltf", walkingNodes(2, 90).text()), &m_error),
             qPrintable(m_error.text()));
    QCOMPARE(scene.getNumNodes(), 1);
    QVERIFY(import.enter({}, &m_error));
    QCOMPARE(scene.getNumNodes(), 3);
    QCOMPARE(scene.getTimeStep(), 200);
    QCOMPARE(scene.getAnimRange().getEnd(), 89 * 160);
    QCOMPARE(import.getRoots().constFirst()->getLabel(), QStringLiteral("node 0 2"));
    undo.undo();
    QCOMPARE(scene.getNumNodes(), 1);
    QCOMPARE(scene.getAnimRange(), former);
    QVERIFY(!undo.canUndo());
    undo.redo();
    QCOMPARE(scene.getNumNodes(), 3);
}

// Keys on every 30th of a second in a scene of 24 frames a second.
void tst_VxImportWorker::choicesReportTheirNumbers()
{
    VxUndoStack undo;
    VxScene scene;
    scene.addNode(new VxBone(QStringLiteral("before")));
    scene.setTimeStep(200);
    GltfSample sample = walkingNodes(1, 61);
    std::vector<float> rotations;
    for (int i = 0; i < 61; ++i)
        rotations.insert(rotations.end(), {0, 0, 0, 1});
    sample.animate(0, 0, "rotation", "LINEAR", 0, sample.floats(rotations, "VEC4", 4));
    VxMotionImport import(&scene);
    QVERIFY2(import.load(write("walk.gltf", sample.text()), &m_error), qPrintable(m_error.text()));

    const VxImportNumbers exact = import.numbers({});
    QCOMPARE(exact.keys, qint64(6 * 61));
    QCOMPARE(exact.offFrame, qint64(6 * 48)); // every fifth key of 61 is on a frame
    VxImportChoices choices;
    choices.matchesRate = true;
    QCOMPARE(import.numbers(choices).offFrame, qint64(0));
    choices.matchesRate = false;
    choices.snapsToFrames = true;
    choices.rotationsOnly = true;
    const VxImportNumbers numbers = import.numbers(choices);
    QCOMPARE(numbers.keys, qint64(3 * 49));
    QCOMPARE(numbers.merged, qint64(3 * 12));
    QCOMPARE(numbers.leftOut, qint64(3 * 61));
    QCOMPARE(numbers.largestMove, 80);

    QVERIFY(import.enter(choices, &m_error));
    const VxNode *node = import.getRoots().constFirst();
    QCOMPARE(node->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(node->getXRotControl()->getNumKeys(), 49);
    for (int i = 0; i < 49; ++i)
        QCOMPARE(node->getXRotControl()->getKeyTime(i), i * 200);
}

void tst_VxImportWorker::reportSurvivesJson()
{
    VxImportReport report;
    report.file = QStringLiteral("a \"quoted\" name.glb");
    report.writer = QStringLiteral("maker");
    report.sourceRate = 30000.0 / 1001.0;
    report.isRateFromKeys = true;
    report.step = 160;
    report.upAxis = 'Z';
    report.isRotated = true;
    report.clips = {{QStringLiteral("walk"), true, {-160, 320}}};
    report.keysBefore = 3000000000;
    report.keysAfter = 4000000000;
    report.angleError = 0.0625;
    report.notes = QStringList{QStringLiteral("note")};
    report.omissions = {{QStringLiteral("mesh"), QStringLiteral("why"), QStringLiteral("cube"), 7}};
    const VxImportReport again = VxImportReport::fromJson(report.toJson());
    QCOMPARE(again.toJson(), report.toJson());
    QCOMPARE(again.lines(), report.lines());
    QCOMPARE(again.keysAfter, qint64(4000000000));
    QCOMPARE(again.clips.at(0).range, VxTimeRange(-160, 320));
    QCOMPARE(again.omissions.at(0).count, 7);
    QVERIFY(report.lines().join('\n').contains("29.97"));
}

// 400,000 values: the process costs little beside reading them here.
// 400,000 values. Processor time counts, of this process and the importer: it is the same however
// busy the machine is. The best of several runs each.
void tst_VxImportWorker::costOfTheProcess()
{
    const QString file = write("large.gltf", walkingNodes(100, 1334).text());
    const Cost here = bestOf([&] {
        QFile source(file);
        VxImportedMotion motion;
        return source.open(QIODevice::ReadOnly) &&
               vxReadGltf(source.readAll(), QString(), {}, &motion, &m_error) &&
               vxBuildMotion(std::move(motion), {}, {}, &m_contents, &m_report, &m_error);
    });
    const Cost there = bestOf(
        [&] { return VxImportWorker().run(file, {}, {}, &m_contents, &m_report, &m_error); });
    QVERIFY2(m_error.message.isEmpty(), qPrintable(m_error.text()));
    QCOMPARE(m_report.keysAfter, qint64(100 * 3 * 1334));
    qInfo("%.0f ms (%.0f of the processor) in the program, %.0f ms (%.0f) by the importer process",
          here.elapsed, here.processor, there.elapsed, there.processor);
#if defined(__SANITIZE_ADDRESS__)
    constexpr double Allowed = 5000;
#else
    constexpr double Allowed = 100;
#endif
    QVERIFY2(there.processor <= here.processor + Allowed,
             qPrintable(QString("%1 ms more").arg(there.processor - here.processor)));
    QVERIFY(there.elapsed <= here.elapsed + 10 * Allowed);
}

VX_TEST_GUILESS_MAIN(tst_VxImportWorker)
#include "tst_vximportworker.moc"
