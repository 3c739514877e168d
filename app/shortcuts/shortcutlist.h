#ifndef SHORTCUTLIST_H
#define SHORTCUTLIST_H

#include <QHash>
#include <QKeySequence>
#include <QString>
#include <QVector>

/// A command as the shortcut editor lists it.
struct ShortcutCommand
{
    QString className; ///< or name of a command; empty when the shortcut cannot be changed
    QString group;     ///< where it stands in the menus, to be shown
    QString text;      ///< without mnemonics and trailing dots
    QString description;
    QKeySequence standard; ///< what a reset gives back
    QKeySequence current;

    bool isFixed() const { return className.isEmpty(); }
};

/// The shortcuts as they are being edited: a plain value, apart from the actions, so that nothing
/// happens before the user agrees, and the rules can be tested without a window.
///
/// A key sequence belongs to one command at most. Indexes count from 0 in the order of adding.
class ShortcutList
{
public:
    void add(const ShortcutCommand &command);

    int count() const { return m_commands.size(); }
    const ShortcutCommand &at(int index) const { return m_commands.at(index); }

    /// The other command that has the sequence; -1 for none and for an empty sequence.
    int holderOf(const QKeySequence &shortcut, int except) const;
    /// False for a fixed command, and where a fixed command has the sequence.
    bool canAssign(int index, const QKeySequence &shortcut) const;
    /// Gives a command a sequence, or none, and takes it from the command that had it. Nothing
    /// happens where canAssign() is false. Returns the commands that changed.
    QVector<int> assign(int index, const QKeySequence &shortcut);
    /// Every command that can be changed gets its standard back.
    void resetAll();

    bool isStandard(int index) const;
    bool areStandard() const;
    /// By class name, what differs from the sequences that were added.
    QHash<QString, QKeySequence> changes() const;

private:
    QVector<ShortcutCommand> m_commands;
    QVector<QKeySequence> m_before;
};

#endif
