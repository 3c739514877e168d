#ifndef DOPESHEETCONTEXTMENU_H
#define DOPESHEETCONTEXTMENU_H

class VxMenu;

/// The state that determines the entries of the dope sheet's context menu.
struct DopeSheetMenuState
{
    bool hasRows = false;         // any, at the top level
    bool hasRowSelection = false; // any row is selected
    bool hasContextItem = false;  // the menu is opened on a row
    bool hasSelectedKeys = false; // any key is selected
};

/// Fills an empty menu with the applicable actions, in their order. Classes without an action are
/// left out; when none is left, an entry reports that nothing is selected.
void fillDopeSheetMenu(VxMenu *menu, const DopeSheetMenuState &state);

#endif
