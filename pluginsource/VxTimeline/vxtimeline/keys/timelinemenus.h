#ifndef TIMELINEMENUS_H
#define TIMELINEMENUS_H

#include <initializer_list>

class VxActionMenu;
class VxMenu;

/// Filling menus with actions by class name.
namespace TimelineMenus {

using ClassNames = std::initializer_list<const char *>;

constexpr const char *Line = nullptr; // a separator in a list of class names

/// What several menus have in common.
inline constexpr ClassNames propertyTypes = {
    "VxTimePaneSetPropertyTypeTranslationAction", "VxTimePaneSetPropertyTypeRotationAction",
    "VxTimePaneSetPropertyTypeScaleAction",       Line,
    "VxTimePaneSetPropertyTypeOtherAction",       Line,
    "VxTimePaneSetPropertyTypeAliasAction",       "VxTimePaneSetPropertyTypeHiddenAction"};
inline constexpr ClassNames keyScopes = {
    "VxTimePaneSetKeyScopeObjectAction", "VxTimePaneSetKeyScopeNodeRecurseAction",
    "VxTimePaneSetKeyScopeNodeAction", Line, "VxTimePaneSetKeyScopePropertiesAction"};
inline constexpr ClassNames interpolations = {"VxTimePaneSetInterpTcbAction",
                                              "VxTimePaneSetInterpLinearAction",
                                              "VxTimePaneSetInterpConstantAction"};

void add(VxMenu *menu, ClassNames classNames);
void add(VxActionMenu *menu, ClassNames classNames);

} // namespace TimelineMenus

#endif
