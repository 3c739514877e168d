#include "keytools/isolateaction.h"

#include "keytools/keytooltext.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxnodeisolation.h>
#include <vxcore/vxscene.h>

VxKeyToolsIsolateAction::VxKeyToolsIsolateAction()
    : VxAction(
          tr("Isolate Selected Nodes"),
          tr("Shows the rows and curves of the selected nodes alone; again, or Escape: of all. "
             "Alt with a click in the viewport isolates a node."),
          true)
{
}

void VxKeyToolsIsolateAction::init()
{
    VxAction::init();
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

QString VxKeyToolsIsolateAction::getDefaultAccel() const
{
    return QStringLiteral("Shift+I");
}

QString VxKeyToolsIsolateAction::getDefaultMenuPath() const
{
    return QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Keys"));
}

QString VxKeyToolsIsolateAction::getActionGroup() const
{
    return QStringLiteral("VxKeyToolsPane::");
}

QString VxKeyToolsIsolateAction::getMenuFolder() const
{
    return QString::fromLatin1(QT_TRANSLATE_NOOP("VxMenuPath", "Select"));
}

void VxKeyToolsIsolateAction::toggleAction(bool onOff)
{
    VxNodeIsolation *isolation = VxNodeIsolation::current();
    if (!isolation || !vxScene)
        return;
    const QVector<VxNode *> nodes = onOff ? vxScene->getSelectedNodes() : QVector<VxNode *>();
    isolation->setNodes(nodes);
    if (onOff && nodes.isEmpty() && vxApp->getInterface())
        vxApp->getInterface()->showStatusMessage(tr("Isolate: select nodes"));
    followState();
}
