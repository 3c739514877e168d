// The history: what a hold collects, what makes an entry, and undo against redo.

#include "testing/vxtestmain.h"

#include <QtCore/QPointer>
#include <QtTest/QtTest>
#include <random>
#include <testing/vxwarningguard.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxundoitem.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

using Key = QVector<double>;

QVector<Key> keysOf(const VxFloatProperty &property)
{
    QVector<Key> keys;
    for (int i = 0; i < property.getNumKeys(); ++i) {
        float t = 0, c = 0, b = 0;
        const int type = property.getKeyInterpolationType(i, &t, &c, &b);
        keys.append({double(property.getKeyTime(i)), double(property.getKeyValue(i)), double(type),
                     double(t), double(c), double(b)});
    }
    return keys;
}

class CountingItem : public VxUndoItem
{
public:
    CountingItem(const void *object, int kind, QStringList *log)
        : VxUndoItem(object, kind)
        , m_log(log)
    {
    }
    void swap() override { m_log->append(QString::number(kind())); }

private:
    QStringList *m_log;
};

/// Queries isRecording() of the history during an undo.
class AskingItem : public VxUndoItem
{
public:
    AskingItem(const VxUndoStack *stack, bool *answer)
        : VxUndoItem(stack, 1)
        , m_stack(stack)
        , m_answer(answer)
    {
    }
    void swap() override
    {
        const VxUndoStackHold hold;
        *m_answer = m_stack->isRecording();
    }

private:
    const VxUndoStack *m_stack;
    bool *m_answer;
};

} // namespace

class TestUndoStack : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void nothingIsRecordedOutsideAHold();
    void acceptMakesOneEntryForManyChanges();
    void undoAndRedoRestoreEveryKey();
    void emptyHoldMakesNoEntry();
    void changesThatCancelOutMakeNoEntry();
    void cancelKeepsTheChangesWithoutAnEntry();
    void destroyedHoldIsDropped();
    void rollBackUndoesTheChanges();
    void rollBackOfAnInnerHoldOnlyEndsIt();
    void innerHoldJoinsTheOuter_data();
    void innerHoldJoinsTheOuter();
    void outerHoldThatEndsFirstRecordsTheEarlierChanges();
    void undoIsIgnoredWhileAHoldIsOpen();
    void nothingIsRecordedWhileUndoing();
    void entriesOfADestroyedPropertyDoNothing();
    void propertyAtTheAddressOfADestroyedOne();
    void keysOutsideTheSpanSurviveUndo();
    void itemsAreUndoneInReverseOrder();
    void memoryFollowsTheKeysThatChanged();
    void cleanStateFollowsTheIndex();
    void stepsAndEntriesAreReported();
    void theIndexIsSet();
    void scriptBracket();
    void randomEditsUndoToTheStartAndRedoToTheEnd();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestUndoStack::nothingIsRecordedOutsideAHold()
{
    VxUndoStack stack;
    VxFloatProperty property(QStringLiteral("X"));
    QVERIFY(property.setKey(0, 1.0f, 0));
    QCOMPARE(stack.count(), 0);
    QVERIFY(!stack.isRecording());
    const VxUndoStackHold hold;
    QVERIFY(stack.isRecording());
}

void TestUndoStack::acceptMakesOneEntryForManyChanges()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    VxIntProperty n(QStringLiteral("N"));
    VxUndoStackHold hold;
    QVERIFY(hold.isOpen());
    x.setKey(0, 1.0f, 0);
    x.setKey(160, 2.0f, 2, 0.5f, 0.25f, -1.0f);
    n.setKey(320, 7);
    x.setLabel(QStringLiteral("Renamed"));
    hold.accept(QStringLiteral("Create Keys"));
    QVERIFY(!hold.isOpen());
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("Create Keys"));
    QCOMPARE(stack.undoText(), QStringLiteral("Create Keys"));
    stack.undo();
    QCOMPARE(x.getNumKeys(), 0);
    QCOMPARE(n.getNumKeys(), 0);
    QCOMPARE(x.getLabel(), QStringLiteral("X"));
    QCOMPARE(stack.redoText(), QStringLiteral("Create Keys"));
    stack.redo();
    QCOMPARE(keysOf(x), (QVector<Key>{{0, 1, 0, 0, 0, 0}, {160, 2, 2, 0.5, 0.25, -1}}));
    QCOMPARE(n.getKeyValue(0), 7);
    QCOMPARE(x.getLabel(), QStringLiteral("Renamed"));
}

void TestUndoStack::undoAndRedoRestoreEveryKey()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"), 3.0f);
    for (int i = 0; i < 10; ++i)
        x.setKey(i * 100, float(i), i % 3);
    const QVector<Key> state0 = keysOf(x);
    {
        VxUndoStackHold hold;
        QVERIFY(x.moveKeys({2, 3, 4}, {250, 500, 800}));
        QCOMPARE(x.deleteKeys(VxTimeRange(0, 100)), 2);
        hold.accept(QStringLiteral("Edit"));
    }
    const QVector<Key> state1 = keysOf(x);
    QVERIFY(state0 != state1);
    stack.undo();
    QCOMPARE(keysOf(x), state0);
    stack.redo();
    QCOMPARE(keysOf(x), state1);
    stack.undo();
    QCOMPARE(keysOf(x), state0);
}

void TestUndoStack::emptyHoldMakesNoEntry()
{
    VxUndoStack stack;
    VxUndoStackHold hold;
    hold.accept(QStringLiteral("Nothing"));
    QCOMPARE(stack.count(), 0);
}

void TestUndoStack::changesThatCancelOutMakeNoEntry()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    x.setKey(100, 1.0f, 0);
    VxUndoStackHold hold;
    x.moveKeys({0}, {300});
    x.setKeyValue(0, 9.0f);
    x.setKeyValue(0, 1.0f);
    x.moveKeys({0}, {100});
    x.setLabel(QStringLiteral("Y"));
    x.setLabel(QStringLiteral("X"));
    x.setStoredValue(7.0f);
    x.setStoredValue(0.0f);
    hold.accept(QStringLiteral("There and back"));
    QCOMPARE(stack.count(), 0);
}

void TestUndoStack::cancelKeepsTheChangesWithoutAnEntry()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    VxUndoStackHold hold;
    x.setKey(0, 1.0f, 0);
    hold.cancel();
    hold.accept(QStringLiteral("Too late"));
    QCOMPARE(stack.count(), 0);
    QCOMPARE(x.getNumKeys(), 1);
}

void TestUndoStack::destroyedHoldIsDropped()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    {
        const VxUndoStackHold hold;
        x.setKey(0, 1.0f, 0);
    }
    QCOMPARE(stack.count(), 0);
    QVERIFY(!stack.isRecording());
}

void TestUndoStack::rollBackUndoesTheChanges()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    x.setKey(0, 1.0f, 0);
    x.setKey(160, 2.0f, 2, 0.5f, 0.25f, -1.0f);
    VxUndoStackHold hold;
    x.setKey(320, 3.0f, 0);
    x.setKey(160, 9.0f, 1);
    x.deleteKeys(VxTimeRange(0, 0));
    int reports = 0;
    connect(&x, &VxProperty::valueChanged, this, [&reports] { ++reports; });
    hold.rollBack();
    QCOMPARE(reports, 1);
    QVERIFY(!hold.isOpen());
    QVERIFY(!stack.isRecording());
    QCOMPARE(stack.count(), 0);
    QCOMPARE(x.getNumKeys(), 2);
    QCOMPARE(x.getKeyTime(0), 0);
    QCOMPARE(x.getKeyTime(1), 160);
    QCOMPARE(x.getKeyValue(1), 2.0f);
    QCOMPARE(x.getKeyInterpolationType(1), 2);
    hold.rollBack();
    QCOMPARE(reports, 1);
}

void TestUndoStack::rollBackOfAnInnerHoldOnlyEndsIt()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    VxUndoStackHold outer;
    VxUndoStackHold inner;
    x.setKey(0, 1.0f, 0);
    inner.rollBack();
    QCOMPARE(x.getNumKeys(), 1);
    outer.accept(QStringLiteral("Outer"));
    QCOMPARE(stack.count(), 1);
    stack.undo();
    QCOMPARE(x.getNumKeys(), 0);
}

void TestUndoStack::innerHoldJoinsTheOuter_data()
{
    QTest::addColumn<bool>("acceptInner");
    QTest::addColumn<bool>("acceptOuter");
    QTest::addColumn<int>("entries");
    QTest::newRow("both accepted") << true << true << 1;
    QTest::newRow("inner cancelled, outer accepted") << false << true << 1;
    QTest::newRow("inner accepted, outer cancelled") << true << false << 0;
    QTest::newRow("both cancelled") << false << false << 0;
}

void TestUndoStack::innerHoldJoinsTheOuter()
{
    QFETCH(bool, acceptInner);
    QFETCH(bool, acceptOuter);
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    VxUndoStackHold outer;
    {
        VxUndoStackHold inner;
        x.setKey(0, 1.0f, 0);
        acceptInner ? inner.accept(QStringLiteral("Inner")) : inner.cancel();
    }
    QCOMPARE(stack.count(), 0);
    acceptOuter ? outer.accept(QStringLiteral("Outer")) : outer.cancel();
    QTEST(stack.count(), "entries");
    if (stack.count() > 0) {
        QCOMPARE(stack.text(0), QStringLiteral("Outer"));
        stack.undo();
        QCOMPARE(x.getNumKeys(), 0);
    }
}

void TestUndoStack::outerHoldThatEndsFirstRecordsTheEarlierChanges()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    VxUndoStackHold outer;
    VxUndoStackHold inner;
    x.setKey(0, 1.0f, 0);
    outer.accept(QStringLiteral("First"));
    x.setKey(160, 2.0f, 0);
    inner.accept(QStringLiteral("Second"));
    QCOMPARE(stack.count(), 2);
    stack.undo();
    QCOMPARE(x.getNumKeys(), 1);
    stack.undo();
    QCOMPARE(x.getNumKeys(), 0);
}

void TestUndoStack::undoIsIgnoredWhileAHoldIsOpen()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    VxUndoStackHold first;
    x.setKey(0, 1.0f, 0);
    first.accept(QStringLiteral("First"));
    VxUndoStackHold second;
    stack.undo();
    QCOMPARE(x.getNumKeys(), 1);
    QCOMPARE(stack.index(), 1);
    second.cancel();
    stack.undo();
    QCOMPARE(x.getNumKeys(), 0);
}

void TestUndoStack::nothingIsRecordedWhileUndoing()
{
    VxUndoStack stack;
    bool recorded = true;
    {
        VxUndoStackHold hold;
        stack.record(new AskingItem(&stack, &recorded));
        hold.accept(QStringLiteral("Ask"));
    }
    stack.undo();
    QVERIFY(!recorded);
    recorded = true;
    stack.redo();
    QVERIFY(!recorded);
    QCOMPARE(stack.count(), 1);
}

void TestUndoStack::entriesOfADestroyedPropertyDoNothing()
{
    VxUndoStack stack;
    auto x = std::make_unique<VxFloatProperty>(QStringLiteral("X"));
    VxFloatProperty y(QStringLiteral("Y"));
    VxUndoStackHold hold;
    x->setKey(0, 1.0f, 0);
    x->setStoredValue(4.0f);
    x->setLabel(QStringLiteral("Z"));
    y.setKey(0, 1.0f, 0);
    hold.accept(QStringLiteral("Both"));
    x.reset();
    stack.undo();
    QCOMPARE(y.getNumKeys(), 0);
    stack.redo();
    QCOMPARE(y.getNumKeys(), 1);
}

// Memory is reused: the hold's record of a destroyed property is not that of the next one.
void TestUndoStack::propertyAtTheAddressOfADestroyedOne()
{
    VxUndoStack stack;
    alignas(VxFloatProperty) unsigned char room[sizeof(VxFloatProperty)];
    static_assert(sizeof(VxIntProperty) <= sizeof room, "a whole number needs no more room");
    VxUndoStackHold hold;
    auto *number = new (room) VxFloatProperty(QStringLiteral("Number"));
    number->setKey(0, 1.0f, VxKeyInterp::Linear);
    number->setStoredValue(2.0f);
    number->setLabel(QStringLiteral("Renamed"));
    number->~VxFloatProperty();
    auto *whole = new (room) VxIntProperty(QStringLiteral("Whole"));
    whole->setKey(160, 5);
    whole->setStoredValue(6);
    whole->setLabel(QStringLiteral("Changed"));
    hold.accept(QStringLiteral("Replace"));
    QCOMPARE(stack.count(), 1);
    stack.undo();
    QCOMPARE(whole->getNumKeys(), 0);
    QCOMPARE(whole->getStoredValue(), 0);
    QCOMPARE(whole->getLabel(), QStringLiteral("Whole"));
    stack.redo();
    QCOMPARE(whole->getKeyValue(0), 5);
    QCOMPARE(whole->getStoredValue(), 6);
    QCOMPARE(whole->getLabel(), QStringLiteral("Changed"));
    whole->~VxIntProperty();
}

void TestUndoStack::keysOutsideTheSpanSurviveUndo()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    VxUndoStackHold hold;
    x.setKey(100, 1.0f, 0);
    hold.accept(QStringLiteral("One"));
    x.setKey(50, 5.0f, 0);
    x.setKey(200, 6.0f, 0);
    stack.undo();
    QCOMPARE(keysOf(x), (QVector<Key>{{50, 5, 0, 0, 0, 0}, {200, 6, 0, 0, 0, 0}}));
    stack.redo();
    QCOMPARE(x.getNumKeys(), 3);
}

void TestUndoStack::itemsAreUndoneInReverseOrder()
{
    VxUndoStack stack;
    QStringList log;
    VxUndoStackHold hold;
    stack.record(new CountingItem(&log, 1, &log));
    stack.record(new CountingItem(&log, 2, &log));
    QVERIFY(stack.findItem(&log, 2));
    QVERIFY(!stack.findItem(&log, 3));
    hold.accept(QStringLiteral("Two"));
    QVERIFY(log.isEmpty());
    stack.undo();
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("2 1"));
    stack.redo();
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("2 1 1 2"));
}

void TestUndoStack::memoryFollowsTheKeysThatChanged()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    QVector<VxTime> times;
    QVector<float> values;
    for (int i = 0; i < 100000; ++i) {
        times.append(i * 10);
        values.append(float(i));
    }
    x.setKeys({times.constData(), values.constData(), nullptr, nullptr, times.size()});
    {
        VxUndoStackHold hold;
        x.setKeyValue(50000, -1.0f);
        hold.accept(QStringLiteral("One key"));
    }
    QVERIFY2(stack.memoryUsed() < 1000, qPrintable(QString::number(stack.memoryUsed())));
    {
        VxUndoStackHold hold;
        x.deleteKeys(10000, 19999);
        hold.accept(QStringLiteral("Ten thousand keys"));
    }
    QVERIFY2(stack.memoryUsed() < 10000 * 17, qPrintable(QString::number(stack.memoryUsed())));
}

void TestUndoStack::cleanStateFollowsTheIndex()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    QSignalSpy clean(&stack, &VxUndoStack::cleanChanged);
    QVERIFY(stack.isClean());
    VxUndoStackHold hold;
    x.setKey(0, 1.0f, 0);
    hold.accept(QStringLiteral("Key"));
    QVERIFY(!stack.isClean());
    stack.undo();
    QVERIFY(stack.isClean());
    QCOMPARE(clean.count(), 2);
}

void TestUndoStack::stepsAndEntriesAreReported()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    QStringList reports;
    connect(&stack, &VxUndoStack::entryAdded, this, [&](const QString &text) {
        reports << QStringLiteral("+%1 at %2").arg(text).arg(stack.index());
    });
    connect(&stack, &VxUndoStack::stepped, this,
            [&](int from, int to) { reports << QStringLiteral("%1>%2").arg(from).arg(to); });
    for (int i = 1; i <= 3; ++i) {
        VxUndoStackHold hold;
        x.setKey(i, 1.0f, 0);
        hold.accept(QString::number(i));
    }
    VxUndoStackHold empty;
    empty.accept(QStringLiteral("nothing"));
    stack.undo();
    stack.setIndex(0);
    stack.undo(); // nothing left
    stack.redo();
    stack.setIndex(3);
    stack.redo();
    QCOMPARE(reports, QStringList({"+1 at 1", "+2 at 2", "+3 at 3", "3>2", "2>0", "0>1", "1>3"}));
}

void TestUndoStack::theIndexIsSet()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    for (int i = 1; i <= 4; ++i) {
        VxUndoStackHold hold;
        x.setKey(i, 1.0f, 0);
        hold.accept(QString::number(i));
    }
    const QSignalSpy changed(&x, &VxProperty::valueChanged);
    stack.setIndex(1);
    QCOMPARE(stack.index(), 1);
    QCOMPARE(x.getNumKeys(), 1);
    QCOMPARE(changed.count(), 1); // once for all entries
    stack.setIndex(5);
    stack.setIndex(-1);
    QCOMPARE(stack.index(), 1);
    const VxUndoStackHold gesture;
    stack.setIndex(4);
    QCOMPARE(stack.index(), 1);
}

void TestUndoStack::scriptBracket()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    stack.beginHold();
    x.setKey(0, 1.0f, 0);
    stack.acceptHold(QStringLiteral("Script"));
    QCOMPARE(stack.text(0), QStringLiteral("Script"));
    m_guard->expect("VxUndoStack::acceptHold(): no hold is open");
    stack.acceptHold(QStringLiteral("Nothing"));
    m_guard->expect("VxUndoStack::cancelHold(): no hold is open");
    stack.cancelHold();
}

void TestUndoStack::randomEditsUndoToTheStartAndRedoToTheEnd()
{
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    std::mt19937 random(20261120);
    const auto pick = [&random](int limit) { return int(random() % unsigned(limit)); };
    QVector<QVector<Key>> states{keysOf(x)};
    for (int entry = 0; entry < 400; ++entry) {
        VxUndoStackHold hold;
        for (int edit = pick(4) + 1; edit > 0; --edit) {
            const int n = x.getNumKeys();
            switch (pick(5)) {
            case 0:
                x.setKey(pick(500), float(pick(9)), pick(3), float(pick(3)) - 1.0f);
                break;
            case 1:
                x.deleteKeys(VxTimeRange(pick(500), pick(500)));
                break;
            case 2:
                if (n > 0)
                    x.setKeyInterpolation(pick(n), pick(3), 0.5f);
                break;
            case 3:
                x.shiftKeys(VxTimeRange(pick(250), 250 + pick(250)), pick(101) - 50);
                break;
            default:
                if (n > 0)
                    x.setKeyValue(pick(n), float(pick(9)));
            }
        }
        const int before = stack.count();
        hold.accept(QString::number(entry));
        QCOMPARE(stack.count() > before, keysOf(x) != states.last());
        if (stack.count() > before)
            states.append(keysOf(x));
    }
    QVERIFY(states.size() > 200);
    for (int i = states.size() - 1; i > 0; --i) {
        QCOMPARE(keysOf(x), states.at(i));
        stack.undo();
    }
    QCOMPARE(keysOf(x), states.first());
    for (int i = 1; i < states.size(); ++i) {
        stack.redo();
        QCOMPARE(keysOf(x), states.at(i));
    }
}

VX_TEST_MAIN(TestUndoStack)
#include "tst_vxundostack.moc"
