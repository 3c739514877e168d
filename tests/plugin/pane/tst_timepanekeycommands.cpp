#include "ballpanetestbase.h"
#include "testing/vxtestmain.h"

#include <QtWidgets/QDoubleSpinBox>
#include <vxcore/vxmainwindow.h>

namespace {

// Stores the messages of its status line.
class MessageWindow : public VxMainWindow
{
public:
    void showStatusMessage(const QString &text, int milliseconds) override
    {
        Q_UNUSED(milliseconds)
        messages += text;
    }
    QStringList messages;
};

} // namespace

// The commands on selected keys: keys selected with the mouse, values typed, buttons pressed.
class TestTimePaneKeyCommands : public QObject, private BallPaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { showBall(); }
    void cleanup() { tearDown(); }

    void interpolationOfSelectedKeys_data();
    void interpolationOfSelectedKeys();
    void unchangedInterpolationMakesNoEntry();
    void fieldsShowWhatKeysHaveInCommon_data();
    void fieldsShowWhatKeysHaveInCommon();
    void fieldsLeaveOutKeysBetween();
    void fieldsFollowTheInterpolation();
    void showingChangesNoKey();
    void typingATension();
    void typingMakesAnEntryForEachNewNumber();
    void typingKeepsTheOtherComponents();
    void leavingAFieldChangesNoKey();
    void enterAppliesTheShownValue();
    void undoneValuesAreShown();

    void buttonsCopyPasteDelete();
    void copyingIsReported();
    void nothingToCopy();
    void nothingToPaste();
    void noRowToPasteInto();

private:
    QDoubleSpinBox *tension() const { return find<QDoubleSpinBox>("TimelineInterpTensionSBox"); }
    QDoubleSpinBox *continuity() const
    {
        return find<QDoubleSpinBox>("TimelineInterpContinuitySBox");
    }
    QDoubleSpinBox *bias() const { return find<QDoubleSpinBox>("TimelineInterpBiasSBox"); }
    void press(const char *button) const
    {
        auto *found = find<QWidget>(button);
        VxMouseDriver(found).click(found->rect().center());
    }
    // Puts the cursor into a field, as if to enter another number.
    void enter(QDoubleSpinBox *field) const
    {
        VxMouseDriver(field).click(field->rect().center());
        field->selectAll();
        QVERIFY(field->hasFocus());
    }
    // Gives the keys on 0 and 10 TCB shapes of their own and selects both.
    void selectTwoShapes(const VxTcb &first, const VxTcb &second) const;
};

void TestTimePaneKeyCommands::selectTwoShapes(const VxTcb &first, const VxTcb &second) const
{
    x()->setKeyInterpolation(0, VxKeyInterp::Tcb, first.tension, first.continuity, first.bias);
    x()->setKeyInterpolation(1, VxKeyInterp::Tcb, second.tension, second.continuity, second.bias);
    clickKey(x(), 0);
    clickKey(x(), 1600, Qt::ControlModifier);
    QVERIFY(view()->hasSelectedKeys());
}

void TestTimePaneKeyCommands::interpolationOfSelectedKeys_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("constant") << 1 << "Set Interpolation Type Constant";
    QTest::newRow("TCB") << 2 << "Set Interpolation Type TCB";
    QTest::newRow("linear") << 0 << "Set Interpolation Type Linear";
}

void TestTimePaneKeyCommands::interpolationOfSelectedKeys()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    const int before = type == 0 ? 1 : 0;
    for (int i = 0; i < 3; ++i)
        x()->setKeyInterpolation(i, before);
    clickKey(x(), 1600);
    pane->setInterpType(type);
    const auto types = [this] {
        return QVector<int>({x()->getKeyInterpolationType(0), x()->getKeyInterpolationType(1),
                             x()->getKeyInterpolationType(2)});
    };
    QCOMPARE(types(), QVector<int>({before, type, before}));
    QCOMPARE(undoTexts(), QStringList(text));
    vxApp->getUndoStack()->undo();
    QCOMPARE(types(), QVector<int>({before, before, before}));
    vxApp->getUndoStack()->redo();
    QCOMPARE(types(), QVector<int>({before, type, before}));
    QVERIFY(pane->hasSelectedKeys());
}

void TestTimePaneKeyCommands::unchangedInterpolationMakesNoEntry()
{
    clickKey(x(), 1600);
    pane->setInterpType(0);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::fieldsShowWhatKeysHaveInCommon_data()
{
    QTest::addColumn<QVector<float>>("first");
    QTest::addColumn<QVector<float>>("second");
    using F = QVector<float>;
    QTest::newRow("the same") << F{0.5f, 0.25f, -1} << F{0.5f, 0.25f, -1};
    QTest::newRow("tension differs") << F{0.5f, 0.25f, -1} << F{0, 0.25f, -1};
    QTest::newRow("continuity differs") << F{0.5f, 0.25f, -1} << F{0.5f, 0, -1};
    QTest::newRow("bias differs") << F{0.5f, 0.25f, -1} << F{0.5f, 0.25f, 1};
    QTest::newRow("nothing in common") << F{0.5f, 0.25f, -1} << F{0, 0, 0};
}

// The second key is shown alone before the first is added to it: what differs stays so.
void TestTimePaneKeyCommands::fieldsShowWhatKeysHaveInCommon()
{
    QFETCH(QVector<float>, first);
    QFETCH(QVector<float>, second);
    x()->setKeyInterpolation(0, VxKeyInterp::Tcb, first[0], first[1], first[2]);
    x()->setKeyInterpolation(1, VxKeyInterp::Tcb, second[0], second[1], second[2]);
    x()->setKeyInterpolation(2, VxKeyInterp::Tcb, 0.9f, 0.9f, 0.9f);
    const auto shown = [this] {
        return QVector<float>(
            {float(tension()->value()), float(continuity()->value()), float(bias()->value())});
    };
    clickKey(x(), 3200);
    QCOMPARE(shown(), QVector<float>({0.9f, 0.9f, 0.9f}));
    clickKey(x(), 1600);
    QCOMPARE(shown(), second);
    clickKey(x(), 0, Qt::ControlModifier);
    QCOMPARE(shown(), second);
    for (const QDoubleSpinBox *field : {tension(), continuity(), bias()})
        QVERIFY(field->isEnabled());
    clickKey(x(), 0);
    QCOMPARE(shown(), first);
    QCOMPARE(undoTexts(), QStringList());
}

// A key that is not selected has no effect, wherever it is.
void TestTimePaneKeyCommands::fieldsLeaveOutKeysBetween()
{
    x()->setKeyInterpolation(0, VxKeyInterp::Tcb, 0.5f, 0.5f, 0.5f);
    x()->setKeyInterpolation(1, VxKeyInterp::Tcb, -1.0f, -1.0f, -1.0f);
    x()->setKeyInterpolation(2, VxKeyInterp::Tcb, 0.5f, 0.5f, 0.5f);
    clickKey(x(), 0);
    clickKey(x(), 3200, Qt::ControlModifier);
    QCOMPARE(tension()->value(), 0.5);
    float common = 0;
    QVERIFY(view()->getCommonTension(&common));
    QCOMPARE(common, 0.5f);
}

void TestTimePaneKeyCommands::fieldsFollowTheInterpolation()
{
    x()->setKeyInterpolation(1, VxKeyInterp::Linear, 0.75f, 0.5f, 0.25f);
    clickKey(x(), 1600);
    QVERIFY(tension()->isEnabled());
    QCOMPARE(tension()->value(), 0.0); // no TCB key
    pane->setInterpType(VxKeyInterp::Tcb);
    QCOMPARE(tension()->value(), 0.75);
    QCOMPARE(continuity()->value(), 0.5);
    QCOMPARE(bias()->value(), 0.25);
    pane->deleteSelectedKeys();
    QVERIFY(!tension()->isEnabled());
    QVERIFY(!bias()->isEnabled());
}

// What is shown is rounded to two places, the keys are not.
void TestTimePaneKeyCommands::showingChangesNoKey()
{
    x()->setKeyInterpolation(1, VxKeyInterp::Tcb, 0.375f, 0.123f, -0.777f);
    clickKey(x(), 1600);
    QCOMPARE(continuity()->value(), 0.12);
    QCOMPARE(shapeOf(x(), 1), Shape({2, 0.375f, 0.123f, -0.777f}));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::typingATension()
{
    selectTwoShapes({}, {});
    enter(tension());
    QTest::keyClicks(tension(), QStringLiteral("0.5"));
    QTest::keyClick(tension(), Qt::Key_Return);
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0.5f, 0, 0}));
    QCOMPARE(shapeOf(x(), 1), Shape({2, 0.5f, 0, 0}));
    QCOMPARE(shapeOf(x(), 2), Shape({0, 0, 0, 0}));
    QCOMPARE(undoTexts(), QStringList("Set TCB Parameters"));
}

// Nothing is written into the field meanwhile, which would move the cursor.
void TestTimePaneKeyCommands::typingMakesAnEntryForEachNewNumber()
{
    selectTwoShapes({}, {});
    enter(bias());
    QTest::keyClicks(bias(), QStringLiteral("-0.25"));
    QCOMPARE(bias()->text(), QStringLiteral("-0.25"));
    QTest::keyClick(bias(), Qt::Key_Return);
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0, 0, -0.25f}));
    QCOMPARE(undoTexts(), QStringList({"Set TCB Parameters", "Set TCB Parameters"}));
    vxApp->getUndoStack()->undo();
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0, 0, -0.2f}));
}

void TestTimePaneKeyCommands::typingKeepsTheOtherComponents()
{
    selectTwoShapes({0.123f, 0.375f, 0.777f}, {0.123f, 0.375f, 0.777f});
    enter(tension());
    QTest::keyClicks(tension(), QStringLiteral("1"));
    QTest::keyClick(tension(), Qt::Key_Return);
    QCOMPARE(shapeOf(x(), 0), Shape({2, 1, 0.375f, 0.777f}));
    QCOMPARE(shapeOf(x(), 1), Shape({2, 1, 0.375f, 0.777f}));
}

void TestTimePaneKeyCommands::leavingAFieldChangesNoKey()
{
    selectTwoShapes({0.123f, 0.5f, 0}, {-0.75f, 0.5f, 0});
    for (QDoubleSpinBox *field : {tension(), continuity(), bias()}) {
        enter(field);
        QTest::keyClick(field, Qt::Key_Tab);
        QVERIFY(!field->hasFocus());
    }
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0.123f, 0.5f, 0}));
    QCOMPARE(shapeOf(x(), 1), Shape({2, -0.75f, 0.5f, 0}));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::enterAppliesTheShownValue()
{
    selectTwoShapes({0.5f, 0, 0}, {-0.75f, 0, 0});
    QCOMPARE(tension()->value(), 0.5);
    enter(tension());
    QTest::keyClick(tension(), Qt::Key_Return);
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0.5f, 0, 0}));
    QCOMPARE(shapeOf(x(), 1), Shape({2, 0.5f, 0, 0}));
    QCOMPARE(undoTexts(), QStringList("Set TCB Parameters"));
}

void TestTimePaneKeyCommands::undoneValuesAreShown()
{
    selectTwoShapes({0.25f, 0, 0}, {0.25f, 0, 0});
    enter(tension());
    QTest::keyClicks(tension(), QStringLiteral("1"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(tension()->value(), 0.25);
    // Leaving the field does not do it again.
    QTest::keyClick(tension(), Qt::Key_Tab);
    QVERIFY(vxApp->getUndoStack()->canRedo());
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0.25f, 0, 0}));
    vxApp->getUndoStack()->redo();
    QCOMPARE(tension()->value(), 1.0);
}

void TestTimePaneKeyCommands::buttonsCopyPasteDelete()
{
    clickKey(x(), 1600);
    press("TimelineCopySelectedKeysBtn");
    QVERIFY(pane->hasCopiedKeys());
    vxScene->setTime(4800);
    press("TimelinePasteCopiedKeysBtn");
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    press("TimelineDeleteKeysBtn");
    QCOMPARE(keyTimes(x()), Times({0, 3200, 4800}));
    QVERIFY(!pane->hasSelectedKeys());
    QCOMPARE(undoTexts(), QStringList({"Paste Keys", "Delete Selected Keys"}));
    vxApp->getUndoStack()->undo();
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200}));
}

void TestTimePaneKeyCommands::copyingIsReported()
{
    MessageWindow window;
    clickKey(x(), 1600);
    pane->copySelectedKeys();
    QCOMPARE(window.messages, QStringList("Copied 1 key."));
    clickKey(x(), 3200, Qt::ControlModifier);
    pane->copySelectedKeys();
    QCOMPARE(window.messages.last(), QString("Copied 2 keys."));
}

void TestTimePaneKeyCommands::nothingToCopy()
{
    MessageWindow window;
    view()->clearSelectedKeys();
    pane->copySelectedKeys();
    QCOMPARE(window.messages, QStringList("No keys are selected."));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::nothingToPaste()
{
    MessageWindow window;
    vxScene->setTime(4800);
    pane->pasteKeys();
    QCOMPARE(window.messages, QStringList("No keys have been copied."));
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200}));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::noRowToPasteInto()
{
    MessageWindow window;
    clickKey(x(), 1600);
    pane->copySelectedKeys();
    window.messages.clear();
    setTypes(VxTimePane::PropRotate);
    vxScene->setTime(4800);
    pane->pasteKeys();
    QCOMPARE(window.messages, QStringList("No row matches the copied keys."));
    setTypes(VxTimePane::PropTranslate);
    x()->setLocked(true);
    pane->pasteKeys();
    QCOMPARE(window.messages.size(), 2);
    x()->setLocked(false);
    pane->pasteKeys();
    QCOMPARE(window.messages.size(), 2);
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    QCOMPARE(undoTexts(), QStringList("Paste Keys"));
}

VX_TEST_MAIN(TestTimePaneKeyCommands)
#include "tst_timepanekeycommands.moc"
