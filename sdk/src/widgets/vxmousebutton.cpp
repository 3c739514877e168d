#include <vxcore/vxmousebutton.h>

#include "widgets/vxkitpaint.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleOption>
#include <QStylePainter>

class VxMouseButton::Private
{
public:
    explicit Private(VxMouseButton *owner)
        : button(owner)
    {
    }

    VxMouseButton *const button;
    QPixmap normal;
    QPixmap hovered;
    QPixmap pressed;
    bool held = false;
    bool wasDragged = false;
    QPoint pressPosition; // global

    // Ends the hold without a click.
    void release()
    {
        if (!held)
            return;
        held = false;
        button->setDown(false);
        Q_EMIT button->released();
    }

    const QPixmap &hoveredOrNormal() const { return hovered.isNull() ? normal : hovered; }

    QPixmap currentPixmap() const
    {
        if (!button->isEnabled()) {
            QStyleOption option;
            option.initFrom(button);
            return button->style()->generatedIconPixmap(QIcon::Disabled, normal, &option);
        }
        if (button->isDown() || button->isChecked())
            return pressed.isNull() ? hoveredOrNormal() : pressed;
        return button->underMouse() ? hoveredOrNormal() : normal;
    }

    static QSize logicalSize(const QPixmap &pixmap)
    {
        return pixmap.isNull() ? QSize(0, 0)
                               : (QSizeF(pixmap.size()) / pixmap.devicePixelRatio()).toSize();
    }
};

VxMouseButton::VxMouseButton(QWidget *parent)
    : QAbstractButton(parent)
    , d(std::make_unique<Private>(this))
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

VxMouseButton::VxMouseButton(const QPixmap &normal, const QPixmap &hovered, const QPixmap &pressed,
                             QWidget *parent)
    : VxMouseButton(parent)
{
    setPixmaps(normal, hovered, pressed);
}

VxMouseButton::~VxMouseButton() = default;

void VxMouseButton::setPixmaps(const QPixmap &normal, const QPixmap &hovered,
                               const QPixmap &pressed)
{
    d->normal = normal;
    d->hovered = hovered;
    d->pressed = pressed;
    updateGeometry();
    update();
}

QPixmap VxMouseButton::normalPixmap() const
{
    return d->normal;
}

QSize VxMouseButton::sizeHint() const
{
    return Private::logicalSize(d->normal);
}

QSize VxMouseButton::minimumSizeHint() const
{
    return sizeHint();
}

void VxMouseButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        d->release();
    QAbstractButton::changeEvent(event);
}

void VxMouseButton::focusOutEvent(QFocusEvent *event)
{
    // The base class would end the press but not the hold.
    if (event->reason() != Qt::PopupFocusReason)
        d->release();
    QAbstractButton::focusOutEvent(event);
}

void VxMouseButton::hideEvent(QHideEvent *event)
{
    d->release();
    QAbstractButton::hideEvent(event);
}

// The base class ends and restarts the press whenever the mouse leaves and enters the button, which
// would split a drag; mouse events are therefore handled only here.
void VxMouseButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    d->held = true;
    d->wasDragged = false;
    d->pressPosition = event->globalPos();
    setDown(true);
    Q_EMIT pressed();
}

void VxMouseButton::mouseMoveEvent(QMouseEvent *event)
{
    if (!d->held) {
        event->ignore();
        return;
    }
    const QPoint delta = event->globalPos() - d->pressPosition;
    if (delta.manhattanLength() >= QApplication::startDragDistance())
        d->wasDragged = true;
    Q_EMIT dragged(delta);
}

void VxMouseButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !d->held) {
        event->ignore();
        return;
    }
    const bool click = hitButton(event->pos()) && !d->wasDragged;
    const QPointer<VxMouseButton> alive(this);
    d->release();
    if (!alive || !click)
        return;
    if (isCheckable())
        nextCheckState();
    if (alive)
        Q_EMIT clicked(isChecked());
}

void VxMouseButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    const QPixmap pixmap = d->currentPixmap();
    if (!pixmap.isNull())
        painter.drawItemPixmap(rect(), Qt::AlignCenter, pixmap);
    VxKitPaint::drawFocus(painter, this, rect());
}
