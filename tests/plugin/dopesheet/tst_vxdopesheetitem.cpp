#include "dopesheetitemtestbase.h"
#include "testing/keytimes.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/rows/dopesheetvaluesource.h"

#include <random>
#include <vxcore/vxmorph.h>

// One row and its tree: labels, children, keys and their selection.
class TestDopeSheetItem : public QObject, private DopeSheetItemTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void labels();
    void paths();
    void childrenKeepTheirNumbers();
    void leavingAParent();
    void prunesEmptyRows();

    void valueSources();
    void endlessLinksEnd();

    void oneChangeEmitsTwoSignals();
    void changesOfTheSourceAreReported();
    void suppressedChangesAreNotReported();

    void selecting_data();
    void selecting();
    void selectingByIndex();
    void selectingOnlyMovedKeys();
    void selectionStaysByTime();
    void unionsShowEachTimeOnce();
    void unionsOverGroups();
    void anyRowAtAnyTime();
    void selectingAUnionSelectsNothing();
    void binarySearch();
    void badIndexes();
    void savedTimesStay();

    void selectedKeysAreCounted();
    void rowMovesWithItsSelection();
};

void TestDopeSheetItem::labels()
{
    VxDopeSheetItem item;
    QCOMPARE(item.label(), QString());
    item.setNode(m_node);
    m_node->setLabel(QStringLiteral("Hip of a figure"));
    QCOMPARE(item.label(), QStringLiteral("Hip of a figure"));
    item.setProperty(m_x);
    m_x->setLabel(QStringLiteral("Sideways"));
    QCOMPARE(item.label(), QStringLiteral("Sideways"));
    item.setLabel(QStringLiteral("Given"));
    QCOMPARE(item.label(), QStringLiteral("Given"));
    QCOMPARE(item.row(), -1);
}

void TestDopeSheetItem::paths()
{
    VxNode *knee = builder->addNode(QStringLiteral("knee"), m_node);
    VxMorph *morph = builder->addMorphs(knee, 2).at(1);
    VxDopeSheetModel model(TimelinePropertyTypes::Other | TransformTypes, 2, nullptr);
    model.addNode(knee);
    VxDopeSheetItem *kneeRow = model.findItem(knee);
    QCOMPARE(kneeRow->path(), QStringLiteral("/hip/knee"));
    QCOMPARE(kneeRow->child(0)->path(), QStringLiteral("/hip/knee/Properties"));
    QCOMPARE(rowOf(kneeRow, knee->getXPosControl())->path(),
             QLatin1String("/hip/knee/General/Transforms/Translation/") +
                 knee->getXPosControl()->getName());
    QVERIFY(rowOf(kneeRow, morph->getValueControl())->path().contains(morph->getName()));
    vxScene->addNode(new VxNode(QStringLiteral("top")));
    QVERIFY(knee->setNodeParent(nullptr));
    QCOMPARE(kneeRow->path(), QStringLiteral("/knee"));
    QCOMPARE(VxDopeSheetItem().path(), QString());
}

void TestDopeSheetItem::childrenKeepTheirNumbers()
{
    VxDopeSheetItem root;
    for (const char *label : {"a", "b", "c", "d"}) {
        auto *item = new VxDopeSheetItem;
        item->setLabel(QString::fromLatin1(label));
        item->setParent(&root);
        QCOMPARE(item->row(), root.childCount() - 1);
    }
    const auto order = [&root] {
        QString text;
        for (int i = 0; i < root.childCount(); ++i) {
            if (root.child(i)->row() != i || root.child(i)->parentItem() != &root)
                return QStringLiteral("wrong row or parent");
            text += root.child(i)->label();
        }
        return text;
    };
    root.moveChild(0, 2);
    QCOMPARE(order(), QStringLiteral("bcad"));
    root.moveChild(3, 0);
    QCOMPARE(order(), QStringLiteral("dbca"));
    root.swapChildren(0, 3);
    QCOMPARE(order(), QStringLiteral("abcd"));
    root.moveChild(0, 4);
    root.swapChildren(-1, 2);
    QCOMPARE(order(), QStringLiteral("abcd"));
    delete root.child(1);
    QCOMPARE(order(), QStringLiteral("acd"));
    root.child(0)->setParent(&root);
    QCOMPARE(order(), QStringLiteral("cda"));
    QVERIFY(!root.child(3));
    QVERIFY(!root.child(-1));
}

void TestDopeSheetItem::leavingAParent()
{
    makeTree({10}, {20});
    QCOMPARE(keyTimes(*m_root), Times({10, 20}));
    m_rowX->setParent(nullptr);
    const std::unique_ptr<VxDopeSheetItem> mine(m_rowX);
    QCOMPARE(m_rowX->row(), -1);
    QVERIFY(!m_rowX->parentItem());
    QCOMPARE(m_rowY->row(), 0);
    QCOMPARE(keyTimes(*m_root), Times({20}));
}

void TestDopeSheetItem::prunesEmptyRows()
{
    makeTree({}, {});
    auto *outer = new VxDopeSheetItem;
    outer->setParent(m_root.get());
    auto *inner = new VxDopeSheetItem;
    inner->setParent(outer);
    m_root->pruneEmpty();
    QCOMPARE(m_root->childCount(), 1);
    QCOMPARE(m_group->childCount(), 2);
}

void TestDopeSheetItem::valueSources()
{
    const auto special = builder->addSpecialProperties(m_node);
    QCOMPARE(dopeSheetValueSource(m_x), m_x);
    QCOMPARE(dopeSheetValueSource(special.alias), m_x);
    QCOMPARE(dopeSheetValueSource(special.linked), m_y);
    QCOMPARE(dopeSheetValueSource(special.terminal), special.terminal);
    QCOMPARE(dopeSheetValueSource(special.text), special.text);
    // From an alias on along the aliased property's link.
    m_x->setLink(m_node->getZPosControl());
    QCOMPARE(dopeSheetValueSource(special.alias), m_node->getZPosControl());
}

void TestDopeSheetItem::endlessLinksEnd()
{
    std::vector<std::unique_ptr<VxFloatProperty>> chain;
    for (int i = 0; i <= VxProperty::MaxReferenceChain; ++i) {
        chain.push_back(std::make_unique<VxFloatProperty>(QString::number(i)));
        if (i > 0)
            QVERIFY(chain[size_t(i)]->setLink(chain[size_t(i - 1)].get()));
    }
    QCOMPARE(dopeSheetValueSource(chain[99].get()), chain[0].get());
    QCOMPARE(dopeSheetValueSource(chain[100].get()), chain[0].get());
    QCOMPARE(dopeSheetValueSource(chain[128].get()), chain[28].get());
}

void TestDopeSheetItem::oneChangeEmitsTwoSignals()
{
    makeTree({}, {});
    const QSignalSpy spy(m_rowX, &VxDopeSheetItem::keysChanged);
    const QSignalSpy other(m_rowY, &VxDopeSheetItem::keysChanged);
    const QSignalSpy changed(m_rowX, &VxDopeSheetItem::changed);
    setKeys(m_x, {10});
    QCOMPARE(spy.count(), 2);
    QCOMPARE(other.count(), 0);
    QCOMPARE(changed.count(), 0);
}

void TestDopeSheetItem::changesOfTheSourceAreReported()
{
    const auto special = builder->addSpecialProperties(m_node);
    VxDopeSheetItem row;
    row.setProperty(special.alias);
    QCOMPARE(row.keyCount(), 0);
    setKeys(m_x, {10, 20});
    QCOMPARE(keyTimes(row), Times({10, 20}));
    row.setProperty(nullptr);
    const QSignalSpy spy(&row, &VxDopeSheetItem::keysChanged);
    setKeys(m_x, {30});
    QCOMPARE(spy.count(), 0);
    QCOMPARE(row.keyCount(), 0);
}

void TestDopeSheetItem::suppressedChangesAreNotReported()
{
    makeTree({10}, {});
    QCOMPARE(m_root->keyCount(), 1);
    m_rowX->setSuppressKeyChanges(true);
    const QSignalSpy spy(m_rowX, &VxDopeSheetItem::keysChanged);
    setKeys(m_x, {20});
    QCOMPARE(spy.count(), 0);
    QCOMPARE(m_rowX->keyCount(), 1);
    m_rowX->setSuppressKeyChanges(false);
    m_rowX->invalidateKeys();
    QCOMPARE(m_root->keyCount(), 2);
}

void TestDopeSheetItem::selecting_data()
{
    QTest::addColumn<VxTime>("start");
    QTest::addColumn<VxTime>("end");
    QTest::addColumn<Times>("selected");
    QTest::newRow("one time, a key there") << 10 << 10 << Times{10};
    QTest::newRow("one time, no key there") << 11 << 11 << Times{};
    QTest::newRow("the end is left out") << 10 << 20 << Times{10};
    QTest::newRow("one tick more takes it in") << 10 << 21 << Times{10, 20};
    QTest::newRow("between keys") << 11 << 19 << Times{};
    QTest::newRow("from before to after") << -100 << 1000 << Times{-5, 10, 20, 30};
    QTest::newRow("from -1 on leaves negative times out") << -1 << VxTimeMax << Times{10, 20, 30};
    QTest::newRow("every time there is") << VxTimeMin << VxTimeMax << Times{-5, 10, 20, 30};
    QTest::newRow("backwards") << 20 << 10 << Times{};
    QTest::newRow("after the last") << 31 << 31 << Times{};
}

void TestDopeSheetItem::selecting()
{
    QFETCH(VxTime, start);
    QFETCH(VxTime, end);
    QFETCH(Times, selected);
    makeTree({-5, 10, 20, 30}, {});
    QCOMPARE(m_root->keyCount(), 4);
    const QSignalSpy spy(m_rowX, &VxDopeSheetItem::keysChanged);
    m_rowX->setKeysSelected(true, start, end);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(selectedTimes(*m_rowX), selected);
    QCOMPARE(selectedTimes(*m_root), selected);
    QCOMPARE(m_rowX->selectedKeyCount(), selected.size());
    QCOMPARE(m_root->hasSelectedKeys(), !selected.isEmpty());

    m_rowX->setKeysSelected(true, VxTimeMin, VxTimeMax);
    m_rowX->setKeysSelected(false, start, end);
    QCOMPARE(m_rowX->selectedKeyCount(), 4 - selected.size());
    for (const VxTime time : selectedTimes(*m_rowX))
        QVERIFY(!selected.contains(time));
}

void TestDopeSheetItem::selectingByIndex()
{
    makeTree({10, 20, 30}, {});
    QCOMPARE(m_root->keyCount(), 3);
    const QSignalSpy spy(m_rowX, &VxDopeSheetItem::keysChanged);
    m_rowX->setKeySelectedAt({0, 2, 2, 3, -1}, true);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(selectedTimes(*m_root), Times({10, 30}));
    QCOMPARE(m_rowX->selectedKeyIndexes(), QVector<int>({0, 2}));
    QCOMPARE(int(m_rowX->keyFlags()[1]), 0);
    QCOMPARE(int(m_rowX->keyFlags()[2]), 1);
    m_rowX->setKeySelectedAt({2}, false);
    QCOMPARE(selectedTimes(*m_root), Times({10}));
    m_group->setKeySelectedAt({0, 1, 2}, true);
    QCOMPARE(selectedTimes(*m_root), Times({10}));
}

void TestDopeSheetItem::selectingOnlyMovedKeys()
{
    makeTree({10, 20, 30, 40}, {});
    m_rowX->setKeySelectedAt({0, 1}, true);
    m_rowX->setSuppressKeyChanges(true);
    QVERIFY(m_x->moveKeys({0, 1}, {15, 25}));
    const Times moved{15, 25};
    m_rowX->selectOnlyKeysAt(moved.constData(), moved.size());
    m_rowX->setSuppressKeyChanges(false);
    QCOMPARE(keyTimes(*m_root), Times({15, 25, 30, 40}));
    QCOMPARE(selectedTimes(*m_root), moved);
    const Times nowhere{-3, 15, 15, 16, 99};
    m_rowX->selectOnlyKeysAt(nowhere.constData(), nowhere.size());
    QCOMPARE(selectedTimes(*m_root), Times({15}));
    QCOMPARE(m_rowX->selectedKeyCount(), 1);
}

void TestDopeSheetItem::selectionStaysByTime()
{
    makeTree({10, 20, 30}, {});
    m_rowX->setKeysSelected(true, 20, 31);
    setKeys(m_x, {5, 25, 35});
    QCOMPARE(keyTimes(*m_rowX), Times({5, 10, 20, 25, 30, 35}));
    QCOMPARE(selectedTimes(*m_rowX), Times({20, 30}));
    m_x->deleteKeys(VxTimeRange(20, 20));
    QCOMPARE(selectedTimes(*m_root), Times({30}));
}

void TestDopeSheetItem::unionsShowEachTimeOnce()
{
    makeTree({10, 20}, {20, 30});
    QCOMPARE(keyTimes(*m_root), Times({10, 20, 30}));
    m_rowY->setKeysSelected(true, 20, 20);
    QCOMPARE(selectedTimes(*m_group), Times({20}));
    QCOMPARE(selectedTimes(*m_root), Times({20}));
    m_rowX->setKeysSelected(true, 0, 100);
    m_rowY->setKeysSelected(false, 0, 100);
    QCOMPARE(selectedTimes(*m_root), Times({10, 20}));
    QVERIFY(!m_rowY->hasSelectedKeys());
    QVERIFY(m_root->hasKeys());
}

// A group that has not been asked for its keys is passed over; one that has been is not.
void TestDopeSheetItem::unionsOverGroups()
{
    for (const bool askGroup : {false, true}) {
        m_y->deleteKeys(VxTimeRange(0, 480));
        makeTree({0, 160}, {160, 320});
        if (askGroup)
            QCOMPARE(keyTimes(*m_group), (Times{0, 160, 320}));
        QCOMPARE(keyTimes(*m_root), (Times{0, 160, 320}));
        m_rowX->setKeysSelected(true, 160, 160);
        QCOMPARE(selectedTimes(*m_root), Times{160});
        QCOMPARE(selectedTimes(*m_group), Times{160});
        setKeys(m_y, {480});
        if (!askGroup)
            QCOMPARE(keyTimes(*m_group), (Times{0, 160, 320, 480}));
        QCOMPARE(keyTimes(*m_root), (Times{0, 160, 320, 480}));
        QVERIFY(m_root->hasSelectedKeys());
        m_rowX->setKeysSelected(false, 0, 1000);
        QVERIFY(!m_root->hasSelectedKeys());
        QCOMPARE(selectedTimes(*m_group), Times{});
    }
}

namespace {

// The keys of a row worked out the plain way.
QMap<VxTime, bool> keysBelow(const VxDopeSheetItem *item)
{
    QMap<VxTime, bool> keys;
    if (item->property()) {
        for (int i = 0; i < item->keyCount(); ++i)
            keys[item->keyTime(i)] = item->isKeySelected(i);
    }
    for (int i = 0; i < item->childCount(); ++i) {
        const QMap<VxTime, bool> below = keysBelow(item->child(i));
        for (auto key = below.cbegin(); key != below.cend(); ++key)
            keys[key.key()] |= key.value();
    }
    return keys;
}

void collect(VxDopeSheetItem *item, QVector<VxDopeSheetItem *> *all)
{
    all->append(item);
    for (int i = 0; i < item->childCount(); ++i)
        collect(item->child(i), all);
}

} // namespace

// Rows are asked in no order, after changes anywhere.
void TestDopeSheetItem::anyRowAtAnyTime()
{
    VxNode *arm = builder->addNode(QStringLiteral("arm"), m_node);
    builder->addSpecialProperties(m_node);
    VxDopeSheetModel model(0xff, 2, nullptr);
    model.addNode(m_node, true);
    QVector<VxDopeSheetItem *> rows;
    collect(model.getRootItem(), &rows);
    QVector<VxFloatProperty *> channels;
    for (VxNode *node : {m_node, arm}) {
        channels += {node->getXPosControl(), node->getYPosControl(), node->getXRotControl(),
                     node->getScaleControl()};
    }
    std::mt19937 random(3);
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    for (int step = 0; step < 3000; ++step) {
        VxFloatProperty *channel = channels.at(below(channels.size()));
        const VxTime time = 160 * below(12);
        switch (below(4)) {
        case 0:
            channel->setKey(time, 1.0f, VxKeyInterp::Linear);
            break;
        case 1:
            channel->deleteKeys(VxTimeRange(time, time));
            break;
        case 2:
            rowOf(model.getRootItem(), channel)->setKeysSelected(below(2), time, time + 320);
            break;
        default:
            VxDopeSheetItem *row = rows.at(below(rows.size()));
            const QMap<VxTime, bool> expected = keysBelow(row);
            QCOMPARE(keyTimes(*row), expected.keys().toVector());
            QCOMPARE(selectedTimes(*row), expected.keys(true).toVector());
            QCOMPARE(row->hasSelectedKeys(), !expected.keys(true).isEmpty());
        }
    }
}

void TestDopeSheetItem::selectingAUnionSelectsNothing()
{
    makeTree({10}, {20});
    const QSignalSpy spy(m_group, &VxDopeSheetItem::keysChanged);
    m_group->setKeysSelected(true, 0, 100);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(selectedTimes(*m_group), Times());
    QVERIFY(!m_root->hasSelectedKeys());
}

void TestDopeSheetItem::binarySearch()
{
    makeTree({10, 20}, {30});
    QCOMPARE(m_root->firstKeyFrom(VxTimeMin), 0);
    QCOMPARE(m_root->firstKeyFrom(10), 0);
    QCOMPARE(m_root->firstKeyFrom(11), 1);
    QCOMPARE(m_root->firstKeyFrom(30), 2);
    QCOMPARE(m_root->firstKeyFrom(31), 3);
    QCOMPARE(VxDopeSheetItem().firstKeyFrom(0), 0);
}

void TestDopeSheetItem::badIndexes()
{
    makeTree({10}, {});
    m_rowX->setKeysSelected(true, 10, 10);
    for (const int index : {-1, 1, 1000}) {
        QCOMPARE(m_rowX->keyTime(index), 0);
        QVERIFY(!m_rowX->isKeySelected(index));
    }
    QCOMPARE(m_rowY->keyCount(), 0);
    QCOMPARE(m_rowY->selectedKeyIndexes(), QVector<int>());
}

void TestDopeSheetItem::savedTimesStay()
{
    makeTree({10, 20, 30}, {});
    QCOMPARE(m_rowX->savedTimeCount(), 0);
    m_rowX->setKeysSelected(true, 20, 100);
    m_rowX->saveSelectedKeyTimes();
    m_x->deleteAllKeys();
    QCOMPARE(m_rowX->savedTimeCount(), 2);
    QCOMPARE(m_rowX->savedTimes()[0], 20);
    QCOMPARE(m_rowX->savedTimes()[1], 30);
    m_rowX->saveSelectedKeyTimes();
    QCOMPARE(m_rowX->savedTimeCount(), 0);
}

void TestDopeSheetItem::selectedKeysAreCounted()
{
    makeTree({10, 20}, {20});
    QVERIFY(!m_root->hasSelectedKeys());
    m_rowX->setKeysSelected(true, 0, 100);
    m_rowY->setKeysSelected(true, 0, 100);
    QVERIFY(m_root->hasSelectedKeys());
    m_rowX->setKeysSelected(false, 0, 100);
    QVERIFY(m_root->hasSelectedKeys());
    QVERIFY(!m_rowX->hasSelectedKeys());
    m_rowY->setKeysSelected(false, 20, 20);
    QVERIFY(!m_root->hasSelectedKeys());
}

void TestDopeSheetItem::rowMovesWithItsSelection()
{
    makeTree({10}, {20});
    auto *other = new VxDopeSheetItem;
    other->setParent(m_root.get());
    m_rowX->setKeysSelected(true, 10, 10);
    m_rowX->setParent(other);
    QVERIFY(!m_group->hasSelectedKeys());
    QVERIFY(other->hasSelectedKeys());
    QCOMPARE(selectedTimes(*m_root), Times({10}));
    delete other;
    QVERIFY(!m_root->hasSelectedKeys());
    QCOMPARE(keyTimes(*m_root), Times({20}));
}

VX_TEST_MAIN(TestDopeSheetItem)
#include "tst_vxdopesheetitem.moc"
