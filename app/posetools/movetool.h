#ifndef MOVETOOL_H
#define MOVETOOL_H

#include "gizmo/movedrag.h"
#include "posetools/transformtool.h"

/// Moves the selected nodes along an axis, in a plane or parallel to the view. Nodes below another
/// selected one move along with it.
class MoveTool : public TransformTool
{
    Q_OBJECT
public:
    MoveTool(VxScene *scene, PoseToolSettings *settings, QObject *parent);

protected:
    GizmoTarget targetOf(const QVector<VxNode *> &selected, VxNode *primary) const override;
    QString title() const override;
    void beginDrag(const GizmoTarget &target, const QPointF &pixel) override;
    void follow(const QPointF &pixel, bool snaps) override;
    void setAmount(double amount) override;
    bool hasAmount() const override;
    void write() override;
    QString amountText() const override;

private:
    struct Part
    {
        GestureNode *node;
        QMatrix4x4 parent; // to the world, at the press
    };
    std::vector<Part> m_parts;
    std::optional<MoveDrag> m_drag;
};

#endif
