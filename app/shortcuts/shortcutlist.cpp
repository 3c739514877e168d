#include "shortcuts/shortcutlist.h"

void ShortcutList::add(const ShortcutCommand &command)
{
    m_commands.append(command);
    m_before.append(command.current);
}

int ShortcutList::holderOf(const QKeySequence &shortcut, int except) const
{
    for (int i = 0; i < m_commands.size() && !shortcut.isEmpty(); ++i) {
        if (i != except && m_commands.at(i).current == shortcut)
            return i;
    }
    return -1;
}

bool ShortcutList::canAssign(int index, const QKeySequence &shortcut) const
{
    if (m_commands.at(index).isFixed())
        return false;
    const int holder = holderOf(shortcut, index);
    return holder < 0 || !m_commands.at(holder).isFixed();
}

QVector<int> ShortcutList::assign(int index, const QKeySequence &shortcut)
{
    QVector<int> changed;
    if (!canAssign(index, shortcut) || m_commands.at(index).current == shortcut)
        return changed;
    const int holder = holderOf(shortcut, index);
    if (holder >= 0) {
        m_commands[holder].current = QKeySequence();
        changed.append(holder);
    }
    m_commands[index].current = shortcut;
    changed.append(index);
    return changed;
}

void ShortcutList::resetAll()
{
    for (ShortcutCommand &command : m_commands) {
        if (!command.isFixed())
            command.current = command.standard;
    }
}

bool ShortcutList::isStandard(int index) const
{
    const ShortcutCommand &command = m_commands.at(index);
    return command.isFixed() || command.current == command.standard;
}

bool ShortcutList::areStandard() const
{
    for (int i = 0; i < m_commands.size(); ++i) {
        if (!isStandard(i))
            return false;
    }
    return true;
}

QHash<QString, QKeySequence> ShortcutList::changes() const
{
    QHash<QString, QKeySequence> changed;
    for (int i = 0; i < m_commands.size(); ++i) {
        if (m_commands.at(i).current != m_before.at(i))
            changed.insert(m_commands.at(i).className, m_commands.at(i).current);
    }
    return changed;
}

void ShortcutList::markApplied()
{
    for (int i = 0; i < m_commands.size(); ++i)
        m_before[i] = m_commands.at(i).current;
}
