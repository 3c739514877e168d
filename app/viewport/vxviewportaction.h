#ifndef VXVIEWPORTACTION_H
#define VXVIEWPORTACTION_H

#include <vxcore/vxaction.h>

class ViewportWidget;

/// Base of the commands of the viewport. A shortcut without Ctrl or Alt acts only while the
/// viewport has the focus, or the mouse is over it (see ViewportKeys); menus and scripts work
/// anywhere.
class VxViewportAction : public VxAction
{
    Q_OBJECT
public:
    ~VxViewportAction() override;

    /// Makes the shortcut one of the viewport.
    void init() override;
    QString getDefaultAccel() const override;
    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;
    QString getMenuFolder() const override;

protected:
    /// menu: the title of the menu; accel: a key sequence as text; group: entries of one group are
    /// listed together; folder: the title of a sub-menu, or empty. All four must outlive the
    /// action.
    VxViewportAction(const char *menu, const QString &text, const QString &description,
                     const char *accel, const char *group, const char *folder = "",
                     bool checkable = false);
    void executeAction() override;

    /// The viewport of the program's window; null without one.
    static ViewportWidget *viewport();

private:
    virtual void perform(ViewportWidget *view) = 0;

    const char *const m_menu;
    const char *const m_accel;
    const char *const m_group;
    const char *const m_folder;
};

#endif
