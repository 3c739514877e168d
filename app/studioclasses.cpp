#include "studioclasses.h"

#include "vxscenepane.h"

#include <vxcore/vxclassfactory.h>

namespace {

/// A pane of the program's own. Scripts cannot construct one: the pane manager makes the only one.
template <class T> class PaneFactory : public VxClassFactory
{
public:
    explicit PaneFactory(const char *guid)
        : VxClassFactory(&T::staticMetaObject, VxGuid::fromString(QLatin1String(guid)))
    {
    }

    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new T; }
};

} // namespace

QVector<VxClassFactory *> studioClassFactories()
{
    static PaneFactory<VxScenePane> scenePane("3F0C2E52-9C4B-4C0B-8D2C-0B5E7B1B6B11");
    return {&scenePane};
}
