#include "dopesheetrowstestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/rows/dopesheetrowbuilder.h"

#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxproperty.h>

using namespace TimelinePropertyTypes;

// Which properties of a node get a row, and in which groups.
class TestDopeSheetRows : public QObject, private DopeSheetRowsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void controlsAlone_data();
    void controlsAlone();
    void controlsInTheirOrder();
    void nestedGroups();
    void kindsOfProperties_data();
    void kindsOfProperties();
    void hiddenSources_data();
    void hiddenSources();
    void controlsAmongOthers_data();
    void controlsAmongOthers();
    void nothingAccepted();
    void groupsWithoutRowsDisappear();
    void oddPaths();
    void morphsAreListed();

private:
    // The rows below the node's; empty when it got no "Properties" row.
    QStringList rows(int types);
    bool lists(const VxProperty *property, int types);

    VxNode *m_node = nullptr;
};

void TestDopeSheetRows::init()
{
    setUp();
    m_node = builder->addNode(QStringLiteral("hip"));
}

void TestDopeSheetRows::cleanup()
{
    tearDown();
}

QStringList TestDopeSheetRows::rows(int types)
{
    VxDopeSheetItem nodeRow;
    DopeSheetRowBuilder(m_node, &nodeRow, types).build();
    return labelsBelow(&nodeRow);
}

bool TestDopeSheetRows::lists(const VxProperty *property, int types)
{
    VxDopeSheetItem nodeRow;
    const auto made = DopeSheetRowBuilder(m_node, &nodeRow, types).build();
    int count = 0;
    for (const VxDopeSheetItem *row : made)
        count += int(row->property() == property);
    if (count > 1)
        QTest::qFail("listed twice", __FILE__, __LINE__);
    return count == 1;
}

void TestDopeSheetRows::controlsAlone_data()
{
    QTest::addColumn<int>("types");
    QTest::addColumn<QStringList>("groups");
    const QString translation = QStringLiteral("General/Transforms/Translation");
    const QString rotation = QStringLiteral("General/Transforms/Rotation");
    const QString scale = QStringLiteral("General/Transforms/Scale");
    QTest::newRow("translation") << int(Translation) << QStringList{translation};
    QTest::newRow("rotation") << int(Rotation) << QStringList{rotation};
    QTest::newRow("scale") << int(Scale) << QStringList{scale};
    QTest::newRow("all three") << TransformTypes << QStringList{translation, rotation, scale};
    QTest::newRow("aliases and hidden ones add none")
        << (Translation | Alias | Hidden) << QStringList{translation};
    QTest::newRow("none") << 0 << QStringList();
}

void TestDopeSheetRows::controlsAlone()
{
    QFETCH(int, types);
    QFETCH(QStringList, groups);
    builder->addSpecialProperties(m_node);
    VxDopeSheetItem nodeRow;
    DopeSheetRowBuilder(m_node, &nodeRow, types).build();
    QCOMPARE(nodeRow.childCount(), groups.isEmpty() ? 0 : 1);
    if (groups.isEmpty())
        return;
    const VxDopeSheetItem *properties = nodeRow.child(0);
    QCOMPARE(properties->label(), QStringLiteral("Properties"));
    QStringList labels;
    for (int i = 0; i < properties->childCount(); ++i)
        labels += properties->child(i)->label();
    QCOMPARE(labels, groups);
}

void TestDopeSheetRows::controlsInTheirOrder()
{
    VxDopeSheetItem nodeRow;
    const auto made = DopeSheetRowBuilder(m_node, &nodeRow, TransformTypes).build();
    QVector<VxProperty *> properties;
    for (const VxDopeSheetItem *row : made) {
        properties += row->property();
        QCOMPARE(row->parentItem()->parentItem(), nodeRow.child(0));
    }
    const QVector<VxProperty *> expected{
        m_node->getXPosControl(),   m_node->getYPosControl(),   m_node->getZPosControl(),
        m_node->getXRotControl(),   m_node->getYRotControl(),   m_node->getZRotControl(),
        m_node->getScaleControl(),  m_node->getXScaleControl(), m_node->getYScaleControl(),
        m_node->getZScaleControl(),
    };
    QCOMPARE(properties, expected);
}

void TestDopeSheetRows::nestedGroups()
{
    VxDopeSheetItem nodeRow;
    DopeSheetRowBuilder(m_node, &nodeRow, Other | Translation | Rotation).build();
    QStringList labels;
    for (const VxDopeSheetItem *item = nodeRow.child(0); item; item = item->child(0))
        labels += item->label();
    QCOMPARE(labels, QStringList({QStringLiteral("Properties"), QStringLiteral("General"),
                                  QStringLiteral("Transforms"), QStringLiteral("Translation"),
                                  m_node->getXPosControl()->getLabel()}));
    const VxDopeSheetItem *transforms = nodeRow.child(0)->child(0)->child(0);
    QCOMPARE(transforms->childCount(), 2);
    QCOMPARE(transforms->child(1)->label(), QStringLiteral("Rotation"));
}

void TestDopeSheetRows::kindsOfProperties_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("types");
    QTest::addColumn<bool>("listed");
    const auto row = [](const char *name, int types, bool listed) {
        QTest::addRow("%s with types %d", name, types)
            << QString::fromLatin1(name) << types << listed;
    };
    row("Alias", Other, false);
    // Its source is a translation control, but it is none itself.
    row("Alias", Other | Alias, true);
    row("Alias", Other | Hidden, false);
    row("Linked", Other, true);
    row("Terminal", Other, true);
    row("Hidden", Other, false);
    row("Hidden", Other | Hidden, true);
    row("Dynamic", Other, false);
    row("Dynamic", Other | Hidden, true);
    row("Percentage", Other, true);
    row("Percentage", TransformTypes, false);
    row("Integer", Other, true);
    row("Boolean", Other, true);
    row("Locked", Other, true);
    row("Unanimated", 0xff, false);
    row("Excluded", 0xff, false);
    row("Text", 0xff, false);
}

void TestDopeSheetRows::kindsOfProperties()
{
    QFETCH(QString, name);
    QFETCH(int, types);
    QFETCH(bool, listed);
    builder->addSpecialProperties(m_node);
    const VxProperty *property = m_node->findProperty(name);
    QVERIFY(property);
    QCOMPARE(lists(property, types), listed);
}

void TestDopeSheetRows::hiddenSources_data()
{
    QTest::addColumn<bool>("sourceIsHidden");
    QTest::addColumn<int>("types");
    QTest::addColumn<bool>("aliasListed");
    QTest::addColumn<bool>("linkedListed");
    QTest::newRow("seen source") << false << int(Other) << false << true;
    QTest::newRow("seen source, aliases") << false << (Other | Alias) << true << true;
    QTest::newRow("hidden source") << true << int(Other) << false << false;
    QTest::newRow("hidden source, aliases") << true << (Other | Alias) << false << false;
    QTest::newRow("hidden source, hidden") << true << (Other | Hidden) << false << true;
    QTest::newRow("hidden source, both") << true << (Other | Alias | Hidden) << true << true;
}

void TestDopeSheetRows::hiddenSources()
{
    QFETCH(bool, sourceIsHidden);
    QFETCH(int, types);
    const auto special = builder->addSpecialProperties(m_node);
    m_node->getXPosControl()->setHidden(sourceIsHidden);
    m_node->getYPosControl()->setDynamicallyHidden(sourceIsHidden);
    QTEST(lists(special.alias, types), "aliasListed");
    QTEST(lists(special.linked, types), "linkedListed");
    // What only adds to its own value is its own source.
    QVERIFY(lists(special.terminal, types));
}

void TestDopeSheetRows::controlsAmongOthers_data()
{
    QTest::addColumn<int>("types");
    QTest::addColumn<QString>("listed");
    QTest::newRow("no transform") << int(Other) << QString();
    QTest::newRow("translation") << (Other | Translation) << QStringLiteral("T");
    QTest::newRow("rotation") << (Other | Rotation) << QStringLiteral("R");
    QTest::newRow("scale") << (Other | Scale) << QStringLiteral("S");
    QTest::newRow("all") << (Other | TransformTypes) << QStringLiteral("TRS");
}

void TestDopeSheetRows::controlsAmongOthers()
{
    QFETCH(int, types);
    QFETCH(QString, listed);
    auto *own = new VxFloatProperty(QStringLiteral("Own axis"));
    own->setAxis(VxFloatProperty::XAxis);
    m_node->addProperty(own, QString());
    QVERIFY(lists(own, types));
    const bool t = listed.contains(QLatin1Char('T'));
    const bool r = listed.contains(QLatin1Char('R'));
    const bool s = listed.contains(QLatin1Char('S'));
    for (const VxProperty *property :
         {m_node->getXPosControl(), m_node->getYPosControl(), m_node->getZPosControl()})
        QCOMPARE(lists(property, types), t);
    for (const VxProperty *property :
         {m_node->getXRotControl(), m_node->getYRotControl(), m_node->getZRotControl()})
        QCOMPARE(lists(property, types), r);
    for (const VxProperty *property : {m_node->getScaleControl(), m_node->getXScaleControl(),
                                       m_node->getYScaleControl(), m_node->getZScaleControl()})
        QCOMPARE(lists(property, types), s);
}

void TestDopeSheetRows::nothingAccepted()
{
    QCOMPARE(rows(Other), QStringList());
    QCOMPARE(rows(Alias | Hidden), QStringList());
    m_node->getXPosControl()->setExcluded(true);
    m_node->getYPosControl()->setHidden(true);
    m_node->getZPosControl()->setAnimatable(false);
    QCOMPARE(rows(Translation), QStringList());
    QCOMPARE(rows(Translation | Hidden).size(), 3);
}

void TestDopeSheetRows::groupsWithoutRowsDisappear()
{
    auto *hidden = new VxFloatProperty(QStringLiteral("deep"));
    m_node->addProperty(hidden, QStringLiteral("/A/B/C"));
    hidden->setHidden(true);
    auto *seen = new VxFloatProperty(QStringLiteral("seen"));
    m_node->addProperty(seen, QStringLiteral("/A/D"));
    QCOMPARE(rows(Other), QStringList({QStringLiteral("Properties"), QStringLiteral("  A"),
                                       QStringLiteral("    D"), QStringLiteral("      seen")}));
    seen->setExcluded(true);
    QCOMPARE(rows(Other), QStringList());
    QCOMPARE(rows(Other | Hidden).size(), 5);
}

void TestDopeSheetRows::oddPaths()
{
    auto *top = new VxFloatProperty(QStringLiteral("top"));
    m_node->addProperty(top, QString());
    auto *gaps = new VxFloatProperty(QStringLiteral("gaps"));
    m_node->addProperty(gaps, QStringLiteral("/A//B/"));
    auto *plain = new VxFloatProperty(QStringLiteral("plain"));
    m_node->addProperty(plain, QStringLiteral("/A/B"));
    const QStringList labels = rows(Other);
    QCOMPARE(labels.first(), QStringLiteral("Properties"));
    QCOMPARE(labels.count(QStringLiteral("  A")), 1);
    QCOMPARE(labels.count(QStringLiteral("    B")), 1);
    QVERIFY(labels.contains(QStringLiteral("  top")));
    QVERIFY(labels.contains(QStringLiteral("      gaps")));
    QVERIFY(labels.contains(QStringLiteral("      plain")));
    QCOMPARE(labels.size(), 6);
}

void TestDopeSheetRows::morphsAreListed()
{
    const auto morphs = builder->addMorphs(m_node, 2);
    for (VxMorph *morph : morphs) {
        QVERIFY(lists(morph->getValueControl(), Other));
        QVERIFY(!lists(morph->getValueControl(), TransformTypes));
    }
}

VX_TEST_MAIN(TestDopeSheetRows)
#include "tst_dopesheetrows.moc"
