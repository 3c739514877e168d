#ifndef VXTIMEPANEKEYSCOPEACTIONS_H
#define VXTIMEPANEKEYSCOPEACTIONS_H

#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimelineactions/vxanimationaction.h"

// Base of the choice of nodes or properties that get keys. The pane reads the scope from the check
// marks, which a trigger has already changed by then.
class VxTimePaneSetKeyScopeAction : public VxAnimationAction, public TimePaneChoice
{
    Q_OBJECT
public:
    ~VxTimePaneSetKeyScopeAction() override;

    void init() override;
    QString getActionGroup() const override;
    Family family() const override;

protected:
    VxTimePaneSetKeyScopeAction(const QString &text, const QString &description);
    void executeAction() override;
    bool isToggle() const override;
};

class VxTimePaneSetKeyScopeObjectAction : public VxTimePaneSetKeyScopeAction
{
    Q_OBJECT
public:
    VxTimePaneSetKeyScopeObjectAction();
    int value() const override;
};

class VxTimePaneSetKeyScopeNodeRecurseAction : public VxTimePaneSetKeyScopeAction
{
    Q_OBJECT
public:
    VxTimePaneSetKeyScopeNodeRecurseAction();
    int value() const override;
};

class VxTimePaneSetKeyScopeNodeAction : public VxTimePaneSetKeyScopeAction
{
    Q_OBJECT
public:
    VxTimePaneSetKeyScopeNodeAction();
    int value() const override;
};

class VxTimePaneSetKeyScopePropertiesAction : public VxTimePaneSetKeyScopeAction
{
    Q_OBJECT
public:
    VxTimePaneSetKeyScopePropertiesAction();
    int value() const override;
};

#endif
