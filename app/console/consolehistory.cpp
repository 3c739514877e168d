#include "console/consolehistory.h"

void ConsoleHistory::add(const QString &program)
{
    if (m_entries.isEmpty() || m_entries.last() != program)
        m_entries.append(program);
    if (m_entries.size() > MaxEntries)
        m_entries.removeFirst();
    m_at = m_entries.size();
    m_draft.clear();
}

QString ConsoleHistory::previous(const QString &draft)
{
    if (m_at == 0)
        return draft;
    if (m_at == m_entries.size())
        m_draft = draft;
    return m_entries.at(--m_at);
}

QString ConsoleHistory::next(const QString &draft)
{
    if (m_at >= m_entries.size())
        return draft;
    return ++m_at == m_entries.size() ? m_draft : m_entries.at(m_at);
}

void ConsoleHistory::setEntries(const QStringList &entries)
{
    m_entries = entries.mid(qMax(0, entries.size() - MaxEntries));
    m_at = m_entries.size();
    m_draft.clear();
}
