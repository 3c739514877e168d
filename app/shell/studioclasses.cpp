#include "shell/studioclasses.h"

#include "console/vxconsolepane.h"
#include "scenetree/vxscenepane.h"
#include "shell/vxhistorypane.h"

#include <vxcore/vxclassfactory.h>

namespace {

/// A pane of the program's own. Scripts cannot construct one: only the pane manager does.
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
    static PaneFactory<VxHistoryPane> historyPane("6B0D9D0E-2A57-4C7B-9B1E-52C0A3E4F7D2");
    static PaneFactory<VxConsolePane> consolePane("B41F7C35-8E0A-4D96-A6B3-9D2E1F60C8A4");
    return {&scenePane, &historyPane, &consolePane};
}
