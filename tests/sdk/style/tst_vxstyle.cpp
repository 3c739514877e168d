#include "testing/vxtestmain.h"
#include "vxstylepictures.h"

#include <QStandardItemModel>

class tst_VxStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void idsHaveTheirNumbers();
    void metricsAreReadThroughTheToolkit();
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
    void signsOfMessageBoxesAreSharp();
    void arrowOfASelectedRowIsVisible_data() { addSchemes(); }
    void arrowOfASelectedRowIsVisible();
    void pixmapForStateDiffersByState();

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

void tst_VxStyle::metricsAreReadThroughTheToolkit()
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
    // The playhead's left edge is half a mark left of the mark's; its middle is the mark's.
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

/// The toolkit has them as small pictures, which would be stretched.
void tst_VxStyle::signsOfMessageBoxesAreSharp()
{
    const VxStyle style;
    QVector<QImage> seen;
    for (const QStyle::StandardPixmap sign :
         {QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxQuestion,
          QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxCritical}) {
        const QImage picture = style.standardIcon(sign).pixmap(96).toImage();
        QCOMPARE(picture.size(), QSize(96, 96));
        QVERIFY(!seen.contains(picture));
        // More than one colour, and some of it next to the edge.
        std::set<QRgb> solid;
        for (int y = 0; y < 96; ++y) {
            for (int x = 0; x < 96; ++x) {
                if (qAlpha(picture.pixel(x, y)) == 255)
                    solid.insert(picture.pixel(x, y));
            }
        }
        QVERIFY(solid.size() > 1);
        QVERIFY(qAlpha(picture.pixel(48, 84)) > 0);
        seen.append(picture);
    }
}

/// An arrow on the ground of a selected row must not be lost on it.
void tst_VxStyle::arrowOfASelectedRowIsVisible()
{
    QFETCH(Scheme, scheme);
    VxStyle style(scheme);
    QStandardItemModel model;
    auto *figure = new QStandardItem(QStringLiteral("figure"));
    figure->appendRow(new QStandardItem(QStringLiteral("hip")));
    model.appendRow(figure);
    QTreeView view;
    view.setStyle(&style);
    view.setPalette(style.standardPalette());
    view.setModel(&model);
    view.setHeaderHidden(true);
    view.resize(200, 80);
    const QRect row = view.visualRect(model.index(0, 0));
    const QRect branch(0, row.y() + 2, row.x() - 1, row.height() - 4);
    view.setCurrentIndex(model.index(0, 0));
    const QImage picture = view.viewport()->grab(branch).toImage();
    // Lighter than its ground, or darker, as the name beside it is.
    const QColor ground = style.standardPalette().color(QPalette::Highlight);
    const bool isLighter =
        luminance(style.standardPalette().color(QPalette::HighlightedText)) > luminance(ground);
    qreal best = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if ((luminance(pixel) > luminance(ground)) == isLighter)
                best = qMax(best, contrast(pixel, ground));
        }
    }
    QVERIFY2(best > 2, qPrintable(QString::number(best)));
}

void tst_VxStyle::pixmapForStateDiffersByState()
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
            const bool isContrast = scheme == Scheme::Contrast;
            const qreal least =
                group == QPalette::Disabled ? (isContrast ? 4.5 : 3) : (isContrast ? 7 : 4.5);
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
    for (const char *name :
         {"Style_All_Axis", "Style_Channel", "Style_Graph_Background", "Style_Graph_Grid",
          "Style_Graph_Grid_Major", "Style_Graph_Outside", "Style_Key", "Style_Key_Outline",
          "Style_Key_Selected", "Style_Key_Selected_Outline", "Style_Play_Range", "Style_Playhead",
          "Style_Playhead_Outline", "Style_X_Axis", "Style_Y_Axis", "Style_Z_Axis"})
        QVERIFY2(style.getInterfaceColor(QString::fromLatin1(name)).isValid(), name);
    QVERIFY(!style.getInterfaceColor(QStringLiteral("Style_No_Such_Color")).isValid());
    QVERIFY(!style.getInterfaceColor(QStringLiteral("style_x_axis")).isValid());
    QVERIFY(!style.getInterfaceColor(QString()).isValid());

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
        QCOMPARE(style.textStyle(id).getColor(), text.getColor());
        QCOMPARE(style.textStyle(id).getFont(), text.getFont());
    }
    QCOMPARE(style.textStyle(VxStyle::TS_Ruler).getFont().pixelSize(), 11);
    QVERIFY(style.textStyle(VxStyle::TS_Ruler).getFont() !=
            style.textStyle(VxStyle::TS_GraphLabel).getFont());
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

VX_TEST_MAIN(tst_VxStyle)
#include "tst_vxstyle.moc"
