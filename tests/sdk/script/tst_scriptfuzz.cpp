// Random scripts: every function of every host object with every kind of wrong argument, and
// handlers that change the scene while it is being announced. The seed is the first argument of
// VX_FUZZ_SEED.

#include "script/scriptmembers.h"
#include "testing/vxtestmain.h"

#include <QtScript/QScriptEngine>
#include <QtTest/QtTest>
#include <cmath>
#include <memory>
#include <random>
#include <set>
#include <vxcore/vxaction.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxundostack.h>

namespace {

/// Reads what signals report, as views do.
class Reader : public QObject
{
public:
    explicit Reader(VxScene *scene)
    {
        connect(scene, &VxScene::nodeAdded, this, &Reader::read);
        connect(scene, &VxScene::aboutToRemoveNode, this, &Reader::read);
        connect(scene, &VxScene::nodeRemoved, this, &Reader::read);
        connect(scene, &VxScene::nodePropertiesChanged, this, &Reader::read);
        connect(scene, &VxScene::primarySelectionChanged, this, &Reader::read);
        connect(scene, &VxScene::nodeSelectionListChanged, this, [scene] {
            for (const VxNode *node : scene->getSelectedNodes())
                read(node);
        });
    }

    static void read(const VxNode *node)
    {
        if (!node)
            return;
        m_sum += node->getLabel().size() + node->getDepth();
        for (const VxProperty *property : node->getPropertyGroups()->collectAllProperties())
            m_sum += property->getNumKeys();
    }

private:
    static inline qint64 m_sum = 0;
};

/// Functions that would end the test, block, or fill the memory.
bool isLeftOut(const QString &name)
{
    static const std::set<QString> names{
        QStringLiteral("play"),      QStringLiteral("processEvents"), QStringLiteral("constructor"),
        QStringLiteral("__proto__"), QStringLiteral("deleteLater"),   QStringLiteral("beginLoad"),
        QStringLiteral("endLoad"),   QStringLiteral("connect"),       QStringLiteral("disconnect")};
    return names.count(name) > 0 || name.startsWith(QLatin1Char('_'));
}

} // namespace

class TestScriptFuzz : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void everyFunctionWithWrongArguments();
    void handlersThatChangeTheScene_data();
    void handlersThatChangeTheScene();

private:
    int below(int count) { return int(m_random() % unsigned(count)); }
    template <class List> auto pick(const List &list) { return list.at(below(int(list.size()))); }
    bool run(const QString &program);
    QString object();
    QString argument();
    QString call();
    QString handler();
    void checkScene() const;

    std::unique_ptr<VxApp> m_app;
    std::mt19937 m_random;
    int m_errors = 0;
    int m_successes = 0;
};

void TestScriptFuzz::init()
{
    // Refusals are reported as warnings as well as by results; what counts here is what follows.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
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
    m_errors = m_successes = 0;
}

void TestScriptFuzz::cleanup()
{
    m_app.reset();
    qInstallMessageHandler(nullptr);
}

bool TestScriptFuzz::run(const QString &program)
{
    VxScriptError error;
    m_app->getScriptEngine()->evaluate(program, QStringLiteral("fuzz"), &error);
    ++(error.isNull() ? m_successes : m_errors);
    return error.isNull();
}

QString TestScriptFuzz::object()
{
    static const QStringList objects{QStringLiteral("Scene"),
                                     QStringLiteral("Undo"),
                                     QStringLiteral("App"),
                                     QStringLiteral("root"),
                                     QStringLiteral("child"),
                                     QStringLiteral("gone"),
                                     QStringLiteral("root.getXPosControl()"),
                                     QStringLiteral("child.getYRotControl()"),
                                     QStringLiteral("child.getObject()"),
                                     QStringLiteral("number"),
                                     QStringLiteral("text"),
                                     QStringLiteral("flag"),
                                     QStringLiteral("Scene.getNodes()[0]"),
                                     QStringLiteral("Scene.getNodes()[Scene.getNumNodes() - 1]"),
                                     QStringLiteral("root.getProperties()[3]")};
    return pick(objects);
}

QString TestScriptFuzz::argument()
{
    static const QStringList values{
        QStringLiteral("null"),
        QStringLiteral("undefined"),
        QStringLiteral("true"),
        QStringLiteral("false"),
        QStringLiteral("0"),
        QStringLiteral("1"),
        QStringLiteral("-1"),
        QStringLiteral("160"),
        QStringLiteral("2147483647"),
        QStringLiteral("-2147483648"),
        QStringLiteral("1e300"),
        QStringLiteral("-1e300"),
        QStringLiteral("NaN"),
        QStringLiteral("Infinity"),
        QStringLiteral("0.5"),
        QStringLiteral("''"),
        QStringLiteral("'n'"),
        QStringLiteral("'/a/b'"),
        QStringLiteral("new Array(90).join('/g')"),
        QStringLiteral("[]"),
        QStringLiteral("[1, 2]"),
        QStringLiteral("[null]"),
        QStringLiteral("['a']"),
        QStringLiteral("[{time: 0, value: 1}, {time: 160, value: 2, type: 2}]"),
        QStringLiteral("[{time: 0, value: NaN}]"),
        QStringLiteral("{}"),
        QStringLiteral("{start: 0, end: 10}"),
        QStringLiteral("function() { clearScene(); }"),
        QStringLiteral("new Date()"),
        QStringLiteral("/x/"),
        QStringLiteral("Math")};
    return below(3) == 0 ? object() : pick(values);
}

QString TestScriptFuzz::call()
{
    const QString target = object();
    // The members are listed anew: objects are created and destroyed.
    QScriptEngine *engine = m_app->getScriptEngine()->engine();
    const QScriptValue value = engine->evaluate(target);
    engine->clearExceptions();
    const QStringList members = value.isObject() ? ScriptMembers::names(value) : QStringList();
    if (members.isEmpty())
        return target;
    const QString name = pick(members);
    if (isLeftOut(name))
        return target;
    if (!value.property(name).isFunction())
        return QStringLiteral("%1.%2 = %3").arg(target, name, argument());
    QStringList arguments;
    for (int i = below(5); i > 0; --i)
        arguments.append(argument());
    return QStringLiteral("%1.%2(%3)").arg(target, name, arguments.join(QLatin1String(", ")));
}

QString TestScriptFuzz::handler()
{
    static const QStringList signalNames{QStringLiteral("Scene.nodeAdded"),
                                         QStringLiteral("Scene.aboutToRemoveNode"),
                                         QStringLiteral("Scene.nodeRemoved"),
                                         QStringLiteral("Scene.nodeOrderChanged"),
                                         QStringLiteral("Scene.nodeParentChanged"),
                                         QStringLiteral("Scene.nodeVisibleChanged"),
                                         QStringLiteral("Scene.nodePropertiesChanged"),
                                         QStringLiteral("Scene.nodeSelectionListChanged"),
                                         QStringLiteral("Scene.primarySelectionChanged"),
                                         QStringLiteral("Scene.timeChanged"),
                                         QStringLiteral("Scene.sceneClearStarting"),
                                         QStringLiteral("Scene.sceneCleared"),
                                         QStringLiteral("Undo.indexChanged"),
                                         QStringLiteral("root.visibleChanged"),
                                         QStringLiteral("root.labelChanged"),
                                         QStringLiteral("child.parentChanged"),
                                         QStringLiteral("child.objectChanged"),
                                         QStringLiteral("child.selectedChanged"),
                                         QStringLiteral("child.aboutToBeRemoved"),
                                         QStringLiteral("root.propertyAdded"),
                                         QStringLiteral("root.propertyRemoved"),
                                         QStringLiteral("root.getXPosControl().valueChanged"),
                                         QStringLiteral("root.getXPosControl().traitsChanged"),
                                         QStringLiteral("number.valueChanged"),
                                         QStringLiteral("number.propertyDeleted"),
                                         QStringLiteral("child.destroyed")};
    static const QStringList edits{
        QStringLiteral("clearScene()"),
        QStringLiteral("Scene.removeNode(root)"),
        QStringLiteral("Scene.removeNode(child)"),
        QStringLiteral("Scene.addNode('h', root)"),
        QStringLiteral("root.removeProperty(number)"),
        QStringLiteral("child.setParent(null)"),
        QStringLiteral("child.setParent(root)"),
        QStringLiteral("child.addObject('h')"),
        QStringLiteral("root.select(false)"),
        QStringLiteral("Scene.selectAllNodes(true)"),
        QStringLiteral("Undo.undo()"),
        QStringLiteral("Undo.redo()"),
        QStringLiteral("Undo.clear()"),
        QStringLiteral("Undo.setIndex(0)"),
        QStringLiteral("Undo.beginHold()"),
        QStringLiteral("Undo.acceptHold('h')"),
        QStringLiteral("Undo.cancelHold()"),
        QStringLiteral("number.setAlias(null)"),
        QStringLiteral("number.setAlias(root.getZPosControl())"),
        QStringLiteral("root.getXPosControl().setLink(number)"),
        QStringLiteral("root.getXPosControl().deleteAllKeys()"),
        QStringLiteral("root.addFloatProperty('h' + calls, '/h')"),
        QStringLiteral("arguments.length && Scene.removeNode(arguments[0])")};
    return QStringLiteral("%1.connect(function() { if (++calls % 3 == 0) { %2; %3; } })")
        .arg(pick(signalNames), pick(edits), pick(edits));
}

void TestScriptFuzz::checkScene() const
{
    const VxScene *scene = m_app->getScene();
    const QVector<VxNode *> nodes = scene->getNodes();
    QCOMPARE(nodes.size(), scene->getNumNodes());
    for (const VxNode *node : nodes) {
        QCOMPARE(node->getScene(), scene);
        QCOMPARE(node->getDepth(),
                 node->getNodeParent() ? node->getNodeParent()->getDepth() + 1 : 1);
        for (VxProperty *property : node->getPropertyGroups()->collectAllProperties()) {
            const VxTime *times = property->getKeyTimes();
            for (int i = 1; i < property->getNumKeys(); ++i)
                QVERIFY(times[i - 1] < times[i]);
            const auto *number = qobject_cast<VxFloatProperty *>(property);
            QVERIFY(!number || std::isfinite(number->getValue(0)));
        }
    }
    for (const VxNode *node : scene->getSelectedNodes())
        QCOMPARE(node->getScene(), scene);
}

namespace {

const QString build = QStringLiteral(
    "clearScene(); calls = 0; root = Scene.addSkeleton('root'); child = Scene.addBone('child', "
    "root);"
    "leaf = Scene.addNode('leaf', child); gone = Scene.addNode('gone'); Scene.removeNode(gone);"
    "number = root.addFloatProperty('number', '/A/B', 1); flag = root.addBoolProperty('flag', "
    "'/A');"
    "text = root.addStringProperty('text', '/A', 'x'); child.addObject('o').addMorph('m');"
    "number.setAlias(child.getXPosControl()); root.getYPosControl().setLink(number);"
    "Undo.beginHold(); child.getXPosControl().setKeys([{time: 0, value: 1}, {time: 800, value: "
    "2}]);"
    "Undo.acceptHold('Keys'); Undo.beginHold(); leaf.setParent(root); Undo.acceptHold('Move');");

} // namespace

void TestScriptFuzz::everyFunctionWithWrongArguments()
{
    const Reader reader(m_app->getScene());
    m_random.seed(20261122);
    for (int round = 0; round < 40; ++round) {
        QVERIFY(run(build));
        for (int step = 0; step < 60; ++step)
            run(call());
        while (m_app->getScene() && VxUndoStack::current()->isRecording())
            VxUndoStack::current()->cancelHold();
        checkScene();
    }
    // A generator that only makes nonsense, or nothing wrong, tests nothing.
    QVERIFY2(m_errors > 300 && m_successes > 300,
             qPrintable(QStringLiteral("%1 errors, %2 successes").arg(m_errors).arg(m_successes)));
}

void TestScriptFuzz::handlersThatChangeTheScene_data()
{
    QTest::addColumn<int>("seed");
    const int first = qEnvironmentVariableIntValue("VX_FUZZ_SEED");
    const int count = qMax(30, qEnvironmentVariableIntValue("VX_FUZZ_COUNT"));
    for (int seed = first + 1; seed <= first + count; ++seed)
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void TestScriptFuzz::handlersThatChangeTheScene()
{
    QFETCH(int, seed);
    m_random.seed(unsigned(seed));
    Reader before(m_app->getScene());
    QVERIFY(run(build));
    QStringList program;
    for (int i = 0; i < 4; ++i)
        run(handler());
    const Reader after(m_app->getScene());
    for (int step = 0; step < 40; ++step) {
        run(call());
        if (step % 10 == 9)
            run(QStringLiteral("root = Scene.addNode('root'); child = Scene.addBone('child', root);"
                               "number = root.addFloatProperty('number', '/A');"));
    }
    for (int i = 0; i < 50 && VxUndoStack::current()->isRecording(); ++i)
        VxUndoStack::current()->cancelHold();
    checkScene();
}

VX_TEST_MAIN(TestScriptFuzz)
#include "tst_scriptfuzz.moc"
