#include <vxcore/vxnodeisolation.h>

#include <QtGui/QKeyEvent>
#include <algorithm>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxscene.h>

namespace {

QVector<VxNodeIsolation *> &instances()
{
    static QVector<VxNodeIsolation *> all;
    return all;
}

} // namespace

VxNodeIsolation::VxNodeIsolation(VxPane *pane)
    : QObject(pane)
{
    instances().append(this);
    if (!vxScene)
        return;
    connect(vxScene, &VxScene::aboutToRemoveNode, this, &VxNodeIsolation::leaveOut);
    connect(vxScene, &VxScene::sceneClearStarting, this, [this] { setNodes({}); });
}

VxNodeIsolation::~VxNodeIsolation()
{
    instances().removeOne(this);
}

VxNodeIsolation *VxNodeIsolation::current()
{
    return instances().isEmpty() ? nullptr : instances().first();
}

void VxNodeIsolation::setNodes(QVector<VxNode *> nodes)
{
    nodes.erase(std::remove_if(nodes.begin(), nodes.end(),
                               [](const VxNode *node) { return !node || !node->getScene(); }),
                nodes.end());
    if (nodes == m_nodes)
        return;
    m_nodes = nodes;
    // Only a key press that no widget has accepted gets to the window itself.
    if (VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr) {
        window->removeEventFilter(this);
        if (isActive())
            window->installEventFilter(this);
    }
    Q_EMIT changed();
}

void VxNodeIsolation::leaveOut(const VxNode *removed)
{
    QVector<VxNode *> others;
    std::copy_if(
        m_nodes.cbegin(), m_nodes.cend(), std::back_inserter(others),
        [removed](const VxNode *node) { return node != removed && !removed->isAncestorOf(node); });
    setNodes(others);
}

bool VxNodeIsolation::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress ||
        static_cast<const QKeyEvent *>(event)->key() != Qt::Key_Escape)
        return QObject::eventFilter(watched, event);
    setNodes({});
    return true;
}
