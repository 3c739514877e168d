#include "vxkeytoolsplugin.h"

#include "keytools/isolateaction.h"
#include "keytools/keycursoraction.h"
#include "keytools/keygestureactions.h"
#include "keytools/keytoolactions.h"
#include "keytools/keytoolscript.h"
#include "keytools/vxkeytablepane.h"
#include "keytools/vxkeytoolspane.h"

#include <vxcore/vxclassfactory.h>
#include <vxcore/vxplugin.h>

namespace {

/// The pane's factory also registers the script object.
class PaneFactory : public VxClassFactoryOf<VxKeyToolsPane>
{
public:
    using VxClassFactoryOf::VxClassFactoryOf;
    void registerClass(QScriptEngine *engine) const override
    {
        VxClassFactoryOf::registerClass(engine);
        if (engine)
            registerKeyToolScript(engine);
    }
};

template <class Class> void addClass(VxPlugin *plugin, const char *guid)
{
    static VxClassFactoryOf<Class> factory(guid);
    plugin->addClassFactory(&factory);
}

void addClasses(VxPlugin *plugin)
{
    static PaneFactory pane("09FAB575-4994-4CFF-8342-E56AE548D49D");
    plugin->addClassFactory(&pane);
    addClass<VxKeyToolsSelectFramesAction>(plugin, "797A3CF2-57AF-44EA-8EB3-82AD9D631A6F");
    addClass<VxKeyToolsSelectBeforeAction>(plugin, "158EFB9B-90DF-498F-86CD-D8341F465B9E");
    addClass<VxKeyToolsSelectAfterAction>(plugin, "C868AC97-CB83-4B6A-B644-5BF1A43A08C9");
    addClass<VxKeyToolsSelectSameFramesAction>(plugin, "43656A7D-C740-41AC-B129-E8FE346D9A63");
    addClass<VxKeyToolsSelectEveryAction>(plugin, "0C9AB8F2-2E38-4738-AFFE-1C5B69B566D1");
    addClass<VxKeyToolsSelectInverseAction>(plugin, "404216C9-0F36-4B94-B209-042D5ABCD24A");
    addClass<VxKeyToolsSelectTypeAction>(plugin, "F3058386-89DC-45B2-9C11-F643EAE89BA4");
    addClass<VxKeyToolsSelectValuesAction>(plugin, "1BB4FA5E-247D-4111-8DFC-61862C25B05A");
    addClass<VxKeyToolsMoveAction>(plugin, "C43DD982-F8A7-4DAD-B110-AFD1C1AE1884");
    addClass<VxKeyToolsScaleTimesAction>(plugin, "5B1089DA-7B73-4B70-B2E5-52D0430BF380");
    addClass<VxKeyToolsRetimeAction>(plugin, "FFBE5A86-2D2B-4EEE-A5DE-250B423AE0C2");
    addClass<VxKeyToolsInsertFramesAction>(plugin, "2E58582E-B461-4029-B842-495F9A97BABD");
    addClass<VxKeyToolsRemoveFramesAction>(plugin, "10A462E0-884F-4024-B13A-F6F368A28F67");
    addClass<VxKeyToolsSnapAction>(plugin, "4AE6BFDD-D3F5-4CC2-A1A7-0BE78F47488D");
    addClass<VxKeyToolsSpaceEvenlyAction>(plugin, "040E3603-8A7E-499C-8436-32DBDA2C948B");
    addClass<VxKeyToolsReverseAction>(plugin, "E122CF93-BFB5-4ED7-BB58-8CA4210FC66A");
    addClass<VxKeyToolsDuplicateAction>(plugin, "C67D7C85-CAF4-488E-A159-429F34813C6A");
    addClass<VxKeyToolsPasteAction>(plugin, "D4B6C1D0-52C7-4D0B-9F0A-7B1B5A7C7E11");
    addClass<VxKeyToolsPasteMirroredAction>(plugin, "E48507DD-A2D1-4BC7-A872-5DDC80110DB2");
    addClass<VxKeyToolsSetValuesAction>(plugin, "77B5400E-7967-4D4D-8CA6-9A8DDBD13D6B");
    addClass<VxKeyToolsScaleValuesAction>(plugin, "30D3A7CD-02A7-4A9E-9986-FA68FC86C703");
    addClass<VxKeyToolsMirrorValuesAction>(plugin, "24C666B0-EF78-4069-A906-09E769E2635C");
    addClass<VxKeyToolsOffsetAction>(plugin, "62941B93-D36F-4705-82D9-DC4B845228E1");
    addClass<VxKeyToolsEulerFilterAction>(plugin, "5CE67C28-83D8-4C14-80D4-614368E7FA0D");
    addClass<VxKeyToolsSmoothGaussianAction>(plugin, "EAB1D2E1-C7C6-4F79-A78B-2ADC0FEF64D5");
    addClass<VxKeyToolsSmoothButterworthAction>(plugin, "FD1376F4-FD09-44E6-A58B-213B553820DE");
    addClass<VxKeyToolsRemoveSpikesAction>(plugin, "AFD6BE4F-F383-46D7-900B-0850BC0D177C");
    addClass<VxKeyToolsReduceAction>(plugin, "11711451-80C9-4DF9-9B6B-ABFA61D31B6A");
    addClass<VxKeyToolsRemoveFlatAction>(plugin, "9F3D802B-70A6-4707-BF57-53F572ABE1C6");
    addClass<VxKeyToolsBakeAction>(plugin, "CEE78A3D-396F-4072-97AD-142CFF133643");
    addClass<VxKeyToolsConvertAction>(plugin, "3DB05692-E73A-4C98-8E98-964EA7B1FBF7");
    addClass<VxKeyToolsPinAction>(plugin, "6941590F-9220-441F-A8C5-F982D1519709");
    addClass<VxKeyToolsKeyCursorAction>(plugin, "206413A4-A013-4FA4-BAAA-55D339F0A519");
    addClass<VxKeyToolsMoveGestureAction>(plugin, "BAD49A2A-308D-4751-A797-B786D999A4C5");
    addClass<VxKeyToolsDuplicateGestureAction>(plugin, "429A4228-492A-416C-B58A-6FD6F7B6D88A");
    addClass<VxKeyToolsScaleTimesGestureAction>(plugin, "CDDF75A3-454F-4259-8D10-E81A643E8FBF");
    addClass<VxKeyToolsScaleTimesInSelectionGestureAction>(plugin,
                                                           "EA33F45B-CA25-4F4C-BD4E-4169A8B4AAA6");
    addClass<VxKeyToolsMoveValuesGestureAction>(plugin, "B590CAE1-A92B-494E-BC44-BFCA0BE06C8B");
    addClass<VxKeyToolsScaleValuesGestureAction>(plugin, "AF65C69B-06E8-48A5-8992-80948DC8C13D");
    addClass<VxKeyToolsIsolateAction>(plugin, "7A0E3C55-8F2E-4F0B-8C55-3D5B8E4E2B19");
    addClass<VxKeyTablePane>(plugin, "5B7E1C1E-3A0E-4F0B-9E55-0B6C2C9D41A7");
    addClass<VxKeyTableAction>(plugin, "C0A9D8F4-7C1B-4E5D-8B7A-2F6E1D90B3C5");
}

VxPlugin *definition()
{
    static VxPlugin plugin(QStringLiteral("Key Tools"), QStringLiteral("VxTimeline Developers"),
                           QString::fromLatin1(QT_TRANSLATE_NOOP(
                               "VxPlugin", "Retimes, cleans and edits keys numerically.")),
                           1, 0, 0, 0);
    addClasses(&plugin);
    return &plugin;
}

} // namespace

VxVersion getSDKVersion()
{
    return VxVersion::sdk();
}

VxPlugin *getPluginDefinition()
{
    static VxPlugin *plugin = definition();
    return plugin;
}
