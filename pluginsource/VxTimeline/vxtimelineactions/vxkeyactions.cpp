#include "vxtimelineactions/vxkeyactions.h"

#include "vxtimeline/pane/vxtimepane.h"

VxAddKeysAction::VxAddKeysAction()
    : VxAnimationAction(
          tr("Create Keys (Selected Nodes)"),
          tr("Creates a key, at the current time, for the current value on each property of "
             "the selected node(s)."),
          &VxTimePane::createKeys)
{
}

VxDeleteKeysAction::VxDeleteKeysAction()
    : VxAnimationAction(
          tr("Delete Keys (Selected Nodes)"),
          tr("Deletes keys, at the current time, from each property of the selected node(s)."),
          &VxTimePane::deleteKeys)
{
}

VxTimePaneCreateKeysAction::VxTimePaneCreateKeysAction()
    : VxAnimationAction(
          tr("Create Keys (Filtered)"),
          tr("Creates a key, at the current time, for the current value on each property "
             "associated with the nodes specified using the scope selector in the Timeline "
             "pane. If the Ctrl/Cmd button on the keyboard is pressed, additional options "
             "are displayed."),
          [](VxTimePane *pane) { pane->createFilteredKeys(); }, "K")
{
}

VxTimePaneDeleteSelectedKeysAction::VxTimePaneDeleteSelectedKeysAction()
    : VxAnimationAction(tr("Delete Selected Keys"),
                        tr("Deletes the selected keys from their respective properties."),
                        &VxTimePane::deleteSelectedKeys, "Del")
{
}

VxTimePaneCopySelectedKeysAction::VxTimePaneCopySelectedKeysAction()
    : VxAnimationAction(
          tr("Copy Selected Key(s)"),
          tr("Copies the values and relative positional offsets (from one another) of the "
             "selected keys, for each of the respective properties, to the clipboard."),
          &VxTimePane::copySelectedKeys, "Ctrl+C")
{
}

bool VxTimePaneCopySelectedKeysAction::isClipboardAction() const
{
    return true;
}

VxTimePanePasteKeysAction::VxTimePanePasteKeysAction()
    : VxAnimationAction(
          tr("Paste Key(s)"),
          tr("Pastes the copied keys to their respective properties, with their respective "
             "position offsets from one another, at the current time."),
          &VxTimePane::pasteKeys, "Ctrl+V")
{
}
