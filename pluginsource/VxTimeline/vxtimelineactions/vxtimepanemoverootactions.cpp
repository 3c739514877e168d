#include "vxtimelineactions/vxtimepanemoverootactions.h"

#include "vxtimeline/pane/vxtimepane.h"

VxTimePaneMoveRootNodeToTopAction::VxTimePaneMoveRootNodeToTopAction()
    : VxTimePaneMoveRootNodeAction(
          tr("Move Root Node to Top"),
          tr("Moves the root node of an item in the Timeline pane dopesheet to the top of "
             "the list."),
          &VxTimePane::moveRootNodeToTop)
{
}

VxTimePaneMoveRootNodeUpAction::VxTimePaneMoveRootNodeUpAction()
    : VxTimePaneMoveRootNodeAction(
          tr("Move Root Node Up"),
          tr("Moves the root node of an item in the Timeline pane dopesheet up in the list."),
          &VxTimePane::moveRootNodeUp)
{
}

VxTimePaneMoveRootNodeDownAction::VxTimePaneMoveRootNodeDownAction()
    : VxTimePaneMoveRootNodeAction(
          tr("Move Root Node Down"),
          tr("Moves the root node of an item in the Timeline pane dopesheet down in the "
             "list."),
          &VxTimePane::moveRootNodeDown)
{
}

VxTimePaneMoveRootNodeToBottomAction::VxTimePaneMoveRootNodeToBottomAction()
    : VxTimePaneMoveRootNodeAction(
          tr("Move Root Node to Bottom"),
          tr("Moves the root node of an item in the Timeline pane dopesheet to the bottom of"
             " the list."),
          &VxTimePane::moveRootNodeToBottom)
{
}
