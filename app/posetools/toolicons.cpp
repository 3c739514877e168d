#include "posetools/toolicons.h"

#include <QPainter>
#include <QPainterPath>

namespace {

void paintArrowHead(QPainter *painter, const QPointF &tip, const QPointF &direction)
{
    const QPointF side(-direction.y(), direction.x());
    painter->drawPolyline(
        QPolygonF({tip - direction * 3 + side * 2.6, tip, tip - direction * 3 - side * 2.6}));
}

void paintPointer(QPainter *painter)
{
    painter->drawPolygon(
        QPolygonF({QPointF(5, 2.5), QPointF(5, 14), QPointF(8, 11.2), QPointF(10, 15.5),
                   QPointF(11.8, 14.7), QPointF(9.8, 10.4), QPointF(13.6, 10.2)}));
}

void paintCross(QPainter *painter)
{
    painter->drawLine(QPointF(9, 2), QPointF(9, 16));
    painter->drawLine(QPointF(2, 9), QPointF(16, 9));
    paintArrowHead(painter, {9, 1.8}, {0, -1});
    paintArrowHead(painter, {9, 16.2}, {0, 1});
    paintArrowHead(painter, {1.8, 9}, {-1, 0});
    paintArrowHead(painter, {16.2, 9}, {1, 0});
}

void paintArc(QPainter *painter)
{
    painter->drawArc(QRectF(3, 3, 12, 12), 60 * 16, 290 * 16);
    paintArrowHead(painter, {12.6, 4.2}, {0.86, 0.5});
}

void paintBox(QPainter *painter)
{
    painter->drawRect(QRectF(2.5, 9.5, 6, 6));
    painter->drawLine(QPointF(8.5, 9.5), QPointF(15, 3));
    painter->drawPolyline(QPolygonF({QPointF(10.6, 2.8), QPointF(15.2, 2.8), QPointF(15.2, 7.4)}));
}

void paintLimb(QPainter *painter)
{
    painter->drawPolyline(QPolygonF({QPointF(4, 3.5), QPointF(12.5, 8.5), QPointF(6.5, 15)}));
    painter->setBrush(painter->pen().color());
    for (const QPointF &joint : {QPointF(4, 3.5), QPointF(12.5, 8.5), QPointF(6.5, 15)})
        painter->drawEllipse(joint, 1.6, 1.6);
}

void paintPivot(QPainter *painter)
{
    painter->drawEllipse(QPointF(9, 9), 2.2, 2.2);
    painter->drawEllipse(QPointF(4, 13), 1.2, 1.2);
    painter->drawEllipse(QPointF(14, 13), 1.2, 1.2);
    painter->drawEllipse(QPointF(9, 3), 1.2, 1.2);
}

QIcon paintedIcon(void (*paint)(QPainter *), const QColor &ink, double ratio)
{
    QPixmap pixmap(QSize(ToolIconSide, ToolIconSide) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    paint(&painter);
    painter.end();
    return QIcon(pixmap);
}

} // namespace

QIcon toolIcon(PoseTools::Tool tool, const QColor &ink, double pixelRatio)
{
    constexpr void (*paints[])(QPainter *) = {paintPointer, paintCross, paintArc, paintBox,
                                              paintLimb};
    return paintedIcon(paints[tool], ink, pixelRatio);
}

QIcon pivotIcon(const QColor &ink, double pixelRatio)
{
    return paintedIcon(paintPivot, ink, pixelRatio);
}
