#ifndef VXANIMATIONACTION_H
#define VXANIMATIONACTION_H

#include <vxcore/vxaction.h>

class VxTimePane;
struct VxSourcePosition;

// Base of every command of the time pane.
//
// The commands are thin: each one finds the pane and calls one of its slots. Here is what they
// share, which is the place in the menus and the way to the pane. A command without a pane to act
// on says so in a warning that names its own class and method, and does nothing.
class VxAnimationAction : public VxAction
{
    Q_OBJECT
public:
    ~VxAnimationAction() override;

    // Registers the action with the pane, which enables and checks the actions that it knows.
    void init() override;

    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;
    int getMenuOrder() const override;
    QString getMenuFolder() const override;

    // The one time pane of the main window's pane manager, or null. A pane once found is kept as
    // long as it lives.
    static VxTimePane *findTimePane();

protected:
    VxAnimationAction(const QString &text, const QString &description, bool checkable = false);

    // To be called at the end of the constructor of each class that can be created: takes the
    // class name as the object's name and renews the help texts. Only there is the class known.
    void completeConstruction();

    // The pane, or null after a warning that names the caller: give VX_HERE as position.
    static VxTimePane *requireTimePane(const VxSourcePosition &position);
    // The same for an init(): also registers the action with the pane.
    VxTimePane *requireTimePaneForInit(const VxSourcePosition &position);
};

#endif
