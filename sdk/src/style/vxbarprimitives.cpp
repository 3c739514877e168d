#include "style/vxbarprimitives.h"

#include "style/vxcolors.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QStyleOption>
#include <algorithm>
#include <cmath>

namespace {

constexpr qreal cornerRadius = 3;

void drawRounded(QPainter *painter, const QRectF &rect, const QPen &pen, const QBrush &brush)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen);
    painter->setBrush(brush);
    painter->drawRoundedRect(rect, cornerRadius, cornerRadius);
    painter->restore();
}

void fillRounded(QPainter *painter, const QRectF &rect, const QColor &color)
{
    drawRounded(painter, rect, Qt::NoPen, color);
}

void strokeRounded(QPainter *painter, const QRectF &rect, const QColor &color)
{
    drawRounded(painter, rect.adjusted(0.5, 0.5, -0.5, -0.5), color, Qt::NoBrush);
}

// A button's background by its state; invalid for none.
QColor buttonGround(const QStyleOption *option)
{
    const QPalette &palette = option->palette;
    const QStyle::State state = option->state;
    const QColor button = palette.color(QPalette::Button);
    const QColor text = palette.color(QPalette::ButtonText);
    if (state & QStyle::State_Sunken)
        return VxColors::mix(button, palette.color(QPalette::Shadow), 0.4);
    const bool hovered = (state & QStyle::State_MouseOver) && (state & QStyle::State_Enabled);
    if (state & QStyle::State_On) {
        // A light highlight leaves little contrast to the icon; the edge shows the state as well.
        const bool light = VxColors::schemeFor(palette) == VxStyle::ColorScheme::Contrast;
        const qreal share = light ? 0.25 : 0.65;
        return VxColors::mix(button, palette.color(QPalette::Highlight),
                             hovered ? share + (light ? 0.12 : 0.2) : share);
    }
    if (hovered)
        return VxColors::mix(button, text, 0.13);
    return state & QStyle::State_Raised ? button : QColor();
}

} // namespace

void VxBarPrimitives::drawPaneBackground(const QStyleOption *option, QPainter *painter)
{
    painter->fillRect(option->rect, option->palette.color(QPalette::Window));
}

void VxBarPrimitives::drawBarBackground(const QStyleOption *option, QPainter *painter)
{
    const QPalette &palette = option->palette;
    fillRounded(painter, option->rect, palette.color(QPalette::Button));
    strokeRounded(
        painter, option->rect,
        VxColors::mix(palette.color(QPalette::Button), palette.color(QPalette::Dark), 0.6));
}

void VxBarPrimitives::drawBarButton(const QStyleOption *option, QPainter *painter)
{
    const QColor ground = buttonGround(option);
    if (!ground.isValid())
        return;
    const QRectF rect = QRectF(option->rect).adjusted(1, 1, -1, -1);
    fillRounded(painter, rect, ground);
    const QStyle::State outlined =
        QStyle::State_On | QStyle::State_Sunken | QStyle::State_Raised | QStyle::State_HasFocus;
    if (!(option->state & outlined))
        return;
    const bool accented = option->state & (QStyle::State_On | QStyle::State_HasFocus);
    const QPalette &palette = option->palette;
    const QColor edge = accented ? palette.color(QPalette::Highlight)
                                 : VxColors::mix(palette.color(QPalette::Button),
                                                 palette.color(QPalette::Dark), 0.6);
    strokeRounded(painter, rect, edge);
}

void VxBarPrimitives::drawBarSeparator(const QStyleOption *option, QPainter *painter)
{
    const QRect &rect = option->rect;
    const QPalette &palette = option->palette;
    const QColor color =
        VxColors::mix(palette.color(QPalette::Button), palette.color(QPalette::Dark), 0.55);
    if (option->state & QStyle::State_Horizontal) {
        const int margin = std::min(3, rect.height() / 4);
        painter->fillRect(rect.center().x(), rect.top() + margin, 1, rect.height() - 2 * margin,
                          color);
    } else {
        const int margin = std::min(3, rect.width() / 4);
        painter->fillRect(rect.left() + margin, rect.center().y(), rect.width() - 2 * margin, 1,
                          color);
    }
}

void VxBarPrimitives::drawDownArrow(const QStyleOption *option, QPainter *painter)
{
    const qreal side = std::min(option->rect.width(), option->rect.height());
    const qreal half = std::max<qreal>(2, std::min<qreal>(4, std::floor(side / 2) - 1));
    const QPointF middle = QRectF(option->rect).center() + QPointF(0, 0.5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(option->palette.color(QPalette::ButtonText), 1.5, Qt::SolidLine,
                         Qt::RoundCap, Qt::RoundJoin));
    const QPointF points[] = {middle + QPointF(-half, -half / 2), middle + QPointF(0, half / 2),
                              middle + QPointF(half, -half / 2)};
    painter->drawPolyline(points, 3);
    painter->restore();
}

void VxBarPrimitives::drawDividerBar(const QStyleOption *option, QPainter *painter)
{
    const QRect &rect = option->rect;
    const QPalette &palette = option->palette;
    const bool hovered = option->state & (QStyle::State_MouseOver | QStyle::State_Sunken);
    painter->fillRect(rect, palette.color(hovered ? QPalette::Highlight : QPalette::Window));
    const QColor grip = hovered ? palette.color(QPalette::HighlightedText)
                                : VxColors::mix(palette.color(QPalette::Window),
                                                palette.color(QPalette::WindowText), 0.5);
    // Three dots along the bar, in its middle.
    const bool horizontal = option->state & QStyle::State_Horizontal;
    for (int step = -1; step <= 1; ++step) {
        const QPoint offset = horizontal ? QPoint(0, step * 5) : QPoint(step * 5, 0);
        painter->fillRect(QRect(rect.center() + offset, QSize(2, 2)), grip);
    }
}
