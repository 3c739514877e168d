#ifndef FILESTAMP_H
#define FILESTAMP_H

#include <QDateTime>
#include <QString>

/// Size, time and identity of a file, to detect later whether another program has written, replaced
/// or removed it since.
struct FileStamp
{
    /// Of the file at present; an empty stamp for a missing file.
    static FileStamp of(const QString &fileName);

    bool exists() const { return size >= 0; }
    bool operator==(const FileStamp &other) const
    {
        return size == other.size && modified == other.modified && inode == other.inode;
    }
    bool operator!=(const FileStamp &other) const { return !(*this == other); }

    QDateTime modified;
    qint64 size = -1;  ///< bytes; -1 for a missing file
    quint64 inode = 0; ///< the file system's number of the file
};

#endif
