#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QPainter>
#include <QStyleOption>
#include <QtTest>
#include <memory>
#include <vxcore/vxstyle.h>

/// The square of a check box: visible on its background in both palettes, and different in each
/// state.
class TestVxCheckPrimitive : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void emptySquareIsVisible_data() { addSchemes(); }
    void emptySquareIsVisible();
    void statesDiffer_data() { addSchemes(); }
    void statesDiffer();
    void staysInItsRectangle();
    void plainTexts();

private:
    static void addSchemes();
    static QImage draw(const VxStyle &style, QStyle::State state, const QSize &size = {13, 13});
    // Contrast of the strongest pixel of a line to the background, of 255.
    static int contrast(const QImage &picture, const QPoint &from, const QPoint &to);

    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestVxCheckPrimitive::addSchemes()
{
    QTest::addColumn<int>("scheme");
    QTest::newRow("dark") << int(VxStyle::ColorScheme::Dark);
    QTest::newRow("light") << int(VxStyle::ColorScheme::Light);
    QTest::newRow("high contrast") << int(VxStyle::ColorScheme::Contrast);
}

QImage TestVxCheckPrimitive::draw(const VxStyle &style, QStyle::State state, const QSize &size)
{
    QStyleOption option;
    option.palette = style.standardPalette();
    option.rect = QRect(QPoint(4, 4), size);
    option.state = state | QStyle::State_Enabled;
    QImage picture(size + QSize(8, 8), QImage::Format_RGB32);
    picture.fill(option.palette.color(QPalette::Base));
    QPainter painter(&picture);
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter);
    return picture;
}

int TestVxCheckPrimitive::contrast(const QImage &picture, const QPoint &from, const QPoint &to)
{
    const int ground = qGray(picture.pixel(0, 0));
    int strongest = 0;
    for (int i = 0; i <= 20; ++i) {
        const QPoint at = from + (to - from) * i / 20;
        strongest = qMax(strongest, std::abs(qGray(picture.pixel(at)) - ground));
    }
    return strongest;
}

void TestVxCheckPrimitive::emptySquareIsVisible()
{
    QFETCH(int, scheme);
    const VxStyle style(static_cast<VxStyle::ColorScheme>(scheme));
    const QImage picture = draw(style, QStyle::State_Off);
    // Its left and its upper side, and nothing within.
    QVERIFY(contrast(picture, {2, 10}, {7, 10}) > 60);
    QVERIFY(contrast(picture, {10, 2}, {10, 7}) > 60);
    QCOMPARE(contrast(picture, {8, 8}, {12, 12}), 0);
}

void TestVxCheckPrimitive::statesDiffer()
{
    QFETCH(int, scheme);
    const VxStyle style(static_cast<VxStyle::ColorScheme>(scheme));
    const QImage empty = draw(style, QStyle::State_Off);
    const QImage checked = draw(style, QStyle::State_On);
    const QImage partly = draw(style, QStyle::State_NoChange);
    const QImage hovered = draw(style, QStyle::State_Off | QStyle::State_MouseOver);
    QVERIFY(empty != checked && checked != partly && partly != empty && hovered != empty);
    QVERIFY(contrast(checked, {8, 8}, {12, 12}) > 100);
    QVERIFY(contrast(partly, {10, 8}, {10, 12}) > 100);
    QVERIFY(contrast(hovered, {2, 10}, {7, 10}) > contrast(empty, {2, 10}, {7, 10}));
}

void TestVxCheckPrimitive::staysInItsRectangle()
{
    const VxStyle style;
    for (const QSize &size : {QSize(13, 13), QSize(30, 16), QSize(9, 40)}) {
        QImage picture = draw(style, QStyle::State_On, size);
        QPainter painter(&picture);
        painter.fillRect(QRect(QPoint(4, 4), size), style.standardPalette().color(QPalette::Base));
        painter.end();
        QImage ground(picture.size(), picture.format());
        ground.fill(style.standardPalette().color(QPalette::Base));
        QVERIFY(picture == ground);
    }
}

void TestVxCheckPrimitive::plainTexts()
{
    const VxStyle style;
    QCOMPARE(style.styleHint(QStyle::SH_EtchDisabledText), 0);
    QCOMPARE(style.styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons), 0);
}

VX_TEST_MAIN(TestVxCheckPrimitive)
#include "tst_vxcheckprimitive.moc"
