// Gestures in the Parameters pane that are disturbed: by the edge of the screen, a key, another
// command.

#include "parameterspanetestbase.h"
#include "testing/vxtestmain.h"

#include <QCursor>
#include <QLineEdit>
#include <QScreen>
#include <vxcore/vxundostackhold.h>

class TestParametersGestures : public ParametersPaneTestBase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void aDragContinuesBeyondTheScreen();
    void escapeRestoresExactValues_data();
    void escapeRestoresExactValues();
    void movesAfterEscapeAreIgnored();
    void otherKeysAreIgnoredInADrag();
    void modifiersMayBePressedFirst();
    void aClickWithAModifierSelects();
    void anUndoInADragIsRefused();
    void aNodeIsRemovedInADrag();
    void aPropertyIsRemovedInADrag();
    void playbackInADrag();
    void thePaneIsHiddenInADrag();
    void aListenerHidesThePaneInADrag();
    void theFocusIsLostInADrag();
    void anotherNodeIsSelectedInADrag();
    void theOtherButtonInADrag();
    void aRefusedDragShowsTheReason();

private:
    struct Begun
    {
        VxMouseDriver mouse;
        QPoint from;
        void to(int pixels, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
        {
            mouse.moveTo(from + QPoint(20 + pixels, 0), modifiers);
        }
        void end(int pixels) { mouse.release(from + QPoint(20 + pixels, 0)); }
    };
    Begun begin(const VxProperty *property);
    VxUndoStack *stack() const { return vxApp->getUndoStack(); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
};

/// Pressed and moved as far as it takes to be a drag.
TestParametersGestures::Begun TestParametersGestures::begin(const VxProperty *property)
{
    Begun begun = {VxMouseDriver(port()), middle(property, Model::ValueColumn)};
    begun.mouse.press(begun.from);
    begun.to(0);
    return begun;
}

void TestParametersGestures::aDragContinuesBeyondTheScreen()
{
    const QRect screen = m_pane->screen()->geometry();
    const QPoint from = port()->mapToGlobal(middle(x(), Model::ValueColumn));
    const auto place = [this](const QPoint &global) { return port()->mapFromGlobal(global); };
    VxMouseDriver mouse(port());
    mouse.press(place(from));
    mouse.moveTo(place(from + QPoint(20, 0)));
    const QPoint edge(screen.right(), from.y());
    mouse.moveTo(place(edge));
    const int travelled = edge.x() - from.x() - 20;
    QCOMPARE(x()->getValue(), float(travelled / 2));
    // The pointer was moved to the other side, and the drag continues from there.
    const QPoint other = QCursor::pos();
    QVERIFY2(other.x() < screen.left() + 10, qPrintable(QString::number(other.x())));
    QCOMPARE(other.y(), from.y());
    mouse.moveTo(place(other));
    QCOMPARE(x()->getValue(), float(travelled / 2));
    mouse.moveTo(place(other + QPoint(100, 0)));
    QCOMPARE(x()->getValue(), float((travelled + 100) / 2));
    mouse.release(place(other + QPoint(100, 0)));
    QCOMPARE(stack()->count(), 1);
    stack()->undo();
    QCOMPARE(x()->getNumKeys(), 0);
}

void TestParametersGestures::escapeRestoresExactValues_data()
{
    QTest::addColumn<int>("keyed"); // bits: keys around, a key here
    QTest::addColumn<bool>("animating");
    QTest::newRow("no keys, a key would be added") << 0 << true;
    QTest::newRow("no keys, the value itself changes") << 0 << false;
    QTest::newRow("between keys") << 1 << true;
    QTest::newRow("on a key") << 3 << true;
    QTest::newRow("on a key that alone can change") << 3 << false;
}

void TestParametersGestures::escapeRestoresExactValues()
{
    QFETCH(int, keyed);
    QFETCH(bool, animating);
    vxScene->setTime(480);
    x()->setStoredValue(0.1f);
    if (keyed & 1) {
        x()->setKey(0, 1.3f, 2, 0.5f, 0.25f, -0.5f);
        x()->setKey(960, 2.7f, 0);
    }
    if (keyed & 2)
        x()->setKey(480, 9.1f, 2, 0.1f, 0.2f, 0.3f);
    vxScene->setAnimating(animating);
    const int keys = x()->getNumKeys();
    const float value = x()->getValue(480);
    Begun hand = begin(x());
    hand.to(81);
    hand.to(-30);
    hand.to(57);
    QVERIFY(x()->getValue(480) != value);
    press(Qt::Key_Escape);
    hand.end(60);
    QCOMPARE(x()->getNumKeys(), keys);
    QVERIFY(x()->getValue(480) == value); // to the last bit
    QVERIFY(x()->getStoredValue() == 0.1f);
    if (keyed & 2) {
        float tension = 0, continuity = 0, bias = 0;
        QCOMPARE(x()->getKeyInterpolationType(1, &tension, &continuity, &bias), 2);
        QVERIFY(tension == 0.1f && continuity == 0.2f && bias == 0.3f);
    }
    QCOMPARE(stack()->count(), 0);
    QVERIFY(!stack()->isRecording());
}

void TestParametersGestures::movesAfterEscapeAreIgnored()
{
    Begun hand = begin(x());
    hand.to(40);
    press(Qt::Key_Escape);
    hand.mouse.moveTo(middle(hip()->getXRotControl(), Model::ValueColumn));
    hand.mouse.moveTo(middle(hip()->getZRotControl(), Model::ValueColumn));
    QCOMPARE(view()->selectionModel()->selectedRows().size(), 1); // no rows are swept over
    hand.mouse.release(middle(hip()->getZRotControl(), Model::ValueColumn));
    QVERIFY(!field());
    QCOMPARE(stack()->count(), 0);
    // The next one works.
    drag(x(), 40);
    QCOMPARE(x()->getValue(), 20.0f);
}

void TestParametersGestures::otherKeysAreIgnoredInADrag()
{
    Begun hand = begin(x());
    hand.to(40);
    for (const int key : {Qt::Key_5, Qt::Key_Return, Qt::Key_Down, Qt::Key_F2, Qt::Key_Tab})
        QTest::keyClick(view(), Qt::Key(key));
    QVERIFY(!field());
    hand.to(60);
    hand.end(60);
    QCOMPARE(x()->getValue(), 30.0f);
    QCOMPARE(stack()->count(), 1);
}

void TestParametersGestures::modifiersMayBePressedFirst()
{
    const QPoint from = middle(x(), Model::ValueColumn);
    click(hip()->getYRotControl(), Model::LabelColumn);
    VxMouseDriver mouse(port());
    for (const Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier}) {
        mouse.press(from, Qt::LeftButton, modifier);
        mouse.moveTo(from + QPoint(20, 0), modifier);
        mouse.moveTo(from + QPoint(40, 0), modifier);
        mouse.release(from + QPoint(40, 0), Qt::LeftButton, modifier);
    }
    QCOMPARE(x()->getValue(), 101.0f);
    QCOMPARE(stack()->count(), 2);
    QCOMPARE(view()->selectionModel()->selectedRows().size(), 1); // not selected by it
}

void TestParametersGestures::aClickWithAModifierSelects()
{
    VxMouseDriver mouse(port());
    mouse.click(middle(x(), Model::LabelColumn));
    mouse.click(middle(hip()->getZPosControl(), Model::ValueColumn), Qt::LeftButton,
                Qt::ShiftModifier);
    QCOMPARE(view()->selectionModel()->selectedRows().size(), 3);
    mouse.click(middle(hip()->getYPosControl(), Model::ValueColumn), Qt::LeftButton,
                Qt::ControlModifier);
    QCOMPARE(view()->selectionModel()->selectedRows().size(), 2);
    QVERIFY(!field());
    QCOMPARE(stack()->count(), 0);
}

void TestParametersGestures::anUndoInADragIsRefused()
{
    drag(hip()->getYPosControl(), 40);
    Begun hand = begin(x());
    hand.to(40);
    stack()->undo();
    stack()->redo();
    stack()->setIndex(0);
    QCOMPARE(hip()->getYPosControl()->getValue(), 20.0f);
    QCOMPARE(x()->getValue(), 20.0f);
    hand.to(60);
    hand.end(60);
    QCOMPARE(x()->getValue(), 30.0f);
    QCOMPARE(stack()->count(), 2);
    stack()->undo();
    stack()->undo();
    QCOMPARE(x()->getNumKeys() + hip()->getYPosControl()->getNumKeys(), 0);
    stack()->setIndex(2);
    QCOMPARE(x()->getValue(), 30.0f);
}

void TestParametersGestures::aNodeIsRemovedInADrag()
{
    Begun hand = begin(x());
    hand.to(40);
    VxNode *removed = hip();
    {
        VxUndoStackHold hold;
        vxScene->removeNode(removed);
        hold.accept(QStringLiteral("Remove Node"));
    }
    hand.to(60);
    hand.end(60);
    QVERIFY(!stack()->isRecording());
    QCOMPARE(vxScene->getNumNodes(), 2);
    for (int i = 0; i < stack()->count(); ++i)
        QVERIFY2(!stack()->text(i).isEmpty(), qPrintable(QString::number(i)));
    const int entries = stack()->count();
    while (stack()->index() > 0)
        stack()->undo();
    QCOMPARE(vxScene->getNumNodes(), 3);
    QCOMPARE(x()->getNumKeys(), 0);
    stack()->setIndex(entries);
    QCOMPARE(vxScene->getNumNodes(), 2);
}

void TestParametersGestures::aPropertyIsRemovedInADrag()
{
    auto *extra = new VxFloatProperty(QStringLiteral("extra"));
    hip()->addProperty(extra, QStringLiteral("/G"));
    QTRY_VERIFY(cell(extra, 0).isValid());
    Begun hand = begin(extra);
    hand.to(40);
    hip()->removeProperty(extra);
    hand.to(60);
    hand.end(60);
    QVERIFY(!stack()->isRecording());
    QCoreApplication::processEvents();
    drag(x(), 40);
    QCOMPARE(x()->getValue(), 20.0f);
}

void TestParametersGestures::playbackInADrag()
{
    vxScene->setPlayRange({0, 48000});
    vxScene->play();
    Begun hand = begin(x());
    QVERIFY(!vxScene->isPlaying()); // else it would leave a trail
    const VxTime begun = vxScene->getTime();
    hand.to(40);
    vxScene->play();
    vxScene->setTime(begun + 1600);
    hand.to(60);
    hand.end(60);
    vxScene->pause();
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(x()->getKeyTime(0), begun);
    QCOMPARE(x()->getKeyValue(0), 30.0f);
    QCOMPARE(stack()->count(), 1);
}

void TestParametersGestures::thePaneIsHiddenInADrag()
{
    Begun hand = begin(x());
    hand.to(40);
    m_pane->hide();
    QVERIFY(!stack()->isRecording());
    QCOMPARE(stack()->count(), 1);
    m_pane->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pane.get()));
    hand.to(80);
    hand.end(80);
    QCOMPARE(x()->getValue(), 20.0f);
    QCOMPARE(stack()->count(), 1);
}

void TestParametersGestures::theFocusIsLostInADrag()
{
    Begun hand = begin(x());
    hand.to(40);
    QLineEdit other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(!stack()->isRecording());
    hand.to(80);
    hand.end(80);
    QCOMPARE(x()->getValue(), 20.0f);
    QCOMPARE(stack()->count(), 1);
}

/// Within the very move that changes the value.
void TestParametersGestures::aListenerHidesThePaneInADrag()
{
    Begun hand = begin(x());
    hand.to(40);
    const auto connection =
        connect(x(), &VxProperty::valueChanged, this, [this] { m_pane->hide(); });
    hand.to(80);
    QVERIFY(m_pane->isHidden());
    QVERIFY(!stack()->isRecording());
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(x()->getValue(), 40.0f);
    disconnect(connection);
    m_pane->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pane.get()));
    hand.to(120);
    hand.end(120);
    QCOMPARE(x()->getValue(), 40.0f);
    QCOMPARE(stack()->count(), 1);
}

void TestParametersGestures::anotherNodeIsSelectedInADrag()
{
    Begun hand = begin(x());
    hand.to(40);
    m_bones.at(1)->select();
    QCoreApplication::processEvents();
    hand.to(80);
    hand.end(80);
    QVERIFY(!stack()->isRecording());
    QCOMPARE(x()->getValue(), 20.0f);
    QCOMPARE(m_bones.at(1)->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(stack()->count(), 1);
}

void TestParametersGestures::theOtherButtonInADrag()
{
    Begun hand = begin(x());
    hand.to(40);
    hand.mouse.press(hand.from + QPoint(60, 0), Qt::RightButton);
    QVERIFY(!stack()->isRecording());
    if (QWidget *menu = QApplication::activePopupWidget())
        menu->close();
    hand.mouse.release(hand.from + QPoint(60, 0), Qt::RightButton);
    hand.end(80);
    QCOMPARE(x()->getValue(), 20.0f);
    QCOMPARE(stack()->count(), 1);
}

void TestParametersGestures::aRefusedDragShowsTheReason()
{
    x()->setKey(160, 1.0f, 0);
    vxScene->setAnimating(false);
    drag(x(), 40);
    QCOMPARE(x()->getNumKeys(), 1);
    QVERIFY2(notice().startsWith("X Translate cannot be set: it has no key at this time"),
             qPrintable(notice()));
    QCOMPARE(stack()->count(), 0);
}

VX_TEST_UNIT(&runParametersTest<TestParametersGestures>)

#include "tst_parametersgestures.moc"
