#include "app/vxhostclasses.h"

#include <vxcore/vxclearkeysactions.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxscriptablefactory.h>

namespace {

template <class T> VxClassFactory *factoryOf(const char *guid)
{
    static VxScriptableFactoryOf<T> factory(guid);
    return &factory;
}

} // namespace

QVector<VxClassFactory *> vxHostClassFactories()
{
    return {factoryOf<VxParametersPane>("EE84701A-FF44-45D4-A79F-4C5A663C784D"),
            factoryOf<VxClearKeysFigureAction>("A7201CD0-5E3E-4F71-9F91-66D6DBB593A6"),
            factoryOf<VxClearKeysFigurePoseAction>("3832AFA9-2481-4ABE-87C7-0FA6E5D14939"),
            factoryOf<VxClearKeysFigureShapeAction>("6754285D-FB5E-43F2-B78C-897EA5048A8E"),
            factoryOf<VxClearKeysSelectedItemsAction>("4542AC99-3B19-463C-9328-36951DAA9648"),
            factoryOf<VxClearKeysPoseAction>("B55F8DB7-1EC6-4910-94D9-280CA88E1E2B"),
            factoryOf<VxClearKeysShapeAction>("4EE65D23-BBFB-45AB-BC1A-23A75E2E3BF9")};
}
