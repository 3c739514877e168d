#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/widgets/vxfiltermenu.h"

#include <vxcore/vxactionmenu.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxstyledbutton.h>

// Choices and their check marks, menus, and what is kept from session to session.
class TestTimePaneSettings : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void menus();
    void checkMarksFollow();
    void destroyedActionsAreRemoved();
    void lateActionsGetTheirMarks();
    void propertyTypesByCheckMarks();
    void noneChecksOnlyTheChoiceNone();
    void scopeByCheckMarks();
    void tickingInTheFilterMenuNotifiesOnce();
    void placeholders();
    void emptyStoreRestoresDefaults();
    void staleKeysAreReadInOrder();
    void savingWritesThePresentChoicesOnly();
    void savingEachChoice_data();
    void savingEachChoice();
    void settingsRoundTrip();
    void optionsMenu();
    void optionsMenuKeepsPresentEntries();

private:
    QString describe(const VxActionMenu *menu) const;
};

QString TestTimePaneSettings::describe(const VxActionMenu *menu) const
{
    QStringList entries;
    for (int i = 0; i < menu->getNumEntries(); ++i) {
        switch (menu->getEntryKind(i)) {
        case VxActionMenu::EntryKind::Action:
            entries += menu->getEntryName(i);
            break;
        case VxActionMenu::EntryKind::Separator:
            entries += QStringLiteral("-");
            break;
        case VxActionMenu::EntryKind::SubMenu:
            entries +=
                QStringLiteral("%1{%2}").arg(menu->getEntryName(i), describe(menu->getSubMenu(i)));
            break;
        }
    }
    return entries.join(QLatin1Char(' '));
}

void TestTimePaneSettings::menus()
{
    const auto menuOf = [this](const char *button) {
        return describe(find<VxStyledButton>(button)->findChild<VxActionMenu *>());
    };
    QCOMPARE(menuOf("TimelinePropertyTypesBtn"),
             QStringLiteral("VxTimePaneSetPropertyTypeTranslationAction "
                            "VxTimePaneSetPropertyTypeRotationAction "
                            "VxTimePaneSetPropertyTypeScaleAction "
                            "VxTimePaneSetPropertyTypeOtherAction "
                            "VxTimePaneSetPropertyTypeAliasAction "
                            "VxTimePaneSetPropertyTypeHiddenAction"));
    QCOMPARE(menuOf("TimelineKeyScopeBtn"),
             QStringLiteral("VxTimePaneSetKeyScopeObjectAction "
                            "VxTimePaneSetKeyScopeNodeRecurseAction "
                            "VxTimePaneSetKeyScopeNodeAction - "
                            "VxTimePaneSetKeyScopePropertiesAction"));
    QCOMPARE(menuOf("TimelineInterpTypeBtn"),
             QStringLiteral("VxTimePaneSetInterpTcbAction VxTimePaneSetInterpLinearAction "
                            "VxTimePaneSetInterpConstantAction"));
    const auto *types = find<VxStyledButton>("TimelinePropertyTypesBtn");
    QVERIFY(qobject_cast<VxFilterMenu *>(types->menu()));
    QVERIFY(types->displayDownArrow());
    QCOMPARE(types->elideMode(), Qt::ElideRight);
    const auto *scope = find<VxStyledButton>("TimelineKeyScopeBtn");
    QVERIFY(scope->menu());
    QVERIFY(scope->displayDownArrow());
    QCOMPARE(scope->elideMode(), Qt::ElideRight);
    QVERIFY(find<VxStyledButton>("TimelineInterpTypeBtn")->menu());
}

void TestTimePaneSettings::checkMarksFollow()
{
    addChoices(TimePaneChoice::ControlsPositionFamily, {0, 1});
    addChoices(TimePaneChoice::ViewModeFamily, {0, 1, 2});
    QCOMPARE(checked(TimePaneChoice::ControlsPositionFamily), QVector<int>({0}));
    QCOMPARE(checked(TimePaneChoice::ViewModeFamily), QVector<int>({2}));
    int toggles = 0;
    for (const auto &action : actions)
        connect(action.get(), &QAction::toggled, this, [&toggles] { ++toggles; });
    pane->setControlsPosition(VxTimePane::ControlsTop);
    pane->setViewMode(VxTimePane::IntermediateView);
    QCOMPARE(checked(TimePaneChoice::ControlsPositionFamily), QVector<int>({1}));
    QCOMPARE(checked(TimePaneChoice::ViewModeFamily), QVector<int>({1}));
    QCOMPARE(toggles, 0);
}

void TestTimePaneSettings::destroyedActionsAreRemoved()
{
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    QCOMPARE(pane->getRegisteredActions().size(), 4);
    pane->registerAction(actions.front().get());
    pane->registerAction(nullptr);
    QCOMPARE(pane->getRegisteredActions().size(), 4);
    actions.erase(actions.begin());
    QCOMPARE(pane->getRegisteredActions().size(), 3);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeProperties);
}

void TestTimePaneSettings::lateActionsGetTheirMarks()
{
    pane->setFilteredPropertyTypes(VxTimePane::PropScale | VxTimePane::PropHidden);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeNodeRecurse);
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 36);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNodeRecurse);
    QCOMPARE(find<VxStyledButton>("TimelinePropertyTypesBtn")->text(), QStringLiteral("SH"));
}

void TestTimePaneSettings::propertyTypesByCheckMarks()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    const auto *button = find<VxStyledButton>("TimelinePropertyTypesBtn");
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate | VxTimePane::PropRotate |
                                   VxTimePane::PropAlias);
    QCOMPARE(checked(TimePaneChoice::PropertyTypeFamily), QVector<int>({1, 2, 16}));
    QCOMPARE(button->text(), QStringLiteral("TRA"));
    actions.back()->setChecked(true);
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 51);
    pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(63));
    QCOMPARE(button->text(), QStringLiteral("TRSOAH"));
    pane->setFilteredPropertyTypes(VxTimePane::PropNone);
    QCOMPARE(button->text(), QString());
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 0);
}

void TestTimePaneSettings::noneChecksOnlyTheChoiceNone()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {0, 1, 2});
    pane->setFilteredPropertyTypes(VxTimePane::PropRotate);
    QCOMPARE(checked(TimePaneChoice::PropertyTypeFamily), QVector<int>({2}));
    pane->setFilteredPropertyTypes(VxTimePane::PropNone);
    QCOMPARE(checked(TimePaneChoice::PropertyTypeFamily), QVector<int>({0}));
}

void TestTimePaneSettings::scopeByCheckMarks()
{
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    actions.front()->setText(QStringLiteral("Object"));
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    QCOMPARE(checked(TimePaneChoice::KeyScopeFamily), QVector<int>({0}));
    QCOMPARE(find<VxStyledButton>("TimelineKeyScopeBtn")->text(), QStringLiteral("Object"));
    actions.front()->setChecked(false);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNode);
}

// Ticking triggers the action, which sets the pane's types, which notifies the menu: one change.
void TestTimePaneSettings::tickingInTheFilterMenuNotifiesOnce()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2});
    ChoiceAction *action = actions.front().get();
    action->setText(QStringLiteral("Translation (T)"));
    connect(action, &QAction::triggered, this, [this](bool onOff) {
        pane->setFilteredPropertyTypes(onOff ? VxTimePane::PropTranslate : VxTimePane::PropNone);
    });
    showPane();
    auto *menu =
        qobject_cast<VxFilterMenu *>(find<VxStyledButton>("TimelinePropertyTypesBtn")->menu());
    menu->addAction(action);
    const QSignalSpy changes(menu, &VxFilterMenu::filterChanged);
    // Shown without popup(), by which it would fill itself with the registered actions.
    menu->adjustSize();
    menu->show();
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(action).center());
    QVERIFY(menu->isVisible());
    QVERIFY(action->isChecked());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 1);
    menu->close();
}

void TestTimePaneSettings::placeholders()
{
    pane->setFilterText(QStringLiteral("hip"));
    QCOMPARE(pane->getFilterText(), QString());
    QCOMPARE(pane->getNumFilteredMatches(), -1);
    QVERIFY(!pane->searchDopesheetNext());
    QVERIFY(!pane->searchDopesheetPrevious());
    QVERIFY(!pane->hasSelectedKeys());
    QVERIFY(!pane->hasCopiedKeys());
    QVERIFY(!pane->hasDopeSheetItemContext());
}

void TestTimePaneSettings::emptyStoreRestoresDefaults()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    VxSettings settings;
    pane->restoreSettings(&settings);
    QCOMPARE(pane->getControlsPosition(), VxTimePane::ControlsBottom);
    QCOMPARE(pane->getViewMode(), VxTimePane::BasicView);
    QVERIFY(pane->getKeyGraphOpen());
    QVERIFY(!pane->getMonitorParametersPane());
    QVERIFY(!pane->getPlayAllFrames());
    QCOMPARE(pane->getFilteredPropertyTypes(),
             VxTimePane::PropTranslate | VxTimePane::PropRotate | VxTimePane::PropAlias);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNode);
}

void TestTimePaneSettings::staleKeysAreReadInOrder()
{
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    VxSettings settings;
    for (const char *key : {"AdvancedView", "IntermediateView", "BasicView", "ScopeNode",
                            "ScopeProperties", "ScopeNodeRecurse", "ControlsBottom", "ControlsTop"})
        settings.setBoolValue(QLatin1String(key), true);
    pane->setViewMode(VxTimePane::BasicView);
    pane->restoreSettings(&settings);
    QCOMPARE(pane->getViewMode(), VxTimePane::AdvancedView);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeNodeRecurse);
    QCOMPARE(pane->getControlsPosition(), VxTimePane::ControlsTop);
    // Advanced by now, so the closed graph of the store counts.
    QVERIFY(!pane->getKeyGraphOpen());
}

void TestTimePaneSettings::savingWritesThePresentChoicesOnly()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    pane->setFilteredPropertyTypes(VxTimePane::PropOther);
    pane->setViewMode(VxTimePane::IntermediateView);
    VxSettings settings;
    settings.setBoolValue(QStringLiteral("AdvancedView"), true);
    pane->saveSettings(&settings);
    QStringList keys = settings.getKeys();
    keys.sort();
    QCOMPARE(keys,
             QStringList({"AdvancedView", "ControlsBottom", "GraphOpen", "IntermediateView",
                          "MonitorParametersPane", "PlayAllFrames", "PropAlias", "PropHidden",
                          "PropOther", "PropRotate", "PropScale", "PropTranslate", "ScopeNode"}));
    QVERIFY(settings.getBoolValue(QStringLiteral("IntermediateView")));
    QVERIFY(settings.getBoolValue(QStringLiteral("AdvancedView")));
    QVERIFY(settings.getBoolValue(QStringLiteral("PropOther")));
    QVERIFY(!settings.getBoolValue(QStringLiteral("PropAlias"), true));
}

void TestTimePaneSettings::savingEachChoice_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("scope");
    QTest::addColumn<QStringList>("written");
    QTest::newRow("basic") << 0 << 0 << 0
                           << QStringList({"BasicView", "ControlsBottom", "ScopeObject"});
    QTest::newRow("intermediate") << 1 << 1 << 1
                                  << QStringList(
                                         {"ControlsTop", "IntermediateView", "ScopeNodeRecurse"});
    QTest::newRow("advanced") << 2 << 0 << 2
                              << QStringList({"AdvancedView", "ControlsBottom", "ScopeNode"});
    QTest::newRow("properties") << 2 << 1 << 3
                                << QStringList({"AdvancedView", "ControlsTop", "ScopeProperties"});
    QTest::newRow("no properties outside of the advanced view")
        << 0 << 0 << 3 << QStringList({"BasicView", "ControlsBottom", "ScopeNode"});
}

// What is false in the store, or true from another time, stays.
void TestTimePaneSettings::savingEachChoice()
{
    QFETCH(int, mode);
    QFETCH(int, position);
    QFETCH(int, scope);
    QFETCH(QStringList, written);
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    pane->setViewMode(VxTimePane::ViewMode(mode));
    pane->setControlsPosition(VxTimePane::ControlsPosition(position));
    pane->setFilteredKeyCreationScope(VxTimePane::KeyScope(scope));
    const QStringList choices = {"AdvancedView",     "BasicView",        "ControlsBottom",
                                 "ControlsTop",      "IntermediateView", "ScopeNode",
                                 "ScopeNodeRecurse", "ScopeObject",      "ScopeProperties"};
    for (const bool before : {false, true}) {
        VxSettings settings;
        for (const QString &key : choices)
            settings.setBoolValue(key, before);
        pane->saveSettings(&settings);
        for (const QString &key : choices) {
            QVERIFY2(settings.getBoolValue(key) == (before || written.contains(key)),
                     qPrintable(key));
        }
    }
}

void TestTimePaneSettings::settingsRoundTrip()
{
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    pane->setControlsPosition(VxTimePane::ControlsTop);
    pane->setKeyGraphOpen(false);
    pane->setMonitorParametersPane(true);
    pane->setPlayAllFrames(true);
    pane->setFilteredPropertyTypes(VxTimePane::PropScale | VxTimePane::PropHidden);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    VxSettings settings;
    pane->saveSettings(&settings);

    actions.clear();
    pane = std::make_unique<VxTimePane>();
    TimelinePlayback::setPlaysAllFrames(false);
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
    const QSignalSpy monitors(pane.get(), &VxTimePane::monitorParametersPaneChanged);
    const QSignalSpy frames(pane.get(), &VxTimePane::playAllFramesChanged);
    const QSignalSpy graph(pane.get(), &VxTimePane::keyGraphOpenChanged);
    pane->restoreSettings(&settings);
    QCOMPARE(pane->getControlsPosition(), VxTimePane::ControlsTop);
    QCOMPARE(pane->getViewMode(), VxTimePane::AdvancedView);
    QVERIFY(!pane->getKeyGraphOpen());
    QVERIFY(pane->getMonitorParametersPane());
    QVERIFY(pane->getPlayAllFrames());
    QCOMPARE(int(pane->getFilteredPropertyTypes()), 36);
    QCOMPARE(pane->getFilteredKeyCreationScope(), VxTimePane::ScopeProperties);
    QCOMPARE(monitors.count(), 1);
    QCOMPARE(frames.count(), 1);
    QCOMPARE(graph.count(), 1);
    pane->restoreSettings(&settings);
    QCOMPARE(monitors.count() + frames.count() + graph.count(), 3);
}

void TestTimePaneSettings::optionsMenu()
{
    QCOMPARE(pane->getOptionsMenuVersion(), 10);
    VxActionMenu menu;
    pane->buildOptionsMenu(&menu);
    const QString built = describe(&menu);
    const QString expected = QStringLiteral(
        "Preferences{Controls Position{VxTimePaneControlsBottomAction VxTimePaneControlsTopAction} "
        "- View Mode{VxTimePaneBasicViewAction VxTimePaneIntermediateViewAction "
        "VxTimePaneAdvancedViewAction} - Key Graph{VxTimePaneKeyGraphToggleAction - "
        "VxTimePaneMonitorParametersPaneAction} - Property "
        "Types{VxTimePaneSetPropertyTypeTranslationAction VxTimePaneSetPropertyTypeRotationAction "
        "VxTimePaneSetPropertyTypeScaleAction - VxTimePaneSetPropertyTypeOtherAction - "
        "VxTimePaneSetPropertyTypeAliasAction VxTimePaneSetPropertyTypeHiddenAction} - Key "
        "Creation Scope{VxTimePaneSetKeyScopeObjectAction VxTimePaneSetKeyScopeNodeRecurseAction "
        "VxTimePaneSetKeyScopeNodeAction - VxTimePaneSetKeyScopePropertiesAction} - "
        "VxTimePanePlayAllFramesAction -} - VxLoopToggleAction - VxPlayToggleAction - "
        "VxPrevFrameAction VxNextFrameAction - VxSkipToPlayrangeStartAction "
        "VxSkipToPlayrangeEndAction - VxTimePanePrevKeyAction VxSkipToPrevKeyAction "
        "VxTimePaneNextKeyAction VxSkipToNextKeyAction - VxTimePaneDeleteSelectedKeysAction "
        "VxDeleteKeysAction - VxTimePaneCreateKeysAction VxAddKeysAction - "
        "VxTimePaneCopySelectedKeysAction VxTimePanePasteKeysAction - Set Key "
        "Interpolation{VxTimePaneSetInterpTcbAction VxTimePaneSetInterpLinearAction "
        "VxTimePaneSetInterpConstantAction} - VxTimePaneExpandAllItemsAction "
        "VxTimePaneCollapseAllItemsAction - Clear Animation{VxClearKeysFigureAction "
        "VxClearKeysFigurePoseAction VxClearKeysFigureShapeAction - "
        "VxClearKeysSelectedItemsAction VxClearKeysPoseAction VxClearKeysShapeAction}");
    QCOMPARE(built, expected);
    pane->buildOptionsMenu(&menu);
    QCOMPARE(describe(&menu), built);
}

// Preferences of other modules are no reason to leave out the pane's own.
void TestTimePaneSettings::optionsMenuKeepsPresentEntries()
{
    VxActionMenu menu;
    menu.findOrCreateSubMenu(QStringLiteral("Preferences"))
        ->insertAction(QStringLiteral("OtherAction"));
    pane->buildOptionsMenu(&menu);
    const QString built = describe(&menu);
    QVERIFY2(built.startsWith(QStringLiteral("Preferences{OtherAction Controls Position{")),
             qPrintable(built));
    QCOMPARE(built.count(QStringLiteral("Preferences{")), 1);
    QVERIFY2(built.contains(QStringLiteral("VxTimePanePlayAllFramesAction -} - VxLoopToggle")),
             qPrintable(built));
    QVERIFY2(built.endsWith(QStringLiteral("VxClearKeysPoseAction VxClearKeysShapeAction}")),
             qPrintable(built));
    pane->buildOptionsMenu(&menu);
    QCOMPARE(describe(&menu), built);
}

VX_TEST_MAIN(TestTimePaneSettings)
#include "tst_vxtimepanesettings.moc"
