#ifndef VXGLYPHPEN_H
#define VXGLYPHPEN_H

#include <QtGui/QPainter>
#include <QtGui/QPolygonF>

// Strokes shared by the icons. Coordinates are units of the icon's field.
namespace VxGlyphPen {

inline QPolygonF polygon(std::initializer_list<QPointF> points)
{
    return QPolygonF(QVector<QPointF>(points));
}

inline QPolygonF diamond(qreal x, qreal y, qreal reach)
{
    return polygon({{x, y - reach}, {x + reach, y}, {x, y + reach}, {x - reach, y}});
}

inline void fill(QPainter &painter, const QPolygonF &shape, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(shape);
}

inline void fill(QPainter &painter, const QRectF &rect, const QColor &color)
{
    painter.fillRect(rect, color);
}

inline void dot(QPainter &painter, qreal x, qreal y, qreal radius, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QPointF(x, y), radius, radius);
}

// Sets the painter up for lines without filling.
inline void lines(QPainter &painter, const QColor &color, qreal width = 1.5)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

inline void polyline(QPainter &painter, std::initializer_list<QPointF> points)
{
    painter.drawPolyline(polygon(points));
}

// A shape over others, with a transparent gap around it.
inline void fillOver(QPainter &painter, const QPolygonF &shape, const QColor &color,
                     qreal gap = 1.2)
{
    painter.setBrush(Qt::black);
    painter.setPen(QPen(Qt::black, 2 * gap, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const QPainter::CompositionMode mode = painter.compositionMode();
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.drawPolygon(shape);
    painter.setCompositionMode(mode);
    fill(painter, shape, color);
}

} // namespace VxGlyphPen

#endif
