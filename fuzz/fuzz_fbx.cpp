// Random bytes through the FBX reader. Whatever is accepted must keep the motion's rules; whatever
// is refused must say why and where.

#include "io/fbx/vxfbxreader.h"
#include "require.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes = QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size));
    VxImportedMotion motion;
    VxFileError error;
    if (vxReadFbx(bytes, {}, &motion, &error))
        require(motion.isValid() && !motion.nodes.empty());
    else
        require(!error.message.isEmpty() && (error.line >= 1) != (error.offset >= 0));
    return 0;
}
