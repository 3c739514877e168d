#include <QtTest>

#include <QtGui/QPainter>
#include <QtWidgets/QLayout>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QScrollBar>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyleoption.h>
#include <vxcore/vxundostack.h>

#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <memory>

namespace {

// Notes the handles that are drawn, and lets the application's style draw them.
class HandleNotes : public QProxyStyle
{
public:
    struct Handle
    {
        QRect rect;
        int type;
        int value;
        bool hovered;
    };

    explicit HandleNotes(QStyle *style)
        : m_style(style)
    {
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (quint32(element) == VxStyle::PE_VxRangeHandle) {
            const auto *custom = qstyleoption_cast<const VxStyleOptionCustom *>(option);
            handles.append({option->rect, option->type, custom ? custom->value : -1,
                            option->state.testFlag(State_MouseOver)});
        }
        m_style->drawPrimitive(element, option, painter, widget);
    }

    mutable QVector<Handle> handles;

private:
    QStyle *m_style;
};

// Counts how often a widget is painted.
class PaintCount : public QObject
{
public:
    int count = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

// A bar 600 pixels wide and 20 high at (50, 40) of its window, for an animation from 0 to 4800 at
// 30 frames a second: 8 ticks a pixel, 20 pixels a frame. The play range is 1600 to 3200, which
// are the pixels 200 to 399, unless said otherwise.
class TestTimeRangeSlider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    // First: nothing has been saved in this process yet.
    void doubleClickWithNothingSaved();
    void doubleClickShowsAllAndGoesBack();
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
    void lostReleasePutsTheRangeBack_data();
    void lostReleasePutsTheRangeBack();
    void timeComesIntoTheRange_data();
    void timeComesIntoTheRange();
    void timeStaysWhilePlaying();
    void nothingForTheHistory();

    void cursors();
    void cursorAfterADoubleClick();
    void cursorOfARangeThatCame();
    void hoverShowsOnThePart();
    void leavingPaintsAnew();
    void paintsInItsOrder();
    void labels_data();
    void labels();
    void rangeOfOneMoment();
    void emptyAnimation();
    void repaintsOnlyItself();
    void followsTheScene();

private:
    QPoint body() const { return {300, 10}; }
    QImage picture() { return m_slider->grab().toImage(); }
    QVector<HandleNotes::Handle> handles();
    void compareRange(VxTime start, VxTime end) const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<HandleNotes> m_notes;
    std::unique_ptr<QWidget> m_window;
    VxTimeRangeSlider *m_slider = nullptr;
    std::unique_ptr<VxMouseDriver> m_mouse;
};

void TestTimeRangeSlider::init()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
    m_notes = std::make_unique<HandleNotes>(vxApp->getStyle());
    m_window = std::make_unique<QWidget>();
    m_window->resize(700, 100);
    m_slider = new VxTimeRangeSlider(m_window.get());
    m_slider->setGeometry(50, 40, 600, 20);
    m_slider->setStyle(m_notes.get());
    m_mouse = std::make_unique<VxMouseDriver>(m_slider);
    vxScene->setAnimRange(VxTimeRange(0, 4800));
    vxScene->setPlayRange(VxTimeRange(1600, 3200));
    vxScene->setTime(1600);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestTimeRangeSlider::cleanup()
{
    m_mouse.reset();
    m_window.reset();
    m_notes.reset();
    m_app.reset();
    m_guard.reset();
}

void TestTimeRangeSlider::compareRange(VxTime start, VxTime end) const
{
    QCOMPARE(vxScene->getPlayRange().getStart(), start);
    QCOMPARE(vxScene->getPlayRange().getEnd(), end);
}

QVector<HandleNotes::Handle> TestTimeRangeSlider::handles()
{
    m_notes->handles.clear();
    picture();
    return m_notes->handles;
}

void TestTimeRangeSlider::doubleClickWithNothingSaved()
{
    vxScene->setPlayRange(VxTimeRange(0, 4800));
    const QSignalSpy changes(vxScene, &VxScene::playRangeChanged);
    m_mouse->doubleClick(body());
    QCOMPARE(changes.count(), 0);
    compareRange(0, 4800);
}

void TestTimeRangeSlider::doubleClickShowsAllAndGoesBack()
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

// What a drag of the body by 50 pixels, 400 ticks, comes to at the release.
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

void TestTimeRangeSlider::lostReleasePutsTheRangeBack_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<int>("x");
    for (const int x : {205, 300, 395}) {
        for (const char *how : {"escape", "hidden", "window"})
            QTest::addRow("%s, from %d", how, x) << QString::fromLatin1(how) << x;
    }
}

void TestTimeRangeSlider::lostReleasePutsTheRangeBack()
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

void TestTimeRangeSlider::timeComesIntoTheRange_data()
{
    QTest::addColumn<VxTime>("before");
    QTest::addColumn<VxTime>("after");

    QTest::newRow("left behind") << 1600 << 2400;
    QTest::newRow("inside") << 3040 << 3040;
    QTest::newRow("inside, between frames") << 3000 << 3040;
    QTest::newRow("beyond the end") << 4800 << 4000;
}

void TestTimeRangeSlider::timeComesIntoTheRange()
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

void TestTimeRangeSlider::cursors()
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

// The range changes while the mouse rests: the press tells what is there by then, the release what
// was hovered.
void TestTimeRangeSlider::cursorOfARangeThatCame()
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

// The mouse stands still, what lies beneath does not.
void TestTimeRangeSlider::cursorAfterADoubleClick()
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

void TestTimeRangeSlider::leavingPaintsAnew()
{
    m_mouse->moveTo(QPoint(210, 10));
    QCoreApplication::processEvents();
    PaintCount paints;
    m_slider->installEventFilter(&paints);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_slider, &leave);
    QTRY_VERIFY(paints.count > 0);
}

void TestTimeRangeSlider::hoverShowsOnThePart()
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
    // What is hovered at the press stays so while the mouse is held, and goes when it leaves.
    m_mouse->moveTo(body());
    m_mouse->press(body());
    m_mouse->moveTo(QPoint(100, -30));
    QCOMPARE(picture().pixelColor(QPoint(100, 0)), highlight);
    m_mouse->release(QPoint(100, -30));
    m_mouse->moveTo(QPoint(100, -30));
    QTRY_COMPARE(picture().pixelColor(QPoint(100, 0)), dark);
}

void TestTimeRangeSlider::paintsInItsOrder()
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

void TestTimeRangeSlider::labels_data()
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
void TestTimeRangeSlider::labels()
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
        // Above and below lie the lines of the border.
        const QRect inside = place.intersected(QRect(0, 1, m_slider->width(), 17));
        return image.copy(inside) == expected.copy(inside);
    };
    QVERIFY(look(startText, drawn.at(0).rect.right() + 2));
    QVERIFY(look(endText, drawn.at(1).rect.left() - 1 - metrics.horizontalAdvance(endText)));
}

// A range without a length has handles all the same: it can be seen where it lies.
void TestTimeRangeSlider::rangeOfOneMoment()
{
    vxScene->setPlayRange(VxTimeRange(2400, 2400));
    const QVector<HandleNotes::Handle> drawn = handles();
    QCOMPARE(drawn.size(), 2);
    QCOMPARE(drawn.at(0).rect, QRect(301, 1, 18, 18));
    QCOMPARE(drawn.at(1).rect, QRect(280, 1, 18, 18));
}

void TestTimeRangeSlider::emptyAnimation()
{
    vxScene->setAnimRange(VxTimeRange(0, 0));
    QVERIFY(handles().isEmpty());
    m_mouse->drag(body(), body() + QPoint(60, 0));
    compareRange(1600, 3200);
    QCOMPARE(picture().pixelColor(body()), m_slider->palette().dark().color());
}

void TestTimeRangeSlider::repaintsOnlyItself()
{
    QWidget neighbour(m_window.get());
    neighbour.setGeometry(0, 0, 700, 40);
    neighbour.lower();
    PaintCount slider;
    PaintCount window;
    PaintCount others;
    m_slider->installEventFilter(&slider);
    m_window->installEventFilter(&window);
    neighbour.installEventFilter(&others);
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

void TestTimeRangeSlider::followsTheScene()
{
    const QImage before = picture();
    PaintCount paints;
    m_slider->installEventFilter(&paints);
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

VX_TEST_MAIN(TestTimeRangeSlider)
#include "tst_vxtimerangeslider.moc"
