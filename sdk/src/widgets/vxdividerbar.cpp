#include "widgets/vxdividerbar.h"

#include "widgets/vxkitpaint.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>

using namespace VxKitPaint;

VxDividerBar::VxDividerBar(Qt::Orientation orientation, VxDynamicDividerWgt::BarStyle barStyle,
                           QWidget *parent)
    : QWidget(parent)
    , m_orientation(orientation)
    , m_barStyle(barStyle)
{
    setAttribute(Qt::WA_Hover);
    setCursor(orientation == Qt::Vertical ? Qt::SplitVCursor : Qt::SplitHCursor);
}

int VxDividerBar::thickness() const
{
    return m_barStyle == VxDynamicDividerWgt::LineBar
               ? 3
               : styleLength(this, VxStyle::PM_VxDividerWidth, 6);
}

int VxDividerBar::positionAlong(const QMouseEvent &event) const
{
    return m_orientation == Qt::Vertical ? event.globalPos().y() : event.globalPos().x();
}

void VxDividerBar::setHeld(bool held)
{
    m_held = held;
    update();
}

void VxDividerBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressPosition = positionAlong(*event);
    setHeld(true);
    Q_EMIT dragStarted();
}

void VxDividerBar::mouseMoveEvent(QMouseEvent *event)
{
    if (m_held)
        Q_EMIT dragged(positionAlong(*event) - m_pressPosition);
}

void VxDividerBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        setHeld(false);
}

void VxDividerBar::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClicked();
}

void VxDividerBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (drawStyleSheetBox(painter, this))
        return;
    if (m_barStyle == VxDynamicDividerWgt::LineBar) {
        drawLine(painter);
        return;
    }
    QStyle::State state =
        m_orientation == Qt::Horizontal ? QStyle::State_Horizontal : QStyle::State_None;
    state.setFlag(QStyle::State_Sunken, m_held);
    drawPrimitive(painter, this, VxStyle::PE_VxDividerBar, rect(), state);
}

void VxDividerBar::drawLine(QPainter &painter) const
{
    const bool lit = isEnabled() && underMouse();
    const QRect line =
        m_orientation == Qt::Vertical ? QRect(0, 1, width(), 1) : QRect(1, 0, 1, height());
    painter.fillRect(line, palette().color(lit ? QPalette::Highlight : QPalette::Dark));
}
