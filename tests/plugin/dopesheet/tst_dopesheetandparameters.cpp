// The dope sheet beside the Parameters pane: the rows show every edit made in the pane.

#include "dopesheettestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QtCore/QRandomGenerator>
#include <set>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxsidenavpropertylistview.h>
#include <vxcore/vxundostack.h>

class TestDopeSheetAndParameters : public QObject, private DopeSheetTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void randomEdits_data();
    void randomEdits();

private:
    using Model = VxPropertyListItemModel;

    static VxFloatProperty *translation(VxNode *node, int axis)
    {
        return axis == 0   ? node->getXPosControl()
               : axis == 1 ? node->getYPosControl()
                           : node->getZPosControl();
    }
    QPoint placeOf(const VxProperty *property, int column) const;
    void edit(QRandomGenerator *random) const;
    void compareRows(VxNode *node) const;

    std::unique_ptr<VxParametersPane> m_pane;
};

void TestDopeSheetAndParameters::init()
{
    setUp();
    m_pane = std::make_unique<VxParametersPane>();
    m_pane->resize(300, 500);
    hip->select();
    ball->select();
    m_pane->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pane.get()));
    QCoreApplication::processEvents();
}

void TestDopeSheetAndParameters::cleanup()
{
    m_pane.reset();
    tearDown();
}

QPoint TestDopeSheetAndParameters::placeOf(const VxProperty *property, int column) const
{
    VxSideNavPropertyListView *list = m_pane->getPropertyListView();
    const QModelIndex label = list->getPropertyListModel()->findProperty(property);
    const QModelIndex cell = label.sibling(label.row(), column);
    list->scrollTo(cell);
    return list->visualRect(cell).center();
}

void TestDopeSheetAndParameters::edit(QRandomGenerator *random) const
{
    const VxProperty *property = translation(
        m_pane->getPropertyListView()->getPropertyListModel()->getNode(), int(random->bounded(3)));
    VxMouseDriver mouse(m_pane->getPropertyListView()->viewport());
    switch (random->bounded(6)) {
    case 0:
    case 1: {
        const QPoint from = placeOf(property, Model::ValueColumn);
        mouse.drag(from, from + QPoint(int(random->bounded(300)) - 150, 0));
        break;
    }
    case 2:
        mouse.click(placeOf(property, Model::KeyColumn));
        break;
    case 3:
        vxApp->getUndoStack()->undo();
        break;
    case 4:
        vxApp->getUndoStack()->redo();
        break;
    default:
        vxScene->setTime(160 * int(random->bounded(10)));
    }
}

/// The rows of the properties, and that of their group, which shows the keys of all of them.
void TestDopeSheetAndParameters::compareRows(VxNode *node) const
{
    std::set<VxTime> all;
    for (int axis = 0; axis < 3; ++axis) {
        const VxFloatProperty *property = translation(node, axis);
        const VxDopeSheetItem *item = model->getItem(translationOf(node, axis));
        QCOMPARE(item->property(), property);
        QCOMPARE(item->keyCount(), property->getNumKeys());
        for (int key = 0; key < item->keyCount(); ++key) {
            QCOMPARE(item->keyTime(key), property->getKeyTime(key));
            all.insert(property->getKeyTime(key));
        }
    }
    const VxDopeSheetItem *group = model->getItem(groupOf(node));
    QCOMPARE(group->keyCount(), int(all.size()));
    int key = 0;
    for (const VxTime time : all)
        QCOMPARE(group->keyTime(key++), time);
}

void TestDopeSheetAndParameters::randomEdits_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 3; ++seed)
        QTest::addRow("session %u", seed) << seed;
}

void TestDopeSheetAndParameters::randomEdits()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    for (int i = 0; i < 200; ++i) {
        edit(&random);
        for (VxNode *node : {hip, ball})
            compareRows(node);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("after edit %1").arg(i)));
    }
    VxUndoStack *stack = vxApp->getUndoStack();
    QVERIFY(stack->count() > 10);
    for (const int index : {0, stack->count()}) {
        stack->setIndex(index);
        compareRows(hip);
        compareRows(ball);
    }
    stack->setIndex(0);
    QVERIFY(!model->getItem(groupOf(hip))->hasKeys());
}

VX_TEST_MAIN(TestDopeSheetAndParameters)
#include "tst_dopesheetandparameters.moc"
