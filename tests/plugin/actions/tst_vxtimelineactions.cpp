#include "actionstage.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimelineactions/vxanimationaction.h"

#include <QItemSelectionModel>
#include <QPointer>
#include <QSignalSpy>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpaneaction.h>
#include <vxcore/vxskeleton.h>

namespace {

// The whole warning that an action gives when there is no pane.
QRegularExpression missingPaneWarning(const char *method)
{
    return QRegularExpression(
        QStringLiteral("^\\\\src\\\\pluginsource\\\\VxTimeline\\\\vxtimelineactions\\\\[a-z]+\\.cpp"
                       "\\([1-9][0-9]*\\): No VxTimePane instance found in %1$")
            .arg(QRegularExpression::escape(QString::fromLatin1(method))));
}

void setCheckedSilently(QAction *action, bool checked)
{
    const QSignalBlocker blocker(action);
    action->setChecked(checked);
}

} // namespace

class TestVxTimelineActions : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void tableHoldsEveryAction();
    void catalogue_data();
    void catalogue();
    void paneAction();
    void shortcuts();

    void triggerWithoutPane_data();
    void triggerWithoutPane();
    void initWithoutPane_data();
    void initWithoutPane();
    void mainWindowWithoutPane();
    void paneIsFoundUntilItIsDestroyed();
    void cachedPaneIsNotSearchedForAgain();
    void everyActionRegistersWithThePane();
    void aSecondPaneLeavesTheMarksAlone();
    void animationMenu();
    void initTwice();

    void exclusiveChoice_data();
    void exclusiveChoice();
    void choosingTheCurrentChoice_data();
    void choosingTheCurrentChoice();
    void uncheckedChoiceOfTheCurrentValue();
    void scopeThatIsSetStays();
    void keyScopes();
    void propertyTypeFlags();
    void propertyTypeOfAnActionOfItsOwn();
    void keyGraphFollowsThePane();
    void monitorParametersPaneFollowsThePane();
    void playAllFramesFollowsThePane();
    void optionsReadThePaneAtInit();
    void optionThatIsNotCheckable();

private:
    static void addRows();

    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestVxTimelineActions::initTestCase()
{
    m_app = std::make_unique<VxApp>();
}

void TestVxTimelineActions::cleanupTestCase()
{
    m_app.reset();
}

void TestVxTimelineActions::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    vxScene->clear();
}

void TestVxTimelineActions::cleanup()
{
    m_guard.reset();
}

void TestVxTimelineActions::addRows()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const ActionRow &row : actionRows)
        QTest::newRow(row.className) << index++;
}

void TestVxTimelineActions::tableHoldsEveryAction()
{
    QCOMPARE(int(std::size(actionRows)), 55);
    QCOMPARE(int(std::size(registeredClasses)), 57);
    for (size_t i = 0; i < std::size(actionRows); ++i)
        QCOMPARE(actionRows[i].className, registeredClasses[i + 2]);
}

void TestVxTimelineActions::catalogue_data()
{
    addRows();
}

void TestVxTimelineActions::catalogue()
{
    QFETCH(int, index);
    const ActionRow &row = actionRows[index];
    const std::unique_ptr<VxAction> action = createAction(row.className);
    QVERIFY(action);
    QCOMPARE(action->metaObject()->className(), row.className);
    QCOMPARE(action->objectName(), QString(row.className));
    QCOMPARE(action->text(), QString(row.text));
    QCOMPARE(action->getDescription(), QString(row.description));
    QCOMPARE(action->statusTip(), QString(row.description));
    QCOMPARE(action->isCheckable(), row.checkable);
    QVERIFY(!action->isChecked());
    QVERIFY(action->isEnabled());

    QVERIFY(qobject_cast<VxAnimationAction *>(action.get()));
    QVERIFY(action->inherits(row.base));
    QCOMPARE(action->getDefaultMenuPath(), QString("Animation"));
    QCOMPARE(action->getActionGroup(), QString(row.group));
    QCOMPARE(action->isClipboardAction(),
             QLatin1String(row.className) == QLatin1String("VxTimePaneCopySelectedKeysAction"));

    const auto *choice = dynamic_cast<const TimePaneChoice *>(action.get());
    QCOMPARE(choice != nullptr, row.value >= 0);
    if (choice)
        QCOMPARE(choice->value(), row.value);
}

void TestVxTimelineActions::paneAction()
{
    const std::unique_ptr<VxAction> action = createAction("VxTimePaneAction");
    const auto *paneAction = qobject_cast<VxPaneAction *>(action.get());
    QVERIFY(paneAction);
    QCOMPARE(paneAction->objectName(), QString("VxTimePaneAction"));
    QCOMPARE(paneAction->getPaneClassName(), QString("VxTimePane"));
}

// Two actions with one shortcut would leave both dead.
void TestVxTimelineActions::shortcuts()
{
    QHash<QString, QString> taken;
    for (const ActionRow &row : actionRows) {
        const QString accel = createAction(row.className)->getDefaultAccel();
        if (accel.isEmpty())
            continue;
        const QKeySequence sequence = QKeySequence::fromString(accel, QKeySequence::PortableText);
        QCOMPARE(sequence.toString(QKeySequence::PortableText), accel);
        QVERIFY2(!taken.contains(accel), qPrintable(accel + " of " + taken.value(accel)));
        taken.insert(accel, row.className);
    }
    const QHash<QString, QString> expected = {
        {"Space", "VxPlayToggleAction"},
        {"Left", "VxPrevFrameAction"},
        {"Right", "VxNextFrameAction"},
        {"Home", "VxSkipToPlayrangeStartAction"},
        {"End", "VxSkipToPlayrangeEndAction"},
        {"Ctrl+Left", "VxTimePanePrevKeyAction"},
        {"Ctrl+Right", "VxTimePaneNextKeyAction"},
        {"K", "VxTimePaneCreateKeysAction"},
        {"Del", "VxTimePaneDeleteSelectedKeysAction"},
        {"Ctrl+C", "VxTimePaneCopySelectedKeysAction"},
        {"Ctrl+V", "VxTimePanePasteKeysAction"},
        {"F", "VxTimePaneFrameGraphKeysAction"},
    };
    QCOMPARE(taken, expected);
}

void TestVxTimelineActions::triggerWithoutPane_data()
{
    addRows();
}

void TestVxTimelineActions::triggerWithoutPane()
{
    QFETCH(int, index);
    const ActionRow &row = actionRows[index];
    const std::unique_ptr<VxAction> action = createAction(row.className);
    m_guard->expect(missingPaneWarning(row.execute));
    action->trigger();
    QCOMPARE(m_guard->messages().size(), 1);
}

void TestVxTimelineActions::initWithoutPane_data()
{
    addRows();
}

void TestVxTimelineActions::initWithoutPane()
{
    QFETCH(int, index);
    const ActionRow &row = actionRows[index];
    const std::unique_ptr<VxAction> action = createAction(row.className);
    m_guard->expect(missingPaneWarning(row.init));
    action->init();
    QCOMPARE(m_guard->messages().size(), 1);
    QVERIFY(!action->isChecked());
}

void TestVxTimelineActions::mainWindowWithoutPane()
{
    VxMainWindow window;
    QVERIFY(!VxAnimationAction::findTimePane());
    m_guard->expect(missingPaneWarning("VxNextFrameAction::executeAction()"));
    createAction("VxNextFrameAction")->trigger();
}

void TestVxTimelineActions::paneIsFoundUntilItIsDestroyed()
{
    {
        VxMainWindow window;
        QVERIFY(!VxAnimationAction::findTimePane());
        auto *pane = new VxTimePane;
        window.getPaneMgr()->addPane(pane);
        QCOMPARE(VxAnimationAction::findTimePane(), pane);
        delete pane;
        QVERIFY(!VxAnimationAction::findTimePane());
        auto *second = new VxTimePane;
        window.getPaneMgr()->addPane(second);
        QCOMPARE(VxAnimationAction::findTimePane(), second);
        window.getPaneMgr()->destroyPanes();
    }
    QVERIFY(!VxAnimationAction::findTimePane());
}

void TestVxTimelineActions::cachedPaneIsNotSearchedForAgain()
{
    const Stage stage;
    QCOMPARE(VxAnimationAction::findTimePane(), stage.pane);
    const VxMainWindow window;
    QCOMPARE(vxApp->getInterface(), &window);
    QVERIFY(!window.getPaneMgr()->findPane("VxTimePane"));
    QCOMPARE(VxAnimationAction::findTimePane(), stage.pane);
}

void TestVxTimelineActions::everyActionRegistersWithThePane()
{
    const Stage stage;
    const QVector<QAction *> registered = stage.pane->getRegisteredActions();
    for (const ActionRow &row : actionRows)
        QCOMPARE(registered.count(stage.action(row.className)), 1);
    QCOMPARE(registered.size(), int(std::size(actionRows)));
}

// Scripts can make one beside the application's.
void TestVxTimelineActions::aSecondPaneLeavesTheMarksAlone()
{
    const Stage stage;
    stage.trigger("VxTimePaneBasicViewAction");
    stage.trigger("VxTimePaneControlsTopAction");
    VxTimePane second;
    QCOMPARE(second.getViewMode(), VxTimePane::AdvancedView);
    QCOMPARE(stage.checked("VxTimePaneViewModeAction"), QStringList("VxTimePaneBasicViewAction"));
    QCOMPARE(stage.checked("VxTimePaneControlsPositionAction"),
             QStringList("VxTimePaneControlsTopAction"));
    second.setViewMode(VxTimePane::IntermediateView);
    second.setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    stage.window.getActionMgr()->initActions();
    QCOMPARE(stage.checked("VxTimePaneViewModeAction"), QStringList("VxTimePaneBasicViewAction"));
    QCOMPARE(stage.checked("VxTimePaneSetKeyScopeAction"),
             QStringList("VxTimePaneSetKeyScopeNodeAction"));
}

void TestVxTimelineActions::animationMenu()
{
    const Stage stage;
    QMenuBar menuBar;
    stage.window.getActionMgr()->populateMenuBar(&menuBar);
    const QMenu *menu = nullptr;
    for (const QAction *entry : menuBar.actions()) {
        if (entry->text() == QLatin1String("Animation"))
            menu = entry->menu();
    }
    QVERIFY(menu);
    const auto texts = [](const QWidget *shown) {
        QStringList entries;
        for (const QAction *entry : shown->actions())
            entries += entry->isSeparator() ? QStringLiteral("-") : entry->text();
        return entries;
    };
    QCOMPARE(texts(menu), QStringList({"Preferences",
                                       "Set Key Interpolation",
                                       "-",
                                       "Select Keys",
                                       "-",
                                       "Play / Pause",
                                       "Toggle Looping",
                                       "Play All Frames",
                                       "-",
                                       "Step to Previous Frame",
                                       "Step to Next Frame",
                                       "Skip to Play Range Start",
                                       "Skip to Play Range End",
                                       "-",
                                       "Skip to Previous Key (Filtered)",
                                       "Skip to Next Key (Filtered)",
                                       "Skip to Previous Key",
                                       "Skip to Next Key",
                                       "-",
                                       "Create Keys (Filtered)",
                                       "Delete Selected Keys",
                                       "Copy Selected Key(s)",
                                       "Paste Key(s)",
                                       "Create Keys (Selected Nodes)",
                                       "Delete Keys (Selected Nodes)",
                                       "-",
                                       "Rows",
                                       "-",
                                       "Show Key Graph",
                                       "Monitor Parameters Pane",
                                       "Frame Keys",
                                       "Refresh"}));
    const auto folder = [menu](const char *title) -> const QMenu * {
        for (const QAction *entry : menu->actions()) {
            if (entry->menu() && entry->text() == QLatin1String(title))
                return entry->menu();
        }
        qFatal("no sub-menu %s", title);
    };
    QCOMPARE(texts(folder("Select Keys")),
             QStringList({"Select Item Keys (Filtered)", "Select All Item Keys (Filtered)",
                          "Deselect Item Keys (Filtered)", "Deselect All Item Keys (Filtered)"}));
    QCOMPARE(texts(folder("Rows")),
             QStringList({"Expand All", "Expand Item", "Expand from Item", "Expand Keyed from Item",
                          "-", "Collapse All", "Collapse Item", "Collapse from Item",
                          "Collapse Non-Keyed from Item", "-", "Move Root Node to Top",
                          "Move Root Node Up", "Move Root Node Down", "Move Root Node to Bottom"}));
}

void TestVxTimelineActions::initTwice()
{
    Stage stage;
    const QStringList scope = stage.checked("VxTimePaneSetKeyScopeAction");
    const QStringList types = stage.checked("VxTimePaneSetPropertyTypeAction");
    stage.window.getActionMgr()->initActions();
    QCOMPARE(stage.pane->getRegisteredActions().size(), int(std::size(actionRows)));
    QCOMPARE(stage.checked("VxTimePaneSetKeyScopeAction"), scope);
    QCOMPARE(stage.checked("VxTimePaneSetPropertyTypeAction"), types);

    // The signal is connected once.
    QSignalSpy toggled(stage.action("VxTimePaneMonitorParametersPaneAction"), &QAction::toggled);
    stage.pane->setMonitorParametersPane(!stage.pane->getMonitorParametersPane());
    QCOMPARE(toggled.size(), 1);
}

void TestVxTimelineActions::exclusiveChoice_data()
{
    QTest::addColumn<QString>("base");
    QTest::newRow("controls position") << "VxTimePaneControlsPositionAction";
    QTest::newRow("view mode") << "VxTimePaneViewModeAction";
}

void TestVxTimelineActions::exclusiveChoice()
{
    QFETCH(QString, base);
    const Stage stage;
    const auto current = [&] {
        return base == "VxTimePaneViewModeAction" ? int(stage.pane->getViewMode())
                                                  : int(stage.pane->getControlsPosition());
    };
    int tried = 0;
    for (const ActionRow &row : actionRows) {
        if (base != row.base)
            continue;
        stage.trigger(row.className);
        QCOMPARE(current(), row.value);
        QCOMPARE(stage.checked(row.base), QStringList(row.className));
        ++tried;
    }
    QVERIFY(tried >= 2);
}

void TestVxTimelineActions::choosingTheCurrentChoice_data()
{
    QTest::addColumn<QString>("className");
    QTest::newRow("controls position") << "VxTimePaneControlsTopAction";
    QTest::newRow("view mode") << "VxTimePaneIntermediateViewAction";
    QTest::newRow("key scope") << "VxTimePaneSetKeyScopeObjectAction";
}

void TestVxTimelineActions::choosingTheCurrentChoice()
{
    QFETCH(QString, className);
    const Stage stage;
    VxAction *action = stage.action(qPrintable(className));
    action->trigger();
    QVERIFY(action->isChecked());
    int changes = 0;
    const auto count = [&changes] { ++changes; };
    connect(stage.pane, &VxTimePane::viewModeChanged, this, count);
    connect(stage.pane, &VxTimePane::controlsPositionChanged, this, count);
    action->trigger();
    QVERIFY(action->isChecked());
    QCOMPARE(changes, 0);
    for (const ActionRow &row : actionRows) {
        if (className == row.className)
            QCOMPARE(stage.checked(row.base), QStringList(className));
    }
}

void TestVxTimelineActions::uncheckedChoiceOfTheCurrentValue()
{
    const Stage stage;
    stage.trigger("VxTimePaneBasicViewAction");
    QCOMPARE(stage.pane->getViewMode(), VxTimePane::BasicView);
    VxAction *action = stage.action("VxTimePaneBasicViewAction");
    setCheckedSilently(action, false);
    int changes = 0;
    connect(stage.pane, &VxTimePane::viewModeChanged, this, [&changes] { ++changes; });
    action->trigger();
    QVERIFY(action->isChecked());
    QCOMPARE(stage.pane->getViewMode(), VxTimePane::BasicView);
    QCOMPARE(changes, 0);
}

// Setting a scope selects the rows anew; what is set already is not set again.
void TestVxTimelineActions::scopeThatIsSetStays()
{
    Stage stage;
    vxScene->addNode(new VxNode("a"));
    vxScene->selectAllNodes(true);
    stage.trigger("VxTimePaneAdvancedViewAction");
    stage.trigger("VxTimePaneSetKeyScopeNodeAction");
    stage.window.resize(900, 500);
    stage.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
    QItemSelectionModel *rows = stage.pane->getDopeSheetView()->selectionModel();
    QTRY_COMPARE(rows->selectedRows().size(), 1);
    rows->reset();
    stage.trigger("VxTimePaneSetKeyScopeNodeAction");
    QCoreApplication::processEvents();
    QCOMPARE(rows->selectedRows().size(), 0);
    QVERIFY(stage.action("VxTimePaneSetKeyScopeNodeAction")->isChecked());
    stage.trigger("VxTimePaneSetKeyScopeObjectAction");
    QCOMPARE(rows->selectedRows().size(), 1);
}

void TestVxTimelineActions::keyScopes()
{
    const Stage stage;
    stage.trigger("VxTimePaneAdvancedViewAction");
    const char *const base = "VxTimePaneSetKeyScopeAction";
    QCOMPARE(stage.checked(base), QStringList("VxTimePaneSetKeyScopeNodeAction"));
    const char *const order[] = {
        "VxTimePaneSetKeyScopePropertiesAction", "VxTimePaneSetKeyScopeObjectAction",
        "VxTimePaneSetKeyScopeNodeAction", "VxTimePaneSetKeyScopeNodeRecurseAction"};
    for (const char *className : order) {
        stage.trigger(className);
        QCOMPARE(stage.checked(base), QStringList(className));
        const auto *choice = dynamic_cast<TimePaneChoice *>(stage.action(className));
        QCOMPARE(int(stage.pane->getFilteredKeyCreationScope()), choice->value());
    }
}

void TestVxTimelineActions::propertyTypeFlags()
{
    const Stage stage;
    stage.pane->setFilteredPropertyTypes(VxTimePane::PropTranslate | VxTimePane::PropOther |
                                         VxTimePane::PropHidden);
    QVERIFY(stage.action("VxTimePaneSetPropertyTypeOtherAction")->isChecked());
    stage.trigger("VxTimePaneSetPropertyTypeOtherAction");
    QCOMPARE(int(stage.pane->getFilteredPropertyTypes()), 0x21);
    QVERIFY(!stage.action("VxTimePaneSetPropertyTypeOtherAction")->isChecked());
    stage.trigger("VxTimePaneSetPropertyTypeAliasAction");
    QCOMPARE(int(stage.pane->getFilteredPropertyTypes()), 0x31);
    QCOMPARE(stage.checked("VxTimePaneSetPropertyTypeAction"),
             QStringList({"VxTimePaneSetPropertyTypeTranslationAction",
                          "VxTimePaneSetPropertyTypeAliasAction",
                          "VxTimePaneSetPropertyTypeHiddenAction"}));
    int all = 0;
    for (const ActionRow &row : actionRows) {
        if (QLatin1String(row.base) != QLatin1String("VxTimePaneSetPropertyTypeAction"))
            continue;
        if (!stage.action(row.className)->isChecked())
            stage.trigger(row.className);
        all |= row.value;
    }
    QCOMPARE(all, 0x3f);
    QCOMPARE(int(stage.pane->getFilteredPropertyTypes()), all);
}

// One that a script makes: its own check mark does not count for the pane, what it sets does.
void TestVxTimelineActions::propertyTypeOfAnActionOfItsOwn()
{
    const Stage stage;
    stage.pane->setFilteredPropertyTypes(VxTimePane::PropTranslate | VxTimePane::PropOther);
    const std::unique_ptr<VxAction> own = createAction("VxTimePaneSetPropertyTypeOtherAction");
    setCheckedSilently(own.get(), true);
    own->trigger();
    QCOMPARE(int(stage.pane->getFilteredPropertyTypes()), 0x1);
    QVERIFY(!stage.action("VxTimePaneSetPropertyTypeOtherAction")->isChecked());
    own->trigger();
    QCOMPARE(int(stage.pane->getFilteredPropertyTypes()), 0x9);
    QVERIFY(stage.action("VxTimePaneSetPropertyTypeOtherAction")->isChecked());
}

void TestVxTimelineActions::keyGraphFollowsThePane()
{
    const Stage stage;
    stage.trigger("VxTimePaneAdvancedViewAction");
    stage.pane->setKeyGraphOpen(true);
    VxAction *action = stage.action("VxTimePaneKeyGraphToggleAction");
    QVERIFY(action->isChecked());
    action->trigger();
    QVERIFY(!action->isChecked());
    QVERIFY(!stage.pane->getKeyGraphOpen());
    stage.pane->toggleKeyGraph();
    QVERIFY(action->isChecked());

    // Outside of the advanced view the pane refuses, and the check mark shows that.
    stage.trigger("VxTimePaneBasicViewAction");
    action->trigger();
    QVERIFY(stage.pane->getKeyGraphOpen());
    QVERIFY(action->isChecked());
}

void TestVxTimelineActions::monitorParametersPaneFollowsThePane()
{
    const Stage stage;
    VxAction *action = stage.action("VxTimePaneMonitorParametersPaneAction");
    QVERIFY(!action->isChecked());
    action->trigger();
    QVERIFY(stage.pane->getMonitorParametersPane());
    QVERIFY(action->isChecked());
    stage.pane->setMonitorParametersPane(false);
    QVERIFY(!action->isChecked());
}

void TestVxTimelineActions::playAllFramesFollowsThePane()
{
    const Stage stage;
    VxAction *action = stage.action("VxTimePanePlayAllFramesAction");
    QVERIFY(!action->isChecked());
    action->trigger();
    QVERIFY(stage.pane->getPlayAllFrames());
    QVERIFY(action->isChecked());
    stage.pane->setPlayAllFrames(false);
    QVERIFY(!action->isChecked());
}

void TestVxTimelineActions::optionsReadThePaneAtInit()
{
    const Stage stage;
    stage.trigger("VxTimePaneAdvancedViewAction");
    stage.pane->setKeyGraphOpen(true);
    stage.pane->setMonitorParametersPane(true);
    stage.pane->setPlayAllFrames(true);
    for (const char *className :
         {"VxTimePaneKeyGraphToggleAction", "VxTimePaneMonitorParametersPaneAction",
          "VxTimePanePlayAllFramesAction"}) {
        const std::unique_ptr<VxAction> action = createAction(className);
        QVERIFY(!action->isChecked());
        action->init();
        QVERIFY2(action->isChecked(), className);
    }
}

// As a script can make it.
void TestVxTimelineActions::optionThatIsNotCheckable()
{
    const Stage stage;
    const bool playsAll = stage.pane->getPlayAllFrames();
    VxAction *action = stage.action("VxTimePanePlayAllFramesAction");
    action->setCheckable(false);
    action->trigger();
    action->setCheckable(true);
    QCOMPARE(stage.pane->getPlayAllFrames(), playsAll);
    action->trigger();
    QCOMPARE(stage.pane->getPlayAllFrames(), !playsAll);
}

VX_TEST_MAIN(TestVxTimelineActions)
#include "tst_vxtimelineactions.moc"
