// Gestures on values, and the commands on keys, without any widget.

#include "parameters/vxpropertyedit.h"
#include "parameters/vxpropertyhints.h"
#include "parameters/vxpropertykeys.h"
#include "parameters/vxpropertyscrub.h"
#include "parameters/vxpropertyvalue.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QSignalSpy>
#include <QtTest>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

class TestPropertyEdit : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void scrubCountsSteps();
    void scrubKeepsItsDeltaWhenAModifierIsPressed();
    void stepOfNarrowLimits();
    void aGestureIsOneEntry();
    void offsetsCountFromTheBeginning();
    void severalPropertiesMoveTogether();
    void limitsHold();
    void stepsContinueFromALimit();
    void linkedToOneAnother_data();
    void linkedToOneAnother();
    void percentagesAreEditedAsShown();
    void linkOffsetsAreSubtracted();
    void formerValuesAreRestored_data();
    void formerValuesAreRestored();
    void anUnchangedGestureMakesNoEntry();
    void lockedRefuses();
    void aGesturePausesPlayback();
    void aPropertyMayBeDestroyedMeanwhile();
    void keyStates();
    void settingAKeyKeepsTheCurve();
    void keysAreSetWithoutAnimating();
    void deletingKeys();
    void togglingCompletesFirst();
    void resetSetsDefaults();
    void keysBeside();
    void refusalsNameAnyLabel();

private:
    VxFloatProperty *x() const { return m_node->getXPosControl(); }
    VxFloatProperty *y() const { return m_node->getYPosControl(); }

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_stack;
    std::unique_ptr<VxScene> m_scene;
    VxNode *m_node = nullptr;
};

void TestPropertyEdit::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_stack = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
    m_node = new VxNode(QStringLiteral("node"));
    m_scene->addNode(m_node);
}

void TestPropertyEdit::cleanup()
{
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

void TestPropertyEdit::scrubCountsSteps()
{
    VxPropertyScrub scrub(100);
    QCOMPARE(scrub.moveTo(100, Qt::NoModifier), 0.0);
    QCOMPARE(scrub.moveTo(110, Qt::NoModifier), 5.0);
    QCOMPARE(scrub.moveTo(90, Qt::NoModifier), -5.0);
    QCOMPARE(scrub.moveTo(100, Qt::NoModifier), 0.0);
    VxPropertyScrub fine(0);
    fine.moveTo(0, Qt::ShiftModifier);
    QCOMPARE(fine.moveTo(20, Qt::ShiftModifier), 1.0);
    VxPropertyScrub coarse(0);
    coarse.moveTo(0, Qt::ControlModifier);
    QCOMPARE(coarse.moveTo(20, Qt::ControlModifier), 100.0);
}

void TestPropertyEdit::scrubKeepsItsDeltaWhenAModifierIsPressed()
{
    VxPropertyScrub scrub(0);
    QCOMPARE(scrub.moveTo(20, Qt::NoModifier), 10.0);
    QCOMPARE(scrub.moveTo(20, Qt::ShiftModifier), 10.0); // no jump
    QCOMPARE(scrub.moveTo(40, Qt::ShiftModifier), 11.0);
    QCOMPARE(scrub.moveTo(40, Qt::NoModifier), 11.0);
    QCOMPARE(scrub.moveTo(20, Qt::NoModifier), 1.0);
}

void TestPropertyEdit::stepOfNarrowLimits()
{
    VxFloatProperty property(QStringLiteral("p"));
    QCOMPARE(VxPropertyValue::step(&property), 1.0);
    property.setMinMax(0.0f, 1.0f);
    QCOMPARE(VxPropertyValue::step(&property), 0.01);
    property.setMinMax(-180.0f, 180.0f);
    QCOMPARE(VxPropertyValue::step(&property), 1.0);
    property.setPercentage(true);
    property.setSensitivity(0.01f);
    QVERIFY(qAbs(VxPropertyValue::step(&property) - 1.0) < 1e-6);
}

void TestPropertyEdit::aGestureIsOneEntry()
{
    m_scene->setTime(320);
    x()->setLabel(QStringLiteral("X"));
    {
        VxPropertyEdit edit({x()}, 320);
        for (int i = 1; i <= 50; ++i)
            QVERIFY(edit.offsetBy(i));
    }
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(m_stack->undoText(), QStringLiteral("Set X"));
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(x()->getKeyTime(0), 320);
    QCOMPARE(x()->getKeyValue(0), 50.0f);
    m_stack->undo();
    QCOMPARE(x()->getNumKeys(), 0);
    m_stack->redo();
    QCOMPARE(x()->getKeyValue(0), 50.0f);
}

void TestPropertyEdit::offsetsCountFromTheBeginning()
{
    x()->setStoredValue(3.5f);
    VxPropertyEdit edit({x()}, 0);
    edit.offsetBy(10);
    edit.offsetBy(-1);
    QCOMPARE(x()->getValue(0), 2.5f);
    edit.setValue(7);
    edit.offsetBy(2);
    QCOMPARE(x()->getValue(0), 9.0f);
}

void TestPropertyEdit::severalPropertiesMoveTogether()
{
    x()->setStoredValue(1.0f);
    y()->setStoredValue(10.0f);
    {
        VxPropertyEdit edit({x(), nullptr, y()}, 0);
        edit.offsetBy(5);
    }
    QCOMPARE(x()->getValue(0), 6.0f);
    QCOMPARE(y()->getValue(0), 15.0f);
    QCOMPARE(m_stack->count(), 1);
}

void TestPropertyEdit::limitsHold()
{
    x()->setMinMax(-2.0f, 2.0f);
    VxPropertyEdit edit({x()}, 0);
    edit.offsetBy(1000);
    QCOMPARE(x()->getValue(0), 2.0f);
    edit.setValue(-50);
    QCOMPARE(x()->getValue(0), -2.0f);
}

void TestPropertyEdit::stepsContinueFromALimit()
{
    x()->setMinMax(-50.0f, 50.0f);
    VxPropertyEdit edit({x()}, 0);
    edit.setValue(77);
    QVERIFY(!edit.limit().isEmpty());
    edit.offsetBy(-1);
    QCOMPARE(x()->getValue(0), 49.0f);
    QVERIFY(edit.limit().isEmpty());
}

void TestPropertyEdit::linkedToOneAnother_data()
{
    QTest::addColumn<bool>("sourceFirst");
    QTest::newRow("the source is first") << true;
    QTest::newRow("the source is last") << false;
}

/// Values that are added up, all of them in the same gesture: each moves by the same amount.
void TestPropertyEdit::linkedToOneAnother()
{
    QFETCH(bool, sourceFirst);
    VxFloatProperty *z = m_node->getZPosControl();
    x()->setStoredValue(1.0f);
    y()->setStoredValue(10.0f);
    z->setStoredValue(100.0f);
    QVERIFY(y()->setLink(x(), true));
    QVERIFY(z->setLink(y(), true));
    QCOMPARE(z->getValue(0), 111.0f);
    {
        VxPropertyEdit edit(sourceFirst ? QVector<VxProperty *>{x(), y(), z}
                                        : QVector<VxProperty *>{z, y(), x()},
                            0);
        edit.offsetBy(3);
        edit.offsetBy(5);
        QCOMPARE(x()->getValue(0), 6.0f);
        QCOMPARE(y()->getValue(0), 16.0f);
        QCOMPARE(z->getValue(0), 116.0f);
        edit.setValue(7);
        QCOMPARE(x()->getValue(0) + y()->getValue(0) + z->getValue(0), 21.0f);
    }
    m_stack->undo();
    QCOMPARE(z->getValue(0), 111.0f);
    QCOMPARE(x()->getNumKeys() + y()->getNumKeys() + z->getNumKeys(), 0);
}

void TestPropertyEdit::percentagesAreEditedAsShown()
{
    VxFloatProperty *scale = m_node->getScaleControl();
    QCOMPARE(VxPropertyValue::shownValue(scale, 0), 100.0);
    VxPropertyEdit edit({scale}, 0);
    edit.setValue(75);
    QCOMPARE(scale->getValue(0), 0.75f);
    edit.offsetBy(5);
    QCOMPARE(scale->getValue(0), 0.8f);
}

void TestPropertyEdit::linkOffsetsAreSubtracted()
{
    y()->setStoredValue(100.0f);
    QVERIFY(x()->setLink(y(), true));
    {
        VxPropertyEdit edit({x()}, 0);
        QVERIFY(edit.setValue(7));
    }
    QCOMPARE(x()->getValue(0), 7.0f);
    QCOMPARE(x()->getKeyValue(0), -93.0f);
    x()->deleteAllKeys();
    x()->setStoredValue(5.0f);
    VxPropertyKeys::setKeys({x()}, 480);
    QCOMPARE(x()->getKeyValue(0), 5.0f);
}

void TestPropertyEdit::formerValuesAreRestored_data()
{
    QTest::addColumn<bool>("keyed");
    QTest::addColumn<bool>("keyHere");
    QTest::addColumn<bool>("animating");
    QTest::newRow("no keys, a key would be added") << false << false << true;
    QTest::newRow("no keys, a stored value changes") << false << false << false;
    QTest::newRow("between keys") << true << false << true;
    QTest::newRow("on a key") << true << true << true;
}

void TestPropertyEdit::formerValuesAreRestored()
{
    QFETCH(bool, keyed);
    QFETCH(bool, keyHere);
    QFETCH(bool, animating);
    x()->setPercentage(!keyed); // shown as another number than it is
    x()->setStoredValue(0.1f);
    if (keyed) {
        x()->setKey(0, 1.3f, 2, 0.5f, 0.25f, -0.5f);
        x()->setKey(960, 2.7f, 0);
    }
    if (keyHere)
        x()->setKey(480, 9.1f, 1);
    m_scene->setAnimating(animating);
    const int keys = x()->getNumKeys();
    const float value = x()->getValue(480);
    {
        VxPropertyEdit edit({x()}, 480);
        edit.offsetBy(12);
        QVERIFY(x()->getValue(480) != value);
        edit.rollBack();
    }
    QCOMPARE(x()->getNumKeys(), keys);
    QCOMPARE(x()->getValue(480), value);
    QCOMPARE(x()->getStoredValue(), 0.1f);
    QCOMPARE(m_stack->count(), 0);
}

void TestPropertyEdit::anUnchangedGestureMakesNoEntry()
{
    x()->setKey(0, 1.0f, 0);
    {
        VxPropertyEdit edit({x()}, 0);
        edit.offsetBy(4);
        edit.offsetBy(0);
    }
    QCOMPARE(m_stack->count(), 0);
}

void TestPropertyEdit::lockedRefuses()
{
    x()->setLocked(true);
    QVERIFY(!VxPropertyValue::isEditable(x()));
    VxPropertyEdit edit({x()}, 0);
    QVERIFY(!edit.setValue(3));
    QVERIFY(!edit.offsetBy(3));
    edit.finish();
    VxPropertyKeys::setKeys({x()}, 0);
    VxPropertyKeys::reset({x()}, 0);
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(m_stack->count(), 0);
    QVERIFY(y()->setAliasedProperty(x()));
    QVERIFY(!VxPropertyValue::isEditable(y())); // its keys are on the locked source
}

void TestPropertyEdit::aGesturePausesPlayback()
{
    m_scene->play();
    QVERIFY(m_scene->isPlaying());
    VxPropertyEdit edit({x()}, 0);
    QVERIFY(!m_scene->isPlaying());
}

void TestPropertyEdit::aPropertyMayBeDestroyedMeanwhile()
{
    auto *extra = new VxFloatProperty(QStringLiteral("extra"));
    m_node->addProperty(extra, QStringLiteral("/G"));
    VxPropertyEdit edit({extra, x()}, 0);
    edit.offsetBy(1);
    m_node->removeProperty(extra);
    edit.offsetBy(2);
    edit.finish();
    QCOMPARE(x()->getValue(0), 2.0f);
    QCOMPARE(m_stack->count(), 1);
}

void TestPropertyEdit::keyStates()
{
    using Model = VxPropertyListItemModel;
    QCOMPARE(VxPropertyKeys::state({}, 0), Model::NotKeyable);
    QCOMPARE(VxPropertyKeys::state({x(), y()}, 0), Model::NoKeys);
    x()->setKey(0, 1.0f, 0);
    QCOMPARE(VxPropertyKeys::state({x()}, 0), Model::OnKey);
    QCOMPARE(VxPropertyKeys::state({x()}, 1), Model::Keyed);
    QCOMPARE(VxPropertyKeys::state({x(), y()}, 0), Model::MixedKeys);
    QCOMPARE(VxPropertyKeys::state({y(), x()}, 1), Model::MixedKeys);
    y()->setKey(0, 1.0f, 0);
    QCOMPARE(VxPropertyKeys::state({x(), y()}, 0), Model::OnKey);
    QCOMPARE(VxPropertyKeys::state({x(), y()}, 1), Model::Keyed);
    x()->setAnimatable(false);
    QCOMPARE(VxPropertyKeys::state({x(), y()}, 0), Model::OnKey); // of the one that takes keys
    QCOMPARE(VxPropertyKeys::state({x()}, 0), Model::NotKeyable);
}

void TestPropertyEdit::settingAKeyKeepsTheCurve()
{
    x()->setKey(0, 0.0f, 2, 0.5f, 0.0f, 0.25f);
    x()->setKey(480, 10.0f, 0);
    const float between = x()->getValue(160);
    VxPropertyKeys::setKeys({x()}, 160);
    int key = -1;
    QVERIFY(x()->hasKey(160, &key));
    QCOMPARE(x()->getKeyValue(key), between);
    float tension = 0, continuity = 0, bias = 0;
    QCOMPARE(x()->getKeyInterpolationType(key, &tension, &continuity, &bias), 2);
    QCOMPARE(tension, 0.5f);
    QCOMPARE(bias, 0.25f);
    QCOMPARE(m_stack->undoText(), QStringLiteral("Set Key"));
    m_stack->undo();
    QCOMPARE(x()->getNumKeys(), 2);
}

void TestPropertyEdit::keysAreSetWithoutAnimating()
{
    m_scene->setAnimating(false);
    auto *whole = new VxIntProperty(QStringLiteral("i"), 4);
    m_node->addProperty(whole, QStringLiteral("/G"));
    VxPropertyKeys::setKeys({whole, x()}, 320);
    QCOMPARE(whole->getNumKeys(), 1);
    QCOMPARE(whole->getKeyValue(0), 4);
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(m_stack->count(), 1);
}

void TestPropertyEdit::deletingKeys()
{
    for (VxFloatProperty *property : {x(), y()}) {
        for (VxTime time : {0, 160, 320})
            property->setKey(time, 1.0f, 0);
    }
    VxPropertyKeys::deleteKeys({x(), y()}, 160);
    QCOMPARE(x()->getNumKeys() + y()->getNumKeys(), 4);
    VxPropertyKeys::deleteKeys({x(), y()}, 161);
    QCOMPARE(m_stack->count(), 1);
    VxPropertyKeys::deleteAllKeys({x()});
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(y()->getNumKeys(), 2);
    m_stack->undo();
    m_stack->undo();
    QCOMPARE(x()->getNumKeys() + y()->getNumKeys(), 6);
}

void TestPropertyEdit::togglingCompletesFirst()
{
    x()->setKey(0, 1.0f, 0);
    VxPropertyKeys::toggleKeys({x(), y()}, 0);
    QVERIFY(x()->hasKey(0) && y()->hasKey(0));
    VxPropertyKeys::toggleKeys({x(), y()}, 0);
    QVERIFY(!x()->hasKey(0) && !y()->hasKey(0));
}

void TestPropertyEdit::resetSetsDefaults()
{
    m_node->getScaleControl()->setKey(0, 3.0f, 0);
    x()->setKey(0, 3.0f, 0);
    VxPropertyKeys::reset({m_node->getScaleControl(), x()}, 0);
    QCOMPARE(m_node->getScaleControl()->getKeyValue(0), 1.0f);
    QCOMPARE(x()->getKeyValue(0), 0.0f);
    QCOMPARE(m_stack->count(), 1);
}

void TestPropertyEdit::keysBeside()
{
    VxTime found = -1;
    QVERIFY(!VxPropertyKeys::findKeyBeside({x(), nullptr}, 0, true, &found));
    x()->setKey(-160, 1.0f, 0);
    x()->setKey(480, 1.0f, 0);
    y()->setKey(320, 1.0f, 0);
    QVERIFY(VxPropertyKeys::findKeyBeside({x(), y()}, 0, true, &found));
    QCOMPARE(found, 320);
    QVERIFY(VxPropertyKeys::findKeyBeside({x(), y()}, 320, true, &found));
    QCOMPARE(found, 480);
    QVERIFY(!VxPropertyKeys::findKeyBeside({x(), y()}, 480, true, &found));
    QVERIFY(VxPropertyKeys::findKeyBeside({x(), y()}, 320, false, &found));
    QCOMPARE(found, -160);
    QVERIFY(!VxPropertyKeys::findKeyBeside({x(), y()}, VxTimeMin, false, &found));
    QVERIFY(!VxPropertyKeys::findKeyBeside({x(), y()}, VxTimeMax, true, &found));
}

void TestPropertyEdit::refusalsNameAnyLabel()
{
    const QString text = VxPropertyHints::refusal(QStringLiteral("%2 %3"), 1, 1, 4);
    QVERIFY2(text.startsWith(QLatin1String("%2 %3 was not changed on 1 of 4 nodes")),
             qPrintable(text));
}

VX_TEST_GUILESS_MAIN(TestPropertyEdit)
#include "tst_vxpropertyedit.moc"
