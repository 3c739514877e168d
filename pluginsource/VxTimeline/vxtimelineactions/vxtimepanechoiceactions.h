#ifndef VXTIMEPANECHOICEACTIONS_H
#define VXTIMEPANECHOICEACTIONS_H

#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimelineactions/vxanimationaction.h"

// The actions that choose a value of a family of the pane's choices.

/// Base of all of them. Property types are flags, each toggled separately; the other families are
/// exclusive.
class TimePaneChoiceAction : public VxAnimationAction, public TimePaneChoice
{
public:
    void init() override;
    QString getActionGroup() const override;
    Family family() const override { return m_family; }
    int value() const override { return m_value; }

protected:
    TimePaneChoiceAction(const QString &text, const QString &description, Family family, int value);
    void executeAction() override;
    void toggleAction(bool onOff) override;
    bool isToggle() const override;

private:
    const Family m_family;
    const int m_value;
};

/// The position of the strip of controls.
class VxTimePaneControlsPositionAction : public TimePaneChoiceAction
{
    Q_OBJECT
protected:
    VxTimePaneControlsPositionAction(const QString &text, const QString &description,
                                     VxTimePane::ControlsPosition value);
};

class VxTimePaneControlsBottomAction : public VxTimePaneControlsPositionAction
{
    Q_OBJECT
public:
    VxTimePaneControlsBottomAction();
};

class VxTimePaneControlsTopAction : public VxTimePaneControlsPositionAction
{
    Q_OBJECT
public:
    VxTimePaneControlsTopAction();
};

/// The view mode.
class VxTimePaneViewModeAction : public TimePaneChoiceAction
{
    Q_OBJECT
protected:
    VxTimePaneViewModeAction(const QString &text, const QString &description,
                             VxTimePane::ViewMode value);
};

class VxTimePaneBasicViewAction : public VxTimePaneViewModeAction
{
    Q_OBJECT
public:
    VxTimePaneBasicViewAction();
};

class VxTimePaneIntermediateViewAction : public VxTimePaneViewModeAction
{
    Q_OBJECT
public:
    VxTimePaneIntermediateViewAction();
};

class VxTimePaneAdvancedViewAction : public VxTimePaneViewModeAction
{
    Q_OBJECT
public:
    VxTimePaneAdvancedViewAction();
};

/// The nodes or properties that get keys. The pane reads the scope from the check marks, which a
/// trigger has already changed by then.
class VxTimePaneSetKeyScopeAction : public TimePaneChoiceAction
{
    Q_OBJECT
protected:
    VxTimePaneSetKeyScopeAction(const QString &text, const QString &description,
                                VxTimePane::KeyScope value);
};

class VxTimePaneSetKeyScopeObjectAction : public VxTimePaneSetKeyScopeAction
{
    Q_OBJECT
public:
    VxTimePaneSetKeyScopeObjectAction();
};

class VxTimePaneSetKeyScopeNodeRecurseAction : public VxTimePaneSetKeyScopeAction
{
    Q_OBJECT
public:
    VxTimePaneSetKeyScopeNodeRecurseAction();
};

class VxTimePaneSetKeyScopeNodeAction : public VxTimePaneSetKeyScopeAction
{
    Q_OBJECT
public:
    VxTimePaneSetKeyScopeNodeAction();
};

class VxTimePaneSetKeyScopePropertiesAction : public VxTimePaneSetKeyScopeAction
{
    Q_OBJECT
public:
    VxTimePaneSetKeyScopePropertiesAction();
};

/// The kinds of properties in the dope sheet; each is toggled separately.
class VxTimePaneSetPropertyTypeAction : public TimePaneChoiceAction
{
    Q_OBJECT
protected:
    VxTimePaneSetPropertyTypeAction(const QString &text, const QString &description,
                                    VxTimePane::PropertyType value);
};

class VxTimePaneSetPropertyTypeTranslationAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeTranslationAction();
};

class VxTimePaneSetPropertyTypeRotationAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeRotationAction();
};

class VxTimePaneSetPropertyTypeScaleAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeScaleAction();
};

class VxTimePaneSetPropertyTypeOtherAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeOtherAction();
};

class VxTimePaneSetPropertyTypeAliasAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeAliasAction();
};

class VxTimePaneSetPropertyTypeHiddenAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeHiddenAction();
};

#endif
