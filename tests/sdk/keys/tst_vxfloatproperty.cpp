// Float and int properties, switches and texts: values, keys, limits and locks.

#include "testing/vxtestmain.h"

#include <QtTest/QtTest>
#include <cmath>
#include <functional>
#include <limits>
#include <testing/vxwarningguard.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstringproperty.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

using Change = std::function<void(VxFloatProperty &)>;
Q_DECLARE_METATYPE(Change)

class TestFloatProperty : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void storedValueHoldsWithoutKeys();
    void undoRestoresTheSignOfZero();
    void settingAValueMakesAKeyAtTheCurrentTime();
    void newKeyHasTheShapeOfThePreviousKey();
    void replacedKeyKeepsItsShape();
    void withoutAnimatingOnlyKeysThereAreChanged();
    void notAnimatableHasValuesButNoKeys();
    void keysInTimeOrder();
    void deleteKeysWithinARange_data();
    void deleteKeysWithinARange();
    void deleteKeysByIndex();
    void badArgumentsAreRefused();
    void lockedRefusesEverything();
    void clampedLimitsSetValues();
    void traitChangesAreReported_data();
    void traitChangesAreReported();
    void shiftKeysStopsAtTheEndsOfTime();
    void intKeysAlwaysHold();
    void intValuesRoundToTheNearest();
    void boolIsZeroOrOne();
    void stringHasNoKeys();
    void manyValuesEqualSingleOnes();
    void keyMemoryIsSmall();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestFloatProperty::storedValueHoldsWithoutKeys()
{
    VxFloatProperty x(QStringLiteral("X"), 2.5f);
    QCOMPARE(x.getValue(VxTimeMin), 2.5f);
    QCOMPARE(x.getValue(VxTimeMax), 2.5f);
    QSignalSpy spy(&x, &VxProperty::valueChanged);
    QVERIFY(x.setStoredValue(4.0f));
    QCOMPARE(x.getValue(0), 4.0f);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().value<VxTimeRange>(), VxTimeRange::all());
    QCOMPARE(x.getDefaultValue(), 2.5f);
    QCOMPARE(x.getKeyTimes(), nullptr);
    QCOMPARE(x.getFirstKeyFrom(0), 0);
}

// A limit can be -0, as those of mirrored joints: a drag that ends there is undone to the last bit.
void TestFloatProperty::undoRestoresTheSignOfZero()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    x.setMinMax(-0.0f, 150.0f, true);
    VxUndoStackHold hold;
    QVERIFY(x.setStoredValue(5.0f));
    QVERIFY(x.setStoredValue(-1.0f));
    QVERIFY(std::signbit(x.getStoredValue()));
    hold.accept(QStringLiteral("Drag"));
    stack.undo();
    QVERIFY(!std::signbit(x.getStoredValue()));
}

void TestFloatProperty::settingAValueMakesAKeyAtTheCurrentTime()
{
    VxScene scene;
    scene.setTime(480);
    VxFloatProperty x(QStringLiteral("X"));
    QVERIFY(x.setValue(7.0f));
    QCOMPARE(x.getNumKeys(), 1);
    QCOMPARE(x.getKeyTime(0), 480);
    QCOMPARE(x.getKeyInterpolationType(0), 0);
    QVERIFY(x.setValue(8.0f));
    QCOMPARE(x.getNumKeys(), 1);
    QCOMPARE(x.getValue(), 8.0f);
}

void TestFloatProperty::newKeyHasTheShapeOfThePreviousKey()
{
    VxFloatProperty x(QStringLiteral("X"));
    x.setDefaultInterpolation(1);
    x.setValue(100, 1.0f);
    QCOMPARE(x.getKeyInterpolationType(0), 1);
    x.setKey(200, 2.0f, 2, 0.5f, 0.25f, -0.5f);
    x.setValue(300, 3.0f);
    float t = 0, c = 0, b = 0;
    QCOMPARE(x.getKeyInterpolationType(2, &t, &c, &b), 2);
    QCOMPARE(t, 0.5f);
    QCOMPARE(c, 0.25f);
    QCOMPARE(b, -0.5f);
    x.setValue(50, 0.0f);
    QCOMPARE(x.getKeyInterpolationType(0), 1);
}

void TestFloatProperty::replacedKeyKeepsItsShape()
{
    VxFloatProperty x(QStringLiteral("X"));
    x.setKey(200, 2.0f, 2, 0.5f);
    x.setValue(200, 9.0f);
    float t = 0;
    QCOMPARE(x.getKeyInterpolationType(0, &t), 2);
    QCOMPARE(t, 0.5f);
    QCOMPARE(x.getKeyValue(0), 9.0f);
}

void TestFloatProperty::withoutAnimatingOnlyKeysThereAreChanged()
{
    VxScene scene;
    scene.setAnimating(false);
    VxFloatProperty x(QStringLiteral("X"));
    QVERIFY(x.setValue(5.0f));
    QCOMPARE(x.getNumKeys(), 0);
    QCOMPARE(x.getStoredValue(), 5.0f);
    x.setKey(160, 1.0f, 0);
    QVERIFY(x.setValue(160, 2.0f));
    QVERIFY(!x.setValue(320, 3.0f));
    QCOMPARE(x.getNumKeys(), 1);
    QCOMPARE(x.getKeyValue(0), 2.0f);
}

void TestFloatProperty::notAnimatableHasValuesButNoKeys()
{
    VxFloatProperty x(QStringLiteral("X"));
    x.setAnimatable(false);
    QVERIFY(!x.canBeKeyed());
    QVERIFY(x.setValue(100, 5.0f));
    QCOMPARE(x.getNumKeys(), 0);
    QVERIFY(!x.setKey(100, 5.0f, 0));
}

void TestFloatProperty::keysInTimeOrder()
{
    VxFloatProperty x(QStringLiteral("X"));
    for (const VxTime time : {300, -100, 0, VxTimeMax, 200, VxTimeMin})
        x.setKey(time, 1.0f, 0);
    QVector<VxTime> times(x.getKeyTimes(), x.getKeyTimes() + x.getNumKeys());
    QCOMPARE(times, (QVector<VxTime>{VxTimeMin, -100, 0, 200, 300, VxTimeMax}));
    QCOMPARE(x.findKey(200), 3);
    QCOMPARE(x.findKey(201), -1);
    QCOMPARE(x.getFirstKeyFrom(201), 4);
    int index = -1;
    QVERIFY(x.hasKey(300, &index));
    QCOMPARE(index, 4);
    QVERIFY(!x.hasKey(301, &index));
    QCOMPARE(index, 4);
    QCOMPARE(x.getKeyTime(-1), 0);
    QCOMPARE(x.getKeyTime(6), 0);
    QCOMPARE(x.getKeyValue(6), 0.0f);
    QCOMPARE(x.getKeyInterpolationType(6), 0);
}

void TestFloatProperty::deleteKeysWithinARange_data()
{
    QTest::addColumn<VxTimeRange>("range");
    QTest::addColumn<int>("deleted");
    QTest::newRow("both ends count") << VxTimeRange(100, 300) << 3;
    QTest::newRow("one point in time") << VxTimeRange(200, 200) << 1;
    QTest::newRow("between keys") << VxTimeRange(101, 199) << 0;
    QTest::newRow("end before start") << VxTimeRange(300, 100) << 0;
    QTest::newRow("everything") << VxTimeRange::all() << 4;
}

void TestFloatProperty::deleteKeysWithinARange()
{
    QFETCH(VxTimeRange, range);
    VxFloatProperty x(QStringLiteral("X"));
    for (const VxTime time : {100, 200, 300, 400})
        x.setKey(time, 1.0f, 0);
    QTEST(x.deleteKeys(range), "deleted");
    QFETCH(int, deleted);
    QCOMPARE(x.getNumKeys(), 4 - deleted);
}

void TestFloatProperty::deleteKeysByIndex()
{
    VxFloatProperty x(QStringLiteral("X"));
    for (const VxTime time : {100, 200, 300, 400, 500})
        x.setKey(time, 1.0f, 0);
    QCOMPARE(x.deleteKeys(QVector<int>{0, 2}), 2);
    QCOMPARE(x.getKeyTime(0), 200);
    QCOMPARE(x.deleteKeys(2, 99), 1);
    QCOMPARE(x.deleteKeys(-5, 0), 1);
    QCOMPARE(x.getNumKeys(), 1);
    QCOMPARE(x.deleteKeys(1, 0), 0);
    QCOMPARE(x.deleteAllKeys(), 1);
    QCOMPARE(x.deleteAllKeys(), 0);
}

void TestFloatProperty::badArgumentsAreRefused()
{
    VxFloatProperty x(QStringLiteral("X"));
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinite = std::numeric_limits<float>::infinity();
    QVERIFY(!x.setValue(0, nan));
    QVERIFY(!x.setKey(0, infinite, 0));
    QVERIFY(!x.setKey(0, 1.0f, 3));
    QVERIFY(!x.setKey(0, 1.0f, -1));
    QVERIFY(!x.setKey(0, 1.0f, 2, nan));
    QVERIFY(!x.setStoredValue(nan));
    const VxTime backwards[] = {100, 50};
    const VxTime twice[] = {100, 100};
    const float values[] = {1.0f, 2.0f};
    QVERIFY(!x.setKeys({backwards, values, nullptr, nullptr, 2}));
    QVERIFY(!x.setKeys({twice, values, nullptr, nullptr, 2}));
    x.setKey(0, 1.0f, 0);
    x.setKey(10, 1.0f, 0);
    QVERIFY(!x.moveKeys({0, 1}, {5, 5}));
    QVERIFY(!x.moveKeys({1, 0}, {5, 6}));
    QVERIFY(!x.moveKeys({0}, {5, 6}));
    QVERIFY(!x.moveKeys({2}, {5}));
    QVERIFY(!x.setKeyValue(2, 1.0f));
    QVERIFY(!x.setKeyInterpolation(0, 7));
    QCOMPARE(x.deleteKeys(QVector<int>{1, 0}), 0);
    QCOMPARE(x.getNumKeys(), 2);
}

void TestFloatProperty::lockedRefusesEverything()
{
    VxFloatProperty x(QStringLiteral("X"), 1.0f);
    x.setKey(0, 1.0f, 0);
    x.setLocked(true);
    QSignalSpy spy(&x, &VxProperty::valueChanged);
    QVERIFY(!x.setValue(0, 2.0f));
    QVERIFY(!x.setStoredValue(2.0f));
    QVERIFY(!x.setKey(10, 2.0f, 0));
    QVERIFY(!x.setKeyValue(0, 2.0f));
    QVERIFY(!x.setKeyInterpolation(0, 2));
    QVERIFY(!x.moveKeys({0}, {10}));
    QVERIFY(!x.shiftKeys(VxTimeRange::all(), 10));
    QCOMPARE(x.deleteAllKeys(), 0);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(x.getNumKeys(), 1);
}

void TestFloatProperty::clampedLimitsSetValues()
{
    VxFloatProperty x(QStringLiteral("X"));
    x.setMinMax(0.0f, 1.0f, false);
    x.setValue(0, 5.0f);
    QCOMPARE(x.getValue(0), 5.0f);
    x.setMinMax(1.0f, 0.0f, true);
    QCOMPARE(x.getMax(), 1.0f);
    x.setValue(0, 5.0f);
    QCOMPARE(x.getValue(0), 1.0f);
    x.setKeyValue(0, -3.0f);
    QCOMPARE(x.getValue(0), 0.0f);
}

void TestFloatProperty::traitChangesAreReported_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    row("label", [](VxFloatProperty &x) { x.setLabel(QStringLiteral("Y")); });
    row("hidden", [](VxFloatProperty &x) { x.setHidden(true); });
    row("hidden at present", [](VxFloatProperty &x) { x.setDynamicallyHidden(true); });
    row("locked", [](VxFloatProperty &x) { x.setLocked(true); });
    row("not animatable", [](VxFloatProperty &x) { x.setAnimatable(false); });
    row("excluded", [](VxFloatProperty &x) { x.setExcluded(true); });
    row("percentage", [](VxFloatProperty &x) { x.setPercentage(true); });
}

void TestFloatProperty::traitChangesAreReported()
{
    QFETCH(Change, change);
    VxFloatProperty x(QStringLiteral("X"));
    QSignalSpy reported(&x, &VxProperty::traitsChanged);
    change(x);
    QCOMPARE(reported.count(), 1);
    change(x);
    QCOMPARE(reported.count(), 1);
}

void TestFloatProperty::shiftKeysStopsAtTheEndsOfTime()
{
    VxFloatProperty x(QStringLiteral("X"));
    x.setKey(0, 1.0f, 0);
    x.setKey(VxTimeMax - 5, 2.0f, 0);
    QVERIFY(x.shiftKeys(VxTimeRange::all(), 100));
    QCOMPARE(x.getKeyTime(0), 5);
    QCOMPARE(x.getKeyTime(1), VxTimeMax);
    QVERIFY(x.shiftKeys(VxTimeRange(0, 10), -5));
    QCOMPARE(x.getKeyTime(0), 0);
}

void TestFloatProperty::intKeysAlwaysHold()
{
    VxIntProperty n(QStringLiteral("N"), 5);
    n.setKey(0, 1);
    n.setKey(100, 3);
    QCOMPARE(n.getValue(-1), 1);
    QCOMPARE(n.getValue(99), 1);
    QCOMPARE(n.getValue(100), 3);
    float tension = 1.0f;
    QCOMPARE(n.getKeyInterpolationType(0, &tension), 1);
    QCOMPARE(tension, 0.0f);
    QCOMPARE(n.getKeys().types, nullptr);
}

void TestFloatProperty::intValuesRoundToTheNearest()
{
    VxIntProperty n(QStringLiteral("N"));
    QVERIFY(n.setDoubleValue(0, 2.5));
    QCOMPARE(n.getValue(0), 3);
    QVERIFY(n.setDoubleValue(0, -2.5));
    QCOMPARE(n.getValue(0), -3);
    QVERIFY(n.setDoubleValue(0, 1e12));
    QCOMPARE(n.getValue(0), std::numeric_limits<int>::max());
    QVERIFY(!n.setDoubleValue(0, std::nan("")));
}

void TestFloatProperty::boolIsZeroOrOne()
{
    VxBoolProperty b(QStringLiteral("B"), true);
    QCOMPARE(b.getValue(0), 1);
    b.setValue(0, 5);
    QCOMPARE(b.getValue(0), 1);
    b.setValue(0, -5);
    QVERIFY(!b.getBoolValue(0));
}

void TestFloatProperty::stringHasNoKeys()
{
    VxUndoStack stack;
    VxStringProperty s(QStringLiteral("S"), QStringLiteral("one"));
    QVERIFY(!s.canBeKeyed());
    QCOMPARE(s.getNumKeys(), 0);
    QCOMPARE(s.deleteKeys(VxTimeRange::all()), 0);
    VxUndoStackHold hold;
    QVERIFY(s.setValue(QStringLiteral("two")));
    hold.accept(QStringLiteral("Note"));
    stack.undo();
    QCOMPARE(s.getValue(), QStringLiteral("one"));
    s.setLocked(true);
    QVERIFY(!s.setValue(QStringLiteral("three")));
}

void TestFloatProperty::manyValuesEqualSingleOnes()
{
    VxFloatProperty x(QStringLiteral("X"));
    x.setKey(0, 0.0f, 2);
    x.setKey(100, 10.0f, 0);
    x.setKey(150, -4.0f, 1);
    x.setKey(400, 2.0f, 2);
    QVector<VxTime> times;
    for (VxTime time = -50; time < 500; time += 3)
        times.append(time);
    QVector<float> values(times.size());
    x.getValues(times.constData(), times.size(), values.data());
    for (int i = 0; i < times.size(); ++i)
        QCOMPARE(values.at(i), x.getValue(times.at(i)));
}

void TestFloatProperty::keyMemoryIsSmall()
{
    VxFloatProperty x(QStringLiteral("X"));
    QVector<VxTime> times;
    for (int i = 0; i < 3000; ++i)
        times.append(i * 160);
    const QVector<float> values(times.size(), 1.0f);
    QVERIFY(x.setKeys({times.constData(), values.constData(), nullptr, nullptr, times.size()}));
    QVERIFY2(x.getKeyMemory() <= 3000 * 16, qPrintable(QString::number(x.getKeyMemory())));
}

VX_TEST_MAIN(TestFloatProperty)
#include "tst_vxfloatproperty.moc"
