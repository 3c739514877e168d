#ifndef VXANIMATIONACTION_H
#define VXANIMATIONACTION_H

#include <vxcore/vxaction.h>

class VxTimePane;
struct VxSourcePosition;

// Base of every command of the time pane.
//
// The commands are thin: each one finds the pane and calls one of its slots. This class has their
// common parts, the menu position and the look-up of the pane. A command without a pane does
// nothing except for a warning with its own class and method.
class VxAnimationAction : public VxAction
{
    Q_OBJECT
public:
    ~VxAnimationAction() override;

    // Registers the action with the pane, which enables and checks registered actions.
    void init() override;

    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;
    int getMenuOrder() const override;
    QString getMenuFolder() const override;

    // The one time pane of the main window's pane manager, or null. Cached during its lifetime.
    static VxTimePane *findTimePane();

protected:
    VxAnimationAction(const QString &text, const QString &description, bool checkable = false);

    // Call it at the end of the constructor of each class that can be created: sets the class name
    // as the object's name and updates the help texts. Only there is the class name available.
    void completeConstruction();

    // The pane, or null after a warning that names the caller: give VX_HERE as position.
    static VxTimePane *requireTimePane(const VxSourcePosition &position);
    // The same for an init(): also registers the action with the pane.
    VxTimePane *requireTimePaneForInit(const VxSourcePosition &position);
};

#endif
