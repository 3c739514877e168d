#include "testing/vxtestmain.h"
#include "timepanetestbase.h"

#include <QtTest/QAbstractItemModelTester>

#include <ctime>
#include <malloc.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>

#include "vxtimeline/dopesheet/vxdopesheetfiltermodel.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

namespace {

double processorMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) * 1e-6;
}

double allocatedBytes()
{
    const auto info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

} // namespace

// Rows by the thousand in a shown pane: deep chains, and nodes whose property rows are made when
// they are needed.
class TestDopeSheetManyRows : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void chainsInLinearTime_data();
    void chainsInLinearTime();
    void chainAsDeepAsAllowed();
    void nodesTakeLittleMemory();

    void rowsAreMadeWhenTheyAreOpened();
    void firstKeyShowsInClosedRows();
    void aliasShowsInClosedRows();
    void objectOnANodeWithoutRows();
    void childBelowANodeWithoutRows();
    void messagesReachRowsNotMade();
    void removedSubtreeIsOneRemoval();
    void removalKeepsTheScene();

private:
    VxNode *addChain(int count);
    const VxDopeSheetModel *model() const { return view->getSourceModel(); }
    VxDopeSheetItem *itemOf(VxNode *node) const { return model()->findItem(node); }
    void settle() const
    {
        QCoreApplication::processEvents();
        pane->grab();
    }

    VxDopeSheetView *view = nullptr;
};

void TestDopeSheetManyRows::init()
{
    setUp();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4});
    for (const auto &action : actions)
        action->setChecked(true);
    showPane(1200, 500);
    view = pane->getDopeSheetView();
}

VxNode *TestDopeSheetManyRows::addChain(int count)
{
    auto *first = new VxNode(QStringLiteral("bone 0"));
    VxNode *last = first;
    for (int i = 1; i < count; ++i) {
        auto *node = new VxNode(QStringLiteral("bone %1").arg(i));
        last->addNodeChild(node);
        last = node;
    }
    vxScene->addNode(first);
    return first;
}

void TestDopeSheetManyRows::chainsInLinearTime_data()
{
    QTest::addColumn<QString>("work");
    QTest::newRow("remove an open chain") << "remove";
    QTest::newRow("remove a selected chain") << "remove selected";
    QTest::newRow("filter with all nodes selected") << "filter";
}

// Four times the rows take about four times as long, and not sixteen times; the larger chain also
// misses the processor's caches more often.
void TestDopeSheetManyRows::chainsInLinearTime()
{
    QFETCH(QString, work);
    const auto milliseconds = [this, &work](int count) {
        VxNode *chain = addChain(count);
        pane->expandAll();
        if (work != QLatin1String("remove"))
            view->selectAll();
        settle();
        const double start = processorMilliseconds();
        if (work == QLatin1String("filter"))
            view->applyFilterText(QStringLiteral("bone %1").arg(count - 1));
        else
            vxScene->removeNode(chain);
        const double took = processorMilliseconds() - start;
        view->applyFilterText(QString());
        vxScene->clear();
        settle();
        return took;
    };
    double ratio = 100;
    for (int i = 0; i < 4 && ratio > 12; ++i) {
        const double few = milliseconds(150);
        ratio = std::min(ratio, milliseconds(600) / few);
    }
    QVERIFY2(ratio < 12, qPrintable(QString::number(ratio)));
}

void TestDopeSheetManyRows::chainAsDeepAsAllowed()
{
    VxNode *chain = addChain(4096);
    QVector<VxNode *> nodes{chain};
    chain->getNodeChildren(nodes, true);
    nodes.last()->getXPosControl()->setKey(1600, 1.0f, VxKeyInterp::Linear);
    settle();
    QCOMPARE(itemOf(chain)->keyCount(), 1);
    QVERIFY(itemOf(chain)->hasKeys());
    const QModelIndex top = view->findNodeIndex(chain);
    view->setKeySelection(true, top, top);
    QVERIFY(view->hasSelectedKeys());
    QVERIFY(itemOf(chain)->isKeySelected(0));
    view->copyKeys();
    QCOMPARE(view->numCopiedKeys(), 1);
    QVERIFY(itemOf(nodes.last())->path().endsWith(QLatin1String("/bone 4094/bone 4095")));
    view->applyFilterText(QStringLiteral("bone 4095"));
    QVERIFY(view->isExpanded(view->findNodeIndex(nodes.at(4094))));
    view->applyFilterText(QString());
    view->setContextIndex(top);
    view->expandKeyedFromContextItem();
    QVERIFY(view->isExpanded(view->findNodeIndex(nodes.last())));
    view->collapseFromContextItem();
    vxScene->selectAllNodes(true);
    settle();
    pane->refreshDopesheet();
    QCOMPARE(itemOf(chain)->keyCount(), 1);
    vxScene->removeNode(chain);
    QCOMPARE(model()->rowCount(), 0);
}

// Nodes without keys take no more than a row, and a node's controls are made when they are needed.
void TestDopeSheetManyRows::nodesTakeLittleMemory()
{
    constexpr int Count = 20000;
    const double before = allocatedBytes();
    vxScene->beginLoad();
    for (int i = 0; i < Count; ++i)
        vxScene->addNode(new VxNode(QStringLiteral("node %1").arg(i)));
    vxScene->endLoad();
    settle();
    vxScene->selectAllNodes(true);
    settle();
    view->selectAll();
    settle();
    QCOMPARE(model()->rowCount(), Count);
    const double bytes = (allocatedBytes() - before) / Count;
    QVERIFY2(bytes < 6000, qPrintable(QString::number(bytes)));
}

void TestDopeSheetManyRows::rowsAreMadeWhenTheyAreOpened()
{
    auto *node = new VxNode(QStringLiteral("hip"));
    vxScene->addNode(node);
    settle();
    const QModelIndex row = view->findNodeIndex(node);
    QVERIFY(itemOf(node)->hasRowsToMake());
    QVERIFY(view->model()->hasChildren(row));
    QVERIFY(node->getMadeProperties().isEmpty());
    const QAbstractItemModelTester tester(view->getFilterModel(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    view->expand(row);
    settle();
    QVERIFY(!itemOf(node)->hasRowsToMake());
    QCOMPARE(view->model()->rowCount(row), 1);
    QCOMPARE(itemOf(node)->child(0)->childCount(), 3);
}

void TestDopeSheetManyRows::firstKeyShowsInClosedRows()
{
    auto *node = new VxNode(QStringLiteral("hip"));
    auto *child = new VxNode(QStringLiteral("leg"));
    node->addNodeChild(child);
    vxScene->addNode(node);
    QCOMPARE(itemOf(child)->keyCount(), 0);
    QCOMPARE(model()->getRootItem()->keyCount(), 0);
    QSignalSpy changes(model(), &QAbstractItemModel::dataChanged);
    child->getXRotControl()->setKey(1600, 1.0f, VxKeyInterp::Linear);
    QVERIFY(changes.count() > 0);
    QCOMPARE(itemOf(child)->keyCount(), 1);
    QCOMPARE(itemOf(node)->keyCount(), 1);
    QCOMPARE(model()->getRootItem()->keyTime(0), 1600);
    child->getXRotControl()->deleteAllKeys();
    QCOMPARE(model()->getRootItem()->keyCount(), 0);
}

void TestDopeSheetManyRows::aliasShowsInClosedRows()
{
    pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(7));
    addChoices(TimePaneChoice::PropertyTypeFamily, {16});
    actions.back()->setChecked(true);
    pane->refreshDopesheet();
    auto *node = new VxNode(QStringLiteral("hip"));
    auto *other = new VxNode(QStringLiteral("leg"));
    vxScene->addNode(node);
    vxScene->addNode(other);
    QCOMPARE(itemOf(other)->keyCount(), 0);
    other->getYPosControl()->setAliasedProperty(node->getXPosControl());
    node->getXPosControl()->setKey(320, 1.0f, VxKeyInterp::Linear);
    QCOMPARE(itemOf(other)->keyCount(), 1);
    QCOMPARE(itemOf(node)->keyCount(), 1);
}

void TestDopeSheetManyRows::objectOnANodeWithoutRows()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {8});
    actions.back()->setChecked(true);
    pane->refreshDopesheet();
    auto *node = new VxNode(QStringLiteral("hip"));
    vxScene->addNode(node);
    QVERIFY(itemOf(node)->hasRowsToMake());
    auto *object = new VxObject(QStringLiteral("shape"));
    auto *value = new VxFloatProperty(QStringLiteral("size"), 1.0f);
    object->addProperty(value, QStringLiteral("/Shape"));
    node->setObject(object);
    value->setKey(160, 2.0f, VxKeyInterp::Linear);
    settle();
    QCOMPARE(itemOf(node)->keyCount(), 1);
    QVERIFY(model()->findPropertyItem(value));
}

void TestDopeSheetManyRows::childBelowANodeWithoutRows()
{
    auto *node = new VxNode(QStringLiteral("hip"));
    vxScene->addNode(node);
    QVERIFY(itemOf(node)->hasRowsToMake());
    auto *child = new VxNode(QStringLiteral("leg"));
    vxScene->addNode(child, node);
    QCOMPARE(itemOf(node)->childCount(), 2);
    QCOMPARE(itemOf(child)->row(), 1);
    QVERIFY(!itemOf(node)->child(0)->node());
}

void TestDopeSheetManyRows::messagesReachRowsNotMade()
{
    auto *node = new VxNode(QStringLiteral("hip"));
    vxScene->addNode(node);
    VxFloatProperty *property = node->getZRotControl();
    property->setKey(160, 2.0f, VxKeyInterp::Linear);
    VxKeyMessage message;
    message.selectedKeys.insert(property, {0});
    view->handleKeyMessage(message);
    QVERIFY(model()->findPropertyItem(property)->isKeySelected(0));
}

void TestDopeSheetManyRows::removedSubtreeIsOneRemoval()
{
    VxNode *chain = addChain(20);
    pane->expandAll();
    QSignalSpy removals(model(), &QAbstractItemModel::rowsRemoved);
    vxScene->removeNode(chain);
    QCOMPARE(removals.count(), 1);
    QCOMPARE(model()->rowCount(), 0);
}

// Rows that are removed are deselected, the nodes of others stay selected.
void TestDopeSheetManyRows::removalKeepsTheScene()
{
    VxNode *chain = addChain(20);
    auto *other = new VxNode(QStringLiteral("other"));
    vxScene->addNode(other);
    pane->expandAll();
    settle();
    view->selectAll();
    QCOMPARE(vxScene->getSelectedNodes().size(), 21);
    vxScene->removeNode(chain->getNodeChild(0));
    QCOMPARE(vxScene->getSelectedNodes().size(), 2);
    QVERIFY(view->isRowSelected(view->findNodeIndex(other)));
    QVERIFY(view->isRowSelected(view->findNodeIndex(chain)));
    QVERIFY(view->getSelectedProperties().contains(other->getXPosControl()));
    // A property row that is removed leaves its node selected.
    auto *extra = new VxFloatProperty(QStringLiteral("extra"), 0.0f);
    other->addProperty(extra, QStringLiteral("/Extra"));
    settle();
    vxScene->selectAllNodes(false);
    other->select(true);
    other->removeProperty(extra);
    settle();
    QVERIFY(other->isSelected());
}

VX_TEST_MAIN(TestDopeSheetManyRows)
#include "tst_dopesheetmanyrows.moc"
