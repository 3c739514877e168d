// The marks of the timeline: keys, handles, ticks, playhead.

#include "testing/vxtestmain.h"
#include "vxstylepictures.h"

class tst_VxStyleMarks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }
    void keyMarksDifferByShapeAlone_data() { addSchemesAndRatios(); }
    void keyMarksDifferByShapeAlone();
    void selectedKeyMarksDiffer_data() { addSchemesAndRatios(); }
    void selectedKeyMarksDiffer();
    void disabledKeyMarksDiffer();
    void keyMarksContrastWithTheRow_data() { addSchemes(); }
    void keyMarksContrastWithTheRow();
    void keyMarksAreCentredOnTheFrame_data() { addSchemes(); }
    void keyMarksAreCentredOnTheFrame();
    void keyMarksAreDrawnAlikeFromTheCache();
    void keyMarksFollowThePalette();
    void keyMarksStaySharpBetweenDevicePixels();
    void keyMarksInEmptyRectanglesDrawNothing();
    void keyMarksInHighRectanglesAreAtTheBottom();
    void crowdedKeyMarksStayBright_data() { addSchemesAndRatios(); }
    void crowdedKeyMarksStayBright();
    void timeOnlyMarksAreLow();
    void linesInRowsAreVisible();
    void keyMarksWithAViewsStateKeepTheirShape();
    void rangeHandlesDifferBySideAndHover_data() { addSchemes(); }
    void rangeHandlesDifferBySideAndHover();
    void rulerTicksDiffer_data() { addSchemes(); }
    void rulerTicksDiffer();
    void tickWithoutValueIsMinor();
    void playheadIsDrawnAtTheFrame();
    void currentTimeMarkerIsInItsMiddleColumn();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_VxStyleMarks::initTestCase()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    QApplication::setFont(font);
}

void tst_VxStyleMarks::keyMarksDifferByShapeAlone()
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

void tst_VxStyleMarks::selectedKeyMarksDiffer()
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

void tst_VxStyleMarks::disabledKeyMarksDiffer()
{
    const VxStyle style;
    for (const NamedState &type : keyTypes)
        QVERIFY2(differingPixels(drawnMark(style, QStyle::State_Enabled | type.state),
                                 drawnMark(style, type.state)) >= 12,
                 type.name);
}

// On a plain row and on a selected row, and for selected and unselected keys alike.
void tst_VxStyleMarks::keyMarksContrastWithTheRow()
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

// The frame's tick is in the sixth of a mark's ten columns.
void tst_VxStyleMarks::keyMarksAreCentredOnTheFrame()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    for (const NamedState &type : keyTypes) {
        const QImage image = silhouette(
            drawnMark(style, QStyle::State_Enabled | QStyle::State_Selected | type.state));
        const QRect rect = extent(image);
        QVERIFY2(QRect(4, 4, 10, 10).contains(rect), type.name);
        QCOMPARE(rect.left() + rect.right(), 2 * (4 + 5));
        // A diamond is as high as the square that it is given.
        if (type.state == QStyle::State_Raised)
            QCOMPARE(rect.height(), 10);
        else if (type.state != QStyle::State_None)
            QCOMPARE(rect.top() + rect.bottom(), 2 * (4 + 5));
    }
}

void tst_VxStyleMarks::keyMarksAreDrawnAlikeFromTheCache()
{
    const VxStyle style;
    const QStyle::State state = QStyle::State_Enabled | QStyle::State_Raised;
    const QImage first = drawnMark(style, state);
    QCOMPARE(drawnMark(style, state), first);
    // More sizes and ratios than the cache holds evict the first; it is drawn again unchanged.
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

// A widget whose palette has another background gets marks that contrast with it.
void tst_VxStyleMarks::keyMarksFollowThePalette()
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

// At 1.5 every second position is between two device pixels; the mark moves to a whole one and
// keeps its pixels.
void tst_VxStyleMarks::keyMarksStaySharpBetweenDevicePixels()
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

void tst_VxStyleMarks::keyMarksInEmptyRectanglesDrawNothing()
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

void tst_VxStyleMarks::keyMarksInHighRectanglesAreAtTheBottom()
{
    const VxStyle style;
    const QImage image = drawn(style, VxStyle::PE_VxKeyMark, QRect(2, 2, 10, 28),
                               QStyle::State_Enabled | QStyle::State_Raised);
    QVERIFY(extent(image).top() >= 2 + 18);
    QCOMPARE(extent(image).bottom(), 29);
}

// In a ruler: a slim band that leaves the numbers above it free.
// Keys on every pixel, as baked motion has them: the bar they make shows whether they are selected,
// and is no part of the ground.
void tst_VxStyleMarks::crowdedKeyMarksStayBright()
{
    QFETCH(Scheme, scheme);
    QFETCH(qreal, ratio);
    const VxStyle style(scheme);
    VxStyleOptionCustom option;
    option.palette = style.standardPalette();
    const QColor ground = option.palette.color(QPalette::Base);
    for (const NamedState &type : keyTypes) {
        if (type.state == QStyle::State_None)
            continue; // marks without an outline
        QVector<QColor> bars;
        for (const QStyle::State extra : {QStyle::State_None, QStyle::State_Selected}) {
            QImage image((QSizeF(60, 20) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
            image.setDevicePixelRatio(ratio);
            image.fill(ground);
            QPainter painter(&image);
            option.state = QStyle::State_Enabled | type.state | extra;
            for (int x = 0; x <= 48; ++x) {
                option.rect = QRect(x, 5, 10, 10);
                style.drawPrimitive(element(VxStyle::PE_VxKeyMark), &option, &painter);
            }
            painter.end();
            bars.append(image.pixelColor((QPointF(30, 10.5) * ratio).toPoint()));
        }
        QVERIFY2(std::abs(qGray(bars.at(0).rgb()) - qGray(ground.rgb())) > 60, type.name);
        QVERIFY2(std::abs(bars.at(1).hsvSaturation() - bars.at(0).hsvSaturation()) > 60, type.name);
    }
}

void tst_VxStyleMarks::timeOnlyMarksAreLow()
{
    const VxStyle style;
    for (const int height : {20, 28, 40}) {
        const QImage image =
            drawn(style, VxStyle::PE_VxKeyMark, QRect(2, 2, 10, height), QStyle::State_Enabled);
        QCOMPARE(extent(image), QRect(2 + 4, height + 2 - 4, 3, 4));
    }
}

void tst_VxStyleMarks::linesInRowsAreVisible()
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

void tst_VxStyleMarks::keyMarksWithAViewsStateKeepTheirShape()
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

void tst_VxStyleMarks::rangeHandlesDifferBySideAndHover()
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
    // Its edge contrasts with its surroundings and its inside.
    const int middle = rect.center().y();
    const int edge = start.pixelColor(rect.left(), middle).lightness();
    const int inside = start.pixelColor(rect.left() + 2, middle).lightness();
    const int around = style.standardPalette().color(QPalette::Dark).lightness();
    QVERIFY(qAbs(edge - inside) > 30);
    QVERIFY(qAbs(edge - around) > 20);
}

void tst_VxStyleMarks::rulerTicksDiffer()
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

void tst_VxStyleMarks::tickWithoutValueIsMinor()
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

void tst_VxStyleMarks::playheadIsDrawnAtTheFrame()
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

void tst_VxStyleMarks::currentTimeMarkerIsInItsMiddleColumn()
{
    const VxStyle style;
    const QImage image =
        drawn(style, VxStyle::PE_VxCurrentTimeMarker, QRect(5, 0, 11, 28), QStyle::State_Enabled);
    QCOMPARE(extent(image), QRect(5, 0, 11, 28));
    QVERIFY(image.pixel(10, 14) != image.pixel(9, 14));
    QCOMPARE(image.pixel(9, 14), image.pixel(11, 14));
}

VX_TEST_MAIN(tst_VxStyleMarks)
#include "tst_vxstylemarks.moc"
