#include "io/vxscenejournalwriter.h"

#include "io/vxscenewriter.h"

#include <QBuffer>

bool VxSceneJournalWriter::contents(const QVector<VxNode *> &nodes)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    VxFileError error;
    if (!VxSceneWriter::writeNodes(nodes, &buffer, &error))
        return false;
    number(qint32(buffer.data().size()));
    block(buffer.data().constData(), buffer.data().size());
    return true;
}
