#include "actionstage.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimelineactions/vxanimationaction.h"

#include <QItemSelectionModel>
#include <QMenu>
#include <QSignalSpy>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxskeleton.h>

// What the commands do when they are triggered, on rows and keys that are really there.
class TestVxTimelineCommands : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void transport();
    void looping();
    void playback();
    void keysOfSelectedNodes();
    void filteredKeys();
    void rowsBelowTheContextItem();
    void allRows();
    void rootNodeOrder();

    void itemKeysOncePerSelectedRow();
    void itemKeys_data();
    void itemKeys();
    void actionsAreEnabledWhenTheyApply();
    void itemKeysWithCtrl_data();
    void itemKeysWithCtrl();
    void itemKeysOfAClosedRow();
    void itemKeysOfAnOpenRow();
    void itemKeysWithoutRows();
    void itemKeysOfARangeOfOneFrame();
    void itemKeysBeyondTheAnimation();

    void commandsReachTheNextPane();

private:
    // Two nodes with a row each and keys on X Rotate at the frames 0, 5, 10 and 15.
    void addKeyedNodes(Stage &stage);
    static QString selectedFrames(const Stage &stage, VxNode *node);
    static void selectRow(const Stage &stage, VxNode *node);
    static QModelIndex rotationRow(const Stage &stage, VxNode *node);
    static void selectKeys(const Stage &stage, VxNode *node, int firstFrame, int lastFrame);

    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<VxWarningGuard> m_guard;
    VxNode *m_first = nullptr;
    VxNode *m_second = nullptr;
};

void TestVxTimelineCommands::initTestCase()
{
    m_app = std::make_unique<VxApp>();
}

void TestVxTimelineCommands::cleanupTestCase()
{
    m_app.reset();
}

void TestVxTimelineCommands::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    vxScene->clear();
}

void TestVxTimelineCommands::cleanup()
{
    m_guard.reset();
}

void TestVxTimelineCommands::transport()
{
    const Stage stage;
    const int step = vxScene->getTimeStep();
    vxScene->setAnimRange({0, 30 * step});
    vxScene->setPlayRange({5 * step, 20 * step});
    vxScene->setTime(10 * step);
    stage.trigger("VxNextFrameAction");
    QCOMPARE(vxScene->getTime(), 11 * step);
    stage.trigger("VxPrevFrameAction");
    QCOMPARE(vxScene->getTime(), 10 * step);
    stage.trigger("VxSkipToPlayrangeStartAction");
    QCOMPARE(vxScene->getTime(), 5 * step);
    stage.trigger("VxSkipToPlayrangeEndAction");
    QCOMPARE(vxScene->getTime(), 20 * step);
}

void TestVxTimelineCommands::looping()
{
    const Stage stage;
    const bool before = vxScene->isLoopingEnabled();
    stage.trigger("VxLoopToggleAction");
    QCOMPARE(vxScene->isLoopingEnabled(), !before);
    stage.trigger("VxLoopToggleAction");
    QCOMPARE(vxScene->isLoopingEnabled(), before);
}

void TestVxTimelineCommands::playback()
{
    const Stage stage;
    stage.trigger("VxPlayToggleAction");
    QVERIFY(vxScene->isPlaying());
    stage.trigger("VxPlayToggleAction");
    QVERIFY(!vxScene->isPlaying());
}

void TestVxTimelineCommands::keysOfSelectedNodes()
{
    const Stage stage;
    VxSceneBuilder builder(vxScene);
    VxNode *box = builder.addNode("box");
    VxNode *other = builder.addNode("other");
    vxScene->setPrimarySelection(box);
    vxScene->setTime(320);
    stage.trigger("VxAddKeysAction");
    QCOMPARE(box->getXPosControl()->getNumKeys(), 1);
    QCOMPARE(box->getXPosControl()->getKeyTime(0), 320);
    QCOMPARE(other->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(m_app->getUndoStack()->undoText(), QString("Create Keys"));

    vxScene->setTime(480);
    stage.trigger("VxDeleteKeysAction");
    QCOMPARE(box->getXPosControl()->getNumKeys(), 1);
    vxScene->setTime(320);
    stage.trigger("VxDeleteKeysAction");
    QCOMPARE(box->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(m_app->getUndoStack()->undoText(), QString("Delete Keys"));
}

void TestVxTimelineCommands::filteredKeys()
{
    const Stage stage;
    VxSceneBuilder builder(vxScene);
    VxNode *box = builder.addNode("box");
    vxScene->setPrimarySelection(box);
    stage.pane->setFilteredPropertyTypes(VxTimePane::PropRotate);
    stage.trigger("VxTimePaneCreateKeysAction");
    QCOMPARE(box->getXRotControl()->getNumKeys(), 1);
    QCOMPARE(box->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(m_app->getUndoStack()->undoText(), QString("Create Filtered Keys"));
}

void TestVxTimelineCommands::rowsBelowTheContextItem()
{
    Stage stage;
    VxSceneBuilder builder(vxScene);
    VxSkeleton *figure = builder.addSkeleton("figure", 3, VxSceneBuilder::Shape::Chain);
    builder.addSkeleton("bystander", 2);
    stage.trigger("VxTimePaneAdvancedViewAction");
    stage.window.resize(900, 500);
    stage.window.show();
    VxDopeSheetView *view = stage.pane->getDopeSheetView();
    view->collapseAll();
    const QModelIndex row = view->findNodeIndex(figure);
    const QModelIndex below = view->findNodeIndex(figure->getNodeChild(0));
    QVERIFY(row.isValid() && below.isValid());

    // Nothing was clicked: nothing opens.
    view->setContextIndex(QModelIndex());
    stage.trigger("VxTimePaneExpandItemAction");
    stage.trigger("VxTimePaneExpandFromItemAction");
    QVERIFY(!view->isExpanded(row));

    view->setContextIndex(row);
    stage.trigger("VxTimePaneExpandItemAction");
    QVERIFY(view->isExpanded(row) && !view->isExpanded(below));
    stage.trigger("VxTimePaneExpandFromItemAction");
    QVERIFY(view->isExpanded(row) && view->isExpanded(below));
    stage.trigger("VxTimePaneCollapseItemAction");
    QVERIFY(!view->isExpanded(row) && view->isExpanded(below));
    stage.trigger("VxTimePaneCollapseFromItemAction");
    QVERIFY(!view->isExpanded(row) && !view->isExpanded(below));
}

void TestVxTimelineCommands::allRows()
{
    Stage stage;
    VxSceneBuilder builder(vxScene);
    VxSkeleton *first = builder.addSkeleton("first", 2);
    VxSkeleton *second = builder.addSkeleton("second", 2);
    stage.trigger("VxTimePaneAdvancedViewAction");
    stage.window.show();
    VxDopeSheetView *view = stage.pane->getDopeSheetView();
    for (const bool open : {true, false, true}) {
        stage.trigger(open ? "VxTimePaneExpandAllItemsAction" : "VxTimePaneCollapseAllItemsAction");
        for (VxNode *node : {first->getNodeChild(0), second->getNodeChild(0)}) {
            QCOMPARE(view->isExpanded(view->findNodeIndex(node->getNodeParent())), open);
            QCOMPARE(view->isExpanded(view->findNodeIndex(node)), open);
        }
    }
}

void TestVxTimelineCommands::rootNodeOrder()
{
    Stage stage;
    VxSceneBuilder builder(vxScene);
    for (const char *name : {"a", "b", "c", "d"})
        builder.addNode(QString::fromLatin1(name));
    stage.trigger("VxTimePaneAdvancedViewAction");
    stage.window.show();
    VxDopeSheetView *view = stage.pane->getDopeSheetView();
    const auto order = [view] {
        QString names;
        for (int row = 0; row < view->model()->rowCount(); ++row)
            names += view->model()->index(row, VxDopeSheetView::NameColumn).data().toString();
        return names;
    };
    QCOMPARE(order(), QString("abcd"));
    view->setCurrentIndex(view->findNodeIndex(vxScene->findNode("c")));
    stage.trigger("VxTimePaneMoveRootNodeUpAction");
    QCOMPARE(order(), QString("acbd"));
    stage.trigger("VxTimePaneMoveRootNodeToBottomAction");
    QCOMPARE(order(), QString("abdc"));
    stage.trigger("VxTimePaneMoveRootNodeToTopAction");
    QCOMPARE(order(), QString("cabd"));
    stage.trigger("VxTimePaneMoveRootNodeDownAction");
    QCOMPARE(order(), QString("acbd"));
}

// A selected row has two selected cells; its keys are reported once.
void TestVxTimelineCommands::itemKeysOncePerSelectedRow()
{
    Stage stage;
    VxSceneBuilder builder(vxScene);
    for (const char *name : {"a", "b", "c"})
        builder.addNode(QString::fromLatin1(name));
    stage.trigger("VxTimePaneAdvancedViewAction");
    stage.window.show();
    VxDopeSheetView *view = stage.pane->getDopeSheetView();
    view->selectionModel()->clear();
    for (const char *name : {"a", "c"})
        view->selectionModel()->select(view->findNodeIndex(vxScene->findNode(name)),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QCOMPARE(view->selectionModel()->selectedRows().size(), 2);
    QCOMPARE(view->selectionModel()->selectedIndexes().size(), 4);
    for (const char *className : {"VxTimePaneDeselectItemPlayRangeKeysAction",
                                  "VxTimePaneDeselectItemAnimRangeKeysAction"}) {
        QSignalSpy changed(view, &VxDopeSheetView::keySelectionChanged);
        stage.trigger(className);
        QCOMPARE(changed.size(), 2);
    }
}

void TestVxTimelineCommands::addKeyedNodes(Stage &stage)
{
    VxSceneBuilder builder(vxScene);
    m_first = builder.addNode("first");
    m_second = builder.addNode("second");
    const VxTime step = vxScene->getTimeStep();
    vxScene->setAnimRange({0, 30 * step});
    vxScene->setPlayRange({5 * step, 10 * step});
    for (VxNode *node : {m_first, m_second}) {
        for (const int frame : {0, 5, 10, 15})
            node->getXRotControl()->setKey(frame * step, float(frame), 0);
    }
    stage.trigger("VxTimePaneAdvancedViewAction");
    stage.pane->setFilteredPropertyTypes(VxTimePane::PropRotate);
    stage.window.resize(1400, 500);
    stage.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
    stage.pane->getDopeSheetView()->collapseAll();
    stage.pane->getDopeSheetView()->selectionModel()->clear();
    QCoreApplication::processEvents();
}

QModelIndex TestVxTimelineCommands::rotationRow(const Stage &stage, VxNode *node)
{
    const VxDopeSheetView *view = stage.pane->getDopeSheetView();
    const QModelIndexList found =
        view->model()->match(view->findNodeIndex(node), Qt::DisplayRole, "X Rotate", 1,
                             Qt::MatchRecursive | Qt::MatchExactly);
    return found.value(0);
}

QString TestVxTimelineCommands::selectedFrames(const Stage &stage, VxNode *node)
{
    const VxDopeSheetItem *item = stage.pane->getDopeSheetView()->getItem(rotationRow(stage, node));
    QStringList frames;
    for (int i = 0; item && i < item->keyCount(); ++i) {
        if (item->isKeySelected(i))
            frames += QString::number(item->keyTime(i) / vxScene->getTimeStep());
    }
    return frames.join(' ');
}

void TestVxTimelineCommands::selectRow(const Stage &stage, VxNode *node)
{
    VxDopeSheetView *view = stage.pane->getDopeSheetView();
    view->selectionModel()->select(view->findNodeIndex(node),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void TestVxTimelineCommands::selectKeys(const Stage &stage, VxNode *node, int firstFrame,
                                        int lastFrame)
{
    const VxTime step = vxScene->getTimeStep();
    const QModelIndex row = rotationRow(stage, node);
    stage.pane->getDopeSheetView()->setKeySelection(true, row, row, firstFrame * step,
                                                    lastFrame * step + 1);
}

void TestVxTimelineCommands::itemKeys_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    // Both ends of the play range belong to it.
    QTest::newRow("VxTimePaneSelectItemPlayRangeKeysAction") << ""
                                                             << "5 10"
                                                             << "";
    QTest::newRow("VxTimePaneSelectItemAnimRangeKeysAction") << ""
                                                             << "0 5 10 15"
                                                             << "";
    QTest::newRow("VxTimePaneDeselectItemPlayRangeKeysAction") << "all"
                                                               << "0 15"
                                                               << "0 5 10 15";
    QTest::newRow("VxTimePaneDeselectItemAnimRangeKeysAction") << "all"
                                                               << ""
                                                               << "0 5 10 15";
}

void TestVxTimelineCommands::itemKeys()
{
    QFETCH(QString, before);
    QFETCH(QString, first);
    QFETCH(QString, second);
    Stage stage;
    addKeyedNodes(stage);
    if (before == "all") {
        selectKeys(stage, m_first, 0, 30);
        selectKeys(stage, m_second, 0, 30);
    }
    selectRow(stage, m_first);
    stage.trigger(QTest::currentDataTag());
    QCOMPARE(selectedFrames(stage, m_first), first);
    QCOMPARE(selectedFrames(stage, m_second), second);
    QCOMPARE(stage.pane->hasSelectedKeys(), !(first + second).isEmpty());
    QCOMPARE(stage.action("VxTimePaneDeleteSelectedKeysAction")->isEnabled(),
             !(first + second).isEmpty());
}

void TestVxTimelineCommands::actionsAreEnabledWhenTheyApply()
{
    Stage stage;
    addKeyedNodes(stage);
    const auto enabled = [&stage] {
        QStringList names;
        for (const char *name : {"Copy", "Delete"}) {
            const QString className = QStringLiteral("VxTimePane%1SelectedKeysAction").arg(name);
            if (stage.action(qPrintable(className))->isEnabled())
                names += QString::fromLatin1(name);
        }
        for (const char *name : {"Tcb", "Linear", "Constant"}) {
            const QString className = QStringLiteral("VxTimePaneSetInterp%1Action").arg(name);
            if (stage.action(qPrintable(className))->isEnabled())
                names += QString::fromLatin1(name);
        }
        if (stage.action("VxTimePanePasteKeysAction")->isEnabled())
            names += QStringLiteral("Paste");
        return names.join(' ');
    };
    const bool copiedBefore = stage.pane->hasCopiedKeys();
    QCOMPARE(enabled(), QString(copiedBefore ? "Paste" : ""));
    selectKeys(stage, m_first, 0, 30);
    stage.trigger("VxTimePaneCopySelectedKeysAction");
    QCOMPARE(enabled(), QStringLiteral("Copy Delete Tcb Linear Constant Paste"));
    stage.trigger("VxTimePaneDeleteSelectedKeysAction");
    QCOMPARE(enabled(), QStringLiteral("Paste"));
    vxApp->getUndoStack()->undo();

    selectKeys(stage, m_first, 0, 30);
    QCOMPARE(enabled(), QStringLiteral("Copy Delete Tcb Linear Constant Paste"));
    stage.pane->refreshDopesheet();
    QCOMPARE(enabled(), QStringLiteral("Copy Delete Tcb Linear Constant Paste"));
}

void TestVxTimelineCommands::itemKeysWithCtrl_data()
{
    QTest::addColumn<bool>("ctrl");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const auto add = [](const char *action, bool ctrl, const char *first, const char *second) {
        QTest::addRow("%s %s", action, ctrl ? "with Ctrl" : "alone")
            << ctrl << QString(first) << QString(second);
    };
    // The second node's key at 15 and the first one's at 0 are selected before; the first row is.
    add("VxTimePaneSelectItemPlayRangeKeysAction", false, "5 10", "");
    add("VxTimePaneSelectItemPlayRangeKeysAction", true, "0 5 10", "15");
    add("VxTimePaneSelectItemAnimRangeKeysAction", false, "0 5 10 15", "");
    add("VxTimePaneSelectItemAnimRangeKeysAction", true, "0 5 10 15", "15");
    add("VxTimePaneDeselectItemPlayRangeKeysAction", false, "0", "15");
    add("VxTimePaneDeselectItemPlayRangeKeysAction", true, "0", "15");
    add("VxTimePaneDeselectItemAnimRangeKeysAction", false, "", "15");
    add("VxTimePaneDeselectItemAnimRangeKeysAction", true, "", "15");
}

// By the entry of a menu, with the key held as the mouse clicks it.
void TestVxTimelineCommands::itemKeysWithCtrl()
{
    QFETCH(bool, ctrl);
    QFETCH(QString, first);
    QFETCH(QString, second);
    Stage stage;
    addKeyedNodes(stage);
    selectKeys(stage, m_first, 0, 0);
    selectKeys(stage, m_second, 15, 15);
    selectRow(stage, m_first);
    VxAction *action =
        stage.action(qPrintable(QString(QTest::currentDataTag()).section(QLatin1Char(' '), 0, 0)));
    QMenu menu;
    menu.addAction(action);
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QSignalSpy triggered(action, &QAction::triggered);
    VxMouseDriver(&menu).click(menu.actionGeometry(action).center(), Qt::LeftButton,
                               ctrl ? Qt::ControlModifier : Qt::NoModifier);
    QCOMPARE(triggered.size(), 1);
    VxMouseDriver(&stage.window).moveTo(QPoint(1, 1)); // releases Ctrl
    QCOMPARE(QGuiApplication::keyboardModifiers(), Qt::NoModifier);
    QCOMPARE(selectedFrames(stage, m_first), first);
    QCOMPARE(selectedFrames(stage, m_second), second);
}

// A closed row represents all rows below it, an open one itself.
void TestVxTimelineCommands::itemKeysOfAClosedRow()
{
    Stage stage;
    addKeyedNodes(stage);
    const VxTime step = vxScene->getTimeStep();
    m_first->getYRotControl()->setKey(7 * step, 1.0f, 0);
    selectRow(stage, m_first);
    stage.trigger("VxTimePaneSelectItemPlayRangeKeysAction");
    stage.trigger("VxTimePaneDeleteSelectedKeysAction");
    QCOMPARE(m_first->getYRotControl()->getNumKeys(), 0);
    QCOMPARE(m_first->getXRotControl()->getNumKeys(), 2);
    QCOMPARE(m_second->getXRotControl()->getNumKeys(), 4);
}

void TestVxTimelineCommands::itemKeysOfAnOpenRow()
{
    Stage stage;
    addKeyedNodes(stage);
    stage.pane->getDopeSheetView()->expandAll();
    selectRow(stage, m_first);
    stage.trigger("VxTimePaneSelectItemAnimRangeKeysAction");
    QCOMPARE(selectedFrames(stage, m_first), QString());
}

void TestVxTimelineCommands::itemKeysWithoutRows()
{
    Stage stage;
    addKeyedNodes(stage);
    selectKeys(stage, m_second, 0, 5);
    stage.trigger("VxTimePaneDeselectItemAnimRangeKeysAction");
    QCOMPARE(selectedFrames(stage, m_second), QString("0 5"));
    stage.trigger("VxTimePaneSelectItemAnimRangeKeysAction"); // replaces by nothing
    QCOMPARE(selectedFrames(stage, m_second), QString());
    // Before the pane was ever shown there is nothing to select.
    const Stage unseen;
    unseen.trigger("VxTimePaneSelectItemAnimRangeKeysAction");
    QVERIFY(!unseen.pane->hasSelectedKeys());
}

void TestVxTimelineCommands::itemKeysOfARangeOfOneFrame()
{
    Stage stage;
    addKeyedNodes(stage);
    const VxTime step = vxScene->getTimeStep();
    vxScene->setPlayRange({10 * step, 10 * step});
    selectRow(stage, m_first);
    stage.trigger("VxTimePaneSelectItemPlayRangeKeysAction");
    QCOMPARE(selectedFrames(stage, m_first), QString("10"));
}

// The pane is cached once it was found, until it is destroyed.
// "All" includes keys outside the animation range.
void TestVxTimelineCommands::itemKeysBeyondTheAnimation()
{
    Stage stage;
    addKeyedNodes(stage);
    const VxTime step = vxScene->getTimeStep();
    for (const int frame : {-3, 40})
        m_first->getXRotControl()->setKey(frame * step, 1.0f, 0);
    selectRow(stage, m_first);
    stage.trigger("VxTimePaneSelectItemAnimRangeKeysAction");
    QCOMPARE(selectedFrames(stage, m_first), QString("-3 0 5 10 15 40"));
    stage.trigger("VxTimePaneDeselectItemAnimRangeKeysAction");
    QCOMPARE(selectedFrames(stage, m_first), QString());
}

void TestVxTimelineCommands::commandsReachTheNextPane()
{
    Stage stage;
    stage.trigger("VxTimePaneBasicViewAction");
    QCOMPARE(stage.pane->getViewMode(), VxTimePane::BasicView);
    delete stage.pane;
    m_guard->expect(QRegularExpression("No VxTimePane instance found in "
                                       "VxTimePaneViewModeAction::executeAction\\(\\)"));
    stage.trigger("VxTimePaneAdvancedViewAction");

    auto *next = new VxTimePane;
    stage.window.getPaneMgr()->addPane(next);
    stage.window.setCentralWidget(next);
    stage.window.getActionMgr()->initActions();
    QCOMPARE(VxAnimationAction::findTimePane(), next);
    QCOMPARE(next->getRegisteredActions().size(), int(std::size(actionRows)));
    stage.trigger("VxTimePaneIntermediateViewAction");
    QCOMPARE(next->getViewMode(), VxTimePane::IntermediateView);
    stage.trigger("VxTimePaneControlsTopAction");
    QCOMPARE(next->getControlsPosition(), VxTimePane::ControlsTop);
    stage.pane = next;
    QCOMPARE(stage.checked("VxTimePaneViewModeAction"),
             QStringList("VxTimePaneIntermediateViewAction"));
    QCOMPARE(stage.checked("VxTimePaneControlsPositionAction"),
             QStringList("VxTimePaneControlsTopAction"));
    // The options follow the new pane's signals, and no longer count on the old one.
    next->setMonitorParametersPane(!next->getMonitorParametersPane());
    QCOMPARE(stage.action("VxTimePaneMonitorParametersPaneAction")->isChecked(),
             next->getMonitorParametersPane());
}

VX_TEST_MAIN(TestVxTimelineCommands)
#include "tst_vxtimelinecommands.moc"
