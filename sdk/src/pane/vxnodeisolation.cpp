#include <vxcore/vxnodeisolation.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMainWindow>
#include <algorithm>
#include <utility>
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

const QVector<VxNode *> &VxNodeIsolation::nodes() const
{
    if (m_nodes.size() != m_isolated.size())
        m_nodes.erase(
            std::remove_if(m_nodes.begin(), m_nodes.end(),
                           [this](const VxNode *node) { return !m_isolated.contains(node); }),
            m_nodes.end());
    return m_nodes;
}

void VxNodeIsolation::setNodes(const QVector<VxNode *> &nodes)
{
    QVector<VxNode *> present;
    QSet<const VxNode *> isolated;
    for (VxNode *node : nodes) {
        if (!node || !node->getScene() || isolated.contains(node))
            continue;
        present.append(node);
        isolated.insert(node);
    }
    if (present == this->nodes())
        return;
    m_nodes = present;
    m_isolated = isolated;
    report();
}

void VxNodeIsolation::report()
{
    m_isReportPending = false;
    if (QCoreApplication *application = QCoreApplication::instance()) {
        application->removeEventFilter(this);
        if (isActive())
            application->installEventFilter(this);
    }
    Q_EMIT changed();
}

// Nodes are often removed one by one: the cost of each is that of the nodes below it.
void VxNodeIsolation::leaveOut(VxNode *removed)
{
    if (!isActive())
        return;
    QVector<VxNode *> leaving = {removed};
    removed->getNodeChildren(leaving, true);
    const int before = m_isolated.size();
    for (const VxNode *node : qAsConst(leaving))
        m_isolated.remove(node);
    if (m_isolated.size() == before)
        return;
    if (!isActive()) {
        m_nodes.clear();
        report();
    } else if (!std::exchange(m_isReportPending, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (m_isReportPending)
                    report();
            },
            Qt::QueuedConnection);
    }
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
