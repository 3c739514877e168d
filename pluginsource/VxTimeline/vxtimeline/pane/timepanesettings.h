#ifndef TIMEPANESETTINGS_H
#define TIMEPANESETTINGS_H

class VxActionMenu;
class VxSettings;
class VxTimePane;

/// The pane's stored settings, and its options menu.
namespace TimePaneSettings {

void restore(VxTimePane *pane, const VxSettings *settings);
void save(const VxTimePane *pane, VxSettings *settings);

constexpr int OptionsMenuVersion = 10;
/// Existing entries and sub-menus are not added again. Null is ignored.
void buildOptionsMenu(VxActionMenu *menu);

} // namespace TimePaneSettings

#endif
