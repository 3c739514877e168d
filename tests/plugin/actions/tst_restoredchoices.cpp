#include "actionstage.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/pane/timepanechoice.h"

#include <vxcore/vxsettings.h>
#include <vxcore/vxstyledbutton.h>

// The four choices that actions represent, restored from the settings of an earlier session: the
// pane, its buttons and the check marks agree, whether the actions or the pane are created first.
class TestRestoredChoices : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void bothOrders_data();
    void bothOrders();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
};

void TestRestoredChoices::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
}

void TestRestoredChoices::cleanup()
{
    m_app.reset();
    m_guard.reset();
}

void TestRestoredChoices::bothOrders_data()
{
    QTest::addColumn<bool>("actionsFirst");
    QTest::addColumn<int>("scope");
    QTest::addColumn<int>("types");
    QTest::addColumn<int>("position");
    for (const bool actionsFirst : {true, false}) {
        for (int scope = 0; scope < 4; ++scope)
            QTest::addRow("%s first, scope %d", actionsFirst ? "actions" : "pane", scope)
                << actionsFirst << scope << (1 << scope | 32) << scope % 2;
    }
}

void TestRestoredChoices::bothOrders()
{
    QFETCH(bool, actionsFirst);
    QFETCH(int, scope);
    QFETCH(int, types);
    QFETCH(int, position);
    VxSettings settings;
    {
        const Stage former;
        former.pane->setViewMode(VxTimePane::AdvancedView);
        former.pane->setControlsPosition(VxTimePane::ControlsPosition(position));
        former.pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(types));
        former.pane->setFilteredKeyCreationScope(VxTimePane::KeyScope(scope));
        former.pane->saveSettings(&settings);
    }

    VxMainWindow window;
    const auto addActions = [&window] {
        for (const char *className : registeredClasses) {
            if (QLatin1String(className) != QLatin1String("VxTimePane"))
                window.getActionMgr()->addAction(
                    createAction(QString::fromLatin1(className)).release());
        }
    };
    if (actionsFirst)
        addActions();
    auto *pane = new VxTimePane;
    window.getPaneMgr()->addPane(pane);
    window.setCentralWidget(pane);
    pane->restoreSettings(&settings);
    if (!actionsFirst)
        addActions();
    window.getActionMgr()->initActions();

    QCOMPARE(int(pane->getFilteredKeyCreationScope()), scope);
    QCOMPARE(int(pane->getFilteredPropertyTypes()), types);
    QCOMPARE(int(pane->getControlsPosition()), position);
    QCOMPARE(pane->getViewMode(), VxTimePane::AdvancedView);
    int checkedScopes = 0;
    for (const VxAction *action : window.getActionMgr()->getActions()) {
        const auto *choice = dynamic_cast<const TimePaneChoice *>(action);
        if (!choice)
            continue;
        const QByteArray name = action->metaObject()->className();
        switch (choice->family()) {
        case TimePaneChoice::ControlsPositionFamily:
            QVERIFY2(action->isChecked() == (choice->value() == position), name);
            break;
        case TimePaneChoice::ViewModeFamily:
            QVERIFY2(action->isChecked() == (choice->value() == VxTimePane::AdvancedView), name);
            break;
        case TimePaneChoice::KeyScopeFamily:
            QVERIFY2(action->isChecked() == (choice->value() == scope), name);
            if (action->isChecked()) {
                ++checkedScopes;
                QCOMPARE(pane->findChild<VxStyledButton *>("TimelineKeyScopeBtn")->text(),
                         action->text());
            }
            break;
        case TimePaneChoice::PropertyTypeFamily:
            QVERIFY2(action->isChecked() == ((choice->value() & types) != 0), name);
            break;
        }
    }
    QCOMPARE(checkedScopes, 1);
}

VX_TEST_MAIN(TestRestoredChoices)
#include "tst_restoredchoices.moc"
