// The Parameters pane under real hands: mouse, wheel and keys at real places.

#include "testing/vxmousedriver.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxwarningguard.h"
#include "vxwidgetpictures.h"

#include <QAbstractSpinBox>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxsidenavpropertylistview.h>
#include <vxcore/vxundostack.h>

using Model = VxPropertyListItemModel;

class TestParametersPane : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void showsThePrimarySelection();
    void severalNodesAreNamedAndChanged();
    void manyNodesSelectedOneByOne();
    void draggingAValueIsOneEntry();
    void draggingWithModifiers();
    void draggingBackMakesNoEntry();
    void escapeEndsADrag();
    void aDragOutlivesNoNode();
    void typingIsOneEntry();
    void openingAndLeavingTheFieldChangesNothing();
    void escapeForgetsWhatWasTyped();
    void commasAndPercentSigns();
    void wholeNumbersTakeNoDecimals();
    void digitsBeginToType();
    void tabGoesToTheNextField();
    void steppingIsOneEntry();
    void stepsAfterARestAreAnotherEntry();
    void undoKeyInTheField();
    void theWheelScrollsWithoutTheFocus();
    void theWheelStepsInTheField();
    void theFieldFollowsTheTime();
    void switchesAreClicked();
    void textsAreTyped();
    void lockedValuesStandFast();
    void theKeyMarkSetsAndDeletes();
    void theKeyMarkOfSeveralRows();
    void headingsOpenAndClose();
    void closedGroupsAreKept();
    void selectionIsKeptFromNodeToNode();
    void contextMenu();
    void contextMenuOfALockedRow();
    void playbackRepaintsNoMoreThanOnceAFrame();
    void pictures_data();
    void pictures();

private:
    VxNode *hip() const { return m_bones.at(0); }
    VxFloatProperty *x() const { return hip()->getXPosControl(); }
    VxSideNavPropertyListView *view() const { return m_pane->getPropertyListView(); }
    QWidget *port() const { return view()->viewport(); }
    Model *model() const { return view()->getPropertyListModel(); }
    QModelIndex cell(const VxProperty *property, int column) const;
    QPoint middle(const VxProperty *property, int column) const;
    QPoint headingPlace(const VxProperty *first, int x) const;
    QAbstractSpinBox *field() const;
    void click(const VxProperty *property, int column = Model::ValueColumn);
    void drag(const VxProperty *property, int pixels, Qt::KeyboardModifiers = Qt::NoModifier);
    void wheel(QWidget *target, int steps) const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<VxParametersPane> m_pane;
    VxSceneBuilder::Special m_special;
    QVector<VxNode *> m_bones;
};

void TestParametersPane::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
    VxSceneBuilder builder(vxScene);
    m_bones = {builder.addNode(QStringLiteral("hip")), builder.addNode(QStringLiteral("thigh")),
               builder.addNode(QStringLiteral("shin"))};
    m_special = builder.addSpecialProperties(hip());
    m_pane = std::make_unique<VxParametersPane>();
    m_pane->resize(280, 600);
    hip()->select();
    m_pane->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pane.get()));
    m_pane->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_pane.get()));
}

void TestParametersPane::cleanup()
{
    m_pane.reset();
    m_app.reset();
    m_guard.reset();
}

QModelIndex TestParametersPane::cell(const VxProperty *property, int column) const
{
    const QModelIndex label = model()->findProperty(property);
    return label.sibling(label.row(), column);
}

QPoint TestParametersPane::middle(const VxProperty *property, int column) const
{
    const QModelIndex index = cell(property, column);
    view()->scrollTo(index);
    return view()->visualRect(index).center();
}

QPoint TestParametersPane::headingPlace(const VxProperty *first, int x) const
{
    const QModelIndex index = cell(first, Model::LabelColumn);
    return {x, view()->visualRect(index.sibling(index.row() - 1, 0)).center().y()};
}

QAbstractSpinBox *TestParametersPane::field() const
{
    return view()->findChild<QAbstractSpinBox *>(QStringLiteral("PropertyValueSpinBox"));
}

void TestParametersPane::click(const VxProperty *property, int column)
{
    VxMouseDriver(port()).click(middle(property, column));
}

void TestParametersPane::drag(const VxProperty *property, int pixels,
                              Qt::KeyboardModifiers modifiers)
{
    const QPoint from = middle(property, Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    // The drag begins once the hand has clearly moved, and counts from there.
    const int begin = pixels > 0 ? 20 : -20;
    mouse.moveTo(from + QPoint(begin, 0), modifiers);
    for (int i = 1; i <= 50; ++i)
        mouse.moveTo(from + QPoint(begin + pixels * i / 50, 0), modifiers);
    mouse.release(from + QPoint(begin + pixels, 0), Qt::LeftButton, modifiers);
}

void TestParametersPane::wheel(QWidget *target, int steps) const
{
    const QPoint place = target->rect().center();
    QWheelEvent event(place, target->mapToGlobal(place), QPoint(), QPoint(0, 120 * steps),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
}

void TestParametersPane::showsThePrimarySelection()
{
    const auto *title = m_pane->findChild<QLabel *>(QStringLiteral("ParametersTitleLbl"));
    QCOMPARE(title->text(), QString("hip"));
    hip()->setLabel(QStringLiteral("Hip"));
    QCOMPARE(title->text(), QString("Hip"));
    QCOMPARE(model()->getNode(), hip());
    vxScene->selectAllNodes(false);
    QCOMPARE(title->text(), QString("Nothing selected"));
    QCOMPARE(model()->rowCount(), 0);
    m_bones.at(1)->select();
    QCOMPARE(model()->getNode(), m_bones.at(1));
}

void TestParametersPane::severalNodesAreNamedAndChanged()
{
    m_bones.at(1)->select();
    m_bones.at(2)->select();
    QCoreApplication::processEvents();
    const auto *title = m_pane->findChild<QLabel *>(QStringLiteral("ParametersTitleLbl"));
    QCOMPARE(title->text(), QString("shin and 2 more"));
    QCOMPARE(model()->getNodes().size(), 3);
    m_bones.at(0)->getYPosControl()->setStoredValue(10.0f);
    drag(m_bones.at(2)->getYPosControl(), 40);
    QCOMPARE(m_bones.at(2)->getYPosControl()->getValue(), 20.0f);
    QCOMPARE(m_bones.at(0)->getYPosControl()->getValue(), 30.0f); // from where it was
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    m_bones.at(2)->select(false);
    QCoreApplication::processEvents();
    QCOMPARE(model()->getNodes().size(), 2);
}

void TestParametersPane::manyNodesSelectedOneByOne()
{
    VxSceneBuilder builder(vxScene);
    builder.addSkeleton(QStringLiteral("figure"), 300);
    QSignalSpy reset(model(), &Model::modelReset);
    const QVector<VxNode *> nodes = vxScene->getNodes();
    for (VxNode *node : nodes)
        node->select();
    QCoreApplication::processEvents();
    QCOMPARE(model()->getNodes().size(), nodes.size());
    // One for each new primary one, with one node's rows, and one for all.
    QVERIFY2(reset.count() <= nodes.size() + 1, qPrintable(QString::number(reset.count())));
}

void TestParametersPane::draggingAValueIsOneEntry()
{
    vxScene->setTime(320);
    QSignalSpy changed(x(), &VxProperty::valueChanged);
    drag(x(), 60);
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(x()->getKeyTime(0), 320);
    QCOMPARE(x()->getKeyValue(0), 30.0f);
    QVERIFY(changed.count() > 10); // it was seen on the way
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QCOMPARE(vxApp->getUndoStack()->undoText(), QString("Set X Translate"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(x()->getNumKeys(), 0);
    QVERIFY(!field()); // a drag is no click
}

void TestParametersPane::draggingWithModifiers()
{
    drag(x(), -60, Qt::ShiftModifier);
    QCOMPARE(x()->getValue(), -3.0f);
    drag(x(), 20, Qt::ControlModifier);
    QCOMPARE(x()->getValue(), 97.0f);
    drag(hip()->getScaleControl(), 40);
    QCOMPARE(hip()->getScaleControl()->getValue(), 1.2f); // per cent
}

void TestParametersPane::draggingBackMakesNoEntry()
{
    x()->setKey(0, 5.0f, 0);
    const QPoint from = middle(x(), Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.moveTo(from + QPoint(80, 0));
    QCOMPARE(x()->getValue(), 35.0f);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.release(from + QPoint(20, 0));
    QCOMPARE(x()->getValue(), 5.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersPane::escapeEndsADrag()
{
    const QPoint from = middle(x(), Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.moveTo(from + QPoint(80, 0));
    QCOMPARE(x()->getNumKeys(), 1);
    QTest::keyClick(view(), Qt::Key_Escape);
    QCOMPARE(x()->getNumKeys(), 0);
    mouse.moveTo(from + QPoint(90, 0));
    mouse.release(from + QPoint(90, 0));
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    QVERIFY(!field());
}

void TestParametersPane::aDragOutlivesNoNode()
{
    const QPoint from = middle(x(), Model::ValueColumn);
    VxMouseDriver mouse(port());
    mouse.press(from);
    mouse.moveTo(from + QPoint(20, 0));
    mouse.moveTo(from + QPoint(80, 0));
    vxScene->clear();
    mouse.moveTo(from + QPoint(90, 0));
    mouse.release(from + QPoint(90, 0));
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void TestParametersPane::typingIsOneEntry()
{
    vxScene->setTime(160);
    click(x());
    QTRY_VERIFY(field() && field()->hasFocus());
    QTest::keyClicks(field(), "12.5");
    QCOMPARE(x()->getNumKeys(), 0); // not before it is complete
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(x()->getKeyTime(0), 160);
    QCOMPARE(x()->getKeyValue(0), 12.5f);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QTRY_VERIFY(!field());
    // By leaving the field, too.
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "-3");
    click(hip()->getYPosControl(), Model::LabelColumn);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getKeyValue(0), -3.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 2);
}

void TestParametersPane::openingAndLeavingTheFieldChangesNothing()
{
    x()->setKey(0, 0.123456789f, 0);
    vxScene->setTime(80);
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getNumKeys(), 1);
    QCOMPARE(x()->getKeyValue(0), 0.123456789f);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersPane::escapeForgetsWhatWasTyped()
{
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "77");
    QTest::keyClick(field(), Qt::Key_Escape);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 0.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    // The steps that are no entry yet are taken back.
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClick(field(), Qt::Key_Up);
    QCOMPARE(x()->getValue(), 1.0f);
    QTest::keyClick(field(), Qt::Key_Escape);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersPane::commasAndPercentSigns()
{
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "1,5");
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 1.5f);
    click(hip()->getScaleControl());
    QTRY_VERIFY(field());
    QCOMPARE(field()->text(), QString("100%"));
    QTest::keyClicks(field(), "250");
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(hip()->getScaleControl()->getValue(), 2.5f);
    QCOMPARE(cell(hip()->getScaleControl(), Model::ValueColumn).data().toString(), QString("250%"));
}

void TestParametersPane::wholeNumbersTakeNoDecimals()
{
    auto *whole = qobject_cast<VxIntProperty *>(m_special.integer);
    whole->setMinMax(-50, 50);
    click(whole);
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "2.5"); // nothing behind the point is taken
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(whole->getValue(), 2);
    drag(whole, 400);
    QCOMPARE(whole->getValue(), 50);
    drag(whole, -12);
    QCOMPARE(whole->getValue(), 44);
}

void TestParametersPane::digitsBeginToType()
{
    view()->setCurrentIndex(cell(x(), Model::LabelColumn));
    view()->setFocus();
    QTest::keyClick(view(), '7');
    QTRY_VERIFY(field());
    QCOMPARE(field()->text(), QString("7"));
    QTest::keyClicks(field(), ".5");
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 7.5f);
    QTRY_VERIFY(!field());
    QTest::keyClick(view(), Qt::Key_F2);
    QTRY_VERIFY(field());
}

void TestParametersPane::tabGoesToTheNextField()
{
    VxFloatProperty *z = hip()->getZPosControl();
    click(z);
    QTRY_VERIFY(field());
    QTest::keyClicks(field(), "4");
    QTest::keyClick(field(), Qt::Key_Tab);
    QCOMPARE(z->getValue(), 4.0f);
    // Over the heading.
    QTRY_COMPARE(view()->currentIndex().row(),
                 cell(hip()->getXRotControl(), Model::LabelColumn).row());
    QTRY_VERIFY(field() && field()->hasFocus());
    QTest::keyClicks(field(), "30");
    QTest::keyClick(field(), Qt::Key_Backtab);
    QCOMPARE(hip()->getXRotControl()->getValue(), 30.0f);
    QTRY_COMPARE(view()->currentIndex().row(), cell(z, Model::LabelColumn).row());
    QCOMPARE(vxApp->getUndoStack()->count(), 2);
}

void TestParametersPane::steppingIsOneEntry()
{
    click(x());
    QTRY_VERIFY(field());
    for (int i = 0; i < 25; ++i)
        QTest::keyClick(field(), Qt::Key_Up);
    QCOMPARE(x()->getValue(), 25.0f); // at once
    QTest::keyClick(field(), Qt::Key_Down);
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getValue(), 24.0f);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    vxApp->getUndoStack()->undo();
    QCOMPARE(x()->getNumKeys(), 0);
}

void TestParametersPane::stepsAfterARestAreAnotherEntry()
{
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClick(field(), Qt::Key_Up);
    QTRY_COMPARE(vxApp->getUndoStack()->count(), 1);
    QTest::keyClick(field(), Qt::Key_PageUp);
    QTRY_COMPARE(vxApp->getUndoStack()->count(), 2);
    QCOMPARE(x()->getValue(), 11.0f);
    vxApp->getUndoStack()->undo();
    QCOMPARE(x()->getValue(), 1.0f);
    QCOMPARE(field()->text(), QString("1")); // the field shows it
}

void TestParametersPane::undoKeyInTheField()
{
    QAction undo;
    undo.setShortcut(QKeySequence::Undo);
    connect(&undo, &QAction::triggered, vxApp->getUndoStack(), &VxUndoStack::undo);
    m_pane->addAction(&undo);
    click(x());
    QTRY_VERIFY(field());
    QTest::keyClick(field(), Qt::Key_Up);
    QCOMPARE(x()->getNumKeys(), 1);
    QTest::keyClick(field(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(x()->getNumKeys(), 0);
    // While something is typed, undo is the field's own.
    x()->setStoredValue(3.0f);
    QTest::keyClick(field(), Qt::Key_Up);
    QTest::keyClicks(field(), "5");
    QTest::keyClick(field(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(x()->getNumKeys(), 1);
}

void TestParametersPane::theWheelScrollsWithoutTheFocus()
{
    m_pane->resize(280, 200);
    QCoreApplication::processEvents();
    const int before = view()->verticalScrollBar()->value();
    wheel(port(), -2);
    QVERIFY(view()->verticalScrollBar()->value() > before);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersPane::theWheelStepsInTheField()
{
    click(x());
    QTRY_VERIFY(field());
    for (int i = 0; i < 7; ++i)
        wheel(field(), 1);
    QCOMPARE(x()->getValue(), 7.0f);
    field()->clearFocus();
    QTRY_VERIFY(!field());
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
}

void TestParametersPane::theFieldFollowsTheTime()
{
    x()->setKey(0, 1.0f, 0);
    x()->setKey(320, 3.0f, 0);
    click(x());
    QTRY_VERIFY(field());
    QCOMPARE(field()->text(), QString("1"));
    vxScene->setTime(160);
    QCOMPARE(field()->text(), QString("2"));
    QTest::keyClicks(field(), "8");
    vxScene->setTime(320);
    QCOMPARE(field()->text(), QString("8")); // typed text stays
    QTest::keyClick(field(), Qt::Key_Return);
    QTRY_VERIFY(!field());
    QCOMPARE(x()->getKeyValue(1), 8.0f);
}

void TestParametersPane::switchesAreClicked()
{
    auto *flag = qobject_cast<VxIntProperty *>(m_special.boolean);
    click(flag);
    QCOMPARE(flag->getValue(), 1);
    QVERIFY(!field());
    click(flag);
    QCOMPARE(flag->getValue(), 0);
    view()->setCurrentIndex(cell(flag, Model::LabelColumn));
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(flag->getValue(), 1);
    QCOMPARE(vxApp->getUndoStack()->count(), 3);
}

void TestParametersPane::textsAreTyped()
{
    click(m_special.text);
    QTRY_VERIFY(view()->findChild<QLineEdit *>());
    auto *line = view()->findChild<QLineEdit *>();
    QTest::keyClicks(line, "a word");
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_VERIFY(!view()->findChild<QLineEdit *>());
    QCOMPARE(cell(m_special.text, Model::ValueColumn).data().toString(), QString("a word"));
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
}

void TestParametersPane::lockedValuesStandFast()
{
    auto *locked = qobject_cast<VxFloatProperty *>(m_special.locked);
    const float before = locked->getValue();
    drag(locked, 50);
    click(locked);
    QVERIFY(!field());
    click(locked, Model::KeyColumn);
    QCOMPARE(locked->getValue(), before);
    QCOMPARE(locked->getNumKeys(), 2);
    click(m_special.linked);
    QVERIFY(!field());
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

void TestParametersPane::theKeyMarkSetsAndDeletes()
{
    vxScene->setTime(480);
    click(x(), Model::KeyColumn);
    QVERIFY(x()->hasKey(480));
    QCOMPARE(cell(x(), Model::KeyColumn).data(Model::KeyStateRole).toInt(), int(Model::OnKey));
    click(x(), Model::KeyColumn);
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 2);
    VxMouseDriver(port()).doubleClick(middle(x(), Model::KeyColumn));
    QCOMPARE(x()->getNumKeys(), 0); // on and off
}

void TestParametersPane::theKeyMarkOfSeveralRows()
{
    VxMouseDriver mouse(port());
    mouse.click(middle(x(), Model::LabelColumn));
    mouse.click(middle(hip()->getZPosControl(), Model::LabelColumn), Qt::LeftButton,
                Qt::ShiftModifier);
    click(x(), Model::KeyColumn);
    QVERIFY(x()->hasKey(0) && hip()->getYPosControl()->hasKey(0) &&
            hip()->getZPosControl()->hasKey(0));
    QCOMPARE(view()->selectionModel()->selectedRows().size(), 3);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    click(hip()->getXRotControl(), Model::KeyColumn); // not one of them
    QCOMPARE(hip()->getXRotControl()->getNumKeys(), 1);
    QCOMPARE(x()->getNumKeys(), 1);
}

void TestParametersPane::headingsOpenAndClose()
{
    const int row = cell(x(), Model::LabelColumn).row();
    const QString path = x()->getPath();
    VxMouseDriver mouse(port());
    mouse.click(headingPlace(x(), 8));
    QVERIFY(view()->isRowHidden(row, QModelIndex()));
    QVERIFY(view()->isGroupCollapsed(path));
    QVERIFY(!view()->isRowHidden(row - 1, QModelIndex()));
    mouse.click({8, view()->visualRect(model()->index(row - 1, 0)).center().y()});
    QVERIFY(!view()->isRowHidden(row, QModelIndex()));
    mouse.doubleClick(headingPlace(x(), 100));
    QVERIFY(view()->isRowHidden(row, QModelIndex()));
    QTest::keyClick(view(), Qt::Key_Right);
    QVERIFY(!view()->isRowHidden(row, QModelIndex()));
    QTest::keyClick(view(), Qt::Key_Left);
    QVERIFY(view()->isRowHidden(row, QModelIndex()));
}

void TestParametersPane::closedGroupsAreKept()
{
    view()->setGroupCollapsed(x()->getPath(), true);
    view()->header()->resizeSection(Model::ValueColumn, 120);
    m_bones.at(1)->select();
    const VxProperty *other = m_bones.at(1)->getXPosControl();
    QVERIFY(view()->isRowHidden(cell(other, 0).row(), QModelIndex()));
    VxSettings settings;
    m_pane->saveSettings(&settings);
    VxParametersPane second;
    second.restoreSettings(&settings);
    QCOMPARE(second.getPropertyListView()->getCollapsedGroups(), QStringList{x()->getPath()});
    QCOMPARE(second.getPropertyListView()->header()->sectionSize(Model::ValueColumn), 120);
}

void TestParametersPane::selectionIsKeptFromNodeToNode()
{
    click(hip()->getYRotControl(), Model::LabelColumn);
    QSignalSpy selected(view()->selectionModel(), &QItemSelectionModel::selectionChanged);
    vxScene->selectAllNodes(false);
    QVERIFY(selected.count() > 0); // told, though the rows are gone
    QVERIFY(!view()->selectionModel()->hasSelection());
    m_bones.at(1)->select();
    QCOMPARE(view()->selectionModel()->selectedRows(),
             QModelIndexList{cell(m_bones.at(1)->getYRotControl(), Model::LabelColumn)});
}

void TestParametersPane::contextMenu()
{
    x()->setKey(0, 1.0f, 0);
    x()->setKey(320, 3.0f, 0);
    vxScene->setTime(160);
    const auto open = [this] {
        const QPoint place = middle(x(), Model::LabelColumn);
        VxMouseDriver(port()).click(place, Qt::RightButton);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    };
    const auto choose = [&](const QString &text) {
        QMenu *menu = open();
        QVERIFY(menu);
        for (QAction *action : menu->actions()) {
            if (action->text() != text)
                continue;
            QVERIFY2(action->isEnabled(), qPrintable(text));
            QVERIFY(QTest::qWaitForWindowExposed(menu));
            const QRect place = menu->actionGeometry(action);
            VxMouseDriver(menu).click(place.center());
            QTRY_VERIFY(!QApplication::activePopupWidget());
            return;
        }
        QFAIL(qPrintable(text));
    };
    choose("Set Key");
    QCOMPARE(x()->getNumKeys(), 3);
    choose("Next Key");
    QCOMPARE(vxScene->getTime(), 320);
    choose("Previous Key");
    QCOMPARE(vxScene->getTime(), 160);
    choose("Delete Key");
    QCOMPARE(x()->getNumKeys(), 2);
    choose("Copy Value");
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("2"));
    choose("Reset to Default");
    QCOMPARE(x()->getValue(), 0.0f);
    choose("Paste Value");
    QCOMPARE(x()->getValue(), 2.0f);
    choose("Delete All Keys");
    QCOMPARE(x()->getNumKeys(), 0);
    QCOMPARE(vxApp->getUndoStack()->count(), 5);
    QMenu *menu = open();
    QVERIFY(menu);
    QVERIFY(!menu->actions().value(1)->isEnabled()); // no key to delete
    menu->close();
}

void TestParametersPane::contextMenuOfALockedRow()
{
    const QPoint place = middle(m_special.locked, Model::LabelColumn);
    VxMouseDriver(port()).click(place, Qt::RightButton);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (QAction *action : menu->actions()) {
        const bool harmless = action->isSeparator() || action->text().endsWith(" Key") ||
                              action->text() == QString("Copy Value");
        if (!harmless)
            QVERIFY2(!action->isEnabled(), qPrintable(action->text()));
    }
    QVERIFY(!menu->actions().value(0)->isEnabled()); // Set Key
    menu->close();
}

void TestParametersPane::playbackRepaintsNoMoreThanOnceAFrame()
{
    class Painted : public QObject
    {
    public:
        int count = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Paint;
            return false;
        }
    } painted;
    x()->setKey(0, 0.0f, 0);
    x()->setKey(4800, 3.0f, 0);
    QCoreApplication::processEvents();
    port()->installEventFilter(&painted);
    for (VxTime time = 160; time <= 1600; time += 160) {
        vxScene->setTime(time);
        QCoreApplication::processEvents();
    }
    QVERIFY2(painted.count <= 10 && painted.count > 0, qPrintable(QString::number(painted.count)));
}

void TestParametersPane::pictures_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<double>("scale");
    QTest::newRow("dark") << true << 1.0;
    QTest::newRow("dark, one and a half") << true << 1.5;
    QTest::newRow("light") << false << 1.0;
    QTest::newRow("light, double") << false << 2.0;
}

/// VX_PICTURES names a folder that takes the pictures.
void TestParametersPane::pictures()
{
    QFETCH(bool, dark);
    QFETCH(double, scale);
    vxApp->getStyle()->setColorScheme(dark ? VxStyle::ColorScheme::Dark
                                           : VxStyle::ColorScheme::Light);
    x()->setKey(0, 1.25f, 0);
    hip()->getYPosControl()->setKey(320, -12.0f, 0);
    m_pane->resize(280, 640);
    QCoreApplication::processEvents();
    const QImage image = pictureOf(*m_pane, scale);
    const QString folder = qEnvironmentVariable("VX_PICTURES");
    if (!folder.isEmpty())
        QVERIFY(image.save(QStringLiteral("%1/parameters-%2-%3.png")
                               .arg(folder, dark ? "dark" : "light")
                               .arg(scale)));
    // The dot is small, the outline is empty in its middle, the full mark is not.
    const auto differs = [&](const VxProperty *property, const QPoint &beside) {
        const QPoint place = view()->visualRect(cell(property, Model::KeyColumn)).center() + beside;
        const QPoint corner = place - QPoint(0, 8);
        const auto colour = [&](const QPoint &at) {
            const QPoint inPane = port()->mapTo(m_pane.get(), at);
            return image.pixel(
                QPoint(qRound((inPane.x() + 0.5) * scale), qRound((inPane.y() + 0.5) * scale)));
        };
        return colour(place) != colour(corner);
    };
    const QPoint edge(3, 0);
    QVERIFY(differs(hip()->getZPosControl(), {}) && !differs(hip()->getZPosControl(), edge));
    QVERIFY(!differs(hip()->getYPosControl(), {}) && differs(hip()->getYPosControl(), edge));
    QVERIFY(differs(x(), {}) && differs(x(), edge));
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    QApplication::setFont(font);
    TestParametersPane test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_vxparameterspane.moc"
