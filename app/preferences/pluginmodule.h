#ifndef PLUGINMODULE_H
#define PLUGINMODULE_H

#include <QString>
#include <QStringList>
#include <QVector>

class VxSettings;

/// A module of the plug-in folders, as the start of the program found it.
struct PluginModule
{
    enum class State {
        Loaded,
        Failed,  ///< message has the reason
        Skipped, ///< because the program ended while loading it
        Disabled ///< by the user
    };

    QString file;    ///< the whole path
    QString name;    ///< of the plug-in; of the file while it is not loaded
    QString version; ///< empty while it is not loaded
    QString message;
    State state = State::Loaded;
};

/// Files of modules that are not loaded, in the settings.
namespace PluginLists {

QStringList skipped(const VxSettings &settings);
void setSkipped(VxSettings *settings, const QStringList &files);
QStringList disabled(const VxSettings &settings);
void setDisabled(VxSettings *settings, const QStringList &files);

} // namespace PluginLists

#endif
