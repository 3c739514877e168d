#include "keytools/keytoolactions.h"

#include "keytools/keytool.h"
#include "keytools/vxkeytoolspane.h"

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
    VxPane *pane =
        m_tool.parameters.isEmpty() ? nullptr : showPane(QStringLiteral("VxKeyToolsPane"));
    if (auto *tools = qobject_cast<VxKeyToolsPane *>(pane))
        tools->setTool(m_tool.name);
    else
        m_tool.runWith({});
}
