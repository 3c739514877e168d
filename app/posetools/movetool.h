#ifndef MOVETOOL_H
#define MOVETOOL_H

#include "posetools/offsettool.h"

/// Moves the selected nodes along an axis, in a plane or parallel to the view. Nodes below another
/// selected one move along with it.
class MoveTool : public OffsetTool
{
    Q_OBJECT
public:
    MoveTool(VxScene *scene, PoseToolSettings *settings, QObject *parent);

protected:
    GizmoTarget targetOf(const QVector<VxNode *> &selected, VxNode *primary) const override;
    void beginDrag(const GizmoTarget &target, const QPointF &pixel) override;
    void write() override;

private:
    struct Part
    {
        GestureNode *node;
        QMatrix4x4 parent; // to the world, at the press
    };
    std::vector<Part> m_parts;
};

#endif
