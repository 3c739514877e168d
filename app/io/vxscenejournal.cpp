#include "io/vxscenejournal.h"

#include "io/vxscenereader.h"
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

std::unique_ptr<VxNode> VxSceneJournalReader::contents()
{
    const auto size = number<qint32>();
    const char *bytes = block(size);
    VxSceneContents read;
    VxFileError error;
    const bool isRead =
        bytes && VxSceneReader().read(QByteArray::fromRawData(bytes, size), &read, &error);
    if (!isRead || read.rootNodes.size() != 1) {
        fail();
        return nullptr;
    }
    return std::move(read.rootNodes.front());
}
