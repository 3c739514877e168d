#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxpropertygrouptree.h>

namespace {

/// The tree as text: a group is name(contents), its properties are first.
QString drawn(const VxPropertyGroup *group)
{
    QStringList parts;
    for (int i = 0; i < group->getNumProperties(); ++i)
        parts << group->getProperty(i)->getName();
    for (int i = 0; i < group->getNumChildren(); ++i)
        parts << group->getChild(i)->getName() + drawn(group->getChild(i));
    return QLatin1Char('(') + parts.join(QLatin1Char(' ')) + QLatin1Char(')');
}

} // namespace

class TestPropertyGroupTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup();

    void sortsByPath_data();
    void sortsByPath();
    void emptyTree();
    void groupsReturnTheirPaths();
    void collectsInTreeOrder();
    void nullIsIgnored();

private:
    VxProperty *make(const QString &name, const QString &path);

    std::unique_ptr<VxWarningGuard> m_guard;
    QVector<VxProperty *> m_properties;
};

void TestPropertyGroupTree::cleanup()
{
    qDeleteAll(m_properties);
    m_properties.clear();
    m_guard.reset();
}

VxProperty *TestPropertyGroupTree::make(const QString &name, const QString &path)
{
    m_properties.append(new VxFloatProperty(name));
    m_properties.last()->setPath(path);
    return m_properties.last();
}

void TestPropertyGroupTree::sortsByPath_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QString>("tree");

    QTest::newRow("no group") << QStringList{"", "/"} << "(p0 p1)";
    QTest::newRow("one group") << QStringList{"/A", "/A"} << "(A(p0 p1))";
    QTest::newRow("nested groups") << QStringList{"/A/B", "/A/C", "/A"} << "(A(p2 B(p0) C(p1)))";
    QTest::newRow("in the order of first meeting")
        << QStringList{"/Z", "/A", "/Z/M", "/Z"} << "(Z(p0 p3 M(p2)) A(p1))";
    QTest::newRow("empty parts are dropped")
        << QStringList{"//A//B/", "A/B", "/A/B"} << "(A(B(p0 p1 p2)))";
    QTest::newRow("same name below different groups")
        << QStringList{"/A/X", "/B/X"} << "(A(X(p0)) B(X(p1)))";
}

void TestPropertyGroupTree::sortsByPath()
{
    QFETCH(QStringList, paths);
    QFETCH(QString, tree);

    VxPropertyGroupTree groups;
    for (int i = 0; i < paths.size(); ++i)
        groups.addProperty(make(QStringLiteral("p%1").arg(i), paths.at(i)));
    QCOMPARE(drawn(groups.getRoot()), tree);
}

void TestPropertyGroupTree::emptyTree()
{
    const VxPropertyGroupTree groups;
    QCOMPARE(groups.getRoot()->getNumChildren(), 0);
    QCOMPARE(groups.getRoot()->getNumProperties(), 0);
    QVERIFY(groups.collectAllProperties().isEmpty());
}

void TestPropertyGroupTree::groupsReturnTheirPaths()
{
    VxPropertyGroupTree groups;
    groups.addProperty(make(QStringLiteral("p"), QStringLiteral("/A/B")));
    QCOMPARE(groups.getRoot()->getNumChildren(), 1);
    const VxPropertyGroup *parent = groups.getRoot()->getChild(0);
    QCOMPARE(parent->getPath(), QStringLiteral("/A"));
    QCOMPARE(parent->getNumChildren(), 1);
    const VxPropertyGroup *group = parent->getChild(0);
    QCOMPARE(group->getName(), QStringLiteral("B"));
    QCOMPARE(group->getPath(), QStringLiteral("/A/B"));
    QCOMPARE(groups.getRoot()->getPath(), QString());
    for (const int index : {-1, 1}) {
        QVERIFY(!group->getProperty(index));
        QVERIFY(!groups.getRoot()->getChild(index));
    }
}

void TestPropertyGroupTree::collectsInTreeOrder()
{
    VxPropertyGroupTree groups;
    VxProperty *deep = make(QStringLiteral("deep"), QStringLiteral("/A/B"));
    VxProperty *other = make(QStringLiteral("other"), QStringLiteral("/C"));
    VxProperty *shallow = make(QStringLiteral("shallow"), QStringLiteral("/A"));
    VxProperty *top = make(QStringLiteral("top"), QString());
    for (VxProperty *property : {deep, other, shallow, top})
        groups.addProperty(property);
    QCOMPARE(groups.collectAllProperties(), (QVector<VxProperty *>{top, shallow, deep, other}));
}

void TestPropertyGroupTree::nullIsIgnored()
{
    VxPropertyGroupTree groups;
    groups.addProperty(nullptr);
    QVERIFY(groups.collectAllProperties().isEmpty());
}

VX_TEST_APPLESS_MAIN(TestPropertyGroupTree)
#include "tst_vxpropertygrouptree.moc"
