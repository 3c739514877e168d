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

/// In addition lets scripts pass and get the pane's choices and sets of property types as numbers.
class VxTimePaneFactory : public VxScriptableFactoryOf<VxTimePane>
{
public:
    explicit VxTimePaneFactory(const char *guid);

    void registerClass(QScriptEngine *engine) const override;
};

/// The factory of an action. The help texts and the name of an action depend on its class, which
/// the constructors of its bases cannot read.
template <class Action> class ActionFactory : public VxScriptableFactoryOf<Action>
{
public:
    using VxScriptableFactoryOf<Action>::VxScriptableFactoryOf;

    using VxClassFactory::createInstance;
    QObject *createInstance() const override
    {
        auto *action = new Action;
        action->updateInlineHelp();
        return action;
    }
};

using VxTimePaneActionFactory = ActionFactory<VxTimePaneAction>;
using VxTimePaneControlsBottomActionFactory = ActionFactory<VxTimePaneControlsBottomAction>;
using VxTimePaneControlsTopActionFactory = ActionFactory<VxTimePaneControlsTopAction>;
using VxTimePaneBasicViewActionFactory = ActionFactory<VxTimePaneBasicViewAction>;
using VxTimePaneIntermediateViewActionFactory = ActionFactory<VxTimePaneIntermediateViewAction>;
using VxTimePaneAdvancedViewActionFactory = ActionFactory<VxTimePaneAdvancedViewAction>;
using VxTimePaneKeyGraphToggleActionFactory = ActionFactory<VxTimePaneKeyGraphToggleAction>;
using VxTimePaneMonitorParametersPaneActionFactory =
    ActionFactory<VxTimePaneMonitorParametersPaneAction>;
using VxTimePaneSetKeyScopeObjectActionFactory = ActionFactory<VxTimePaneSetKeyScopeObjectAction>;
using VxTimePaneSetKeyScopeNodeRecurseActionFactory =
    ActionFactory<VxTimePaneSetKeyScopeNodeRecurseAction>;
using VxTimePaneSetKeyScopeNodeActionFactory = ActionFactory<VxTimePaneSetKeyScopeNodeAction>;
using VxTimePaneSetKeyScopePropertiesActionFactory =
    ActionFactory<VxTimePaneSetKeyScopePropertiesAction>;
using VxTimePanePlayAllFramesActionFactory = ActionFactory<VxTimePanePlayAllFramesAction>;
using VxAddKeysActionFactory = ActionFactory<VxAddKeysAction>;
using VxDeleteKeysActionFactory = ActionFactory<VxDeleteKeysAction>;
using VxLoopToggleActionFactory = ActionFactory<VxLoopToggleAction>;
using VxNextFrameActionFactory = ActionFactory<VxNextFrameAction>;
using VxPlayToggleActionFactory = ActionFactory<VxPlayToggleAction>;
using VxPrevFrameActionFactory = ActionFactory<VxPrevFrameAction>;
using VxSkipToNextKeyActionFactory = ActionFactory<VxSkipToNextKeyAction>;
using VxSkipToPlayrangeEndActionFactory = ActionFactory<VxSkipToPlayrangeEndAction>;
using VxSkipToPlayrangeStartActionFactory = ActionFactory<VxSkipToPlayrangeStartAction>;
using VxSkipToPrevKeyActionFactory = ActionFactory<VxSkipToPrevKeyAction>;
using VxTimePanePrevKeyActionFactory = ActionFactory<VxTimePanePrevKeyAction>;
using VxTimePaneNextKeyActionFactory = ActionFactory<VxTimePaneNextKeyAction>;
using VxTimePaneCreateKeysActionFactory = ActionFactory<VxTimePaneCreateKeysAction>;
using VxTimePaneDeleteSelectedKeysActionFactory = ActionFactory<VxTimePaneDeleteSelectedKeysAction>;
using VxTimePaneCopySelectedKeysActionFactory = ActionFactory<VxTimePaneCopySelectedKeysAction>;
using VxTimePanePasteKeysActionFactory = ActionFactory<VxTimePanePasteKeysAction>;
using VxTimePaneSetPropertyTypeTranslationActionFactory =
    ActionFactory<VxTimePaneSetPropertyTypeTranslationAction>;
using VxTimePaneSetPropertyTypeRotationActionFactory =
    ActionFactory<VxTimePaneSetPropertyTypeRotationAction>;
using VxTimePaneSetPropertyTypeScaleActionFactory =
    ActionFactory<VxTimePaneSetPropertyTypeScaleAction>;
using VxTimePaneSetPropertyTypeOtherActionFactory =
    ActionFactory<VxTimePaneSetPropertyTypeOtherAction>;
using VxTimePaneSetPropertyTypeAliasActionFactory =
    ActionFactory<VxTimePaneSetPropertyTypeAliasAction>;
using VxTimePaneSetPropertyTypeHiddenActionFactory =
    ActionFactory<VxTimePaneSetPropertyTypeHiddenAction>;
using VxTimePaneSetInterpTcbActionFactory = ActionFactory<VxTimePaneSetInterpTcbAction>;
using VxTimePaneSetInterpLinearActionFactory = ActionFactory<VxTimePaneSetInterpLinearAction>;
using VxTimePaneSetInterpConstantActionFactory = ActionFactory<VxTimePaneSetInterpConstantAction>;
using VxTimePaneSelectItemPlayRangeKeysActionFactory =
    ActionFactory<VxTimePaneSelectItemPlayRangeKeysAction>;
using VxTimePaneSelectItemAnimRangeKeysActionFactory =
    ActionFactory<VxTimePaneSelectItemAnimRangeKeysAction>;
using VxTimePaneDeselectItemPlayRangeKeysActionFactory =
    ActionFactory<VxTimePaneDeselectItemPlayRangeKeysAction>;
using VxTimePaneDeselectItemAnimRangeKeysActionFactory =
    ActionFactory<VxTimePaneDeselectItemAnimRangeKeysAction>;
using VxTimePaneExpandAllItemsActionFactory = ActionFactory<VxTimePaneExpandAllItemsAction>;
using VxTimePaneExpandItemActionFactory = ActionFactory<VxTimePaneExpandItemAction>;
using VxTimePaneExpandFromItemActionFactory = ActionFactory<VxTimePaneExpandFromItemAction>;
using VxTimePaneExpandKeyedFromItemActionFactory =
    ActionFactory<VxTimePaneExpandKeyedFromItemAction>;
using VxTimePaneCollapseAllItemsActionFactory = ActionFactory<VxTimePaneCollapseAllItemsAction>;
using VxTimePaneCollapseItemActionFactory = ActionFactory<VxTimePaneCollapseItemAction>;
using VxTimePaneCollapseFromItemActionFactory = ActionFactory<VxTimePaneCollapseFromItemAction>;
using VxTimePaneCollapseNonKeyedFromItemActionFactory =
    ActionFactory<VxTimePaneCollapseNonKeyedFromItemAction>;
using VxTimePaneMoveRootNodeToTopActionFactory = ActionFactory<VxTimePaneMoveRootNodeToTopAction>;
using VxTimePaneMoveRootNodeUpActionFactory = ActionFactory<VxTimePaneMoveRootNodeUpAction>;
using VxTimePaneMoveRootNodeDownActionFactory = ActionFactory<VxTimePaneMoveRootNodeDownAction>;
using VxTimePaneMoveRootNodeToBottomActionFactory =
    ActionFactory<VxTimePaneMoveRootNodeToBottomAction>;
using VxTimePaneRefreshDopesheetActionFactory = ActionFactory<VxTimePaneRefreshDopesheetAction>;
using VxTimePaneFrameGraphKeysActionFactory = ActionFactory<VxTimePaneFrameGraphKeysAction>;

#endif
