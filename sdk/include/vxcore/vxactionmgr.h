#ifndef VXCORE_VXACTIONMGR_H
#define VXCORE_VXACTIONMGR_H

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

/// Owns the one instance of each action class and its shortcut, and keeps the shortcuts of the
/// application's own commands among them: a key belongs to one of all.
///
/// A shortcut that is a plain key (an arrow, the space bar, a letter) stays with the widget that
/// has the focus where that needs it: text fields keep what edits, lists and sliders what moves in
/// them. A view along a time axis sets its property "vxTimeAxis" to true, and leaves Left, Right,
/// Home and End to the shortcuts. Of two actions with one shortcut, which only actions made
/// elsewhere can be, the one of the widget nearest to the focus runs.
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

    /// Takes over an action made elsewhere, under its class name, and gives it its default
    /// shortcut, unless an earlier action has that (a warning tells). False (and the action is not
    /// taken) when the class has an instance already.
    bool addAction(VxAction *action);

    /// Lets a command that is no VxAction, such as an entry of the application's own menus, have a
    /// shortcut that the user can change, under a name that must not change either. The shortcut it
    /// has now is its default, unless an earlier one has that (a warning tells). The command stays
    /// its owner's. False, and nothing happens, for null, an empty name, and a name or command that
    /// is known already.
    bool addCommand(const QString &name, QAction *command);

    /// Calls init() on every action, in order.
    void initActions();

    /// The action of a class, or null when there is none.
    VxAction *findAction(const QString &className) const;
    int getNumActions() const;
    /// Null when index lies outside 0 .. getNumActions() - 1.
    VxAction *getAction(int index) const;
    QVector<VxAction *> getActions() const;

    /// The action of a class or the command of a name; null when there is neither.
    QAction *findCommand(const QString &name) const;
    /// The name under which an action or a command has its shortcut; empty for any other.
    QString getCommandName(const QAction *command) const;

    // Below, the name of a command stands wherever a class name does.

    /// The shortcut in force; empty for none or for an unknown class.
    QKeySequence getShortcut(const QString &className) const;
    /// The one that resetShortcut() gives back; empty for none, for an unknown class and for a
    /// default that an earlier action had already.
    QKeySequence getDefaultShortcut(const QString &className) const;
    /// Gives an action a shortcut of the user's; an empty one takes it away. False for an unknown
    /// class. A shortcut that another action has is taken from that action.
    bool setShortcut(const QString &className, const QKeySequence &shortcut);
    /// Back to the action's default shortcut.
    void resetShortcut(const QString &className);
    /// All actions back to their defaults.
    void resetAllShortcuts();
    /// The class name of the action that has a shortcut, or an empty string.
    QString findShortcut(const QKeySequence &shortcut) const;

    /// Stores, by class name, only the shortcuts that differ from the defaults; an empty text is
    /// one that was taken away. Entries of classes that are not there today stay.
    void saveShortcuts(VxSettings *settings) const;
    /// Sets what was stored and puts all others back to their defaults. A default that a stored
    /// shortcut has taken is not given, but a command (see addCommand()) of which nothing is stored
    /// keeps its own. Returns the class names whose stored shortcut went to another one so, or to
    /// an earlier one with the same stored; they are sorted.
    QStringList restoreShortcuts(const VxSettings *settings);

    /// Fills a menu bar with every action that has a menu path: menus by getDefaultMenuPath(),
    /// sub-menus by the part of getActionGroup() behind a "/" and by getMenuFolder(), separators
    /// between groups. Menus that exist already (by title) are extended.
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
