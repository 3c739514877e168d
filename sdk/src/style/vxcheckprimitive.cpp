#include "style/vxcheckprimitive.h"

#include "style/vxcolors.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>

namespace {

QRectF squareIn(const QRect &rect)
{
    const int side = qMin(rect.width(), rect.height()) - 1;
    const QPoint corner((rect.width() - side) / 2, (rect.height() - side) / 2);
    return QRectF(QPointF(rect.topLeft() + corner) + QPointF(0.5, 0.5), QSizeF(side - 1, side - 1));
}

} // namespace

void vxDrawCheckBox(const QStyleOption *option, QPainter *painter)
{
    const QPalette &palette = option->palette;
    const QColor ground = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const bool hovered = option->state & QStyle::State_MouseOver;
    const QRectF square = squareIn(option->rect);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(VxColors::mix(text, ground, hovered ? 0.2 : 0.5));
    painter->setBrush(ground);
    painter->drawRoundedRect(square, 2, 2);
    const qreal unit = square.width() / 12;
    if (option->state & QStyle::State_On) {
        painter->setPen(QPen(text, 1.8 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF corner = square.topLeft();
        const QPointF mark[] = {corner + QPointF(2.8, 6.3) * unit,
                                corner + QPointF(5.2, 8.8) * unit,
                                corner + QPointF(9.3, 3.4) * unit};
        painter->drawPolyline(mark, 3);
    } else if (option->state & QStyle::State_NoChange) {
        painter->fillRect(square.adjusted(3 * unit, 5 * unit, -3 * unit, -5 * unit), text);
    }
    painter->restore();
}
