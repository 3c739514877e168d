#include "scenetree/scenetreefilter.h"
#include "scenetree/scenetreemodel.h"
#include "scenetree/scenetreeview.h"
#include "scenetree/vxscenepane.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "widgets/searchfield.h"

#include <QAbstractItemModelTester>
#include <QDragMoveEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QtTest>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>

/// Editing in the pane by mouse and keys, over "figure" > "hip" > "left", "right" and "light",
/// "camera" at the top level.
class tst_ScenePaneEdits : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void f2Renames();
    void doubleClickRenames();
    void emptyNamesAreRefused();
    void escapeLeavesTheName();
    void deleteRemovesAllSelected();
    void deleteWithinANameEditsTheName();
    void ownKeysTakePrecedenceOverShortcuts();
    void theEyeHidesAndShows();
    void theEyeOfASelectedNodeCountsForAll();
    void theEyeSelectsNothing();
    void hiddenNamesAreDimmed();
    void eyesBelowAHiddenNodeAreDimmed();
    void contextMenu();
    void dragOntoANode();
    void dragBetweenNodes();
    void dragToTheTopLevel();
    void dragBelowItselfIsRefused();
    void severalAreDraggedInOneEntry();
    void draggedNodesStayInPlace();
    void withShiftTheyKeepTheirValues();
    void dropsThatCannotKeepTheTransformAreReported();
    void droppedNodesAreVisible();
    void orderFollowsTheScene();
    void searchShowsMatchesAndTheirAncestors();
    void searchFollowsTheScene();
    void returnSelectsTheMatches();
    void searchKeys();

private:
    QModelIndex index(const VxNode *node) const { return m_pane->getModel()->indexOf(node); }
    SceneTreeView *view() const { return m_pane->getTreeView(); }
    QPoint middle(const VxNode *node) const { return view()->visualRect(index(node)).center(); }
    QPoint eye(const VxNode *node) const;
    void click(const QPoint &at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void drag(const QPoint &from, const QPoint &to,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    QLineEdit *editor() const { return view()->viewport()->findChild<QLineEdit *>(); }
    QString drawn() const;
    static QString drawn(const QAbstractItemModel *model, const QModelIndex &above);
    QString shown() const;
    VxUndoStack *history() const { return m_app->getUndoStack(); }
    static VxNode *add(VxNode *node, VxNode *parent = nullptr);

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxApp> m_app;
    QScopedPointer<VxScenePane> m_pane;
    QScopedPointer<QAbstractItemModelTester> m_tester;
    VxNode *m_figure = nullptr;
    VxNode *m_hip = nullptr;
    VxNode *m_left = nullptr;
    VxNode *m_right = nullptr;
    VxNode *m_light = nullptr;
    VxNode *m_camera = nullptr;
};

VxNode *tst_ScenePaneEdits::add(VxNode *node, VxNode *parent)
{
    vxScene->addNode(node, parent);
    return node;
}

void tst_ScenePaneEdits::init()
{
    m_guard.reset(new VxWarningGuard);
    m_app.reset(new VxApp);
    m_figure = add(new VxSkeleton("figure"));
    m_hip = add(new VxBone("hip"), m_figure);
    m_left = add(new VxBone("left"), m_hip);
    m_right = add(new VxBone("right"), m_hip);
    m_light = add(new VxNode("light"));
    m_camera = add(new VxNode("camera"));
    m_pane.reset(new VxScenePane);
    m_tester.reset(new QAbstractItemModelTester(
        m_pane->getModel(), QAbstractItemModelTester::FailureReportingMode::QtTest));
    m_pane->resize(240, 400);
    m_pane->show();
    m_pane->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_pane.data()));
    view()->setFocus();
    QCOMPARE(drawn(), QString("figure(hip(left right)) light camera"));
}

void tst_ScenePaneEdits::cleanup()
{
    m_tester.reset();
    m_pane.reset();
    m_app.reset();
    m_guard.reset();
}

QPoint tst_ScenePaneEdits::eye(const VxNode *node) const
{
    return view()->visualRect(index(node).siblingAtColumn(SceneTreeModel::EyeColumn)).center();
}

void tst_ScenePaneEdits::click(const QPoint &at, Qt::KeyboardModifiers modifiers) const
{
    VxMouseDriver(view()->viewport()).click(at, Qt::LeftButton, modifiers);
}

/** The test platform has no drags between windows: the mouse presses the row, and the events that
 * the window system would send are sent from here. */
void tst_ScenePaneEdits::drag(const QPoint &from, const QPoint &to,
                              Qt::KeyboardModifiers modifiers) const
{
    VxMouseDriver mouse(view()->viewport());
    mouse.press(from);
    mouse.moveTo(from + QPoint(6, 0));
    mouse.moveTo(from + QPoint(14, 0));
    mouse.release(from + QPoint(14, 0));
    const QScopedPointer<QMimeData> dragged(
        m_pane->getModel()->mimeData(view()->selectionModel()->selectedIndexes()));
    const auto send = [&](auto &&event) {
        QCoreApplication::sendEvent(view()->viewport(), &event);
        return event.isAccepted();
    };
    const auto move = [&](QEvent::Type type) {
        QDragMoveEvent event(to, Qt::MoveAction, dragged.data(), Qt::LeftButton, modifiers, type);
        event.ignore();
        return send(event);
    };
    QVERIFY(send(QDragEnterEvent(to, Qt::MoveAction, dragged.data(), Qt::LeftButton, modifiers)));
    if (move(QEvent::DragMove))
        send(QDropEvent(to, Qt::MoveAction, dragged.data(), Qt::LeftButton, modifiers));
    else
        send(QDragLeaveEvent());
}

QString tst_ScenePaneEdits::drawn(const QAbstractItemModel *model, const QModelIndex &above)
{
    QStringList rows;
    for (int i = 0; i < model->rowCount(above); ++i) {
        const QModelIndex index = model->index(i, 0, above);
        const QString below = drawn(model, index);
        rows << index.data().toString() + (below.isEmpty() ? QString() : '(' + below + ')');
    }
    return rows.join(' ');
}

QString tst_ScenePaneEdits::drawn() const
{
    return drawn(m_pane->getModel(), QModelIndex());
}

/** The names of the rows that can be seen, from the top down. */
QString tst_ScenePaneEdits::shown() const
{
    QStringList names;
    for (QModelIndex row = view()->indexAt(QPoint(5, 2)); row.isValid();
         row = view()->indexBelow(row))
        names << row.data().toString();
    return names.join(' ');
}

void tst_ScenePaneEdits::f2Renames()
{
    click(middle(m_left));
    QTest::keyClick(view(), Qt::Key_F2);
    QVERIFY(editor());
    QCOMPARE(editor()->selectedText(), QString("left"));
    QTest::keyClicks(editor(), "left leg");
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(m_left->getLabel(), QString("left leg"));
    QCOMPARE(history()->count(), 1);
    QCOMPARE(history()->undoText(), QString("Rename \"left\""));
    history()->undo();
    QCOMPARE(index(m_left).data().toString(), QString("left"));
    history()->redo();
    QCOMPARE(index(m_left).data().toString(), QString("left leg"));
}

void tst_ScenePaneEdits::doubleClickRenames()
{
    VxMouseDriver(view()->viewport()).doubleClick(middle(m_light));
    QTRY_VERIFY(editor());
    QTest::keyClicks(editor(), "lamp");
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(m_light->getLabel(), QString("lamp"));
    QVERIFY(view()->isExpanded(index(m_figure)));
}

void tst_ScenePaneEdits::emptyNamesAreRefused()
{
    click(middle(m_left));
    QTest::keyClick(view(), Qt::Key_F2);
    QTest::keyClick(editor(), Qt::Key_Delete);
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_VERIFY(!editor() || !editor()->isVisible());
    QCOMPARE(m_left->getLabel(), QString("left"));
    QCOMPARE(history()->count(), 0);
}

void tst_ScenePaneEdits::escapeLeavesTheName()
{
    click(middle(m_left));
    QTest::keyClick(view(), Qt::Key_F2);
    QTest::keyClicks(editor(), "other");
    QTest::keyClick(editor(), Qt::Key_Escape);
    QCOMPARE(m_left->getLabel(), QString("left"));
}

void tst_ScenePaneEdits::deleteRemovesAllSelected()
{
    click(middle(m_right));
    click(middle(m_camera), Qt::ControlModifier);
    QTest::keyClick(view(), Qt::Key_Delete);
    QCOMPARE(drawn(), QString("figure(hip(left)) light"));
    QCOMPARE(history()->count(), 1);
    QCOMPARE(history()->undoText(), QString("Delete 2 Nodes"));
    history()->undo();
    QCOMPARE(drawn(), QString("figure(hip(left right)) light camera"));
    QCOMPARE(vxScene->findNode("right"), m_right);
    history()->redo();
    QCOMPARE(drawn(), QString("figure(hip(left)) light"));
    QTest::keyClick(view(), Qt::Key_Delete); // nothing is selected any more
    QCOMPARE(history()->count(), 1);
}

void tst_ScenePaneEdits::deleteWithinANameEditsTheName()
{
    click(middle(m_left));
    QTest::keyClick(view(), Qt::Key_F2);
    QTest::keyClick(editor(), Qt::Key_Home);
    QTest::keyClick(editor(), Qt::Key_Delete);
    QCOMPARE(editor()->text(), QString("eft"));
    QVERIFY(vxScene->findNode("left"));
}

void tst_ScenePaneEdits::ownKeysTakePrecedenceOverShortcuts()
{
    QKeyEvent remove(QEvent::ShortcutOverride, Qt::Key_Delete, Qt::NoModifier);
    remove.ignore();
    QCoreApplication::sendEvent(view(), &remove);
    QVERIFY(remove.isAccepted());
    QKeyEvent other(QEvent::ShortcutOverride, Qt::Key_Delete, Qt::ControlModifier);
    other.ignore();
    QCoreApplication::sendEvent(view(), &other);
    QVERIFY(!other.isAccepted());
}

void tst_ScenePaneEdits::theEyeHidesAndShows()
{
    click(eye(m_left));
    QVERIFY(!m_left->isVisible());
    QCOMPARE(history()->undoText(), QString("Hide \"left\""));
    click(eye(m_left));
    QVERIFY(m_left->isVisible());
    QCOMPARE(history()->count(), 2);
    history()->setIndex(1);
    QVERIFY(!m_left->isVisible());
    // Two quick presses are two presses.
    VxMouseDriver(view()->viewport()).doubleClick(eye(m_right));
    QVERIFY(m_right->isVisible());
    QVERIFY(!editor());
}

void tst_ScenePaneEdits::theEyeOfASelectedNodeCountsForAll()
{
    click(middle(m_left));
    click(middle(m_right), Qt::ControlModifier);
    click(eye(m_right));
    QVERIFY(!m_left->isVisible() && !m_right->isVisible() && m_hip->isVisible());
    QCOMPARE(history()->undoText(), QString("Hide 2 Nodes"));
    click(eye(m_light)); // one that is not selected: it alone
    QVERIFY(!m_light->isVisible());
    QCOMPARE(history()->undoText(), QString("Hide \"light\""));
}

void tst_ScenePaneEdits::theEyeSelectsNothing()
{
    click(middle(m_left));
    click(eye(m_light));
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({m_left}));
    QCOMPARE(view()->currentIndex(), index(m_left));
}

void tst_ScenePaneEdits::hiddenNamesAreDimmed()
{
    QVERIFY(!index(m_left).data(Qt::ForegroundRole).isValid());
    const QImage before = view()->grab().toImage();
    m_left->setVisible(false);
    QVERIFY(index(m_left).data(Qt::ForegroundRole).isValid());
    QVERIFY(view()->grab().toImage() != before);
}

void tst_ScenePaneEdits::eyesBelowAHiddenNodeAreDimmed()
{
    const auto eyeOf = [this](const VxNode *node) {
        return index(node).siblingAtColumn(SceneTreeModel::EyeColumn);
    };
    const QRect row = view()->visualRect(eyeOf(m_left));
    const QImage open = view()->viewport()->grab(row).toImage();
    QSignalSpy changed(m_pane->getModel(), &QAbstractItemModel::dataChanged);
    click(eye(m_figure));
    QVERIFY(m_left->isVisible() && m_hip->isVisible());
    QCOMPARE(eyeOf(m_left).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QVERIFY(!eyeOf(m_left).data(SceneTreeModel::ShownRole).toBool());
    QVERIFY(eyeOf(m_light).data(SceneTreeModel::ShownRole).toBool());
    QVERIFY(index(m_left).data(Qt::ForegroundRole).isValid());
    QVERIFY(eyeOf(m_left).data(Qt::ToolTipRole).toString().contains("\"figure\" is hidden"));
    QVERIFY(!eyeOf(m_figure).data(Qt::ToolTipRole).toString().contains("because"));
    QCOMPARE(changed.count(), 3); // the figure, the hip, and both legs at once
    const QImage dimmed = view()->viewport()->grab(row).toImage();
    QVERIFY(dimmed != open);
    click(eye(m_left)); // struck out now, and not applied to its siblings
    QVERIFY(view()->viewport()->grab(row).toImage() != dimmed);
    QCOMPARE(changed.count(), 4);
    // Where something is hidden by itself, its descendants are not affected by its ancestors.
    changed.clear();
    m_hip->setVisible(false);
    m_figure->setVisible(true);
    QCOMPARE(changed.count(), 3); // the hip alone, the figure, and the hip below it
    QVERIFY(!eyeOf(m_right).data(SceneTreeModel::ShownRole).toBool());
    m_hip->setVisible(true);
    QVERIFY(eyeOf(m_right).data(SceneTreeModel::ShownRole).toBool());
    QVERIFY(!eyeOf(m_left).data(SceneTreeModel::ShownRole).toBool());
}

void tst_ScenePaneEdits::contextMenu()
{
    click(middle(m_hip));
    QScopedPointer<QMenu> menu(view()->makeContextMenu());
    const auto trigger = [&](const char *text) {
        for (QAction *action : menu->actions()) {
            if (action->text() == QLatin1String(text) && action->isEnabled()) {
                action->trigger();
                return true;
            }
        }
        return false;
    };
    QVERIFY(trigger("Hide"));
    QVERIFY(!m_hip->isVisible());
    QVERIFY(trigger("Show"));
    QVERIFY(m_hip->isVisible());
    QVERIFY(trigger("Select Children"));
    QCOMPARE(vxScene->getNumSelectedNodes(), 3);
    QCOMPARE(vxScene->getPrimarySelection(), m_hip);
    QVERIFY(trigger("Collapse All"));
    QVERIFY(!view()->isExpanded(index(m_figure)));
    QVERIFY(trigger("Delete"));
    QCOMPARE(drawn(), QString("figure light camera"));
    QCoreApplication::processEvents();
    menu.reset(view()->makeContextMenu());
    QVERIFY(!trigger("Delete"));
    QVERIFY(trigger("Expand All"));
}

void tst_ScenePaneEdits::dragOntoANode()
{
    drag(middle(m_light), middle(m_hip));
    QCOMPARE(drawn(), QString("figure(hip(left right light)) camera"));
    QCOMPARE(m_light->getNodeParent(), m_hip);
    QCOMPARE(history()->count(), 1);
    QCOMPARE(history()->undoText(), QString("Reparent \"light\""));
    history()->undo();
    QCOMPARE(drawn(), QString("figure(hip(left right)) light camera"));
    history()->redo();
    QCOMPARE(drawn(), QString("figure(hip(left right light)) camera"));
}

void tst_ScenePaneEdits::dragBetweenNodes()
{
    const QRect left = view()->visualRect(index(m_left));
    drag(middle(m_right), QPoint(left.center().x(), left.top() + 1));
    QCOMPARE(drawn(), QString("figure(hip(right left)) light camera"));
    QCOMPARE(m_hip->getNodeChild(0), m_right);
    QCOMPARE(history()->undoText(), QString("Reorder \"right\""));
    history()->undo();
    QCOMPARE(drawn(), QString("figure(hip(left right)) light camera"));
}

void tst_ScenePaneEdits::dragToTheTopLevel()
{
    drag(middle(m_left), QPoint(60, view()->viewport()->height() - 20));
    QCOMPARE(drawn(), QString("figure(hip(right)) light camera left"));
    QVERIFY(!m_left->getNodeParent());
}

void tst_ScenePaneEdits::dragBelowItselfIsRefused()
{
    drag(middle(m_hip), middle(m_left));
    QCOMPARE(drawn(), QString("figure(hip(left right)) light camera"));
    QCOMPARE(history()->count(), 0);
}

void tst_ScenePaneEdits::severalAreDraggedInOneEntry()
{
    click(middle(m_camera));
    click(middle(m_light), Qt::ControlModifier);
    drag(middle(m_light), middle(m_left));
    QCOMPARE(drawn(), QString("figure(hip(left(light camera) right))"));
    QCOMPARE(history()->count(), 1);
    QCOMPARE(history()->undoText(), QString("Reparent 2 Nodes"));
    QCOMPARE(vxScene->getNumSelectedNodes(), 2); // still
    history()->undo();
    QCOMPARE(drawn(), QString("figure(hip(left right)) light camera"));
}

void tst_ScenePaneEdits::draggedNodesStayInPlace()
{
    m_hip->setOrigin({0, 10, 0});
    m_hip->getZRotControl()->setStoredValue(90);
    m_light->setOrigin({3, 0, 0});
    const QMatrix4x4 before = m_light->getWorldTransform(0);
    drag(middle(m_light), middle(m_hip));
    QCOMPARE(drawn(), QString("figure(hip(left right light)) camera"));
    QVERIFY(qFuzzyCompare(m_light->getWorldTransform(0), before));
    QCOMPARE(history()->count(), 1);
    history()->undo();
    QVERIFY(qFuzzyCompare(m_light->getWorldTransform(0), before));
    QCOMPARE(m_light->getXPosControl()->getStoredValue(), 0.0f);
}

void tst_ScenePaneEdits::withShiftTheyKeepTheirValues()
{
    m_hip->setOrigin({0, 10, 0});
    drag(middle(m_light), middle(m_hip), Qt::ShiftModifier);
    QCOMPARE(drawn(), QString("figure(hip(left right light)) camera"));
    QCOMPARE(m_light->getWorldTransform(0).column(3).toVector3D(), QVector3D(0, 10, 0));
    // The next drag keeps the place again.
    drag(middle(m_camera), middle(m_hip));
    QCOMPARE(m_camera->getWorldTransform(0).column(3).toVector3D(), QVector3D());
}

void tst_ScenePaneEdits::dropsThatCannotKeepTheTransformAreReported()
{
    VxMainWindow window;
    m_hip->getScaleControl()->setStoredValue(0);
    drag(middle(m_light), middle(m_hip));
    QVERIFY(window.statusBar()->currentMessage().contains("\"light\""));
}

void tst_ScenePaneEdits::droppedNodesAreVisible()
{
    view()->collapse(index(m_hip));
    drag(middle(m_light), middle(m_hip));
    QCOMPARE(shown(), QString("figure hip left right light camera"));
}

void tst_ScenePaneEdits::orderFollowsTheScene()
{
    m_camera->setNodeParent(nullptr, 0);
    QCOMPARE(drawn(), QString("camera figure(hip(left right)) light"));
    m_camera->setNodeParent(nullptr, 1);
    QCOMPARE(drawn(), QString("figure(hip(left right)) camera light"));
    m_figure->setNodeParent(nullptr);
    QCOMPARE(drawn(), QString("camera light figure(hip(left right))"));
    m_light->setNodeParent(m_hip, 1);
    QCOMPARE(drawn(), QString("camera figure(hip(left light right))"));
}

void tst_ScenePaneEdits::searchShowsMatchesAndTheirAncestors()
{
    view()->collapseAll();
    m_right->select();
    QTest::keyClicks(m_pane->getSearchField(), "LE");
    QCOMPARE(shown(), QString("figure hip left"));
    QVERIFY(m_right->isSelected()); // a search selects nothing and deselects nothing
    QTest::keyClick(m_pane->getSearchField(), Qt::Key_Escape);
    QCOMPARE(shown(), QString("figure hip left right light camera"));
    QTest::keyClicks(m_pane->getSearchField(), "nobody");
    QCOMPARE(shown(), QString());
}

void tst_ScenePaneEdits::searchFollowsTheScene()
{
    QTest::keyClicks(m_pane->getSearchField(), "l");
    QCOMPARE(shown(), QString("figure hip left light"));
    m_light->setLabel("shine");
    m_right->setLabel("last");
    add(new VxNode("lamp"), m_camera);
    QTRY_COMPARE(shown(), QString("figure hip left last camera lamp"));
    vxScene->removeNode(m_figure);
    QTRY_COMPARE(shown(), QString("camera lamp"));
}

void tst_ScenePaneEdits::returnSelectsTheMatches()
{
    QTest::keyClicks(m_pane->getSearchField(), "l");
    QTest::keyClick(m_pane->getSearchField(), Qt::Key_Return);
    QCOMPARE(vxScene->getNumSelectedNodes(), 2);
    QCOMPARE(vxScene->getPrimarySelection(), m_left);
    // Removed nodes are not among the results.
    vxScene->removeNode(m_left);
    QTest::keyClick(m_pane->getSearchField(), Qt::Key_Return);
    QCoreApplication::processEvents();
    QTest::keyClick(m_pane->getSearchField(), Qt::Key_Return);
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>({m_light}));
}

void tst_ScenePaneEdits::searchKeys()
{
    SearchField *field = m_pane->getSearchField();
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Down);
    QTRY_VERIFY(view()->hasFocus());
    field->setFocus();
    QTest::keyClicks(field, "l");
    QVERIFY(field->isActive());
    QTest::keyClick(field, Qt::Key_Escape);
    QVERIFY(!field->isActive() && field->hasFocus());
    QTest::keyClick(field, Qt::Key_Escape);
    QTRY_VERIFY(view()->hasFocus());
}

VX_TEST_MAIN(tst_ScenePaneEdits)
#include "tst_scenepaneedits.moc"
