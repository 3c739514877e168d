#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"

#include <QtGui/QClipboard>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QSpinBox>

// Typing into the pane's fields, digit by digit: the state of scene and history after
// each, and that leaving a field adds nothing.
class TestTimePaneFields : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void totalDigitByDigit();
    void playEndDigitByDigit();
    void playStartDigitByDigit();
    void rateDigitByDigit();
    void currentFrameDigitByDigit();
    void enteringTheCurrentValueChangesNothing_data();
    void enteringTheCurrentValueChangesNothing();
    void leavingAddsNothing();
    void leavingKeepsValuesThatTheFieldsCannotShow_data();
    void leavingKeepsValuesThatTheFieldsCannotShow();
    void endIsClampedWhileItIsTyped();
    void currentFrameIsClampedWhileItIsTyped();
    void endsShareTheirRange();

    void rateAboveTheMaximum();
    void rateOfNoneStaysOutOfTheScene_data();
    void rateOfNoneStaysOutOfTheScene();
    void rateOfNoneTwice_data();
    void rateOfNoneTwice();
    void rateOfOneIsAccepted();
    void rateOfNoneThenAnother();
    void stepKeysLeaveThePlaceholder();

    void oddRates_data();
    void oddRates();
    void timesBelowZero();
    void farEnd();
    void digitsOfTheSystem();
    void undoShowsEachStep();
    void returnReturnsTheFocus_data();
    void returnReturnsTheFocus();
    void returnWithoutAFormerView();
    void wheelNeedsTheFocus_data();
    void wheelNeedsTheFocus();
    void pressedViewsTakeTheFocus_data();
    void pressedViewsTakeTheFocus();

private:
    QSpinBox *field(const char *name) const { return find<QSpinBox>(name); }
    QString textOf(const char *name) const { return field(name)->text(); }
    // Clicks into a field and selects what is there.
    QSpinBox *enter(const char *name) const;
    void type(const char *name, const QString &text) const { QTest::keyClicks(enter(name), text); }
    void pressEnter(const char *name) const { QTest::keyClick(field(name), Qt::Key_Return); }
    void leave(const char *name) const;
    int entries() const { return vxApp->getUndoStack()->count(); }
};

namespace {

const char Total[] = "TimelineTotalFramesLEdit";
const char PlayStart[] = "TimelinePlayStartLEdit";
const char PlayEnd[] = "TimelinePlayEndLEdit";
const char Current[] = "TimelineCurrentFrameLEdit";
const char Rate[] = "TimelineFPSLEdit";

} // namespace

void TestTimePaneFields::init()
{
    setUp();
    showPane();
}

QSpinBox *TestTimePaneFields::enter(const char *name) const
{
    QSpinBox *target = field(name);
    target->setFocus();
    target->selectAll();
    return target;
}

void TestTimePaneFields::leave(const char *name) const
{
    QSpinBox *other = field(qstrcmp(name, Current) == 0 ? Total : Current);
    other->setFocus();
}

void TestTimePaneFields::totalDigitByDigit()
{
    const QSignalSpy changes(vxScene, &VxScene::animRangeChanged);
    type(Total, QStringLiteral("2"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 160));
    QTest::keyClicks(field(Total), QStringLiteral("5"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 160 * 24));
    QTest::keyClicks(field(Total), QStringLiteral("0"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 160 * 249));
    QCOMPARE(textOf(Total), QStringLiteral("250"));
    pressEnter(Total);
    leave(Total);
    QCOMPARE(undoTexts(),
             QStringList({"Set Total Frames", "Set Total Frames", "Set Total Frames"}));
    QCOMPARE(changes.count(), 3);
}

void TestTimePaneFields::playEndDigitByDigit()
{
    const QSignalSpy changes(vxScene, &VxScene::playRangeChanged);
    type(PlayEnd, QStringLiteral("25"));
    pressEnter(PlayEnd);
    leave(PlayEnd);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 25 * 160));
    QCOMPARE(undoTexts(), QStringList({"Set Play Range End", "Set Play Range End"}));
    QCOMPARE(changes.count(), 2);
}

void TestTimePaneFields::playStartDigitByDigit()
{
    const QSignalSpy changes(vxScene, &VxScene::playRangeChanged);
    type(PlayStart, QStringLiteral("12"));
    pressEnter(PlayStart);
    leave(PlayStart);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(12 * 160, 4800));
    QCOMPARE(undoTexts(), QStringList({"Set Play Range Start", "Set Play Range Start"}));
    QCOMPARE(changes.count(), 2);
}

void TestTimePaneFields::rateDigitByDigit()
{
    const QSignalSpy changes(vxScene, &VxScene::timeStepChanged);
    type(Rate, QStringLiteral("2"));
    QCOMPARE(vxScene->getTimeStep(), 2400);
    QTest::keyClicks(field(Rate), QStringLiteral("4"));
    QCOMPARE(vxScene->getTimeStep(), 200);
    pressEnter(Rate);
    leave(Rate);
    QCOMPARE(undoTexts(), QStringList({"Set FPS", "Set FPS"}));
    QCOMPARE(changes.count(), 2);
}

void TestTimePaneFields::currentFrameDigitByDigit()
{
    const QSignalSpy changes(vxScene, &VxScene::timeChanged);
    type(Current, QStringLiteral("1"));
    QCOMPARE(vxScene->getTime(), 160);
    QTest::keyClicks(field(Current), QStringLiteral("7"));
    QCOMPARE(vxScene->getTime(), 17 * 160);
    pressEnter(Current);
    leave(Current);
    QCOMPARE(entries(), 0);
    QCOMPARE(changes.count(), 2);
}

void TestTimePaneFields::enteringTheCurrentValueChangesNothing_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("total") << QByteArray(Total) << QStringLiteral("31");
    QTest::newRow("play start") << QByteArray(PlayStart) << QStringLiteral("0");
    QTest::newRow("play start, twice") << QByteArray(PlayStart) << QStringLiteral("00");
    QTest::newRow("current frame") << QByteArray(Current) << QStringLiteral("0");
}

void TestTimePaneFields::enteringTheCurrentValueChangesNothing()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, text);
    enter(name);
    // As one text, as a paste would bring it.
    QApplication::clipboard()->setText(text);
    QTest::keySequence(field(name), QKeySequence::Paste);
    QCOMPARE(textOf(name).toInt(), text.toInt());
    pressEnter(name);
    leave(name);
    QCOMPARE(entries(), 0);
}

void TestTimePaneFields::leavingAddsNothing()
{
    for (const char *name : {Total, PlayStart, PlayEnd, Current, Rate, Total}) {
        enter(name);
        pressEnter(name);
    }
    QCOMPARE(entries(), 0);
    QCOMPARE(vxScene->getTimeStep(), 160);
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 4800));
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 4800));
}

void TestTimePaneFields::leavingKeepsValuesThatTheFieldsCannotShow_data()
{
    QTest::addColumn<VxTime>("step");
    QTest::addColumn<VxTime>("start");
    QTest::addColumn<VxTime>("now");
    QTest::addColumn<VxTime>("end");
    QTest::newRow("between frames") << 160 << 100 << 1001 << 4799;
    QTest::newRow("below frame 0") << 160 << -1600 << -800 << 4800;
    QTest::newRow("more frames than a field shows") << 4 << 0 << 4000100 << 8000200;
    QTest::newRow("a rate that is cut") << 685 << 0 << 685 << 6850;
}

void TestTimePaneFields::leavingKeepsValuesThatTheFieldsCannotShow()
{
    QFETCH(VxTime, step);
    QFETCH(VxTime, start);
    QFETCH(VxTime, now);
    QFETCH(VxTime, end);
    const VxTimeRange range(start, end);
    vxScene->setTimeStep(step);
    vxScene->setAnimRange(range);
    vxScene->setPlayRange(range);
    vxScene->setTime(now);
    for (const char *name : {Total, PlayStart, PlayEnd, Current, Rate}) {
        enter(name);
        pressEnter(name);
        leave(name);
    }
    QCOMPARE(vxScene->getTimeStep(), step);
    QCOMPARE(vxScene->getAnimRange(), range);
    QCOMPARE(vxScene->getPlayRange(), range);
    QCOMPARE(vxScene->getTime(), now);
    QCOMPARE(entries(), 0);
}

// The range never ends before its start, but the digits stay until the number is finished.
void TestTimePaneFields::endIsClampedWhileItIsTyped()
{
    vxScene->setPlayRange(VxTimeRange(1600, 4800));
    type(PlayEnd, QStringLiteral("2"));
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 1600));
    QCOMPARE(textOf(PlayEnd), QStringLiteral("2"));
    QCOMPARE(entries(), 1);
    QTest::keyClicks(field(PlayEnd), QStringLiteral("5"));
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 4000));
    QCOMPARE(entries(), 2);
    // What was not shown in between is not shown any more.
    pressEnter(PlayEnd);
    QCOMPARE(textOf(PlayEnd), QStringLiteral("25"));
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 4000));

    type(PlayEnd, QStringLiteral("2"));
    pressEnter(PlayEnd);
    QCOMPARE(textOf(PlayEnd), QStringLiteral("10"));
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(1600, 1600));
    QCOMPARE(entries(), 3);
    type(PlayEnd, QStringLiteral("3"));
    leave(PlayEnd);
    QCOMPARE(textOf(PlayEnd), QStringLiteral("10"));
    QCOMPARE(entries(), 3);
}

void TestTimePaneFields::currentFrameIsClampedWhileItIsTyped()
{
    vxScene->setAnimRange(VxTimeRange(0, 160 * 300));
    vxScene->setPlayRange(VxTimeRange(160 * 100, 160 * 200));
    QVector<VxTime> frames;
    connect(vxScene, &VxScene::timeChanged, this, [&frames](VxTime time) { frames += time / 160; });
    type(Current, QStringLiteral("150"));
    QCOMPARE(frames, QVector<VxTime>({100, 150}));
    QCOMPARE(textOf(Current), QStringLiteral("150"));
    QTest::keyClick(field(Current), Qt::Key_Backspace);
    QCOMPARE(vxScene->getTime(), 160 * 100);
    QCOMPARE(textOf(Current), QStringLiteral("15"));
    pressEnter(Current);
    QCOMPARE(textOf(Current), QStringLiteral("100"));
    // A value set elsewhere is shown at once, as is an error that no further digit can correct.
    QTest::keyClick(enter(Current), Qt::Key_7);
    vxScene->setTime(160 * 110);
    QCOMPARE(textOf(Current), QStringLiteral("110"));
    type(Current, QStringLiteral("201"));
    QCOMPARE(textOf(Current), QStringLiteral("200"));
    field(Current)->setValue(5);
    QCOMPARE(textOf(Current), QStringLiteral("100"));
    QCOMPARE(vxScene->getTime(), 160 * 100);
}

void TestTimePaneFields::endsShareTheirRange()
{
    type(PlayEnd, QStringLiteral("20"));
    type(PlayStart, QStringLiteral("9"));
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(9 * 160, 20 * 160));
    type(PlayStart, QStringLiteral("99"));
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(20 * 160, 20 * 160));
    QCOMPARE(textOf(PlayStart), QStringLiteral("20"));
}

void TestTimePaneFields::rateAboveTheMaximum()
{
    type(Rate, QStringLiteral("1201"));
    QCOMPARE(textOf(Rate), QStringLiteral("1200"));
    QCOMPARE(vxScene->getTimeStep(), 4);
    QCOMPARE(entries(), 4); // 1, 12, 120 and 1200
    pressEnter(Rate);
    leave(Rate);
    QCOMPARE(entries(), 4);
    // A value above the maximum changes nothing when typed again, and is still corrected.
    type(Rate, QStringLiteral("1200"));
    const int before = entries();
    QTest::keyClicks(field(Rate), QStringLiteral("9"));
    QCOMPARE(textOf(Rate), QStringLiteral("1200"));
    QCOMPARE(entries(), before);
}

void TestTimePaneFields::rateOfNoneStaysOutOfTheScene_data()
{
    QTest::addColumn<bool>("isEmpty");
    QTest::newRow("zero") << false;
    QTest::newRow("empty") << true;
}

void TestTimePaneFields::rateOfNoneStaysOutOfTheScene()
{
    QFETCH(bool, isEmpty);
    QTest::keyClick(enter(Rate), isEmpty ? Qt::Key_Delete : Qt::Key_0);
    QCOMPARE(textOf(Rate), QStringLiteral("1"));
    QCOMPARE(vxScene->getTimeStep(), 160);
    pressEnter(Rate);
    QCOMPARE(textOf(Rate), QStringLiteral("1"));
    QCOMPARE(vxScene->getTimeStep(), 160);
    leave(Rate);
    QCOMPARE(vxScene->getTimeStep(), 160);
    QCOMPARE(entries(), 0);
    vxScene->setTime(160);
    QCOMPARE(textOf(Rate), QStringLiteral("30"));
}

void TestTimePaneFields::rateOfNoneTwice_data()
{
    rateOfNoneStaysOutOfTheScene_data();
}

void TestTimePaneFields::rateOfNoneTwice()
{
    QFETCH(bool, isEmpty);
    const Qt::Key key = isEmpty ? Qt::Key_Delete : Qt::Key_0;
    QTest::keyClick(enter(Rate), key);
    QTest::keyClick(field(Rate), key);
    QCOMPARE(textOf(Rate), QStringLiteral("1"));
    pressEnter(Rate);
    leave(Rate);
    QCOMPARE(vxScene->getTimeStep(), 160);
    QCOMPARE(entries(), 0);
}

void TestTimePaneFields::rateOfOneIsAccepted()
{
    QTest::keyClick(enter(Rate), Qt::Key_Delete);
    QTest::keyClicks(field(Rate), QStringLiteral("1"));
    pressEnter(Rate);
    QCOMPARE(vxScene->getTimeStep(), 4800);
    QCOMPARE(undoTexts(), QStringList({"Set FPS"}));
    QCOMPARE(textOf(Rate), QStringLiteral("1"));
}

void TestTimePaneFields::rateOfNoneThenAnother()
{
    QTest::keyClick(enter(Rate), Qt::Key_Delete);
    QTest::keyClicks(field(Rate), QStringLiteral("25"));
    QCOMPARE(vxScene->getTimeStep(), 192);
    QCOMPARE(textOf(Rate), QStringLiteral("25"));
    QCOMPARE(undoTexts(), QStringList({"Set FPS", "Set FPS"}));
}

void TestTimePaneFields::stepKeysLeaveThePlaceholder()
{
    QTest::keyClick(enter(Rate), Qt::Key_Delete);
    QTest::keyClick(field(Rate), Qt::Key_Up);
    QCOMPARE(vxScene->getTimeStep(), 2400);
    QCOMPARE(textOf(Rate), QStringLiteral("2"));
}

// What the fields show of an animation of 0 to 48000 at time 9999, played from 1001 to 24001.
void TestTimePaneFields::oddRates_data()
{
    QTest::addColumn<int>("fps");
    QTest::addColumn<VxTime>("step");
    QTest::addColumn<QStringList>("shown"); // total, start, end, current, rate

    const auto row = [](const char *name, int fps, VxTime step, const QStringList &shown) {
        QTest::newRow(name) << fps << step << shown;
    };
    row("7", 7, 685, {"71", "1", "35", "14", "7"});
    row("24", 24, 200, {"241", "5", "120", "49", "24"});
    row("29", 29, 165, {"291", "6", "145", "60", "29"});
    row("48", 48, 100, {"481", "10", "240", "99", "48"});
    row("1200", 1200, 4, {"12001", "250", "6000", "2499", "1200"});
    // 4800 / 99 is 48, and 4800 / 48 is 100.
    row("99 is not available", 99, 48, {"1001", "20", "500", "208", "100"});
}

void TestTimePaneFields::oddRates()
{
    QFETCH(int, fps);
    QFETCH(VxTime, step);
    QFETCH(QStringList, shown);
    vxScene->setAnimRange(VxTimeRange(0, 48000));
    vxScene->setPlayRange(VxTimeRange(1001, 24001));
    vxScene->setTime(9999);
    type(Rate, QString::number(fps));
    QCOMPARE(vxScene->getTimeStep(), step);
    QStringList texts;
    for (const char *name : {Total, PlayStart, PlayEnd, Current, Rate})
        texts += textOf(name);
    QCOMPARE(texts, shown);
    // A frame typed is that frame's time, and shown as it was typed.
    type(Current, QStringLiteral("30"));
    QCOMPARE(vxScene->getTime(), qBound(1001 / step, 30, 24001 / step) * step);
    type(Total, QStringLiteral("12"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 11 * step));
    QCOMPARE(textOf(Total), QStringLiteral("12"));
}

// Frames are cut towards zero; the fields' least number is 0.
void TestTimePaneFields::timesBelowZero()
{
    vxScene->setPlayRange(VxTimeRange(-479, 4800));
    vxScene->setTime(-159);
    QCOMPARE(textOf(Current), QStringLiteral("0"));
    QCOMPARE(textOf(PlayStart), QStringLiteral("0"));
    vxScene->setAnimRange(VxTimeRange(-479, 0));
    QCOMPARE(textOf(Total), QStringLiteral("3"));
    // The total counts from the start: two frames of 160 after -479.
    type(Total, QStringLiteral("2"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(-479, -319));
    // The range begins at frame -2: -479 / 160, cut.
    pane->setPlayRangeEnd(-5);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(-479, -320));
}

void TestTimePaneFields::farEnd()
{
    vxScene->setTimeStep(4800);
    type(Total, QStringLiteral("1000000"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, VxTimeMax));
    QCOMPARE(textOf(Total), QString::number(VxTimeMax / 4800 + 1));
}

// A system that writes numbers in other digits, or in groups.
void TestTimePaneFields::digitsOfTheSystem()
{
    pane.reset();
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Persian, QLocale::Iran));
    pane = std::make_unique<VxTimePane>();
    QLocale::setDefault(before);
    showPane();
    vxScene->setAnimRange(VxTimeRange(0, 1234 * 160));
    QCOMPARE(textOf(Total), QStringLiteral("1235"));
    QCOMPARE(pane->getTotalFrames(), 1235);
    type(Total, QStringLiteral("42"));
    QCOMPARE(vxScene->getAnimRange(), VxTimeRange(0, 41 * 160));
}

void TestTimePaneFields::undoShowsEachStep()
{
    type(Total, QStringLiteral("250"));
    pressEnter(Total);
    QStringList shown;
    for (int i = 0; i < 3; ++i) {
        vxApp->getUndoStack()->undo();
        shown += textOf(Total);
    }
    for (int i = 0; i < 3; ++i) {
        vxApp->getUndoStack()->redo();
        shown += textOf(Total);
    }
    QCOMPARE(shown, QStringList({"25", "2", "31", "2", "25", "250"}));
    QCOMPARE(entries(), 3);
}

void TestTimePaneFields::returnReturnsTheFocus_data()
{
    QTest::addColumn<QString>("field");
    for (const char *name : {Total, PlayStart, PlayEnd, Current, Rate})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestTimePaneFields::returnReturnsTheFocus()
{
    QFETCH(QString, field);
    auto *graph = pane->findChild<VxKeyGraphView *>();
    auto *sheet = pane->findChild<VxDopeSheetView *>();
    for (QWidget *view : std::initializer_list<QWidget *>{graph, sheet}) {
        view->setFocus();
        // By way of another field: the view is what counts.
        this->field(Rate)->setFocus();
        const int before = entries();
        type(qPrintable(field), QStringLiteral("24"));
        const int typed = entries();
        pressEnter(qPrintable(field));
        QVERIFY(view->hasFocus());
        QCOMPARE(textOf(qPrintable(field)), QStringLiteral("24"));
        QCOMPARE(entries(), typed);
        QVERIFY(typed >= before);
    }
}

void TestTimePaneFields::returnWithoutAFormerView()
{
    QWidget *focused = pane->focusWidget();
    if (focused)
        focused->clearFocus();
    type(Rate, QStringLiteral("24"));
    pressEnter(Rate);
    QVERIFY(field(Rate)->hasFocus());
}

void TestTimePaneFields::wheelNeedsTheFocus_data()
{
    QTest::addColumn<QString>("field");
    for (const char *name : {Total, PlayStart, PlayEnd, Current, Rate, "TimelineInterpTensionSBox",
                             "TimelineInterpContinuitySBox", "TimelineInterpBiasSBox"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

// Without it the event is left to the widgets below.
void TestTimePaneFields::wheelNeedsTheFocus()
{
    QFETCH(QString, field);
    auto *box = pane->findChild<QAbstractSpinBox *>(field);
    box->setEnabled(true);
    pane->findChild<VxDopeSheetView *>()->setFocus();
    const QString before = box->text();
    const auto turn = [&] {
        QWheelEvent event(QPoint(3, 3), box->mapToGlobal(QPoint(3, 3)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(box, &event);
        return event.isAccepted();
    };
    for (int i = 0; i < 3; ++i)
        QVERIFY(!turn());
    QCOMPARE(box->text(), before);
    QVERIFY(!box->hasFocus());
    QVERIFY((box->focusPolicy() & Qt::WheelFocus) != Qt::WheelFocus);
    box->setFocus();
    box->stepUp();
    box->stepUp();
    const QString stepped = box->text();
    QVERIFY(turn());
    QVERIFY(box->text() != stepped || stepped == before);
}

void TestTimePaneFields::pressedViewsTakeTheFocus_data()
{
    QTest::addColumn<QString>("view");
    for (const char *name : {"graph", "sheet", "ruler"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

// The ruler belongs to the dope sheet.
void TestTimePaneFields::pressedViewsTakeTheFocus()
{
    QFETCH(QString, view);
    auto *graph = pane->findChild<VxKeyGraphView *>();
    auto *sheet = pane->findChild<VxDopeSheetView *>();
    enter(Rate);
    QVERIFY(field(Rate)->hasFocus());
    const bool isGraph = view == QLatin1String("graph");
    QWidget *pressed = isGraph                          ? static_cast<QWidget *>(graph)
                       : view == QLatin1String("sheet") ? sheet->viewport()
                                                        : sheet->header()->viewport();
    const QPoint inPane = pressed->mapTo(pane.get(), QPoint(pressed->width() - 200, 10));
    QTest::mouseClick(pane->windowHandle(), Qt::LeftButton, Qt::NoModifier, inPane);
    QVERIFY(isGraph ? graph->hasFocus() : sheet->hasFocus());
}

VX_TEST_MAIN(TestTimePaneFields)
#include "tst_timepanefields.moc"
