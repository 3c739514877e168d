#include "io/vxreadfile.h"

#include "io/vxfiletext.h"

#include <QFile>
#include <QFileInfo>

bool vxReadFile(const QString &fileName, QByteArray *bytes, VxFileError *error)
{
    const QFileInfo info(fileName);
    if (info.exists() && !info.isFile())
        return vxFail(error, VxFileText::tr("Not a regular file."), fileName);
    QFile file(fileName);
    if (file.open(QIODevice::ReadOnly)) {
        *bytes = file.readAll();
        if (file.error() == QFileDevice::NoError)
            return true;
    }
    return vxFail(error, VxFileText::tr("The file cannot be read: %1.").arg(file.errorString()),
                  fileName);
}
