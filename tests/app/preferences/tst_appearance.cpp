// The look of the whole program: chosen in menus, settings and on the command line, and kept.

#include "preferences/appearance.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <vxcore/vxsettings.h>
#include <vxcore/vxstyle.h>

class tst_Appearance : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void names();
    void contrastInTheMenu();
    void curveColors();
    void textSize();
    void textSizeInARunningWindow();
    void animation();
};

void tst_Appearance::init()
{
    setUp();
    start();
}

void tst_Appearance::names()
{
    QCOMPARE(Appearance::paletteNames(), QStringList({"dark", "light", "contrast"}));
    for (const auto scheme :
         {VxStyle::ColorScheme::Dark, VxStyle::ColorScheme::Light, VxStyle::ColorScheme::Contrast})
        QVERIFY(Appearance::paletteOf(Appearance::paletteName(scheme)) == scheme);
    QVERIFY(Appearance::paletteOf(QStringLiteral("pink")) == VxStyle::ColorScheme::Dark);
    QVERIFY(Appearance::paletteOf(QString()) == VxStyle::ColorScheme::Dark);
}

void tst_Appearance::contrastInTheMenu()
{
    entry("View", "High-Contrast Palette")->trigger();
    QVERIFY(vxApp->getStyle()->colorScheme() == VxStyle::ColorScheme::Contrast);
    QVERIFY(entry("View", "High-Contrast Palette")->isChecked());
    QVERIFY(!entry("View", "Dark Palette")->isChecked());
    QCOMPARE(window()->palette().color(QPalette::Window), QColor(Qt::black));
    start(); // kept
    QVERIFY(vxApp->getStyle()->colorScheme() == VxStyle::ColorScheme::Contrast);
    start({"--palette", "light"});
    start({"--palette", "contrast"});
    QVERIFY(entry("View", "High-Contrast Palette")->isChecked());
}

/// They are kept, and the open key graph is painted in them at once.
void tst_Appearance::curveColors()
{
    openSample();
    auto *sheet = inTimePane<QTreeView>("TimelineDopeSheetTView");
    sheet->expandAll();
    const QModelIndexList rows =
        sheet->model()->match(sheet->model()->index(0, 0), Qt::DisplayRole,
                              QStringLiteral("X Rotate"), 1, Qt::MatchRecursive);
    QCOMPARE(rows.size(), 1);
    sheet->setCurrentIndex(rows.first());
    QCoreApplication::processEvents();
    auto *graph = inTimePane<QWidget>("TimelineKeyGraphView");
    const QImage standard = graph->grab().toImage();
    QAction *safe = entry("View", "Colour-Blind Safe Curves");
    QVERIFY(safe && !safe->isChecked());
    safe->trigger();
    QVERIFY(vxApp->getStyle()->curveColors() == VxStyle::CurveColors::Safe);
    const QImage picture = graph->grab().toImage();
    QVERIFY(picture != standard);
    const QRgb curve =
        vxApp->getStyle()->getInterfaceColor(QStringLiteral("Style_X_Axis")).lighter(185).rgb();
    bool found = false;
    for (int y = 0; y < picture.height() && !found; ++y) {
        for (int x = 0; x < picture.width() && !found; ++x)
            found = picture.pixel(x, y) == curve;
    }
    QVERIFY(found);
    start();
    safe = entry("View", "Colour-Blind Safe Curves");
    QVERIFY(safe->isChecked());
    QVERIFY(vxApp->getStyle()->curveColors() == VxStyle::CurveColors::Safe);
    safe->trigger();
    QVERIFY(vxApp->getStyle()->curveColors() == VxStyle::CurveColors::Standard);
    start();
    QVERIFY(vxApp->getStyle()->curveColors() == VxStyle::CurveColors::Standard);
}

void tst_Appearance::textSize()
{
    const QFont desktop = window()->font();
    start({"--text-size", "20"});
    QCOMPARE(window()->font().pointSize(), 20);
    QCOMPARE(window()->menuBar()->font().pointSize(), 20);
    start(); // kept
    QCOMPARE(vxApp->getStyle()->textSize(), 20);
    QCOMPARE(window()->viewport()->font().pointSize(), 20);
    start({"--text-size", "0"});
    QCOMPARE(window()->font(), desktop);
}

/// The rows of the timeline and its fields follow at once.
void tst_Appearance::textSizeInARunningWindow()
{
    openSample();
    auto *sheet = inTimePane<QTreeView>("TimelineDopeSheetTView");
    const int before = sheet->visualRect(sheet->model()->index(0, 0)).height();
    auto *scope = inTimePane<QWidget>("TimelinePropertyTypesBtn");
    const QSize button = scope->size();
    vxApp->getStyle()->setTextSize(24);
    QCoreApplication::processEvents();
    const int text = QFontMetrics(QApplication::font()).height();
    QVERIFY(before < text);
    QVERIFY(sheet->visualRect(sheet->model()->index(0, 0)).height() >= text);
    QVERIFY(scope->height() >= text);
    QVERIFY(scope->width() > button.width());
    vxApp->getStyle()->setTextSize(0);
    QCoreApplication::processEvents();
    QCOMPARE(sheet->visualRect(sheet->model()->index(0, 0)).height(), before);
    QCOMPARE(scope->size(), button);
}

/// The stored choice overrides the desktop's setting.
void tst_Appearance::animation()
{
    QVERIFY(vxApp->getStyle()->isAnimated());
    const auto choose = [this](const char *name) {
        studio.reset();
        const QString file = folder->filePath("settings.json");
        VxSettings settings;
        QVERIFY(settings.load(file, nullptr));
        settings.setStringValue(QStringLiteral("Animation"), QLatin1String(name));
        QVERIFY(settings.save(file, nullptr));
        start();
    };
    choose("off");
    QVERIFY(!vxApp->getStyle()->isAnimated());
    start();
    QVERIFY(!vxApp->getStyle()->isAnimated());
    choose("on");
    QVERIFY(vxApp->getStyle()->isAnimated());
}

VX_TEST_MAIN(tst_Appearance)
#include "tst_appearance.moc"
