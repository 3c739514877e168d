#include "vxtimelineplugin.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxplugin.h>

#include "vxtimelinefactories.h"

namespace {

// One static factory a class. They are made here and not as globals of their own, so that their
// order is this file's and no other's.
template <class Factory> void addFactory(VxPlugin &plugin)
{
    static Factory factory;
    factory.setOwnership(0);
    plugin.addClassFactory(&factory);
}

// What the plug-in offers, in the order in which hosts see it.
void addAllFactories(VxPlugin &plugin)
{
    addFactory<VxTimePaneFactory>(plugin);
    addFactory<VxTimePaneActionFactory>(plugin);
    addFactory<VxTimePaneControlsBottomActionFactory>(plugin);
    addFactory<VxTimePaneControlsTopActionFactory>(plugin);
    addFactory<VxTimePaneBasicViewActionFactory>(plugin);
    addFactory<VxTimePaneIntermediateViewActionFactory>(plugin);
    addFactory<VxTimePaneAdvancedViewActionFactory>(plugin);
    addFactory<VxTimePaneKeyGraphToggleActionFactory>(plugin);
    addFactory<VxTimePaneMonitorParametersPaneActionFactory>(plugin);
    addFactory<VxTimePaneSetKeyScopeObjectActionFactory>(plugin);
    addFactory<VxTimePaneSetKeyScopeNodeRecurseActionFactory>(plugin);
    addFactory<VxTimePaneSetKeyScopeNodeActionFactory>(plugin);
    addFactory<VxTimePaneSetKeyScopePropertiesActionFactory>(plugin);
    addFactory<VxTimePanePlayAllFramesActionFactory>(plugin);
    addFactory<VxAddKeysActionFactory>(plugin);
    addFactory<VxDeleteKeysActionFactory>(plugin);
    addFactory<VxLoopToggleActionFactory>(plugin);
    addFactory<VxNextFrameActionFactory>(plugin);
    addFactory<VxPlayToggleActionFactory>(plugin);
    addFactory<VxPrevFrameActionFactory>(plugin);
    addFactory<VxSkipToNextKeyActionFactory>(plugin);
    addFactory<VxSkipToPlayrangeEndActionFactory>(plugin);
    addFactory<VxSkipToPlayrangeStartActionFactory>(plugin);
    addFactory<VxSkipToPrevKeyActionFactory>(plugin);
    addFactory<VxTimePanePrevKeyActionFactory>(plugin);
    addFactory<VxTimePaneNextKeyActionFactory>(plugin);
    addFactory<VxTimePaneCreateKeysActionFactory>(plugin);
    addFactory<VxTimePaneDeleteSelectedKeysActionFactory>(plugin);
    addFactory<VxTimePaneCopySelectedKeysActionFactory>(plugin);
    addFactory<VxTimePanePasteKeysActionFactory>(plugin);
    addFactory<VxTimePaneSetPropertyTypeTranslationActionFactory>(plugin);
    addFactory<VxTimePaneSetPropertyTypeRotationActionFactory>(plugin);
    addFactory<VxTimePaneSetPropertyTypeScaleActionFactory>(plugin);
    addFactory<VxTimePaneSetPropertyTypeOtherActionFactory>(plugin);
    addFactory<VxTimePaneSetPropertyTypeAliasActionFactory>(plugin);
    addFactory<VxTimePaneSetPropertyTypeHiddenActionFactory>(plugin);
    addFactory<VxTimePaneSetInterpTcbActionFactory>(plugin);
    addFactory<VxTimePaneSetInterpLinearActionFactory>(plugin);
    addFactory<VxTimePaneSetInterpConstantActionFactory>(plugin);
    addFactory<VxTimePaneSelectItemPlayRangeKeysActionFactory>(plugin);
    addFactory<VxTimePaneSelectItemAnimRangeKeysActionFactory>(plugin);
    addFactory<VxTimePaneDeselectItemPlayRangeKeysActionFactory>(plugin);
    addFactory<VxTimePaneDeselectItemAnimRangeKeysActionFactory>(plugin);
    addFactory<VxTimePaneExpandAllItemsActionFactory>(plugin);
    addFactory<VxTimePaneExpandItemActionFactory>(plugin);
    addFactory<VxTimePaneExpandFromItemActionFactory>(plugin);
    addFactory<VxTimePaneExpandKeyedFromItemActionFactory>(plugin);
    addFactory<VxTimePaneCollapseAllItemsActionFactory>(plugin);
    addFactory<VxTimePaneCollapseItemActionFactory>(plugin);
    addFactory<VxTimePaneCollapseFromItemActionFactory>(plugin);
    addFactory<VxTimePaneCollapseNonKeyedFromItemActionFactory>(plugin);
    addFactory<VxTimePaneMoveRootNodeToTopActionFactory>(plugin);
    addFactory<VxTimePaneMoveRootNodeUpActionFactory>(plugin);
    addFactory<VxTimePaneMoveRootNodeDownActionFactory>(plugin);
    addFactory<VxTimePaneMoveRootNodeToBottomActionFactory>(plugin);
    addFactory<VxTimePaneRefreshDopesheetActionFactory>(plugin);
    addFactory<VxTimePaneFrameGraphKeysActionFactory>(plugin);
}

VxPlugin *makeDefinition()
{
    static VxPlugin plugin(QStringLiteral("VxTimeline"), QString(), QString(), 0, 0, 0, 0);
    plugin.setAuthor(QStringLiteral("VxTimeline Developers"));
    plugin.setVersion(1, 7, 0, 15);
    plugin.setDescription(QStringLiteral("An animation dope sheet and graph editor for %1")
                              .arg(VxApp::getAppName(), 0, QLatin1Char(' ')));
    addAllFactories(plugin);
    return &plugin;
}

// Filled while the library is being loaded.
VxPlugin *const definition = makeDefinition();

} // namespace

VxVersion getSDKVersion()
{
    return VxVersion(4, 22, 0, 7);
}

VxPlugin *getPluginDefinition()
{
    return definition;
}
