#ifndef VXVIEWPORTACTION_H
#define VXVIEWPORTACTION_H

#include "widgets/vxstudioaction.h"

class ViewportWidget;

/// Base of the commands of the viewport. A shortcut without Ctrl or Alt acts only while the
/// viewport has the focus, or the mouse is over it (see ViewportKeys); menus and scripts work
/// anywhere.
class VxViewportAction : public VxStudioAction
{
    Q_OBJECT
public:
    /// Makes the shortcut one of the viewport.
    void init() override;

protected:
    /// menu, accel, group, folder: see VxStudioAction.
    VxViewportAction(const char *menu, const QString &text, const QString &description,
                     const char *accel, const char *group, const char *folder = "",
                     bool checkable = false);
    void executeAction() override;

private:
    /// The effect of a command that is not checkable. The base does nothing.
    virtual void perform(ViewportWidget *view);
};

#endif
