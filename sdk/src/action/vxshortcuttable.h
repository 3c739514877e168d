#ifndef VXSHORTCUTTABLE_H
#define VXSHORTCUTTABLE_H

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QKeySequence>

/// The key sequences of names, present and default: the bookkeeping behind the action manager, free
/// of actions, so that its rules can be tested alone.
///
/// At any time a sequence belongs to one name at most. Every operation returns the names whose
/// sequence it changed.
class VxShortcutTable
{
public:
    /// Adds a name with its default. A default that is another name's present sequence is not
    /// granted: the name starts without one. False in that case, with that name in holder, if
    /// given.
    bool add(const QString &name, const QKeySequence &requested, QString *holder = nullptr);
    void remove(const QString &name);
    bool contains(const QString &name) const { return m_entries.contains(name); }

    QKeySequence shortcut(const QString &name) const;
    QKeySequence defaultShortcut(const QString &name) const;
    /// The name that presently has a sequence; empty for none and for an empty sequence.
    QString find(const QKeySequence &shortcut) const;

    /// Sets the sequence of a name in the table and removes it from its former name.
    QStringList set(const QString &name, const QKeySequence &shortcut);

    /// The names whose sequence differs from the default, with the present sequence.
    QHash<QString, QKeySequence> changes() const;
    /// Restores the state of changes(): the given names first, then the defaults of the others
    /// where they are still free. Unknown names are ignored; of two names with one sequence the
    /// first in order of adding gets it.
    QStringList restore(const QHash<QString, QKeySequence> &changes);

private:
    struct Entry
    {
        QKeySequence current;
        QKeySequence standard;
    };
    QHash<QString, Entry> m_entries;
    QHash<QKeySequence, QString> m_owners; // without the empty sequence
    QStringList m_order;
};

#endif
