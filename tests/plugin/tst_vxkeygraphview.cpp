#include "keygraphviewtestbase.h"

#include <QtCore/QMetaMethod>
#include <QtGui/QWheelEvent>
#include <vxcore/vxmousebutton.h>

#include "vxtimeline/keygraph/keygraphpainter.h"

#include <cmath>
#include <limits>

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
    void aGraphThatIsGone();
    void paintsNothingWithoutAGraph();

    void firstViewShowsTheAnimationRange();
    void refitsWhenTheAnimationRangeChanges();
    void resizingKeepsTheTimeScale();
    void theRangeKeepsClearOfTheSides();
    void sidesWithoutRoomBetweenThem();

    void framing();
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

    void marksCarryTheirState();
    void marksOfPercentages();
    void curvesRunThroughTheirKeys();
    void colours_data();
    void colours();
    void labelsStayInTheirColumn();
    void gridLabelsNameTheUnit();
    void gridLabelsNeverOverlap_data();
    void gridLabelsNeverOverlap();
    void timeLine();
    void timeStepsPaintNoKeys();
    void changesPaintKeys();
    void outsideOfThePlayRangeIsShaded();
    void colourSchemesDiffer();

private:
    void turnWheel(const QPoint &delta, Qt::KeyboardModifiers modifiers,
                   const QPoint &position = QPoint(300, 100));
    QImage picture() { return view->grab().toImage(); }
    // The grid's labels.
    QVector<TextRecorder::Text> gridLabels();
};

void TestKeyGraphView::turnWheel(const QPoint &delta, Qt::KeyboardModifiers modifiers,
                                 const QPoint &position)
{
    QWheelEvent event(position, view->mapToGlobal(position), QPoint(), delta, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.get(), &event);
    QVERIFY(event.isAccepted());
}

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

void TestKeyGraphView::aGraphThatIsGone()
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

void TestKeyGraphView::sidesWithoutRoomBetweenThem()
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

void TestKeyGraphView::marksCarryTheirState()
{
    RecordingStyle style;
    view->setStyle(&style);
    showView();
    x()->setKey(0, 10.0f, VxKeyInterp::Linear);
    x()->setKey(1600, 10.0f, VxKeyInterp::Constant);
    x()->setKey(3200, 10.0f, VxKeyInterp::Tcb);
    x()->setKey(160000, 10.0f, VxKeyInterp::Linear); // far to the right
    showProperties({x()});
    select(channel(0), {1});
    view->doStyling();
    style.marks.clear();
    picture();
    QCOMPARE(style.marks.size(), 3);
    const quint32 kinds[] = {0x2, 0x4 | 0x8000, 0x400000};
    for (int i = 0; i < 3; ++i) {
        const RecordingStyle::Mark &mark = style.marks.at(i);
        QCOMPARE(mark.rect, QRect(placeOf(i * 10, 10.0) - QPoint(4, 4), QSize(9, 9)));
        QCOMPARE(quint32(mark.state) & (0x8000u | 0x2u | 0x4u | 0x400000u), kinds[i]);
        QCOMPARE(mark.type, 0xF00);
    }
    view->setStyle(nullptr);
}

void TestKeyGraphView::marksOfPercentages()
{
    RecordingStyle style;
    view->setStyle(&style);
    showView();
    VxFloatProperty *smile = addProperty(QStringLiteral("Smile"));
    smile->setPercentage(true);
    smile->setKey(160, 0.125f, VxKeyInterp::Linear);
    showProperties({smile});
    style.marks.clear();
    view->doStyling();
    picture();
    QCOMPARE(style.marks.size(), 1);
    QCOMPARE(style.marks.at(0).rect.center(), placeOf(1, 12.5));
    view->setStyle(nullptr);
}

void TestKeyGraphView::curvesRunThroughTheirKeys()
{
    showView();
    y()->setKey(0, 5.0f, VxKeyInterp::Linear);
    y()->setKey(160 * 20, 25.0f, VxKeyInterp::Constant);
    y()->setKey(160 * 40, 10.0f, VxKeyInterp::Linear);
    showProperties({y()});
    const QImage image = picture();
    const QColor color = KeyGraphLook::of(view.get()).channelColor(channel(0).getColor(), 0);
    const auto isCurve = [&](int frame, double value) {
        const QPoint place = placeOf(frame, value);
        for (int dy = -1; dy <= 1; ++dy) {
            const QColor seen = image.pixelColor(place + QPoint(0, dy));
            if (qAbs(seen.hue() - color.hue()) < 12 && seen.saturation() > 90)
                return true;
        }
        return false;
    };
    QVERIFY(isCurve(10, 15.0));
    QVERIFY(isCurve(5, 10.0));
    QVERIFY(isCurve(30, 25.0));
    QVERIFY(isCurve(55, 10.0));
    QVERIFY(!isCurve(10, 20.0));
    QVERIFY(!isCurve(30, 17.0));
}

void TestKeyGraphView::colours_data()
{
    QTest::addColumn<QColor>("own");
    QTest::addColumn<int>("number");
    QTest::addColumn<QColor>("shown");
    const QColor dark(100, 20, 20);
    const QColor light(200, 30, 30);
    QTest::newRow("dark, first") << dark << 0 << dark.darker(185);
    QTest::newRow("dark, second") << dark << 1 << dark.darker(182);
    QTest::newRow("light, fifth") << light << 4 << light.lighter(173);
    QTest::newRow("the sixth is as the first") << light << 5 << light.lighter(185);
    QTest::newRow("just dark") << QColor(128, 0, 0) << 0 << QColor(128, 0, 0).darker(185);
    QTest::newRow("just light") << QColor(129, 0, 0) << 0 << QColor(129, 0, 0).lighter(185);
    QTest::newRow("none of its own") << QColor() << 0 << QColor(10, 90, 10).darker(185);
}

void TestKeyGraphView::colours()
{
    QFETCH(QColor, own);
    QFETCH(int, number);
    KeyGraphLook look;
    look.text = QColor(10, 90, 10);
    QTEST(look.channelColor(own, number), "shown");
}

void TestKeyGraphView::labelsStayInTheirColumn()
{
    showView();
    node->setLabel(QStringLiteral("A Node With Quite A Long Name Indeed"));
    showProperties({x()});
    const QRect area(0, 0, 500, 20);
    const auto coloured = [&](int left, int right) {
        const QImage image = picture();
        int count = 0;
        for (int px = left; px < right; ++px) {
            for (int py = area.top(); py < area.bottom(); ++py)
                count += image.pixelColor(px, py).saturation() > 110 ? 1 : 0;
        }
        return count;
    };
    view->setLeftBackgroundWidth(100);
    QVERIFY(coloured(0, 100) > 50);
    QCOMPARE(coloured(110, 500), 0);
    view->setLeftBackgroundWidth(400);
    QVERIFY(coloured(110, 400) > 50);
}

QVector<TextRecorder::Text> TestKeyGraphView::gridLabels()
{
    TextRecorder recorder(view->size());
    view->render(&recorder, QPoint(), QRegion(), QWidget::RenderFlags());
    return recorder.texts;
}

void TestKeyGraphView::gridLabelsNameTheUnit()
{
    showView();
    const auto ends = [this](const QString &unit) {
        int count = 0;
        for (const TextRecorder::Text &label : gridLabels())
            count += label.text.endsWith(unit) ? 1 : 0;
        return count;
    };
    const QString degrees(QChar(0xb0));
    VxFloatProperty *smile = addProperty(QStringLiteral("Smile"));
    smile->setPercentage(true);
    const auto show = [this](const QVector<VxProperty *> &properties) {
        graph->handleDopesheetPropertyListChanged(properties, false);
    };
    show({node->getXRotControl(), node->getZRotControl()});
    QVERIFY(ends(degrees) >= 3);
    show({node->getXRotControl(), x()});
    QCOMPARE(ends(degrees), 0);
    show({smile});
    QVERIFY(ends(QStringLiteral("%")) >= 3);
    show({smile, node->getXRotControl()});
    QCOMPARE(ends(QStringLiteral("%")), 0);
    show({});
    QCOMPARE(ends(degrees) + ends(QStringLiteral("%")), 0);
    show({smile});
    QVERIFY(ends(QStringLiteral("%")) >= 3);
    view->setKeyGraph(nullptr);
    view->setKeyGraph(graph.get());
    QVERIFY(ends(QStringLiteral("%")) >= 3);
}

void TestKeyGraphView::gridLabelsNeverOverlap_data()
{
    QTest::addColumn<int>("leftWidth");
    QTest::addColumn<int>("height");
    QTest::newRow("without sides") << 0 << 300;
    QTest::newRow("with a name column") << 220 << 300;
    QTest::newRow("low") << 220 << 60;
    QTest::newRow("hardly there") << 0 << 20;
}

// However the axes are zoomed and panned.
void TestKeyGraphView::gridLabelsNeverOverlap()
{
    QFETCH(int, leftWidth);
    QFETCH(int, height);
    view->setLeftBackgroundWidth(leftWidth);
    showView();
    view->resize(800, height);
    QCoreApplication::processEvents();
    showProperties({node->getXRotControl()});
    int most = 0;
    for (int i = 0; i < 60; ++i) {
        turnWheel(QPoint(0, i % 20 < 10 ? 90 : -85), i % 3 ? Qt::ShiftModifier : Qt::NoModifier);
        turnWheel(QPoint(0, i * 37 % 400 - 200),
                  i % 2 ? Qt::AltModifier : Qt::AltModifier | Qt::ShiftModifier);
        const QVector<TextRecorder::Text> labels = gridLabels();
        most = qMax(most, labels.size());
        for (int a = 0; a < labels.size(); ++a) {
            QVERIFY2(labels.at(a).rect.left() >= leftWidth - 1, qPrintable(labels.at(a).text));
            for (int b = a + 1; b < labels.size(); ++b)
                QVERIFY2(!labels.at(a).rect.adjusted(1, 1, -1, -1).intersects(labels.at(b).rect),
                         qPrintable(labels.at(a).text + ' ' + labels.at(b).text));
        }
    }
    QVERIFY2(most >= (height < 50 ? 1 : 3), qPrintable(QString::number(most)));
}

void TestKeyGraphView::timeLine()
{
    showView();
    vxScene->setTime(160 * 33);
    const int line = placeOf(33, 0).x();
    const QColor text = view->palette().color(view->foregroundRole());
    QCOMPARE(picture().pixelColor(line, 100), text);
    vxScene->setTime(160 * 34);
    QVERIFY(picture().pixelColor(line, 100) != text);
    QCOMPARE(picture().pixelColor(line + 10, 3), text);
    VxMouseDriver mouse(view.get());
    mouse.moveTo(QPoint(line + 12, 100));
    QCOMPARE(picture().pixelColor(line + 10, 100), view->palette().color(QPalette::Highlight));
    QCOMPARE(view->cursor().shape(), Qt::SplitHCursor);
    mouse.moveTo(QPoint(line + 13, 100));
    QCOMPARE(picture().pixelColor(line + 10, 100), text);
    QVERIFY(view->cursor().shape() != Qt::SplitHCursor);
}

void TestKeyGraphView::timeStepsPaintNoKeys()
{
    RecordingStyle style;
    view->setStyle(&style);
    showView();
    showProperties({makeKeys(x(), "abcdefghijk")});
    picture();
    style.marks.clear();
    vxScene->setTime(160 * 7);
    picture();
    view->doUpdate();
    picture();
    QCOMPARE(style.marks.size(), 0);
    view->setStyle(nullptr);
}

void TestKeyGraphView::changesPaintKeys()
{
    RecordingStyle style;
    view->setStyle(&style);
    showView();
    showProperties({makeKeys(x(), "abc")});
    const auto countMarks = [&] {
        style.marks.clear();
        picture();
        return style.marks.size();
    };
    countMarks();
    QCOMPARE(countMarks(), 0);
    makeKeys(x(), "....d");
    QCOMPARE(countMarks(), 4);
    VxKeyMessage message;
    message.selectedKeys[x()] = {2};
    peer->send(message);
    QCOMPARE(countMarks(), 4);
    QCOMPARE(countMarks(), 0);
    view->panStart();
    view->panAdjust(QPoint(0, 5));
    QCOMPARE(countMarks(), 4);
    node->setLabel(QStringLiteral("Another Name"));
    QCOMPARE(countMarks(), 4);
    view->setStyle(nullptr);
}

void TestKeyGraphView::outsideOfThePlayRangeIsShaded()
{
    showView();
    vxScene->setPlayRange(VxTimeRange(160 * 10, 160 * 20));
    const QImage image = picture();
    const auto lightness = [&](int frame) {
        double sum = 0;
        for (int px = 1; px < 9; ++px)
            sum += image.pixelColor(placeOf(frame, 0) + QPoint(px, -35)).lightnessF();
        return sum;
    };
    QVERIFY(lightness(5) < lightness(15));
    QVERIFY(lightness(25) < lightness(15));
}

void TestKeyGraphView::colourSchemesDiffer()
{
    showView();
    showProperties({makeKeys(x(), "a..b")});
    const QImage dark = picture();
    const auto *button = view->findChild<VxMouseButton *>(QStringLiteral("KeyGraphPanBtn"));
    const QImage darkButton = button->normalPixmap().toImage();
    vxApp->getStyle()->setColorScheme(VxStyle::ColorScheme::Light);
    QCoreApplication::processEvents();
    QVERIFY(picture().pixelColor(500, 10).lightnessF() > dark.pixelColor(500, 10).lightnessF());
    QVERIFY(button->normalPixmap().toImage() != darkButton);
}

QTEST_MAIN(TestKeyGraphView)
#include "tst_vxkeygraphview.moc"
