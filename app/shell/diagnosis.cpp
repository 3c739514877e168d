#include "shell/diagnosis.h"

#include "preferences/pluginmodule.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <vxcore/vxapp.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxversion.h>

namespace {

QStringList versionLines()
{
    return {QStringLiteral("Program: %1 %2").arg(VxApp::getAppName(), VX_STUDIO_VERSION),
            QStringLiteral("Host library: %1").arg(VxVersion::sdk().toString()),
            QStringLiteral("Qt: %1 (built with %2)").arg(qVersion(), QT_VERSION_STR),
            QStringLiteral("System: %1, kernel %2, %3")
                .arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion(),
                     QSysInfo::currentCpuArchitecture())};
}

QStringList pluginLines(const VxApp &app, const QString &folder, const VxSettings &settings)
{
    QStringList lines{QStringLiteral("Plug-in folder: %1").arg(folder)};
    for (const VxPlugin *plugin : app.getPluginMgr()->getPlugins())
        lines.append(QStringLiteral("Plug-in: %1 %2")
                         .arg(plugin->getName(), plugin->getVersion().toString()));
    for (const QString &module : PluginLists::skipped(settings))
        lines.append(QStringLiteral("Skipped plug-in: %1").arg(module));
    return lines;
}

/// One line per stored value. File names and what was typed are private: a diagnosis is sent to
/// others.
void addSettings(const VxSettings &settings, const QString &group, QStringList *lines)
{
    static const QStringList privateKeys{QStringLiteral("RecentFiles/Files"),
                                         QStringLiteral("Panes/VxConsolePane/Programs")};
    constexpr int LongestShown = 60;
    for (const QString &key : settings.getKeys()) {
        const QString value = settings.getStringValue(key);
        const bool isShown = !privateKeys.contains(group + key) && value.size() <= LongestShown;
        lines->append(
            QStringLiteral("Setting: %1%2 = %3")
                .arg(group, key,
                     isShown ? value : QStringLiteral("(%1 characters)").arg(value.size())));
    }
    for (const QString &name : settings.getSettingsNames())
        addSettings(*settings.findSettings(name), group + name + QLatin1Char('/'), lines);
}

QStringList screenLines()
{
    QStringList lines{QStringLiteral("Platform: %1").arg(QGuiApplication::platformName())};
    for (const QScreen *screen : QGuiApplication::screens()) {
        const QRect area = screen->geometry();
        lines.append(QStringLiteral("Screen: %1, %2x%3 at %4,%5, %6 dpi, scale %7")
                         .arg(screen->name().isEmpty() ? QStringLiteral("unnamed") : screen->name())
                         .arg(area.width())
                         .arg(area.height())
                         .arg(area.x())
                         .arg(area.y())
                         .arg(screen->logicalDotsPerInch())
                         .arg(screen->devicePixelRatio()));
    }
    return lines;
}

} // namespace

QString diagnosisPage(const VxApp &app, const QString &pluginFolder, const QString &settingsFile)
{
    VxSettings settings;
    QString error;
    const bool readable = settings.load(settingsFile, &error);
    QStringList lines = versionLines();
    lines += pluginLines(app, pluginFolder, settings);
    lines.append(QStringLiteral("Settings: %1 (%2)")
                     .arg(settingsFile, !readable ? error
                                        : QFileInfo::exists(settingsFile)
                                            ? QStringLiteral("readable")
                                            : QStringLiteral("none yet")));
    addSettings(settings, QString(), &lines);
    lines += screenLines();
    return lines.join(QLatin1Char('\n'));
}
