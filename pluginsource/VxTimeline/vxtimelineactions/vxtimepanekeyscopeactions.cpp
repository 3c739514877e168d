#include "vxtimelineactions/vxtimepanekeyscopeactions.h"

#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/vxwarning.h"

VxTimePaneSetKeyScopeAction::VxTimePaneSetKeyScopeAction(const QString &text,
                                                         const QString &description)
    : VxAnimationAction(text, description, true)
{
}

VxTimePaneSetKeyScopeAction::~VxTimePaneSetKeyScopeAction() = default;

void VxTimePaneSetKeyScopeAction::init()
{
    if (VxTimePane *pane = requireTimePaneForInit(VX_HERE))
        setChecked(pane->getFilteredKeyCreationScope() == value());
}

QString VxTimePaneSetKeyScopeAction::getActionGroup() const
{
    return QStringLiteral("/Preferences/Key Creation Scope");
}

TimePaneChoice::Family VxTimePaneSetKeyScopeAction::family() const
{
    return KeyScopeFamily;
}

void VxTimePaneSetKeyScopeAction::executeAction()
{
    VxTimePane *pane = requireTimePane(VX_HERE);
    if (!pane)
        return;
    // A trigger has flipped the check mark already. Repeating the present choice keeps its mark.
    if (pane->getFilteredKeyCreationScope() == value() && !isChecked())
        setChecked(true);
    else
        pane->setFilteredKeyCreationScope(static_cast<VxTimePane::KeyScope>(value()));
}

bool VxTimePaneSetKeyScopeAction::isToggle() const
{
    return false;
}

VxTimePaneSetKeyScopeObjectAction::VxTimePaneSetKeyScopeObjectAction()
    : VxTimePaneSetKeyScopeAction(
          tr("Object"), tr("Sets the key creation scope for the Timeline pane to \"Object\"."))
{
    completeConstruction();
}

int VxTimePaneSetKeyScopeObjectAction::value() const
{
    return VxTimePane::ScopeObject;
}

VxTimePaneSetKeyScopeNodeRecurseAction::VxTimePaneSetKeyScopeNodeRecurseAction()
    : VxTimePaneSetKeyScopeAction(
          tr("Node Recurse"),
          tr("Sets the key creation scope for the Timeline pane to \"Node Recurse\"."))
{
    completeConstruction();
}

int VxTimePaneSetKeyScopeNodeRecurseAction::value() const
{
    return VxTimePane::ScopeNodeRecurse;
}

VxTimePaneSetKeyScopeNodeAction::VxTimePaneSetKeyScopeNodeAction()
    : VxTimePaneSetKeyScopeAction(
          tr("Node"), tr("Sets the key creation scope for the Timeline pane to \"Node\"."))
{
    completeConstruction();
}

int VxTimePaneSetKeyScopeNodeAction::value() const
{
    return VxTimePane::ScopeNode;
}

VxTimePaneSetKeyScopePropertiesAction::VxTimePaneSetKeyScopePropertiesAction()
    : VxTimePaneSetKeyScopeAction(
          tr("Properties"),
          tr("Sets the key creation scope for the Timeline pane to \"Properties\"."))
{
    completeConstruction();
}

int VxTimePaneSetKeyScopePropertiesAction::value() const
{
    return VxTimePane::ScopeProperties;
}
