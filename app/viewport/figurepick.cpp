#include "viewport/figurepick.h"

#include "viewport/boneshape.h"
#include "viewport/figurelines.h"
#include "viewport/viewportcamera.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxnode.h>

namespace {

// Distance within which positions count as equal; the depth decides then.
constexpr double SamePlace = 0.5;

/// The best candidate.
class NearestNode
{
public:
    explicit NearestNode(double reach)
        : m_distance(reach)
    {
    }

    void offer(VxNode *node, double distance, float depth)
    {
        if (distance > m_distance + (m_node ? SamePlace : 0) || !node->isSelectable())
            return;
        if (m_node && distance > m_distance - SamePlace && depth >= m_depth)
            return;
        m_node = node;
        m_distance = distance;
        m_depth = depth;
    }

    VxNode *node() const { return m_node; }

private:
    VxNode *m_node = nullptr;
    double m_distance;
    float m_depth = 0;
};

double length(const QPointF &offset)
{
    return std::hypot(offset.x(), offset.y());
}

VxNode *pickJoint(const FigureLines &figure, const ViewportCamera &camera, const QPointF &pixel)
{
    NearestNode nearest(JointReach);
    for (const FigureLines::Joint &joint : figure.joints) {
        if (const auto at = camera.project(joint.at))
            nearest.offer(joint.node, length(*at - pixel), camera.depth(joint.at));
    }
    return nearest.node();
}

} // namespace

double distanceToLine(const QPointF &point, const QPointF &from, const QPointF &to)
{
    const QPointF along = to - from;
    const double square = QPointF::dotProduct(along, along);
    const double part =
        square > 0 ? std::clamp(QPointF::dotProduct(point - from, along) / square, 0.0, 1.0) : 0;
    return length(from + along * part - point);
}

VxNode *pickFigure(const FigureLines &figure, const ViewportCamera &camera, const QPointF &pixel)
{
    if (VxNode *joint = pickJoint(figure, camera, pixel))
        return joint;
    NearestNode nearest(LineReach);
    const auto offer = [&](VxNode *node, const QVector3D &from, const QVector3D &to) {
        if (const auto line = camera.project(from, to))
            nearest.offer(node, distanceToLine(pixel, line->p1(), line->p2()),
                          camera.depth((from + to) / 2));
    };
    for (const FigureLines::Bone &bone : figure.bones) {
        offer(bone.node, bone.from, bone.to);
        const auto shape = boneShape(bone, camera);
        if (shape && shape->contains(pixel))
            nearest.offer(bone.node, 0, camera.depth((bone.from + bone.to) / 2));
    }
    for (const FigureLines::Link &link : figure.links)
        offer(link.node, link.from, link.to);
    const float axisLength = camera.axisLength();
    for (const FigureLines::Axes &axes : figure.axes) {
        for (const QVector3D &direction : axes.directions)
            offer(axes.node, axes.at, axes.at + direction * axisLength);
    }
    return nearest.node();
}
