// Change reports: at once outside of a block, once a property at the end of one.

#include <QtTest/QtTest>
#include <testing/vxwarningguard.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>

namespace {

QVector<VxTimeRange> ranges(const QSignalSpy &spy)
{
    QVector<VxTimeRange> list;
    for (const QList<QVariant> &arguments : spy)
        list.append(arguments.first().value<VxTimeRange>());
    return list;
}

} // namespace

class TestChangeBlock : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void reportsAtOnceOutsideABlock();
    void reportsOnceWithTheUnionAtTheEnd();
    void nestedBlocksReportAtTheOutermostEnd();
    void reportsComeInTheOrderOfTheFirstChange();
    void destroyedPropertyReportsNothing();
    void receiverMayDestroyAPropertyThatIsStillToReport();
    void receiverMayChangeAPropertyThatIsStillToReport();
    void receiverMayUseABlockOfItsOwn();
    void unchangedKeyReportsNothing();
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

void TestChangeBlock::reportsComeInTheOrderOfTheFirstChange()
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

QTEST_MAIN(TestChangeBlock)
#include "tst_vxchangeblock.moc"
