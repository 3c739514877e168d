#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtWidgets/QScrollBar>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

// What stays in rows, keys and key graph while the rows are made anew, and over clicks on keys.
class TestTimePaneRefresh : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void everythingStays_data();
    void everythingStays();
    void groupsThatNestDeeper();
    void filterStays();
    void keysOfRemovedRows();
    void clickKeepsTheGraph_data();
    void clickKeepsTheGraph();
    void clickOnAnotherNode();
    void randomRefreshes();

private:
    void tick(int type, bool on)
    {
        for (const auto &action : actions) {
            if (action->value() == type)
                action->setChecked(on);
        }
        QVERIFY(QMetaObject::invokeMethod(pane.get(), "handlePropertyTypesEdited"));
        QCoreApplication::processEvents();
    }
    QModelIndex rowOf(const VxProperty *property) const
    {
        return view->findIndex(view->getSourceModel()->findPropertyItem(property));
    }
    QModelIndex rowOf(VxNode *node) const { return view->findNodeIndex(node); }
    void selectRow(const QModelIndex &row) const
    {
        view->selectionModel()->select(row, QItemSelectionModel::ClearAndSelect |
                                                QItemSelectionModel::Rows);
        QCoreApplication::processEvents();
    }
    // What the key graph is to show: the list that it received last.
    QVector<VxProperty *> channels() const { return hits; }
    bool isSelected(const VxProperty *property, int key) const
    {
        const VxDopeSheetItem *item = view->getSourceModel()->findPropertyItem(property);
        return item && item->isKeySelected(key);
    }

    VxDopeSheetView *view = nullptr;
    QVector<VxNode *> nodes;
    QVector<VxProperty *> hits;
};

void TestTimePaneRefresh::init()
{
    setUp();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8});
    for (const auto &action : actions)
        action->setChecked(action->value() < 4);
    nodes.clear();
    for (int i = 0; i < 30; ++i) {
        nodes.append(new VxNode(QStringLiteral("node %1").arg(i)));
        vxScene->addNode(nodes.last());
        for (const VxTime time : {0, 1600, 3200})
            nodes.last()->getXPosControl()->setKey(time, 1.0f, VxKeyInterp::Linear);
    }
    showPane(1200, 400);
    view = pane->getDopeSheetView();
    hits.clear();
    connect(view, &VxDopeSheetView::propertyHitListChanged, this,
            [this](const QVector<VxProperty *> &properties) { hits = properties; });
    QCoreApplication::processEvents();
}

void TestTimePaneRefresh::everythingStays_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("scale is ticked") << 4;
    QTest::newRow("refresh") << 0;
}

void TestTimePaneRefresh::everythingStays()
{
    QFETCH(int, type);
    const VxProperty *property = nodes[20]->getXPosControl();
    view->expandRecursively(rowOf(nodes[20]));
    view->expand(rowOf(nodes[22]));
    selectRow(rowOf(property));
    view->setKeySelection(true, rowOf(property), rowOf(property), 1600, 1600);
    view->scrollTo(rowOf(nodes[18]), QAbstractItemView::PositionAtTop);
    QCOMPARE(channels().size(), 1);
    const int scroll = view->verticalScrollBar()->value();
    QVERIFY(scroll > 0);
    if (type)
        tick(type, true);
    else
        pane->refreshDopesheet();
    QCoreApplication::processEvents();
    for (QModelIndex row = rowOf(property).parent(); row.isValid(); row = row.parent())
        QVERIFY(view->isExpanded(row));
    QVERIFY(view->isExpanded(rowOf(nodes[22])));
    QVERIFY(!view->isExpanded(rowOf(nodes[21])));
    QVERIFY(view->isRowSelected(rowOf(property)));
    QVERIFY(isSelected(property, 1));
    QVERIFY(!isSelected(property, 0));
    QVERIFY(pane->hasSelectedKeys());
    QCOMPARE(channels(), QVector<VxProperty *>{nodes[20]->getXPosControl()});
    QCOMPARE(view->verticalScrollBar()->value(), scroll);
    QVERIFY(nodes[20]->isSelected());
}

// One row "General/Transforms/Translation" becomes three groups within each other.
void TestTimePaneRefresh::groupsThatNestDeeper()
{
    const VxProperty *property = nodes[0]->getXPosControl();
    view->expandRecursively(rowOf(nodes[0]));
    tick(8, true);
    const QModelIndex row = rowOf(property);
    QCOMPARE(view->getItem(row.parent())->label(), QStringLiteral("Translation"));
    for (QModelIndex above = row.parent(); above.isValid(); above = above.parent())
        QVERIFY(view->isExpanded(above));
    tick(8, false);
    QCOMPARE(view->getItem(rowOf(property).parent())->label(),
             QStringLiteral("General/Transforms/Translation"));
    QVERIFY(view->isExpanded(rowOf(property).parent()));
}

void TestTimePaneRefresh::filterStays()
{
    view->expandRecursively(rowOf(nodes[3]));
    view->applyFilterText(QStringLiteral("X Trans"));
    tick(4, true);
    QVERIFY(!rowOf(nodes[3]->getYPosControl()).isValid());
    QVERIFY(view->isExpanded(rowOf(nodes[5]->getXPosControl()).parent()));
    view->applyFilterText(QString());
    QVERIFY(view->isExpanded(rowOf(nodes[3]->getXPosControl()).parent()));
    QVERIFY(!view->isExpanded(rowOf(nodes[5])));
}

void TestTimePaneRefresh::keysOfRemovedRows()
{
    VxFloatProperty *turn = nodes[1]->getXRotControl();
    turn->setKey(320, 1.0f, VxKeyInterp::Linear);
    view->expandRecursively(rowOf(nodes[1]));
    selectRow(rowOf(turn));
    view->setKeySelection(true, rowOf(turn), rowOf(turn));
    QCOMPARE(channels().size(), 1);
    tick(2, false);
    QVERIFY(!rowOf(turn).isValid());
    QVERIFY(!pane->hasSelectedKeys());
    QCOMPARE(channels().size(), 0);
    QVERIFY(nodes[1]->isSelected());
}

void TestTimePaneRefresh::clickKeepsTheGraph_data()
{
    QTest::addColumn<VxTime>("time");
    QTest::newRow("on a key") << VxTime(1600);
    QTest::newRow("beside the keys") << VxTime(2400);
}

void TestTimePaneRefresh::clickKeepsTheGraph()
{
    QFETCH(VxTime, time);
    const VxProperty *property = nodes[0]->getXPosControl();
    view->expandRecursively(rowOf(nodes[0]));
    selectRow(rowOf(property));
    QCOMPARE(channels().size(), 1);
    const int x = TimelineMetrics::shared().keyMiddle(
        view->columnViewportPosition(VxDopeSheetView::KeysColumn), time, 0);
    VxMouseDriver(view->viewport())
        .click(QPoint(x, view->visualRect(rowOf(property)).center().y()));
    QCoreApplication::processEvents();
    QCOMPARE(channels().size(), 1);
    QVERIFY(view->isRowSelected(rowOf(property)));
    QCOMPARE(isSelected(property, 1), time == 1600);
}

// A click that changes which nodes are selected does synchronise the rows.
void TestTimePaneRefresh::clickOnAnotherNode()
{
    view->expandRecursively(rowOf(nodes[0]));
    selectRow(rowOf(nodes[0]->getXPosControl()));
    view->collapseAll();
    VxMouseDriver(view->viewport())
        .click(
            QPoint(view->viewport()->width() - 40, view->visualRect(rowOf(nodes[2])).center().y()));
    QCoreApplication::processEvents();
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{nodes[2]});
    QVERIFY(view->isRowSelected(rowOf(nodes[2])));
    QCOMPARE(channels().size(), 0);
}

// Types ticked in any order, with aliases, overriding controls and subtrees that are removed: what
// is selected and still listed stays selected.
void TestTimePaneRefresh::randomRefreshes()
{
    std::mt19937 random(3);
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    for (int i = 1; i < 10; ++i)
        nodes[i]->setNodeParent(nodes[i - 1]);
    for (int step = 0; step < 120; ++step) {
        VxNode *node = vxScene->getNodes().at(below(vxScene->getNumNodes()));
        VxNode *other = vxScene->getNodes().at(below(vxScene->getNumNodes()));
        switch (below(8)) {
        case 0:
            if (node != other)
                node->getYPosControl()->setAliasedProperty(other->getXPosControl());
            break;
        case 1:
            if (node != other)
                node->getZPosControl()->setOverridingControl(other->getXPosControl());
            break;
        case 2:
            if (vxScene->getNumNodes() > 8)
                vxScene->removeNode(node);
            break;
        case 3:
            view->expandRecursively(rowOf(node));
            break;
        case 4:
            view->setKeySelection(true, rowOf(node), rowOf(other), below(1600), below(4800));
            break;
        default:
            selectRow(rowOf(node->getXPosControl()));
        }
        const auto selectedKeys = [this] {
            QMap<const VxProperty *, QVector<int>> keys;
            for (VxNode *any : vxScene->getNodes()) {
                for (const VxProperty *property : any->getMadeProperties()) {
                    const auto *item = view->getSourceModel()->findPropertyItem(property);
                    if (item && item->hasSelectedKeys())
                        keys.insert(property, item->selectedKeyIndexes());
                }
            }
            return keys;
        };
        const auto keys = selectedKeys();
        const QVector<VxProperty *> shown = channels();
        const QVector<VxNode *> selected = vxScene->getSelectedNodes();
        if (below(3) == 0)
            tick(4, step % 2 == 0);
        else
            pane->refreshDopesheet();
        QCoreApplication::processEvents();
        QCOMPARE(selectedKeys(), keys);
        QCOMPARE(vxScene->getSelectedNodes(), selected);
        QCOMPARE(channels(), shown);
    }
}

VX_TEST_MAIN(TestTimePaneRefresh)
#include "tst_timepanerefresh.moc"
