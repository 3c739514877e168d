// Has both entry points, but no record.
#include <vxcore/vxplugin.h>

extern "C" Q_DECL_EXPORT VxVersion getSDKVersion()
{
    return VxVersion::sdk();
}

extern "C" Q_DECL_EXPORT VxPlugin *getPluginDefinition()
{
    return nullptr;
}
