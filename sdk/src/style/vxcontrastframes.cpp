#include "style/vxcontrastframes.h"

#include "style/vxcolors.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>

namespace {

/// What the base style divides the window's lightness by, percent.
constexpr int OutlineDarkening = 140;
/// Distance of a scroll bar's handle from the edges of its groove, pixels.
constexpr int HandleInset = 4;

bool isContrast(const QStyleOption *option)
{
    return option && VxColors::schemeFor(option->palette) == VxStyle::ColorScheme::Contrast;
}

void drawOutline(const QRect &rect, const QPalette &palette, QPainter *painter)
{
    painter->save();
    painter->setPen(palette.color(QPalette::Mid));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

/// A ring in the text's colour, with a dot when it is on.
void drawRadioButton(const QStyleOption &option, QPainter *painter)
{
    const QColor ink = option.palette.color(
        option.state & QStyle::State_MouseOver ? QPalette::Highlight : QPalette::Text);
    const int side = qMin(option.rect.width(), option.rect.height());
    const QPointF middle = QRectF(option.rect).center();
    const qreal radius = side / 2.0 - 1;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(ink, 1.5));
    painter->setBrush(option.palette.color(QPalette::Base));
    painter->drawEllipse(middle, radius, radius);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ink);
    if (option.state & QStyle::State_On)
        painter->drawEllipse(middle, radius / 2, radius / 2);
    painter->restore();
}

/// The handle alone: the base style's is as dark as its groove.
void drawScrollHandle(const QStyle *base, const QStyleOptionSlider &bar, QPainter *painter,
                      const QWidget *widget)
{
    const QRect handle =
        base->subControlRect(QStyle::CC_ScrollBar, &bar, QStyle::SC_ScrollBarSlider, widget);
    const bool across = bar.orientation == Qt::Horizontal;
    const bool hovered = (bar.state & QStyle::State_MouseOver) &&
                         (bar.activeSubControls & QStyle::SC_ScrollBarSlider);
    if (bar.minimum < bar.maximum && !handle.isEmpty()) {
        painter->fillRect(across ? handle.adjusted(1, HandleInset, -1, -HandleInset)
                                 : handle.adjusted(HandleInset, 1, -HandleInset, -1),
                          bar.palette.color(hovered ? QPalette::Highlight : QPalette::Mid));
    }
}

} // namespace

const QPalette &VxContrastFrames::withOutlines(const QPalette &palette)
{
    // Parts of a control are drawn through the style again.
    if (palette.cacheKey() != m_sourceKey && palette.cacheKey() != m_palette.cacheKey()) {
        m_sourceKey = palette.cacheKey();
        m_palette = palette;
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            m_palette.setColor(group, QPalette::Window,
                               palette.color(group, QPalette::Mid).lighter(OutlineDarkening));
        }
    }
    return m_palette;
}

/// Calls draw(copy of the option with the palette for outlines); false for an option of another
/// type.
template <class Option, class Draw>
bool VxContrastFrames::drawOutlined(const QStyleOption *option, Draw draw)
{
    const auto *source = qstyleoption_cast<const Option *>(option);
    if (!source)
        return false;
    Option copy = *source;
    copy.palette = withOutlines(option->palette);
    draw(copy);
    return true;
}

bool VxContrastFrames::drawPrimitive(const QStyle *base, QStyle::PrimitiveElement element,
                                     const QStyleOption *option, QPainter *painter,
                                     const QWidget *widget)
{
    if (!isContrast(option))
        return false;
    const auto draw = [&](const QStyleOption &copy) {
        base->drawPrimitive(element, &copy, painter, widget);
    };
    switch (element) {
    case QStyle::PE_Frame:
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_FrameGroupBox:
        return drawOutlined<QStyleOptionFrame>(option, draw);
    case QStyle::PE_PanelButtonCommand:
        return drawOutlined<QStyleOptionButton>(option, draw);
    case QStyle::PE_IndicatorRadioButton:
        drawRadioButton(*option, painter);
        return true;
    case QStyle::PE_PanelMenu:
    case QStyle::PE_FrameMenu:
        base->drawPrimitive(element, option, painter, widget);
        drawOutline(option->rect, option->palette, painter);
        return true;
    default:
        return false;
    }
}

bool VxContrastFrames::drawControl(const QStyle *base, QStyle::ControlElement element,
                                   const QStyleOption *option, QPainter *painter,
                                   const QWidget *widget)
{
    if (!isContrast(option))
        return false;
    if (element == QStyle::CE_TabBarTabShape) {
        base->drawControl(element, option, painter, widget);
        drawOutline(option->rect, option->palette, painter);
        return true;
    }
    if (element != QStyle::CE_HeaderSection)
        return false;
    return drawOutlined<QStyleOptionHeader>(option, [&](const QStyleOptionHeader &header) {
        base->drawControl(element, &header, painter, widget);
        if (header.orientation == Qt::Horizontal &&
            (header.position == QStyleOptionHeader::Beginning ||
             header.position == QStyleOptionHeader::Middle)) {
            const QRect &rect = option->rect;
            painter->fillRect(rect.right(), rect.top(), 1, rect.height(),
                              option->palette.color(QPalette::Mid));
        }
    });
}

bool VxContrastFrames::drawComplexControl(const QStyle *base, QStyle::ComplexControl control,
                                          const QStyleOptionComplex *option, QPainter *painter,
                                          const QWidget *widget)
{
    if (!isContrast(option))
        return false;
    const auto draw = [&](const QStyleOptionComplex &copy) {
        base->drawComplexControl(control, &copy, painter, widget);
    };
    switch (control) {
    case QStyle::CC_ComboBox:
        return drawOutlined<QStyleOptionComboBox>(option, draw);
    case QStyle::CC_SpinBox:
        return drawOutlined<QStyleOptionSpinBox>(option, draw);
    case QStyle::CC_Slider:
        return drawOutlined<QStyleOptionSlider>(option, draw);
    case QStyle::CC_ScrollBar:
        base->drawComplexControl(control, option, painter, widget);
        if (const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option))
            drawScrollHandle(base, *bar, painter, widget);
        return true;
    default:
        return false;
    }
}
