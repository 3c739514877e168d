#include "keytools/keysmenuaction.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpanemgr.h>

KeysMenuAction::KeysMenuAction(const QString &text, const QString &description, const char *folder,
                               const char *shortcut)
    : VxAction(text, description)
    , m_folder(folder)
    , m_shortcut(shortcut)
{
}

QString KeysMenuAction::getDefaultAccel() const
{
    return QString::fromLatin1(m_shortcut);
}

QString KeysMenuAction::getDefaultMenuPath() const
{
    return QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Keys"));
}

QString KeysMenuAction::getActionGroup() const
{
    return QStringLiteral("VxKeyToolsPane::");
}

QString KeysMenuAction::getMenuFolder() const
{
    return QString::fromLatin1(m_folder);
}

VxPane *KeysMenuAction::showPane(const QString &className)
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    VxPane *pane = window ? window->getPaneMgr()->findOrCreatePane(className) : nullptr;
    if (pane)
        window->getPaneMgr()->showPane(pane);
    return pane;
}
