#include "vxtimeline/dopesheet/dopesheetcontextmenu.h"

#include "vxtimeline/keys/timelinemenus.h"

#include <QtCore/QCoreApplication>
#include <vxcore/vxmenu.h>

namespace {

using TimelineMenus::add;
using TimelineMenus::Line;

QString text(const char *source)
{
    return QCoreApplication::translate("VxDopeSheetView", source);
}

void addSelection(VxMenu *menu, const DopeSheetMenuState &state)
{
    if (!state.hasRowSelection && !state.hasContextItem)
        return;
    VxMenu *select = menu->addSubMenu(text(QT_TRANSLATE_NOOP("VxDopeSheetView", "Select")));
    VxMenu *deselect = menu->addSubMenu(text(QT_TRANSLATE_NOOP("VxDopeSheetView", "Deselect")));
    if (state.hasRowSelection) {
        add(select,
            {"VxTimePaneSelectItemPlayRangeKeysAction", "VxTimePaneSelectItemAnimRangeKeysAction",
             Line, "VxTimePaneSelectItemCurrentTimeKeysAction"});
        add(deselect, {"VxTimePaneDeselectItemPlayRangeKeysAction",
                       "VxTimePaneDeselectItemAnimRangeKeysAction", Line,
                       "VxTimePaneDeselectItemCurrentTimeKeysAction"});
    }
    if (state.hasContextItem) {
        add(select, {"VxTimePaneSelectAllCurrentTimeKeysAction"});
        add(deselect, {"VxTimePaneDeselectAllCurrentTimeKeysAction"});
    }
    menu->addSeparator();
}

void addPropertyTypes(VxMenu *menu)
{
    add(menu->addSubMenu(text(QT_TRANSLATE_NOOP("VxDopeSheetView", "Property Types"))),
        TimelineMenus::propertyTypes);
    menu->addSeparator();
}

void addKeys(VxMenu *menu, const DopeSheetMenuState &state)
{
    if (state.hasSelectedKeys)
        add(menu, {"VxTimePaneDeleteSelectedKeysAction"});
    if (state.hasRowSelection)
        add(menu, {"VxDeleteKeysAction", Line, "VxTimePaneCreateKeysAction", "VxAddKeysAction"});
    menu->addSeparator();
}

void addScope(VxMenu *menu)
{
    add(menu->addSubMenu(text(QT_TRANSLATE_NOOP("VxDopeSheetView", "Key Creation Scope"))),
        TimelineMenus::keyScopes);
    menu->addSeparator();
}

void addInterpolation(VxMenu *menu)
{
    add(menu->addSubMenu(text(QT_TRANSLATE_NOOP("VxDopeSheetView", "Set Key Interpolation"))),
        TimelineMenus::interpolations);
    menu->addSeparator();
}

void addRootMoves(VxMenu *menu)
{
    add(menu->addSubMenu(text(QT_TRANSLATE_NOOP("VxDopeSheetView", "Move Root Item"))),
        {"VxTimePaneMoveRootNodeToTopAction", "VxTimePaneMoveRootNodeUpAction",
         "VxTimePaneMoveRootNodeDownAction", "VxTimePaneMoveRootNodeToBottomAction"});
    menu->addSeparator();
}

void addExpansion(VxMenu *menu, const DopeSheetMenuState &state)
{
    if (state.hasContextItem) {
        add(menu->addSubMenu(text(QT_TRANSLATE_NOOP("VxDopeSheetView", "Expand"))),
            {"VxTimePaneExpandAllItemsAction", "VxTimePaneExpandItemAction",
             "VxTimePaneExpandFromItemAction", "VxTimePaneExpandKeyedFromItemAction"});
        add(menu->addSubMenu(text(QT_TRANSLATE_NOOP("VxDopeSheetView", "Collapse"))),
            {"VxTimePaneCollapseAllItemsAction", "VxTimePaneCollapseItemAction",
             "VxTimePaneCollapseFromItemAction", "VxTimePaneCollapseNonKeyedFromItemAction"});
    } else if (state.hasRows) {
        add(menu, {"VxTimePaneExpandAllItemsAction", "VxTimePaneCollapseAllItemsAction"});
    }
}

} // namespace

void fillDopeSheetMenu(VxMenu *menu, const DopeSheetMenuState &state)
{
    addSelection(menu, state);
    addPropertyTypes(menu);
    addKeys(menu, state);
    addScope(menu);
    add(menu, {"VxTimePaneCopySelectedKeysAction", "VxTimePanePasteKeysAction", Line});
    if (state.hasSelectedKeys)
        addInterpolation(menu);
    if (state.hasRowSelection)
        addRootMoves(menu);
    addExpansion(menu, state);
    add(menu, {Line, "VxTimePaneRefreshDopesheetAction"});
    if (menu->isEmpty())
        menu->addItem(text(QT_TRANSLATE_NOOP("VxDopeSheetView", "No Selection")));
}
