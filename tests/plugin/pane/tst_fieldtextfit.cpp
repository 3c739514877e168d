#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/pane/fieldtextfit.h"

#include <QtTest>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>

namespace {

// The columns of a picture in which anything differs from its first row, from first to last.
QPair<int, int> inkColumns(const QImage &image)
{
    QPair<int, int> columns{image.width(), -1};
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                columns.first = qMin(columns.first, x);
                columns.second = x;
            }
    return columns;
}

template <typename Box> void style(Box *box, int width)
{
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setAlignment(Qt::AlignCenter);
    box->setRange(-1000000, 1000000);
    box->setFixedSize(width, 22);
}

// The line edit as it was painted last.
QLineEdit *painted(QAbstractSpinBox &box)
{
    box.grab();
    return box.findChild<QLineEdit *>();
}

QLineEdit *editOf(const QAbstractSpinBox &box)
{
    return box.findChild<QLineEdit *>();
}

} // namespace

// Numbers in narrow fields: seen as a whole, and no smaller than need be.
class TestFieldTextFit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void numbersAreFullyVisible_data();
    void numbersAreFullyVisible();
    void fittingTextKeepsItsFont();
    void growsAgain();
    void followsTheFieldsFont();
    void fonts_data();
    void fonts();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestFieldTextFit::numbersAreFullyVisible_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {7, 42, 300, 2752, -240, 27520, -9999, 345678, 1000000})
        QTest::addRow("%d", number) << number;
}

void TestFieldTextFit::numbersAreFullyVisible()
{
    QFETCH(int, number);
    QSpinBox whole;
    style(&whole, 40);
    new FieldTextFit(&whole);
    QDoubleSpinBox broken;
    style(&broken, 50);
    new FieldTextFit(&broken);
    for (QAbstractSpinBox *box : QVector<QAbstractSpinBox *>{&whole, &broken}) {
        box->show();
        QVERIFY(QTest::qWaitForWindowExposed(box));
        whole.setValue(number);
        broken.setValue(number / 100.0);
        editOf(*box)->deselect();
        editOf(*box)->clearFocus();
        const QImage image = editOf(*box)->grab().toImage();
        const auto [first, last] = inkColumns(image);
        QVERIFY2(
            first >= 1 && last > first && last < image.width() - 1,
            qPrintable(QStringLiteral("%1 to %2 of %3").arg(first).arg(last).arg(image.width())));
        // The same ink on either side: nothing was pushed out.
        QVERIFY(qAbs(first - (image.width() - 1 - last)) <= 4);
    }
}

void TestFieldTextFit::fittingTextKeepsItsFont()
{
    QSpinBox box;
    style(&box, 40);
    new FieldTextFit(&box);
    box.show();
    box.setValue(12);
    QCOMPARE(painted(box)->font(), box.font());
}

void TestFieldTextFit::growsAgain()
{
    QSpinBox box;
    style(&box, 40);
    new FieldTextFit(&box);
    box.show();
    box.setValue(1000000);
    QVERIFY(painted(box)->font().pointSizeF() < box.font().pointSizeF());
    QVERIFY(painted(box)->font().stretch() < 100);
    box.setValue(12);
    QCOMPARE(painted(box)->font(), box.font());
    // Wide enough for any number.
    box.setValue(1000000);
    box.setFixedWidth(200);
    QTRY_COMPARE(painted(box)->font(), box.font());
}

void TestFieldTextFit::followsTheFieldsFont()
{
    QSpinBox box;
    style(&box, 60);
    new FieldTextFit(&box);
    box.show();
    box.setValue(2752);
    QCOMPARE(painted(box)->font(), box.font());
    QFont large = box.font();
    large.setPointSize(24);
    box.setFont(large);
    QCOMPARE(box.font().pointSize(), 24);
    QVERIFY(painted(box)->font().pointSizeF() < 24);
    QVERIFY(QFontMetrics(painted(box)->font()).horizontalAdvance(box.text()) <= 60);
}

void TestFieldTextFit::fonts_data()
{
    QTest::addColumn<int>("textWidth");
    QTest::addColumn<int>("width");
    QTest::addColumn<double>("points");
    QTest::addColumn<int>("stretch");

    QTest::newRow("fits exactly") << 40 << 40 << 20.0 << 0;
    QTest::newRow("no text") << 0 << -5 << 20.0 << 0;
    QTest::newRow("a little too wide") << 50 << 40 << 16.0 << 0;
    QTest::newRow("smallest size") << 100 << 70 << 14.0 << 0;
    QTest::newRow("narrower than the smallest size") << 100 << 56 << 14.0 << 80;
    QTest::newRow("no narrower than half") << 100 << 10 << 14.0 << 50;
    QTest::newRow("no room at all") << 100 << 0 << 14.0 << 50;
}

void TestFieldTextFit::fonts()
{
    QFETCH(int, textWidth);
    QFETCH(int, width);
    QFETCH(double, points);
    QFETCH(int, stretch);

    QFont font;
    font.setPointSizeF(20);
    QFont fitting = fontForWidth(font, textWidth, width);
    QCOMPARE(fitting.pointSizeF(), points);
    QCOMPARE(fitting.stretch(), stretch ? stretch : font.stretch());

    font.setPixelSize(20);
    fitting = fontForWidth(font, textWidth, width);
    QCOMPARE(fitting.pixelSize(), int(points));
}

VX_TEST_MAIN(TestFieldTextFit)
#include "tst_fieldtextfit.moc"
