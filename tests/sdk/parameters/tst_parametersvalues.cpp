// Values of the Parameters pane edited with mouse and keyboard: dragged, typed, stepped, switched.

#include "parameterspanetestbase.h"
#include "testing/vxtestmain.h"

#include <QAction>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <vxcore/vxintproperty.h>

class TestParametersValues : public ParametersPaneTestBase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void draggingAValueIsOneEntry();
    void draggingWithModifiers();
    void draggingBackMakesNoEntry();
    void escapeEndsADrag();
    void aDragOutlivesNoNode();
    void typingIsOneEntry();
    void openingAndLeavingTheFieldChangesNothing();
    void escapeDiscardsTheTypedText();
    void commasAndPercentSigns();
    void wholeNumbersAreRounded();
    void digitsBeginToType();
    void tabOpensTheNextField();
    void steppingIsOneEntry();
    void stepsAfterARestAreAnotherEntry();
    void undoKeyInTheField();
    void theWheelScrollsWithoutTheFocus();
    void theWheelStepsInTheField();
    void theFieldFollowsTheTime();
    void switchesAreClicked();
    void textsAreTyped();
    void lockedValuesDoNotChange();
};

void TestParametersValues::draggingAValueIsOneEntry()
{
    vxScene->setTime(320);
    QSignalSpy changed(x(), &VxProperty::valueChanged);
    drag(x(), 60);
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(x()->getKeyTime(0), 320);
    QCOMPARE(x()->getKeyValue(0), 30.0f);
    QVERIFY(changed.count() > 10); // it was seen on the way
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QCOMPARE(vxApp->getUndoStack()->undoText(), QString("Set X Translate"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(x()->getNumKeys(), 0);
    QVERIFY(!field()); // a drag is no click
}

void TestParametersValues::draggingWithModifiers()
{
    drag(x(), -60, Qt::ShiftModifier);
    QCOMPARE(x()->getValue(), -3.0f);
    drag(x(), 20, Qt::ControlModifier);
    QCOMPARE(x()->getValue(), 97.0f);
    drag(hip()->getScaleControl(), 40);
    QCOMPARE(hip()->getScaleControl()->getValue(), 1.2f); // per cent
}

void TestParametersValues::draggingBackMakesNoEntry()
{
    x()->setKey(0, 5.0f, 0);
    const QPoint from = middle(x(), Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.moveTo(from + QPoint(80, 0));
    QCOMPARE(x()->getValue(), 35.0f);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.release(from + QPoint(20, 0));
    QCOMPARE(x()->getValue(), 5.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersValues::escapeEndsADrag()
{
    const QPoint from = middle(x(), Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.moveTo(from + QPoint(80, 0));
    QCOMPARE(x()->getNumKeys(), 1);
    QTest::keyClick(view(), Qt::Key_Escape);
    QCOMPARE(x()->getNumKeys(), 0);
    mouse.moveTo(from + QPoint(90, 0));
    mouse.release(from + QPoint(90, 0));
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    QVERIFY(!field());
}

void TestParametersValues::aDragOutlivesNoNode()
{
    const QPoint from = middle(x(), Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.moveTo(from + QPoint(80, 0));
    vxScene->clear();
    mouse.moveTo(from + QPoint(90, 0));
    mouse.release(from + QPoint(90, 0));
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void TestParametersValues::typingIsOneEntry()
{
    vxScene->setTime(160);
    click(x());
    QTRY_VERIFY(field() && field()->hasFocus());
    QTest::keyClicks(field(), "12.5");
    QCOMPARE(x()->getNumKeys(), 0); // not before it is complete
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(x()->getKeyTime(0), 160);
    QCOMPARE(x()->getKeyValue(0), 12.5f);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QTRY_VERIFY(!field());
    // By leaving the field, too.
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "-3");
    click(hip()->getYPosControl(), Model::LabelColumn);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getKeyValue(0), -3.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 2);
}

void TestParametersValues::openingAndLeavingTheFieldChangesNothing()
{
    x()->setKey(0, 0.123456789f, 0);
    vxScene->setTime(80);
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(x()->getKeyValue(0), 0.123456789f);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersValues::escapeDiscardsTheTypedText()
{
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "77");
    QTest::keyClick(field(), Qt::Key_Escape);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 0.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    // The steps that are no entry yet are reverted.
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClick(field(), Qt::Key_Up);
    QCOMPARE(x()->getValue(), 1.0f);
    QTest::keyClick(field(), Qt::Key_Escape);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersValues::commasAndPercentSigns()
{
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "1,5");
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 1.5f);
    click(hip()->getScaleControl());
    QTRY_VERIFY(field());
    QCOMPARE(field()->text(), QString("100%"));
    QTest::keyClicks(field(), "250");
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(hip()->getScaleControl()->getValue(), 2.5f);
    QCOMPARE(cell(hip()->getScaleControl(), Model::ValueColumn).data().toString(), QString("250%"));
}

void TestParametersValues::wholeNumbersAreRounded()
{
    auto *whole = qobject_cast<VxIntProperty *>(m_special.integer);
    whole->setMinMax(-50, 50);
    click(whole);
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "2.6");
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(whole->getValue(), 3);
    QCOMPARE(notice(), QString("Integer must be a whole number. The nearest one was set."));
    drag(whole, 400);
    QCOMPARE(whole->getValue(), 50);
    drag(whole, -12);
    QCOMPARE(whole->getValue(), 44);
}

void TestParametersValues::digitsBeginToType()
{
    view()->setCurrentIndex(cell(x(), Model::LabelColumn));
    view()->setFocus();
    QTest::keyClick(view(), '7');
    QTRY_VERIFY(field());
    QCOMPARE(field()->text(), QString("7"));
    QTest::keyClicks(field(), ".5");
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 7.5f);
    QTRY_VERIFY(!field());
    QTest::keyClick(view(), Qt::Key_F2);
    QTRY_VERIFY(field());
}

void TestParametersValues::tabOpensTheNextField()
{
    VxFloatProperty *z = hip()->getZPosControl();
    click(z);
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "4");
    QTest::keyClick(field(), Qt::Key_Tab);
    QCOMPARE(z->getValue(), 4.0f);
    // Over the heading.
    QTRY_COMPARE(view()->currentIndex().row(),
                 cell(hip()->getXRotControl(), Model::LabelColumn).row());
    QTRY_VERIFY(field() && field()->hasFocus());
    QTest::keyClicks(field(), "30");
    QTest::keyClick(field(), Qt::Key_Backtab);
    QCOMPARE(hip()->getXRotControl()->getValue(), 30.0f);
    QTRY_COMPARE(view()->currentIndex().row(), cell(z, Model::LabelColumn).row());
    QCOMPARE(vxApp->getUndoStack()->count(), 2);
}

void TestParametersValues::steppingIsOneEntry()
{
    click(x());
    QTRY_VERIFY(field());
    for (int i = 0; i < 25; ++i)
        QTest::keyClick(field(), Qt::Key_Up);
    QCOMPARE(x()->getValue(), 25.0f); // at once
    QTest::keyClick(field(), Qt::Key_Down);
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 24.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    vxApp->getUndoStack()->undo();
    QCOMPARE(x()->getNumKeys(), 0);
}

void TestParametersValues::stepsAfterARestAreAnotherEntry()
{
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClick(field(), Qt::Key_Up);
    QTRY_COMPARE(vxApp->getUndoStack()->count(), 1);
    QTest::keyClick(field(), Qt::Key_PageUp);
    QTRY_COMPARE(vxApp->getUndoStack()->count(), 2);
    QCOMPARE(x()->getValue(), 11.0f);
    vxApp->getUndoStack()->undo();
    QCOMPARE(x()->getValue(), 1.0f);
    QTRY_COMPARE(field()->text(), QString("1")); // the field shows it
}

void TestParametersValues::undoKeyInTheField()
{
    QAction undo;
    undo.setShortcut(QKeySequence::Undo);
    connect(&undo, &QAction::triggered, vxApp->getUndoStack(), &VxUndoStack::undo);
    m_pane->addAction(&undo);
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClick(field(), Qt::Key_Up);
    QCOMPARE(x()->getNumKeys(), 1);
    QTest::keyClick(field(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(x()->getNumKeys(), 0);
    // While something is typed, undo is the field's own.
    x()->setStoredValue(3.0f);
    QTest::keyClick(field(), Qt::Key_Up);
    QTest::keyClicks(field(), "5");
    QTest::keyClick(field(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(x()->getNumKeys(), 1);
}

void TestParametersValues::theWheelScrollsWithoutTheFocus()
{
    m_pane->resize(280, 200);
    QCoreApplication::processEvents();
    const int before = view()->verticalScrollBar()->value();
    wheel(port(), -2);
    QVERIFY(view()->verticalScrollBar()->value() > before);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersValues::theWheelStepsInTheField()
{
    click(x());
    QTRY_VERIFY(field());
    for (int i = 0; i < 7; ++i)
        wheel(field(), 1);
    QCOMPARE(x()->getValue(), 7.0f);
    field()->clearFocus();
    QTRY_VERIFY(!field());
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
}

void TestParametersValues::theFieldFollowsTheTime()
{
    x()->setKey(0, 1.0f, 0);
    x()->setKey(320, 3.0f, 0);
    click(x());
    QTRY_VERIFY(field());
    QCOMPARE(field()->text(), QString("1"));
    vxScene->setTime(160);
    QTRY_COMPARE(field()->text(), QString("2"));
    QTest::keyClicks(field(), "8");
    vxScene->setTime(320);
    QCOMPARE(field()->text(), QString("8")); // typed text stays
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getKeyValue(1), 8.0f);
}

void TestParametersValues::switchesAreClicked()
{
    auto *flag = qobject_cast<VxIntProperty *>(m_special.boolean);
    click(flag);
    QCOMPARE(flag->getValue(), 1);
    QVERIFY(!field());
    click(flag);
    QCOMPARE(flag->getValue(), 0);
    view()->setCurrentIndex(cell(flag, Model::LabelColumn));
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(flag->getValue(), 1);
    QCOMPARE(vxApp->getUndoStack()->count(), 3);
}

void TestParametersValues::textsAreTyped()
{
    click(m_special.text);
    QTRY_VERIFY(view()->findChild<QLineEdit *>());
    auto *line = view()->findChild<QLineEdit *>();
    QTest::keyClicks(line, "a word");
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_VERIFY(!view()->findChild<QLineEdit *>());
    QCOMPARE(cell(m_special.text, Model::ValueColumn).data().toString(), QString("a word"));
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
}

void TestParametersValues::lockedValuesDoNotChange()
{
    auto *locked = qobject_cast<VxFloatProperty *>(m_special.locked);
    const float before = locked->getValue();
    drag(locked, 50);
    click(locked);
    QVERIFY(!field());
    click(locked, Model::KeyColumn);
    QCOMPARE(locked->getValue(), before);
    QCOMPARE(locked->getNumKeys(), 2);
    click(m_special.linked);
    QVERIFY(!field());
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

VX_TEST_UNIT(&runParametersTest<TestParametersValues>)

#include "tst_parametersvalues.moc"
