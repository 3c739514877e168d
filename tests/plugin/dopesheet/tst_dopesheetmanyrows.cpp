#include "testing/vxgrowth.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"
#include "transformrowstestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtTest/QAbstractItemModelTester>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>

// Rows by the thousand in a shown pane: deep chains, and nodes whose property rows are made when
// they are needed.
class TestDopeSheetManyRows : public QObject, private TransformRowsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpRows(); }
    void cleanup() { tearDown(); }

    void chainsInLinearTime_data();
    void chainsInLinearTime();
    void siblingsInLinearTime_data();
    void siblingsInLinearTime();
    void chainAsDeepAsAllowed();

    void rowsAreMadeWhenTheyAreOpened();
    void firstKeyShowsInClosedRows();
    void aliasShowsInClosedRows();
    void objectOnANodeWithoutRows();
    void childBelowANodeWithoutRows();
    void messagesReachRowsNotMade();
    void removedSubtreeIsOneRemoval();
    void removalKeepsTheScene();
    void manyChangesKeepRows();
    void manyChangesEndWhenRowsAreRead();
    void manyChangesWithoutTheirModel();
    void randomManyChanges();
    void filterOverManyRows();

private:
    QVector<VxNode *> addLevel(int count);
    VxNode *addChain(int count);
    const VxDopeSheetModel *model() const { return view->getSourceModel(); }
    VxDopeSheetItem *itemOf(VxNode *node) const { return model()->findItem(node); }
};

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
    QTest::newRow("filter that nothing matches") << "filter for nothing";
    QTest::newRow("select all rows again") << "select again";
}

// Eight times the rows take less than twenty-eight times as long, as the larger chain misses the
// processor's caches more often, and not sixty-four times.
void TestDopeSheetManyRows::chainsInLinearTime()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("Most of the time is the sanitizer's.");
#endif
    QFETCH(QString, work);
    const auto milliseconds = [this, &work](int count) {
        VxNode *chain = addChain(count);
        pane->expandAll();
        if (work != QLatin1String("remove"))
            view->selectAll();
        settle();
        if (work == QLatin1String("select again"))
            view->selectionModel()->select(view->model()->index(0, 0),
                                           QItemSelectionModel::Deselect |
                                               QItemSelectionModel::Rows);
        const double start = vxProcessorMilliseconds();
        if (work == QLatin1String("filter"))
            view->applyFilterText(QStringLiteral("bone %1").arg(count - 1));
        else if (work == QLatin1String("filter for nothing"))
            view->applyFilterText(QStringLiteral("elbow"));
        else if (work == QLatin1String("select again"))
            view->selectAll();
        else
            vxScene->removeNode(chain);
        const double took = vxProcessorMilliseconds() - start;
        view->applyFilterText(QString());
        vxScene->clear();
        settle();
        return took;
    };
    const double ratio = vxGrowth(100, 8, 40, milliseconds);
    QVERIFY2(ratio < 40, qPrintable(QString::number(ratio)));
}

QVector<VxNode *> TestDopeSheetManyRows::addLevel(int count)
{
    QVector<VxNode *> nodes;
    for (int i = 0; i < count; ++i) {
        nodes.append(new VxNode(QStringLiteral("node %1").arg(i)));
        vxScene->addNode(nodes.last());
    }
    return nodes;
}

void TestDopeSheetManyRows::siblingsInLinearTime_data()
{
    QTest::addColumn<QString>("work");
    QTest::addColumn<int>("count");
    QTest::newRow("add closed rows") << "add" << 4000;
    QTest::newRow("remove closed rows") << "remove" << 2000;
    QTest::newRow("add to open rows") << "add open" << 120;
    QTest::newRow("remove open rows") << "remove open" << 120;
    QTest::newRow("remove selected rows") << "remove selected" << 100;
}

// One by one within one iteration of the event loop, first to last: as a script does it.
void TestDopeSheetManyRows::siblingsInLinearTime()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("Most of the time is the sanitizer's.");
#endif
    QFETCH(QString, work);
    QFETCH(int, count);
    const auto milliseconds = [this, &work](int nodes) {
        QVector<VxNode *> level;
        const bool adds = work.startsWith(QLatin1String("add"));
        if (!adds || work.endsWith(QLatin1String("open")))
            level = addLevel(nodes);
        settle();
        if (work.contains(QLatin1Char(' ')))
            pane->expandAll();
        if (work.endsWith(QLatin1String("selected")))
            view->selectAll();
        settle();
        const double start = vxProcessorMilliseconds();
        if (adds)
            addLevel(nodes);
        for (int i = 0; !adds && i < nodes; ++i)
            vxScene->removeNode(level.at(i));
        settle();
        const double took = vxProcessorMilliseconds() - start;
        vxScene->clear();
        settle();
        return took;
    };
    const double ratio = vxGrowth(count, 4, 10, milliseconds);
    QVERIFY2(ratio < 10, qPrintable(QString::number(ratio)));
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
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
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

// Which rows are open and selected stays over hundreds of changes in one turn, as does the scene's
// selection.
void TestDopeSheetManyRows::manyChangesKeepRows()
{
    const QVector<VxNode *> nodes = addLevel(500);
    settle();
    view->expand(view->findNodeIndex(nodes.at(400)));
    view->expand(view->findNodeIndex(nodes.at(402)));
    view->setContextIndex(view->findNodeIndex(nodes.at(402)));
    view->expandFromContextItem();
    nodes.at(402)->select(true);
    settle();
    QSignalSpy properties(view, &VxDopeSheetView::propertyHitListChanged);
    QSignalSpy many(model(), &VxDopeSheetModel::manyChangesFinished);
    for (int i = 0; i < 300; ++i)
        vxScene->removeNode(nodes.at(i));
    const QVector<VxNode *> added = addLevel(100);
    QCOMPARE(model()->rowCount(), 300);
    settle();
    QCOMPARE(many.count(), 1);
    QCOMPARE(properties.count(), 0);
    QCOMPARE(view->model()->rowCount(), 300);
    for (VxNode *node : vxScene->getNodes()) {
        const QModelIndex row = view->findNodeIndex(node);
        QCOMPARE(view->isExpanded(row), node == nodes.at(400) || node == nodes.at(402));
        QCOMPARE(view->isRowSelected(row), node == nodes.at(402));
    }
    QVERIFY(view->isExpanded(view->findIndex(itemOf(nodes.at(402))->child(0)->child(0))));
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{nodes.at(402)});
    // Removing a row deselects it, and is reported.
    for (int i = 380; i < 500; ++i)
        vxScene->removeNode(nodes.at(i));
    settle();
    QCOMPARE(many.count(), 2);
    QVERIFY(!view->hasItemSelection());
    QCOMPARE(model()->rowCount(), 180);
    QVERIFY(itemOf(added.last()));
}

void TestDopeSheetManyRows::manyChangesEndWhenRowsAreRead()
{
    const QVector<VxNode *> nodes = addLevel(500);
    settle();
    nodes.last()->select(true);
    settle();
    view->expand(view->findNodeIndex(nodes.last()));
    const auto change = [this] {
        const QVector<VxNode *> added = addLevel(50);
        QVERIFY(!view->isExpanded(view->findNodeIndex(added.first())));
    };
    change();
    QVERIFY(view->isRowSelected(view->findNodeIndex(nodes.last())));
    QVERIFY(view->isExpanded(view->findNodeIndex(nodes.last())));
    change();
    QVERIFY(view->hasItemSelection());
    change();
    view->applyFilterText(QStringLiteral("node 499"));
    QCOMPARE(view->model()->rowCount(), 1);
    QVERIFY(view->isExpanded(view->model()->index(0, 0)));
    change();
    view->applyFilterText(QString());
    QVERIFY(view->isExpanded(view->findNodeIndex(nodes.last())));
    change();
    pane->collapseAll();
    settle();
    QVERIFY(!view->isExpanded(view->findNodeIndex(nodes.last())));
    change();
    view->viewport()->repaint();
    QVERIFY(view->isRowSelected(view->findNodeIndex(nodes.last())));
}

// The model is destroyed in the midst of them and replaced.
void TestDopeSheetManyRows::manyChangesWithoutTheirModel()
{
    addLevel(500);
    settle();
    addLevel(50);
    vxScene->clear();
    QCOMPARE(model()->rowCount(), 0);
    VxNode *node = addLevel(3).first();
    settle();
    addLevel(500);
    pane->refreshDopesheet();
    view->selectionModel()->select(view->findNodeIndex(node),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    QVERIFY(node->isSelected());
}

void TestDopeSheetManyRows::randomManyChanges()
{
    std::mt19937 random(11);
    const auto below = [&random](int end) { return int(random() % unsigned(end)); };
    const QAbstractItemModelTester tester(view->getFilterModel(),
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
    addLevel(300);
    settle();
    QSignalSpy many(model(), &VxDopeSheetModel::manyChangesFinished);
    for (int turn = 0; turn < vxSessionLength(8); ++turn) {
        for (int i = 0; i < 10; ++i) {
            const QVector<VxNode *> nodes = vxScene->getNodes();
            VxNode *node = nodes.at(below(nodes.size()));
            node->select(!node->isSelected());
            view->setExpanded(view->findNodeIndex(nodes.at(below(nodes.size()))), below(3) > 0);
        }
        settle();
        QSet<VxNode *> open;
        for (VxNode *node : vxScene->getNodes()) {
            if (view->isExpanded(view->findNodeIndex(node)))
                open.insert(node);
        }
        const int changes = 10 + below(40);
        for (int i = 0; i < changes; ++i) {
            const QVector<VxNode *> nodes = vxScene->getNodes();
            VxNode *node = nodes.at(below(nodes.size()));
            const int kind = below(10);
            if (kind < 5) {
                vxScene->addNode(new VxNode(QStringLiteral("new")), kind < 2 ? node : nullptr);
            } else if (kind < 8) {
                QVector<VxNode *> leaving{node};
                node->getNodeChildren(leaving, true);
                for (VxNode *left : leaving)
                    open.remove(left);
                vxScene->removeNode(node);
            } else {
                node->setNodeParent(kind == 8 ? nodes.first() : nullptr, 0);
            }
        }
        settle();
        for (VxNode *node : vxScene->getNodes()) {
            const QModelIndex row = view->findNodeIndex(node);
            QVERIFY(row.isValid());
            QCOMPARE(view->isRowSelected(row), node->isSelected());
            // The pane opens the rows above the primary selection.
            if (!node->isAncestorOf(vxScene->getPrimarySelection()))
                QCOMPARE(view->isExpanded(row), open.contains(node));
        }
    }
    QVERIFY2(many.count() > 0, qPrintable(QString::number(many.count())));
}

// So many rows are filtered in another way than a few; what is shown and kept is the same.
void TestDopeSheetManyRows::filterOverManyRows()
{
    vxScene->beginLoad();
    const QVector<VxNode *> nodes = addLevel(4200);
    vxScene->endLoad();
    VxNode *child = new VxNode(QStringLiteral("leg 4199"));
    vxScene->addNode(child, nodes.at(7));
    settle();
    const QAbstractItemModelTester tester(view->getFilterModel(),
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
    view->setColumnWidth(0, 333);
    view->expand(view->findNodeIndex(nodes.at(3)));
    nodes.at(5)->select(true);
    settle();
    view->applyFilterText(QStringLiteral("4199"));
    QCOMPARE(view->model()->rowCount(), 2);
    QVERIFY(view->isExpanded(view->findNodeIndex(nodes.at(7))));
    QVERIFY(view->findNodeIndex(child).isValid());
    QVERIFY(view->findNodeIndex(nodes.last()).isValid());
    QVERIFY(!view->findNodeIndex(nodes.at(3)).isValid());
    QVERIFY(nodes.at(5)->isSelected());
    view->applyFilterText(QStringLiteral("no such name"));
    QCOMPARE(view->model()->rowCount(), 0);
    view->applyFilterText(QString());
    QCOMPARE(view->model()->rowCount(), 4200);
    QVERIFY(view->isExpanded(view->findNodeIndex(nodes.at(3))));
    QVERIFY(!view->isExpanded(view->findNodeIndex(nodes.at(7))));
    QVERIFY(view->isRowSelected(view->findNodeIndex(nodes.at(5))));
    QCOMPARE(view->columnWidth(0), 333);
}

VX_TEST_MAIN(TestDopeSheetManyRows)
#include "tst_dopesheetmanyrows.moc"
