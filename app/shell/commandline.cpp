#include "shell/commandline.h"

#include "preferences/appearance.h"
#include "widgets/studiotext.h"

#include <QCommandLineParser>
#include <QRegularExpression>
#include <vxcore/vxapp.h>
#include <vxcore/vxlanguage.h>
#include <vxcore/vxversion.h>

namespace {

constexpr int SmallestSide = 64;
constexpr int LargestSide = 16384;

QString name(const char *text)
{
    return QString::fromLatin1(text);
}

/// The options, in the order in which the help lists them.
void addOptions(QCommandLineParser *parser)
{
    const auto add = [parser](const char *option, const QString &text, const char *value = "") {
        parser->addOption({name(option), text, name(value)});
    };
    add("headless", StudioText::tr("Run without a display and without dialogs."));
    add("script",
        StudioText::tr("Run a script after the file is opened. Arguments after \"--\" are "
                       "passed to the script."),
        "FILE.js");
    add("animation",
        StudioText::tr("Animation to read from a motion file that has several, by name or "
                       "number. Without this option all are read, one after another."),
        "NAME");
    add("import-report", StudioText::tr("Print what was found in the motion file as JSON."));
    add("time-limit",
        StudioText::tr("End a run without a window when its script takes longer. Default: no "
                       "limit."),
        "SECONDS");
    add("memory-limit",
        StudioText::tr("Stop the script when it takes more memory; 0 for no limit. Default: "
                       "%1.")
            .arg(CommandLine().scriptMegabytes),
        "MEGABYTES");
    add("screenshot", StudioText::tr("Save a picture of the window and exit."), "OUT.png");
    add("list-actions", StudioText::tr("Print a page about all actions and exit."));
    add("size", StudioText::tr("Window size in pixels."), "WxH");
    add("frame", StudioText::tr("Frame to show."), "N");
    add("palette", StudioText::tr("Palette: dark, light or contrast."), "NAME");
    add("text-size",
        StudioText::tr("Text size from %1 to %2 points; 0 for that of the desktop.")
            .arg(VxStyle::SmallestTextSize)
            .arg(VxStyle::LargestTextSize),
        "POINTS");
    add("language", StudioText::tr("Language of all texts, such as de."), "CODE");
    add("settings",
        StudioText::tr(
            "Store the settings in this file, and recovery copies in a folder next to it. Without "
            "this option, --headless and --screenshot neither read nor write settings."),
        "FILE.json");
    add("plugin-path", StudioText::tr("Additional plug-in folder; may be repeated."), "DIR");
    add("enable-plugins",
        StudioText::tr("Enable plug-ins again that are skipped because the program ended while "
                       "it was loading them."));
    add("log",
        StudioText::tr("Write messages of these categories to standard error, such as "
                       "plugins,scripts; \"all\" for every one."),
        "CATEGORIES");
    add("diagnose", StudioText::tr("Print versions, plug-ins, settings and screens, and exit."));
    parser->addOption({{name("v"), name("version")}, StudioText::tr("Show version information.")});
    parser->addOption({{name("h"), name("help")}, StudioText::tr("Show this help.")});
    parser->addPositionalArgument(name("FILE"), StudioText::tr("The scene or motion file to open."),
                                  name("[FILE] [-- ARGUMENTS]"));
}

void fail(CommandLine *line, const QString &text)
{
    if (line->action == CommandLine::Action::Fail)
        return;
    line->action = CommandLine::Action::Fail;
    line->errorText = text;
}

QSize parseSize(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A(\\d{1,5})x(\\d{1,5})\\z"));
    const QRegularExpressionMatch match = form.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const auto fits = [](int side) { return side >= SmallestSide && side <= LargestSide; };
    return fits(size.width()) && fits(size.height()) ? size : QSize();
}

void readSize(const QString &text, CommandLine *line)
{
    line->size = parseSize(text);
    if (line->size.isEmpty())
        fail(line,
             StudioText::tr(
                 "Invalid size \"%1\": expected WIDTHxHEIGHT such as 1280x800, each from %2 to %3.")
                 .arg(text)
                 .arg(SmallestSide)
                 .arg(LargestSide));
}

void readFrame(const QString &text, CommandLine *line)
{
    bool ok = false;
    line->frame = text.toInt(&ok);
    if (!ok)
        fail(line, StudioText::tr("Invalid frame \"%1\": expected a whole number.").arg(text));
}

void readPalette(const QString &text, CommandLine *line)
{
    line->palette = text;
    if (!Appearance::paletteNames().contains(text))
        fail(line,
             StudioText::tr("Unknown palette \"%1\": expected dark, light or contrast.").arg(text));
}

void readTextSize(const QString &text, CommandLine *line)
{
    bool ok = false;
    const int size = text.toInt(&ok);
    line->textSize = size;
    const bool isInRange =
        size == 0 || (size >= VxStyle::SmallestTextSize && size <= VxStyle::LargestTextSize);
    if (!ok || !isInRange)
        fail(line, StudioText::tr("Invalid text size \"%1\": expected %2 to %3 points, or 0.")
                       .arg(text)
                       .arg(VxStyle::SmallestTextSize)
                       .arg(VxStyle::LargestTextSize));
}

void readLanguage(const QString &text, CommandLine *line)
{
    const QStringList available = VxLanguage::available();
    line->language = text;
    if (!available.contains(text))
        fail(line, StudioText::tr("Unknown language \"%1\": expected one of %2.")
                       .arg(text, available.join(name(", "))));
}

/// A limit of at least 0 (none).
void readLimit(const QCommandLineParser &parser, const char *option, int *limit, CommandLine *line)
{
    if (!parser.isSet(name(option)))
        return;
    bool ok = false;
    const QString text = parser.value(name(option));
    const int value = text.toInt(&ok);
    if (ok && value >= 0)
        *limit = value;
    else
        fail(line, StudioText::tr("Invalid --%1 \"%2\": expected a whole number, 0 or more.")
                       .arg(name(option), text));
}

void readLog(const QString &text, CommandLine *line)
{
    static const QStringList categories{name("plugins"), name("scripts"), name("files"),
                                        name("recovery")};
    QStringList requested = text.split(QLatin1Char(','));
    if (requested == QStringList{name("all")})
        requested = categories;
    for (const QString &category : qAsConst(requested)) {
        if (!categories.contains(category))
            fail(line, StudioText::tr("Unknown log category \"%1\": expected all, or some of %2.")
                           .arg(category, categories.join(name(", "))));
        line->logRules += QStringLiteral("vx.%1.debug=true\nvx.%1.info=true\n").arg(category);
    }
}

void readFiles(const QStringList &files, CommandLine *line)
{
    if (files.size() > 1)
        fail(line, StudioText::tr("Only one file can be opened; unexpected argument \"%1\".")
                       .arg(files.at(1)));
    line->file = files.value(0);
}

void readOptions(const QCommandLineParser &parser, CommandLine *line)
{
    line->listActions = parser.isSet(name("list-actions"));
    line->headless = parser.isSet(name("headless")) || line->listActions;
    line->animation = parser.value(name("animation"));
    line->importReport = parser.isSet(name("import-report"));
    line->scriptFile = parser.value(name("script"));
    line->screenshotFile = parser.value(name("screenshot"));
    line->settingsFile = parser.value(name("settings"));
    line->pluginPaths = parser.values(name("plugin-path"));
    line->diagnose = parser.isSet(name("diagnose"));
    line->enablePlugins = parser.isSet(name("enable-plugins"));
    for (const char *option :
         {"script", "animation", "screenshot", "settings", "plugin-path", "log"}) {
        if (parser.isSet(name(option)) && parser.values(name(option)).contains(QString()))
            fail(line, StudioText::tr("Option --%1 requires a name.").arg(name(option)));
    }
    readLimit(parser, "time-limit", &line->scriptSeconds, line);
    readLimit(parser, "memory-limit", &line->scriptMegabytes, line);
    const auto read = [&](const char *option, void (*reader)(const QString &, CommandLine *)) {
        if (parser.isSet(name(option)))
            reader(parser.value(name(option)), line);
    };
    read("log", readLog);
    read("size", readSize);
    read("frame", readFrame);
    read("palette", readPalette);
    read("text-size", readTextSize);
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    CommandLine line;
    const int split = arguments.indexOf(name("--"));
    const QStringList own = arguments.mid(0, split);
    const QStringList rest = split < 0 ? QStringList() : arguments.mid(split + 1);

    QCommandLineParser parser;
    addOptions(&parser);
    const bool understood = parser.parse(own);
    // The help is shown in it.
    if (parser.isSet(name("language")))
        readLanguage(parser.value(name("language")), &line);
    if (parser.isSet(name("help")))
        line.action = Action::ShowHelp;
    else if (parser.isSet(name("version")))
        line.action = Action::ShowVersion;
    else if (!understood)
        fail(&line, parser.errorText());
    if (line.action != Action::Run)
        return line;

    readOptions(parser, &line);
    if (line.scriptFile.isEmpty()) {
        readFiles(parser.positionalArguments() + rest, &line);
    } else {
        readFiles(parser.positionalArguments(), &line);
        line.scriptArguments = rest;
    }
    return line;
}

QString CommandLine::helpText()
{
    QCommandLineParser parser;
    addOptions(&parser);
    parser.setApplicationDescription(StudioText::tr("Composes and animates scenes."));
    return parser.helpText() + StudioText::tr("\nExit codes:\n"
                                              "  0  success\n"
                                              "  1  a file, a script or a picture failed\n"
                                              "  2  invalid command line\n");
}

QString CommandLine::versionText()
{
    return StudioText::tr("%1 %2 (host library %3)\n")
        .arg(VxApp::getAppName(), name(VX_STUDIO_VERSION), VxVersion::sdk().toString());
}
