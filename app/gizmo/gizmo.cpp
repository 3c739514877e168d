#include "gizmo/gizmo.h"

#include "gizmo/gizmodrag.h"
#include "viewport/figurepick.h"
#include "viewport/viewportcamera.h"

#include <algorithm>
#include <cmath>

namespace {

// Pixels.
constexpr float ArrowLength = 76;
constexpr float HeadLength = 14;
constexpr double HeadHalfWidth = 5;
constexpr double HandleHalfSide = 5.5;
constexpr double MiddleHalfSide = 6.5;
constexpr float SquareFrom = 22;
constexpr float SquareTo = 36;
constexpr float RingRadius = 66;
constexpr float ViewRingRadius = 82;

constexpr double ShortestArrow = 16;
constexpr double SmallestSquare = 64; // of area
constexpr int RingSegments = 72;

double crossProduct(const QPointF &a, const QPointF &b)
{
    return a.x() * b.y() - a.y() * b.x();
}

double areaOf(const QPolygonF &polygon)
{
    double sum = 0;
    for (int i = 0; i < polygon.size(); ++i)
        sum += crossProduct(polygon.at(i), polygon.at((i + 1) % polygon.size()));
    return std::abs(sum) / 2;
}

QPolygonF squareAround(const QPointF &at, double halfSide)
{
    return QPolygonF({at + QPointF(-halfSide, -halfSide), at + QPointF(halfSide, -halfSide),
                      at + QPointF(halfSide, halfSide), at + QPointF(-halfSide, halfSide)});
}

/// Builds the shapes of one gizmo.
class GizmoBuilder
{
public:
    GizmoBuilder(const GizmoFrame &frame, const GizmoLocks &locks, const ViewportCamera &camera)
        : m_frame(frame)
        , m_locks(locks)
        , m_camera(camera)
        , m_unit(camera.unitsPerPixel(frame.origin))
    {
        if (const auto at = camera.project(frame.origin))
            m_middle = *at;
        m_toEye = -camera.directionAt(m_middle);
    }

    void addArrow(GizmoPart part, bool isScale)
    {
        const QVector3D axis = m_frame.axisOf(part);
        const auto tip = pixelAt(axis * ArrowLength);
        const auto neck = pixelAt(axis * (ArrowLength - HeadLength));
        if (!tip || !neck || QLineF(m_middle, *tip).length() < ShortestArrow)
            return;
        const QLineF line(m_middle, *tip);
        const QPointF side = QPointF(-line.dy(), line.dx()) / line.length() * HeadHalfWidth;
        const QPolygonF head = isScale ? squareAround(*tip, HandleHalfSide)
                                       : QPolygonF({*tip, *neck + side, *neck - side});
        add(part, QVector<QPointF>{m_middle, isScale ? *tip : *neck}, head);
    }

    void addSquare(GizmoPart part)
    {
        const auto axis = size_t(gizmoAxis(part));
        const QVector3D u = m_frame.axes.at((axis + 1) % 3);
        const QVector3D v = m_frame.axes.at((axis + 2) % 3);
        QPolygonF square;
        for (const QVector3D &corner :
             {u * SquareFrom + v * SquareFrom, u * SquareTo + v * SquareFrom,
              u * SquareTo + v * SquareTo, u * SquareFrom + v * SquareTo}) {
            const auto at = pixelAt(corner);
            if (!at)
                return;
            square.append(*at);
        }
        if (areaOf(square) >= SmallestSquare)
            add(part, {}, square);
    }

    void addMiddle() { add(GizmoPart::View, {}, squareAround(m_middle, MiddleHalfSide)); }

    void addRing(GizmoPart part)
    {
        const bool isView = part == GizmoPart::View;
        const QVector3D axis = isView ? m_toEye : m_frame.axisOf(part);
        const float radius = isView ? ViewRingRadius : RingRadius;
        // Begins where the ring passes from the far half to the near one.
        QVector3D start = QVector3D::crossProduct(m_toEye, axis);
        if (start.length() < 1e-3f)
            start = perpendicularTo(axis);
        start.normalize();
        const QVector3D up = QVector3D::crossProduct(axis, start).normalized();
        const bool isWhole = std::abs(QVector3D::dotProduct(axis, m_toEye)) > 0.995f;
        const bool isUpNear = QVector3D::dotProduct(up, m_toEye) >= 0;
        QPolygonF near;
        QPolygonF far;
        for (int i = 0; i <= RingSegments; ++i) {
            const float angle = 2 * float(M_PI) * float(i) / RingSegments;
            const auto at = pixelAt((start * std::cos(angle) + up * std::sin(angle)) * radius);
            if (!at)
                return;
            const bool isFirstHalf = i <= RingSegments / 2;
            const bool isSecondHalf = i >= RingSegments / 2;
            if (isWhole || (isUpNear ? isFirstHalf : isSecondHalf))
                near.append(*at);
            if (!isWhole && (isUpNear ? isSecondHalf : isFirstHalf))
                far.append(*at);
        }
        m_shapes.append({part, near, far, {}, m_locks.at(size_t(part))});
    }

    QVector<GizmoShape> shapes() const { return m_shapes; }

private:
    std::optional<QPointF> pixelAt(const QVector3D &pixels) const
    {
        return m_camera.project(m_frame.origin + pixels * m_unit);
    }

    void add(GizmoPart part, const QPolygonF &line, const QPolygonF &area)
    {
        m_shapes.append({part, line, {}, area, m_locks.at(size_t(part))});
    }

    const GizmoFrame &m_frame;
    const GizmoLocks &m_locks;
    const ViewportCamera &m_camera;
    const float m_unit; // in the world, of one pixel
    QPointF m_middle;
    QVector3D m_toEye;
    QVector<GizmoShape> m_shapes;
};

double distanceTo(const GizmoShape &shape, const QPointF &pixel)
{
    if (!shape.area.isEmpty() && shape.area.containsPoint(pixel, Qt::OddEvenFill))
        return 0;
    double distance = GizmoReach + 1;
    const auto measure = [&](const QPolygonF &line, bool isClosed) {
        for (int i = 0; i + (isClosed ? 0 : 1) < line.size(); ++i)
            distance = std::min(distance,
                                distanceToLine(pixel, line.at(i), line.at((i + 1) % line.size())));
    };
    measure(shape.line, false);
    measure(shape.area, true);
    return distance;
}

} // namespace

int gizmoAxis(GizmoPart part)
{
    static constexpr int axes[GizmoPartCount] = {-1, 0, 1, 2, 0, 1, 2, -1};
    return axes[size_t(part)];
}

QVector3D GizmoFrame::axisOf(GizmoPart part) const
{
    return axes[size_t(std::max(0, gizmoAxis(part)))];
}

bool isGizmoPlane(GizmoPart part)
{
    return part == GizmoPart::YZ || part == GizmoPart::ZX || part == GizmoPart::XY;
}

QVector<GizmoShape> gizmoShapes(GizmoKind kind, const GizmoFrame &frame, const GizmoLocks &locks,
                                const ViewportCamera &camera)
{
    if (!camera.project(frame.origin))
        return {};
    GizmoBuilder builder(frame, locks, camera);
    constexpr GizmoPart axes[] = {GizmoPart::X, GizmoPart::Y, GizmoPart::Z};
    constexpr GizmoPart squares[] = {GizmoPart::YZ, GizmoPart::ZX, GizmoPart::XY};
    if (kind == GizmoKind::Rotate) {
        builder.addRing(GizmoPart::View);
        for (const GizmoPart part : axes)
            builder.addRing(part);
        return builder.shapes();
    }
    for (const GizmoPart part : axes)
        builder.addArrow(part, kind == GizmoKind::Scale);
    if (kind == GizmoKind::Move) {
        for (const GizmoPart part : squares)
            builder.addSquare(part);
    }
    builder.addMiddle();
    return builder.shapes();
}

GizmoPart hitGizmo(const QVector<GizmoShape> &shapes, const QPointF &pixel)
{
    GizmoPart found = GizmoPart::None;
    double nearest = GizmoReach;
    for (const GizmoShape &shape : shapes) {
        const double distance = shape.locked ? GizmoReach + 1 : distanceTo(shape, pixel);
        const bool isMiddle = shape.part == GizmoPart::View && !shape.area.isEmpty();
        if (distance > nearest || (distance == nearest && found != GizmoPart::None && !isMiddle))
            continue;
        found = shape.part;
        nearest = distance;
    }
    return found;
}
