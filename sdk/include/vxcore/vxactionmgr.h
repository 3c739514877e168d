#ifndef VXACTIONMGR_H
#define VXACTIONMGR_H

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class QAction;
class QKeySequence;
class QMenuBar;
class VxAction;
class VxPluginMgr;
class VxSettings;

/// Owns the one instance of each action class and its shortcut, and manages the shortcuts of the
/// application's own commands too: a key sequence belongs to one of them all.
///
/// A shortcut that is a plain key (an arrow, the space bar, a letter) is left to a focused widget
/// that uses it: text fields keep editing keys, lists and sliders their navigation keys. A view
/// along a time axis sets its property "vxTimeAxis" to true, and leaves Left, Right, Home and End
/// to the shortcuts. Where two actions have the same shortcut (this object manages one of them at
/// most), the one whose widget is nearest to the focus runs.
///
/// Actions are created once for the application, from the factories of every registered class
/// that derives from VxAction. They are found by class name; menus refer to them that way, so a
/// menu can name an action that no plug-in provides: it is left out.
class VXCORE_EXPORT VxActionMgr : public QObject
{
    Q_OBJECT
public:
    explicit VxActionMgr(QObject *parent = nullptr);
    ~VxActionMgr() override;

    /// Creates an instance of every action class among the factories that has none yet, in the
    /// order of the factories. Does not call init().
    void createActions(const VxPluginMgr *plugins);

    /// Takes ownership of an action made elsewhere, under its class name, and gives it its default
    /// shortcut, unless an earlier action has that (with a warning). False (and the action stays
    /// the caller's) when the class has an instance already.
    bool addAction(VxAction *action);

    /// Gives a command that is no VxAction, such as an entry of the application's own menus, a
    /// shortcut that the user can change. The name is persistent, so it must never change. Its
    /// current shortcut becomes the default, unless an earlier one has that (with a warning). The
    /// command stays its owner's. False, and nothing happens, for null, an empty name, and a name
    /// or command that was added before.
    bool addCommand(const QString &name, QAction *command);

    /// Calls init() on every action, in order.
    void initActions();

    /// The action of a class, or null when there is none.
    VxAction *findAction(const QString &className) const;
    /// All actions, in the order in which they were added.
    QVector<VxAction *> getActions() const;

    /// The action of a class or the command of a name; null when there is neither.
    QAction *findCommand(const QString &name) const;
    /// The name under which an action or a command has its shortcut; empty for any other.
    QString getCommandName(const QAction *command) const;

    // Below, `className` can also be the name of a command.

    /// The shortcut in force; empty for none or for an unknown class.
    QKeySequence getShortcut(const QString &className) const;
    /// The shortcut that the command was registered with; empty for none, for an unknown class and
    /// for one that an earlier action had already.
    QKeySequence getDefaultShortcut(const QString &className) const;
    /// Sets the user's shortcut for an action; an empty one removes it. False for an unknown class.
    /// Another action with that shortcut loses it.
    bool setShortcut(const QString &className, const QKeySequence &shortcut);
    /// The class name of the action that has a shortcut, or an empty string.
    QString findShortcut(const QKeySequence &shortcut) const;

    /// Stores, by class name, only the shortcuts that differ from the defaults; an empty text is a
    /// removed one. Entries of classes that are not registered stay.
    void saveShortcuts(VxSettings *settings) const;
    /// Sets the stored shortcuts and resets all others to their defaults. A default that equals a
    /// stored shortcut is not set, but a command (see addCommand()) without a stored shortcut keeps
    /// its default. Returns, sorted, the class names that lost their stored shortcut to such a
    /// command or to an earlier action with the same one.
    QStringList restoreShortcuts(const VxSettings *settings);

    /// Fills a menu bar with every action that has a menu path: menus by getDefaultMenuPath(),
    /// sub-menus by the part of getActionGroup() after a "/" and by getMenuFolder(), separators
    /// between groups. Existing menus (by title) are extended.
    void populateMenuBar(QMenuBar *menuBar) const;

Q_SIGNALS:
    void actionAdded(VxAction *action);
    void shortcutChanged(const QString &className);

private:
    void applyShortcuts(const QStringList &classNames);

    class Private;
    std::unique_ptr<Private> d;
};

#endif
