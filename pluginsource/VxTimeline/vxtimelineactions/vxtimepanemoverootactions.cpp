#include "vxtimelineactions/vxtimepanemoverootactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxTimePaneMoveRootNodeAction::VxTimePaneMoveRootNodeAction(const QString &text,
                                                           const QString &description)
    : VxAnimationAction(text, description)
{
}

VxTimePaneMoveRootNodeAction::~VxTimePaneMoveRootNodeAction() = default;

void VxTimePaneMoveRootNodeAction::init()
{
    requireTimePaneForInit(VX_HERE);
}

VxTimePaneMoveRootNodeToTopAction::VxTimePaneMoveRootNodeToTopAction()
    : VxTimePaneMoveRootNodeAction(
          tr("Move Root Node to Top"),
          tr("Moves the root node of an item in the Timeline pane dopesheet to the top of "
             "the list."))
{
    completeConstruction();
}

void VxTimePaneMoveRootNodeToTopAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->moveRootNodeToTop();
}

VxTimePaneMoveRootNodeUpAction::VxTimePaneMoveRootNodeUpAction()
    : VxTimePaneMoveRootNodeAction(
          tr("Move Root Node Up"),
          tr("Moves the root node of an item in the Timeline pane dopesheet up in the list."))
{
    completeConstruction();
}

void VxTimePaneMoveRootNodeUpAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->moveRootNodeUp();
}

VxTimePaneMoveRootNodeDownAction::VxTimePaneMoveRootNodeDownAction()
    : VxTimePaneMoveRootNodeAction(
          tr("Move Root Node Down"),
          tr("Moves the root node of an item in the Timeline pane dopesheet down in the "
             "list."))
{
    completeConstruction();
}

void VxTimePaneMoveRootNodeDownAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->moveRootNodeDown();
}

VxTimePaneMoveRootNodeToBottomAction::VxTimePaneMoveRootNodeToBottomAction()
    : VxTimePaneMoveRootNodeAction(
          tr("Move Root Node to Bottom"),
          tr("Moves the root node of an item in the Timeline pane dopesheet to the bottom of"
             " the list."))
{
    completeConstruction();
}

void VxTimePaneMoveRootNodeToBottomAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->moveRootNodeToBottom();
}
