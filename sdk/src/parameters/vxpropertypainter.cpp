#include "parameters/vxpropertypainter.h"

#include "parameters/vxpropertyvalue.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QApplication>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr int ArrowSide = 18;
constexpr int Margin = 4;
constexpr int AxisStripe = 3;
constexpr qreal MarkReach = 4.5; // half a key mark's diagonal
constexpr QSize Padlock(9, 10);

constexpr qreal FrameStrength = 0.3; // of a field's frame, between its background and the text
constexpr qreal WordStrength = 0.7;  // of a word in place of a value, likewise
constexpr int SwitchSide = 13;

QColor mix(const QColor &a, const QColor &b, qreal share)
{
    const auto part = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue())};
}

/// A colour of the host's style; a substitute under a style without named colours.
QColor styleColor(const QStyleOptionViewItem &option, const char *name, const QColor &otherwise)
{
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    const auto *host = qobject_cast<const VxStyle *>(style);
    const QColor found = host ? host->getInterfaceColor(QLatin1String(name)) : QColor();
    return found.isValid() ? found : otherwise;
}

QColor textColor(const QStyleOptionViewItem &option, bool enabled)
{
    if (option.state & QStyle::State_Selected)
        return option.palette.color(QPalette::Normal, QPalette::HighlightedText);
    return option.palette.color(enabled ? QPalette::Normal : QPalette::Disabled, QPalette::Text);
}

QColor axisColor(const QStyleOptionViewItem &option, int axis)
{
    switch (axis) {
    case 1:
        return styleColor(option, "Style_X_Axis", Qt::red);
    case 2:
        return styleColor(option, "Style_Y_Axis", Qt::green);
    case 3:
        return styleColor(option, "Style_Z_Axis", Qt::blue);
    default:
        return axis > 0 ? styleColor(option, "Style_All_Axis", Qt::gray) : QColor();
    }
}

/// The background of a value; framed if it can be changed.
void drawField(QPainter *painter, const QStyleOptionViewItem &option, const QRect &field,
               bool enabled)
{
    const QColor ground = option.palette.color(enabled ? QPalette::Base : QPalette::Window);
    const QColor text = option.palette.color(QPalette::Text);
    const bool hovered = option.state & QStyle::State_MouseOver;
    const QColor frame =
        hovered ? option.palette.color(QPalette::Highlight) : mix(ground, text, FrameStrength);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(enabled ? QPen(frame) : QPen(Qt::NoPen));
    painter->setBrush(ground);
    const QRectF crisp = QRectF(field).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->drawRoundedRect(enabled ? crisp : QRectF(field), 2, 2);
}

void drawText(QPainter *painter, const QRect &rect, const QString &text, int alignment)
{
    const QString fitting = painter->fontMetrics().elidedText(text, Qt::ElideRight, rect.width());
    painter->drawText(rect, alignment | Qt::AlignVCenter | Qt::TextSingleLine, fitting);
}

void drawPadlock(QPainter *painter, const QRect &field, const QColor &color)
{
    QRect outline(QPoint(), Padlock);
    outline.moveTo(field.left() + Margin, field.center().y() - Padlock.height() / 2 + 1);
    const QRectF box(outline);
    painter->setPen(QPen(color, 1.5));
    painter->setBrush(Qt::NoBrush);
    painter->drawArc(QRectF(box.left() + 2, box.top(), box.width() - 4, 8), 0, 180 * 16);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawRect(QRectF(box.left(), box.top() + 4, box.width(), box.height() - 4));
}

bool isDriven(const VxProperty *property)
{
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    return property->isAlias() || property->getOverridingControl() ||
           (number && number->isLinked());
}

QPainterPath diamond(const QPointF &middle, qreal reach)
{
    QPainterPath path(middle - QPointF(0, reach));
    path.lineTo(middle + QPointF(reach, 0));
    path.lineTo(middle + QPointF(0, reach));
    path.lineTo(middle - QPointF(reach, 0));
    path.closeSubpath();
    return path;
}

QPainterPath leftHalf(const QPointF &middle, qreal reach)
{
    QPainterPath path(middle - QPointF(0, reach));
    path.lineTo(middle + QPointF(0, reach));
    path.lineTo(middle - QPointF(reach, 0));
    path.closeSubpath();
    return path;
}

} // namespace

QRect VxPropertyPainter::arrowRect(const QRect &row)
{
    return {row.left(), row.top(), ArrowSide, row.height()};
}

QRect VxPropertyPainter::fieldRect(const QRect &cell)
{
    return cell.adjusted(1, 1, -1, -1);
}

void VxPropertyPainter::paintHeading(QPainter *painter, const QStyleOptionViewItem &option,
                                     const QString &text, bool collapsed)
{
    painter->save();
    const bool selected = option.state & QStyle::State_Selected;
    if (!selected)
        painter->fillRect(option.rect, option.palette.color(QPalette::Window));
    const QColor color = textColor(option, true);
    QFont font = option.font;
    font.setBold(true);
    painter->setFont(font);
    painter->setPen(color);
    drawText(painter, option.rect.adjusted(ArrowSide, 0, -Margin, 0), text, Qt::AlignLeft);

    const QPointF middle = QRectF(arrowRect(option.rect)).center();
    QPolygonF arrow;
    if (collapsed)
        arrow << QPointF(-2, -4) << QPointF(2, 0) << QPointF(-2, 4);
    else
        arrow << QPointF(-4, -2) << QPointF(0, 2) << QPointF(4, -2);
    arrow.translate(middle);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(arrow);
    painter->restore();
}

void VxPropertyPainter::paintLabel(QPainter *painter, const QStyleOptionViewItem &option,
                                   const VxProperty *property)
{
    painter->save();
    const QColor axis = axisColor(option, VxPropertyHelper::getTransformAxis(property));
    const QRect &cell = option.rect;
    if (axis.isValid())
        painter->fillRect(QRect(cell.left() + ArrowSide - AxisStripe - 4, cell.top() + 3,
                                AxisStripe, cell.height() - 6),
                          axis);
    QFont font = option.font;
    font.setItalic(property->isAlias());
    painter->setFont(font);
    painter->setPen(textColor(option, VxPropertyValue::isEditable(property)));
    drawText(painter, cell.adjusted(ArrowSide + 1, 0, -Margin, 0), property->getLabel(),
             Qt::AlignLeft);
    painter->restore();
}

void VxPropertyPainter::paintValue(QPainter *painter, const QStyleOptionViewItem &option,
                                   const VxProperty *property, const QString &text, bool word)
{
    painter->save();
    const bool enabled = VxPropertyValue::isEditable(property);
    const QRect field = fieldRect(option.rect);
    QStyleOptionViewItem plain = option; // the field has its own background, selected or not
    plain.state &= ~QStyle::State_Selected;
    const QColor color = textColor(plain, enabled);
    QRect room = field.adjusted(Margin, 0, -Margin, 0);
    drawField(painter, option, field, enabled);
    if (property->isLocked() || property->getKeyHolder()->isLocked()) {
        drawPadlock(painter, field, color);
        room.setLeft(field.left() + 2 * Margin + Padlock.width());
    } else if (isDriven(property)) {
        const auto *host = qobject_cast<const VxStyle *>(option.widget ? option.widget->style()
                                                                       : QApplication::style());
        const QRect place(field.left() + 2, field.center().y() - 7, 16, 16);
        if (host)
            host->icon(VxStyle::SP_VxAliasProperty).paint(painter, place);
        room.setLeft(place.right() + Margin);
    }
    painter->setPen(color);
    if (word) {
        QFont font = option.font;
        font.setItalic(true);
        painter->setFont(font);
        painter->setPen(
            mix(option.palette.color(QPalette::Base), color, enabled ? WordStrength : 1.0));
    }
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    const auto fits = [&](const QString &shown) {
        return painter->fontMetrics().horizontalAdvance(shown) <= room.width();
    };
    const bool cut = number && !word && !fits(text);
    const VxTime time = vxScene ? vxScene->getTime() : 0;
    drawText(painter, room, cut ? VxPropertyValue::narrowText(number, time, fits) : text,
             number ? Qt::AlignRight : Qt::AlignLeft);
    painter->restore();
}

void VxPropertyPainter::paintSwitch(QPainter *painter, const QStyleOptionViewItem &option,
                                    Switch state, bool enabled)
{
    painter->save();
    const QRect field = fieldRect(option.rect);
    const QRect box(field.right() - SwitchSide - Margin + 1, field.center().y() - SwitchSide / 2,
                    SwitchSide, SwitchSide);
    drawField(painter, option, box, enabled);
    QPolygonF mark;
    if (state == Switch::On)
        mark << QPointF(3, 6.5) << QPointF(5.5, 9.5) << QPointF(10, 3.5);
    else if (state == Switch::Mixed)
        mark << QPointF(3.5, 6.5) << QPointF(9.5, 6.5);
    QStyleOptionViewItem plain = option;
    plain.state &= ~QStyle::State_Selected;
    painter->setPen(QPen(textColor(plain, enabled), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(mark.translated(box.topLeft()));
    painter->restore();
}

void VxPropertyPainter::paintKeyMark(QPainter *painter, const QStyleOptionViewItem &option,
                                     VxPropertyListItemModel::KeyState state, bool enabled)
{
    if (state == VxPropertyListItemModel::NotKeyable)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool selected = option.state & QStyle::State_Selected;
    painter->setOpacity(enabled ? 1.0 : 0.5);
    const QColor plain = selected ? option.palette.color(QPalette::HighlightedText)
                                  : styleColor(option, "Style_Key", Qt::gray);
    const QPointF middle = QPointF(option.rect.center()) + QPointF(0.5, 0.5);
    if (state == VxPropertyListItemModel::NoKeys) {
        const bool hovered = enabled && option.state & QStyle::State_MouseOver;
        painter->setPen(Qt::NoPen);
        painter->setBrush(plain);
        painter->drawEllipse(middle, hovered ? 2.5 : 1.75, hovered ? 2.5 : 1.75);
    } else if (state != VxPropertyListItemModel::OnKey) {
        if (state == VxPropertyListItemModel::MixedKeys)
            painter->fillPath(leftHalf(middle, MarkReach), plain);
        painter->setPen(QPen(plain, 1.2));
        painter->drawPath(diamond(middle, MarkReach));
    } else {
        painter->setPen(QPen(styleColor(option, "Style_Key_Outline", Qt::black), 1));
        painter->setBrush(styleColor(option, "Style_Key_Selected", Qt::yellow));
        painter->drawPath(diamond(middle, MarkReach + 0.5));
    }
    painter->restore();
}
