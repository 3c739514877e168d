#include "monkey.h"
#include "plantedpane.h"
#include "shell/studio.h"
#include "shell/studiowindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <cstdio>

namespace {

constexpr QSize WindowSize(1000, 700);

QSet<QString> &warnings()
{
    static QSet<QString> texts;
    return texts;
}

/// Each warning is printed once.
void handleMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
        std::abort();
    }
    if (type < QtWarningMsg || text.startsWith(QLatin1String("This plugin does not support")))
        return;
    if (!warnings().contains(text)) {
        warnings().insert(text);
        std::fprintf(stderr, "warning: %s\n", qPrintable(text));
    }
}

void addOptions(QCommandLineParser *parser)
{
    parser->setApplicationDescription(
        QStringLiteral("Works vxstudio with random input and reports what it did."));
    parser->addHelpOption();
    parser->addOption({"seed", "Seed of the random numbers.", "N", "1"});
    parser->addOption({"events", "Number of events.", "N", "10000"});
    parser->addOption({"redocks", "Percent of further events that move docks.", "N", "0"});
    parser->addOption({"log", "File with the latest events.", "FILE"});
    parser->addOption({"show-log", "Print such a file and exit.", "FILE"});
    parser->addOption({"plant", "Add a dock with a planted re-entrancy crash."});
}

void addPlantedDock(QMainWindow *window)
{
    auto *dock = new QDockWidget(QStringLiteral("Planted"), window);
    dock->setObjectName(QStringLiteral("DockPlanted"));
    dock->setWidget(new PlantedPane(dock));
    window->addDockWidget(Qt::TopDockWidgetArea, dock);
}

/// A copy of the sample that a run may save over.
QString makeDocument(const QTemporaryDir &folder)
{
    const QString copy = folder.filePath(QStringLiteral("walk.vxscene"));
    QFile::copy(QStringLiteral(VX_SOURCE_DIR "/samples/walk.vxscene"), copy);
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    return copy;
}

int run(const QCommandLineParser &parser, const QTemporaryDir &folder)
{
    const CommandLine line =
        CommandLine::parse({"vxstudio", "--settings", folder.filePath("settings.json"),
                            "--plugin-path", QStringLiteral(VX_PLUGIN_DIR)});
    Studio studio(line);
    studio.window()->resize(WindowSize);
    studio.window()->show();
    if (parser.isSet("plant"))
        addPlantedDock(studio.window());

    Monkey::Options options;
    options.seed = parser.value("seed").toUInt();
    options.events = parser.value("events").toLongLong();
    options.redocks = parser.value("redocks").toInt();
    options.document = makeDocument(folder);
    options.logFile = parser.value("log");
    Monkey monkey(studio.window(), options);
    QObject::connect(&monkey, &Monkey::finished, qApp, &QCoreApplication::quit);
    std::printf("seed %u, %lld events\n", options.seed, options.events);
    std::fflush(stdout);
    QElapsedTimer timer;
    timer.start();
    monkey.start();
    while (monkey.events() < options.events)
        QApplication::exec();
    std::printf("%s%lld events in %.0f s, %d different warnings\n", qPrintable(monkey.report()),
                monkey.events(), double(timer.elapsed()) / 1000, warnings().size());
    for (const QString &failure : monkey.failures())
        std::printf("failure: %s\n", qPrintable(failure));
    std::fflush(stdout); // a leak check at exit ends the program without it
    return monkey.failures().isEmpty() ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("QT_FONT_DPI"))
        qputenv("QT_FONT_DPI", "96");
    const QTemporaryDir folder;
    // Whatever a dialog or a setting writes stays in the temporary folder.
    qputenv("HOME", folder.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    qInstallMessageHandler(handleMessage);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    addOptions(&parser);
    parser.process(application);
    if (parser.isSet("show-log")) {
        for (const QString &entry : MonkeyLog::read(parser.value("show-log")))
            std::printf("%s\n", qPrintable(entry));
        return 0;
    }
    return run(parser, folder);
}
