// Names its version and has nothing else to say.
#include <vxcore/vxversion.h>

extern "C" Q_DECL_EXPORT VxVersion getSDKVersion()
{
    return VxVersion::sdk();
}
