#include "gizmo/gizmopainter.h"

#include "viewport/figurepainter.h"
#include "viewport/palettetone.h"

#include <QPainter>
#include <QPalette>

namespace {

constexpr double ShapeWidth = 2.2;
constexpr double ViewRingWidth = 1.2;
constexpr double ActiveWidth = 3.6;
constexpr double HandleOutlineWidth = 1.6; // on each side
constexpr int BackAlpha = 60;
constexpr int SquareAlpha = 110;
constexpr QPointF ReadoutOffset(18, 22); // clear of the pointer
constexpr double ReadoutMargin = 5;

QColor inkOf(const GizmoShape &shape, GizmoPart active, const QPalette &palette)
{
    if (shape.locked)
        return palette.color(QPalette::Disabled, QPalette::WindowText);
    const bool dark = hasDarkBase(palette);
    if (shape.part == active)
        return dark ? QColor(255, 214, 64) : QColor(214, 120, 0);
    switch (gizmoAxis(shape.part)) {
    case 0:
        return dark ? QColor(244, 92, 92) : QColor(200, 32, 32);
    case 1:
        return dark ? QColor(112, 204, 84) : QColor(36, 134, 28);
    case 2:
        return dark ? QColor(92, 152, 255) : QColor(34, 84, 208);
    default:
        return palette.color(QPalette::WindowText);
    }
}

void paintShape(QPainter *painter, const GizmoShape &shape, const QColor &ink, double width)
{
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(ink, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (shape.line.size() > 1)
        painter->drawPolyline(shape.line);
    if (shape.area.isEmpty())
        return;
    QColor fill = ink;
    if (shape.line.isEmpty())
        fill.setAlpha(SquareAlpha);
    painter->setBrush(fill);
    painter->setPen(QPen(ink, 1.4));
    painter->drawPolygon(shape.area);
}

} // namespace

void paintGizmo(QPainter *painter, const QVector<GizmoShape> &shapes, GizmoPart active,
                const QPalette &palette)
{
    QColor outline = palette.color(QPalette::Base);
    outline.setAlpha(170);
    for (const GizmoShape &shape : shapes) {
        QColor faint = inkOf(shape, active, palette);
        faint.setAlpha(BackAlpha);
        painter->setPen(QPen(faint, 1.2));
        if (shape.back.size() > 1)
            painter->drawPolyline(shape.back);
    }
    // The active part last, over the others.
    for (const bool isActivePass : {false, true}) {
        for (const GizmoShape &shape : shapes) {
            if ((shape.part == active) != isActivePass)
                continue;
            const bool isViewRing = shape.part == GizmoPart::View && shape.area.isEmpty();
            const double width = isActivePass ? ActiveWidth
                                 : isViewRing ? ViewRingWidth
                                              : ShapeWidth;
            if (shape.line.size() > 1) {
                painter->setPen(QPen(outline, width + 2 * HandleOutlineWidth, Qt::SolidLine,
                                     Qt::RoundCap, Qt::RoundJoin));
                painter->setBrush(Qt::NoBrush);
                painter->drawPolyline(shape.line);
            }
            paintShape(painter, shape, inkOf(shape, active, palette), width);
        }
    }
}

void paintGizmoReadout(QPainter *painter, const QPointF &mouse, const QString &text,
                       const QSizeF &view, const QPalette &palette)
{
    const QFontMetricsF metrics(painter->font());
    QRectF box(mouse + ReadoutOffset, QSizeF(metrics.horizontalAdvance(text) + 2 * ReadoutMargin,
                                             metrics.height() + ReadoutMargin));
    if (box.bottom() > view.height())
        box.moveBottom(mouse.y() - ReadoutOffset.y() / 2);
    box.translate(qMin(0.0, view.width() - box.right()), qMin(0.0, view.height() - box.bottom()));
    box.translate(qMax(0.0, -box.left()), qMax(0.0, -box.top()));
    paintTextBox(painter, box, text, palette, 235);
}
