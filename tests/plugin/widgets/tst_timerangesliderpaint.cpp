#include "testing/vxpaintwatch.h"
#include "testing/vxtestmain.h"
#include "timerangesliderstage.h"

class TestTimeRangeSliderPaint : public QObject, private TimeRangeSliderStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void cursors();
    void cursorAfterADoubleClick();
    void cursorFollowsARangeSetElsewhere();
    void hoverShowsOnThePart();
    void leavingPaintsAnew();
    void paintsInItsOrder();
    void labels_data();
    void labels();
    void rangeOfOneMoment();
    void emptyAnimation();
    void repaintsOnlyItself();
    void followsTheScene();
};

void TestTimeRangeSliderPaint::cursors()
{
    m_mouse->moveTo(QPoint(100, 10));
    QCOMPARE(m_slider->cursor().shape(), Qt::PointingHandCursor);
    m_mouse->moveTo(QPoint(200, 10));
    QCOMPARE(m_slider->cursor().shape(), Qt::SplitHCursor);
    m_mouse->moveTo(body());
    QCOMPARE(m_slider->cursor().shape(), Qt::PointingHandCursor);
    m_mouse->moveTo(QPoint(399, 10));
    QCOMPARE(m_slider->cursor().shape(), Qt::SplitHCursor);
    m_mouse->press(QPoint(399, 10));
    m_mouse->moveTo(QPoint(300, 200));
    QCOMPARE(m_slider->cursor().shape(), Qt::SplitHCursor);
    // What was hovered before the press decides.
    m_mouse->release(QPoint(300, 200));
    QCOMPARE(m_slider->cursor().shape(), Qt::SplitHCursor);
    m_mouse->moveTo(QPoint(100, 10));
    m_mouse->press(QPoint(100, 10));
    m_mouse->release(QPoint(100, 200));
    QVERIFY(!m_slider->testAttribute(Qt::WA_SetCursor));
}

// The range changes while the mouse does not move: the cursor of a press follows the new range,
// that of the release the part that was hovered.
void TestTimeRangeSliderPaint::cursorFollowsARangeSetElsewhere()
{
    m_mouse->moveTo(body());
    QCOMPARE(m_slider->cursor().shape(), Qt::PointingHandCursor);
    vxScene->setPlayRange(VxTimeRange(2400, 4000));
    QTest::mousePress(m_slider, Qt::LeftButton, Qt::NoModifier, body());
    QCOMPARE(m_slider->cursor().shape(), Qt::SplitHCursor);
    QTest::mouseRelease(m_slider, Qt::LeftButton, Qt::NoModifier, body());
    QCOMPARE(m_slider->cursor().shape(), Qt::PointingHandCursor);
    compareRange(2400, 4000);
}

// The range below a mouse that does not move changes.
void TestTimeRangeSliderPaint::cursorAfterADoubleClick()
{
    m_mouse->moveTo(QPoint(5, 10));
    QCOMPARE(m_slider->cursor().shape(), Qt::PointingHandCursor);
    m_mouse->doubleClick(QPoint(5, 10));
    compareRange(0, 4800);
    QCOMPARE(m_slider->cursor().shape(), Qt::SplitHCursor);
    const QVector<HandleNotes::Handle> drawn = handles();
    QVERIFY(drawn.at(0).hovered);
    QVERIFY(!drawn.at(1).hovered);
    m_mouse->doubleClick(QPoint(5, 10));
    compareRange(1600, 3200);
    QCOMPARE(m_slider->cursor().shape(), Qt::PointingHandCursor);
}

void TestTimeRangeSliderPaint::leavingPaintsAnew()
{
    m_mouse->moveTo(QPoint(210, 10));
    QCoreApplication::processEvents();
    const VxPaintWatch paints(m_slider);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_slider, &leave);
    QTRY_VERIFY(paints.count > 0);
}

void TestTimeRangeSliderPaint::hoverShowsOnThePart()
{
    const auto hovered = [this] {
        QString parts;
        for (const HandleNotes::Handle &handle : handles())
            parts += QLatin1Char(handle.hovered ? '0' + handle.value : '-');
        return parts;
    };
    const QColor dark = m_slider->palette().dark().color();
    const QColor highlight = m_slider->palette().highlight().color();
    const QPoint border = body() - QPoint(0, 10);

    QCOMPARE(hovered(), QStringLiteral("--"));
    QCOMPARE(picture().pixelColor(border), dark);
    m_mouse->moveTo(QPoint(210, 10));
    QCOMPARE(hovered(), QStringLiteral("1-"));
    QCOMPARE(picture().pixelColor(border), dark);
    m_mouse->moveTo(QPoint(390, 10));
    QCOMPARE(hovered(), QStringLiteral("-2"));
    m_mouse->moveTo(body());
    QCOMPARE(hovered(), QStringLiteral("--"));
    QCOMPARE(picture().pixelColor(border), highlight);
    m_mouse->moveTo(QPoint(100, 10));
    QCOMPARE(picture().pixelColor(border), dark);
    // The hovered part stays highlighted while the mouse is held, and not once it leaves.
    m_mouse->moveTo(body());
    m_mouse->press(body());
    m_mouse->moveTo(QPoint(100, -30));
    QCOMPARE(picture().pixelColor(QPoint(100, 0)), highlight);
    m_mouse->release(QPoint(100, -30));
    m_mouse->moveTo(QPoint(100, -30));
    QTRY_COMPARE(picture().pixelColor(QPoint(100, 0)), dark);
}

void TestTimeRangeSliderPaint::paintsInItsOrder()
{
    const QVector<HandleNotes::Handle> drawn = handles();
    QCOMPARE(drawn.size(), 2);
    QCOMPARE(drawn.at(0).rect, QRect(201, 1, 18, 18));
    QCOMPARE(drawn.at(0).value, 1);
    QCOMPARE(drawn.at(1).rect, QRect(380, 1, 18, 18));
    QCOMPARE(drawn.at(1).value, 2);
    for (const HandleNotes::Handle &handle : drawn)
        QCOMPARE(handle.type, 0xF00);

    const QImage image = picture();
    const QColor dark = m_slider->palette().dark().color();
    const QColor button = m_slider->palette().button().color();
    QVERIFY(dark != button);
    for (const QPoint &point :
         {QPoint(0, 0), QPoint(199, 10), QPoint(400, 10), QPoint(599, 19),    // beside the stretch
          QPoint(200, 10), QPoint(399, 10), QPoint(300, 0), QPoint(300, 19)}) // its border
        QCOMPARE(image.pixelColor(point), dark);
    for (const QPoint &point : {QPoint(300, 1), QPoint(300, 18), QPoint(219, 10), QPoint(379, 10)})
        QCOMPARE(image.pixelColor(point), button);
    // Text "10" and "20" beside the handles, to be read easily, and nothing in the middle.
    const auto hasText = [&image, button](int from, int to) {
        int contrast = 0;
        for (int x = from; x <= to; ++x) {
            for (int y = 1; y < 19; ++y)
                contrast =
                    qMax(contrast, qAbs(image.pixelColor(x, y).lightness() - button.lightness()));
        }
        return contrast > 100;
    };
    const int width = m_slider->fontMetrics().horizontalAdvance(QStringLiteral("10"));
    QVERIFY(hasText(220, 219 + width));
    QVERIFY(!hasText(220 + width, 378 - width));
    QVERIFY(hasText(379 - width, 378));
}

void TestTimeRangeSliderPaint::labels_data()
{
    QTest::addColumn<VxTime>("start");
    QTest::addColumn<VxTime>("end");
    QTest::addColumn<QString>("startText");
    QTest::addColumn<QString>("endText");

    QTest::newRow("whole frames") << 1600 << 3200 << "10"
                                  << "20";
    QTest::newRow("just below the half") << 1679 << 3279 << "10"
                                         << "20";
    QTest::newRow("the half") << 1680 << 3280 << "11"
                              << "21";
    QTest::newRow("different lengths") << 160 << 4800 << "1"
                                       << "30";
}

// The numbers beside the handles, by the text's own picture.
void TestTimeRangeSliderPaint::labels()
{
    QFETCH(VxTime, start);
    QFETCH(VxTime, end);
    QFETCH(QString, startText);
    QFETCH(QString, endText);
    vxScene->setPlayRange(VxTimeRange(start, end));
    const QVector<HandleNotes::Handle> drawn = handles();
    QImage image(m_slider->size(), QImage::Format_ARGB32_Premultiplied);
    m_slider->render(&image);

    const QFontMetrics metrics = m_slider->fontMetrics();
    const int top = 1 + (18 - metrics.height()) / 2;
    const auto look = [&](const QString &text, int left) {
        const QSize size(metrics.horizontalAdvance(text), 19 - top);
        QImage expected(m_slider->size(), QImage::Format_ARGB32_Premultiplied);
        expected.fill(m_slider->palette().button().color());
        const QRect place(QPoint(left, top), size);
        QPainter painter(&expected);
        painter.setFont(m_slider->font());
        painter.setPen(m_slider->palette().buttonText().color());
        painter.drawText(place, Qt::AlignLeft, text);
        painter.end();
        // Above and below are the lines of the border.
        const QRect inside = place.intersected(QRect(0, 1, m_slider->width(), 17));
        return image.copy(inside) == expected.copy(inside);
    };
    QVERIFY(look(startText, drawn.at(0).rect.right() + 2));
    QVERIFY(look(endText, drawn.at(1).rect.left() - 1 - metrics.horizontalAdvance(endText)));
}

// A range without a length has handles all the same: its position is visible.
void TestTimeRangeSliderPaint::rangeOfOneMoment()
{
    vxScene->setPlayRange(VxTimeRange(2400, 2400));
    const QVector<HandleNotes::Handle> drawn = handles();
    QCOMPARE(drawn.size(), 2);
    QCOMPARE(drawn.at(0).rect, QRect(301, 1, 18, 18));
    QCOMPARE(drawn.at(1).rect, QRect(280, 1, 18, 18));
}

void TestTimeRangeSliderPaint::emptyAnimation()
{
    vxScene->setAnimRange(VxTimeRange(0, 0));
    QVERIFY(handles().isEmpty());
    m_mouse->drag(body(), body() + QPoint(60, 0));
    compareRange(1600, 3200);
    QCOMPARE(picture().pixelColor(body()), m_slider->palette().dark().color());
}

void TestTimeRangeSliderPaint::repaintsOnlyItself()
{
    QWidget neighbour(m_window.get());
    neighbour.setGeometry(0, 0, 700, 40);
    neighbour.lower();
    VxPaintWatch slider(m_slider);
    VxPaintWatch window(m_window.get());
    VxPaintWatch others(&neighbour);
    neighbour.show();
    m_mouse->moveTo(QPoint(100, 10));
    QTRY_VERIFY(others.count > 0 && slider.count > 0);
    slider.count = window.count = others.count = 0;
    m_mouse->moveTo(body());
    QTRY_VERIFY(slider.count > 0);
    m_mouse->press(body());
    m_mouse->moveTo(body() + QPoint(5, 0));
    m_mouse->release(body());
    QTRY_VERIFY(slider.count > 1);
    QCOMPARE(others.count, 0);
    QCOMPARE(window.count, 0);
}

void TestTimeRangeSliderPaint::followsTheScene()
{
    const QImage before = picture();
    const VxPaintWatch paints(m_slider);
    vxScene->setAnimRange(VxTimeRange(0, 9600));
    QTRY_COMPARE(paints.count, 1);
    vxScene->setTimeStep(80);
    QTRY_COMPARE(paints.count, 2);
    vxScene->setPlayRange(VxTimeRange(3200, 6400));
    QTRY_COMPARE(paints.count, 3);
    // Half as long and at half the scale, with the same place; the labels differ: 40 and 80.
    const QImage after = picture();
    QVERIFY(before != after);
    const QColor button = m_slider->palette().button().color();
    QCOMPARE(after.pixelColor(300, 5), button);
    QCOMPARE(after.pixelColor(199, 5), m_slider->palette().dark().color());
    QCOMPARE(after.pixelColor(400, 5), m_slider->palette().dark().color());
}

VX_TEST_MAIN(TestTimeRangeSliderPaint)
#include "tst_timerangesliderpaint.moc"
