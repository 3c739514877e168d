#ifndef VXTIMEPANEOPTIONACTIONS_H
#define VXTIMEPANEOPTIONACTIONS_H

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimelineactions/vxanimationaction.h"

/// Base of the on/off options of the pane. Each shows the pane's state: it follows the pane's
/// signal, and reverts its mark when the pane refuses.
class TimePaneOptionAction : public VxAnimationAction
{
public:
    void init() override;

protected:
    using Getter = bool (VxTimePane::*)() const;
    using Setter = void (VxTimePane::*)(bool);

    TimePaneOptionAction(const QString &text, const QString &description, Getter get, Setter set,
                         Setter changedSignal);
    void toggleAction(bool onOff) override;

private:
    const Getter m_get;
    const Setter m_set;
    const Setter m_changedSignal;
};

/// Opens or closes the key graph, which the pane does in the advanced view only.
class VxTimePaneKeyGraphToggleAction : public TimePaneOptionAction
{
    Q_OBJECT
public:
    VxTimePaneKeyGraphToggleAction();
};

/// Whether the view follows the selection in the Parameters pane.
class VxTimePaneMonitorParametersPaneAction : public TimePaneOptionAction
{
    Q_OBJECT
public:
    VxTimePaneMonitorParametersPaneAction();
};

/// Whether playback shows every frame, however long it takes.
class VxTimePanePlayAllFramesAction : public TimePaneOptionAction
{
    Q_OBJECT
public:
    VxTimePanePlayAllFramesAction();
};

#endif
