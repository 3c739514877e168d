#include "keygraphviewtestbase.h"
#include "testing/vxtestmain.h"

// The first pictures of the process's first key graph view, whose window opens in steps. A program
// of its own, because only the first resizes of a process centre the range.
class TestKeyGraphOpening : public QObject, private KeyGraphViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpView(); }
    void cleanup() { tearDownView(); }

    void resizesAfterTheFirstPictureKeepTheRangeFitted();
};

void TestKeyGraphOpening::resizesAfterTheFirstPictureKeepTheRangeFitted()
{
    view->setLeftBackgroundWidth(200);
    view->setRightBackgroundWidth(60);
    view->resize(1000, 300);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    view->grab();
    QCOMPARE(view->getScale().x(0), 224.0);
    for (const int height : {310, 320, 330, 340}) {
        view->resize(1000, height);
        QTRY_COMPARE(view->height(), height);
        view->grab();
        QCOMPARE(view->getScale().x(0), 224.0);
        QCOMPARE(view->getScale().x(752 * 16), 1000.0 - 84.0);
    }
}

VX_TEST_MAIN(TestKeyGraphOpening)
#include "tst_keygraphopening.moc"
