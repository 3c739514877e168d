// The record of the plug-in and its two entry points.

#include "notesaction.h"
#include "notespane.h"

#include <vxcore/vxplugin.h>
#include <vxcore/vxscriptablefactory.h>

namespace {

VxPlugin *definition()
{
    static VxScriptableFactoryOf<NotesPane> pane("3F0C9B52-6B0E-4B1B-9C0E-5D4C5E1A7F01");
    static VxScriptableFactoryOf<NotesStampAction> stamp("3F0C9B52-6B0E-4B1B-9C0E-5D4C5E1A7F02");
    static VxPlugin plugin(QStringLiteral("Notes"), QStringLiteral("VxTimeline Developers"),
                           QStringLiteral("A pane for notes: an example plug-in."), 1, 0, 0, 0);
    plugin.addClassFactory(&pane);
    plugin.addClassFactory(&stamp);
    return &plugin;
}

} // namespace

extern "C" Q_DECL_EXPORT VxVersion getSDKVersion()
{
    return VxVersion::sdk();
}

extern "C" Q_DECL_EXPORT VxPlugin *getPluginDefinition()
{
    static VxPlugin *plugin = definition();
    return plugin;
}
