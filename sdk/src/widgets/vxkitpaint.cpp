#include "widgets/vxkitpaint.h"

#include <QAbstractButton>
#include <QStyleOption>

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

void VxKitPaint::drawButtonGround(QPainter &painter, const QAbstractButton *button,
                                  const QRect &rect)
{
    QStyle::State state;
    state.setFlag(QStyle::State_Sunken, button->isDown());
    state.setFlag(QStyle::State_On, button->isChecked());
    drawPrimitive(painter, button, VxStyle::PE_VxBarButton, rect, state);
}

void VxKitPaint::drawButtonIcon(QPainter &painter, const QAbstractButton *button, const QRect &rect,
                                bool active)
{
    QIcon::Mode mode = QIcon::Disabled;
    if (button->isEnabled())
        mode = active ? QIcon::Active : QIcon::Normal;
    button->icon().paint(&painter, rect, Qt::AlignCenter, mode,
                         button->isChecked() ? QIcon::On : QIcon::Off);
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
