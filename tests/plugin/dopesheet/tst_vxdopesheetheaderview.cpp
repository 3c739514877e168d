#include "dopesheettestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxpaintwatch.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/time/timelineplayback.h"

// The dope sheet's header: its picture, and the time under the mouse. The names take 200 pixels;
// frame f of 160 ticks has its middle at 207 + 10 f.
class TestVxDopeSheetHeaderView : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        header->setFixedHeight(28);
        showView();
        viewport = header->viewport();
    }
    void cleanup() { tearDown(); }

    void construction();
    void sizeHintKeepsToTheMinimum();

    void paintsTicks();
    void paintsNumbers();
    void marksStayOverTheKeys();
    void paintsTheMarker();
    void markerOfNoRange();
    void paintsKeysOfItsSource();
    void lostKeySource();

    void pressSetsTheTime_data();
    void pressSetsTheTime();
    void pressCountsFromTheEdge();
    void pressOnTheMarkerKeepsTheTime();
    void dragSetsTheTime();
    void dragIsLimitedToThePlayRange();
    void dragAfterAPress();
    void secondOfTwoQuickPresses();
    void secondPressOnTheMarkerDragsIt();
    void hiddenPartOfTheMarkerIsNotPressed();
    void droppedDragRestoresTheTime();
    void sheetDestroyedInMidDrag();
    void moveWithoutAPress();
    void playbackContinues();
    void rightButtonDoesNothing();

    void hoverCursors_data();
    void hoverCursors();
    void markerCursors();
    void gripResizes();
    void namesGripResizes();
    void repaintsOnLeave();

private:
    int frameMiddle(int frame) const { return 207 + 10 * frame; }
    QImage picture() const { return viewport->grab().toImage(); }
    // The colours found in columns first .. last.
    QSet<QRgb> colors(int first, int last) const;

    QWidget *viewport = nullptr;
};

void TestVxDopeSheetHeaderView::construction()
{
    QCOMPARE(header->orientation(), Qt::Horizontal);
    QVERIFY(header->hasMouseTracking());
    QVERIFY(header->stretchLastSection());
    QVERIFY(!header->getKeySource());
    QCOMPARE(header->sectionSize(0), 200);
    QCOMPARE(header->sectionSize(1), viewport->width() - 200);
}

void TestVxDopeSheetHeaderView::sizeHintKeepsToTheMinimum()
{
    header->setMinimumSize(0, 0);
    const QSize plain = header->sizeHint();
    header->setMinimumSize(plain.width() + 40, plain.height() + 30);
    QCOMPARE(header->sizeHint(), plain + QSize(40, 30));
}

QSet<QRgb> TestVxDopeSheetHeaderView::colors(int first, int last) const
{
    const QImage image = picture();
    QSet<QRgb> found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = first; x <= last; ++x)
            found.insert(image.pixel(x, y));
    }
    return found;
}

// The frames are ten pixels wide, and the style requires 16 from tick to tick: one every fifth
// frame.
void TestVxDopeSheetHeaderView::paintsTicks()
{
    vxScene->setTime(9600);
    const QImage image = picture();
    const int y = image.height() - 3;
    const QColor ground = image.pixelColor(frameMiddle(7), y);
    for (int frame = 1; frame < 40; ++frame) {
        const bool ticked = image.pixelColor(frameMiddle(frame), y) != ground;
        QCOMPARE(ticked, frame % 5 == 0);
    }
    // Labelled ticks are higher.
    const int above = image.height() - 9;
    QVERIFY(image.pixelColor(frameMiddle(10), above) != image.pixelColor(frameMiddle(15), above));
    // The marks of the play range have a colour of their own.
    const QColor range = vxApp->getStyle()->getInterfaceColor(QStringLiteral("Style_Play_Range"));
    QCOMPARE(image.pixelColor(frameMiddle(0), y), range);
}

void TestVxDopeSheetHeaderView::paintsNumbers()
{
    vxScene->setTime(0);
    const QColor text = vxApp->getStyle()->textStyle(VxStyle::TS_Ruler).getColor();
    const QImage image = picture();
    const int height = vxApp->getStyle()->textStyle(VxStyle::TS_Ruler).getAscent();
    const auto hasText = [&](int frame) {
        for (int y = 0; y <= height; ++y) {
            for (int x = frameMiddle(frame) - 6; x <= frameMiddle(frame) + 6; ++x) {
                const QColor color = image.pixelColor(x, y);
                if (qAbs(color.lightness() - text.lightness()) < 40)
                    return true;
            }
        }
        return false;
    };
    QVERIFY(hasText(10));
    QVERIFY(hasText(20));
    QVERIFY(!hasText(15));
    QVERIFY(!hasText(5));
    QVERIFY(hasText(60));
}

// Nothing before the play range is drawn over the names.
void TestVxDopeSheetHeaderView::marksStayOverTheKeys()
{
    addKeys(hip->getXPosControl(), {0, 1600, 2400});
    vxScene->setTime(1440);
    vxScene->setPlayRange(VxTimeRange(1760, 9600));
    const QImage before = picture();
    header->setKeySource(model->findItem(hip));
    const QImage after = picture();
    QVERIFY(before != after);
    QCOMPARE(after.copy(0, 0, 200, 28), before.copy(0, 0, 200, 28));
}

void TestVxDopeSheetHeaderView::paintsTheMarker()
{
    vxScene->setTime(12 * 160);
    header->updateViewport();
    const QImage with = picture();
    vxScene->setTime(33 * 160);
    header->updateViewport();
    const QImage without = picture();
    // Eleven columns about the frame's middle.
    for (int x = frameMiddle(12) - 9; x <= frameMiddle(12) + 9; ++x) {
        const bool differs = with.pixel(x, 20) != without.pixel(x, 20);
        QCOMPARE(differs, qAbs(x - frameMiddle(12)) <= 5);
    }
}

void TestVxDopeSheetHeaderView::markerOfNoRange()
{
    const QColor color = vxApp->getStyle()->getInterfaceColor(QStringLiteral("Style_Playhead"));
    const auto hasMarker = [&] {
        const auto found = colors(200, viewport->width() - 1);
        return std::any_of(found.cbegin(), found.cend(), [&](QRgb rgb) {
            const QColor other(rgb);
            return qAbs(other.hue() - color.hue()) < 4 && other.saturation() > 120;
        });
    };
    vxScene->setTime(1600);
    QVERIFY(hasMarker());
    vxScene->setPlayRange(VxTimeRange(1600, 1600));
    QVERIFY(!hasMarker());
}

void TestVxDopeSheetHeaderView::paintsKeysOfItsSource()
{
    const QImage without = picture();
    header->setKeySource(model->findItem(hip));
    QCOMPARE(picture(), without);
    // The header observes the row's keys itself.
    addKeys(hip->getXPosControl(), {7 * 160});
    const QImage with = picture();
    bool inside = false, outside = false;
    for (int x = 200; x < with.width(); ++x) {
        for (int y = 0; y < with.height(); ++y) {
            if (with.pixel(x, y) != without.pixel(x, y))
                (qAbs(x - frameMiddle(7)) <= 5 ? inside : outside) = true;
        }
    }
    QVERIFY(inside);
    QVERIFY(!outside);
    header->setKeySource(nullptr);
    QCOMPARE(picture(), without);
}

void TestVxDopeSheetHeaderView::lostKeySource()
{
    const QImage without = picture();
    addKeys(ball->getXPosControl(), {7 * 160});
    header->setKeySource(model->findItem(ball));
    QVERIFY(picture() != without);
    model->removeNode(ball);
    QVERIFY(!header->getKeySource());
    QCOMPARE(picture(), without);
}

void TestVxDopeSheetHeaderView::pressSetsTheTime_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<VxTime>("time");

    QTest::newRow("past the names' grip") << 205 << 160;
    QTest::newRow("four pixels past a frame") << 304 << 1600;
    QTest::newRow("half a frame rounds up") << 305 << 1760;
    QTest::newRow("at the end of the range") << 800 << 9600;
    QTest::newRow("beyond it") << 860 << 9600;
}

void TestVxDopeSheetHeaderView::pressSetsTheTime()
{
    QFETCH(int, x);
    vxScene->setTime(20 * 160);
    VxMouseDriver mouse(viewport);
    mouse.click(QPoint(x, 10));
    QTEST(vxScene->getTime(), "time");
}

// A later play range: the mouse counts from the column's edge, although the ruler's marks do not.
void TestVxDopeSheetHeaderView::pressCountsFromTheEdge()
{
    TimelineMetrics::shared().keyMargin = 20;
    vxScene->setPlayRange(VxTimeRange(1600, 9600));
    vxScene->setTime(9600);
    VxMouseDriver mouse(viewport);
    mouse.click(QPoint(230, 10));
    QCOMPARE(vxScene->getTime(), 1600 + 3 * 160);
}

void TestVxDopeSheetHeaderView::pressOnTheMarkerKeepsTheTime()
{
    vxScene->setTime(10 * 160);
    QSignalSpy changed(vxScene, &VxScene::timeChanged);
    VxMouseDriver mouse(viewport);
    for (const int offset : {-5, 0, 5})
        mouse.click(QPoint(frameMiddle(10) + offset, 10));
    QCOMPARE(changed.count(), 0);
    mouse.click(QPoint(frameMiddle(10) + 6, 10));
    QCOMPARE(vxScene->getTime(), 11 * 160);
}

void TestVxDopeSheetHeaderView::dragSetsTheTime()
{
    vxScene->setTime(10 * 160);
    VxMouseDriver mouse(viewport);
    mouse.press(QPoint(frameMiddle(10), 10));
    QCOMPARE(header->cursor().shape(), Qt::ClosedHandCursor);
    mouse.moveTo(QPoint(352, 10));
    QCOMPARE(vxScene->getTime(), 15 * 160);
    QCOMPARE(header->cursor().shape(), Qt::ClosedHandCursor);
    mouse.moveTo(QPoint(404, 300));
    QCOMPARE(vxScene->getTime(), 20 * 160);
    mouse.release(QPoint(404, 10));
    mouse.moveTo(QPoint(500, 10));
    QCOMPARE(vxScene->getTime(), 20 * 160);
}

void TestVxDopeSheetHeaderView::dragIsLimitedToThePlayRange()
{
    vxScene->setPlayRange(VxTimeRange(800, 4800));
    vxScene->setTime(800);
    VxMouseDriver mouse(viewport);
    mouse.press(QPoint(207, 10));
    mouse.moveTo(QPoint(20, 10));
    QCOMPARE(vxScene->getTime(), 800);
    mouse.moveTo(QPoint(850, 10));
    QCOMPARE(vxScene->getTime(), 4800);
    mouse.release(QPoint(850, 10));
}

void TestVxDopeSheetHeaderView::dragAfterAPress()
{
    VxMouseDriver mouse(viewport);
    mouse.press(QPoint(300, 10));
    QCOMPARE(vxScene->getTime(), 10 * 160);
    mouse.moveTo(QPoint(400, 10));
    QCOMPARE(vxScene->getTime(), 20 * 160);
    mouse.release(QPoint(400, 10));
}

void TestVxDopeSheetHeaderView::secondOfTwoQuickPresses()
{
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(300, 10));
    QCOMPARE(vxScene->getTime(), 10 * 160);
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(500, 10));
    QCOMPARE(vxScene->getTime(), 30 * 160);

    // The second press is held and moved.
    VxMouseDriver mouse(viewport);
    mouse.doubleClick(QPoint(300, 10));
    QCOMPARE(vxScene->getTime(), 10 * 160);
    const auto send = [this](QEvent::Type type, int x, Qt::MouseButtons held) {
        QMouseEvent event(type, QPoint(x, 10), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport, &event);
    };
    send(QEvent::MouseButtonDblClick, 300, Qt::LeftButton);
    mouse.moveTo(QPoint(404, 10));
    QCOMPARE(vxScene->getTime(), 20 * 160);
    send(QEvent::MouseButtonRelease, 404, Qt::NoButton);
    mouse.moveTo(QPoint(504, 10));
    QCOMPARE(vxScene->getTime(), 20 * 160);
}

void TestVxDopeSheetHeaderView::secondPressOnTheMarkerDragsIt()
{
    vxScene->setTime(10 * 160);
    VxMouseDriver mouse(viewport);
    mouse.click(QPoint(frameMiddle(10) + 4, 10));
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(frameMiddle(10) + 4, 10));
    QCOMPARE(vxScene->getTime(), 10 * 160);
}

// The marker of the first frame reaches to the left of the keys column, where it is not painted.
void TestVxDopeSheetHeaderView::hiddenPartOfTheMarkerIsNotPressed()
{
    vxScene->setPlayRange(VxTimeRange(1600, 9600));
    vxScene->setTime(1440);
    const int middle = frameMiddle(-1);
    QVERIFY(middle - 5 < 196 && middle < 200);
    VxMouseDriver mouse(viewport);
    mouse.moveTo(QPoint(150, 10));
    mouse.moveTo(QPoint(194, 10));
    QVERIFY(header->cursor().shape() != Qt::OpenHandCursor);
    mouse.press(QPoint(194, 10));
    mouse.moveTo(QPoint(400, 10));
    QCOMPARE(vxScene->getTime(), 1440);
    mouse.release(QPoint(400, 10));
}

void TestVxDopeSheetHeaderView::droppedDragRestoresTheTime()
{
    vxScene->setTime(10 * 160);
    VxMouseDriver mouse(viewport);
    mouse.press(QPoint(frameMiddle(10), 10));
    mouse.moveTo(QPoint(404, 10));
    QCOMPARE(vxScene->getTime(), 20 * 160);
    view->hide();
    QCOMPARE(vxScene->getTime(), 10 * 160);
    view->show();
    mouse.moveTo(QPoint(504, 10));
    mouse.release(QPoint(504, 10));
    QCOMPARE(vxScene->getTime(), 10 * 160);
}

void TestVxDopeSheetHeaderView::sheetDestroyedInMidDrag()
{
    vxScene->setTime(10 * 160);
    VxMouseDriver mouse(viewport);
    mouse.press(QPoint(frameMiddle(10), 10));
    mouse.moveTo(QPoint(404, 10));
    view.reset();
    QCOMPARE(vxScene->getTime(), 10 * 160);
}

void TestVxDopeSheetHeaderView::moveWithoutAPress()
{
    VxMouseDriver mouse(viewport);
    mouse.moveTo(QPoint(300, 10));
    QCOMPARE(vxScene->getTime(), 0);
}

void TestVxDopeSheetHeaderView::playbackContinues()
{
    vxScene->loopPlayback(true);
    vxScene->play();
    QSignalSpy paused(vxScene, &VxScene::playbackFinished);
    VxMouseDriver mouse(viewport);
    mouse.click(QPoint(500, 10));
    QVERIFY(vxScene->isPlaying());
    QVERIFY(paused.count() > 0);
    vxScene->pause();
}

void TestVxDopeSheetHeaderView::rightButtonDoesNothing()
{
    VxMouseDriver mouse(viewport);
    mouse.click(QPoint(300, 10), Qt::RightButton);
    QCOMPARE(vxScene->getTime(), 0);
}

void TestVxDopeSheetHeaderView::hoverCursors_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<Qt::CursorShape>("shape");

    QTest::newRow("names") << 100 << Qt::ArrowCursor;
    QTest::newRow("the names' grip") << 198 << Qt::SplitHCursor;
    QTest::newRow("the keys' grip") << 202 << Qt::SplitHCursor;
    QTest::newRow("the ruler") << 500 << Qt::PointingHandCursor;
    QTest::newRow("the marker") << 309 << Qt::OpenHandCursor;
    QTest::newRow("beside the marker") << 313 << Qt::PointingHandCursor;
}

void TestVxDopeSheetHeaderView::hoverCursors()
{
    QFETCH(int, x);
    vxScene->setTime(10 * 160);
    VxMouseDriver mouse(viewport);
    mouse.moveTo(QPoint(600, 10));
    mouse.moveTo(QPoint(x, 10));
    QTEST(header->cursor().shape(), "shape");
}

void TestVxDopeSheetHeaderView::markerCursors()
{
    vxScene->setTime(10 * 160);
    VxMouseDriver mouse(viewport);
    mouse.moveTo(QPoint(frameMiddle(10), 10));
    QCOMPARE(header->cursor().shape(), Qt::OpenHandCursor);
    mouse.press(QPoint(frameMiddle(10), 10));
    QCOMPARE(header->cursor().shape(), Qt::ClosedHandCursor);
    mouse.release(QPoint(frameMiddle(10), 10));
    QCOMPARE(header->cursor().shape(), Qt::OpenHandCursor);
}

void TestVxDopeSheetHeaderView::gripResizes()
{
    VxMouseDriver mouse(viewport);
    mouse.press(QPoint(202, 10));
    QCOMPARE(header->cursor().shape(), Qt::SplitHCursor);
    mouse.moveTo(QPoint(232, 10));
    mouse.moveTo(QPoint(252, 10));
    mouse.release(QPoint(252, 10));
    QCOMPARE(header->sectionSize(0), 250);
    QCOMPARE(header->cursor().shape(), Qt::SplitHCursor);
    QCOMPARE(vxScene->getTime(), 0);
    // It has ended.
    mouse.moveTo(QPoint(300, 10));
    QCOMPARE(header->sectionSize(0), 250);
}

void TestVxDopeSheetHeaderView::namesGripResizes()
{
    VxMouseDriver mouse(viewport);
    mouse.drag(QPoint(198, 10), QPoint(168, 10));
    QCOMPARE(header->sectionSize(0), 170);
    mouse.moveTo(QPoint(300, 10));
    QCOMPARE(header->sectionSize(0), 170);
}

void TestVxDopeSheetHeaderView::repaintsOnLeave()
{
    QCoreApplication::processEvents();
    const VxPaintWatch painted(viewport);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(header, &leave);
    QTRY_VERIFY(painted.count > 0);
}

VX_TEST_MAIN(TestVxDopeSheetHeaderView)
#include "tst_vxdopesheetheaderview.moc"
