#ifndef VXCAMERAACTIONS_H
#define VXCAMERAACTIONS_H

#include "viewport/vxviewportaction.h"

class VxFrameAllAction : public VxViewportAction
{
    Q_OBJECT
public:
    VxFrameAllAction();
};

/// Base of the views along an axis of the world, without perspective.
class VxAxisViewAction : public VxViewportAction
{
    Q_OBJECT
protected:
    /// yaw and pitch in degrees, see VxCameraState.
    VxAxisViewAction(const QString &text, const QString &description, const char *accel, float yaw,
                     float pitch);
};

class VxFrontViewAction : public VxAxisViewAction
{
    Q_OBJECT
public:
    VxFrontViewAction();
};

class VxBackViewAction : public VxAxisViewAction
{
    Q_OBJECT
public:
    VxBackViewAction();
};

class VxSideViewAction : public VxAxisViewAction
{
    Q_OBJECT
public:
    VxSideViewAction();
};

class VxOppositeSideViewAction : public VxAxisViewAction
{
    Q_OBJECT
public:
    VxOppositeSideViewAction();
};

class VxTopViewAction : public VxAxisViewAction
{
    Q_OBJECT
public:
    VxTopViewAction();
};

class VxBottomViewAction : public VxAxisViewAction
{
    Q_OBJECT
public:
    VxBottomViewAction();
};

/// Checked while the view has perspective.
class VxPerspectiveAction : public VxViewportAction
{
    Q_OBJECT
public:
    VxPerspectiveAction();
    void init() override;

private:
    void toggleAction(bool onOff) override;
};

/// Checked while the trails are shown.
class VxMotionTrailsAction : public VxViewportAction
{
    Q_OBJECT
public:
    VxMotionTrailsAction();
    void init() override;

private:
    void toggleAction(bool onOff) override;
};

class VxFieldOfViewAction : public VxViewportAction
{
    Q_OBJECT
public:
    VxFieldOfViewAction();
};

#endif
