#include "dopesheettestbase.h"
#include "testing/vxtestmain.h"

#include "testing/vxmousedriver.h"
#include "vxtimeline/dopesheet/dopesheetwalk.h"

// How the rows of the dope sheet view and the scene's selection go together.
class TestDopeSheetViewRows : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void clickSelectsTheNode();
    void ctrlClickAddsANode();
    void shiftClickTakesARange();
    void severalRowsByProgram();
    void propertyRowsAreTold();
    void sceneSelectionShows();
    void everyRowAtOnce();
};

void TestDopeSheetViewRows::clickSelectsTheNode()
{
    showView();
    view->expand(rowOf(hip));
    VxMouseDriver mouse(view->viewport());
    QSignalSpy told(view.get(), &VxDopeSheetView::itemSelectionChanged);
    mouse.click(view->visualRect(rowOf(leg)).center());
    QVERIFY(leg->isSelected());
    QCOMPARE(told.count(), 1);
    mouse.click(view->visualRect(rowOf(ball)).center());
    QVERIFY(!leg->isSelected());
    QVERIFY(ball->isSelected());
    QCOMPARE(view->selectionModel()->selectedRows(), QModelIndexList{rowOf(ball)});
}

void TestDopeSheetViewRows::ctrlClickAddsANode()
{
    showView();
    VxMouseDriver mouse(view->viewport());
    mouse.click(view->visualRect(rowOf(hip)).center());
    mouse.click(view->visualRect(rowOf(ball)).center(), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(vxScene->getSelectedNodes(), (QVector<VxNode *>{hip, ball}));
    QCOMPARE(view->selectionModel()->selectedRows().size(), 2);
}

void TestDopeSheetViewRows::shiftClickTakesARange()
{
    showView();
    view->expand(rowOf(hip));
    VxMouseDriver mouse(view->viewport());
    mouse.click(view->visualRect(rowOf(leg)).center());
    mouse.click(view->visualRect(rowOf(ball)).center(), Qt::LeftButton, Qt::ShiftModifier);
    QVERIFY(leg->isSelected());
    QVERIFY(arm->isSelected());
    QVERIFY(ball->isSelected());
    QVERIFY(!hip->isSelected());
    QCOMPARE(view->selectionModel()->selectedRows().size(), 3);
}

// Without a press each row takes the place of the ones before it; the rows stay.
void TestDopeSheetViewRows::severalRowsByProgram()
{
    hip->select(true);
    QItemSelection rows;
    rows.select(rowOf(leg), rowOf(arm));
    bool changing = false;
    connect(vxScene, &VxScene::nodeSelectionListChanged, view.get(),
            [&] { changing = view->isChangingSelection(); });
    view->selectionModel()->select(rows, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QVERIFY(changing);
    QVERIFY(!view->isChangingSelection());
    QCOMPARE(vxScene->getSelectedNodes(), (QVector<VxNode *>{arm}));
    QCOMPARE(view->selectionModel()->selectedRows().size(), 2);
}

void TestDopeSheetViewRows::propertyRowsAreTold()
{
    QSignalSpy told(view.get(), &VxDopeSheetView::propertyHitListChanged);
    int rowsTold = 0;
    connect(view.get(), &VxDopeSheetView::itemSelectionChanged, view.get(), [&] {
        ++rowsTold;
        QCOMPARE(told.count(), 0);
    });
    hip->select(true);
    view->selectionModel()->select(translationOf(leg, 1),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QCOMPARE(told.count(), 1);
    QCOMPARE(rowsTold, 1);
    QCOMPARE(told.at(0).at(0).value<QVector<VxProperty *>>(),
             (QVector<VxProperty *>{leg->getYPosControl()}));
    QCOMPARE(told.at(0).at(1).toBool(), false);
    // What the scene has selected shows beside it.
    QVERIFY(view->selectionModel()->isSelected(rowOf(hip)));
}

void TestDopeSheetViewRows::sceneSelectionShows()
{
    hip->select(true);
    arm->select(true);
    view->selectSceneSelection();
    QVERIFY(view->selectionModel()->isSelected(rowOf(hip)));
    QVERIFY(view->selectionModel()->isSelected(rowOf(arm)));
    QCOMPARE(view->selectionModel()->selectedRows().size(), 2);
    QVERIFY(hip->isSelected());
}

void TestDopeSheetViewRows::everyRowAtOnce()
{
    view->expandAll();
    QSignalSpy hit(view.get(), &VxDopeSheetView::propertyHitListChanged);
    QSignalSpy told(view.get(), &VxDopeSheetView::itemSelectionChanged);
    view->selectAll();
    int rows = 0;
    DopeSheetWalk::all(model.get(), [&](const QModelIndex &row) {
        ++rows;
        QVERIFY(view->isRowSelected(row));
        QVERIFY(view->selectionModel()->isSelected(row));
        QVERIFY(view->selectionModel()->isSelected(row.sibling(row.row(), 1)));
    });
    QCOMPARE(rows, 4 * 6);
    QCOMPARE(told.count(), 1);
    QCOMPARE(hit.count(), 1);
    QCOMPARE(hit.at(0).at(0).value<QVector<VxProperty *>>().size(), 4 * 3);
    // Without a press that says otherwise the last node takes the place of those before it.
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{ball});
    view->clearSelection();
    QVERIFY(!view->isRowSelected(rowOf(leg)));
    QVERIFY(view->isRowSelected(rowOf(ball))); // as the scene says
}

VX_TEST_MAIN(TestDopeSheetViewRows)
#include "tst_dopesheetviewrows.moc"
