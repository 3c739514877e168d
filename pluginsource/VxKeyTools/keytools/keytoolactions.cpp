#include "keytools/keytoolactions.h"

#include "keytools/keytool.h"
#include "keytools/vxkeytoolspane.h"

KeyToolAction::KeyToolAction(const KeyTool &tool)
    : KeysMenuAction(tool.parameters.isEmpty() ? tool.label : tool.label + QStringLiteral("..."),
                     tool.description, tool.folder)
    , m_tool(tool)
{
}

const KeyTool &KeyToolAction::toolOf(const QMetaObject &actionClass)
{
    QString name = QString::fromLatin1(actionClass.className());
    name.remove(QStringLiteral("VxKeyTools")).chop(int(qstrlen("Action")));
    return *KeyTool::find(name.at(0).toLower() + name.mid(1));
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
