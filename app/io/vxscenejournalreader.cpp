#include "io/vxscenejournalreader.h"

#include "io/vxscenereader.h"

#include <vxcore/vxnode.h>

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
