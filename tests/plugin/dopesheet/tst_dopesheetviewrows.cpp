#include "dopesheettestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/rows/dopesheetwalk.h"

#include <random>

// The rows of the dope sheet view and the scene's selection.
class TestDopeSheetViewRows : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void clickSelectsTheNode();
    void ctrlClickAddsANode();
    void shiftClickSelectsARange();
    void severalRowsByProgram();
    void propertyRowsAreReported();
    void rangeByKeyboard();
    void clickOnASelectedRow();
    void ctrlClickDeselectsARow();
    void ctrlClickAmongKeysAdds();
    void clickIntoTheEmptyPart();
    void oneReportForManyRows();
    void rowsOfUnselectableNodes();
    void openingByKeyboard();
    void rowsAndNodesAgree();
    void sceneSelectionShows();
    void everyRowAtOnce();

private:
    // The names of the scene's selected nodes, sorted.
    static QStringList selectedNodes()
    {
        QStringList names;
        for (const VxNode *node : vxScene->getSelectedNodes())
            names += node->getName();
        names.sort();
        return names;
    }
};

void TestDopeSheetViewRows::clickSelectsTheNode()
{
    showView();
    view->expand(rowOf(hip));
    VxMouseDriver mouse(view->viewport());
    QSignalSpy reported(view.get(), &VxDopeSheetView::itemSelectionChanged);
    mouse.click(view->visualRect(rowOf(leg)).center());
    QVERIFY(leg->isSelected());
    QCOMPARE(reported.count(), 1);
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

void TestDopeSheetViewRows::shiftClickSelectsARange()
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

// The nodes of all selected rows are selected, the last row's as the primary one.
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
    QCOMPARE(selectedNodes(), (QStringList{"arm", "leg"}));
    QCOMPARE(vxScene->getPrimarySelection(), arm);
    QCOMPARE(view->selectionModel()->selectedRows().size(), 2);
}

void TestDopeSheetViewRows::propertyRowsAreReported()
{
    QSignalSpy hits(view.get(), &VxDopeSheetView::propertyHitListChanged);
    int reports = 0;
    connect(view.get(), &VxDopeSheetView::itemSelectionChanged, view.get(), [&] {
        ++reports;
        QCOMPARE(hits.count(), 0);
    });
    hip->select(true);
    view->selectionModel()->select(translationOf(leg, 1),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QCOMPARE(hits.count(), 1);
    QCOMPARE(reports, 1);
    QCOMPARE(hits.at(0).at(0).value<QVector<VxProperty *>>(),
             (QVector<VxProperty *>{leg->getYPosControl()}));
    QCOMPARE(hits.at(0).at(1).toBool(), false);
    // The row counts for its node, and the node's row is selected as well.
    QCOMPARE(selectedNodes(), QStringList{"leg"});
    QVERIFY(view->selectionModel()->isSelected(rowOf(leg)));
    QVERIFY(!view->selectionModel()->isSelected(rowOf(hip)));
}

void TestDopeSheetViewRows::rangeByKeyboard()
{
    showView();
    view->expand(rowOf(hip));
    VxMouseDriver(view->viewport()).click(view->visualRect(rowOf(leg)).center());
    view->setFocus();
    QTest::keyClick(view.get(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view.get(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(selectedNodes(), (QStringList{"arm", "ball", "leg"}));
    QCOMPARE(vxScene->getPrimarySelection(), ball);
    QTest::keyClick(view.get(), Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(selectedNodes(), (QStringList{"arm", "leg"}));
    QCOMPARE(vxScene->getPrimarySelection(), arm);
    QTest::keyClick(view.get(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(selectedNodes(), (QStringList{"arm", "ball", "hip", "leg"}));
}

// A node that was deselected without a change of the rows is selected by a click on its row.
void TestDopeSheetViewRows::clickOnASelectedRow()
{
    showView();
    VxMouseDriver mouse(view->viewport());
    mouse.click(view->visualRect(rowOf(ball)).center());
    ball->select(false);
    QVERIFY(view->isRowSelected(rowOf(ball)));
    mouse.click(view->visualRect(rowOf(ball)).center());
    QCOMPARE(selectedNodes(), QStringList{"ball"});
}

void TestDopeSheetViewRows::ctrlClickDeselectsARow()
{
    showView();
    view->expandAll();
    VxMouseDriver mouse(view->viewport());
    mouse.click(view->visualRect(rowOf(hip)).center());
    mouse.click(view->visualRect(translationOf(leg, 0)).center(), Qt::LeftButton,
                Qt::ControlModifier);
    QCOMPARE(selectedNodes(), (QStringList{"hip", "leg"}));
    mouse.click(view->visualRect(rowOf(hip)).center(), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selectedNodes(), QStringList{"leg"});
    QVERIFY(!view->isRowSelected(rowOf(hip)));
    // The rows of its properties are removed with a node's row.
    mouse.click(view->visualRect(rowOf(leg)).center(), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selectedNodes(), QStringList());
    QVERIFY(!view->selectionModel()->hasSelection());
}

void TestDopeSheetViewRows::ctrlClickAmongKeysAdds()
{
    showView();
    VxMouseDriver mouse(view->viewport());
    const auto inKeys = [this](VxNode *node) {
        return QPoint(600, view->visualRect(rowOf(node)).center().y());
    };
    mouse.click(inKeys(hip));
    mouse.click(inKeys(ball), Qt::LeftButton, Qt::ControlModifier);
    mouse.click(inKeys(ball), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selectedNodes(), (QStringList{"ball", "hip"}));
}

void TestDopeSheetViewRows::clickIntoTheEmptyPart()
{
    showView();
    VxMouseDriver mouse(view->viewport());
    mouse.click(view->visualRect(rowOf(ball)).center());
    mouse.click(QPoint(50, view->viewport()->height() - 10));
    QCOMPARE(selectedNodes(), QStringList());
    QVERIFY(!view->selectionModel()->hasSelection());
}

// One clear and one selection, however many rows.
void TestDopeSheetViewRows::oneReportForManyRows()
{
    ball->select(true);
    QSignalSpy lists(vxScene, &VxScene::nodeSelectionListChanged);
    view->expandAll();
    view->selectAll();
    QCOMPARE(lists.count(), 2);
    QCOMPARE(vxScene->getSelectedNodes().size(), 4);
}

void TestDopeSheetViewRows::rowsOfUnselectableNodes()
{
    arm->setSelectable(false);
    view->expandAll();
    view->selectAll();
    QCOMPARE(selectedNodes(), (QStringList{"ball", "hip", "leg"}));
    QVERIFY(!view->isRowSelected(rowOf(arm)));
    QVERIFY(view->isRowSelected(translationOf(arm, 0))); // to be shown in the key graph
}

void TestDopeSheetViewRows::openingByKeyboard()
{
    showView();
    view->setFocus();
    view->setCurrentIndex(rowOf(hip));
    const auto openRows = [this] {
        int open = 0;
        DopeSheetWalk::all(model.get(),
                           [&](const QModelIndex &row) { open += view->isExpanded(row) ? 1 : 0; });
        return open;
    };
    QTest::keyClick(view.get(), Qt::Key_Right, Qt::AltModifier);
    QVERIFY(view->isExpanded(rowOf(hip)));
    QCOMPARE(openRows(), 1);
    QTest::keyClick(view.get(), Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(openRows(), 9); // three nodes, each with two rows of groups
    QTest::keyClick(view.get(), Qt::Key_Left, Qt::AltModifier);
    QVERIFY(!view->isExpanded(rowOf(hip)));
    QCOMPARE(openRows(), 8);
    QTest::keyClick(view.get(), Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(openRows(), 0);
}

// Random ways of selecting rows and nodes: afterwards both agree.
void TestDopeSheetViewRows::rowsAndNodesAgree()
{
    showView(900, 700);
    view->expandAll();
    VxMouseDriver mouse(view->viewport());
    std::mt19937 random(7);
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    const Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier, Qt::ShiftModifier,
                                               Qt::ControlModifier};
    const Qt::Key keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_A};
    const QVector<VxNode *> nodes{hip, leg, arm, ball};
    for (int step = 0; step < 300; ++step) {
        const Qt::KeyboardModifiers held = modifiers[below(3)];
        switch (below(4)) {
        case 0:
            QTest::keyClick(view.get(), keys[below(5)], held);
            break;
        case 1:
            nodes.at(below(4))->select(below(2) == 0);
            view->showSceneSelection();
            break;
        default:
            mouse.click(QPoint(below(190), below(600)), Qt::LeftButton, held);
        }
        QSet<VxNode *> ofRows;
        DopeSheetWalk::all(model.get(), [&](const QModelIndex &row) {
            const VxDopeSheetItem *item = model->getItem(row);
            while (view->isRowSelected(row) && !item->node())
                item = item->parentItem();
            if (view->isRowSelected(row))
                ofRows.insert(item->node());
        });
        const QVector<VxNode *> selected = vxScene->getSelectedNodes();
        QCOMPARE(ofRows, QSet<VxNode *>(selected.cbegin(), selected.cend()));
        for (VxNode *node : selected)
            QVERIFY(view->isRowSelected(rowOf(node)));
    }
}

void TestDopeSheetViewRows::sceneSelectionShows()
{
    hip->select(true);
    arm->select(true);
    view->showSceneSelection();
    QVERIFY(view->selectionModel()->isSelected(rowOf(hip)));
    QVERIFY(view->selectionModel()->isSelected(rowOf(arm)));
    QCOMPARE(view->selectionModel()->selectedRows().size(), 2);
    QVERIFY(hip->isSelected());
}

void TestDopeSheetViewRows::everyRowAtOnce()
{
    view->expandAll();
    QSignalSpy hit(view.get(), &VxDopeSheetView::propertyHitListChanged);
    QSignalSpy reported(view.get(), &VxDopeSheetView::itemSelectionChanged);
    view->selectAll();
    int rows = 0;
    DopeSheetWalk::all(model.get(), [&](const QModelIndex &row) {
        ++rows;
        QVERIFY(view->isRowSelected(row));
        QVERIFY(view->selectionModel()->isSelected(row));
        QVERIFY(view->selectionModel()->isSelected(row.sibling(row.row(), 1)));
    });
    QCOMPARE(rows, 4 * 6);
    QCOMPARE(reported.count(), 1);
    QCOMPARE(hit.count(), 1);
    QCOMPARE(hit.at(0).at(0).value<QVector<VxProperty *>>().size(), 4 * 3);
    QCOMPARE(selectedNodes(), (QStringList{"arm", "ball", "hip", "leg"}));
    view->clearSelection();
    QVERIFY(!view->isRowSelected(rowOf(leg)));
    QCOMPARE(selectedNodes(), QStringList());
}

VX_TEST_MAIN(TestDopeSheetViewRows)
#include "tst_dopesheetviewrows.moc"
