#ifndef ROTATETOOL_H
#define ROTATETOOL_H

#include "gizmo/gizmodrag.h"
#include "posetools/transformtool.h"

/// Rotates the selected nodes about an axis, each about its own origin or all about a common pivot.
///
/// The angles follow the rotation order, and are continuous over any number of revolutions. A
/// rotation that would leave a channel's limits stops there. In local orientation, the rings of a
/// node with a locked angle are the axes of its channels, so that each changes one channel only.
class RotateTool : public TransformTool
{
    Q_OBJECT
public:
    RotateTool(VxScene *scene, PoseToolSettings *settings, QObject *parent);

protected:
    GizmoTarget targetOf(const QVector<VxNode *> &selected, VxNode *primary) const override;
    void beginDrag(const GizmoTarget &target, const QPointF &pixel) override;
    void follow(const QPointF &pixel, bool snaps) override;
    void setAmount(double amount) override;
    void write() override;
    QString amountText() const override;

private:
    struct Part
    {
        GestureNode *node;
        VxVector axis; // in the parent's space
        int channel;   // the only one that changes; -1 for a rotation about the axis
        VxVector arm;  // from the common pivot to the node, in the world
        QMatrix4x4 parent;
    };
    VxVector axisFor(const GestureNode &node, GizmoPart part, const QVector3D &worldAxis) const;
    bool isByChannel(const GestureNode &node) const;
    GizmoLocks locksOf(const GestureNode &node, const GizmoFrame &frame) const;
    QVector3D worldAxis() const;
    double writeAngles(const Part &part);
    void writePosition(const Part &part, double angle);

    std::vector<Part> m_parts;
    std::optional<RotationDrag> m_drag;
    double m_angle = 0; // degrees
    QVector3D m_axis;   // of the drag, in the world
};

#endif
