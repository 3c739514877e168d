#include "widgets/vxkitpaint.h"

#include <QStyleOption>
#include <QWidget>

int VxKitPaint::styleLength(const QWidget *widget, VxStyle::PixelMetricId id, int otherwise)
{
    const int length =
        widget->style()->pixelMetric(static_cast<QStyle::PixelMetric>(id), nullptr, widget);
    return length > 0 ? length : otherwise;
}

void VxKitPaint::drawPrimitive(QPainter &painter, const QWidget *widget, VxStyle::PrimitiveId id,
                               const QRect &rect, QStyle::State state)
{
    QStyleOption option;
    option.initFrom(widget);
    option.rect = rect;
    option.state |= state;
    if (!widget->isEnabled())
        option.state &= ~QStyle::State_MouseOver;
    widget->style()->drawPrimitive(static_cast<QStyle::PrimitiveElement>(id), &option, &painter,
                                   widget);
}

bool VxKitPaint::drawStyleSheetBox(QPainter &painter, const QWidget *widget)
{
    if (!widget->testAttribute(Qt::WA_StyleSheetTarget))
        return false;
    QStyleOption option;
    option.initFrom(widget);
    widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, widget);
    return true;
}

void VxKitPaint::drawFocus(QPainter &painter, const QWidget *widget, const QRect &rect)
{
    if (!widget->hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(widget);
    option.rect = rect;
    option.backgroundColor = widget->palette().color(QPalette::Button);
    widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, widget);
}
