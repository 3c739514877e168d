#include "shell/commandline.h"
#include "shell/studio.h"
#include "widgets/usermessages.h"

#include <QApplication>
#include <QFont>
#include <QLoggingCategory>
#include <cstdio>
#include <vxcore/vxlanguage.h>

namespace {

QStringList rawArguments(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

/// Must run before there is an application object. The user's choice has priority.
void choosePlatform(const CommandLine &line)
{
    const bool showsWindow =
        line.action == CommandLine::Action::Run && !line.headless && !line.diagnose;
    const bool offscreen = line.headless || (!showsWindow && !hasDisplay());
    if (offscreen && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The offscreen screen has no physical size for font metrics.
    if (line.headless && !qEnvironmentVariableIsSet("QT_FONT_DPI"))
        qputenv("QT_FONT_DPI", "96");
}

QtMessageHandler generalHandler = nullptr;

void passOnMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        generalHandler(type, context, text);
}

/// The offscreen platform has no desktop, a large default font, and warns at every window about
/// unsupported features.
void settleOffscreen()
{
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        return;
    generalHandler = qInstallMessageHandler(passOnMessage);
    QFont font = QApplication::font();
    font.setPointSize(10);
    QApplication::setFont(font);
}

int explain(const CommandLine &line)
{
    switch (line.action) {
    case CommandLine::Action::ShowHelp:
        std::fputs(qPrintable(CommandLine::helpText()), stdout);
        return CommandLine::Success;
    case CommandLine::Action::ShowVersion:
        std::fputs(qPrintable(CommandLine::versionText()), stdout);
        return CommandLine::Success;
    default:
        UserMessages::printError(QStringLiteral("vxstudio: ") + line.errorText);
        return CommandLine::BadUsage;
    }
}

} // namespace

int main(int argc, char **argv)
{
    const CommandLine raw = CommandLine::parse(rawArguments(argc, argv));
    choosePlatform(raw);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("VxStudio"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VX_STUDIO_VERSION));

    // The texts about the command line are already in the user's language.
    if (!VxLanguage::setCurrent(raw.language))
        VxLanguage::setCurrent(QString());
    const CommandLine line = CommandLine::parse(QCoreApplication::arguments());
    if (line.action != CommandLine::Action::Run)
        return explain(line);
    if (!line.logRules.isEmpty())
        QLoggingCategory::setFilterRules(line.logRules);
    settleOffscreen();
    Studio studio(line);
    return studio.run();
}
