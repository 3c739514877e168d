#ifndef VXCORE_VXNODEISOLATION_H
#define VXCORE_VXNODEISOLATION_H

#include <QtCore/QObject>
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

    /// The isolated nodes; none while every node is shown. Not owned.
    const QVector<VxNode *> &nodes() const { return m_nodes; }
    bool isActive() const { return !m_nodes.isEmpty(); }
    /// Shows these nodes alone; none: every node. Nodes outside of the scene are left out.
    void setNodes(QVector<VxNode *> nodes);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void changed();

private:
    void leaveOut(const VxNode *removed);

    QVector<VxNode *> m_nodes;
};

#endif
