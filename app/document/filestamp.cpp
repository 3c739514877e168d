#include "document/filestamp.h"

#include <QFileInfo>

FileStamp FileStamp::of(const QString &fileName)
{
    const QFileInfo file(fileName);
    return file.exists() ? FileStamp{file.lastModified(), file.size()} : FileStamp();
}
