#include <vxcore/vxstyledwidget.h>

#include <QStyleOption>
#include <QStylePainter>

VxStyledWidget::VxStyledWidget(QWidget *parent)
    : QWidget(parent)
{
}

VxStyledWidget::~VxStyledWidget() = default;

void VxStyledWidget::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_Widget, option);
}
