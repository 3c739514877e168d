#include "vxtimelineactions/vxtimepanepropertytypeactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxTimePaneSetPropertyTypeAction::VxTimePaneSetPropertyTypeAction(const QString &text,
                                                                 const QString &description)
    : VxAnimationAction(text, description, true)
{
}

VxTimePaneSetPropertyTypeAction::~VxTimePaneSetPropertyTypeAction() = default;

void VxTimePaneSetPropertyTypeAction::init()
{
    if (VxTimePane *pane = requireTimePaneForInit(VX_HERE))
        setChecked(pane->getFilteredPropertyTypes().testFlag(
            static_cast<VxTimePane::PropertyType>(value())));
}

QString VxTimePaneSetPropertyTypeAction::getActionGroup() const
{
    return QStringLiteral("/Preferences/Property Types");
}

TimePaneChoice::Family VxTimePaneSetPropertyTypeAction::family() const
{
    return PropertyTypeFamily;
}

void VxTimePaneSetPropertyTypeAction::toggleAction(bool onOff)
{
    VxTimePane *pane = requireTimePane(VX_HERE);
    if (!pane)
        return;
    const int types = static_cast<int>(pane->getFilteredPropertyTypes());
    const int changed = onOff ? types | value() : types & ~value();
    pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(changed));
}

VxTimePaneSetPropertyTypeTranslationAction::VxTimePaneSetPropertyTypeTranslationAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Translation (T)"),
          tr("Sets the visible property types for the Timeline pane to include "
             "\"Translation\" properties."))
{
    completeConstruction();
}

int VxTimePaneSetPropertyTypeTranslationAction::value() const
{
    return VxTimePane::PropTranslate;
}

VxTimePaneSetPropertyTypeRotationAction::VxTimePaneSetPropertyTypeRotationAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Rotation (R)"),
          tr("Sets the visible property types for the Timeline pane to include \"Rotation\" "
             "properties."))
{
    completeConstruction();
}

int VxTimePaneSetPropertyTypeRotationAction::value() const
{
    return VxTimePane::PropRotate;
}

VxTimePaneSetPropertyTypeScaleAction::VxTimePaneSetPropertyTypeScaleAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Scale (S)"),
          tr("Sets the visible property types for the Timeline pane to include \"Scale\" "
             "properties."))
{
    completeConstruction();
}

int VxTimePaneSetPropertyTypeScaleAction::value() const
{
    return VxTimePane::PropScale;
}

VxTimePaneSetPropertyTypeOtherAction::VxTimePaneSetPropertyTypeOtherAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Other (O)"),
          tr("Sets the visible property types for the Timeline pane to include \"Other\" "
             "properties."))
{
    completeConstruction();
}

int VxTimePaneSetPropertyTypeOtherAction::value() const
{
    return VxTimePane::PropOther;
}

VxTimePaneSetPropertyTypeAliasAction::VxTimePaneSetPropertyTypeAliasAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Alias (A)"),
          tr("Sets the visible property types for the Timeline pane to include \"Alias\" "
             "properties."))
{
    completeConstruction();
}

int VxTimePaneSetPropertyTypeAliasAction::value() const
{
    return VxTimePane::PropAlias;
}

VxTimePaneSetPropertyTypeHiddenAction::VxTimePaneSetPropertyTypeHiddenAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Hidden (H)"),
          tr("Sets the visible property types for the Timeline pane to include \"Hidden\" "
             "properties."))
{
    completeConstruction();
}

int VxTimePaneSetPropertyTypeHiddenAction::value() const
{
    return VxTimePane::PropHidden;
}
