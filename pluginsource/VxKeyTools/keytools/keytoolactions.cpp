#include "keytools/keytoolactions.h"

#include "keytools/keytool.h"
#include "keytools/vxkeytoolspane.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>

KeyToolAction::KeyToolAction(const char *tool)
    : KeyToolAction(*KeyTool::find(QString::fromLatin1(tool)))
{
}

KeyToolAction::KeyToolAction(const KeyTool &tool)
    : KeysMenuAction(tool.parameters.isEmpty() ? tool.label : tool.label + QStringLiteral("..."),
                     tool.description, tool.folder)
    , m_tool(tool)
{
}

int KeyToolAction::getMenuOrder() const
{
    return int(&m_tool - KeyTool::all().constData());
}

void KeyToolAction::executeAction()
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    auto *pane = window && !m_tool.parameters.isEmpty()
                     ? qobject_cast<VxKeyToolsPane *>(
                           window->getPaneMgr()->findOrCreatePane(QStringLiteral("VxKeyToolsPane")))
                     : nullptr;
    if (!pane) {
        m_tool.runWith({});
        return;
    }
    window->getPaneMgr()->showPane(pane);
    pane->setTool(m_tool.name);
}
