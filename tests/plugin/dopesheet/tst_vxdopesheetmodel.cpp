#include "dopesheetmodeltestbase.h"
#include "testing/vxtestmain.h"

#include <QtGui/QIcon>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

// The rows of the model, and its signals.
class TestDopeSheetModel : public QObject, private DopeSheetModelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpModel(); }
    void cleanup() { tearDownModel(); }

    void columnsAndHeaders();
    void itemsOfIndexes();
    void decorations();
    void everyIndexIsSelectableOnly();

    void ancestorsAreAddedFirst();
    void childrenAreFetchedOnDemand();
    void addedTwice();
    void typesAreTheLowByte();
    void propertyRowsAreFirst();

    void removal();
    void removalOfUnknownNodes();
    void deletedNodesLeaveNothing();
    void deletedWithoutRemoval();
    void removedAndAddedAgain();

    void changesAreReportedForTheTopLevel();
    void anEmptyModelEmitsNothing();
    void labelChangesAreReportedEvenAfterRemoval();
    void nameChangesAreReportedOnce();
    void objectsChange();
    void objectsThatAreNotListed();
    void selectedKeys();
};

void TestDopeSheetModel::columnsAndHeaders()
{
    QCOMPARE(m_model->columnCount(), 2);
    QCOMPARE(m_model->rowCount(), 0);
    QCOMPARE(m_model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Name"));
    QCOMPARE(m_model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Keys"));
    QVERIFY(!m_model->headerData(2, Qt::Horizontal).isValid());
    QVERIFY(!m_model->headerData(1, Qt::Vertical).isValid());
    QVERIFY(!m_model->headerData(1, Qt::Horizontal, Qt::DecorationRole).isValid());
}

void TestDopeSheetModel::itemsOfIndexes()
{
    VxNode *hip = node("hip");
    m_model->addNode(hip);
    VxDopeSheetItem *item = m_model->findItem(hip);
    for (int column = 0; column < 2; ++column) {
        const QModelIndex index = m_model->index(0, column);
        QCOMPARE(index.data(Qt::UserRole).value<VxDopeSheetItem *>(), item);
        QCOMPARE(m_model->rowCount(index), 1);
        QCOMPARE(m_model->columnCount(index), 2);
        QCOMPARE(m_model->hasChildren(index), column == 0);
        const QModelIndex child = m_model->index(0, column, index);
        QCOMPARE(child.parent(), m_model->index(0, 0));
    }
    QCOMPARE(m_model->index(0, 0).data().toString(), QStringLiteral("hip"));
    QVERIFY(!m_model->index(0, 1).data().isValid());
    QVERIFY(m_model->index(0, 2).isValid());
    QVERIFY(!m_model->index(0, 2).data(Qt::UserRole).isValid());
    QVERIFY(!m_model->index(0, 0).data(Qt::ToolTipRole).isValid());
    QVERIFY(!m_model->data(QModelIndex()).isValid());
    QVERIFY(!m_model->index(1, 0).isValid());
    QVERIFY(!m_model->index(-1, 0).isValid());
    QVERIFY(!m_model->indexOf(nullptr).isValid());
    QVERIFY(!m_model->indexOf(m_model->getRootItem()).isValid());
    QCOMPARE(m_model->indexOf(item, 1), m_model->index(0, 1));
}

void TestDopeSheetModel::decorations()
{
    VxNode *hip = node("hip");
    const VxMorph *morph = builder->addMorphs(hip, 1).first();
    const auto special = builder->addSpecialProperties(hip);
    VxDopeSheetModel model(0xff, 2, nullptr);
    model.addNode(hip);
    VxDopeSheetItem *item = model.findItem(hip);
    const auto iconOf = [&model](const VxDopeSheetItem *row) {
        return model.indexOf(row).data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage();
    };
    const auto icon = [](quint32 id) {
        return vxApp->getStyle()->icon(VxStyle::StandardIconId(id)).pixmap(16).toImage();
    };
    QVERIFY(model.indexOf(item).data(Qt::DecorationRole).isValid());
    QVERIFY(!model.indexOf(item, 1).data(Qt::DecorationRole).isValid());
    QVERIFY(!model.indexOf(item->child(0)).data(Qt::DecorationRole).isValid());
    QCOMPARE(iconOf(item->child(0)->child(0)), icon(0xF00000D3));
    QCOMPARE(iconOf(rowOf(item, hip->getXPosControl())), icon(0xF00000D4));
    QCOMPARE(iconOf(rowOf(item, morph->getValueControl())), icon(0xF00000D5));
    QCOMPARE(iconOf(rowOf(item, special.alias)), icon(0xF00000D7));
}

void TestDopeSheetModel::everyIndexIsSelectableOnly()
{
    m_model->addNode(node("hip"));
    const Qt::ItemFlags expected = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    QCOMPARE(m_model->index(0, 0).flags(), expected);
    QCOMPARE(m_model->index(0, 1, m_model->index(0, 0)).flags(), expected);
    QCOMPARE(int(m_model->flags(QModelIndex())), 0);
}

void TestDopeSheetModel::ancestorsAreAddedFirst()
{
    VxNode *top = node("top");
    VxNode *middle = node("middle", top);
    VxNode *low = node("low", middle);
    node("sibling", middle);
    QStringList added;
    connect(m_model.get(), &QAbstractItemModel::rowsInserted, this,
            [this, &added](const QModelIndex &parent, int first) {
                added += m_model->index(first, 0, parent).data().toString();
            });
    m_model->addNode(low);
    QCOMPARE(added,
             QStringList({QStringLiteral("top"), QStringLiteral("middle"), QStringLiteral("low")}));
    QCOMPARE(nodesBelow(m_model->findItem(middle)), QStringList{QStringLiteral("low")});
    m_model->addNode(nullptr);
    m_model->addNode(nullptr, true);
    QCOMPARE(added.size(), 3);
}

void TestDopeSheetModel::childrenAreFetchedOnDemand()
{
    VxNode *top = node("top");
    VxNode *a = node("a", top);
    node("a1", a);
    node("b", top);
    m_model->addNode(top);
    QCOMPARE(nodesBelow(m_model->findItem(top)), QStringList());
    m_model->removeNode(top);
    m_model->addNode(top, true);
    QCOMPARE(nodesBelow(m_model->findItem(top)),
             QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(nodesBelow(m_model->findItem(a)), QStringList{QStringLiteral("a1")});
}

void TestDopeSheetModel::addedTwice()
{
    VxNode *top = node("top");
    m_model->addNode(top);
    VxNode *child = node("child", top);
    m_model->addNode(top, true);
    QCOMPARE(m_model->rowCount(), 1);
    QVERIFY(!m_model->findItem(child));
}

void TestDopeSheetModel::typesAreTheLowByte()
{
    const VxDopeSheetModel model(0x12345603, 3, nullptr);
    QCOMPARE(model.getPropertyTypes(), 3);
    QCOMPARE(model.getKeyCreationScope(), 3);
}

void TestDopeSheetModel::propertyRowsAreFirst()
{
    VxNode *top = node("top");
    node("child", top);
    m_model->addNode(top, true);
    const VxDopeSheetItem *item = m_model->findItem(top);
    QCOMPARE(item->childCount(), 2);
    QCOMPARE(item->child(0)->label(), QStringLiteral("Properties"));
    VxDopeSheetModel bare(0, 2, nullptr);
    bare.addNode(top, true);
    QCOMPARE(bare.findItem(top)->childCount(), 1);
}

void TestDopeSheetModel::removal()
{
    VxNode *top = node("top");
    VxNode *child = node("child", top);
    VxNode *other = node("other");
    m_model->addNode(top, true);
    m_model->addNode(other);
    QStringList removed;
    connect(m_model.get(), &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this, &removed](const QModelIndex &parent, int first) {
                removed += m_model->index(first, 0, parent).data().toString();
            });
    m_model->removeNode(top);
    QCOMPARE(removed, QStringList{QStringLiteral("top")}); // with all below it
    QVERIFY(!m_model->findItem(child));
    QCOMPARE(nodesAtTop(), QStringList{QStringLiteral("other")});
    QCOMPARE(m_model->findItem(other)->row(), 0);
    QVERIFY(!m_model->findItem(child));
    // It is followed no longer.
    QVERIFY(top->setNodeParent(other));
    QVERIFY(!m_model->findItem(top));
}

void TestDopeSheetModel::removalOfUnknownNodes()
{
    VxNode *top = node("top");
    m_model->removeNode(top);
    m_model->addNode(node("other"));
    m_model->removeNode(top);
    m_model->removeNode(nullptr);
    QCOMPARE(m_model->rowCount(), 1);
}

void TestDopeSheetModel::deletedNodesLeaveNothing()
{
    connect(vxScene, &VxScene::aboutToRemoveNode, m_model.get(), &VxDopeSheetModel::removeNode);
    VxNode *top = node("top");
    VxNode *child = node("child", top);
    setKeys(child->getXPosControl(), {10, 20});
    m_model->addNode(top, true);
    m_view->expandAll();
    m_view->selectAll();
    VxDopeSheetItem *row = rowOf(m_model->getRootItem(), child->getXPosControl());
    row->setKeysSelected(true, 0, 100);
    QVERIFY(m_model->hasSelectedKeys());
    vxScene->removeNode(child);
    QVERIFY(!m_model->hasSelectedKeys());
    QCOMPARE(m_model->findItem(top)->keyCount(), 0);
    vxScene->removeNode(top);
    QCOMPARE(m_model->rowCount(), 0);
    QCOMPARE(m_filter->rowCount(), 0);
    QVERIFY(!m_view->selectionModel()->hasSelection());
    m_view->grab();
}

void TestDopeSheetModel::deletedWithoutRemoval()
{
    auto top = std::make_unique<VxNode>(QStringLiteral("top"));
    auto *child = new VxNode(QStringLiteral("child"));
    top->addNodeChild(child);
    setKeys(child->getXPosControl(), {10});
    m_model->addNode(top.get(), true);
    m_view->expandAll();
    m_view->selectAll();
    rowOf(m_model->getRootItem(), child->getXPosControl())->setKeysSelected(true, 10, 10);
    QVERIFY(m_model->hasSelectedKeys());
    // Reading the name of a row during its removal accesses no destroyed node.
    QStringList names;
    connect(m_model.get(), &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this, &names](const QModelIndex &parent, int first) {
                names += m_model->index(first, 0, parent).data().toString();
            });
    top.reset();
    QCOMPARE(names, QStringList({QString(), QString()}));
    QCOMPARE(m_model->rowCount(), 0);
    QVERIFY(!m_model->hasSelectedKeys());
    QVERIFY(m_model->getTopLevelNodes().isEmpty());
    m_view->grab();
}

void TestDopeSheetModel::removedAndAddedAgain()
{
    VxNode *top = node("top");
    for (int i = 0; i < 3; ++i) {
        m_model->addNode(top);
        m_model->removeNode(top);
    }
    m_model->addNode(top);
    const QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    top->setLabel(QStringLiteral("other"));
    QCOMPARE(changes.count(), 1);
}

void TestDopeSheetModel::changesAreReportedForTheTopLevel()
{
    VxNode *a = node("a");
    m_model->addNode(a);
    m_model->addNode(node("b"));
    const QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    setKeys(a->getXPosControl(), {10});
    QCOMPARE(changes.count(), 2);
    for (const auto &arguments : changes) {
        QCOMPARE(arguments.at(0).toModelIndex(), m_model->index(0, 0));
        QCOMPARE(arguments.at(1).toModelIndex(), m_model->index(1, 1));
    }
}

void TestDopeSheetModel::anEmptyModelEmitsNothing()
{
    const QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    m_model->keysChanged();
    QCOMPARE(changes.count(), 0);
}

void TestDopeSheetModel::labelChangesAreReportedEvenAfterRemoval()
{
    VxNode *a = node("a");
    m_model->addNode(a);
    m_model->addNode(node("b"));
    const QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    a->setLabel(QStringLiteral("c"));
    QCOMPARE(changes.count(), 1);
    m_model->removeNode(a);
    a->setLabel(QStringLiteral("d"));
    QCOMPARE(changes.count(), 2);
}

void TestDopeSheetModel::nameChangesAreReportedOnce()
{
    VxNode *a = node("a");
    m_model->addNode(a);
    QSignalSpy names(m_model.get(), &VxDopeSheetModel::namesChanged);
    QCoreApplication::processEvents();
    names.clear();
    for (int i = 0; i < 10; ++i)
        a->setLabel(QString::number(i));
    a->getXPosControl()->setLabel(QStringLiteral("Sideways"));
    QCOMPARE(names.count(), 0);
    QTRY_COMPARE(names.count(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(names.count(), 1);
    a->getXPosControl()->setLabel(QStringLiteral("Along"));
    QTRY_COMPARE(names.count(), 2);
}

// The rows of an object's properties are added and removed with it; the node's own stay as they
// are.
void TestDopeSheetModel::objectsChange()
{
    VxNode *a = node("a");
    VxNode *below = node("below", a);
    VxMorph *morph = builder->addMorphs(a, 1).first();
    VxDopeSheetModel model(0xff, 2, nullptr);
    FirstColumnOnly firstColumn;
    firstColumn.setSourceModel(&model);
    const Tester tester(&firstColumn, Tester::FailureReportingMode::QtTest);
    model.addNode(a, true);
    const QStringList with = labelsBelow(model.getRootItem());
    QVERIFY(rowOf(model.getRootItem(), morph->getValueControl()));
    setKeys(morph->getValueControl(), {10});
    setKeys(a->getYPosControl(), {20, 30});
    setKeys(below->getYPosControl(), {40});
    rowOf(model.getRootItem(), morph->getValueControl())->setKeysSelected(true, 10, 10);
    rowOf(model.getRootItem(), a->getYPosControl())->setKeysSelected(true, 30, 30);
    QCOMPARE(keyTimes(*model.findItem(a)), (QVector<VxTime>{10, 20, 30, 40}));

    a->setObject(nullptr);
    const QStringList without = labelsBelow(model.getRootItem());
    QVERIFY(without.size() < with.size());
    QCOMPARE(keyTimes(*model.findItem(a)), (QVector<VxTime>{20, 30, 40}));
    QCOMPARE(selectedTimes(*model.findItem(a)), QVector<VxTime>{30});
    QCOMPARE(model.findItem(a)->child(0)->label(), QStringLiteral("Properties"));
    QCOMPARE(model.findItem(a)->child(1), model.findItem(below));

    auto *object = new VxObject(QStringLiteral("other"));
    auto *other = new VxMorph(QStringLiteral("Morph 1"));
    object->addSubElement(other);
    setKeys(other->getValueControl(), {15});
    QSignalSpy changed(&model, &VxDopeSheetModel::dataChanged);
    a->setObject(object);
    QVERIFY(changed.count() > 0);
    QCOMPARE(labelsBelow(model.getRootItem()), with);
    QCOMPARE(keyTimes(*model.findItem(a)), (QVector<VxTime>{15, 20, 30, 40}));
    QCOMPARE(selectedTimes(*model.findItem(a)), QVector<VxTime>{30});
    // Changes of the new rows are reported, and renaming counts.
    setKeys(other->getValueControl(), {16});
    QCOMPARE(model.findItem(a)->keyCount(), 5);

    model.removeNode(a);
    a->setObject(nullptr);
    QCOMPARE(model.rowCount(), 0);
}

// Where only transforms are listed an object makes no difference.
void TestDopeSheetModel::objectsThatAreNotListed()
{
    VxNode *a = node("a");
    m_model->addNode(a);
    QSignalSpy removed(m_model.get(), &VxDopeSheetModel::rowsRemoved);
    builder->addMorphs(a, 2);
    a->setObject(nullptr);
    QCOMPARE(removed.count(), 0);
}

void TestDopeSheetModel::selectedKeys()
{
    VxNode *a = node("a");
    setKeys(a->getXPosControl(), {10});
    m_model->addNode(a);
    QVERIFY(!m_model->hasSelectedKeys());
    VxDopeSheetItem *row = rowOf(m_model->getRootItem(), a->getXPosControl());
    row->setKeysSelected(true, 10, 10);
    QVERIFY(m_model->hasSelectedKeys());
    m_model->removeNode(a);
    QVERIFY(!m_model->hasSelectedKeys());
}

VX_TEST_MAIN(TestDopeSheetModel)
#include "tst_vxdopesheetmodel.moc"
