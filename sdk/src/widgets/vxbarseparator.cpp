#include "widgets/vxbarseparator.h"

#include "widgets/vxkitpaint.h"

#include <QPainter>

using namespace VxKitPaint;

VxBarSeparator::VxBarSeparator(VxButtonBar::SeparatorType type, QWidget *parent)
    : QWidget(parent)
    , m_type(type)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QSize VxBarSeparator::sizeHint() const
{
    const int width = m_type == VxButtonBar::SpaceSeparator
                          ? 2 * styleLength(this, VxStyle::PM_VxBaseMargin, 4)
                          : 1;
    return {width, styleLength(this, VxStyle::PM_VxControlHeight, 22)};
}

void VxBarSeparator::paintEvent(QPaintEvent *)
{
    if (m_type == VxButtonBar::SpaceSeparator)
        return;
    QPainter painter(this);
    const int inset = m_type == VxButtonBar::SmallSeparator ? height() / 5 : 0;
    drawPrimitive(painter, this, VxStyle::PE_VxBarSeparator, rect().adjusted(0, inset, 0, -inset),
                  QStyle::State_Horizontal);
}
