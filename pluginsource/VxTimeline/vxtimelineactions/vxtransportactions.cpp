#include "vxtimelineactions/vxtransportactions.h"

#include "vxtimeline/pane/vxtimepane.h"

VxLoopToggleAction::VxLoopToggleAction()
    : VxAnimationAction(tr("Toggle Looping"),
                        tr("Toggles whether or not animation playback is looped."),
                        &VxTimePane::toggleLoop)
{
    completeConstruction();
}

VxPlayToggleAction::VxPlayToggleAction()
    : VxAnimationAction(tr("Play / Pause"), tr("Toggles animation playback on/off."),
                        &VxTimePane::togglePlayback, "Space")
{
    completeConstruction();
}

VxSkipToPlayrangeStartAction::VxSkipToPlayrangeStartAction()
    : VxAnimationAction(tr("Skip to Play Range Start"),
                        tr("Sets the current time to the beginning of the play range."),
                        &VxTimePane::skipToPlayRangeStart, "Home")
{
    completeConstruction();
}

VxSkipToPlayrangeEndAction::VxSkipToPlayrangeEndAction()
    : VxAnimationAction(tr("Skip to Play Range End"),
                        tr("Sets the current time to the end of the play range."),
                        &VxTimePane::skipToPlayRangeEnd, "End")
{
    completeConstruction();
}

VxPrevFrameAction::VxPrevFrameAction()
    : VxAnimationAction(tr("Step to Previous Frame"),
                        tr("Sets the current time to the time of the previous frame."),
                        &VxTimePane::skipToPreviousFrame, "Left")
{
    completeConstruction();
}

VxNextFrameAction::VxNextFrameAction()
    : VxAnimationAction(tr("Step to Next Frame"),
                        tr("Sets the current time to the time of the next frame."),
                        &VxTimePane::skipToNextFrame, "Right")
{
    completeConstruction();
}

VxSkipToPrevKeyAction::VxSkipToPrevKeyAction()
    : VxAnimationAction(
          tr("Skip to Previous Key"),
          tr("Sets the current time to the time of the previous key, regardless of whether "
             "or not the key is currently displayed in the Timeline pane."),
          &VxTimePane::skipToPreviousKey)
{
    completeConstruction();
}

VxSkipToNextKeyAction::VxSkipToNextKeyAction()
    : VxAnimationAction(
          tr("Skip to Next Key"),
          tr("Sets the current time to the time of the next key, regardless of whether or "
             "not the key is currently displayed in the Timeline pane."),
          &VxTimePane::skipToNextKey)
{
    completeConstruction();
}

VxTimePanePrevKeyAction::VxTimePanePrevKeyAction()
    : VxAnimationAction(tr("Skip to Previous Key (Filtered)"),
                        tr("Sets the current time to the time of the previous displayed key."),
                        &VxTimePane::skipToPreviousFilteredKey, "Ctrl+Left")
{
    completeConstruction();
}

VxTimePaneNextKeyAction::VxTimePaneNextKeyAction()
    : VxAnimationAction(tr("Skip to Next Key (Filtered)"),
                        tr("Sets the current time to the time of the next displayed key."),
                        &VxTimePane::skipToNextFilteredKey, "Ctrl+Right")
{
    completeConstruction();
}
