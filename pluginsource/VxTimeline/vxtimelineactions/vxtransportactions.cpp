#include "vxtimelineactions/vxtransportactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxLoopToggleAction::VxLoopToggleAction()
    : VxAnimationAction(tr("Toggle Looping"),
                        tr("Toggles whether or not animation playback is looped."))
{
    completeConstruction();
}

void VxLoopToggleAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->toggleLoop();
}

VxPlayToggleAction::VxPlayToggleAction()
    : VxAnimationAction(tr("Play / Pause"), tr("Toggles animation playback on/off."))
{
    completeConstruction();
}

QString VxPlayToggleAction::getDefaultAccel() const
{
    return QStringLiteral("Space");
}

void VxPlayToggleAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->togglePlayback();
}

VxSkipToPlayrangeStartAction::VxSkipToPlayrangeStartAction()
    : VxAnimationAction(tr("Skip to Play Range Start"),
                        tr("Sets the current time to the beginning of the play range."))
{
    completeConstruction();
}

QString VxSkipToPlayrangeStartAction::getDefaultAccel() const
{
    return QStringLiteral("Home");
}

void VxSkipToPlayrangeStartAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->skipToPlayRangeStart();
}

VxSkipToPlayrangeEndAction::VxSkipToPlayrangeEndAction()
    : VxAnimationAction(tr("Skip to Play Range End"),
                        tr("Sets the current time to the end of the play range."))
{
    completeConstruction();
}

QString VxSkipToPlayrangeEndAction::getDefaultAccel() const
{
    return QStringLiteral("End");
}

void VxSkipToPlayrangeEndAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->skipToPlayRangeEnd();
}

VxPrevFrameAction::VxPrevFrameAction()
    : VxAnimationAction(tr("Step to Previous Frame"),
                        tr("Sets the current time to the time of the previous frame."))
{
    completeConstruction();
}

QString VxPrevFrameAction::getDefaultAccel() const
{
    return QStringLiteral("Left");
}

void VxPrevFrameAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->skipToPreviousFrame();
}

VxNextFrameAction::VxNextFrameAction()
    : VxAnimationAction(tr("Step to Next Frame"),
                        tr("Sets the current time to the time of the next frame."))
{
    completeConstruction();
}

QString VxNextFrameAction::getDefaultAccel() const
{
    return QStringLiteral("Right");
}

void VxNextFrameAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->skipToNextFrame();
}

VxSkipToPrevKeyAction::VxSkipToPrevKeyAction()
    : VxAnimationAction(
          tr("Skip to Previous Key"),
          tr("Sets the current time to the time of the previous key, regardless of whether "
             "or not the key is currently displayed in the Timeline pane."))
{
    completeConstruction();
}

void VxSkipToPrevKeyAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->skipToPreviousKey();
}

VxSkipToNextKeyAction::VxSkipToNextKeyAction()
    : VxAnimationAction(
          tr("Skip to Next Key"),
          tr("Sets the current time to the time of the next key, regardless of whether or "
             "not the key is currently displayed in the Timeline pane."))
{
    completeConstruction();
}

void VxSkipToNextKeyAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->skipToNextKey();
}

VxTimePanePrevKeyAction::VxTimePanePrevKeyAction()
    : VxAnimationAction(tr("Skip to Previous Key (Filtered)"),
                        tr("Sets the current time to the time of the previous displayed key."))
{
    completeConstruction();
}

QString VxTimePanePrevKeyAction::getDefaultAccel() const
{
    return QStringLiteral("Ctrl+Left");
}

void VxTimePanePrevKeyAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->skipToPreviousFilteredKey();
}

VxTimePaneNextKeyAction::VxTimePaneNextKeyAction()
    : VxAnimationAction(tr("Skip to Next Key (Filtered)"),
                        tr("Sets the current time to the time of the next displayed key."))
{
    completeConstruction();
}

QString VxTimePaneNextKeyAction::getDefaultAccel() const
{
    return QStringLiteral("Ctrl+Right");
}

void VxTimePaneNextKeyAction::executeAction()
{
    if (VxTimePane *pane = requireTimePane(VX_HERE))
        pane->skipToNextFilteredKey();
}
