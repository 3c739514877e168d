#include "testing/keytimes.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QHeaderView>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxskeleton.h>

#include "testing/vxmousedriver.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/keycreation.h"

namespace {

using Shape = QVector<float>; // type, tension, continuity, bias

Shape shapeOf(const VxFloatProperty *property, int key)
{
    Shape shape(4);
    shape[0] = float(property->getKeyInterpolationType(key, &shape[1], &shape[2], &shape[3]));
    return shape;
}

// Stores the messages of its status line.
class MessageWindow : public VxMainWindow
{
public:
    void showStatusMessage(const QString &text, int milliseconds) override
    {
        Q_UNUSED(milliseconds)
        messages += text;
    }
    QStringList messages;
};

} // namespace

// The key commands as they are given: keys selected with the mouse, values typed, buttons pressed.
// A ball has keys on the frames 0, 10 and 20 of its X translation; the time is frame 10.
class TestTimePaneKeyCommands : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void interpolationOfSelectedKeys_data();
    void interpolationOfSelectedKeys();
    void interpolationThatIsSoAlready();
    void fieldsShowWhatKeysHaveInCommon_data();
    void fieldsShowWhatKeysHaveInCommon();
    void fieldsLeaveOutKeysBetween();
    void fieldsFollowTheInterpolation();
    void showingChangesNoKey();
    void typingATension();
    void typingMakesAnEntryForEachNewNumber();
    void typingKeepsTheOtherComponents();
    void leavingAFieldChangesNoKey();
    void enterAppliesTheShownValue();
    void undoneValuesAreShown();

    void keysOfSelectedRows();
    void keysOfSelectedRowsStayWhereTheyAre();
    void keysOfLockedRows();
    void figureOfASkeleton();
    void figureOfABone();
    void keysBelowOnSeveralFrames();
    void otherIsForRowsAlone();
    void repeatedKeysAreLikeTheFirst();
    void repeatedKeysOfALimitedValue();
    void framesBeyondTheEndOfTime();

    void buttonsCopyPasteDelete();
    void copyingIsReported();
    void nothingToCopy();
    void nothingToPaste();
    void noRowToPasteInto();

private:
    VxDopeSheetView *view() const { return pane->getDopeSheetView(); }
    VxFloatProperty *x() const { return ball->getXPosControl(); }
    QDoubleSpinBox *tension() const { return find<QDoubleSpinBox>("TimelineInterpTensionSBox"); }
    QDoubleSpinBox *continuity() const
    {
        return find<QDoubleSpinBox>("TimelineInterpContinuitySBox");
    }
    QDoubleSpinBox *bias() const { return find<QDoubleSpinBox>("TimelineInterpBiasSBox"); }

    QModelIndex rowOf(const VxProperty *property, const QModelIndex &parent = QModelIndex()) const;
    // Both show the row first.
    void clickKey(const VxProperty *property, VxTime time,
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void clickName(const VxProperty *property,
                   Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void press(const char *button) const
    {
        auto *found = find<QWidget>(button);
        VxMouseDriver(found).click(found->rect().center());
    }
    // Puts the cursor into a field, as if to enter another number.
    void enter(QDoubleSpinBox *field) const
    {
        VxMouseDriver(field).click(field->rect().center());
        field->selectAll();
        QVERIFY(field->hasFocus());
    }
    void setTypes(int types) const
    {
        pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(types));
        QCoreApplication::processEvents();
        view()->expandAll();
    }
    // Gives the keys on 0 and 10 TCB shapes of their own and selects both.
    void selectTwoShapes(const VxTcb &first, const VxTcb &second) const;

    VxNode *ball = nullptr;
};

void TestTimePaneKeyCommands::init()
{
    setUp();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    ball = new VxNode(QStringLiteral("ball"));
    vxScene->addNode(ball);
    for (const VxTime time : {0, 1600, 3200})
        x()->setKey(time, 1.0f, VxKeyInterp::Linear);
    vxScene->setAnimRange(VxTimeRange(0, 9600));
    vxScene->setPlayRange(VxTimeRange(0, 9600));
    vxScene->setTime(1600);
    showPane(1600, 800);
    pane->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(pane.get()));
    setTypes(VxTimePane::PropTranslate);
}

void TestTimePaneKeyCommands::cleanup()
{
    tearDown();
}

QModelIndex TestTimePaneKeyCommands::rowOf(const VxProperty *property,
                                           const QModelIndex &parent) const
{
    const QAbstractItemModel *model = view()->model();
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (view()->getItem(index)->property() == property)
            return index;
        const QModelIndex below = rowOf(property, index);
        if (below.isValid())
            return below;
    }
    return QModelIndex();
}

void TestTimePaneKeyCommands::clickKey(const VxProperty *property, VxTime time,
                                       Qt::KeyboardModifiers modifiers) const
{
    const QModelIndex row = rowOf(property);
    QVERIFY(row.isValid());
    view()->scrollTo(row);
    const int left = TimelineMetrics::shared().keyLeft(view()->columnWidth(0), time,
                                                       vxScene->getPlayRange().getStart());
    VxMouseDriver(view()->viewport())
        .click(QPoint(left + 3, view()->visualRect(row).center().y()), Qt::LeftButton, modifiers);
}

void TestTimePaneKeyCommands::clickName(const VxProperty *property,
                                        Qt::KeyboardModifiers modifiers) const
{
    const QModelIndex row = rowOf(property);
    QVERIFY(row.isValid());
    view()->scrollTo(row);
    VxMouseDriver(view()->viewport())
        .click(view()->visualRect(row).center(), Qt::LeftButton, modifiers);
    QVERIFY(view()->selectionModel()->isSelected(row));
}

void TestTimePaneKeyCommands::selectTwoShapes(const VxTcb &first, const VxTcb &second) const
{
    x()->setKeyInterpolation(0, VxKeyInterp::Tcb, first.tension, first.continuity, first.bias);
    x()->setKeyInterpolation(1, VxKeyInterp::Tcb, second.tension, second.continuity, second.bias);
    clickKey(x(), 0);
    clickKey(x(), 1600, Qt::ControlModifier);
    QVERIFY(view()->hasSelectedKeys());
}

void TestTimePaneKeyCommands::interpolationOfSelectedKeys_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("constant") << 1 << "Set Interpolation Type Constant";
    QTest::newRow("TCB") << 2 << "Set Interpolation Type TCB";
    QTest::newRow("linear") << 0 << "Set Interpolation Type Linear";
}

void TestTimePaneKeyCommands::interpolationOfSelectedKeys()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    const int before = type == 0 ? 1 : 0;
    for (int i = 0; i < 3; ++i)
        x()->setKeyInterpolation(i, before);
    clickKey(x(), 1600);
    pane->setInterpType(type);
    const auto types = [this] {
        return QVector<int>({x()->getKeyInterpolationType(0), x()->getKeyInterpolationType(1),
                             x()->getKeyInterpolationType(2)});
    };
    QCOMPARE(types(), QVector<int>({before, type, before}));
    QCOMPARE(undoTexts(), QStringList(text));
    vxApp->getUndoStack()->undo();
    QCOMPARE(types(), QVector<int>({before, before, before}));
    vxApp->getUndoStack()->redo();
    QCOMPARE(types(), QVector<int>({before, type, before}));
    QVERIFY(pane->hasSelectedKeys());
}

void TestTimePaneKeyCommands::interpolationThatIsSoAlready()
{
    clickKey(x(), 1600);
    pane->setInterpType(0);
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::fieldsShowWhatKeysHaveInCommon_data()
{
    QTest::addColumn<QVector<float>>("first");
    QTest::addColumn<QVector<float>>("second");
    using F = QVector<float>;
    QTest::newRow("the same") << F{0.5f, 0.25f, -1} << F{0.5f, 0.25f, -1};
    QTest::newRow("tension differs") << F{0.5f, 0.25f, -1} << F{0, 0.25f, -1};
    QTest::newRow("continuity differs") << F{0.5f, 0.25f, -1} << F{0.5f, 0, -1};
    QTest::newRow("bias differs") << F{0.5f, 0.25f, -1} << F{0.5f, 0.25f, 1};
    QTest::newRow("nothing in common") << F{0.5f, 0.25f, -1} << F{0, 0, 0};
}

// The second key is shown alone before the first is added to it: what differs stays so.
void TestTimePaneKeyCommands::fieldsShowWhatKeysHaveInCommon()
{
    QFETCH(QVector<float>, first);
    QFETCH(QVector<float>, second);
    x()->setKeyInterpolation(0, VxKeyInterp::Tcb, first[0], first[1], first[2]);
    x()->setKeyInterpolation(1, VxKeyInterp::Tcb, second[0], second[1], second[2]);
    x()->setKeyInterpolation(2, VxKeyInterp::Tcb, 0.9f, 0.9f, 0.9f);
    const auto shown = [this] {
        return QVector<float>(
            {float(tension()->value()), float(continuity()->value()), float(bias()->value())});
    };
    clickKey(x(), 3200);
    QCOMPARE(shown(), QVector<float>({0.9f, 0.9f, 0.9f}));
    clickKey(x(), 1600);
    QCOMPARE(shown(), second);
    clickKey(x(), 0, Qt::ControlModifier);
    QCOMPARE(shown(), second);
    for (const QDoubleSpinBox *field : {tension(), continuity(), bias()})
        QVERIFY(field->isEnabled());
    clickKey(x(), 0);
    QCOMPARE(shown(), first);
    QCOMPARE(undoTexts(), QStringList());
}

// A key that is not selected has no effect, wherever it is.
void TestTimePaneKeyCommands::fieldsLeaveOutKeysBetween()
{
    x()->setKeyInterpolation(0, VxKeyInterp::Tcb, 0.5f, 0.5f, 0.5f);
    x()->setKeyInterpolation(1, VxKeyInterp::Tcb, -1.0f, -1.0f, -1.0f);
    x()->setKeyInterpolation(2, VxKeyInterp::Tcb, 0.5f, 0.5f, 0.5f);
    clickKey(x(), 0);
    clickKey(x(), 3200, Qt::ControlModifier);
    QCOMPARE(tension()->value(), 0.5);
    float common = 0;
    QVERIFY(view()->getCommonTension(&common));
    QCOMPARE(common, 0.5f);
}

void TestTimePaneKeyCommands::fieldsFollowTheInterpolation()
{
    x()->setKeyInterpolation(1, VxKeyInterp::Linear, 0.75f, 0.5f, 0.25f);
    clickKey(x(), 1600);
    QVERIFY(tension()->isEnabled());
    QCOMPARE(tension()->value(), 0.0); // no TCB key
    pane->setInterpType(VxKeyInterp::Tcb);
    QCOMPARE(tension()->value(), 0.75);
    QCOMPARE(continuity()->value(), 0.5);
    QCOMPARE(bias()->value(), 0.25);
    pane->deleteSelectedKeys();
    QVERIFY(!tension()->isEnabled());
    QVERIFY(!bias()->isEnabled());
}

// What is shown is rounded to two places, the keys are not.
void TestTimePaneKeyCommands::showingChangesNoKey()
{
    x()->setKeyInterpolation(1, VxKeyInterp::Tcb, 0.375f, 0.123f, -0.777f);
    clickKey(x(), 1600);
    QCOMPARE(continuity()->value(), 0.12);
    QCOMPARE(shapeOf(x(), 1), Shape({2, 0.375f, 0.123f, -0.777f}));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::typingATension()
{
    selectTwoShapes({}, {});
    enter(tension());
    QTest::keyClicks(tension(), QStringLiteral("0.5"));
    QTest::keyClick(tension(), Qt::Key_Return);
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0.5f, 0, 0}));
    QCOMPARE(shapeOf(x(), 1), Shape({2, 0.5f, 0, 0}));
    QCOMPARE(shapeOf(x(), 2), Shape({0, 0, 0, 0}));
    QCOMPARE(undoTexts(), QStringList("Set TCB Parameters"));
}

// Nothing is written into the field meanwhile, which would move the cursor.
void TestTimePaneKeyCommands::typingMakesAnEntryForEachNewNumber()
{
    selectTwoShapes({}, {});
    enter(bias());
    QTest::keyClicks(bias(), QStringLiteral("-0.25"));
    QCOMPARE(bias()->text(), QStringLiteral("-0.25"));
    QTest::keyClick(bias(), Qt::Key_Return);
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0, 0, -0.25f}));
    QCOMPARE(undoTexts(), QStringList({"Set TCB Parameters", "Set TCB Parameters"}));
    vxApp->getUndoStack()->undo();
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0, 0, -0.2f}));
}

void TestTimePaneKeyCommands::typingKeepsTheOtherComponents()
{
    selectTwoShapes({0.123f, 0.375f, 0.777f}, {0.123f, 0.375f, 0.777f});
    enter(tension());
    QTest::keyClicks(tension(), QStringLiteral("1"));
    QTest::keyClick(tension(), Qt::Key_Return);
    QCOMPARE(shapeOf(x(), 0), Shape({2, 1, 0.375f, 0.777f}));
    QCOMPARE(shapeOf(x(), 1), Shape({2, 1, 0.375f, 0.777f}));
}

void TestTimePaneKeyCommands::leavingAFieldChangesNoKey()
{
    selectTwoShapes({0.123f, 0.5f, 0}, {-0.75f, 0.5f, 0});
    for (QDoubleSpinBox *field : {tension(), continuity(), bias()}) {
        enter(field);
        QTest::keyClick(field, Qt::Key_Tab);
        QVERIFY(!field->hasFocus());
    }
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0.123f, 0.5f, 0}));
    QCOMPARE(shapeOf(x(), 1), Shape({2, -0.75f, 0.5f, 0}));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::enterAppliesTheShownValue()
{
    selectTwoShapes({0.5f, 0, 0}, {-0.75f, 0, 0});
    QCOMPARE(tension()->value(), 0.5);
    enter(tension());
    QTest::keyClick(tension(), Qt::Key_Return);
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0.5f, 0, 0}));
    QCOMPARE(shapeOf(x(), 1), Shape({2, 0.5f, 0, 0}));
    QCOMPARE(undoTexts(), QStringList("Set TCB Parameters"));
}

void TestTimePaneKeyCommands::undoneValuesAreShown()
{
    selectTwoShapes({0.25f, 0, 0}, {0.25f, 0, 0});
    enter(tension());
    QTest::keyClicks(tension(), QStringLiteral("1"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(tension()->value(), 0.25);
    // Leaving the field does not do it again.
    QTest::keyClick(tension(), Qt::Key_Tab);
    QVERIFY(vxApp->getUndoStack()->canRedo());
    QCOMPARE(shapeOf(x(), 0), Shape({2, 0.25f, 0, 0}));
    vxApp->getUndoStack()->redo();
    QCOMPARE(tension()->value(), 1.0);
}

void TestTimePaneKeyCommands::keysOfSelectedRows()
{
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    ball->select(true);
    clickName(ball->getYPosControl());
    clickName(ball->getZPosControl(), Qt::ControlModifier);
    QVERIFY(vxScene->getPrimarySelection());
    vxScene->setTime(800);
    pane->createFilteredKeys();
    QCOMPARE(keyTimes(ball->getYPosControl()), Times({800}));
    QCOMPARE(keyTimes(ball->getZPosControl()), Times({800}));
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200}));
    QCOMPARE(undoTexts(), QStringList("Create Filtered Keys"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(ball->getYPosControl()), Times());
}

void TestTimePaneKeyCommands::keysOfSelectedRowsStayWhereTheyAre()
{
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    ball->select(true);
    clickName(ball->getYPosControl());
    pane->createFilteredKeys(5);
    QCOMPARE(keyTimes(ball->getYPosControl()), Times({1600}));
}

void TestTimePaneKeyCommands::keysOfLockedRows()
{
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    ball->select(true);
    ball->getYPosControl()->setLocked(true);
    clickName(ball->getYPosControl());
    pane->createFilteredKeys();
    QCOMPARE(keyTimes(ball->getYPosControl()), Times());
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::figureOfASkeleton()
{
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    auto *hip = new VxBone(QStringLiteral("hip"));
    figure->addNodeChild(hip);
    vxScene->addNode(figure);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    figure->select(true);
    pane->createFilteredKeys(2);
    QCOMPARE(keyTimes(figure->getXPosControl()), Times({1600, 1760}));
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({1600, 1760}));
    QCOMPARE(keyTimes(ball->getYPosControl()), Times());
}

// The bone's skeleton and everything that hangs on it, other bones too.
void TestTimePaneKeyCommands::figureOfABone()
{
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    auto *hip = new VxBone(QStringLiteral("hip"));
    auto *thigh = new VxBone(QStringLiteral("thigh"));
    auto *chest = new VxBone(QStringLiteral("chest"));
    auto *hat = new VxNode(QStringLiteral("hat"));
    figure->addNodeChild(hip);
    hip->addNodeChild(thigh);
    hip->addNodeChild(chest);
    chest->addNodeChild(hat);
    vxScene->addNode(figure);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    thigh->select(true);
    pane->createFilteredKeys();
    for (const VxNode *node : QVector<const VxNode *>{figure, hip, thigh, chest, hat})
        QCOMPARE(keyTimes(node->getXPosControl()), Times({1600}));
    QCOMPARE(keyTimes(ball->getYPosControl()), Times());
}

void TestTimePaneKeyCommands::keysBelowOnSeveralFrames()
{
    auto *string = new VxNode(QStringLiteral("string"));
    vxScene->addNode(string, ball);
    string->getYPosControl()->setKey(0, 0, 0);
    string->getYPosControl()->setKey(3200, 20, 0);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeNodeRecurse);
    ball->select(true);
    pane->createFilteredKeys(3);
    const VxFloatProperty *y = string->getYPosControl();
    QCOMPARE(keyTimes(y), Times({0, 1600, 1760, 1920, 3200}));
    for (int i = 1; i <= 3; ++i)
        QCOMPARE(y->getKeyValue(i), 10.0f);
    QCOMPARE(keyTimes(ball->getZPosControl()), Times({1600, 1760, 1920}));
    QCOMPARE(undoTexts(), QStringList("Create Filtered Keys"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(y), Times({0, 3200}));
}

void TestTimePaneKeyCommands::otherIsForRowsAlone()
{
    auto *own = new VxFloatProperty(QStringLiteral("own"));
    ball->addProperty(own, QStringLiteral("/General"));
    setTypes(VxTimePane::PropTranslate);
    QVERIFY(!rowOf(own).isValid());
    ball->select(true);
    pane->createFilteredKeys();
    QCOMPARE(keyTimes(own), Times({1600}));
    setTypes(VxTimePane::PropTranslate | VxTimePane::PropOther);
    QVERIFY(rowOf(own).isValid());
}

void TestTimePaneKeyCommands::repeatedKeysAreLikeTheFirst()
{
    x()->setKey(1600, 7.0f, VxKeyInterp::Tcb, 0.5f, -0.25f, 1.0f);
    x()->setKey(1800, 3.0f, VxKeyInterp::Constant); // between two of the new keys
    x()->setKey(1920, 4.0f, VxKeyInterp::Constant); // where one is added
    ball->select(true);
    pane->createFilteredKeys(4);
    QCOMPARE(keyTimes(x()), Times({0, 1600, 1760, 1800, 1920, 2080, 3200}));
    for (const int key : {1, 2, 4, 5}) {
        QCOMPARE(x()->getKeyValue(key), 7.0f);
        QCOMPARE(shapeOf(x(), key), Shape({2, 0.5f, -0.25f, 1.0f}));
    }
    QCOMPARE(shapeOf(x(), 3), Shape({1, 0, 0, 0}));
}

void TestTimePaneKeyCommands::repeatedKeysOfALimitedValue()
{
    VxFloatProperty number(QStringLiteral("number"));
    number.setStoredValue(5.0f);
    number.setMinMax(0.0f, 2.0f, true);
    KeyCreation::setKeysFrom(&number, 0, {0, 160, 320});
    QCOMPARE(keyTimes(&number), Times({0, 160, 320}));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(number.getKeyValue(i), 2.0f);
    VxIntProperty whole(QStringLiteral("whole"));
    whole.setStoredValue(5);
    whole.setMinMax(0, 2, true);
    KeyCreation::setKeysFrom(&whole, 0, {0, 160, 320});
    QCOMPARE(keyTimes(&whole), Times({0, 160, 320}));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(whole.getKeyValue(i), 2);
}

void TestTimePaneKeyCommands::framesBeyondTheEndOfTime()
{
    vxScene->setAnimRange(VxTimeRange(0, VxTimeMax));
    vxScene->setTime(VxTimeMax - 200);
    const VxTime now = vxScene->getTime();
    ball->select(true);
    pane->createFilteredKeys(5);
    QCOMPARE(keyTimes(ball->getYPosControl()), Times({now, now + 160}));
}

void TestTimePaneKeyCommands::buttonsCopyPasteDelete()
{
    clickKey(x(), 1600);
    press("TimelineCopySelectedKeysBtn");
    QVERIFY(pane->hasCopiedKeys());
    vxScene->setTime(4800);
    press("TimelinePasteCopiedKeysBtn");
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    press("TimelineDeleteKeysBtn");
    QCOMPARE(keyTimes(x()), Times({0, 3200, 4800}));
    QVERIFY(!pane->hasSelectedKeys());
    QCOMPARE(undoTexts(), QStringList({"Paste Keys", "Delete Selected Keys"}));
    vxApp->getUndoStack()->undo();
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200}));
}

void TestTimePaneKeyCommands::copyingIsReported()
{
    MessageWindow window;
    clickKey(x(), 1600);
    pane->copySelectedKeys();
    QCOMPARE(window.messages, QStringList("Copied 1 key."));
    clickKey(x(), 3200, Qt::ControlModifier);
    pane->copySelectedKeys();
    QCOMPARE(window.messages.last(), QString("Copied 2 keys."));
}

void TestTimePaneKeyCommands::nothingToCopy()
{
    MessageWindow window;
    view()->clearSelectedKeys();
    pane->copySelectedKeys();
    QCOMPARE(window.messages, QStringList("No keys are selected."));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::nothingToPaste()
{
    MessageWindow window;
    vxScene->setTime(4800);
    pane->pasteKeys();
    QCOMPARE(window.messages, QStringList("No keys have been copied."));
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200}));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCommands::noRowToPasteInto()
{
    MessageWindow window;
    clickKey(x(), 1600);
    pane->copySelectedKeys();
    window.messages.clear();
    setTypes(VxTimePane::PropRotate);
    vxScene->setTime(4800);
    pane->pasteKeys();
    QCOMPARE(window.messages, QStringList("No row matches the copied keys."));
    setTypes(VxTimePane::PropTranslate);
    x()->setLocked(true);
    pane->pasteKeys();
    QCOMPARE(window.messages.size(), 2);
    x()->setLocked(false);
    pane->pasteKeys();
    QCOMPARE(window.messages.size(), 2);
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    QCOMPARE(undoTexts(), QStringList("Paste Keys"));
}

VX_TEST_MAIN(TestTimePaneKeyCommands)
#include "tst_timepanekeycommands.moc"
