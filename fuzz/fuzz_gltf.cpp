// Random bytes through the glTF reader. What is accepted must keep the rules of imported motion;
// what is refused must say why.

#include "io/gltf/vxgltfreader.h"
#include "require.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes = QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size));
    VxImportedMotion motion;
    VxFileError error;
    if (vxReadGltf(bytes, QString(), {}, &motion, &error))
        require(motion.isValid());
    else
        require(!error.message.isEmpty());
    return 0;
}
