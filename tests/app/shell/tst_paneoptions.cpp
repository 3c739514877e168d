#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"
#include "viewport/vxviewportaction.h"

#include <QAbstractButton>
#include <QRandomGenerator>
#include <functional>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxstyle.h>

/// The Timeline's options in the program: kept from run to run, and shown with the right check
/// marks in its menu whoever changed them.
class tst_PaneOptions : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void firstStart();
    void everyChoiceIsKept_data();
    void everyChoiceIsKept();
    void changesOverManyRuns();
    void storeWithStaleChoices();
    void damagedValuesGiveDefaults();

    void marksAfterEachKindOfChange_data();
    void marksAfterEachKindOfChange();
    void marksAfterRandomChanges();
    void paneClosedAndMadeAnew();
    void pictures();

private:
    QString script(const QString &program) const;
    // The pane's options, one after another.
    QString options() const;
    // The classes of the menu's entries that are checked, in the order of the menu.
    QStringList markedEntries() const;
    // The expected check marks, by the state of the pane.
    QStringList expectedMarks() const;
    VxSettings *store() const
    {
        return vxApp->getSettings()->getSettings("Panes")->getSettings("VxTimePane");
    }

    VxSettings m_firstOptions; // of the first start
};

void tst_PaneOptions::init()
{
    const bool isFirst = !studio;
    setUpShared();
    if (isFirst)
        timePane()->saveSettings(&m_firstOptions);
    else
        timePane()->restoreSettings(&m_firstOptions);
}

QString tst_PaneOptions::script(const QString &program) const
{
    VxScriptError error;
    const QString result = vxApp->getScriptEngine()->evaluate(
        "var pane = App.findPane('VxTimePane'); " + program, QStringLiteral("test"), &error);
    if (!error.isNull())
        qFatal("%s", qPrintable(error.toString()));
    return result;
}

QString tst_PaneOptions::options() const
{
    return script(
        "[pane.getControlsPosition(), pane.getViewMode(), pane.getKeyGraphOpen(),"
        " pane.getMonitorParametersPane(), pane.getPlayAllFrames(),"
        " pane.getFilteredPropertyTypes(), pane.getFilteredKeyCreationScope()].join(' ')");
}

QStringList tst_PaneOptions::markedEntries() const
{
    QStringList marked;
    const std::function<void(const QMenu *)> walk = [&](const QMenu *menu) {
        for (const QAction *entry : menu->actions()) {
            if (entry->menu())
                walk(entry->menu());
            else if (entry->isChecked())
                marked += entry->objectName();
        }
    };
    walk(timePane()->getOptionsMenu()->getMenu());
    return marked;
}

QStringList tst_PaneOptions::expectedMarks() const
{
    const QStringList values = options().split(' ');
    const auto isOn = [&values](int index) { return values.at(index) == "true"; };
    const char *const scopes[] = {"Object", "NodeRecurse", "Node", "Properties"};
    const char *const types[] = {"Translation", "Rotation", "Scale", "Other", "Alias", "Hidden"};
    QStringList marks;
    marks += values.at(0) == "1" ? "ControlsTop" : "ControlsBottom";
    marks +=
        QStringList({"BasicView", "IntermediateView", "AdvancedView"}).at(values.at(1).toInt());
    if (isOn(2))
        marks += "KeyGraphToggle";
    if (isOn(3))
        marks += "MonitorParametersPane";
    for (int i = 0; i < 6; ++i) {
        if (values.at(5).toInt() & 1 << i)
            marks += QStringLiteral("SetPropertyType") + types[i];
    }
    marks += QStringLiteral("SetKeyScope") + scopes[values.at(6).toInt()];
    if (isOn(4))
        marks += "PlayAllFrames";
    for (QString &mark : marks)
        mark = "VxTimePane" + mark + "Action";
    return marks;
}

// At the first start of the program all of the pane is visible.
void tst_PaneOptions::firstStart()
{
    QCOMPARE(options(), QString("0 2 true false false 31 2"));
    QCOMPARE(markedEntries(), expectedMarks());
}

void tst_PaneOptions::everyChoiceIsKept_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("kept");
    QTest::newRow("controls on top") << "pane.setControlsPosition(1)"
                                     << "1 2 true false false 31 2";
    QTest::newRow("basic view") << "pane.setViewMode(0)"
                                << "0 0 true false false 31 2";
    QTest::newRow("intermediate view") << "pane.setViewMode(1)"
                                       << "0 1 true false false 31 2";
    QTest::newRow("graph closed") << "pane.setKeyGraphOpen(false)"
                                  << "0 2 false false false 31 2";
    QTest::newRow("monitoring") << "pane.setMonitorParametersPane(true)"
                                << "0 2 true true false 31 2";
    QTest::newRow("every frame") << "pane.setPlayAllFrames(true)"
                                 << "0 2 true false true 31 2";
    for (int i = 0; i < 6; ++i)
        QTest::addRow("property type %d", i)
            << QStringLiteral("pane.setFilteredPropertyTypes(%1)").arg(1 << i)
            << QStringLiteral("0 2 true false false %1 2").arg(1 << i);
    QTest::newRow("no property type") << "pane.setFilteredPropertyTypes(0)"
                                      << "0 2 true false false 0 2";
    for (int i = 0; i < 4; ++i)
        QTest::addRow("key scope %d", i)
            << QStringLiteral("pane.setFilteredKeyCreationScope(%1)").arg(i)
            << QStringLiteral("0 2 true false false 31 %1").arg(i);
}

void tst_PaneOptions::everyChoiceIsKept()
{
    QFETCH(QString, change);
    QFETCH(QString, kept);
    script(change);
    QCOMPARE(options(), kept);
    start();
    QCOMPARE(options(), kept);
    QCOMPARE(markedEntries(), expectedMarks());
}

// Each choice replaces the former one; none is restored.
void tst_PaneOptions::changesOverManyRuns()
{
    const char *const steps[][2] = {
        {"pane.setViewMode(0); pane.setControlsPosition(1); pane.setFilteredKeyCreationScope(0)",
         "1 0 true false false 31 0"},
        {"pane.setViewMode(1); pane.setControlsPosition(0); pane.setFilteredKeyCreationScope(1)",
         "0 1 true false false 31 1"},
        {"pane.setViewMode(2); pane.setControlsPosition(1); pane.setFilteredKeyCreationScope(3);"
         "pane.setKeyGraphOpen(false); pane.setFilteredPropertyTypes(37)",
         "1 2 false false false 37 3"},
        {"pane.setViewMode(2); pane.setFilteredKeyCreationScope(2); pane.setPlayAllFrames(true)",
         "1 2 false false true 37 2"},
        {"pane.setControlsPosition(0); pane.setPlayAllFrames(false); pane.setKeyGraphOpen(true)",
         "0 2 true false false 37 2"},
    };
    for (const auto &step : steps) {
        script(QLatin1String(step[0]));
        start();
        QCOMPARE(options(), QString(step[1]));
    }
}

// A file that an older program has written, with more than one choice of a kind.
void tst_PaneOptions::storeWithStaleChoices()
{
    for (const char *key : {"BasicView", "IntermediateView", "AdvancedView", "ControlsBottom",
                            "ControlsTop", "ScopeNode", "ScopeProperties"})
        store()->setBoolValue(QLatin1String(key), true);
    QVERIFY(vxApp->getSettings()->save(settingsFile("stale.json")));
    start({"--settings", settingsFile("stale.json")});
    QCOMPARE(options().left(3), QString("1 2"));
    QCOMPARE(options().right(1), QString("3"));
    script("pane.setViewMode(0); pane.setControlsPosition(0)");
    start({"--settings", settingsFile("stale.json")});
    QCOMPARE(options().left(3), QString("0 0"));
    QCOMPARE(options().right(1), QString("2")); // single properties only in the advanced view
}

void tst_PaneOptions::damagedValuesGiveDefaults()
{
    restartShared();
    for (const char *key : {"AdvancedView", "PropTranslate", "PropScale", "ControlsTop"})
        store()->setStringValue(QLatin1String(key), QStringLiteral("perhaps"));
    store()->removeValue("GraphOpen");
    QVERIFY(vxApp->getSettings()->save(settingsFile("damaged.json")));
    start({"--settings", settingsFile("damaged.json")});
    QCOMPARE(options(), QString("0 0 true false false 27 2"));
    QCOMPARE(markedEntries(), expectedMarks());
}

void tst_PaneOptions::marksAfterEachKindOfChange_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("script") << "pane.setViewMode(1); pane.setControlsPosition(1)";
    QTest::newRow("actions") << "App.action('VxTimePaneSetKeyScopeObjectAction').trigger();"
                                "App.action('VxTimePaneSetPropertyTypeOtherAction').trigger()";
    QTest::newRow("button of the key graph") << "TimelineKeyGraphBtn";
    QTest::newRow("restore") << "restore";
    QTest::newRow("scope that the view mode takes away")
        << "pane.setFilteredKeyCreationScope(3); pane.setViewMode(0)";
    QTest::newRow("graph refused") << "pane.setViewMode(0); pane.toggleKeyGraph();"
                                      "App.action('VxTimePaneKeyGraphToggleAction').trigger()";
    QTest::newRow("choice made twice") << "App.action('VxTimePaneBasicViewAction').trigger();"
                                          "App.action('VxTimePaneBasicViewAction').trigger();"
                                          "App.action('VxTimePaneControlsBottomAction').trigger()";
    QTest::newRow("invalid choices") << "";
}

void tst_PaneOptions::marksAfterEachKindOfChange()
{
    QFETCH(QString, change);
    const QStringList before = markedEntries();
    if (change == "restore") {
        VxSettings other;
        for (const char *key : {"ControlsTop", "IntermediateView", "PlayAllFrames", "ScopeObject",
                                "MonitorParametersPane", "PropHidden"})
            other.setBoolValue(QLatin1String(key), true);
        timePane()->restoreSettings(&other);
    } else if (change.startsWith("Timeline")) {
        auto *button = inTimePane<QAbstractButton>(qPrintable(change));
        VxMouseDriver(button).click(button->rect().center());
    } else if (change.isEmpty()) {
        guard->expect(QRegularExpression("Invalid value passed to VxTimePane::setViewMode"));
        guard->expect(
            QRegularExpression("Invalid value passed to VxTimePane::setControlsPosition"));
        script("pane.setViewMode(9); pane.setControlsPosition(-2)");
        QCOMPARE(markedEntries(), before);
        return;
    } else {
        script(change);
    }
    QCOMPARE(markedEntries(), expectedMarks());
    QVERIFY(markedEntries() != before);
}

// By slots, by actions and by restored settings, in any order.
void tst_PaneOptions::marksAfterRandomChanges()
{
    QRandomGenerator random(7);
    QStringList checkable;
    for (const VxAction *each : actions()->getActions()) {
        // Those of viewport and key tools have nothing to do with the pane.
        if (each->isCheckable() && !qobject_cast<const VxViewportAction *>(each) &&
            !each->objectName().startsWith(QLatin1String("VxKeyTools")))
            checkable += each->objectName();
    }
    QCOMPARE(checkable.size(), 18);
    const QStringList slotCalls = {
        "pane.setViewMode(%1 % 3)",
        "pane.setControlsPosition(%1 % 2)",
        "pane.setFilteredPropertyTypes(%1 % 64)",
        "pane.setFilteredKeyCreationScope(%1 % 4)",
        "pane.setKeyGraphOpen(%1 % 2 == 0)",
        "pane.toggleKeyGraph(%1)",
        "pane.setMonitorParametersPane(%1 % 2 == 0)",
        "pane.setPlayAllFrames(%1 % 2 == 0)",
    };
    const QStringList keys = {
        "ControlsTop",      "AdvancedView",  "IntermediateView", "GraphOpen",
        "PlayAllFrames",    "PropTranslate", "PropRotate",       "PropScale",
        "PropOther",        "PropAlias",     "PropHidden",       "ScopeObject",
        "ScopeNodeRecurse", "ScopeNode",     "ScopeProperties",  "MonitorParametersPane",
        "BasicView"};
    for (int step = 0; step < 400; ++step) {
        const quint32 kind = random.bounded(10u);
        QString done;
        if (kind < 5) {
            done = checkable.at(random.bounded(checkable.size()));
            action(qPrintable(done))->trigger();
        } else if (kind < 9) {
            done = slotCalls.at(random.bounded(slotCalls.size())).arg(random.bounded(1000));
            script(done);
        } else {
            VxSettings settings;
            for (const QString &key : keys)
                settings.setBoolValue(key, random.bounded(2) == 1);
            timePane()->restoreSettings(&settings);
            done = "restored";
        }
        const QStringList marked = markedEntries();
        QVERIFY2(marked == expectedMarks(),
                 qPrintable(QStringLiteral("step %1, %2: %3 instead of %4")
                                .arg(step)
                                .arg(done, marked.join(' '), expectedMarks().join(' '))));
    }
}

// Scripts and actions find the new pane, which begins with the options of the old one's store.
void tst_PaneOptions::paneClosedAndMadeAnew()
{
    script("pane.setViewMode(1); pane.setControlsPosition(1);"
           "pane.setFilteredKeyCreationScope(0); pane.setFilteredPropertyTypes(5)");
    window()->getPaneMgr()->saveSettings();
    QPointer<VxPane> former(timePane());
    delete timePane();
    QVERIFY(!former && !timePane());
    QCOMPARE(script("App.findPane('VxTimePane')"), QString("null"));
    guard->expect(QRegularExpression("No VxTimePane instance found in VxNextFrameAction"));
    action("VxNextFrameAction")->trigger();

    action("VxTimePaneAction")->trigger();
    QVERIFY(timePane());
    QCOMPARE(options(), QString("1 1 true false false 5 0"));
    QCOMPARE(markedEntries(), expectedMarks());
    action("VxTimePaneAdvancedViewAction")->trigger();
    QCOMPARE(options(), QString("1 2 true false false 5 0"));
    QCOMPARE(markedEntries(), expectedMarks());
    const VxTime before = vxScene->getTime();
    action("VxNextFrameAction")->trigger();
    QCOMPARE(vxScene->getTime(), before + vxScene->getTimeStep());
    QTRY_VERIFY(timePane()->isVisible());
}

// Pictures to look at, when a folder for them is named; that they differ is checked always.
void tst_PaneOptions::pictures()
{
    openSample();
    const QString pictureFolder = qEnvironmentVariable("VX_PICTURES");
    for (const VxStyle::ColorScheme scheme :
         {VxStyle::ColorScheme::Dark, VxStyle::ColorScheme::Light}) {
        const bool dark = scheme == VxStyle::ColorScheme::Dark;
        vxApp->getStyle()->setColorScheme(scheme);
        QMenu *menu = timePane()->getOptionsMenu()->getMenu();
        menu->popup(QPoint(100, 100));
        const QImage picture = menu->grab().toImage();
        QVERIFY((qGray(picture.pixel(picture.width() - 6, picture.height() / 2)) < 128) == dark);
        QMenu *preferences = menu->actions().constFirst()->menu();
        preferences->popup(QPoint(300, 100));
        QMenu *types = preferences->actions().at(6)->menu();
        types->popup(QPoint(500, 100));
        if (!pictureFolder.isEmpty()) {
            const QString name =
                pictureFolder + (dark ? "/options_dark_%1.png" : "/options_light_%1.png");
            QVERIFY(picture.save(name.arg(1)));
            QVERIFY(preferences->grab().save(name.arg(2)));
            QVERIFY(types->grab().save(name.arg(3)));
        }
        menu->close();
        preferences->close();
        types->close();
    }
}

VX_TEST_MAIN(tst_PaneOptions)
#include "tst_paneoptions.moc"
