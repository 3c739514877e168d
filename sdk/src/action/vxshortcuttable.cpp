#include "action/vxshortcuttable.h"

bool VxShortcutTable::add(const QString &name, const QKeySequence &requested, QString *holder)
{
    const QString owner = find(requested);
    const QKeySequence granted = owner.isEmpty() ? requested : QKeySequence();
    m_entries.insert(name, {granted, granted});
    m_order.append(name);
    if (!granted.isEmpty())
        m_owners.insert(granted, name);
    if (holder)
        *holder = owner;
    return owner.isEmpty();
}

void VxShortcutTable::remove(const QString &name)
{
    m_owners.remove(shortcut(name));
    m_entries.remove(name);
    m_order.removeOne(name);
}

QKeySequence VxShortcutTable::shortcut(const QString &name) const
{
    return m_entries.value(name).current;
}

QKeySequence VxShortcutTable::defaultShortcut(const QString &name) const
{
    return m_entries.value(name).standard;
}

QString VxShortcutTable::find(const QKeySequence &shortcut) const
{
    return m_owners.value(shortcut);
}

QStringList VxShortcutTable::set(const QString &name, const QKeySequence &shortcut)
{
    const auto entry = m_entries.find(name);
    if (entry == m_entries.end() || entry->current == shortcut)
        return {};
    QStringList changed;
    const QString owner = find(shortcut);
    if (!owner.isEmpty()) {
        m_entries[owner].current = QKeySequence();
        changed.append(owner);
    }
    m_owners.remove(entry->current);
    entry->current = shortcut;
    if (!shortcut.isEmpty())
        m_owners.insert(shortcut, name);
    changed.append(name);
    return changed;
}

QHash<QString, QKeySequence> VxShortcutTable::changes() const
{
    QHash<QString, QKeySequence> result;
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        if (it->current != it->standard)
            result.insert(it.key(), it->current);
    }
    return result;
}

QStringList VxShortcutTable::restore(const QHash<QString, QKeySequence> &changes)
{
    QHash<QString, QKeySequence> before;
    for (const QString &name : qAsConst(m_order))
        before.insert(name, shortcut(name));

    m_owners.clear();
    const auto grant = [this](const QString &name, const QKeySequence &requested) {
        const bool isFree = !requested.isEmpty() && !m_owners.contains(requested);
        m_entries[name].current = isFree ? requested : QKeySequence();
        if (isFree)
            m_owners.insert(requested, name);
    };
    for (const QString &name : qAsConst(m_order)) {
        if (changes.contains(name))
            grant(name, changes.value(name));
    }
    for (const QString &name : qAsConst(m_order)) {
        if (!changes.contains(name))
            grant(name, defaultShortcut(name));
    }

    QStringList changed;
    for (const QString &name : qAsConst(m_order)) {
        if (shortcut(name) != before.value(name))
            changed.append(name);
    }
    return changed;
}
