#ifndef VXNODEISOLATION_H
#define VXNODEISOLATION_H

#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtCore/QVector>
#include <vxcore/vxcoreglobal.h>

class VxNode;
class VxPane;

/// The nodes that a pane shows alone. A pane that supports this creates one and follows changed().
///
/// Isolation ends when its last node is removed from the scene or the scene is cleared, and by
/// Escape where no widget of the main window or a floating pane uses that key. It is not saved and
/// makes no undo entry.
class VXCORE_EXPORT VxNodeIsolation : public QObject
{
    Q_OBJECT
public:
    /// Owned by the pane. Inactive from the start.
    explicit VxNodeIsolation(VxPane *pane);
    ~VxNodeIsolation() override;

    /// That of the first pane that supports it; null without such a pane.
    static VxNodeIsolation *current();

    /// The isolated nodes, each once; none while every node is shown. Not owned; valid until one is
    /// removed from the scene.
    const QVector<VxNode *> &nodes() const;
    bool isActive() const { return !m_isolated.isEmpty(); }
    /// Shows these nodes alone; none: every node. Nodes outside of the scene are left out.
    void setNodes(const QVector<VxNode *> &nodes);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Other nodes are isolated. Sent at once, or once for all nodes that are removed from the
    /// scene in an event loop iteration as long as others remain.
    void changed();

private:
    void leaveOut(VxNode *removed);
    void report();

    mutable QVector<VxNode *> m_nodes; // with removed ones until it is read
    QSet<const VxNode *> m_isolated;
    bool m_isReportPending = false;
};

#endif
