#ifndef PLUGINLOADER_H
#define PLUGINLOADER_H

#include "preferences/pluginmodule.h"

#include <QString>
#include <QStringList>

class VxPluginMgr;
class VxSettings;

/// Loads the modules of plug-in folders at the start of the program. A module that ended the
/// program while being loaded is skipped from then on, until the user enables it again. One that
/// the user has disabled is not loaded, without a message.
///
/// While a module is being loaded a marker file beside the settings names it and this process. A
/// marker whose process no longer exists was left by a crash. Without a settings file nothing is
/// marked and nothing skipped.
class PluginLoader
{
public:
    /// settingsFile may be empty. The list of skipped modules is kept in the store.
    PluginLoader(const QString &settingsFile, VxSettings *store);

    /// Clears the list of skipped modules.
    void enableAll();
    /// Loads the modules of the folders in order, each folder once, sorted by name. Returns
    /// messages for the user: errors, and skipped modules.
    QStringList load(const QStringList &folders, VxPluginMgr *plugins);

    /// Every module found by load(), in its order.
    const QVector<PluginModule> &modules() const { return m_modules; }

private:
    void collectCrashes();
    /// Returns a message for the user; empty for none.
    QString loadModule(const QString &file, VxPluginMgr *plugins);
    bool mark(const QString &module) const;
    void unmark() const;
    QString markerFile(const QString &process) const;

    const QString m_settingsFile;
    VxSettings *m_store;
    QVector<PluginModule> m_modules;
};

#endif
