#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/dopesheetwalk.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtWidgets/QScrollBar>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

// What the view keeps while the text filter leaves rows out: a figure "arm 0" .. "arm 29" and one
// node "leg", each with rows for nine properties.
class TestTreeViewState : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void openRowsAreRestored();
    void closedByHandStaysClosed();
    void matchesAreVisible();
    void reopenedWhileFiltered();
    void openRowsOverSeveralTexts();
    void rowsDeletedWhileFiltered();
    void scrollPositionIsRestored();
    void matchesAreShown();
    void topRowStaysAtTheTop();
    void sceneSelectionStays();
    void selectedPropertiesAreRestored();
    void newSelectionCounts();
    void sceneSelectionMadeMeanwhile();
    void currentRowIsRestored();
    void graphReceivesTheShownRows();

private:
    void filter(const char *text)
    {
        view->applyFilterText(QString::fromLatin1(text));
        QCoreApplication::processEvents();
    }
    QModelIndex rowOf(VxNode *node) const { return view->findNodeIndex(node); }
    QModelIndex propertyRow(const VxNode *node, const VxProperty *property) const;
    bool isOpen(VxNode *node) const { return view->isExpanded(rowOf(node)); }
    const VxNode *topNode() const
    {
        const VxDopeSheetItem *item = view->getItem(view->indexAt(QPoint(0, 0)));
        return item ? item->node() : nullptr;
    }
    QStringList openRows() const;

    VxDopeSheetView *view = nullptr;
    QVector<VxNode *> arms;
    VxNode *leg = nullptr;
};

void TestTreeViewState::init()
{
    setUp();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4});
    for (const auto &action : actions)
        action->setChecked(true);
    arms.clear();
    for (int i = 0; i < 30; ++i) {
        arms.append(new VxNode(QStringLiteral("arm %1").arg(i)));
        vxScene->addNode(arms.last());
    }
    leg = new VxNode(QStringLiteral("leg"));
    vxScene->addNode(leg);
    showPane(1200, 400);
    view = pane->getDopeSheetView();
    QCoreApplication::processEvents();
}

QModelIndex TestTreeViewState::propertyRow(const VxNode *node, const VxProperty *property) const
{
    QModelIndex found;
    const auto visit = [&](const QModelIndex &row) {
        if (view->getItem(row)->property() == property)
            found = row;
    };
    DopeSheetWalk::all(view->model(), visit, view->findNodeIndex(const_cast<VxNode *>(node)));
    return found;
}

QStringList TestTreeViewState::openRows() const
{
    QStringList names;
    DopeSheetWalk::all(view->model(), [&](const QModelIndex &row) {
        if (view->isExpanded(row) && view->model()->hasChildren(row))
            names += view->getItem(row)->path();
    });
    return names;
}

void TestTreeViewState::openRowsAreRestored()
{
    view->expandRecursively(rowOf(arms[3]));
    view->expand(rowOf(arms[7]));
    const QStringList before = openRows();
    QVERIFY(before.size() > 4);
    filter("leg");
    QCOMPARE(openRows(), QStringList());
    filter("");
    QCOMPARE(openRows(), before);
    // Below a match only what matches stays, and so nothing to be opened.
    filter("arm 3");
    QVERIFY(rowOf(arms[3]).isValid());
    QVERIFY(!rowOf(arms[7]).isValid());
    filter("");
    QCOMPARE(openRows(), before);
}

void TestTreeViewState::closedByHandStaysClosed()
{
    view->expandRecursively(rowOf(arms[3]));
    view->expandRecursively(rowOf(arms[4]));
    filter("X Rot");
    QVERIFY(isOpen(arms[3]));
    view->collapse(rowOf(arms[3]));
    filter("");
    QVERIFY(!isOpen(arms[3]));
    QVERIFY(isOpen(arms[4]));
    QVERIFY(!isOpen(leg));
}

void TestTreeViewState::matchesAreVisible()
{
    view->expand(rowOf(arms[7]));
    const QStringList before = openRows();
    filter("X Rot");
    for (VxNode *node : {arms[0], arms[7], leg}) {
        const QModelIndex row = propertyRow(node, node->getXRotControl());
        QVERIFY(row.isValid());
        for (QModelIndex above = row.parent(); above.isValid(); above = above.parent())
            QVERIFY(view->isExpanded(above));
    }
    // Another text closes what is not on the way to its own matches.
    filter("arm 7");
    QCOMPARE(openRows(), QStringList());
    filter("Y Rot");
    filter("");
    QCOMPARE(openRows(), before);
}

// What the user closes and opens again while a text is set is the user's.
void TestTreeViewState::reopenedWhileFiltered()
{
    filter("X Rot");
    view->collapse(rowOf(leg));
    view->expand(rowOf(leg));
    filter("");
    QCOMPARE(openRows(), QStringList{QStringLiteral("/leg")});
}

void TestTreeViewState::openRowsOverSeveralTexts()
{
    view->expandRecursively(rowOf(arms[3]));
    const QStringList before = openRows();
    for (const char *text : {"l", "le", "leg", "nothing", "X Rot", "arm", ""})
        filter(text);
    QCOMPARE(openRows(), before);
}

void TestTreeViewState::rowsDeletedWhileFiltered()
{
    view->expandAll();
    arms[0]->select(true);
    filter("leg");
    delete arms[0];
    delete arms[5];
    filter("");
    QVERIFY(!rowOf(arms[1]).isValid() || isOpen(arms[1]));
    QVERIFY(isOpen(leg));
    QVERIFY(vxScene->getSelectedNodes().isEmpty());
}

void TestTreeViewState::scrollPositionIsRestored()
{
    view->scrollTo(rowOf(arms[12]), QAbstractItemView::PositionAtTop);
    QCOMPARE(topNode(), arms[12]);
    const int value = view->verticalScrollBar()->value();
    QVERIFY(value > 0);
    filter("l");
    filter("leg");
    QCOMPARE(topNode(), leg);
    filter("");
    QCOMPARE(topNode(), arms[12]);
    QCOMPARE(view->verticalScrollBar()->value(), value);
}

void TestTreeViewState::matchesAreShown()
{
    filter("arm 28");
    VxMouseDriver(view->viewport()).click(view->visualRect(rowOf(arms[28])).center());
    QVERIFY(arms[28]->isSelected());
    filter("");
    const QRect row = view->visualRect(rowOf(arms[28]));
    QVERIFY(view->viewport()->rect().contains(row.center()));
    QVERIFY(arms[28]->isSelected());
}

void TestTreeViewState::topRowStaysAtTheTop()
{
    filter("arm");
    view->scrollTo(rowOf(arms[15]), QAbstractItemView::PositionAtTop);
    filter("ar");
    QCOMPARE(topNode(), arms[15]);
}

void TestTreeViewState::sceneSelectionStays()
{
    VxMouseDriver mouse(view->viewport());
    mouse.click(view->visualRect(rowOf(arms[2])).center());
    mouse.click(view->visualRect(rowOf(arms[4])).center(), Qt::LeftButton, Qt::ControlModifier);
    const QVector<VxNode *> selected{arms[2], arms[4]};
    QCOMPARE(vxScene->getSelectedNodes(), selected);
    for (const char *text : {"leg", "arm 4", "nothing", "arm 2", ""}) {
        filter(text);
        QCOMPARE(vxScene->getSelectedNodes(), selected);
        QCOMPARE(view->isRowSelected(rowOf(arms[2])), rowOf(arms[2]).isValid());
        QCOMPARE(view->isRowSelected(rowOf(arms[4])), rowOf(arms[4]).isValid());
        QVERIFY(!view->isRowSelected(rowOf(leg)));
    }
}

void TestTreeViewState::selectedPropertiesAreRestored()
{
    const VxProperty *turn = arms[1]->getXRotControl();
    view->expandRecursively(rowOf(arms[1]));
    view->selectionModel()->select(propertyRow(arms[1], turn),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    filter("leg");
    QCOMPARE(view->getSelectedProperties().size(), 0);
    filter("X Rot");
    QVERIFY(view->isRowSelected(propertyRow(arms[1], turn)));
    filter("");
    QVERIFY(view->isRowSelected(propertyRow(arms[1], turn)));
    QCOMPARE(view->getSelectedProperties().size(), 1);
}

// A new selection replaces that of rows that are left out.
void TestTreeViewState::newSelectionCounts()
{
    VxMouseDriver mouse(view->viewport());
    mouse.click(view->visualRect(rowOf(arms[2])).center());
    filter("leg");
    mouse.click(view->visualRect(rowOf(leg)).center());
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{leg});
    filter("");
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{leg});
    QVERIFY(!view->isRowSelected(rowOf(arms[2])));
    QVERIFY(view->isRowSelected(rowOf(leg)));
    // As many rows as before, but another one.
    filter("arm");
    mouse.click(view->visualRect(rowOf(arms[4])).center());
    filter("arm 4");
    mouse.click(view->visualRect(rowOf(arms[4])).center());
    filter("arm");
    mouse.click(view->visualRect(rowOf(arms[5])).center());
    filter("");
    QVERIFY(!view->isRowSelected(rowOf(arms[4])));
    QVERIFY(view->isRowSelected(rowOf(arms[5])));
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{arms[5]});
}

void TestTreeViewState::sceneSelectionMadeMeanwhile()
{
    filter("leg");
    arms[20]->select(true);
    QCoreApplication::processEvents();
    filter("");
    QVERIFY(view->isRowSelected(rowOf(arms[20])));
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{arms[20]});
}

void TestTreeViewState::currentRowIsRestored()
{
    VxMouseDriver(view->viewport()).click(view->visualRect(rowOf(arms[2])).center());
    QCOMPARE(view->currentIndex(), rowOf(arms[2]));
    filter("arm");
    QCOMPARE(view->currentIndex(), rowOf(arms[2]));
    filter("arm 2");
    QCOMPARE(view->currentIndex(), rowOf(arms[2]));
    filter("leg");
    QVERIFY(!rowOf(arms[2]).isValid());
    filter("");
    QCOMPARE(view->currentIndex(), rowOf(arms[2]));
}

void TestTreeViewState::graphReceivesTheShownRows()
{
    const VxProperty *turn = arms[1]->getXRotControl();
    view->expandRecursively(rowOf(arms[1]));
    view->selectionModel()->select(propertyRow(arms[1], turn),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    QSignalSpy reported(view, &VxDopeSheetView::propertyHitListChanged);
    filter("leg");
    QCOMPARE(reported.count(), 1);
    QCOMPARE(reported.at(0).at(0).value<QVector<VxProperty *>>().size(), 0);
    filter("le");
    QCOMPARE(reported.count(), 1);
    filter("");
    QCOMPARE(reported.count(), 2);
    QCOMPARE(reported.at(1).at(0).value<QVector<VxProperty *>>().size(), 1);
}

VX_TEST_MAIN(TestTreeViewState)
#include "tst_treeviewstate.moc"
