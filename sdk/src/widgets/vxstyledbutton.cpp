#include <vxcore/vxstyledbutton.h>

#include "widgets/vxbuttoncontents.h"
#include "widgets/vxkitpaint.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolTip>
#include <vxcore/vxtextstyle.h>

using namespace VxKitPaint;

class VxStyledButton::Private
{
public:
    explicit Private(VxStyledButton *owner)
        : button(owner)
    {
    }

    VxStyledButton *const button;
    Qt::TextElideMode elideMode = Qt::ElideNone;
    bool displayDownArrow = false;
    ButtonStyle buttonStyle = Default;
    Qt::Alignment alignment = Qt::AlignHCenter;

    int textWidth(const QString &text) const
    {
        return text.isEmpty() ? 0 : button->fontMetrics().size(Qt::TextShowMnemonic, text).width();
    }

    VxButtonParts parts() const
    {
        VxButtonParts result;
        if (!button->icon().isNull())
            result.icon = button->iconSize();
        result.textWidth = textWidth(button->text());
        result.arrowWidth = displayDownArrow ? 9 : 0;
        result.spacing = styleLength(button, VxStyle::PM_VxBaseMargin, 4);
        result.alignment = alignment;
        return result;
    }

    // The frame's option: neither text nor icon nor the style's own menu mark.
    QStyleOptionButton frameOption() const
    {
        QStyleOptionButton option;
        button->initStyleOption(&option);
        option.text.clear();
        option.icon = QIcon();
        option.features &= ~QStyleOptionButton::HasMenu;
        if (buttonStyle == Flat)
            option.features |= QStyleOptionButton::Flat;
        return option;
    }

    QRect contentsArea() const
    {
        const QStyleOptionButton option = frameOption();
        const int margin = styleLength(button, VxStyle::PM_VxButtonMargin, 3) / 2;
        return button->style()
            ->subElementRect(QStyle::SE_PushButtonContents, &option, button)
            .adjusted(margin, 0, -margin, 0);
    }

    // The text elided to the width beside the other parts.
    QString fittingText() const
    {
        QString text = button->text();
        const int room = vxPlaceButtonContents(contentsArea(), parts()).text.width();
        if (elideMode == Qt::ElideNone || textWidth(text) <= room)
            return text;
        return button->fontMetrics().elidedText(text, elideMode, room, Qt::TextShowMnemonic);
    }

    // The layout of the painted parts; an elided text has its own width.
    VxButtonContents contents() const
    {
        const QRect area = contentsArea();
        VxButtonParts shown = parts();
        shown.textWidth = textWidth(fittingText());
        VxButtonContents placed = vxPlaceButtonContents(area, shown);
        for (QRect *rect : {&placed.icon, &placed.text, &placed.arrow})
            *rect = QStyle::visualRect(button->layoutDirection(), area, *rect);
        return placed;
    }

    // The size around contents of the given width.
    QSize sizeAround(int contentsWidth) const
    {
        const QStyleOptionButton option = frameOption();
        const QRect whole(0, 0, 200, 100);
        QStyleOptionButton probe = option;
        probe.rect = whole;
        const QRect inside =
            button->style()->subElementRect(QStyle::SE_PushButtonContents, &probe, button);
        const int margins = 2 * (styleLength(button, VxStyle::PM_VxButtonMargin, 3) / 2);
        const int line = std::max(button->fontMetrics().height(),
                                  button->icon().isNull() ? 0 : button->iconSize().height());
        const int height = std::max(line + whole.height() - inside.height() + 2,
                                    styleLength(button, VxStyle::PM_VxControlHeight, 22));
        return {contentsWidth + whole.width() - inside.width() + margins, height};
    }

    void refit()
    {
        button->updateGeometry();
        button->update();
    }

    void paintFrame(QStylePainter &painter) const
    {
        const QStyleOptionButton option = frameOption();
        if (buttonStyle == Flat && !button->testAttribute(Qt::WA_StyleSheetTarget))
            drawButtonGround(painter, button, button->rect());
        else
            painter.drawControl(QStyle::CE_PushButtonBevel, option);
        drawFocus(painter, button,
                  button->style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, button));
    }

    void paintArrow(QPainter &painter, const QRect &rect) const
    {
        drawPrimitive(painter, button, VxStyle::PE_VxDownArrow, rect);
        if (buttonStyle != DropDown)
            return;
        const int gap = styleLength(button, VxStyle::PM_VxBaseMargin, 4);
        const bool leftToRight = button->layoutDirection() == Qt::LeftToRight;
        const int x = leftToRight ? rect.left() - gap : rect.right() + 1;
        drawPrimitive(painter, button, VxStyle::PE_VxBarSeparator,
                      QRect(x, rect.top(), gap, rect.height()), QStyle::State_Horizontal);
    }
};

VxStyledButton::VxStyledButton(QWidget *parent)
    : VxStyledButton(QString(), parent)
{
}

VxStyledButton::VxStyledButton(const QString &text, QWidget *parent)
    : QPushButton(text, parent)
    , d(std::make_unique<Private>(this))
{
    setAttribute(Qt::WA_Hover);
}

VxStyledButton::~VxStyledButton() = default;

void VxStyledButton::setElideMode(Qt::TextElideMode mode)
{
    d->elideMode = mode;
    d->refit();
}

Qt::TextElideMode VxStyledButton::elideMode() const
{
    return d->elideMode;
}

void VxStyledButton::setDisplayDownArrow(bool display)
{
    d->displayDownArrow = display;
    d->refit();
}

bool VxStyledButton::displayDownArrow() const
{
    return d->displayDownArrow;
}

void VxStyledButton::setButtonStyle(ButtonStyle style)
{
    d->buttonStyle = style;
    d->refit();
}

VxStyledButton::ButtonStyle VxStyledButton::buttonStyle() const
{
    return d->buttonStyle;
}

void VxStyledButton::setButtonTextFormat(Qt::Alignment alignment)
{
    d->alignment = alignment & Qt::AlignHorizontal_Mask;
    update();
}

Qt::Alignment VxStyledButton::buttonTextFormat() const
{
    return d->alignment;
}

QString VxStyledButton::displayedText() const
{
    return d->fittingText();
}

QSize VxStyledButton::sizeHint() const
{
    ensurePolished();
    return d->sizeAround(vxButtonContentsWidth(d->parts()));
}

QSize VxStyledButton::minimumSizeHint() const
{
    ensurePolished();
    VxButtonParts parts = d->parts();
    if (d->elideMode != Qt::ElideNone)
        parts.textWidth = std::min(parts.textWidth, d->textWidth(QStringLiteral("M\u2026")));
    return d->sizeAround(vxButtonContentsWidth(parts));
}

bool VxStyledButton::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && displayedText() != text()) {
        QString whole = text();
        whole.remove(QLatin1Char('&'));
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), vxToolTipText(whole),
                           this);
        return true;
    }
    return QPushButton::event(event);
}

void VxStyledButton::keyPressEvent(QKeyEvent *event)
{
    const bool asked = event->key() == Qt::Key_F4 ||
                       (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier);
    if (asked && menu())
        showMenu();
    else
        QPushButton::keyPressEvent(event);
}

void VxStyledButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    d->paintFrame(painter);
    const VxButtonContents placed = d->contents();
    if (!placed.icon.isNull())
        drawButtonIcon(painter, this, placed.icon, underMouse() || hasFocus());
    if (!placed.text.isNull())
        painter.drawItemText(placed.text,
                             Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine |
                                 Qt::TextShowMnemonic,
                             palette(), isEnabled(), displayedText(), QPalette::ButtonText);
    if (!placed.arrow.isNull())
        d->paintArrow(painter, placed.arrow);
}
