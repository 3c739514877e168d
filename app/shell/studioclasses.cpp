#include "shell/studioclasses.h"

#include "console/vxconsolepane.h"
#include "create/vxbonechainaction.h"
#include "create/vxcreateactions.h"
#include "markers/vxmarkeractions.h"
#include "markers/vxmarkerlistpane.h"
#include "markers/vxmarkerspane.h"
#include "pose/vxposeactions.h"
#include "posetools/vxposetoolactions.h"
#include "scenetree/vxscenepane.h"
#include "shell/vxhistorypane.h"
#include "viewport/vxcameraactions.h"

#include <vxcore/vxscriptablefactory.h>

namespace {

template <class Factory> void add(QVector<VxClassFactory *> *factories, const char *guid)
{
    static Factory factory(guid);
    factories->append(&factory);
}

/// Scripts cannot construct a pane: only the pane manager does.
template <class T> void addPane(QVector<VxClassFactory *> *factories, const char *guid)
{
    add<VxClassFactoryOf<T>>(factories, guid);
}

template <class T> void addAction(QVector<VxClassFactory *> *factories, const char *guid)
{
    add<VxScriptableFactoryOf<T>>(factories, guid);
}

} // namespace

QVector<VxClassFactory *> studioClassFactories()
{
    QVector<VxClassFactory *> all;
    addPane<VxScenePane>(&all, "3F0C2E52-9C4B-4C0B-8D2C-0B5E7B1B6B11");
    addPane<VxHistoryPane>(&all, "6B0D9D0E-2A57-4C7B-9B1E-52C0A3E4F7D2");
    addPane<VxConsolePane>(&all, "B41F7C35-8E0A-4D96-A6B3-9D2E1F60C8A4");
    addAction<VxCreateNodeAction>(&all, "DB91ACC8-30FA-4CE6-AABE-3CCFB51D5708");
    addAction<VxCreateSkeletonAction>(&all, "2D5AAD24-649C-41C8-A91B-58CC1DC386EF");
    addAction<VxCreateBoneAction>(&all, "8F700C25-1FE4-42AF-A36B-E82B80A2550B");
    addAction<VxCreateFigureAction>(&all, "459FA6DB-FEBC-423F-9025-8CD2097FCA61");
    addAction<VxBoneChainAction>(&all, "47D708FF-8BC4-4CC8-80A4-BF866F4C1F80");
    addAction<VxEditBoneAction>(&all, "D7F90462-389D-4FB9-90AE-8181B70614E5");
    addAction<VxDuplicateNodesAction>(&all, "EC3EE183-29EF-4D28-A1EC-A52EC8C36597");
    addAction<VxGroupNodesAction>(&all, "5BE5FBE5-C243-486B-8C00-60041159634E");
    addAction<VxSelectToolAction>(&all, "E310A0F4-EE6B-43D9-A8D8-F10D1799C43F");
    addAction<VxMoveToolAction>(&all, "3153B6EE-5D80-4143-A19D-6C0F5F6F1950");
    addAction<VxRotateToolAction>(&all, "FE0C82A1-DF06-415A-9366-C898013DE7ED");
    addAction<VxScaleToolAction>(&all, "A4006055-8FB2-4011-8C8F-C090D7685FD6");
    addAction<VxIkToolAction>(&all, "79D497AD-AC98-48E1-9B61-7133FAFDF3CA");
    addAction<VxLocalOrientationAction>(&all, "23F5B52D-8F4E-468C-A512-03E946C58906");
    addAction<VxParentOrientationAction>(&all, "420E0659-E542-413E-A8F3-B5C16EE3B794");
    addAction<VxWorldOrientationAction>(&all, "E441D061-94B4-4170-8FB9-2D7554B320FF");
    addAction<VxCommonPivotAction>(&all, "92176BD1-88FA-4E63-9DBA-03D1524FC173");
    addAction<VxPinInIkAction>(&all, "782F6D54-DC6C-4B30-9042-74138BA60629");
    addAction<VxAutoKeyAction>(&all, "3E5DE3D9-174A-4C25-A7D3-273140DF46F7");
    addAction<VxCopyPoseAction>(&all, "D4DF69F1-9432-4A57-92B3-36E4F5DC1372");
    addAction<VxPastePoseAction>(&all, "DD3D34DB-241F-42B2-A9D5-306DC5FB2776");
    addAction<VxPastePoseMirroredAction>(&all, "ABD2689D-175C-467B-9171-00B433ADCBC8");
    addAction<VxMirrorPoseAction>(&all, "3BD7AB94-818B-45CA-9AA3-01458178D5FA");
    addAction<VxResetPoseAction>(&all, "EAF01A6C-DDCD-4A7A-8A85-1C578E47195C");
    addAction<VxSetRestPoseAction>(&all, "A82FC9EF-2BCB-4C5D-9352-1BA4E412C28E");
    addAction<VxSelectMirrorAction>(&all, "CCDEB15B-8303-4ADE-97EB-7DEC31D8CD21");
    addAction<VxSelectChildrenAction>(&all, "E03F2D6C-01B4-422D-8A03-A11B50950F9A");
    addAction<VxSelectParentsAction>(&all, "628DB96F-FF02-417C-8286-46DAF51B9A04");
    addAction<VxBreakdownAction>(&all, "D552152B-70DF-4CEC-AE8C-6EF06B5A6769");
    addAction<VxHoldPoseAction>(&all, "4BDBE773-41EA-4B3A-9F4B-A812B3065021");
    addAction<VxCyclePosesAction>(&all, "7D2B53FE-F04C-45AD-B3E7-164E7CB91F0A");
    addAction<VxMatchEndsAction>(&all, "0E5EC338-2CA3-4F30-A851-1D91CE20DB52");
    addAction<VxFrameAllAction>(&all, "4F8036EC-0144-491D-A4B8-9F2E6056D35B");
    addAction<VxFrontViewAction>(&all, "B3A524E7-DCAE-4991-9F63-10C846246DD6");
    addAction<VxBackViewAction>(&all, "05CADCE6-1CCF-4498-AB62-33B22E7083C4");
    addAction<VxSideViewAction>(&all, "2F216333-4C2C-4C27-A35B-536FD42186ED");
    addAction<VxOppositeSideViewAction>(&all, "301E68B9-1007-416B-8680-4C78CA02F662");
    addAction<VxTopViewAction>(&all, "31F498E8-D146-430C-8160-D920950270D2");
    addAction<VxBottomViewAction>(&all, "20D0AA2F-2091-4123-A2F2-93F97126DDFA");
    addAction<VxPerspectiveAction>(&all, "005F31EB-B130-44D5-AB2F-79C83EBDDF62");
    addAction<VxFieldOfViewAction>(&all, "063B74C2-F3CF-44CF-A911-34F9B034F8CB");
    addAction<VxMotionTrailsAction>(&all, "E0A63119-C956-4532-9841-38586EE1FE0D");
    addPane<VxMarkersPane>(&all, "59F4B5B2-68CB-4A35-A2FA-4E0C7DCE2B0E");
    addPane<VxMarkerListPane>(&all, "7C6B8F0E-93D3-4B1F-8E57-1D3B62A5C9F4");
    addAction<VxAddMarkerAction>(&all, "C53D93A2-7AC0-4B77-9A83-6F5BC0D5F1E1");
    addAction<VxPreviousMarkerAction>(&all, "0A3A2E5B-4C0D-4E57-8C84-9C2B6B0D7B13");
    addAction<VxNextMarkerAction>(&all, "E7B0B9D4-2F5B-4D62-9E2B-0D9C9E5F7A55");
    return all;
}
