#include "vxtimelineactions/vxtransportactions.h"

#include "vxtimeline/pane/vxtimepane.h"

VxLoopToggleAction::VxLoopToggleAction()
    : VxAnimationAction(tr("Toggle Looping"),
                        tr("Toggles whether or not animation playback is looped."),
                        &VxTimePane::toggleLoop)
{
}

VxPlayToggleAction::VxPlayToggleAction()
    : VxAnimationAction(tr("Play / Pause"), tr("Toggles animation playback on/off."),
                        &VxTimePane::togglePlayback, "Space")
{
}

VxSkipToPlayrangeStartAction::VxSkipToPlayrangeStartAction()
    : VxAnimationAction(tr("Skip to Play Range Start"),
                        tr("Sets the current time to the beginning of the play range."),
                        &VxTimePane::skipToPlayRangeStart, "Home")
{
}

VxSkipToPlayrangeEndAction::VxSkipToPlayrangeEndAction()
    : VxAnimationAction(tr("Skip to Play Range End"),
                        tr("Sets the current time to the end of the play range."),
                        &VxTimePane::skipToPlayRangeEnd, "End")
{
}

VxPrevFrameAction::VxPrevFrameAction()
    : VxAnimationAction(tr("Step to Previous Frame"),
                        tr("Sets the current time to the time of the previous frame."),
                        &VxTimePane::skipToPreviousFrame, "Left")
{
}

VxNextFrameAction::VxNextFrameAction()
    : VxAnimationAction(tr("Step to Next Frame"),
                        tr("Sets the current time to the time of the next frame."),
                        &VxTimePane::skipToNextFrame, "Right")
{
}

VxSkipToPrevKeyAction::VxSkipToPrevKeyAction()
    : VxAnimationAction(
          tr("Skip to Previous Key"),
          tr("Sets the current time to the time of the previous key, regardless of whether "
             "or not the key is currently displayed in the Timeline pane."),
          &VxTimePane::skipToPreviousKey)
{
}

VxSkipToNextKeyAction::VxSkipToNextKeyAction()
    : VxAnimationAction(
          tr("Skip to Next Key"),
          tr("Sets the current time to the time of the next key, regardless of whether or "
             "not the key is currently displayed in the Timeline pane."),
          &VxTimePane::skipToNextKey)
{
}

VxTimePanePrevKeyAction::VxTimePanePrevKeyAction()
    : VxAnimationAction(tr("Skip to Previous Key (Filtered)"),
                        tr("Sets the current time to the time of the previous displayed key."),
                        &VxTimePane::skipToPreviousFilteredKey, "Ctrl+Left")
{
}

VxTimePaneNextKeyAction::VxTimePaneNextKeyAction()
    : VxAnimationAction(tr("Skip to Next Key (Filtered)"),
                        tr("Sets the current time to the time of the next displayed key."),
                        &VxTimePane::skipToNextFilteredKey, "Ctrl+Right")
{
}
