// Identifiers of classes: which texts are one.

#include "testing/vxtestmain.h"

#include <QtTest/QtTest>
#include <testing/vxwarningguard.h>
#include <vxcore/vxguid.h>

class TestGuid : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void readsAText_data();
    void readsAText();
    void equalWhenAllDigitsAre();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestGuid::readsAText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("read"); // empty: the null identifier
    const QString whole = QStringLiteral("0F5D2B7E-8A11-4C3D-9E6F-7A8B9C0D1E2F");
    QTest::newRow("upper case") << whole << whole;
    QTest::newRow("lower case") << whole.toLower() << whole;
    QTest::newRow("in braces") << '{' + whole + '}' << whole;
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("a digit too few") << whole.chopped(1) << QString();
    QTest::newRow("a digit too many") << whole + '0' << QString();
    QTest::newRow("words behind it") << whole + QStringLiteral(" and more") << QString();
    QTest::newRow("a space before it") << ' ' + whole << QString();
    QTest::newRow("a brace that stays open") << '{' + whole << QString();
    QTest::newRow("a brace that only closes") << whole + '}' << QString();
    QTest::newRow("no dashes") << QString(whole).remove('-') << QString();
    QTest::newRow("a letter that is no digit") << whole.chopped(1) + 'G' << QString();
    QTest::newRow("all zero") << QStringLiteral("00000000-0000-0000-0000-000000000000")
                              << QString();
}

void TestGuid::readsAText()
{
    QFETCH(QString, text);
    QFETCH(QString, read);
    const VxGuid guid = VxGuid::fromString(text);
    QCOMPARE(guid.isNull(), read.isEmpty());
    if (!read.isEmpty())
        QCOMPARE(guid.toString(), read);
}

void TestGuid::equalWhenAllDigitsAre()
{
    const QString text = QStringLiteral("0F5D2B7E-8A11-4C3D-9E6F-7A8B9C0D1E2F");
    const QString next = QStringLiteral("0F5D2B7E-8A11-4C3D-9E6F-7A8B9C0D1E30");
    QVERIFY(VxGuid::fromString(text) == VxGuid::fromString(text.toLower()));
    QVERIFY(VxGuid::fromString(text) != VxGuid::fromString(next));
    QVERIFY(VxGuid::fromString(text) < VxGuid::fromString(next));
    QVERIFY(VxGuid() == VxGuid::fromString(QString()));
}

VX_TEST_GUILESS_MAIN(TestGuid)
#include "tst_vxguid.moc"
