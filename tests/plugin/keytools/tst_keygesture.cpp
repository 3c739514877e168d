#include "keytools/keygesture.h"
#include "keytoolstage.h"
#include "testing/vxmousedriver.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"

#include <QLineEdit>
#include <QVBoxLayout>
#include <random>
#include <vxcore/vxmarkers.h>

namespace {

constexpr int PixelsPerFrame = 20;
/// An axis with 20 pixels a frame from the left edge on; a pixel upwards is half a unit of value.
class StripAxis : public VxTimeAxis
{
public:
    explicit StripAxis(QWidget *views)
        : m_views(views)
    {
    }
    int xOf(VxTime time) const override { return int(qint64(time) * PixelsPerFrame / Frame); }
    VxTime timeAt(int x) const override { return x * Frame / PixelsPerFrame; }
    VxTimeRange visible() const override { return {0, timeAt(m_views->width())}; }
    QWidget *overlayParent() const override { return m_views; }
    double valuePerPixel() const override { return 0.5; }

private:
    QWidget *m_views;
};

/// The keys of the stage, in views with an axis.
class GestureStage : public KeyToolStage
{
public:
    GestureStage()
        : field(new QLineEdit)
        , views(new QWidget)
        , axis(views)
    {
        auto *layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(field);
        layout->addWidget(views, 1);
        window.resize(800, 300);
        window.show();
        window.activateWindow();
        isActive = QTest::qWaitForWindowActive(&window);
        field->setFocus();
    }

    /// Begins a gesture with the mouse over frame 10.
    KeyGesture *begin(KeyGestureKind kind, int pivot = 0)
    {
        VxMouseDriver(views).moveTo({1, 1});
        gesture = KeyGesture::begin(&axis, kind, pivot);
        if (gesture)
            moveMouse({0, 0});
        return gesture;
    }
    static QPoint mouseStart() { return {10 * PixelsPerFrame, 100}; }
    void moveMouse(const QPoint &by, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        VxMouseDriver(views).moveTo(mouseStart() + by, modifiers);
    }
    void type(const QString &text) { QTest::keyClicks(gesture, text); }
    void press(Qt::Key key) { QTest::keyClick(gesture, key); }
    int entries() const { return vxApp->getUndoStack()->count(); }

    QWidget window;
    QLineEdit *field;
    QWidget *views;
    StripAxis axis;
    QPointer<KeyGesture> gesture;
    bool isActive = false;
};

} // namespace

Q_DECLARE_METATYPE(KeyGestureKind)

/// Modal gestures on keys, by mouse and keyboard; drawings of the keys before and after.
class tst_KeyGesture : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void amounts_data();
    void amounts();
    void mouseMovesInFrames();
    void mouseWithModifiers_data();
    void mouseWithModifiers();
    void mouseScalesAboutThePivot();
    void mouseChangesValues();
    void keysSnapToMarkers_data();
    void keysSnapToMarkers();
    void typedNumbersReplaceTheMouse();
    void headUpLine();
    void accepts_data();
    void accepts();
    void restores_data();
    void restores();
    void nothingToEdit();
    void unchangedMakesNoEntry();
    void zoomInMidGestureStays();
    void lineIsPainted();
    void randomGestures_data();
    void randomGestures();
};

void tst_KeyGesture::amounts_data()
{
    QTest::addColumn<KeyGestureKind>("kind");
    QTest::addColumn<int>("pivot");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, KeyGestureKind kind, int pivot, const char *typed,
                        const char *before, const char *after) {
        QTest::newRow(name) << kind << pivot << typed << before << after;
    };
    using K = KeyGestureKind;
    row("frames", K::Move, 0, "2", "A B . . c", ". . A B c");
    row("frames with a sign", K::Move, 0, "-1", ". A . . c", "A . . . c");
    row("seconds", K::Move, 0, "0.1s", "A . . . .", ". . . A .");
    row("arithmetic", K::Move, 0, "2*2-1", "A . . . .", ". . . A .");
    row("a sign alone", K::Move, 0, "-", "A B . c", "A B . c");
    row("a factor is no offset", K::Move, 0, "2*", "A B . c", "A B . c");
    row("copies", K::Duplicate, 0, "2", "A B . .", "a b A B");
    row("a factor about the playhead", K::ScaleTimes, 0, "2", ". . . A B . .", ". . . A . B .");
    row("a percentage", K::ScaleTimes, 1, "200%", "A B C . .", "A . B . C");
    row("about the end", K::ScaleTimes, 2, "50%", "A . B . C", ". . A B C");
    row("a factor with a sign", K::ScaleTimes, 1, "+2", "A B C . .", "A . B . C");
    row("backwards", K::ScaleTimes, 3, "-1", "A B . C", "C . B A");
    row("a value", K::MoveValues, 0, "2", "A b C", "C b E");
    row("a value with a sign", K::MoveValues, 0, "-2", "C b E", "A b C");
    row("an absolute value", K::MoveValues, 0, "=97", "B b C", "A b A");
    row("values about their mean", K::ScaleValues, 1, "-1", "A b C", "C b A");
    row("no number", K::ScaleValues, 1, "(", "A b C", "A b C");
}

// The playhead is on frame 3.
void tst_KeyGesture::amounts()
{
    QFETCH(KeyGestureKind, kind);
    QFETCH(int, pivot);
    QFETCH(QString, typed);
    QFETCH(QString, before);
    QFETCH(QString, after);
    GestureStage stage;
    vxScene->setTime(3 * Frame);
    stage.draw(before);
    vxApp->getUndoStack()->clear();
    QVERIFY(stage.begin(kind, pivot));
    stage.type(typed);
    const int frames = after.split(' ').size();
    QCOMPARE(stage.drawing(frames), after); // the preview
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.drawing(frames), after);
    QCOMPARE(stage.entries(), before == after ? 0 : 1);
    vxApp->getUndoStack()->undo();
    QCOMPARE(stage.drawing(before.split(' ').size()), before);
}

// Each preview starts from the keys at the start: only the last mouse position counts.
void tst_KeyGesture::mouseMovesInFrames()
{
    GestureStage stage;
    stage.draw("A B . . . c");
    vxApp->getUndoStack()->clear();
    QVERIFY(stage.begin(KeyGestureKind::Move));
    stage.moveMouse({2 * PixelsPerFrame, 30});
    QCOMPARE(stage.drawing(6), QString(". . A B . c"));
    stage.moveMouse({4 * PixelsPerFrame + 9, 30});
    QCOMPARE(stage.drawing(6), QString(". . . . A B"));
    stage.moveMouse({PixelsPerFrame - 9, -30});
    QCOMPARE(stage.drawing(6), QString(". A B . . c"));
    stage.moveMouse({9, 0});
    QCOMPARE(stage.drawing(6), QString("A B . . . c"));
    stage.moveMouse({3 * PixelsPerFrame, 0});
    QCOMPARE(stage.entries(), 0);
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.drawing(6), QString(". . . A B c"));
    QCOMPARE(stage.entries(), 1);
    QCOMPARE(vxApp->getUndoStack()->undoText(), QString("Move Keys"));
}

void tst_KeyGesture::mouseWithModifiers_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("pixels");
    QTest::addColumn<VxTime>("time");
    QTest::newRow("whole frames") << int(Qt::NoModifier) << 29 << Frame;
    QTest::newRow("Shift: no snapping") << int(Qt::ShiftModifier) << 29 << VxTime(232);
    QTest::newRow("Ctrl: a tenth of the speed") << int(Qt::ControlModifier) << 200 << Frame;
    QTest::newRow("both") << int(Qt::ControlModifier | Qt::ShiftModifier) << 50 << VxTime(40);
}

void tst_KeyGesture::mouseWithModifiers()
{
    QFETCH(int, modifiers);
    QFETCH(int, pixels);
    QFETCH(VxTime, time);
    GestureStage stage;
    stage.draw("A .");
    QVERIFY(stage.begin(KeyGestureKind::Move));
    stage.moveMouse({pixels, 0}, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(stage.channel->getKeyTime(0), time);
}

// The time that was under the mouse stays under it.
void tst_KeyGesture::mouseScalesAboutThePivot()
{
    GestureStage stage;
    vxScene->setTime(6 * Frame);
    stage.draw(". . . . . . A B C . . . .");
    QVERIFY(stage.begin(KeyGestureKind::ScaleTimes));
    stage.moveMouse({4 * PixelsPerFrame, 0}); // from frame 10 to 14, about 6
    QCOMPARE(stage.drawing(13), QString(". . . . . . A . B . C . ."));
    // The same key again: about the start, the end, the middle of the selection.
    stage.type("s");
    QVERIFY(stage.gesture->headUpText().contains("about Start"));
    stage.type("s");
    stage.type("s");
    QVERIFY(stage.gesture->headUpText().contains("about Middle"));
    stage.type("s");
    QVERIFY(stage.gesture->headUpText().contains("about Playhead"));
    QCOMPARE(stage.drawing(13), QString(". . . . . . A . B . C . ."));
    // Beside the pivot a pixel is no huge factor.
    stage.press(Qt::Key_Escape);
    vxScene->setTime(10 * Frame);
    QVERIFY(stage.begin(KeyGestureKind::ScaleTimes));
    stage.moveMouse({3, 0});
    QCOMPARE(stage.channel->getKeyTime(0), VxTime(6 * Frame - 4 * Frame / 10));
}

void tst_KeyGesture::mouseChangesValues()
{
    GestureStage stage;
    stage.draw("A b C");
    QVERIFY(stage.begin(KeyGestureKind::MoveValues));
    stage.moveMouse({50, -21}); // upwards, half a unit a pixel, rounded to tens
    QCOMPARE(stage.channel->getKeyValue(0), float('a' + 10));
    stage.moveMouse({50, -3}, Qt::ShiftModifier);
    QCOMPARE(stage.channel->getKeyValue(0), float('a' + 1.5));
    QCOMPARE(stage.channel->getKeyValue(1), float('b'));
    stage.press(Qt::Key_Escape);
    QVERIFY(stage.begin(KeyGestureKind::ScaleValues));
    stage.moveMouse({50, -51});
    QCOMPARE(stage.channel->getKeyValue(0), float('a') * 1.5F);
    stage.type("v");
    QVERIFY(stage.gesture->headUpText().contains("about Mean"));
    QCOMPARE(stage.channel->getKeyValue(0), float('a') - 0.5F);
}

void tst_KeyGesture::keysSnapToMarkers_data()
{
    QTest::addColumn<KeyGestureKind>("kind");
    QTest::addColumn<int>("pivot");
    QTest::addColumn<QVector<int>>("markers");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("pixels");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    const auto row = [](const char *name, KeyGestureKind kind, int pivot,
                        const QVector<int> &markers, Qt::KeyboardModifier modifiers, int pixels,
                        int first, int last) {
        QTest::newRow(name) << kind << pivot << markers << int(modifiers) << pixels << first
                            << last;
    };
    using K = KeyGestureKind;
    const Qt::KeyboardModifier none = Qt::NoModifier;
    row("the first key", K::Move, 0, {840}, none, 103, 840, 1640);
    row("the last key", K::Move, 0, {1448}, none, 82, 648, 1448);
    row("the nearer of both", K::Move, 0, {856, 1630}, none, 103, 830, 1630);
    row("the end of a span", K::Move, 0, {-5000, 840}, none, 103, 840, 1640);
    row("backwards", K::Move, 0, {-130}, none, -15, -130, 670);
    row("7 pixels away: a frame", K::Move, 0, {880}, none, 103, 800, 1600);
    row("with Shift not at all", K::Move, 0, {840}, Qt::ShiftModifier, 103, 824, 1624);
    row("copies", K::Duplicate, 0, {840}, none, 103, 0, 1640);
    row("the scaled last key", K::ScaleTimes, 1, {824}, none, 12, 0, 824);
    row("the scaled first key", K::ScaleTimes, 2, {-37}, none, 3, -37, 800);
    row("without movement not at all", K::Move, 0, {16}, none, 0, 0, 800);
}

// Keys on frames 0 and 5; a pixel is 8 ticks.
void tst_KeyGesture::keysSnapToMarkers()
{
    QFETCH(KeyGestureKind, kind);
    QFETCH(int, pivot);
    QFETCH(QVector<int>, markers);
    QFETCH(int, modifiers);
    QFETCH(int, pixels);
    QFETCH(int, first);
    QFETCH(int, last);
    GestureStage stage;
    const bool isSpan = markers[0] < -1000;
    for (int i = isSpan ? 1 : 0; i < markers.size(); ++i) {
        VxMarker marker;
        marker.span = VxTimeRange(isSpan ? markers[0] : markers[i], markers[i]);
        VxMarkers::of(vxScene)->add(marker);
    }
    stage.draw("A . . . . B");
    QVERIFY(stage.begin(kind, pivot));
    stage.moveMouse({pixels, 0}, Qt::KeyboardModifiers(modifiers));
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.channel->getKeyTime(0), first);
    QCOMPARE(stage.channel->getKeyTime(stage.channel->getNumKeys() - 1), last);
}

void tst_KeyGesture::typedNumbersReplaceTheMouse()
{
    GestureStage stage;
    stage.draw("A . . . . . .");
    QVERIFY(stage.begin(KeyGestureKind::Move));
    stage.moveMouse({4 * PixelsPerFrame, 0});
    stage.type("1");
    QCOMPARE(stage.drawing(7), QString(". A . . . . ."));
    stage.moveMouse({5 * PixelsPerFrame, 0});
    QCOMPARE(stage.drawing(7), QString(". A . . . . ."));
    stage.type("+1");
    QCOMPARE(stage.drawing(7), QString(". . A . . . ."));
    // Without a number left the mouse counts again.
    for (int i = 0; i < 3; ++i)
        stage.press(Qt::Key_Backspace);
    stage.moveMouse({3 * PixelsPerFrame, 0});
    QCOMPARE(stage.drawing(7), QString(". . . A . . ."));
}

void tst_KeyGesture::headUpLine()
{
    GestureStage stage;
    stage.draw("A B . c");
    QVERIFY(stage.begin(KeyGestureKind::Move));
    QVERIFY(stage.gesture->headUpText().startsWith(
        "Move +0 frames   |   2 selected keys on 1 channel   |"));
    stage.moveMouse({2 * PixelsPerFrame, 0});
    QVERIFY2(stage.gesture->headUpText().startsWith("Move +2 frames   |   Move Keys: 2 selected "
                                                    "keys on 1 channel; 1 overwritten"),
             qPrintable(stage.gesture->headUpText()));
    stage.type("-");
    QVERIFY(stage.gesture->headUpText().contains("invalid amount"));
}

void tst_KeyGesture::accepts_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("Return") << "return";
    QTest::newRow("Enter of the number block") << "enter";
    QTest::newRow("a click") << "click";
    QTest::newRow("a click beside the views") << "beside";
}

void tst_KeyGesture::accepts()
{
    QFETCH(QString, how);
    GestureStage stage;
    stage.draw("A B . . c");
    vxApp->getUndoStack()->clear();
    QVERIFY(stage.begin(KeyGestureKind::Move));
    stage.moveMouse({2 * PixelsPerFrame, 0});
    const QPoint end = GestureStage::mouseStart() + QPoint(2 * PixelsPerFrame, 0);
    if (how == "return")
        stage.press(Qt::Key_Return);
    else if (how == "enter")
        stage.press(Qt::Key_Enter);
    else if (how == "click")
        VxMouseDriver(stage.views).click(end);
    else
        VxMouseDriver(stage.field).click({end.x(), 5});
    QCOMPARE(stage.drawing(5), QString(". . A B c"));
    QCOMPARE(stage.entries(), 1);
    QVERIFY(!vxApp->getUndoStack()->isRecording());
    QTRY_VERIFY(!stage.gesture);
    QCOMPARE(QApplication::focusWidget(), stage.field);
    vxApp->getUndoStack()->undo();
    QCOMPARE(stage.drawing(5), QString("A B . . c"));
}

void tst_KeyGesture::restores_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("Escape") << "escape";
    QTest::newRow("a right click") << "right";
    QTest::newRow("the focus is lost") << "focus";
    QTest::newRow("the views are hidden") << "hide";
    QTest::newRow("the views are destroyed") << "destroy";
    QTest::newRow("a node with edited keys is deleted") << "node";
    QTest::newRow("another node is deleted") << "other node";
    QTest::newRow("a node is added and deleted") << "new node";
    QTest::newRow("the current time is changed") << "time";
    QTest::newRow("playback") << "play";
    QTest::newRow("the scene is cleared") << "clear";
}

void tst_KeyGesture::restores()
{
    QFETCH(QString, how);
    GestureStage stage;
    auto *other = new VxNode("other");
    vxScene->addNode(other);
    stage.draw("A B . . c");
    vxApp->getUndoStack()->clear();
    QVERIFY(stage.begin(KeyGestureKind::Move));
    stage.moveMouse({2 * PixelsPerFrame, 0});
    QCOMPARE(stage.drawing(5), QString(". . A B c"));
    if (how == "escape") {
        stage.press(Qt::Key_Escape);
    } else if (how == "right") {
        VxMouseDriver(stage.views)
            .click(GestureStage::mouseStart() + QPoint(2 * PixelsPerFrame, 0), Qt::RightButton);
    } else if (how == "focus") {
        stage.field->setFocus();
    } else if (how == "hide") {
        stage.views->hide();
    } else if (how == "destroy") {
        delete stage.views;
    } else if (how == "node") {
        vxScene->removeNode(stage.node);
        QVERIFY(!vxScene->getNodes().contains(stage.node));
        stage.app.getKeySelection()->clear();
        QTRY_VERIFY(!stage.gesture);
        QVERIFY(!vxApp->getUndoStack()->isRecording());
        QCOMPARE(stage.entries(), 0);
        return;
    } else if (how == "other node") {
        vxScene->removeNode(other);
        QCOMPARE(vxScene->getNumNodes(), 1);
    } else if (how == "new node") {
        auto *added = new VxNode("new");
        vxScene->addNode(added);
        vxScene->removeNode(added);
        QCOMPARE(vxScene->getNumNodes(), 2);
    } else if (how == "time") {
        vxScene->setTime(7 * Frame);
        QCOMPARE(vxScene->getTime(), 7 * Frame);
    } else if (how == "play") {
        vxScene->loopPlayback(true);
        vxScene->play();
        QTRY_VERIFY(!stage.gesture);
        vxScene->pause();
    } else {
        vxScene->clear();
        QTRY_VERIFY(!stage.gesture);
        QVERIFY(!vxApp->getUndoStack()->isRecording());
        return;
    }
    QCOMPARE(stage.drawing(5), QString("A B . . c"));
    QTRY_VERIFY(!stage.gesture);
    QCOMPARE(stage.entries(), 0);
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void tst_KeyGesture::nothingToEdit()
{
    GestureStage stage;
    stage.draw("a b");
    QVERIFY(!stage.begin(KeyGestureKind::Move));
    stage.draw("A b");
    // Another gesture is in progress, or this one.
    {
        const VxUndoStackHold hold;
        QVERIFY(!stage.begin(KeyGestureKind::Move));
    }
    QVERIFY(stage.begin(KeyGestureKind::Move));
    stage.moveMouse({2 * PixelsPerFrame, 0});
    QVERIFY(!KeyGesture::begin(&stage.axis, KeyGestureKind::ScaleTimes));
    QVERIFY(!KeyGesture::begin(nullptr, KeyGestureKind::Move));
}

void tst_KeyGesture::unchangedMakesNoEntry()
{
    GestureStage stage;
    stage.draw("A B . c");
    vxApp->getUndoStack()->clear();
    QVERIFY(stage.begin(KeyGestureKind::Duplicate));
    stage.moveMouse({2 * PixelsPerFrame, 0});
    stage.moveMouse({0, 0});
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.drawing(4), QString("A B . c"));
    QCOMPARE(stage.entries(), 0);
}

// The play range, which others change to zoom, is no part of a preview.
void tst_KeyGesture::zoomInMidGestureStays()
{
    GestureStage stage;
    stage.draw("A B . . c");
    QVERIFY(stage.begin(KeyGestureKind::Move));
    stage.moveMouse({2 * PixelsPerFrame, 0});
    vxScene->setPlayRange({0, 20 * Frame});
    stage.moveMouse({3 * PixelsPerFrame, 0});
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 20 * Frame));
    stage.press(Qt::Key_Escape);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 20 * Frame));
    QCOMPARE(stage.drawing(5), QString("A B . . c"));
}

void tst_KeyGesture::lineIsPainted()
{
    GestureStage stage;
    stage.draw("A B . . c");
    const QImage before = stage.views->grab().toImage();
    QVERIFY(stage.begin(KeyGestureKind::Move));
    const QImage during = stage.views->grab().toImage();
    QVERIFY(during.copy(0, 0, during.width(), 100) == before.copy(0, 0, before.width(), 100));
    QVERIFY(during.copy(0, during.height() - 10, during.width(), 10) !=
            before.copy(0, before.height() - 10, before.width(), 10));
    stage.press(Qt::Key_Escape);
    QVERIFY(stage.views->grab().toImage() == before);
}

void tst_KeyGesture::randomGestures_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 3; ++seed)
        QTest::addRow("seed %d", seed) << seed;
}

// Gestures with random mouse movements and numbers, accepted or dropped, on nodes with linked,
// aliased and overridden properties; some are dropped by a change of the time.
void tst_KeyGesture::randomGestures()
{
    QFETCH(int, seed);
    GestureStage stage;
    std::mt19937 random{quint32(seed)};
    const auto upTo = [&random](int count) { return int(random() % unsigned(count)); };
    VxSceneBuilder builder(vxScene, quint32(seed));
    auto *second = new VxNode("second");
    vxScene->addNode(second);
    builder.keyChannels({stage.node, second}, 20, Frame, VxSceneBuilder::KeyTypes::Mixed);
    builder.addSpecialProperties(stage.node);
    second->getYRotControl()->setOverridingControl(stage.node->getYRotControl());
    for (const VxTime time : {-70, 1000, 2900}) { // to snap to
        VxMarker marker;
        marker.span = VxTimeRange(time, time + 333);
        VxMarkers::of(vxScene)->add(marker);
    }
    vxApp->getUndoStack()->clear();
    KeyStates states;
    const QStringList texts = {"3", "-2", "1.5", "150%", "-1", "=4", "0", "((", "7t"};
    for (int step = 0; step < 60; ++step) {
        stage.node->select(upTo(3) > 0);
        second->select(upTo(2) > 0);
        VxProperty *holder = (upTo(2) ? stage.node : second)->getProperty(upTo(6))->getKeyHolder();
        const int count = holder->getNumKeys();
        if (count > 0 && upTo(2))
            stage.app.getKeySelection()->set({{holder, {{upTo(count), count}}, 0}});
        else
            stage.app.getKeySelection()->clear();
        if (!stage.begin(KeyGestureKind(upTo(5)), upTo(3)))
            continue;
        for (int i = upTo(4); i >= 0; --i)
            stage.moveMouse({upTo(200) - 100, upTo(60) - 30},
                            upTo(2) ? Qt::ShiftModifier : Qt::NoModifier);
        if (upTo(3) == 0)
            stage.type(texts[upTo(texts.size())]);
        const QByteArray shown = KeyToolStage::snapshot();
        const int end = upTo(5);
        if (end < 3)
            stage.press(Qt::Key_Return);
        else if (end == 3)
            stage.press(Qt::Key_Escape);
        else
            vxScene->setTime(vxScene->getTime() + Frame);
        QCOMPARE(KeyToolStage::snapshot(), end < 3 ? shown : states.last());
        QVERIFY(KeyToolStage::areKeysSound());
        stage.app.getKeySelection()->clear();
        states.add();
    }
    QVERIFY(states.count() > 10);
    QCOMPARE(stage.entries(), states.count() - 1);
    QVERIFY(states.areRestored());
}

VX_TEST_MAIN(tst_KeyGesture)
#include "tst_keygesture.moc"
