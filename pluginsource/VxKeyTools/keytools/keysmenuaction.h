#ifndef KEYSMENUACTION_H
#define KEYSMENUACTION_H

#include <vxcore/vxaction.h>

class VxPane;

/// Base of the actions in the menu "Keys".
class KeysMenuAction : public VxAction
{
    Q_OBJECT
public:
    QString getDefaultAccel() const override;
    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;
    QString getMenuFolder() const override;

protected:
    /// `folder`: the sub-menu, marked for translation, empty for none; `shortcut`: the default one.
    /// Both are string literals.
    KeysMenuAction(const QString &text, const QString &description, const char *folder = "",
                   const char *shortcut = "");
    /// Shows the pane of a class, made if it does not exist; null without a main window.
    static VxPane *showPane(const QString &className);

private:
    const char *m_folder;
    const char *m_shortcut;
};

#endif
