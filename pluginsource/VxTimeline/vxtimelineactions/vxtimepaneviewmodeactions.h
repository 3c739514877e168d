#ifndef VXTIMEPANEVIEWMODEACTIONS_H
#define VXTIMEPANEVIEWMODEACTIONS_H

#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimelineactions/vxanimationaction.h"

// Base of the choice of the view mode.
class VxTimePaneViewModeAction : public VxAnimationAction, public TimePaneChoice
{
    Q_OBJECT
public:
    ~VxTimePaneViewModeAction() override;

    void init() override;
    QString getActionGroup() const override;
    Family family() const override;

protected:
    VxTimePaneViewModeAction(const QString &text, const QString &description);
    void executeAction() override;
    bool isToggle() const override;
};

class VxTimePaneBasicViewAction : public VxTimePaneViewModeAction
{
    Q_OBJECT
public:
    VxTimePaneBasicViewAction();
    int value() const override;
};

class VxTimePaneIntermediateViewAction : public VxTimePaneViewModeAction
{
    Q_OBJECT
public:
    VxTimePaneIntermediateViewAction();
    int value() const override;
};

class VxTimePaneAdvancedViewAction : public VxTimePaneViewModeAction
{
    Q_OBJECT
public:
    VxTimePaneAdvancedViewAction();
    int value() const override;
};

#endif
