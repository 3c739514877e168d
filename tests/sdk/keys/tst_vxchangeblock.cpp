// Change reports: at once outside of a block, once a property at the end of one.

#include "testing/vxtestmain.h"

#include <QtTest/QtTest>
#include <functional>
#include <testing/vxwarningguard.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

using Edit = std::function<bool(VxFloatProperty &)>;

/// A key at each of two times.
VxKeyColumns<float> twoKeys(VxTime first, VxTime second)
{
    static VxTime times[2];
    static const float values[2] = {8.0f, 9.0f};
    times[0] = first;
    times[1] = second;
    return {times, values, nullptr, nullptr, 2};
}

QVector<VxTimeRange> ranges(const QSignalSpy &spy)
{
    QVector<VxTimeRange> list;
    for (const QList<QVariant> &arguments : spy)
        list.append(arguments.first().value<VxTimeRange>());
    return list;
}

} // namespace

Q_DECLARE_METATYPE(Edit)

class TestChangeBlock : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void reportsAtOnceOutsideABlock();
    void reportsOnceWithTheUnionAtTheEnd();
    void nestedBlocksReportAtTheOutermostEnd();
    void reportsAreInTheOrderOfTheFirstChange();
    void destroyedPropertyReportsNothing();
    void receiverMayDestroyAPropertyThatIsStillToReport();
    void receiverMayChangeAPropertyThatIsStillToReport();
    void receiverMayUseABlockOfItsOwn();
    void unchangedKeyReportsNothing();
    void eachEditReportsItsSpan_data();
    void eachEditReportsItsSpan();
    void manyPropertiesStayLinear();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestChangeBlock::reportsAtOnceOutsideABlock()
{
    VxFloatProperty x(QStringLiteral("X"));
    QSignalSpy spy(&x, &VxProperty::valueChanged);
    x.setKey(160, 1.0f, 0);
    x.setKey(320, 2.0f, 0);
    QCOMPARE(ranges(spy), (QVector<VxTimeRange>{{160, 160}, {320, 320}}));
}

void TestChangeBlock::reportsOnceWithTheUnionAtTheEnd()
{
    VxFloatProperty x(QStringLiteral("X"));
    QSignalSpy spy(&x, &VxProperty::valueChanged);
    {
        const VxChangeBlock block;
        QVERIFY(VxChangeBlock::isActive());
        x.setKey(480, 1.0f, 0);
        x.setKey(160, 2.0f, 0);
        x.deleteKeys(VxTimeRange(480, 480));
        QCOMPARE(spy.count(), 0);
        QCOMPARE(x.getNumKeys(), 1);
    }
    QVERIFY(!VxChangeBlock::isActive());
    QCOMPARE(ranges(spy), (QVector<VxTimeRange>{{160, 480}}));
}

void TestChangeBlock::nestedBlocksReportAtTheOutermostEnd()
{
    VxFloatProperty x(QStringLiteral("X"));
    QSignalSpy spy(&x, &VxProperty::valueChanged);
    {
        const VxChangeBlock outer;
        {
            const VxChangeBlock inner;
            x.setKey(0, 1.0f, 0);
        }
        QCOMPARE(spy.count(), 0);
    }
    QCOMPARE(spy.count(), 1);
}

void TestChangeBlock::reportsAreInTheOrderOfTheFirstChange()
{
    VxFloatProperty x(QStringLiteral("X")), y(QStringLiteral("Y"));
    QString order;
    connect(&x, &VxProperty::valueChanged, this, [&order] { order += QLatin1Char('x'); });
    connect(&y, &VxProperty::valueChanged, this, [&order] { order += QLatin1Char('y'); });
    {
        const VxChangeBlock block;
        y.setKey(0, 1.0f, 0);
        x.setKey(0, 1.0f, 0);
        y.setKey(5, 1.0f, 0);
    }
    QCOMPARE(order, QStringLiteral("yx"));
}

void TestChangeBlock::destroyedPropertyReportsNothing()
{
    VxFloatProperty y(QStringLiteral("Y"));
    QSignalSpy spy(&y, &VxProperty::valueChanged);
    const VxChangeBlock block;
    {
        VxFloatProperty x(QStringLiteral("X"));
        x.setKey(0, 1.0f, 0);
        y.setKey(0, 1.0f, 0);
    }
    QCOMPARE(spy.count(), 0);
}

void TestChangeBlock::receiverMayDestroyAPropertyThatIsStillToReport()
{
    VxFloatProperty x(QStringLiteral("X"));
    auto y = std::make_unique<VxFloatProperty>(QStringLiteral("Y"));
    int reports = 0;
    connect(&x, &VxProperty::valueChanged, this, [&y] { y.reset(); });
    connect(y.get(), &VxProperty::valueChanged, this, [&reports] { ++reports; });
    {
        const VxChangeBlock block;
        x.setKey(0, 1.0f, 0);
        y->setKey(0, 1.0f, 0);
    }
    QVERIFY(!y);
    QCOMPARE(reports, 0);
}

void TestChangeBlock::receiverMayChangeAPropertyThatIsStillToReport()
{
    VxFloatProperty x(QStringLiteral("X")), y(QStringLiteral("Y"));
    connect(&x, &VxProperty::valueChanged, this, [&y] { y.setKey(800, 1.0f, 0); });
    QSignalSpy spy(&y, &VxProperty::valueChanged);
    {
        const VxChangeBlock block;
        x.setKey(0, 1.0f, 0);
        y.setKey(160, 1.0f, 0);
    }
    QCOMPARE(ranges(spy), (QVector<VxTimeRange>{{800, 800}, {160, 160}}));
}

void TestChangeBlock::receiverMayUseABlockOfItsOwn()
{
    VxFloatProperty x(QStringLiteral("X")), y(QStringLiteral("Y"));
    connect(&x, &VxProperty::valueChanged, this, [&y] {
        const VxChangeBlock block;
        y.setKey(800, 1.0f, 0);
    });
    QSignalSpy spy(&y, &VxProperty::valueChanged);
    {
        const VxChangeBlock block;
        x.setKey(0, 1.0f, 0);
        y.setKey(160, 1.0f, 0);
    }
    QCOMPARE(ranges(spy), (QVector<VxTimeRange>{{160, 800}}));
}

void TestChangeBlock::unchangedKeyReportsNothing()
{
    VxFloatProperty x(QStringLiteral("X"));
    x.setKey(0, 1.0f, 2, 0.5f);
    QSignalSpy spy(&x, &VxProperty::valueChanged);
    QVERIFY(x.setKey(0, 1.0f, 2, 0.5f));
    QVERIFY(x.setKeyInterpolation(0, 2, 0.5f));
    QCOMPARE(x.deleteKeys(VxTimeRange(1, 1000)), 0);
    QCOMPARE(spy.count(), 0);
}

void TestChangeBlock::eachEditReportsItsSpan_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QVector<VxTimeRange>>("reported");
    const auto row = [](const char *name, const QVector<VxTimeRange> &reported, const Edit &edit) {
        QTest::newRow(name) << edit << reported;
    };
    using P = VxFloatProperty;
    row("a new key", {{250, 250}}, [](P &x) { return x.setKey(250, 5.0f, 0); });
    row("the value it has", {}, [](P &x) { return x.setKey(200, 2.0f, 0); });
    row("several keys", {{150, 350}}, [](P &x) { return x.setKeys(twoKeys(150, 350)); });
    row("keys within a range for those in it", {{100, 300}}, [](P &x) {
        return x.replaceKeys({50, 350}, twoKeys(150, 250));
    });
    row("keys outside of a range for those in it", {{100, 500}}, [](P &x) {
        return x.replaceKeys({50, 250}, twoKeys(150, 500));
    });
    row("keys for none", {{450, 500}}, [](P &x) {
        return x.replaceKeys({350, 390}, twoKeys(450, 500));
    });
    row("no keys in a range", {{200, 300}}, [](P &x) {
        return x.replaceKeys({150, 350}, VxKeyColumns<float>());
    });
    row("keys of a range removed", {{200, 300}},
        [](P &x) { return x.deleteKeys(VxTimeRange(150, 399)) == 2; });
    row("keys of a range without any", {},
        [](P &x) { return x.deleteKeys(VxTimeRange(150, 199)) == 0; });
    row("keys between two indexes removed", {{100, 200}},
        [](P &x) { return x.deleteKeys(-5, 1) == 2; });
    row("some keys removed", {{100, 300}}, [](P &x) {
        return x.deleteKeys(QVector<int>{0, 2}) == 2;
    });
    row("keys move away", {{200, 500}}, [](P &x) { return x.moveKeys({1, 2}, {350, 500}); });
    row("a key moves back", {{50, 400}}, [](P &x) { return x.moveKeys({3}, {50}); });
    row("keys change places", {{100, 400}}, [](P &x) { return x.moveKeys({0, 3}, {400, 100}); });
    row("another shape", {{200, 400}}, [](P &x) {
        return x.setKeyInterpolations({1, 3}, {VxKeyInterp::Tcb, {}});
    });
    row("the shape they have", {}, [](P &x) { return x.setKeyInterpolations({1, 3}, {}); });
    row("another type", {{100, 200}}, [](P &x) { return x.setKeyTypes({0, 1}, 1); });
    row("the type they have", {}, [](P &x) { return x.setKeyTypes({0, 1}, 0); });
    row("other values", {{100, 300}}, [](P &x) { return x.setKeyValues({0, 2}, {7.0f, 8.0f}); });
    row("a stored value beside keys", {}, [](P &x) { return x.setStoredValue(9.0f); });
}

void TestChangeBlock::eachEditReportsItsSpan()
{
    QFETCH(Edit, edit);
    QFETCH(QVector<VxTimeRange>, reported);
    VxUndoStack stack;
    VxFloatProperty x(QStringLiteral("X"));
    for (int i = 1; i <= 4; ++i)
        x.setKey(i * 100, float(i), VxKeyInterp::Linear);
    QSignalSpy spy(&x, &VxProperty::valueChanged);
    VxUndoStackHold hold;
    QVERIFY(edit(x));
    hold.accept(QStringLiteral("Edit"));
    QCOMPARE(ranges(spy), reported);

    // Undo reports where keys differ, which is no more than was reported before.
    spy.clear();
    stack.undo();
    QVERIFY(spy.count() <= reported.size());
    for (const VxTimeRange &range : ranges(spy)) {
        QVERIFY(range.getStart() >= reported.first().getStart());
        QVERIFY(range.getEnd() <= reported.first().getEnd());
    }
}

void TestChangeBlock::manyPropertiesStayLinear()
{
    // Destroying each property of a large block must not search the list of all of them.
    std::vector<std::unique_ptr<VxFloatProperty>> properties;
    for (int i = 0; i < 30000; ++i)
        properties.push_back(std::make_unique<VxFloatProperty>(QStringLiteral("P")));
    int reports = 0;
    for (const auto &property : properties)
        connect(property.get(), &VxProperty::valueChanged, this, [&reports] { ++reports; });
    QElapsedTimer timer;
    timer.start();
    {
        const VxChangeBlock block;
        for (const auto &property : properties)
            property->setKey(0, 1.0f, 0);
        for (int i = 0; i < 15000; ++i)
            properties.pop_back();
    }
    QCOMPARE(reports, 15000);
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
}

VX_TEST_MAIN(TestChangeBlock)
#include "tst_vxchangeblock.moc"
