#ifndef VXTIMELINEFACTORIES_H
#define VXTIMELINEFACTORIES_H

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimelineactions/vxkeyactions.h"
#include "vxtimelineactions/vxtimepaneaction.h"
#include "vxtimelineactions/vxtimepanecontrolspositionactions.h"
#include "vxtimelineactions/vxtimepaneexpandactions.h"
#include "vxtimelineactions/vxtimepaneinterpactions.h"
#include "vxtimelineactions/vxtimepaneitemkeysactions.h"
#include "vxtimelineactions/vxtimepanekeyscopeactions.h"
#include "vxtimelineactions/vxtimepanemoverootactions.h"
#include "vxtimelineactions/vxtimepaneoptionactions.h"
#include "vxtimelineactions/vxtimepanepropertytypeactions.h"
#include "vxtimelineactions/vxtimepaneviewactions.h"
#include "vxtimelineactions/vxtimepaneviewmodeactions.h"
#include "vxtimelineactions/vxtransportactions.h"
#include "vxtimelinefactory.h"

// The factories of the classes that the host and its scripts create by name: the pane and its
// actions, in the order in which the plug-in offers them. All that they differ in is the class and
// its identifier.

// Beyond what all do, lets scripts pass and get the pane's choices and sets of property types as
// numbers.
class VxTimePaneFactory : public VxTimelineFactory<VxTimePane>
{
public:
    VxTimePaneFactory();

    void registerClass(QScriptEngine *engine) const override;
};

class VxTimePaneActionFactory : public VxTimelineFactory<VxTimePaneAction>
{
public:
    VxTimePaneActionFactory();
};

class VxTimePaneControlsBottomActionFactory
    : public VxTimelineFactory<VxTimePaneControlsBottomAction>
{
public:
    VxTimePaneControlsBottomActionFactory();
};

class VxTimePaneControlsTopActionFactory : public VxTimelineFactory<VxTimePaneControlsTopAction>
{
public:
    VxTimePaneControlsTopActionFactory();
};

class VxTimePaneBasicViewActionFactory : public VxTimelineFactory<VxTimePaneBasicViewAction>
{
public:
    VxTimePaneBasicViewActionFactory();
};

class VxTimePaneIntermediateViewActionFactory
    : public VxTimelineFactory<VxTimePaneIntermediateViewAction>
{
public:
    VxTimePaneIntermediateViewActionFactory();
};

class VxTimePaneAdvancedViewActionFactory : public VxTimelineFactory<VxTimePaneAdvancedViewAction>
{
public:
    VxTimePaneAdvancedViewActionFactory();
};

class VxTimePaneKeyGraphToggleActionFactory
    : public VxTimelineFactory<VxTimePaneKeyGraphToggleAction>
{
public:
    VxTimePaneKeyGraphToggleActionFactory();
};

class VxTimePaneMonitorParametersPaneActionFactory
    : public VxTimelineFactory<VxTimePaneMonitorParametersPaneAction>
{
public:
    VxTimePaneMonitorParametersPaneActionFactory();
};

class VxTimePaneSetKeyScopeObjectActionFactory
    : public VxTimelineFactory<VxTimePaneSetKeyScopeObjectAction>
{
public:
    VxTimePaneSetKeyScopeObjectActionFactory();
};

class VxTimePaneSetKeyScopeNodeRecurseActionFactory
    : public VxTimelineFactory<VxTimePaneSetKeyScopeNodeRecurseAction>
{
public:
    VxTimePaneSetKeyScopeNodeRecurseActionFactory();
};

class VxTimePaneSetKeyScopeNodeActionFactory
    : public VxTimelineFactory<VxTimePaneSetKeyScopeNodeAction>
{
public:
    VxTimePaneSetKeyScopeNodeActionFactory();
};

class VxTimePaneSetKeyScopePropertiesActionFactory
    : public VxTimelineFactory<VxTimePaneSetKeyScopePropertiesAction>
{
public:
    VxTimePaneSetKeyScopePropertiesActionFactory();
};

class VxTimePanePlayAllFramesActionFactory : public VxTimelineFactory<VxTimePanePlayAllFramesAction>
{
public:
    VxTimePanePlayAllFramesActionFactory();
};

class VxAddKeysActionFactory : public VxTimelineFactory<VxAddKeysAction>
{
public:
    VxAddKeysActionFactory();
};

class VxDeleteKeysActionFactory : public VxTimelineFactory<VxDeleteKeysAction>
{
public:
    VxDeleteKeysActionFactory();
};

class VxLoopToggleActionFactory : public VxTimelineFactory<VxLoopToggleAction>
{
public:
    VxLoopToggleActionFactory();
};

class VxNextFrameActionFactory : public VxTimelineFactory<VxNextFrameAction>
{
public:
    VxNextFrameActionFactory();
};

class VxPlayToggleActionFactory : public VxTimelineFactory<VxPlayToggleAction>
{
public:
    VxPlayToggleActionFactory();
};

class VxPrevFrameActionFactory : public VxTimelineFactory<VxPrevFrameAction>
{
public:
    VxPrevFrameActionFactory();
};

class VxSkipToNextKeyActionFactory : public VxTimelineFactory<VxSkipToNextKeyAction>
{
public:
    VxSkipToNextKeyActionFactory();
};

class VxSkipToPlayrangeEndActionFactory : public VxTimelineFactory<VxSkipToPlayrangeEndAction>
{
public:
    VxSkipToPlayrangeEndActionFactory();
};

class VxSkipToPlayrangeStartActionFactory : public VxTimelineFactory<VxSkipToPlayrangeStartAction>
{
public:
    VxSkipToPlayrangeStartActionFactory();
};

class VxSkipToPrevKeyActionFactory : public VxTimelineFactory<VxSkipToPrevKeyAction>
{
public:
    VxSkipToPrevKeyActionFactory();
};

class VxTimePanePrevKeyActionFactory : public VxTimelineFactory<VxTimePanePrevKeyAction>
{
public:
    VxTimePanePrevKeyActionFactory();
};

class VxTimePaneNextKeyActionFactory : public VxTimelineFactory<VxTimePaneNextKeyAction>
{
public:
    VxTimePaneNextKeyActionFactory();
};

class VxTimePaneCreateKeysActionFactory : public VxTimelineFactory<VxTimePaneCreateKeysAction>
{
public:
    VxTimePaneCreateKeysActionFactory();
};

class VxTimePaneDeleteSelectedKeysActionFactory
    : public VxTimelineFactory<VxTimePaneDeleteSelectedKeysAction>
{
public:
    VxTimePaneDeleteSelectedKeysActionFactory();
};

class VxTimePaneCopySelectedKeysActionFactory
    : public VxTimelineFactory<VxTimePaneCopySelectedKeysAction>
{
public:
    VxTimePaneCopySelectedKeysActionFactory();
};

class VxTimePanePasteKeysActionFactory : public VxTimelineFactory<VxTimePanePasteKeysAction>
{
public:
    VxTimePanePasteKeysActionFactory();
};

class VxTimePaneSetPropertyTypeTranslationActionFactory
    : public VxTimelineFactory<VxTimePaneSetPropertyTypeTranslationAction>
{
public:
    VxTimePaneSetPropertyTypeTranslationActionFactory();
};

class VxTimePaneSetPropertyTypeRotationActionFactory
    : public VxTimelineFactory<VxTimePaneSetPropertyTypeRotationAction>
{
public:
    VxTimePaneSetPropertyTypeRotationActionFactory();
};

class VxTimePaneSetPropertyTypeScaleActionFactory
    : public VxTimelineFactory<VxTimePaneSetPropertyTypeScaleAction>
{
public:
    VxTimePaneSetPropertyTypeScaleActionFactory();
};

class VxTimePaneSetPropertyTypeOtherActionFactory
    : public VxTimelineFactory<VxTimePaneSetPropertyTypeOtherAction>
{
public:
    VxTimePaneSetPropertyTypeOtherActionFactory();
};

class VxTimePaneSetPropertyTypeAliasActionFactory
    : public VxTimelineFactory<VxTimePaneSetPropertyTypeAliasAction>
{
public:
    VxTimePaneSetPropertyTypeAliasActionFactory();
};

class VxTimePaneSetPropertyTypeHiddenActionFactory
    : public VxTimelineFactory<VxTimePaneSetPropertyTypeHiddenAction>
{
public:
    VxTimePaneSetPropertyTypeHiddenActionFactory();
};

class VxTimePaneSetInterpTcbActionFactory : public VxTimelineFactory<VxTimePaneSetInterpTcbAction>
{
public:
    VxTimePaneSetInterpTcbActionFactory();
};

class VxTimePaneSetInterpLinearActionFactory
    : public VxTimelineFactory<VxTimePaneSetInterpLinearAction>
{
public:
    VxTimePaneSetInterpLinearActionFactory();
};

class VxTimePaneSetInterpConstantActionFactory
    : public VxTimelineFactory<VxTimePaneSetInterpConstantAction>
{
public:
    VxTimePaneSetInterpConstantActionFactory();
};

class VxTimePaneSelectItemPlayRangeKeysActionFactory
    : public VxTimelineFactory<VxTimePaneSelectItemPlayRangeKeysAction>
{
public:
    VxTimePaneSelectItemPlayRangeKeysActionFactory();
};

class VxTimePaneSelectItemAnimRangeKeysActionFactory
    : public VxTimelineFactory<VxTimePaneSelectItemAnimRangeKeysAction>
{
public:
    VxTimePaneSelectItemAnimRangeKeysActionFactory();
};

class VxTimePaneDeselectItemPlayRangeKeysActionFactory
    : public VxTimelineFactory<VxTimePaneDeselectItemPlayRangeKeysAction>
{
public:
    VxTimePaneDeselectItemPlayRangeKeysActionFactory();
};

class VxTimePaneDeselectItemAnimRangeKeysActionFactory
    : public VxTimelineFactory<VxTimePaneDeselectItemAnimRangeKeysAction>
{
public:
    VxTimePaneDeselectItemAnimRangeKeysActionFactory();
};

class VxTimePaneExpandAllItemsActionFactory
    : public VxTimelineFactory<VxTimePaneExpandAllItemsAction>
{
public:
    VxTimePaneExpandAllItemsActionFactory();
};

class VxTimePaneExpandItemActionFactory : public VxTimelineFactory<VxTimePaneExpandItemAction>
{
public:
    VxTimePaneExpandItemActionFactory();
};

class VxTimePaneExpandFromItemActionFactory
    : public VxTimelineFactory<VxTimePaneExpandFromItemAction>
{
public:
    VxTimePaneExpandFromItemActionFactory();
};

class VxTimePaneExpandKeyedFromItemActionFactory
    : public VxTimelineFactory<VxTimePaneExpandKeyedFromItemAction>
{
public:
    VxTimePaneExpandKeyedFromItemActionFactory();
};

class VxTimePaneCollapseAllItemsActionFactory
    : public VxTimelineFactory<VxTimePaneCollapseAllItemsAction>
{
public:
    VxTimePaneCollapseAllItemsActionFactory();
};

class VxTimePaneCollapseItemActionFactory : public VxTimelineFactory<VxTimePaneCollapseItemAction>
{
public:
    VxTimePaneCollapseItemActionFactory();
};

class VxTimePaneCollapseFromItemActionFactory
    : public VxTimelineFactory<VxTimePaneCollapseFromItemAction>
{
public:
    VxTimePaneCollapseFromItemActionFactory();
};

class VxTimePaneCollapseNonKeyedFromItemActionFactory
    : public VxTimelineFactory<VxTimePaneCollapseNonKeyedFromItemAction>
{
public:
    VxTimePaneCollapseNonKeyedFromItemActionFactory();
};

class VxTimePaneMoveRootNodeToTopActionFactory
    : public VxTimelineFactory<VxTimePaneMoveRootNodeToTopAction>
{
public:
    VxTimePaneMoveRootNodeToTopActionFactory();
};

class VxTimePaneMoveRootNodeUpActionFactory
    : public VxTimelineFactory<VxTimePaneMoveRootNodeUpAction>
{
public:
    VxTimePaneMoveRootNodeUpActionFactory();
};

class VxTimePaneMoveRootNodeDownActionFactory
    : public VxTimelineFactory<VxTimePaneMoveRootNodeDownAction>
{
public:
    VxTimePaneMoveRootNodeDownActionFactory();
};

class VxTimePaneMoveRootNodeToBottomActionFactory
    : public VxTimelineFactory<VxTimePaneMoveRootNodeToBottomAction>
{
public:
    VxTimePaneMoveRootNodeToBottomActionFactory();
};

class VxTimePaneRefreshDopesheetActionFactory
    : public VxTimelineFactory<VxTimePaneRefreshDopesheetAction>
{
public:
    VxTimePaneRefreshDopesheetActionFactory();
};

class VxTimePaneFrameGraphKeysActionFactory
    : public VxTimelineFactory<VxTimePaneFrameGraphKeysAction>
{
public:
    VxTimePaneFrameGraphKeysActionFactory();
};

#endif
