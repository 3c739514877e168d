#include "vxtimelineactions/vxtimepanechoiceactions.h"

#include <iterator>

namespace {

// The families in the order of TimePaneChoice::Family.
const struct
{
    const char *menuPath;
    int (*get)(const VxTimePane *pane);
    void (*set)(VxTimePane *pane, int value);
} families[] = {
    {"/Preferences/Controls Position",
     [](const VxTimePane *pane) -> int { return pane->getControlsPosition(); },
     [](VxTimePane *pane, int value) {
         pane->setControlsPosition(static_cast<VxTimePane::ControlsPosition>(value));
     }},
    {"/Preferences/View Mode", [](const VxTimePane *pane) -> int { return pane->getViewMode(); },
     [](VxTimePane *pane, int value) {
         pane->setViewMode(static_cast<VxTimePane::ViewMode>(value));
     }},
    {"/Preferences/Key Creation Scope",
     [](const VxTimePane *pane) -> int { return pane->getFilteredKeyCreationScope(); },
     [](VxTimePane *pane, int value) {
         pane->setFilteredKeyCreationScope(static_cast<VxTimePane::KeyScope>(value));
     }},
    {"/Preferences/Property Types",
     [](const VxTimePane *pane) -> int { return pane->getFilteredPropertyTypes(); },
     [](VxTimePane *pane, int value) {
         pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(value));
     }},
};
static_assert(std::size(families) == TimePaneChoice::PropertyTypeFamily + 1);

} // namespace

TimePaneChoiceAction::TimePaneChoiceAction(const QString &text, const QString &description,
                                           Family family, int value)
    : VxAnimationAction(text, description)
    , m_family(family)
    , m_value(value)
{
    setCheckable(true);
}

void TimePaneChoiceAction::init()
{
    const VxTimePane *pane = requireTimePaneForInit(metaObject()->superClass());
    if (!pane)
        return;
    const int present = families[m_family].get(pane);
    setChecked(isToggle() ? (present & m_value) != 0 : present == m_value);
}

QString TimePaneChoiceAction::getActionGroup() const
{
    return QString::fromLatin1(families[m_family].menuPath);
}

void TimePaneChoiceAction::executeAction()
{
    VxTimePane *pane = requireTimePane(metaObject()->superClass(), "executeAction");
    if (!pane)
        return;
    // A trigger has flipped the check mark already. Repeating the present choice keeps its mark.
    if (families[m_family].get(pane) == m_value && !isChecked())
        setChecked(true);
    else
        families[m_family].set(pane, m_value);
}

void TimePaneChoiceAction::toggleAction(bool onOff)
{
    VxTimePane *pane = requireTimePane(metaObject()->superClass(), "toggleAction");
    if (!pane)
        return;
    const int flags = families[m_family].get(pane);
    families[m_family].set(pane, onOff ? flags | m_value : flags & ~m_value);
}

bool TimePaneChoiceAction::isToggle() const
{
    return m_family == PropertyTypeFamily;
}

VxTimePaneControlsPositionAction::VxTimePaneControlsPositionAction(
    const QString &text, const QString &description, VxTimePane::ControlsPosition value)
    : TimePaneChoiceAction(text, description, ControlsPositionFamily, value)
{
}

VxTimePaneControlsBottomAction::VxTimePaneControlsBottomAction()
    : VxTimePaneControlsPositionAction(
          tr("Controls Bottom"),
          tr("Sets the controls of the Timeline pane to be below the dopesheet/keygraph."),
          VxTimePane::ControlsBottom)
{
}

VxTimePaneControlsTopAction::VxTimePaneControlsTopAction()
    : VxTimePaneControlsPositionAction(
          tr("Controls Top"),
          tr("Sets the controls of the Timeline pane to be above the dopesheet/keygraph."),
          VxTimePane::ControlsTop)
{
}

VxTimePaneViewModeAction::VxTimePaneViewModeAction(const QString &text, const QString &description,
                                                   VxTimePane::ViewMode value)
    : TimePaneChoiceAction(text, description, ViewModeFamily, value)
{
}

VxTimePaneBasicViewAction::VxTimePaneBasicViewAction()
    : VxTimePaneViewModeAction(tr("Basic View"),
                               tr("Sets the view of the Timeline pane to \"Basic\" mode."),
                               VxTimePane::BasicView)
{
}

VxTimePaneIntermediateViewAction::VxTimePaneIntermediateViewAction()
    : VxTimePaneViewModeAction(tr("Intermediate View"),
                               tr("Sets the view of the Timeline pane to \"Intermediate\" mode."),
                               VxTimePane::IntermediateView)
{
}

VxTimePaneAdvancedViewAction::VxTimePaneAdvancedViewAction()
    : VxTimePaneViewModeAction(tr("Advanced View"),
                               tr("Sets the view of the Timeline pane to \"Advanced\" mode."),
                               VxTimePane::AdvancedView)
{
}

VxTimePaneSetKeyScopeAction::VxTimePaneSetKeyScopeAction(const QString &text,
                                                         const QString &description,
                                                         VxTimePane::KeyScope value)
    : TimePaneChoiceAction(text, description, KeyScopeFamily, value)
{
}

VxTimePaneSetKeyScopeObjectAction::VxTimePaneSetKeyScopeObjectAction()
    : VxTimePaneSetKeyScopeAction(
          tr("Object"), tr("Sets the key creation scope for the Timeline pane to \"Object\"."),
          VxTimePane::ScopeObject)
{
}

VxTimePaneSetKeyScopeNodeRecurseAction::VxTimePaneSetKeyScopeNodeRecurseAction()
    : VxTimePaneSetKeyScopeAction(
          tr("Node Recurse"),
          tr("Sets the key creation scope for the Timeline pane to \"Node Recurse\"."),
          VxTimePane::ScopeNodeRecurse)
{
}

VxTimePaneSetKeyScopeNodeAction::VxTimePaneSetKeyScopeNodeAction()
    : VxTimePaneSetKeyScopeAction(
          tr("Node"), tr("Sets the key creation scope for the Timeline pane to \"Node\"."),
          VxTimePane::ScopeNode)
{
}

VxTimePaneSetKeyScopePropertiesAction::VxTimePaneSetKeyScopePropertiesAction()
    : VxTimePaneSetKeyScopeAction(
          tr("Properties"),
          tr("Sets the key creation scope for the Timeline pane to \"Properties\"."),
          VxTimePane::ScopeProperties)
{
}

VxTimePaneSetPropertyTypeAction::VxTimePaneSetPropertyTypeAction(const QString &text,
                                                                 const QString &description,
                                                                 VxTimePane::PropertyType value)
    : TimePaneChoiceAction(text, description, PropertyTypeFamily, value)
{
}

VxTimePaneSetPropertyTypeTranslationAction::VxTimePaneSetPropertyTypeTranslationAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Translation (T)"),
          tr("Sets the visible property types for the Timeline pane to include "
             "\"Translation\" properties."),
          VxTimePane::PropTranslate)
{
}

VxTimePaneSetPropertyTypeRotationAction::VxTimePaneSetPropertyTypeRotationAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Rotation (R)"),
          tr("Sets the visible property types for the Timeline pane to include \"Rotation\" "
             "properties."),
          VxTimePane::PropRotate)
{
}

VxTimePaneSetPropertyTypeScaleAction::VxTimePaneSetPropertyTypeScaleAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Scale (S)"),
          tr("Sets the visible property types for the Timeline pane to include \"Scale\" "
             "properties."),
          VxTimePane::PropScale)
{
}

VxTimePaneSetPropertyTypeOtherAction::VxTimePaneSetPropertyTypeOtherAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Other (O)"),
          tr("Sets the visible property types for the Timeline pane to include \"Other\" "
             "properties."),
          VxTimePane::PropOther)
{
}

VxTimePaneSetPropertyTypeAliasAction::VxTimePaneSetPropertyTypeAliasAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Alias (A)"),
          tr("Sets the visible property types for the Timeline pane to include \"Alias\" "
             "properties."),
          VxTimePane::PropAlias)
{
}

VxTimePaneSetPropertyTypeHiddenAction::VxTimePaneSetPropertyTypeHiddenAction()
    : VxTimePaneSetPropertyTypeAction(
          tr("Hidden (H)"),
          tr("Sets the visible property types for the Timeline pane to include \"Hidden\" "
             "properties."),
          VxTimePane::PropHidden)
{
}
