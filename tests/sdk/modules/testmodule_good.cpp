// A plug-in with one class.
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxplugin.h>

namespace {

class Factory : public VxClassFactory
{
public:
    Factory()
        : VxClassFactory(&QObject::staticMetaObject,
                         VxGuid::fromString(QStringLiteral("0D1F3C55-6E8A-4B7C-9D2E-3F4A5B6C7D8E")))
    {
    }
    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new QObject; }
};

Factory factory;
VxPlugin plugin(QStringLiteral("Good"), QStringLiteral("Tests"), QStringLiteral("Is accepted"), 1,
                2, 3, 4);

} // namespace

extern "C" Q_DECL_EXPORT VxVersion getSDKVersion()
{
    return VxVersion::sdk();
}

extern "C" Q_DECL_EXPORT VxPlugin *getPluginDefinition()
{
    plugin.addClassFactory(&factory);
    return &plugin;
}
