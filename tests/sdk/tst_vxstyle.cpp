#include <QtTest>

#include <QApplication>
#include <QMetaEnum>
#include <QPainter>
#include <QStyleOption>
#include <QToolButton>
#include <QTreeView>

#include <cmath>
#include <memory>
#include <set>

#include <vxcore/vxstyle.h>

#include "testing/vxwarningguard.h"

namespace {

using Scheme = VxStyle::ColorScheme;

struct NamedState
{
    const char *name;
    QStyle::State state;
};

const NamedState keyTypes[] = {{"linear", QStyle::State_Raised},
                               {"constant", QStyle::State_Sunken},
                               {"TCB", QStyle::State_Editing},
                               {"union of rows", QStyle::State_Children},
                               {"time only", QStyle::State_None}};

QStyle::PrimitiveElement element(quint32 id)
{
    return static_cast<QStyle::PrimitiveElement>(id);
}

QList<VxStyle::StandardIconId> allIcons()
{
    QList<VxStyle::StandardIconId> ids;
    const QMetaEnum names = QMetaEnum::fromType<VxStyle::StandardIconId>();
    for (int i = 0; i < names.keyCount(); ++i)
        ids.append(static_cast<VxStyle::StandardIconId>(static_cast<quint32>(names.value(i))));
    return ids;
}

// One primitive on the palette's base colour, in a picture a little larger than the rectangle.
QImage drawn(const VxStyle &style, quint32 id, const QRect &rect, QStyle::State state,
             int value = 0, qreal ratio = 1)
{
    const int side = 4;
    const QSize size(rect.right() + 1 + side, rect.bottom() + 1 + side);
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    VxStyleOptionCustom option(value);
    option.palette = style.standardPalette();
    option.rect = rect;
    option.state = state;
    image.fill(option.palette.color(QPalette::Base));
    QPainter painter(&image);
    // What a view may have set for its own drawing; it must not blur anything.
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    style.drawPrimitive(element(id), &option, &painter);
    return image;
}

QImage drawnMark(const VxStyle &style, QStyle::State state, int side = 10, qreal ratio = 1)
{
    return drawn(style, VxStyle::PE_VxKeyMark, QRect(4, 4, side, side), state, 0, ratio);
}

int differingPixels(const QImage &first, const QImage &second)
{
    if (first.size() != second.size())
        return -1;
    int count = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x)
            count += first.pixel(x, y) != second.pixel(x, y) ? 1 : 0;
    }
    return count;
}

// Only the shape: which pixels differ from the ground clearly.
QImage silhouette(const QImage &image)
{
    QImage result(image.size(), QImage::Format_Mono);
    const int ground = qGray(image.pixel(0, 0));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            result.setPixel(x, y, std::abs(qGray(image.pixel(x, y)) - ground) > 40 ? 1 : 0);
    }
    return result;
}

QImage blackAndWhite(const QImage &image)
{
    return image.convertToFormat(QImage::Format_Mono, Qt::MonoOnly | Qt::ThresholdDither);
}

QRect extent(const QImage &image)
{
    QRect result;
    const QRgb ground = image.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != ground)
                result |= QRect(x, y, 1, 1);
        }
    }
    return result;
}

bool isBlank(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 128)
                return false;
        }
    }
    return true;
}

qreal luminance(const QColor &color)
{
    const auto linear = [](qreal part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

qreal contrast(const QColor &first, const QColor &second)
{
    const qreal a = luminance(first);
    const qreal b = luminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// What the key graph makes of an axis colour for its n-th channel.
QColor channelColor(const QColor &base, int n)
{
    const int factor = 185 - (3 * n) % 15;
    return base.value() < 129 ? base.darker(factor) : base.lighter(factor);
}

void addSchemes()
{
    QTest::addColumn<Scheme>("scheme");
    QTest::newRow("dark") << Scheme::Dark;
    QTest::newRow("light") << Scheme::Light;
}

void addSchemesAndRatios()
{
    QTest::addColumn<Scheme>("scheme");
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        QTest::addRow("dark at %.1f", ratio) << Scheme::Dark << ratio;
        QTest::addRow("light at %.1f", ratio) << Scheme::Light << ratio;
    }
}

} // namespace

Q_DECLARE_METATYPE(VxStyle::ColorScheme)

class tst_VxStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void idsHaveTheirNumbers();
    void metricsAnswerThroughTheToolkit();
    void metricsOfTheTimelineFitTogether();
    void toolkitMetricsStayFusions();
    void rulerFlagsAreAllOn();
    void ownPrimitivesHaveTheirOwnNumbers();

    void optionsCast();

    void iconsAreDrawnInEveryMode_data() { addSchemesAndRatios(); }
    void iconsAreDrawnInEveryMode();
    void iconsDifferFromEachOther();
    void iconsFollowTheScheme();
    void iconsOutliveTheirStyle();
    void iconsPaintAtTheDeviceSize();
    void iconsInWideRectanglesStayInTheMiddle();
    void unknownIconsAreNull();
    void pixmapForStateTellsStatesApart();

    void keyMarksDifferByShapeAlone_data() { addSchemesAndRatios(); }
    void keyMarksDifferByShapeAlone();
    void selectedKeyMarksDiffer_data() { addSchemesAndRatios(); }
    void selectedKeyMarksDiffer();
    void disabledKeyMarksDiffer();
    void keyMarksStandOutFromTheRow_data() { addSchemes(); }
    void keyMarksStandOutFromTheRow();
    void keyMarksAreCentredOnTheFrame_data() { addSchemes(); }
    void keyMarksAreCentredOnTheFrame();
    void keyMarksAreDrawnAlikeFromTheCache();
    void keyMarksFollowThePalette();
    void keyMarksStaySharpBetweenDevicePixels();
    void keyMarksInEmptyRectanglesDrawNothing();
    void keyMarksInHighRectanglesStandAtTheBottom();
    void timeOnlyMarksAreLow();
    void linesInRowsCanBeSeen();
    void keyMarksWithAViewsStateKeepTheirShape();

    void rangeHandlesTellSideAndHover_data() { addSchemes(); }
    void rangeHandlesTellSideAndHover();
    void rulerTicksDiffer_data() { addSchemes(); }
    void rulerTicksDiffer();
    void tickWithoutValueIsMinor();
    void playheadStandsOnTheFrame();
    void currentTimeMarkerIsInItsMiddleColumn();
    void nameColumnFillsItsRectangle();
    void barButtonStatesDiffer_data() { addSchemes(); }
    void barButtonStatesDiffer();
    void primitivesInEmptyRectanglesDrawNothing();

    void textIsReadable_data() { addSchemes(); }
    void textIsReadable();
    void interfaceColors_data() { addSchemes(); }
    void interfaceColors();
    void axisColorsStayReadableInTheGraph_data() { addSchemes(); }
    void axisColorsStayReadableInTheGraph();
    void textStyles_data() { addSchemes(); }
    void textStyles();

    void schemeChangeReachesTheApplication();
    void explicitPaletteRolesSurvive();
    void toolButtonShowsItsCheckedState();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_VxStyle::initTestCase()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    QApplication::setFont(font);
}

void tst_VxStyle::idsHaveTheirNumbers()
{
    QCOMPARE(quint32(VxStyle::PM_VxBaseMargin), 0xF0000000u);
    QCOMPARE(quint32(VxStyle::PM_VxTimelineKeyMargin), 0xF00000A8u);
    QCOMPARE(quint32(VxStyle::PM_VxTimelineFrameWidth), 0xF00000ACu);
    QCOMPARE(quint32(VxStyle::PE_VxRangeHandle), 0x0F0000A8u);
    QCOMPARE(quint32(VxStyle::PE_VxPlayhead), 0x0F0000ABu);
    QCOMPARE(quint32(VxStyle::PE_VxKeyMark), 0x0F0000ADu);
    QCOMPARE(quint32(VxStyle::SP_VxPropertyGroup), 0xF00000D3u);
    QCOMPARE(quint32(VxStyle::SP_VxProperty), 0xF00000D4u);
    QCOMPARE(quint32(VxStyle::SP_VxMorphProperty), 0xF00000D5u);
    QCOMPARE(quint32(VxStyle::SP_VxAliasProperty), 0xF00000D7u);
    QCOMPARE(int(VxStyleOptionCustom::Type), 0xF00);
}

void tst_VxStyle::metricsAnswerThroughTheToolkit()
{
    const VxStyle style;
    const QStyle &plain = style;
    const QMetaEnum names = QMetaEnum::fromType<VxStyle::PixelMetricId>();
    std::set<quint32> numbers;
    for (int i = 0; i < names.keyCount(); ++i) {
        const auto id = static_cast<VxStyle::PixelMetricId>(static_cast<quint32>(names.value(i)));
        QVERIFY2(style.metric(id) > 0, names.key(i));
        QCOMPARE(plain.pixelMetric(static_cast<QStyle::PixelMetric>(id)), style.metric(id));
        QVERIFY2(quint32(id) >= quint32(QStyle::PM_CustomBase), names.key(i));
        QVERIFY2(numbers.insert(id).second, names.key(i));
    }
}

void tst_VxStyle::metricsOfTheTimelineFitTogether()
{
    const VxStyle style;
    QCOMPARE(style.metric(VxStyle::PM_VxTimelineFrameWidth), 10);
    // The playhead's left edge lies half a mark left of the mark's; its middle is the mark's.
    QCOMPARE(2 * style.metric(VxStyle::PM_VxTimelineKeyMargin),
             2 * style.metric(VxStyle::PM_VxTimelineFrameWidth));
    QVERIFY(style.metric(VxStyle::PM_VxDopeSheetRowHeight) >
            style.metric(VxStyle::PM_VxTimelineFrameWidth));
    QVERIFY(style.metric(VxStyle::PM_VxDopeSheetHeaderHeight) >=
            2 * style.metric(VxStyle::PM_VxTimelineKeyMargin) + 4);
    QCOMPARE(style.metric(VxStyle::PM_VxCurrentTimeMarkerWidth) % 2, 1);
    // Two labels are at least two tick distances apart; four digits must fit between them.
    QVERIFY(2 * style.metric(VxStyle::PM_VxRulerLabelSpacing) >
            style.textStyle(VxStyle::TS_Ruler).getWidth(QStringLiteral("1000")));
}

void tst_VxStyle::toolkitMetricsStayFusions()
{
    const VxStyle style;
    for (const QStyle::PixelMetric metric : {QStyle::PM_ScrollBarExtent, QStyle::PM_SmallIconSize,
                                             QStyle::PM_ButtonMargin, QStyle::PM_DefaultFrameWidth})
        QCOMPARE(style.pixelMetric(metric), style.baseStyle()->pixelMetric(metric));
}

void tst_VxStyle::rulerFlagsAreAllOn()
{
    const VxStyle style;
    QCOMPARE(style.styleHint(static_cast<QStyle::StyleHint>(VxStyle::SH_VxRulerFlags)), 1 | 2 | 4);
    QCOMPARE(style.styleHint(QStyle::SH_Menu_MouseTracking),
             style.baseStyle()->styleHint(QStyle::SH_Menu_MouseTracking));
}

void tst_VxStyle::ownPrimitivesHaveTheirOwnNumbers()
{
    const QMetaEnum names = QMetaEnum::fromType<VxStyle::PrimitiveId>();
    std::set<quint32> numbers;
    for (int i = 0; i < names.keyCount(); ++i) {
        QVERIFY(quint32(names.value(i)) >= quint32(QStyle::PE_CustomBase));
        QVERIFY2(numbers.insert(quint32(names.value(i))).second, names.key(i));
    }
}

void tst_VxStyle::optionsCast()
{
    VxStyleOptionCustom custom(2);
    const QStyleOption *base = &custom;
    const auto *back = qstyleoption_cast<const VxStyleOptionCustom *>(base);
    QCOMPARE(back, &custom);
    QCOMPARE(back->value, 2);
    QCOMPARE(custom.type, 0xF00);
    QCOMPARE(custom.version, 1);

    const QStyleOption plain;
    QVERIFY(qstyleoption_cast<const VxStyleOptionCustom *>(&plain) == nullptr);
    const QStyleOptionButton button;
    QVERIFY(qstyleoption_cast<const VxStyleOptionCustom *>(&button) == nullptr);
    QCOMPARE(VxStyleOptionCustom().value, 0);
}

void tst_VxStyle::iconsAreDrawnInEveryMode()
{
    QFETCH(Scheme, scheme);
    QFETCH(qreal, ratio);
    const VxStyle style(scheme);
    for (const VxStyle::StandardIconId id : allIcons()) {
        const QByteArray where = QByteArray::number(quint32(id), 16);
        QVERIFY2(!style.icon(id).isNull(), where.constData());
        const QStyle::State enabled = QStyle::State_Enabled;
        const QPixmap normal = style.findStandardPixmapForState(id, enabled, {16, 16}, ratio);
        const QPixmap disabled =
            style.findStandardPixmapForState(id, QStyle::State_None, {16, 16}, ratio);
        QCOMPARE(normal.size(), (QSizeF(16, 16) * ratio).toSize());
        QCOMPARE(normal.devicePixelRatioF(), ratio);
        QVERIFY2(!isBlank(normal.toImage()), where.constData());
        QVERIFY2(!isBlank(disabled.toImage()), where.constData());
        QVERIFY2(differingPixels(normal.toImage(), disabled.toImage()) > 20, where.constData());
        QVERIFY2(!isBlank(style.icon(id).pixmap(24, QIcon::Selected).toImage()), where.constData());
    }
}

void tst_VxStyle::iconsDifferFromEachOther()
{
    const VxStyle style;
    const QList<VxStyle::StandardIconId> ids = allIcons();
    QCOMPARE(ids.size(), 32);
    QList<QImage> pictures;
    for (const VxStyle::StandardIconId id : ids)
        pictures.append(style.icon(id).pixmap(16).toImage());
    for (int i = 0; i < ids.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(differingPixels(pictures[i], pictures[j]) > 8,
                     qPrintable(QStringLiteral("%1 %2").arg(ids[i], 0, 16).arg(ids[j], 0, 16)));
    }
}

void tst_VxStyle::iconsFollowTheScheme()
{
    VxStyle style;
    const QIcon play = style.icon(VxStyle::SP_VxPlay);
    const QImage dark = play.pixmap(16).toImage();
    style.setColorScheme(Scheme::Light);
    const QImage light = play.pixmap(16).toImage();
    QVERIFY(dark.pixelColor(8, 8).lightness() > 180);
    QVERIFY(light.pixelColor(8, 8).lightness() < 80);
}

void tst_VxStyle::iconsOutliveTheirStyle()
{
    auto style = std::make_unique<VxStyle>(Scheme::Light);
    const QIcon play = style->icon(VxStyle::SP_VxPlay);
    const QImage before = play.pixmap(16).toImage();
    style.reset();
    QCOMPARE(play.pixmap(16).toImage(), before);
}

void tst_VxStyle::iconsPaintAtTheDeviceSize()
{
    const VxStyle style;
    QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    style.icon(VxStyle::SP_VxPause).paint(&painter, QRect(0, 0, 16, 16));
    painter.end();
    image.setDevicePixelRatio(1);
    QCOMPARE(image, style.icon(VxStyle::SP_VxPause).pixmap(32).toImage());
}

void tst_VxStyle::iconsInWideRectanglesStayInTheMiddle()
{
    const VxStyle style;
    const QImage wide =
        style.findStandardPixmapForState(VxStyle::SP_VxPause, QStyle::State_Enabled, {32, 16})
            .toImage();
    QCOMPARE(wide.size(), QSize(32, 16));
    QCOMPARE(wide.copy(8, 0, 16, 16), style.icon(VxStyle::SP_VxPause).pixmap(16).toImage());
}

void tst_VxStyle::unknownIconsAreNull()
{
    const VxStyle style;
    const auto unknown = static_cast<VxStyle::StandardIconId>(0xF0000FFFu);
    QVERIFY(style.icon(unknown).isNull());
    QVERIFY(style.findStandardPixmapForState(unknown, QStyle::State_Enabled, {16, 16}).isNull());
    QVERIFY(
        style.findStandardPixmapForState(VxStyle::SP_VxPlay, QStyle::State_Enabled, {}).isNull());
    QVERIFY(!style.standardIcon(static_cast<QStyle::StandardPixmap>(VxStyle::SP_VxBone)).isNull());
    QVERIFY(!style.standardIcon(QStyle::SP_DirIcon).isNull());
}

void tst_VxStyle::pixmapForStateTellsStatesApart()
{
    const VxStyle style;
    const auto picture = [&style](QStyle::State state) {
        return style.findStandardPixmapForState(VxStyle::SP_VxCreateKeys, state, {16, 16})
            .toImage();
    };
    const QImage normal = picture(QStyle::State_Enabled);
    QVERIFY(picture(QStyle::State_Enabled | QStyle::State_Selected) != normal);
    QVERIFY(picture(QStyle::State_Enabled | QStyle::State_On) != normal);
    QVERIFY(picture(QStyle::State_None) != normal);
    QCOMPARE(picture(QStyle::State_None | QStyle::State_Selected), picture(QStyle::State_None));
}

void tst_VxStyle::keyMarksDifferByShapeAlone()
{
    QFETCH(Scheme, scheme);
    QFETCH(qreal, ratio);
    const VxStyle style(scheme);
    for (const int side : {9, 10}) {
        for (const QStyle::State extra : {QStyle::State_None, QStyle::State_Selected}) {
            for (const NamedState &first : keyTypes) {
                for (const NamedState &second : keyTypes) {
                    if (first.state == second.state)
                        continue;
                    const QImage a =
                        drawnMark(style, QStyle::State_Enabled | extra | first.state, side, ratio);
                    const QImage b =
                        drawnMark(style, QStyle::State_Enabled | extra | second.state, side, ratio);
                    const QByteArray where = QByteArray(first.name) + " and " + second.name;
                    QVERIFY2(differingPixels(silhouette(a), silhouette(b)) >= 8, where.constData());
                    QVERIFY2(differingPixels(a.convertToFormat(QImage::Format_Grayscale8),
                                             b.convertToFormat(QImage::Format_Grayscale8)) >= 12,
                             where.constData());
                }
            }
        }
    }
}

void tst_VxStyle::selectedKeyMarksDiffer()
{
    QFETCH(Scheme, scheme);
    QFETCH(qreal, ratio);
    const VxStyle style(scheme);
    for (const NamedState &type : keyTypes) {
        const QImage plain = drawnMark(style, QStyle::State_Enabled | type.state, 10, ratio);
        const QImage selected = drawnMark(
            style, QStyle::State_Enabled | QStyle::State_Selected | type.state, 10, ratio);
        QVERIFY2(differingPixels(blackAndWhite(plain), blackAndWhite(selected)) >= 5, type.name);
        QVERIFY2(differingPixels(plain, selected) >= 12, type.name);
    }
}

void tst_VxStyle::disabledKeyMarksDiffer()
{
    const VxStyle style;
    for (const NamedState &type : keyTypes)
        QVERIFY2(differingPixels(drawnMark(style, QStyle::State_Enabled | type.state),
                                 drawnMark(style, type.state)) >= 12,
                 type.name);
}

// On a plain row and on a selected row, and for selected and unselected keys alike.
void tst_VxStyle::keyMarksStandOutFromTheRow()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    const QPalette palette = style.standardPalette();
    const QColor base = palette.color(QPalette::Base);
    const QColor highlight = palette.color(QPalette::Highlight);
    const auto blend = [](int below, int above) { return below + (above - below) * 64 / 255; };
    const QColor selectedRow(blend(base.red(), highlight.red()),
                             blend(base.green(), highlight.green()),
                             blend(base.blue(), highlight.blue()));
    for (const QColor &row : {base, selectedRow}) {
        for (const char *name : {"Style_Key", "Style_Key_Selected"}) {
            const QString fill = QString::fromLatin1(name);
            const QString outline = fill + QStringLiteral("_Outline");
            const qreal best = std::max(contrast(style.getInterfaceColor(fill), row),
                                        contrast(style.getInterfaceColor(outline), row));
            QVERIFY2(best >= 3, qPrintable(fill + QString::number(best)));
        }
    }
}

// The frame's tick stands in the sixth of a mark's ten columns.
void tst_VxStyle::keyMarksAreCentredOnTheFrame()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    for (const NamedState &type : keyTypes) {
        const QImage image = silhouette(
            drawnMark(style, QStyle::State_Enabled | QStyle::State_Selected | type.state));
        const QRect rect = extent(image);
        QVERIFY2(QRect(4, 4, 10, 10).contains(rect), type.name);
        QCOMPARE(rect.left() + rect.right(), 2 * (4 + 5));
        if (type.state != QStyle::State_None)
            QCOMPARE(rect.top() + rect.bottom(), 2 * (4 + 5));
    }
}

void tst_VxStyle::keyMarksAreDrawnAlikeFromTheCache()
{
    const VxStyle style;
    const QStyle::State state = QStyle::State_Enabled | QStyle::State_Raised;
    const QImage first = drawnMark(style, state);
    QCOMPARE(drawnMark(style, state), first);
    // More sizes and ratios than are kept push the first out; it comes back as it was.
    for (int side = 5; side < 30; ++side) {
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            const VxStyle fresh;
            const QImage picture = drawnMark(style, state, side, ratio);
            QCOMPARE(picture, drawnMark(fresh, state, side, ratio));
            QCOMPARE(picture, drawnMark(style, state, side, ratio));
        }
    }
    QCOMPARE(drawnMark(style, state), first);
}

// A widget whose palette has another ground gets marks that stand out from it.
void tst_VxStyle::keyMarksFollowThePalette()
{
    const VxStyle dark(Scheme::Dark);
    const VxStyle light(Scheme::Light);
    const auto mark = [](const VxStyle &style, const QPalette &palette) {
        QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        QStyleOption option;
        option.palette = palette;
        option.rect = image.rect();
        option.state = QStyle::State_Enabled | QStyle::State_Raised;
        style.drawPrimitive(element(VxStyle::PE_VxKeyMark), &option, &painter);
        return image;
    };
    const QImage onDark = mark(dark, dark.standardPalette());
    const QImage onLight = mark(dark, light.standardPalette());
    QVERIFY(onDark != onLight);
    QCOMPARE(mark(light, dark.standardPalette()), onDark);
    QCOMPARE(mark(dark, dark.standardPalette()), onDark);
}

// At 1.5 every second position lies between two device pixels; the mark moves to a whole one and
// keeps its pixels.
void tst_VxStyle::keyMarksStaySharpBetweenDevicePixels()
{
    const VxStyle style;
    for (const NamedState &type : keyTypes) {
        for (const int side : {9, 10}) {
            const auto mark = [&](int left, int top) {
                const QImage image =
                    drawn(style, VxStyle::PE_VxKeyMark, QRect(left, top, side, side),
                          QStyle::State_Enabled | QStyle::State_Selected | type.state, 0, 1.5);
                QImage picture = image.copy(extent(image));
                picture.setDevicePixelRatio(1);
                return picture;
            };
            const QImage onPixel = mark(2, 2);
            QVERIFY(onPixel.width() > 3 && onPixel.height() > 4);
            QCOMPARE(mark(3, 2), onPixel);
            QCOMPARE(mark(2, 3), onPixel);
            QCOMPARE(mark(3, 3), onPixel);
        }
    }
}

void tst_VxStyle::keyMarksInEmptyRectanglesDrawNothing()
{
    const VxStyle style;
    for (const QRect &rect : {QRect(), QRect(4, 4, 0, 10), QRect(4, 4, 10, -3)}) {
        QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        QStyleOption option;
        option.rect = rect;
        option.state = QStyle::State_Enabled | QStyle::State_Raised;
        style.drawPrimitive(element(VxStyle::PE_VxKeyMark), &option, &painter);
        QVERIFY(isBlank(image));
    }
}

void tst_VxStyle::keyMarksInHighRectanglesStandAtTheBottom()
{
    const VxStyle style;
    const QImage image = drawn(style, VxStyle::PE_VxKeyMark, QRect(2, 2, 10, 28),
                               QStyle::State_Enabled | QStyle::State_Raised);
    QVERIFY(extent(image).top() >= 2 + 18);
    QCOMPARE(extent(image).bottom(), 29);
}

// In a ruler: a slim band that leaves the numbers above it free.
void tst_VxStyle::timeOnlyMarksAreLow()
{
    const VxStyle style;
    for (const int height : {20, 28, 40}) {
        const QImage image =
            drawn(style, VxStyle::PE_VxKeyMark, QRect(2, 2, 10, height), QStyle::State_Enabled);
        QCOMPARE(extent(image), QRect(2 + 4, height + 2 - 4, 3, 4));
    }
}

void tst_VxStyle::linesInRowsCanBeSeen()
{
    // Relative luminance and contrast as they are reckoned for text.
    const auto linear = [](qreal c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [linear](const QColor &color) {
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    for (const auto scheme : {Scheme::Dark, Scheme::Light}) {
        const QPalette palette = VxStyle(scheme).standardPalette();
        const qreal line = luminance(palette.color(QPalette::Dark)) + 0.05;
        const qreal ground = luminance(palette.color(QPalette::Base)) + 0.05;
        QVERIFY(qMax(line, ground) / qMin(line, ground) > 2.2);
    }
}

void tst_VxStyle::keyMarksWithAViewsStateKeepTheirShape()
{
    const VxStyle style;
    QTreeView view;
    QStyleOption option;
    option.initFrom(&view);
    const QStyle::State own = option.state | QStyle::State_Active | QStyle::State_HasFocus |
                              QStyle::State_MouseOver | QStyle::State_Window;
    for (const NamedState &type : keyTypes)
        QCOMPARE(drawnMark(style, own | type.state),
                 drawnMark(style, QStyle::State_Enabled | type.state));
}

void tst_VxStyle::rangeHandlesTellSideAndHover()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    const QRect rect(2, 2, 20, 20);
    const auto handle = [&](int value, QStyle::State extra) {
        return drawn(style, VxStyle::PE_VxRangeHandle, rect, QStyle::State_Enabled | extra, value);
    };
    const QImage start = handle(1, QStyle::State_None);
    const QImage end = handle(2, QStyle::State_None);
    const QImage hovered = handle(1, QStyle::State_MouseOver);
    QVERIFY(differingPixels(start, end) > 10);
    QVERIFY(differingPixels(start, hovered) > 200);
    // Mirror images, but for the rounding of the arrow's edges.
    QVERIFY(differingPixels(blackAndWhite(start.copy(rect)),
                            blackAndWhite(end.copy(rect).mirrored(true, false))) <= 4);
    QVERIFY(rect.contains(extent(start)));
}

void tst_VxStyle::rulerTicksDiffer()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    const QRect rect(10, 0, 1, 28);
    const auto tick = [&](int value) {
        return drawn(style, VxStyle::PE_VxRulerTick, rect, QStyle::State_Enabled, value);
    };
    const QRect minor = extent(tick(VxStyle::MinorTick));
    const QRect major = extent(tick(VxStyle::MajorTick));
    const QRect start = extent(tick(VxStyle::StartMark));
    const QRect end = extent(tick(VxStyle::EndMark));
    QVERIFY(minor.height() < major.height());
    QVERIFY(major.height() < start.height());
    QCOMPARE(start.height(), end.height());
    for (const QRect &mark : {minor, major, start, end})
        QCOMPARE(mark.bottom(), rect.bottom());
    // The flags point into the range.
    QCOMPARE(start.left(), 10);
    QVERIFY(start.right() > 10);
    QCOMPARE(end.right(), 10);
    QVERIFY(end.left() < 10);
    QCOMPARE(minor.width(), 1);
}

void tst_VxStyle::tickWithoutValueIsMinor()
{
    const VxStyle style;
    QImage image(15, 32, QImage::Format_ARGB32_Premultiplied);
    QStyleOption option;
    option.palette = style.standardPalette();
    option.rect = QRect(10, 0, 1, 28);
    option.state = QStyle::State_Enabled;
    image.fill(option.palette.color(QPalette::Base));
    QPainter painter(&image);
    style.drawPrimitive(element(VxStyle::PE_VxRulerTick), &option, &painter);
    painter.end();
    QCOMPARE(image, drawn(style, VxStyle::PE_VxRulerTick, option.rect, QStyle::State_Enabled,
                          VxStyle::MinorTick));
}

void tst_VxStyle::playheadStandsOnTheFrame()
{
    const VxStyle style;
    const int side = 2 * style.metric(VxStyle::PM_VxTimelineKeyMargin);
    const QRect rect(4, 4, side, side);
    const QImage image = drawn(style, VxStyle::PE_VxPlayhead, rect, QStyle::State_Enabled);
    const QRect found = extent(silhouette(image));
    QVERIFY(rect.contains(extent(image)));
    QCOMPARE(extent(image).bottom(), rect.bottom());
    QCOMPARE(found.left() + found.right(), 2 * (rect.left() + side / 2));
    for (const int small : {1, 2, 5, 10})
        QVERIFY(QRect(4, 4, small, small)
                    .contains(extent(drawn(style, VxStyle::PE_VxPlayhead, QRect(4, 4, small, small),
                                           QStyle::State_Enabled))));
}

void tst_VxStyle::currentTimeMarkerIsInItsMiddleColumn()
{
    const VxStyle style;
    const QImage image =
        drawn(style, VxStyle::PE_VxCurrentTimeMarker, QRect(5, 0, 11, 28), QStyle::State_Enabled);
    QCOMPARE(extent(image), QRect(5, 0, 11, 28));
    QVERIFY(image.pixel(10, 14) != image.pixel(9, 14));
    QCOMPARE(image.pixel(9, 14), image.pixel(11, 14));
}

void tst_VxStyle::nameColumnFillsItsRectangle()
{
    const VxStyle style;
    const QImage image =
        drawn(style, VxStyle::PE_VxTimelineNameColumn, QRect(3, 3, 50, 30), QStyle::State_Enabled);
    QCOMPARE(extent(image), QRect(3, 3, 50, 30));
    QVERIFY(image.pixel(52, 10) != image.pixel(51, 10));
}

void tst_VxStyle::barButtonStatesDiffer()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    const QStyle::State enabled = QStyle::State_Enabled;
    const NamedState states[] = {
        {"idle", enabled},
        {"raised", enabled | QStyle::State_Raised},
        {"hovered", enabled | QStyle::State_MouseOver},
        {"pressed", enabled | QStyle::State_Sunken},
        {"checked", enabled | QStyle::State_On},
        {"checked and hovered", enabled | QStyle::State_On | QStyle::State_MouseOver}};
    QList<QImage> pictures;
    for (const NamedState &state : states)
        pictures.append(drawn(style, VxStyle::PE_VxBarButton, QRect(2, 2, 32, 22), state.state));
    for (int i = 0; i < pictures.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(differingPixels(pictures[i], pictures[j]) > 300, states[i].name);
    }
    // A disabled button does not answer to the mouse.
    QCOMPARE(drawn(style, VxStyle::PE_VxBarButton, QRect(2, 2, 32, 22), QStyle::State_MouseOver),
             pictures.first());
}

void tst_VxStyle::primitivesInEmptyRectanglesDrawNothing()
{
    const VxStyle style;
    const QMetaEnum names = QMetaEnum::fromType<VxStyle::PrimitiveId>();
    for (int i = 0; i < names.keyCount(); ++i) {
        const QImage image = drawn(style, quint32(names.value(i)), QRect(20, 20, 0, 0),
                                   QStyle::State_Enabled | QStyle::State_On);
        QVERIFY2(extent(image).isEmpty(), names.key(i));
    }
}

void tst_VxStyle::textIsReadable()
{
    QFETCH(Scheme, scheme);
    const QPalette palette = VxStyle(scheme).standardPalette();
    struct Pair
    {
        QPalette::ColorRole text, ground;
    };
    const Pair pairs[] = {{QPalette::WindowText, QPalette::Window},
                          {QPalette::WindowText, QPalette::Button},
                          {QPalette::Text, QPalette::Base},
                          {QPalette::Text, QPalette::AlternateBase},
                          {QPalette::ButtonText, QPalette::Button},
                          {QPalette::HighlightedText, QPalette::Highlight},
                          {QPalette::ToolTipText, QPalette::ToolTipBase},
                          {QPalette::Link, QPalette::Base}};
    for (const Pair &pair : pairs) {
        for (const QPalette::ColorGroup group :
             {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const qreal ratio =
                contrast(palette.color(group, pair.text), palette.color(group, pair.ground));
            const qreal least = group == QPalette::Disabled ? 3 : 4.5;
            QVERIFY2(ratio >= least, qPrintable(QStringLiteral("roles %1 on %2, group %3: %4")
                                                    .arg(pair.text)
                                                    .arg(pair.ground)
                                                    .arg(group)
                                                    .arg(ratio)));
        }
    }
    QVERIFY(palette.color(QPalette::Disabled, QPalette::Text) !=
            palette.color(QPalette::Active, QPalette::Text));
}

void tst_VxStyle::interfaceColors()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    for (const char *name : {"Style_X_Axis", "Style_Y_Axis", "Style_Z_Axis", "Style_All_Axis"})
        QVERIFY2(style.getInterfaceColor(QString::fromLatin1(name)).isValid(), name);
    QVERIFY(!style.getInterfaceColor(QStringLiteral("Style_No_Such_Color")).isValid());
    QVERIFY(!style.getInterfaceColor(QStringLiteral("style_x_axis")).isValid());
    QVERIFY(!style.getInterfaceColor(QString()).isValid());
    for (const QString &name : style.getInterfaceColorNames())
        QVERIFY2(style.getInterfaceColor(name).isValid(), qPrintable(name));

    const QColor x = style.getInterfaceColor(QStringLiteral("Style_X_Axis"));
    const QColor y = style.getInterfaceColor(QStringLiteral("Style_Y_Axis"));
    const QColor z = style.getInterfaceColor(QStringLiteral("Style_Z_Axis"));
    QVERIFY(x.red() > x.green() && x.red() > x.blue());
    QVERIFY(y.green() > y.red() && y.green() > y.blue());
    QVERIFY(z.blue() > z.red() && z.blue() > z.green());
}

void tst_VxStyle::axisColorsStayReadableInTheGraph()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    const QColor ground = style.getInterfaceColor(QStringLiteral("Style_Graph_Background"));
    for (const char *name :
         {"Style_X_Axis", "Style_Y_Axis", "Style_Z_Axis", "Style_All_Axis", "Style_Channel"}) {
        for (int n = 0; n < 5; ++n) {
            const QColor color =
                channelColor(style.getInterfaceColor(QString::fromLatin1(name)), n);
            QVERIFY2(contrast(color, ground) >= 3.5,
                     qPrintable(QStringLiteral("%1 %2 %3")
                                    .arg(QString::fromLatin1(name), color.name())
                                    .arg(contrast(color, ground))));
        }
    }
}

void tst_VxStyle::textStyles()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    const QColor window = style.standardPalette().color(QPalette::Window);
    for (const VxStyle::TextStyleId id :
         {VxStyle::TS_Ruler, VxStyle::TS_GraphLabel, VxStyle::TS_GraphAxis}) {
        const VxTextStyle text = style.textStyle(id);
        QVERIFY(contrast(text.getColor(), window) >= 4.5);
        QCOMPARE(text.getFont().family(), QApplication::font().family());
        QVERIFY(QFontMetrics(text.getFont()).height() <=
                QFontMetrics(QApplication::font()).height());
        QCOMPARE(text.getAscent(), QFontMetrics(text.getFont()).ascent());
        QVERIFY(text.getAscent() > 5);
        QVERIFY(text.getHeight() > text.getAscent());
        QVERIFY(text.getWidth(QStringLiteral("10")) > text.getWidth(QStringLiteral("1")));
        QVERIFY(text == style.textStyle(id));
    }
    QCOMPARE(style.textStyle(VxStyle::TS_Ruler).getFont().pixelSize(), 11);
    QVERIFY(style.textStyle(VxStyle::TS_Ruler) != style.textStyle(VxStyle::TS_GraphLabel));
    // The labels must leave room for the range marks below them.
    QVERIFY(style.textStyle(VxStyle::TS_Ruler).getAscent() <
            style.metric(VxStyle::PM_VxDopeSheetHeaderHeight) / 2);
    QVERIFY(!VxTextStyle().getColor().isValid());
}

void tst_VxStyle::schemeChangeReachesTheApplication()
{
    auto *style = new VxStyle;
    QApplication::setStyle(style);
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             VxStyle(Scheme::Dark).standardPalette().color(QPalette::Window));
    QSignalSpy changed(style, &VxStyle::colorSchemeChanged);
    style->setColorScheme(Scheme::Dark);
    QCOMPARE(changed.count(), 0);
    style->setColorScheme(Scheme::Light);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(style->colorScheme(), Scheme::Light);
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             style->standardPalette().color(QPalette::Window));
    QCOMPARE(QWidget().palette().color(QPalette::Text),
             style->standardPalette().color(QPalette::Text));
    style->setColorScheme(Scheme::Dark);
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             style->standardPalette().color(QPalette::Window));
}

void tst_VxStyle::explicitPaletteRolesSurvive()
{
    VxStyle style;
    QPalette palette;
    palette.setColor(QPalette::Link, Qt::magenta);
    style.polish(palette);
    QCOMPARE(palette.color(QPalette::Link), QColor(Qt::magenta));
    QCOMPARE(palette.color(QPalette::Window), style.standardPalette().color(QPalette::Window));
}

void tst_VxStyle::toolButtonShowsItsCheckedState()
{
    VxStyle style;
    QToolButton button;
    button.setStyle(&style);
    button.setPalette(style.standardPalette());
    button.setIcon(style.icon(VxStyle::SP_VxKeyGraph));
    button.setCheckable(true);
    button.setAutoRaise(true);
    button.resize(32, 22);
    const QImage off = button.grab().toImage();
    button.setChecked(true);
    const QImage on = button.grab().toImage();
    QVERIFY(differingPixels(off, on) > 300);
}

QTEST_MAIN(tst_VxStyle)
#include "tst_vxstyle.moc"
