#ifndef VXSTUDIOACTION_H
#define VXSTUDIOACTION_H

#include <vxcore/vxaction.h>

/// Base of the program's own commands: their place in the menus and their shortcut.
class VxStudioAction : public VxAction
{
    Q_OBJECT
public:
    QString getDefaultAccel() const override { return QLatin1String(m_accel); }
    QString getDefaultMenuPath() const override { return QLatin1String(m_menu); }
    QString getActionGroup() const override { return QLatin1String(m_group); }
    QString getMenuFolder() const override { return QLatin1String(m_folder); }

protected:
    /// menu: the title of the menu; accel: a key sequence as text; group: entries of one group are
    /// listed together; folder: the title of a sub-menu, or empty. All four must outlive the
    /// action.
    VxStudioAction(const char *menu, const QString &text, const QString &description,
                   const char *accel, const char *group, const char *folder = "",
                   bool checkable = false);

private:
    const char *const m_menu;
    const char *const m_accel;
    const char *const m_group;
    const char *const m_folder;
};

#endif
