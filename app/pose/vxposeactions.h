#ifndef VXPOSEACTIONS_H
#define VXPOSEACTIONS_H

#include "widgets/vxsceneaction.h"

class VxCopyPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCopyPoseAction();
};

class VxPastePoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxPastePoseAction();
};

class VxPastePoseMirroredAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxPastePoseMirroredAction();
};

class VxMirrorPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxMirrorPoseAction();
};

class VxResetPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxResetPoseAction();
};

class VxSetRestPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxSetRestPoseAction();
};

class VxSelectMirrorAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxSelectMirrorAction();
};

class VxSelectChildrenAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxSelectChildrenAction();
};

class VxSelectParentsAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxSelectParentsAction();
};

class VxBreakdownAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxBreakdownAction();
};

class VxHoldPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxHoldPoseAction();
};

class VxCyclePosesAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCyclePosesAction();
};

class VxMatchEndsAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxMatchEndsAction();
};

#endif
