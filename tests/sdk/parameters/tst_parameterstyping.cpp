// Typing, the keyboard and the clipboard in the Parameters pane, and the sizes of its columns.

#include "parameterspanetestbase.h"
#include "testing/vxtestmain.h"

#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <vxcore/vxundostackhold.h>

class TestParametersTyping : public ParametersPaneTestBase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void valuesBeyondTheLimitsAreCutOffWithAWord();
    void unreadableTextKeepsTheFieldOpen();
    void leavingUnreadableTextShowsAMessage();
    void foreignLettersAreRefusedWithAWord();
    void aPressElsewhereKeepsTheWord();
    void theKeyMarkAfterTypingKeepsTheKey();
    void aNodeIsRemovedWhileAValueIsTyped();
    void allDigitsAreShownInTheField();
    void enterOpensAndClosesGroups();
    void theMenuKeySetsAKey();
    void severalRowsAreCopiedAndPasted();
    void theListCopiesBeforeTheProgramDoes();
    void pastingInvalidTextShowsAMessage();
    void aShortListInBetweenKeepsThePlace();
    void columnsFitTheWidth();

private:
    VxUndoStack *stack() const { return vxApp->getUndoStack(); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
};

void TestParametersTyping::valuesBeyondTheLimitsAreCutOffWithAWord()
{
    x()->setMinMax(-50.0f, 50.0f);
    type(x(), "77");
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 50.0f);
    QCOMPARE(notice(), QString("X Translate must be from -50 to 50. The nearest value was set."));
    type(x(), "20");
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 20.0f);
    QCOMPARE(notice(), QString());
    hip()->getScaleControl()->setMinMax(0.0f, 2.0f);
    type(hip()->getScaleControl(), "-10%");
    QTRY_VERIFY(!field());
    QCOMPARE(hip()->getScaleControl()->getValue(), 0.0f);
    QCOMPARE(notice(), QString("Scale must be from 0% to 200%. The nearest value was set."));
}

void TestParametersTyping::unreadableTextKeepsTheFieldOpen()
{
    for (const int key : {Qt::Key_Return, Qt::Key_Tab}) {
        type(x(), "3*", key);
        QCoreApplication::processEvents();
        QVERIFY(field());
        QCOMPARE(field()->text(), QString("3*"));
        QVERIFY2(notice().contains("3*"), qPrintable(notice()));
        QTest::keyClick(field(), Qt::Key_Escape);
        QTRY_VERIFY(!field());
    }
    type(x(), "3*");
    QTest::keyClicks(field(), "4");
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 12.0f);
    QCOMPARE(stack()->count(), 1);
}

void TestParametersTyping::leavingUnreadableTextShowsAMessage()
{
    x()->setStoredValue(4.0f);
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "(3");
    field()->clearFocus();
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 4.0f);
    QCOMPARE(stack()->count(), 0);
    QVERIFY2(notice().contains("(3"), qPrintable(notice()));
}

void TestParametersTyping::foreignLettersAreRefusedWithAWord()
{
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "4x");
    QCOMPARE(field()->text(), QString("4"));
    QVERIFY(!notice().isEmpty());
}

void TestParametersTyping::aPressElsewhereKeepsTheWord()
{
    x()->setMinMax(0.0f, 1.0f);
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "5");
    click(hip()->getZPosControl(), Model::LabelColumn);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 1.0f);
    QVERIFY2(notice().contains("from 0 to 1"), qPrintable(notice()));
    click(hip()->getZPosControl(), Model::LabelColumn);
    QCOMPARE(notice(), QString());
}

/// The press ends the typing, which sets the key, before it toggles the mark.
void TestParametersTyping::theKeyMarkAfterTypingKeepsTheKey()
{
    vxScene->setTime(160);
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "5");
    click(x(), Model::KeyColumn);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(x()->getKeyValue(0), 5.0f);
    click(x(), Model::KeyColumn);
    QCOMPARE(x()->getNumKeys(), 0);
    // The mark of another row works as always.
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "6");
    click(hip()->getYPosControl(), Model::KeyColumn);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(hip()->getYPosControl()->getNumKeys(), 1);
}

void TestParametersTyping::aNodeIsRemovedWhileAValueIsTyped()
{
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "5");
    vxScene->removeNode(hip());
    if (field())
        QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QVERIFY(!stack()->isRecording());
    QCOMPARE(stack()->count(), 0);
    QCOMPARE(model()->rowCount(), 0);
}

void TestParametersTyping::allDigitsAreShownInTheField()
{
    x()->setStoredValue(0.12345679f);
    QCOMPARE(cell(x(), Model::ValueColumn).data().toString(), QString("0.1235"));
    QVERIFY(cell(x(), Model::ValueColumn).data(Qt::ToolTipRole).toString().contains("0.12345679"));
    click(x());
    QTRY_VERIFY(field());
    QCOMPARE(field()->text(), QString("0.12345679"));
    x()->setStoredValue(0.00001f);
    QCOMPARE(cell(x(), Model::ValueColumn).data().toString(), QString("1e-05"));
}

void TestParametersTyping::enterOpensAndClosesGroups()
{
    const QModelIndex heading = model()->index(cell(x(), 0).row() - 1, 0);
    view()->setFocus();
    view()->setCurrentIndex(heading);
    QTest::keyClick(view(), Qt::Key_Return);
    QVERIFY(view()->isGroupCollapsed(x()->getPath()));
    QTest::keyClick(view(), Qt::Key_Enter);
    QVERIFY(!view()->isGroupCollapsed(x()->getPath()));
}

void TestParametersTyping::theMenuKeySetsAKey()
{
    view()->setFocus();
    view()->setCurrentIndex(cell(x(), 0));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, port()->rect().center());
    QApplication::sendEvent(view(), &event);
    QWidget *menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    QVERIFY(QTest::qWaitForWindowExposed(menu));
    const QRect row = view()->visualRect(cell(x(), 0));
    QVERIFY(qAbs(menu->pos().y() - port()->mapToGlobal(row.bottomLeft()).y()) < 5);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QVERIFY(x()->hasKey(0));
    QCOMPARE(stack()->undoText(), QString("Set Key"));
}

void TestParametersTyping::severalRowsAreCopiedAndPasted()
{
    x()->setStoredValue(0.12345679f);
    hip()->getYPosControl()->setStoredValue(-2.0f);
    VxMouseDriver mouse(port());
    // Copying a heading copies its whole group.
    mouse.click(view()->visualRect(model()->index(cell(x(), 0).row() - 1, 0)).center());
    QTest::keyClick(view(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("0.12345679\n-2\n0"));
    mouse.click(middle(hip()->getXRotControl(), Model::LabelColumn));
    mouse.click(middle(hip()->getZRotControl(), Model::LabelColumn), Qt::LeftButton,
                Qt::ShiftModifier);
    QTest::keyClick(view(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(hip()->getXRotControl()->getValue(), 0.12345679f);
    QCOMPARE(hip()->getYRotControl()->getValue(), -2.0f);
    QCOMPARE(hip()->getZRotControl()->getValue(), 0.0f);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(stack()->undoText(), QString("Paste Value"));
    QCOMPARE(notice(), QString());
}

/// The program may have a command of its own under the same key.
void TestParametersTyping::theListCopiesBeforeTheProgramDoes()
{
    QAction other;
    other.setShortcut(QKeySequence::Copy);
    int triggered = 0;
    connect(&other, &QAction::triggered, this, [&triggered] { ++triggered; });
    m_pane->addAction(&other);
    QGuiApplication::clipboard()->clear();
    x()->setStoredValue(3.5f);
    click(x(), Model::LabelColumn);
    press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("3.5"));
    QCOMPARE(triggered, 0);
    vxScene->selectAllNodes(false); // nothing to copy from
    QCoreApplication::processEvents();
    press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(triggered, 1);
}

void TestParametersTyping::pastingInvalidTextShowsAMessage()
{
    click(x(), Model::LabelColumn);
    QGuiApplication::clipboard()->setText("wide");
    QTest::keyClick(view(), Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(notice().contains("wide"), qPrintable(notice()));
    QGuiApplication::clipboard()->setText("1\n2\n");
    QTest::keyClick(view(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(notice(), QString("2 values cannot be pasted into 1 rows."));
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(stack()->count(), 0);
    x()->setMinMax(0.0f, 1.0f);
    QGuiApplication::clipboard()->setText("3\r\n");
    QTest::keyClick(view(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(x()->getValue(), 1.0f);
    QVERIFY2(notice().contains("from 0 to 1"), qPrintable(notice()));
}

void TestParametersTyping::aShortListInBetweenKeepsThePlace()
{
    m_pane->resize(280, 320);
    QCoreApplication::processEvents();
    QScrollBar *bar = view()->verticalScrollBar();
    bar->setValue(bar->maximum());
    const int place = bar->value();
    QVERIFY(place > 50);
    vxScene->selectAllNodes(false);
    m_bones.at(1)->select();
    QCoreApplication::processEvents();
    QVERIFY(bar->value() < place); // without the special properties
    vxScene->selectAllNodes(false);
    hip()->select();
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), place);
}

void TestParametersTyping::columnsFitTheWidth()
{
    const auto width = [this](int column) { return view()->header()->sectionSize(column); };
    for (const int pane : {200, 280, 400, 900}) {
        m_pane->resize(pane, 500);
        QCoreApplication::processEvents();
        QCOMPARE(width(0) + width(1) + width(2), port()->width());
        QVERIFY(width(Model::ValueColumn) >= 64 && width(Model::ValueColumn) <= 160);
        QVERIFY(width(Model::LabelColumn) >= width(Model::ValueColumn));
    }
    QCOMPARE(view()->getValueWidth(), 0); // no width was set
    view()->header()->resizeSection(Model::ValueColumn, 300);
    QCOMPARE(view()->getValueWidth(), 300);
    m_pane->resize(200, 500);
    QCoreApplication::processEvents();
    QVERIFY(width(Model::ValueColumn) < 120);
    m_pane->resize(900, 500);
    QCoreApplication::processEvents();
    QCOMPARE(width(Model::ValueColumn), 300);
}

VX_TEST_UNIT(&runParametersTest<TestParametersTyping>)

#include "tst_parameterstyping.moc"
