#ifndef CONSOLEHISTORY_H
#define CONSOLEHISTORY_H

#include <QString>
#include <QStringList>

/// The programs that were run, to be brought back one by one. What was being written when the first
/// one was brought back comes again behind the last one.
class ConsoleHistory
{
public:
    static constexpr int MaxEntries = 200;

    /// Adds a program at the end, unless it is the last one already, and goes there.
    void add(const QString &program);

    /// The one before or after; draft is what stands in the input now, and is given back when there
    /// is none.
    QString previous(const QString &draft);
    QString next(const QString &draft);

    const QStringList &entries() const { return m_entries; }
    /// Replaces all; goes to the end.
    void setEntries(const QStringList &entries);

private:
    QStringList m_entries;
    QString m_draft;
    int m_at = 0; // m_entries.size(): at the draft
};

#endif
