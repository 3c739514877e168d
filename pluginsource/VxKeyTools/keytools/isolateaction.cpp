#include "keytools/isolateaction.h"

#include "keytools/keytooltext.h"

#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxnodeisolation.h>
#include <vxcore/vxscene.h>

VxKeyToolsIsolateAction::VxKeyToolsIsolateAction()
    : KeysMenuAction(tr("Isolate Selected Nodes"),
                     tr("Shows only the rows and curves of the selected nodes. The same command or "
                        "Escape shows "
                        "all. Alt with a click in the viewport isolates a node."),
                     QT_TRANSLATE_NOOP("VxMenuPath", "Select"), "Shift+I")
{
    setCheckable(true);
}

void VxKeyToolsIsolateAction::init()
{
    KeysMenuAction::init();
    if (VxNodeIsolation *isolation = VxNodeIsolation::current())
        connect(isolation, &VxNodeIsolation::changed, this, &VxKeyToolsIsolateAction::followState,
                Qt::UniqueConnection);
    followState();
}

void VxKeyToolsIsolateAction::followState()
{
    const VxNodeIsolation *isolation = VxNodeIsolation::current();
    setChecked(isolation && isolation->isActive());
}

void VxKeyToolsIsolateAction::toggleAction(bool onOff)
{
    VxNodeIsolation *isolation = VxNodeIsolation::current();
    if (!isolation || !vxScene)
        return;
    const QVector<VxNode *> nodes = onOff ? vxScene->getSelectedNodes() : QVector<VxNode *>();
    isolation->setNodes(nodes);
    if (onOff && nodes.isEmpty())
        vxShowStatusMessage(tr("Isolate: select nodes"));
    followState();
}
