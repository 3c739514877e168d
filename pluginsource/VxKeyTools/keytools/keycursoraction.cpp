#include "keytools/keycursoraction.h"

#include "keytools/keytooltext.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxkeycursor.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>

VxKeyToolsKeyCursorAction::VxKeyToolsKeyCursorAction()
    : KeysMenuAction(
          tr("Key Cursor"),
          tr("Moves among the keys and rows of the timeline with the arrow keys. Space selects, "
             "Escape ends it."),
          QT_TRANSLATE_NOOP("VxMenuPath", "Select"), "Shift+K")
{
}

void VxKeyToolsKeyCursorAction::executeAction()
{
    VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    if (!window)
        return;
    for (VxPane *pane : window->getPaneMgr()->getPanes()) {
        VxKeyCursor *cursor = VxKeyCursor::of(pane);
        if (!cursor)
            continue;
        if (!pane->isVisible())
            window->getPaneMgr()->showPane(pane);
        cursor->begin();
        return;
    }
    window->showStatusMessage(tr("Key Cursor: no pane shows keys"));
}
