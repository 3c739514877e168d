#include "keygraphviewtestbase.h"
#include "testing/vxtestmain.h"

// The first resizes of a process, after the user has chosen a time scale. A program of its own,
// because only the first resizes centre the range.
class TestKeyGraphOpeningZoomed : public QObject, private KeyGraphViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpView(); }
    void cleanup() { tearDownView(); }

    void aChosenScaleIsKept();
};

void TestKeyGraphOpeningZoomed::aChosenScaleIsKept()
{
    view->resize(1000, 300);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    picture();
    const double fitted = view->getScale().ticksPerPixel;
    turnWheel(QPoint(0, 200), Qt::ShiftModifier);
    QCOMPARE(view->getScale().ticksPerPixel, fitted / 2.0);
    for (const int height : {310, 320, 330, 340}) {
        view->resize(1000, height);
        QTRY_COMPARE(view->height(), height);
        QCOMPARE(view->getScale().ticksPerPixel, fitted / 2.0);
        picture();
        QCOMPARE(view->getScale().ticksPerPixel, fitted / 2.0);
    }
}

VX_TEST_MAIN(TestKeyGraphOpeningZoomed)
#include "tst_keygraphopeningzoomed.moc"
