#include "vxtimelineactions/vxtimepaneexpandactions.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/vxtimepane.h"

VxTimePaneExpandAllItemsAction::VxTimePaneExpandAllItemsAction()
    : VxAnimationAction(
          tr("Expand All"),
          tr("Set all items in the Timeline pane to be open, making all their children "
             "visible"),
          &VxTimePane::expandAll)
{
    completeConstruction();
}

VxTimePaneExpandItemAction::VxTimePaneExpandItemAction()
    : VxAnimationAction(tr("Expand Item"),
                        tr("Set the context item in the Timeline pane to be open"),
                        [](VxTimePane *pane) { pane->getDopeSheetView()->expandContextItem(); })
{
    completeConstruction();
}

VxTimePaneExpandFromItemAction::VxTimePaneExpandFromItemAction()
    : VxAnimationAction(tr("Expand from Item"),
                        tr("Set the context item in the Timeline pane to be open, making all their "
                           "children visible"),
                        [](VxTimePane *pane) { pane->getDopeSheetView()->expandFromContextItem(); })
{
    completeConstruction();
}

VxTimePaneExpandKeyedFromItemAction::VxTimePaneExpandKeyedFromItemAction()
    : VxAnimationAction(
          tr("Expand Keyed from Item"),
          tr("Set the context item in the Timeline pane to be open, making all their keyed "
             "children visible"),
          [](VxTimePane *pane) { pane->getDopeSheetView()->expandKeyedFromContextItem(); })
{
    completeConstruction();
}

VxTimePaneCollapseAllItemsAction::VxTimePaneCollapseAllItemsAction()
    : VxAnimationAction(
          tr("Collapse All"),
          tr("Set all items in the Timeline pane to be collapsed, hiding all their children "),
          &VxTimePane::collapseAll)
{
    completeConstruction();
}

VxTimePaneCollapseItemAction::VxTimePaneCollapseItemAction()
    : VxAnimationAction(tr("Collapse Item"),
                        tr("Set the context item in the Timeline pane to be collapsed"),
                        [](VxTimePane *pane) { pane->getDopeSheetView()->collapseContextItem(); })
{
    completeConstruction();
}

VxTimePaneCollapseFromItemAction::VxTimePaneCollapseFromItemAction()
    : VxAnimationAction(
          tr("Collapse from Item"),
          tr("Set the context item in the Timeline pane to be collapsed, hiding all their "
             "children "),
          [](VxTimePane *pane) { pane->getDopeSheetView()->collapseFromContextItem(); })
{
    completeConstruction();
}

VxTimePaneCollapseNonKeyedFromItemAction::VxTimePaneCollapseNonKeyedFromItemAction()
    : VxAnimationAction(
          tr("Collapse Non-Keyed from Item"),
          tr("Set the context item in the Timeline pane to be collapsed, hiding all their "
             "children "),
          [](VxTimePane *pane) { pane->getDopeSheetView()->collapseNonKeyedFromContextItem(); })
{
    completeConstruction();
}
