#ifndef VXTRANSPORTACTIONS_H
#define VXTRANSPORTACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// The commands that move the current time and control playback.

// Turns looping on or off.
class VxLoopToggleAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxLoopToggleAction();

protected:
    void executeAction() override;
};

// Starts or pauses playback.
class VxPlayToggleAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxPlayToggleAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

// To the first frame of the play range.
class VxSkipToPlayrangeStartAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxSkipToPlayrangeStartAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

// To the last frame of the play range.
class VxSkipToPlayrangeEndAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxSkipToPlayrangeEndAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

// One frame back. The arrow keys are left to the rows of trees and lists.
class VxPrevFrameAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxPrevFrameAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

// One frame on.
class VxNextFrameAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxNextFrameAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

// To the key before, shown or not.
class VxSkipToPrevKeyAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxSkipToPrevKeyAction();

protected:
    void executeAction() override;
};

// To the key after, shown or not.
class VxSkipToNextKeyAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxSkipToNextKeyAction();

protected:
    void executeAction() override;
};

// To the key before among those that are shown.
class VxTimePanePrevKeyAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePanePrevKeyAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

// To the key after among those that are shown.
class VxTimePaneNextKeyAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneNextKeyAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

#endif
