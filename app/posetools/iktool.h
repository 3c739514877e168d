#ifndef IKTOOL_H
#define IKTOOL_H

#include "gizmo/movedrag.h"
#include "posetools/transformtool.h"

/// Drags a hand or a foot: the two bones above it rotate so that it follows, see Limb. A joint can
/// be grabbed at once; a selected one has arrows, too.
class IkTool : public TransformTool
{
    Q_OBJECT
public:
    IkTool(VxScene *scene, PoseToolSettings *settings, QObject *parent);

    bool press(const ViewportPointer &at) override;

protected:
    GizmoTarget targetOf(const QVector<VxNode *> &selected, VxNode *primary) const override;
    QString title() const override;
    void beginDrag(const GizmoTarget &target, const QPointF &pixel) override;
    void follow(const QPointF &pixel, bool snaps) override;
    void setAmount(double amount) override;
    bool hasAmount() const override;
    void write() override;
    QString amountText() const override;
    QString remark() const override;

private:
    GizmoTarget targetFor(VxNode *joint) const;

    std::optional<Limb> m_limb;
    std::optional<MoveDrag> m_drag;
    bool m_reached = true;
};

#endif
