#include "keytools/keycursoraction.h"

#include "keytools/keytooltext.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxkeycursor.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>

VxKeyToolsKeyCursorAction::VxKeyToolsKeyCursorAction()
    : VxAction(
          tr("Key Cursor"),
          tr("Moves among the keys and rows of the timeline with the arrow keys. Space selects, "
             "Escape ends it."))
{
}

QString VxKeyToolsKeyCursorAction::getDefaultAccel() const
{
    return QStringLiteral("Shift+K");
}

QString VxKeyToolsKeyCursorAction::getDefaultMenuPath() const
{
    return QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Keys"));
}

QString VxKeyToolsKeyCursorAction::getActionGroup() const
{
    return QStringLiteral("VxKeyToolsPane::");
}

QString VxKeyToolsKeyCursorAction::getMenuFolder() const
{
    return QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Select"));
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
