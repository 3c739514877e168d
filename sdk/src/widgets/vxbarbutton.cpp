#include <vxcore/vxbarbutton.h>

#include "widgets/vxkitpaint.h"

#include <QAction>
#include <QHelpEvent>
#include <QStylePainter>
#include <QToolTip>

using namespace VxKitPaint;

class VxBarButton::Private
{
public:
    explicit Private(VxBarButton *owner)
        : button(owner)
    {
    }

    VxBarButton *const button;
    Qt::Edges joinedEdges;

    QKeySequence toolTipShortcut() const
    {
        const QAction *action = button->defaultAction();
        if (action && !action->shortcut().isEmpty())
            return action->shortcut();
        // A mnemonic is a shortcut, too, but not one of a command.
        const QKeySequence own = button->shortcut();
        return own == QKeySequence::mnemonic(button->text()) ? QKeySequence() : own;
    }

    // The primitive is inset and has round corners: on the side of an adjoining button it is made
    // wider than the button, so that both end at the edge.
    void paintGround(QPainter &painter) const
    {
        constexpr int beyond = 6;
        const QRect rect = button->rect().adjusted(joinedEdges & Qt::LeftEdge ? -beyond : 0, 0,
                                                   joinedEdges & Qt::RightEdge ? beyond : 0, 0);
        drawButtonGround(painter, button, rect);
    }

    QRect iconRect() const
    {
        const QSize size = button->iconSize().boundedTo(button->size());
        return {(button->width() - size.width()) / 2, (button->height() - size.height()) / 2,
                size.width(), size.height()};
    }
};

VxBarButton::VxBarButton(QWidget *parent)
    : VxBarButton(QIcon(), QString(), parent)
{
}

VxBarButton::VxBarButton(const QIcon &icon, const QString &text, QWidget *parent)
    : QToolButton(parent)
    , d(std::make_unique<Private>(this))
{
    setAutoRaise(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    const int side = styleLength(this, VxStyle::PM_VxBarIconSize, 16);
    setIconSize(QSize(side, side));
    setIcon(icon);
    setText(text);
}

VxBarButton::~VxBarButton() = default;

QString VxBarButton::toolTipText() const
{
    QString tip = toolTip();
    if (tip.isEmpty())
        tip = text().remove(QLatin1Char('&'));
    const QKeySequence shortcut = d->toolTipShortcut();
    if (tip.isEmpty() || shortcut.isEmpty())
        return tip;
    return tr("%1 (%2)", "name of a command and its shortcut")
        .arg(tip, shortcut.toString(QKeySequence::NativeText));
}

void VxBarButton::setJoinedEdges(Qt::Edges edges)
{
    if (d->joinedEdges == edges)
        return;
    d->joinedEdges = edges;
    update();
}

Qt::Edges VxBarButton::joinedEdges() const
{
    return d->joinedEdges;
}

QSize VxBarButton::sizeHint() const
{
    ensurePolished();
    const int margin = styleLength(this, VxStyle::PM_VxButtonMargin, 3);
    const QSize contents = icon().isNull() && !text().isEmpty()
                               ? fontMetrics().size(Qt::TextShowMnemonic, text())
                               : iconSize();
    return {contents.width() + 2 * margin,
            std::max(contents.height() + 4, styleLength(this, VxStyle::PM_VxControlHeight, 22))};
}

QSize VxBarButton::minimumSizeHint() const
{
    return sizeHint();
}

bool VxBarButton::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QToolButton::event(event);
    const QString tip = toolTipText();
    if (tip.isEmpty()) {
        event->ignore();
        return true;
    }
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), tip, this);
    return true;
}

void VxBarButton::paintEvent(QPaintEvent *event)
{
    // A style sheet for this button draws it entirely.
    if (testAttribute(Qt::WA_StyleSheetTarget)) {
        QToolButton::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    d->paintGround(painter);
    if (!icon().isNull())
        drawButtonIcon(painter, this, d->iconRect(), underMouse());
    else
        painter.drawItemText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, palette(), isEnabled(),
                             text(), QPalette::ButtonText);
    drawFocus(painter, this, rect().adjusted(2, 2, -2, -2));
}
