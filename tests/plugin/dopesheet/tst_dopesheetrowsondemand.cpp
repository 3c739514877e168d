#include "testing/vxtestmain.h"
#include "transformrowstestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtTest/QAbstractItemModelTester>
#include <malloc.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

// Property rows of nodes without keys exist only after they were opened; the text filter searches
// their names nevertheless.
class TestDopeSheetRowsOnDemand : public QObject, private TransformRowsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpRows(); }
    void cleanup() { tearDown(); }

    void nodesTakeLittleMemory_data();
    void nodesTakeLittleMemory();
    void parentsKeepTheirRowsToThemselves();
    void keysBelowRowsNotMade();
    void filterMatchesRowsNotMade_data();
    void filterMatchesRowsNotMade();
    void filterOpensNoMoreThanAScreenNeeds();
    void rowsReturnWithTheFilterCleared();
    void patternSetAtTheModelItself();
    void hiddenPropertiesLeaveNoEmptyRow();

private:
    VxNode *node(const QString &name, VxNode *parent = nullptr)
    {
        auto *made = new VxNode(name);
        vxScene->addNode(made, parent);
        return made;
    }
    // count nodes, each with up to three below it; or all at the top.
    void addNodes(int count, bool asTree)
    {
        QVector<VxNode *> nodes;
        vxScene->beginLoad();
        for (int i = 0; i < count; ++i) {
            VxNode *above = asTree && i > 0 ? nodes.at((i - 1) / 3) : nullptr;
            nodes.append(node(QStringLiteral("node %1").arg(i), above));
        }
        vxScene->endLoad();
    }
    const VxDopeSheetModel *model() const { return view->getSourceModel(); }
    VxDopeSheetItem *itemOf(VxNode *node) const { return model()->findItem(node); }
    bool hasMadeRows(VxNode *node) const
    {
        const VxDopeSheetItem *item = itemOf(node);
        return !item->hasRowsToMake() && !item->child(0)->hasRowsToMake();
    }
    // The shown rows with their levels; open rows end in "-", closed rows with others below in "+".
    QStringList shown(const QModelIndex &parent = QModelIndex(), int level = 0) const;
};

QStringList TestDopeSheetRowsOnDemand::shown(const QModelIndex &parent, int level) const
{
    QStringList rows;
    for (int i = 0; i < view->model()->rowCount(parent); ++i) {
        const QModelIndex row = view->model()->index(i, 0, parent);
        QString text = QString(level, QLatin1Char(' ')) + row.data().toString();
        const bool isOpen = view->isExpanded(row) && view->model()->hasChildren(row);
        if (isOpen)
            text += QLatin1Char('-');
        else if (view->model()->hasChildren(row))
            text += QLatin1Char('+');
        rows.append(text);
        if (isOpen)
            rows += shown(row, level + 1);
    }
    return rows;
}

void TestDopeSheetRowsOnDemand::nodesTakeLittleMemory_data()
{
    QTest::addColumn<bool>("asTree");
    QTest::newRow("one level") << false;
    QTest::newRow("tree") << true;
}

// Nodes without keys take no more than their closed rows, whatever is selected, painted and
// searched.
void TestDopeSheetRowsOnDemand::nodesTakeLittleMemory()
{
    QFETCH(bool, asTree);
    constexpr int Count = 20000;
    const auto allocated = [] {
        const auto info = mallinfo2();
        return double(info.uordblks) + double(info.hblkhd);
    };
    const double before = allocated();
    addNodes(Count, asTree);
    settle();
    const auto check = [&](const char *when) {
        settle();
        const double bytes = (allocated() - before) / Count;
        QVERIFY2(bytes < 6000,
                 qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(when)).arg(bytes)));
    };
    check("painted");
    vxScene->selectAllNodes(true);
    check("nodes selected");
    view->selectAll();
    check("rows selected");
    view->applyFilterText(QStringLiteral("node 19999"));
    QVERIFY(view->model()->rowCount() == 1);
    check("one match");
    view->applyFilterText(QStringLiteral("no such name"));
    QCOMPARE(view->model()->rowCount(), 0);
    check("no match");
    view->applyFilterText(QString());
    check("all shown again");
    for (VxNode *added : vxScene->getNodes())
        QVERIFY(added->getMadeProperties().isEmpty());
}

void TestDopeSheetRowsOnDemand::parentsKeepTheirRowsToThemselves()
{
    VxNode *hip = node(QStringLiteral("hip"));
    node(QStringLiteral("leg"), hip);
    view->expand(view->findNodeIndex(hip));
    settle();
    QCOMPARE(shown(), QStringList({QStringLiteral("hip-"), QStringLiteral(" Properties+"),
                                   QStringLiteral(" leg+")}));
    VxDopeSheetItem *properties = itemOf(hip)->child(0);
    QVERIFY(hip->getMadeProperties().isEmpty());
    view->expand(view->findIndex(properties));
    settle();
    QCOMPARE(properties->childCount(), 3);
    QCOMPARE(properties->child(0)->childCount(), 3);
}

// Keys reach the rows above, whatever is made.
void TestDopeSheetRowsOnDemand::keysBelowRowsNotMade()
{
    VxNode *hip = node(QStringLiteral("hip"));
    VxNode *leg = node(QStringLiteral("leg"), hip);
    QCOMPARE(model()->getRootItem()->keyCount(), 0);
    hip->getYRotControl()->setKey(320, 1.0f, VxKeyInterp::Linear);
    QCOMPARE(itemOf(hip)->keyCount(), 1);
    QCOMPARE(itemOf(hip)->child(0)->keyCount(), 1);
    leg->getXPosControl()->setKey(640, 1.0f, VxKeyInterp::Linear);
    QCOMPARE(itemOf(hip)->keyCount(), 2);
    QVERIFY(model()->findPropertyItem(leg->getXPosControl()));
}

void TestDopeSheetRowsOnDemand::filterMatchesRowsNotMade_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"hip", "leg", "x rot", "properties", "transforms", "scale", "e",
                             "foot", "rx::^Y ", "wc::leg", "no such name"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

// What is shown and open does not depend on whether the rows are made.
void TestDopeSheetRowsOnDemand::filterMatchesRowsNotMade()
{
    QFETCH(QString, text);
    VxNode *hip = node(QStringLiteral("hip"));
    VxNode *leg = node(QStringLiteral("leg"), hip);
    VxNode *foot = node(QStringLiteral("foot"), leg);
    node(QStringLiteral("camera"))->getXRotControl()->setKey(0, 1.0f, VxKeyInterp::Linear);
    settle();
    const QAbstractItemModelTester tester(view->getFilterModel(),
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
    view->applyFilterText(text);
    settle();
    const QStringList onDemand = shown();
    view->applyFilterText(QString());
    pane->expandAll();
    pane->collapseAll();
    for (VxNode *made : {hip, leg, foot})
        QVERIFY(hasMadeRows(made));
    view->applyFilterText(text);
    settle();
    QCOMPARE(onDemand, shown());
}

// Thousands of rows that match everywhere are shown, but not all of them are opened and made.
void TestDopeSheetRowsOnDemand::filterOpensNoMoreThanAScreenNeeds()
{
    addNodes(5000, false);
    settle();
    view->applyFilterText(QStringLiteral("x translate"));
    QCOMPARE(view->model()->rowCount(), 5000);
    QVERIFY(view->isExpanded(view->model()->index(0, 0)));
    const QVector<VxNode *> nodes = vxScene->getNodes();
    const auto made = std::count_if(nodes.cbegin(), nodes.cend(),
                                    [this](VxNode *node) { return hasMadeRows(node); });
    QVERIFY2(made > 100 && made <= 1000, qPrintable(QString::number(made)));
    // The others are opened by the user.
    const QModelIndex last = view->findNodeIndex(nodes.last());
    QVERIFY(!view->isExpanded(last));
    view->setContextIndex(last);
    view->expandFromContextItem();
    settle();
    QVERIFY(hasMadeRows(nodes.last()));
    const VxDopeSheetItem *row = model()->findPropertyItem(nodes.last()->getXPosControl());
    QVERIFY(view->findIndex(row).isValid());
    QVERIFY(!view->findIndex(model()->findPropertyItem(nodes.last()->getYPosControl())).isValid());
}

void TestDopeSheetRowsOnDemand::rowsReturnWithTheFilterCleared()
{
    VxNode *hip = node(QStringLiteral("hip"));
    settle();
    const QAbstractItemModelTester tester(view->getFilterModel(),
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
    view->applyFilterText(QStringLiteral("hip"));
    settle();
    QCOMPARE(shown(), QStringList{QStringLiteral("hip")});
    QCOMPARE(view->model()->rowCount(view->findNodeIndex(hip)), 0);
    view->applyFilterText(QString());
    QCOMPARE(shown(), QStringList{QStringLiteral("hip+")});
    QCOMPARE(view->model()->rowCount(view->findNodeIndex(hip)), 1);
    // A property that was renamed before its row is made matches by its present name.
    VxNode *arm = node(QStringLiteral("arm"));
    arm->getXRotControl()->setLabel(QStringLiteral("Swing"));
    view->applyFilterText(QStringLiteral("swing"));
    QCOMPARE(shown().value(0), QStringLiteral("arm-"));
    QVERIFY(shown().last().endsWith(QLatin1String("Swing")));
}

void TestDopeSheetRowsOnDemand::patternSetAtTheModelItself()
{
    VxNode *hip = node(QStringLiteral("hip"));
    settle();
    QSortFilterProxyModel *filter = view->getFilterModel();
    view->applyFilterText(QStringLiteral("hip"));
    settle();
    filter->setFilterFixedString(QStringLiteral("rotate"));
    QCOMPARE(filter->rowCount(), 1);
    QVERIFY(filter->hasChildren(view->findNodeIndex(hip)));
    filter->setFilterFixedString(QString());
    QCOMPARE(filter->rowCount(view->findNodeIndex(hip)), 1);
}

// Controls that are hidden before their rows are made leave no "Properties" row behind.
void TestDopeSheetRowsOnDemand::hiddenPropertiesLeaveNoEmptyRow()
{
    VxNode *hip = node(QStringLiteral("hip"));
    VxNode *leg = node(QStringLiteral("leg"), hip);
    settle();
    QVERIFY(itemOf(hip)->child(0)->hasRowsToMake());
    for (int i = 0; i < hip->getNumProperties(); ++i)
        hip->getProperty(i)->setHidden(true);
    pane->expandAll();
    settle();
    QCOMPARE(itemOf(hip)->childCount(), 1);
    QCOMPARE(itemOf(hip)->child(0), itemOf(leg));
}

VX_TEST_MAIN(TestDopeSheetRowsOnDemand)
#include "tst_dopesheetrowsondemand.moc"
