#ifndef SCALETOOL_H
#define SCALETOOL_H

#include "posetools/transformtool.h"

/// Scales the selected nodes along their own axes, or along all of them with the handle in the
/// middle. A scale of 0 grows by the factor's distance from 1.
class ScaleTool : public TransformTool
{
    Q_OBJECT
public:
    ScaleTool(VxScene *scene, PoseToolSettings *settings, QObject *parent);

protected:
    GizmoTarget targetOf(const QVector<VxNode *> &selected, VxNode *primary) const override;
    void beginDrag(const GizmoTarget &target, const QPointF &pixel) override;
    void follow(const QPointF &pixel, bool snaps) override;
    void setAmount(double amount) override { m_factor = amount; }
    void write() override;
    QString amountText() const override;

private:
    int channel() const;

    std::vector<GestureNode *> m_nodes;
    QPointF m_start;      // of the mouse
    double m_grabbed = 0; // on the axis, in the world; 0 where the mouse's direction counts
    double m_factor = 1;
};

#endif
