#ifndef VXACTION_H
#define VXACTION_H

#include <QtWidgets/QAction>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxsignalguard.h>

/// A command of the application, triggered by menus, tool bars, shortcuts and scripts: one object a
/// class, created by the action manager.
///
/// A plain action overrides executeAction(), a checkable one toggleAction(bool); QAction's own
/// triggered(bool) calls the right one. A class that is checkable but exclusive by value (a choice
/// among several) overrides executeAction() and returns false from isToggle(). The check mark has
/// changed before executeAction() is called: a choice that is triggered again arrives unchecked and
/// must check itself.
///
/// The object name is the class name. It is set when the action is added to the action manager, or
/// at the first init() or updateInlineHelp(): a base class's constructor cannot read the class
/// name.
class VXCORE_EXPORT VxAction : public VxSignalGuard<QAction>
{
    Q_OBJECT
    Q_PROPERTY(QString description READ getDescription)
    Q_PROPERTY(QString defaultMenuPath READ getDefaultMenuPath)
    Q_PROPERTY(QString actionGroup READ getActionGroup)
    Q_PROPERTY(QString defaultAccel READ getDefaultAccel)
public:
    /// text: shown in menus; "&&" for "&". description: one or two sentences for status line and
    /// help.
    explicit VxAction(const QString &text, const QString &description = QString(),
                      bool checkable = false);
    ~VxAction() override;

    QString getDescription() const;
    void setDescription(const QString &description);

    /// Called by the action manager after creation and again whenever a pane is created: reads the
    /// state of the action's target. The base only sets the object name.
    virtual void init();

    /// Updates status tip, what's-this text and tool tip from text, description and shortcut.
    virtual void updateInlineHelp();

    /// The shortcut the action has unless the user chose another, in portable text form such as
    /// "Ctrl+C"; empty for none.
    virtual QString getDefaultAccel() const;
    /// The tool bar that has the action by default; empty for none.
    virtual QString getDefaultToolBar() const;
    /// The path of the main menu that has the action by default, parts joined with "/", such as
    /// "Animation"; empty for no menu.
    virtual QString getDefaultMenuPath() const;
    /// The group within that menu. "Class::" names a pane; a path of sub-menus starts with "/".
    /// Actions of one group are adjacent; empty for no group of its own.
    virtual QString getActionGroup() const;
    /// The sort key among entries added to a menu together: lower ones first, equal ones in the
    /// order of the actions. Within a group a separator divides entries of different hundreds. 0
    /// unless overridden.
    virtual int getMenuOrder() const;
    /// The name of a sub-menu that holds the action together with those of the same name and
    /// group; empty (unless overridden) for the menu itself. Keeps a long menu short. Shown like a
    /// part of the menu path.
    virtual QString getMenuFolder() const;

    /// True for an action on the clipboard of the focused pane: it checks before it claims a key
    /// press of a text field. False unless overridden.
    virtual bool isClipboardAction() const;

protected:
    /// The effect of an action that is not a toggle. The base does nothing.
    virtual void executeAction();
    /// The effect of a toggle, after the check mark has changed to onOff. The base calls
    /// executeAction().
    virtual void toggleAction(bool onOff);
    /// True when a trigger calls toggleAction(); the base returns isCheckable().
    virtual bool isToggle() const;

private:
    void handleTriggered(bool onOff);
    void applyName();
    void applyHelp();

    class Private;
    std::unique_ptr<Private> d;
};

#endif
