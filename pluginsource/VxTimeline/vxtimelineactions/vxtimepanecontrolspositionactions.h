#ifndef VXTIMEPANECONTROLSPOSITIONACTIONS_H
#define VXTIMEPANECONTROLSPOSITIONACTIONS_H

#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimelineactions/vxanimationaction.h"

// Base of the choice of the position of the strip of controls.
class VxTimePaneControlsPositionAction : public VxAnimationAction, public TimePaneChoice
{
    Q_OBJECT
public:
    ~VxTimePaneControlsPositionAction() override;

    void init() override;
    QString getActionGroup() const override;
    Family family() const override;

protected:
    VxTimePaneControlsPositionAction(const QString &text, const QString &description);
    void executeAction() override;
    bool isToggle() const override;
};

class VxTimePaneControlsBottomAction : public VxTimePaneControlsPositionAction
{
    Q_OBJECT
public:
    VxTimePaneControlsBottomAction();
    int value() const override;
};

class VxTimePaneControlsTopAction : public VxTimePaneControlsPositionAction
{
    Q_OBJECT
public:
    VxTimePaneControlsTopAction();
    int value() const override;
};

#endif
