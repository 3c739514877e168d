#ifndef VXTIMEPANEOPTIONACTIONS_H
#define VXTIMEPANEOPTIONACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// The on/off options of the pane. Each shows the pane's state: it follows the pane's signal, and
// reverts its mark when the pane refuses.

// Opens or closes the key graph, which the pane does in the advanced view only.
class VxTimePaneKeyGraphToggleAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneKeyGraphToggleAction();
    void init() override;

protected:
    void toggleAction(bool onOff) override;
};

// Whether the view follows the selection in the Parameters pane.
class VxTimePaneMonitorParametersPaneAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneMonitorParametersPaneAction();
    void init() override;

protected:
    void toggleAction(bool onOff) override;
};

// Whether playback shows every frame, however long it takes.
class VxTimePanePlayAllFramesAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePanePlayAllFramesAction();
    void init() override;

protected:
    void toggleAction(bool onOff) override;
};

#endif
