#include "vxtimelineplugin.h"

#include "vxtimelinefactories.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxplugin.h>

namespace {

// One static factory a class, created with the record, so that their order is the table's.
template <class Factory> VxClassFactory *makeFactory(const char *guid)
{
    static Factory factory(guid);
    factory.setOwnership(0);
    return &factory;
}

struct RegisteredClass
{
    VxClassFactory *(*makeFactory)(const char *guid);
    const char *guid;
};

// The classes of the plug-in in the order in which hosts list them. Hosts store the identifiers: a
// released one must stay with its class.
const RegisteredClass registeredClasses[] = {
    {makeFactory<VxTimePaneFactory>, "BA1C31B0-5BDA-4EE7-9146-A899EBD85115"},
    {makeFactory<VxTimePaneActionFactory>, "C72B05F2-0AC2-4D26-A32A-7983B7BA54E3"},
    {makeFactory<VxTimePaneControlsBottomActionFactory>, "37F9FDE3-61EF-4A92-ADB9-CCAFC5A84F25"},
    {makeFactory<VxTimePaneControlsTopActionFactory>, "EB411BE5-16F3-404D-B082-9BC675549A1F"},
    {makeFactory<VxTimePaneBasicViewActionFactory>, "8E664F45-B97E-4360-AEB5-4F0136C7C3F7"},
    {makeFactory<VxTimePaneIntermediateViewActionFactory>, "72785BD3-BA5F-4EC3-B5CF-E5D514612632"},
    {makeFactory<VxTimePaneAdvancedViewActionFactory>, "F66FFCE0-AA96-484C-AD5B-3D14CB4D94CA"},
    {makeFactory<VxTimePaneKeyGraphToggleActionFactory>, "D4121BAE-E5AF-4BDD-9E69-6D309C464891"},
    {makeFactory<VxTimePaneMonitorParametersPaneActionFactory>,
     "95439B57-4BB1-453A-8ECA-1D6BD72E97F7"},
    {makeFactory<VxTimePaneSetKeyScopeObjectActionFactory>, "688E9A93-37EA-43BB-98D2-F6CF94463FFB"},
    {makeFactory<VxTimePaneSetKeyScopeNodeRecurseActionFactory>,
     "12B49CBE-68F6-4EF4-A222-FC463A99D9AE"},
    {makeFactory<VxTimePaneSetKeyScopeNodeActionFactory>, "3D306BEE-63DC-41F9-B07E-8B98B2BCA372"},
    {makeFactory<VxTimePaneSetKeyScopePropertiesActionFactory>,
     "3C3A9E3B-73E1-4219-859E-512DCDECC62B"},
    {makeFactory<VxTimePanePlayAllFramesActionFactory>, "6C865177-7BCB-4EDE-82B0-96B5E8628BFA"},
    {makeFactory<VxAddKeysActionFactory>, "82379E55-ED1F-4AC7-A552-32F0646872E9"},
    {makeFactory<VxDeleteKeysActionFactory>, "93533694-5413-4EA0-84FF-CD93531C4074"},
    {makeFactory<VxLoopToggleActionFactory>, "B0314B9D-9045-460E-B1FC-475F3F2C4D07"},
    {makeFactory<VxNextFrameActionFactory>, "8575EE5A-5378-4A04-BD96-5434E504CB84"},
    {makeFactory<VxPlayToggleActionFactory>, "17CA080C-9043-4C3C-B067-42436F6906D9"},
    {makeFactory<VxPrevFrameActionFactory>, "606D35C4-3E54-4651-A577-23F1E64318F3"},
    {makeFactory<VxSkipToNextKeyActionFactory>, "6D9F0D92-4009-4D07-BF17-BD80E0D8E1AA"},
    {makeFactory<VxSkipToPlayrangeEndActionFactory>, "E1BB405D-993E-4913-AE16-5425B8C1C7F2"},
    {makeFactory<VxSkipToPlayrangeStartActionFactory>, "97CEA7F8-7AB6-4F1F-9AF7-03F84F390650"},
    {makeFactory<VxSkipToPrevKeyActionFactory>, "AB5DFC96-9BEC-470B-AD20-7BA93F173D63"},
    {makeFactory<VxTimePanePrevKeyActionFactory>, "4CB04A97-45D8-4522-B3A3-B51D0C46EA15"},
    {makeFactory<VxTimePaneNextKeyActionFactory>, "F08A80A2-FE13-4310-8725-33C6CEA0C394"},
    {makeFactory<VxTimePaneCreateKeysActionFactory>, "1E89D0F4-FCDE-47BF-A93C-54C5D30D868E"},
    {makeFactory<VxTimePaneDeleteSelectedKeysActionFactory>,
     "A3BC2BB4-E8A7-431C-B2E1-CBDB0E9CD5F3"},
    {makeFactory<VxTimePaneCopySelectedKeysActionFactory>, "407245CB-0819-46C8-A065-9F9E5E030F67"},
    {makeFactory<VxTimePanePasteKeysActionFactory>, "6C7CAE54-F12A-43D8-9720-AD9F30073821"},
    {makeFactory<VxTimePaneSetPropertyTypeTranslationActionFactory>,
     "4E2FF724-15C2-48CD-9BEE-C57E434C5A17"},
    {makeFactory<VxTimePaneSetPropertyTypeRotationActionFactory>,
     "4AD7701F-C0ED-491C-8699-A715C422ADF3"},
    {makeFactory<VxTimePaneSetPropertyTypeScaleActionFactory>,
     "98BF4CCD-A810-4FC1-B2C5-03F4114F77F4"},
    {makeFactory<VxTimePaneSetPropertyTypeOtherActionFactory>,
     "029B5166-7A92-453A-AFA1-895A6B13C0BB"},
    {makeFactory<VxTimePaneSetPropertyTypeAliasActionFactory>,
     "0803CE6D-8403-46F4-BF51-D92468925948"},
    {makeFactory<VxTimePaneSetPropertyTypeHiddenActionFactory>,
     "7225FF23-1773-4186-9FC5-431E1C3909AF"},
    {makeFactory<VxTimePaneSetInterpTcbActionFactory>, "317E5485-8FE7-498C-8491-14BED35ECB5E"},
    {makeFactory<VxTimePaneSetInterpLinearActionFactory>, "D20F49D2-09B7-428C-A108-D7D714474371"},
    {makeFactory<VxTimePaneSetInterpConstantActionFactory>, "3B5B31B9-D690-4733-BD58-D7A1F6944548"},
    {makeFactory<VxTimePaneSelectItemPlayRangeKeysActionFactory>,
     "1184B220-D280-4423-8661-8DAA058E2349"},
    {makeFactory<VxTimePaneSelectItemAnimRangeKeysActionFactory>,
     "CD0C33FD-48AC-44A3-98EB-CB31743274B4"},
    {makeFactory<VxTimePaneDeselectItemPlayRangeKeysActionFactory>,
     "3AD6177B-7D6F-4906-A0DD-5D4C0AFE963D"},
    {makeFactory<VxTimePaneDeselectItemAnimRangeKeysActionFactory>,
     "3C4485BD-5F01-4E1C-8C97-C5B3A42D4E0D"},
    {makeFactory<VxTimePaneExpandAllItemsActionFactory>, "A6F39386-808C-402B-87FB-DCDC1047230F"},
    {makeFactory<VxTimePaneExpandItemActionFactory>, "948FE97E-83B4-4FD0-B946-9AD7DB2FA63D"},
    {makeFactory<VxTimePaneExpandFromItemActionFactory>, "F82FA333-9F6C-4E27-83FB-D60BD5F9D243"},
    {makeFactory<VxTimePaneExpandKeyedFromItemActionFactory>,
     "2984D678-6AD5-4BE9-96DC-ED4227FCAF21"},
    {makeFactory<VxTimePaneCollapseAllItemsActionFactory>, "5C0B707A-0BD8-4176-8CBA-A7B10D10EEC0"},
    {makeFactory<VxTimePaneCollapseItemActionFactory>, "420A64F5-770A-4559-AA13-CBED0D93945C"},
    {makeFactory<VxTimePaneCollapseFromItemActionFactory>, "F3ABD287-24BF-43E3-B997-E5444593146B"},
    {makeFactory<VxTimePaneCollapseNonKeyedFromItemActionFactory>,
     "AAE74B43-D5F9-4E4C-99FF-40A0C3840B05"},
    {makeFactory<VxTimePaneMoveRootNodeToTopActionFactory>, "9A94E8A9-D02D-4256-822B-86DD30D45326"},
    {makeFactory<VxTimePaneMoveRootNodeUpActionFactory>, "FE583E18-E353-4865-892A-B22B474AEA80"},
    {makeFactory<VxTimePaneMoveRootNodeDownActionFactory>, "C70EF1A5-FD4D-4562-9739-9720AECBEF42"},
    {makeFactory<VxTimePaneMoveRootNodeToBottomActionFactory>,
     "12F84F7B-D51D-4517-ABF7-5D3EB9A83DB7"},
    {makeFactory<VxTimePaneRefreshDopesheetActionFactory>, "BDED5FC2-7023-4FBC-99E5-87B961696086"},
    {makeFactory<VxTimePaneFrameGraphKeysActionFactory>, "48FAA7E6-B184-46A3-A74D-1434395550EB"},
};

VxPlugin *makeDefinition()
{
    static VxPlugin plugin(QStringLiteral("VxTimeline"), QString(), QString(), 0, 0, 0, 0);
    plugin.setAuthor(QStringLiteral("VxTimeline Developers"));
    plugin.setVersion(1, 7, 0, 15);
    plugin.setDescription(QStringLiteral("An animation dope sheet and graph editor for %1")
                              .arg(VxApp::getAppName(), 0, QLatin1Char(' ')));
    for (const RegisteredClass &entry : registeredClasses)
        plugin.addClassFactory(entry.makeFactory(entry.guid));
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
