#include "vxtimelinefactories.h"

#include <QtCore/QMetaEnum>

namespace {

// What a script gets for a value of one of the pane's choices compares equal to the value's key.
template <typename Enum> QScriptValue enumToScript(QScriptEngine *, const Enum &value)
{
    return QScriptValue(static_cast<int>(value));
}

// A whole number is taken as it is and a text as the name of a key. Anything else becomes -1, which
// is no value of any choice: the slots refuse it.
template <typename Enum> void enumFromScript(const QScriptValue &value, Enum &result)
{
    int number = -1;
    if (value.isString())
        number = QMetaEnum::fromType<Enum>().keyToValue(qPrintable(value.toString()));
    else if (value.isNumber() && value.toNumber() == value.toInteger())
        number = value.toInt32();
    result = static_cast<Enum>(number);
}

template <typename Enum> void registerEnum(QScriptEngine *engine)
{
    qScriptRegisterMetaType<Enum>(engine, &enumToScript<Enum>, &enumFromScript<Enum>);
}

QScriptValue propertyTypesToScript(QScriptEngine *, const VxTimePane::PropertyTypes &types)
{
    return QScriptValue(static_cast<int>(types));
}

void propertyTypesFromScript(const QScriptValue &value, VxTimePane::PropertyTypes &types)
{
    types = VxTimePane::PropertyTypes(value.toInt32());
}

} // namespace

// The identifiers are stored by hosts: one that was released stays with its class for good.

VxTimePaneFactory::VxTimePaneFactory()
    : VxTimelineFactory("BA1C31B0-5BDA-4EE7-9146-A899EBD85115")
{
    // The name that the pane's slots have it under.
    qRegisterMetaType<VxTimePane::PropertyTypes>("PropertyTypes");
}

// Without a conversion of their own an engine hands out values of enumerations as objects that
// equal no number, and takes only such numbers for a set as are the value of one of its flags.
void VxTimePaneFactory::registerClass(QScriptEngine *engine) const
{
    VxTimelineFactory::registerClass(engine);
    if (!engine)
        return;
    registerEnum<VxTimePane::ControlsPosition>(engine);
    registerEnum<VxTimePane::ViewMode>(engine);
    registerEnum<VxTimePane::KeyScope>(engine);
    qScriptRegisterMetaType<VxTimePane::PropertyTypes>(engine, &propertyTypesToScript,
                                                       &propertyTypesFromScript);
}

VxTimePaneActionFactory::VxTimePaneActionFactory()
    : VxTimelineFactory("C72B05F2-0AC2-4D26-A32A-7983B7BA54E3")
{
}

VxTimePaneControlsBottomActionFactory::VxTimePaneControlsBottomActionFactory()
    : VxTimelineFactory("37F9FDE3-61EF-4A92-ADB9-CCAFC5A84F25")
{
}

VxTimePaneControlsTopActionFactory::VxTimePaneControlsTopActionFactory()
    : VxTimelineFactory("EB411BE5-16F3-404D-B082-9BC675549A1F")
{
}

VxTimePaneBasicViewActionFactory::VxTimePaneBasicViewActionFactory()
    : VxTimelineFactory("8E664F45-B97E-4360-AEB5-4F0136C7C3F7")
{
}

VxTimePaneIntermediateViewActionFactory::VxTimePaneIntermediateViewActionFactory()
    : VxTimelineFactory("72785BD3-BA5F-4EC3-B5CF-E5D514612632")
{
}

VxTimePaneAdvancedViewActionFactory::VxTimePaneAdvancedViewActionFactory()
    : VxTimelineFactory("F66FFCE0-AA96-484C-AD5B-3D14CB4D94CA")
{
}

VxTimePaneKeyGraphToggleActionFactory::VxTimePaneKeyGraphToggleActionFactory()
    : VxTimelineFactory("D4121BAE-E5AF-4BDD-9E69-6D309C464891")
{
}

VxTimePaneMonitorParametersPaneActionFactory::VxTimePaneMonitorParametersPaneActionFactory()
    : VxTimelineFactory("95439B57-4BB1-453A-8ECA-1D6BD72E97F7")
{
}

VxTimePaneSetKeyScopeObjectActionFactory::VxTimePaneSetKeyScopeObjectActionFactory()
    : VxTimelineFactory("688E9A93-37EA-43BB-98D2-F6CF94463FFB")
{
}

VxTimePaneSetKeyScopeNodeRecurseActionFactory::VxTimePaneSetKeyScopeNodeRecurseActionFactory()
    : VxTimelineFactory("12B49CBE-68F6-4EF4-A222-FC463A99D9AE")
{
}

VxTimePaneSetKeyScopeNodeActionFactory::VxTimePaneSetKeyScopeNodeActionFactory()
    : VxTimelineFactory("3D306BEE-63DC-41F9-B07E-8B98B2BCA372")
{
}

VxTimePaneSetKeyScopePropertiesActionFactory::VxTimePaneSetKeyScopePropertiesActionFactory()
    : VxTimelineFactory("3C3A9E3B-73E1-4219-859E-512DCDECC62B")
{
}

VxTimePanePlayAllFramesActionFactory::VxTimePanePlayAllFramesActionFactory()
    : VxTimelineFactory("6C865177-7BCB-4EDE-82B0-96B5E8628BFA")
{
}

VxAddKeysActionFactory::VxAddKeysActionFactory()
    : VxTimelineFactory("82379E55-ED1F-4AC7-A552-32F0646872E9")
{
}

VxDeleteKeysActionFactory::VxDeleteKeysActionFactory()
    : VxTimelineFactory("93533694-5413-4EA0-84FF-CD93531C4074")
{
}

VxLoopToggleActionFactory::VxLoopToggleActionFactory()
    : VxTimelineFactory("B0314B9D-9045-460E-B1FC-475F3F2C4D07")
{
}

VxNextFrameActionFactory::VxNextFrameActionFactory()
    : VxTimelineFactory("8575EE5A-5378-4A04-BD96-5434E504CB84")
{
}

VxPlayToggleActionFactory::VxPlayToggleActionFactory()
    : VxTimelineFactory("17CA080C-9043-4C3C-B067-42436F6906D9")
{
}

VxPrevFrameActionFactory::VxPrevFrameActionFactory()
    : VxTimelineFactory("606D35C4-3E54-4651-A577-23F1E64318F3")
{
}

VxSkipToNextKeyActionFactory::VxSkipToNextKeyActionFactory()
    : VxTimelineFactory("6D9F0D92-4009-4D07-BF17-BD80E0D8E1AA")
{
}

VxSkipToPlayrangeEndActionFactory::VxSkipToPlayrangeEndActionFactory()
    : VxTimelineFactory("E1BB405D-993E-4913-AE16-5425B8C1C7F2")
{
}

VxSkipToPlayrangeStartActionFactory::VxSkipToPlayrangeStartActionFactory()
    : VxTimelineFactory("97CEA7F8-7AB6-4F1F-9AF7-03F84F390650")
{
}

VxSkipToPrevKeyActionFactory::VxSkipToPrevKeyActionFactory()
    : VxTimelineFactory("AB5DFC96-9BEC-470B-AD20-7BA93F173D63")
{
}

VxTimePanePrevKeyActionFactory::VxTimePanePrevKeyActionFactory()
    : VxTimelineFactory("4CB04A97-45D8-4522-B3A3-B51D0C46EA15")
{
}

VxTimePaneNextKeyActionFactory::VxTimePaneNextKeyActionFactory()
    : VxTimelineFactory("F08A80A2-FE13-4310-8725-33C6CEA0C394")
{
}

VxTimePaneCreateKeysActionFactory::VxTimePaneCreateKeysActionFactory()
    : VxTimelineFactory("1E89D0F4-FCDE-47BF-A93C-54C5D30D868E")
{
}

VxTimePaneDeleteSelectedKeysActionFactory::VxTimePaneDeleteSelectedKeysActionFactory()
    : VxTimelineFactory("A3BC2BB4-E8A7-431C-B2E1-CBDB0E9CD5F3")
{
}

VxTimePaneCopySelectedKeysActionFactory::VxTimePaneCopySelectedKeysActionFactory()
    : VxTimelineFactory("407245CB-0819-46C8-A065-9F9E5E030F67")
{
}

VxTimePanePasteKeysActionFactory::VxTimePanePasteKeysActionFactory()
    : VxTimelineFactory("6C7CAE54-F12A-43D8-9720-AD9F30073821")
{
}

VxTimePaneSetPropertyTypeTranslationActionFactory::
    VxTimePaneSetPropertyTypeTranslationActionFactory()
    : VxTimelineFactory("4E2FF724-15C2-48CD-9BEE-C57E434C5A17")
{
}

VxTimePaneSetPropertyTypeRotationActionFactory::VxTimePaneSetPropertyTypeRotationActionFactory()
    : VxTimelineFactory("4AD7701F-C0ED-491C-8699-A715C422ADF3")
{
}

VxTimePaneSetPropertyTypeScaleActionFactory::VxTimePaneSetPropertyTypeScaleActionFactory()
    : VxTimelineFactory("98BF4CCD-A810-4FC1-B2C5-03F4114F77F4")
{
}

VxTimePaneSetPropertyTypeOtherActionFactory::VxTimePaneSetPropertyTypeOtherActionFactory()
    : VxTimelineFactory("029B5166-7A92-453A-AFA1-895A6B13C0BB")
{
}

VxTimePaneSetPropertyTypeAliasActionFactory::VxTimePaneSetPropertyTypeAliasActionFactory()
    : VxTimelineFactory("0803CE6D-8403-46F4-BF51-D92468925948")
{
}

VxTimePaneSetPropertyTypeHiddenActionFactory::VxTimePaneSetPropertyTypeHiddenActionFactory()
    : VxTimelineFactory("7225FF23-1773-4186-9FC5-431E1C3909AF")
{
}

VxTimePaneSetInterpTcbActionFactory::VxTimePaneSetInterpTcbActionFactory()
    : VxTimelineFactory("317E5485-8FE7-498C-8491-14BED35ECB5E")
{
}

VxTimePaneSetInterpLinearActionFactory::VxTimePaneSetInterpLinearActionFactory()
    : VxTimelineFactory("D20F49D2-09B7-428C-A108-D7D714474371")
{
}

VxTimePaneSetInterpConstantActionFactory::VxTimePaneSetInterpConstantActionFactory()
    : VxTimelineFactory("3B5B31B9-D690-4733-BD58-D7A1F6944548")
{
}

VxTimePaneSelectItemPlayRangeKeysActionFactory::VxTimePaneSelectItemPlayRangeKeysActionFactory()
    : VxTimelineFactory("1184B220-D280-4423-8661-8DAA058E2349")
{
}

VxTimePaneSelectItemAnimRangeKeysActionFactory::VxTimePaneSelectItemAnimRangeKeysActionFactory()
    : VxTimelineFactory("CD0C33FD-48AC-44A3-98EB-CB31743274B4")
{
}

VxTimePaneDeselectItemPlayRangeKeysActionFactory::VxTimePaneDeselectItemPlayRangeKeysActionFactory()
    : VxTimelineFactory("3AD6177B-7D6F-4906-A0DD-5D4C0AFE963D")
{
}

VxTimePaneDeselectItemAnimRangeKeysActionFactory::VxTimePaneDeselectItemAnimRangeKeysActionFactory()
    : VxTimelineFactory("3C4485BD-5F01-4E1C-8C97-C5B3A42D4E0D")
{
}

VxTimePaneExpandAllItemsActionFactory::VxTimePaneExpandAllItemsActionFactory()
    : VxTimelineFactory("A6F39386-808C-402B-87FB-DCDC1047230F")
{
}

VxTimePaneExpandItemActionFactory::VxTimePaneExpandItemActionFactory()
    : VxTimelineFactory("948FE97E-83B4-4FD0-B946-9AD7DB2FA63D")
{
}

VxTimePaneExpandFromItemActionFactory::VxTimePaneExpandFromItemActionFactory()
    : VxTimelineFactory("F82FA333-9F6C-4E27-83FB-D60BD5F9D243")
{
}

VxTimePaneExpandKeyedFromItemActionFactory::VxTimePaneExpandKeyedFromItemActionFactory()
    : VxTimelineFactory("2984D678-6AD5-4BE9-96DC-ED4227FCAF21")
{
}

VxTimePaneCollapseAllItemsActionFactory::VxTimePaneCollapseAllItemsActionFactory()
    : VxTimelineFactory("5C0B707A-0BD8-4176-8CBA-A7B10D10EEC0")
{
}

VxTimePaneCollapseItemActionFactory::VxTimePaneCollapseItemActionFactory()
    : VxTimelineFactory("420A64F5-770A-4559-AA13-CBED0D93945C")
{
}

VxTimePaneCollapseFromItemActionFactory::VxTimePaneCollapseFromItemActionFactory()
    : VxTimelineFactory("F3ABD287-24BF-43E3-B997-E5444593146B")
{
}

VxTimePaneCollapseNonKeyedFromItemActionFactory::VxTimePaneCollapseNonKeyedFromItemActionFactory()
    : VxTimelineFactory("AAE74B43-D5F9-4E4C-99FF-40A0C3840B05")
{
}

VxTimePaneMoveRootNodeToTopActionFactory::VxTimePaneMoveRootNodeToTopActionFactory()
    : VxTimelineFactory("9A94E8A9-D02D-4256-822B-86DD30D45326")
{
}

VxTimePaneMoveRootNodeUpActionFactory::VxTimePaneMoveRootNodeUpActionFactory()
    : VxTimelineFactory("FE583E18-E353-4865-892A-B22B474AEA80")
{
}

VxTimePaneMoveRootNodeDownActionFactory::VxTimePaneMoveRootNodeDownActionFactory()
    : VxTimelineFactory("C70EF1A5-FD4D-4562-9739-9720AECBEF42")
{
}

VxTimePaneMoveRootNodeToBottomActionFactory::VxTimePaneMoveRootNodeToBottomActionFactory()
    : VxTimelineFactory("12F84F7B-D51D-4517-ABF7-5D3EB9A83DB7")
{
}

VxTimePaneRefreshDopesheetActionFactory::VxTimePaneRefreshDopesheetActionFactory()
    : VxTimelineFactory("BDED5FC2-7023-4FBC-99E5-87B961696086")
{
}

VxTimePaneFrameGraphKeysActionFactory::VxTimePaneFrameGraphKeysActionFactory()
    : VxTimelineFactory("48FAA7E6-B184-46A3-A74D-1434395550EB")
{
}
