#include "io/vxscenefile.h"

#include <algorithm>
#include <zlib.h>

quint32 VxSceneFile::checksum(const void *bytes, qint64 size)
{
    constexpr qint64 MaxBlock = 1 << 30; // the library counts in 32 bits
    const auto *from = static_cast<const Bytef *>(bytes);
    uLong sum = crc32(0, nullptr, 0);
    while (size > 0) {
        const qint64 block = std::min(size, MaxBlock);
        sum = crc32(sum, from, uInt(block));
        from += block;
        size -= block;
    }
    return quint32(sum);
}
