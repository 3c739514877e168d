#ifndef VXTIMELINEFACTORIES_H
#define VXTIMELINEFACTORIES_H

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimelineactions/vxkeyactions.h"
#include "vxtimelineactions/vxtimepaneaction.h"
#include "vxtimelineactions/vxtimepanechoiceactions.h"
#include "vxtimelineactions/vxtimepaneexpandactions.h"
#include "vxtimelineactions/vxtimepaneinterpactions.h"
#include "vxtimelineactions/vxtimepaneitemkeysactions.h"
#include "vxtimelineactions/vxtimepanemoverootactions.h"
#include "vxtimelineactions/vxtimepaneoptionactions.h"
#include "vxtimelineactions/vxtimepaneviewactions.h"
#include "vxtimelineactions/vxtransportactions.h"

#include <vxcore/vxscriptablefactory.h>

// The factories of the classes that the host and its scripts create by name: the pane and its
// actions.

// In addition lets scripts pass and get the pane's choices and sets of property types as numbers.
class VxTimePaneFactory : public VxScriptableFactoryOf<VxTimePane>
{
public:
    explicit VxTimePaneFactory(const char *guid);

    void registerClass(QScriptEngine *engine) const override;
};

using VxTimePaneActionFactory = VxScriptableFactoryOf<VxTimePaneAction>;
using VxTimePaneControlsBottomActionFactory = VxScriptableFactoryOf<VxTimePaneControlsBottomAction>;
using VxTimePaneControlsTopActionFactory = VxScriptableFactoryOf<VxTimePaneControlsTopAction>;
using VxTimePaneBasicViewActionFactory = VxScriptableFactoryOf<VxTimePaneBasicViewAction>;
using VxTimePaneIntermediateViewActionFactory =
    VxScriptableFactoryOf<VxTimePaneIntermediateViewAction>;
using VxTimePaneAdvancedViewActionFactory = VxScriptableFactoryOf<VxTimePaneAdvancedViewAction>;
using VxTimePaneKeyGraphToggleActionFactory = VxScriptableFactoryOf<VxTimePaneKeyGraphToggleAction>;
using VxTimePaneMonitorParametersPaneActionFactory =
    VxScriptableFactoryOf<VxTimePaneMonitorParametersPaneAction>;
using VxTimePaneSetKeyScopeObjectActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetKeyScopeObjectAction>;
using VxTimePaneSetKeyScopeNodeRecurseActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetKeyScopeNodeRecurseAction>;
using VxTimePaneSetKeyScopeNodeActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetKeyScopeNodeAction>;
using VxTimePaneSetKeyScopePropertiesActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetKeyScopePropertiesAction>;
using VxTimePanePlayAllFramesActionFactory = VxScriptableFactoryOf<VxTimePanePlayAllFramesAction>;
using VxAddKeysActionFactory = VxScriptableFactoryOf<VxAddKeysAction>;
using VxDeleteKeysActionFactory = VxScriptableFactoryOf<VxDeleteKeysAction>;
using VxLoopToggleActionFactory = VxScriptableFactoryOf<VxLoopToggleAction>;
using VxNextFrameActionFactory = VxScriptableFactoryOf<VxNextFrameAction>;
using VxPlayToggleActionFactory = VxScriptableFactoryOf<VxPlayToggleAction>;
using VxPrevFrameActionFactory = VxScriptableFactoryOf<VxPrevFrameAction>;
using VxSkipToNextKeyActionFactory = VxScriptableFactoryOf<VxSkipToNextKeyAction>;
using VxSkipToPlayrangeEndActionFactory = VxScriptableFactoryOf<VxSkipToPlayrangeEndAction>;
using VxSkipToPlayrangeStartActionFactory = VxScriptableFactoryOf<VxSkipToPlayrangeStartAction>;
using VxSkipToPrevKeyActionFactory = VxScriptableFactoryOf<VxSkipToPrevKeyAction>;
using VxTimePanePrevKeyActionFactory = VxScriptableFactoryOf<VxTimePanePrevKeyAction>;
using VxTimePaneNextKeyActionFactory = VxScriptableFactoryOf<VxTimePaneNextKeyAction>;
using VxTimePaneCreateKeysActionFactory = VxScriptableFactoryOf<VxTimePaneCreateKeysAction>;
using VxTimePaneDeleteSelectedKeysActionFactory =
    VxScriptableFactoryOf<VxTimePaneDeleteSelectedKeysAction>;
using VxTimePaneCopySelectedKeysActionFactory =
    VxScriptableFactoryOf<VxTimePaneCopySelectedKeysAction>;
using VxTimePanePasteKeysActionFactory = VxScriptableFactoryOf<VxTimePanePasteKeysAction>;
using VxTimePaneSetPropertyTypeTranslationActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetPropertyTypeTranslationAction>;
using VxTimePaneSetPropertyTypeRotationActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetPropertyTypeRotationAction>;
using VxTimePaneSetPropertyTypeScaleActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetPropertyTypeScaleAction>;
using VxTimePaneSetPropertyTypeOtherActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetPropertyTypeOtherAction>;
using VxTimePaneSetPropertyTypeAliasActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetPropertyTypeAliasAction>;
using VxTimePaneSetPropertyTypeHiddenActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetPropertyTypeHiddenAction>;
using VxTimePaneSetInterpTcbActionFactory = VxScriptableFactoryOf<VxTimePaneSetInterpTcbAction>;
using VxTimePaneSetInterpLinearActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetInterpLinearAction>;
using VxTimePaneSetInterpConstantActionFactory =
    VxScriptableFactoryOf<VxTimePaneSetInterpConstantAction>;
using VxTimePaneSelectItemPlayRangeKeysActionFactory =
    VxScriptableFactoryOf<VxTimePaneSelectItemPlayRangeKeysAction>;
using VxTimePaneSelectItemAnimRangeKeysActionFactory =
    VxScriptableFactoryOf<VxTimePaneSelectItemAnimRangeKeysAction>;
using VxTimePaneDeselectItemPlayRangeKeysActionFactory =
    VxScriptableFactoryOf<VxTimePaneDeselectItemPlayRangeKeysAction>;
using VxTimePaneDeselectItemAnimRangeKeysActionFactory =
    VxScriptableFactoryOf<VxTimePaneDeselectItemAnimRangeKeysAction>;
using VxTimePaneExpandAllItemsActionFactory = VxScriptableFactoryOf<VxTimePaneExpandAllItemsAction>;
using VxTimePaneExpandItemActionFactory = VxScriptableFactoryOf<VxTimePaneExpandItemAction>;
using VxTimePaneExpandFromItemActionFactory = VxScriptableFactoryOf<VxTimePaneExpandFromItemAction>;
using VxTimePaneExpandKeyedFromItemActionFactory =
    VxScriptableFactoryOf<VxTimePaneExpandKeyedFromItemAction>;
using VxTimePaneCollapseAllItemsActionFactory =
    VxScriptableFactoryOf<VxTimePaneCollapseAllItemsAction>;
using VxTimePaneCollapseItemActionFactory = VxScriptableFactoryOf<VxTimePaneCollapseItemAction>;
using VxTimePaneCollapseFromItemActionFactory =
    VxScriptableFactoryOf<VxTimePaneCollapseFromItemAction>;
using VxTimePaneCollapseNonKeyedFromItemActionFactory =
    VxScriptableFactoryOf<VxTimePaneCollapseNonKeyedFromItemAction>;
using VxTimePaneMoveRootNodeToTopActionFactory =
    VxScriptableFactoryOf<VxTimePaneMoveRootNodeToTopAction>;
using VxTimePaneMoveRootNodeUpActionFactory = VxScriptableFactoryOf<VxTimePaneMoveRootNodeUpAction>;
using VxTimePaneMoveRootNodeDownActionFactory =
    VxScriptableFactoryOf<VxTimePaneMoveRootNodeDownAction>;
using VxTimePaneMoveRootNodeToBottomActionFactory =
    VxScriptableFactoryOf<VxTimePaneMoveRootNodeToBottomAction>;
using VxTimePaneRefreshDopesheetActionFactory =
    VxScriptableFactoryOf<VxTimePaneRefreshDopesheetAction>;
using VxTimePaneFrameGraphKeysActionFactory = VxScriptableFactoryOf<VxTimePaneFrameGraphKeysAction>;

#endif
