// What people with weak sight, a dichromacy or a dislike of motion need of the style.

#include "colorvision.h"
#include "testing/vxtestmain.h"
#include "vxstylepictures.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTabBar>
#include <QVector3D>

namespace {

constexpr double LeastDifference = 15; // CIEDE2000

/// The best contrast of a pixel in each row and column that the outline crosses, to the ground: of
/// those the lowest, so that an outline with a gap fails.
qreal outlineContrast(const QImage &picture, const QColor &ground)
{
    const auto best = [&](auto pixelAt, int count) {
        qreal found = 1;
        for (int i = 0; i < count; ++i)
            found = qMax(found, contrast(pixelAt(i), ground));
        return found;
    };
    const int width = picture.width(), height = picture.height();
    qreal least = 21;
    for (int x = width / 3; x < width * 2 / 3; ++x) {
        least = qMin(least, best([&](int i) { return picture.pixelColor(x, i); }, 4));
        least = qMin(least, best([&](int i) { return picture.pixelColor(x, height - 1 - i); }, 4));
    }
    for (int y = height / 3; y < height * 2 / 3; ++y)
        least = qMin(least, best([&](int i) { return picture.pixelColor(i, y); }, 4));
    return least;
}

} // namespace

class tst_VxStyleAccess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_guard.reset(); }

    void differenceIsThePublishedOne_data();
    void differenceIsThePublishedOne();
    void contrastIsThePublishedOne();

    void everyTextOfHighContrast();
    void controlsOfHighContrast_data();
    void controlsOfHighContrast();
    void scrollHandleOfHighContrast();
    void checkedButtonsKeepTheirIcons_data() { addSchemes(); }
    void checkedButtonsKeepTheirIcons();
    void namedColorsOfHighContrast();

    void safeCurvesAreDistinct_data() { addSchemes(); }
    void safeCurvesAreDistinct();
    void curveColorsReachTheWidgets();

    void textSizeReachesTheApplication();
    void metricsGrowWithTheText();
    void animationsCanBeOff();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_VxStyleAccess::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    QApplication::setStyle(new VxStyle);
}

void tst_VxStyleAccess::differenceIsThePublishedOne_data()
{
    using Triple = QVector3D;
    QTest::addColumn<QVector3D>("first");
    QTest::addColumn<QVector3D>("second");
    QTest::addColumn<double>("expected");
    // Of the table in the publication of the formula.
    QTest::newRow("blues") << Triple{50, 2.6772, -79.7751} << Triple{50, 0, -82.7485} << 2.0425;
    QTest::newRow("blue, less chroma")
        << Triple{50, -1.3802, -84.2814} << Triple{50, 0, -82.7485} << 1.0;
    QTest::newRow("far") << Triple{50, 2.5, 0} << Triple{73, 25, -18} << 27.1492;
    QTest::newRow("across the hue circle") << Triple{50, 2.5, 0} << Triple{61, -5, 29} << 22.8977;
    QTest::newRow("greens") << Triple{60.2574, -34.0099, 36.2677}
                            << Triple{60.4626, -34.1751, 39.4387} << 1.2644;
}

void tst_VxStyleAccess::differenceIsThePublishedOne()
{
    QFETCH(QVector3D, first);
    QFETCH(QVector3D, second);
    QFETCH(double, expected);
    const ColorVision::Triple one{first.x(), first.y(), first.z()};
    const ColorVision::Triple other{second.x(), second.y(), second.z()};
    QVERIFY(qAbs(ColorVision::difference(one, other) - expected) < 1e-4);
    QVERIFY(qAbs(ColorVision::difference(other, one) - expected) < 1e-4);
}

void tst_VxStyleAccess::contrastIsThePublishedOne()
{
    QCOMPARE(contrast(Qt::white, Qt::black), 21.0);
    // The darkest grey that is said to have 4.5:1 on white.
    QVERIFY(contrast(QColor(0x76, 0x76, 0x76), Qt::white) >= 4.5);
    QVERIFY(contrast(QColor(0x77, 0x77, 0x77), Qt::white) < 4.5);
    // To a person with dichromacy grey is grey.
    for (const ColorVision::Kind kind : ColorVision::AllKinds)
        QVERIFY(ColorVision::difference(QColor(128, 128, 128), QColor(128, 128, 128), kind) < 1e-9);
    QVERIFY(ColorVision::difference(QColor(200, 90, 0), QColor(120, 130, 0),
                                    ColorVision::Kind::Deuteranopia) <
            ColorVision::difference(QColor(200, 90, 0), QColor(120, 130, 0),
                                    ColorVision::Kind::Normal));
}

/// Each text role on each ground that texts are painted on.
void tst_VxStyleAccess::everyTextOfHighContrast()
{
    const QPalette palette = VxStyle(Scheme::Contrast).standardPalette();
    const auto texts = {QPalette::WindowText,  QPalette::Text,           QPalette::ButtonText,
                        QPalette::ToolTipText, QPalette::BrightText,     QPalette::Link,
                        QPalette::LinkVisited, QPalette::PlaceholderText};
    const auto grounds = {QPalette::Window, QPalette::Base, QPalette::AlternateBase,
                          QPalette::Button, QPalette::ToolTipBase};
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        for (const auto text : texts) {
            for (const auto ground : grounds)
                QVERIFY2(contrast(palette.color(group, text), palette.color(group, ground)) >= 7,
                         qPrintable(QStringLiteral("%1 on %2").arg(text).arg(ground)));
        }
        QVERIFY(contrast(palette.color(group, QPalette::HighlightedText),
                         palette.color(group, QPalette::Highlight)) >= 7);
        // Selections, rings and outlines.
        for (const auto control : {QPalette::Highlight, QPalette::Mid, QPalette::Dark}) {
            for (const auto ground : grounds)
                QVERIFY(contrast(palette.color(group, control), palette.color(group, ground)) >=
                        4.5);
        }
    }
}

void tst_VxStyleAccess::controlsOfHighContrast_data()
{
    QTest::addColumn<int>("kind");
    const char *const names[] = {"push button",  "line edit", "spin box", "combo box", "check box",
                                 "radio button", "tab",       "header",   "menu"};
    for (int i = 0; i < int(std::size(names)); ++i)
        QTest::newRow(names[i]) << i;
}

/// The outlines of controls, which Fusion derives from the colour of the window.
void tst_VxStyleAccess::controlsOfHighContrast()
{
    QFETCH(int, kind);
    qobject_cast<VxStyle *>(QApplication::style())->setColorScheme(Scheme::Contrast);
    std::unique_ptr<QWidget> widget;
    switch (kind) {
    case 0:
        widget = std::make_unique<QPushButton>(QStringLiteral(" "));
        break;
    case 1:
        widget = std::make_unique<QLineEdit>();
        break;
    case 2:
        widget = std::make_unique<QSpinBox>();
        break;
    case 3:
        widget = std::make_unique<QComboBox>();
        break;
    case 4:
        widget = std::make_unique<QCheckBox>();
        break;
    case 5:
        widget = std::make_unique<QRadioButton>();
        break;
    case 6: {
        auto tabs = std::make_unique<QTabBar>();
        tabs->addTab(QStringLiteral("   "));
        widget = std::move(tabs);
        break;
    }
    case 7: {
        auto header = std::make_unique<QHeaderView>(Qt::Horizontal);
        auto *model = new QStandardItemModel(1, 2, header.get());
        model->setHorizontalHeaderLabels({QStringLiteral(" "), QStringLiteral(" ")});
        header->setModel(model);
        widget = std::move(header);
        break;
    }
    default:
        widget = std::make_unique<QMenu>();
        static_cast<QMenu *>(widget.get())->addAction(QStringLiteral("   "));
    }
    widget->ensurePolished();
    widget->resize(kind == 7 ? QSize(250, 24) : widget->sizeHint());
    QImage picture = widget->grab().toImage();
    const QColor ground = widget->palette().color(QPalette::Window);
    if (kind == 4 || kind == 5) {
        QStyleOptionButton option;
        option.initFrom(widget.get());
        const QStyle::SubElement part =
            kind == 4 ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator;
        picture = picture.copy(widget->style()->subElementRect(part, &option, widget.get()));
    }
    if (kind == 7) {
        // A line between two sections.
        qreal best = 1;
        for (int x = 90; x < 110; ++x)
            best = qMax(best, contrast(picture.pixelColor(x, 12), ground));
        QVERIFY2(best >= 4.5, qPrintable(QString::number(best)));
        return;
    }
    const QColor inside = picture.pixelColor(picture.width() / 2, picture.height() / 2);
    QVERIFY(contrast(inside, widget->palette().color(QPalette::WindowText)) >= 7);
    const qreal found = outlineContrast(picture, ground);
    QVERIFY2(found >= 4.5, qPrintable(QString::number(found)));
}

void tst_VxStyleAccess::scrollHandleOfHighContrast()
{
    qobject_cast<VxStyle *>(QApplication::style())->setColorScheme(Scheme::Contrast);
    QScrollBar bar(Qt::Horizontal);
    bar.setRange(0, 100);
    bar.setPageStep(50);
    bar.resize(300, bar.sizeHint().height());
    const QImage picture = bar.grab().toImage();
    const int y = picture.height() / 2;
    QVERIFY(contrast(picture.pixelColor(80, y), picture.pixelColor(250, y)) >= 4.5);
}

/// The icon is painted in the button's text colour.
void tst_VxStyleAccess::checkedButtonsKeepTheirIcons()
{
    QFETCH(Scheme, scheme);
    const VxStyle style(scheme);
    const qreal least = scheme == Scheme::Contrast ? 7 : 3;
    for (const QStyle::State state :
         std::initializer_list<QStyle::State>{{QStyle::State_Enabled},
                                              {QStyle::State_On},
                                              {QStyle::State_MouseOver},
                                              QStyle::State_On | QStyle::State_MouseOver}) {
        const QImage button = drawn(style, VxStyle::PE_VxBarButton, QRect(2, 2, 32, 22),
                                    QStyle::State_Enabled | state);
        const qreal found = contrast(button.pixelColor(18, 13),
                                     style.standardPalette().color(QPalette::ButtonText));
        QVERIFY2(found >= least, qPrintable(QString::number(found)));
    }
}

void tst_VxStyleAccess::namedColorsOfHighContrast()
{
    const VxStyle style(Scheme::Contrast);
    const QColor ground = style.getInterfaceColor(QStringLiteral("Style_Graph_Background"));
    for (const char *name :
         {"Style_Key", "Style_Key_Selected", "Style_Play_Range", "Style_Playhead"})
        QVERIFY2(contrast(style.getInterfaceColor(QString::fromLatin1(name)), ground) >= 7, name);
    for (const char *name : {"Style_X_Axis", "Style_Y_Axis", "Style_Z_Axis", "Style_All_Axis"}) {
        for (int n = 0; n < 5; ++n) {
            const QColor curve =
                channelColor(style.getInterfaceColor(QString::fromLatin1(name)), n);
            QVERIFY2(contrast(curve, ground) >= 4.5, name);
        }
    }
}

/// The colours that the key graph makes of those of the axes, for any five channels, of every pair
/// of axes and to the background.
void tst_VxStyleAccess::safeCurvesAreDistinct()
{
    QFETCH(Scheme, scheme);
    VxStyle style(scheme);
    style.setCurveColors(VxStyle::CurveColors::Safe);
    const QColor ground = style.getInterfaceColor(QStringLiteral("Style_Graph_Background"));
    const char *const names[] = {"Style_X_Axis", "Style_Y_Axis", "Style_Z_Axis", "Style_All_Axis"};
    double least = 100;
    for (const ColorVision::Kind kind : ColorVision::AllKinds) {
        QVector<QVector<QColor>> axes;
        for (const char *name : names) {
            QVector<QColor> shades;
            for (int n = 0; n < 5; ++n)
                shades += channelColor(style.getInterfaceColor(QString::fromLatin1(name)), n);
            axes += shades;
        }
        for (int i = 0; i < axes.size(); ++i) {
            for (const QColor &shade : axes[i]) {
                least = qMin(least, ColorVision::difference(shade, ground, kind));
                QVERIFY2(contrast(shade, ground) >= (scheme == Scheme::Contrast ? 4.5 : 3.5),
                         names[i]);
                for (int j = 0; j < i; ++j) {
                    for (const QColor &other : axes[j])
                        least = qMin(least, ColorVision::difference(shade, other, kind));
                }
            }
        }
    }
    QVERIFY2(least >= LeastDifference, qPrintable(QString::number(least)));
}

void tst_VxStyleAccess::curveColorsReachTheWidgets()
{
    auto *style = qobject_cast<VxStyle *>(QApplication::style());
    struct Counter : QWidget
    {
        void changeEvent(QEvent *event) override
        {
            changes += event->type() == QEvent::PaletteChange ? 1 : 0;
        }
        int changes = 0;
    } widget;
    QSignalSpy changed(style, &VxStyle::curveColorsChanged);
    const QString x = QStringLiteral("Style_X_Axis");
    const QColor standard = style->getInterfaceColor(x);
    style->setCurveColors(VxStyle::CurveColors::Safe);
    QVERIFY(style->getInterfaceColor(x) != standard);
    QVERIFY(style->getInterfaceColor(x).isValid());
    QCOMPARE(widget.changes, 1);
    style->setCurveColors(VxStyle::CurveColors::Safe);
    QCOMPARE(changed.count(), 1);
    style->setCurveColors(VxStyle::CurveColors::Standard);
    QCOMPARE(style->getInterfaceColor(x), standard);
    QCOMPARE(changed.count(), 2);
}

void tst_VxStyleAccess::textSizeReachesTheApplication()
{
    auto *style = qobject_cast<VxStyle *>(QApplication::style());
    const QFont desktop = QApplication::font();
    QWidget widget;
    QSignalSpy changed(style, &VxStyle::textSizeChanged);
    style->setTextSize(18);
    QCOMPARE(QApplication::font().pointSize(), 18);
    QCOMPARE(widget.font().pointSize(), 18);
    style->setTextSize(100);
    QCOMPARE(style->textSize(), 24);
    style->setTextSize(1);
    QCOMPARE(style->textSize(), 8);
    QCOMPARE(QApplication::font().pointSize(), 8);
    QCOMPARE(changed.count(), 3);
    // Another style begins with the desktop's size.
    QApplication::setStyle(new VxStyle);
    QCOMPARE(QApplication::font(), desktop);
    style = qobject_cast<VxStyle *>(QApplication::style());
    style->setTextSize(20);
    style->setTextSize(0);
    QCOMPARE(QApplication::font(), desktop);
}

void tst_VxStyleAccess::metricsGrowWithTheText()
{
    auto *style = qobject_cast<VxStyle *>(QApplication::style());
    for (int size = 8; size <= 24; ++size) {
        style->setTextSize(size);
        const int text = QFontMetrics(QApplication::font()).height();
        QVERIFY(style->metric(VxStyle::PM_VxControlHeight) >= qMax(22, text + 2));
        QVERIFY(style->metric(VxStyle::PM_VxDopeSheetRowHeight) >= qMax(20, text));
        const VxTextStyle ruler = style->textStyle(VxStyle::TS_Ruler);
        QVERIFY(2 * ruler.getAscent() < style->metric(VxStyle::PM_VxDopeSheetHeaderHeight));
        // Labels are two distances apart, with a gap that can be seen.
        const int label = ruler.getWidth(QStringLiteral("0000"));
        QVERIFY(2 * style->metric(VxStyle::PM_VxRulerLabelSpacing) >= label + label / 8);
    }
    // Marks and distances of time stay.
    QCOMPARE(style->metric(VxStyle::PM_VxTimelineFrameWidth), 10);
    style->setTextSize(10);
    QCOMPARE(style->metric(VxStyle::PM_VxControlHeight), 22);
    QCOMPARE(style->metric(VxStyle::PM_VxDopeSheetRowHeight), 20);
    QCOMPARE(style->metric(VxStyle::PM_VxDopeSheetHeaderHeight), 28);
}

void tst_VxStyleAccess::animationsCanBeOff()
{
    auto *style = qobject_cast<VxStyle *>(QApplication::style());
    const bool effects = QApplication::isEffectEnabled(Qt::UI_General);
    QVERIFY(style->isAnimated());
    QVERIFY(style->styleHint(QStyle::SH_Widget_Animation_Duration) > 0);
    style->setAnimated(false);
    QCOMPARE(style->styleHint(QStyle::SH_Widget_Animation_Duration), 0);
    QCOMPARE(style->styleHint(QStyle::SH_Widget_Animate), 0);
    QVERIFY(!QApplication::isEffectEnabled(Qt::UI_General));
    QVERIFY(!QApplication::isEffectEnabled(Qt::UI_AnimateMenu));
    style->setAnimated(true);
    QVERIFY(style->styleHint(QStyle::SH_Widget_Animation_Duration) > 0);
    QCOMPARE(QApplication::isEffectEnabled(Qt::UI_General), effects);
}

VX_TEST_MAIN(tst_VxStyleAccess)
#include "tst_vxstyleaccess.moc"
