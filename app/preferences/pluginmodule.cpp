#include "preferences/pluginmodule.h"

#include <vxcore/vxsettings.h>

namespace {

const QLatin1String StoreName("Plugins");
const QLatin1String SkippedKey("Skipped");
const QLatin1String DisabledKey("Disabled");

QStringList storedFiles(const VxSettings &settings, const QString &key)
{
    const VxSettings *plugins = settings.findSettings(StoreName);
    return plugins ? plugins->getStringListValue(key) : QStringList();
}

void storeFiles(VxSettings *settings, const QString &key, const QStringList &files)
{
    VxSettings *plugins = settings->getSettings(StoreName);
    if (files.isEmpty())
        plugins->removeValue(key);
    else
        plugins->setStringListValue(key, files);
}

} // namespace

QStringList PluginLists::skipped(const VxSettings &settings)
{
    return storedFiles(settings, SkippedKey);
}

void PluginLists::setSkipped(VxSettings *settings, const QStringList &files)
{
    storeFiles(settings, SkippedKey, files);
}

QStringList PluginLists::disabled(const VxSettings &settings)
{
    return storedFiles(settings, DisabledKey);
}

void PluginLists::setDisabled(VxSettings *settings, const QStringList &files)
{
    storeFiles(settings, DisabledKey, files);
}
