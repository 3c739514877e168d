#include "shell/pluginloader.h"

#include "widgets/studiotext.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QLoggingCategory>
#include <cerrno>
#include <csignal>
#include <vxcore/vxplugin.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxsettings.h>

namespace {

Q_LOGGING_CATEGORY(log, "vx.plugins", QtWarningMsg)

bool isRunning(qint64 process)
{
    return process == QCoreApplication::applicationPid() ||
           (process > 0 && (::kill(pid_t(process), 0) == 0 || errno == EPERM));
}

QStringList modulesIn(const QDir &folder)
{
    QStringList modules;
    for (const QString &name : folder.entryList(QDir::Files, QDir::Name)) {
        if (QLibrary::isLibrary(name))
            modules.append(folder.filePath(name));
    }
    return modules;
}

} // namespace

PluginLoader::PluginLoader(const QString &settingsFile, VxSettings *store)
    : m_settingsFile(settingsFile)
    , m_store(store)
{
}

void PluginLoader::enableAll()
{
    collectCrashes();
    PluginLists::setSkipped(m_store, {});
}

QStringList PluginLoader::load(const QStringList &folders, VxPluginMgr *plugins)
{
    collectCrashes();
    m_modules.clear();
    QStringList messages;
    QStringList done;
    for (const QString &folder : folders) {
        const QString canonical = QDir(folder).canonicalPath();
        const QString path = canonical.isEmpty() ? folder : canonical;
        if (done.contains(path))
            continue;
        done.append(path);
        if (!QDir(path).exists())
            messages.append(StudioText::tr("The plug-in folder %1 does not exist.").arg(path));
        for (const QString &module : modulesIn(QDir(path))) {
            const QString message = loadModule(module, plugins);
            if (!message.isEmpty())
                messages.append(message);
        }
    }
    return messages;
}

QString PluginLoader::loadModule(const QString &file, VxPluginMgr *plugins)
{
    using State = PluginModule::State;
    PluginModule module{file, QFileInfo(file).completeBaseName(), QString(), QString(),
                        State::Loaded};
    QString message;
    if (PluginLists::skipped(*m_store).contains(file)) {
        module.state = State::Skipped;
        message = StudioText::tr("%1 was skipped, because the program ended while loading it. "
                                 "Start it with --enable-plugins to load it again.")
                      .arg(file);
    } else if (PluginLists::disabled(*m_store).contains(file)) {
        module.state = State::Disabled;
    } else {
        const bool marked = mark(file);
        const VxPlugin *plugin = plugins->loadPlugin(file, &message);
        if (marked)
            unmark();
        qCInfo(log).noquote() << (plugin ? "loaded" : "refused") << file << message;
        if (plugin) {
            module.name = plugin->getName();
            module.version = plugin->getVersion().toString();
            message.clear();
        } else {
            module.state = State::Failed;
            module.message = message;
        }
    }
    m_modules.append(module);
    return message;
}

QString PluginLoader::markerFile(const QString &process) const
{
    const QFileInfo file(m_settingsFile);
    return QDir(file.absolutePath())
        .filePath(file.completeBaseName() + QStringLiteral("-loading-") + process);
}

void PluginLoader::collectCrashes()
{
    if (m_settingsFile.isEmpty())
        return;
    const QFileInfo pattern(markerFile(QStringLiteral("*")));
    QStringList modules = PluginLists::skipped(*m_store);
    const auto markers = pattern.dir().entryInfoList({pattern.fileName()}, QDir::Files);
    for (const QFileInfo &marker : markers) {
        if (isRunning(marker.fileName().section(QLatin1Char('-'), -1).toLongLong()))
            continue;
        QFile file(marker.filePath());
        const QString module =
            file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
        if (!module.isEmpty() && !modules.contains(module))
            modules.append(module);
        file.remove();
    }
    if (modules != PluginLists::skipped(*m_store))
        PluginLists::setSkipped(m_store, modules);
}

bool PluginLoader::mark(const QString &module) const
{
    if (m_settingsFile.isEmpty() || !QDir().mkpath(QFileInfo(m_settingsFile).absolutePath()))
        return false;
    QFile file(markerFile(QString::number(QCoreApplication::applicationPid())));
    return file.open(QIODevice::WriteOnly) &&
           file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
           file.write(module.toUtf8()) >= 0 && file.flush();
}

void PluginLoader::unmark() const
{
    QFile::remove(markerFile(QString::number(QCoreApplication::applicationPid())));
}
