#include "testing/vxtestmain.h"
#include "timerangesliderstage.h"

#include <QtWidgets/QScrollBar>
#include <vxcore/vxundostack.h>

class TestTimeRangeSlider : public QObject, private TimeRangeSliderStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    // First: nothing has been saved in this process yet.
    void doubleClickWithNothingSaved();
    void doubleClickShowsAllAndRestores();
    void doubleClickOfAnotherButton();

    void holdsAHiddenScrollBar();
    void bodyFollowsTheMouse();
    void bodyStopsAtTheEnds();
    void startHandle();
    void endHandle();
    void startHandleWinsWhereTheyOverlap();
    void endsBetweenFramesKeepTheirPlace();
    void aDragToAndFroLosesNothing();
    void oddRates_data();
    void oddRates();
    void pressBesideTheStretch();
    void otherButtons();
    void leavingDropsTheDrag();
    void lostReleaseRestoresTheRange_data();
    void lostReleaseRestoresTheRange();
    void timeIsMovedIntoTheRange_data();
    void timeIsMovedIntoTheRange();
    void timeStaysWhilePlaying();
    void nothingForTheHistory();
};

void TestTimeRangeSlider::doubleClickWithNothingSaved()
{
    vxScene->setPlayRange(VxTimeRange(0, 4800));
    const QSignalSpy changes(vxScene, &VxScene::playRangeChanged);
    m_mouse->doubleClick(body());
    QCOMPARE(changes.count(), 0);
    compareRange(0, 4800);
}

void TestTimeRangeSlider::doubleClickShowsAllAndRestores()
{
    m_mouse->doubleClick(body());
    compareRange(0, 4800);
    m_mouse->doubleClick(body());
    compareRange(1600, 3200);
    // Beside the stretch as well, and the saved range is that of all sliders.
    VxTimeRangeSlider other(m_window.get());
    other.setGeometry(50, 70, 600, 20);
    other.show();
    m_mouse->doubleClick(QPoint(5, 5));
    compareRange(0, 4800);
    VxMouseDriver(&other).doubleClick(body());
    compareRange(1600, 3200);
    // One end is enough to differ.
    for (const VxTimeRange &range : {VxTimeRange(1600, 4800), VxTimeRange(0, 3200)}) {
        vxScene->setPlayRange(range);
        m_mouse->doubleClick(body());
        compareRange(0, 4800);
        m_mouse->doubleClick(body());
        compareRange(range.getStart(), range.getEnd());
    }
}

void TestTimeRangeSlider::doubleClickOfAnotherButton()
{
    m_mouse->doubleClick(body(), Qt::RightButton);
    compareRange(1600, 3200);
}

void TestTimeRangeSlider::holdsAHiddenScrollBar()
{
    const auto bars = m_slider->findChildren<QScrollBar *>();
    QCOMPARE(bars, QList<QScrollBar *>({m_slider->getScrollBar()}));
    QVERIFY(bars.first()->isHidden());
    QCOMPARE(bars.first()->orientation(), Qt::Horizontal);
    QCOMPARE(m_slider->layout()->contentsMargins(), QMargins());
    QCOMPARE(m_slider->layout()->spacing(), 0);
    QVERIFY(m_slider->hasMouseTracking());
    QCOMPARE(VxTimeRangeSlider::staticMetaObject.methodCount(),
             QAbstractSlider::staticMetaObject.methodCount());
}

void TestTimeRangeSlider::bodyFollowsTheMouse()
{
    m_mouse->press(body());
    compareRange(1600, 3200);
    m_mouse->moveTo(body() + QPoint(7, 0));
    compareRange(1656, 3256);
    m_mouse->moveTo(body() - QPoint(9, 0));
    compareRange(1528, 3128);
    // 72 ticks are less than half a frame.
    m_mouse->release(body() - QPoint(9, 0));
    compareRange(1600, 3200);

    m_mouse->drag(body(), body() + QPoint(10, 0));
    compareRange(1760, 3360);
    m_mouse->drag(body(), body() - QPoint(10, 0));
    compareRange(1600, 3200);
}

void TestTimeRangeSlider::bodyStopsAtTheEnds()
{
    m_mouse->drag(body(), body() - QPoint(290, 0));
    compareRange(0, 1600);
    m_mouse->drag(QPoint(100, 10), QPoint(640, 10));
    compareRange(3200, 4800);
}

void TestTimeRangeSlider::startHandle()
{
    m_mouse->press(QPoint(205, 10));
    m_mouse->moveTo(QPoint(198, 10));
    compareRange(1544, 3200);
    m_mouse->release(QPoint(155, 10));
    compareRange(1120, 3200);
    m_mouse->drag(QPoint(155, 10), QPoint(500, 10));
    compareRange(3040, 3200);
    m_mouse->drag(QPoint(385, 10), QPoint(-40, 10));
    compareRange(0, 3200);
}

void TestTimeRangeSlider::endHandle()
{
    m_mouse->press(QPoint(395, 10));
    m_mouse->moveTo(QPoint(396, 10));
    compareRange(1600, 3208);
    m_mouse->release(QPoint(415, 10));
    compareRange(1600, 3360);
    m_mouse->drag(QPoint(415, 10), QPoint(100, 10));
    compareRange(1600, 1760);
    vxScene->setPlayRange(VxTimeRange(1600, 3200));
    m_mouse->drag(QPoint(395, 10), QPoint(645, 10));
    compareRange(1600, 4800);
}

// Frames 10 to 11 are the pixels 200 to 219, all of them a start handle's.
void TestTimeRangeSlider::startHandleWinsWhereTheyOverlap()
{
    vxScene->setPlayRange(VxTimeRange(1600, 1760));
    m_mouse->drag(QPoint(218, 10), QPoint(178, 10));
    compareRange(1280, 1760);
}

void TestTimeRangeSlider::endsBetweenFramesKeepTheirPlace()
{
    vxScene->setPlayRange(VxTimeRange(1650, 3251));
    m_mouse->drag(body(), body() + QPoint(21, 0));
    compareRange(1810, 3411);
}

void TestTimeRangeSlider::aDragToAndFroLosesNothing()
{
    m_mouse->press(body());
    for (const int x : {640, -30, 600, 0, 301})
        m_mouse->moveTo(QPoint(x, 10));
    compareRange(1608, 3208);
    m_mouse->release(QPoint(300, 10));
    compareRange(1600, 3200);
}

// The result of a drag of the body by 50 pixels, 400 ticks, at the release.
void TestTimeRangeSlider::oddRates_data()
{
    QTest::addColumn<VxTime>("step");
    QTest::addColumn<int>("pixels");
    QTest::addColumn<VxTime>("way");

    QTest::newRow("7 a second") << 685 << 50 << 685;
    QTest::newRow("7 a second, less than half") << 685 << 42 << 0;
    QTest::newRow("7 a second, back") << 685 << -50 << -685;
    QTest::newRow("24 a second") << 200 << 37 << 200;
    QTest::newRow("24 a second, back by half") << 200 << -38 << -400;
    QTest::newRow("29 a second") << 165 << 50 << 330;
    QTest::newRow("48 a second") << 100 << 50 << 400;
    QTest::newRow("1200 a second") << 4 << 51 << 408;
}

void TestTimeRangeSlider::oddRates()
{
    QFETCH(VxTime, step);
    QFETCH(int, pixels);
    QFETCH(VxTime, way);
    vxScene->setTimeStep(step);
    m_mouse->drag(body(), body() + QPoint(pixels, 0));
    compareRange(1600 + way, 3200 + way);
}

void TestTimeRangeSlider::pressBesideTheStretch()
{
    m_mouse->drag(QPoint(100, 10), QPoint(350, 10));
    compareRange(1600, 3200);
    m_mouse->drag(QPoint(400, 10), QPoint(200, 10));
    compareRange(1600, 3200);
}

void TestTimeRangeSlider::otherButtons()
{
    m_mouse->drag(body(), body() + QPoint(60, 0), Qt::RightButton);
    compareRange(1600, 3200);
    // The right one's release ends no drag of the left one.
    m_mouse->press(body());
    QTest::mouseRelease(m_slider, Qt::RightButton, Qt::NoModifier, body());
    m_mouse->moveTo(body() + QPoint(20, 0));
    compareRange(1760, 3360);
    m_mouse->release(body());
    compareRange(1600, 3200);
}

void TestTimeRangeSlider::leavingDropsTheDrag()
{
    m_mouse->press(body());
    m_mouse->moveTo(body() + QPoint(20, 0));
    compareRange(1760, 3360);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_slider, &leave);
    m_mouse->moveTo(body() + QPoint(60, 0));
    compareRange(1600, 3200);
    m_mouse->release(body() + QPoint(60, 0));
    compareRange(1600, 3200);
}

void TestTimeRangeSlider::lostReleaseRestoresTheRange_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<int>("x");
    for (const int x : {205, 300, 395}) {
        for (const char *how : {"escape", "hidden", "window"})
            QTest::addRow("%s, from %d", how, x) << QString::fromLatin1(how) << x;
    }
}

void TestTimeRangeSlider::lostReleaseRestoresTheRange()
{
    QFETCH(QString, how);
    QFETCH(int, x);
    m_mouse->press(QPoint(x, 10));
    m_mouse->moveTo(QPoint(x + 23, 10));
    QVERIFY(vxScene->getPlayRange() != VxTimeRange(1600, 3200));
    QWidget other;
    if (how == QLatin1String("escape")) {
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
    } else if (how == QLatin1String("hidden")) {
        m_slider->hide();
        m_slider->show();
    } else {
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
    }
    compareRange(1600, 3200);
    m_mouse->moveTo(QPoint(x + 60, 10));
    m_mouse->release(QPoint(x + 60, 10));
    compareRange(1600, 3200);
}

void TestTimeRangeSlider::timeIsMovedIntoTheRange_data()
{
    QTest::addColumn<VxTime>("before");
    QTest::addColumn<VxTime>("after");

    QTest::newRow("left behind") << 1600 << 2400;
    QTest::newRow("inside") << 3040 << 3040;
    QTest::newRow("inside, between frames") << 3000 << 3040;
    QTest::newRow("beyond the end") << 4800 << 4000;
}

void TestTimeRangeSlider::timeIsMovedIntoTheRange()
{
    QFETCH(VxTime, before);
    QFETCH(VxTime, after);
    vxScene->setTime(before);
    m_mouse->press(body());
    m_mouse->moveTo(body() + QPoint(100, 0));
    compareRange(2400, 4000);
    QCOMPARE(vxScene->getTime(), before);
    m_mouse->release(body() + QPoint(100, 0));
    QCOMPARE(vxScene->getTime(), after);
}

void TestTimeRangeSlider::timeStaysWhilePlaying()
{
    vxScene->loopPlayback(true);
    const QSignalSpy pauses(vxScene, &VxScene::playbackFinished);
    vxScene->play();
    vxScene->setTime(1680);
    m_mouse->drag(QPoint(395, 10), QPoint(415, 10));
    compareRange(1600, 3360);
    QCOMPARE(pauses.count(), 0);
    QVERIFY(vxScene->isPlaying());
    vxScene->pause();
}

void TestTimeRangeSlider::nothingForTheHistory()
{
    m_mouse->drag(body(), body() + QPoint(60, 0));
    m_mouse->doubleClick(body());
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

VX_TEST_MAIN(TestTimeRangeSlider)
#include "tst_vxtimerangeslider.moc"
