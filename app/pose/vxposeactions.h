#ifndef VXPOSEACTIONS_H
#define VXPOSEACTIONS_H

#include "widgets/vxsceneaction.h"

class VxCopyPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCopyPoseAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxPastePoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxPastePoseAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxPastePoseMirroredAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxPastePoseMirroredAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxMirrorPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxMirrorPoseAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxResetPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxResetPoseAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxSetRestPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxSetRestPoseAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxSelectMirrorAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxSelectMirrorAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxSelectChildrenAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxSelectChildrenAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxSelectParentsAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxSelectParentsAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxBreakdownAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxBreakdownAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxHoldPoseAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxHoldPoseAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxCyclePosesAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCyclePosesAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxMatchEndsAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxMatchEndsAction();

private:
    QString perform(VxScene *scene) const override;
};

#endif
