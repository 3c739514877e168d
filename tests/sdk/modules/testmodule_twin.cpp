// Another file with a plug-in of the name "Good".
#include <vxcore/vxplugin.h>

namespace {

VxPlugin plugin(QStringLiteral("Good"), QStringLiteral("Tests"), QStringLiteral("Loaded late"), 9,
                9, 9, 9);

} // namespace

extern "C" Q_DECL_EXPORT VxVersion getSDKVersion()
{
    return VxVersion::sdk();
}

extern "C" Q_DECL_EXPORT VxPlugin *getPluginDefinition()
{
    return &plugin;
}
