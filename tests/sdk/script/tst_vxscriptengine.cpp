// The script engine: errors and where they are, printing, and what the manual's examples do.

#include "testing/vxtestmain.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtScript/QScriptEngine>
#include <QtTest/QtTest>
#include <testing/vxwarningguard.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

struct Example
{
    QString program;
    QString output;
    int line; ///< of the first line of the program, in the manual
};

/// Reads the pairs of a ```js and a ```text block from a manual.
QVector<Example> examplesOf(const QString &manual)
{
    QVector<Example> examples;
    QString *block = nullptr;
    QString ignored;
    const QStringList lines = manual.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QString &line = lines.at(i);
        if (block && line == QLatin1String("```")) {
            block = nullptr;
        } else if (line == QLatin1String("```js")) {
            examples.append({QString(), QString(), i + 2});
            block = &examples.last().program;
        } else if (line == QLatin1String("```text")) {
            block = examples.isEmpty() ? &ignored : &examples.last().output;
        } else if (block) {
            *block += line + QLatin1Char('\n');
        }
    }
    return examples;
}

} // namespace

class TestScriptEngine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void valueOfTheLastStatement();
    void printJoinsItsArguments();
    void errorsNameFileAndLine_data();
    void errorsNameFileAndLine();
    void missingFileIsAnErrorWithoutALine();
    void argumentsAreAvailable();
    void globalNamesAreSorted();
    void membersBehindADot_data();
    void membersBehindADot();
    void membersRunNothing();
    void incompletePrograms_data();
    void incompletePrograms();
    void runningIsReported();
    void endlessLoopCanBeStopped();
    void deletedObjectGivesAnError();
    void wrapperNeverOwnsTheObject();
    void scriptEditsAreUndoneLikeOthers();
    void keysOfScriptsKeepTheLimits_data();
    void keysOfScriptsKeepTheLimits();
    void holdsEndWithTheProgram_data();
    void holdsEndWithTheProgram();
    void anotherParentWithAndWithoutThePlace();
    void nodesAreNotNestedTooDeeply();
    void manualExamplesPrintTheDocumentedResults();
    void badArguments_data();
    void badArguments();
    void functionsCannotBeRedirected();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    VxScriptEngine *m_engine = nullptr;
    QStringList m_printed;
};

void TestScriptEngine::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_app = std::make_unique<VxApp>();
    m_engine = m_app->getScriptEngine();
    m_engine->registerHost();
    m_printed.clear();
    connect(m_engine, &VxScriptEngine::printed, this,
            [this](const QString &text) { m_printed.append(text); });
}

void TestScriptEngine::cleanup()
{
    m_app.reset();
    m_guard.reset();
}

void TestScriptEngine::valueOfTheLastStatement()
{
    VxScriptError error;
    QCOMPARE(m_engine->evaluate(QStringLiteral("1 + 2"), {}, &error), QStringLiteral("3"));
    QVERIFY(error.isNull());
    QCOMPARE(m_engine->evaluate(QStringLiteral("var a = 1;")), QString());
}

void TestScriptEngine::printJoinsItsArguments()
{
    m_engine->evaluate(QStringLiteral("print('a', 1, true); print()"));
    QCOMPARE(m_printed, (QStringList{QStringLiteral("a 1 true"), QString()}));
}

void TestScriptEngine::errorsNameFileAndLine_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<int>("line");
    QTest::newRow("syntax") << "var a = 1;\nvar b = ;\n" << 2;
    QTest::newRow("unknown name") << "\n\nnobody.call();" << 3;
    QTest::newRow("thrown by the program") << "\nthrow new Error('x');" << 2;
    QTest::newRow("thrown by a native function") << "Scene.addNode(1);" << 1;
}

void TestScriptEngine::errorsNameFileAndLine()
{
    QFETCH(QString, program);
    VxScriptError error;
    m_engine->evaluate(program, QStringLiteral("test.js"), &error);
    QVERIFY(!error.isNull());
    QTEST(error.line, "line");
    QVERIFY(error.toString().startsWith(QStringLiteral("test.js:%1: ").arg(error.line)));
    m_engine->evaluate(program, QStringLiteral("%1%2%3.js"), &error);
    QCOMPARE(error.toString(), QStringLiteral("%1%2%3.js:") + QString::number(error.line) +
                                   QStringLiteral(": ") + error.message);
    QCOMPARE(m_engine->evaluate(QStringLiteral("2"), {}, &error), QStringLiteral("2"));
    QVERIFY(error.isNull());
}

void TestScriptEngine::missingFileIsAnErrorWithoutALine()
{
    VxScriptError error;
    QVERIFY(!m_engine->runFile(QStringLiteral("nowhere.js"), &error));
    QVERIFY(error.toString().startsWith(QLatin1String("nowhere.js: The file cannot be read")));
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("program.js")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("print('\xc3\xa4')");
    file.close();
    QVERIFY(m_engine->runFile(file.fileName(), &error));
    QCOMPARE(m_printed, QStringList{QString(QChar(0xe4))});
}

void TestScriptEngine::argumentsAreAvailable()
{
    m_engine->setArguments({QStringLiteral("one"), QStringLiteral("2")});
    QCOMPARE(m_engine->evaluate(QStringLiteral("arguments.length + arguments[1]")),
             QStringLiteral("22"));
}

void TestScriptEngine::globalNamesAreSorted()
{
    const QStringList names = m_engine->globalNames();
    QStringList sorted = names;
    sorted.sort();
    QCOMPARE(names, sorted);
    for (const char *name : {"App", "Scene", "Undo", "arguments", "print"})
        QVERIFY2(names.contains(QLatin1String(name)), name);
}

void TestScriptEngine::membersBehindADot_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("member");
    QTest::addColumn<bool>("found");
    QTest::newRow("slot of an object") << "Scene"
                                       << "stepTime" << true;
    QTest::newRow("property of an object") << "Scene"
                                           << "timeStep" << true;
    QTest::newRow("function of its prototype") << "Scene"
                                               << "addBone" << true;
    QTest::newRow("node in a variable") << "arm"
                                        << "label" << true;
    QTest::newRow("function of the prototype's prototype") << "arm"
                                                           << "addFloatProperty" << true;
    QTest::newRow("element of an array") << "list[0]"
                                         << "getXRotControl" << true;
    QTest::newRow("member of a member") << "list[1].inner"
                                        << "deep" << true;
    QTest::newRow("index out of range") << "list[7]"
                                        << "deep" << false;
    QTest::newRow("indexes are no names") << "list"
                                          << "0" << false;
    QTest::newRow("built-in object") << "Math"
                                     << "sqrt" << true;
    QTest::newRow("text") << "name"
                          << "length" << false;
    QTest::newRow("unknown name") << "nobody"
                                  << "label" << false;
    QTest::newRow("nothing") << ""
                             << "Scene" << false;
    QTest::newRow("call") << "Scene.getNodes()"
                          << "length" << false;
    QTest::newRow("two dots") << "Scene..time"
                              << "label" << false;
    QTest::newRow("number") << "12"
                            << "label" << false;
}

void TestScriptEngine::membersBehindADot()
{
    QFETCH(QString, expression);
    QFETCH(QString, member);
    m_engine->evaluate(QStringLiteral("var arm = Scene.addBone('arm'); var name = 'text';"
                                      "var list = [arm, { inner: { deep: 1 } }];"));
    const QStringList names = m_engine->memberNames(expression);
    QTEST(names.contains(member), "found");
    QStringList sorted = names;
    sorted.sort();
    sorted.removeDuplicates();
    QCOMPARE(names, sorted);
}

void TestScriptEngine::membersRunNothing()
{
    m_engine->evaluate(QStringLiteral("var calls = 0; function f() { ++calls; return Scene; }"));
    QVERIFY(m_engine->memberNames(QStringLiteral("f()")).isEmpty());
    QVERIFY(m_engine->memberNames(QStringLiteral("f")).contains(QStringLiteral("apply")));
    QCOMPARE(m_engine->evaluate(QStringLiteral("calls")), QStringLiteral("0"));
    // A removed node has no completions and causes no error.
    m_engine->evaluate(QStringLiteral("var gone = Scene.addNode('x'); Scene.removeNode(gone);"));
    m_engine->memberNames(QStringLiteral("gone.label"));
    VxScriptError error;
    QCOMPARE(m_engine->evaluate(QStringLiteral("2"), {}, &error), QStringLiteral("2"));
    QVERIFY(error.isNull());
}

void TestScriptEngine::incompletePrograms_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<bool>("complete");
    QTest::newRow("nothing") << "" << true;
    QTest::newRow("statement") << "var a = 1" << true;
    QTest::newRow("open brace") << "function f() {" << false;
    QTest::newRow("open bracket") << "print(1," << false;
    QTest::newRow("open assignment") << "a = " << false;
    QTest::newRow("open list over two lines") << "var a = [1,\n2" << false;
    QTest::newRow("wrong at its end") << "var a b" << true;
    QTest::newRow("closed again") << "function f() {\n}" << true;
    QTest::newRow("wrong, and no more text makes it right") << "var = 3" << true;
}

void TestScriptEngine::incompletePrograms()
{
    QFETCH(QString, program);
    QTEST(VxScriptEngine::isComplete(program), "complete");
}

void TestScriptEngine::runningIsReported()
{
    QVERIFY(!m_engine->isRunning());
    bool seen = false;
    connect(m_engine, &VxScriptEngine::printed, this, [&] { seen = m_engine->isRunning(); });
    m_engine->evaluate(QStringLiteral("print('now')"));
    QVERIFY(seen);
    QVERIFY(!m_engine->isRunning());
}

void TestScriptEngine::endlessLoopCanBeStopped()
{
    m_engine->setStoppable(true);
    QTimer::singleShot(50, m_engine, &VxScriptEngine::abort);
    VxScriptError error;
    m_engine->evaluate(QStringLiteral("while (true) {}"), QStringLiteral("loop.js"), &error);
    QCOMPARE(error.toString(), QStringLiteral("loop.js: Stopped"));
    QCOMPARE(m_engine->evaluate(QStringLiteral("1")), QStringLiteral("1"));
}

void TestScriptEngine::deletedObjectGivesAnError()
{
    VxScriptError error;
    m_engine->evaluate(QStringLiteral("var n = Scene.addNode('n'); var p = n.getXPosControl();"
                                      "Scene.removeNode(n); p.setKey(0, 1);"),
                       QStringLiteral("t"), &error);
    QVERIFY2(!error.isNull(), "a call on a property that is gone must fail");
}

void TestScriptEngine::wrapperNeverOwnsTheObject()
{
    m_engine->evaluate(QStringLiteral("Scene.addNode('n'); null"));
    m_engine->engine()->collectGarbage();
    QVERIFY(vxScene->findNode(QStringLiteral("n")));
}

void TestScriptEngine::scriptEditsAreUndoneLikeOthers()
{
    m_engine->evaluate(QStringLiteral("var n = Scene.addNode('n'); Undo.beginHold();"
                                      "n.getXPosControl().setKeys([{time: 0, value: 1}]);"
                                      "Undo.acceptHold('Keys')"));
    QCOMPARE(m_app->getUndoStack()->count(), 1);
    m_app->getUndoStack()->undo();
    QCOMPARE(vxScene->findNode(QStringLiteral("n"))->getXPosControl()->getNumKeys(), 0);
}

void TestScriptEngine::keysOfScriptsKeepTheLimits_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<double>("value");
    QTest::newRow("a number") << "get('Number').setKey(0, 5)" << 1.0;
    QTest::newRow("a number, far below") << "get('Number').setKey(0, -1e12)" << -2.0;
    QTest::newRow("several numbers") << "get('Number').setKeys([{time: 0, value: 5}])" << 1.0;
    QTest::newRow("in place of others")
        << "get('Number').replaceKeys(-9, 9, [{time: 0, value: 5}])" << 1.0;
    QTest::newRow("another name of the number") << "get('Alias').setKey(0, 5)" << 1.0;
    QTest::newRow("a switch") << "get('Switch').setKey(0, 7)" << 1.0;
    QTest::newRow("a whole number, free") << "get('Whole').setKey(0, -1e12)" << -2147483648.0;
    QTest::newRow("a whole number, free, above") << "get('Whole').setKey(0, 1e12)" << 2147483647.0;
    QTest::newRow("a whole number to be rounded") << "get('Whole').setKey(0, 2.5)" << 3.0;
}

void TestScriptEngine::keysOfScriptsKeepTheLimits()
{
    QFETCH(QString, program);
    auto *node = new VxNode(QStringLiteral("n"));
    vxScene->addNode(node);
    auto *number = new VxFloatProperty(QStringLiteral("Number"));
    number->setMinMax(-2.0f, 1.0f, true);
    auto *alias = new VxFloatProperty(QStringLiteral("Alias"));
    alias->setAliasedProperty(number);
    for (VxProperty *property :
         QVector<VxProperty *>{number, alias, new VxBoolProperty(QStringLiteral("Switch")),
                               new VxIntProperty(QStringLiteral("Whole"))})
        node->addProperty(property, QString());
    const QString get =
        QStringLiteral("function get(name) { property = Scene.findNode('n').findProperty(name); "
                       "return property; } ");
    VxScriptError error;
    m_engine->evaluate(get + program, QString(), &error);
    QVERIFY2(error.isNull(), qPrintable(error.toString()));
    QTEST(m_engine->evaluate(QStringLiteral("property.getKeyValues()[0]")).toDouble(), "value");
}

void TestScriptEngine::holdsEndWithTheProgram_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("forgotten") << "";
    QTest::newRow("an error") << "throw new Error('broken');";
    QTest::newRow("one in another") << "Undo.beginHold();";
}

/// Otherwise what is done by hand afterwards could not be undone, nor would it count as a change.
void TestScriptEngine::holdsEndWithTheProgram()
{
    QFETCH(QString, end);
    m_engine->evaluate(QStringLiteral("Undo.beginHold(); Scene.addNode('n');") + end);
    VxUndoStack *stack = m_app->getUndoStack();
    QVERIFY(!stack->isRecording());
    QCOMPARE(stack->count(), 1);
    QCOMPARE(stack->undoText(), QStringLiteral("Script"));
    {
        VxUndoStackHold hold;
        vxScene->setTimeStep(99);
        hold.accept(QStringLiteral("By hand"));
    }
    QCOMPARE(stack->count(), 2);
    stack->setIndex(0);
    QVERIFY(!vxScene->findNode(QStringLiteral("n")));
    // A hold from outside is left to whoever opened it.
    VxUndoStackHold outer;
    m_engine->evaluate(QStringLiteral("Scene.addNode('m')"));
    QVERIFY(stack->isRecording());
    outer.accept(QStringLiteral("Outer"));
    QCOMPARE(stack->undoText(), QStringLiteral("Outer"));
}

void TestScriptEngine::anotherParentWithAndWithoutThePlace()
{
    m_engine->evaluate(QStringLiteral("var a = Scene.addNode('a'), b = Scene.addNode('b');"));
    const VxNode *a = vxScene->findNode(QStringLiteral("a"));
    const VxNode *b = vxScene->findNode(QStringLiteral("b"));
    a->getXPosControl()->setStoredValue(3);
    QCOMPARE(m_engine->evaluate(QStringLiteral("b.setParent(a)")), QString("true"));
    QCOMPARE(b->getXPosControl()->getStoredValue(), 0.0f);
    QCOMPARE(m_engine->evaluate(QStringLiteral("b.setParent(null, -1, true)")), QString("true"));
    QCOMPARE(b->getXPosControl()->getStoredValue(), 3.0f);
    QCOMPARE(m_engine->evaluate(QStringLiteral("b.setParent(b, -1, true)")), QString("false"));
    a->getScaleControl()->setStoredValue(0);
    QCOMPARE(m_engine->evaluate(QStringLiteral("b.setParent(a, -1, true)")), QString("false"));
    QCOMPARE(b->getNodeParent(), a); // moved all the same
}

void TestScriptEngine::nodesAreNotNestedTooDeeply()
{
    const auto run = [this](const char *program) {
        VxScriptError error;
        const QString value = m_engine->evaluate(QLatin1String(program), QString(), &error);
        return error.message.isEmpty() ? value : error.message;
    };
    run("var last = null; for (var i = 0; i < 4096; ++i) last = Scene.addNode('n' + i, last);"
        "var pair = Scene.addNode('pair'); Scene.addBone('tip', pair); null");
    QVERIFY(run("Scene.addNode('beyond', last)").contains("deeper than 4096 levels"));
    QVERIFY(run("Scene.addBone('beyond', last)").contains("deeper than 4096 levels"));
    QCOMPARE(run("pair.setParent(last)"), QStringLiteral("false"));
    QCOMPARE(run("pair.setParent(last.getNodeParent())"), QStringLiteral("false"));
    QCOMPARE(run("pair.setParent(last.getNodeParent().getNodeParent())"), QStringLiteral("true"));
}

void TestScriptEngine::manualExamplesPrintTheDocumentedResults()
{
    const QString name = QStringLiteral(VX_SOURCE_DIR "/docs/scripting.md");
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QVector<Example> examples = examplesOf(QString::fromUtf8(file.readAll()));
    QVERIFY(examples.size() >= 8);
    for (const Example &example : examples) {
        m_printed.clear();
        VxScriptError error;
        m_engine->evaluate(example.program, QStringLiteral("scripting.md"), &error, example.line);
        QVERIFY2(error.isNull(), qPrintable(error.toString()));
        QCOMPARE(m_printed.join(QLatin1Char('\n')) + QLatin1Char('\n'), example.output);
    }
}

void TestScriptEngine::badArguments_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("message");
    QTest::newRow("text for a number") << "p.setKey('a', 1)"
                                       << "setKey() expects a whole number";
    QTest::newRow("fraction of a tick") << "p.setKey(0.5, 1)"
                                        << "whole number";
    QTest::newRow("not a number") << "p.setValue(NaN)"
                                  << "finite number";
    QTest::newRow("unknown interpolation") << "p.setKey(0, 1, 5)"
                                           << "0, 1 or 2";
    QTest::newRow("marker without a time") << "Scene.markers.add({ name: 'a' })"
                                           << "Scene.markers.add() expects a whole number as start";
    QTest::newRow("marker of a list") << "Scene.markers.add([{ start: 1 }, { start: NaN }])"
                                      << "expects a whole number as start of marker 1";
    QTest::newRow("marker with an unreadable colour")
        << "Scene.markers.add({ start: 1, colour: 'of the sky' })"
        << "expects a colour such as";
    QTest::newRow("marker that ends before it starts") << "Scene.markers.add({ start: 5, end: 4 })"
                                                       << "an end that is not before the start";
    QTest::newRow("no marker at all") << "Scene.markers.add(5)"
                                      << "expects a whole number as start";
    QTest::newRow("unknown unit of times") << "Scene.displayUnit = 'feet'"
                                           << "expects frames, seconds, ticks or timecode";
    QTest::newRow("negative display rate") << "Scene.displayRate = -1"
                                           << "expects a rate up to 4800";
    QTest::newRow("display rate that is no number") << "Scene.displayRate = NaN"
                                                    << "finite number";
    QTest::newRow("unknown marker") << "Scene.markers.set(12345, {})"
                                    << "has no marker with id 12345";
    QTest::newRow("no array") << "p.setKeys(3)"
                              << "expects an array";
    QTest::newRow("an array that says it is huge")
        << "var a = []; a.length = 2000000000; p.setKeys(a)"
        << "setKeys() expects a finite number as time of key 0, not nothing";
    QTest::newRow("array of numbers") << "p.setKeys([1, 2])"
                                      << "time of key 0";
    QTest::newRow("called on something else") << "p.setKeys.call(n, [])"
                                              << "VxNumericProperty";
    QTest::newRow("alias of a node") << "p.setAlias(n)"
                                     << "VxProperty";
    QTest::newRow("numbers for a range")
        << "Scene.setPlayRange(0, 10)"
        << "setPlayRange() expects an object with whole numbers as start and end as argument 1 "
           "(range), not 0";
    QTest::newRow("a range without an end") << "Scene.setAnimRange({ start: 1 })"
                                            << "setAnimRange() expects an object";
    QTest::newRow("no range") << "Scene.setPlayRange()"
                              << "not nothing";
    QTest::newRow("text for the time") << "Scene.time = 'x'"
                                       << "time expects a whole number";
    QTest::newRow("text for a set time") << "Scene.setTime('x')"
                                         << "setTime() expects a whole number";
    QTest::newRow("nothing for the time step") << "Scene.timeStep = undefined"
                                               << "timeStep expects a whole number";
    QTest::newRow("a fraction for the time step") << "Scene.setTimeStep(1.5)"
                                                  << "setTimeStep() expects a whole number";
    QTest::newRow("text for frames") << "Scene.stepTime('x', true)"
                                     << "stepTime() expects a whole number";
    QTest::newRow("no direction") << "Scene.stepTime(2)"
                                  << "stepTime() expects true or false";
    QTest::newRow("a number for a node") << "Scene.setPrimarySelection(3)"
                                         << "setPrimarySelection() expects VxNode";
    QTest::newRow("beyond 32 bits") << "p.deleteKeys(0, 1e12)"
                                    << "whole number";
}

void TestScriptEngine::badArguments()
{
    QFETCH(QString, program);
    QFETCH(QString, message);
    VxScriptError error;
    m_engine->evaluate(
        QStringLiteral("var n = Scene.addNode('n'); var p = n.getXPosControl();"
                       "Scene.setPrimarySelection(n); Scene.time = 30;"
                       "Scene.timeStep = 200; Scene.setAnimRange({start: 7, end: 9});"
                       "Scene.setPlayRange(Scene.getAnimRange());") +
            program,
        {}, &error);
    QVERIFY2(error.message.contains(message), qPrintable(error.message));
    QCOMPARE(vxScene->getTime(), 30);
    QCOMPARE(vxScene->getTimeStep(), 200);
    QVERIFY(vxScene->getPlayRange() == VxTimeRange(7, 9));
    QVERIFY(vxScene->getAnimRange() == VxTimeRange(7, 9));
    QCOMPARE(vxScene->getPrimarySelection(), vxScene->findNode(QStringLiteral("n")));
    QCOMPARE(vxScene->findNode(QStringLiteral("n"))->getXPosControl()->getNumKeys(), 0);
}

// QtScript keeps the data of a native function in a property that scripts can read and write.
void TestScriptEngine::functionsCannotBeRedirected()
{
    VxScriptError error;
    const QString result = m_engine->evaluate(
        QStringLiteral("var f = Scene.addNode; var own = [];"
                       "for (var name in f) if (f.hasOwnProperty(name)) own.push(name);"
                       "f.__qt_data__ = 5; f.length = 7;"
                       "Scene.addNode('n'); [own, f.length].join('/')"),
        {}, &error);
    QVERIFY2(error.isNull(), qPrintable(error.message));
    QCOMPARE(result, QStringLiteral("/2"));
    QCOMPARE(vxScene->getNumNodes(), 1);
}

VX_TEST_MAIN(TestScriptEngine)
#include "tst_vxscriptengine.moc"
