#ifndef VXSTYLE_H
#define VXSTYLE_H

#include <QtGui/QColor>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QProxyStyle>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxstyleoption.h>
#include <vxcore/vxtextstyle.h>

/// The look of the application: a proxy over the Fusion style with its own palette, and with its
/// own numbers for metrics, hints, primitives and icons that the toolkit lacks. They pass through
/// the toolkit's functions (pixelMetric(), styleHint(), drawPrimitive(), standardIcon()), so that a
/// widget can use them through a plain QStyle pointer, and a plug-in can name them by number. GUI
/// thread only.
class VXCORE_EXPORT VxStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Logical pixels, unless said otherwise.
    enum PixelMetricId : quint32 {
        PM_VxBaseMargin = 0xF0000000,    ///< the small gap between neighbours that belong together
        PM_VxPaneMargin = 0xF0000001,    ///< the margin and spacing inside panes
        PM_VxControlHeight = 0xF0000002, ///< the height of buttons, fields and bars
        PM_VxButtonInset = 0xF0000003,   ///< space that a drop-down button needs beside its text
        PM_VxButtonMargin = 0xF0000004,  ///< the gap between a button's edge and its contents
        PM_VxBarIconSize = 0xF0000005,   ///< the side of the icons in bars
        PM_VxDividerWidth = 0xF0000006,  ///< the thickness of a movable divider
        PM_VxTreeIndentation = 0xF0000020,
        PM_VxDopeSheetHeaderHeight = 0xF0000021, ///< the height of the time ruler
        PM_VxDopeSheetRowHeight = 0xF0000022,
        PM_VxHeaderGripMargin = 0xF0000023,  ///< distance in which a section's edge resizes it
        PM_VxRulerLabelSpacing = 0xF0000024, ///< the smallest distance of two ticks of the ruler
        PM_VxRulerTickWidth = 0xF0000025,
        PM_VxPlayheadInset = 0xF0000026,          ///< how far the playhead reaches below the ruler
        PM_VxCurrentTimeMarkerWidth = 0xF0000027, ///< odd, so that it has a middle pixel
        PM_VxTimelineKeyMargin = 0xF00000A8,      ///< half the side of the playhead
        PM_VxTimelineFrameWidth = 0xF00000AC ///< the side of a key mark and the unit of zooming
    };
    Q_ENUM(PixelMetricId)

    /// Primitives, all drawn in option->rect with option->palette.
    enum PrimitiveId : quint32 {
        PE_VxPaneBackground = 0x0F0000A0,
        PE_VxBarBackground = 0x0F0000A1, ///< the frame around a strip of buttons
        PE_VxBarButton = 0x0F0000A2,     ///< Sunken pressed, On checked, MouseOver hovered
        PE_VxBarSeparator = 0x0F0000A3,  ///< Horizontal: of a horizontal bar, thus a vertical line
        PE_VxDownArrow = 0x0F0000A4,     ///< the small arrow of drop-down buttons
        PE_VxDividerBar = 0x0F0000A5,    ///< Horizontal: between widgets side by side
        /// A handle of the time range slider: VxStyleOptionCustom with a RangeHandleValue,
        /// MouseOver draws it highlighted.
        PE_VxRangeHandle = 0x0F0000A8,
        PE_VxTimelineNameColumn = 0x0F0000A9,
        /// A mark of the time ruler: VxStyleOptionCustom with a RulerTickValue. The line is at the
        /// rectangle's left edge; the flags of the range marks reach a few pixels into the play
        /// range.
        PE_VxRulerTick = 0x0F0000AA,
        /// The marker of the current time: a triangle with its point on the rectangle's bottom
        /// edge.
        PE_VxPlayhead = 0x0F0000AB,
        /// The line of the current time over the rectangle's height, in its middle column.
        PE_VxCurrentTimeMarker = 0x0F0000AC,
        /// A key: Raised linear, Sunken constant, Editing TCB, Children a union of several rows,
        /// none of them a mark for a time only; Selected for selected keys.
        PE_VxKeyMark = 0x0F0000AD
    };
    Q_ENUM(PrimitiveId)

    enum RangeHandleValue { RangeStartHandle = 1, RangeEndHandle = 2 };
    Q_ENUM(RangeHandleValue)

    enum RulerTickValue { StartMark = 1, EndMark = 2, MinorTick = 4, MajorTick = 8 };
    Q_ENUM(RulerTickValue)

    enum StyleHintId : quint32 {
        /// The parts of the time ruler that are drawn: a set of RulerFlag bits.
        SH_VxRulerFlags = 0xF0000001
    };
    Q_ENUM(StyleHintId)

    enum RulerFlag {
        RulerRangeLabels = 1, ///< the numbers of the play range's first and last frame
        RulerStepLabels = 2,  ///< a number at every label step
        RulerTicks = 4,       ///< the ticks and the marks of the play range
        RulerAll = RulerRangeLabels | RulerStepLabels | RulerTicks
    };
    Q_ENUM(RulerFlag)

    enum StandardIconId : quint32 {
        SP_VxPropertyGroup = 0xF00000D3,
        SP_VxProperty = 0xF00000D4,
        SP_VxMorphProperty = 0xF00000D5,
        SP_VxAliasProperty = 0xF00000D7,

        SP_VxLoopOn = 0xF0000100,
        SP_VxLoopOff,
        SP_VxSkipToStart,
        SP_VxPreviousKey,
        SP_VxPreviousFrame,
        SP_VxPlay,
        SP_VxPause,
        SP_VxNextFrame,
        SP_VxNextKey,
        SP_VxSkipToEnd,
        SP_VxDeleteKeys,
        SP_VxCreateKeys,
        SP_VxCopyKeys,
        SP_VxPasteKeys,
        SP_VxKeyGraph,
        SP_VxInterpolationLinear,
        SP_VxInterpolationConstant,
        SP_VxInterpolationTcb,
        SP_VxNode,
        SP_VxBone,
        SP_VxSkeleton,
        SP_VxObject,
        SP_VxGraphPan,
        SP_VxGraphZoom,
        SP_VxGraphFrame,
        SP_VxSearch,
        SP_VxOptionsMenu,
        SP_VxVisible
    };
    Q_ENUM(StandardIconId)

    enum TextStyleId {
        TS_Ruler,      ///< frame numbers in the time ruler
        TS_GraphLabel, ///< channel names in the key graph
        TS_GraphAxis   ///< numbers at the key graph's grid lines
    };
    Q_ENUM(TextStyleId)

    enum class ColorScheme {
        Dark,
        Light,
        Contrast ///< white on black: texts have a contrast of 7:1 and more, controls 4.5:1
    };
    Q_ENUM(ColorScheme)

    /// The colours of the axes, which are those of curves.
    enum class CurveColors {
        Standard, ///< red, green and blue
        Safe      ///< distinct with protanopia, deuteranopia and tritanopia too
    };
    Q_ENUM(CurveColors)

    static constexpr int SmallestTextSize = 8;
    static constexpr int LargestTextSize = 24;

    VxStyle();
    explicit VxStyle(ColorScheme scheme);
    ~VxStyle() override;

    ColorScheme colorScheme() const;
    /// Changes the palette. When this is the application's style, the application's palette
    /// changes with it, and existing icons are repainted in the new colours.
    void setColorScheme(ColorScheme scheme);

    CurveColors curveColors() const;
    void setCurveColors(CurveColors colors);

    /// Points; 0 for the desktop's size, which is the default.
    int textSize() const;
    /// Sets the application's font when this is the application's style. Sizes other than 0 are
    /// bounded to SmallestTextSize to LargestTextSize. Heights of rows and controls grow with the
    /// font.
    void setTextSize(int points);

    /// Whether menus, tabs and other controls move and fade. Default: they do.
    bool isAnimated() const;
    void setAnimated(bool animated);

    /// The value of a metric, as pixelMetric() gives it.
    int metric(PixelMetricId id) const;

    /// An icon for normal, active, selected and disabled mode, painted at the requested size. Null
    /// when the number is not one of StandardIconId.
    QIcon icon(StandardIconId id) const;

    /// A named colour, such as "Style_X_Axis"; invalid for an unknown name.
    QColor getInterfaceColor(const QString &name) const;

    /// The icon's picture for a widget in the given state (State_Enabled, State_MouseOver,
    /// State_Selected and State_On count). size is in logical pixels; null when it is empty or the
    /// number is unknown.
    QPixmap findStandardPixmapForState(StandardIconId id, State state, const QSize &size,
                                       qreal devicePixelRatio = 1) const;

    VxTextStyle textStyle(TextStyleId id) const;

    /// Adds the colours of the application's palette, except where the caller set a colour.
    void polish(QPalette &palette) override;
    /// Gives the application the style's palette and text size.
    void polish(QApplication *application) override;
    using QProxyStyle::polish;
    /// Gives the application the desktop's text size again.
    void unpolish(QApplication *application) override;
    using QProxyStyle::unpolish;

    QPalette standardPalette() const override;
    int pixelMetric(PixelMetric which, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr,
                  const QWidget *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget = nullptr) const override;
    QIcon standardIcon(StandardPixmap which, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;

Q_SIGNALS:
    void colorSchemeChanged();
    void curveColorsChanged();
    void textSizeChanged();

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
