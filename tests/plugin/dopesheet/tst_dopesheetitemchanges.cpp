#include "dopesheetitemtestbase.h"
#include "testing/keytimes.h"
#include "testing/vxtestmain.h"

#include <vxcore/vxchangeblock.h>

namespace {

Times timesOf(const VxDopeSheetItem &row)
{
    const int count = row.keyCount();
    return Times(row.keyTimes(), row.keyTimes() + count);
}

} // namespace

// A row whose keys are deleted, change within a change block, or belong to a removed property.
class TestDopeSheetItemChanges : public QObject, private DopeSheetItemTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void deletesSelectedKeys();
    void deletesSelectedKeysWithinAChangeBlock();
    void showsPresentKeysWithinAChangeBlock();
    void showsPresentKeysWhileOthersReport();
    void suppressedRowsKeepTheirKeysWithinAChangeBlock();
    void groupsDeleteNothing();
    void lockedKeysStaySelected();
    void deletedKeysLeaveTheSelection();
    void deletedPropertyLeavesAnEmptyRow();
};

void TestDopeSheetItemChanges::deletesSelectedKeys()
{
    makeTree({10, 20, 30, 40}, {20});
    m_rowX->setKeySelectedAt({1, 3}, true);
    m_rowX->deleteSelectedKeys();
    QCOMPARE(keyTimes(*m_rowX), Times({10, 30}));
    QCOMPARE(keyTimes(*m_root), Times({10, 20, 30}));
    QVERIFY(!m_root->hasSelectedKeys());
    m_rowX->deleteSelectedKeys();
    QCOMPARE(m_x->getNumKeys(), 2);
}

// The row has not been notified yet of the key added before the selected one.
void TestDopeSheetItemChanges::deletesSelectedKeysWithinAChangeBlock()
{
    makeTree({10, 20}, {});
    m_rowX->setKeysSelected(true, 20, 20);
    const VxChangeBlock block;
    setKeys(m_x, {5});
    m_rowX->setKeysSelected(true, 5, 5);
    m_rowX->deleteSelectedKeys();
    QCOMPARE(m_x->getNumKeys(), 1);
    QCOMPARE(m_x->getKeyTime(0), 10);
    // Selected before, and at another place in the list by now.
    m_rowX->setKeysSelected(true, 10, 10);
    setKeys(m_x, {5});
    m_rowX->deleteSelectedKeys();
    QCOMPARE(m_x->getNumKeys(), 1);
    QCOMPARE(m_x->getKeyTime(0), 5);
}

// No report has been sent yet, and the number of keys stays.
void TestDopeSheetItemChanges::showsPresentKeysWithinAChangeBlock()
{
    makeTree({0, 10}, {5});
    m_rowX->setKeySelectedAt({1}, true);
    QCOMPARE(m_root->keyCount(), 3);
    QVERIFY(m_group->hasSelectedKeys());
    const VxChangeBlock block;
    QVERIFY(m_x->moveKeys({1}, {20}));
    QCOMPARE(timesOf(*m_root), Times({0, 5, 20}));
    QCOMPARE(timesOf(*m_group), Times({0, 5, 20}));
    QCOMPARE(timesOf(*m_rowX), Times({0, 20}));
    QVERIFY(!m_root->hasSelectedKeys());
    // The row is asked first: those above follow all the same.
    QVERIFY(m_y->moveKeys({0}, {6}));
    QCOMPARE(timesOf(*m_rowY), Times({6}));
    QCOMPARE(timesOf(*m_root), Times({0, 6, 20}));
}

// At the end of a block properties report one after the other: a receiver of the first report
// gets the present keys of all.
void TestDopeSheetItemChanges::showsPresentKeysWhileOthersReport()
{
    makeTree({0, 10}, {5});
    QCOMPARE(m_root->keyCount(), 3);
    Times seen;
    Times seenY;
    connect(m_x, &VxProperty::valueChanged, this, [&] {
        seenY = timesOf(*m_rowY);
        seen = timesOf(*m_root);
    });
    {
        const VxChangeBlock block;
        QVERIFY(m_x->moveKeys({1}, {20}));
        QVERIFY(m_y->moveKeys({0}, {6}));
    }
    QCOMPARE(seenY, Times({6}));
    QCOMPARE(seen, Times({0, 6, 20}));
}

void TestDopeSheetItemChanges::suppressedRowsKeepTheirKeysWithinAChangeBlock()
{
    makeTree({0, 10}, {5});
    QCOMPARE(m_root->keyCount(), 3);
    {
        const VxChangeBlock block;
        m_rowX->setSuppressKeyChanges(true);
        QVERIFY(m_x->moveKeys({1}, {20}));
        QCOMPARE(timesOf(*m_rowX), Times({0, 10}));
        QCOMPARE(timesOf(*m_root), Times({0, 5, 10}));
    }
    m_rowX->setSuppressKeyChanges(false);
    QCOMPARE(timesOf(*m_rowX), Times({0, 10}));
    m_rowX->invalidateKeys();
    QCOMPARE(timesOf(*m_root), Times({0, 5, 20}));
}

void TestDopeSheetItemChanges::groupsDeleteNothing()
{
    makeTree({10}, {20});
    m_rowX->setKeysSelected(true, 0, 100);
    m_group->deleteSelectedKeys();
    QCOMPARE(m_root->keyCount(), 2);
}

void TestDopeSheetItemChanges::lockedKeysStaySelected()
{
    makeTree({10}, {});
    m_rowX->setKeysSelected(true, 10, 10);
    m_x->setLocked(true);
    m_rowX->deleteSelectedKeys();
    QCOMPARE(selectedTimes(*m_root), Times({10}));
}

void TestDopeSheetItemChanges::deletedKeysLeaveTheSelection()
{
    makeTree({10, 20}, {20});
    m_rowX->setKeysSelected(true, 20, 20);
    m_x->deleteKeys(VxTimeRange(20, 20));
    QVERIFY(!m_root->hasSelectedKeys());
}

void TestDopeSheetItemChanges::deletedPropertyLeavesAnEmptyRow()
{
    makeTree({}, {20});
    auto *own = new VxFloatProperty(QStringLiteral("own"));
    m_node->addProperty(own, QStringLiteral("/Own"));
    setKeys(own, {10});
    m_rowX->setProperty(own);
    m_rowX->setKeysSelected(true, 0, 100);
    QCOMPARE(keyTimes(*m_root), Times({10, 20}));
    const QSignalSpy spy(m_rowX, &VxDopeSheetItem::keysChanged);
    QVERIFY(m_node->removeProperty(own));
    QVERIFY(spy.count() > 0);
    QVERIFY(!m_rowX->property());
    QCOMPARE(m_rowX->label(), QString());
    QVERIFY(!m_root->hasSelectedKeys());
    QCOMPARE(keyTimes(*m_root), Times({20}));
    m_rowX->deleteSelectedKeys();
    m_rowX->setKeySelectedAt({0}, true);
    QVERIFY(!m_rowX->hasKeys());
}

VX_TEST_MAIN(TestDopeSheetItemChanges)
#include "tst_dopesheetitemchanges.moc"
