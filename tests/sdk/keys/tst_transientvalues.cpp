#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest/QtTest>
#include <limits>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

/// Values of float properties that have no key and last until the scene's time changes.
class tst_TransientValues : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void itReplacesTheKeysAtTheCurrentTimeOnly();
    void aNewTimeDropsIt();
    void itDoesNotReturnWithItsTime();
    void aChangeOfTheKeysDropsIt();
    void aKeyCanBeMadeOfIt();
    void withoutKeysTheStoredValueIsSet();
    void limitsLocksAndLinks();
    void aliasesShareIt();
    void itIsReported();
    void undoAndRedo();
    void undoAtAnotherTime();
    void rollBack();
    void aDestroyedPropertyIsForgotten();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_stack;
    std::unique_ptr<VxScene> m_scene;
    std::unique_ptr<VxFloatProperty> m_property; // 0 at tick 0 to 100 at tick 1000
};

void tst_TransientValues::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_stack = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
    m_property = std::make_unique<VxFloatProperty>(QStringLiteral("x"));
    m_property->setKey(0, 0, 0);
    m_property->setKey(1000, 100, 0);
    m_scene->setTime(500);
}

void tst_TransientValues::cleanup()
{
    m_property.reset();
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

void tst_TransientValues::itReplacesTheKeysAtTheCurrentTimeOnly()
{
    QVERIFY(m_property->setTransientValue(7));
    QVERIFY(m_property->hasTransientValue());
    QCOMPARE(m_property->getValue(), 7.0f);
    QCOMPARE(m_property->getDoubleValue(500), 7.0);
    QCOMPARE(m_property->getValue(499), 49.9f);
    const VxTime times[] = {400, 500, 600};
    float values[3];
    m_property->getValues(times, 3, values);
    QCOMPARE(values[0], 40.0f);
    QCOMPARE(values[1], 7.0f);
    QCOMPARE(values[2], 60.0f);
    QCOMPARE(m_property->getNumKeys(), 2);
}

void tst_TransientValues::aNewTimeDropsIt()
{
    m_property->setTransientValue(7);
    m_scene->setTime(600);
    QVERIFY(!m_property->hasTransientValue());
    QCOMPARE(m_property->getValue(), 60.0f);
}

void tst_TransientValues::itDoesNotReturnWithItsTime()
{
    m_property->setTransientValue(7);
    m_scene->setTime(600);
    m_scene->setTime(500);
    QCOMPARE(m_property->getValue(), 50.0f);
}

void tst_TransientValues::aChangeOfTheKeysDropsIt()
{
    m_property->setTransientValue(7);
    m_property->setKey(1000, 200, 0);
    QVERIFY(!m_property->hasTransientValue());
    QCOMPARE(m_property->getValue(), 100.0f);
}

void tst_TransientValues::aKeyCanBeMadeOfIt()
{
    m_property->setTransientValue(7);
    m_property->setValue(m_property->getValue());
    QVERIFY(m_property->hasKey(500));
    QCOMPARE(m_property->getValue(), 7.0f);
    m_scene->setTime(0);
    QCOMPARE(m_property->getValue(500), 7.0f);
}

void tst_TransientValues::withoutKeysTheStoredValueIsSet()
{
    m_property->deleteAllKeys();
    QVERIFY(m_property->setTransientValue(7));
    QVERIFY(!m_property->hasTransientValue());
    QCOMPARE(m_property->getNumKeys(), 0);
    m_scene->setTime(0);
    QCOMPARE(m_property->getValue(), 7.0f);
}

void tst_TransientValues::limitsLocksAndLinks()
{
    QVERIFY(!m_property->setTransientValue(std::numeric_limits<float>::quiet_NaN()));
    m_property->setMinMax(0, 20, true);
    QVERIFY(m_property->setTransientValue(70));
    QCOMPARE(m_property->getValue(), 20.0f);
    m_property->setLocked(true);
    QVERIFY(!m_property->setTransientValue(5));
    QCOMPARE(m_property->getValue(), 20.0f);
    m_property->setLocked(false);
    VxFloatProperty source(QStringLiteral("source"), 3);
    m_property->setLink(&source);
    QVERIFY(!m_property->setTransientValue(5));
    m_property->setLink(&source, true);
    QVERIFY(m_property->setTransientValue(5));
    QCOMPARE(m_property->getValue(), 8.0f);
    m_property->setLink(nullptr);
    QCOMPARE(m_property->getValue(), 5.0f);
}

void tst_TransientValues::aliasesShareIt()
{
    VxFloatProperty alias(QStringLiteral("alias"));
    alias.setAliasedProperty(m_property.get());
    QVERIFY(alias.setTransientValue(7));
    QCOMPARE(m_property->getValue(), 7.0f);
    QCOMPARE(alias.getValue(), 7.0f);
    QVERIFY(alias.hasTransientValue());
    alias.dropTransientValue();
    QCOMPARE(m_property->getValue(), 50.0f);
}

void tst_TransientValues::itIsReported()
{
    QSignalSpy changed(m_property.get(), &VxProperty::valueChanged);
    m_property->setTransientValue(7);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.last().first().value<VxTimeRange>(), VxTimeRange(500, 500));
    m_property->setTransientValue(7);
    QCOMPARE(changed.count(), 1);
    m_scene->setTime(0);
    QCOMPARE(changed.count(), 2);
}

void tst_TransientValues::undoAndRedo()
{
    VxUndoStackHold hold;
    m_property->setTransientValue(7);
    m_property->setTransientValue(8);
    hold.accept(QStringLiteral("pose"));
    QCOMPARE(m_stack->count(), 1);
    m_stack->undo();
    QCOMPARE(m_property->getValue(), 50.0f);
    m_stack->redo();
    QCOMPARE(m_property->getValue(), 8.0f);
}

void tst_TransientValues::undoAtAnotherTime()
{
    VxUndoStackHold hold;
    m_property->setTransientValue(7);
    hold.accept(QStringLiteral("pose"));
    m_scene->setTime(600);
    m_stack->undo();
    m_stack->redo();
    QCOMPARE(m_property->getValue(500), 50.0f);
    QCOMPARE(m_property->getValue(600), 60.0f);
    m_scene->setTime(500);
    QCOMPARE(m_property->getValue(), 50.0f);
}

void tst_TransientValues::rollBack()
{
    m_property->setTransientValue(6);
    VxUndoStackHold hold;
    m_property->setTransientValue(7);
    QVERIFY(hold.rollBack());
    QCOMPARE(m_property->getValue(), 6.0f);
}

void tst_TransientValues::aDestroyedPropertyIsForgotten()
{
    m_property->setTransientValue(7);
    m_property.reset();
    m_scene->setTime(600);
}

VX_TEST_MAIN(tst_TransientValues)
#include "tst_transientvalues.moc"
