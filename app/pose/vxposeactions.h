#ifndef VXPOSEACTIONS_H
#define VXPOSEACTIONS_H

#include "pose/posecommands.h"

#include <vxcore/vxaction.h>

/// Base of the commands of the menu Pose. They act on the scene and its selection; the status line
/// reports what was done.
class VxPoseAction : public VxAction
{
    Q_OBJECT
public:
    ~VxPoseAction() override;

    QString getDefaultAccel() const override;
    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;

protected:
    VxPoseAction(const QString &text, const QString &description, const char *accel,
                 const char *group);
    void executeAction() override;

private:
    virtual PoseResult perform(VxScene *scene) const = 0;

    const char *const m_accel;
    const char *const m_group;
};

class VxCopyPoseAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxCopyPoseAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxPastePoseAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxPastePoseAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxPastePoseMirroredAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxPastePoseMirroredAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxMirrorPoseAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxMirrorPoseAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxResetPoseAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxResetPoseAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxSelectMirrorAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxSelectMirrorAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxSelectChildrenAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxSelectChildrenAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxSelectParentsAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxSelectParentsAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxBreakdownAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxBreakdownAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxHoldPoseAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxHoldPoseAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxCyclePosesAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxCyclePosesAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

class VxMatchEndsAction : public VxPoseAction
{
    Q_OBJECT
public:
    VxMatchEndsAction();

private:
    PoseResult perform(VxScene *scene) const override;
};

#endif
