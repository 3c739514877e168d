#ifndef FILESTAMP_H
#define FILESTAMP_H

#include <QDateTime>
#include <QString>

/// How a file looked at one moment, to tell later whether somebody else has written it since.
struct FileStamp
{
    /// Of the file as it is now; of none when there is no such file.
    static FileStamp of(const QString &fileName);

    bool exists() const { return size >= 0; }
    bool operator==(const FileStamp &other) const
    {
        return size == other.size && modified == other.modified;
    }
    bool operator!=(const FileStamp &other) const { return !(*this == other); }

    QDateTime modified;
    qint64 size = -1; ///< bytes; -1 for a file that is not there
};

#endif
