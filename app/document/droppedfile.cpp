#include "document/droppedfile.h"

#include "io/formats/vxfileformats.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

QString droppedFile(const QMimeData *data, const VxFileFormats &formats)
{
    const QList<QUrl> urls = data ? data->urls() : QList<QUrl>();
    if (urls.size() != 1 || !urls.constFirst().isLocalFile())
        return {};
    const QString file = urls.constFirst().toLocalFile();
    return formats.find(file) && !QFileInfo(file).isDir() ? file : QString();
}
