#ifndef IKTOOL_H
#define IKTOOL_H

#include "posetools/offsettool.h"

/// Drags a hand or a foot: the two bones above it rotate so that it follows, see Limb. A joint can
/// be grabbed at once; a selected one has arrows, too.
class IkTool : public OffsetTool
{
    Q_OBJECT
public:
    IkTool(VxScene *scene, PoseToolSettings *settings, QObject *parent);

    bool press(const ViewportPointer &at) override;

protected:
    GizmoTarget targetOf(const QVector<VxNode *> &selected, VxNode *primary) const override;
    void beginDrag(const GizmoTarget &target, const QPointF &pixel) override;
    void write() override;
    QString remark() const override;

private:
    GizmoTarget targetFor(VxNode *joint) const;

    std::optional<Limb> m_limb;
    bool m_reached = true;
};

#endif
