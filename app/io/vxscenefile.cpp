#include "io/vxscenefile.h"

#include <libdeflate.h>

quint32 VxSceneFile::checksum(const void *bytes, qint64 size)
{
    return libdeflate_crc32(0, bytes, static_cast<std::size_t>(size));
}
