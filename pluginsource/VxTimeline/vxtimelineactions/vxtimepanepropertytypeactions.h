#ifndef VXTIMEPANEPROPERTYTYPEACTIONS_H
#define VXTIMEPANEPROPERTYTYPEACTIONS_H

#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimelineactions/vxanimationaction.h"

// Base of the flags for the kinds of properties in the dope sheet; each is toggled separately.
class VxTimePaneSetPropertyTypeAction : public VxAnimationAction, public TimePaneChoice
{
    Q_OBJECT
public:
    ~VxTimePaneSetPropertyTypeAction() override;

    void init() override;
    QString getActionGroup() const override;
    Family family() const override;

protected:
    VxTimePaneSetPropertyTypeAction(const QString &text, const QString &description);
    void toggleAction(bool onOff) override;
};

class VxTimePaneSetPropertyTypeTranslationAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeTranslationAction();
    int value() const override;
};

class VxTimePaneSetPropertyTypeRotationAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeRotationAction();
    int value() const override;
};

class VxTimePaneSetPropertyTypeScaleAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeScaleAction();
    int value() const override;
};

class VxTimePaneSetPropertyTypeOtherAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeOtherAction();
    int value() const override;
};

class VxTimePaneSetPropertyTypeAliasAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeAliasAction();
    int value() const override;
};

class VxTimePaneSetPropertyTypeHiddenAction : public VxTimePaneSetPropertyTypeAction
{
    Q_OBJECT
public:
    VxTimePaneSetPropertyTypeHiddenAction();
    int value() const override;
};

#endif
