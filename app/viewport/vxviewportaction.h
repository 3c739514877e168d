#ifndef VXVIEWPORTACTION_H
#define VXVIEWPORTACTION_H

#include "widgets/vxstudioaction.h"

#include <functional>

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
    using Command = std::function<void(ViewportWidget *view)>;

    /// menu, accel, group, folder: see VxStudioAction. Without a command the action is checkable,
    /// and its effect is toggleAction().
    VxViewportAction(const char *menu, const QString &text, const QString &description,
                     const char *accel, const char *group, const char *folder = "",
                     const Command &command = {});
    void executeAction() override;

private:
    const Command m_command;
};

#endif
