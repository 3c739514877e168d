// Random bytes through the BVH reader. Whatever is accepted must keep the document's rules and
// survive being written and read again; whatever is refused must say why and in which line.

#include "io/bvh/vxbvhreader.h"
#include "io/bvh/vxbvhtiming.h"
#include "io/bvh/vxbvhwriter.h"
#include "require.h"

#include <cstdint>

namespace {

void checkDocument(const VxBvhDocument &document)
{
    require(document.isValid());
    QByteArray written;
    VxFileError error;
    VxBvhDocument again;
    require(VxBvhWriter::write(document, &written, &error));
    require(vxReadBvh(written, &again, &error));
    require(again == document);

    VxBvhTiming timing;
    QString message;
    if (!timing.set(document.frameTime, document.frameCount, &message)) {
        require(!message.isEmpty());
        return;
    }
    const QVector<VxTime> times = timing.keyTimes();
    for (int i = 1; i < times.size(); ++i)
        require(times[i] > times[i - 1]);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes = QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size));
    VxBvhDocument document;
    VxFileError error;
    if (vxReadBvh(bytes, &document, &error))
        checkDocument(document);
    else
        require(!error.message.isEmpty() && error.line >= 1 &&
                error.line <= bytes.count('\n') + bytes.count('\r') + 1);
    return 0;
}
