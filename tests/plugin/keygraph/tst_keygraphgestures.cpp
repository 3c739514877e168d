#include "keygraphviewtestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QtGui/QPainter>
#include <QtWidgets/QMenu>
#include <vxcore/vxviewportmgr.h>

using namespace KeyDrawing;

// Details of the key graph view: single mouse events without the others of a gesture
// before them, ends of ranges between frames, and the legend to the pixel.
class TestKeyGraphGestures : public QObject, private KeyGraphViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void neighboursKeepTheirDistance_data();
    void neighboursKeepTheirDistance();
    void aPressOpensNoHold();
    void channelsRemovedDuringADrag();

    void timeIsCutBeforeItIsRounded();
    void timeKeepsItsDistanceFromTheMouse();
    void theLineIsPlainAfterItsDrag();
    void theLineStaysMarkedBeyondTheEdge();
    void theLineIsPlainOnceKeysMove();
    void hoveringRepaintsTheLineAlone();

    void panningWithTheRightButtonOpensNoMenu();

    void pressOnAKeyShowsTheHand();
    void pressOnSpaceResetsTheCursor();
    void doubleClicksAreAcceptedOnKeys();
    void doubleClickClearsFormerHits();

    void marksAreOfTheWidget();
    void timeLineIsCutToThePixel();
    void legend_data();
    void legend();

private:
    // Sends an event to the view, without the mouse moves that would precede it.
    bool send(QEvent::Type type, const QPoint &place);
    QImage picture() const { return view->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    QColor lineColor() const { return view->palette().color(view->foregroundRole()); }

    std::unique_ptr<VxMouseDriver> m_mouse;
};

void TestKeyGraphGestures::init()
{
    setUpView();
    showView();
    m_mouse = std::make_unique<VxMouseDriver>(view.get());
    m_mouse->moveTo(QPoint(790, 290));
}

void TestKeyGraphGestures::cleanup()
{
    m_mouse.reset();
    tearDownView();
}

bool TestKeyGraphGestures::send(QEvent::Type type, const QPoint &place)
{
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, view->mapToGlobal(place), Qt::LeftButton,
                      isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    event.setAccepted(true);
    static_cast<QObject *>(view.get())->event(&event);
    return event.isAccepted();
}

void TestKeyGraphGestures::neighboursKeepTheirDistance_data()
{
    QTest::addColumn<int>("frames");
    QTest::newRow("to the right") << 1;
    QTest::newRow("to the left") << -1;
}

// In a single step: the foremost key moves first, so that no target is occupied.
void TestKeyGraphGestures::neighboursKeepTheirDistance()
{
    QFETCH(int, frames);
    showProperties({makeKeys(x(), "..abcd")});
    select(channel(0), {0, 1, 2, 3});
    const QPoint start = placeOfKey(x(), 1);
    m_mouse->press(start);
    m_mouse->moveTo(start + QPoint(10 * frames, 0));
    const int first = 160 * (2 + frames);
    QCOMPARE(timesOf(x()), QVector<int>({first, first + 160, first + 320, first + 480}));
    m_mouse->release(start + QPoint(10 * frames, 0));
}

// The hold of a drag begins with its first move.
void TestKeyGraphGestures::aPressOpensNoHold()
{
    showProperties({makeKeys(x(), "..a..b")});
    const QPoint start = placeOfKey(x(), 1);
    m_mouse->press(start);
    makeKeys(y(), "a..b");
    m_mouse->release(start);
    QCOMPARE(undoTexts(), QStringList());
}

// A listener of the change shows other curves. The removed ones are not reported.
void TestKeyGraphGestures::channelsRemovedDuringADrag()
{
    showProperties({makeKeys(x(), "..a..b")});
    m_mouse->press(placeOfKey(x(), 1));
    connect(x(), &VxProperty::valueChanged, view.get(),
            [this] { graph->handleDopesheetPropertyListChanged({}, false); });
    messages.clear();
    m_mouse->moveTo(placeOf(8, 12.0));
    QVERIFY(graph->getChannels().isEmpty());
    QVERIFY(messages.isEmpty());
    m_mouse->release(placeOf(8, 12.0));
    QCOMPARE(x()->getKeyTime(1), 160 * 8);
    QCOMPARE(undoTexts(), QStringList(QStringLiteral("Move Keys")));
}

// The play range ends between frames 70 and 71, nearer to the latter.
void TestKeyGraphGestures::timeIsCutBeforeItIsRounded()
{
    vxScene->setPlayRange(VxTimeRange(90, 160 * 70 + 100));
    const QPoint line = placeOf(60, 0);
    m_mouse->moveTo(line);
    m_mouse->press(line);
    m_mouse->moveTo(QPoint(790, 100));
    QCOMPARE(vxScene->getTime(), 160 * 71);
    m_mouse->moveTo(QPoint(0, 100));
    QCOMPARE(vxScene->getTime(), 160);
    m_mouse->release(QPoint(0, 100));
}

// Grabbed two pixels to the right of the line, the mouse stays there.
void TestKeyGraphGestures::timeKeepsItsDistanceFromTheMouse()
{
    const QPoint line = placeOf(60, 0);
    m_mouse->moveTo(line + QPoint(2, 0));
    m_mouse->press(line + QPoint(2, 0));
    m_mouse->moveTo(line + QPoint(-94, 0));
    QCOMPARE(vxScene->getTime(), 160 * 50);
    m_mouse->release(line + QPoint(-94, 0));
}

void TestKeyGraphGestures::theLineIsPlainAfterItsDrag()
{
    const QPoint line(placeOf(60, 0).x(), 100);
    m_mouse->moveTo(line);
    QCOMPARE(picture().pixelColor(line), view->palette().color(QPalette::Highlight));
    m_mouse->press(line);
    QCOMPARE(picture().pixelColor(line), view->palette().color(QPalette::Highlight));
    m_mouse->release(line);
    QCOMPARE(picture().pixelColor(line), lineColor());
    QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
    // What follows without a move is a rubber band.
    send(QEvent::MouseButtonPress, line);
    send(QEvent::MouseMove, line + QPoint(-100, 0));
    QCOMPARE(vxScene->getTime(), 160 * 60);
    send(QEvent::MouseButtonRelease, line);
}

void TestKeyGraphGestures::theLineStaysMarkedBeyondTheEdge()
{
    const QColor marked = view->palette().color(QPalette::Highlight);
    const QPoint line = placeOf(60, 0);
    m_mouse->moveTo(line);
    m_mouse->press(line);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(view.get(), &leave);
    QCOMPARE(picture().pixelColor(line.x(), 100), marked);
    QCOMPARE(view->cursor().shape(), Qt::SplitHCursor);
    m_mouse->release(line);
    QCOMPARE(picture().pixelColor(line.x(), 100), lineColor());
}

// A press on a key right after the line was hovered.
void TestKeyGraphGestures::theLineIsPlainOnceKeysMove()
{
    showProperties({makeKeys(x(), "..a..b")});
    const QPoint line = placeOf(60, 0);
    m_mouse->moveTo(line);
    QCOMPARE(picture().pixelColor(line.x(), 100), view->palette().color(QPalette::Highlight));
    const QPoint key = placeOfKey(x(), 1);
    send(QEvent::MouseButtonPress, key);
    send(QEvent::MouseMove, key + QPoint(0, 10));
    QCOMPARE(picture().pixelColor(line.x(), 100), lineColor());
    send(QEvent::MouseButtonRelease, key + QPoint(0, 10));
}

// Without the picture of a grab, which paints in any case.
void TestKeyGraphGestures::hoveringRepaintsTheLineAlone()
{
    VxPaintWatch paints(view.get());
    const auto paintsAt = [this, &paints](const QPoint &place) {
        QCoreApplication::processEvents();
        paints.count = 0;
        m_mouse->moveTo(place);
        QCoreApplication::processEvents();
        return paints.count;
    };
    const QPoint line = placeOf(60, 0);
    paintsAt(line - QPoint(40, 0));
    QCOMPARE(paintsAt(line - QPoint(30, 0)), 0);
    QVERIFY(paintsAt(line) > 0);
    QCOMPARE(paintsAt(line + QPoint(1, 0)), 0);
    QVERIFY(paintsAt(line + QPoint(30, 0)) > 0);
    QCOMPARE(paintsAt(line + QPoint(40, 0)), 0);
}

void TestKeyGraphGestures::panningWithTheRightButtonOpensNoMenu()
{
    VxViewportMgr *manager = window->getViewportMgr();
    manager->setOperation(manager->getMouseBtnAccelerator(Qt::RightButton, Qt::NoModifier),
                          VxViewportMgr::Pan);
    bool opened = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, [&opened] {
        if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
            opened = true;
            menu->close();
        }
    });
    timer.start(1);
    const double former = view->getScale().offsetY;
    m_mouse->drag(QPoint(300, 100), QPoint(300, 130), Qt::RightButton);
    QCOMPARE(view->getScale().offsetY, former + 30);
    QVERIFY(!opened);
    QVERIFY(!QWidget::mouseGrabber());
}

void TestKeyGraphGestures::pressOnAKeyShowsTheHand()
{
    showProperties({makeKeys(x(), "..a..b")});
    send(QEvent::MouseButtonPress, placeOfKey(x(), 1));
    QCOMPARE(view->cursor().shape(), Qt::PointingHandCursor);
    send(QEvent::MouseButtonRelease, placeOfKey(x(), 1));
    QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
}

void TestKeyGraphGestures::pressOnSpaceResetsTheCursor()
{
    view->setCursor(Qt::PointingHandCursor);
    send(QEvent::MouseButtonPress, QPoint(300, 100));
    QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
    send(QEvent::MouseButtonRelease, QPoint(300, 100));
}

void TestKeyGraphGestures::doubleClicksAreAcceptedOnKeys()
{
    showProperties({makeKeys(x(), "..a..b")});
    QVERIFY(send(QEvent::MouseButtonDblClick, placeOfKey(x(), 1)));
    QVERIFY(!send(QEvent::MouseButtonDblClick, QPoint(300, 100)));
}

void TestKeyGraphGestures::doubleClickClearsFormerHits()
{
    showProperties({makeKeys(x(), "..a..b")});
    m_mouse->click(placeOfKey(x(), 1));
    send(QEvent::MouseButtonDblClick, QPoint(300, 100));
    QCOMPARE(vxScene->getTime(), 160 * 60);
}

void TestKeyGraphGestures::marksAreOfTheWidget()
{
    showProperties({makeKeys(x(), "..a..b")});
    RecordingStyle style;
    view->setStyle(&style);
    view->doUpdate();
    view->panStart();
    view->panAdjust(QPoint(0, 1));
    style.marks.clear();
    view->grab();
    QVERIFY(!style.marks.isEmpty());
    for (const RecordingStyle::Mark &mark : style.marks) {
        QVERIFY(mark.state & QStyle::State_Enabled);
        QCOMPARE(mark.type, 0xF00);
    }
    view->setStyle(nullptr);
}

// Sixteen ticks are a pixel; ten of them do not make the line step on.
void TestKeyGraphGestures::timeLineIsCutToThePixel()
{
    const int column = placeOf(33, 0).x();
    vxScene->setTime(160 * 33 + 10);
    QCOMPARE(picture().pixelColor(column, 100), lineColor());
    QVERIFY(picture().pixelColor(column + 1, 100) != lineColor());
}

void TestKeyGraphGestures::legend_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("whole") << 300;
    QTest::newRow("cut off on the left") << 70;
}

void TestKeyGraphGestures::legend()
{
    QFETCH(int, width);
    view->setLeftBackgroundWidth(width);
    const auto hideCurves = [this] {
        view->panStart();
        view->panAdjust(QPoint(0, 1000000));
    };
    // The scale that the graph has once it shows these.
    graph->handleDopesheetPropertyListChanged({x(), y()}, false);
    picture();
    graph->handleDopesheetPropertyListChanged({}, false);
    hideCurves();
    QImage expected = picture();
    {
        const VxStyle *style = vxApp->getStyle();
        const VxTextStyle text = style->textStyle(VxStyle::TS_GraphLabel);
        const int margin = style->metric(VxStyle::PM_VxBaseMargin);
        QPainter painter(&expected);
        painter.setFont(text.getFont());
        const char *names[] = {"Style_X_Axis", "Style_Y_Axis"};
        const VxFloatProperty *properties[] = {x(), y()};
        for (int n = 0; n < 2; ++n) {
            const QColor own = style->getInterfaceColor(QLatin1String(names[n]));
            const int factor = 185 - 3 * n;
            painter.setPen(own.value() < 129 ? own.darker(factor) : own.lighter(factor));
            const QString label = QStringLiteral("Hip: ") + properties[n]->getLabel();
            painter.drawText(margin, margin + n * (text.getHeight() + margin) + text.getAscent(),
                             text.getFontMetrics().elidedText(label, Qt::ElideLeft, width));
        }
    }
    graph->handleDopesheetPropertyListChanged({x(), y()}, false);
    hideCurves();
    const QImage found = picture();
    int worst = 0;
    for (int py = 0; py < found.height(); ++py) {
        for (int px = 0; px < found.width(); ++px) {
            const QColor a = found.pixelColor(px, py);
            const QColor b = expected.pixelColor(px, py);
            worst = qMax(worst, qMax(qAbs(a.red() - b.red()),
                                     qMax(qAbs(a.green() - b.green()), qAbs(a.blue() - b.blue()))));
        }
    }
    QVERIFY2(worst <= 3, qPrintable(QString::number(worst)));
}

VX_TEST_MAIN(TestKeyGraphGestures)
#include "tst_keygraphgestures.moc"
