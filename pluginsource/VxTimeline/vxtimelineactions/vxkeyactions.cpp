#include "vxtimelineactions/vxkeyactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxAddKeysAction::VxAddKeysAction()
    : VxAnimationAction(
          tr("Create Keys (Selected Nodes)"),
          tr("Creates a key, at the current time, for the current value on each property of "
             "the selected node(s)."))
{
    completeConstruction();
}

void VxAddKeysAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->createKeys();
}

VxDeleteKeysAction::VxDeleteKeysAction()
    : VxAnimationAction(
          tr("Delete Keys (Selected Nodes)"),
          tr("Deletes keys, at the current time, from each property of the selected node(s)."))
{
    completeConstruction();
}

void VxDeleteKeysAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->deleteKeys();
}

VxTimePaneCreateKeysAction::VxTimePaneCreateKeysAction()
    : VxAnimationAction(
          tr("Create Keys (Filtered)"),
          tr("Creates a key, at the current time, for the current value on each property "
             "associated with the nodes specified using the scope selector in the Timeline "
             "pane. If the Ctrl/Cmd button on the keyboard is pressed, additional options "
             "are displayed."))
{
    completeConstruction();
}

QString VxTimePaneCreateKeysAction::getDefaultAccel() const
{
    return QStringLiteral("K");
}

void VxTimePaneCreateKeysAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->createFilteredKeys();
}

VxTimePaneDeleteSelectedKeysAction::VxTimePaneDeleteSelectedKeysAction()
    : VxAnimationAction(tr("Delete Selected Keys"),
                        tr("Deletes the selected keys from their respective properties."))
{
    completeConstruction();
}

QString VxTimePaneDeleteSelectedKeysAction::getDefaultAccel() const
{
    return QStringLiteral("Del");
}

void VxTimePaneDeleteSelectedKeysAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->deleteSelectedKeys();
}

VxTimePaneCopySelectedKeysAction::VxTimePaneCopySelectedKeysAction()
    : VxAnimationAction(
          tr("Copy Selected Key(s)"),
          tr("Copies the values and relative positional offsets (from one another) of the "
             "selected keys, for each of the respective properties, to the clipboard."))
{
    completeConstruction();
}

QString VxTimePaneCopySelectedKeysAction::getDefaultAccel() const
{
    return QStringLiteral("Ctrl+C");
}

bool VxTimePaneCopySelectedKeysAction::isClipboardAction() const
{
    return true;
}

void VxTimePaneCopySelectedKeysAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->copySelectedKeys();
}

VxTimePanePasteKeysAction::VxTimePanePasteKeysAction()
    : VxAnimationAction(
          tr("Paste Key(s)"),
          tr("Pastes the copied keys to their respective properties, with their respective "
             "position offsets from one another, at the current time."))
{
    completeConstruction();
}

QString VxTimePanePasteKeysAction::getDefaultAccel() const
{
    return QStringLiteral("Ctrl+V");
}

void VxTimePanePasteKeysAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->pasteKeys();
}
