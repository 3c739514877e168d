#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/dopesheet/copiedkeys.h"

#include <QtTest>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxstringproperty.h>

// Copied keys, without rows: what is stored, and which keys are pasted where.
class TestCopiedKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void nothing();
    void floatKeys();
    void intKeys();
    void earliestOfAllRows();
    void firstOfEqualPaths();
    void roundings_data();
    void roundings();
    void pastedFloats();
    void pastedInts();
    void pasteReplaces();
    void pasteAcrossKinds();
    void pasteLimitsValues();
    void pasteAtTheEndOfTime();
    void refusals();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestCopiedKeys::nothing()
{
    CopiedKeys copied;
    QVERIFY(copied.isEmpty());
    QCOMPARE(copied.earliest(), VxTimeMax);
    QVERIFY(!copied.find(QStringLiteral("/a")));
    VxFloatProperty property(QStringLiteral("p"));
    property.setKey(100, 1.0f, 0);
    copied.add(QStringLiteral("/a"), &property, {});
    VxStringProperty text(QStringLiteral("t"));
    copied.add(QStringLiteral("/t"), &text, {0});
    copied.add(QStringLiteral("/n"), nullptr, {0});
    QVERIFY(copied.isEmpty());
}

void TestCopiedKeys::floatKeys()
{
    VxFloatProperty property(QStringLiteral("p"));
    property.setKey(100, 1.5f, VxKeyInterp::Constant);
    property.setKey(200, 2.5f, VxKeyInterp::Linear);
    property.setKey(300, 3.5f, VxKeyInterp::Tcb, 0.25f, -0.5f, 1.0f);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {0, 2});
    const CopiedKeys::Entry *entry = copied.find(QStringLiteral("/a"));
    QVERIFY(entry);
    QCOMPARE(entry->times, (std::vector<VxTime>{100, 300}));
    QCOMPARE(entry->values, (std::vector<double>{1.5, 3.5}));
    QCOMPARE(entry->types, (std::vector<quint8>{1, 2}));
    QCOMPARE(entry->tcb.size(), std::size_t(2));
    QVERIFY(entry->tcb[0] == VxTcb());
    QVERIFY(entry->tcb[1] == (VxTcb{0.25f, -0.5f, 1.0f}));
    copied.clear();
    QVERIFY(copied.isEmpty());
    QVERIFY(!copied.find(QStringLiteral("/a")));
}

void TestCopiedKeys::intKeys()
{
    VxIntProperty property(QStringLiteral("p"));
    property.setKey(100, -7);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {0});
    const CopiedKeys::Entry *entry = copied.find(QStringLiteral("/a"));
    QVERIFY(entry);
    QCOMPARE(entry->values, (std::vector<double>{-7.0}));
    QCOMPARE(entry->types, (std::vector<quint8>{1}));
    QVERIFY(entry->tcb.empty());
}

void TestCopiedKeys::earliestOfAllRows()
{
    VxFloatProperty property(QStringLiteral("p"));
    for (const VxTime time : {100, 200, 300})
        property.setKey(time, 1.0f, 0);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {2});
    QCOMPARE(copied.earliest(), 300);
    copied.add(QStringLiteral("/b"), &property, {1});
    QCOMPARE(copied.earliest(), 200);
    // The distance between rows stays, too.
    VxFloatProperty other(QStringLiteral("o"));
    QVERIFY(copied.paste(*copied.find(QStringLiteral("/a")), &other, 1000));
    QCOMPARE(other.getKeyTime(0), 1100);
}

void TestCopiedKeys::firstOfEqualPaths()
{
    VxFloatProperty property(QStringLiteral("p"));
    property.setKey(100, 1.0f, 0);
    property.setKey(200, 2.0f, 0);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {1});
    copied.add(QStringLiteral("/a"), &property, {0});
    QCOMPARE(copied.find(QStringLiteral("/a"))->values, (std::vector<double>{2.0}));
}

void TestCopiedKeys::roundings_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("rounded");

    QTest::newRow("a half is rounded down") << 2.5 << 2;
    QTest::newRow("more than a half") << 2.6 << 3;
    QTest::newRow("little") << 2.1 << 2;
    QTest::newRow("whole") << 3.0 << 3;
    QTest::newRow("none") << 0.0 << 0;
    QTest::newRow("whole, negative") << -3.0 << -2;
    QTest::newRow("negative, a fraction") << -3.4 << -2;
    QTest::newRow("negative, more than a half") << -3.6 << -3;
    QTest::newRow("just below zero") << -0.4 << 0;
    QTest::newRow("too large") << 1e12 << 2147483647;
    QTest::newRow("too small") << -1e12 << -2147483647 - 1;
    QTest::newRow("no number") << double(NAN) << 0;
}

void TestCopiedKeys::roundings()
{
    QFETCH(double, value);
    QTEST(CopiedKeys::rounded(value), "rounded");
}

void TestCopiedKeys::pastedFloats()
{
    VxFloatProperty property(QStringLiteral("p"));
    property.setKey(1000, 1.0f, VxKeyInterp::Constant);
    property.setKey(2000, 2.0f, VxKeyInterp::Tcb, 0.5f, 0.25f, -1.0f);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {0, 1});
    VxFloatProperty other(QStringLiteral("o"));
    QVERIFY(copied.paste(*copied.find(QStringLiteral("/a")), &other, 4800));
    QCOMPARE(other.getNumKeys(), 2);
    QCOMPARE(other.getKeyTime(0), 4800);
    QCOMPARE(other.getKeyTime(1), 5800);
    QCOMPARE(other.getKeyValue(1), 2.0f);
    QCOMPARE(other.getKeyInterpolationType(0), int(VxKeyInterp::Constant));
    float tension = 0;
    float continuity = 0;
    float bias = 0;
    QCOMPARE(other.getKeyInterpolationType(1, &tension, &continuity, &bias), int(VxKeyInterp::Tcb));
    QCOMPARE(QVector<float>({tension, continuity, bias}), QVector<float>({0.5f, 0.25f, -1.0f}));
}

void TestCopiedKeys::pastedInts()
{
    VxIntProperty property(QStringLiteral("p"));
    property.setKey(0, -3);
    property.setKey(160, 2147483647);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {0, 1});
    VxIntProperty other(QStringLiteral("o"));
    QVERIFY(copied.paste(*copied.find(QStringLiteral("/a")), &other, 320));
    QCOMPARE(other.getKeyValue(0), -2);
    QCOMPARE(other.getKeyValue(1), 2147483647);
    QCOMPARE(other.getKeyTime(1), 480);
}

void TestCopiedKeys::pasteReplaces()
{
    VxFloatProperty property(QStringLiteral("p"));
    property.setKey(0, 1.0f, 0);
    property.setKey(160, 2.0f, 0);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {0, 1});
    QVERIFY(copied.paste(*copied.find(QStringLiteral("/a")), &property, 160));
    QCOMPARE(property.getNumKeys(), 3);
    QCOMPARE(property.getKeyValue(1), 1.0f);
    QCOMPARE(property.getKeyValue(2), 2.0f);
}

void TestCopiedKeys::pasteAcrossKinds()
{
    VxFloatProperty property(QStringLiteral("p"));
    property.setKey(0, 2.5f, VxKeyInterp::Tcb, 1.0f);
    property.setKey(160, 2.6f, 0);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {0, 1});
    VxIntProperty whole(QStringLiteral("o"));
    QVERIFY(copied.paste(*copied.find(QStringLiteral("/a")), &whole, 0));
    QCOMPARE(whole.getKeyValue(0), 2);
    QCOMPARE(whole.getKeyValue(1), 3);
    QCOMPARE(whole.getKeyInterpolationType(0), int(VxKeyInterp::Constant));
}

void TestCopiedKeys::pasteLimitsValues()
{
    VxFloatProperty property(QStringLiteral("p"));
    property.setKey(0, 50.0f, 0);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {0});
    VxFloatProperty narrow(QStringLiteral("n"));
    narrow.setMinMax(-1.0f, 1.0f, true);
    QVERIFY(copied.paste(*copied.find(QStringLiteral("/a")), &narrow, 0));
    QCOMPARE(narrow.getKeyValue(0), 1.0f);
    VxIntProperty few(QStringLiteral("f"));
    few.setMinMax(0, 9, true);
    QVERIFY(copied.paste(*copied.find(QStringLiteral("/a")), &few, 0));
    QCOMPARE(few.getKeyValue(0), 9);
}

void TestCopiedKeys::pasteAtTheEndOfTime()
{
    VxFloatProperty property(QStringLiteral("p"));
    property.setKey(0, 1.0f, 0);
    property.setKey(1000, 2.0f, 0);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {0, 1});
    VxFloatProperty other(QStringLiteral("o"));
    QVERIFY(copied.paste(*copied.find(QStringLiteral("/a")), &other, VxTimeMax - 10));
    QCOMPARE(other.getNumKeys(), 2);
    QCOMPARE(other.getKeyTime(0), VxTimeMax - 1000);
    QCOMPARE(other.getKeyTime(1), VxTimeMax);
}

void TestCopiedKeys::refusals()
{
    VxFloatProperty property(QStringLiteral("p"));
    property.setKey(0, 1.0f, 0);
    CopiedKeys copied;
    copied.add(QStringLiteral("/a"), &property, {0});
    const CopiedKeys::Entry *entry = copied.find(QStringLiteral("/a"));
    VxStringProperty text(QStringLiteral("t"));
    QVERIFY(!copied.paste(*entry, &text, 0));
    QVERIFY(!copied.paste(*entry, nullptr, 0));
    VxFloatProperty locked(QStringLiteral("l"));
    locked.setLocked(true);
    QVERIFY(!copied.paste(*entry, &locked, 0));
    QCOMPARE(locked.getNumKeys(), 0);
}

VX_TEST_GUILESS_MAIN(TestCopiedKeys)
#include "tst_copiedkeys.moc"
