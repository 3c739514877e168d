#ifndef SHORTCUTLIST_H
#define SHORTCUTLIST_H

#include <QHash>
#include <QKeySequence>
#include <QString>
#include <QVector>

/// A command in the shortcut editor.
struct ShortcutCommand
{
    QString className; ///< or name of a command; empty for a fixed shortcut
    QString group;     ///< its menu path, for display
    QString text;      ///< without mnemonics and trailing dots
    QString description;
    QKeySequence standard; ///< restored by a reset
    QKeySequence current;

    bool isFixed() const { return className.isEmpty(); }
};

/// The shortcuts being edited: a plain value, separate from the actions, so that nothing happens
/// before the user accepts, and the rules can be tested without a window.
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
    /// Gives a command a sequence, or none, and removes it from its former command. Does nothing
    /// where canAssign() is false. Returns the commands that changed.
    QVector<int> assign(int index, const QKeySequence &shortcut);
    /// Resets every command that can be changed to its standard.
    void resetAll();

    bool isStandard(int index) const;
    bool areStandard() const;
    /// The sequences by class name that differ from the added ones, or from those of the last
    /// markApplied().
    QHash<QString, QKeySequence> changes() const;
    void markApplied();

private:
    QVector<ShortcutCommand> m_commands;
    QVector<QKeySequence> m_before;
};

#endif
