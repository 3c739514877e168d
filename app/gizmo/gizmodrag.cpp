#include "gizmo/gizmodrag.h"

#include <cmath>

namespace {

constexpr double ToDegrees = 57.295779513082320877;
// Sine of the angle below which an axis points at the eye, or a plane is seen from its edge.
constexpr float SmallestSine = 0.02f;
constexpr float SmallestRingSine = 0.2f;
constexpr double RingPixels = 66;

} // namespace

QVector3D perpendicularTo(const QVector3D &axis)
{
    const QVector3D helper = std::abs(axis.x()) < 0.8f ? QVector3D(1, 0, 0) : QVector3D(0, 1, 0);
    return QVector3D::crossProduct(axis, helper).normalized();
}

std::optional<double> offsetOnAxis(const ViewportCamera &camera, const QVector3D &origin,
                                   const QVector3D &axis, const QPointF &pixel)
{
    const QVector3D ray = camera.directionAt(pixel);
    const double cosine = double(QVector3D::dotProduct(ray, axis));
    const double square = 1 - cosine * cosine;
    if (square < double(SmallestSine) * double(SmallestSine))
        return std::nullopt;
    const QVector3D seen = camera.pointAt(pixel, camera.depth(origin));
    const QVector3D across = axis - ray * float(cosine);
    return double(QVector3D::dotProduct(seen - origin, across)) / square;
}

std::optional<QVector3D> pointOnPlane(const ViewportCamera &camera, const QVector3D &origin,
                                      const QVector3D &normal, const QPointF &pixel)
{
    const QVector3D ray = camera.directionAt(pixel);
    const float slope = QVector3D::dotProduct(ray, normal);
    if (std::abs(slope) < SmallestSine)
        return std::nullopt;
    const QVector3D seen = camera.pointAt(pixel, camera.depth(origin));
    const QVector3D point = seen + ray * (QVector3D::dotProduct(origin - seen, normal) / slope);
    return camera.project(point) ? std::optional<QVector3D>(point) : std::nullopt;
}

RotationDrag::RotationDrag(const ViewportCamera &camera, const QVector3D &origin,
                           const QVector3D &axis, const QPointF &pixel)
    : m_camera(camera)
    , m_origin(origin)
    , m_axis(axis)
    , m_right(perpendicularTo(axis))
    , m_up(QVector3D::crossProduct(axis, m_right))
    , m_start(pixel)
{
    const QPointF middle = camera.project(origin).value_or(pixel);
    const QVector3D ray = camera.directionAt(middle);
    if (std::abs(QVector3D::dotProduct(ray, axis)) >= SmallestRingSine) {
        m_direction = directionTo(pixel);
        return;
    }
    // The tangent of the ring's nearest point.
    const QVector3D tangent = QVector3D::crossProduct(axis, -ray).normalized();
    const auto ahead = camera.project(origin + tangent * camera.unitsPerPixel(origin));
    const QPointF step = ahead ? *ahead - middle : QPointF(1, 0);
    const double length = std::hypot(step.x(), step.y());
    m_tangent = length > 0 ? step / length * (ToDegrees / RingPixels) : QPointF();
}

std::optional<double> RotationDrag::directionTo(const QPointF &pixel) const
{
    const auto point = pointOnPlane(m_camera, m_origin, m_axis, pixel);
    if (!point)
        return std::nullopt;
    const double x = double(QVector3D::dotProduct(*point - m_origin, m_right));
    const double y = double(QVector3D::dotProduct(*point - m_origin, m_up));
    return x == 0 && y == 0 ? std::nullopt : std::optional<double>(std::atan2(y, x) * ToDegrees);
}

double RotationDrag::follow(const QPointF &pixel)
{
    if (!m_tangent.isNull())
        return QPointF::dotProduct(pixel - m_start, m_tangent);
    const auto direction = directionTo(pixel);
    if (direction && m_direction)
        m_angle += std::remainder(*direction - *m_direction, 360.0);
    if (direction)
        m_direction = direction;
    return m_angle;
}
