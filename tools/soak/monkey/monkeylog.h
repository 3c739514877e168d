#ifndef MONKEYLOG_H
#define MONKEYLOG_H

#include <QFile>

/// The latest events of a run as lines of a mapped file, which is complete however the program
/// ends. A ring buffer: the file has a fixed number of lines, each with the number of its event.
class MonkeyLog
{
public:
    static constexpr int Lines = 256;
    static constexpr int LineLength = 120; // bytes, with the line feed

    /// False when the file cannot be made. Without open() nothing is written.
    bool open(const QString &fileName);
    void write(qint64 event, const QString &text);

    /// The lines of a log in the order of their events, without the empty ones.
    static QStringList read(const QString &fileName);

private:
    QFile m_file;
    uchar *m_bytes = nullptr;
};

#endif
