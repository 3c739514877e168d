#include <vxcore/vxnodeisolation.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMainWindow>
#include <algorithm>
#include <vxcore/vxnode.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxscene.h>

namespace {

QVector<VxNodeIsolation *> &instances()
{
    static QVector<VxNodeIsolation *> all;
    return all;
}

/// The main window, or a floating pane; no dialogs.
bool isPaneWindow(QObject *object)
{
    const auto *widget = qobject_cast<QWidget *>(object);
    return widget && widget->isWindow() &&
           (qobject_cast<const QMainWindow *>(widget) || qobject_cast<const QDockWidget *>(widget));
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
    if (QCoreApplication *application = QCoreApplication::instance()) {
        application->removeEventFilter(this);
        if (isActive())
            application->installEventFilter(this);
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

// Only a key press that no widget has accepted gets to the window itself.
bool VxNodeIsolation::eventFilter(QObject *watched, QEvent *event)
{
    const bool isUnusedEscape = event->type() == QEvent::KeyPress &&
                                static_cast<const QKeyEvent *>(event)->key() == Qt::Key_Escape &&
                                isPaneWindow(watched);
    if (!isUnusedEscape)
        return QObject::eventFilter(watched, event);
    setNodes({});
    return true;
}
