#include "testing/vxmousedriver.h"
#include "testing/vxpaintwatch.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/timepaneevents.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtCore/QItemSelectionModel>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxskeleton.h>

namespace {

// Counts the custom events that reach an object.
class EventCounter : public QObject
{
public:
    explicit EventCounter(QObject *watched) { watched->installEventFilter(this); }

    int selectionChanges = 0;
    int ensureVisibles = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == VxTimelineScenePrimarySelectionChangeEvent::eventType())
            ++selectionChanges;
        if (event->type() == VxTimelineDopesheetEnsureItemVisibleEvent::eventType())
            ++ensureVisibles;
        return false;
    }
};

} // namespace

// The dope sheet's rows and their selection, as far as the pane decides on them.
class TestTimePaneRows : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void manySelectionsMakeOneEvent();
    void hiddenPanePostsNothing();
    void loadMakesOneEventAfterwards();
    void blocksNest();
    void closingApplicationPostsNothing();
    void closingApplicationScrollsNoMore();
    void keyScopeSelectsTheRowsAnew();
    void hidingDefersTheRest();
    void paneDestroyedBeforeItsEvents();
    void rowsFollowTheSelection();
    void rowsFollowWhenThePrimaryStays();
    void rowSelectionSelectsNodes();
    void rowsOfTheScene();
    void nodesAddedDuringALoad();
    void loadsNest();
    void clearingDuringALoad();
    void rowsMadeAnew();
    void rowsMadeAnewDuringALoad();
    void modelsReceiveTheKeyScope();
    void changedKeysAreShown();
    void clearingTheSceneEmptiesTheSheet();
    void helpersStayOut();
    void rootRowsMove();
    void textFilterShowsMatchesBelow();
};

void TestTimePaneRows::manySelectionsMakeOneEvent()
{
    showPane();
    auto *a = new VxNode(QStringLiteral("a"));
    auto *b = new VxNode(QStringLiteral("b"));
    vxScene->addNode(a);
    vxScene->addNode(b);
    QCoreApplication::processEvents();
    const EventCounter counter(pane.get());
    for (int i = 0; i < 10; ++i) {
        a->select(i % 2 == 0);
        b->select(i % 2 == 1);
    }
    QCOMPARE(counter.selectionChanges, 0);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
    QTRY_COMPARE(counter.ensureVisibles, 1);
}

void TestTimePaneRows::hiddenPanePostsNothing()
{
    const EventCounter counter(pane.get());
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    node->select(true);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 0);
    showPane();
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
    const VxDopeSheetView *view = pane->getDopeSheetView();
    QVERIFY(view->selectionModel()->isSelected(view->findNodeIndex(node)));

    pane->hide();
    node->select(false);
    node->select(true);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
    pane->show();
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 2);
}

void TestTimePaneRows::loadMakesOneEventAfterwards()
{
    showPane();
    QCoreApplication::processEvents();
    const EventCounter counter(pane.get());
    vxScene->beginLoad();
    for (int i = 0; i < 5; ++i) {
        auto *node = new VxNode(QStringLiteral("n%1").arg(i));
        vxScene->addNode(node);
        node->select(true);
        QCoreApplication::processEvents();
    }
    QCOMPARE(counter.selectionChanges, 0);
    vxScene->endLoad();
    QCOMPARE(counter.selectionChanges, 0);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
}

void TestTimePaneRows::closingApplicationPostsNothing()
{
    showPane();
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    QCoreApplication::processEvents();
    const EventCounter counter(pane.get());
    vxApp->beginClosing();
    node->select(true);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 0);
}

void TestTimePaneRows::closingApplicationScrollsNoMore()
{
    showPane();
    for (int i = 0; i < 60; ++i)
        vxScene->addNode(new VxNode(QStringLiteral("n%1").arg(i)));
    vxScene->getRootNodes().last()->select(true);
    const QScrollBar *bar = pane->getDopeSheetView()->verticalScrollBar();
    QTRY_VERIFY(bar->value() > 0);
    pane->getDopeSheetView()->scrollToTop();
    vxApp->beginClosing();
    QVERIFY(QMetaObject::invokeMethod(pane.get(), "ensurePrimarySceneNodeVisible"));
    QCOMPARE(bar->value(), 0);
}

// By the time the scope is set, not some turns of the event loop later.
void TestTimePaneRows::keyScopeSelectsTheRowsAnew()
{
    showPane();
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    node->select(true);
    QCoreApplication::processEvents();
    const EventCounter counter(pane.get());
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    QCOMPARE(counter.selectionChanges, 1);
    const VxDopeSheetView *view = pane->getDopeSheetView();
    QVERIFY(view->selectionModel()->isSelected(view->findNodeIndex(node)));
}

void TestTimePaneRows::blocksNest()
{
    showPane();
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    QCoreApplication::processEvents();
    const EventCounter counter(pane.get());
    const auto call = [this](const char *slot) {
        QVERIFY(QMetaObject::invokeMethod(pane.get(), slot));
        QCoreApplication::processEvents();
    };
    call("blockRefresh");
    call("blockRefresh");
    node->select(true);
    node->select(false);
    call("unblockRefresh");
    QCOMPARE(counter.selectionChanges, 0);
    call("unblockRefresh");
    QCOMPARE(counter.selectionChanges, 1);
    // Nothing has changed since.
    call("blockRefresh");
    call("unblockRefresh");
    QCOMPARE(counter.selectionChanges, 1);
}

// The event is on its way when the pane is hidden.
void TestTimePaneRows::hidingDefersTheRest()
{
    showPane();
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    QCoreApplication::processEvents();
    const EventCounter counter(pane.get());
    node->select(true);
    pane->hide();
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
    QCOMPARE(counter.ensureVisibles, 0);
    node->select(false);
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 1);
    const VxDopeSheetView *view = pane->getDopeSheetView();
    pane->show();
    QCoreApplication::processEvents();
    QCOMPARE(counter.selectionChanges, 2);
    QVERIFY(!view->selectionModel()->hasSelection());
}

// Another pane still exists, and the scene keeps changing.
void TestTimePaneRows::paneDestroyedBeforeItsEvents()
{
    VxTimePane other;
    other.resize(800, 300);
    other.show();
    showPane();
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    QCoreApplication::processEvents();
    vxScene->loopPlayback(true);
    vxScene->play();
    node->select(true);
    pane.reset();
    QCoreApplication::processEvents();
    vxScene->setTime(320);
    vxScene->setTimeStep(200);
    vxScene->pause();
    QCOMPARE(other.getCurrentFrame(), 1);
    QCOMPARE(other.getFramesPerSecond(), 24);
    QVERIFY(other.hasDopeSheetItemSelection());
    vxScene->removeNode(node);
    vxScene->clear();
    QVERIFY(!other.hasDopeSheetItemSelection());
}

void TestTimePaneRows::rowsFollowTheSelection()
{
    showPane();
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    auto *hip = new VxBone(QStringLiteral("hip"));
    auto *thigh = new VxBone(QStringLiteral("thigh"));
    hip->addNodeChild(thigh);
    figure->addNodeChild(hip);
    vxScene->addNode(figure);
    thigh->select(true);
    figure->select(true);
    QCoreApplication::processEvents();
    VxDopeSheetView *view = pane->getDopeSheetView();
    QCOMPARE(view->selectionModel()->selectedRows().size(), 2);

    figure->select(false);
    vxScene->setPrimarySelection(thigh);
    QCoreApplication::processEvents();
    const QModelIndexList rows = view->selectionModel()->selectedRows();
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first(), view->findNodeIndex(thigh));
    QVERIFY(view->isExpanded(view->findNodeIndex(hip)));
    QVERIFY(pane->hasDopeSheetItemSelection());
}

void TestTimePaneRows::rowsFollowWhenThePrimaryStays()
{
    showPane();
    auto *a = new VxNode(QStringLiteral("a"));
    auto *b = new VxNode(QStringLiteral("b"));
    vxScene->addNode(a);
    vxScene->addNode(b);
    a->select(true);
    b->select(true);
    QCoreApplication::processEvents();
    const QItemSelectionModel *rows = pane->getDopeSheetView()->selectionModel();
    QCOMPARE(rows->selectedRows().size(), 2);
    a->select(false);
    QCoreApplication::processEvents();
    QCOMPARE(vxScene->getPrimarySelection(), b);
    QCOMPARE(rows->selectedRows(), QModelIndexList{pane->getDopeSheetView()->findNodeIndex(b)});
}

void TestTimePaneRows::rowSelectionSelectsNodes()
{
    showPane();
    auto *a = new VxNode(QStringLiteral("a"));
    auto *b = new VxNode(QStringLiteral("b"));
    vxScene->addNode(a);
    vxScene->addNode(b);
    a->select(true);
    QCoreApplication::processEvents();
    VxDopeSheetView *view = pane->getDopeSheetView();
    const EventCounter counter(pane.get());
    const QSignalSpy reported(view, &VxDopeSheetView::itemSelectionChanged);
    const QSignalSpy lists(pane.get(), &VxTimePane::dopesheetPropertyListChanged);
    VxMouseDriver mouse(view->viewport());
    mouse.click(view->visualRect(view->findNodeIndex(b)).center());
    QVERIFY(b->isSelected());
    QVERIFY(!a->isSelected());
    QVERIFY(reported.count() > 0);
    QVERIFY(lists.count() > 0);
    QVERIFY(!view->isChangingSelection());
    QCoreApplication::processEvents();
    // The view has changed the scene's selection itself, so nothing is left to follow.
    QCOMPARE(counter.selectionChanges, 0);
}

void TestTimePaneRows::rowsOfTheScene()
{
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    figure->addNodeChild(new VxBone(QStringLiteral("hip")));
    vxScene->addNode(figure);
    QVERIFY(!pane->getDopeSheetView()->model());
    showPane();
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    QVERIFY(model);
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("figure"));
    QCOMPARE(model->rowCount(model->index(0, 0)), 1);
    auto *camera = new VxNode(QStringLiteral("camera"));
    vxScene->addNode(camera);
    QCOMPARE(model->rowCount(), 2);
    vxScene->removeNode(figure);
    QCOMPARE(model->rowCount(), 1);
    camera->setLabel(QStringLiteral("Camera 1"));
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("Camera 1"));
}

void TestTimePaneRows::nodesAddedDuringALoad()
{
    showPane();
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    vxScene->beginLoad();
    auto *gone = new VxNode(QStringLiteral("gone"));
    gone->addNodeChild(new VxNode(QStringLiteral("gone too")));
    vxScene->addNode(gone);
    vxScene->addNode(new VxNode(QStringLiteral("stays")));
    QCOMPARE(model->rowCount(), 0);
    vxScene->removeNode(gone);
    vxScene->endLoad();
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("stays"));
}

void TestTimePaneRows::loadsNest()
{
    showPane();
    const auto call = [this](const char *slot) {
        QVERIFY(QMetaObject::invokeMethod(pane.get(), slot));
    };
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    call("handleSceneLoadStarting");
    call("handleSceneLoadStarting");
    vxScene->addNode(new VxNode(QStringLiteral("a")));
    call("handleSceneLoaded");
    QCOMPARE(model->rowCount(), 0);
    call("handleSceneLoaded");
    QCOMPARE(model->rowCount(), 1);
    call("handleSceneLoaded");
    vxScene->addNode(new VxNode(QStringLiteral("b")));
    QCOMPARE(model->rowCount(), 2);
}

// The rows deferred to the end of the load are removed by then.
void TestTimePaneRows::clearingDuringALoad()
{
    showPane();
    vxScene->beginLoad();
    vxScene->addNode(new VxNode(QStringLiteral("a")));
    vxScene->clear();
    vxScene->addNode(new VxNode(QStringLiteral("b")));
    vxScene->endLoad();
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("b"));
}

void TestTimePaneRows::rowsMadeAnew()
{
    showPane();
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    figure->addNodeChild(new VxBone(QStringLiteral("hip")));
    auto *camera = new VxNode(QStringLiteral("camera"));
    vxScene->addNode(figure);
    vxScene->addNode(camera);
    figure->select(true);
    QCoreApplication::processEvents();
    VxDopeSheetView *view = pane->getDopeSheetView();
    view->setColumnWidth(VxDopeSheetView::NameColumn, 180);
    // Only now is it decided again which nodes are listed.
    camera->setVisible(false);
    QVERIFY(view->findNodeIndex(camera).isValid());
    pane->refreshDopesheet();
    QVERIFY(!view->findNodeIndex(camera).isValid());
    QVERIFY(view->findNodeIndex(figure->getNodeChild(0)).isValid());
    QCOMPARE(view->columnWidth(VxDopeSheetView::NameColumn), 180);
    QVERIFY(view->selectionModel()->isSelected(view->findNodeIndex(figure)));
}

void TestTimePaneRows::modelsReceiveTheKeyScope()
{
    const auto scope = [this] {
        const QSortFilterProxyModel *filter = pane->getDopeSheetView()->getFilterModel();
        return qobject_cast<VxDopeSheetModel *>(filter->sourceModel())->getKeyCreationScope();
    };
    showPane();
    QCOMPARE(scope(), 2);
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeNodeRecurse);
    pane->refreshDopesheet();
    QCOMPARE(scope(), 1);
}

void TestTimePaneRows::changedKeysAreShown()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1});
    actions.front()->setChecked(true);
    pane->setViewMode(VxTimePane::AdvancedView);
    showPane();
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    const VxDopeSheetView *view = pane->getDopeSheetView();
    VxPaintWatch rows(view->viewport());
    VxPaintWatch ruler(view->header()->viewport());
    const auto isCalm = [&rows, &ruler] {
        rows.count = ruler.count = 0;
        QCoreApplication::processEvents();
        return rows.count + ruler.count == 0;
    };
    QTRY_VERIFY(isCalm());
    node->getXPosControl()->setKey(160, 1.0f, VxKeyInterp::Linear);
    QTRY_VERIFY(rows.count > 0);
    QTRY_VERIFY(ruler.count > 0);
}

void TestTimePaneRows::rowsMadeAnewDuringALoad()
{
    showPane();
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    auto *hip = new VxBone(QStringLiteral("hip"));
    figure->addNodeChild(hip);
    vxScene->addNode(figure);
    const VxDopeSheetView *view = pane->getDopeSheetView();
    vxScene->beginLoad();
    pane->refreshDopesheet();
    auto *camera = new VxNode(QStringLiteral("camera"));
    vxScene->addNode(camera);
    vxScene->endLoad();
    for (VxNode *node : {static_cast<VxNode *>(figure), static_cast<VxNode *>(hip), camera})
        QVERIFY(view->findNodeIndex(node).isValid());
}

void TestTimePaneRows::clearingTheSceneEmptiesTheSheet()
{
    showPane();
    auto *node = new VxNode(QStringLiteral("a"));
    vxScene->addNode(node);
    node->select(true);
    QCoreApplication::processEvents();
    vxScene->clear();
    QCOMPARE(pane->getDopeSheetView()->model()->rowCount(), 0);
    vxScene->addNode(new VxNode(QStringLiteral("b")));
    QCOMPARE(pane->getDopeSheetView()->model()->rowCount(), 1);
    // Former selection models do not pile up.
    QCOMPARE(pane->getDopeSheetView()->findChildren<QItemSelectionModel *>().size(), 1);
}

void TestTimePaneRows::helpersStayOut()
{
    showPane();
    auto *helper = new VxNode(QStringLiteral("helper"));
    helper->setIkNode(true);
    helper->setSelectable(false);
    auto *hidden = new VxNode(QStringLiteral("hidden"));
    hidden->setVisible(false);
    auto *leading = new VxNode(QStringLiteral("leading"));
    leading->setVisible(false);
    leading->addNodeChild(new VxNode(QStringLiteral("shown")));
    auto *handle = new VxNode(QStringLiteral("handle"));
    handle->setIkNode(true);
    for (VxNode *node : {helper, hidden, leading, handle})
        vxScene->addNode(node);
    const VxDopeSheetView *view = pane->getDopeSheetView();
    QVERIFY(!view->findNodeIndex(helper).isValid());
    QVERIFY(!view->findNodeIndex(hidden).isValid());
    QVERIFY(view->findNodeIndex(leading).isValid());
    QVERIFY(view->findNodeIndex(handle).isValid());
}

void TestTimePaneRows::rootRowsMove()
{
    showPane();
    QVector<VxNode *> nodes;
    for (const char *name : {"a", "b", "c"}) {
        nodes += new VxNode(QString::fromLatin1(name));
        vxScene->addNode(nodes.last());
    }
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    const auto order = [model] {
        QString text;
        for (int i = 0; i < model->rowCount(); ++i)
            text += model->index(i, 0).data().toString();
        return text;
    };
    pane->moveRootNodeToTop();
    QCOMPARE(order(), QStringLiteral("abc"));
    auto *child = new VxNode(QStringLiteral("child"));
    vxScene->addNode(child, nodes.at(2));
    child->select(true);
    pane->moveRootNodeUp();
    QCOMPARE(order(), QStringLiteral("acb"));
    pane->moveRootNodeToTop();
    QCOMPARE(order(), QStringLiteral("cab"));
    pane->moveRootNodeUp();
    QCOMPARE(order(), QStringLiteral("cab"));
    pane->moveRootNodeDown();
    QCOMPARE(order(), QStringLiteral("acb"));
    pane->moveRootNodeToBottom();
    QCOMPARE(order(), QStringLiteral("abc"));
    pane->moveRootNodeDown();
    QCOMPARE(order(), QStringLiteral("abc"));
}

void TestTimePaneRows::textFilterShowsMatchesBelow()
{
    showPane();
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    figure->addNodeChild(new VxBone(QStringLiteral("lHip")));
    figure->addNodeChild(new VxBone(QStringLiteral("head")));
    vxScene->addNode(figure);
    vxScene->addNode(new VxNode(QStringLiteral("camera")));
    const QAbstractItemModel *model = pane->getDopeSheetView()->model();
    QVERIFY(QMetaObject::invokeMethod(pane.get(), "handleDopesheetFilterChanged",
                                      Q_ARG(QString, QStringLiteral("HIP"))));
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->rowCount(model->index(0, 0)), 1);
    QCOMPARE(model->index(0, 0, model->index(0, 0)).data().toString(), QStringLiteral("lHip"));
    pane->refreshDopesheet();
    QCOMPARE(pane->getDopeSheetView()->model()->rowCount(), 1);
    QVERIFY(QMetaObject::invokeMethod(pane.get(), "handleDopesheetFilterCleared"));
    QCOMPARE(pane->getDopeSheetView()->model()->rowCount(), 2);
}

VX_TEST_MAIN(TestTimePaneRows)
#include "tst_vxtimepanerows.moc"
