#ifndef VXPLUGINMGR_H
#define VXPLUGINMGR_H

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class VxClassFactory;
class VxPlugin;
class QScriptEngine;

/// Loads plug-in modules and keeps the list of all class factories, the host's own and those of
/// plug-ins, by class name.
///
/// Modules are never unloaded: script values and registered types refer to their code.
class VXCORE_EXPORT VxPluginMgr : public QObject
{
    Q_OBJECT
public:
    explicit VxPluginMgr(QObject *parent = nullptr);
    ~VxPluginMgr() override;

    /// Loads one module file. On failure nothing of it is kept and error (when given) gives the
    /// reason: not loadable, an entry point missing (named), an SDK version incompatible with this
    /// host (both versions are named), no record, or a plug-in name that is already loaded.
    VxPlugin *loadPlugin(const QString &fileName, QString *error = nullptr);

    /// Adds a record that is already in memory, as the loader does after its checks. The record is
    /// borrowed. A class name in use is refused with a warning; the other classes of the record are
    /// kept. A record without a name, or with a name that is already loaded, is refused with a
    /// warning.
    void addPlugin(VxPlugin *plugin);

    /// Adds a factory of the host's own. Borrowed. False when the class name is in use.
    bool addClassFactory(VxClassFactory *factory);

    QVector<VxPlugin *> getPlugins() const;
    /// Every factory in the order of its adding.
    QVector<VxClassFactory *> getClassFactories() const;
    /// Null when no factory makes that class.
    VxClassFactory *findClassFactory(const QString &className) const;

    /// Registers every factory's class with a script engine, in order.
    void registerClasses(QScriptEngine *engine) const;

Q_SIGNALS:
    void pluginAdded(VxPlugin *plugin);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
