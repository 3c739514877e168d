#ifndef VXPOSETOOLACTIONS_H
#define VXPOSETOOLACTIONS_H

#include "posetools/posetools.h"
#include "posetools/posetoolsettings.h"
#include "viewport/vxviewportaction.h"

/// Base of the actions that choose among the viewport's tools or orientations: the check mark shows
/// the current one.
class VxPoseToolAction : public VxViewportAction
{
    Q_OBJECT
public:
    void init() override;

protected:
    VxPoseToolAction(const QString &text, const QString &description, const char *accel,
                     const char *group, const char *folder = "");
    void executeAction() override;
    bool isToggle() const override { return false; }

private:
    virtual bool isCurrent(const PoseTools &tools) const = 0;
    /// Returns the text for the status line; empty when there is nothing to report.
    virtual QString choose(PoseTools *tools) = 0;

    bool m_isConnected = false;
};

/// Base of the actions of the tools.
class VxToolAction : public VxPoseToolAction
{
    Q_OBJECT
protected:
    VxToolAction(PoseTools::Tool tool, const QString &description, const char *accel);

private:
    bool isCurrent(const PoseTools &tools) const override;
    QString choose(PoseTools *tools) override;

    const PoseTools::Tool m_tool;
};

class VxSelectToolAction : public VxToolAction
{
    Q_OBJECT
public:
    VxSelectToolAction();
};

class VxMoveToolAction : public VxToolAction
{
    Q_OBJECT
public:
    VxMoveToolAction();
};

class VxRotateToolAction : public VxToolAction
{
    Q_OBJECT
public:
    VxRotateToolAction();
};

class VxScaleToolAction : public VxToolAction
{
    Q_OBJECT
public:
    VxScaleToolAction();
};

class VxIkToolAction : public VxToolAction
{
    Q_OBJECT
public:
    VxIkToolAction();
};

/// Base of the actions of the gizmo's orientation.
class VxOrientationAction : public VxPoseToolAction
{
    Q_OBJECT
protected:
    VxOrientationAction(PoseToolSettings::Orientation orientation, const QString &text,
                        const QString &description);

private:
    bool isCurrent(const PoseTools &tools) const override;
    QString choose(PoseTools *tools) override;

    const PoseToolSettings::Orientation m_orientation;
};

class VxLocalOrientationAction : public VxOrientationAction
{
    Q_OBJECT
public:
    VxLocalOrientationAction();
};

class VxParentOrientationAction : public VxOrientationAction
{
    Q_OBJECT
public:
    VxParentOrientationAction();
};

class VxWorldOrientationAction : public VxOrientationAction
{
    Q_OBJECT
public:
    VxWorldOrientationAction();
};

class VxCommonPivotAction : public VxPoseToolAction
{
    Q_OBJECT
public:
    VxCommonPivotAction();

private:
    bool isCurrent(const PoseTools &tools) const override;
    QString choose(PoseTools *tools) override;
};

class VxPinInIkAction : public VxPoseToolAction
{
    Q_OBJECT
public:
    VxPinInIkAction();

private:
    bool isCurrent(const PoseTools &tools) const override;
    QString choose(PoseTools *tools) override;
};

class VxAutoKeyAction : public VxPoseToolAction
{
    Q_OBJECT
public:
    VxAutoKeyAction();

private:
    bool isCurrent(const PoseTools &tools) const override;
    QString choose(PoseTools *tools) override;
};

#endif
