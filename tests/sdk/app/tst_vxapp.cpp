#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtScript/QScriptEngine>
#include <QtTest>
#include <QtWidgets/QStatusBar>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpaneaction.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

Q_DECLARE_METATYPE(VxPane *)

class NotesPane : public VxPane
{
    Q_OBJECT
public:
    NotesPane()
        : VxPane(QStringLiteral("Notes"))
    {
    }
    ~NotesPane() override { windowAtEnd = vxApp && vxApp->getInterface(); }
    void restoreSettings(VxSettings *settings) override
    {
        open = settings->getBoolValue(QStringLiteral("Open"));
    }
    bool open = false;
    static bool windowAtEnd;
};

bool NotesPane::windowAtEnd = false;

class CountingAction : public VxAction
{
    Q_OBJECT
public:
    CountingAction()
        : VxAction(QStringLiteral("Counting"))
    {
    }
    void init() override
    {
        ++numInits;
        foundPane = vxApp->getInterface()->getPaneMgr()->findPane(QStringLiteral("NotesPane"));
    }
    int numInits = 0;
    bool foundPane = false;
};

class NotesPaneAction : public VxPaneAction
{
    Q_OBJECT
public:
    NotesPaneAction()
        : VxPaneAction(QStringLiteral("NotesPane"))
    {
    }
};

namespace {

class NotesFactory : public VxClassFactory
{
public:
    NotesFactory()
        : VxClassFactory(&NotesPane::staticMetaObject, VxGuid())
    {
    }
    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new NotesPane; }
};

const QString notes = QStringLiteral("NotesPane");

// Asked before any application object exists, as static objects of plug-ins do.
const QString nameBeforeMain = VxApp::getAppName();

} // namespace

class tst_VxApp : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<VxPane *>(); }
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }
    void nameIsSetBeforeTheApplicationExists();
    void setsTheGlobalsAndClearsThem();
    void refusesASecondInstance();
    void ownsItsParts();
    void registersTheHostsClasses();
    void hostClassesHaveDistinctIdentifiers();
    void setsTheToolkitsStyle();
    void replacesTheStyle();
    void styleReplacesTheFormerPalette();
    void startsOnce();
    void closesOnce();
    void closesAtTheLatestAtTheEnd();
    void keptNodesAreDeletedWithTheHistory();
    void scriptEngineFindsClassesLoadedLater();
    void windowRegistersAndWithdraws();
    void aWindowWithoutApplication();
    void panesAreDeletedWhileTheWindowExists();
    void panesRestoreFromTheirGroup();
    void actionsReadTheirStateWhenAPaneIsAdded();
    void statusMessages();
    void paneActionHasThePanesTitle();
    void paneActionOpensThePane();
    void paneActionWithoutPaneShowsAMessage();
    void paneActionWithoutWindowWarns();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    NotesFactory m_notes;
};

void tst_VxApp::nameIsSetBeforeTheApplicationExists()
{
    QCOMPARE(nameBeforeMain, QStringLiteral("VxStudio"));
    QVERIFY(!vxApp);
    VxApp::setAppName(QStringLiteral("Other"));
    QCOMPARE(VxApp::getAppName(), QStringLiteral("Other"));
    VxApp::setAppName(QStringLiteral("VxStudio"));
}

void tst_VxApp::setsTheGlobalsAndClearsThem()
{
    {
        const VxApp app;
        QCOMPARE(vxApp, &app);
        QCOMPARE(vxScene, app.getScene());
    }
    QVERIFY(!vxApp);
    QVERIFY(!vxScene);
}

void tst_VxApp::refusesASecondInstance()
{
    const VxApp first;
    {
        m_guard->expect(QRegularExpression(QStringLiteral("application object already")));
        const VxApp second;
        QCOMPARE(vxApp, &first);
    }
    QCOMPARE(vxApp, &first);
}

void tst_VxApp::ownsItsParts()
{
    QPointer<VxScene> scene;
    QPointer<VxUndoStack> history;
    QPointer<VxPluginMgr> plugins;
    QPointer<VxScriptEngine> scripts;
    {
        const VxApp app;
        scene = app.getScene();
        history = app.getUndoStack();
        plugins = app.getPluginMgr();
        scripts = app.getScriptEngine();
        QVERIFY(scene && history && plugins && scripts && app.getSettings());
        QCOMPARE(app.getScriptEngine(), scripts.data());
    }
    QVERIFY(!scene && !history && !plugins && !scripts);
}

void tst_VxApp::registersTheHostsClasses()
{
    const VxApp app;
    QStringList names;
    for (const VxClassFactory *factory : app.getPluginMgr()->getClassFactories())
        names.append(factory->className());
    QCOMPARE(names, (QStringList{QStringLiteral("VxParametersPane"),
                                 QStringLiteral("VxClearKeysFigureAction"),
                                 QStringLiteral("VxClearKeysFigurePoseAction"),
                                 QStringLiteral("VxClearKeysFigureShapeAction"),
                                 QStringLiteral("VxClearKeysSelectedItemsAction"),
                                 QStringLiteral("VxClearKeysPoseAction"),
                                 QStringLiteral("VxClearKeysShapeAction")}));
    for (const VxClassFactory *factory : app.getPluginMgr()->getClassFactories()) {
        const std::unique_ptr<QObject> object(factory->createInstance());
        QCOMPARE(QString::fromLatin1(object->metaObject()->className()), factory->className());
    }
}

void tst_VxApp::hostClassesHaveDistinctIdentifiers()
{
    const VxApp app;
    QSet<QString> identifiers;
    for (const VxClassFactory *factory : app.getPluginMgr()->getClassFactories()) {
        QVERIFY(!factory->guid().isNull());
        identifiers.insert(factory->guid().toString());
    }
    QCOMPARE(identifiers.size(), app.getPluginMgr()->getClassFactories().size());
}

void tst_VxApp::setsTheToolkitsStyle()
{
    const VxApp app;
    QVERIFY(app.getStyle());
    QCOMPARE(QApplication::style(), app.getStyle());
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             app.getStyle()->standardPalette().color(QPalette::Window));
}

void tst_VxApp::replacesTheStyle()
{
    VxApp app;
    const QPointer<VxStyle> former = app.getStyle();
    VxStyle *light = new VxStyle(VxStyle::ColorScheme::Light);
    const QColor window = light->standardPalette().color(QPalette::Window);
    QVERIFY(window != QApplication::palette().color(QPalette::Window));
    VxStyle *reported = nullptr;
    int count = 0;
    connect(&app, &VxApp::styleChanged, this, [&](VxStyle *style) {
        reported = style;
        ++count;
    });
    app.setStyle(light);
    QCOMPARE(app.getStyle(), light);
    QCOMPARE(reported, light);
    QVERIFY(!former);
    QCOMPARE(QApplication::palette().color(QPalette::Window), window);
    app.setStyle(light);
    app.setStyle(nullptr);
    QCOMPARE(app.getStyle(), light);
    QCOMPARE(count, 1);
}

void tst_VxApp::styleReplacesTheFormerPalette()
{
    VxApp app;
    app.getStyle()->setColorScheme(VxStyle::ColorScheme::Light);
    VxStyle *dark = new VxStyle(VxStyle::ColorScheme::Dark);
    app.setStyle(dark);
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             dark->standardPalette().color(QPalette::Window));
}

void tst_VxApp::startsOnce()
{
    VxApp app;
    QSignalSpy starting(&app, &VxApp::starting);
    QVERIFY(!app.isStarted());
    app.start();
    app.start();
    QVERIFY(app.isStarted());
    QCOMPARE(starting.size(), 1);
}

void tst_VxApp::closesOnce()
{
    VxApp app;
    bool closingWhenEmitted = false;
    QSignalSpy closing(&app, &VxApp::closing);
    connect(&app, &VxApp::closing, this, [&] { closingWhenEmitted = app.isClosing(); });
    QVERIFY(!app.isClosing());
    app.beginClosing();
    app.beginClosing();
    QCOMPARE(closing.size(), 1);
    QVERIFY(closingWhenEmitted);
}

void tst_VxApp::closesAtTheLatestAtTheEnd()
{
    int count = 0;
    {
        const VxApp app;
        connect(&app, &VxApp::closing, this, [&] { ++count; });
    }
    QCOMPARE(count, 1);
}

void tst_VxApp::keptNodesAreDeletedWithTheHistory()
{
    QPointer<VxNode> node(new VxNode(QStringLiteral("node")));
    bool sceneLived = false;
    {
        const VxApp app;
        vxScene->addNode(node);
        {
            VxUndoStackHold hold;
            vxScene->removeNode(node);
            hold.accept(QStringLiteral("Remove"));
        }
        QVERIFY(node);
        QCOMPARE(app.getUndoStack()->count(), 1);
        connect(node, &QObject::destroyed, this, [&] { sceneLived = vxScene != nullptr; });
    }
    QVERIFY(!node);
    QVERIFY(sceneLived);
}

void tst_VxApp::scriptEngineFindsClassesLoadedLater()
{
    const VxApp app;
    QScriptEngine *engine = app.getScriptEngine()->engine();
    QVERIFY(VxClassFactory::registeredClasses(engine).contains(
        QStringLiteral("VxClearKeysPoseAction")));
    VxPlugin plugin(QStringLiteral("Late"), QString(), QString(), 1, 0, 0, 0);
    plugin.addClassFactory(&m_notes);
    QVERIFY(!VxClassFactory::registeredClasses(engine).contains(notes));
    app.getPluginMgr()->addPlugin(&plugin);
    QVERIFY(VxClassFactory::registeredClasses(engine).contains(notes));
}

void tst_VxApp::windowRegistersAndWithdraws()
{
    const VxApp app;
    QVERIFY(!app.getInterface());
    QVERIFY(!app.getDialogParent());
    {
        const VxMainWindow window;
        QCOMPARE(app.getInterface(), &window);
        QCOMPARE(app.getDialogParent(), &window);
        QVERIFY(window.getActionMgr() && window.getPaneMgr() && window.getViewportMgr());
    }
    QVERIFY(!app.getInterface());
}

void tst_VxApp::aWindowWithoutApplication()
{
    VxMainWindow window;
    window.getPaneMgr()->addPane(new NotesPane);
    QCOMPARE(window.getPaneMgr()->getPanes().size(), 1);
}

void tst_VxApp::panesAreDeletedWhileTheWindowExists()
{
    const VxApp app;
    {
        VxMainWindow window;
        NotesPane *pane = new NotesPane;
        window.getPaneMgr()->addPane(pane);
        window.setCentralWidget(pane);
        NotesPane::windowAtEnd = false;
    }
    QVERIFY(NotesPane::windowAtEnd);
}

void tst_VxApp::panesRestoreFromTheirGroup()
{
    const VxApp app;
    app.getSettings()
        ->getSettings(QStringLiteral("Panes"))
        ->getSettings(notes)
        ->setBoolValue(QStringLiteral("Open"), true);
    app.getPluginMgr()->addClassFactory(&m_notes);
    const VxMainWindow window;
    window.getPaneMgr()->createPanes(app.getPluginMgr());
    QVERIFY(static_cast<NotesPane *>(window.getPaneMgr()->findPane(notes))->open);
}

void tst_VxApp::actionsReadTheirStateWhenAPaneIsAdded()
{
    const VxApp app;
    app.getPluginMgr()->addClassFactory(&m_notes);
    const VxMainWindow window;
    CountingAction *action = new CountingAction;
    window.getActionMgr()->addAction(action);
    QCOMPARE(action->numInits, 0);
    window.getPaneMgr()->createPanes(app.getPluginMgr());
    QVERIFY(window.getPaneMgr()->getPanes().size() > 1);
    QCOMPARE(action->numInits, 1); // once for all that are announced together
    QVERIFY(action->foundPane);
    delete window.getPaneMgr()->findPane(notes);
    QVERIFY(window.getPaneMgr()->findOrCreatePane(notes));
    QCOMPARE(action->numInits, 2);
}

void tst_VxApp::statusMessages()
{
    VxMainWindow window;
    window.showStatusMessage(QStringLiteral("Hello"), 0);
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Hello"));
}

void tst_VxApp::paneActionHasThePanesTitle()
{
    const VxApp app;
    app.getPluginMgr()->addClassFactory(&m_notes);
    const VxMainWindow window;
    NotesPaneAction *action = new NotesPaneAction;
    window.getActionMgr()->addAction(action);
    QCOMPARE(action->getPaneClassName(), notes);
    QCOMPARE(action->objectName(), QStringLiteral("NotesPaneAction"));
    QCOMPARE(action->text(), notes);
    QCOMPARE(action->getDefaultMenuPath(), QStringLiteral("Window/Panes"));
    QCOMPARE(action->getActionGroup(), QStringLiteral("Panes"));
    QVERIFY(!action->isCheckable());
    window.getPaneMgr()->createPanes(app.getPluginMgr());
    QCOMPARE(action->text(), QStringLiteral("Notes"));
    QCOMPARE(action->toolTip(), QStringLiteral("Notes"));
    QVERIFY(action->statusTip().contains(QLatin1String("\"Notes\"")));
}

void tst_VxApp::paneActionOpensThePane()
{
    const VxApp app;
    app.getPluginMgr()->addClassFactory(&m_notes);
    const VxMainWindow window;
    QSignalSpy requested(window.getPaneMgr(), &VxPaneMgr::showRequested);
    NotesPaneAction action;
    action.trigger();
    VxPane *pane = window.getPaneMgr()->findPane(notes);
    QVERIFY(pane);
    QCOMPARE(requested.size(), 1);
    action.trigger();
    QCOMPARE(window.getPaneMgr()->findPane(notes), pane);
    QCOMPARE(requested.size(), 2);
    QCOMPARE(requested.at(1).at(0).value<VxPane *>(), pane);
}

void tst_VxApp::paneActionWithoutPaneShowsAMessage()
{
    const VxApp app;
    VxMainWindow window;
    NotesPaneAction action;
    action.trigger();
    QVERIFY(window.statusBar()->currentMessage().contains(notes));
}

void tst_VxApp::paneActionWithoutWindowWarns()
{
    NotesPaneAction action;
    m_guard->expect(QRegularExpression(QStringLiteral("\"NotesPane\" cannot be opened")));
    action.trigger();
}

VX_TEST_MAIN(tst_VxApp)
#include "tst_vxapp.moc"
