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
}

VxTimePaneExpandItemAction::VxTimePaneExpandItemAction()
    : VxAnimationAction(tr("Expand Item"),
                        tr("Set the context item in the Timeline pane to be open"),
                        [](VxTimePane *pane) { pane->getDopeSheetView()->expandContextItem(); })
{
}

VxTimePaneExpandFromItemAction::VxTimePaneExpandFromItemAction()
    : VxAnimationAction(tr("Expand from Item"),
                        tr("Set the context item in the Timeline pane to be open, making all their "
                           "children visible"),
                        [](VxTimePane *pane) { pane->getDopeSheetView()->expandFromContextItem(); })
{
}

VxTimePaneExpandKeyedFromItemAction::VxTimePaneExpandKeyedFromItemAction()
    : VxAnimationAction(
          tr("Expand Keyed from Item"),
          tr("Set the context item in the Timeline pane to be open, making all their keyed "
             "children visible"),
          [](VxTimePane *pane) { pane->getDopeSheetView()->expandKeyedFromContextItem(); })
{
}

VxTimePaneCollapseAllItemsAction::VxTimePaneCollapseAllItemsAction()
    : VxAnimationAction(
          tr("Collapse All"),
          tr("Set all items in the Timeline pane to be collapsed, hiding all their children "),
          &VxTimePane::collapseAll)
{
}

VxTimePaneCollapseItemAction::VxTimePaneCollapseItemAction()
    : VxAnimationAction(tr("Collapse Item"),
                        tr("Set the context item in the Timeline pane to be collapsed"),
                        [](VxTimePane *pane) { pane->getDopeSheetView()->collapseContextItem(); })
{
}

VxTimePaneCollapseFromItemAction::VxTimePaneCollapseFromItemAction()
    : VxAnimationAction(
          tr("Collapse from Item"),
          tr("Set the context item in the Timeline pane to be collapsed, hiding all their "
             "children "),
          [](VxTimePane *pane) { pane->getDopeSheetView()->collapseFromContextItem(); })
{
}

VxTimePaneCollapseNonKeyedFromItemAction::VxTimePaneCollapseNonKeyedFromItemAction()
    : VxAnimationAction(
          tr("Collapse Non-Keyed from Item"),
          tr("Set the context item in the Timeline pane to be collapsed, hiding all their "
             "children "),
          [](VxTimePane *pane) { pane->getDopeSheetView()->collapseNonKeyedFromContextItem(); })
{
}
