// Random bytes through the CSV reader. What is accepted must keep the rules of imported motion;
// what is refused must say why, with line and column.

#include "io/csv/vxcsvreader.h"
#include "require.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes = QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size));
    VxImportedMotion motion;
    VxFileError error;
    if (vxReadCsv(bytes, {}, &motion, &error))
        require(motion.isValid() && !motion.nodes.empty());
    else
        require(!error.message.isEmpty() && error.line >= 0 && error.column >= 1 &&
                motion.nodes.empty());
    return 0;
}
