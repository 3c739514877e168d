#include "vxtimelineactions/vxtimepaneexpandactions.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxTimePaneExpandAllItemsAction::VxTimePaneExpandAllItemsAction()
    : VxAnimationAction(
          tr("Expand All"),
          tr("Set all items in the Timeline pane to be open, making all their children "
             "visible"))
{
    completeConstruction();
}

void VxTimePaneExpandAllItemsAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->expandAll();
}

VxTimePaneExpandItemAction::VxTimePaneExpandItemAction()
    : VxAnimationAction(tr("Expand Item"),
                        tr("Set the context item in the Timeline pane to be open"))
{
    completeConstruction();
}

void VxTimePaneExpandItemAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->getDopeSheetView()->expandContextItem();
}

VxTimePaneExpandFromItemAction::VxTimePaneExpandFromItemAction()
    : VxAnimationAction(tr("Expand from Item"),
                        tr("Set the context item in the Timeline pane to be open, making all their "
                           "children visible"))
{
    completeConstruction();
}

void VxTimePaneExpandFromItemAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->getDopeSheetView()->expandFromContextItem();
}

VxTimePaneExpandKeyedFromItemAction::VxTimePaneExpandKeyedFromItemAction()
    : VxAnimationAction(
          tr("Expand Keyed from Item"),
          tr("Set the context item in the Timeline pane to be open, making all their keyed "
             "children visible"))
{
    completeConstruction();
}

void VxTimePaneExpandKeyedFromItemAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->getDopeSheetView()->expandKeyedFromContextItem();
}

VxTimePaneCollapseAllItemsAction::VxTimePaneCollapseAllItemsAction()
    : VxAnimationAction(
          tr("Collapse All"),
          tr("Set all items in the Timeline pane to be collapsed, hiding all their children "))
{
    completeConstruction();
}

void VxTimePaneCollapseAllItemsAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->collapseAll();
}

VxTimePaneCollapseItemAction::VxTimePaneCollapseItemAction()
    : VxAnimationAction(tr("Collapse Item"),
                        tr("Set the context item in the Timeline pane to be collapsed"))
{
    completeConstruction();
}

void VxTimePaneCollapseItemAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->getDopeSheetView()->collapseContextItem();
}

VxTimePaneCollapseFromItemAction::VxTimePaneCollapseFromItemAction()
    : VxAnimationAction(
          tr("Collapse from Item"),
          tr("Set the context item in the Timeline pane to be collapsed, hiding all their "
             "children "))
{
    completeConstruction();
}

void VxTimePaneCollapseFromItemAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->getDopeSheetView()->collapseFromContextItem();
}

VxTimePaneCollapseNonKeyedFromItemAction::VxTimePaneCollapseNonKeyedFromItemAction()
    : VxAnimationAction(
          tr("Collapse Non-Keyed from Item"),
          tr("Set the context item in the Timeline pane to be collapsed, hiding all their "
             "children "))
{
    completeConstruction();
}

void VxTimePaneCollapseNonKeyedFromItemAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->getDopeSheetView()->collapseNonKeyedFromContextItem();
}
