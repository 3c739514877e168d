#ifndef VXPOSETOOLACTIONS_H
#define VXPOSETOOLACTIONS_H

#include "posetools/posetools.h"
#include "posetools/posetoolsettings.h"
#include "viewport/vxviewportaction.h"

#include <functional>

/// Base of the actions that choose among the viewport's tools or orientations: the check mark shows
/// the current one.
class VxPoseToolAction : public VxViewportAction
{
    Q_OBJECT
public:
    void init() override;

protected:
    using Question = std::function<bool(const PoseTools &)>;
    /// Returns the text for the status line; empty when there is nothing to report.
    using Choice = std::function<QString(PoseTools *)>;

    VxPoseToolAction(const QString &text, const QString &description, const char *accel,
                     const char *folder, const Question &isCurrent, const Choice &choose);
    void executeAction() override;
    bool isToggle() const override { return false; }

private:
    const Question m_isCurrent;
    const Choice m_choose;
    bool m_isConnected = false;
};

/// Base of the actions of the tools.
class VxToolAction : public VxPoseToolAction
{
    Q_OBJECT
protected:
    VxToolAction(PoseTools::Tool tool, const QString &description, const char *accel);
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
};

class VxPinInIkAction : public VxPoseToolAction
{
    Q_OBJECT
public:
    VxPinInIkAction();
};

class VxAutoKeyAction : public VxPoseToolAction
{
    Q_OBJECT
public:
    VxAutoKeyAction();
};

#endif
