// Motion files by command line and script, through the program as it was built.

#include "gltfsample.h"
#include "testing/vxtestmain.h"

#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class tst_MotionFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_dir.reset(); }

    void reportIsPrinted();
    void oneAnimationIsOpened();
    void scriptsOpenAndImport();
    void scriptsExport();
    void scriptErrorsGiveTheReason_data();
    void scriptErrorsGiveTheReason();
    void brokenFileEndsTheRun();

private:
    bool run(const QStringList &arguments);
    QString write(const char *name, const QByteArray &bytes);

    QScopedPointer<QTemporaryDir> m_dir;
    QString m_file; ///< two animations of half a second
    QString m_output;
    QString m_errors;
};

void tst_MotionFiles::init()
{
    m_dir.reset(new QTemporaryDir);
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    const int times = sample.floats({0, 0.5f}, "SCALAR", 1);
    for (int i = 0; i < 2; ++i)
        sample.animate(i, 0, "translation", "LINEAR", times,
                       sample.floats({float(i), 0, 0, 5, 0, 0}, "VEC3", 3));
    m_file = write("ball.gltf", sample.text());
}

QString tst_MotionFiles::write(const char *name, const QByteArray &bytes)
{
    QFile file(m_dir->filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

bool tst_MotionFiles::run(const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_dir->path());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VX_BINARY_DIR "/bin/vxstudio"),
                  QStringList{"--headless"} + arguments);
    if (!process.waitForFinished(60000))
        return false;
    m_output = QString::fromUtf8(process.readAllStandardOutput());
    m_errors = QString::fromUtf8(process.readAllStandardError());
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

void tst_MotionFiles::reportIsPrinted()
{
    QVERIFY2(run({"--import-report", m_file}), qPrintable(m_errors));
    const int from = m_output.indexOf('{');
    const int to = m_output.lastIndexOf('}');
    const QJsonObject report =
        QJsonDocument::fromJson(m_output.mid(from, to - from + 1).toUtf8()).object();
    QCOMPARE(report.value("file").toString(), m_file);
    QCOMPARE(report.value("writer").toString(), QStringLiteral("sample"));
    QCOMPARE(report.value("nodes").toInt(), 1);
    QCOMPARE(report.value("clips").toArray().size(), 2);
    QCOMPARE(report.value("keysBefore").toInt(), 12);
}

void tst_MotionFiles::oneAnimationIsOpened()
{
    const QString script =
        write("s.js", "print(Scene.findNode('ball').findProperty('XTranslate').getValue(0));");
    QVERIFY2(run({"--animation", "2", "--script", script, m_file}), qPrintable(m_errors));
    QVERIFY2(m_output.trimmed().endsWith("\n1"), qPrintable(m_output));
    QVERIFY(!run({"--animation", "swim", m_file}));
    QVERIFY2(m_errors.contains("Animation 1, Animation 2"), qPrintable(m_errors));
}

void tst_MotionFiles::scriptsOpenAndImport()
{
    const QString script =
        write("s.js", "var file = arguments[0];\n"
                      "Scene.addBone('before');\n"
                      "var report = Scene.importFile(file, {animation: 2});\n"
                      "print(report.nodes, report.keysAfter, report.clips.length,"
                      " Scene.getNumNodes());\n"
                      "Undo.undo();\n"
                      "print(Scene.getNumNodes());\n"
                      "App.open.__qt_data__ = 5; // where QtScript keeps a function's data\n"
                      "print(App.open(file), Scene.getNumNodes());\n");
    QVERIFY2(run({"--script", script, "--", m_file}), qPrintable(m_errors));
    QCOMPARE(m_output.trimmed(), QStringLiteral("1 6 2 2\n1\ntrue 1"));
}

void tst_MotionFiles::scriptsExport()
{
    const QString script =
        write("s.js", "var folder = arguments[1];\n"
                      "App.open(arguments[0], {animation: 2});\n"
                      "var ball = Scene.findNode('ball');\n"
                      "Scene.addBone('other');\n"
                      "for (var i = 0; i < 2; ++i) {\n"
                      "    Scene.exportFile(folder + '/out.csv', i ? {node: 'ball',"
                      " rowPerFrame: true} : {});\n"
                      "    var report = Scene.importFile(folder + '/out.csv');\n"
                      "    print(report.format, report.nodes, report.channels);\n"
                      "    Undo.undo();\n"
                      "}\n"
                      "print(Scene.exportFile(folder + '/out.glb', {}));\n");
    QVERIFY2(run({"--script", script, "--", m_file, m_dir->path()}), qPrintable(m_errors));
    QVERIFY2(m_output.trimmed().startsWith("CSV, one row a key 3 "), qPrintable(m_output));
    QVERIFY2(m_output.contains("\nCSV, one row a frame 1 "), qPrintable(m_output));
    QVERIFY2(m_output.trimmed().endsWith("\ntrue"), qPrintable(m_output));
    QVERIFY(QFile::exists(m_dir->filePath("out.glb")));
}

void tst_MotionFiles::scriptErrorsGiveTheReason_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<QString>("message");
    QTest::newRow("no name") << QByteArray("Scene.importFile()") << "name of a file";
    QTest::newRow("an unknown option")
        << QByteArray("Scene.importFile(arguments[0], {speed: 2})") << "speed";
    QTest::newRow("a missing file") << QByteArray("App.open('/none/a.glb')") << "cannot be read";
    QTest::newRow("a missing animation")
        << QByteArray("App.open(arguments[0], {animation: 'swim'})") << "swim";
    QTest::newRow("an export without a name")
        << QByteArray("Scene.exportFile()") << "name of a file";
    QTest::newRow("an export of no node")
        << QByteArray("Scene.exportFile('/tmp/a.csv', {node: 'swim'})") << "no node \"swim\"";
    QTest::newRow("an export with an unknown option")
        << QByteArray("Scene.exportFile('/tmp/a.csv', {speed: 2})") << "speed";
    QTest::newRow("an export of an unknown kind")
        << QByteArray("Scene.exportFile('/tmp/a.xyz')") << "Supported: *.bvh";
}

void tst_MotionFiles::scriptErrorsGiveTheReason()
{
    QFETCH(QByteArray, call);
    QFETCH(QString, message);
    const QString script = write(
        "s.js", "Scene.addBone('before');\ntry { " + call +
                    "; print('done'); } catch (e) { print(e.message, Scene.getNumNodes()); }");
    QVERIFY2(run({"--script", script, "--", m_file}), qPrintable(m_errors));
    QVERIFY2(m_output.contains(message), qPrintable(m_output));
    QVERIFY2(m_output.trimmed().endsWith(" 1"), qPrintable(m_output));
}

void tst_MotionFiles::brokenFileEndsTheRun()
{
    QVERIFY(!run({write("broken.glb", "glTF\2\0\0\0")}));
    QVERIFY2(m_errors.contains("broken.glb"), qPrintable(m_errors));
    QCOMPARE(m_errors.trimmed().count('\n'), 0);
}

VX_TEST_GUILESS_MAIN(tst_MotionFiles)
#include "tst_motionfiles.moc"
