// Built for a newer host. Its record must not even be asked for.
#include <vxcore/vxplugin.h>

extern "C" Q_DECL_EXPORT VxVersion getSDKVersion()
{
    return {4, 23, 0, 0};
}

extern "C" Q_DECL_EXPORT VxPlugin *getPluginDefinition()
{
    qFatal("The record was asked for before the version was accepted");
    return nullptr;
}
