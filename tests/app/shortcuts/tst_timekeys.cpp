#include "studiotestbase.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"

#include <QAbstractButton>
#include <QHelpEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QToolTip>
#include <QTreeView>
#include <vxcore/vxfloatproperty.h>

/// The time keys in the whole window: they step through time wherever
/// the focus is, except in text fields and lists.
class tst_TimeKeys : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void stepThroughTime_data();
    void stepThroughTime();
    void keysOfSelection();
    void deleteNeedsSelectedKeys();
    void rowsAreWalkedAcrossTime();
    void fieldsKeepTheirKeys();
    void searchFieldKeepsItsKeys();
    void sceneTreeKeepsItsArrows();
    void oneKeyOfTwoCommands();
    void toolTipsNameTheShortcut();
};

void tst_TimeKeys::init()
{
    setUpShared();
    openSample();
    vxScene->setPlayRange({5 * vxScene->getTimeStep(), 20 * vxScene->getTimeStep()});
    vxScene->setTime(10 * vxScene->getTimeStep());
}

void tst_TimeKeys::stepThroughTime_data()
{
    QTest::addColumn<QString>("focus");
    QTest::newRow("dope sheet") << "TimelineDopeSheetTView";
    QTest::newRow("key graph") << "TimelineKeyGraphView";
    QTest::newRow("viewport") << "";
}

void tst_TimeKeys::stepThroughTime()
{
    QFETCH(QString, focus);
    QWidget *widget =
        focus.isEmpty() ? window()->viewport() : inTimePane<QWidget>(qPrintable(focus));
    widget->setFocus(Qt::MouseFocusReason);
    type(Qt::Key_Right);
    type(Qt::Key_Right);
    QCOMPARE(frame(), 12);
    type(Qt::Key_Left);
    QCOMPARE(frame(), 11);
    type(Qt::Key_Home);
    QCOMPARE(frame(), 5);
    type(Qt::Key_End);
    QCOMPARE(frame(), 20);
    type(Qt::Key_Space);
    QVERIFY(vxScene->isPlaying());
    type(Qt::Key_Space);
    QVERIFY(!vxScene->isPlaying());
}

void tst_TimeKeys::keysOfSelection()
{
    inTimePane<QWidget>("TimelineDopeSheetTView")->setFocus(Qt::MouseFocusReason);
    VxNode *node = VxSceneBuilder(vxScene).addNode("marker");
    vxScene->setPrimarySelection(node);
    type(Qt::Key_K);
    QCOMPARE(node->getXPosControl()->getNumKeys(), 1);
    QCOMPARE(node->getXPosControl()->getKeyTime(0), 10 * vxScene->getTimeStep());
    type(Qt::Key_Right);
    type(Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(frame(), 10);
    type(Qt::Key_Left);
    type(Qt::Key_Left);
    QCOMPARE(frame(), 8);
    type(Qt::Key_Right, Qt::ControlModifier);
    QVERIFY(frame() > 8 && frame() <= 10); // the figure has keys, too
}

void tst_TimeKeys::deleteNeedsSelectedKeys()
{
    inTimePane<QWidget>("TimelineDopeSheetTView")->setFocus(Qt::MouseFocusReason);
    VxNode *node = VxSceneBuilder(vxScene).addNode("marker");
    vxScene->setPrimarySelection(node);
    type(Qt::Key_K);
    const int entries = vxApp->getUndoStack()->count();
    type(Qt::Key_Delete);
    QCOMPARE(vxApp->getUndoStack()->count(), entries);
    QCoreApplication::processEvents();
    action("VxTimePaneSelectItemAnimRangeKeysAction")->trigger();
    type(Qt::Key_C, Qt::ControlModifier);
    type(Qt::Key_Delete);
    QCOMPARE(node->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->undoText(), QString("Delete Selected Keys"));
    type(Qt::Key_Right);
    type(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(node->getXPosControl()->getNumKeys(), 1);
    QCOMPARE(node->getXPosControl()->getKeyTime(0), 11 * vxScene->getTimeStep());
    type(Qt::Key_Z, Qt::ControlModifier);
    type(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(node->getXPosControl()->getKeyTime(0), 10 * vxScene->getTimeStep());
}

void tst_TimeKeys::rowsAreWalkedAcrossTime()
{
    auto *view = inTimePane<QTreeView>("TimelineDopeSheetTView");
    view->setFocus(Qt::MouseFocusReason);
    view->collapseAll();
    const QModelIndex first = view->model()->index(0, 0);
    view->setCurrentIndex(first);
    type(Qt::Key_Plus);
    QVERIFY(view->isExpanded(first));
    type(Qt::Key_Down);
    QCOMPARE(view->currentIndex(), first.model()->index(0, 0, first));
    type(Qt::Key_Up);
    QCOMPARE(view->currentIndex(), first);
    type(Qt::Key_Minus);
    QVERIFY(!view->isExpanded(first));
    QCOMPARE(frame(), 10);
}

void tst_TimeKeys::fieldsKeepTheirKeys()
{
    auto *field = inTimePane<QSpinBox>("TimelineCurrentFrameLEdit");
    field->setFocus(Qt::MouseFocusReason);
    field->findChild<QLineEdit *>()->deselect();
    type(Qt::Key_End);
    type(Qt::Key_Left);
    type(Qt::Key_Delete);
    QCOMPARE(field->text(), QString("1"));
    type(Qt::Key_2);
    QCOMPARE(frame(), 12);
    type(Qt::Key_Space);
    QVERIFY(!vxScene->isPlaying());
    type(Qt::Key_Up);
    QCOMPARE(frame(), 13);
    type(Qt::Key_Home);
    QCOMPARE(frame(), 13);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void tst_TimeKeys::searchFieldKeepsItsKeys()
{
    const PaneDock *dock = window()->docks()->find("VxTimePane");
    auto *field = dock->findChild<QLineEdit *>("PaneSearchField");
    QVERIFY(field);
    field->setFocus(Qt::MouseFocusReason);
    type(Qt::Key_H);
    type(Qt::Key_K);
    type(Qt::Key_Home);
    type(Qt::Key_Delete);
    type(Qt::Key_End);
    type(Qt::Key_Space);
    type(Qt::Key_Left);
    type(Qt::Key_F);
    QCOMPARE(field->text(), QString("kf "));
    QCOMPARE(frame(), 10);
    QVERIFY(!vxScene->isPlaying());
}

void tst_TimeKeys::sceneTreeKeepsItsArrows()
{
    auto *tree = window()->docks()->find("VxScenePane")->findChild<QTreeView *>();
    QVERIFY(tree);
    tree->setFocus(Qt::MouseFocusReason);
    const QModelIndex root = tree->model()->index(0, 0);
    tree->setCurrentIndex(root);
    tree->expand(root);
    type(Qt::Key_Left);
    QVERIFY(!tree->isExpanded(root));
    type(Qt::Key_Right);
    QVERIFY(tree->isExpanded(root));
    QCOMPARE(frame(), 10);
    type(Qt::Key_Space);
    QVERIFY(vxScene->isPlaying());
    type(Qt::Key_Space);
}

// F frames what the focus is in: the viewport has a command of its own under it.
void tst_TimeKeys::oneKeyOfTwoCommands()
{
    QAction *selection = window()->viewport()->frameSelectionAction();
    QVERIFY(selection &&
            selection->shortcut() == action("VxTimePaneFrameGraphKeysAction")->shortcut());
    vxScene->setPrimarySelection(vxScene->getNodes().constFirst());
    QSignalSpy inViewport(selection, &QAction::triggered);
    QSignalSpy inGraph(action("VxTimePaneFrameGraphKeysAction"), &QAction::triggered);
    window()->viewport()->setFocus(Qt::MouseFocusReason);
    type(Qt::Key_F);
    QCOMPARE(inViewport.size(), 1);
    QCOMPARE(inGraph.size(), 0);
    inTimePane<QWidget>("TimelineDopeSheetTView")->setFocus(Qt::MouseFocusReason);
    type(Qt::Key_F);
    QCOMPARE(inViewport.size(), 1);
    QCOMPARE(inGraph.size(), 1);
}

void tst_TimeKeys::toolTipsNameTheShortcut()
{
    auto *button = inTimePane<QWidget>("TimelinePlayPauseBtn");
    const auto tip = [button] {
        QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), button->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(button, &event);
        return button->toolTip();
    };
    QCOMPARE(tip(), QString("Play / Pause (Space)"));
    QCOMPARE(QToolTip::text(), QString("Play / Pause (Space)"));
    actions()->setShortcut("VxPlayToggleAction", QKeySequence(Qt::CTRL | Qt::Key_P));
    QCOMPARE(tip(), QString("Play / Pause (Ctrl+P)"));
    actions()->setShortcut("VxPlayToggleAction", QKeySequence());
    QCOMPARE(tip(), QString("Play / Pause"));
    QToolTip::hideText();
    // Each button that has a command of its own shows its shortcut.
    actions()->setShortcut("VxPlayToggleAction",
                           actions()->getDefaultShortcut("VxPlayToggleAction"));
    QStringList tips;
    for (const QAbstractButton *each : timePane()->findChildren<QAbstractButton *>()) {
        if (!each->inherits("VxBarButton"))
            continue;
        QHelpEvent event(QEvent::ToolTip, QPoint(), QPoint());
        QCoreApplication::sendEvent(const_cast<QAbstractButton *>(each), &event);
        if (each->toolTip().endsWith(')'))
            tips += each->toolTip();
    }
    QToolTip::hideText();
    tips.sort();
    QCOMPARE(tips, QStringList({"Copy Selected Keys (Ctrl+C)", "Create Keys (K)",
                                "Delete Selected Keys (Del)", "Paste Keys (Ctrl+V)",
                                "Play / Pause (Space)", "Skip to Next Key (Ctrl+Right)",
                                "Skip to Play Range End (End)", "Skip to Play Range Start (Home)",
                                "Skip to Previous Key (Ctrl+Left)", "Step to Next Frame (Right)",
                                "Step to Previous Frame (Left)"}));
}

VX_TEST_MAIN(tst_TimeKeys)
#include "tst_timekeys.moc"
