#include <vxcore/vxpluginmgr.h>

#include "plugin/vxpluginmodule.h"

#include <QtCore/QHash>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxlanguage.h>
#include <vxcore/vxplugin.h>

class VxPluginMgr::Private
{
public:
    QVector<VxPlugin *> plugins;
    QVector<VxClassFactory *> factories;
    QHash<QString, VxClassFactory *> factoriesByName;

    const VxPlugin *findPlugin(const QString &name) const
    {
        for (const VxPlugin *plugin : plugins) {
            if (plugin->getName() == name)
                return plugin;
        }
        return nullptr;
    }

    /** Why a record cannot be added; empty when it can. */
    QString objection(const VxPlugin *plugin) const
    {
        if (plugin->getName().isEmpty())
            return VxPluginMgr::tr("its plug-in record has no name");
        const VxPlugin *taken = findPlugin(plugin->getName());
        if (!taken)
            return QString();
        return VxPluginMgr::tr("a plug-in named \"%1\" is already loaded (version %2)")
            .arg(plugin->getName(), taken->getVersion().toString());
    }

    bool addFactory(VxClassFactory *factory)
    {
        const QString name = factory->className();
        if (name.isEmpty() || factoriesByName.contains(name))
            return false;
        factories.append(factory);
        factoriesByName.insert(name, factory);
        return true;
    }

    void addFactories(const VxPlugin *plugin)
    {
        for (VxClassFactory *factory : plugin->getClassFactories()) {
            if (!addFactory(factory))
                qWarning("VxPluginMgr: class \"%s\" of plug-in \"%s\" ignored: its name is empty "
                         "or already registered",
                         qUtf8Printable(factory->className()), qUtf8Printable(plugin->getName()));
        }
    }
};

VxPluginMgr::VxPluginMgr(QObject *parent)
    : QObject(parent)
    , d(new Private)
{
}

VxPluginMgr::~VxPluginMgr() = default;

VxPlugin *VxPluginMgr::loadPlugin(const QString &fileName, QString *error)
{
    VxPluginModule module(fileName);
    VxPlugin *plugin = module.open();
    QString problem = module.error();
    if (plugin) {
        const QString objection = d->objection(plugin);
        if (!objection.isEmpty())
            problem = tr("%1 was not loaded: %2.").arg(fileName, objection);
    }
    if (error)
        *error = problem;
    if (!problem.isEmpty())
        return nullptr;
    addPlugin(plugin);
    return plugin;
}

void VxPluginMgr::addPlugin(VxPlugin *plugin)
{
    if (!plugin) {
        qWarning("VxPluginMgr: no plug-in record to add");
        return;
    }
    const QString objection = d->objection(plugin);
    if (!objection.isEmpty()) {
        qWarning("VxPluginMgr: plug-in not loaded: %s", qUtf8Printable(objection));
        return;
    }
    d->plugins.append(plugin);
    VxLanguage::addNewResources();
    d->addFactories(plugin);
    Q_EMIT pluginAdded(plugin);
}

bool VxPluginMgr::addClassFactory(VxClassFactory *factory)
{
    return factory && d->addFactory(factory);
}

QVector<VxPlugin *> VxPluginMgr::getPlugins() const
{
    return d->plugins;
}

QVector<VxClassFactory *> VxPluginMgr::getClassFactories() const
{
    return d->factories;
}

VxClassFactory *VxPluginMgr::findClassFactory(const QString &className) const
{
    return d->factoriesByName.value(className, nullptr);
}

void VxPluginMgr::registerClasses(QScriptEngine *engine) const
{
    for (const VxClassFactory *factory : d->factories)
        factory->registerClass(engine);
}
