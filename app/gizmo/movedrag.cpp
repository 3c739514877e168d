#include "gizmo/movedrag.h"

#include "gizmo/gizmodrag.h"
#include "viewport/groundgrid.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxlocalnumber.h>

MoveDrag::MoveDrag(const ViewportCamera &camera, const GizmoFrame &frame, GizmoPart part,
                   const QPointF &pixel)
    : m_camera(camera)
    , m_frame(frame)
    , m_part(part)
    , m_grabbed(pointAt(pixel).value_or(frame.origin))
{
}

/** What the mouse holds: a point of the part's line or plane. */
std::optional<QVector3D> MoveDrag::pointAt(const QPointF &pixel) const
{
    if (m_part == GizmoPart::View)
        return m_camera.pointAt(pixel, m_camera.depth(m_frame.origin));
    const QVector3D axis = m_frame.axisOf(m_part);
    if (isGizmoPlane(m_part))
        return pointOnPlane(m_camera, m_frame.origin, axis, pixel);
    const auto offset = offsetOnAxis(m_camera, m_frame.origin, axis, pixel);
    return offset ? std::optional<QVector3D>(m_frame.origin + axis * float(*offset)) : std::nullopt;
}

void MoveDrag::follow(const QPointF &pixel)
{
    if (const auto point = pointAt(pixel))
        m_offset = *point - m_grabbed;
}

void MoveDrag::followGrid(const QPointF &pixel, bool isWorld)
{
    follow(pixel);
    const float step = groundGridStep(m_camera.standardDistance());
    QVector3D result;
    for (int i = 0; i < 3; ++i) {
        const bool isUsed =
            m_part == GizmoPart::View || isGizmoPlane(m_part) == (gizmoAxis(m_part) != i);
        if (!isUsed)
            continue;
        const QVector3D axis = m_frame.axes[size_t(i)];
        const float start = isWorld ? QVector3D::dotProduct(m_frame.origin, axis) : 0;
        const float end = start + QVector3D::dotProduct(m_offset, axis);
        result += axis * (std::round(end / step) * step - start);
    }
    m_offset = result;
}

void MoveDrag::setAmount(double amount)
{
    if (hasAmount())
        m_offset = m_frame.axisOf(m_part) * float(amount);
}

QString MoveDrag::text() const
{
    const auto number = [](float value) {
        return vxLocalNumber(QString::number(double(value), 'f', 2));
    };
    if (hasAmount()) {
        static const char *const names[] = {"X ", "Y ", "Z "};
        return QLatin1String(names[std::max(0, gizmoAxis(m_part))]) +
               number(QVector3D::dotProduct(m_offset, m_frame.axisOf(m_part)));
    }
    return QStringLiteral("%1, %2, %3")
        .arg(number(m_offset.x()), number(m_offset.y()), number(m_offset.z()));
}
