#ifndef OFFSETTOOL_H
#define OFFSETTOOL_H

#include "gizmo/movedrag.h"
#include "posetools/transformtool.h"

/// A tool whose drag is an offset in the world: along an axis, in a plane or parallel to the view.
class OffsetTool : public TransformTool
{
    Q_OBJECT
protected:
    using TransformTool::TransformTool;

    void beginDrag(const GizmoTarget &target, const QPointF &pixel) override;
    void follow(const QPointF &pixel, bool snaps) override;
    void setAmount(double amount) override { m_drag->setAmount(amount); }
    bool hasAmount() const override { return m_drag->hasAmount(); }
    QString amountText() const override { return m_drag->text(); }

    /// Of the drag.
    QVector3D offset() const { return m_drag->offset(); }

private:
    std::optional<MoveDrag> m_drag;
};

#endif
