#ifndef VXANIMATIONACTION_H
#define VXANIMATIONACTION_H

#include <functional>
#include <vxcore/vxaction.h>

class VxTimePane;

/// Base of every command of the time pane.
///
/// The commands are thin: each one finds the pane and calls one of its slots. This class has their
/// common parts, the menu position and the look-up of the pane. A command without a pane does
/// nothing except for a warning with its own class and method.
class VxAnimationAction : public VxAction
{
    Q_OBJECT
public:
    /// Registers the action with the pane, which enables and checks registered actions. The warning
    /// names the class that the action is derived from.
    void init() override;

    QString getDefaultAccel() const override;
    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;
    int getMenuOrder() const override;
    QString getMenuFolder() const override;

    /// The one time pane of the main window's pane manager, or null. Cached during its lifetime.
    static VxTimePane *findTimePane();

protected:
    using Command = std::function<void(VxTimePane *)>;

    /// command: called with the pane; none for a class that overrides executeAction() or
    /// toggleAction(). shortcut: the default one, if any.
    VxAnimationAction(const QString &text, const QString &description, Command command = nullptr,
                      const char *shortcut = "");

    void executeAction() override;

    /// The pane, or null after a warning that names a class and its method.
    static VxTimePane *requireTimePane(const QMetaObject *caller, const char *method);
    /// The same for an init(): also registers the action with the pane.
    VxTimePane *requireTimePaneForInit(const QMetaObject *caller);

private:
    Command m_command;
    QString m_shortcut;
};

#endif
