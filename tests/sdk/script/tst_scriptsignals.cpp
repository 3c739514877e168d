// Signals of host objects in scripts: they can be connected but not called, and a handler may
// change what is being announced.

#include "testing/vxtestmain.h"

#include <QtScript/QScriptEngine>
#include <QtTest/QtTest>
#include <memory>
#include <testing/vxwarningguard.h>
#include <vector>
#include <vxcore/vxaction.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxundostack.h>

namespace {

/// Records reports about nodes, as a view would; it uses every node that it is given.
class NodeListener : public QObject
{
public:
    explicit NodeListener(VxScene *scene)
    {
        connect(scene, &VxScene::nodeAdded, this, [this](VxNode *node) { use(node); });
        connect(scene, &VxScene::aboutToRemoveNode, this, [this](VxNode *node) { use(node); });
        connect(scene, &VxScene::nodeRemoved, this, [this](VxNode *node) { use(node); });
        connect(scene, &VxScene::nodeOrderChanged, this, [this](VxNode *node) { use(node); });
        connect(scene, &VxScene::nodeVisibleChanged, this, [this](VxNode *node) { use(node); });
        connect(scene, &VxScene::nodePropertiesChanged, this, [this](VxNode *node) { use(node); });
        connect(scene, &VxScene::primarySelectionChanged, this, [this](VxNode *node) {
            if (node)
                use(node);
        });
        connect(scene, &VxScene::nodeParentChanged, this,
                [this](VxNode *node, VxNode *oldParent, VxNode *newParent) {
                    use(node);
                    for (VxNode *parent : {oldParent, newParent}) {
                        if (parent)
                            use(parent);
                    }
                });
    }

    QStringList names;

private:
    void use(VxNode *node)
    {
        names.append(node->getLabel());
        for (int i = 0; i < node->getNumProperties(); ++i)
            names.last() += node->getProperty(i)->getName().left(1);
    }
};

} // namespace

class TestScriptSignals : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void signalsCannotBeCalled_data();
    void signalsCannotBeCalled();
    void signalsCanBeConnectedAndEmitted();
    void toolkitObjectsStayOutside();
    void handlersMayRemoveTheReportedNode_data();
    void handlersMayRemoveTheReportedNode();
    void removedNodesAreDestroyedAfterwards();

private:
    QString run(const QString &program, VxScriptError *error = nullptr);

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
};

void TestScriptSignals::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
    m_app->getScriptEngine()->registerHost();
    // As the host does for a new document.
    QScriptEngine *engine = m_app->getScriptEngine()->engine();
    const auto clearScene = [](QScriptContext *, QScriptEngine *) {
        vxScene->clear();
        return QScriptValue();
    };
    engine->globalObject().setProperty(QStringLiteral("clearScene"),
                                       engine->newFunction(clearScene));
}

void TestScriptSignals::cleanup()
{
    m_app.reset();
    m_guard.reset();
}

QString TestScriptSignals::run(const QString &program, VxScriptError *error)
{
    VxScriptError local;
    const QString result =
        m_app->getScriptEngine()->evaluate(program, QStringLiteral("test"), error ? error : &local);
    if (!error && !local.isNull())
        return local.toString();
    return result;
}

void TestScriptSignals::signalsCannotBeCalled_data()
{
    QTest::addColumn<QString>("call");
    for (const char *call : {"Scene.nodeAdded(null)",
                             "Scene.nodeAdded(node)",
                             "Scene.nodeOrderChanged({})",
                             "Scene.timeChanged(7)",
                             "Scene['nodeAdded(VxNode*)'](null)",
                             "Scene['nodeAdded( VxNode * )'](null)",
                             "Scene.nodeAdded.call(Scene, node)",
                             "Scene.nodeAdded.apply(Scene, [node])",
                             "Scene.destroyed()",
                             "Undo.indexChanged(0)",
                             "node.destroyed(true)",
                             "node.destroyed(node)",
                             "node.propertyAdded(null)",
                             "node.parentChanged(null, null, null)",
                             "property.valueChanged({})",
                             "property.propertyDeleted(null)",
                             "property.destroyed()",
                             "action.triggered(true)",
                             "action.destroyed(action)",
                             "pane.destroyed()",
                             "pane.windowTitleChanged('x')"})
        QTest::newRow(call) << QString::fromLatin1(call);
}

void TestScriptSignals::signalsCannotBeCalled()
{
    QFETCH(QString, call);
    NodeListener listener(m_app->getScene());
    VxAction action(QStringLiteral("Do"));
    VxPane pane(QStringLiteral("Pane"));
    QScriptEngine *engine = m_app->getScriptEngine()->engine();
    engine->globalObject().setProperty(QStringLiteral("action"), engine->newQObject(&action));
    engine->globalObject().setProperty(QStringLiteral("pane"), engine->newQObject(&pane));
    run(QStringLiteral("node = Scene.addNode('n'); property = node.getXPosControl();"));
    const int before = listener.names.size();
    VxScriptError error;
    run(call, &error);
    QVERIFY2(error.message.contains(QLatin1String("is a signal")), qPrintable(error.toString()));
    QCOMPARE(listener.names.size(), before);
    QCOMPARE(run(QStringLiteral("var caught = false; try { %1 } catch (e) { caught = e instanceof "
                                "TypeError; } caught")
                     .arg(call)),
             QStringLiteral("true"));
}

void TestScriptSignals::signalsCanBeConnectedAndEmitted()
{
    QCOMPARE(run(QStringLiteral("var seen = []; function note(n) { seen.push(n.name); }\n"
                                "Scene.nodeAdded.connect(note); Scene.addNode('a');\n"
                                "Scene.nodeAdded.disconnect(note); Scene.addNode('b'); seen")),
             QStringLiteral("a"));
    // A signal as the receiver of another one would be a call.
    NodeListener listener(m_app->getScene());
    const QString result = run(
        QStringLiteral("Scene.nodeAdded.connect(Scene, Scene.nodeRemoved); Scene.addNode('c')"));
    QVERIFY2(result.contains(QLatin1String("is a signal")), qPrintable(result));
    QCOMPARE(listener.names.size(), 1);
}

void TestScriptSignals::toolkitObjectsStayOutside()
{
    VxPane pane(QStringLiteral("Pane"));
    QScriptEngine *engine = m_app->getScriptEngine()->engine();
    QObject *widget = &pane;
    QVERIFY(engine->toScriptValue(widget).isNull());
}

void TestScriptSignals::handlersMayRemoveTheReportedNode_data()
{
    QTest::addColumn<QString>("program");
    const auto row = [](const char *title, const char *program) {
        QTest::newRow(title) << QString::fromLatin1(program);
    };
    row("an added node is removed", "Scene.nodeAdded.connect(function(n) { Scene.removeNode(n); });"
                                    "Scene.addNode('a'); Scene.getNodes().length");
    row("an added node is removed, parent and all",
        "p = Scene.addNode('p'); Scene.nodeAdded.connect(function(n) { Scene.removeNode(p); });"
        "Scene.addNode('a', p); Scene.getNodes().length");
    row("the scene is cleared while a node is added",
        "Scene.nodeAdded.connect(function(n) { clearScene(); }); Scene.addNode('a');"
        "Scene.getNodes().length");
    row("the scene is cleared while a node is removed",
        "once = 0; Scene.aboutToRemoveNode.connect(function(n) { if (!once++) clearScene(); });"
        "p = Scene.addNode('p'); Scene.addNode('a', p); Scene.removeNode(p);"
        "Scene.getNodes().length");
    row("a child is removed before its parent",
        "p = Scene.addNode('p'); c = Scene.addNode('c', p); d = Scene.addNode('d', c);"
        "Scene.aboutToRemoveNode.connect(function(n) { if (n === p) Scene.removeNode(c); });"
        "Scene.removeNode(p); Scene.getNodes().length");
    row("nodes are removed while a node moves",
        "p = Scene.addNode('p'); q = Scene.addNode('q'); c = Scene.addNode('c', p);"
        "c.parentChanged.connect(function() { Scene.removeNode(q); Scene.removeNode(p); });"
        "c.setParent(q); Scene.getNodes().length");
    row("a hidden node is removed",
        "n = Scene.addNode('n'); n.visibleChanged.connect(function() { Scene.removeNode(n); });"
        "n.visible = false; Scene.getNodes().length");
    row("a selected node is removed", "n = Scene.addNode('n'); m = Scene.addNode('m');"
                                      "n.selectedChanged.connect(function() { clearScene(); });"
                                      "n.select(); Scene.getNodes().length");
    row("all selected nodes are removed",
        "for (i = 0; i < 9; ++i) Scene.addNode('n' + i);"
        "Scene.nodeSelectionListChanged.connect(function() { clearScene(); });"
        "Scene.selectAllNodes(true); Scene.getNodes().length");
    row("a property's node is removed while a key is set",
        "n = Scene.addNode('n'); x = n.getXPosControl();"
        "x.valueChanged.connect(function() { Scene.removeNode(n); });"
        "x.setKey(0, 1); Scene.getNodes().length");
    row("an alias is removed while its target changes",
        "n = Scene.addNode('n'); m = Scene.addNode('m');"
        "m.getXPosControl().setAlias(n.getXPosControl());"
        "m.getXPosControl().valueChanged.connect(function() { clearScene(); });"
        "n.getXPosControl().setKey(0, 1); Scene.getNodes().length");
    row("a property's node is removed while keys are moved",
        "n = Scene.addNode('n'); x = n.getXPosControl(); x.setKey(0, 1); x.setKey(160, 2);"
        "x.valueChanged.connect(function() { clearScene(); });"
        "x.moveKeys([0, 1], [320, 480]); Scene.getNodes().length");
    row("a property's node is removed while a trait changes",
        "n = Scene.addNode('n'); x = n.getXPosControl();"
        "x.traitsChanged.connect(function() { clearScene(); });"
        "x.setAlias(n.getYPosControl()); Scene.getNodes().length");
    row("a renamed node is removed",
        "n = Scene.addNode('n'); n.labelChanged.connect(function() { clearScene(); });"
        "n.label = 'other'; Scene.getNodes().length");
    row("a node is removed while it gets an object",
        "n = Scene.addNode('n'); n.objectChanged.connect(function() { clearScene(); });"
        "n.addObject('o'); Scene.getNodes().length");
    row("an object is replaced while it is announced",
        "n = Scene.addNode('n'); count = 0;"
        "n.objectChanged.connect(function() { if (++count < 3) n.addObject('o' + count); });"
        "n.addObject('o'); clearScene(); Scene.getNodes().length");
    row("a node is removed while it gets a property",
        "n = Scene.addNode('n'); n.propertyAdded.connect(function() { Scene.removeNode(n); });"
        "n.addFloatProperty('p', '/A'); Scene.getNodes().length");
    row("the history is cleared by a recorded removal",
        "n = Scene.addNode('n'); Scene.nodeRemoved.connect(function() { Undo.clear(); });"
        "Undo.beginHold(); Scene.removeNode(n); Undo.acceptHold('x'); Undo.undo();"
        "clearScene(); Scene.getNodes().length");
    row("the history is cleared by an undo step",
        "n = Scene.addNode('n'); Undo.beginHold(); Scene.removeNode(n); Undo.acceptHold('x');"
        "Scene.nodeAdded.connect(function() { Undo.clear(); });"
        "Undo.undo(); Undo.redo(); clearScene(); Scene.getNodes().length");
    row("the scene is cleared by an undo step",
        "n = Scene.addNode('n'); m = Scene.addNode('m', n);"
        "Undo.beginHold(); n.getXPosControl().setKey(0, 1); Scene.removeNode(m);"
        "Undo.acceptHold('x'); Scene.nodeAdded.connect(function() { clearScene(); });"
        "Undo.undo(); Undo.redo(); Scene.getNodes().length");
    row("the scene is cleared at the end of a block",
        "n = Scene.addNode('n'); Undo.beginHold(); n.getXPosControl().setKey(0, 1);"
        "n.getYPosControl().setKey(0, 1); Undo.acceptHold('x');"
        "n.getXPosControl().valueChanged.connect(function() { clearScene(); });"
        "Undo.undo(); Undo.redo(); Scene.getNodes().length");
}

void TestScriptSignals::handlersMayRemoveTheReportedNode()
{
    QFETCH(QString, program);
    // Listeners before the script's handlers and after them.
    std::vector<std::unique_ptr<NodeListener>> listeners;
    listeners.push_back(std::make_unique<NodeListener>(m_app->getScene()));
    QScriptEngine *engine = m_app->getScriptEngine()->engine();
    const auto observe = [](QScriptContext *, QScriptEngine *, void *list) {
        static_cast<std::vector<std::unique_ptr<NodeListener>> *>(list)->push_back(
            std::make_unique<NodeListener>(vxScene));
        return QScriptValue();
    };
    engine->globalObject().setProperty(QStringLiteral("observe"),
                                       engine->newFunction(observe, &listeners));
    QString observed = program;
    observed.replace(QStringLiteral("});"), QStringLiteral("}); observe();"));
    QCOMPARE(run(observed), QStringLiteral("0"));
    QCOMPARE(listeners.size(), size_t(2));
    QCOMPARE(m_app->getScene()->getNumNodes(), 0);
}

void TestScriptSignals::removedNodesAreDestroyedAfterwards()
{
    run(QStringLiteral("Scene.nodeAdded.connect(function(n) { last = n; Scene.removeNode(n); });"
                       "Scene.addNode('a');"));
    QVERIFY(!m_app->getScriptEngine()->engine()->globalObject().property("last").toQObject());
}

VX_TEST_MAIN(TestScriptSignals)
#include "tst_scriptsignals.moc"
