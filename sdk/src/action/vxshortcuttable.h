#ifndef VXSHORTCUTTABLE_H
#define VXSHORTCUTTABLE_H

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QKeySequence>

/// Which name has which key sequence, and which it has by default: the bookkeeping behind the
/// action manager, free of actions, so that its rules can be tested alone.
///
/// At any time a sequence belongs to one name at most. Every operation answers with the names whose
/// sequence it changed.
class VxShortcutTable
{
public:
    /// Adds a name with its default. A default that another name has in force is not granted: the
    /// name starts without one. False in that case, and holder (when given) tells who has it.
    bool add(const QString &name, const QKeySequence &wanted, QString *holder = nullptr);
    void remove(const QString &name);
    bool contains(const QString &name) const { return m_entries.contains(name); }

    QKeySequence shortcut(const QString &name) const;
    QKeySequence defaultShortcut(const QString &name) const;
    /// The name that has a sequence in force; empty for none and for an empty sequence.
    QString find(const QKeySequence &shortcut) const;

    /// Gives a known name a sequence and takes it from whoever had it.
    QStringList set(const QString &name, const QKeySequence &shortcut);

    /// The names whose sequence differs from the default, with the sequence in force.
    QHash<QString, QKeySequence> changes() const;
    /// Puts every name into the state that changes() told: the given ones first, then the defaults
    /// of the others where they are still free. Unknown names are ignored; of two names with one
    /// sequence the first in order of adding gets it.
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
