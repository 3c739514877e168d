#include <vxcore/vxstyle.h>

#include "style/vxbarprimitives.h"
#include "style/vxcheckprimitive.h"
#include "style/vxcolors.h"
#include "style/vxcontrastframes.h"
#include "style/vxiconengine.h"
#include "style/vxkeymarkcache.h"
#include "style/vxtimelineprimitives.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QTreeView>
#include <algorithm>

class VxStyle::Private
{
public:
    explicit Private(ColorScheme initialScheme)
        : scheme(initialScheme)
        , palette(VxColors::palette(initialScheme))
    {
    }

    // The text size replaces that of the desktop's font.
    void applyFont() const
    {
        QFont font = desktopFont;
        if (textSize > 0)
            font.setPointSize(textSize);
        QApplication::setFont(font);
    }

    ColorScheme scheme;
    QPalette palette;
    CurveColors curveColors = CurveColors::Standard;
    int textSize = 0;
    bool animated = true;
    bool desktopEffects = true; // of the application before they were turned off
    QFont desktopFont;          // of the application before the text size was set
    VxKeyMarkCache keyMarks;
    VxContrastFrames contrastFrames;
    QHash<int, QIcon> dockIcons; // of the base style, by StandardPixmap
};

namespace {

// The application's font, smaller by a number of steps, but still readable.
QFont smallerFont(int steps)
{
    QFont font = QApplication::font();
    if (font.pixelSize() > 0)
        font.setPixelSize(qMax(9, font.pixelSize() - steps));
    else
        font.setPointSizeF(qMax(7.0, font.pointSizeF() - steps * 0.75));
    return font;
}

// Heights that grow with the application's font beyond 19 pixels, in logical pixels.
int controlHeight()
{
    const int text = QFontMetrics(QApplication::font()).height();
    return qMax(22, text + text / 6);
}

int rowHeight()
{
    const int text = QFontMetrics(QApplication::font()).height();
    return qMax(20, text + text / 16);
}

// Icons and check marks of the toolkit, which should be as large as the text beside them.
int grownWithText(int size)
{
    return qMax(size, size * QFontMetrics(QApplication::font()).height() / 19);
}

int barIconSize()
{
    return qBound(16, controlHeight() - 6, 24);
}

// A metric of our own, or -1. The playhead's metric is twice that of half a frame's mark: its left
// edge is half a mark left of the key's left edge, so that a side of two marks centres it on the
// frame's tick.
int ownMetric(quint32 id)
{
    switch (id) {
    case VxStyle::PM_VxBaseMargin:
        return 4;
    case VxStyle::PM_VxPaneMargin:
        return 4;
    case VxStyle::PM_VxControlHeight:
        return controlHeight();
    case VxStyle::PM_VxButtonInset:
        return 16;
    case VxStyle::PM_VxButtonMargin:
        return 3;
    case VxStyle::PM_VxBarIconSize:
        return barIconSize();
    case VxStyle::PM_VxDividerWidth:
        return 6;
    case VxStyle::PM_VxTreeIndentation:
        return 14;
    case VxStyle::PM_VxDopeSheetHeaderHeight:
        // The labels are above the range marks, which reach half way up.
        return qMax(28, 2 * QFontMetrics(smallerFont(2)).ascent() + 2);
    case VxStyle::PM_VxDopeSheetRowHeight:
        return rowHeight();
    case VxStyle::PM_VxHeaderGripMargin:
        return 4;
    case VxStyle::PM_VxRulerLabelSpacing:
        // Two labels are at least two distances apart, and a fifth of a label's width is free.
        return qMax(16,
                    QFontMetrics(smallerFont(2)).horizontalAdvance(QStringLiteral("0000")) * 3 / 5);
    case VxStyle::PM_VxRulerTickWidth:
        return 1;
    case VxStyle::PM_VxPlayheadInset:
        return 1;
    case VxStyle::PM_VxCurrentTimeMarkerWidth:
        return 11;
    case VxStyle::PM_VxTimelineKeyMargin:
        return 10;
    case VxStyle::PM_VxTimelineFrameWidth:
        return 10;
    default:
        return -1;
    }
}

using DrawFunction = void (*)(const QStyleOption *, QPainter *);

// Our own primitives, except key marks, which need the style's cache.
const struct
{
    quint32 id;
    DrawFunction draw;
} ownPrimitives[] = {
    {VxStyle::PE_VxPaneBackground, VxBarPrimitives::drawPaneBackground},
    {VxStyle::PE_VxBarBackground, VxBarPrimitives::drawBarBackground},
    {VxStyle::PE_VxBarButton, VxBarPrimitives::drawBarButton},
    {QStyle::PE_PanelButtonTool, VxBarPrimitives::drawBarButton},
    {VxStyle::PE_VxBarSeparator, VxBarPrimitives::drawBarSeparator},
    {QStyle::PE_IndicatorCheckBox, vxDrawCheckBox},
    {VxStyle::PE_VxDownArrow, VxBarPrimitives::drawDownArrow},
    {VxStyle::PE_VxDividerBar, VxBarPrimitives::drawDividerBar},
    {VxStyle::PE_VxRangeHandle, VxTimelinePrimitives::drawRangeHandle},
    {VxStyle::PE_VxTimelineNameColumn, VxTimelinePrimitives::drawNameColumn},
    {VxStyle::PE_VxRulerTick, VxTimelinePrimitives::drawRulerTick},
    {VxStyle::PE_VxPlayhead, VxTimelinePrimitives::drawPlayhead},
    {VxStyle::PE_VxCurrentTimeMarker, VxTimelinePrimitives::drawCurrentTimeMarker},
};

DrawFunction ownPrimitive(quint32 id)
{
    const auto own = std::find_if(std::begin(ownPrimitives), std::end(ownPrimitives),
                                  [id](const auto &each) { return each.id == id; });
    return own == std::end(ownPrimitives) ? nullptr : own->draw;
}

// Views do not set the selected state for an arrow.
bool isBeforeSelectedRow(const QStyleOption &arrow, const QWidget *widget)
{
    const auto *view = qobject_cast<const QTreeView *>(widget);
    if (!view || !view->selectionModel() || !(arrow.state & QStyle::State_Children))
        return false;
    return view->selectionModel()->isSelected(
        view->indexAt(arrow.rect.center()).siblingAtColumn(0));
}

// The toolkit sends such events for a changed palette, font or style, but not for colours and sizes
// that widgets ask of their style.
void sendToAllWidgets(QEvent::Type type)
{
    const QWidgetList all = QApplication::allWidgets();
    const QVector<QPointer<QWidget>> widgets(all.begin(), all.end());
    for (const QPointer<QWidget> &widget : widgets) {
        if (!widget)
            continue;
        QEvent event(type);
        QApplication::sendEvent(widget, &event);
        widget->update();
    }
}

// Fusion draws the focus of a push button as it draws a dialog's default button.
void drawButtonFocus(const QStyleOption *option, QPainter *painter)
{
    const QStyle::State focused = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    if ((option->state & focused) != focused)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(option->palette.color(QPalette::ButtonText));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(2.5, 2.5, -2.5, -2.5), 2, 2);
    painter->restore();
}

QIcon::Mode iconMode(QStyle::State state)
{
    if (!(state & QStyle::State_Enabled))
        return QIcon::Disabled;
    if (state & QStyle::State_Selected)
        return QIcon::Selected;
    return state & QStyle::State_MouseOver ? QIcon::Active : QIcon::Normal;
}

} // namespace

VxStyle::VxStyle()
    : VxStyle(ColorScheme::Dark)
{
}

VxStyle::VxStyle(ColorScheme scheme)
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    , d(new Private(scheme))
{
    setObjectName(QStringLiteral("VxStyle"));
}

VxStyle::~VxStyle() = default;

VxStyle::ColorScheme VxStyle::colorScheme() const
{
    return d->scheme;
}

void VxStyle::setColorScheme(ColorScheme scheme)
{
    if (scheme == d->scheme)
        return;
    d->scheme = scheme;
    d->palette = VxColors::palette(scheme);
    if (qApp != nullptr && QApplication::style() == this)
        QApplication::setPalette(d->palette);
    Q_EMIT colorSchemeChanged();
}

VxStyle::CurveColors VxStyle::curveColors() const
{
    return d->curveColors;
}

void VxStyle::setCurveColors(CurveColors colors)
{
    if (colors == d->curveColors)
        return;
    d->curveColors = colors;
    if (qApp != nullptr && QApplication::style() == this)
        sendToAllWidgets(QEvent::PaletteChange);
    Q_EMIT curveColorsChanged();
}

int VxStyle::textSize() const
{
    return d->textSize;
}

void VxStyle::setTextSize(int points)
{
    const int size = points > 0 ? qBound(SmallestTextSize, points, LargestTextSize) : 0;
    if (size == d->textSize)
        return;
    d->textSize = size;
    if (qApp != nullptr && QApplication::style() == this) {
        d->applyFont();
        sendToAllWidgets(QEvent::StyleChange);
    }
    Q_EMIT textSizeChanged();
}

bool VxStyle::isAnimated() const
{
    return d->animated;
}

void VxStyle::setAnimated(bool animated)
{
    if (animated == d->animated)
        return;
    d->animated = animated;
    if (!animated)
        d->desktopEffects = QApplication::isEffectEnabled(Qt::UI_General);
    QApplication::setEffectEnabled(Qt::UI_General, animated && d->desktopEffects);
}

int VxStyle::metric(PixelMetricId id) const
{
    return pixelMetric(static_cast<PixelMetric>(id));
}

QIcon VxStyle::icon(StandardIconId id) const
{
    if (!VxIconEngine::exists(id))
        return QIcon();
    return QIcon(new VxIconEngine(this, id));
}

QColor VxStyle::getInterfaceColor(const QString &name) const
{
    const QColor safe =
        d->curveColors == CurveColors::Safe ? VxColors::safeCurveColor(d->scheme, name) : QColor();
    return safe.isValid() ? safe : VxColors::interfaceColor(d->scheme, name);
}

QPixmap VxStyle::findStandardPixmapForState(StandardIconId id, State state, const QSize &size,
                                            qreal devicePixelRatio) const
{
    if (!VxIconEngine::exists(id) || size.isEmpty() || devicePixelRatio <= 0)
        return QPixmap();
    VxIconEngine engine(this, id);
    QPixmap picture = engine.pixmap((QSizeF(size) * devicePixelRatio).toSize(), iconMode(state),
                                    state & State_On ? QIcon::On : QIcon::Off);
    picture.setDevicePixelRatio(devicePixelRatio);
    return picture;
}

VxTextStyle VxStyle::textStyle(TextStyleId id) const
{
    const QColor text = d->palette.color(QPalette::Active, QPalette::WindowText);
    const QColor window = d->palette.color(QPalette::Active, QPalette::Window);
    switch (id) {
    case TS_Ruler:
        return VxTextStyle(text, smallerFont(2));
    case TS_GraphAxis:
        return VxTextStyle(VxColors::mix(text, window, 0.3), smallerFont(2));
    default:
        return VxTextStyle(text, smallerFont(1));
    }
}

// The desktop's palette would override standardPalette() otherwise.
void VxStyle::polish(QApplication *application)
{
    QProxyStyle::polish(application);
    QApplication::setPalette(d->palette);
    d->desktopFont = QApplication::font();
    if (d->textSize > 0)
        d->applyFont();
}

void VxStyle::unpolish(QApplication *application)
{
    if (d->textSize > 0)
        QApplication::setFont(d->desktopFont);
    QProxyStyle::unpolish(application);
}

void VxStyle::polish(QPalette &palette)
{
    palette = palette.resolve(d->palette);
}

QPalette VxStyle::standardPalette() const
{
    return d->palette;
}

int VxStyle::pixelMetric(PixelMetric which, const QStyleOption *option, const QWidget *widget) const
{
    const int own = ownMetric(static_cast<quint32>(which));
    if (own >= 0)
        return own;
    const int size = QProxyStyle::pixelMetric(which, option, widget);
    switch (which) {
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_ListViewIconSize:
    case PM_TabBarIconSize:
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return grownWithText(size);
    default:
        return size;
    }
}

int VxStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                       QStyleHintReturn *returnData) const
{
    if (static_cast<quint32>(hint) == SH_VxRulerFlags)
        return RulerAll;
    // Its light edge makes disabled text hard to read on a dark background.
    if (hint == SH_EtchDisabledText)
        return 0;
    // The desktop's coloured icons fit neither palette.
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    if (!d->animated && (hint == SH_Widget_Animation_Duration || hint == SH_Widget_Animate ||
                         hint == SH_Menu_FlashTriggeredItem))
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

void VxStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                            const QWidget *widget) const
{
    const quint32 id = static_cast<quint32>(element);
    if (id == PE_VxKeyMark)
        d->keyMarks.draw(painter, option);
    else if (const DrawFunction draw = ownPrimitive(id)) {
        if (!option->rect.isEmpty())
            draw(option, painter);
    } else if (element == PE_IndicatorBranch && isBeforeSelectedRow(*option, widget)) {
        // The arrow before a selected row is on the selection's background.
        QStyleOption onGround(*option);
        onGround.palette.setColor(QPalette::WindowText,
                                  option->palette.color(QPalette::HighlightedText));
        QProxyStyle::drawPrimitive(element, &onGround, painter, widget);
    } else {
        if (!d->contrastFrames.drawPrimitive(baseStyle(), element, option, painter, widget))
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element == PE_PanelButtonCommand)
            drawButtonFocus(option, painter);
    }
}

void VxStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                          const QWidget *widget) const
{
    if (!d->contrastFrames.drawControl(baseStyle(), element, option, painter, widget))
        QProxyStyle::drawControl(element, option, painter, widget);
}

void VxStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                 QPainter *painter, const QWidget *widget) const
{
    if (!d->contrastFrames.drawComplexControl(baseStyle(), control, option, painter, widget))
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QIcon VxStyle::standardIcon(StandardPixmap which, const QStyleOption *option,
                            const QWidget *widget) const
{
    const QIcon own = icon(static_cast<StandardIconId>(which));
    if (!own.isNull())
        return own;
    // Docks ask for both at every change, whether they show them or not; the base style parses a
    // picture each time.
    if (which != SP_TitleBarNormalButton && which != SP_TitleBarCloseButton)
        return QProxyStyle::standardIcon(which, option, widget);
    QIcon &kept = d->dockIcons[which];
    if (kept.isNull())
        kept = QProxyStyle::standardIcon(which, option, widget);
    return kept;
}
