#ifndef CONSOLEHISTORY_H
#define CONSOLEHISTORY_H

#include <QString>
#include <QStringList>

/// The programs that were run, to be recalled one by one. The draft in the input at the first
/// recall follows the last of them.
class ConsoleHistory
{
public:
    static constexpr int MaxEntries = 200;

    /// Appends a program, unless it equals the last one, and moves to the end.
    void add(const QString &program);

    /// The previous or next program; draft is the present input, saved at the end of the list, and
    /// returned when there is none.
    QString previous(const QString &draft);
    QString next(const QString &draft);

    const QStringList &entries() const { return m_entries; }
    /// Replaces all; moves to the end.
    void setEntries(const QStringList &entries);

private:
    QStringList m_entries;
    QString m_draft;
    int m_at = 0; // m_entries.size(): at the draft
};

#endif
