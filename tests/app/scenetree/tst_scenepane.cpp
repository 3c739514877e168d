#include "scenetree/scenetreemodel.h"
#include "scenetree/scenetreeview.h"
#include "scenetree/vxscenepane.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "widgets/emptyhint.h"
#include "widgets/searchfield.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTreeView>
#include <QtTest>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

/// The pane over a scene with "figure" > "hip" > "left", "right" and a node "light".
class tst_ScenePane : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<VxNode *>("VxNode*"); }
    void init();
    void cleanup();

    void showsTheTreeWithIcons();
    void nodesAreAddedAndRemoved();
    void undoRestoresNodesAtTheirIndex();
    void nodesMove();
    void labelsFollow();
    void aLoadIsShownAtItsEnd();
    void clickSelectsInTheScene();
    void ctrlClickAddsAndRemoves();
    void shiftClickSelectsARun();
    void theSceneSelectsInTheView();
    void thePrimaryBecomesCurrentAndVisible();
    void nothingIsSentBack();
    void unselectableNodesDoNotLookSelected();
    void removingTheSelectedNode();
    void emptyTreeExplainsItself();
    void manyNodesAreQuick();

private:
    QModelIndex index(const VxNode *node) const { return m_pane->getModel()->indexOf(node); }
    bool isSelected(const VxNode *node) const;
    void click(const VxNode *node, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static VxNode *add(const char *name, VxNode *parent = nullptr);

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxApp> m_app;
    QScopedPointer<VxScenePane> m_pane;
    QScopedPointer<QAbstractItemModelTester> m_tester;
    VxNode *m_figure = nullptr;
    VxNode *m_hip = nullptr;
    VxNode *m_left = nullptr;
    VxNode *m_right = nullptr;
    VxNode *m_light = nullptr;
};

VxNode *tst_ScenePane::add(const char *name, VxNode *parent)
{
    auto *node = new VxBone(QString::fromLatin1(name));
    vxScene->addNode(node, parent);
    return node;
}

void tst_ScenePane::init()
{
    m_guard.reset(new VxWarningGuard);
    m_app.reset(new VxApp);
    m_figure = new VxSkeleton(QStringLiteral("figure"));
    vxScene->addNode(m_figure);
    m_hip = add("hip", m_figure);
    m_left = add("left", m_hip);
    m_right = add("right", m_hip);
    m_light = add("light");
    m_pane.reset(new VxScenePane);
    m_tester.reset(new QAbstractItemModelTester(
        m_pane->getModel(), QAbstractItemModelTester::FailureReportingMode::QtTest));
    m_pane->resize(240, 400);
    m_pane->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pane.data()));
}

void tst_ScenePane::cleanup()
{
    m_tester.reset();
    m_pane.reset();
    m_app.reset();
    m_guard.reset();
}

bool tst_ScenePane::isSelected(const VxNode *node) const
{
    return m_pane->getTreeView()->selectionModel()->isSelected(index(node));
}

void tst_ScenePane::click(const VxNode *node, Qt::KeyboardModifiers modifiers)
{
    QTreeView *view = m_pane->getTreeView();
    const QRect row = view->visualRect(index(node));
    QVERIFY2(row.isValid(), qPrintable(node->getName()));
    VxMouseDriver(view->viewport()).click(row.center(), Qt::LeftButton, modifiers);
}

void tst_ScenePane::showsTheTreeWithIcons()
{
    const SceneTreeModel *model = m_pane->getModel();
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->index(0, 0).data().toString(), QString("figure"));
    QCOMPARE(model->index(1, 0).data().toString(), QString("light"));
    QCOMPARE(index(m_right).row(), 1);
    QCOMPARE(index(m_right).parent(), index(m_hip));
    QCOMPARE(model->nodeAt(index(m_right)), m_right);
    for (const VxNode *node : {m_figure, m_hip, m_light})
        QVERIFY(!index(node).data(Qt::DecorationRole).value<QIcon>().isNull());
    QVERIFY(!model->indexOf(nullptr).isValid());
    QVERIFY(!model->nodeAt(QModelIndex()));
    QVERIFY(m_pane->getTreeView()->isExpanded(index(m_hip)));
}

void tst_ScenePane::nodesAreAddedAndRemoved()
{
    const VxNode *toe = add("toe", m_left);
    QCOMPARE(index(toe).parent(), index(m_left));
    QVERIFY(vxScene->removeNode(m_left));
    QCOMPARE(m_pane->getModel()->rowCount(index(m_hip)), 1);
    QCOMPARE(index(m_right).row(), 0);
    vxScene->clear();
    QCOMPARE(m_pane->getModel()->rowCount(), 0);
}

void tst_ScenePane::undoRestoresNodesAtTheirIndex()
{
    {
        VxUndoStackHold hold;
        vxScene->removeNode(m_left);
        hold.accept(QStringLiteral("Remove"));
    }
    QCOMPARE(m_pane->getModel()->rowCount(index(m_hip)), 1);
    m_app->getUndoStack()->undo();
    QCOMPARE(index(m_left).row(), 0);
    QCOMPARE(index(m_right).row(), 1);
    m_app->getUndoStack()->redo();
    QCOMPARE(index(m_right).row(), 0);
}

void tst_ScenePane::nodesMove()
{
    m_left->select();
    QTRY_VERIFY(isSelected(m_left));
    QVERIFY(m_left->setNodeParent(m_figure, 0));
    QCOMPARE(index(m_left).parent(), index(m_figure));
    QCOMPARE(index(m_left).row(), 0);
    QCOMPARE(index(m_hip).row(), 1);
    QVERIFY(isSelected(m_left)); // a move is not a removal
    QVERIFY(m_left->setNodeParent(nullptr));
    QCOMPARE(index(m_left).row(), 2);
    QVERIFY(!index(m_left).parent().isValid());
}

void tst_ScenePane::labelsFollow()
{
    const QSignalSpy changed(m_pane->getModel(), &QAbstractItemModel::dataChanged);
    m_right->setLabel(QStringLiteral("right leg"));
    QCOMPARE(index(m_right).data().toString(), QString("right leg"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), index(m_right));
}

void tst_ScenePane::aLoadIsShownAtItsEnd()
{
    const QSignalSpy reset(m_pane->getModel(), &QAbstractItemModel::modelReset);
    vxScene->beginLoad();
    vxScene->clear();
    const VxNode *root = add("root");
    VxNode *child = add("child", vxScene->findNode(QStringLiteral("root")));
    QVERIFY(!index(root).isValid());
    vxScene->endLoad();
    QCOMPARE(reset.count(), 2); // emptied, then filled
    QCOMPARE(index(child).parent(), index(root));
    QVERIFY(m_pane->getTreeView()->isExpanded(index(root)));
}

void tst_ScenePane::clickSelectsInTheScene()
{
    click(m_left);
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({m_left}));
    QCOMPARE(vxScene->getPrimarySelection(), m_left);
    click(m_light);
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({m_light}));
    QCOMPARE(vxScene->getPrimarySelection(), m_light);
}

void tst_ScenePane::ctrlClickAddsAndRemoves()
{
    click(m_left);
    click(m_light, Qt::ControlModifier);
    QCOMPARE(vxScene->getNumSelectedNodes(), 2);
    QCOMPARE(vxScene->getPrimarySelection(), m_light);
    click(m_light, Qt::ControlModifier);
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({m_left}));
    QCOMPARE(vxScene->getPrimarySelection(), m_left);
    QTest::qWait(0); // the answer of the scene changes nothing
    QVERIFY(isSelected(m_left) && !isSelected(m_light));
}

void tst_ScenePane::shiftClickSelectsARun()
{
    click(m_hip);
    click(m_right, Qt::ShiftModifier);
    QCOMPARE(vxScene->getNumSelectedNodes(), 3);
    QCOMPARE(vxScene->getPrimarySelection(), m_right);
}

void tst_ScenePane::theSceneSelectsInTheView()
{
    m_left->select();
    m_light->select();
    QTRY_VERIFY(isSelected(m_left) && isSelected(m_light));
    QCOMPARE(m_pane->getTreeView()->selectionModel()->selectedRows().size(), 2);
    vxScene->selectAllNodes(false);
    QTRY_VERIFY(!m_pane->getTreeView()->selectionModel()->hasSelection());
}

void tst_ScenePane::thePrimaryBecomesCurrentAndVisible()
{
    m_pane->getTreeView()->collapseAll();
    vxScene->setPrimarySelection(m_right);
    QTRY_COMPARE(m_pane->getTreeView()->currentIndex(), index(m_right));
    QVERIFY(m_pane->getTreeView()->isExpanded(index(m_hip)));
    QVERIFY(m_pane->getTreeView()->visualRect(index(m_right)).isValid());
}

void tst_ScenePane::nothingIsSentBack()
{
    QSignalSpy list(vxScene, &VxScene::nodeSelectionListChanged);
    QSignalSpy primary(vxScene, &VxScene::primarySelectionChanged);
    m_left->select();
    const int lists = list.count();
    const int primaries = primary.count();
    QTRY_VERIFY(isSelected(m_left));
    QCoreApplication::processEvents();
    QCOMPARE(list.count(), lists);
    QCOMPARE(primary.count(), primaries);
    // A click on the primary one of several leaves it alone.
    m_light->select();
    QTRY_VERIFY(isSelected(m_light));
    click(m_light);
    QCoreApplication::processEvents();
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({m_light}));
    QCOMPARE(primary.count(), primaries + 1); // when it was selected, not at the click
}

void tst_ScenePane::unselectableNodesDoNotLookSelected()
{
    m_light->setSelectable(false);
    click(m_light);
    QVERIFY(vxScene->getSelectedNodes().isEmpty());
    QTRY_VERIFY(!isSelected(m_light));
}

void tst_ScenePane::removingTheSelectedNode()
{
    click(m_right);
    vxScene->removeNode(m_right);
    QCoreApplication::processEvents();
    QVERIFY(vxScene->getSelectedNodes().isEmpty());
    QVERIFY(!m_pane->getTreeView()->selectionModel()->hasSelection());
    QVERIFY(!vxScene->getPrimarySelection());
}

/// A tree without rows shows the reason.
void tst_ScenePane::emptyTreeExplainsItself()
{
    const auto *hint = m_pane->findChild<EmptyHint *>();
    QVERIFY(hint && !hint->isVisible());
    m_pane->getSearchField()->setText("nobody");
    QVERIFY(hint->isVisible());
    QCOMPARE(hint->text(), QString("No node name contains the search text."));
    QCOMPARE(hint->width(), m_pane->getTreeView()->viewport()->width());
    m_pane->resize(320, 400);
    QTRY_COMPARE(hint->width(), m_pane->getTreeView()->viewport()->width());
    m_pane->getSearchField()->setText("hip");
    QVERIFY(!hint->isVisible());
    m_pane->getSearchField()->clear();
    vxScene->removeNode(m_figure);
    QVERIFY(!hint->isVisible());
    vxScene->removeNode(m_light);
    QVERIFY(hint->isVisible());
    QCOMPARE(hint->text(), QString("The scene has no nodes."));
    add("again");
    QVERIFY(!hint->isVisible());
}

void tst_ScenePane::manyNodesAreQuick()
{
    // Against the scene's own cost in the same run; the row checks of the tester would count.
    m_tester.reset();
    const auto build = [] {
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 10; ++i) {
            VxNode *root = new VxSkeleton(QStringLiteral("figure %1").arg(i));
            vxScene->addNode(root);
            for (int j = 0; j < 169; ++j)
                vxScene->addNode(new VxBone(QStringLiteral("bone %1").arg(j)), root);
        }
        return double(timer.nsecsElapsed());
    };
    const auto selectOneByOne = [] {
        QElapsedTimer timer;
        timer.start();
        for (VxNode *node : vxScene->getNodes())
            node->select();
        QCoreApplication::processEvents();
        return double(timer.nsecsElapsed());
    };
    const double withPane = build();
    const double selectWithPane = selectOneByOne();
    QCOMPARE(m_pane->getTreeView()->selectionModel()->selectedRows().size(), 1705);
    m_pane.reset();
    vxScene->clear();
    const double alone = build();
    const double selectAlone = selectOneByOne();
    qInfo("1,700 nodes: %.1f ms with the pane, %.1f ms without; selecting each %.1f and %.1f ms",
          withPane / 1e6, alone / 1e6, selectWithPane / 1e6, selectAlone / 1e6);
    QVERIFY(withPane < 10 * alone + 100e6);
    QVERIFY(selectWithPane < 10 * selectAlone + 100e6);
}

VX_TEST_MAIN(tst_ScenePane)
#include "tst_scenepane.moc"
