#include "keygraphviewtestbase.h"
#include "testing/vxtestmain.h"

#include <QtCore/QMetaMethod>
#include <cmath>
#include <vxcore/vxmousebutton.h>

using namespace KeyDrawing;

class TestKeyGraphView : public QObject, private KeyGraphViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpView(); }
    void cleanup() { tearDownView(); }

    // First, because it counts the resizes of the process.
    void onlyTheFirstThreeResizesCenter();

    void signalsAndSlotsInOrder();
    void relaysTheChannelList();
    void anotherGraph();
    void aDestroyedGraph();
    void paintsNothingWithoutAGraph();

    void firstViewShowsTheAnimationRange();
    void refitsWhenTheAnimationRangeChanges();
    void resizingKeepsTheTimeScale();
    void theRangeKeepsClearOfTheSides();
    void sidesWithoutSpaceBetween();

    void framing();
    void channelsEnteringAnEmptyGraphAreFramed();
    void channelsWithoutKeysAreFramed();
    void framingOnlySelected();
    void framingWithoutKeys();
    void framingFlatKeys();
    void framingBelowZero();
    void panning();
    void zooming();
    void wheel_data();
    void wheel();
    void wheelWithAltTurnedByThePlatform();
    void wheelOverTimes();
    void buttonsArePresent();
    void buttonsDrive();
    void buttonsFollowThePixelRatio();
};

void TestKeyGraphView::onlyTheFirstThreeResizesCenter()
{
    view->resize(400, 200);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    const double middle = 752 * 16 * 0.5;
    for (const int width : {400, 500, 600}) {
        view->resize(width, 200);
        QTRY_COMPARE(view->width(), width);
        QCoreApplication::processEvents();
        QCOMPARE(view->getScale().x(middle), width * 0.5);
        QCOMPARE(view->getScale().originY, 100.0);
    }
    const KeyGraphScale former = view->getScale();
    view->resize(900, 300);
    QCoreApplication::processEvents();
    QCOMPARE(view->getScale().x(middle), 300.0);
    QCOMPARE(view->getScale().ticksPerPixel, former.ticksPerPixel);
    QCOMPARE(view->getScale().originY, 150.0);
    QCOMPARE(view->getScale().originX, 0.0);
}

void TestKeyGraphView::signalsAndSlotsInOrder()
{
    const QMetaObject &meta = VxKeyGraphView::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods += QString::fromLatin1(meta.method(i).methodSignature());
    QCOMPARE(methods,
             QStringList({"channelListChanged(QVector<VxProperty*>)", "frameKeys(bool)",
                          "frameKeys()", "setLeftBackgroundWidth(int)",
                          "setRightBackgroundWidth(int)", "doUpdate()", "doStyling()", "panStart()",
                          "panAdjust(QPoint)", "zoomStart()", "zoomAdjust(QPoint)"}));
}

void TestKeyGraphView::relaysTheChannelList()
{
    QSignalSpy lists(view.get(), &VxKeyGraphView::channelListChanged);
    graph->handleDopesheetPropertyListChanged({x(), y()}, false);
    QCOMPARE(lists.size(), 1);
    QCOMPARE(lists.at(0).at(0).value<QVector<VxProperty *>>(), QVector<VxProperty *>({x(), y()}));
}

void TestKeyGraphView::anotherGraph()
{
    VxKeyGraph other;
    QCoreApplication::processEvents();
    view->setKeyGraph(&other);
    QSignalSpy lists(view.get(), &VxKeyGraphView::channelListChanged);
    graph->handleDopesheetPropertyListChanged({x()}, false);
    QCOMPARE(lists.size(), 0);
    other.handleDopesheetPropertyListChanged({x()}, false);
    QCOMPARE(lists.size(), 1);
    view->setKeyGraph(nullptr);
    other.handleDopesheetPropertyListChanged({}, false);
    QCOMPARE(lists.size(), 1);
}

void TestKeyGraphView::aDestroyedGraph()
{
    showView();
    showProperties({makeKeys(x(), "a...b")});
    graph.reset();
    picture();
    QVERIFY(!view->getKeyGraph());
    VxMouseDriver mouse(view.get());
    mouse.drag(QPoint(20, 20), QPoint(300, 200));
    view->frameKeys();
}

void TestKeyGraphView::paintsNothingWithoutAGraph()
{
    showView();
    const auto painted = [this] {
        QImage image(800, 300, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        view->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        QImage plain = image;
        plain.fill(Qt::magenta);
        return image != plain;
    };
    QVERIFY(painted());
    view->setKeyGraph(nullptr);
    QVERIFY(!painted());
}

void TestKeyGraphView::firstViewShowsTheAnimationRange()
{
    view->resize(1000, 300);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    QTRY_COMPARE(view->getScale().x(0), 24.0);
    QCOMPARE(view->getScale().x(752 * 16), 976.0);
}

void TestKeyGraphView::refitsWhenTheAnimationRangeChanges()
{
    showView();
    vxScene->setAnimRange(VxTimeRange(1600, 20000));
    QCOMPARE(view->getScale().x(1600), 24.0);
    QCOMPARE(view->getScale().x(20000), 776.0);
    turnWheel(QPoint(0, 120), Qt::ShiftModifier);
    const KeyGraphScale chosen = view->getScale();
    vxScene->setAnimRange(VxTimeRange(0, 1000));
    QVERIFY(view->getScale() == chosen);
    vxScene->clear();
    vxScene->setAnimRange(VxTimeRange(0, 8000));
    QCOMPARE(view->getScale().x(8000), 776.0);
}

void TestKeyGraphView::resizingKeepsTheTimeScale()
{
    showView();
    const KeyGraphScale former = view->getScale();
    view->resize(1200, 400);
    QCoreApplication::processEvents();
    QVERIFY(view->getScale().hasTimesOf(former));
    QCOMPARE(view->getScale().originY, 200.0);
}

// Before it is shown, and when it is resized while the window takes its shape or the range changes
// after that.
void TestKeyGraphView::theRangeKeepsClearOfTheSides()
{
    view->setLeftBackgroundWidth(200);
    view->setRightBackgroundWidth(60);
    view->resize(1000, 300);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    picture();
    QCOMPARE(view->getScale().x(0), 224.0);
    QCOMPARE(view->getScale().x(752 * 16), 1000.0 - 84.0);
    vxScene->setAnimRange(VxTimeRange(1600, 20000));
    QCOMPARE(view->getScale().x(1600), 224.0);
    QCOMPARE(view->getScale().x(20000), 916.0);
}

void TestKeyGraphView::sidesWithoutSpaceBetween()
{
    view->setLeftBackgroundWidth(500);
    view->resize(600, 300);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    picture();
    QCOMPARE(view->getScale().x(0), 24.0);
    QCOMPARE(view->getScale().x(752 * 16), 576.0);
}

void TestKeyGraphView::framing()
{
    showView();
    showProperties({makeKeys(x(), ".....a.....b")}); // values 5 and 11
    view->frameKeys();
    QCOMPARE(view->getScale().y(5.0), 280.0);
    QCOMPARE(view->getScale().y(11.0), 20.0);
    QCOMPARE(view->getScale().x(0), 24.0);
}

void TestKeyGraphView::framingOnlySelected()
{
    showView();
    showProperties({makeKeys(x(), "a..b..c"), makeKeys(y(), "....d....e")});
    select(channel(0), {1});
    select(channel(1), {1});
    view->frameKeys(true);
    QCOMPARE(view->getScale().y(3.0), 280.0);
    QCOMPARE(view->getScale().y(9.0), 20.0);
}

void TestKeyGraphView::framingWithoutKeys()
{
    showView();
    showProperties({makeKeys(x(), "a..b"), y()});
    const KeyGraphScale former = view->getScale();
    view->frameKeys(true);
    QVERIFY(view->getScale() == former);
    x()->deleteAllKeys();
    view->frameKeys();
    QVERIFY(view->getScale() == former);
}

void TestKeyGraphView::framingFlatKeys()
{
    showView();
    x()->setKey(0, 7.0f, VxKeyInterp::Linear);
    x()->setKey(800, 7.0f, VxKeyInterp::Linear);
    showProperties({x()});
    view->frameKeys();
    QCOMPARE(view->getScale().y(7.0), 150.0);
    QCOMPARE(view->getScale().value(20.0), 8.0);
    QCOMPARE(view->getScale().value(280.0), 6.0);
}

void TestKeyGraphView::framingBelowZero()
{
    showView();
    x()->setKey(0, -26.0f, VxKeyInterp::Linear);
    x()->setKey(800, -13.0f, VxKeyInterp::Linear);
    showProperties({x()});
    view->frameKeys();
    QCOMPARE(view->getScale().y(-26.0), 280.0);
    QCOMPARE(view->getScale().y(0.0), 20.0);
}

void TestKeyGraphView::panning()
{
    showView();
    const KeyGraphScale former = view->getScale();
    view->panStart();
    view->panAdjust(QPoint(50, 30));
    view->panAdjust(QPoint(50, 20));
    QCOMPARE(view->getScale().offsetY, former.offsetY + 20);
    QVERIFY(view->getScale().hasTimesOf(former));
}

void TestKeyGraphView::zooming()
{
    showView();
    showProperties({makeKeys(x(), "a..b")});
    const KeyGraphScale former = view->getScale();
    view->zoomStart();
    view->zoomAdjust(QPoint(70, 100));
    const double factor = std::exp2(-(100 - former.valuePerPixel) / 200.0);
    QCOMPARE(view->getScale().valuePerPixel, former.valuePerPixel * factor);
    QCOMPARE(view->getScale().offsetY, former.offsetY / factor);
    QVERIFY(view->getScale().hasTimesOf(former));
}

void TestKeyGraphView::wheel_data()
{
    QTest::addColumn<int>("delta");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<double>("zoom"); // pixels
    QTest::addColumn<double>("pan");
    const auto row = [](const char *name, int delta, Qt::KeyboardModifiers modifiers, double zoom,
                        double pan) { QTest::newRow(name) << delta << modifiers << zoom << pan; };
    const double none = qQNaN();
    row("zooms", 120, Qt::NoModifier, 120, 0);
    row("zooms out", -120, Qt::NoModifier, -120, 0);
    row("with Ctrl zooms a little, truncated", 130, Qt::ControlModifier, 6, 0);
    row("with Alt pans", 120, Qt::AltModifier, none, 60);
    row("with Alt pans, truncated", -121, Qt::AltModifier, none, -60);
    row("with Alt and Ctrl pans a little", 125, Qt::AltModifier | Qt::ControlModifier, none, 12);
}

void TestKeyGraphView::wheel()
{
    QFETCH(int, delta);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(double, zoom);
    QFETCH(double, pan);
    showView();
    showProperties({makeKeys(x(), "a..b")});
    const KeyGraphScale former = view->getScale();
    turnWheel(QPoint(0, delta), modifiers);
    const double factor =
        std::isnan(zoom) ? 1.0 : std::exp2(-(zoom - former.valuePerPixel) / 200.0);
    QCOMPARE(view->getScale().valuePerPixel, former.valuePerPixel * factor);
    QCOMPARE(view->getScale().offsetY, former.offsetY / factor + pan);
    QVERIFY(view->getScale().hasTimesOf(former));
}

void TestKeyGraphView::wheelWithAltTurnedByThePlatform()
{
    showView();
    const KeyGraphScale former = view->getScale();
    turnWheel(QPoint(120, 0), Qt::AltModifier);
    QCOMPARE(view->getScale().offsetY, former.offsetY + 60);
    QVERIFY(view->getScale().hasTimesOf(former));
}

void TestKeyGraphView::wheelOverTimes()
{
    showView();
    const KeyGraphScale former = view->getScale();
    turnWheel(QPoint(0, 200), Qt::ShiftModifier, QPoint(300, 100));
    QCOMPARE(view->getScale().ticksPerPixel, 8.0);
    QCOMPARE(view->getScale().ticks(300), former.ticks(300));
    turnWheel(QPoint(0, -200), Qt::ShiftModifier, QPoint(300, 100));
    QCOMPARE(view->getScale().offsetX, former.offsetX);
    turnWheel(QPoint(0, 400), Qt::ShiftModifier | Qt::ControlModifier, QPoint(300, 100));
    QCOMPARE(view->getScale().ticksPerPixel, former.ticksPerPixel * std::exp2(-20.0 / 200.0));
    turnWheel(QPoint(0, -400), Qt::ShiftModifier | Qt::ControlModifier, QPoint(300, 100));
    QCOMPARE(view->getScale().ticks(300), former.ticks(300));
    turnWheel(QPoint(120, 0), Qt::NoModifier);
    QCOMPARE(view->getScale().offsetX, former.offsetX + 60);
    turnWheel(QPoint(0, -120), Qt::ShiftModifier | Qt::AltModifier);
    QCOMPARE(view->getScale().offsetX, former.offsetX);
    QCOMPARE(view->getScale().valuePerPixel, former.valuePerPixel);
    QCOMPARE(view->getScale().offsetY, former.offsetY);
}

void TestKeyGraphView::buttonsArePresent()
{
    showView();
    for (const char *name : {"KeyGraphPanBtn", "KeyGraphZoomBtn", "KeyGraphFrameBtn"}) {
        const auto *button = view->findChild<VxMouseButton *>(QLatin1String(name));
        QVERIFY2(button, name);
        QVERIFY(!button->toolTip().isEmpty());
        QVERIFY(!button->normalPixmap().isNull());
        QVERIFY(view->rect().contains(button->geometry()));
        QVERIFY(button->x() > 700);
    }
    view->setRightBackgroundWidth(200);
    const auto *button = view->findChild<VxMouseButton *>(QStringLiteral("KeyGraphFrameBtn"));
    QVERIFY(button->geometry().right() < 600);
}

void TestKeyGraphView::buttonsDrive()
{
    showView();
    showProperties({makeKeys(x(), ".....a.....b")});
    const KeyGraphScale former = view->getScale();
    const auto driver = [this](const char *name) {
        return VxMouseDriver(view->findChild<QWidget *>(QLatin1String(name)));
    };
    driver("KeyGraphPanBtn").drag(QPoint(8, 8), QPoint(30, 48));
    QCOMPARE(view->getScale().offsetY, former.offsetY + 40);
    QVERIFY(view->getScale().hasTimesOf(former));
    driver("KeyGraphZoomBtn").drag(QPoint(8, 8), QPoint(8, 58));
    const double factor = std::exp2(-(50 - former.valuePerPixel) / 200.0);
    QCOMPARE(view->getScale().valuePerPixel, former.valuePerPixel * factor);
    driver("KeyGraphFrameBtn").click(QPoint(8, 8));
    QCOMPARE(view->getScale().y(5.0), 280.0);
    QCOMPARE(view->getScale().y(11.0), 20.0);
}

// A window that is moved to another screen.
void TestKeyGraphView::buttonsFollowThePixelRatio()
{
    class ScaledView : public VxKeyGraphView
    {
    public:
        qreal ratio = 1.0;

    protected:
        int metric(PaintDeviceMetric metric) const override
        {
            if (metric == PdmDevicePixelRatio)
                return int(ratio);
            if (metric == PdmDevicePixelRatioScaled)
                return int(ratio * devicePixelRatioFScale());
            return VxKeyGraphView::metric(metric);
        }
    };
    RecordingStyle style;
    ScaledView scaled;
    scaled.setStyle(&style);
    scaled.setKeyGraph(graph.get());
    scaled.resize(400, 200);
    scaled.show();
    QVERIFY(QTest::qWaitForWindowExposed(&scaled));
    graph->handleDopesheetPropertyListChanged({makeKeys(x(), "abc")}, false);
    const auto *button = scaled.findChild<VxMouseButton *>(QStringLiteral("KeyGraphPanBtn"));
    scaled.grab();
    QCOMPARE(button->normalPixmap().devicePixelRatioF(), 1.0);
    const QSize size = button->size();
    style.marks.clear();
    scaled.grab();
    QCOMPARE(style.marks.size(), 0);
    scaled.ratio = 2.0;
    scaled.grab();
    QCOMPARE(style.marks.size(), 3);
    QCOMPARE(button->normalPixmap().devicePixelRatioF(), 2.0);
    QCOMPARE(button->size(), size);
    scaled.setStyle(nullptr);
}

void TestKeyGraphView::channelsEnteringAnEmptyGraphAreFramed()
{
    showView();
    VxFloatProperty *far = addProperty(QStringLiteral("Far"));
    far->setKey(0, 5000.0f, 0);
    far->setKey(1600, 9000.0f, 0);
    graph->handleDopesheetPropertyListChanged({far}, false);
    view->grab();
    QCOMPARE(qRound(view->getScale().y(5000)), view->height() - 20);
    QCOMPARE(qRound(view->getScale().y(9000)), 20);
    // A graph that shows some already keeps its scale.
    const double former = view->getScale().valuePerPixel;
    far->setKey(1600, 90000.0f, 0);
    graph->handleDopesheetPropertyListChanged({x()}, true);
    view->grab();
    QCOMPARE(view->getScale().valuePerPixel, former);
    graph->handleDopesheetPropertyListChanged({}, false);
    graph->handleDopesheetPropertyListChanged({far}, false);
    QCOMPARE(qRound(view->getScale().y(90000)), 20);
}

void TestKeyGraphView::channelsWithoutKeysAreFramed()
{
    showView();
    VxFloatProperty *still = addProperty(QStringLiteral("Still"));
    still->setValue(777.0f);
    graph->handleDopesheetPropertyListChanged({still}, false);
    view->grab();
    const double y = view->getScale().y(777);
    QVERIFY2(y > 20 && y < view->height() - 20, qPrintable(QString::number(y)));
}

VX_TEST_MAIN(TestKeyGraphView)
#include "tst_vxkeygraphview.moc"
