#include <vxcore/vxstyle.h>

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QTreeView>

#include "style/vxbarprimitives.h"
#include "style/vxcheckprimitive.h"
#include "style/vxcolors.h"
#include "style/vxiconengine.h"
#include "style/vxkeymarkcache.h"
#include "style/vxtimelineprimitives.h"

class VxStyle::Private
{
public:
    explicit Private(ColorScheme initialScheme)
        : scheme(initialScheme)
        , palette(VxColors::palette(initialScheme))
    {
    }

    ColorScheme scheme;
    QPalette palette;
    VxKeyMarkCache keyMarks;
};

namespace {

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
        return 22;
    case VxStyle::PM_VxButtonInset:
        return 16;
    case VxStyle::PM_VxButtonMargin:
        return 3;
    case VxStyle::PM_VxBarIconSize:
        return 16;
    case VxStyle::PM_VxDividerWidth:
        return 6;
    case VxStyle::PM_VxTreeIndentation:
        return 14;
    case VxStyle::PM_VxDopeSheetHeaderHeight:
        return 28;
    case VxStyle::PM_VxDopeSheetRowHeight:
        return 20;
    case VxStyle::PM_VxHeaderGripMargin:
        return 4;
    case VxStyle::PM_VxRulerLabelSpacing:
        return 16;
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

// The functions of our own primitives, except key marks, which need the style's cache.
DrawFunction ownPrimitive(quint32 id)
{
    switch (id) {
    case VxStyle::PE_VxPaneBackground:
        return VxBarPrimitives::drawPaneBackground;
    case VxStyle::PE_VxBarBackground:
        return VxBarPrimitives::drawBarBackground;
    case VxStyle::PE_VxBarButton:
    case QStyle::PE_PanelButtonTool:
        return VxBarPrimitives::drawBarButton;
    case VxStyle::PE_VxBarSeparator:
        return VxBarPrimitives::drawBarSeparator;
    case QStyle::PE_IndicatorCheckBox:
        return vxDrawCheckBox;
    case VxStyle::PE_VxDownArrow:
        return VxBarPrimitives::drawDownArrow;
    case VxStyle::PE_VxDividerBar:
        return VxBarPrimitives::drawDividerBar;
    case VxStyle::PE_VxRangeHandle:
        return VxTimelinePrimitives::drawRangeHandle;
    case VxStyle::PE_VxTimelineNameColumn:
        return VxTimelinePrimitives::drawNameColumn;
    case VxStyle::PE_VxRulerTick:
        return VxTimelinePrimitives::drawRulerTick;
    case VxStyle::PE_VxPlayhead:
        return VxTimelinePrimitives::drawPlayhead;
    case VxStyle::PE_VxCurrentTimeMarker:
        return VxTimelinePrimitives::drawCurrentTimeMarker;
    default:
        return nullptr;
    }
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
    return VxColors::interfaceColor(d->scheme, name);
}

QStringList VxStyle::getInterfaceColorNames() const
{
    return VxColors::interfaceColorNames();
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
    return own >= 0 ? own : QProxyStyle::pixelMetric(which, option, widget);
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
    } else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

QIcon VxStyle::standardIcon(StandardPixmap which, const QStyleOption *option,
                            const QWidget *widget) const
{
    const QIcon own = icon(static_cast<StandardIconId>(which));
    return own.isNull() ? QProxyStyle::standardIcon(which, option, widget) : own;
}
