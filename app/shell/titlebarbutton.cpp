#include "shell/titlebarbutton.h"

#include <QPainter>

namespace {

constexpr int Side = 18;

void paintGlyph(TitleBarButton::Glyph glyph, const QRectF &box, QPainter *painter)
{
    switch (glyph) {
    case TitleBarButton::Glyph::Options:
        for (const qreal y : {box.top() + 1, box.center().y(), box.bottom() - 1})
            painter->drawLine(QPointF(box.left(), y), QPointF(box.right(), y));
        break;
    case TitleBarButton::Glyph::Float:
        painter->drawRect(box.adjusted(0, 3, -3, 0));
        painter->drawPolyline(QPolygonF() << box.topLeft() + QPointF(3, 0) << box.topRight()
                                          << box.bottomRight() - QPointF(0, 3));
        break;
    case TitleBarButton::Glyph::Close:
        painter->drawLine(box.topLeft(), box.bottomRight());
        painter->drawLine(box.topRight(), box.bottomLeft());
        break;
    }
}

} // namespace

TitleBarButton::TitleBarButton(Glyph glyph, QWidget *parent)
    : QAbstractButton(parent)
    , m_glyph(glyph)
{
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TitleBarButton::sizeHint() const
{
    const int side = qMax(Side, fontMetrics().height() * 3 / 4);
    return {side, side};
}

void TitleBarButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse() || isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(isDown() ? QPalette::Highlight : QPalette::Mid));
        painter.drawRoundedRect(rect(), 3, 3);
        painter.setBrush(Qt::NoBrush);
    }
    // Glyphs are drawn in the smallest size.
    const qreal scale = qMin(width(), height()) / qreal(Side);
    painter.scale(scale, scale);
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1.2));
    paintGlyph(m_glyph, QRectF(0, 0, Side, Side).adjusted(5, 5, -5, -5), &painter);
}

void TitleBarButton::enterEvent(QEvent *event)
{
    update();
    QAbstractButton::enterEvent(event);
}

void TitleBarButton::leaveEvent(QEvent *event)
{
    update();
    QAbstractButton::leaveEvent(event);
}
