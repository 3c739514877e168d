#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QSpinBox>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxscriptengine.h>

/// The shortcuts of gestures on keys in the whole program: they work over the timeline's views and
/// leave text fields and other panes alone.
class tst_KeyGestureKeys : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void overTheViews_data();
    void overTheViews();
    void notInTextFields();
    void notInOtherPanes();
    void byTheMenu();
    void copiedKeysArePastedToAnotherNode();
    void aCopiedWalkIsPastedMirrored();

private:
    QWidget *sheet() const { return inTimePane<QWidget>("TimelineDopeSheetTView"); }
    QWidget *gesture() const
    {
        auto *found = timePane()->findChild<QWidget *>("KeyGesture");
        return found && found->isVisible() ? found : nullptr;
    }
    static VxTime firstTime() { return m_channel->getKeyTime(0); }

    static VxFloatProperty *m_channel;
};

VxFloatProperty *tst_KeyGestureKeys::m_channel = nullptr;

void tst_KeyGestureKeys::init()
{
    setUpShared();
    auto *node = new VxNode("node");
    vxScene->addNode(node);
    m_channel = node->getXPosControl();
    for (int frame = 0; frame < 3; ++frame)
        m_channel->setKey(frame * 160, float(frame), VxKeyInterp::Linear);
    vxApp->getKeySelection()->set({{m_channel, {{0, 3}}, 0}});
    vxApp->getUndoStack()->clear();
    window()->viewport()->setFocus();
    QCoreApplication::processEvents();
}

void tst_KeyGestureKeys::overTheViews_data()
{
    QTest::addColumn<bool>("byFocus");
    QTest::newRow("with the focus in the dope sheet") << true;
    QTest::newRow("with the mouse over it") << false;
}

void tst_KeyGestureKeys::overTheViews()
{
    QFETCH(bool, byFocus);
    if (byFocus)
        sheet()->setFocus();
    else
        VxMouseDriver(sheet()).moveTo(sheet()->rect().center());
    type(Qt::Key_G);
    QVERIFY(gesture());
    type(Qt::Key_1);
    type(Qt::Key_0);
    QCOMPARE(firstTime(), 1600);
    type(Qt::Key_Space); // no shortcut in mid gesture
    QVERIFY(!vxScene->isPlaying());
    type(Qt::Key_Backspace);
    type(Qt::Key_Return);
    QVERIFY(!gesture());
    QCOMPARE(firstTime(), 160);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    sheet()->setFocus();
    type(Qt::Key_S, Qt::ShiftModifier);
    QVERIFY(gesture());
    type(Qt::Key_2);
    QCOMPARE(m_channel->getKeyTime(2), 160 + 4 * 160);
    type(Qt::Key_Escape);
    QCOMPARE(m_channel->getKeyTime(2), 160 + 2 * 160);
    QCOMPARE(QApplication::focusWidget(), sheet());
    type(Qt::Key_D, Qt::ShiftModifier);
    type(Qt::Key_5);
    type(Qt::Key_Return);
    QCOMPARE(m_channel->getNumKeys(), 6);
    type(Qt::Key_V);
    type(Qt::Key_5);
    type(Qt::Key_Return);
    QCOMPARE(m_channel->getKeyValue(3), 5.0F);
    type(Qt::Key_V, Qt::ShiftModifier);
    type(Qt::Key_2);
    type(Qt::Key_Return);
    QCOMPARE(m_channel->getKeyValue(3), 10.0F);
    QCOMPARE(m_channel->getKeyValue(0), 0.0F);
}

void tst_KeyGestureKeys::notInTextFields()
{
    auto *field = inTimePane<QSpinBox>("TimelineCurrentFrameLEdit");
    field->setFocus();
    VxMouseDriver(sheet()).moveTo(sheet()->rect().center());
    type(Qt::Key_G);
    QVERIFY(!gesture());
    QLineEdit text(window());
    text.show();
    text.setFocus();
    type(Qt::Key_G);
    type(Qt::Key_D, Qt::ShiftModifier);
    QCOMPARE(text.text().toLower(), QString("gd"));
    QVERIFY(!gesture());
}

void tst_KeyGestureKeys::notInOtherPanes()
{
    VxMouseDriver(window()->viewport()).moveTo(window()->viewport()->rect().center());
    type(Qt::Key_G);
    QVERIFY(!gesture());
}

void tst_KeyGestureKeys::byTheMenu()
{
    action("VxKeyToolsMoveGestureAction")->trigger();
    QVERIFY(gesture());
    // Playback, scripts and the rest of the program go on; opening a menu drops the gesture.
    type(Qt::Key_3);
    QCOMPARE(firstTime(), 480);
    QMenu *menu = window()->menuBar()->actions().first()->menu();
    menu->popup(QPoint(10, 10));
    QVERIFY(!gesture());
    menu->close();
    QCOMPARE(firstTime(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

// The clipboard is that of the timeline.
void tst_KeyGestureKeys::copiedKeysArePastedToAnotherNode()
{
    auto *other = new VxNode("other");
    vxScene->addNode(other);
    sheet()->setFocus();
    type(Qt::Key_C, Qt::ControlModifier);
    other->select();
    vxScene->setTime(160);
    vxApp->getScriptEngine()->evaluate("KeyTools.paste()", "test");
    QCOMPARE(other->getXPosControl()->getNumKeys(), 3);
    QCOMPARE(other->getXPosControl()->getKeyTime(2), 3 * 160);
    QCOMPARE(other->getXPosControl()->getKeyValue(2), 2.0F);
    // The pasted keys are the selected ones.
    const VxKeySelectionEntries entries = vxApp->getKeySelection()->entries();
    QCOMPARE(entries.size(), std::size_t(1));
    QCOMPARE(entries[0].holder, other->getXPosControl());
    QCOMPARE(vxApp->getUndoStack()->undoText(), QString("Paste Keys"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(other->getXPosControl()->getNumKeys(), 0);
}

// All keys of the sample's figure, in their place: linear, constant and smooth ones.
void tst_KeyGestureKeys::aCopiedWalkIsPastedMirrored()
{
    openSample();
    VxKeySelectionEntries all;
    for (const VxNode *node : vxScene->getNodes()) {
        for (VxProperty *property : node->getMadeProperties()) {
            if (property->getNumKeys() > 0)
                all.push_back({property, {{0, property->getNumKeys()}}, 0});
        }
    }
    vxApp->getKeySelection()->set(all);
    sheet()->setFocus();
    type(Qt::Key_C, Qt::ControlModifier);
    const auto places = [](const char *name) {
        std::vector<QVector3D> found;
        for (VxTime time = 0; time <= vxScene->getAnimRange().getEnd(); time += 80)
            found.push_back(
                vxScene->findNode(name)->getWorldTransform(time).column(3).toVector3D());
        return found;
    };
    const std::vector<QVector3D> hand = places("lHand");
    const std::vector<QVector3D> foot = places("rFoot");
    const std::vector<QVector3D> otherFoot = places("lFoot");
    vxApp->getUndoStack()->clear();
    const QString message =
        vxApp->getScriptEngine()->evaluate("KeyTools.pasteMirrored().message", "test");
    QVERIFY2(message.contains("39 to the other side, 10 in place"), qPrintable(message));
    QVERIFY2(!message.contains("not found"), qPrintable(message));
    const auto isMirrored = [](const QVector3D &a, const QVector3D &b) {
        return (QVector3D(-a.x(), a.y(), a.z()) - b).length() < 1e-2F;
    };
    const std::vector<QVector3D> pastedHand = places("rHand");
    const std::vector<QVector3D> pastedFoot = places("lFoot");
    QVERIFY(std::equal(hand.begin(), hand.end(), pastedHand.begin(), isMirrored));
    QVERIFY(std::equal(foot.begin(), foot.end(), pastedFoot.begin(), isMirrored));
    QVERIFY(otherFoot != pastedFoot);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QCOMPARE(vxApp->getUndoStack()->undoText(), QString("Paste Mirrored"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(places("lFoot"), otherFoot);
}

VX_TEST_MAIN(tst_KeyGestureKeys)
#include "tst_keygesturekeys.moc"
