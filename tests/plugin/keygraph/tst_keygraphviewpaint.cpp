#include "keygraphviewtestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keygraph/paint/keygraphpainter.h"

#include <vxcore/vxmousebutton.h>

using namespace KeyDrawing;

// What the key graph view shows: marks, curves, labels, grid and the line of the current time.
class TestKeyGraphViewPaint : public QObject, private KeyGraphViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpView(); }
    void cleanup() { tearDownView(); }

    void marksCarryTheirState();
    void marksOfPercentages();
    void curvesRunThroughTheirKeys();
    void curvesFollowTheView();
    void colours_data();
    void colours();
    void labelsStayInTheirColumn();
    void gridLabelsNameTheUnit();
    void gridLabelsNeverOverlap_data();
    void gridLabelsNeverOverlap();
    void timeLine();
    void timeLineAtTheEdges();
    void timeStepsPaintNoKeys();
    void changesPaintKeys();
    void anotherStylePaintsKeys();
    void theLastLabelSetsTheWidth();
    void theSceneIsFollowed();
    void outsideOfThePlayRangeIsShaded();
    void thePlayRangeIncludesItsEnds();
    void frameLinesSpareTheirNumbers();
    void colourSchemesDiffer();

private:
    // The grid's labels.
    QVector<TextRecorder::Text> gridLabels();
};

void TestKeyGraphViewPaint::marksCarryTheirState()
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

void TestKeyGraphViewPaint::marksOfPercentages()
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

void TestKeyGraphViewPaint::curvesRunThroughTheirKeys()
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

// Sampled anew: a picture after a change of the view is the one that a fresh view would have.
void TestKeyGraphViewPaint::curvesFollowTheView()
{
    showView();
    for (int i = 0; i < 9; ++i)
        x()->setKey(i * 7 * 160, float(9 + i * 5 % 8), VxKeyInterp::Tcb);
    showProperties({x()});
    picture();
    const auto isFresh = [this] {
        const QImage shown = picture();
        graph->handleValueChanged(VxTimeRange::all());
        return shown == picture();
    };
    turnWheel(QPoint(-300, 0), Qt::NoModifier);
    QVERIFY(isFresh());
    turnWheel(QPoint(0, 160), Qt::ShiftModifier);
    QVERIFY(isFresh());
    turnWheel(QPoint(0, 130), Qt::NoModifier);
    QVERIFY(isFresh());
    view->resize(900, 300);
    QCoreApplication::processEvents();
    QVERIFY(isFresh());
    // After its last key a curve continues to the edge.
    const QImage image = picture();
    const int row = qRound(view->getScale().y(double(x()->getKeyValue(8))));
    for (const int column : {700, 890}) {
        int saturation = 0;
        for (int dy = -1; dy <= 1; ++dy)
            saturation = qMax(saturation, image.pixelColor(column, row + dy).saturation());
        QVERIFY2(saturation > 90, qPrintable(QString::number(column)));
    }
}

void TestKeyGraphViewPaint::colours_data()
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

void TestKeyGraphViewPaint::colours()
{
    QFETCH(QColor, own);
    QFETCH(int, number);
    KeyGraphLook look;
    look.text = QColor(10, 90, 10);
    QTEST(look.channelColor(own, number), "shown");
}

void TestKeyGraphViewPaint::labelsStayInTheirColumn()
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

QVector<TextRecorder::Text> TestKeyGraphViewPaint::gridLabels()
{
    TextRecorder recorder(view->size());
    view->render(&recorder, QPoint(), QRegion(), QWidget::RenderFlags());
    return recorder.texts;
}

void TestKeyGraphViewPaint::gridLabelsNameTheUnit()
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
    QCOMPARE(ends(QStringLiteral("%")), 0);
    view->setKeyGraph(graph.get());
    QVERIFY(ends(QStringLiteral("%")) >= 3);
    VxKeyGraph empty;
    view->setKeyGraph(&empty);
    QCOMPARE(ends(QStringLiteral("%")), 0);
    view->setKeyGraph(nullptr);
}

void TestKeyGraphViewPaint::gridLabelsNeverOverlap_data()
{
    QTest::addColumn<int>("leftWidth");
    QTest::addColumn<int>("rightWidth");
    QTest::addColumn<int>("height");
    QTest::newRow("without sides") << 0 << 0 << 300;
    QTest::newRow("with a name column") << 220 << 0 << 300;
    QTest::newRow("with both sides") << 220 << 130 << 300;
    QTest::newRow("low") << 220 << 0 << 60;
    QTest::newRow("20 pixels high") << 0 << 0 << 20;
}

// However the axes are zoomed and panned.
void TestKeyGraphViewPaint::gridLabelsNeverOverlap()
{
    QFETCH(int, leftWidth);
    QFETCH(int, rightWidth);
    QFETCH(int, height);
    view->setLeftBackgroundWidth(leftWidth);
    view->setRightBackgroundWidth(rightWidth);
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
            const QRectF &rect = labels.at(a).rect;
            QVERIFY2(rect.left() >= leftWidth - 1, qPrintable(labels.at(a).text));
            QVERIFY2(rect.right() <= 800 - rightWidth + 1, qPrintable(labels.at(a).text));
            QVERIFY2(rect.top() >= (height < 50 ? -1 : 0), qPrintable(labels.at(a).text));
            for (int b = a + 1; b < labels.size(); ++b)
                QVERIFY2(!labels.at(a).rect.adjusted(1, 1, -1, -1).intersects(labels.at(b).rect),
                         qPrintable(labels.at(a).text + ' ' + labels.at(b).text));
        }
    }
    QVERIFY2(most >= (height < 50 ? 1 : 3), qPrintable(QString::number(most)));
}

void TestKeyGraphViewPaint::timeLine()
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

// The first column and the last one are columns like others.
void TestKeyGraphViewPaint::timeLineAtTheEdges()
{
    showView();
    const QColor text = view->palette().color(view->foregroundRole());
    const auto columnOf = [this](VxTime time) {
        vxScene->setTime(time);
        return int(view->getScale().x(time));
    };
    turnWheel(QPoint(-48, 0), Qt::NoModifier); // time 0 from column 24 to the first
    QCOMPARE(columnOf(0), 0);
    QCOMPARE(picture().pixelColor(0, 100), text);
    turnWheel(QPoint(-2, 0), Qt::NoModifier);
    QCOMPARE(view->getScale().x(0), -1.0);
    QVERIFY(picture().pixelColor(0, 100) != text);
    QCOMPARE(columnOf(16 * 800), 799);
    QCOMPARE(picture().pixelColor(799, 200), text);
    QCOMPARE(columnOf(16 * 801), 800);
    QVERIFY(picture().pixelColor(799, 200) != text);
}

void TestKeyGraphViewPaint::timeStepsPaintNoKeys()
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

void TestKeyGraphViewPaint::changesPaintKeys()
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

void TestKeyGraphViewPaint::anotherStylePaintsKeys()
{
    showView();
    showProperties({makeKeys(x(), "abc")});
    picture();
    RecordingStyle style;
    view->setStyle(&style);
    picture();
    QCOMPARE(style.marks.size(), 3);
    style.marks.clear();
    picture();
    QCOMPARE(style.marks.size(), 0);
    QFont font = view->font();
    font.setPixelSize(20);
    view->setFont(font);
    picture();
    QCOMPARE(style.marks.size(), 3);
    view->setStyle(nullptr);
}

// Also the one of which only the upper part is seen.
void TestKeyGraphViewPaint::theLastLabelSetsTheWidth()
{
    showView();
    view->setLeftBackgroundWidth(300);
    const auto top = [this](int number) { // of a label
        const KeyGraphLook look = KeyGraphLook::of(view.get());
        return look.margin + number * (look.label.getHeight() + look.margin);
    };
    QVector<VxProperty *> properties;
    for (int i = 0; i < 5; ++i)
        properties += addProperty(QStringLiteral("Row %1").arg(i));
    graph->handleDopesheetPropertyListChanged(properties, false);
    view->resize(800, top(4) + 8);
    QCoreApplication::processEvents();
    const QImage before = picture();
    properties.last()->setLabel(QStringLiteral("AAAAAAAAAAAAAAAAAA"));
    QVERIFY(picture().copy(0, top(4), 300, 8) != before.copy(0, top(4), 300, 8));
}

void TestKeyGraphViewPaint::theSceneIsFollowed()
{
    showView();
    QCoreApplication::processEvents();
    VxPaintWatch paints(view.get());
    const auto isPainted = [&paints](const auto &change) {
        QCoreApplication::processEvents();
        paints.count = 0;
        change();
        QCoreApplication::processEvents();
        return paints.count > 0;
    };
    QVERIFY(!isPainted([] {}));
    QVERIFY(isPainted([] { vxScene->setTime(160); }));
    QVERIFY(isPainted([] { vxScene->setPlayRange(VxTimeRange(160, 1600)); }));
    QVERIFY(isPainted([] { vxScene->setTimeStep(200); }));
    QVERIFY(isPainted([] { vxScene->setAnimRange(VxTimeRange(0, 16000)); }));
}

void TestKeyGraphViewPaint::outsideOfThePlayRangeIsShaded()
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

// The first and the last column of the range belong to it.
void TestKeyGraphViewPaint::thePlayRangeIncludesItsEnds()
{
    showView();
    vxScene->setPlayRange(VxTimeRange(160 * 10 + 80, 160 * 20 + 80)); // between lines of the grid
    const QImage image = picture();
    const auto color = [&image](int column) { return image.pixelColor(column, 115); };
    const int start = placeOf(10, 0).x() + 5;
    const int end = placeOf(20, 0).x() + 5;
    QCOMPARE(color(start), color(start + 1));
    QVERIFY(color(start - 1) != color(start));
    QCOMPARE(color(end), color(start));
    QVERIFY(color(end + 1) != color(end));
}

// Lines end where their frame numbers begin.
void TestKeyGraphViewPaint::frameLinesSpareTheirNumbers()
{
    showView();
    vxScene->setPlayRange(vxScene->getAnimRange());
    const KeyGraphLook look = KeyGraphLook::of(view.get());
    const QImage image = picture();
    const int bottom = 300 - look.axis.getHeight();
    const auto isLine = [&image](int column, int row) {
        return image.pixel(column, row) != image.pixel(column + 2, row);
    };
    int lines = 0;
    for (const TextRecorder::Text &label : gridLabels()) {
        if (label.rect.bottom() < 295 || label.text == QLatin1String("60")) // the current time
            continue;
        const int column = placeOf(label.text.toInt(), 0).x();
        QVERIFY(isLine(column, bottom - 1));
        QVERIFY(!isLine(column, bottom));
        ++lines;
    }
    QVERIFY(lines >= 5);
}

void TestKeyGraphViewPaint::colourSchemesDiffer()
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

VX_TEST_MAIN(TestKeyGraphViewPaint)
#include "tst_keygraphviewpaint.moc"
