#include "monkeylog.h"

#include <QStringList>
#include <algorithm>
#include <cstring>

bool MonkeyLog::open(const QString &fileName)
{
    m_file.setFileName(fileName);
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::Truncate) ||
        !m_file.resize(Lines * LineLength))
        return false;
    m_bytes = m_file.map(0, m_file.size());
    if (!m_bytes)
        return false;
    std::memset(m_bytes, ' ', size_t(m_file.size()));
    for (int line = 1; line <= Lines; ++line)
        m_bytes[line * LineLength - 1] = '\n';
    return true;
}

void MonkeyLog::write(qint64 event, const QString &text)
{
    if (!m_bytes)
        return;
    const QByteArray bytes = QStringLiteral("%1 %2").arg(event, 9).arg(text).toUtf8();
    uchar *line = m_bytes + (event % Lines) * LineLength;
    const int length = std::min(bytes.size(), LineLength - 1);
    std::memset(line, ' ', LineLength - 1);
    std::memcpy(line, bytes.constData(), size_t(length));
}

QStringList MonkeyLog::read(const QString &fileName)
{
    QFile file(fileName);
    QStringList lines;
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (!line.trimmed().isEmpty())
            lines.append(QString::fromUtf8(line).remove(QLatin1Char('\n')).trimmed());
    }
    std::sort(lines.begin(), lines.end(), [](const QString &a, const QString &b) {
        return a.section(QLatin1Char(' '), 0, 0).toLongLong() <
               b.section(QLatin1Char(' '), 0, 0).toLongLong();
    });
    return lines;
}
