#ifndef DOPESHEETCONTEXTMENU_H
#define DOPESHEETCONTEXTMENU_H

class VxMenu;

// What the entries of the dope sheet's context menu depend on.
struct DopeSheetMenuState
{
    bool hasRows = false;         // any, at the top level
    bool hasRowSelection = false; // any row is selected
    bool hasContextItem = false;  // the menu is opened on a row
    bool hasSelectedKeys = false; // any key is selected
};

// Fills an empty menu with the actions that apply, in their order. Classes without an action are
// left out; when none is there, an entry says that nothing is selected.
void fillDopeSheetMenu(VxMenu *menu, const DopeSheetMenuState &state);

#endif
