#ifndef VXTRANSPORTACTIONS_H
#define VXTRANSPORTACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// The commands that move the current time and control playback.

/// Toggles looping.
class VxLoopToggleAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxLoopToggleAction();
};

/// Starts or pauses playback.
class VxPlayToggleAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxPlayToggleAction();
};

/// To the first frame of the play range.
class VxSkipToPlayrangeStartAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxSkipToPlayrangeStartAction();
};

/// To the last frame of the play range.
class VxSkipToPlayrangeEndAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxSkipToPlayrangeEndAction();
};

/// One frame back. The arrow keys are left to the rows of trees and lists.
class VxPrevFrameAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxPrevFrameAction();
};

/// One frame forward.
class VxNextFrameAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxNextFrameAction();
};

/// To the previous key, shown or not.
class VxSkipToPrevKeyAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxSkipToPrevKeyAction();
};

/// To the next key, shown or not.
class VxSkipToNextKeyAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxSkipToNextKeyAction();
};

/// To the previous key among the shown ones.
class VxTimePanePrevKeyAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePanePrevKeyAction();
};

/// To the next key among the shown ones.
class VxTimePaneNextKeyAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneNextKeyAction();
};

#endif
