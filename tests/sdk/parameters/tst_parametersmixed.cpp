// Several nodes whose values differ, in the Parameters pane.

#include "parameterspanetestbase.h"
#include "testing/vxtestmain.h"

#include <QClipboard>
#include <QCursor>
#include <QLineEdit>
#include <QScreen>
#include <QSignalSpy>
#include <QToolTip>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxstringproperty.h>

class TestParametersMixed : public ParametersPaneTestBase
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void differentValuesAreMixed();
    void equalValuesAreNotMixed();
    void keyStatesAreMixed();
    void typingSetsTheValueOfAll();
    void typingAChangeChangesEach();
    void steppingMovesEach();
    void draggingMovesEach();
    void aDragShowsItsDelta();
    void aDragThatBeginsAtTheEdgeOfTheScreen();
    void limitsDoNotLoseTheDistance();
    void leavingAMixedFieldChangesNothing();
    void oneLockedAmongThem();
    void switches();
    void texts();
    void copiedAndPasted();
    void mixedDependsOnTheTime();

private:
    VxFloatProperty *xOf(int bone) const { return m_bones.at(bone)->getXPosControl(); }
    QString shown(const VxProperty *property, int role = Qt::DisplayRole) const
    {
        return cell(property, Model::ValueColumn).data(role).toString();
    }
    bool isMixed(const VxProperty *property) const
    {
        return cell(property, Model::ValueColumn).data(Model::MixedRole).toBool();
    }
};

void TestParametersMixed::init()
{
    setUp();
    for (VxNode *node : qAsConst(m_bones))
        node->select();
    QCoreApplication::processEvents();
    for (int i = 0; i < 3; ++i)
        xOf(i)->setStoredValue(10.0f * float(i + 1));
}

void TestParametersMixed::differentValuesAreMixed()
{
    QVERIFY(isMixed(xOf(0)));
    QCOMPARE(shown(xOf(0)), QString("Mixed"));
    QCOMPARE(shown(xOf(0), Qt::EditRole), QString());
    QCOMPARE(shown(xOf(0), Qt::AccessibleTextRole), QString("Mixed values"));
    QVERIFY(shown(xOf(0), Qt::ToolTipRole).contains("Values from 10 to 30"));
    // By as little as a float can.
    for (int i = 0; i < 3; ++i)
        xOf(i)->setStoredValue(1.0f);
    QVERIFY(!isMixed(xOf(0)));
    xOf(1)->setStoredValue(1.0000001f);
    QVERIFY(isMixed(xOf(0)));
    xOf(1)->setStoredValue(1.0f);
    QCOMPARE(shown(xOf(0)), QString("1"));
}

void TestParametersMixed::equalValuesAreNotMixed()
{
    VxFloatProperty *y = hip()->getYPosControl();
    QVERIFY(!isMixed(y));
    QCOMPARE(shown(y), QString("0"));
    QCOMPARE(shown(y, Qt::AccessibleTextRole), QString("0"));
    const QModelIndex heading = cell(y, 0).sibling(0, Model::ValueColumn);
    QVERIFY(model()->isHeading(heading));
    QVERIFY(!heading.data(Model::MixedRole).toBool());
}

void TestParametersMixed::keyStatesAreMixed()
{
    const auto state = [this] {
        return cell(xOf(0), Model::KeyColumn).data(Model::KeyStateRole).toInt();
    };
    const auto spoken = [this] {
        return cell(xOf(0), Model::KeyColumn).data(Qt::AccessibleTextRole).toString();
    };
    QCOMPARE(state(), int(Model::NoKeys));
    QCOMPARE(spoken(), QString("No keys"));
    xOf(1)->setKey(0, 1.0f, 0);
    QCOMPARE(state(), int(Model::MixedKeys));
    QCOMPARE(spoken(), QString("Mixed keys"));
    // A click sets those that are missing, and leaves the value of the one that was there.
    click(xOf(0), Model::KeyColumn);
    QCOMPARE(state(), int(Model::OnKey));
    QCOMPARE(spoken(), QString("On a key"));
    QCOMPARE(xOf(0)->getKeyValue(0), 10.0f);
    QCOMPARE(xOf(1)->getKeyValue(0), 1.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    vxScene->setTime(160);
    QCOMPARE(state(), int(Model::Keyed));
    click(xOf(0), Model::KeyColumn);
    click(xOf(0), Model::KeyColumn);
    QCOMPARE(xOf(2)->getNumKeys(), 1);
    vxScene->setTime(0);
    click(xOf(0), Model::KeyColumn);
    QCOMPARE(state(), int(Model::NoKeys));
}

void TestParametersMixed::typingSetsTheValueOfAll()
{
    click(xOf(0));
    QTRY_VERIFY(field());
    QCOMPARE(field()->text(), QString());
    QCOMPARE(field()->findChild<QLineEdit *>()->placeholderText(), QString("Mixed"));
    QTest::keyClicks(field(), "7");
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getKeyValue(0), 7.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QVERIFY(!isMixed(xOf(0)));
    vxApp->getUndoStack()->undo();
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(xOf(i)->getNumKeys(), 0);
        QCOMPARE(xOf(i)->getValue(), 10.0f * float(i + 1));
    }
}

void TestParametersMixed::typingAChangeChangesEach()
{
    type(xOf(0), "*=1/2");
    QTRY_VERIFY(!field());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getValue(), 5.0f * float(i + 1));
    type(xOf(0), "+=1,5");
    QTRY_VERIFY(!field());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getValue(), 5.0f * float(i + 1) + 1.5f);
    QCOMPARE(vxApp->getUndoStack()->count(), 2);
}

void TestParametersMixed::steppingMovesEach()
{
    click(xOf(0));
    QTRY_VERIFY(field());
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(field(), Qt::Key_Up);
    QCOMPARE(field()->text(), QString()); // still mixed
    QTest::keyClick(field(), Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(field(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(field(), Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getValue(), 10.0f * float(i + 1) + 4.1f);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
}

void TestParametersMixed::draggingMovesEach()
{
    drag(xOf(0), 50);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getKeyValue(0), 10.0f * float(i + 1) + 25.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    vxApp->getUndoStack()->undo();
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getNumKeys(), 0);
}

/// The field cannot, while its values differ.
void TestParametersMixed::aDragShowsItsDelta()
{
    const QPoint from = middle(xOf(0), Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.moveTo(from + QPoint(70, 0));
    QCOMPARE(QToolTip::text(), QString("+25"));
    mouse.moveTo(from + QPoint(10, 0));
    QCOMPARE(QToolTip::text(), QString("-5"));
    mouse.release(from + QPoint(10, 0));
    QTRY_VERIFY(!QToolTip::isVisible());
}

/// The pointer is sent to the other side; the move that this makes arrives while the distance's
/// window is made, and has a distance of its own.
void TestParametersMixed::aDragThatBeginsAtTheEdgeOfTheScreen()
{
    const QRect screen = m_pane->screen()->geometry();
    m_pane->window()->move(screen.topLeft());
    const QPoint from = middle(xOf(0), Model::ValueColumn);
    const int edge = port()->mapFromGlobal(screen.topRight()).x();
    VxMouseDriver mouse(port());
    mouse.press(from);
    mouse.moveTo({edge, from.y()});
    QVERIFY(QCursor::pos().x() < screen.left() + 10);
    QVERIFY(QToolTip::isVisible());
    QVERIFY(xOf(0)->getNumKeys() > 0);
    mouse.release(port()->mapFromGlobal(QCursor::pos()));
    QTRY_VERIFY(!QToolTip::isVisible());
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
}

void TestParametersMixed::limitsDoNotLoseTheDistance()
{
    for (int i = 0; i < 3; ++i)
        xOf(i)->setMinMax(0.0f, 32.0f);
    const QPoint from = middle(xOf(0), Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.moveTo(from + QPoint(220, 0));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getValue(), 32.0f);
    mouse.moveTo(from + QPoint(22, 0));
    mouse.release(from + QPoint(22, 0));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getValue(), 10.0f * float(i + 1) + 1.0f);
    QCOMPARE(notice(), QString()); // seen to stop there
}

void TestParametersMixed::leavingAMixedFieldChangesNothing()
{
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        click(xOf(0));
        QTRY_VERIFY(field());
        QTest::keyClick(field(), Qt::Key(key));
        QTRY_VERIFY(!field());
    }
    click(xOf(0));
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "1");
    QTest::keyClick(field(), Qt::Key_Backspace);
    QTest::keyClick(field(), Qt::Key_Tab);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersMixed::oneLockedAmongThem()
{
    xOf(1)->setLocked(true);
    QCoreApplication::processEvents();
    type(xOf(0), "5");
    QTRY_VERIFY(!field());
    QCOMPARE(xOf(0)->getValue(), 5.0f);
    QCOMPARE(xOf(1)->getValue(), 20.0f);
    QCOMPARE(xOf(2)->getValue(), 5.0f);
    QCOMPARE(notice(), QString("X Translate was not changed on 1 of 3 nodes, where it is locked or "
                               "follows another value."));
    click(xOf(0), Model::LabelColumn);
    QCOMPARE(notice(), QString()); // until the user continues
}

void TestParametersMixed::switches()
{
    QVector<VxBoolProperty *> flags;
    for (VxNode *node : qAsConst(m_bones)) {
        flags.append(new VxBoolProperty(QStringLiteral("flag")));
        node->addProperty(flags.last(), QStringLiteral("/Switches"));
    }
    QTRY_VERIFY(cell(flags.at(0), 0).isValid());
    flags.at(2)->setStoredValue(1);
    QVERIFY(isMixed(flags.at(0)));
    click(flags.at(0));
    for (const VxBoolProperty *flag : qAsConst(flags))
        QCOMPARE(flag->getBoolValue(0), true);
    click(flags.at(0));
    for (const VxBoolProperty *flag : qAsConst(flags))
        QCOMPARE(flag->getBoolValue(0), false);
    QCOMPARE(vxApp->getUndoStack()->count(), 2);
}

void TestParametersMixed::texts()
{
    QVector<VxStringProperty *> texts;
    for (VxNode *node : qAsConst(m_bones)) {
        texts.append(new VxStringProperty(QStringLiteral("note")));
        node->addProperty(texts.last(), QStringLiteral("/Notes"));
        texts.last()->setValue(node->getLabel());
    }
    QTRY_VERIFY(cell(texts.at(0), 0).isValid());
    QCOMPARE(shown(texts.at(0)), QString("Mixed"));
    const auto line = [this] { return view()->findChild<QLineEdit *>(); };
    click(texts.at(0));
    QTRY_VERIFY(line());
    QCOMPARE(line()->text(), QString());
    QCOMPARE(line()->placeholderText(), QString("Mixed"));
    QTest::keyClick(line(), Qt::Key_Return);
    QTRY_VERIFY(!line());
    QCOMPARE(texts.at(0)->getValue(), QString("hip"));
    click(texts.at(0));
    QTRY_VERIFY(line());
    QTest::keyClicks(line(), "all");
    QTest::keyClick(line(), Qt::Key_Return);
    QTRY_VERIFY(!line());
    for (const VxStringProperty *text : qAsConst(texts))
        QCOMPARE(text->getValue(), QString("all"));
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
}

void TestParametersMixed::copiedAndPasted()
{
    view()->setFocus();
    click(xOf(0), Model::LabelColumn);
    QTest::keyClick(view(), Qt::Key_C, Qt::ControlModifier);
    // Of the node that decides, like everything else that is one value.
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("30"));
    QTest::keyClick(view(), Qt::Key_V, Qt::ControlModifier);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(xOf(i)->getValue(), 30.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
}

void TestParametersMixed::mixedDependsOnTheTime()
{
    for (int i = 0; i < 3; ++i) {
        xOf(i)->setKey(0, 2.0f, 0);
        xOf(i)->setKey(160, float(i), 0);
    }
    QVERIFY(!isMixed(xOf(0)));
    vxScene->setTime(80);
    QVERIFY(isMixed(xOf(0)));
    click(xOf(0));
    QTRY_VERIFY(field());
    QCOMPARE(field()->text(), QString());
    vxScene->setTime(0);
    QTRY_COMPARE(field()->text(), QString("2"));
    vxScene->setTime(160);
    QTRY_COMPARE(field()->text(), QString());
}

VX_TEST_UNIT(&runParametersTest<TestParametersMixed>)

#include "tst_parametersmixed.moc"
