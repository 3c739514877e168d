#include "smallmotion.h"
#include "testing/vxtestmain.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <csignal>
#include <sys/stat.h>

namespace {

struct Result
{
    int code = -1;
    QString output;
    QString errors;
};

} // namespace

/// Runs the program as it was built, from outside and without a display.
class tst_VxStudioHeadless : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_dir.reset(new QTemporaryDir); }
    void cleanup() { m_dir.reset(); }

    void version();
    void help();
    void wrongCommandLine_data();
    void wrongCommandLine();
    void loadsAndReports();
    void brokenFile();
    void missingFile();
    void unknownKindOfFile();
    void openingRunsNoScript();
    void scriptPrintsItsArguments();
    void scriptSeesTheFileAndTheFrame();
    void scriptError();
    void scriptWithBrokenSyntax();
    void missingScript();
    void screenshotHasTheSize_data();
    void screenshotHasTheSize();
    void screenshotShowsTheScript();
    void screenshotThatCannotBeWritten();
    void palettesDiffer();
    void missingPluginFolder();
    void brokenPlugin();
    void settingsAreKept();
    void brokenSettingsAreLeftAlone();
    void usersOwnSettingsAreLeftAlone();
    void listsActions();
    void diagnosis();
    void logCategories();
    void everyActionAndSlotIsAnswered();
    void limitsOfScripts_data();
    void limitsOfScripts();
    void interruptEndsAScript();
    void settingsThatAreNoFileAreRefused();
    void settingsAreTheUsersAlone();
    void pluginsThatCrashedAreSkipped();
    void timelineSample();
    void scriptFindsThePanesFilled();

private:
    static QString sourceFile(const char *name);
    Result run(const QStringList &arguments);
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }
    QString write(const char *name, const QByteArray &bytes) const;
    QByteArray read(const char *name) const;
    static QString programPath() { return QStringLiteral(VX_BINARY_DIR "/bin/vxstudio"); }

    QScopedPointer<QTemporaryDir> m_dir;
};

Result tst_VxStudioHeadless::run(const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_FONT_DPI"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path("config"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_dir->path());
    process.setProcessEnvironment(environment);
    process.start(programPath(), arguments);
    Result result;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    if (process.exitStatus() == QProcess::NormalExit)
        result.code = process.exitCode();
    result.output = QString::fromLocal8Bit(process.readAllStandardOutput());
    result.errors = QString::fromLocal8Bit(process.readAllStandardError());
    return result;
}

QString tst_VxStudioHeadless::write(const char *name, const QByteArray &bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

QByteArray tst_VxStudioHeadless::read(const char *name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_VxStudioHeadless::version()
{
    const Result result = run({"--version"});
    QCOMPARE(result.code, 0);
    QVERIFY2(result.output.startsWith("VxStudio ") && result.output.contains("4.22.0.7"),
             qPrintable(result.output));
    QCOMPARE(result.errors, QString());
}

void tst_VxStudioHeadless::help()
{
    const Result result = run({"--help"});
    QCOMPARE(result.code, 0);
    QVERIFY(result.output.contains("--screenshot"));
    QVERIFY(result.output.contains("Exit codes"));
    QCOMPARE(result.errors, QString());
}

void tst_VxStudioHeadless::wrongCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    QTest::newRow("unknown option") << QStringList{"--headless", "--sideways"} << "sideways";
    QTest::newRow("unknown option without --headless") << QStringList{"--sideways"} << "sideways";
    QTest::newRow("bad size") << QStringList{"--headless", "--size", "big"} << "big";
    QTest::newRow("two files") << QStringList{"--headless", "a.bvh", "b.bvh"} << "b.bvh";
}

void tst_VxStudioHeadless::wrongCommandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const Result result = run(arguments);
    QCOMPARE(result.code, 2);
    QCOMPARE(result.output, QString());
    QVERIFY2(result.errors.contains(named), qPrintable(result.errors));
    QCOMPARE(result.errors.count('\n'), 1);
}

void tst_VxStudioHeadless::loadsAndReports()
{
    const Result result = run({"--headless", write("walk.bvh", smallMotion)});
    QCOMPARE(result.code, 0);
    QCOMPARE(result.errors, QString());
    const QStringList lines = result.output.split('\n');
    QCOMPARE(lines.at(0),
             QString("walk.bvh: 2 nodes, 1 keyed property, 3 keys, frames 0 to 2 at 40 frames "
                     "per second"));
    QVERIFY2(lines.at(1).contains("40"), qPrintable(result.output));
}

void tst_VxStudioHeadless::brokenFile()
{
    QByteArray broken = smallMotion;
    broken.replace("2\n3\n", "2\nthree\n");
    const Result result = run({"--headless", write("broken.bvh", broken)});
    QCOMPARE(result.code, 1);
    QVERIFY2(result.errors.contains("broken.bvh, line 16: "), qPrintable(result.errors));
    QCOMPARE(result.output, QString());
}

void tst_VxStudioHeadless::missingFile()
{
    const Result result = run({"--headless", path("nowhere.bvh")});
    QCOMPARE(result.code, 1);
    QVERIFY(result.errors.contains("nowhere.bvh"));
}

/// Not as the file, not in its folder and not in its texts.
void tst_VxStudioHeadless::openingRunsNoScript()
{
    const QByteArray program = "print('ran');";
    const QString script = write("walk.js", program);
    QCOMPARE(run({"--headless", script}).code, 1);
    for (const char *name : {"walk.bvh.js", "autorun.js", "startup.js", "vxstudio.js"})
        write(name, program);
    QByteArray motion = smallMotion;
    motion.replace("ROOT hip", "ROOT print('ran')");
    const QString file = write("walk.bvh", motion);
    const Result opened = run({"--headless", file});
    QCOMPARE(opened.code, 0);
    QVERIFY2(opened.output.contains("2 nodes") && !opened.output.contains("\nran"),
             qPrintable(opened.output));
    const Result read =
        run({"--headless", "--script",
             write("names.js", "Scene.getNodes().forEach(function (node) { print(node.name); });"),
             file});
    QVERIFY2(read.output.contains("print('ran')") && !read.output.contains("\nran"),
             qPrintable(read.output + read.errors));
}

void tst_VxStudioHeadless::unknownKindOfFile()
{
    const Result result = run({"--headless", write("walk.txt", smallMotion)});
    QCOMPARE(result.code, 1);
    QVERIFY(result.errors.contains("walk.txt"));
    QVERIFY(result.errors.contains("*.bvh"));
}

void tst_VxStudioHeadless::scriptPrintsItsArguments()
{
    const QString script = write("a.js", "for (var i = 0; i < arguments.length; ++i)\n"
                                         "    print(i + ' ' + arguments[i]);\n"
                                         "print('\\u00e4');\n");
    const Result result = run({"--headless", "--script", script, "--", "one", "--two", "a b"});
    QCOMPARE(result.code, 0);
    QCOMPARE(result.output, QString::fromUtf8("0 one\n1 --two\n2 a b\nä\n"));
    QCOMPARE(result.errors, QString());
}

void tst_VxStudioHeadless::scriptSeesTheFileAndTheFrame()
{
    const QString script = write("a.js", "print(Scene.getNumNodes() + ' ' + Scene.time);\n");
    const QString motion = write("walk.bvh", smallMotion);
    const Result result = run({"--headless", "--script", script, "--frame", "2", motion});
    QCOMPARE(result.code, 0);
    QVERIFY2(result.output.endsWith("\n2 240\n"), qPrintable(result.output));
}

void tst_VxStudioHeadless::scriptError()
{
    const QString script = write("bad.js", "print('first');\n\nnoSuchThing();\nprint('last');\n");
    const Result result = run({"--headless", "--script", script});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.output, QString("first\n"));
    QVERIFY2(result.errors.contains("bad.js:3: ") && result.errors.contains("noSuchThing"),
             qPrintable(result.errors));
}

void tst_VxStudioHeadless::scriptWithBrokenSyntax()
{
    const Result result =
        run({"--headless", "--script", write("bad.js", "print('never');\nif (\n")});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.output, QString());
    QVERIFY2(QRegularExpression("bad\\.js:[23]: ").match(result.errors).hasMatch(),
             qPrintable(result.errors));
}

void tst_VxStudioHeadless::missingScript()
{
    const Result result = run({"--headless", "--script", path("nowhere.js")});
    QCOMPARE(result.code, 1);
    QVERIFY(result.errors.contains("nowhere.js"));
}

void tst_VxStudioHeadless::screenshotHasTheSize_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QSize>("size");
    QTest::newRow("usual size") << QStringList() << QSize(1280, 800);
    QTest::newRow("small") << QStringList{"--size", "640x480"} << QSize(640, 480);
    QTest::newRow("smaller than its contents")
        << QStringList{"--size", "200x150"} << QSize(200, 150);
    QTest::newRow("large") << QStringList{"--size", "2560x1440"} << QSize(2560, 1440);
}

void tst_VxStudioHeadless::screenshotHasTheSize()
{
    QFETCH(QStringList, arguments);
    QFETCH(QSize, size);
    const QString file = path("picture.png");
    const Result result =
        run(QStringList{"--headless", "--screenshot", file, write("walk.bvh", smallMotion)} +
            arguments);
    QVERIFY2(result.code == 0, qPrintable(result.errors));
    const QImage picture(file, "png");
    QCOMPARE(picture.size(), size);
}

void tst_VxStudioHeadless::screenshotShowsTheScript()
{
    const QString motion = write("walk.bvh", smallMotion);
    const QString script = write("a.js", "Scene.setPrimarySelection(Scene.findNode('hip'));\n");
    QCOMPARE(run({"--headless", "--screenshot", path("plain.png"), motion}).code, 0);
    QCOMPARE(run({"--headless", "--screenshot", path("again.png"), motion}).code, 0);
    QCOMPARE(
        run({"--headless", "--script", script, "--screenshot", path("script.png"), motion}).code,
        0);
    QVERIFY(QImage(path("plain.png")) == QImage(path("again.png")));
    QVERIFY(QImage(path("plain.png")) != QImage(path("script.png")));
}

void tst_VxStudioHeadless::screenshotThatCannotBeWritten()
{
    const QString file = path("no/such/folder/picture.png");
    const Result result = run({"--headless", "--screenshot", file});
    QCOMPARE(result.code, 1);
    QVERIFY2(result.errors.contains(file), qPrintable(result.errors));
}

void tst_VxStudioHeadless::palettesDiffer()
{
    const auto cornerLightness = [this](const char *palette) {
        const QString file = path(palette) + QStringLiteral(".png");
        run({"--headless", "--screenshot", file, "--palette", QLatin1String(palette)});
        const QImage picture(file);
        return picture.isNull() ? -1 : qGray(picture.pixel(picture.width() - 3, 3));
    };
    const int dark = cornerLightness("dark");
    QVERIFY(dark >= 0 && dark < 100);
    QVERIFY(cornerLightness("light") > 150);
}

void tst_VxStudioHeadless::missingPluginFolder()
{
    const Result result = run({"--headless", "--plugin-path", path("nowhere")});
    QCOMPARE(result.code, 0); // the program continues
    QVERIFY2(result.errors.contains(path("nowhere")), qPrintable(result.errors));
}

void tst_VxStudioHeadless::brokenPlugin()
{
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("plugins")));
    write("plugins/broken.so", "no library");
    const Result result = run({"--headless", "--plugin-path", path("plugins")});
    QCOMPARE(result.code, 0);
    QVERIFY2(result.errors.contains("broken.so"), qPrintable(result.errors));
}

void tst_VxStudioHeadless::settingsAreKept()
{
    const QString file = path("sub/settings.json");
    QCOMPARE(run({"--headless", "--settings", file, "--palette", "light"}).code, 0);
    QVERIFY(read("sub/settings.json").contains("light"));
    QCOMPARE(run({"--headless", "--settings", file, "--screenshot", path("a.png")}).code, 0);
    const QImage picture(path("a.png"));
    QVERIFY(qGray(picture.pixel(picture.width() - 3, 3)) > 150);
}

void tst_VxStudioHeadless::brokenSettingsAreLeftAlone()
{
    const QByteArray broken("[Panes\nno settings");
    const QString file = write("settings.ini", broken);
    const Result result = run({"--headless", "--settings", file});
    QCOMPARE(result.code, 0);
    QVERIFY2(result.errors.contains("settings.ini"), qPrintable(result.errors));
    QCOMPARE(read("settings.ini"), broken);
}

void tst_VxStudioHeadless::usersOwnSettingsAreLeftAlone()
{
    QCOMPARE(run({"--headless", "--palette", "light"}).code, 0);
    QVERIFY(!QDir(path("config")).exists());
}

QString tst_VxStudioHeadless::sourceFile(const char *name)
{
    QFile file(QStringLiteral(VX_SOURCE_DIR "/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", name);
    return QString::fromUtf8(file.readAll());
}

void tst_VxStudioHeadless::listsActions()
{
    const Result result = run({"--list-actions"});
    QCOMPARE(result.code, 0);
    QCOMPARE(result.errors, QString());
    QVERIFY(result.output.count("App.action(") >= 56);
    QVERIFY2(result.output == sourceFile("docs/actions.md"),
             "docs/actions.md is out of date: vxstudio --list-actions > docs/actions.md");
    // Whatever the user has chosen, the page lists the defaults.
    const QString settings =
        write("settings.ini", "[Shortcuts]\nVxPlayToggleAction=F9\nVxNextFrameAction=\n");
    QCOMPARE(run({"--list-actions", "--settings", settings}).output, result.output);
}

void tst_VxStudioHeadless::diagnosis()
{
    const Result result = run({"--diagnose"});
    QCOMPARE(result.code, 0);
    for (const char *part : {"Program: VxStudio ", "Host library: 4.22.0.7", "Qt: 5.",
                             "System: ", "Plug-in: VxTimeline 1.7.0.15", "Settings: ", "Screen: "})
        QVERIFY2(result.output.contains(QLatin1String(part)), qPrintable(result.output));
    // Settings, but nothing private.
    const QString settings =
        write("settings.ini", "[General]\nPalette=light\n[Panes]\nVxTimePane\\GraphOpen=true\n"
                              "VxConsolePane\\Programs=mine\n[RecentFiles]\nFiles=secret,\n");
    const QString page = run({"--diagnose", "--settings", settings}).output;
    for (const char *part :
         {"Setting: Palette = light", "Setting: Panes/VxTimePane/GraphOpen = true",
          "Setting: RecentFiles/Files = (8 characters)"})
        QVERIFY2(page.contains(QLatin1String(part)), qPrintable(page));
    QVERIFY2(!page.contains("mine") && !page.contains("secret"), qPrintable(page));
    // Those of a former version, as long as there are no present ones.
    QVERIFY(QDir().mkpath(path("config/VxStudio")));
    write("config/VxStudio/vxstudio.ini", "[Saving]\nBackups=7\n");
    QVERIFY(run({"--diagnose"}).output.contains("Setting: Saving/Backups = 7"));
    write("config/VxStudio/vxstudio.json", "{ \"Saving/Backups\": \"5\" }");
    QVERIFY(run({"--diagnose"}).output.contains("Setting: Saving/Backups = 5"));
}

void tst_VxStudioHeadless::logCategories()
{
    const QString file = QStringLiteral(VX_SOURCE_DIR "/samples/walk.vxscene");
    const Result quiet = run({"--headless", file});
    QCOMPARE(quiet.errors, QString());
    const Result one = run({"--headless", "--log", "plugins", file});
    QVERIFY2(one.errors.contains("vx.plugins: loaded") && !one.errors.contains("vx.files"),
             qPrintable(one.errors));
    const Result all = run({"--headless", "--log", "all", file});
    QVERIFY2(all.errors.contains("vx.files: read") && all.errors.contains("walk.vxscene"),
             qPrintable(all.errors));
    const Result motion =
        run({"--headless", "--log", "files", QStringLiteral(VX_SOURCE_DIR "/samples/walk.bvh")});
    QVERIFY2(motion.errors.contains("vx.files: read") && motion.errors.contains("walk.bvh"),
             qPrintable(motion.errors));
    const Result unknown = run({"--headless", "--log", "plugins,weather"});
    QCOMPARE(unknown.code, 2);
    QVERIFY2(unknown.errors.contains("\"weather\""), qPrintable(unknown.errors));
}

/** Every action, and every slot of every pane, with and without a selection: none waits for an
 * answer. */
void tst_VxStudioHeadless::everyActionAndSlotIsAnswered()
{
    const QString script = write("all.js", R"(
        var names = App.actionNames(), triggered = 0, called = {};
        function everything() {
            names.forEach(function(name) {
                if (!/Quit|Exit/.test(name)) { App.action(name).trigger(); ++triggered; }
            });
            ["VxTimePane", "VxScenePane", "VxParametersPane", "VxHistoryPane", "VxKeyToolsPane",
             "VxKeyTablePane", "VxConsolePane"].forEach(function(name) {
                var pane = App.findPane(name);
                if (!pane) throw new Error("no pane " + name);
                called[name] = 0;
                for (var member in pane) {
                    var slot = /^(\w+)\((.*)\)$/.exec(member);
                    if (!slot || /^(close|deleteLater|hide|setEnabled|setDisabled|destroyed)$/.test(slot[1]))
                        continue;
                    var arguments = slot[2] === "" ? [] : slot[2].split(",").map(function() { return 1; });
                    ++called[name];
                    try { pane[member].apply(pane, arguments); } catch (e) { } // signals, wrong types
                }
            });
        }
        everything();
        Scene.addSkeleton("s").select();
        Scene.getNodes()[0].getXPosControl().setKeys([{time: 0, value: 1}, {time: 800, value: 2}]);
        everything();
        App.findPane("VxTimePane").createFilteredKeys(1);
        print("actions", names.length >= 56 + 7 && triggered >= 2 * names.length - 4);
        for (var name in called)
            print(name, called[name] > (name === "VxTimePane" ? 50 : 5));
    )");
    QElapsedTimer timer;
    timer.start();
    const Result result = run({"--headless", "--script", script, "--time-limit", "40"});
    QVERIFY2(result.code == 0, qPrintable(result.errors + result.output));
    QCOMPARE(result.output,
             QString("actions true\nVxTimePane true\nVxScenePane true\nVxParametersPane true\n"
                     "VxHistoryPane true\nVxKeyToolsPane true\nVxKeyTablePane true\n"
                     "VxConsolePane true\n"));
    QVERIFY2(result.errors.contains("cancelled, no user to answer"), qPrintable(result.errors));
    QVERIFY(timer.elapsed() < 40000);
}

void tst_VxStudioHeadless::limitsOfScripts_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("limits");
    QTest::addColumn<QString>("message");
    QTest::newRow("endless with a handler of errors")
        << "for (;;) { try { for (;;) {} } catch (e) {} }" << QStringList{"--time-limit", "1"}
        << "exceeded its time limit of 1 s";
    QTest::newRow("endless edits")
        << "for (;;) Scene.removeNode(Scene.addNode('n'));" << QStringList{"--time-limit", "1"}
        << "exceeded its time limit of 1 s";
    QTest::newRow("all the memory")
        << "var list = []; for (var i = 0;; ++i) list.push({ a: i });"
        << QStringList{"--memory-limit", "200"} << "exceeded its memory limit of 200 MB";
}

void tst_VxStudioHeadless::limitsOfScripts()
{
    QFETCH(QString, program);
    QFETCH(QStringList, limits);
    QFETCH(QString, message);
    const QString script = write("long.js", program.toUtf8());
    const Result result = run(QStringList{"--headless", "--script", script} + limits);
    QCOMPARE(result.code, 1);
    QVERIFY2(result.errors.contains(message) && result.errors.contains("long.js"),
             qPrintable(result.errors));
}

void tst_VxStudioHeadless::interruptEndsAScript()
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", path("config"));
    process.setProcessEnvironment(environment);
    const QString script = write("endless.js", "print('begun'); for (;;) {}");
    process.start(programPath(), {"--headless", "--script", script});
    QVERIFY(process.waitForReadyRead(20000));
    QCOMPARE(::kill(pid_t(process.processId()), SIGINT), 0);
    QVERIFY(process.waitForFinished(5000));
}

void tst_VxStudioHeadless::settingsThatAreNoFileAreRefused()
{
    const QString fifo = path("pipe.json");
    QCOMPARE(::mkfifo(fifo.toLocal8Bit().constData(), 0600), 0);
    for (const QString &file : {fifo, QStringLiteral("/dev/zero"), m_dir->path()}) {
        const Result result = run({"--headless", "--settings", file});
        QCOMPARE(result.code, 0);
        QVERIFY2(result.errors.contains("not a regular file"), qPrintable(file + result.errors));
    }
}

void tst_VxStudioHeadless::settingsAreTheUsersAlone()
{
    const QString file = path("own/settings.json");
    QCOMPARE(run({"--headless", "--settings", file}).code, 0);
    QCOMPARE(QFile::permissions(file) &
                 (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());
}

/** A module that ends the program while it is being loaded does so once. */
void tst_VxStudioHeadless::pluginsThatCrashedAreSkipped()
{
    QVERIFY(QDir(m_dir->path()).mkdir("plugins"));
    const QString module = path("plugins/crash.so");
    QVERIFY(QFile::copy(QStringLiteral(VX_BINARY_DIR "/tests/modules/crash/testmodule_crash.so"),
                        module));
    const QStringList arguments{"--headless", "--settings", path("settings.json"), "--plugin-path",
                                path("plugins")};
    QVERIFY(run(arguments).code != 0);
    for (int start = 0; start < 2; ++start) {
        const Result again = run(arguments);
        QCOMPARE(again.code, 0);
        QVERIFY2(again.errors.contains("crash.so was skipped"), qPrintable(again.errors));
    }
    QVERIFY(run(arguments + QStringList{"--enable-plugins"}).code != 0);
    QCOMPARE(run(arguments).code, 0);
    // Mended, it is loaded when the user enables it.
    QVERIFY(QFile::remove(module));
    QVERIFY(QFile::copy(QStringLiteral(VX_BINARY_DIR "/tests/modules/testmodule_good.so"), module));
    const Result mended = run(arguments + QStringList{"--enable-plugins"});
    QCOMPARE(mended.code, 0);
    QVERIFY2(!mended.errors.contains("skipped"), qPrintable(mended.errors));
    QVERIFY2(!run(arguments).errors.contains("skipped"), qPrintable(mended.errors));
}

void tst_VxStudioHeadless::timelineSample()
{
    const Result result =
        run({"--headless", "--script", QStringLiteral(VX_SOURCE_DIR "/samples/timeline.js"),
             QStringLiteral(VX_SOURCE_DIR "/samples/walk.vxscene")});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.code, 0);
    QCOMPARE(result.output.split('\n'), sourceFile("samples/timeline.txt").split('\n'));
}

// Rows are made when the pane is shown, which does not happen without a window.
void tst_VxStudioHeadless::scriptFindsThePanesFilled()
{
    const QString script =
        write("a.js", "var pane = App.findPane('VxTimePane');\n"
                      "Scene.setPrimarySelection(Scene.findNode('hip')); App.processEvents();\n"
                      "App.action('VxTimePaneSelectItemAnimRangeKeysAction').trigger();\n"
                      "print(pane.visible, pane.hasDopeSheetItemSelection(), "
                      "pane.hasSelectedKeys());\n");
    const QString motion = write("walk.bvh", smallMotion);
    for (const QStringList &picture : {QStringList(), QStringList{"--screenshot", path("a.png")}}) {
        const Result result = run(QStringList{"--headless", "--script", script, motion} + picture);
        QCOMPARE(result.code, 0);
        QCOMPARE(result.errors, QString());
        QVERIFY2(result.output.endsWith("\ntrue true true\n"), qPrintable(result.output));
    }
    QVERIFY(!QImage(path("a.png")).isNull());
}

VX_TEST_GUILESS_MAIN(tst_VxStudioHeadless)
#include "tst_vxstudio_headless.moc"
