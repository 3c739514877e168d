#include "document/filestamp.h"

#include <QFile>
#include <sys/stat.h>

FileStamp FileStamp::of(const QString &fileName)
{
    struct stat status = {};
    if (fileName.isEmpty() || ::stat(QFile::encodeName(fileName).constData(), &status) != 0)
        return {};
    const qint64 milliseconds =
        qint64(status.st_mtim.tv_sec) * 1000 + status.st_mtim.tv_nsec / 1000000;
    return {QDateTime::fromMSecsSinceEpoch(milliseconds), qint64(status.st_size),
            quint64(status.st_ino)};
}
